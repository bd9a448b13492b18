// Sines and cosines of fractions of a turn, the one source of every root of unity in the transforms' tables.
//
// A fraction is given by two whole numbers, so that nothing is lost before it has been taken to the first eighth of the
// turn, and symmetric entries of a table are equal bit for bit. A table is filled from them or, where its length is a
// power of two, with plain copies out of a quarter of a wave: no recurrence, no products of roots.
#pragma once
#include "core/frame.hpp"
#include "core/variant.hpp"
#include "nox/types.h"
#include "transform/sine_table.hpp"

namespace nox {
inline namespace NOX_VARIANT {

struct Turn {
  Nox64f cosine, sine;
};

// Cosines and sines of 2*pi*parts[i]/whole for the first n of a chunk of whole numbers up to `whole`, which is at most
// 2^29; what else the chunk holds may be overwritten. Exact at the eighths of the turn.
constexpr Nox32u kTurnChunk = 32;
NOX_HIDDEN void turns(Turn (&d)[kTurnChunk], const Nox64f (&parts)[kTurnChunk], Nox32u n, Nox32u whole);

// Calls put(i, the turn of part(i) / whole) for each i below count; the parts are asked for in ascending order.
template <class Part, class Put>
NOX_INLINE void for_turns(Nox32u count, Nox32u whole, Part&& part, Put&& put) {
  Nox64f parts[kTurnChunk] = {};
  Turn found[kTurnChunk];
  for (Nox32u i = 0; i < count; i += kTurnChunk) {
    const Nox32u n = count - i < kTurnChunk ? count - i : kTurnChunk;
    for (Nox32u j = 0; j < n; ++j) parts[j] = static_cast<Nox64f>(static_cast<Nox32s>(part(i + j)));
    turns(found, parts, n, whole);
    for (Nox32u j = 0; j < n; ++j) put(i + j, found[j]);
  }
}

// One wave of 2^order samples, sine and cosine of 2*pi*i/2^order for i below 2^order, from a quarter of it.
struct Wave {
  const Nox64f* quarter;
  size_t stride;  // between the entries of the quarter that are used
  int order;
  constexpr size_t length() const { return size_t{1} << order; }
  constexpr Nox64f sine(size_t i) const {
    const size_t fourth = length() / 4, inside = i & (fourth - 1);
    const Nox64f x = quarter[(i & fourth ? fourth - inside : inside) * stride];
    return i & (2 * fourth) ? -x : x;
  }
  constexpr Nox64f cosine(size_t i) const { return sine((i + length() / 4) & (length() - 1)); }
  // For i up to a quarter of the length.
  constexpr Turn early(size_t i) const { return {quarter[(length() / 4 - i) * stride], quarter[i * stride]}; }
};
// Up to this order a constant table serves.
constexpr int kConstantWave = 10;
constexpr Wave constant_wave(int order) { return {kSineTable, size_t{1} << (kConstantWave - order), order}; }
// The wave of an order from 2 on; beyond the constant table 2^order / 4 + 1 values are computed into `memory`.
NOX_HIDDEN Wave make_wave(int order, Nox64f* memory);

}  // namespace NOX_VARIANT
}  // namespace nox
