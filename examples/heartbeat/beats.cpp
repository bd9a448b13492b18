// Finding beats: threshold, refractory time, position, and the mark of the early ones.
#include "beats.hpp"

#include <algorithm>
#include <cmath>

namespace heartbeat {
namespace {

// About 0.3 of the usual energy. Lower fractions (down to 0.25) find up to nine more humps: mostly weak ventricular
// beats, and some artefacts.
constexpr double kThreshold = 0.55;
constexpr double kRefractory = 0.3;     // s
constexpr double kSwingReach = 0.08;    // s, where the swing of a beat is looked for on either side of its hump
constexpr std::size_t kMemory = 8;      // beats, or seconds of the beginning, that the threshold goes by
constexpr std::size_t kNeighbours = 4;  // intervals on either side that set the usual rate
constexpr double kEarly = 0.85;         // of the usual interval

double median(std::vector<double> v) {
  const auto middle = v.begin() + static_cast<std::ptrdiff_t>(v.size() / 2);
  std::nth_element(v.begin(), middle, v.end());
  return *middle;
}

// Stands in for the beats before the first: the highest energy of each of the first seconds.
std::vector<double> first_levels(const std::vector<double>& energy, std::size_t rate) {
  std::vector<double> levels;
  for (std::size_t at = 0; at < energy.size() && levels.size() < kMemory; at += rate) {
    const auto begin = energy.begin() + static_cast<std::ptrdiff_t>(at);
    const auto end = begin + static_cast<std::ptrdiff_t>(std::min(rate, energy.size() - at));
    levels.push_back(*std::max_element(begin, end));
  }
  return levels;
}

// The humps that count as beats, as the samples of their greatest energy.
std::vector<std::size_t> find_humps(const std::vector<double>& energy, int rate) {
  const std::size_t refractory = static_cast<std::size_t>(kRefractory * rate);
  std::vector<double> levels = first_levels(energy, static_cast<std::size_t>(rate));
  std::vector<std::size_t> humps;
  for (std::size_t i = 1; i + 1 < energy.size(); ++i) {
    if (!(energy[i] > energy[i - 1] && energy[i] >= energy[i + 1])) continue;
    const auto recent = levels.end() - static_cast<std::ptrdiff_t>(std::min(kMemory, levels.size()));
    if (energy[i] < kThreshold * kThreshold * median({recent, levels.end()})) continue;
    if (humps.empty() || i - humps.back() >= refractory) {
      humps.push_back(i);
      levels.push_back(energy[i]);
    } else if (energy[i] > energy[humps.back()]) {
      humps.back() = i;
      levels.back() = energy[i];
    }
  }
  return humps;
}

std::size_t greatest_swing(const std::vector<double>& band, std::size_t hump, int rate) {
  const std::size_t reach = static_cast<std::size_t>(kSwingReach * rate);
  const auto begin = band.begin() + static_cast<std::ptrdiff_t>(hump - std::min(hump, reach));
  const auto end = band.begin() + static_cast<std::ptrdiff_t>(std::min(hump + reach + 1, band.size()));
  const auto swing = std::max_element(begin, end, [](double a, double b) { return std::fabs(a) < std::fabs(b); });
  return static_cast<std::size_t>(swing - band.begin());
}

}  // namespace

double rate_at(const std::vector<Beat>& beats, std::size_t i, int rate) {
  return 60.0 * rate / (beats[i].sample - beats[i - 1].sample);
}

double usual_rate_at(const std::vector<Beat>& beats, std::size_t i, int rate) {
  const std::size_t first = std::max<std::size_t>(1, i - std::min(i, kNeighbours));
  std::vector<double> rates;
  for (std::size_t k = first; k <= i + kNeighbours && k < beats.size(); ++k) rates.push_back(rate_at(beats, k, rate));
  return median(rates);
}

std::vector<Beat> find_beats(const Signals& signals, int rate) {
  std::vector<Beat> beats;
  for (const std::size_t hump : find_humps(signals.energy, rate)) {
    beats.push_back({static_cast<int>(greatest_swing(signals.band, hump, rate)), false});
  }
  for (std::size_t i = 1; i < beats.size(); ++i) {
    beats[i].early = usual_rate_at(beats, i, rate) < kEarly * rate_at(beats, i, rate);
  }
  return beats;
}

}  // namespace heartbeat
