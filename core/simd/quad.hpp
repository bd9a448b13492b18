// Four values in a row of one signal, real or complex, as the recursive filters need them: moved along the signal by
// one, two or three places, and one of them in all lanes.
//
// A RealQuad is a vector of the AVX builds and two of the others; a ComplexQuad holds real and imaginary parts apart.
// add_product and sub_product are c + a * b and c - a * b for these and for single lanes: a real one rounds once in the
// build that fuses.
#pragma once
#include "core/simd/c64.hpp"
#include "core/simd/f64.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class V>
NOX_INLINE V add_product(V a, V b, V c) {
  return madd(a, b, c);
}
NOX_INLINE C64x1 add_product(C64x1 a, C64x1 b, C64x1 c) { return c + a * b; }
NOX_INLINE C64x1 sub_product(C64x1 a, C64x1 b, C64x1 c) { return c - a * b; }
#if NOX_LEVEL >= 4
NOX_INLINE F64x1 sub_product(F64x1 a, F64x1 b, F64x1 c) { return {_mm_fnmadd_sd(a.v, b.v, c.v)}; }
NOX_INLINE F64x4 sub_product(F64x4 a, F64x4 b, F64x4 c) { return {_mm256_fnmadd_pd(a.v, b.v, c.v)}; }
#else
template <class V>
NOX_INLINE V sub_product(V a, V b, V c) {
  return c - a * b;
}
#endif

struct AddProduct {
  template <class V>
  NOX_INLINE V operator()(V a, V b, V c) const {
    return add_product(a, b, c);
  }
};
struct SubProduct {
  template <class V>
  NOX_INLINE V operator()(V a, V b, V c) const {
    return sub_product(a, b, c);
  }
};

#if NOX_LEVEL >= 3
struct RealQuad {
  using elem = Nox64f;
  using V = F64x4;
  V v;
  static NOX_INLINE RealQuad load(const elem* p) { return {V::load(p)}; }
  static NOX_INLINE RealQuad all(elem x) { return {V::all(x)}; }
  static NOX_INLINE RealQuad zero() { return {V::zero()}; }
  static NOX_INLINE RealQuad pair(elem a, elem b) { return {{_mm256_set_pd(0, 0, b, a)}}; }
  NOX_INLINE void store(elem* p) const { v.store(p); }
};
template <class Op>
NOX_INLINE RealQuad each(Op op, RealQuad a, RealQuad b, RealQuad c) {
  return {op(a.v, b.v, c.v)};
}
NOX_INLINE RealQuad operator+(RealQuad a, RealQuad b) { return {a.v + b.v}; }
NOX_INLINE RealQuad operator*(RealQuad a, RealQuad b) { return {a.v * b.v}; }

// One value in all lanes.
template <int I>
NOX_INLINE RealQuad lane(RealQuad a) {
  const __m256d half = _mm256_permute2f128_pd(a.v.v, a.v.v, I / 2 * 0x11);
  return {{_mm256_permute_pd(half, I % 2 * 15)}};
}
// The values two places, and one place, further back; `before` are the four in front.
NOX_INLINE RealQuad two_back(RealQuad before, RealQuad a) {
  return {{_mm256_permute2f128_pd(before.v.v, a.v.v, 0x21)}};
}
NOX_INLINE RealQuad one_back(RealQuad before, RealQuad a) {
  return {{_mm256_shuffle_pd(two_back(before, a).v.v, a.v.v, 5)}};
}
// sum + t1 * (a one place back) + t2 * (two) + t3 * (three), by op the same with minus; zeros in front of a.
template <class Op>
NOX_INLINE RealQuad moved_products(Op op, RealQuad sum, RealQuad a, RealQuad t1, RealQuad t2, RealQuad t3) {
  const __m256d zero = _mm256_setzero_pd(), two = _mm256_permute2f128_pd(a.v.v, a.v.v, 0x08);
  sum = each(op, t3, {{_mm256_unpacklo_pd(zero, two)}}, sum);
  sum = each(op, t2, {{two}}, sum);
  return each(op, t1, {{_mm256_shuffle_pd(two, a.v.v, 5)}}, sum);
}
#else
struct RealQuad {
  using elem = Nox64f;
  using V = F64x2;
  V low, high;
  static NOX_INLINE RealQuad load(const elem* p) { return {V::load(p), V::load(p + 2)}; }
  static NOX_INLINE RealQuad all(elem x) { return {V::all(x), V::all(x)}; }
  static NOX_INLINE RealQuad zero() { return {V::zero(), V::zero()}; }
  static NOX_INLINE RealQuad pair(elem a, elem b) { return {{_mm_set_pd(b, a)}, V::zero()}; }
  NOX_INLINE void store(elem* p) const { low.store(p), high.store(p + 2); }
};
template <class Op>
NOX_INLINE RealQuad each(Op op, RealQuad a, RealQuad b, RealQuad c) {
  return {op(a.low, b.low, c.low), op(a.high, b.high, c.high)};
}
NOX_INLINE RealQuad operator+(RealQuad a, RealQuad b) { return {a.low + b.low, a.high + b.high}; }
NOX_INLINE RealQuad operator*(RealQuad a, RealQuad b) { return {a.low * b.low, a.high * b.high}; }

// One value in all lanes.
template <int I>
NOX_INLINE RealQuad lane(RealQuad a) {
  const F64x2 half = I < 2 ? a.low : a.high, all{_mm_shuffle_pd(half.v, half.v, I % 2 * 3)};
  return {all, all};
}
NOX_INLINE F64x2 straddle(F64x2 a, F64x2 b) { return {_mm_shuffle_pd(a.v, b.v, 1)}; }
// The values two places, and one place, further back; `before` are the four in front.
NOX_INLINE RealQuad two_back(RealQuad before, RealQuad a) { return {before.high, a.low}; }
NOX_INLINE RealQuad one_back(RealQuad before, RealQuad a) {
  return {straddle(before.high, a.low), straddle(a.low, a.high)};
}
// sum + t1 * (a one place back) + t2 * (two) + t3 * (three), by op the same with minus; zeros in front of a.
template <class Op>
NOX_INLINE RealQuad moved_products(Op op, RealQuad sum, RealQuad a, RealQuad t1, RealQuad t2, RealQuad t3) {
  const F64x2 first{_mm_unpacklo_pd(_mm_setzero_pd(), a.low.v)};
  sum.high = op(t3.high, first, sum.high);
  sum.high = op(t2.high, a.low, sum.high);
  return {op(t1.low, first, sum.low), op(t1.high, straddle(a.low, a.high), sum.high)};
}
#endif

NOX_INLINE RealQuad add_product(RealQuad a, RealQuad b, RealQuad c) { return each(AddProduct{}, a, b, c); }
NOX_INLINE RealQuad sub_product(RealQuad a, RealQuad b, RealQuad c) { return each(SubProduct{}, a, b, c); }
NOX_INLINE RealQuad add_moved(RealQuad a, RealQuad t1, RealQuad t2, RealQuad t3) {
  return moved_products(AddProduct{}, a, a, t1, t2, t3);
}

struct ComplexQuad {
  using elem = Nox64fc;
  RealQuad re, im;
  static NOX_INLINE ComplexQuad all(elem x) { return {RealQuad::all(x.re), RealQuad::all(x.im)}; }
  static NOX_INLINE ComplexQuad zero() { return {RealQuad::zero(), RealQuad::zero()}; }
  static NOX_INLINE ComplexQuad pair(elem a, elem b) {
    return {RealQuad::pair(a.re, b.re), RealQuad::pair(a.im, b.im)};
  }
#if NOX_LEVEL >= 3
  static NOX_INLINE ComplexQuad load(const elem* p) {
    const __m256d a = _mm256_loadu_pd(&p->re), b = _mm256_loadu_pd(&p[2].re);
    const F64x4 even{_mm256_permute2f128_pd(a, b, 0x20)}, odd{_mm256_permute2f128_pd(a, b, 0x31)};
    return {{low_halves(even, odd)}, {high_halves(even, odd)}};
  }
  NOX_INLINE void store(elem* p) const {
    const __m256d even = low_halves(re.v, im.v).v, odd = high_halves(re.v, im.v).v;
    _mm256_storeu_pd(&p->re, _mm256_permute2f128_pd(even, odd, 0x20));
    _mm256_storeu_pd(&p[2].re, _mm256_permute2f128_pd(even, odd, 0x31));
  }
#else
  static NOX_INLINE ComplexQuad load(const elem* p) {
    const SplitLanes a = SplitLanes::load(p), b = SplitLanes::load(p + 2);
    return {{a.re, b.re}, {a.im, b.im}};
  }
  NOX_INLINE void store(elem* p) const {
    SplitLanes{re.low, im.low}.store(p);
    SplitLanes{re.high, im.high}.store(p + 2);
  }
#endif
};
NOX_INLINE ComplexQuad operator+(ComplexQuad a, ComplexQuad b) { return {a.re + b.re, a.im + b.im}; }
NOX_INLINE ComplexQuad add_product(ComplexQuad a, ComplexQuad b, ComplexQuad c) {
  return {sub_product(a.im, b.im, add_product(a.re, b.re, c.re)),
          add_product(a.im, b.re, add_product(a.re, b.im, c.im))};
}
NOX_INLINE ComplexQuad operator*(ComplexQuad a, ComplexQuad b) {
  return {sub_product(a.im, b.im, a.re * b.re), add_product(a.im, b.re, a.re * b.im)};
}
template <int I>
NOX_INLINE ComplexQuad lane(ComplexQuad a) {
  return {lane<I>(a.re), lane<I>(a.im)};
}
NOX_INLINE ComplexQuad two_back(ComplexQuad before, ComplexQuad a) {
  return {two_back(before.re, a.re), two_back(before.im, a.im)};
}
NOX_INLINE ComplexQuad one_back(ComplexQuad before, ComplexQuad a) {
  return {one_back(before.re, a.re), one_back(before.im, a.im)};
}
NOX_INLINE ComplexQuad add_moved(ComplexQuad a, ComplexQuad t1, ComplexQuad t2, ComplexQuad t3) {
  const RealQuad re = moved_products(AddProduct{}, a.re, a.re, t1.re, t2.re, t3.re);
  const RealQuad im = moved_products(AddProduct{}, a.im, a.im, t1.re, t2.re, t3.re);
  return {moved_products(SubProduct{}, re, a.im, t1.im, t2.im, t3.im),
          moved_products(AddProduct{}, im, a.re, t1.im, t2.im, t3.im)};
}

// Rows of a table of quads: a real one as it is, a complex one with its real parts in front of its imaginary parts.
template <class Q>
constexpr int kRow = sizeof(typename Q::elem) / sizeof(Nox64f) * 4;
template <class Q>
NOX_INLINE Q load_row(const Nox64f* p);
template <>
NOX_INLINE RealQuad load_row<RealQuad>(const Nox64f* p) {
  return RealQuad::load(p);
}
template <>
NOX_INLINE ComplexQuad load_row<ComplexQuad>(const Nox64f* p) {
  return {RealQuad::load(p), RealQuad::load(p + 4)};
}

template <class K>
struct QuadOf;
template <>
struct QuadOf<f64> {
  using type = RealQuad;
};
template <>
struct QuadOf<c64> {
  using type = ComplexQuad;
};

}  // namespace NOX_VARIANT
}  // namespace nox
