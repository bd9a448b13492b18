// Lanes of doubles: F64x1, F64x2 and, in the AVX builds, F64x4, with one set of operations.
//
// The same functor runs on every width. F64x1 keeps its value in the low lane of a vector register, so all widths
// round alike and a comparison gives a mask of the same type: all bits of a lane set, or none.
#pragma once
#include <immintrin.h>

#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

struct F64x1 {
  using elem = Nox64f;
  static constexpr int N = 1;
  __m128d v;
  static NOX_INLINE F64x1 load(const elem* p) { return {_mm_load_sd(p)}; }
  static NOX_INLINE F64x1 all(elem x) { return {_mm_set_sd(x)}; }
  static NOX_INLINE F64x1 zero() { return {_mm_setzero_pd()}; }
  NOX_INLINE void store(elem* p) const { _mm_store_sd(p, v); }
};
NOX_INLINE F64x1 operator+(F64x1 a, F64x1 b) { return {_mm_add_sd(a.v, b.v)}; }
NOX_INLINE F64x1 operator-(F64x1 a, F64x1 b) { return {_mm_sub_sd(a.v, b.v)}; }
NOX_INLINE F64x1 operator*(F64x1 a, F64x1 b) { return {_mm_mul_sd(a.v, b.v)}; }
NOX_INLINE F64x1 operator/(F64x1 a, F64x1 b) { return {_mm_div_sd(a.v, b.v)}; }
NOX_INLINE F64x1 operator&(F64x1 a, F64x1 b) { return {_mm_and_pd(a.v, b.v)}; }
NOX_INLINE F64x1 operator|(F64x1 a, F64x1 b) { return {_mm_or_pd(a.v, b.v)}; }
NOX_INLINE F64x1 operator^(F64x1 a, F64x1 b) { return {_mm_xor_pd(a.v, b.v)}; }
NOX_INLINE F64x1 and_not(F64x1 no, F64x1 b) { return {_mm_andnot_pd(no.v, b.v)}; }
NOX_INLINE F64x1 min(F64x1 a, F64x1 b) { return {_mm_min_sd(a.v, b.v)}; }
NOX_INLINE F64x1 max(F64x1 a, F64x1 b) { return {_mm_max_sd(a.v, b.v)}; }
NOX_INLINE F64x1 sqrt(F64x1 a) { return {_mm_sqrt_sd(a.v, a.v)}; }
NOX_INLINE F64x1 operator==(F64x1 a, F64x1 b) { return {_mm_cmpeq_sd(a.v, b.v)}; }
NOX_INLINE F64x1 operator<(F64x1 a, F64x1 b) { return {_mm_cmplt_sd(a.v, b.v)}; }
NOX_INLINE F64x1 operator<=(F64x1 a, F64x1 b) { return {_mm_cmple_sd(a.v, b.v)}; }
NOX_INLINE F64x1 is_nan(F64x1 a) { return {_mm_cmpunord_sd(a.v, a.v)}; }
NOX_INLINE int mask_bits(F64x1 m) { return _mm_movemask_pd(m.v) & 1; }

struct F64x2 {
  using elem = Nox64f;
  static constexpr int N = 2;
  __m128d v;
  static NOX_INLINE F64x2 load(const elem* p) { return {_mm_loadu_pd(p)}; }
  static NOX_INLINE F64x2 all(elem x) { return {_mm_set1_pd(x)}; }
  static NOX_INLINE F64x2 zero() { return {_mm_setzero_pd()}; }
  NOX_INLINE void store(elem* p) const { _mm_storeu_pd(p, v); }
};
NOX_INLINE F64x2 operator+(F64x2 a, F64x2 b) { return {_mm_add_pd(a.v, b.v)}; }
NOX_INLINE F64x2 operator-(F64x2 a, F64x2 b) { return {_mm_sub_pd(a.v, b.v)}; }
NOX_INLINE F64x2 operator*(F64x2 a, F64x2 b) { return {_mm_mul_pd(a.v, b.v)}; }
NOX_INLINE F64x2 operator/(F64x2 a, F64x2 b) { return {_mm_div_pd(a.v, b.v)}; }
NOX_INLINE F64x2 operator&(F64x2 a, F64x2 b) { return {_mm_and_pd(a.v, b.v)}; }
NOX_INLINE F64x2 operator|(F64x2 a, F64x2 b) { return {_mm_or_pd(a.v, b.v)}; }
NOX_INLINE F64x2 operator^(F64x2 a, F64x2 b) { return {_mm_xor_pd(a.v, b.v)}; }
NOX_INLINE F64x2 and_not(F64x2 no, F64x2 b) { return {_mm_andnot_pd(no.v, b.v)}; }
NOX_INLINE F64x2 min(F64x2 a, F64x2 b) { return {_mm_min_pd(a.v, b.v)}; }
NOX_INLINE F64x2 max(F64x2 a, F64x2 b) { return {_mm_max_pd(a.v, b.v)}; }
NOX_INLINE F64x2 sqrt(F64x2 a) { return {_mm_sqrt_pd(a.v)}; }
NOX_INLINE F64x2 operator==(F64x2 a, F64x2 b) { return {_mm_cmpeq_pd(a.v, b.v)}; }
NOX_INLINE F64x2 operator<(F64x2 a, F64x2 b) { return {_mm_cmplt_pd(a.v, b.v)}; }
NOX_INLINE F64x2 operator<=(F64x2 a, F64x2 b) { return {_mm_cmple_pd(a.v, b.v)}; }
NOX_INLINE F64x2 is_nan(F64x2 a) { return {_mm_cmpunord_pd(a.v, a.v)}; }
NOX_INLINE int mask_bits(F64x2 m) { return _mm_movemask_pd(m.v); }

#if NOX_LEVEL >= 3
struct F64x4 {
  using elem = Nox64f;
  static constexpr int N = 4;
  __m256d v;
  static NOX_INLINE F64x4 load(const elem* p) { return {_mm256_loadu_pd(p)}; }
  static NOX_INLINE F64x4 all(elem x) { return {_mm256_set1_pd(x)}; }
  static NOX_INLINE F64x4 zero() { return {_mm256_setzero_pd()}; }
  NOX_INLINE void store(elem* p) const { _mm256_storeu_pd(p, v); }
};
NOX_INLINE F64x4 operator+(F64x4 a, F64x4 b) { return {_mm256_add_pd(a.v, b.v)}; }
NOX_INLINE F64x4 operator-(F64x4 a, F64x4 b) { return {_mm256_sub_pd(a.v, b.v)}; }
NOX_INLINE F64x4 operator*(F64x4 a, F64x4 b) { return {_mm256_mul_pd(a.v, b.v)}; }
NOX_INLINE F64x4 operator/(F64x4 a, F64x4 b) { return {_mm256_div_pd(a.v, b.v)}; }
NOX_INLINE F64x4 operator&(F64x4 a, F64x4 b) { return {_mm256_and_pd(a.v, b.v)}; }
NOX_INLINE F64x4 operator|(F64x4 a, F64x4 b) { return {_mm256_or_pd(a.v, b.v)}; }
NOX_INLINE F64x4 operator^(F64x4 a, F64x4 b) { return {_mm256_xor_pd(a.v, b.v)}; }
NOX_INLINE F64x4 and_not(F64x4 no, F64x4 b) { return {_mm256_andnot_pd(no.v, b.v)}; }
NOX_INLINE F64x4 min(F64x4 a, F64x4 b) { return {_mm256_min_pd(a.v, b.v)}; }
NOX_INLINE F64x4 max(F64x4 a, F64x4 b) { return {_mm256_max_pd(a.v, b.v)}; }
NOX_INLINE F64x4 sqrt(F64x4 a) { return {_mm256_sqrt_pd(a.v)}; }
NOX_INLINE F64x4 operator==(F64x4 a, F64x4 b) { return {_mm256_cmp_pd(a.v, b.v, _CMP_EQ_OQ)}; }
NOX_INLINE F64x4 operator<(F64x4 a, F64x4 b) { return {_mm256_cmp_pd(a.v, b.v, _CMP_LT_OS)}; }
NOX_INLINE F64x4 operator<=(F64x4 a, F64x4 b) { return {_mm256_cmp_pd(a.v, b.v, _CMP_LE_OS)}; }
NOX_INLINE F64x4 is_nan(F64x4 a) { return {_mm256_cmp_pd(a.v, a.v, _CMP_UNORD_Q)}; }
NOX_INLINE int mask_bits(F64x4 m) { return _mm256_movemask_pd(m.v); }
#endif

// Lanes in the opposite order.
NOX_INLINE F64x1 reverse(F64x1 a) { return a; }
NOX_INLINE F64x2 reverse(F64x2 a) { return {_mm_shuffle_pd(a.v, a.v, 1)}; }
#if NOX_LEVEL >= 4
NOX_INLINE F64x4 reverse(F64x4 a) { return {_mm256_permute4x64_pd(a.v, 0x1B)}; }
#elif NOX_LEVEL == 3
NOX_INLINE F64x4 reverse(F64x4 a) { return {_mm256_permute_pd(_mm256_permute2f128_pd(a.v, a.v, 1), 5)}; }
#endif

// The lower, or the upper, lane of each pair of a beside that of b: takes complex values apart and puts them together.
NOX_INLINE F64x2 low_halves(F64x2 a, F64x2 b) { return {_mm_unpacklo_pd(a.v, b.v)}; }
NOX_INLINE F64x2 high_halves(F64x2 a, F64x2 b) { return {_mm_unpackhi_pd(a.v, b.v)}; }
#if NOX_LEVEL >= 3
NOX_INLINE F64x4 low_halves(F64x4 a, F64x4 b) { return {_mm256_unpacklo_pd(a.v, b.v)}; }
NOX_INLINE F64x4 high_halves(F64x4 a, F64x4 b) { return {_mm256_unpackhi_pd(a.v, b.v)}; }
#endif

// a * b + c: one rounding in the build that fuses, two in the others.
#if NOX_LEVEL >= 4
NOX_INLINE F64x1 madd(F64x1 a, F64x1 b, F64x1 c) { return {_mm_fmadd_sd(a.v, b.v, c.v)}; }
NOX_INLINE F64x2 madd(F64x2 a, F64x2 b, F64x2 c) { return {_mm_fmadd_pd(a.v, b.v, c.v)}; }
NOX_INLINE F64x4 madd(F64x4 a, F64x4 b, F64x4 c) { return {_mm256_fmadd_pd(a.v, b.v, c.v)}; }
#else
template <class V>
NOX_INLINE V madd(V a, V b, V c) {
  return a * b + c;
}
#endif

// What follows holds for every width.
template <class V>
NOX_INLINE V select(V mask, V yes, V no) {
  return (mask & yes) | and_not(mask, no);
}
template <class V>
NOX_INLINE V abs(V a) {
  return and_not(V::all(-0.0), a);
}
template <class V>
NOX_INLINE V negate(V a) {
  return a ^ V::all(-0.0);
}

// The kind of lanes a driver works on.
struct f64 {
  using elem = Nox64f;
  using one = F64x1;
#if NOX_LEVEL >= 3
  using vec = F64x4;
#else
  using vec = F64x2;
#endif
};

}  // namespace NOX_VARIANT
}  // namespace nox
