// What differs between the builds in the complex transform, as data: one constexpr record each.
//
// Orders up to directLast run straight-line code, those up to middleLast stay in cache from end to end; a larger one is
// cut into 2^s rows whose columns are then joined in blocks that fill 2^t elements of work memory. The numbers follow
// the caches of the processors that a build is for.
#pragma once
#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

// Whether the h9 build runs its transforms by plans instead of this engine.
constexpr bool kFftHasPlan = NOX_LEVEL == 4 && false;

struct FftCut {
  Nox8u s, t;
};

// How a reversal out of place is done.
enum class FftMove : Nox8u {
  Table,      // element by element along the table
  CopyTable,  // copied, then so in place
  Tiles,      // tile by tile from source to destination
  CopyTiles,  // copied, then tile by tile in place
};

struct FftVariant {
  int directLast;     // largest order of the straight-line routines
  int middleLast;     // largest order that runs without columns
  int tiledFrom;      // smallest order reversed by tiles
  FftCut cuts[14];    // of the orders 14 to 27
  FftMove moves[14];  // likewise
  size_t copyChunk;   // bytes that one call copies in front of a reversal in place
  bool limitAtOnce;   // an order above the limit is refused before a bad flag is
  constexpr FftCut cut(int order) const { return cuts[order - 14]; }
  constexpr FftMove move(int order) const { return moves[order - 14]; }
};

namespace fft_variants {
constexpr FftMove kTable = FftMove::Table, kCopied = FftMove::CopyTable, kTiles = FftMove::Tiles,
                  kCopiedTiles = FftMove::CopyTiles;

constexpr FftVariant w7{5,
                        13,
                        16,
                        {{4, 8},
                         {4, 8},
                         {4, 10},
                         {4, 10},
                         {6, 12},
                         {6, 13},
                         {8, 13},
                         {8, 13},
                         {8, 13},
                         {8, 13},
                         {8, 13},
                         {8, 13},
                         {8, 13},
                         {8, 13}},
                        {kTable, kCopied, kTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles,
                         kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles},
                        2097152,
                        false};
constexpr FftVariant s8{
    5,
    16,
    18,
    {{}, {}, {}, {6, 10}, {6, 10}, {6, 10}, {6, 10}, {8, 13}, {8, 13}, {8, 13}, {8, 13}, {8, 13}, {8, 13}, {8, 13}},
    {kTable, kTable, kTable, kTable, kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles,
     kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles},
    67108864,
    false};
constexpr FftVariant p8{
    5,
    16,
    18,
    {{}, {}, {}, {4, 10}, {4, 10}, {4, 10}, {6, 12}, {8, 13}, {8, 13}, {8, 13}, {8, 13}, {8, 13}, {8, 13}, {8, 13}},
    {kTable, kTable, kTable, kTable, kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles,
     kCopiedTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles},
    67108864,
    false};
constexpr FftVariant g9{
    6,
    17,
    18,
    {{}, {}, {}, {}, {4, 9}, {4, 9}, {4, 9}, {4, 9}, {8, 13}, {8, 13}, {8, 13}, {8, 13}, {8, 13}, {8, 13}},
    {kTable, kTable, kTable, kTable, kTiles, kTiles, kTiles, kTiles, kCopiedTiles, kCopiedTiles, kCopiedTiles,
     kCopiedTiles, kCopiedTiles, kCopiedTiles},
    67108864,
    false};
constexpr FftVariant like(FftVariant v, bool limitAtOnce) {
  v.limitAtOnce = limitAtOnce;
  return v;
}
constexpr FftVariant h9 = like(g9, true);
}  // namespace fft_variants

constexpr FftVariant fft_variant = fft_variants::NOX_VARIANT;

}  // namespace NOX_VARIANT
}  // namespace nox
