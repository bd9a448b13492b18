// Products of spectra of real data that were transformed as half as many complex values.
//
// N reals taken as M = N/2 complex values, even samples in the real parts, odd ones in the imaginary parts, have the
// spectrum Z = E + i O, with E and O the spectra of the even and of the odd samples:
// 2 E[k] = Z[k] + conj Z[M-k], 2 i O[k] = Z[k] - conj Z[M-k]. Put into the product of the whole spectra, E + w O with
// w = e^(-2 pi i k/N), this gives the Z of the product at once:
//     convolution: Z1 Z2 + (1 + w^2) O1 O2        correlation: Z1 conj Z2 + i (1 + conj w^2) E1 conj O2
// so neither the spectra nor the data are ever recombined, and w^2 is a sample of the wave of the M values. What is
// added is conjugated, in the correlation with the other sign, at M - k.
#include "transform/fft_complex_lanes.hpp"
#include "transform/fft_real.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// x and y stand at k, below at M - k, in both factors; c = (1 + Re w^2) / 4 and s = -Im w^2 / 4.
template <class V>
struct Pair {
  Split<V> at, mirrored;
};
template <class V>
NOX_INLINE Split<V> times(Split<V> x, Split<V> y) {
  return {x.re * y.re - x.im * y.im, madd(x.re, y.im, x.im * y.re)};
}
template <class V>
NOX_INLINE Split<V> conjugate(Split<V> x) {
  return {x.re, negate(x.im)};
}
struct Product {
  template <class V>
  static NOX_INLINE Pair<V> apply(Pair<V> x, Pair<V> y, V c, V s) {
    const V d1 = x.at.re - x.mirrored.re, t1 = x.at.im + x.mirrored.im;
    const V d2 = y.at.re - y.mirrored.re, t2 = y.at.im + y.mirrored.im;
    const V p = t1 * t2 - d1 * d2, q = madd(t1, d2, d1 * t2);
    const Split<V> more{c * p - s * q, madd(c, q, s * p)};  // conjugated
    return {times(x.at, y.at) + conjugate(more), times(x.mirrored, y.mirrored) + more};
  }
};
struct ProductConjugate {
  template <class V>
  static NOX_INLINE Pair<V> apply(Pair<V> x, Pair<V> y, V c, V s) {
    const V a = x.at.re + x.mirrored.re, b = x.at.im - x.mirrored.im;
    const V d = y.at.re - y.mirrored.re, t = y.at.im + y.mirrored.im;
    const V p = a * t - b * d, q = madd(a, d, b * t);
    const Split<V> more{madd(s, p, c * q), c * p - s * q};  // conjugated, with the other sign
    return {times(x.at, conjugate(y.at)) - conjugate(more), times(x.mirrored, conjugate(y.mirrored)) + more};
  }
};

// ---- memory: V::N elements from p on, or from p downwards, and as many samples, `step` apart
template <class V>
NOX_INLINE Pair<V> load_pair(const Nox64f* at, const Nox64f* mirrored) {
  if constexpr (V::N == 1)
    return {{V::load(at), V::load(at + 1)}, {V::load(mirrored), V::load(mirrored + 1)}};
  else
    return {load_joined<V>(at), load_joined_down<V>(mirrored)};
}
NOX_INLINE void store_pair(Nox64f* at, Nox64f* mirrored, Pair<F64x1> x) {
  x.at.re.store(at);
  x.at.im.store(at + 1);
  x.mirrored.re.store(mirrored);
  x.mirrored.im.store(mirrored + 1);
}
template <class V>
NOX_INLINE void store_pair(Nox64f* at, Nox64f* mirrored, Pair<V> x) {
  store_joined(at, x.at);
  store_joined_down(mirrored, x.mirrored);
}
template <class V>
NOX_INLINE V samples(const Nox64f* p, ptrdiff_t step) {
  if constexpr (V::N == 1) {
    return V::load(p);
  } else {
    const auto two = [=](const Nox64f* at) NOX_INLINED { return _mm_loadh_pd(_mm_load_sd(at), at + step); };
    if constexpr (V::N == 2) {
      return {two(p)};
    } else {
#if NOX_LEVEL >= 3
      return {_mm256_insertf128_pd(_mm256_castpd128_pd256(two(p)), two(p + 2 * step), 1)};
#endif
    }
  }
}

struct Factors {
  const Nox64f *a, *b;
  Nox64f* d;
  size_t m;
};

// The pairs from k up to `end`; the wave's values that belong to k stand at `cosine` and `sine`, the next ones a step
// on and a step back, or the other way round.
template <class Rule, class V>
NOX_INLINE void pairs(const Factors& f, size_t k, size_t end, const Nox64f* cosine, const Nox64f* sine, ptrdiff_t step,
                      Nox64f quarter) {
  const V by = V::all(quarter), fourth = V::all(0.25);
  for (; k < end; k += V::N, cosine += V::N * step, sine -= V::N * step) {
    const size_t low = 2 * k, high = 2 * (f.m - k);
    const V c = madd(by, samples<V>(cosine, step), fourth), s = fourth * samples<V>(sine, -step);
    store_pair(f.d + low, f.d + high,
               Rule::apply(load_pair<V>(f.a + low, f.a + high), load_pair<V>(f.b + low, f.b + high), c, s));
  }
}

template <class Rule, class V>
NOX_INLINE void all_pairs(const Factors& f, size_t end, const Wave& wave) {
  // Up to a quarter of the wave cosines fall from its end and sines rise; beyond, negative cosines rise.
  const size_t fourth = f.m / 4, first = end < fourth + 1 ? end : fourth + 1;
  const ptrdiff_t step = static_cast<ptrdiff_t>(wave.stride);
  const Nox64f *begin = wave.quarter, *top = begin + fourth * wave.stride;
  pairs<Rule, V>(f, 1, first, top - step, begin + step, -step, 0.25);
  pairs<Rule, V>(f, first, end, begin + step, top - step, step, -0.25);
}

template <class Rule>
NOX_INLINE void multiply(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, size_t m, const Wave& wave) {
  using V = f64::vec;
  const Nox64fc x = a[0], y = b[0];
  d[0] = {x.re * y.re + x.im * y.im, x.re * y.im + x.im * y.re};
  if (m == 1) return;
  const Factors f{&a->re, &b->re, &d->re, m};
  if (m >= 4 * V::N) return all_pairs<Rule, V>(f, m / 2 + 1, wave);
  all_pairs<Rule, F64x1>(f, m / 2, wave);
  const size_t middle = m;  // in doubles; a pair with itself, to which nothing is added
  const Pair<F64x1> p = load_pair<F64x1>(f.a + middle, f.a + middle), q = load_pair<F64x1>(f.b + middle, f.b + middle);
  store_pair(f.d + middle, f.d + middle, Rule::apply(p, q, F64x1::zero(), F64x1::zero()));
}

}  // namespace

void multiply_halves(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, size_t m, const Wave& wave) {
  multiply<Product>(a, b, d, m, wave);
}
void multiply_halves_conj(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, size_t m, const Wave& wave) {
  multiply<ProductConjugate>(a, b, d, m, wave);
}

}  // namespace NOX_VARIANT
}  // namespace nox
