// The smallest transforms, all in registers.
#pragma once
#include "transform/fft_butterfly.hpp"

namespace nox {
inline namespace NOX_VARIANT {

NOX_INLINE C64x2 scaled(const Nox64fc* x, Nox64f scale) {
  return {_mm256_mul_pd(C64x2::load(x).v, _mm256_set1_pd(scale))};
}

NOX_INLINE void transform_of_1(const Nox64fc* x, Nox64fc* y, Nox64f scale) {
  _mm_storeu_pd(&y->re, _mm_mul_pd(_mm_loadu_pd(&x->re), _mm_set1_pd(scale)));
}

NOX_INLINE void transform_of_2(const Nox64fc* x, Nox64fc* y, Nox64f scale) {
  const __m128d s = _mm_set1_pd(scale);
  const __m128d a = _mm_mul_pd(_mm_loadu_pd(&x[0].re), s), b = _mm_mul_pd(_mm_loadu_pd(&x[1].re), s);
  _mm_storeu_pd(&y[0].re, _mm_add_pd(a, b));
  _mm_storeu_pd(&y[1].re, _mm_sub_pd(a, b));
}

template <bool Inverse>
NOX_INLINE void transform_of_4(const Nox64fc* x, Nox64fc* y, Nox64f scale) {
  const C64x2 a = scaled(x, scale), b = scaled(x + 2, scale);
  const C64x2 sum = a + b, rest = a - b;  // of the values two apart
  const C64x2 even = low_pair(sum, rest), odd = high_pair(sum, rest);
  // The second odd value turned by a quarter: its parts exchanged, one sign changed.
  const __m256d sign = Inverse ? _mm256_set_pd(0.0, -0.0, 0.0, 0.0) : _mm256_set_pd(-0.0, 0.0, 0.0, 0.0);
  const C64x2 turned = {_mm256_xor_pd(_mm256_permute_pd(odd.v, 6), sign)};
  (even + turned).store(y);
  (even - turned).store(y + 2);
}

template <bool Inverse>
NOX_INLINE void transform_of_8(const Nox64fc* x, Nox64fc* y, Nox64f scale) {
  // The even and the odd values in the two halves of each vector.
  C64x2 f[4];
  four<Inverse>([=](int j) NOX_INLINED { return scaled(x + 2 * j, scale); },
                [&](int j, C64x2 v) NOX_INLINED { f[j] = v; });
  constexpr Nox64f h = 0.70710678118654752440;
  const C64x2 e0 = low_pair(f[0], f[1]), o0 = high_pair(f[0], f[1]);
  const C64x2 e2 = low_pair(f[2], f[3]), o2 = high_pair(f[2], f[3]);
  const C64x2 t0 = times<Inverse>(o0, {_mm256_set_pd(h, h, 1.0, 1.0)}, {_mm256_set_pd(-h, -h, 0.0, 0.0)});
  const C64x2 t2 = times<Inverse>(o2, {_mm256_set_pd(-h, -h, 0.0, 0.0)}, {_mm256_set_pd(-h, -h, -1.0, -1.0)});
  (e0 + t0).store(y);
  (e2 + t2).store(y + 2);
  (e0 - t0).store(y + 4);
  (e2 - t2).store(y + 6);
}

}  // namespace NOX_VARIANT
}  // namespace nox
