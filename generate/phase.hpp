// What tone and triangle share: constants, ranges, and the phase a call leaves to the next.
#pragma once
#include "core/body.hpp"

namespace nox {
inline namespace NOX_VARIANT {

constexpr Nox64f kHalfTurn = 3.141592653589793, kTurn = 6.283185307179586, kTurns = 0.15915494309189535;

// A NaN is in no range.
NOX_INLINE bool in_range(Nox64f x, Nox64f low, Nox64f above) { return low <= x && x < above; }

// The phase `len` samples later, without its whole turns.
NOX_INLINE Nox64f phase_after(Nox64f phase, Nox64f step, int len) {
  const Nox64f p = static_cast<Nox64f>(len) * step + phase;
  const Nox64f rest = p - static_cast<Nox64f>(static_cast<Nox32s>(p * kTurns)) * kTurn;
  return in_range(rest, 0, kTurn) ? rest : 0;
}

}  // namespace NOX_VARIANT
}  // namespace nox
