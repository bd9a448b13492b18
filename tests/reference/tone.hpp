// Tones, triangle waves and test signals, each element by itself in long double.
#pragma once
#include <algorithm>
#include <cmath>

namespace reference {

constexpr long double kPi = 3.14159265358979323846L;

inline long double angle(double frequency, double phase, int k) {
  return 2 * kPi * static_cast<long double>(frequency) * k + phase;
}
inline double tone(double magn, double frequency, double phase, int k) {
  return static_cast<double>(magn * std::cos(angle(frequency, phase, k)));
}
inline double tone_sine(double magn, double frequency, double phase, int k) {
  return static_cast<double>(magn * std::sin(angle(frequency, phase, k)));
}

// The wave at a phase of any size.
inline double triangle_at(double magn, double asym, long double phase) {
  const long double turn = 2 * kPi, p = phase - std::floor(phase / turn) * turn, a = kPi + asym, b = kPi - asym;
  return static_cast<double>(magn * (p < a ? 1 - 2 * p / a : 2 * (p - a) / b - 1));
}
inline long double later(double asym) { return (2 * kPi + kPi + asym) / 2; }

// Half away from zero, cut to [low, high].
inline double rounded_line(double offset, double slope, int k, double low, double high) {
  return std::min(std::max(std::round(offset + slope * k), low), high);
}

inline double jaehne(double magn, int len, int k) {
  return static_cast<double>(magn * std::sin(kPi / 2 * k * k / len));
}

}  // namespace reference
