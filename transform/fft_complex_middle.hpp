// Transforms that stay in cache from end to end: a first pass of radix 4 or 8 without twiddles, then passes of radix 4.
//
// The first pass reads in bit-reversed order and leaves split groups, the last one joins them again.
#pragma once
#include "transform/fft_complex_tables.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Where the legs of a first-pass butterfly stand in the source, in doubles: in bit-reversed order one behind the other
// at 0, `half`, `half / 2`, both together and, for radix 8, the same again at half / 4.
//
// Reversed is the source as the caller has it, Ordered an array that has been reversed already.
struct Reversed {
  const Nox32u* table;
  size_t half;
  NOX_INLINE size_t base(size_t i) const { return table[i]; }
  NOX_INLINE size_t leg(size_t j) const { return (j & 1 ? half : 0) + (j & 2 ? half / 2 : 0) + (j & 4 ? half / 4 : 0); }
};
struct Ordered {
  NOX_INLINE size_t base(size_t i) const { return 8 * i; }
  NOX_INLINE size_t leg(size_t j) const { return 2 * j; }
};

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
NOX_INLINE C64x1 load_legs(const Nox64f* p, const Nox64f*, C64x1*) { return {_mm_loadu_pd(p)}; }
#if NOX_LEVEL >= 3
NOX_INLINE void store_four(Nox64f* d, size_t apart, C64x2 a, C64x2 b, C64x2 c, C64x2 e) {
  const __m256d re01 = _mm256_unpacklo_pd(a.v, b.v), im01 = _mm256_unpackhi_pd(a.v, b.v);
  const __m256d re23 = _mm256_unpacklo_pd(c.v, e.v), im23 = _mm256_unpackhi_pd(c.v, e.v);
  _mm256_storeu_pd(d, _mm256_permute2f128_pd(re01, re23, 0x20));
  _mm256_storeu_pd(d + 4, _mm256_permute2f128_pd(im01, im23, 0x20));
  _mm256_storeu_pd(d + apart, _mm256_permute2f128_pd(re01, re23, 0x31));
  _mm256_storeu_pd(d + apart + 4, _mm256_permute2f128_pd(im01, im23, 0x31));
}
NOX_INLINE C64x2 load_legs(const Nox64f* p, const Nox64f* q, C64x2*) {
  return {_mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(p)), _mm_loadu_pd(q), 1)};
}
#endif

template <bool Inverse, class From>
NOX_INLINE void first_pass(const Nox64f* src, Nox64f* dst, int order, From from) {
  using C = c64::vec;
  const size_t fours = size_t{1} << (order - 2);
  const auto legs = [&](size_t p, size_t q, size_t j) {
    return load_legs(src + p + from.leg(j), src + q + from.leg(j), static_cast<C*>(nullptr));
  };
  if (order % 2 == 0) {
    for (size_t i = 0; i < fours; i += C::N) {
      const size_t p = from.base(i), q = C::N == 2 ? from.base(i + 1) : p;
      C x0 = legs(p, q, 0), x1 = legs(p, q, 1), x2 = legs(p, q, 2), x3 = legs(p, q, 3);
      first_four<Inverse>(x0, x1, x2, x3);
      store_four(dst + 8 * i, 8, x0, x1, x2, x3);
    }
    return;
  }
  // A butterfly of 8 takes two entries of the table; legs 4 to 7 are those of the odd elements.
  for (size_t i = 0; i < fours; i += 2 * C::N) {
    const size_t p = from.base(i), q = C::N == 2 ? from.base(i + 2) : p;
    C y0 = legs(p, q, 4), y1 = legs(p, q, 5), y2 = legs(p, q, 6), y3 = legs(p, q, 7);
    first_four<Inverse>(y0, y1, y2, y3);
    y1 = turned_eighth<Inverse>(y1);
    y2 = turned_quarter<Inverse>(y2);
    y3 = turned_eighth<Inverse>(turned_quarter<Inverse>(y3));
    C x0 = legs(p, q, 0), x1 = legs(p, q, 1), x2 = legs(p, q, 2), x3 = legs(p, q, 3);
    first_four<Inverse>(x0, x1, x2, x3);
    store_four(dst + 8 * i, 16, x0 + y0, x1 + y1, x2 + y2, x3 + y3);
    store_four(dst + 8 * i + 8, 16, x0 - y0, x1 - y1, x2 - y2, x3 - y3);
  }
}

// ---- radix-4 passes
// `count` butterflies one behind the other, their legs `from` doubles apart in the source and `to` in the destination.
template <bool Inverse, Form form>
NOX_INLINE void butterflies(const Nox64f* src, size_t from, Nox64f* dst, size_t to, const Nox64f* twiddles, size_t count) {
  using V = f64::vec;
  for (size_t k = 0; k < count; k += V::N) {
    const auto twiddle = [&](int slot) { return load_twiddles<V, kTwiddleGroup>(twiddles + slot); };
    // The legs stand in bit-reversed order: the second one is that of the even elements.
    const Split<V> x2 = turned<Inverse>(load_split<V>(src + from), twiddle(4), twiddle(6));
    const Split<V> x1 = turned<Inverse>(load_split<V>(src + 2 * from), twiddle(0), twiddle(2));
    const Split<V> x3 = turned<Inverse>(load_split<V>(src + 3 * from), twiddle(8), twiddle(10));
    Split<V> x[4] = {load_split<V>(src), x1, x2, x3};
    dft<Inverse>(x);
    store_as<form>(dst, x[0]);
    store_as<form>(dst + to, x[1]);
    store_as<form>(dst + 2 * to, x[2]);
    store_as<form>(dst + 3 * to, x[3]);
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
  first_pass<Inverse>(src, target, order, Reversed{reversal, size_t{1} << order});
  later_passes<Inverse, Form::Joined>(target, dst, order, twiddles);
}

// A row of a large transform: in place, already reversed, left split.
template <bool Inverse>
void middle_row(Nox64f* row, int order, const Nox64f* twiddles) {
  first_pass<Inverse>(row, row, order, Ordered{});
  later_passes<Inverse, Form::Split>(row, row, order, twiddles);
}

NOX_INLINE void scale_all(Nox64f* p, size_t doubles, Nox64f by) {
  map<f64>(p, static_cast<int>(doubles), [by](auto x) { return x * decltype(x)::all(by); }, p);
}

}  // namespace NOX_VARIANT
}  // namespace nox
