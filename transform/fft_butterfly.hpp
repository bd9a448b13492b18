// Butterflies on two complex values per vector, for the processors that fuse.
//
// A product with a root of unity costs one exchange of parts, one product and one fused operation; the inverse takes
// the conjugate root by the sister of that operation, so both directions share their tables. A butterfly of four
// holds at most six vectors at a time: with eight registers nothing goes to the stack.
#pragma once
#include "core/simd/c64.hpp"

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
// a + i b and a - i b
NOX_INLINE C64x2 plus_i(C64x2 a, C64x2 b) { return sub_add(a, swap_parts(b)); }
NOX_INLINE C64x2 minus_i(C64x2 a, C64x2 b) { return {_mm256_fmsubadd_pd(a.v, _mm256_set1_pd(1.0), swap_parts(b).v)}; }
NOX_INLINE C64x2 low_pair(C64x2 a, C64x2 b) { return {_mm256_permute2f128_pd(a.v, b.v, 0x20)}; }
NOX_INLINE C64x2 high_pair(C64x2 a, C64x2 b) { return {_mm256_permute2f128_pd(a.v, b.v, 0x31)}; }

struct Four {
  C64x2 y0, y1, y2, y3;
};
// The transform of four, of values that are handed out by functions: each is called once, when its value is needed.
template <bool Inverse, class X0, class X1, class X2, class X3>
NOX_INLINE Four four(X0 x0, X1 x1, X2 x2, X3 x3) {
  C64x2 a = x1();
  C64x2 b = x3();
  const C64x2 odd = a + b, turned = a - b;
  a = x2();
  b = x0();
  const C64x2 even = b + a, rest = b - a;
  const C64x2 up = plus_i(rest, turned), down = minus_i(rest, turned);
  return {even + odd, Inverse ? up : down, even - odd, Inverse ? down : up};
}

// The twiddle factors of two neighbouring butterflies, three roots each.
// Wide: real parts and imaginary parts twice each, six vectors. Narrow: as complex values, three vectors.
template <bool Wide>
constexpr size_t kTwiddleStep = Wide ? 24 : 12;
template <bool Inverse, bool Wide>
NOX_INLINE C64x2 twiddled(const Nox64fc* x, const Nox64f* w, int j) {
  const auto load = [w](int i) { return C64x2{_mm256_loadu_pd(w + 4 * i)}; };
  if constexpr (Wide) {
    return times<Inverse>(C64x2::load(x), load(2 * j), load(2 * j + 1));
  } else {
    return times<Inverse>(C64x2::load(x), re_twice(load(j)), im_twice(load(j)));
  }
}

// The transform of eight, without twiddle factors; the values come by index.
template <bool Inverse, class X>
NOX_INLINE void eight(X x, C64x2* y) {
  const C64x2 half = {_mm256_set1_pd(0.70710678118654752440)};
  const Four e = four<Inverse>([&] { return x(0); }, [&] { return x(2); }, [&] { return x(4); }, [&] { return x(6); });
  y[0] = e.y0, y[1] = e.y1, y[2] = e.y2, y[3] = e.y3;
  const Four o = four<Inverse>([&] { return x(1); }, [&] { return x(3); }, [&] { return x(5); }, [&] { return x(7); });
  // The roots are (1 - i) / sqrt 2, -i and (-1 - i) / sqrt 2, or their conjugates.
  const auto scaled = [&](C64x2 a) { return C64x2{_mm256_mul_pd(a.v, half.v)}; };
  const C64x2 o1 = scaled(Inverse ? plus_i(o.y1, o.y1) : minus_i(o.y1, o.y1));
  const C64x2 o3 = scaled(Inverse ? minus_i(o.y3, o.y3) : plus_i(o.y3, o.y3));  // its negative
  const C64x2 e0 = y[0], e1 = y[1], e2 = y[2], e3 = y[3];
  y[0] = e0 + o.y0, y[4] = e0 - o.y0;
  y[1] = e1 + o1, y[5] = e1 - o1;
  const C64x2 up = plus_i(e2, o.y2), down = minus_i(e2, o.y2);
  y[2] = Inverse ? up : down, y[6] = Inverse ? down : up;
  y[3] = e3 - o3, y[7] = e3 + o3;
}

}  // namespace NOX_VARIANT
}  // namespace nox
