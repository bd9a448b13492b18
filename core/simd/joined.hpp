// Complex elements in memory, real and imaginary parts side by side, as a vector of real parts and one of imaginary
// ones, in their order.
#pragma once
#include "core/simd/f64.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class V>
struct Split {
  V re, im;
};
// V::N elements at p, real and imaginary parts side by side.
template <class V>
NOX_INLINE Split<V> load_joined(const Nox64f* p) {
  if constexpr (V::N == 2) {
    const V a = V::load(p), b = V::load(p + 2);
    return {low_halves(a, b), high_halves(a, b)};
  } else {
#if NOX_LEVEL >= 4
    const V a = V::load(p), b = V::load(p + 4);
    const auto sorted = [](V x) { return V{_mm256_permute4x64_pd(x.v, 0xD8)}; };
    return {sorted(low_halves(a, b)), sorted(high_halves(a, b))};
#elif NOX_LEVEL == 3
    const auto pair = [p](int i, int k) {
      return V{_mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(p + 2 * i)), _mm_loadu_pd(p + 2 * k), 1)};
    };
    const V even = pair(0, 2), odd = pair(1, 3);
    return {low_halves(even, odd), high_halves(even, odd)};
#endif
  }
}
template <class V>
NOX_INLINE void store_joined(Nox64f* p, Split<V> a) {
  const V low = low_halves(a.re, a.im), high = high_halves(a.re, a.im);
  if constexpr (V::N == 2) {
    low.store(p);
    high.store(p + 2);
  } else {
#if NOX_LEVEL >= 3
    _mm256_storeu_pd(p, _mm256_permute2f128_pd(low.v, high.v, 0x20));
    _mm256_storeu_pd(p + 4, _mm256_permute2f128_pd(low.v, high.v, 0x31));
#endif
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
