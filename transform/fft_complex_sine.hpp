// Sines and cosines of the angles from 0 to pi/4 that the twiddles of the large transforms are made of.
//
// The x87 unit computes both to 64 bits whatever its precision control says, so that the one rounding to double
// decides.
#pragma once
#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

NOX_INLINE void fft_sines(Nox64f* d, const Nox64f* angles, size_t n) {
  for (size_t i = 0; i < n; ++i) {
    long double x = angles[i];
    asm("fsin" : "+t"(x));
    d[i] = static_cast<Nox64f>(x);
  }
}
NOX_INLINE void fft_cosines(Nox64f* d, const Nox64f* angles, size_t n) {
  for (size_t i = 0; i < n; ++i) {
    long double x = angles[i];
    asm("fcos" : "+t"(x));
    d[i] = static_cast<Nox64f>(x);
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
