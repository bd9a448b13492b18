// The tables of the multi-rate filter: which inputs and taps belong to the outputs of an iteration and to the groups of
// a pattern.
//
// Output time t = m * down + downPhase meets the input i whose place is i * up + upPhase with tap t - i * up - upPhase.
#pragma once
#include "filter/multirate.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class E>
struct MrBuilder {
  const E* taps;
  int tapsLen;
  Nox64s up, down, offset;  // offset is downPhase - upPhase

  struct Newest {
    Nox64s input;  // the last one that output m meets
    Nox64s tap;    // the tap it is multiplied by, the first of those that are `up` apart
  };
  Newest newest(Nox64s m) const {
    const Nox64s t = m * down + offset + up;  // never negative
    return {t / up - 1, t % up};
  }
  int count(Nox64s tap) const { return tap < tapsLen ? static_cast<int>((tapsLen - 1 - tap) / up) + 1 : 0; }
  MrWindow window(Nox64s m) const {
    const Newest last = newest(m);
    const int n = count(last.tap);
    return {static_cast<Nox32s>(last.input) - n + 1, n, 0};
  }

  // Taps by the first of those that belong together, each list from the last tap, which meets the oldest input, on.
  void sort(E* sorted) const {
    for (Nox64s first = 0; first < up; ++first)
      for (int j = count(first); j-- > 0;) *sorted++ = taps[first + j * up];
  }
  // Where the list of a first tap begins: the lists before it have one tap more up to tapsLen % up.
  Nox32s list(Nox64s first) const {
    const Nox64s more = tapsLen % up;
    return static_cast<Nox32s>(first * (tapsLen / up) + (first < more ? first : more));
  }
  void phases(MrWindow* windows) const {
    for (Nox64s m = 0; m < up; ++m) {
      windows[m] = window(m);
      windows[m].at = list(newest(m).tap);
    }
  }

  // A row for each input from the oldest of a group's first output to the newest of its last: the taps of the outputs
  // there, zero for an output that doesn't use it.
  void groups(MrWindow* windows, int lanes, int count, E* table) const {
    Nox32s row = 0;
    for (Nox64s g = 0; g < count; ++g) {
      const Nox64s m = g * lanes;
      const Nox32s first = window(m).first;
      const Nox32s rows = static_cast<Nox32s>(newest(m + lanes - 1).input) - first + 1;
      windows[g] = {first, rows, row};
      for (int lane = 0; lane < lanes; ++lane) {
        const Newest last = newest(m + lane);
        for (Nox32s r = 0; r < rows; ++r) {
          const Nox64s tap = last.tap + (last.input - first - r) * up;
          table[static_cast<size_t>((row + r) * lanes + lane)] = tap >= 0 && tap < tapsLen ? taps[tap] : E{};
        }
      }
      row += rows;
    }
  }
};

}  // namespace NOX_VARIANT
}  // namespace nox
