// The sorted window of the sliding median, from which one sample is taken out as another comes in.
#pragma once
#include "core/simd/neighbours.hpp"
#include "filter/median.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The first place of an ascending array whose element isn't below x; len if there is none.
template <class T>
NOX_INLINE int lower_place(const T* sorted, int len, T x) {
  const T* low = sorted;
  while (len > 1) {
    const int half = len / 2;
    low += low[half - 1] < x ? half : 0;
    len -= half;
  }
  return static_cast<int>(low - sorted) + (*low < x ? 1 : 0);
}

// Windows of any size, in the caller's memory: both places are searched for by halves, and what lies between moves by
// one.
template <class T>
struct SortedArray {
  T* sorted;
  int size;

  NOX_INLINE void replace(T old, T fresh) {
    int from = lower_place(sorted, size, old), to = lower_place(sorted, size, fresh);
    if (from == size) --from;  // a sample that isn't there: only with NaN
    if (to > from) {
      --to;
      move_bytes(sorted + from, sorted + from + 1, static_cast<size_t>(to - from) * sizeof(T));
    } else {
      move_bytes(sorted + to + 1, sorted + to, static_cast<size_t>(from - to) * sizeof(T));
    }
    sorted[to] = fresh;
  }
  NOX_INLINE void insert(T fresh) {
    const int to = size > 0 ? lower_place(sorted, size, fresh) : 0;
    move_bytes(sorted + to + 1, sorted + to, static_cast<size_t>(size - to) * sizeof(T));
    sorted[to] = fresh;
    ++size;
  }
  NOX_INLINE T median() const { return sorted[size / 2]; }
};

// Values that no sample is beyond.
template <class T>
constexpr T kLeast = lowest<T>;
template <>
constexpr Nox64f kLeast<Nox64f> = -__builtin_inf();
template <class T>
constexpr T kGreatest = highest<T>;
template <>
constexpr Nox64f kGreatest<Nox64f> = __builtin_inf();

template <class V>
NOX_INLINE V below(V a, V b) {
  if constexpr (sizeof(typename V::elem) == 8)
    return a < b;
  else
    return b > a;
}

// Windows of few vectors, without a branch: each lane finds its new value from its own and its neighbours'. The lanes
// behind the window hold the greatest value, and there is at least one of them.
template <class T>
struct SortedLanes {
  using V = typename MedianLanes<T>::Of::vec;
  static constexpr int kMost = 512 / sizeof(T);
  T* sorted;  // whole vectors
  int vectors, middle;

  NOX_INLINE void clear() const {
    for (int i = 0; i < vectors; ++i) V::all(kGreatest<T>).store(sorted + i * V::N);
  }
  // The first element that isn't below the old one goes, and those above it close up to `left`; then the fresh one
  // stands where it is no lower than its neighbour below, and the others move up by one.
  NOX_INLINE void replace(T old, T fresh) const {
    const V gone = V::all(old), come = V::all(fresh);
    V lanes = V::load(sorted), left_below = V::all(kLeast<T>);
    for (int i = 0; i < vectors; ++i) {
      const V above = i + 1 < vectors ? V::load(sorted + (i + 1) * V::N) : V::all(kGreatest<T>);
      const V left = choose(below(lanes, gone), lanes, next_lanes(lanes, above));
      max(previous_lanes(left_below, left), min(come, left)).store(sorted + i * V::N);
      lanes = above;
      left_below = left;
    }
  }
  NOX_INLINE void insert(T fresh) const { replace(kGreatest<T>, fresh); }
  NOX_INLINE T median() const { return sorted[middle]; }
};

// d[i] = the median of s[i] and the m - 1 samples before it, of which the line has those before s[0].
template <class T, class Window>
NOX_INLINE void median_by_window(const T* s, T* d, int len, const T* line, int m, Window window) {
  const int past = m - 1;
  // The sample k places behind the line's first.
  const auto sample = [=](int k) { return k < past ? line[k] : s[k - past]; };
  for (int k = len - 1; k < len - 1 + m; ++k) window.insert(sample(k));
  int i = len - 1;
  for (; i > past; --i) {
    const T old = s[i];
    d[i] = window.median();
    window.replace(old, s[i - m]);
  }
  for (; i > 0; --i) {
    const T old = s[i];
    d[i] = window.median();
    window.replace(old, line[i - 1]);
  }
  d[0] = window.median();
}

}  // namespace NOX_VARIANT
}  // namespace nox
