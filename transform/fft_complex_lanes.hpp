// Complex values in lanes of real and of imaginary parts, and the butterflies on them.
//
// Between the first and the last pass an array is split: each group of as many elements as a vector has lanes stands
// as a vector of real parts and a vector of imaginary ones. Products with twiddles then need no shuffles.
#pragma once
#include "core/drivers.hpp"
#include "core/simd/joined.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Loads from a table, which stands at a boundary: below AVX an instruction then takes its operand from memory.
template <class V>
NOX_INLINE V load_at_boundary(const Nox64f* p) {
  if constexpr (V::N == 2)
    return {_mm_load_pd(p)};
  else
    return V::load(p);
}

template <class V>
NOX_INLINE Split<V> operator+(Split<V> a, Split<V> b) {
  return {a.re + b.re, a.im + b.im};
}
template <class V>
NOX_INLINE Split<V> operator-(Split<V> a, Split<V> b) {
  return {a.re - b.re, a.im - b.im};
}
template <class V>
NOX_INLINE Split<V> scaled(Split<V> a, V by) {
  return {a.re * by, a.im * by};
}
// Times -i, in the inverse i.
template <bool Inverse, class V>
NOX_INLINE Split<V> quarter_turn(Split<V> a) {
  if constexpr (Inverse)
    return {negate(a.im), a.re};
  else
    return {a.im, negate(a.re)};
}
// a + quarter_turn(b), a - quarter_turn(b)
template <bool Inverse, class V>
NOX_INLINE Split<V> add_turned(Split<V> a, Split<V> b) {
  if constexpr (Inverse)
    return {a.re - b.im, a.im + b.re};
  else
    return {a.re + b.im, a.im - b.re};
}
template <bool Inverse, class V>
NOX_INLINE Split<V> sub_turned(Split<V> a, Split<V> b) {
  return add_turned<!Inverse>(a, b);
}
// Times exp(-i*pi/4), in the inverse exp(i*pi/4).
template <bool Inverse, class V>
NOX_INLINE Split<V> eighth_turn(Split<V> a) {
  return scaled(add_turned<Inverse>(a, a), V::all(0.7071067811865476));
}
// Times a forward twiddle, in the inverse its conjugate.
template <bool Inverse, class V>
NOX_INLINE Split<V> turned(Split<V> a, V c, V s) {
  if constexpr (Inverse)
    return {a.re * c + a.im * s, a.im * c - a.re * s};
  else
    return {a.re * c - a.im * s, a.im * c + a.re * s};
}

// Discrete transforms of 2, 4 and 8 values, in natural order in and out.
template <bool Inverse, class V>
NOX_INLINE void dft(Split<V> (&x)[2]) {
  const Split<V> a = x[0], b = x[1];
  x[0] = a + b;
  x[1] = a - b;
}
template <bool Inverse, class V>
NOX_INLINE void dft(Split<V> (&x)[4]) {
  const Split<V> a = x[0] + x[2], b = x[0] - x[2], c = x[1] + x[3], d = x[1] - x[3];
  x[0] = a + c;
  x[1] = add_turned<Inverse>(b, d);
  x[2] = a - c;
  x[3] = sub_turned<Inverse>(b, d);
}
template <bool Inverse, class V>
NOX_INLINE void dft(Split<V> (&x)[8]) {
  Split<V> even[4] = {x[0], x[2], x[4], x[6]}, odd[4] = {x[1], x[3], x[5], x[7]};
  dft<Inverse>(even);
  dft<Inverse>(odd);
  odd[1] = eighth_turn<Inverse>(odd[1]);
  odd[3] = eighth_turn<Inverse>(odd[3]);
  x[0] = even[0] + odd[0];
  x[4] = even[0] - odd[0];
  x[1] = even[1] + odd[1];
  x[5] = even[1] - odd[1];
  x[2] = add_turned<Inverse>(even[2], odd[2]);
  x[6] = sub_turned<Inverse>(even[2], odd[2]);
  x[3] = add_turned<Inverse>(even[3], odd[3]);
  x[7] = sub_turned<Inverse>(even[3], odd[3]);
}

// The same value, in a register: with eight of them the compiler would load a value again at each use, or keep it on
// the stack meanwhile, and loads are what the passes have most of.
template <class V>
NOX_INLINE V held(V a) {
  asm volatile("" : "+x"(a.v));
  return a;
}
template <class V>
NOX_INLINE Split<V> held(Split<V> a) {
  return {held(a.re), held(a.im)};
}

// ---- memory
template <class V>
NOX_INLINE Split<V> load_split(const Nox64f* p) {
  return {V::load(p), V::load(p + V::N)};
}
// Twiddles of V::N neighbouring butterflies. A table groups what belongs to two of them, `Group` doubles in all, so
// four lanes are filled from two groups.
constexpr int kTwiddleGroup = 12, kHalvedGroup = 8;
template <class V, int Group>
NOX_INLINE V load_twiddles(const Nox64f* p) {
  if constexpr (V::N == 2) {
    return load_at_boundary<V>(p);
  } else {
#if NOX_LEVEL >= 3
    return {_mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(p)), _mm_loadu_pd(p + Group), 1)};
#endif
  }
}
// V::N elements from p downwards.
template <class V>
NOX_INLINE Split<V> load_joined_down(const Nox64f* p) {
  if constexpr (V::N == 2) {
    const V a = V::load(p), b = V::load(p - 2);
    return {low_halves(a, b), high_halves(a, b)};
  } else {
#if NOX_LEVEL >= 3
    const auto pair = [p](int i, int k) {
      return V{_mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(p - 2 * i)), _mm_loadu_pd(p - 2 * k), 1)};
    };
    const V even = pair(0, 2), odd = pair(1, 3);
    return {low_halves(even, odd), high_halves(even, odd)};
#endif
  }
}
template <class V>
NOX_INLINE void store_joined_down(Nox64f* p, Split<V> a) {
  const V low = low_halves(a.re, a.im), high = high_halves(a.re, a.im);
  if constexpr (V::N == 2) {
    low.store(p);
    high.store(p - 2);
  } else {
#if NOX_LEVEL >= 3
    _mm256_storeu_pd(p - 2, _mm256_permute2f128_pd(high.v, low.v, 0x20));
    _mm256_storeu_pd(p - 6, _mm256_permute2f128_pd(high.v, low.v, 0x31));
#endif
  }
}
// Where a pass leaves its results.
enum class Form { Split, Joined };
template <Form form, class V>
NOX_INLINE void store_as(Nox64f* p, Split<V> a) {
  if constexpr (form == Form::Joined) {
    store_joined(p, a);
  } else {
    a.re.store(p);
    a.im.store(p + V::N);
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
