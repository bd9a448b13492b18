// The sliding median's kernels: selection across lanes for windows of 3 and 5, a sorted window for the others.
//
// All run from the last output to the first. An output's window holds no later samples, so in place each is overwritten
// when no output needs it any more.
#pragma once
#include <utility>

#include "core/simd/choose.hpp"
#include "filter/elements.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class T>
struct MedianLanes {
  using Of = ints<T>;
};
template <>
struct MedianLanes<Nox64f> {
  using Of = f64;
};

// ---- windows of 3 and 5
struct MedianOf3 {
  static constexpr int kSize = 3;
  template <class V>
  NOX_INLINE V operator()(V a, V b, V c) const {
    return max(min(a, b), min(max(a, b), c));
  }
  // Lanes of doubles need comparisons that hold for NaN and for zeros of both signs.
  template <class V>
  static NOX_INLINE V of_reals(V a, V b, V c) {
    const V ascending = a <= b;
    const V larger = choose(ascending, b, a), smaller = a ^ b ^ larger;
    return choose(c < larger, choose(c <= smaller, smaller, c), larger);
  }
  NOX_INLINE F64x1 operator()(F64x1 a, F64x1 b, F64x1 c) const { return of_reals(a, b, c); }
  NOX_INLINE f64::vec operator()(f64::vec a, f64::vec b, f64::vec c) const { return of_reals(a, b, c); }
};

// The larger of the lesser ones of two pairs and the lesser of the larger ones leave three values to choose from.
struct MedianOf5 {
  static constexpr int kSize = 5;
  template <class V>
  NOX_INLINE V operator()(V a, V b, V c, V d, V e) const {
    const V low = max(min(a, b), min(c, d)), high = min(max(a, b), max(c, d));
    return max(min(low, high), min(max(low, high), e));
  }
};

// f of the windows that begin at s.
template <class V, class F, size_t... I>
NOX_INLINE V windows(const typename V::elem* s, F f, std::index_sequence<I...>) {
  return f(once(V::load(s + I))...);
}

// d[i] = f of the window that begins at s[i], for count outputs; d may be s + F::kSize - 1. The lowest vector is
// computed before anything is written and stands at the very start.
template <class K, class F>
NOX_INLINE void slide_down(typename K::elem* d, const typename K::elem* s, int count, F f) {
  using V = typename K::vec;
  using One = typename K::one;
  constexpr auto kTaps = std::make_index_sequence<F::kSize>();
  size_t left = static_cast<size_t>(count);
  if (left < size_t(V::N)) {
    while (left-- > 0) windows<One>(s + left, f, kTaps).store(d + left);
    return;
  }
  const V lowest_outputs = windows<V>(s, f, kTaps);
  for (; left >= size_t(2 * V::N); left -= 2 * V::N) {
    const V upper = windows<V>(s + left - V::N, f, kTaps), lower = windows<V>(s + left - 2 * V::N, f, kTaps);
    upper.store(d + left - V::N);
    lower.store(d + left - 2 * V::N);
  }
  if (left > size_t(V::N)) windows<V>(s + left - V::N, f, kTaps).store(d + left - V::N);
  if (left > 0) lowest_outputs.store(d);
}

// `line` has the samples before s[0] and room for as many again.
template <class F, class T>
NOX_INLINE void median_across_lanes(const T* s, T* d, int len, T* line, F f) {
  using K = typename MedianLanes<T>::Of;
  constexpr int kPast = F::kSize - 1;
  const int early = len < kPast ? len : kPast;
  for (int i = 0; i < early; ++i) line[kPast + i] = s[i];
  if (len > kPast) slide_down<K>(d + kPast, s, len - kPast, f);
  for (int i = 0; i < early; ++i)
    windows<typename K::one>(line + i, f, std::make_index_sequence<F::kSize>()).store(d + i);
}

}  // namespace NOX_VARIANT
}  // namespace nox
