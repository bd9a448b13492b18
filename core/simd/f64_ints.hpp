// Doubles from and to 32-bit integers, and two vectors of doubles with their lanes in turn.
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
  // From a register: for a conversion straight from memory emulators have been seen to read as many bytes as it writes.
  __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
  asm("" : "+x"(x));
  return {_mm256_cvtepi32_pd(x)};
}
#endif

// Lanes without their fraction, of absolute value below 2^31.
NOX_INLINE F64x2 truncate(F64x2 a) { return {_mm_cvtepi32_pd(_mm_cvttpd_epi32(a.v))}; }
#if NOX_LEVEL >= 3
NOX_INLINE F64x4 truncate(F64x4 a) { return {_mm256_cvtepi32_pd(_mm256_cvttpd_epi32(a.v))}; }
#endif

// Four doubles as integers, by the rounding mode in force; what no integer holds becomes the lowest.
NOX_INLINE __m128i round_four(const Nox64f* p) {
#if NOX_LEVEL >= 3
  return _mm256_cvtpd_epi32(_mm256_loadu_pd(p));
#else
  return _mm_unpacklo_epi64(_mm_cvtpd_epi32(_mm_loadu_pd(p)), _mm_cvtpd_epi32(_mm_loadu_pd(p + 2)));
#endif
}

// first, then second = a[0], b[0], a[1], b[1], ...
NOX_INLINE void alternate(F64x2 a, F64x2 b, F64x2& first, F64x2& second) {
  first = low_halves(a, b);
  second = high_halves(a, b);
}
#if NOX_LEVEL >= 3
NOX_INLINE void alternate(F64x4 a, F64x4 b, F64x4& first, F64x4& second) {
  const __m256d low = low_halves(a, b).v, high = high_halves(a, b).v;
  first = {_mm256_permute2f128_pd(low, high, 0x20)};
  second = {_mm256_permute2f128_pd(low, high, 0x31)};
}
#endif
template <class V>
NOX_INLINE void store_alternating(V a, V b, Nox64f* d) {
  V first, second;
  alternate(a, b, first, second);
  first.store(d);
  second.store(d + V::N);
}

}  // namespace NOX_VARIANT
}  // namespace nox
