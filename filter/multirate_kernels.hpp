// The sums of the multi-rate filter.
//
// Lanes are neighbouring outputs, each row of taps meets one sample in all lanes, and several windows a fixed distance
// apart run at a time, since they share the taps. Every output starts at zero, takes its terms in the order of the
// samples and ends with a zero added. The zeros that a table has around an output's own taps so change nothing, not
// even the sign of a zero, and the bits of an output don't depend on how it is computed.
#pragma once
#include <utility>

#include "core/simd/c64.hpp"
#include "core/simd/f64.hpp"
#include "filter/fir_kernels.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The sum of one vector of outputs.
template <class V, class E = typename V::elem>
struct MrSum {
  V sum;
  static NOX_INLINE MrSum start() { return {V::zero()}; }
  // A single lane keeps the upper part of the first factor's register, which had better be the sample's.
  NOX_INLINE void add(V taps, const Nox64f* x) {
    if constexpr (V::N == 1)
      sum = madd(V::all(*x), taps, sum);
    else
      sum = madd(taps, V::all(*x), sum);
  }
  NOX_INLINE V result() const { return sum + V::zero(); }
};
// Complex: the products with real and with imaginary parts of the samples are summed apart and joined at the end.
template <class C>
struct MrSum<C, Nox64fc> {
  using P = parts_of<C>;
  P re, im;
  static NOX_INLINE MrSum start() { return {P::zero(), P::zero()}; }
  NOX_INLINE void add(C taps, const Nox64fc* x) {
    re = madd(parts(taps), P::all(x->re), re);
    im = madd(parts(taps), P::all(x->im), im);
  }
  NOX_INLINE C result() const { return sub_add(complex<C>(re), swap_parts(complex<C>(im))) + C::zero(); }
};

// Windows that run at a time: of eight vector registers, one holds the taps and one a sample or a product.
template <class K>
constexpr size_t kMrWindows = 6;
template <>
constexpr size_t kMrWindows<c64> = 3;

// A vector of outputs for each of the windows at s, s + stride and so on, as many as K, whose results go to
// put(k, result). Rows of taps are `step` elements apart.
template <class V, size_t... K, class E, class Put>
NOX_INLINE void mr_sums(std::index_sequence<K...>, const E* taps, size_t rows, size_t step, const E* s, size_t stride,
                        Put&& put) {
  MrSum<V> sum[] = {(static_cast<void>(K), MrSum<V>::start())...};
  // Two pointers and multiples that an address can hold reach all windows.
  const E *low = s, *high = s + 3 * stride;
  for (const E* const end = taps + rows * step; taps != end; taps += step) {
    const V h = in_register(V::load(taps));
    (sum[K].add(h, (K < 3 ? low : high) + K % 3 * stride), ...);
    ++low;
    ++high;
  }
  (put(K, sum[K].result()), ...);
}

// The real numbers of a vector of outputs.
template <class V>
NOX_INLINE V reals(V a) {
  return a;
}
NOX_INLINE F64x2 reals(C64x1 a) { return parts(a); }
#if NOX_LEVEL >= 3
NOX_INLINE F64x4 reals(C64x2 a) { return parts(a); }
#endif

}  // namespace NOX_VARIANT
}  // namespace nox
