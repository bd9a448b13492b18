// Lanes of floats: F32x1, F32x4 and, in the AVX builds, F32x8, with their arithmetic.
//
// F32x1 keeps its value in the low lane of a vector register, so all widths round alike.
#pragma once
#include <immintrin.h>

#include "core/simd/f64.hpp"
#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

struct F32x1 {
  using elem = Nox32f;
  static constexpr int N = 1;
  __m128 v;
  // By words: the address may be any, which a load of a float as such doesn't allow for.
  static NOX_INLINE F32x1 load(const elem* p) {
    return {_mm_castsi128_ps(_mm_cvtsi32_si128(reinterpret_cast<const Word*>(p)->value))};
  }
  static NOX_INLINE F32x1 zero() { return {_mm_setzero_ps()}; }
  NOX_INLINE void store(elem* p) const { reinterpret_cast<Word*>(p)->value = _mm_cvtsi128_si32(_mm_castps_si128(v)); }

 private:
  struct __attribute__((packed, may_alias)) Word {
    int value;
  };
};
NOX_INLINE F32x1 operator+(F32x1 a, F32x1 b) { return {_mm_add_ss(a.v, b.v)}; }
NOX_INLINE F32x1 operator*(F32x1 a, F32x1 b) { return {_mm_mul_ss(a.v, b.v)}; }

struct F32x4 {
  using elem = Nox32f;
  static constexpr int N = 4;
  __m128 v;
  static NOX_INLINE F32x4 load(const elem* p) { return {_mm_loadu_ps(p)}; }
  static NOX_INLINE F32x4 zero() { return {_mm_setzero_ps()}; }
  static NOX_INLINE F32x4 all(elem x) { return {_mm_set1_ps(x)}; }
  NOX_INLINE void store(elem* p) const { _mm_storeu_ps(p, v); }
};
NOX_INLINE F32x4 operator+(F32x4 a, F32x4 b) { return {_mm_add_ps(a.v, b.v)}; }
NOX_INLINE F32x4 operator*(F32x4 a, F32x4 b) { return {_mm_mul_ps(a.v, b.v)}; }
NOX_INLINE F32x4 operator/(F32x4 a, F32x4 b) { return {_mm_div_ps(a.v, b.v)}; }
// The second operand where the first is a NaN.
NOX_INLINE F32x4 min(F32x4 a, F32x4 b) { return {_mm_min_ps(a.v, b.v)}; }

#if NOX_LEVEL >= 3
struct F32x8 {
  using elem = Nox32f;
  static constexpr int N = 8;
  __m256 v;
  static NOX_INLINE F32x8 load(const elem* p) { return {_mm256_loadu_ps(p)}; }
  static NOX_INLINE F32x8 zero() { return {_mm256_setzero_ps()}; }
  static NOX_INLINE F32x8 all(elem x) { return {_mm256_set1_ps(x)}; }
  NOX_INLINE void store(elem* p) const { _mm256_storeu_ps(p, v); }
};
NOX_INLINE F32x8 operator+(F32x8 a, F32x8 b) { return {_mm256_add_ps(a.v, b.v)}; }
NOX_INLINE F32x8 operator*(F32x8 a, F32x8 b) { return {_mm256_mul_ps(a.v, b.v)}; }
NOX_INLINE F32x8 operator/(F32x8 a, F32x8 b) { return {_mm256_div_ps(a.v, b.v)}; }
NOX_INLINE F32x8 min(F32x8 a, F32x8 b) { return {_mm256_min_ps(a.v, b.v)}; }
#endif

// A value that stands four times at p, which is a boundary of 16 bytes, in all lanes.
template <class V>
NOX_INLINE V load_quad(const Nox32f* p);
template <>
NOX_INLINE F32x1 load_quad(const Nox32f* p) {
  return {_mm_load_ps(p)};
}
template <>
NOX_INLINE F32x4 load_quad(const Nox32f* p) {
  return {_mm_load_ps(p)};
}
#if NOX_LEVEL >= 3
template <>
NOX_INLINE F32x8 load_quad(const Nox32f* p) {
  return {_mm256_broadcast_ss(p)};
}
#endif

// a * b + c in one rounding, in the build that fuses; the others have it for all lanes beside those of doubles.
#if NOX_LEVEL >= 4
NOX_INLINE F32x1 madd(F32x1 a, F32x1 b, F32x1 c) { return {_mm_fmadd_ss(a.v, b.v, c.v)}; }
NOX_INLINE F32x4 madd(F32x4 a, F32x4 b, F32x4 c) { return {_mm_fmadd_ps(a.v, b.v, c.v)}; }
NOX_INLINE F32x8 madd(F32x8 a, F32x8 b, F32x8 c) { return {_mm256_fmadd_ps(a.v, b.v, c.v)}; }
#endif

struct f32 {
  using elem = Nox32f;
  using one = F32x1;
#if NOX_LEVEL >= 3
  using vec = F32x8;
#else
  using vec = F32x4;
#endif
};

}  // namespace NOX_VARIANT
}  // namespace nox
