// Conversions by their definitions, in long double, which holds every value of the element types and every scaled
// integer exactly.
#pragma once
#include <cfenv>
#include <cmath>
#include <cstdint>

#include "nox/nox.h"

namespace reference {

// x by the mode; the thread rounds to nearest.
inline long double rounded(long double x, int mode) {
  return mode == noxRndZero ? std::trunc(x) : mode == noxRndNear ? std::nearbyint(x) : std::round(x);
}
// A NaN is `for_nan`.
template <class T>
T saturated(long double x, long double low, long double high, T for_nan) {
  if (std::isnan(x)) return for_nan;
  return static_cast<T>(x < low ? low : x > high ? high : x);
}
// 2^-s within the exponents of normal numbers.
inline int factor_exponent(int s, int lowest, int highest) {
  return s < -highest ? highest : s > -lowest ? lowest : -s;
}

// The half nearest to x, or the one next to it toward zero.
inline Nox16f half_of(float x, bool nearest) {
  uint32_t bits;
  __builtin_memcpy(&bits, &x, sizeof bits);
  const unsigned sign = bits >> 16 & 0x8000;
  if (std::isnan(x)) return static_cast<Nox16f>(sign | 0x7E00 | (bits >> 13 & 0x3FF));
  const long double size = std::fabs(static_cast<long double>(x));
  if (std::isinf(x)) return static_cast<Nox16f>(sign | 0x7C00);
  const int exponent = size == 0 ? -14 : std::max(-14, std::ilogb(size));
  const long double steps = std::ldexp(size, 10 - exponent);
  const long double whole = nearest ? std::nearbyint(steps) : std::trunc(steps);
  // A mantissa that is full goes over into the exponent, as it should.
  const long long code = (exponent + 14) * 1024LL + static_cast<long long>(whole);
  const long long largest = nearest ? 0x7C00 : 0x7BFF;
  return static_cast<Nox16f>(sign | static_cast<unsigned>(code > largest ? largest : code));
}
inline float value_of_half(Nox16f h) {
  const int exponent = h >> 10 & 31, mantissa = h & 0x3FF;
  uint32_t nan = static_cast<uint32_t>(h & 0x8000) << 16 | 0x7FC00000u | static_cast<uint32_t>(mantissa) << 13;
  float f;
  if (exponent == 31 && mantissa != 0) {
    __builtin_memcpy(&f, &nan, sizeof f);
    return f;
  }
  f = exponent == 31  ? HUGE_VALF
      : exponent == 0 ? std::ldexp(static_cast<float>(mantissa), -24)
                      : std::ldexp(static_cast<float>(1024 + mantissa), exponent - 25);
  return h & 0x8000 ? -f : f;
}

}  // namespace reference
