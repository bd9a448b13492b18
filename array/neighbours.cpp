// Nearest neighbours: merges the distances of a block of rows and columns into each row's list of the k best.
#include "nox/array/neighbours.h"
#include "adapters/adapter.hpp"
#include "array/operands.hpp"

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

}  // extern "C"
