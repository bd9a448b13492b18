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
// The transform of four values in bit-reversed order, which leg(j) loads.
template <bool Inverse, class C, class Leg>
NOX_INLINE void first_four(C (&x)[4], Leg&& leg) {
  x[0] = held(leg(0)), x[1] = held(leg(1));
  const C a = held(x[0] + x[1]), b = held(x[0] - x[1]);
  x[2] = held(leg(2)), x[3] = held(leg(3));
  const C c = held(x[2] + x[3]), d = held(turned_quarter<Inverse>(x[2] - x[3]));
  x[0] = a + c;
  x[1] = b + d;
  x[2] = a - c;
  x[3] = b - d;
}
// Those of the odd values of eight, turned for the transform of eight.
template <bool Inverse, class C, class Leg>
NOX_INLINE void late_four(C (&y)[4], Leg&& leg) {
  first_four<Inverse>(y, leg);
  y[1] = turned_eighth<Inverse>(y[1]);
  y[2] = turned_quarter<Inverse>(y[2]);
  y[3] = turned_eighth<Inverse>(turned_quarter<Inverse>(y[3]));
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

// Eight results, from the even values' transform x and the late one's, whose value j y(j) loads; two by two for the
// sake of the few registers.
template <class Late>
NOX_INLINE void store_eight(Nox64f* d, size_t, const C64x1 (&x)[4], Late&& y) {
#pragma GCC unroll 2
  for (int j = 0; j < 4; j += 2, d += 4) {
    const C64x1 a0 = x[j] + y(j), b0 = x[j] - y(j), a1 = x[j + 1] + y(j + 1), b1 = x[j + 1] - y(j + 1);
    store_as<Form::Split>(d, Split<F64x2>{low_halves(parts(a0), parts(a1)), high_halves(parts(a0), parts(a1))});
    store_as<Form::Split>(d + 8, Split<F64x2>{low_halves(parts(b0), parts(b1)), high_halves(parts(b0), parts(b1))});
  }
}
#if NOX_LEVEL >= 3
template <class Late>
NOX_INLINE void store_eight(Nox64f* d, size_t apart, const C64x2 (&x)[4], Late&& y) {
  store_four(d, apart, x[0] + y(0), x[1] + y(1), x[2] + y(2), x[3] + y(3));
  store_four(d + 8, apart, x[0] - y(0), x[1] - y(1), x[2] - y(2), x[3] - y(3));
}
#endif

// From the source in bit-reversed order. Four neighbours there belong to butterflies whose results are quarters of the
// array apart, and are taken together: a line of cache is read once. Of eight legs the odd four are done first, for all
// neighbours: in long arrays the legs stand whole pages apart, and with the results' they would take more lines of one
// cache set than it has. What is read passes through `take`.
template <bool Inverse, int Radix, class Take>
NOX_INLINE void reversing_pass(const Nox64f* src, Nox64f* dst, int order, const Nox32u* table, Take take) {
  using C = c64::vec;
  const size_t half = size_t{1} << order, quarter = half / 2, eighth = half / 4, last = half + quarter;
  for (size_t m = 0; m < half / (4 * Radix); ++m, dst += 2 * Radix) {
    const auto legs = [=](const Nox64f* first) NOX_INLINED {
      return [=](int j) NOX_INLINED {
        return complex<C>(take(f64::vec::load(first + (j == 0 ? 0 : j == 1 ? half : j == 2 ? quarter : last))));
      };
    };
    const Nox64f* const from = src + table[Radix / 4 * m];
    alignas(32) Nox64f late[4 * 8];
    if constexpr (Radix == 8)
      for (size_t h = 0; h < 4; h += C::N) {
        C y[4];
        late_four<Inverse>(y, legs(from + eighth + 2 * h));
#pragma GCC unroll 4
        for (size_t j = 0; j < 4; ++j) parts(y[j]).store(late + 8 * h + f64::vec::N * j);
      }
    Nox64f* to = dst;
#pragma GCC unroll 4
    for (size_t h = 0; h < 4; h += C::N) {
      C x[4];
      first_four<Inverse>(x, legs(from + 2 * h));
      if constexpr (Radix == 8)
        store_eight(to, half, x, [&](int j) NOX_INLINED {
          return complex<C>(load_at_boundary<f64::vec>(late + 8 * h + f64::vec::N * static_cast<size_t>(j)));
        });
      else
        store_four(to, half, x[0], x[1], x[2], x[3]);
      const ptrdiff_t near = static_cast<ptrdiff_t>(quarter), far = static_cast<ptrdiff_t>(half);
      to += C::N == 2 ? near : h % 2 == 0 ? far : near - far;
    }
  }
}
// In place on data in bit-reversed order.
template <bool Inverse, int Radix>
NOX_INLINE void ordered_pass(Nox64f* data, int order) {
  using C = c64::vec;
  constexpr size_t kSize = 2 * Radix;
  const auto legs = [](const Nox64f* first) NOX_INLINED {
    return [=](int j) NOX_INLINED {
      const Nox64f* const leg = first + 2 * j;
#if NOX_LEVEL >= 3
      return C64x2{_mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(leg)), _mm_loadu_pd(leg + kSize), 1)};
#else
      return C64x1{_mm_loadu_pd(leg)};
#endif
    };
  };
  for (Nox64f *p = data, *const end = data + (size_t{2} << order); p < end; p += C::N * kSize) {
    C x[4], y[4];
    if constexpr (Radix == 8) late_four<Inverse>(y, legs(p + 8));
    first_four<Inverse>(x, legs(p));
    if constexpr (Radix == 8)
      store_eight(p, kSize, x, [&](int j) NOX_INLINED { return y[j]; });
    else
      store_four(p, kSize, x[0], x[1], x[2], x[3]);
  }
}

// ---- radix-4 passes
// `count` butterflies one behind the other, their legs `from` doubles apart in the source and `to` in the destination.
template <bool Inverse, Form form>
NOX_INLINE void butterflies(const Nox64f* src, size_t from, Nox64f* dst, size_t to, const Nox64f* twiddles,
                            size_t count) {
  using V = f64::vec;
  const Nox64f* const end = twiddles + count / 2 * kTwiddleGroup;
  const size_t three = 3 * from;
  do {
    const auto twiddle = [&](int slot) { return load_twiddles<V, kTwiddleGroup>(twiddles + slot); };
    // The legs stand in bit-reversed order: the second one is that of the even elements.
    const Split<V> x1 = turned<Inverse>(held(load_split<V>(src + 2 * from)), held(twiddle(0)), held(twiddle(2)));
    const Split<V> x3 = turned<Inverse>(held(load_split<V>(src + three)), twiddle(8), twiddle(10));
    const Split<V> c = x1 + x3, d = x1 - x3;
    const Split<V> x2 = turned<Inverse>(held(load_split<V>(src + from)), twiddle(4), twiddle(6));
    const Split<V> x0 = held(load_split<V>(src));
    const Split<V> a = x0 + x2, b = x0 - x2;
    store_as<form>(dst, a + c);
    store_as<form>(dst + 2 * to, a - c);
    store_as<form>(dst + to, add_turned<Inverse>(b, d));
    store_as<form>(dst + 3 * to, sub_turned<Inverse>(b, d));
    src += 2 * V::N;
    dst += 2 * V::N;
    twiddles += V::N / 2 * kTwiddleGroup;
  } while (twiddles != end);
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
  const auto as_it_is = [](f64::vec a) NOX_INLINED { return a; };
  if (order % 2 == 0)
    reversing_pass<Inverse, 4>(src, target, order, reversal, as_it_is);
  else
    reversing_pass<Inverse, 8>(src, target, order, reversal, as_it_is);
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
