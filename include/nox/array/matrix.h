/* Layout of dense matrices in flat arrays.
 *
 * Matrices stand row by row: element (r, c) is base[r*stride + c]. A stride counts elements from one row to the next
 * and is signed; it may be larger than a row, and what stands between rows is neither read nor written. No rows or no
 * columns do nothing. These functions return no status and test nothing: an index out of range reads or writes out of
 * bounds. Elements move as bits, NaN too. Equal in all builds. */
#ifndef NOX_ARRAY_MATRIX_H
#define NOX_ARRAY_MATRIX_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Transpose: `dst[c*dstStride + r] = src[r*srcStride + c]`. Equal in all builds.
 * @param src        the source's first element
 * @param dst        the destination's first element; must not overlap the source
 * @param rows       rows of the source
 * @param cols       columns of the source
 * @param srcStride  elements from row to row of the source
 * @param dstStride  elements from row to row of the destination
 */
NOX_API(void)
TransposeMatrix(const Nox64f src[], Nox64f dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc TransposeMatrix */
NOX_API(void)
TransposeMatrixc(const Nox64fc src[], Nox64fc dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc TransposeMatrix */
NOX_API(void)
TransposeMatrix_8u(const Nox8u src[], Nox8u dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc TransposeMatrix */
NOX_API(void)
TransposeMatrix_16s(const Nox16s src[], Nox16s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc TransposeMatrix */
NOX_API(void)
TransposeMatrix_32s(const Nox32s src[], Nox32s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);

/**
 * @brief Transpose of a square matrix in place. Equal in all builds.
 * @param m       first element of the matrix, changed in place
 * @param n       rows and columns
 * @param stride  elements from row to row
 */
NOX_API(void) TransposeSquareMatrix(Nox64f m[], Nox32u n, Nox32s stride);
/** @copydoc TransposeSquareMatrix */
NOX_API(void) TransposeSquareMatrixc(Nox64fc m[], Nox32u n, Nox32s stride);
/** @copydoc TransposeSquareMatrix */
NOX_API(void) TransposeSquareMatrix_8u(Nox8u m[], Nox32u n, Nox32s stride);
/** @copydoc TransposeSquareMatrix */
NOX_API(void) TransposeSquareMatrix_16s(Nox16s m[], Nox32u n, Nox32s stride);
/** @copydoc TransposeSquareMatrix */
NOX_API(void) TransposeSquareMatrix_32s(Nox32s m[], Nox32u n, Nox32s stride);

/**
 * @brief Conjugate transpose: TransposeMatrixc() with the sign bits of the imaginary parts flipped. Equal in all
 * builds.
 * @param src        the source's first element
 * @param dst        the destination's first element; must not overlap the source
 * @param rows       rows of the source
 * @param cols       columns of the source
 * @param srcStride  elements from row to row of the source
 * @param dstStride  elements from row to row of the destination
 */
NOX_API(void)
AdjungateMatrixc(const Nox64fc src[], Nox64fc dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);

/**
 * @brief Conjugate transpose of a square matrix in place; the sign bits flip on the diagonal too. Equal in all builds.
 * @param m       first element of the matrix, changed in place
 * @param n       rows and columns
 * @param stride  elements from row to row
 */
NOX_API(void) AdjungateSquareMatrixc(Nox64fc m[], Nox32u n, Nox32s stride);

/**
 * @brief Copies the upper triangle: columns from r on of row r, or from r + 1 on without the diagonal; the rest of the
 * destination stays. Equal in all builds.
 * @param src        the source's first element
 * @param dst        the destination's first element; must not overlap the source
 * @param rows       number of rows
 * @param cols       number of columns
 * @param srcStride  elements from row to row of the source
 * @param dstStride  elements from row to row of the destination
 * @param diagonal   0 leaves the diagonal out, any other value takes it in
 */
NOX_API(void)
UpperTriangle(const Nox64f src[], Nox64f dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride,
              Nox32s diagonal);
/** @copydoc UpperTriangle */
NOX_API(void)
UpperTrianglec(const Nox64fc src[], Nox64fc dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride,
               Nox32s diagonal);
/** @copydoc UpperTriangle */
NOX_API(void)
UpperTriangle_8u(const Nox8u src[], Nox8u dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride,
                 Nox32s diagonal);
/** @copydoc UpperTriangle */
NOX_API(void)
UpperTriangle_16s(const Nox16s src[], Nox16s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride,
                  Nox32s diagonal);
/** @copydoc UpperTriangle */
NOX_API(void)
UpperTriangle_32s(const Nox32s src[], Nox32s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride,
                  Nox32s diagonal);

/**
 * @brief Copies the lower triangle: columns below r of row r, and r itself with the diagonal; the rest of the
 * destination stays. Equal in all builds.
 * @param src        the source's first element
 * @param dst        the destination's first element; must not overlap the source
 * @param rows       number of rows
 * @param cols       number of columns
 * @param srcStride  elements from row to row of the source
 * @param dstStride  elements from row to row of the destination
 * @param diagonal   0 leaves the diagonal out, any other value takes it in
 */
NOX_API(void)
LowerTriangle(const Nox64f src[], Nox64f dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride,
              Nox32s diagonal);
/** @copydoc LowerTriangle */
NOX_API(void)
LowerTrianglec(const Nox64fc src[], Nox64fc dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride,
               Nox32s diagonal);
/** @copydoc LowerTriangle */
NOX_API(void)
LowerTriangle_8u(const Nox8u src[], Nox8u dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride,
                 Nox32s diagonal);
/** @copydoc LowerTriangle */
NOX_API(void)
LowerTriangle_16s(const Nox16s src[], Nox16s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride,
                  Nox32s diagonal);
/** @copydoc LowerTriangle */
NOX_API(void)
LowerTriangle_32s(const Nox32s src[], Nox32s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride,
                  Nox32s diagonal);

/**
 * @brief Clears the upper triangle. Equal in all builds.
 * @param m         first element of the matrix
 * @param rows      number of rows
 * @param cols      number of columns
 * @param stride    elements from row to row
 * @param diagonal  0 leaves the diagonal out, any other value takes it in
 */
NOX_API(void) ZeroUpperTriangle(Nox64f m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal);
/** @copydoc ZeroUpperTriangle */
NOX_API(void) ZeroUpperTrianglec(Nox64fc m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal);
/** @copydoc ZeroUpperTriangle */
NOX_API(void) ZeroUpperTriangle_8u(Nox8u m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal);
/** @copydoc ZeroUpperTriangle */
NOX_API(void) ZeroUpperTriangle_16s(Nox16s m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal);
/** @copydoc ZeroUpperTriangle */
NOX_API(void) ZeroUpperTriangle_32s(Nox32s m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal);

/**
 * @brief Clears the lower triangle. Equal in all builds.
 * @param m         first element of the matrix
 * @param rows      number of rows
 * @param cols      number of columns
 * @param stride    elements from row to row
 * @param diagonal  0 leaves the diagonal out, any other value takes it in
 */
NOX_API(void) ZeroLowerTriangle(Nox64f m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal);
/** @copydoc ZeroLowerTriangle */
NOX_API(void) ZeroLowerTrianglec(Nox64fc m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal);
/** @copydoc ZeroLowerTriangle */
NOX_API(void) ZeroLowerTriangle_8u(Nox8u m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal);
/** @copydoc ZeroLowerTriangle */
NOX_API(void) ZeroLowerTriangle_16s(Nox16s m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal);
/** @copydoc ZeroLowerTriangle */
NOX_API(void) ZeroLowerTriangle_32s(Nox32s m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal);

/**
 * @brief Exchanges the first elements of two rows. Equal in all builds.
 * @param m       first element of the matrix
 * @param row1    one row
 * @param row2    the other; the same one leaves the matrix as it is
 * @param cols    elements to exchange
 * @param stride  elements from row to row
 */
NOX_API(void) RowExchange(Nox64f m[], Nox32u row1, Nox32u row2, Nox32u cols, Nox32s stride);
/** @copydoc RowExchange */
NOX_API(void) RowExchangec(Nox64fc m[], Nox32u row1, Nox32u row2, Nox32u cols, Nox32s stride);
/** @copydoc RowExchange */
NOX_API(void) RowExchange_8u(Nox8u m[], Nox32u row1, Nox32u row2, Nox32u cols, Nox32s stride);
/** @copydoc RowExchange */
NOX_API(void) RowExchange_16s(Nox16s m[], Nox32u row1, Nox32u row2, Nox32u cols, Nox32s stride);
/** @copydoc RowExchange */
NOX_API(void) RowExchange_32s(Nox32s m[], Nox32u row1, Nox32u row2, Nox32u cols, Nox32s stride);

/**
 * @brief Exchanges two columns over the first rows. Equal in all builds.
 * @param m       first element of the matrix
 * @param col1    one column
 * @param col2    the other; the same one leaves the matrix as it is
 * @param rows    elements to exchange
 * @param stride  elements from row to row
 */
NOX_API(void) ColExchange(Nox64f m[], Nox32u col1, Nox32u col2, Nox32u rows, Nox32s stride);
/** @copydoc ColExchange */
NOX_API(void) ColExchangec(Nox64fc m[], Nox32u col1, Nox32u col2, Nox32u rows, Nox32s stride);
/** @copydoc ColExchange */
NOX_API(void) ColExchange_8u(Nox8u m[], Nox32u col1, Nox32u col2, Nox32u rows, Nox32s stride);
/** @copydoc ColExchange */
NOX_API(void) ColExchange_16s(Nox16s m[], Nox32u col1, Nox32u col2, Nox32u rows, Nox32s stride);
/** @copydoc ColExchange */
NOX_API(void) ColExchange_32s(Nox32s m[], Nox32u col1, Nox32u col2, Nox32u rows, Nox32s stride);

/**
 * @brief Copies a block from one place in a matrix to a place in another. Equal in all builds.
 * @param src        first element of the source
 * @param dst        first element of the destination
 * @param srcRow     row at which the block begins in the source
 * @param srcCol     column at which the block begins in the source
 * @param dstRow     row at which the block begins in the destination
 * @param dstCol     column at which the block begins in the destination
 * @param rows       rows of the block
 * @param cols       columns of the block; source and destination rows must not overlap
 * @param srcStride  elements from row to row of the source
 * @param dstStride  elements from row to row of the destination
 */
NOX_API(void)
CopySubMatrix(const Nox64f src[], Nox64f dst[], Nox32u srcRow, Nox32u srcCol, Nox32u dstRow, Nox32u dstCol, Nox32u rows,
              Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc CopySubMatrix */
NOX_API(void)
CopySubMatrixc(const Nox64fc src[], Nox64fc dst[], Nox32u srcRow, Nox32u srcCol, Nox32u dstRow, Nox32u dstCol,
               Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc CopySubMatrix */
NOX_API(void)
CopySubMatrix_8u(const Nox8u src[], Nox8u dst[], Nox32u srcRow, Nox32u srcCol, Nox32u dstRow, Nox32u dstCol,
                 Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc CopySubMatrix */
NOX_API(void)
CopySubMatrix_16s(const Nox16s src[], Nox16s dst[], Nox32u srcRow, Nox32u srcCol, Nox32u dstRow, Nox32u dstCol,
                  Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc CopySubMatrix */
NOX_API(void)
CopySubMatrix_32s(const Nox32s src[], Nox32s dst[], Nox32u srcRow, Nox32u srcCol, Nox32u dstRow, Nox32u dstCol,
                  Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);

/**
 * @brief Copies the block at the origin; what the destination holds beyond it stays, nothing is padded. Equal in all
 * builds.
 * @param src        the source's first element
 * @param dst        the destination's first element; must not overlap the source
 * @param rows       rows of the block: the smaller of old and new number
 * @param cols       columns of the block, likewise
 * @param srcStride  elements from row to row of the source
 * @param dstStride  elements from row to row of the destination
 */
NOX_API(void)
ResizeMatrix(const Nox64f src[], Nox64f dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc ResizeMatrix */
NOX_API(void)
ResizeMatrixc(const Nox64fc src[], Nox64fc dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc ResizeMatrix */
NOX_API(void)
ResizeMatrix_8u(const Nox8u src[], Nox8u dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc ResizeMatrix */
NOX_API(void)
ResizeMatrix_16s(const Nox16s src[], Nox16s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);
/** @copydoc ResizeMatrix */
NOX_API(void)
ResizeMatrix_32s(const Nox32s src[], Nox32s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride);

NOX_END_DECLS

#endif
