// Eight elements at a time, as integers of 32 bits, floats or doubles, in as few vectors as the build has for them; and
// the ways between the three.
#pragma once
#include "core/simd/f32.hpp"
#include "core/simd/f64.hpp"
#include "core/simd/ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class V>
struct Eight {
  using Vector = V;
  static constexpr size_t kCount = 8 / V::N;
  V v[kCount];
};
#if NOX_LEVEL >= 3
using FloatVector = F32x8;
#else
using FloatVector = F32x4;
#endif
using Ints8 = Eight<ints<Nox32s>::vec>;
using Floats8 = Eight<FloatVector>;
using Doubles8 = Eight<f64::vec>;

// f on every vector.
template <class V, class F, class... W>
NOX_INLINE Eight<V> each_vector(F&& f, Eight<V> a, W... more) {
#pragma GCC unroll 4
  for (size_t i = 0; i < Eight<V>::kCount; ++i) a.v[i] = f(a.v[i], more.v[i]...);
  return a;
}

// ---- integers as two quads, the form in which they are widened and packed
struct Quads8 {
  __m128i low, high;
};
#if NOX_LEVEL >= 4
NOX_INLINE Quads8 quads(Ints8 a) { return {_mm256_castsi256_si128(a.v[0].v), _mm256_extracti128_si256(a.v[0].v, 1)}; }
NOX_INLINE Ints8 ints8(Quads8 q) { return {{{_mm256_inserti128_si256(_mm256_castsi128_si256(q.low), q.high, 1)}}}; }
#else
NOX_INLINE Quads8 quads(Ints8 a) { return {a.v[0].v, a.v[1].v}; }
NOX_INLINE Ints8 ints8(Quads8 q) { return {{{q.low}, {q.high}}}; }
#endif

// ---- between integers, floats and doubles; floats and doubles become integers by the processor's rounding, or cut
#if NOX_LEVEL >= 4
NOX_INLINE Floats8 to_floats(Ints8 a) { return {{{_mm256_cvtepi32_ps(a.v[0].v)}}}; }
NOX_INLINE Ints8 rounded(Floats8 a) { return {{{_mm256_cvtps_epi32(a.v[0].v)}}}; }
NOX_INLINE Ints8 cut(Floats8 a) { return {{{_mm256_cvttps_epi32(a.v[0].v)}}}; }
NOX_INLINE Floats8 float_bits(Ints8 a) { return {{{_mm256_castsi256_ps(a.v[0].v)}}}; }
NOX_INLINE Ints8 int_bits(Floats8 a) { return {{{_mm256_castps_si256(a.v[0].v)}}}; }
#elif NOX_LEVEL == 3
NOX_INLINE __m256i joined(Ints8 a) { return _mm256_insertf128_si256(_mm256_castsi128_si256(a.v[0].v), a.v[1].v, 1); }
NOX_INLINE Ints8 apart(__m256i x) { return {{{_mm256_castsi256_si128(x)}, {_mm256_extractf128_si256(x, 1)}}}; }
NOX_INLINE Floats8 to_floats(Ints8 a) { return {{{_mm256_cvtepi32_ps(joined(a))}}}; }
NOX_INLINE Ints8 rounded(Floats8 a) { return apart(_mm256_cvtps_epi32(a.v[0].v)); }
NOX_INLINE Ints8 cut(Floats8 a) { return apart(_mm256_cvttps_epi32(a.v[0].v)); }
NOX_INLINE Floats8 float_bits(Ints8 a) { return {{{_mm256_castsi256_ps(joined(a))}}}; }
NOX_INLINE Ints8 int_bits(Floats8 a) { return apart(_mm256_castps_si256(a.v[0].v)); }
#else
NOX_INLINE Floats8 to_floats(Ints8 a) { return {{{_mm_cvtepi32_ps(a.v[0].v)}, {_mm_cvtepi32_ps(a.v[1].v)}}}; }
NOX_INLINE Ints8 rounded(Floats8 a) { return {{{_mm_cvtps_epi32(a.v[0].v)}, {_mm_cvtps_epi32(a.v[1].v)}}}; }
NOX_INLINE Ints8 cut(Floats8 a) { return {{{_mm_cvttps_epi32(a.v[0].v)}, {_mm_cvttps_epi32(a.v[1].v)}}}; }
NOX_INLINE Floats8 float_bits(Ints8 a) { return {{{_mm_castsi128_ps(a.v[0].v)}, {_mm_castsi128_ps(a.v[1].v)}}}; }
NOX_INLINE Ints8 int_bits(Floats8 a) { return {{{_mm_castps_si128(a.v[0].v)}, {_mm_castps_si128(a.v[1].v)}}}; }
#endif

#if NOX_LEVEL >= 3
// From registers: for a conversion straight from memory emulators have been seen to read as many bytes as it writes.
NOX_INLINE Doubles8 to_doubles(Ints8 a) {
  Quads8 q = quads(a);
  asm("" : "+x"(q.low), "+x"(q.high));
  return {{{_mm256_cvtepi32_pd(q.low)}, {_mm256_cvtepi32_pd(q.high)}}};
}
NOX_INLINE Doubles8 to_doubles(Floats8 a) {
  asm("" : "+x"(a.v[0].v));
  return {{{_mm256_cvtps_pd(_mm256_castps256_ps128(a.v[0].v))}, {_mm256_cvtps_pd(_mm256_extractf128_ps(a.v[0].v, 1))}}};
}
NOX_INLINE Floats8 to_floats(Doubles8 a) {
  const __m256 low = _mm256_castps128_ps256(_mm256_cvtpd_ps(a.v[0].v));
  return {{{_mm256_insertf128_ps(low, _mm256_cvtpd_ps(a.v[1].v), 1)}}};
}
NOX_INLINE Ints8 rounded(Doubles8 a) { return ints8({_mm256_cvtpd_epi32(a.v[0].v), _mm256_cvtpd_epi32(a.v[1].v)}); }
NOX_INLINE Ints8 cut(Doubles8 a) { return ints8({_mm256_cvttpd_epi32(a.v[0].v), _mm256_cvttpd_epi32(a.v[1].v)}); }
#else
NOX_INLINE Doubles8 to_doubles(Ints8 a) {
  const auto upper = [](__m128i x) { return _mm_shuffle_epi32(x, 0xEE); };
  return {{{_mm_cvtepi32_pd(a.v[0].v)},
           {_mm_cvtepi32_pd(upper(a.v[0].v))},
           {_mm_cvtepi32_pd(a.v[1].v)},
           {_mm_cvtepi32_pd(upper(a.v[1].v))}}};
}
NOX_INLINE Doubles8 to_doubles(Floats8 a) {
  const auto upper = [](__m128 x) { return _mm_movehl_ps(x, x); };
  return {{{_mm_cvtps_pd(a.v[0].v)},
           {_mm_cvtps_pd(upper(a.v[0].v))},
           {_mm_cvtps_pd(a.v[1].v)},
           {_mm_cvtps_pd(upper(a.v[1].v))}}};
}
NOX_INLINE Floats8 to_floats(Doubles8 a) {
  const auto pair = [](F64x2 x, F64x2 y) { return F32x4{_mm_movelh_ps(_mm_cvtpd_ps(x.v), _mm_cvtpd_ps(y.v))}; };
  return {{pair(a.v[0], a.v[1]), pair(a.v[2], a.v[3])}};
}
NOX_INLINE Ints8 rounded(Doubles8 a) {
  const auto pair = [](F64x2 x, F64x2 y) { return _mm_unpacklo_epi64(_mm_cvtpd_epi32(x.v), _mm_cvtpd_epi32(y.v)); };
  return ints8({pair(a.v[0], a.v[1]), pair(a.v[2], a.v[3])});
}
NOX_INLINE Ints8 cut(Doubles8 a) {
  const auto pair = [](F64x2 x, F64x2 y) { return _mm_unpacklo_epi64(_mm_cvttpd_epi32(x.v), _mm_cvttpd_epi32(y.v)); };
  return ints8({pair(a.v[0], a.v[1]), pair(a.v[2], a.v[3])});
}
#endif

// ---- what floats lack elsewhere
NOX_INLINE F32x4 operator-(F32x4 a, F32x4 b) { return {_mm_sub_ps(a.v, b.v)}; }
NOX_INLINE F32x4 operator&(F32x4 a, F32x4 b) { return {_mm_and_ps(a.v, b.v)}; }
NOX_INLINE F32x4 operator|(F32x4 a, F32x4 b) { return {_mm_or_ps(a.v, b.v)}; }
NOX_INLINE F32x4 operator<=(F32x4 a, F32x4 b) { return {_mm_cmple_ps(a.v, b.v)}; }
NOX_INLINE F32x4 least(F32x4 a, F32x4 b) { return min(a, b); }
NOX_INLINE F32x4 most(F32x4 a, F32x4 b) { return {_mm_max_ps(a.v, b.v)}; }
#if NOX_LEVEL >= 3
NOX_INLINE F32x8 operator-(F32x8 a, F32x8 b) { return {_mm256_sub_ps(a.v, b.v)}; }
NOX_INLINE F32x8 operator&(F32x8 a, F32x8 b) { return {_mm256_and_ps(a.v, b.v)}; }
NOX_INLINE F32x8 operator|(F32x8 a, F32x8 b) { return {_mm256_or_ps(a.v, b.v)}; }
NOX_INLINE F32x8 operator<=(F32x8 a, F32x8 b) { return {_mm256_cmp_ps(a.v, b.v, _CMP_LE_OS)}; }
NOX_INLINE F32x8 least(F32x8 a, F32x8 b) { return min(a, b); }
NOX_INLINE F32x8 most(F32x8 a, F32x8 b) { return {_mm256_max_ps(a.v, b.v)}; }
#endif
NOX_INLINE f64::vec least(f64::vec a, f64::vec b) { return min(a, b); }
NOX_INLINE f64::vec most(f64::vec a, f64::vec b) { return max(a, b); }
// One value in all lanes of such a vector.
template <class V>
NOX_INLINE V all_of(typename V::elem x) {
  return V::all(x);
}

}  // namespace NOX_VARIANT
}  // namespace nox
