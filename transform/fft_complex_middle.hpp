// Transforms that stay in cache from end to end: a first pass of radix 4 or 8 without twiddles, then passes of radix 4.
//
// The first pass reads in bit-reversed order and leaves split groups, the last one joins them again.
#pragma once
#include "transform/fft_complex_tables.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// ---- first pass: vectors of whole elements, one butterfly or two beside each other
template <bool Inverse, class C>
NOX_INLINE C turned_quarter(C a) {
  // Times i negates the first part of the swapped pair, times -i the second.
  if constexpr (Inverse)
    return swap_parts(conj(a));
  else
    return conj(swap_parts(a));
}
template <bool Inverse, class C>
NOX_INLINE C turned_eighth(C a) {
  return complex<C>(parts(a + turned_quarter<Inverse>(a)) * parts_of<C>::all(0.7071067811865476));
}
// Four values in bit-reversed order.
template <bool Inverse, class C>
NOX_INLINE void first_four(C& x0, C& x1, C& x2, C& x3) {
  const C a = x0 + x1, b = x0 - x1, c = x2 + x3, d = turned_quarter<Inverse>(x2 - x3);
  x0 = a + c;
  x1 = b + d;
  x2 = a - c;
  x3 = b - d;
}

// Results of four legs as split groups; of two butterflies, the second's `apart` doubles behind the first's.
NOX_INLINE void store_four(Nox64f* d, size_t, C64x1 a, C64x1 b, C64x1 c, C64x1 e) {
  store_as<Form::Split>(d, Split<F64x2>{low_halves(parts(a), parts(b)), high_halves(parts(a), parts(b))});
  store_as<Form::Split>(d + 4, Split<F64x2>{low_halves(parts(c), parts(e)), high_halves(parts(c), parts(e))});
}
#if NOX_LEVEL >= 3
NOX_INLINE void store_four(Nox64f* d, size_t apart, C64x2 a, C64x2 b, C64x2 c, C64x2 e) {
  const __m256d re01 = _mm256_unpacklo_pd(a.v, b.v), im01 = _mm256_unpackhi_pd(a.v, b.v);
  const __m256d re23 = _mm256_unpacklo_pd(c.v, e.v), im23 = _mm256_unpackhi_pd(c.v, e.v);
  _mm256_storeu_pd(d, _mm256_permute2f128_pd(re01, re23, 0x20));
  _mm256_storeu_pd(d + 4, _mm256_permute2f128_pd(im01, im23, 0x20));
  _mm256_storeu_pd(d + apart, _mm256_permute2f128_pd(re01, re23, 0x31));
  _mm256_storeu_pd(d + apart + 4, _mm256_permute2f128_pd(im01, im23, 0x31));
}
#endif

// The butterfly of 4, or 8, legs in bit-reversed order; leg(j) loads leg j, of two butterflies where a vector holds
// two.
template <bool Inverse, int Radix, class Leg>
NOX_INLINE void first_butterfly(Nox64f* d, size_t apart, Leg&& leg) {
  using C = c64::vec;
  if constexpr (Radix == 4) {
    C x0 = leg(0), x1 = leg(1), x2 = leg(2), x3 = leg(3);
    first_four<Inverse>(x0, x1, x2, x3);
    store_four(d, apart, x0, x1, x2, x3);
  } else {
    C y0 = leg(4), y1 = leg(5), y2 = leg(6), y3 = leg(7);
    first_four<Inverse>(y0, y1, y2, y3);
    y1 = turned_eighth<Inverse>(y1);
    y2 = turned_quarter<Inverse>(y2);
    y3 = turned_eighth<Inverse>(turned_quarter<Inverse>(y3));
    C x0 = leg(0), x1 = leg(1), x2 = leg(2), x3 = leg(3);
    first_four<Inverse>(x0, x1, x2, x3);
    store_four(d, apart, x0 + y0, x1 + y1, x2 + y2, x3 + y3);
    store_four(d + 8, apart, x0 - y0, x1 - y1, x2 - y2, x3 - y3);
  }
}

// From this order on the eight legs of a butterfly stand whole pages apart.
constexpr int kPageLegs = 11;
// From the source in bit-reversed order. Four neighbours there belong to butterflies whose results are quarters of the
// array apart, and are taken together: a line of cache is read once.
template <bool Inverse, int Radix, bool Ahead>
NOX_INLINE void reversing_pass(const Nox64f* src, Nox64f* dst, int order, const Nox32u* table) {
  using C = c64::vec;
  constexpr size_t kSize = 2 * Radix;
  const size_t half = size_t{1} << order, quarter = half / 2, eighth = half / 4;
  for (size_t m = 0; m < half / (4 * Radix); ++m, dst += kSize) {
    const Nox64f* const from = src + table[Radix / 4 * m];
    const auto leg = [=](int j) { return from + (j & 1 ? half : 0) + (j & 2 ? quarter : 0) + (j & 4 ? eighth : 0); };
    // Eight lines whole pages apart fill all ways of a cache set, and the results would push them out before they are
    // used up: they are read ahead.
    alignas(32) Nox64f lines[8][8];
    if constexpr (Ahead)
      for (int j = 0; j < 8; ++j)
        for (int h = 0; h < 8; h += f64::vec::N) f64::vec::load(leg(j) + h).store(lines[j] + h);
    for (size_t h = 0; h < 4; h += C::N)
      first_butterfly<Inverse, Radix>(dst + (h & 1 ? half : 0) + (h & 2 ? quarter : 0), half, [&](int j) {
        return complex<C>(f64::vec::load((Ahead ? lines[j] : leg(j)) + 2 * h));
      });
  }
}
// In place on data in bit-reversed order.
template <bool Inverse, int Radix>
NOX_INLINE void ordered_pass(Nox64f* data, int order) {
  constexpr size_t kSize = 2 * Radix;
  for (Nox64f *p = data, *const end = data + (size_t{2} << order); p < end; p += c64::vec::N * kSize)
    first_butterfly<Inverse, Radix>(p, kSize, [p](int j) {
      const Nox64f* const leg = p + 2 * j;
#if NOX_LEVEL >= 3
      return C64x2{_mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(leg)), _mm_loadu_pd(leg + kSize), 1)};
#else
      return C64x1{_mm_loadu_pd(leg)};
#endif
    });
}

// ---- radix-4 passes
// `count` butterflies one behind the other, their legs `from` doubles apart in the source and `to` in the destination.
template <bool Inverse, Form form>
NOX_INLINE void butterflies(const Nox64f* src, size_t from, Nox64f* dst, size_t to, const Nox64f* twiddles,
                            size_t count) {
  using V = f64::vec;
  for (size_t k = 0; k < count; k += V::N) {
    const auto twiddle = [&](int slot) { return load_twiddles<V, kTwiddleGroup>(twiddles + slot); };
    // The legs stand in bit-reversed order: the second one is that of the even elements.
    const Split<V> x1 = turned<Inverse>(load_split<V>(src + 2 * from), twiddle(0), twiddle(2));
    const Split<V> x3 = turned<Inverse>(load_split<V>(src + 3 * from), twiddle(8), twiddle(10));
    const Split<V> c = x1 + x3, d = x1 - x3;
    const Split<V> x2 = turned<Inverse>(load_split<V>(src + from), twiddle(4), twiddle(6)), x0 = load_split<V>(src);
    const Split<V> a = x0 + x2, b = x0 - x2;
    store_as<form>(dst, a + c);
    store_as<form>(dst + 2 * to, a - c);
    store_as<form>(dst + to, add_turned<Inverse>(b, d));
    store_as<form>(dst + 3 * to, sub_turned<Inverse>(b, d));
    src += 2 * V::N;
    dst += 2 * V::N;
    twiddles += V::N / 2 * kTwiddleGroup;
  }
}

// All passes but the first; the last one goes from `target` to dst.
template <bool Inverse, Form form>
NOX_INLINE void later_passes(Nox64f* target, Nox64f* dst, int order, const Nox64f* twiddles) {
  const size_t all = size_t{2} << order;
  size_t leg = order % 2 == 0 ? 8 : 16;
  for (; 4 * leg < all; leg *= 4) {
    for (size_t at = 0; at < all; at += 4 * leg)
      butterflies<Inverse, Form::Split>(target + at, leg, target + at, leg, twiddles, leg / 2);
    twiddles += leg / 4 * kTwiddleGroup;
  }
  butterflies<Inverse, form>(target, leg, dst, leg, twiddles, leg / 2);
}

template <bool Inverse>
void middle(const Nox64f* src, Nox64f* dst, int order, const Nox64f* twiddles, const Nox32u* reversal, Nox64f* work) {
  Nox64f* const target = src != dst && reinterpret_cast<uintptr_t>(dst) % 16 == 0 ? dst : work;
  if (order % 2 == 0)
    reversing_pass<Inverse, 4, false>(src, target, order, reversal);
  else if (order < kPageLegs)
    reversing_pass<Inverse, 8, false>(src, target, order, reversal);
  else
    reversing_pass<Inverse, 8, true>(src, target, order, reversal);
  later_passes<Inverse, Form::Joined>(target, dst, order, twiddles);
}

// A row of a large transform: in place, already reversed, left split.
template <bool Inverse>
void middle_row(Nox64f* row, int order, const Nox64f* twiddles) {
  if (order % 2 == 0)
    ordered_pass<Inverse, 4>(row, order);
  else
    ordered_pass<Inverse, 8>(row, order);
  later_passes<Inverse, Form::Split>(row, row, order, twiddles);
}

NOX_INLINE void scale_all(Nox64f* p, size_t doubles, Nox64f by) {
  map<f64>(
      p, static_cast<int>(doubles), [by](auto x) { return x * decltype(x)::all(by); }, p);
}

}  // namespace NOX_VARIANT
}  // namespace nox
