// The random streams, one value after the other, written for reading.
#pragma once
#include <cmath>
#include <type_traits>

#include "nox/types.h"

namespace reference {

template <class Word>
struct RandomSource {
  static constexpr bool kWide = sizeof(Word) == 8;
  static constexpr Word kFactor = static_cast<Word>(kWide ? 0x5851F42D4C957F2D : 69069);
  static constexpr Word kTerm = static_cast<Word>(kWide ? 0x14057B7EF767814F : 1013904243);
  Word x = 1131199209, a, b, c, d = 0xFFFFFFFF;

  explicit RandomSource(Nox32u seed) : a(seed), b(a * kFactor + kTerm), c(b * kFactor + kTerm) {}
  std::make_signed_t<Word> step() {
    x = x * kFactor + kTerm;
    Word t = b - c + d;
    const bool negative = t >> (sizeof(Word) * 8 - 1);
    d = negative ? static_cast<Word>(-1) : 0;
    if (negative) t -= 18;
    c = b;
    b = a;
    a = t;
    return static_cast<std::make_signed_t<Word>>(t + x);
  }
};

// Of 32-bit steps, before rounding; `fused` as the h9 build computes.
inline double uniform(RandomSource<Nox32u>& source, double low, double high, bool fused) {
  const double r = source.step(), scale = (high - low) * 0x1p-32, mid = (low + high) * 0.5;
  return fused ? std::fma(r, scale, mid) : r * scale + mid;
}
inline double uniform(RandomSource<Nox64u>& source, double low, double high) {
  const double scale = (high - low) * 5.421012154897229e-20, mid = (low + high) * 0.5;
  return static_cast<double>(static_cast<long double>(source.step()) * scale + mid);
}

class Gauss {
 public:
  RandomSource<Nox32u> source;
  Gauss(Nox32u seed, bool fused) : source(seed), fused_(fused) {}
  double next(double mean, double deviation) {
    if (spare_) {
      spare_ = false;
      return value(u_, deviation, mean);
    }
    double s;
    do {
      u_ = source.step() * 0x1p-31;
      v_ = source.step() * 0x1p-31;
      s = fused_ ? std::fma(u_, u_, v_ * v_) : u_ * u_ + v_ * v_;
    } while (s >= 1 || s == 0);
    f_ = std::sqrt(-2 * std::log(s) / s);
    spare_ = true;
    return value(v_, deviation, mean);
  }

 private:
  double value(double x, double deviation, double mean) const {
    return fused_ ? std::fma(x * deviation, f_, mean) : x * deviation * f_ + mean;
  }
  bool fused_, spare_ = false;
  double u_ = 0, v_ = 0, f_ = 0;
};

}  // namespace reference
