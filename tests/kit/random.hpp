// Random inputs that can be had again: one seed for the run, printed at its start, taken from NOX_TEST_SEED if given.
//
// Every generator starts from that seed and the name of the running test, so a test sees the same numbers whether it
// runs alone or among others.
#pragma once
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "kit/compare.hpp"

namespace kit {

uint64_t run_seed();

class Random {
 public:
  // `stream` tells apart several generators of one test.
  explicit Random(uint64_t stream = 0);

  uint64_t bits() {
    // splitmix64
    uint64_t z = state_ += 0x9E3779B97F4A7C15u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }
  // In [low, high).
  double uniform(double low = -1, double high = 1) {
    return low + (high - low) * (static_cast<double>(bits() >> 11) * 0x1p-53);
  }
  // In [low, high], both included.
  int64_t integer(int64_t low, int64_t high) {
    const uint64_t span = static_cast<uint64_t>(high) - static_cast<uint64_t>(low) + 1;
    return static_cast<int64_t>(static_cast<uint64_t>(low) + (span ? bits() % span : bits()));
  }
  bool chance(double probability) { return uniform(0, 1) < probability; }

  // An integer of the whole range of T; a real or complex value with parts in [low, high).
  template <class T>
  T value(double low = -1, double high = 1) {
    if constexpr (is_complex<T>) {
      using Part = decltype(T::re);
      const Part re = value<Part>(low, high);
      return {re, value<Part>(low, high)};
    } else if constexpr (std::is_floating_point_v<T>) {
      return static_cast<T>(uniform(low, high));
    } else {
      return static_cast<T>(bits());
    }
  }
  // Like value, but every other one is remarkable: NaN, infinity, a zero of either sign, a denormal, an extreme; for
  // integers the ends of the range and what stands around 0.
  template <class T>
  T special() {
    if constexpr (is_complex<T>) {
      using Part = decltype(T::re);
      const Part re = special<Part>();
      return {re, special<Part>()};
    } else if constexpr (std::is_floating_point_v<T>) {
      using L = std::numeric_limits<T>;
      const T table[] = {L::quiet_NaN(), L::infinity(), T(0),         L::denorm_min(), L::min(),
                         L::max(),       T(1),          L::min() / 2, L::epsilon(),    T(2)};
      const T v = chance(0.5) ? table[integer(0, 9)] : value<T>();
      return chance(0.5) ? v : -v;
    } else {
      using L = std::numeric_limits<T>;
      const T table[] = {L::min(), L::max(), T(0), T(1), T(-1), T(L::min() + 1), T(L::max() - 1)};
      return chance(0.5) ? table[integer(0, 6)] : value<T>();
    }
  }

  template <class C>
  void fill(C& container, double low = -1, double high = 1) {
    for (auto& x : container) x = value<std::decay_t<decltype(x)>>(low, high);
  }
  template <class C>
  void fill_special(C& container) {
    for (auto& x : container) x = special<std::decay_t<decltype(x)>>();
  }
  // Any bytes at all, signalling NaN included.
  template <class C>
  void fill_bits(C& container) {
    for (auto& x : container) {
      unsigned char bytes[sizeof x];
      for (unsigned char& b : bytes) b = static_cast<unsigned char>(bits());
      std::memcpy(&x, bytes, sizeof x);
    }
  }

 private:
  uint64_t state_;
};

}  // namespace kit
