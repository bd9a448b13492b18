// Comparisons that print the first difference: bit for bit, by value, and in units of the last place.
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>

#include "nox/types.h"

namespace kit {

// Steps from one double to the other on the line of all doubles, where -0.0 and 0.0 are one point. Two NaN are 0
// apart; a NaN and a number are as far apart as can be.
inline uint64_t ulp_distance(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b) ? 0 : std::numeric_limits<uint64_t>::max();
  const auto place = [](double x) {
    int64_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    return bits < 0 ? std::numeric_limits<int64_t>::min() - bits : bits;
  };
  const int64_t p = place(a), q = place(b);
  return p > q ? static_cast<uint64_t>(p) - static_cast<uint64_t>(q)
               : static_cast<uint64_t>(q) - static_cast<uint64_t>(p);
}

template <class T>
constexpr bool is_complex = std::is_same_v<T, Nox16sc> || std::is_same_v<T, Nox32sc> || std::is_same_v<T, Nox64sc> ||
                            std::is_same_v<T, Nox32fc> || std::is_same_v<T, Nox64fc>;

// The value and its bytes, highest first.
template <class T>
std::string describe(const T& value) {
  std::ostringstream out;
  out << std::setprecision(17);
  if constexpr (is_complex<T>)
    out << '(' << +value.re << ", " << +value.im << ')';
  else
    out << +value;
  unsigned char bytes[sizeof(T)];
  std::memcpy(bytes, &value, sizeof(T));
  out << " [" << std::hex << std::setfill('0');
  for (size_t i = sizeof(T); i-- > 0;) out << std::setw(2) << unsigned{bytes[i]};
  out << ']';
  return out.str();
}

template <class T>
testing::AssertionResult first_difference(const T& a, const T& b, size_t i, size_t n) {
  return testing::AssertionFailure() << "element " << i << " of " << n << ": " << describe(a) << " against "
                                     << describe(b);
}

template <class T, class N>
testing::AssertionResult same_bits(const T* a, const T* b, N n) {
  for (size_t i = 0; i < static_cast<size_t>(n); ++i)
    if (std::memcmp(a + i, b + i, sizeof(T)) != 0) return first_difference(a[i], b[i], i, static_cast<size_t>(n));
  return testing::AssertionSuccess();
}

// One value: equal bits, or both NaN of whatever sign and payload.
template <class T>
bool same_value(const T& a, const T& b) {
  if constexpr (is_complex<T>)
    return same_value(a.re, b.re) && same_value(a.im, b.im);
  else if constexpr (std::is_floating_point_v<T>)
    return std::isnan(a) ? std::isnan(b) : std::memcmp(&a, &b, sizeof(T)) == 0;
  else
    return a == b;
}
template <class T, class N>
testing::AssertionResult same_values(const T* a, const T* b, N n) {
  for (size_t i = 0; i < static_cast<size_t>(n); ++i)
    if (!same_value(a[i], b[i])) return first_difference(a[i], b[i], i, static_cast<size_t>(n));
  return testing::AssertionSuccess();
}

}  // namespace kit
