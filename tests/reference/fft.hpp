// The Fourier transform in long double: the sum as it is defined, and for long arrays the halving that it is equal to.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <vector>

#include "nox/types.h"

namespace reference {

using Spectrum = std::vector<std::complex<long double>>;
constexpr long double kTurn = 6.283185307179586476925286766559L;

inline Spectrum widen(const std::vector<Nox64fc>& x) {
  Spectrum out(x.size());
  std::transform(x.begin(), x.end(), out.begin(), [](const Nox64fc& a) { return Spectrum::value_type(a.re, a.im); });
  return out;
}

// exp(sign * 2*pi*i*k/n) for all k.
inline Spectrum turns(size_t n, int sign) {
  Spectrum w(n);
  for (size_t k = 0; k < n; ++k) {
    const long double angle = kTurn * static_cast<long double>(k) / static_cast<long double>(n);
    w[k] = {std::cos(angle), sign * std::sin(angle)};
  }
  return w;
}

inline Spectrum fourier_sum(const std::vector<Nox64fc>& x, int sign) {
  const size_t n = x.size();
  const Spectrum in = widen(x), w = turns(n, sign);
  Spectrum out(n);
  for (size_t k = 0; k < n; ++k)
    for (size_t j = 0; j < n; ++j) out[k] += in[j] * w[k * j % n];
  return out;
}

// The length is a power of 2. Each step writes the two halves of all butterflies in the order of the next one.
inline Spectrum fourier(const std::vector<Nox64fc>& x, int sign) {
  const size_t n = x.size();
  const Spectrum w = turns(n, sign);
  Spectrum in = widen(x), out(n);
  for (size_t parts = n / 2, done = 1; parts > 0; parts /= 2, done *= 2, in.swap(out))
    for (size_t k = 0; k < done; ++k)
      for (size_t j = 0; j < parts; ++j) {
        const auto even = in[2 * k * parts + j];
        const auto a = in[(2 * k + 1) * parts + j], t = w[k * parts];
        const std::complex<long double> odd(a.real() * t.real() - a.imag() * t.imag(),
                                            a.real() * t.imag() + a.imag() * t.real());
        out[k * parts + j] = even + odd;
        out[(k + done) * parts + j] = even - odd;
      }
  return in;
}

// The largest error, in units of 2^-53 times the root of the mean squared magnitude of the exact values.
inline long double largest_error(const Nox64fc* got, const Spectrum& exact, long double scale) {
  long double worst = 0, power = 0;
  for (size_t k = 0; k < exact.size(); ++k) {
    const std::complex<long double> e = exact[k] * scale;
    const long double error = std::abs(e - std::complex<long double>(got[k].re, got[k].im));
    if (!(error <= worst)) worst = error;
    power += std::norm(e);
  }
  return worst / (0x1p-53L * std::sqrt(power / static_cast<long double>(exact.size())));
}

}  // namespace reference
