/* Generators: random numbers, windows, tones and other test signals. */
#ifndef NOX_GENERATE_H
#define NOX_GENERATE_H

#include "nox/generate/random.h"
#include "nox/generate/tone.h"
#include "nox/generate/window.h"

#endif
