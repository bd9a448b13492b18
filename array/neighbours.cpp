// Nearest neighbours: merges the distances of a block of rows and columns into each row's list of the k best.
//
// Few columns enter a list, so distances are formed and tested in vectors and columns handled one by one only where a
// test is met.
#include "nox/array/neighbours.h"

#include <math.h>

#include "adapters/adapter.hpp"
#include "array/masks.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// One row's part of the arrays.
struct Row {
  Nox32s* worst_slot;
  Nox64f* worst_dist;
  Nox32s* best_index;
  Nox64f* best_dist;
  Nox64f term;
};

// The place of the largest, of equal ones the first.
NOX_INLINE Nox32s largest(const Nox64f* list, Nox32s k) {
  Nox32s slot = 0;
  Nox64f most = element_at(list);
  for (Nox32s i = 1; i < k; ++i) {
    const Nox64f x = element_at(list + i);
    if (x > most) most = x, slot = i;
  }
  return slot;
}

constexpr Nox32s kColumns = 8;  // tested at a time

// Bits of the columns from j on whose distance, of(j), is below the worst.
template <class Of>
NOX_INLINE Nox32u nearer(Nox64f worst, Nox32s j, Of&& of) {
  const F64x2 bound = F64x2::all(worst);
  const F64x2 low = of(j) < bound, next = of(j + 2) < bound, third = of(j + 4) < bound, high = of(j + 6) < bound;
  if (mask_bits((low | next) | (third | high)) == 0) return 0;
  return static_cast<Nox32u>(mask_bits(low) | mask_bits(next) << 2 | mask_bits(third) << 4 | mask_bits(high) << 6);
}

// The worst distance stands for the whole row, however far the list falls below it.
NOX_INLINE void collect(const Row& row, const Nox64f* block, const Nox64f* col_term, Nox32s columns, Nox32s k,
                        Nox32s col_start) {
  const Nox64f worst = element_at(row.worst_dist);
  Nox32s slot = element_at(row.worst_slot), j = 0;
  const F64x2 term = F64x2::all(row.term);
  const auto enter = [&](Nox32s column, Nox64f d) {
    put_element(row.best_dist + slot, d);
    put_element(row.best_index + slot, col_start + column);
    slot = largest(row.best_dist, k);
  };
  const auto distance = [&](Nox32s column) {
    return (row.term + element_at(block + column)) + element_at(col_term + column);
  };
  for (; columns - j >= kColumns; j += kColumns) {
    const auto of = [&](Nox32s i) { return (term + F64x2::load(block + i)) + F64x2::load(col_term + i); };
    each_bit(nearer(worst, j, of), [&](Nox32u i) {
      const Nox32s column = j + static_cast<Nox32s>(i);
      enter(column, distance(column));
    });
  }
  for (; j < columns; ++j) {
    const Nox64f d = distance(j);
    if (worst > d) enter(j, d);
  }
  put_element(row.worst_slot, slot);
  put_element(row.worst_dist, worst);
}

// Adds both terms to a row of the block; returns the least distance, or infinity. A minimum takes its right operand
// where the left one is a NaN.
NOX_INLINE Nox64f add_terms(Nox64f* block, const Nox64f* col_term, Nox32s columns, Nox64f row_term) {
  const F64x2 term = F64x2::all(row_term);
  F64x2 least[4];
  for (F64x2& x : least) x = F64x2::all(HUGE_VAL);
  Nox32s j = 0;
  if (columns > 0 && !ahead_of(block, col_term, static_cast<Nox32u>(columns)))
    for (; columns - j >= 8; j += 8) {
#pragma GCC unroll 4
      for (Nox32s i = 0; i < 4; ++i) {
        const F64x2 d = (term + F64x2::load(col_term + j + 2 * i)) + F64x2::load(block + j + 2 * i);
        d.store(block + j + 2 * i);
        least[i] = min(d, least[i]);
      }
    }
  const F64x2 pair = min(min(least[0], least[1]), min(least[2], least[3]));
  F64x1 all = min(F64x1{pair.v}, F64x1{high_halves(pair, pair).v});
  for (; j < columns; ++j) {
    const F64x1 d = (F64x1::all(row_term) + F64x1::load(col_term + j)) + F64x1::load(block + j);
    d.store(block + j);
    all = min(d, all);
  }
  return _mm_cvtsd_f64(all.v);
}

// The worst distance follows the list as it falls.
NOX_INLINE void collect_falling(const Row& row, Nox64f* block, const Nox64f* col_term, Nox32s columns, Nox32s k,
                                Nox32s col_start) {
  const Nox64f least = add_terms(block, col_term, columns, row.term);
  Nox64f worst = element_at(row.worst_dist);
  if (!(worst > least)) return;
  int slot = element_at(row.worst_slot);
  Nox32s j = 0;
  const auto test = [&](Nox32s column) {
    const Nox64f d = element_at(block + column);
    if (!(worst > d)) return;
    put_element(row.best_dist + slot, d);
    put_element(row.best_index + slot, col_start + column);
    plain_noxsMaxIndx_64f(row.best_dist, k, &worst, &slot);
  };
  for (; columns - j >= kColumns; j += kColumns)
    each_bit(nearer(worst, j, [&](Nox32s i) { return F64x2::load(block + i); }),
             [&](Nox32u i) { test(j + static_cast<Nox32s>(i)); });
  for (; j < columns; ++j) test(j);
  put_element(row.worst_slot, slot);
  put_element(row.worst_dist, worst);
}

// step(row, its part of the block) for each row.
template <class T, class Step>
NOX_INLINE void each_row(Nox32s row_start, Nox32s rows, Nox32s columns, Nox32s k, T* block, Nox32s* worst_slot,
                         Nox64f* worst_dist, Nox32s* best_index, Nox64f* best_dist, const Nox64f* row_term,
                         Step&& step) {
  for (Nox32s i = 0; i < rows; ++i) {
    const Nox32s g = row_start + i;
    step(Row{worst_slot + g, worst_dist + g, best_index + g * k, best_dist + g * k, element_at(row_term + g)},
         block + i * columns);
  }
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void NOX_BODY(InternalCollectK_64f_Idx)(Nox32s rowStart, Nox32s rowCount, Nox32s colCount, Nox32s k, Nox32s colStart,
                                        const Nox64f block[], int blockIdx, Nox32s worstSlot[], int worstSlotIdx,
                                        Nox64f worstDist[], int worstDistIdx, Nox32s bestIndex[], int bestIndexIdx,
                                        Nox64f bestDist[], int bestDistIdx, const Nox64f colTerm[], int colTermIdx,
                                        const Nox64f rowTerm[], int rowTermIdx) {
  const Nox64f* terms = at(colTerm, colTermIdx);
  each_row(rowStart, rowCount, colCount, k, at(block, blockIdx), at(worstSlot, worstSlotIdx),
           at(worstDist, worstDistIdx), at(bestIndex, bestIndexIdx), at(bestDist, bestDistIdx), at(rowTerm, rowTermIdx),
           [=](const Row& row, const Nox64f* part) { collect(row, part, terms, colCount, k, colStart); });
}

void NOX_BODY(InternalCollectK1_64f_Idx)(Nox32s rowStart, Nox32s rowCount, Nox32s colCount, Nox32s k, Nox32s colStart,
                                         Nox64f block[], int blockIdx, Nox32s worstSlot[], int worstSlotIdx,
                                         Nox64f worstDist[], int worstDistIdx, Nox32s bestIndex[], int bestIndexIdx,
                                         Nox64f bestDist[], int bestDistIdx, const Nox64f colTerm[], int colTermIdx,
                                         const Nox64f rowTerm[], int rowTermIdx) {
  const Nox64f* terms = at(colTerm, colTermIdx);
  each_row(rowStart, rowCount, colCount, k, at(block, blockIdx), at(worstSlot, worstSlotIdx),
           at(worstDist, worstDistIdx), at(bestIndex, bestIndexIdx), at(bestDist, bestDistIdx), at(rowTerm, rowTermIdx),
           [=](const Row& row, Nox64f* part) { collect_falling(row, part, terms, colCount, k, colStart); });
}

}  // extern "C"
