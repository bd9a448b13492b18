// What differs between the builds in the complex transform, as data: one constexpr record each. The build that makes
// plans has none.
//
// Orders up to directLast have routines of their own, those up to middleLast stay in cache from end to end; a larger
// one is cut into 2^s rows whose columns are then joined in blocks that fill 2^t elements of work memory. The numbers
// follow the caches of the processors that a build is for.
#pragma once
#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

struct FftCut {
  int from;  // smallest order that is cut so; the next entry takes over from its own
  int s, t;
};

struct FftVariant {
  int directLast;    // largest order that has a routine of its own
  int middleLast;    // largest order that runs without columns
  int tiledFrom;     // smallest order reversed by tiles
  Nox32u copied;     // orders that out of place are copied and then reversed in place, a bit each
  size_t copyChunk;  // bytes that one call copies then
  FftCut cuts[5];
  constexpr bool copies(int order) const { return copied >> order & 1; }
  constexpr FftCut cut(int order) const {
    FftCut found = cuts[0];
    for (const FftCut& c : cuts)
      if (c.from != 0 && c.from <= order) found = c;
    return found;
  }
};

namespace fft_variants {
constexpr Nox32u from(int order) { return ~Nox32u{0} << order; }

constexpr FftVariant w7{
    5, 13, 16, 1u << 15 | from(17), 2097152, {{14, 4, 8}, {16, 4, 10}, {18, 6, 12}, {19, 6, 13}, {20, 8, 13}}};
constexpr FftVariant s8{5, 16, 18, from(18), 67108864, {{17, 6, 10}, {21, 8, 13}}};
constexpr FftVariant p8{5, 16, 18, from(18), 67108864, {{17, 4, 10}, {20, 6, 12}, {21, 8, 13}}};
constexpr FftVariant g9{6, 17, 18, from(22), 67108864, {{18, 4, 9}, {22, 8, 13}}};
}  // namespace fft_variants

constexpr FftVariant fft_variant = fft_variants::NOX_VARIANT;

}  // namespace NOX_VARIANT
}  // namespace nox
