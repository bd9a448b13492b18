// Operations on the bits of double lanes, and the fused difference: what the elementary functions need beyond F64x2
// and F64x4.
//
// Each exists for both widths. The AVX build has no integer instructions on 256 bits and works on the two halves.
#pragma once
#include "core/simd/f64.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// All lanes of a mask set.
template <class V>
constexpr int kAllLanes = (1 << V::N) - 1;

// The bits of each lane shifted.
template <int Count>
NOX_INLINE F64x2 shift_bits_left(F64x2 a) {
  return {_mm_castsi128_pd(_mm_slli_epi64(_mm_castpd_si128(a.v), Count))};
}
template <int Count>
NOX_INLINE F64x2 shift_bits_right(F64x2 a) {
  return {_mm_castsi128_pd(_mm_srli_epi64(_mm_castpd_si128(a.v), Count))};
}
// Sum of the bits as 64-bit integers.
NOX_INLINE F64x2 add_bits(F64x2 a, F64x2 b) {
  return {_mm_castsi128_pd(_mm_add_epi64(_mm_castpd_si128(a.v), _mm_castpd_si128(b.v)))};
}
// `yes` in the lanes whose top bit is set in the mask; the other bits of the mask don't count.
NOX_INLINE F64x2 pick(F64x2 mask, F64x2 yes, F64x2 no) {
#if NOX_LEVEL >= 2
  return {_mm_blendv_pd(no.v, yes.v, mask.v)};
#else
  const __m128i top = _mm_srai_epi32(_mm_castpd_si128(mask.v), 31);
  return select({_mm_castsi128_pd(_mm_shuffle_epi32(top, 0xF5))}, yes, no);
#endif
}

#if NOX_LEVEL >= 4
template <int Count>
NOX_INLINE F64x4 shift_bits_left(F64x4 a) {
  return {_mm256_castsi256_pd(_mm256_slli_epi64(_mm256_castpd_si256(a.v), Count))};
}
template <int Count>
NOX_INLINE F64x4 shift_bits_right(F64x4 a) {
  return {_mm256_castsi256_pd(_mm256_srli_epi64(_mm256_castpd_si256(a.v), Count))};
}
NOX_INLINE F64x4 add_bits(F64x4 a, F64x4 b) {
  return {_mm256_castsi256_pd(_mm256_add_epi64(_mm256_castpd_si256(a.v), _mm256_castpd_si256(b.v)))};
}
#elif NOX_LEVEL == 3
NOX_INLINE F64x2 lower(F64x4 a) { return {_mm256_castpd256_pd128(a.v)}; }
NOX_INLINE F64x2 upper(F64x4 a) { return {_mm256_extractf128_pd(a.v, 1)}; }
NOX_INLINE F64x4 join(F64x2 low, F64x2 high) {
  return {_mm256_insertf128_pd(_mm256_castpd128_pd256(low.v), high.v, 1)};
}
template <int Count>
NOX_INLINE F64x4 shift_bits_left(F64x4 a) {
  return join(shift_bits_left<Count>(lower(a)), shift_bits_left<Count>(upper(a)));
}
template <int Count>
NOX_INLINE F64x4 shift_bits_right(F64x4 a) {
  return join(shift_bits_right<Count>(lower(a)), shift_bits_right<Count>(upper(a)));
}
NOX_INLINE F64x4 add_bits(F64x4 a, F64x4 b) { return join(add_bits(lower(a), lower(b)), add_bits(upper(a), upper(b))); }
#endif
#if NOX_LEVEL >= 3
NOX_INLINE F64x4 pick(F64x4 mask, F64x4 yes, F64x4 no) { return {_mm256_blendv_pd(no.v, yes.v, mask.v)}; }
#endif

// c - a * b: one rounding in the build that fuses, two in the others.
#if NOX_LEVEL >= 4
NOX_INLINE F64x2 nmadd(F64x2 a, F64x2 b, F64x2 c) { return {_mm_fnmadd_pd(a.v, b.v, c.v)}; }
NOX_INLINE F64x4 nmadd(F64x4 a, F64x4 b, F64x4 c) { return {_mm256_fnmadd_pd(a.v, b.v, c.v)}; }
#else
template <class V>
NOX_INLINE V nmadd(V a, V b, V c) {
  return c - a * b;
}
#endif

// Lanes that all have the given bits.
template <class V>
NOX_INLINE V all_bits(Nox64u bits) {
  Nox64f x;
  __builtin_memcpy(&x, &bits, sizeof x);
  return V::all(x);
}
template <class V>
NOX_INLINE V sign_of(V a) {
  return a & V::all(-0.0);
}

// c[0] + c[1] z + c[2] z^2 + ...
template <class V, int N>
NOX_INLINE V polynomial(const double (&c)[N], V z) {
  V sum = V::all(c[N - 1]);
#pragma GCC unroll 16
  for (int i = N - 2; i >= 0; --i) sum = madd(sum, z, V::all(c[i]));
  return sum;
}

}  // namespace NOX_VARIANT
}  // namespace nox
