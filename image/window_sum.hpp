// The sum of a window of pixels times a kernel, for all outputs of a plane.
//
// A block is Count vectors of neighbouring outputs of a row. Every coefficient is put into all lanes once and meets the
// pixels of Count vectors; each output has two sums, of the even and of the odd taps of a row, so that Count = 3 fills
// the eight registers. The last block of a row ends at the row's end and shares outputs with the block before it, which
// come out the same; rows narrower than a vector run in single lanes.
#pragma once
#include "core/body.hpp"
#include "core/simd/f32.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Where the pixel of the first tap of the first output stands, and the outputs.
template <class E>
struct Window {
  const E* src;
  ptrdiff_t srcStep;
  E* dst;
  ptrdiff_t dstStep;
  int width, height;  // of the outputs
};

template <class E>
NOX_INLINE E* step_by(E* p, ptrdiff_t bytes) {
  return behind(p, static_cast<size_t>(bytes));
}

// Float taps: each stands four times, in the order in which the pixels are read; a row's odd sum joins at its end.
struct QuadTaps {
  using Lanes = f32;
  static constexpr bool kJoinsEachRow = true;
  const Nox32f* taps;
  int width, height;
  template <class V>
  static NOX_INLINE V get(const Nox32f* p) {
    return load_quad<V>(p);
  }
  static constexpr ptrdiff_t kStep = 4;
};

// Double taps as the caller holds them, walked from the last to the first; odd sums run through all rows.
struct BackwardTaps {
  using Lanes = f64;
  static constexpr bool kJoinsEachRow = false;
  const Nox64f* taps;  // the last one
  int width, height;
  template <class V>
  static NOX_INLINE V get(const Nox64f* p) {
    return V::all(*p);
  }
  static constexpr ptrdiff_t kStep = -1;
};

// Keeps running sums in registers and reads where it is written: the compiler would rather keep pixels that the next
// tap reads again, and the sums on the stack.
template <class V, int Count>
NOX_INLINE void keep_sums(V (&sum)[Count]) {
  if constexpr (Count == 3) asm volatile("" : "+x"(sum[0].v), "+x"(sum[1].v), "+x"(sum[2].v) : : "memory");
}

// Width is that of the kernel where it is known beforehand, or 0.
template <int Width, class V, int Count, class Taps, class E>
NOX_INLINE void window_block(const Taps& t, const E* row, ptrdiff_t srcStep, E* d) {
  V even[Count], odd[Count];
#pragma GCC unroll 3
  for (int k = 0; k < Count; ++k) even[k] = odd[k] = V::zero();
  const E* c = t.taps;
  const auto take = [&c](V(&sum)[Count], const E* s) NOX_INLINED {
    const V tap = Taps::template get<V>(c);
    c += Taps::kStep;
#pragma GCC unroll 3
    for (int k = 0; k < Count; ++k) sum[k] = madd(V::load(s + k * V::N), tap, sum[k]);
    keep_sums(sum);
  };
  for (int i = t.height; i > 0; --i, row = step_by(row, srcStep)) {
    const E* s = row;
    const auto pair = [&]() NOX_INLINED {
      take(even, s);
      take(odd, s + 1);
      s += 2;
    };
    if constexpr (Width > 0) {
#pragma GCC unroll 4
      for (int j = 0; j < Width / 2; ++j) pair();
      if (Width % 2 != 0) take(even, s);
    } else {
#pragma GCC unroll 1
      for (int j = t.width / 2; j > 0; --j) pair();
      if (t.width % 2 != 0) take(even, s);
    }
    if (Taps::kJoinsEachRow) {
#pragma GCC unroll 3
      for (int k = 0; k < Count; ++k) {
        even[k] = even[k] + odd[k];
        odd[k] = V::zero();
      }
    }
  }
#pragma GCC unroll 3
  for (int k = 0; k < Count; ++k) {
    if (!Taps::kJoinsEachRow) even[k] = even[k] + odd[k];
    even[k].store(d + k * V::N);
  }
}

// Asks for the lines of a block's pixels, which the next row needs. Planes of doubles that pass the cache are a quarter
// faster so; floats, of which a line holds twice as many, come in time without.
template <int Block, class E>
NOX_INLINE void ask_for(const E* p) {
  if constexpr (sizeof(E) == 8)
    for (size_t at = 0; at < Block * sizeof(E); at += 64) __builtin_prefetch(behind(p, at));
}

template <int Width, class V, int Count, class Taps, class E>
void window_rows(const Taps& t, const Window<E>& w) {
  constexpr int kBlock = V::N * Count;
  const E* s = w.src;
  E* d = w.dst;
  for (int y = w.height; y > 0; --y, s = step_by(s, w.srcStep), d = step_by(d, w.dstStep)) {
    const E* const next = y > 1 ? step_by(s, t.height * w.srcStep) : s;
    const E* const next_output = y > 1 ? step_by(d, w.dstStep) : d;
    int x = 0;
    for (; x <= w.width - kBlock; x += kBlock) {
      window_block<Width, V, Count>(t, s + x, w.srcStep, d + x);
      ask_for<kBlock>(next + x);
      ask_for<kBlock>(next_output + x);
    }
    if (x < w.width) window_block<Width, V, Count>(t, s + w.width - kBlock, w.srcStep, d + w.width - kBlock);
  }
}

template <class Taps, class E>
void window_sums(const Taps& t, const Window<E>& w) {
  using V = typename Taps::Lanes::vec;
  using One = typename Taps::Lanes::one;
  if (w.width >= 3 * V::N)
    t.width == 3   ? window_rows<3, V, 3>(t, w)
    : t.width == 5 ? window_rows<5, V, 3>(t, w)
    : t.width == 7 ? window_rows<7, V, 3>(t, w)
                   : window_rows<0, V, 3>(t, w);
  else if (w.width >= V::N)
    window_rows<0, V, 1>(t, w);
  else if (w.width > 0)
    window_rows<0, One, 1>(t, w);
}

}  // namespace NOX_VARIANT
}  // namespace nox
