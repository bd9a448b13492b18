// The multi-rate filter as its definition reads, in long double, with a bound for what rounding may do to it.
#pragma once
#include "reference/fir.hpp"

namespace reference {

struct Rates {
  int up = 1, down = 1, upPhase = 0, downPhase = 0;
  size_t past(size_t tapsLen) const { return (tapsLen + static_cast<size_t>(up) - 1) / static_cast<size_t>(up); }
};
inline std::ostream& operator<<(std::ostream& out, const Rates& r) {
  return out << r.up << '/' << r.down << ", phases " << r.upPhase << ' ' << r.downPhase;
}

// outputs[m] = sum over k of taps[k] * u[m * down + downPhase - k], where u[i * up + upPhase] = signal[past + i].
template <class T>
testing::AssertionResult is_resampled(const T* outputs, size_t n, const std::vector<T>& signal,
                                      const std::vector<T>& taps, const Rates& r) {
  const int past = static_cast<int>(r.past(taps.size()));
  const long double unit = static_cast<long double>(past + 3) * 0x1p-53L;
  for (size_t m = 0; m < n; ++m) {
    const int time = static_cast<int>(m) * r.down + r.downPhase;
    long double re = 0, im = 0, size = 0;
    for (int k = 0; k < static_cast<int>(taps.size()); ++k) {
      const int place = time - k - r.upPhase;
      if (place % r.up != 0 || place / r.up < -past) continue;
      const T &h = taps[static_cast<size_t>(k)], &x = signal[static_cast<size_t>(past + place / r.up)];
      re += real_part(h) * real_part(x) - imag_part(h) * imag_part(x);
      im += real_part(h) * imag_part(x) + imag_part(h) * real_part(x);
      size += (std::fabs(real_part(h)) + std::fabs(imag_part(h))) * (std::fabs(real_part(x)) + std::fabs(imag_part(x)));
    }
    const long double off = std::fmax(std::fabs(re - real_part(outputs[m])), std::fabs(im - imag_part(outputs[m])));
    if (!(off <= unit * size))
      return testing::AssertionFailure() << "output " << m << " of " << n << ", " << r << ", " << taps.size()
                                         << " taps: " << kit::describe(outputs[m]) << " is off by " << off;
  }
  return testing::AssertionSuccess();
}

}  // namespace reference
