// Scaled integer arithmetic on single elements as its definition reads.
//
// An extended double holds 64 bits, so every exact result, its scaled value and the rounding of that are exact in it.
// Quotients are rounded by the remainder of an integer division.
#pragma once
#include <algorithm>
#include <cmath>
#include <limits>

#include "nox/types.h"

namespace reference {

// Far enough to round every number to 0 or cut it.
inline int bounded(int scale) { return std::clamp(scale, -200, 200); }

template <class T, class R>
T cut(R x) {
  using L = std::numeric_limits<T>;
  return x < R(L::min()) ? L::min() : x > R(L::max()) ? L::max() : T(x);
}

template <class T>
T scaled(long double exact, int scale) {
  return cut<T>(std::rint(std::ldexp(exact, -bounded(scale))));
}

template <class T>
T scaled_quotient(T by, T x, int scale) {
  if (by == 0) return x == 0 ? T(0) : cut<T>(x > 0 ? 1e300 : -1e300);
  const int s = std::clamp(scale, -40, 40);
  const Nox64s n = std::abs(Nox64s(x)) << std::max(-s, 0), m = std::abs(Nox64s(by)) << std::max(s, 0);
  Nox64s q = n / m;
  const Nox64s twice = 2 * (n % m);
  if (twice > m || (twice == m && q % 2 != 0)) ++q;
  return cut<T>((x < 0) != (by < 0) ? -q : q);
}
// 32 bits divide and multiply as doubles: every step rounds.
inline Nox32s scaled_quotient(Nox32s by, Nox32s x, int scale) {
  if (x == 0) return 0;
  const volatile double dividend = std::ldexp(double(x), -bounded(scale)), quotient = dividend / by;
  return cut<Nox32s>(std::rint(double(quotient)));
}
inline Nox32s scaled_product_of_doubles(Nox32s a, Nox32s b, int scale) {
  const volatile double first = std::ldexp(double(a), -bounded(scale)), product = first * b;
  return cut<Nox32s>(std::rint(double(product)));
}

// The operations, of operands in the order of the arguments; `c` is the constant.
template <class T>
T add(T a, T b, int s) {
  return scaled<T>(static_cast<long double>(a) + b, s);
}
template <class T>
T subtract_from(T a, T b, int s) {
  return scaled<T>(static_cast<long double>(b) - a, s);
}
inline Nox32sc add(Nox32sc a, Nox32sc b, int s) { return {add(a.re, b.re, s), add(a.im, b.im, s)}; }
inline Nox32sc subtract_from(Nox32sc a, Nox32sc b, int s) {
  return {subtract_from(a.re, b.re, s), subtract_from(a.im, b.im, s)};
}
template <class T>
T subtract(T a, T c, int s) {
  return subtract_from(c, a, s);
}
template <class T>
T multiply(T a, T b, int s) {
  return scaled<T>(static_cast<long double>(a) * b, s);
}
template <class T>
T divide_by(T x, T c, int s) {
  return scaled_quotient(c, x, s);
}
template <class T>
T divide(T by, T x, int s) {
  return scaled_quotient(by, x, s);
}
inline Nox32s multiply_add(Nox32s a, Nox32s b, Nox32s sum, int s) {
  return scaled<Nox32s>(static_cast<long double>(a) * b + sum, s);
}

inline Nox32sc multiply(Nox32sc a, Nox32sc b, int s) {
  const long double x = a.re, y = a.im;
  return {scaled<Nox32s>(x * b.re - y * b.im, s), scaled<Nox32s>(x * b.im + y * b.re, s)};
}

}  // namespace reference
