// Transforms larger than a cache: the array is reversed, transformed by rows, and the rows are joined by columns.
//
// A row that is still large is treated alike, with the tables of the next level. Columns go through work memory in
// blocks of neighbours: the first pass reads the rows, the last one writes them. All but the last results are split.
#pragma once
#include "transform/fft.hpp"
#include "transform/fft_complex_middle.hpp"
#include "transform/fft_complex_reversal.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The last stage with the halved table, whose entries serve two runs of butterflies: those of the k they are made for
// at src and, an eighth of the stage further, those at src + on. The same identities carry W^2k and W^k over:
// W^2(k + L/8) = -i * W^2k, W^(k + L/8) = exp(-i*pi/4) * W^k.
template <bool Inverse>
NOX_INLINE void halved_butterflies(const Nox64f* src, size_t from, size_t fromOn, Nox64f* dst, size_t to, size_t toOn,
                                   const Nox64f* twiddles, size_t count) {
  using V = f64::vec;
  for (size_t k = 0; k < count; k += V::N) {
    const auto twiddle = [&](int slot) { return load_twiddles<V, kHalvedGroup>(twiddles + slot); };
    {
      const Split<V> a = held(load_split<V>(src)),
                     b = turned<Inverse>(held(load_split<V>(src + from)), twiddle(0), twiddle(2));
      const Split<V> c = held(load_split<V>(src + 2 * from));
      const Split<V> d = turned<Inverse>(held(load_split<V>(src + 3 * from)), twiddle(0), twiddle(2));
      const Split<V> odd = turned<Inverse>(c + d, twiddle(4), twiddle(6));
      const Split<V> oddOn = turned<Inverse>(c - d, twiddle(4), twiddle(6));
      store_joined(dst, (a + b) + odd);
      store_joined(dst + 2 * to, (a + b) - odd);
      store_joined(dst + to, add_turned<Inverse>(a - b, oddOn));
      store_joined(dst + 3 * to, sub_turned<Inverse>(a - b, oddOn));
    }
    {
      const Nox64f* const on = src + fromOn;
      Nox64f* const out = dst + toOn;
      const Split<V> a = held(load_split<V>(on)),
                     b = turned<Inverse>(held(load_split<V>(on + from)), twiddle(0), twiddle(2));
      const Split<V> c = held(load_split<V>(on + 2 * from));
      const Split<V> d = turned<Inverse>(held(load_split<V>(on + 3 * from)), twiddle(0), twiddle(2));
      const Split<V> odd = eighth_turn<Inverse>(turned<Inverse>(add_turned<Inverse>(c, d), twiddle(4), twiddle(6)));
      const Split<V> oddOn = eighth_turn<Inverse>(turned<Inverse>(sub_turned<Inverse>(c, d), twiddle(4), twiddle(6)));
      const Split<V> even = add_turned<Inverse>(a, b), evenOn = sub_turned<Inverse>(a, b);
      store_joined(out, even + odd);
      store_joined(out + 2 * to, even - odd);
      store_joined(out + to, add_turned<Inverse>(evenOn, oddOn));
      store_joined(out + 3 * to, sub_turned<Inverse>(evenOn, oddOn));
    }
    src += 2 * V::N;
    dst += 2 * V::N;
    twiddles += V::N / 2 * kHalvedGroup;
  }
}

// Joins 2^s rows by passes of radix 4 over the columns. The outermost level has the halved table and joins what it
// writes.
template <bool Inverse, bool Outermost>
void columns(Nox64f* data, int order, const Nox64f* twiddles, Nox64f* work) {
  const int s = fft_variant.cut(order).s, t = fft_variant.cut(order).t;
  const size_t rows = size_t{1} << s, width = size_t{1} << (t - s);
  const size_t row = size_t{2} << (order - s), workRow = 2 * width;
  const size_t groups = width / 2 * kTwiddleGroup, last = rows / 4;
  for (Nox64f* block = data; block < data + row; block += workRow) {
    for (size_t r = 0; r < rows; r += 4)
      butterflies<Inverse, Form::Split>(block + r * row, row, work + r * workRow, workRow, twiddles, width);
    twiddles += groups;
    for (size_t span = 4; span < last; span *= 4)
      for (size_t q = 0; q < span; ++q, twiddles += groups)
        for (size_t r = q; r < rows; r += 4 * span) {
          Nox64f* const at = work + r * workRow;
          butterflies<Inverse, Form::Split>(at, span * workRow, at, span * workRow, twiddles, width);
        }
    if constexpr (Outermost) {
      for (size_t q = 0; q < last / 2; ++q, twiddles += width / 2 * kHalvedGroup)
        halved_butterflies<Inverse>(work + q * workRow, last * workRow, last / 2 * workRow, block + q * row, last * row,
                                    last / 2 * row, twiddles, width);
    } else {
      for (size_t q = 0; q < last; ++q, twiddles += groups)
        butterflies<Inverse, Form::Split>(work + q * workRow, last * workRow, block + q * row, last * row, twiddles,
                                          width);
    }
  }
}

// Rows and columns of reversed data. A scale of 0 stands for none; others are applied to the rows of the deepest level.
template <bool Inverse, bool Outermost>
void rows_and_columns(Nox64f* data, int order, const NoxFftSpec& spec, int level, Nox64f scale, Nox64f* work) {
  const int rowOrder = order - fft_variant.cut(order).s;
  for (Nox64f* row = data; row < data + (size_t{2} << order); row += size_t{2} << rowOrder) {
    if (rowOrder <= fft_variant.middleLast) {
      middle_row<Inverse>(row, rowOrder, spec.pTwiddle);
      if (scale != 0) scale_all(row, size_t{2} << rowOrder, scale);
    } else {
      rows_and_columns<Inverse, false>(row, rowOrder, spec, level + 1, scale, work);
    }
  }
  columns<Inverse, Outermost>(data, order, spec.pLevelTwiddle[level], work);
}

template <bool Inverse>
void large(const Nox64fc* src, Nox64fc* dst, const NoxFftSpec& spec, Nox64f scale, Nox64f* work) {
  reverse_all(src, dst, spec.order, spec.pBitRev, reinterpret_cast<Nox64fc*>(work));
  rows_and_columns<Inverse, true>(&dst->re, spec.order, spec, 0, scale, work);
}

}  // namespace NOX_VARIANT
}  // namespace nox
