// The multi-rate FIR filter's record, the state behind it, and the places of everything in the caller's memory.
//
// Spec memory, from its first 64-byte boundary: the record, the taps as given, the state: its record, the phases, the
// groups, the taps sorted by phase, the table, the staging region. Work memory, from its own address: the delay line
// kept between chunks, then the joined sequence (delay line, then first samples).
//
// Outputs m and m + up have the same taps on inputs `down` elements apart: a phase is one of the `up` outputs of an
// iteration. As many neighbouring outputs as a vector has lanes are a group, and groups repeat after the fewest
// iterations that have whole ones: a pattern.
#pragma once
#include "filter/fir.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Taps that an output applies to neighbouring inputs, the oldest first; for a group, rows of the table.
struct MrWindow {
  Nox32s first;  // index of the oldest input, counted from the first sample of the iteration or of the pattern
  Nox32s count;
  Nox32s at;  // of the first tap or row
};

struct MrState {
  char mark[4];                    // tells the state apart in a dump of memory
  const void* pTaps;               // sorted by phase, Nox64f or Nox64fc
  const void* pTable;              // rows of taps, one for each output of a group; null if outputs run by themselves
  Nox32s tapsLen, up, rows, down;  // `rows` is a bound for every group
  Nox32s delayLen;
  const MrWindow* pPhases;    // of the `up` outputs of an iteration
  const MrWindow* pGroups;    // of a pattern
  Nox32s groups, iterations;  // of a pattern
  void* pStaging;             // outputs of one chunk of a call in place
};

struct FirMrRecord {
  Nox32s tapsLen;
  void* pTaps;  // in their natural order
  MrState* pState;
};
// With both factors 1 the record is one of the single-rate filter, which leaves what is behind it alone.
struct FirMrSpec {
  union {
    FirSpec single;
    FirMrRecord multi;
  };
  Nox32s isSingleRate;
};
static_assert(sizeof(FirMrSpec) <= kBoundary, "the taps stand 64 bytes behind the record");

// Outputs of a group, by the bytes of an element, and iterations of a pattern.
constexpr int mr_lanes(Nox64u element) {
  return element == sizeof(Nox64fc) ? static_cast<int>(c64::vec::N) : static_cast<int>(f64::vec::N);
}
constexpr int mr_iterations(int lanes, int up) {
  int iterations = 1;
  while (iterations * (up % lanes) % lanes != 0) ++iterations;
  return iterations;
}
constexpr int kMrStaged = 4096;  // outputs of a chunk, unless one iteration has more

// Whether so many of a table's entries are taps, and not the zeros around them, that it is the faster way.
constexpr bool is_dense(int tapsLen, int up, int down) {
  return tapsLen / (tapsLen + 3.0 * down) > (up == 1 ? 0.5 : 0.3);
}

struct FirMrLayout {
  Nox64u delay, rows;  // elements; rows of a group of four outputs, the longest there are
  Nox64u taps, state, phases, groups, sorted, table, staging;  // bytes
  constexpr FirMrLayout(int tapsLen, int upFactor, int downFactor, Nox64u element)
      : FirMrLayout(tapsLen, upFactor, downFactor, element, static_cast<Nox64u>(tapsLen),
                    static_cast<Nox64u>(upFactor)) {}
  constexpr Nox64u state_bytes() const { return state + phases + groups + sorted + table + staging; }
  constexpr Nox64u spec_bytes() const { return state_bytes() + taps + (kBoundary - 1) + kBoundary; }
  // Twice the delay line, the joined sequence, and room for 4096 samples more that callers count on.
  constexpr Nox64u work_bytes() const {
    return ((32 * delay + 126) & ~Nox64u{127}) + ((16 * (rows + delay) + 79) & ~Nox64u{63}) + 65599;
  }

 private:
  constexpr FirMrLayout(int tapsLen, int upFactor, int downFactor, Nox64u element, Nox64u t, Nox64u u)
      : delay((t + u - 1) / u),
        rows((t + 3 * static_cast<Nox64u>(downFactor) + u - 1) / u),
        taps(round_to_boundary(element * t)),
        state(round_to_boundary(sizeof(MrState))),
        phases(round_to_boundary(sizeof(MrWindow) * u)),
        groups(is_dense(tapsLen, upFactor, downFactor) ? phases : 0),
        sorted(taps),
        table(groups ? round_to_boundary(static_cast<Nox64u>(mr_lanes(element)) * element * rows * u) : 0),
        staging(round_to_boundary(element * (u > kMrStaged ? u : kMrStaged))) {}
};

}  // namespace NOX_VARIANT
}  // namespace nox
