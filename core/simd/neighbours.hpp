// Lanes moved by one place across neighbouring vectors.
#pragma once
#include "core/simd/f64.hpp"
#include "core/simd/ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// next_lanes(a, b): a's lanes but the first, then b's first. previous_lanes(a, b): a's last, then b's but the last.
template <class T>
NOX_INLINE V128<T> next_lanes(V128<T> a, V128<T> b) {
#if NOX_LEVEL >= 1
  return {_mm_alignr_epi8(b.v, a.v, sizeof(T))};
#else
  return {_mm_or_si128(_mm_srli_si128(a.v, sizeof(T)), _mm_slli_si128(b.v, 16 - sizeof(T)))};
#endif
}
template <class T>
NOX_INLINE V128<T> previous_lanes(V128<T> a, V128<T> b) {
#if NOX_LEVEL >= 1
  return {_mm_alignr_epi8(b.v, a.v, 16 - sizeof(T))};
#else
  return {_mm_or_si128(_mm_srli_si128(a.v, 16 - sizeof(T)), _mm_slli_si128(b.v, sizeof(T)))};
#endif
}
NOX_INLINE F64x2 next_lanes(F64x2 a, F64x2 b) { return {_mm_shuffle_pd(a.v, b.v, 1)}; }
NOX_INLINE F64x2 previous_lanes(F64x2 a, F64x2 b) { return {_mm_shuffle_pd(a.v, b.v, 1)}; }

#if NOX_LEVEL >= 4
template <class T>
NOX_INLINE V256<T> next_lanes(V256<T> a, V256<T> b) {
  return {_mm256_alignr_epi8(_mm256_permute2x128_si256(a.v, b.v, 0x21), a.v, sizeof(T))};
}
template <class T>
NOX_INLINE V256<T> previous_lanes(V256<T> a, V256<T> b) {
  return {_mm256_alignr_epi8(b.v, _mm256_permute2x128_si256(a.v, b.v, 0x21), 16 - sizeof(T))};
}
#endif
#if NOX_LEVEL >= 3
NOX_INLINE F64x4 next_lanes(F64x4 a, F64x4 b) {
  return {_mm256_shuffle_pd(a.v, _mm256_permute2f128_pd(a.v, b.v, 0x21), 5)};
}
NOX_INLINE F64x4 previous_lanes(F64x4 a, F64x4 b) {
  return {_mm256_shuffle_pd(_mm256_permute2f128_pd(a.v, b.v, 0x21), b.v, 5)};
}
#endif

}  // namespace NOX_VARIANT
}  // namespace nox
