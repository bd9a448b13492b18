/* Elementwise vector primitives: fill, copy and move; scaled integer arithmetic; floating and complex arithmetic. */
#ifndef NOX_VECTOR_H
#define NOX_VECTOR_H

#include "nox/vector/arithmetic.h"
#include "nox/vector/fixed.h"
#include "nox/vector/flip.h"
#include "nox/vector/move.h"

#endif
