// The sorted window of the sliding median, from which one sample is taken out as another comes in.
#pragma once
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

  // The window that ends at s[0], of samples that reach back over s[-back] to the line's end.
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
