// Arithmetic on single elements as its definition reads, every operation rounded, and bounds for what isn't rounded so.
//
// Sums, products and what is made of them are compared bit by bit. Quotients and complex roots share reciprocals among
// neighbours, so they are compared with a bound: 4 units in the last place, of the terms of the numerator where these
// may cancel.
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kit/compare.hpp"

namespace reference {

inline Nox64f add(Nox64f a, Nox64f b) { return a + b; }
inline Nox64f subtract_from(Nox64f a, Nox64f b) { return b - a; }
inline Nox64f multiply(Nox64f a, Nox64f b) { return a * b; }
inline Nox64fc add(Nox64fc a, Nox64fc b) { return {a.re + b.re, a.im + b.im}; }
inline Nox64fc subtract_from(Nox64fc a, Nox64fc b) { return {b.re - a.re, b.im - a.im}; }
inline Nox64fc multiply(Nox64fc a, Nox64fc b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }

template <class T>
T subtract(T a, T c) {
  return subtract_from(c, a);
}
template <class T>
T add_product(T a, T b, T sum) {
  return add(sum, multiply(a, b));
}
inline Nox64f square(Nox64f a) { return a * a; }
inline Nox64fc square(Nox64fc a) { return {a.re * a.re - a.im * a.im, 2 * (a.re * a.im)}; }

// What makes a divisor count as zero: the number itself, the squared magnitude of a complex one.
inline Nox64f magnitude(Nox64f c) { return c; }
inline Nox64f magnitude(Nox64fc c) { return c.re * c.re + c.im * c.im; }
inline Nox64f reciprocal(Nox64f c) { return 1 / c; }
inline Nox64fc reciprocal(Nox64fc c) {
  const Nox64f r = 1 / magnitude(c);
  return {c.re * r, -c.im * r};
}
template <class T>
T divide_by_constant(T a, T c) {
  return multiply(a, reciprocal(c));
}

constexpr long double kFourUnits = 4 * 0x1p-52L, kLeast = 0x1p-1074L;

// `rule` is the value by rounded steps and decides between NaN, infinity, the signs, and numbers; numbers may be off
// from the exact one by `allowed` and by what is lost below the least double.
inline bool is_near(Nox64f got, Nox64f rule, long double exact, long double allowed) {
  if (!std::isfinite(rule)) return kit::same_value(got, rule);
  return std::fabs(got - exact) <= allowed + 2 * kLeast &&
         (got != 0 || exact != 0 || std::signbit(got) == std::signbit(rule));
}

inline bool is_quotient(Nox64f got, Nox64f d, Nox64f x) {
  if (d == 0) return kit::same_value(got, x * HUGE_VAL);
  const Nox64f rounded = x / d;
  if (x == 0 || !std::isfinite(x) || !std::isfinite(d)) return kit::same_value(got, rounded);
  return kit::ulp_distance(got, rounded) <= 4 && std::signbit(got) == std::signbit(rounded);
}

inline bool is_quotient(const Nox64fc& got, const Nox64fc& d, const Nox64fc& x) {
  const Nox64f m = magnitude(d), r = m == 0 ? std::nan("") : 1 / m;
  const Nox64f re = (x.re * d.re + x.im * d.im) * r, im = (x.im * d.re - x.re * d.im) * r;
  // A squared magnitude that overflows has the reciprocal 0.
  if (std::isinf(m)) return kit::same_value(got.re, re) && kit::same_value(got.im, im);
  const long double a = x.re, b = x.im, c = d.re, e = d.im, whole = c * c + e * e;
  const auto near = [&](Nox64f part, Nox64f rule, long double first, long double second) {
    const long double terms = std::fabs(first) + std::fabs(second);
    return is_near(part, rule, (first + second) / whole, (kFourUnits * terms + 2 * kLeast) / whole);
  };
  return near(got.re, re, a * c, b * e) && near(got.im, im, b * c, -a * e);
}

// Real s and t make up the root of the number whose halved parts are a and b.
template <class R>
struct RootParts {
  R m, s, t;
  RootParts(R a, R b) {
    m = std::sqrt(a * a + b * b);
    s = std::sqrt(std::fabs(a) + m);
    t = std::fabs(b) / (s == 0 ? R(0.5) : s);
  }
};

// The squares must be well inside the range of doubles, or wholly outside of it.
inline bool is_root(const Nox64fc& got, const Nox64fc& z) {
  const Nox64f a = z.re / 2, b = z.im / 2;  // of a denormal, its last bit may be lost
  const RootParts<Nox64f> rule(a, b);
  const RootParts<long double> exact(a, b);
  const bool lost = rule.m == 0 || std::isinf(rule.m);  // the squares are
  const long double s = lost ? rule.s : exact.s, t = lost ? rule.t : exact.t;
  const Nox64f sign = z.im < 0 ? -1 : 1;
  const auto near = [](Nox64f part, Nox64f by_rule, long double value) {
    return is_near(part, by_rule, value, kFourUnits * std::fabs(value)) &&
           (std::isnan(part) || std::signbit(part) == std::signbit(by_rule));
  };
  return z.re < 0 ? near(got.re, rule.t, t) && near(got.im, sign * rule.s, sign * s)
                  : near(got.re, rule.s, s) && near(got.im, sign * rule.t, sign * t);
}

template <class T>
testing::AssertionResult are_quotients(const T* got, const T* divisors, const T* dividends, size_t n) {
  for (size_t i = 0; i < n; ++i)
    if (!is_quotient(got[i], divisors[i], dividends[i]))
      return testing::AssertionFailure() << "element " << i << " of " << n << ": " << kit::describe(dividends[i])
                                         << " / " << kit::describe(divisors[i]) << " gave " << kit::describe(got[i]);
  return testing::AssertionSuccess();
}

inline testing::AssertionResult are_roots(const Nox64fc* got, const Nox64fc* z, size_t n) {
  for (size_t i = 0; i < n; ++i)
    if (!is_root(got[i], z[i]))
      return testing::AssertionFailure() << "element " << i << " of " << n << ": the root of " << kit::describe(z[i])
                                         << " gave " << kit::describe(got[i]);
  return testing::AssertionSuccess();
}

}  // namespace reference
