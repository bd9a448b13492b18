// Sums, deviations and dot products in the order of additions that is promised for the address and the build, one
// element at a time; integer means and scalings by wide arithmetic.
#pragma once
#include <cmath>
#include <cstdint>
#include <utility>

#include "nox/types.h"

namespace reference {

// How a build adds: the AVX builds have lanes of their own, the highest fuses multiply and add.
struct Order {
  bool avx, fuses;
  double add_product(double sum, double a, double b) const { return fuses ? std::fma(a, b, sum) : sum + a * b; }
};
inline size_t past(const void* p, size_t boundary) { return (0 - reinterpret_cast<uintptr_t>(p)) % boundary; }
// Elements in front of the boundary, 0 where none starts there.
inline size_t peel(const double* p, size_t n, size_t boundary) {
  const size_t bytes = past(p, boundary);
  return bytes % 8 != 0 ? 0 : bytes / 8 < n ? bytes / 8 : n;
}

// A term is what one lane takes of element i.
template <class Term>
double sum_sse(const double* x, size_t n, Term&& term, size_t lanes) {
  double l[8] = {};
  size_t i = 0;
  for (const size_t head = peel(x, n, 16); i < head; ++i) l[0] += term(i);
  for (; n - i >= lanes; i += lanes)
    for (size_t j = 0; j < lanes; ++j) l[j] += term(i + j);
  double a = l[0] + l[2] + (l[4] + l[6]), b = l[1] + l[3] + (l[5] + l[7]);
  for (; n - i >= 2; i += 2) a += term(i), b += term(i + 1);
  if (i < n) a += term(i);
  return b + a;
}
inline double sum(const double* x, size_t n, Order order) {
  const auto element = [x](size_t i) { return x[i]; };
  if (!order.avx) return sum_sse(x, n, element, 8);
  double g[16] = {};
  size_t i = 0;
  for (const size_t head = peel(x, n, 32); i < head; ++i) g[0] += x[i];
  for (; n - i >= 16; i += 16)
    for (size_t j = 0; j < 16; ++j) g[j] += x[i + j];
  // Each round halves the lanes in use, and takes elements into those left.
  for (size_t width = 8; width >= 4; width /= 2) {
    for (size_t j = 0; j < width; ++j) g[j] += g[j + width];
    if (n - i < width) continue;
    for (size_t j = 0; j < width; ++j) g[j] += x[i + j];
    i += width;
  }
  if (n - i >= 2) g[0] += x[i], g[1] += x[i + 1], i += 2;
  if (i < n) g[0] += x[i];
  return (g[0] + g[2]) + (g[1] + g[3]);
}
// Of elements (power 1) or squares (power 2), as a deviation sums them.
inline double moment(const double* x, size_t n, int power, Order order) {
  const auto term = [=](size_t i) { return power == 1 ? x[i] : x[i] * x[i]; };
  if (!order.avx) return sum_sse(x, n, term, 4);
  double g[12] = {};
  size_t i = 0;
  for (const size_t head = peel(x, n, 32); i < head; ++i) g[0] += term(i);
  for (; n - i >= 12; i += 12)
    for (size_t j = 0; j < 12; ++j) g[j] += term(i + j);
  for (size_t j = 0; j < 4; ++j) g[j] = g[j] + g[j + 4] + g[j + 8];
  for (; n - i >= 4; i += 4)
    for (size_t j = 0; j < 4; ++j) g[j] += term(i + j);
  for (; i < n; ++i) g[0] += term(i);
  return (g[0] + g[2]) + (g[1] + g[3]);
}
inline double deviation(const double* x, size_t n, Order order) {
  const double s = moment(x, n, 1, order), q = moment(x, n, 2, order), count = static_cast<double>(n);
  const double v = q * count - s * s;
  return std::sqrt((v > 0 ? v : 0) / (count * (count - 1)));
}

inline double dot(const double* a, const double* b, size_t n, Order order) {
  double l[16] = {};
  size_t i = 0;
  const auto take = [&](size_t lanes) {
    for (size_t j = 0; j < lanes; ++j) l[j] = order.add_product(l[j], a[i + j], b[i + j]);
    i += lanes;
  };
  if (order.avx) {
    while (n - i >= 16) take(16);
    if (n - i >= 8) take(8);
    while (i < n) take(1);
    for (size_t j = 0; j < 4; ++j) l[j] = l[j + 12] + (l[j + 8] + (l[j] + l[j + 4]));
    return (l[0] + l[1]) + (l[2] + l[3]);
  }
  if (past(a, 8) == 0 && past(b, 8) != 0) std::swap(a, b);
  while (i < n && past(b + i, 16) != 0) take(1);
  const size_t lanes = past(a + i, 16) != 0 ? 6 : 8;
  while (n - i >= lanes) take(lanes);
  while (lanes == 8 && n - i >= 2) take(2);
  while (i < n) take(1);
  return (l[0] + l[2] + (l[4] + l[6])) + (l[1] + l[3] + (l[5] + l[7]));
}

// x 2^-scale to nearest, halves to even, saturated. A long double holds 64 bits, and so these products.
inline Nox32s scaled(long double x, int scale) {
  const int far = scale < -2000 ? -2000 : scale > 2000 ? 2000 : scale;
  const long double y = std::nearbyint(std::ldexp(x, -far));
  return static_cast<Nox32s>(y < -0x1p31L ? -0x1p31L : y > 0x1p31L - 1 ? 0x1p31L - 1 : y);
}
inline Nox64u rounded_quotient(Nox64u m, Nox64u n) {
  const Nox64u q = (2 * m + n) / (2 * n);
  return (2 * m + n) % (2 * n) == 0 && q % 2 ? q - 1 : q;
}
inline Nox32s scaled_mean(Nox64s sum, Nox64u n, int scale) {
  const Nox64u m = static_cast<Nox64u>(sum < 0 ? -sum : sum), mean = rounded_quotient(m, n);
  const long double sign = sum < 0 ? -1 : 1;
  if (scale > 0) return scaled(sign * ((mean + (mean >> ((scale - 1) & 31) & 1)) >> (scale & 31)), 0);
  if (scale <= -32 || sum != static_cast<Nox32s>(sum)) return scaled(sign * mean, scale);
  return scaled(sign * rounded_quotient(m << -scale, n), 0);
}

// Sum of products in double precision: four lanes from eight elements on, where the second array can be brought to 16
// bytes.
inline double dot(const Nox32s* a, const Nox32s* b, size_t n) {
  double l[4] = {}, sum = 0;
  size_t i = 0;
  const auto take = [&](double& to) { to += static_cast<double>(a[i]) * b[i], ++i; };
  if (n >= 8 && past(b, 4) == 0) {
    while (past(b + i, 16) != 0) take(l[0]);
    while (n - i >= 8)
      for (size_t j = 0; j < 8; ++j) take(l[j % 4]);
    sum = l[0] + l[2] + (l[1] + l[3]);
  }
  while (i < n) take(sum);
  return sum;
}

}  // namespace reference
