// The FIR filter as its definition reads, in long double, with a bound for what rounding may do to it.
//
// A sum of n products in doubles, rounded at every step in any fixed order, is off by at most about n * 2^-53 times
// the sum of the products' magnitudes.
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "kit/compare.hpp"

namespace reference {

inline long double real_part(Nox64f a) { return a; }
inline long double real_part(const Nox64fc& a) { return a.re; }
inline long double imag_part(Nox64f) { return 0; }
inline long double imag_part(const Nox64fc& a) { return a.im; }

// outputs[i] = sum over j of taps[j] * signal[past + i - j], past = taps - 1: the signal begins with the delay line.
template <class T>
testing::AssertionResult is_filtered(const T* outputs, size_t n, const std::vector<T>& signal,
                                     const std::vector<T>& taps) {
  const size_t past = taps.size() - 1;
  // One rounding a product, one a sum, and one more where the two sums of a complex part are joined.
  const long double unit = static_cast<long double>(taps.size() + 2) * 0x1p-53L;
  for (size_t i = 0; i < n; ++i) {
    long double re = 0, im = 0, size = 0;
    for (size_t j = 0; j <= past; ++j) {
      const T &h = taps[j], &x = signal[past + i - j];
      re += real_part(h) * real_part(x) - imag_part(h) * imag_part(x);
      im += real_part(h) * imag_part(x) + imag_part(h) * real_part(x);
      size += (std::fabs(real_part(h)) + std::fabs(imag_part(h))) * (std::fabs(real_part(x)) + std::fabs(imag_part(x)));
    }
    const long double off = std::fmax(std::fabs(re - real_part(outputs[i])), std::fabs(im - imag_part(outputs[i])));
    if (!(off <= unit * size))
      return testing::AssertionFailure() << "output " << i << " of " << n << ", " << taps.size()
                                         << " taps: " << kit::describe(outputs[i]) << " is off by " << off
                                         << ", more than " << unit * size;
  }
  return testing::AssertionSuccess();
}

}  // namespace reference
