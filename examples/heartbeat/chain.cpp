// The signal chain: design of the two filters, and the loop over the blocks.
#include "chain.hpp"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "library.hpp"

namespace heartbeat {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kCountsPerMillivolt = 200;
constexpr double kBandLow = 5, kBandHigh = 20;  // Hz
constexpr double kBandLength = 0.5;             // s, 181 taps at 360 Hz
// A beat is one hump of energy if the smoothing is as long as a broad ventricular beat.
constexpr double kSmoothLength = 0.2;  // s

int odd_length(double seconds, int rate) { return static_cast<int>(seconds * rate) | 1; }

double sum(const std::vector<double>& v) {
  double total = 0;
  for (const double x : v) total += x;
  return total;
}

// Hann window whose zeros lie just outside.
std::vector<double> hann(int len) {
  std::vector<double> w(static_cast<std::size_t>(len));
  for (int k = 0; k < len; ++k) w[static_cast<std::size_t>(k)] = 0.5 - 0.5 * std::cos(2 * kPi * (k + 1) / (len + 1));
  return w;
}

// Impulse response of the ideal low pass, k samples off its centre; cutoff in cycles per sample.
double ideal_low_pass(double cutoff, int k) { return k == 0 ? 2 * cutoff : std::sin(2 * kPi * cutoff * k) / (kPi * k); }

// Difference of two ideal low passes under a Hamming window.
std::vector<double> band_pass(double low, double high, int len) {
  std::vector<double> taps(static_cast<std::size_t>(len)), window(taps.size());
  for (int k = 0; k < len; ++k) {
    const std::size_t i = static_cast<std::size_t>(k);
    window[i] = 0.54 - 0.46 * std::cos(2 * kPi * k / (len - 1));
    taps[i] = window[i] * (ideal_low_pass(high, k - len / 2) - ideal_low_pass(low, k - len / 2));
  }
  // The window leaves a little gain at 0 Hz, where the wandering baseline is far stronger than a beat.
  const double excess = sum(taps) / sum(window);
  for (std::size_t i = 0; i < taps.size(); ++i) taps[i] -= excess * window[i];
  return taps;
}

std::vector<double> smoother(int len) {
  std::vector<double> taps = hann(len);
  const double total = sum(taps);
  for (double& t : taps) t /= total;
  return taps;
}

void shift_back(std::vector<double>& v, std::size_t delay, std::size_t len) {
  v.erase(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(delay));
  v.resize(len);
}

}  // namespace

Signals filter(const Recording& recording, int block) {
  const std::vector<double> band_taps =
      band_pass(kBandLow / recording.rate, kBandHigh / recording.rate, odd_length(kBandLength, recording.rate));
  const std::vector<double> smooth_taps = smoother(odd_length(kSmoothLength, recording.rate));
  const std::size_t band_delay = band_taps.size() / 2, energy_delay = band_delay + smooth_taps.size() / 2;

  // A new filter has seen zeros, so the signal begins at zero too; it stays at its last value until the delayed
  // outputs are out. A step at either end would look like a beat.
  const std::size_t len = recording.samples.size();
  const int count = static_cast<int>(len);
  std::vector<double> input(len + energy_delay);
  Signals signals{std::vector<double>(len), std::vector<double>(input.size()), std::vector<double>(input.size()), 0};
  double* const raw = signals.raw.data();
  check(noxsConvert_16s64f_Sfs_Idx(recording.samples.data(), 0, raw, 0, count, 0), "noxsConvert_16s64f_Sfs_Idx");
  check(noxsDivC_64f_I_Idx(kCountsPerMillivolt, raw, 0, count), "noxsDivC_64f_I_Idx");
  check(noxsSubC_64f_Idx(raw, 0, raw[0], input.data(), 0, count), "noxsSubC_64f_Idx");
  check(noxsSet_64f_Idx(input[len - 1], input.data(), count, static_cast<int>(energy_delay)), "noxsSet_64f_Idx");

  const auto start = std::chrono::steady_clock::now();
  FirStream band(band_taps), smooth(smooth_taps);
  const int total = static_cast<int>(input.size());
  for (int at = 0, n = 0; at < total; at += n) {
    n = std::min(block, total - at);
    band.run(input, signals.band, at, n);
    check(noxsSqr_64f_Idx(signals.band.data(), at, signals.energy.data(), at, n), "noxsSqr_64f_Idx");
    smooth.run(signals.energy, at, n);
  }
  signals.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

  shift_back(signals.band, band_delay, len);
  shift_back(signals.energy, energy_delay, len);
  return signals;
}

}  // namespace heartbeat
