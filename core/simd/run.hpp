// Runs: values that follow one another in a signal, four real or two complex ones, as the recursive filters need them.
// A run can be taken from one or two places further back, one of its values put in all lanes, and sums of products
// formed of runs and factors.
//
// A RealRun is a vector of the AVX builds and two of the others. A ComplexRun is the same register with complex values
// side by side as in memory; its factors hold real and imaginary parts apart, each in both lanes of its value.
#pragma once
#include "core/simd/c64.hpp"
#include "core/simd/f64.hpp"

namespace nox {
inline namespace NOX_VARIANT {

#if NOX_LEVEL >= 3
struct RealRun {
  using elem = Nox64f;
  static constexpr int N = 4;
  F64x4 v;
  static NOX_INLINE RealRun load(const elem* p) { return {F64x4::load(p)}; }
  static NOX_INLINE RealRun all(elem x) { return {F64x4::all(x)}; }
  static NOX_INLINE RealRun zero() { return {F64x4::zero()}; }
  // Two values and zeros behind them.
  static NOX_INLINE RealRun two(const elem* p) { return {{_mm256_set_pd(0, 0, p[1], p[0])}}; }
  NOX_INLINE void store(elem* p) const { v.store(p); }
};
NOX_INLINE RealRun operator+(RealRun a, RealRun b) { return {a.v + b.v}; }
NOX_INLINE RealRun operator*(RealRun a, RealRun b) { return {a.v * b.v}; }
NOX_INLINE RealRun add_product(RealRun a, RealRun b, RealRun c) { return {madd(a.v, b.v, c.v)}; }

// One half in both.
template <int I>
NOX_INLINE RealRun half(RealRun a) {
  return {{_mm256_permute2f128_pd(a.v.v, a.v.v, I * 0x11)}};
}
// One value in all lanes.
template <int I>
NOX_INLINE RealRun lane(RealRun a) {
  return {{_mm256_permute_pd(half<I / 2>(a).v.v, I % 2 * 15)}};
}
// The values two places, and one place, further back; `before` is the run in front.
NOX_INLINE RealRun two_back(RealRun before, RealRun a) { return {{_mm256_permute2f128_pd(before.v.v, a.v.v, 0x21)}}; }
NOX_INLINE RealRun one_back(RealRun before, RealRun a) {
  return {{_mm256_shuffle_pd(two_back(before, a).v.v, a.v.v, 5)}};
}
// sum + t * (a moved I places on, with zeros in front).
template <int I>
NOX_INLINE RealRun add_moved(RealRun sum, RealRun t, RealRun a) {
  const __m256d two = _mm256_permute2f128_pd(a.v.v, a.v.v, 0x08);
  if constexpr (I == 1) return add_product(t, {{_mm256_shuffle_pd(two, a.v.v, 5)}}, sum);
  if constexpr (I == 2) return add_product(t, {{two}}, sum);
  return add_product(t, {{_mm256_unpacklo_pd(_mm256_setzero_pd(), two)}}, sum);
}
// The first, or the second, of each pair in both its lanes.
NOX_INLINE RealRun firsts(RealRun a) { return {parts(re_twice(complex<C64x2>(a.v)))}; }
NOX_INLINE RealRun seconds(RealRun a) { return {parts(im_twice(complex<C64x2>(a.v)))}; }
// re - other.im, im + other.re of the pairs.
NOX_INLINE RealRun join(RealRun a, RealRun other) {
  return {parts(sub_add(complex<C64x2>(a.v), swap_parts(complex<C64x2>(other.v))))};
}
#else
struct RealRun {
  using elem = Nox64f;
  static constexpr int N = 4;
  F64x2 low, high;
  static NOX_INLINE RealRun load(const elem* p) { return {F64x2::load(p), F64x2::load(p + 2)}; }
  static NOX_INLINE RealRun all(elem x) { return {F64x2::all(x), F64x2::all(x)}; }
  static NOX_INLINE RealRun zero() { return {F64x2::zero(), F64x2::zero()}; }
  // Two values and zeros behind them.
  static NOX_INLINE RealRun two(const elem* p) { return {F64x2::load(p), F64x2::zero()}; }
  NOX_INLINE void store(elem* p) const {
    low.store(p);
    high.store(p + 2);
  }
};
NOX_INLINE RealRun operator+(RealRun a, RealRun b) { return {a.low + b.low, a.high + b.high}; }
NOX_INLINE RealRun operator*(RealRun a, RealRun b) { return {a.low * b.low, a.high * b.high}; }
NOX_INLINE RealRun add_product(RealRun a, RealRun b, RealRun c) {
  return {madd(a.low, b.low, c.low), madd(a.high, b.high, c.high)};
}

// One half in both.
template <int I>
NOX_INLINE RealRun half(RealRun a) {
  return I ? RealRun{a.high, a.high} : RealRun{a.low, a.low};
}
// One value in all lanes.
template <int I>
NOX_INLINE RealRun lane(RealRun a) {
  const F64x2 h = half<I / 2>(a).low, all{_mm_shuffle_pd(h.v, h.v, I % 2 * 3)};
  return {all, all};
}
NOX_INLINE F64x2 straddle(F64x2 a, F64x2 b) { return {_mm_shuffle_pd(a.v, b.v, 1)}; }
// The values two places, and one place, further back; `before` is the run in front.
NOX_INLINE RealRun two_back(RealRun before, RealRun a) { return {before.high, a.low}; }
NOX_INLINE RealRun one_back(RealRun before, RealRun a) {
  return {straddle(before.high, a.low), straddle(a.low, a.high)};
}
// sum + t * (a moved I places on, with zeros in front).
template <int I>
NOX_INLINE RealRun add_moved(RealRun sum, RealRun t, RealRun a) {
  if constexpr (I == 2) return {sum.low, madd(t.high, a.low, sum.high)};
  const F64x2 first{_mm_unpacklo_pd(_mm_setzero_pd(), a.low.v)};
  if constexpr (I == 3) return {sum.low, madd(t.high, first, sum.high)};
  return {madd(t.low, first, sum.low), madd(t.high, straddle(a.low, a.high), sum.high)};
}
// The first, or the second, of each pair in both its lanes.
NOX_INLINE RealRun firsts(RealRun a) { return {low_halves(a.low, a.low), low_halves(a.high, a.high)}; }
NOX_INLINE RealRun seconds(RealRun a) { return {high_halves(a.low, a.low), high_halves(a.high, a.high)}; }
// re - other.im, im + other.re of the pairs.
NOX_INLINE F64x2 join(F64x2 a, F64x2 other) {
  return parts(sub_add(complex<C64x1>(a), swap_parts(complex<C64x1>(other))));
}
NOX_INLINE RealRun join(RealRun a, RealRun other) { return {join(a.low, other.low), join(a.high, other.high)}; }
#endif

struct ComplexRun {
  using elem = Nox64fc;
  static constexpr int N = 2;
  RealRun v;
  static NOX_INLINE ComplexRun load(const elem* p) { return {RealRun::load(&p->re)}; }
  static NOX_INLINE ComplexRun zero() { return {RealRun::zero()}; }
  static NOX_INLINE ComplexRun two(const elem* p) { return load(p); }
  NOX_INLINE void store(elem* p) const { v.store(&p->re); }
};
template <int I>
NOX_INLINE ComplexRun lane(ComplexRun a) {
  return {half<I>(a.v)};
}
NOX_INLINE ComplexRun two_back(ComplexRun before, ComplexRun) { return before; }
NOX_INLINE ComplexRun one_back(ComplexRun before, ComplexRun a) { return {two_back(before.v, a.v)}; }

// A factor of products: one value in all lanes, or a run of a table.
struct RealFactor {
  RealRun v;
  static NOX_INLINE RealFactor all(Nox64f x) { return {RealRun::all(x)}; }
  static NOX_INLINE RealFactor load(const Nox64f* p) { return {RealRun::load(p)}; }
};
struct ComplexFactor {
  RealRun re, im;  // each part in both lanes of its value
  static NOX_INLINE ComplexFactor all(Nox64fc x) { return {RealRun::all(x.re), RealRun::all(x.im)}; }
  static NOX_INLINE ComplexFactor load(const Nox64fc* p) {
    const RealRun both = RealRun::load(&p->re);
    return {firsts(both), seconds(both)};
  }
};

// A sum of products. That of complex values keeps the products with the real parts of one side, whichever that is,
// apart from those with the imaginary parts until it is asked for.
struct RealSum {
  RealRun value;
  static NOX_INLINE RealSum from(RealRun x) { return {x}; }
  static NOX_INLINE RealSum of(RealFactor t, RealRun x) { return {t.v * x}; }
  NOX_INLINE void add(RealFactor t, RealRun x) { value = add_product(t.v, x, value); }
  // One value from memory times a run of a table.
  NOX_INLINE void add(const Nox64f& x, const Nox64f* run) {
    value = add_product(RealRun::load(run), RealRun::all(x), value);
  }
  template <int I>
  NOX_INLINE void add_moved(RealFactor t, RealRun a) {
    value = nox::add_moved<I>(value, t.v, a);
  }
  NOX_INLINE void add(RealSum other) { value = value + other.value; }
  NOX_INLINE RealRun total() const { return value; }
};
struct ComplexSum {
  RealRun by_re, by_im;
  static NOX_INLINE ComplexSum from(ComplexRun x) { return {x.v, RealRun::zero()}; }
  static NOX_INLINE ComplexSum of(ComplexFactor t, ComplexRun x) { return {t.re * x.v, t.im * x.v}; }
  NOX_INLINE void add(ComplexFactor t, ComplexRun x) {
    by_re = add_product(t.re, x.v, by_re);
    by_im = add_product(t.im, x.v, by_im);
  }
  // One value from memory times a run of a table. Its parts are read apart: a read of both within a wider write that is
  // still on its way would have to wait.
  NOX_INLINE void add(const Nox64fc& x, const Nox64fc* run) {
    const RealRun v = RealRun::load(&run->re);
    by_re = add_product(v, RealRun::all(x.re), by_re);
    by_im = add_product(v, RealRun::all(x.im), by_im);
  }
  template <int I>
  NOX_INLINE void add_moved(ComplexFactor t, ComplexRun a) {
    by_re = nox::add_moved<2 * I>(by_re, t.re, a.v);
    by_im = nox::add_moved<2 * I>(by_im, t.im, a.v);
  }
  NOX_INLINE void add(ComplexSum other) {
    by_re = by_re + other.by_re;
    by_im = by_im + other.by_im;
  }
  NOX_INLINE ComplexRun total() const { return {join(by_re, by_im)}; }
};

template <class K>
struct RunOf;
template <>
struct RunOf<f64> {
  using type = RealRun;
  using factor = RealFactor;
  using sum = RealSum;
};
template <>
struct RunOf<c64> {
  using type = ComplexRun;
  using factor = ComplexFactor;
  using sum = ComplexSum;
};

}  // namespace NOX_VARIANT
}  // namespace nox
