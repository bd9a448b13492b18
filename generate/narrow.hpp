// Doubles stored as small integers: rounded by the mode in force, cut to the range of the type.
#pragma once
#include "core/simd/f64_ints.hpp"
#include "core/simd/ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {

NOX_INLINE void store_sixteen(const Nox64f* s, Nox8u* d) {
  const __m128i low = _mm_packs_epi32(round_four(s), round_four(s + 4));
  const __m128i high = _mm_packs_epi32(round_four(s + 8), round_four(s + 12));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(d), _mm_packus_epi16(low, high));
}
NOX_INLINE void store_sixteen(const Nox64f* s, Nox16s* d) {
  __m128i* const to = reinterpret_cast<__m128i*>(d);
  _mm_storeu_si128(to, _mm_packs_epi32(round_four(s), round_four(s + 4)));
  _mm_storeu_si128(to + 1, _mm_packs_epi32(round_four(s + 8), round_four(s + 12)));
}
NOX_INLINE void store_sixteen(const Nox64f* s, Nox32s* d) {
  for (int i = 0; i < 16; i += 4) _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), round_four(s + i));
}

template <class T>
NOX_INLINE void narrow(const Nox64f* s, T* d, size_t n) {
  size_t i = 0;
  for (; n - i >= 16; i += 16) store_sixteen(s + i, d + i);
  for (; i < n; ++i) cut<T>(_mm_cvtsd_si32(_mm_load_sd(s + i))).store(d + i);
}

}  // namespace NOX_VARIANT
}  // namespace nox
