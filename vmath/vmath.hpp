// Elementary functions on arrays and on single values, for the kernels of other families.
//
// Errors stay below 1 unit in the last place on the whole range of double (docs/accuracy.md has the figures), special
// values are those of the C standard. A result depends on its argument alone, not on its place, its neighbours or the
// form: a single value gives the bits that an array gives. Builds may differ in the last place. Destinations may be
// sources; otherwise arrays don't overlap. The functions on lanes, to be used inside a loop, are in trig.hpp, log.hpp
// and atan2.hpp.
#pragma once
#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

void sin_array(Nox64f* d, const Nox64f* s, size_t n);
void cos_array(Nox64f* d, const Nox64f* s, size_t n);
void sincos_array(Nox64f* sine, Nox64f* cosine, const Nox64f* s, size_t n);
void atan2_array(Nox64f* d, const Nox64f* y, const Nox64f* x, size_t n);
void log_array(Nox64f* d, const Nox64f* s, size_t n);

Nox64f sin_one(Nox64f x);
Nox64f cos_one(Nox64f x);
void sincos_one(Nox64f* sine, Nox64f* cosine, Nox64f x);
Nox64f atan2_one(Nox64f y, Nox64f x);
Nox64f log_one(Nox64f x);

}  // namespace NOX_VARIANT
}  // namespace nox
