// The weights of the windows by their formulas, each position by itself.
#pragma once
#include <cmath>

namespace reference {

inline double window_cosine(int k, int n) {
  return static_cast<double>(std::cos(2 * 3.14159265358979323846L * k / (n - 1)));
}

inline double bartlett(int k, int n) { return 1 - std::fabs(2.0 * k / (n - 1) - 1); }
inline double hann(int k, int n) { return 0.5 - 0.5 * window_cosine(k, n); }
inline double hamming(int k, int n) { return 0.54 - 0.46 * window_cosine(k, n); }
inline double blackman(int k, int n, double alpha) {
  // The usual form, with the cosine of the double angle.
  const double c = window_cosine(k, n), double_angle = 2 * c * c - 1;
  return (alpha + 1) / 2 - 0.5 * c - alpha / 2 * double_angle;
}
inline double blackman_optimal(int k, int n) {
  const double root = 0.5 / std::cos(3.14159265358979323846 / (n - 1));
  return blackman(k, n, -root * root);
}

inline double bessel(double x) {
  if (x < 4) {
    const double t = x * 0.25 * (x * 0.25);
    return ((((((0.0008267816 * t + 0.0075942968) * t + 0.0713758187) * t + 0.4443189384) * t + 1.777809969) * t +
             3.9999959541) *
                t +
            4.0000001935) *
               t +
           0.9999999985;
  }
  const double falling[] = {0.0051246015,  -0.0366694767, 0.1113315511,  -0.1867783276, 0.1895476618,
                            -0.1209940805, 0.0495811118,  -0.0128314822, 0.0022585672,  0.00026,
                            0.0017623668,  0.0124667783,  0.3989422809};
  double sum = 0;
  for (const double c : falling) sum = sum * (4 / x) + c;
  return std::exp(x) / std::sqrt(x) * sum;
}
inline double kaiser(int k, int n, double alpha) {
  return bessel(std::fabs(alpha * std::sqrt(static_cast<double>(k) * (n - 1 - k)))) /
         bessel(std::fabs(alpha) * (n - 1) * 0.5);
}

}  // namespace reference
