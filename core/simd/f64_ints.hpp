// Doubles from and to 32-bit integers, and two vectors of doubles stored side by side.
#pragma once
#include "core/simd/f64.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// V::N integers as doubles.
template <class V>
NOX_INLINE V widen(const Nox32s* p);
template <>
NOX_INLINE F64x1 widen<F64x1>(const Nox32s* p) {
  return {_mm_cvtsi32_sd(_mm_setzero_pd(), *p)};
}
template <>
NOX_INLINE F64x2 widen<F64x2>(const Nox32s* p) {
  return {_mm_cvtepi32_pd(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)))};
}
#if NOX_LEVEL >= 3
template <>
NOX_INLINE F64x4 widen<F64x4>(const Nox32s* p) {
  return {_mm256_cvtepi32_pd(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)))};
}
#endif

// Four doubles as integers, by the rounding mode in force; what no integer holds becomes the lowest.
NOX_INLINE __m128i round_four(const Nox64f* p) {
#if NOX_LEVEL >= 3
  return _mm256_cvtpd_epi32(_mm256_loadu_pd(p));
#else
  return _mm_unpacklo_epi64(_mm_cvtpd_epi32(_mm_loadu_pd(p)), _mm_cvtpd_epi32(_mm_loadu_pd(p + 2)));
#endif
}

// d = a[0], b[0], a[1], b[1], ...
NOX_INLINE void store_alternating(F64x2 a, F64x2 b, Nox64f* d) {
  low_halves(a, b).store(d);
  high_halves(a, b).store(d + 2);
}
#if NOX_LEVEL >= 3
NOX_INLINE void store_alternating(F64x4 a, F64x4 b, Nox64f* d) {
  const __m256d low = low_halves(a, b).v, high = high_halves(a, b).v;
  _mm256_storeu_pd(d, _mm256_permute2f128_pd(low, high, 0x20));
  _mm256_storeu_pd(d + 4, _mm256_permute2f128_pd(low, high, 0x31));
}
#endif

}  // namespace NOX_VARIANT
}  // namespace nox
