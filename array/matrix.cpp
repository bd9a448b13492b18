// Layout of matrices in flat arrays: transposes, triangles, exchanges and blocks.
//
// A stride is a signed number of elements, and addresses wrap as the processor's do. Elements move as bits. Transposes
// go along the source's rows, which is the order that their definition fixes.
#include <string.h>

#include "array/lanes.hpp"
#include "nox/array/matrix.h"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

template <class T>
NOX_INLINE T* element(T* base, Nox32u row, Nox32s stride, Nox32u col) {
  return base + static_cast<Nox32s>(row * static_cast<Nox32u>(stride) + col);
}
struct Conjugate {
  NOX_INLINE C64x1 operator()(C64x1 a) const { return conj(a); }
};

template <class T, class F>
NOX_INLINE void transpose(const T* s, T* d, Nox32u rows, Nox32u cols, Nox32s from, Nox32s to, F&& f) {
  using One = typename lanes_of<T>::one;
  for (Nox32u r = 0; r < rows; ++r) {
    const T* const row = element(s, r, from, 0);
    T* at = d + r;
#pragma GCC unroll 4
    for (Nox32u c = 0; c < cols; ++c, at += to) f(One::load(row + c)).store(at);
  }
}
template <class T, class F>
NOX_INLINE void transpose_in_place(T* m, Nox32u n, Nox32s stride, F&& f) {
  using One = typename lanes_of<T>::one;
  for (Nox32u r = 1; r < n; ++r) {
    T* const row = element(m, r, stride, 0);
    T* mirror = m + r;
    for (Nox32u c = 0; c < r; ++c, mirror += stride) {
      const One lower = f(One::load(row + c)), upper = f(One::load(mirror));
      upper.store(row + c);
      lower.store(mirror);
    }
  }
}

// change(row, first, count) for the part of each row that belongs to the triangle.
template <class Change>
NOX_INLINE void each_upper(Nox32u rows, Nox32u cols, Nox32s diagonal, Change&& change) {
  Nox32u first = diagonal == 0;
  for (Nox32u r = 0; r < rows && first < cols; ++r, ++first) change(r, first, cols - first);
}
template <class Change>
NOX_INLINE void each_lower(Nox32u rows, Nox32u cols, Nox32s diagonal, Change&& change) {
  Nox32u count = diagonal != 0;
  for (Nox32u r = 0; r < rows; ++r, ++count) change(r, 0, count < cols ? count : cols);
}
template <class T>
NOX_INLINE auto copy_row(const T* s, T* d, Nox32s from, Nox32s to) {
  return [=](Nox32u r, Nox32u first, Nox32u count) {
    memcpy(element(d, r, to, first), element(s, r, from, first), count * sizeof(T));
  };
}
template <class T>
NOX_INLINE auto clear_row(T* m, Nox32s stride) {
  return [=](Nox32u r, Nox32u first, Nox32u count) { memset(element(m, r, stride, first), 0, count * sizeof(T)); };
}
template <class T>
NOX_INLINE void copy_block(const T* s, T* d, Nox32u rows, Nox32u cols, Nox32s from, Nox32s to) {
  for (Nox32u r = 0; r < rows; ++r) copy_row(s, d, from, to)(r, 0, cols);
}

// Exchanges n elements of two sequences.
template <class T>
NOX_INLINE void exchange(T* a, T* b, Nox32u n, Nox32s step) {
  using One = typename lanes_of<T>::one;
  for (Nox32u i = 0; i < n; ++i, a += step, b += step) {
    const One x = One::load(a), y = One::load(b);
    y.store(a);
    x.store(b);
  }
}
template <class T>
NOX_INLINE void exchange_rows(T* a, T* b, Nox32u n) {
  using V = typename lanes_of<T>::vec;
  constexpr Nox32u N = V::N;
  Nox32u i = 0;
  if (!ahead_of(a, b, n) && !ahead_of(b, a, n)) {
    for (; n - i >= N; i += N) {
      const V x = V::load(a + i), y = V::load(b + i);
      y.store(a + i);
      x.store(b + i);
    }
  }
  exchange(a + i, b + i, n - i, 1);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void NOX_BODY(TransposeMatrix)(const Nox64f src[], Nox64f dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                               Nox32s dstStride) {
  transpose(src, dst, rows, cols, srcStride, dstStride, Keep{});
}
void NOX_BODY(TransposeSquareMatrix)(Nox64f m[], Nox32u n, Nox32s stride) { transpose_in_place(m, n, stride, Keep{}); }
void NOX_BODY(UpperTriangle)(const Nox64f src[], Nox64f dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                             Nox32s dstStride, Nox32s diagonal) {
  each_upper(rows, cols, diagonal, copy_row(src, dst, srcStride, dstStride));
}
void NOX_BODY(ZeroUpperTriangle)(Nox64f m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal) {
  each_upper(rows, cols, diagonal, clear_row(m, stride));
}
void NOX_BODY(LowerTriangle)(const Nox64f src[], Nox64f dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                             Nox32s dstStride, Nox32s diagonal) {
  each_lower(rows, cols, diagonal, copy_row(src, dst, srcStride, dstStride));
}
void NOX_BODY(ZeroLowerTriangle)(Nox64f m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal) {
  each_lower(rows, cols, diagonal, clear_row(m, stride));
}
void NOX_BODY(RowExchange)(Nox64f m[], Nox32u row1, Nox32u row2, Nox32u cols, Nox32s stride) {
  exchange_rows(element(m, row1, stride, 0), element(m, row2, stride, 0), cols);
}
void NOX_BODY(ColExchange)(Nox64f m[], Nox32u col1, Nox32u col2, Nox32u rows, Nox32s stride) {
  exchange(m + col1, m + col2, rows, stride);
}
void NOX_BODY(CopySubMatrix)(const Nox64f src[], Nox64f dst[], Nox32u srcRow, Nox32u srcCol, Nox32u dstRow,
                             Nox32u dstCol, Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride) {
  copy_block(element(src, srcRow, srcStride, srcCol), element(dst, dstRow, dstStride, dstCol), rows, cols, srcStride,
             dstStride);
}
void NOX_BODY(ResizeMatrix)(const Nox64f src[], Nox64f dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                            Nox32s dstStride) {
  copy_block(src, dst, rows, cols, srcStride, dstStride);
}

void NOX_BODY(TransposeMatrixc)(const Nox64fc src[], Nox64fc dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                Nox32s dstStride) {
  transpose(src, dst, rows, cols, srcStride, dstStride, Keep{});
}
void NOX_BODY(TransposeSquareMatrixc)(Nox64fc m[], Nox32u n, Nox32s stride) {
  transpose_in_place(m, n, stride, Keep{});
}
void NOX_BODY(UpperTrianglec)(const Nox64fc src[], Nox64fc dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                              Nox32s dstStride, Nox32s diagonal) {
  each_upper(rows, cols, diagonal, copy_row(src, dst, srcStride, dstStride));
}
void NOX_BODY(ZeroUpperTrianglec)(Nox64fc m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal) {
  each_upper(rows, cols, diagonal, clear_row(m, stride));
}
void NOX_BODY(LowerTrianglec)(const Nox64fc src[], Nox64fc dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                              Nox32s dstStride, Nox32s diagonal) {
  each_lower(rows, cols, diagonal, copy_row(src, dst, srcStride, dstStride));
}
void NOX_BODY(ZeroLowerTrianglec)(Nox64fc m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal) {
  each_lower(rows, cols, diagonal, clear_row(m, stride));
}
void NOX_BODY(RowExchangec)(Nox64fc m[], Nox32u row1, Nox32u row2, Nox32u cols, Nox32s stride) {
  exchange_rows(element(m, row1, stride, 0), element(m, row2, stride, 0), cols);
}
void NOX_BODY(ColExchangec)(Nox64fc m[], Nox32u col1, Nox32u col2, Nox32u rows, Nox32s stride) {
  exchange(m + col1, m + col2, rows, stride);
}
void NOX_BODY(CopySubMatrixc)(const Nox64fc src[], Nox64fc dst[], Nox32u srcRow, Nox32u srcCol, Nox32u dstRow,
                              Nox32u dstCol, Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride) {
  copy_block(element(src, srcRow, srcStride, srcCol), element(dst, dstRow, dstStride, dstCol), rows, cols, srcStride,
             dstStride);
}
void NOX_BODY(ResizeMatrixc)(const Nox64fc src[], Nox64fc dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                             Nox32s dstStride) {
  copy_block(src, dst, rows, cols, srcStride, dstStride);
}

void NOX_BODY(TransposeMatrix_8u)(const Nox8u src[], Nox8u dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                  Nox32s dstStride) {
  transpose(src, dst, rows, cols, srcStride, dstStride, Keep{});
}
void NOX_BODY(TransposeSquareMatrix_8u)(Nox8u m[], Nox32u n, Nox32s stride) {
  transpose_in_place(m, n, stride, Keep{});
}
void NOX_BODY(UpperTriangle_8u)(const Nox8u src[], Nox8u dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                Nox32s dstStride, Nox32s diagonal) {
  each_upper(rows, cols, diagonal, copy_row(src, dst, srcStride, dstStride));
}
void NOX_BODY(ZeroUpperTriangle_8u)(Nox8u m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal) {
  each_upper(rows, cols, diagonal, clear_row(m, stride));
}
void NOX_BODY(LowerTriangle_8u)(const Nox8u src[], Nox8u dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                Nox32s dstStride, Nox32s diagonal) {
  each_lower(rows, cols, diagonal, copy_row(src, dst, srcStride, dstStride));
}
void NOX_BODY(ZeroLowerTriangle_8u)(Nox8u m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal) {
  each_lower(rows, cols, diagonal, clear_row(m, stride));
}
void NOX_BODY(RowExchange_8u)(Nox8u m[], Nox32u row1, Nox32u row2, Nox32u cols, Nox32s stride) {
  exchange_rows(element(m, row1, stride, 0), element(m, row2, stride, 0), cols);
}
void NOX_BODY(ColExchange_8u)(Nox8u m[], Nox32u col1, Nox32u col2, Nox32u rows, Nox32s stride) {
  exchange(m + col1, m + col2, rows, stride);
}
void NOX_BODY(CopySubMatrix_8u)(const Nox8u src[], Nox8u dst[], Nox32u srcRow, Nox32u srcCol, Nox32u dstRow,
                                Nox32u dstCol, Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride) {
  copy_block(element(src, srcRow, srcStride, srcCol), element(dst, dstRow, dstStride, dstCol), rows, cols, srcStride,
             dstStride);
}
void NOX_BODY(ResizeMatrix_8u)(const Nox8u src[], Nox8u dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                               Nox32s dstStride) {
  copy_block(src, dst, rows, cols, srcStride, dstStride);
}

void NOX_BODY(TransposeMatrix_16s)(const Nox16s src[], Nox16s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                   Nox32s dstStride) {
  transpose(src, dst, rows, cols, srcStride, dstStride, Keep{});
}
void NOX_BODY(TransposeSquareMatrix_16s)(Nox16s m[], Nox32u n, Nox32s stride) {
  transpose_in_place(m, n, stride, Keep{});
}
void NOX_BODY(UpperTriangle_16s)(const Nox16s src[], Nox16s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                 Nox32s dstStride, Nox32s diagonal) {
  each_upper(rows, cols, diagonal, copy_row(src, dst, srcStride, dstStride));
}
void NOX_BODY(ZeroUpperTriangle_16s)(Nox16s m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal) {
  each_upper(rows, cols, diagonal, clear_row(m, stride));
}
void NOX_BODY(LowerTriangle_16s)(const Nox16s src[], Nox16s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                 Nox32s dstStride, Nox32s diagonal) {
  each_lower(rows, cols, diagonal, copy_row(src, dst, srcStride, dstStride));
}
void NOX_BODY(ZeroLowerTriangle_16s)(Nox16s m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal) {
  each_lower(rows, cols, diagonal, clear_row(m, stride));
}
void NOX_BODY(RowExchange_16s)(Nox16s m[], Nox32u row1, Nox32u row2, Nox32u cols, Nox32s stride) {
  exchange_rows(element(m, row1, stride, 0), element(m, row2, stride, 0), cols);
}
void NOX_BODY(ColExchange_16s)(Nox16s m[], Nox32u col1, Nox32u col2, Nox32u rows, Nox32s stride) {
  exchange(m + col1, m + col2, rows, stride);
}
void NOX_BODY(CopySubMatrix_16s)(const Nox16s src[], Nox16s dst[], Nox32u srcRow, Nox32u srcCol, Nox32u dstRow,
                                 Nox32u dstCol, Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride) {
  copy_block(element(src, srcRow, srcStride, srcCol), element(dst, dstRow, dstStride, dstCol), rows, cols, srcStride,
             dstStride);
}
void NOX_BODY(ResizeMatrix_16s)(const Nox16s src[], Nox16s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                Nox32s dstStride) {
  copy_block(src, dst, rows, cols, srcStride, dstStride);
}

void NOX_BODY(TransposeMatrix_32s)(const Nox32s src[], Nox32s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                   Nox32s dstStride) {
  transpose(src, dst, rows, cols, srcStride, dstStride, Keep{});
}
void NOX_BODY(TransposeSquareMatrix_32s)(Nox32s m[], Nox32u n, Nox32s stride) {
  transpose_in_place(m, n, stride, Keep{});
}
void NOX_BODY(UpperTriangle_32s)(const Nox32s src[], Nox32s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                 Nox32s dstStride, Nox32s diagonal) {
  each_upper(rows, cols, diagonal, copy_row(src, dst, srcStride, dstStride));
}
void NOX_BODY(ZeroUpperTriangle_32s)(Nox32s m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal) {
  each_upper(rows, cols, diagonal, clear_row(m, stride));
}
void NOX_BODY(LowerTriangle_32s)(const Nox32s src[], Nox32s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                 Nox32s dstStride, Nox32s diagonal) {
  each_lower(rows, cols, diagonal, copy_row(src, dst, srcStride, dstStride));
}
void NOX_BODY(ZeroLowerTriangle_32s)(Nox32s m[], Nox32u rows, Nox32u cols, Nox32s stride, Nox32s diagonal) {
  each_lower(rows, cols, diagonal, clear_row(m, stride));
}
void NOX_BODY(RowExchange_32s)(Nox32s m[], Nox32u row1, Nox32u row2, Nox32u cols, Nox32s stride) {
  exchange_rows(element(m, row1, stride, 0), element(m, row2, stride, 0), cols);
}
void NOX_BODY(ColExchange_32s)(Nox32s m[], Nox32u col1, Nox32u col2, Nox32u rows, Nox32s stride) {
  exchange(m + col1, m + col2, rows, stride);
}
void NOX_BODY(CopySubMatrix_32s)(const Nox32s src[], Nox32s dst[], Nox32u srcRow, Nox32u srcCol, Nox32u dstRow,
                                 Nox32u dstCol, Nox32u rows, Nox32u cols, Nox32s srcStride, Nox32s dstStride) {
  copy_block(element(src, srcRow, srcStride, srcCol), element(dst, dstRow, dstStride, dstCol), rows, cols, srcStride,
             dstStride);
}
void NOX_BODY(ResizeMatrix_32s)(const Nox32s src[], Nox32s dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                Nox32s dstStride) {
  copy_block(src, dst, rows, cols, srcStride, dstStride);
}

void NOX_BODY(AdjungateMatrixc)(const Nox64fc src[], Nox64fc dst[], Nox32u rows, Nox32u cols, Nox32s srcStride,
                                Nox32s dstStride) {
  transpose(src, dst, rows, cols, srcStride, dstStride, Conjugate{});
}
void NOX_BODY(AdjungateSquareMatrixc)(Nox64fc m[], Nox32u n, Nox32s stride) {
  transpose_in_place(m, n, stride, Conjugate{});
  for (Nox32u r = 0; r < n; ++r) {
    Nox64fc* const diagonal = element(m, r, stride, r);
    conj(C64x1::load(diagonal)).store(diagonal);
  }
}

}  // extern "C"
