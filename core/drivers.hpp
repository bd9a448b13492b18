// Drivers: one loop per shape, given a functor that works on any lane type.
//
// The first and the last vector of an array stand at its very ends, wherever these are; between them whole vectors run
// four at a time from a vector boundary of the destination on, and what they share with the two at the ends is computed
// twice, to the same bits. Arrays shorter than a vector run in single lanes. K names the kind of lanes: f64, c64,
// split_c64, ints<T>.
#pragma once
#include "core/simd/c64.hpp"
#include "core/simd/f64.hpp"
#include "core/simd/ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Bytes in front of the first vector boundary; 0 where element steps never reach a boundary.
template <class V>
NOX_INLINE size_t bytes_to_boundary(const typename V::elem* p) {
  constexpr size_t kElement = sizeof(typename V::elem), kVector = kElement * V::N;
  const size_t past = (0 - reinterpret_cast<uintptr_t>(p)) & (kVector - 1);
  return past % kElement == 0 ? past : 0;
}
template <class V>
NOX_INLINE size_t elements_to_boundary(const typename V::elem* p, size_t len) {
  const size_t head = bytes_to_boundary<V>(p) / sizeof(typename V::elem);
  return head < len ? head : len;
}

// The element `bytes` behind p.
template <class E>
NOX_INLINE E* behind(E* p, size_t bytes) {
  return reinterpret_cast<E*>(reinterpret_cast<uintptr_t>(p) + bytes);
}
// Keeps a running value one register: the compiler would make several of it for each array, and run out of them.
template <class T>
NOX_INLINE void keep_whole(T& value) {
  asm("" : "+r"(value));
}

// Moves pointers on by `bytes`, each in a register of its own.
template <class... E>
NOX_INLINE void advance(size_t bytes, E*&... p) {
  ((p = behind(p, bytes)), ...);
  (keep_whole(p), ...);
}

// The functor of a plain move.
struct Keep {
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return a;
  }
};

// Keeps stores in ascending order, which the compiler has no reason to care for: stores that fill a cache line one
// after the other leave the store buffer together.
NOX_INLINE void in_order() { asm volatile("" ::: "memory"); }

// Stores vectors one behind the other.
template <class V, class... R>
NOX_INLINE void store_run(typename V::elem* d, V first, R... rest) {
  first.store(d);
  in_order();
  if constexpr (sizeof...(R) > 0) store_run<V>(d + V::N, rest...);
}

// d[i] = f(s[i]...); a source may be the destination.
template <class K, class F, class... S>
NOX_INLINE void map(typename K::elem* d, int len, F&& f, const S*... s) {
  using V = typename K::vec;
  using One = typename K::one;
  constexpr size_t kElement = sizeof(typename K::elem), kVector = kElement * V::N;
  const size_t bytes = static_cast<size_t>(len) * kElement;
  size_t i = 0;
  if (bytes < kVector) {
    for (; i < bytes; i += kElement) f(One::load(behind(s, i))...).store(behind(d, i));
    return;
  }
  // The ends are computed before anything is written, and written when all has been read: the destination may be a
  // source.
  const V first = f(V::load(s)...), last = f(V::load(behind(s, bytes - kVector))...);
  typename K::elem* const start = d;
  typename K::elem* const end = behind(d, bytes - kVector);
  const size_t head = bytes_to_boundary<V>(d);
  size_t left = bytes - head;
  advance(head, d, s...);
  for (; left >= 4 * kVector; left -= 4 * kVector) {
    store_run<V>(d, f(V::load(s)...));
    store_run<V>(d + V::N, f(V::load(s + V::N)...));
    store_run<V>(d + 2 * V::N, f(V::load(s + 2 * V::N)...));
    store_run<V>(d + 3 * V::N, f(V::load(s + 3 * V::N)...));
    advance(4 * kVector, d, s...);
  }
  for (; left >= kVector; left -= kVector) {
    f(V::load(s)...).store(d);
    advance(kVector, d, s...);
  }
  if (head > 0) first.store(start);
  if (left > 0) last.store(end);
}

// Lanes that a functor ors together on its way: a condition that a warning reports after the loop.
template <class K>
struct Watch {
  typename K::vec wide = K::vec::zero();
  int narrow = 0;  // the top bits of lanes seen in narrower registers
  template <class V>
  NOX_INLINE void see(V lanes) {
    if constexpr (V::N == K::vec::N)
      wide = wide | lanes;
    else
      narrow |= mask_bits(lanes);
  }
  // Whether any lane had its top bit set.
  NOX_INLINE bool any() const { return (mask_bits(wide) | narrow) != 0; }
};

// d[i] = f(s[n - 1 - i]); the arrays don't overlap.
template <class K, class F>
NOX_INLINE void map_reversed(typename K::elem* d, const typename K::elem* s, int len, F&& f) {
  using V = typename K::vec;
  using One = typename K::one;
  constexpr size_t kElement = sizeof(typename K::elem), kVector = kElement * V::N;
  const size_t bytes = static_cast<size_t>(len) * kElement;
  size_t i = 0;
  if (bytes < kVector) {
    for (; i < bytes; i += kElement) f(One::load(behind(s, bytes - kElement - i))).store(behind(d, i));
    return;
  }
  const typename K::elem* from = behind(s, bytes - kVector);  // the vector that goes to d
  typename K::elem* const end = behind(d, bytes - kVector);
  const auto vector = [&](size_t at) { return f(reverse(V::load(behind(from, 0 - at)))); };
  vector(0).store(d);
  const size_t head = bytes_to_boundary<V>(d);
  size_t left = bytes - head;
  advance(head, d);
  advance(0 - head, from);
  for (; left >= 4 * kVector; left -= 4 * kVector) {
    store_run<V>(d, vector(0));
    store_run<V>(d + V::N, vector(kVector));
    store_run<V>(d + 2 * V::N, vector(2 * kVector));
    store_run<V>(d + 3 * V::N, vector(3 * kVector));
    advance(4 * kVector, d);
    advance(0 - 4 * kVector, from);
  }
  for (; left >= kVector; left -= kVector) {
    vector(0).store(d);
    advance(kVector, d);
    advance(0 - kVector, from);
  }
  f(reverse(V::load(s))).store(end);
}

// Exchanges element i with element n - 1 - i: vectors from both ends while they don't meet, and two vectors, read first
// and written last, that cover the middle. Arrays shorter than a vector run in single elements.
template <class K>
NOX_INLINE void reverse_in_place(typename K::elem* d, int len) {
  using V = typename K::vec;
  using One = typename K::one;
  constexpr size_t kVector = sizeof(typename K::elem) * V::N;
  size_t left = static_cast<size_t>(len);
  typename K::elem* high = d + left;  // end of what is still to be exchanged, which d begins
  if (left < V::N) {
    for (; left >= 2; left -= 2) {
      const One front = One::load(d), back = One::load(--high);
      back.store(d++);
      front.store(high);
    }
    return;
  }
  const size_t rest = left % (2 * V::N);
  const size_t outside = (left - rest) / 2 - (rest < V::N ? (V::N - rest + 1) / 2 : 0);  // elements before the middle
  typename K::elem *const low_middle = d + outside, *const high_middle = high - outside - V::N;
  const V middle_front = V::load(low_middle), middle_back = V::load(high_middle);
  const auto exchange = [&](size_t at) {
    typename K::elem *const low = d + at, *const top = high - V::N - at;
    const V front = V::load(low), back = V::load(top);
    reverse(back).store(low);
    reverse(front).store(top);
  };
  for (; left >= 4 * V::N; left -= 4 * V::N) {
    exchange(0);
    exchange(V::N);
    advance(2 * kVector, d);
    advance(0 - 2 * kVector, high);
  }
  if (left >= 2 * V::N) exchange(0);
  reverse(middle_back).store(low_middle);
  reverse(middle_front).store(high_middle);
}

}  // namespace NOX_VARIANT
}  // namespace nox
