// The twiddles, each a copy of an entry of a quarter of a sine wave, and the tables they are laid out in.
#pragma once
#include "transform/fft_complex_lanes.hpp"
#include "transform/fft_variant.hpp"
#include "transform/sine.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The twiddle exp(-2*pi*i*k/2^order) of butterflies k and k + 1: two cosines, two negated sines.
constexpr Nox64f* put_twiddles(Nox64f* d, const Wave& wave, int order, size_t k, size_t step) {
  const int finer = wave.order - order;
  const size_t first = (step * k) << finer, second = (step * (k + 1)) << finer;
  d[0] = wave.cosine(first);
  d[1] = wave.cosine(second);
  d[2] = -wave.sine(first);
  d[3] = -wave.sine(second);
  return d + 4;
}
// What the radix-4 butterflies k and k + 1 of a stage of 2^order elements need.
constexpr Nox64f* put_group(Nox64f* d, const Wave& wave, int order, size_t k) {
  for (size_t step = 1; step <= 3; ++step) d = put_twiddles(d, wave, order, k, step);
  return d;
}

// Middle range: the stages of a transform of 2^order elements, in the order of the passes.
constexpr void fill_stages(Nox64f* d, const Wave& wave, int order) {
  for (int stage = 4 + order % 2; stage <= order; stage += 2)
    for (size_t k = 0; k < size_t{1} << (stage - 2); k += 2) d = put_group(d, wave, stage, k);
}

// Large range: the column stages of a transform of 2^order elements. The halved table has for its last stage two
// twiddles of the lower half of the columns alone. Returns where the table ends.
inline Nox64f* fill_columns(Nox64f* d, const Wave& wave, int order, bool halved) {
  const int s = fft_variant.cut(order).s, t = fft_variant.cut(order).t;
  const size_t rowLength = size_t{1} << (order - s), width = size_t{1} << (t - s);
  for (size_t block = 0; block < rowLength; block += width)
    for (int stage = order - s + 2; stage <= order; stage += 2) {
      const bool half = halved && stage == order;
      const size_t count = size_t{1} << (stage - 2 - (order - s));
      for (size_t q = 0; q < (half ? count / 2 : count); ++q)
        for (size_t column = 0; column < width; column += 2) {
          const size_t k = block + column + rowLength * q;
          d = half ? put_twiddles(put_twiddles(d, wave, stage, k, 2), wave, stage, k, 1) : put_group(d, wave, stage, k);
        }
    }
  return d;
}

// Calls put(i, r) with the reversal r of each i of `count`, a power of 2, upwards: a counter that carries downwards.
template <class Put>
constexpr void count_reversed(Nox32u count, Put&& put) {
  Nox32u reversed = 0;
  put(Nox32u{0}, reversed);
  for (Nox32u i = 1; i < count; ++i) {
    Nox32u mask = count / 2;
    for (; mask <= reversed; mask /= 2) reversed -= mask;
    reversed += mask;
    put(i, reversed);
  }
}

// Entry i is the place, in doubles, of the element that comes to the front of the i-th group of four; a 0 ends it.
constexpr void fill_reversal(Nox32u* d, int order) {
  const Nox32u count = Nox32u{1} << (order - 2);
  count_reversed(count, [d](Nox32u i, Nox32u r) { d[i] = 2 * r; });
  d[count] = 0;
}

// Reversal by tiles of 32 rows of 32 elements: the first element of each tile's partner, then the exchanges in a tile.
constexpr int kTileSide = 32, kTile = kTileSide * kTileSide, kTileOrder = 10;
constexpr size_t kSwapEntries = 257;
inline void fill_tiled_reversal(Nox32u* d, int order) {
  const Nox32u tiles = Nox32u{1} << (order - kTileOrder);
  count_reversed(tiles, [d](Nox32u i, Nox32u r) { d[i] = r << 5; });
  // Index pairs that a reversal of eight bits exchanges, a 0, the indices that it keeps, a 0; the index 0 stands for
  // itself.
  Nox32u* front = d + tiles;
  Nox32u* back = front + kSwapEntries - 1;
  *back = 0;
  count_reversed(256, [&](Nox32u i, Nox32u r) {
    if (i < r) {
      *front++ = 4 * i;
      *front++ = 4 * r;
    } else if (i == r && i != 0) {
      *--back = 4 * i;
    }
  });
  *front = 0;
}

}  // namespace NOX_VARIANT
}  // namespace nox
