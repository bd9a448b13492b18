// Recursive filters as their definition reads: the transposed direct form II sample by sample, in long double, with a
// bound for what rounding may do to a filter in doubles.
//
// An output's rounding errors are at most some units of 2^-53 times the magnitudes of its terms, and reach later
// outputs as an input to 1 / (a0 + a1 z + ...) would: times the sum of the magnitudes of that filter's response.
#pragma once
#include <algorithm>
#include <vector>

#include "reference/fir.hpp"

namespace reference {

struct Wide {
  long double re = 0, im = 0;
};
inline Wide operator+(Wide a, Wide b) { return {a.re + b.re, a.im + b.im}; }
inline Wide operator-(Wide a, Wide b) { return {a.re - b.re, a.im - b.im}; }
inline Wide operator*(Wide a, Wide b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
inline long double size(Wide a) { return std::fabs(a.re) + std::fabs(a.im); }
template <class T>
Wide wide(const T& a) {
  return {real_part(a), imag_part(a)};
}

inline Nox64f reciprocal(Nox64f a) { return 1.0 / a; }
inline Nox64fc reciprocal(const Nox64fc& a) {
  const Nox64f m = a.re * a.re + a.im * a.im;
  return {a.re / m, -a.im / m};
}
inline Nox64f product(Nox64f a, Nox64f b) { return a * b; }
inline Nox64fc product(const Nox64fc& a, const Nox64fc& b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

// One direct form. `taps` are b0..bn, a0..an.
template <class T>
class Iir {
 public:
  Iir(const T* taps, size_t order, const T* delay) : b_(order + 1), a_(order + 1), d_(order + 1) {
    const T factor = reciprocal(taps[order + 1]);
    for (size_t k = 0; k <= order; ++k) b_[k] = wide(product(taps[k], factor));
    for (size_t k = 1; k <= order; ++k) a_[k] = wide(product(taps[order + 1 + k], factor));
    for (size_t k = 0; k < order; ++k) d_[k] = wide(delay[k]);
  }

  // Filters the signal in place; `error` bounds how far off its elements are, before and after.
  void run(std::vector<Wide>& signal, long double& error) {
    const size_t order = a_.size() - 1;
    const std::vector<Wide> one = response({{1}}), all = response(b_);
    long double terms = 0;
    for (Wide& v : signal) {
      const Wide x = v, y = b_[0] * x + d_[0];
      long double sizes = size(d_[0]);
      for (size_t k = 0; k < order; ++k) d_[k] = b_[k + 1] * x - a_[k + 1] * y + d_[k + 1];
      for (size_t k = 0; k <= order; ++k) sizes += size(b_[k] * x) + size(a_[k] * y) + size(d_[k]);
      terms = std::max(terms, sizes);
      v = y;
    }
    error = error * sum(all) + terms * sum(one) * static_cast<long double>(4 * (order + 4)) * 0x1p-53L;
  }

 private:
  static long double sum(const std::vector<Wide>& values) {
    long double all = 0;
    for (const Wide& v : values) all += size(v);
    return all;
  }
  // What b / a answers to a single 1.
  std::vector<Wide> response(const std::vector<Wide>& b) const {
    std::vector<Wide> h(300);
    for (size_t n = 0; n < h.size(); ++n) {
      h[n] = n < b.size() ? b[n] : Wide{};
      for (size_t k = 1; k < a_.size() && k <= n; ++k) h[n] = h[n] - a_[k] * h[n - k];
    }
    return h;
  }
  std::vector<Wide> b_, a_, d_;
};

}  // namespace reference
