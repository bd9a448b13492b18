/* Nearest neighbours, block by block: the k nearest columns of every row.
 *
 * The distance of a row and a column is the sum of a term of the row, a term of the column and an entry of a block of
 * the caller's, for instance the squared norms and minus twice the inner product. The lists of the k best stand in the
 * caller's arrays from call to call, in the order of replacement. No status, nothing is tested; k must be positive.
 * Equal in all builds. */
#ifndef NOX_ARRAY_NEIGHBOURS_H
#define NOX_ARRAY_NEIGHBOURS_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Merges a block of distances into the rows' lists of the k best. Equal in all builds.
 *
 * For each row and each column in ascending order: where `worstDist > (rowTerm + block) + colTerm`, the distance and
 * the column's index replace the entry at the row's slot, and the slot becomes the place of the list's largest
 * distance, the first among equals. worstDist is read and stays as it is, so it must lie above every candidate; a NaN
 * never enters.
 *
 * @param rowStart      global number of the block's first row, an offset into the arrays per row
 * @param rowCount      rows in the block; below 1 nothing is done
 * @param colCount      columns in the block
 * @param k             neighbours kept per row
 * @param colStart      global number of the block's first column, added to the column stored
 * @param block         base of rowCount x colCount entries, row by row
 * @param blockIdx      its index
 * @param worstSlot     base of each row's place of its worst entry
 * @param worstSlotIdx  its index
 * @param worstDist     base of each row's value to test against
 * @param worstDistIdx  its index
 * @param bestIndex     base of k column numbers per row
 * @param bestIndexIdx  its index
 * @param bestDist      base of k distances per row
 * @param bestDistIdx   its index
 * @param colTerm       base of the columns' terms, for the block's columns alone
 * @param colTermIdx    its index
 * @param rowTerm       base of the rows' terms
 * @param rowTermIdx    its index
 */
NOX_API(void)
InternalCollectK_64f_Idx(Nox32s rowStart, Nox32s rowCount, Nox32s colCount, Nox32s k, Nox32s colStart,
                         const Nox64f block[], int blockIdx, Nox32s worstSlot[], int worstSlotIdx, Nox64f worstDist[],
                         int worstDistIdx, Nox32s bestIndex[], int bestIndexIdx, Nox64f bestDist[], int bestDistIdx,
                         const Nox64f colTerm[], int colTermIdx, const Nox64f rowTerm[], int rowTermIdx);

/**
 * @brief Merges a block of distances into the rows' lists of the k best, for long blocks and small k. Equal in all
 * builds.
 *
 * The block's entries become the full distances, `(rowTerm + colTerm) + block`. A row whose least distance isn't below
 * its worstDist is then done. In the others each distance below worstDist replaces the entry at the row's slot, and
 * noxsMaxIndx_64f() finds the next worst one and its place. worstDist follows the list, unlike in
 * InternalCollectK_64f_Idx().
 * @param rowStart      global number of the block's first row, an offset into the arrays per row
 * @param rowCount      rows in the block; below 1 nothing is done
 * @param colCount      columns in the block
 * @param k             neighbours kept per row
 * @param colStart      global number of the block's first column, added to the column stored
 * @param block         base of rowCount x colCount entries, row by row, overwritten by the distances
 * @param blockIdx      its index
 * @param worstSlot     base of each row's place of its worst entry
 * @param worstSlotIdx  its index
 * @param worstDist     base of each row's worst distance, at first above every candidate
 * @param worstDistIdx  its index
 * @param bestIndex     base of k column numbers per row
 * @param bestIndexIdx  its index
 * @param bestDist      base of k distances per row
 * @param bestDistIdx   its index
 * @param colTerm       base of the columns' terms, for the block's columns alone
 * @param colTermIdx    its index
 * @param rowTerm       base of the rows' terms
 * @param rowTermIdx    its index
 */
NOX_API(void)
InternalCollectK1_64f_Idx(Nox32s rowStart, Nox32s rowCount, Nox32s colCount, Nox32s k, Nox32s colStart, Nox64f block[],
                          int blockIdx, Nox32s worstSlot[], int worstSlotIdx, Nox64f worstDist[], int worstDistIdx,
                          Nox32s bestIndex[], int bestIndexIdx, Nox64f bestDist[], int bestDistIdx,
                          const Nox64f colTerm[], int colTermIdx, const Nox64f rowTerm[], int rowTermIdx);

NOX_END_DECLS

#endif
