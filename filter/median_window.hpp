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

// The narrow lanes, whose moves across neighbours are the quickest.
template <class T>
struct NarrowLanes {
  using Of = V128<T>;
};
template <>
struct NarrowLanes<Nox64f> {
  using Of = F64x2;
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

// Windows of vectors, without a branch: each lane finds its new value from its own and its neighbours'. The lanes
// behind the window hold the greatest value, and there is at least one of them.
//
// The first element that isn't below the old one goes, and those above it close up; then the fresh one stands where it
// is no lower than its neighbour below, and the others move up by one.
template <class V>
NOX_INLINE V close_up(V lanes, V above, V gone) {
  return choose(below(lanes, gone), lanes, next_lanes(lanes, above));
}
template <class V>
NOX_INLINE V open_up(V left, V left_below, V come) {
  return max(previous_lanes(left_below, left), min(come, left));
}

// In registers, of kCount vectors.
template <class V, int kCount>
struct SortedRegisters {
  using T = typename V::elem;
  static constexpr int kMost = kCount * V::N;
  int middle;
  V lanes[kCount];

  explicit NOX_INLINE SortedRegisters(int m) : middle(m / 2) {
    for (V& v : lanes) v = V::all(kGreatest<T>);
  }
  NOX_INLINE void replace(T old, T fresh) {
    const V gone = V::all(old), come = V::all(fresh);
    V left[kCount];
#pragma GCC unroll 4
    for (int i = 0; i < kCount; ++i)
      left[i] = close_up(lanes[i], i + 1 < kCount ? lanes[i + 1 < kCount ? i + 1 : 0] : V::all(kGreatest<T>), gone);
#pragma GCC unroll 4
    for (int i = 0; i < kCount; ++i)
      lanes[i] = open_up(left[i], i > 0 ? left[i > 0 ? i - 1 : 0] : V::all(kLeast<T>), come);
  }
  NOX_INLINE void insert(T fresh) { replace(kGreatest<T>, fresh); }
  NOX_INLINE T median() const {
    alignas(32) T elements[kMost];
#pragma GCC unroll 4
    for (int i = 0; i < kCount; ++i) lanes[i].store(elements + i * V::N);
    return elements[middle];
  }
};

// In memory, of any number of vectors; more than kMost elements are better searched for their places.
template <class T>
struct SortedVectors {
  using V = typename MedianLanes<T>::Of::vec;
  static constexpr int kMost = 2048 / sizeof(T);
  int vectors, middle;
  alignas(32) T sorted[kMost];

  explicit NOX_INLINE SortedVectors(int m) : vectors(m / V::N + 1), middle(m / 2) {
    for (int i = 0; i < vectors; ++i) V::all(kGreatest<T>).store(sorted + i * V::N);
  }
  NOX_INLINE void replace(T old, T fresh) {
    const V gone = V::all(old), come = V::all(fresh);
    V lanes = V::load(sorted), left_below = V::all(kLeast<T>);
    for (int i = 0; i < vectors; ++i) {
      const V above = i + 1 < vectors ? V::load(sorted + (i + 1) * V::N) : V::all(kGreatest<T>);
      const V left = close_up(lanes, above, gone);
      open_up(left, left_below, come).store(sorted + i * V::N);
      lanes = above;
      left_below = left;
    }
  }
  NOX_INLINE void insert(T fresh) { replace(kGreatest<T>, fresh); }
  NOX_INLINE T median() const { return sorted[middle]; }
};

// d[i] = the median of s[i] and the m - 1 samples before it, of which the line has those before s[0].
template <class T, class Window>
NOX_INLINE void median_by_window(const T* s, T* d, int len, const T* line, int m, Window&& window) {
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
