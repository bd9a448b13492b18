// Drivers: one loop per shape, given a functor that works on any lane type.
//
// Each peels single elements until the destination stands on a vector boundary (if it can), runs whole vectors four at
// a time, then one at a time, and ends in single elements. All loads of a group come before its stores, so the
// destination may be one of the sources. K names the kind of lanes: f64, c64, ints<T>.
#pragma once
#include "core/simd/c64.hpp"
#include "core/simd/f64.hpp"
#include "core/simd/ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Elements in front of the first vector boundary, at most len; 0 where element steps never reach a boundary.
template <class V>
NOX_INLINE size_t elements_to_boundary(const typename V::elem* p, size_t len) {
  constexpr size_t kElement = sizeof(typename V::elem), kVector = kElement * V::N;
  const size_t past = reinterpret_cast<uintptr_t>(p) & (kVector - 1);
  if (past % kElement != 0 || past == 0) return 0;
  const size_t head = (kVector - past) / kElement;
  return head < len ? head : len;
}

// d[i] = f(s[i]...)
template <class K, class F, class... S>
NOX_INLINE void map(typename K::elem* d, int len, F&& f, const S*... s) {
  using V = typename K::vec;
  using One = typename K::one;
  const size_t n = static_cast<size_t>(len);
  size_t i = 0;
  for (const size_t head = elements_to_boundary<V>(d, n); i < head; ++i) f(One::load(s + i)...).store(d + i);
  for (; n - i >= 4 * V::N; i += 4 * V::N) {
    const V r0 = f(V::load(s + i)...), r1 = f(V::load(s + i + V::N)...);
    const V r2 = f(V::load(s + i + 2 * V::N)...), r3 = f(V::load(s + i + 3 * V::N)...);
    r0.store(d + i);
    r1.store(d + i + V::N);
    r2.store(d + i + 2 * V::N);
    r3.store(d + i + 3 * V::N);
  }
  for (; n - i >= V::N; i += V::N) f(V::load(s + i)...).store(d + i);
  for (; i < n; ++i) f(One::load(s + i)...).store(d + i);
}

// Lanes that a functor ors together on its way, kept apart for the two widths of a map.
template <class K>
struct Watch {
  typename K::vec wide = K::vec::zero();
  typename K::one single = K::one::zero();
  template <class V>
  NOX_INLINE void see(V lanes) {
    if constexpr (V::N == K::vec::N) wide = wide | lanes;
    else single = single | lanes;
  }
  // Whether any lane had its top bit set.
  NOX_INLINE bool any() const { return (mask_bits(wide) | mask_bits(single)) != 0; }
};

// d[i] = f(s[n - 1 - i]); the arrays don't overlap.
template <class K, class F>
NOX_INLINE void map_reversed(typename K::elem* d, const typename K::elem* s, int len, F&& f) {
  using V = typename K::vec;
  using One = typename K::one;
  const size_t n = static_cast<size_t>(len);
  size_t i = 0;
  for (const size_t head = elements_to_boundary<V>(d, n); i < head; ++i) f(One::load(s + (n - 1 - i))).store(d + i);
  for (; n - i >= 2 * V::N; i += 2 * V::N) {
    const V r0 = f(reverse(V::load(s + (n - i - V::N)))), r1 = f(reverse(V::load(s + (n - i - 2 * V::N))));
    r0.store(d + i);
    r1.store(d + i + V::N);
  }
  for (; n - i >= V::N; i += V::N) f(reverse(V::load(s + (n - i - V::N)))).store(d + i);
  for (; i < n; ++i) f(One::load(s + (n - 1 - i))).store(d + i);
}

// Exchanges element i with element n - 1 - i: vectors from both ends while they don't meet, then single elements.
template <class K>
NOX_INLINE void reverse_in_place(typename K::elem* d, int len) {
  using V = typename K::vec;
  using One = typename K::one;
  size_t low = 0, high = static_cast<size_t>(len);
  for (; high - low >= 2 * V::N; low += V::N, high -= V::N) {
    const V front = V::load(d + low), back = V::load(d + high - V::N);
    reverse(back).store(d + low);
    reverse(front).store(d + high - V::N);
  }
  for (; high - low >= 2; ++low, --high) {
    const One front = One::load(d + low), back = One::load(d + high - 1);
    back.store(d + low);
    front.store(d + high - 1);
  }
}

// Accumulates step(acc, x...) in Count vectors and one single lane, then returns fold(vectors, single).
//
// The single lane takes the elements before the first source's vector boundary and those behind the last vector; then
// Count vectors an iteration, and what is left of them goes to the first one by one.
template <class K, int Count, class Step, class Fold, class... S>
NOX_INLINE auto reduce(int len, Step&& step, Fold&& fold, const typename K::elem* s0, const S*... s) {
  using V = typename K::vec;
  using One = typename K::one;
  const size_t n = static_cast<size_t>(len);
  V acc[Count];
  for (V& a : acc) a = V::zero();
  One single = One::zero();
  size_t i = 0;
  for (const size_t head = elements_to_boundary<V>(s0, n); i < head; ++i)
    single = step(single, One::load(s0 + i), One::load(s + i)...);
  for (; n - i >= Count * V::N; i += Count * V::N)
    for (size_t k = 0; k < Count; ++k)
      acc[k] = step(acc[k], V::load(s0 + i + k * V::N), V::load(s + i + k * V::N)...);
  for (; n - i >= V::N; i += V::N) acc[0] = step(acc[0], V::load(s0 + i), V::load(s + i)...);
  for (; i < n; ++i) single = step(single, One::load(s0 + i), One::load(s + i)...);
  return fold(acc, single);
}

}  // namespace NOX_VARIANT
}  // namespace nox
