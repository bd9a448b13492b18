/* Scaled integer arithmetic on arrays of Nox8u, Nox16s, Nox32s and Nox32sc. */
#ifndef NOX_VECTOR_FIXED_H
#define NOX_VECTOR_FIXED_H

#include "nox/vector/fixed_product.h"
#include "nox/vector/fixed_sum.h"

#endif
