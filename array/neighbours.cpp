// Nearest neighbours: merges the distances of a block of rows and columns into each row's list of the k best.
#include "nox/array/neighbours.h"
#include "adapters/adapter.hpp"
#include "array/operands.hpp"
#include "core/reduce.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Place of the largest of k values, of the first one among equals.
NOX_INLINE Nox32s largest(const Nox64f* p, Nox32s k) {
  Nox32s place = 0;
  Nox64f value = p[0];
  for (Nox32s i = 1; i < k; ++i) {
    if (p[i] > value) {
      value = p[i];
      place = i;
    }
  }
  return place;
}

// d[j] = (own + columns[j]) + d[j]; returns the least, which no NaN is.
NOX_INLINE Nox64f complete(Nox64f* d, const Nox64f* columns, Nox64f own, Nox32s count) {
  const F64x2 term = F64x2::all(own);
  F64x2 least = F64x2::all(__builtin_inf()), other = least;
  Nox32s j = 0;
  const auto pair = [&](Nox32s at, F64x2 so_far) {
    const F64x2 distance = (term + F64x2::load(columns + at)) + F64x2::load(d + at);
    distance.store(d + at);
    return min(distance, so_far);
  };
  if (count > 0 && !ahead_of(d, columns, static_cast<Nox32u>(count)))
    for (; count - j >= 4; j += 4) least = pair(j, least), other = pair(j + 2, other);
  least = min(least, other);
  F64x1 smallest = min(low(least), upper(least));
  for (; j < count; ++j) {
    const F64x1 distance = (low(term) + F64x1::load(columns + j)) + F64x1::load(d + j);
    distance.store(d + j);
    smallest = min(distance, smallest);
  }
  return value_of(smallest);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void InternalCollectK_64f_Idx(Nox32s rowStart, Nox32s rowCount, Nox32s colCount, Nox32s k, Nox32s colStart,
                              const Nox64f block[], int blockIdx, Nox32s worstSlot[], int worstSlotIdx,
                              Nox64f worstDist[], int worstDistIdx, Nox32s bestIndex[], int bestIndexIdx,
                              Nox64f bestDist[], int bestDistIdx, const Nox64f colTerm[], int colTermIdx,
                              const Nox64f rowTerm[], int rowTermIdx) {
  const Nox64f* const columns = at(colTerm, colTermIdx);
  for (Nox32s i = 0; i < rowCount; ++i) {
    const Nox32s row = rowStart + i;
    const Nox64f* const distances = at(block, blockIdx) + i * colCount;
    Nox64f* const best = at(bestDist, bestDistIdx) + row * k;
    Nox32s* const index = at(bestIndex, bestIndexIdx) + row * k;
    Nox32s& slot = at(worstSlot, worstSlotIdx)[row];
    const Nox64f own = at(rowTerm, rowTermIdx)[row], worst = at(worstDist, worstDistIdx)[row];
    for (Nox32s j = 0; j < colCount; ++j) {
      const Nox64f distance = (own + distances[j]) + columns[j];
      // The value tested against stays that of the call's beginning; the slot alone follows the list.
      if (!(worst > distance)) continue;
      best[slot] = distance;
      index[slot] = colStart + j;
      slot = largest(best, k);
    }
  }
}

void InternalCollectK1_64f_Idx(Nox32s rowStart, Nox32s rowCount, Nox32s colCount, Nox32s k, Nox32s colStart,
                               Nox64f block[], int blockIdx, Nox32s worstSlot[], int worstSlotIdx, Nox64f worstDist[],
                               int worstDistIdx, Nox32s bestIndex[], int bestIndexIdx, Nox64f bestDist[],
                               int bestDistIdx, const Nox64f colTerm[], int colTermIdx, const Nox64f rowTerm[],
                               int rowTermIdx) {
  for (Nox32s i = 0; i < rowCount; ++i) {
    const Nox32s row = rowStart + i;
    Nox64f* const distances = at(block, blockIdx) + i * colCount;
    Nox64f worst = at(worstDist, worstDistIdx)[row];
    const Nox64f least = complete(distances, at(colTerm, colTermIdx), at(rowTerm, rowTermIdx)[row], colCount);
    if (!(worst > least)) continue;
    Nox64f* const best = at(bestDist, bestDistIdx) + row * k;
    Nox32s* const index = at(bestIndex, bestIndexIdx) + row * k;
    int slot = at(worstSlot, worstSlotIdx)[row];
    for (Nox32s j = 0; j < colCount; ++j) {
      if (!(worst > distances[j])) continue;
      best[slot] = distances[j];
      index[slot] = colStart + j;
      plain_noxsMaxIndx_64f(best, k, &worst, &slot);
    }
    at(worstSlot, worstSlotIdx)[row] = slot;
    at(worstDist, worstDistIdx)[row] = worst;
  }
}

}  // extern "C"
