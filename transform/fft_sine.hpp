// Sines of a quarter turn, the source of every root of unity in a transform's tables.
//
// The x87 unit computes an angle of at most an eighth of a turn with eleven bits to spare, so each value is rounded
// correctly but for rare near-ties. A root is a plain copy of a sine, found by symmetry: no recurrence, no products.
#pragma once
#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

// s[k] = sin(2 pi k / N) for k = 0 .. N / 4, with N = 2^order of at least 8.
NOX_INLINE void quarter_sines(int order, Nox64f* s) {
  const size_t quarter = (size_t{1} << order) / 4;
  const long double step = 6.283185307179586476925286766559L / static_cast<long double>(4 * quarter);
  for (size_t k = 0; k <= quarter / 2; ++k) {
    long double sine, cosine;
    asm("fsincos" : "=t"(cosine), "=u"(sine) : "0"(step * static_cast<long double>(k)));
    s[k] = static_cast<Nox64f>(sine);
    s[quarter - k] = static_cast<Nox64f>(cosine);
  }
}

// exp(-2 pi i k / N) from the sines of a quarter turn, k below N.
NOX_INLINE Nox64fc root_of_unity(const Nox64f* s, int order, size_t k) {
  const size_t quarter = (size_t{1} << order) / 4;
  const size_t turn = k / quarter, at = k % quarter;
  const Nox64f sine = s[at], cosine = s[quarter - at];
  switch (turn) {
    case 0:
      return {cosine, -sine};
    case 1:
      return {-sine, -cosine};
    case 2:
      return {-cosine, sine};
    default:
      return {sine, cosine};
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
