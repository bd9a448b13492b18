// Integer lanes computed upon as floating-point numbers: 32-bit lanes by doubles or floats and back.
//
// A functor of real lanes is applied to as many vectors of them as hold the lanes of the integer vectors; its results
// are rounded in the mode in force. A result above the range, or a NaN, must be cut off by the functor; one below it
// becomes the smallest integer by itself.
#pragma once
#include "core/simd/f32.hpp"
#include "core/simd/f64.hpp"
#include "core/simd/ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class F, class... V>
NOX_INLINE V128<Nox32s> by_floats(F f, V128<Nox32s> a, V... more) {
  return {_mm_cvtps_epi32(f(F32x4{_mm_cvtepi32_ps(a.v)}, F32x4{_mm_cvtepi32_ps(more.v)}...).v)};
}

#if NOX_LEVEL >= 3
// Four doubles. A conversion straight from memory is the quicker one where the integers come from there, but emulators
// have been seen to read as many bytes for it as it writes: `Pinned` ones come from a register.
template <bool Pinned>
NOX_INLINE F64x4 four_doubles(__m128i x) {
  if constexpr (Pinned) asm("" : "+x"(x));
  return {_mm256_cvtepi32_pd(x)};
}
#endif

template <bool Pinned = true, class F, class... V>
NOX_INLINE V128<Nox32s> by_doubles(F f, V128<Nox32s> a, V... more) {
#if NOX_LEVEL >= 3
  return {_mm256_cvtpd_epi32(f(four_doubles<Pinned>(a.v), four_doubles<Pinned>(more.v)...).v)};
#else
  const auto upper = [](__m128i x) { return F64x2{_mm_cvtepi32_pd(_mm_shuffle_epi32(x, 0xEE))}; };
  const __m128i low = _mm_cvtpd_epi32(f(F64x2{_mm_cvtepi32_pd(a.v)}, F64x2{_mm_cvtepi32_pd(more.v)}...).v);
  const __m128i high = _mm_cvtpd_epi32(f(upper(a.v), upper(more.v)...).v);
  return {_mm_unpacklo_epi64(low, high)};
#endif
}

#if NOX_LEVEL >= 4
template <class F, class... V>
NOX_INLINE V256<Nox32s> by_floats(F f, V256<Nox32s> a, V... more) {
  return {_mm256_cvtps_epi32(f(F32x8{_mm256_cvtepi32_ps(a.v)}, F32x8{_mm256_cvtepi32_ps(more.v)}...).v)};
}

template <class F, class... V>
NOX_INLINE V256<Nox32s> by_doubles(F f, V256<Nox32s> a, V... more) {
  const auto low = [](__m256i x) { return F64x4{_mm256_cvtepi32_pd(_mm256_castsi256_si128(x))}; };
  const auto high = [](__m256i x) { return F64x4{_mm256_cvtepi32_pd(_mm256_extracti128_si256(x, 1))}; };
  const __m128i first = _mm256_cvtpd_epi32(f(low(a.v), low(more.v)...).v);
  return {
      _mm256_inserti128_si256(_mm256_castsi128_si256(first), _mm256_cvtpd_epi32(f(high(a.v), high(more.v)...).v), 1)};
}
#endif

}  // namespace NOX_VARIANT
}  // namespace nox
