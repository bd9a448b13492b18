// The large orders of the plan: the array as N1 rows of N2 columns, columns first, rows second.
//
// Four columns, or four rows, are transformed at a time: a line of four complex values is 64 bytes, a block of N1 or
// N2 lines stays in the cache, and every twiddle factor inside a block holds for a whole line. Columns are read from
// the source four apart in whole lines in the order that makes the results come out in natural order, transformed
// where they will wait in the work memory, and multiplied by exp(-2 pi i column k1 / N). Then four rows k1 at a time
// are gathered from these blocks, transformed, and written as lines into the destination, at k1 + N1 k2: the array
// passes through the memory twice.
//
// The rows are gathered into the place of the last block of columns. Its results wait in the destination meanwhile,
// at places that no four rows but their own write to.
#pragma once
#include "transform/fft_butterfly.hpp"

namespace nox {
inline namespace NOX_VARIANT {

constexpr size_t kLine = 4;  // complex values

// How transforms of 2^order lines go: the first pass of four or eight, its lines in the order of `places`, then
// passes of four.
struct LineChain {
  int order;
  const Nox32u* places;    // first line of each butterfly of the first pass; its own inverse
  const Nox64f* twiddles;  // six doubles for each line of a sub-transform, pass after pass
};
constexpr int first_pass_order(int order) { return 2 + order % 2; }

template <bool Inverse>
NOX_INLINE C64x2 times_one(C64x2 x, const Nox64f* w) {
  return times<Inverse>(x, {_mm256_broadcast_sd(w)}, {_mm256_broadcast_sd(w + 1)});
}

// Four lines, `step` lines apart, with twiddle factors w; `write(j, half, value)` takes the results.
template <bool Inverse, class Write>
NOX_INLINE void join_lines(const Nox64fc* x, size_t step, const Nox64f* w, Write write) {
  const auto join = [=](size_t half) NOX_INLINED {
    four<Inverse>(
        [=](int j) NOX_INLINED {
          const C64x2 v = fetch(x + static_cast<size_t>(j) * step * kLine + half);
          return j == 0 ? v : times_one<Inverse>(v, w + 2 * (j - 1));
        },
        [=](int j, C64x2 y) NOX_INLINED { write(static_cast<size_t>(j), half, y); });
  };
  join(0);
  join(2);
}

// All sub-transforms of l lines among n, in place.
template <bool Inverse>
NOX_PASS void line_pass(Nox64fc* lines, size_t n, size_t l, const Nox64f* twiddles) {
  const Nox64fc* const end = lines + n * kLine;
  do {
    const Nox64f* w = twiddles;
    const Nox64fc* const part = lines + l * kLine;
    do {
      Nox64fc* const x = lines;
      join_lines<Inverse>(x, l, w,
                          [=](size_t j, size_t half, C64x2 y) NOX_INLINED { y.store(x + j * l * kLine + half); });
      w += 6, lines += kLine;
    } while (lines != part);
    lines += 3 * l * kLine;
  } while (lines != end);
}

// The passes of sub-transforms from l up to, but not, `end` lines among n; leaves l and the twiddle factors there.
template <bool Inverse>
NOX_INLINE void line_passes(Nox64fc* lines, size_t n, size_t& l, size_t end, const Nox64f*& w) {
  for (; l < end; w += 6 * l, l *= 4) line_pass<Inverse>(lines, n, l, w);
}

// One butterfly of the first pass: `read(j, half)` gives the value j steps on.
template <bool Inverse, int Radix, class Read>
NOX_INLINE void first_lines(Nox64fc* y, Read read) {
  const auto join = [&](size_t half) NOX_INLINED {
    const auto take = [&](int j) NOX_INLINED { return read(static_cast<size_t>(j), half); };
    const auto give = [&](int j, C64x2 v) NOX_INLINED { v.store(y + static_cast<size_t>(j) * kLine + half); };
    if constexpr (Radix == 2)
      four<Inverse>(take, give);
    else
      eight<Inverse>(take, give);
  };
  join(0);
  join(2);
}

// The longest sub-transforms, in lines, that are finished before the next is begun: they stay in the first cache.
template <int Radix>
constexpr size_t kNearLines = Radix == 2 ? 256 : 128;
template <int Radix>
NOX_INLINE size_t near_lines(size_t n) {
  return n / 4 < kNearLines<Radix> ? n / 4 : kNearLines<Radix>;
}

struct LargePlan {
  LineChain columns, rows;
  const Nox64f* turns;  // exp(-2 pi i column k1 / N), in the order of the blocks of columns
};

template <bool Inverse, int Radix>
NOX_INLINE void columns_of_large(const LargePlan& p, const Nox64fc* src, Nox64fc* work, Nox64f scale) {
  const size_t n1 = size_t{1} << p.columns.order, n2 = size_t{1} << p.rows.order;
  const C64x2 factor = {_mm256_set1_pd(scale)};
  const size_t near = near_lines<Radix>(n1);
  const Nox64f* turn = p.turns;
  for (size_t b = 0; b < n2 / kLine; ++b, src += kLine) {
    Nox64fc* const block = work + b * n1 * kLine;
    const Nox32u* place = p.columns.places;
    const size_t step = n1 >> Radix;
    const Nox64f* w = p.columns.twiddles;
    size_t l = size_t{1} << Radix;
    for (Nox64fc* part = block; part != block + n1 * kLine; part += near * kLine) {
      for (Nox64fc* y = part; y != part + near * kLine; y += kLine << Radix, ++place) {
        const Nox64fc* const x = src + *place * n2;
        first_lines<Inverse, Radix>(y, [&](size_t j, size_t half) NOX_INLINED {
          return C64x2{_mm256_mul_pd(C64x2::load(x + j * step * n2 + half).v, factor.v)};
        });
      }
      l = size_t{1} << Radix;
      w = p.columns.twiddles;
      line_passes<Inverse>(part, near, l, near, w);
    }
    line_passes<Inverse>(block, n1, l, n1 / 4, w);
    // The last pass, with the turns.
    Nox64fc* x = block;
    for (size_t k = 0; k < l; ++k, w += 6, x += kLine, turn += 2 * kLine)
      join_lines<Inverse>(x, l, w, [=](size_t j, size_t half, C64x2 y) NOX_INLINED {
        const C64x2 t = {_mm256_loadu_pd(turn + 2 * (j * l * kLine + half))};
        times<Inverse>(y, re_twice(t), im_twice(t)).store(x + j * l * kLine + half);
      });
    turn += 6 * l * kLine;
  }
}

template <bool Inverse, int Radix>
NOX_INLINE void rows_of_large(const LargePlan& p, Nox64fc* dst, Nox64fc* work) {
  const size_t n1 = size_t{1} << p.columns.order, n2 = size_t{1} << p.rows.order;
  const size_t blocks = n2 / kLine, step = blocks >> Radix;
  Nox64fc* const lines = work + (blocks - 1) * n1 * kLine;
  for (size_t g = 0; g < n1; g += kLine) {
    const Nox64fc* const rows = work + g * kLine;
    for (size_t b = 0; b < step; ++b) {
      for (size_t c = 0; c < kLine; ++c) {
        Nox64fc* const y = lines + (p.rows.places[b * kLine + c] * kLine << Radix);
        first_lines<Inverse, Radix>(y, [&](size_t j, size_t half) NOX_INLINED {
          const size_t at = b + j * step;
          const bool last = at == blocks - 1;
          const Nox64fc* const x = last ? dst + g : rows + at * n1 * kLine;
          const size_t next = last ? n1 : kLine;
          const Nox64fc* const u = x + half * next + c;
          return C64x2{
              _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(&u->re)), _mm_loadu_pd(&u[next].re), 1)};
        });
      }
    }
    const Nox64f* w = p.rows.twiddles;
    size_t l = size_t{1} << Radix;
    const size_t near = near_lines<Radix>(n2);
    for (Nox64fc* part = lines; part != lines + n2 * kLine; part += near * kLine) {
      l = size_t{1} << Radix;
      w = p.rows.twiddles;
      line_passes<Inverse>(part, near, l, near, w);
    }
    line_passes<Inverse>(lines, n2, l, n2 / 4, w);
    const Nox64fc* x = lines;
    Nox64fc* y = dst + g;
    for (size_t k = 0; k < l; ++k, w += 6, x += kLine, y += n1)
      join_lines<Inverse>(x, l, w, [=](size_t j, size_t half, C64x2 v) NOX_INLINED { v.store(y + j * l * n1 + half); });
  }
}

template <bool Inverse>
inline void run_large(const LargePlan& p, const Nox64fc* src, Nox64fc* dst, Nox64fc* work, Nox64f scale) {
  const size_t n1 = size_t{1} << p.columns.order, n2 = size_t{1} << p.rows.order;
  p.columns.order % 2 ? columns_of_large<Inverse, 3>(p, src, work, scale)
                      : columns_of_large<Inverse, 2>(p, src, work, scale);
  const Nox64fc* const last = work + (n2 - kLine) * n1;
  for (size_t k = 0; k < n1; ++k) {
    Nox64fc* const line = dst + k % kLine * n1 + (k - k % kLine);
    C64x2::load(last + k * kLine).store(line);
    C64x2::load(last + k * kLine + 2).store(line + 2);
  }
  p.rows.order % 2 ? rows_of_large<Inverse, 3>(p, dst, work) : rows_of_large<Inverse, 2>(p, dst, work);
}

}  // namespace NOX_VARIANT
}  // namespace nox
