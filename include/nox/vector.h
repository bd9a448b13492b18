/* Elementwise vector primitives: fill, copy and move; bits and bytes; integer, floating and complex arithmetic;
 * complex values in parts and in polar form. */
#ifndef NOX_VECTOR_H
#define NOX_VECTOR_H

#include "nox/vector/arithmetic.h"
#include "nox/vector/complex.h"
#include "nox/vector/convert.h"
#include "nox/vector/fixed.h"
#include "nox/vector/flip.h"
#include "nox/vector/logic.h"
#include "nox/vector/move.h"

#endif
