// The two filters of planes as sums written out: every output by itself, pixel by pixel.
#pragma once
#include <cmath>
#include <vector>

namespace reference {

// A product added to a sum, in one rounding where `fuses`.
template <class T>
T add_product(T a, T b, T sum, bool fuses) {
  return fuses ? std::fma(a, b, sum) : sum + a * b;
}

// The index inside 0 to n - 1 that stands in for i; -1 for none.
inline int inside(int i, int n, bool mirror, bool constant) {
  if (i >= 0 && i < n) return i;
  if (constant) return -1;
  if (!mirror || n == 1) return i < 0 ? 0 : n - 1;
  const int period = 2 * (n - 1), at = ((i % period) + period) % period;
  return at < n ? at : period - at;
}

// pixel(x, y) for any x, y of the output at hand; taps of even place in a row first, a sum of the odd ones per row.
template <class Pixel>
float correlate(const std::vector<float>& kernel, int w, int h, bool fuses, const Pixel& pixel) {
  float sum = 0;
  for (int i = 0; i < h; ++i) {
    float odd = 0;
    for (int j = 0; j < w; ++j) {
      float& into = j % 2 ? odd : sum;
      into = add_product(pixel(j, i), kernel[static_cast<size_t>(i * w + j)], into, fuses);
    }
    sum += odd;
  }
  return sum;
}

template <class Pixel>
double convolve(const std::vector<double>& kernel, int w, int h, bool fuses, const Pixel& pixel) {
  double sums[2] = {};
  for (int r = h - 1; r >= 0; --r)
    for (int c = w - 1; c >= 0; --c) {
      double& into = sums[(w - 1 - c) % 2];
      into = add_product(pixel(c, r), kernel[static_cast<size_t>(r * w + c)], into, fuses);
    }
  return sums[0] + sums[1];
}

}  // namespace reference
