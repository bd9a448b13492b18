// The cosine transform as its definition reads, in long double.
#pragma once
#include <cmath>
#include <vector>

namespace reference {

// cos(pi*j / (2n)) for all j of a turn; the definition's angles are multiples of that step.
inline std::vector<long double> dct_cosines(size_t n) {
  std::vector<long double> table(4 * n);
  for (size_t j = 0; j < 4 * n; ++j) {
    // Taken to the first eighth, where the angle has the fewest bits to lose.
    size_t at = j > 2 * n ? 4 * n - j : j;
    const bool left = at > n;
    if (left) at = 2 * n - at;
    const long double step = std::acos(-1.0L) / (2 * static_cast<long double>(n));
    const long double c =
        2 * at > n ? std::sin(static_cast<long double>(n - at) * step) : std::cos(static_cast<long double>(at) * step);
    table[j] = left ? -c : c;
  }
  return table;
}

inline long double dct_scale(size_t n, size_t k) { return std::sqrt((k ? 2.0L : 1.0L) / static_cast<long double>(n)); }

// Output k of the forward transform, or output n of the inverse.
template <class T>
long double dct_forward(const std::vector<T>& x, size_t k, const std::vector<long double>& cosines) {
  long double sum = 0;
  size_t at = k;
  for (const T& v : x) {
    sum += static_cast<long double>(v) * cosines[at];
    at += 2 * k;
    if (at >= cosines.size()) at -= cosines.size();
  }
  return sum * dct_scale(x.size(), k);
}
template <class T>
long double dct_inverse(const std::vector<T>& y, size_t n, const std::vector<long double>& cosines) {
  long double sum = 0;
  size_t at = 2 * n + 1;
  for (size_t k = 1; k < y.size(); ++k) {
    sum += static_cast<long double>(y[k]) * cosines[at];
    at += 2 * n + 1;
    if (at >= cosines.size()) at -= cosines.size();
  }
  return sum * dct_scale(y.size(), 1) + static_cast<long double>(y[0]) * dct_scale(y.size(), 0);
}

}  // namespace reference
