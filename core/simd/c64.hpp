// Lanes of complex doubles, real and imaginary part side by side as in memory: C64x1 and, in the AVX builds, C64x2;
// and SplitLanes, which holds them apart.
//
// The product rounds each of its four real products and each sum, in the same places in every build.
#pragma once
#include "core/simd/f64.hpp"

namespace nox {
inline namespace NOX_VARIANT {

struct C64x1 {
  using elem = Nox64fc;
  using parts = F64x2;  // the same register seen as real lanes
  static constexpr int N = 1;
  __m128d v;
  static NOX_INLINE C64x1 load(const elem* p) { return {_mm_loadu_pd(&p->re)}; }
  static NOX_INLINE C64x1 all(elem x) { return {_mm_set_pd(x.im, x.re)}; }
  static NOX_INLINE C64x1 zero() { return {_mm_setzero_pd()}; }
  NOX_INLINE void store(elem* p) const { _mm_storeu_pd(&p->re, v); }
};
NOX_INLINE C64x1 re_twice(C64x1 a) { return {_mm_unpacklo_pd(a.v, a.v)}; }
NOX_INLINE C64x1 im_twice(C64x1 a) { return {_mm_unpackhi_pd(a.v, a.v)}; }
NOX_INLINE C64x1 swap_parts(C64x1 a) { return {_mm_shuffle_pd(a.v, a.v, 1)}; }
NOX_INLINE C64x1 conj(C64x1 a) { return {_mm_xor_pd(a.v, _mm_set_pd(-0.0, 0.0))}; }
NOX_INLINE C64x1 reverse(C64x1 a) { return a; }
// a.re - b.re, a.im + b.im
NOX_INLINE C64x1 sub_add(C64x1 a, C64x1 b) {
#if NOX_LEVEL >= 1
  return {_mm_addsub_pd(a.v, b.v)};
#else
  return {_mm_add_pd(a.v, _mm_xor_pd(b.v, _mm_set_pd(0.0, -0.0)))};
#endif
}

#if NOX_LEVEL >= 3
struct C64x2 {
  using elem = Nox64fc;
  using parts = F64x4;
  static constexpr int N = 2;
  __m256d v;
  static NOX_INLINE C64x2 load(const elem* p) { return {_mm256_loadu_pd(&p->re)}; }
  static NOX_INLINE C64x2 all(elem x) { return {_mm256_set_pd(x.im, x.re, x.im, x.re)}; }
  static NOX_INLINE C64x2 zero() { return {_mm256_setzero_pd()}; }
  NOX_INLINE void store(elem* p) const { _mm256_storeu_pd(&p->re, v); }
};
NOX_INLINE C64x2 re_twice(C64x2 a) { return {_mm256_movedup_pd(a.v)}; }
NOX_INLINE C64x2 im_twice(C64x2 a) { return {_mm256_permute_pd(a.v, 15)}; }
NOX_INLINE C64x2 swap_parts(C64x2 a) { return {_mm256_permute_pd(a.v, 5)}; }
NOX_INLINE C64x2 conj(C64x2 a) { return {_mm256_xor_pd(a.v, _mm256_set_pd(-0.0, 0.0, -0.0, 0.0))}; }
NOX_INLINE C64x2 reverse(C64x2 a) { return {_mm256_permute2f128_pd(a.v, a.v, 1)}; }
NOX_INLINE C64x2 sub_add(C64x2 a, C64x2 b) { return {_mm256_addsub_pd(a.v, b.v)}; }
#endif

template <class C>
using parts_of = typename C::parts;
// The real lanes of a complex vector, and back.
template <class C>
NOX_INLINE parts_of<C> parts(C a) {
  return {a.v};
}
template <class C>
NOX_INLINE C complex(parts_of<C> a) {
  return {a.v};
}

template <class C, class P = parts_of<C>>
NOX_INLINE C operator+(C a, C b) {
  return complex<C>(parts(a) + parts(b));
}
template <class C, class P = parts_of<C>>
NOX_INLINE C operator-(C a, C b) {
  return complex<C>(parts(a) - parts(b));
}
// The factors of a product's constant operand, split once.
template <class C>
struct SplitFactor {
  C re, im;
};
template <class C>
NOX_INLINE SplitFactor<C> split(C a) {
  return {re_twice(a), im_twice(a)};
}
template <class C>
NOX_INLINE C operator*(SplitFactor<C> a, C b) {
  return sub_add(complex<C>(parts(a.re) * parts(b)), complex<C>(parts(a.im) * parts(swap_parts(b))));
}
template <class C, class P = parts_of<C>>
NOX_INLINE C operator*(C a, C b) {
  return split(a) * b;
}

struct c64 {
  using elem = Nox64fc;
  using one = C64x1;
#if NOX_LEVEL >= 3
  using vec = C64x2;
#else
  using vec = C64x1;
#endif
};

// Twice as many complex values in two vectors, real parts and imaginary parts apart, which they are taken into and put
// together from: fewer shuffles than a product or a square needs side by side. Rounds as the lanes above do.
struct SplitLanes {
  using elem = Nox64fc;
  using C = c64::vec;
  using V = parts_of<C>;
  static constexpr int N = V::N;
  V re, im;
  static NOX_INLINE SplitLanes load(const elem* p) {
    const V a = parts(C::load(p)), b = parts(C::load(p + C::N));
    return {low_halves(a, b), high_halves(a, b)};
  }
  NOX_INLINE void store(elem* p) const {
    complex<C>(low_halves(re, im)).store(p);
    complex<C>(high_halves(re, im)).store(p + C::N);
  }
};
NOX_INLINE SplitLanes operator*(SplitLanes a, SplitLanes b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
NOX_INLINE SplitLanes operator+(SplitLanes a, SplitLanes b) { return {a.re + b.re, a.im + b.im}; }
NOX_INLINE SplitLanes operator-(SplitLanes a, SplitLanes b) { return {a.re - b.re, a.im - b.im}; }

struct split_c64 {
  using elem = Nox64fc;
  using one = C64x1;
  using vec = SplitLanes;
};

}  // namespace NOX_VARIANT
}  // namespace nox
