// The sliding median as its definition reads: each window by itself.
#pragma once
#include <algorithm>
#include <vector>

namespace reference {

// Of a window of 3, oldest first, by comparisons that tell what NaN and zeros of both signs do.
template <class T>
T median_of_3(T a, T b, T c) {
  const bool ascending = a <= b;
  const T larger = ascending ? b : a, smaller = ascending ? a : b;
  if (!(larger > c)) return larger;
  return smaller >= c ? smaller : c;
}

// Of a window of 5, by the comparisons of two pairs; where they tell nothing, the second value is taken.
template <class T>
T median_of_5(const T* w) {
  const auto lesser = [](T a, T b) { return a < b ? a : b; };
  const auto greater = [](T a, T b) { return a > b ? a : b; };
  const T low = greater(lesser(w[0], w[1]), lesser(w[2], w[3])),
          high = lesser(greater(w[0], w[1]), greater(w[2], w[3]));
  return greater(lesser(low, high), lesser(greater(low, high), w[4]));
}

// The medians of all windows of m samples of a signal, the first of which begins at its start.
template <class T>
std::vector<T> medians(const std::vector<T>& signal, size_t m) {
  std::vector<T> out, window(m);
  for (size_t i = 0; i + m <= signal.size(); ++i) {
    std::copy_n(signal.begin() + static_cast<std::ptrdiff_t>(i), m, window.begin());
    if (m == 3) {
      out.push_back(median_of_3(window[0], window[1], window[2]));
    } else if (m == 5) {
      out.push_back(median_of_5(window.data()));
    } else {
      const auto middle = window.begin() + static_cast<std::ptrdiff_t>(m / 2);
      std::nth_element(window.begin(), middle, window.end());
      out.push_back(*middle);
    }
  }
  return out;
}

}  // namespace reference
