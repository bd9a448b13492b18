// Butterflies on two complex values per vector, for the processors that fuse.
//
// A product with a root of unity costs one exchange of parts, one product and one fused operation; the inverse takes
// the conjugate root by the sister of that operation, so both directions share their tables. A butterfly of four
// holds at most six vectors at a time: with eight registers nothing goes to the stack.
#pragma once
#include "core/simd/c64.hpp"

// What is called once for a whole pass: a function of its own, for the sake of the few registers.
#define NOX_PASS __attribute__((noinline, regparm(3)))

namespace nox {
inline namespace NOX_VARIANT {

// x times the root of parts re and im, or its conjugate.
template <bool Inverse>
NOX_INLINE C64x2 times(C64x2 x, C64x2 re, C64x2 im) {
  const __m256d cross = _mm256_mul_pd(swap_parts(x).v, im.v);
  if constexpr (Inverse)
    return {_mm256_fmsubadd_pd(x.v, re.v, cross)};
  else
    return {_mm256_fmaddsub_pd(x.v, re.v, cross)};
}
// a + i b and a - i b, of a b with exchanged parts and of b as it is
NOX_INLINE C64x2 plus_turned(C64x2 a, C64x2 b) { return sub_add(a, b); }
NOX_INLINE C64x2 minus_turned(C64x2 a, C64x2 b) { return {_mm256_fmsubadd_pd(a.v, _mm256_set1_pd(1.0), b.v)}; }
NOX_INLINE C64x2 plus_i(C64x2 a, C64x2 b) { return plus_turned(a, swap_parts(b)); }
NOX_INLINE C64x2 minus_i(C64x2 a, C64x2 b) { return minus_turned(a, swap_parts(b)); }
NOX_INLINE C64x2 low_pair(C64x2 a, C64x2 b) { return {_mm256_permute2f128_pd(a.v, b.v, 0x20)}; }
NOX_INLINE C64x2 high_pair(C64x2 a, C64x2 b) { return {_mm256_permute2f128_pd(a.v, b.v, 0x31)}; }

// The same value, in a register: else the compiler would repeat its load as a memory operand of each use, and loads are
// what the passes have most of.
NOX_INLINE C64x2 in_register(C64x2 x) {
  asm volatile("" : "+x"(x.v));
  return x;
}
NOX_INLINE C64x2 fetch(const Nox64fc* p) { return in_register(C64x2::load(p)); }

// The transform of four. The values are handed out by `read(j)`, once each when needed, the results given to
// `write(j, y)`.
template <bool Inverse, class Read, class Write>
NOX_INLINE void four(Read read, Write write) {
  C64x2 a = read(1);
  C64x2 b = read(3);
  const C64x2 odd = a + b, turned = swap_parts(a - b);
  b = read(2);
  a = read(0);
  const C64x2 even = a + b, rest = a - b;
  write(0, even + odd);
  const C64x2 up = plus_turned(rest, turned), down = minus_turned(rest, turned);
  write(1, Inverse ? up : down);
  write(2, even - odd);
  write(3, Inverse ? down : up);
}

// The twiddle factors of two neighbouring butterflies, three roots each.
// Wide: real parts and imaginary parts twice each, six vectors. Narrow: as complex values, three vectors.
template <bool Wide>
constexpr size_t kTwiddleStep = Wide ? 24 : 12;
template <bool Inverse, bool Wide>
NOX_INLINE C64x2 twiddled(const Nox64fc* x, const Nox64f* w, int j) {
  const auto load = [w](int i) { return C64x2{_mm256_loadu_pd(w + 4 * i)}; };
  if constexpr (Wide) {
    return times<Inverse>(fetch(x), load(2 * j), load(2 * j + 1));
  } else {
    return times<Inverse>(fetch(x), re_twice(load(j)), im_twice(load(j)));
  }
}

// The transform of eight, without twiddle factors.
template <bool Inverse, class Read, class Write>
NOX_INLINE void eight(Read read, Write write) {
  const C64x2 half = {_mm256_set1_pd(0.70710678118654752440)};
  C64x2 e[4], o[4];
  four<Inverse>([&](int j) NOX_INLINED { return read(2 * j); }, [&](int j, C64x2 y) NOX_INLINED { e[j] = y; });
  four<Inverse>([&](int j) NOX_INLINED { return read(2 * j + 1); }, [&](int j, C64x2 y) NOX_INLINED { o[j] = y; });
  // The roots are (1 - i) / sqrt 2, -i and (-1 - i) / sqrt 2, or their conjugates.
  const auto scaled = [&](C64x2 a) NOX_INLINED { return C64x2{_mm256_mul_pd(a.v, half.v)}; };
  write(0, e[0] + o[0]);
  write(4, e[0] - o[0]);
  const C64x2 up = plus_i(e[2], o[2]), down = minus_i(e[2], o[2]);
  write(2, Inverse ? up : down);
  write(6, Inverse ? down : up);
  const C64x2 o1 = scaled(Inverse ? plus_i(o[1], o[1]) : minus_i(o[1], o[1]));
  write(1, e[1] + o1);
  write(5, e[1] - o1);
  const C64x2 o3 = scaled(Inverse ? minus_i(o[3], o[3]) : plus_i(o[3], o[3]));  // the negative
  write(3, e[3] - o3);
  write(7, e[3] + o3);
}

}  // namespace NOX_VARIANT
}  // namespace nox
