// The large orders of the plan: the array as N1 rows of N2 columns, columns first, rows second.
//
// Eight columns, or eight rows, are transformed at a time: a line of eight complex values fills two cache lines, a
// block of N1 or N2 lines stays in the second cache and parts of it in the first, and every twiddle factor inside a
// block holds for a whole line. Columns are read from the source in the order that makes their results come out in
// natural order, transformed where they will wait in the work memory, and multiplied by exp(-2 pi i column k1 / N).
// Then eight rows k1 at a time are gathered from these blocks, transformed, and written as lines into the destination,
// at k1 + N1 k2: the array passes through the memory twice.
//
// The rows are gathered into the place of the last block of columns. Its results wait in the destination meanwhile,
// at places that no eight rows but their own write to.
#pragma once
#include "transform/fft_butterfly.hpp"

namespace nox {
inline namespace NOX_VARIANT {

constexpr size_t kLine = 8;  // complex values

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
  const C64x2 cross = in_register({_mm256_mul_pd(_mm256_broadcast_sd(w + 1), swap_parts(x).v)});
  const __m256d re = _mm256_broadcast_sd(w);
  return in_register({Inverse ? _mm256_fmsubadd_pd(x.v, re, cross.v) : _mm256_fmaddsub_pd(x.v, re, cross.v)});
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
  join(4);
  join(6);
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
  join(4);
  join(6);
}

// The longest sub-transforms, in lines, that are finished before the next is begun: they stay in the first cache.
template <int Radix>
constexpr size_t kNearLines = Radix == 2 ? 64 : 128;
template <int Radix>
NOX_INLINE size_t near_lines(size_t n) {
  return n / 4 < kNearLines<Radix> ? n / 4 : kNearLines<Radix>;
}

struct LargePlan {
  LineChain columns, rows;
  // exp(-2 pi i column k1 / N), in the order of use: those of the first eight columns, and those that turn them into
  // any other eight. A table of all would be as long as the array, and reading it cost more than a second product.
  const Nox64fc *near_turns, *far_turns;
};

// Lines that lie far apart are asked for ahead of their use, so many butterflies or lines: no processor guesses them.
// They go to the second cache, for lines a power of two apart would push each other out of the first.
constexpr size_t kAhead = 8;
NOX_INLINE void ask_for(const Nox64fc* line) {
  for (size_t i = 0; i < kLine; i += 4) _mm_prefetch(reinterpret_cast<const char*>(line + i), _MM_HINT_T1);
}

// The first pass over columns, for `count` butterflies of lines at y from place number `first` on.
template <bool Inverse, int Radix>
NOX_PASS void gather_columns(const LargePlan& p, const Nox64fc* src, Nox64fc* y, size_t first, size_t count,
                             Nox64f scale) {
  const C64x2 factor = {_mm256_set1_pd(scale)};
  const size_t n2 = size_t{1} << p.rows.order, step = n2 << (p.columns.order - Radix);
  const Nox32u* place = p.columns.places + first;
  for (const Nox32u* const end = place + count; place != end; ++place, y += kLine << Radix) {
    const Nox64fc* const x = src + *place * n2;
    const Nox64fc* const next = src + place[kAhead] * n2;
    for (size_t j = 0; j < size_t{1} << Radix; ++j) ask_for(next + j * step);
    first_lines<Inverse, Radix>(y, [&](size_t j, size_t half) NOX_INLINED {
      return C64x2{_mm256_mul_pd(factor.v, C64x2::load(x + j * step + half).v)};
    });
  }
}

// The last pass over columns, whose results are multiplied by their turns. These stand in the order of use: for the
// lines k, k + l, k + 2l, k + 3l of one butterfly the near ones of the first two columns of each, then of the next two;
// the far ones a value a line.
template <bool Inverse>
NOX_PASS void turn_columns(Nox64fc* x, size_t l, const Nox64f* w, const Nox64fc* near, const Nox64fc* far) {
  for (const Nox64fc* const end = x + l * kLine; x != end; w += 6, x += kLine, near += 4 * kLine, far += 4)
    join_lines<Inverse>(x, l, w, [=](size_t j, size_t half, C64x2 y) NOX_INLINED {
      const C64x2 t = fetch(near + 4 * half + 2 * j);
      const C64x2 turned = times<Inverse>(y, re_twice(t), im_twice(t));
      times_one<Inverse>(turned, &far[j].re).store(x + j * l * kLine + half);
    });
}

template <bool Inverse, int Radix>
NOX_PASS void columns_of_large(const LargePlan& p, const Nox64fc* src, Nox64fc* work, Nox64f scale) {
  const size_t n1 = size_t{1} << p.columns.order, n2 = size_t{1} << p.rows.order;
  const size_t near = near_lines<Radix>(n1);
  const Nox64fc* far = p.far_turns;
  for (size_t b = 0; b < n2; b += kLine, src += kLine, work += n1 * kLine, far += n1) {
    const Nox64f* w = p.columns.twiddles;
    size_t l = 0;
    for (size_t part = 0; part < n1; part += near) {
      gather_columns<Inverse, Radix>(p, src, work + part * kLine, part >> Radix, near >> Radix, scale);
      l = size_t{1} << Radix;
      w = p.columns.twiddles;
      line_passes<Inverse>(work + part * kLine, near, l, near, w);
    }
    line_passes<Inverse>(work, n1, l, n1 / 4, w);
    turn_columns<Inverse>(work, l, w, p.near_turns, far);
  }
}

// The first pass over eight rows: from the blocks of columns at `rows`, but for the last block from `rest`.
template <bool Inverse, int Radix>
NOX_PASS void gather_rows(const LargePlan& p, const Nox64fc* rows, const Nox64fc* rest, Nox64fc* lines) {
  const size_t n1 = size_t{1} << p.columns.order, block = n1 * kLine;
  const size_t count = size_t{1} << (p.rows.order - 3 - Radix), step = block * count;
  const Nox32u* place = p.rows.places;
  for (size_t b = 0; b < count; ++b, rows += block) {
    constexpr size_t kLast = (size_t{1} << Radix) - 1;
    const bool ends = b == count - 1;
    const Nox64fc* const end = ends ? rest : rows + kLast * step;
    const size_t end_next = ends ? n1 : kLine;
    for (size_t c = 0; c < kLine; ++c, ++place) {
      for (size_t j = 0; j <= kLast; ++j) ask_for(rows + 2 * block + j * step + c * kLine);
      first_lines<Inverse, Radix>(lines + (*place * kLine << Radix), [&](size_t j, size_t half) NOX_INLINED {
        const size_t next = j == kLast ? end_next : kLine;
        const Nox64fc* const x = (j == kLast ? end : rows + j * step) + half * next + c;
        return C64x2{_mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(&x->re)), _mm_loadu_pd(&x[next].re), 1)};
      });
    }
  }
}

// The last pass over eight rows, into the destination.
template <bool Inverse>
NOX_PASS void scatter_rows(const Nox64fc* x, Nox64fc* y, size_t l, size_t n1, const Nox64f* w) {
  const size_t step = l * n1;
  for (const Nox64fc* const end = x + l * kLine; x != end; w += 6, x += kLine, y += n1) {
    for (size_t j = 0; j < 4; ++j) ask_for(y + kAhead * n1 + j * step);
    join_lines<Inverse>(x, l, w, [=](size_t j, size_t half, C64x2 v) NOX_INLINED { v.store(y + j * step + half); });
  }
}

template <bool Inverse, int Radix>
NOX_PASS void rows_of_large(const LargePlan& p, Nox64fc* dst, Nox64fc* work) {
  const size_t n1 = size_t{1} << p.columns.order, n2 = size_t{1} << p.rows.order;
  Nox64fc* const lines = work + (n2 - kLine) * n1;
  const size_t near = near_lines<Radix>(n2);
  for (size_t g = 0; g < n1; g += kLine) {
    gather_rows<Inverse, Radix>(p, work + g * kLine, dst + g, lines);
    const Nox64f* w = p.rows.twiddles;
    size_t l = 0;
    for (size_t part = 0; part < n2; part += near) {
      l = size_t{1} << Radix;
      w = p.rows.twiddles;
      line_passes<Inverse>(lines + part * kLine, near, l, near, w);
    }
    line_passes<Inverse>(lines, n2, l, n2 / 4, w);
    scatter_rows<Inverse>(lines, dst + g, l, n1, w);
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
    for (size_t i = 0; i < kLine; i += 2) C64x2::load(last + k * kLine + i).store(line + i);
  }
  p.rows.order % 2 ? rows_of_large<Inverse, 3>(p, dst, work) : rows_of_large<Inverse, 2>(p, dst, work);
}

}  // namespace NOX_VARIANT
}  // namespace nox
