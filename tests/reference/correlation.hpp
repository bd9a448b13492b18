// Convolution and correlation as their definitions read, in long double, and what rounding may do to them.
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "kit/compare.hpp"
#include "reference/fir.hpp"

namespace reference {

// A sum of products, the sum of their magnitudes, and how many there are.
struct Sum {
  long double re = 0, im = 0, size = 0;
  int terms = 0;
  template <class T>
  void add(const T& a, const T& b, bool conjugate) {
    const long double ai = conjugate ? -imag_part(a) : imag_part(a);
    re += real_part(a) * real_part(b) - ai * imag_part(b);
    im += real_part(a) * imag_part(b) + ai * real_part(b);
    size += (std::fabs(real_part(a)) + std::fabs(ai)) * (std::fabs(real_part(b)) + std::fabs(imag_part(b)));
    ++terms;
  }
};

// Over all k: a[k] * b[n - k].
template <class T>
Sum convolved(const std::vector<T>& a, const std::vector<T>& b, int64_t n) {
  Sum sum;
  for (int64_t k = 0; k < static_cast<int64_t>(a.size()); ++k)
    if (n - k >= 0 && n - k < static_cast<int64_t>(b.size()))
      sum.add(a[static_cast<size_t>(k)], b[static_cast<size_t>(n - k)], false);
  return sum;
}
// Over all k: conj(a[k]) * b[k + n].
template <class T>
Sum correlated(const std::vector<T>& a, const std::vector<T>& b, int64_t n) {
  Sum sum;
  for (int64_t k = 0; k < static_cast<int64_t>(a.size()); ++k)
    if (k + n >= 0 && k + n < static_cast<int64_t>(b.size()))
      sum.add(a[static_cast<size_t>(k)], b[static_cast<size_t>(k + n)], true);
  return sum;
}

// Whether the value is factor times the sum. Direct sums are off by a rounding a term and some; those by transforms by
// a few units of the largest sum there can be.
template <class T>
testing::AssertionResult is_sum(const T& value, const Sum& sum, long double factor, bool direct, long double largest) {
  const long double off =
      std::fmax(std::fabs(sum.re * factor - real_part(value)), std::fabs(sum.im * factor - imag_part(value)));
  const long double bound = 0x1p-53L * std::fabs(factor) * (direct ? (sum.terms + 4) * sum.size : 16 * largest);
  if (off <= bound) return testing::AssertionSuccess();
  return testing::AssertionFailure() << kit::describe(value) << " is off by " << off << ", more than " << bound;
}

// Product of the arrays' norms: what no sum passes.
template <class T>
long double largest_sum(const std::vector<T>& a, const std::vector<T>& b) {
  long double aa = 0, bb = 0;
  for (const T& x : a) aa += real_part(x) * real_part(x) + imag_part(x) * imag_part(x);
  for (const T& x : b) bb += real_part(x) * real_part(x) + imag_part(x) * imag_part(x);
  return std::sqrt(aa * bb);
}

}  // namespace reference
