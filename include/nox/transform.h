/* Transforms: the cosine transform, one spectral value at a time, and one level of the Haar wavelet. */
#ifndef NOX_TRANSFORM_H
#define NOX_TRANSFORM_H

#include "nox/transform/dct.h"
#include "nox/transform/goertzel.h"
#include "nox/transform/haar.h"

#endif
