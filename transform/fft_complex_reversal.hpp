// Bit reversal of a whole array: element by element along a table, or by tiles that fit into the first cache.
//
// The index of an element is (row, tile, column) with five bits of row and five of column, so a tile is 32 rows of 32
// neighbours; its reversal is the reversed tile number, with the 1024 elements inside reversed among themselves.
#pragma once
#include "transform/fft_complex_tables.hpp"
#include "vector/block.hpp"

namespace nox {
inline namespace NOX_VARIANT {

NOX_INLINE void exchange(Nox64fc* a, Nox64fc* b) {
  const C64x1 x = C64x1::load(a), y = C64x1::load(b);
  y.store(a);
  x.store(b);
}

// ---- along the table
// Index bits (a, m, b), two each of a and b: the element of the block m goes to the block reversed(m), at (b, a) with
// both reversed. A block is four neighbours of each quarter of the array, whole lines of cache.
constexpr size_t kReversedTwoBits[4] = {0, 2, 1, 3};
inline void reverse_by_table(const Nox64fc* src, Nox64fc* dst, int order, const Nox32u* table) {
  const size_t quarter = size_t{1} << (order - 2);
  for (size_t m = 0; m < quarter / 4; ++m)
    for (size_t b = 0; b < 4; ++b) {
      const Nox64fc* const from = src + table[m] / 2 + b;
      const C64x1 x0 = C64x1::load(from), x1 = C64x1::load(from + 2 * quarter);
      const C64x1 x2 = C64x1::load(from + quarter), x3 = C64x1::load(from + 3 * quarter);
      store_run<C64x1>(dst + kReversedTwoBits[b] * quarter + 4 * m, x0, x1, x2, x3);
    }
}
inline void reverse_by_table_in_place(Nox64fc* data, int order, const Nox32u* table) {
  const size_t quarter = size_t{1} << (order - 2);
  for (size_t m = 0; m < quarter / 4; ++m) {
    const size_t here = 4 * m, there = table[m] / 2;
    if (here > there) continue;
    for (size_t a = 0; a < 4; ++a)
      for (size_t b = 0; b < 4; ++b) {
        Nox64fc* const x = data + a * quarter + here + b;
        Nox64fc* const y = data + kReversedTwoBits[b] * quarter + there + kReversedTwoBits[a];
        if (here < there || x < y) exchange(x, y);
      }
  }
}

// ---- by tiles
// A tile between its place, the first element of 32 rows, and contiguous memory.
NOX_INLINE void copy_row(const Nox64fc* from, Nox64fc* to) {
  using C = c64::vec;
  for (int i = 0; i < kTileSide; i += 4 * C::N) {
    const C a = C::load(from + i), b = C::load(from + i + C::N);
    const C c = C::load(from + i + 2 * C::N), d = C::load(from + i + 3 * C::N);
    store_run<C>(to + i, a, b, c, d);
  }
}
inline void gather_tile(const Nox64fc* place, size_t row, Nox64fc* tile) {
  for (int i = 0; i < kTileSide; ++i, place += row, tile += kTileSide) copy_row(place, tile);
}
inline void scatter_tile(const Nox64fc* tile, Nox64fc* place, size_t row) {
  for (int i = 0; i < kTileSide; ++i, place += row, tile += kTileSide) copy_row(tile, place);
}
// Reverses a tile by the list of exchanges, whose indices count doubles and leave out the first and the last bit.
inline void permute_tile(Nox64fc* tile, const Nox32u* swaps) {
  constexpr size_t kHigh = kTile / 2;
  for (; *swaps; swaps += 2) {
    Nox64fc *const a = tile + swaps[0] / 2, *const b = tile + swaps[1] / 2;
    exchange(a, b);
    exchange(a + 1, b + kHigh);
    exchange(a + kHigh, b + 1);
    exchange(a + kHigh + 1, b + kHigh + 1);
  }
  do {  // what follows is the end of the pairs, which is the kept index 0 at the same time
    exchange(tile + *swaps / 2 + 1, tile + *swaps / 2 + kHigh);
  } while (*++swaps);
}

struct Tiles {
  const Nox32u* table;
  size_t count, row;
  const Nox32u* swaps() const { return table + count; }
  Tiles(const void* memory, int order)
      : table(static_cast<const Nox32u*>(memory)),
        count(size_t{1} << (order - kTileOrder)),
        row(size_t{kTileSide} << (order - kTileOrder)) {}
};
inline void reverse_by_tiles(const Nox64fc* src, Nox64fc* dst, const Tiles& tiles, Nox64fc* work) {
  for (size_t b = 0; b < tiles.count; ++b) {
    gather_tile(src + tiles.table[b], tiles.row, work);
    permute_tile(work, tiles.swaps());
    scatter_tile(work, dst + kTileSide * b, tiles.row);
  }
}
inline void reverse_by_tiles_in_place(Nox64fc* data, const Tiles& tiles, Nox64fc* work) {
  for (size_t b = 0; b < tiles.count; ++b) {
    Nox64fc *const here = data + kTileSide * b, *const there = data + tiles.table[b];
    if (here > there) continue;
    gather_tile(here, tiles.row, work);
    permute_tile(work, tiles.swaps());
    if (here != there) {
      gather_tile(there, tiles.row, work + kTile);
      permute_tile(work + kTile, tiles.swaps());
      scatter_tile(work + kTile, here, tiles.row);
    }
    scatter_tile(work, there, tiles.row);
  }
}

// ---- the method that the build takes
inline void copy_in_chunks(const Nox64fc* src, Nox64fc* dst, int order) {
  const size_t bytes = sizeof(Nox64fc) << order;
  for (size_t at = 0; at < bytes; at += fft_variant.copyChunk)
    copy_bytes(behind(dst, at), behind(src, at),
               bytes - at < fft_variant.copyChunk ? bytes - at : fft_variant.copyChunk);
}

inline void reverse_all(const Nox64fc* src, Nox64fc* dst, int order, const void* memory, Nox64fc* work) {
  const bool inPlace = src == dst || fft_variant.copies(order);
  if (src != dst && inPlace) copy_in_chunks(src, dst, order);
  if (order < fft_variant.tiledFrom) {
    const Nox32u* const table = static_cast<const Nox32u*>(memory);
    return inPlace ? reverse_by_table_in_place(dst, order, table) : reverse_by_table(src, dst, order, table);
  }
  const Tiles tiles(memory, order);
  return inPlace ? reverse_by_tiles_in_place(dst, tiles, work) : reverse_by_tiles(src, dst, tiles, work);
}

}  // namespace NOX_VARIANT
}  // namespace nox
