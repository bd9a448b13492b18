// Direct sums of one array sliding along another: c[m] = sum over u of h[u] * s[m - u], at any stretch of m from 0 to
// len + tapsLen - 2, h being the taps and the shorter array, both zero outside their lengths.
//
// Lanes are neighbouring outputs, as in the FIR filter: one tap in all lanes meets one unaligned load of samples, and
// several vectors of outputs run at a time. At the ends of s a block's outputs overlap it by different numbers of
// samples. The terms that all of them have run as elsewhere; of the others, whole vectors take those that they have
// complete, and the one vector on the edge takes masked products, so that no output sees a value that isn't in its sum,
// be it infinite or not a number. Every output adds its terms by rising u to a sum of zero.
#pragma once
#include "filter/fir_kernels.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class E>
struct Sliding {
  const E* taps;   // h[0]
  ptrdiff_t step;  // from a tap to the next: 1, or -1 for a correlation
  ptrdiff_t tapsLen;
  const E* s;
  ptrdiff_t len;  // at least tapsLen
};

// The ends of s as the vectors on the edge see them, with zeros outside, and masks of what is inside. A load one
// element further down `front`, or up `back`, has one lane less of s.
template <class V>
struct SlidingEdges {
  using E = typename V::elem;
  static constexpr ptrdiff_t N = V::N;
  static constexpr size_t kParts = sizeof(E) / sizeof(Nox64f);
  E front[2 * N];                 // N zeros, s[0] and so on
  E back[2 * N];                  // the last N samples, N zeros
  Nox64u inside[3 * N * kParts];  // N clear elements, N set, N clear

  NOX_INLINE explicit SlidingEdges(const Sliding<E>& x) {
    for (ptrdiff_t i = 0; i < N; ++i) {
      front[i] = back[N + i] = E{};
      front[N + i] = i < x.len ? x.s[i] : E{};
      back[i] = x.len - N + i >= 0 ? x.s[x.len - N + i] : E{};
    }
    for (size_t i = 0; i < 3 * N * kParts; ++i) inside[i] = i / (N * kParts) == 1 ? ~Nox64u{0} : 0;
  }
  NOX_INLINE const Nox64f* mask(ptrdiff_t at) const {
    return reinterpret_cast<const Nox64f*>(inside) + at * static_cast<ptrdiff_t>(kParts);
  }
};

// Sums of Count vectors of outputs, in registers.
template <class V, size_t Count, class E = typename V::elem>
struct SlidingSums {
  V sum[Count];

  NOX_INLINE void clear() {
    for (V& a : sum) a = V::zero();
  }
  template <size_t First, size_t... I>
  NOX_INLINE void add(std::index_sequence<I...>, const E* tap, const E* s) {
    const V h = V::all(*tap);
    ((sum[First + I] = madd(h, V::load(s + (First + I) * V::N), sum[First + I])), ...);
  }
  template <size_t At>
  NOX_INLINE void add_inside(const E* tap, const E* values, const Nox64f* mask) {
    sum[At] = sum[At] + ((V::all(*tap) * V::load(values)) & V::load(mask));
  }
  template <size_t... I>
  NOX_INLINE void store(std::index_sequence<I...>, E* d) const {
    (sum[I].store(d + I * V::N), ...);
  }
};

// The same for complex elements, with the conjugates of the taps: products with real and imaginary parts of the taps
// are summed apart and joined at the end.
template <class C, size_t Count>
struct SlidingSums<C, Count, Nox64fc> {
  using V = parts_of<C>;
  V by_re[Count], by_im[Count];

  NOX_INLINE void clear() {
    for (V& a : by_re) a = V::zero();
    for (V& a : by_im) a = V::zero();
  }
  template <size_t First, size_t... I>
  NOX_INLINE void add(std::index_sequence<I...>, const Nox64fc* tap, const Nox64fc* s) {
    const V re = V::all(tap->re);
    ((by_re[First + I] = madd(re, parts(C::load(s + (First + I) * C::N)), by_re[First + I])), ...);
    s = read_anew(s);
    const V im = V::all(tap->im);
    ((by_im[First + I] = madd(im, parts(C::load(s + (First + I) * C::N)), by_im[First + I])), ...);
  }
  template <size_t At>
  NOX_INLINE void add_inside(const Nox64fc* tap, const Nox64fc* values, const Nox64f* mask) {
    const V x = parts(C::load(values)), m = V::load(mask);
    by_re[At] = by_re[At] + ((V::all(tap->re) * x) & m);
    by_im[At] = by_im[At] + ((V::all(tap->im) * x) & m);
  }
  template <size_t... I>
  NOX_INLINE void store(std::index_sequence<I...>, Nox64fc* d) const {
    (sub_add(complex<C>(by_re[I]), complex<C>(negate(parts(swap_parts(complex<C>(by_im[I])))))).store(d + I * C::N),
     ...);
  }
};

// Count vectors of outputs from m on. At most one end of s cuts into their sums: the front, if m is below
// tapsLen - 1, or the back, if the outputs pass len.
template <class V, size_t Count, class E = typename V::elem>
struct SlidingBlock {
  static constexpr ptrdiff_t N = V::N, B = N * static_cast<ptrdiff_t>(Count);
  const Sliding<E>& x;
  const SlidingEdges<V>& edges;
  const ptrdiff_t m;
  SlidingSums<V, Count> sums;

  // Terms before those that all outputs have, which begin at `common`: the vector G from the last one is on the edge.
  template <size_t G>
  NOX_INLINE void leave(ptrdiff_t common) {
    const ptrdiff_t end = common - static_cast<ptrdiff_t>(G) * N;
    for (ptrdiff_t u = end - N > 0 ? end - N : 0; u < end; ++u) {
      const E* const tap = x.taps + u * x.step;
      if constexpr (G + 1 < Count)
        sums.template add<0>(std::make_index_sequence<Count - 1 - G>{}, tap, read_anew(x.s + (m - u)));
      if constexpr (N > 1)
        sums.template add_inside<Count - 1 - G>(tap, edges.back + (end - u), edges.mask(N + end - u));
    }
    if constexpr (G > 0) leave<G - 1>(common);
  }
  // Terms behind those that all outputs have: the vector G is on the edge.
  template <size_t G>
  NOX_INLINE void enter() {
    const ptrdiff_t begin = m + static_cast<ptrdiff_t>(G) * N;
    for (ptrdiff_t u = begin + 1; u <= begin + N && u < x.tapsLen; ++u) {
      const E* const tap = x.taps + u * x.step;
      if constexpr (G + 1 < Count)
        sums.template add<G + 1>(std::make_index_sequence<Count - 1 - G>{}, tap, read_anew(x.s + (m - u)));
      if constexpr (N > 1) sums.template add_inside<G>(tap, edges.front + (N + begin - u), edges.mask(N + begin - u));
    }
    if constexpr (G + 1 < Count) enter<G + 1>();
  }

  NOX_INLINE void run(E* d) {
    sums.clear();
    const ptrdiff_t past = m + B - x.len, from = past > 0 ? past : 0, last = m < x.tapsLen ? m : x.tapsLen - 1;
    if (past > 0) leave<Count - 1>(past);
    const E* tap = x.taps + from * x.step;
    const E* s = x.s + (m - from);
    const ptrdiff_t step = x.step;
    for (ptrdiff_t left = last - from + 1; left > 0; --left) {
      sums.template add<0>(std::make_index_sequence<Count>{}, tap, s);
      tap += step;
      s = read_anew(s - 1);
    }
    if (m + 1 < x.tapsLen) enter<0>();
    sums.store(std::make_index_sequence<Count>{}, d);
  }
};

template <class V, size_t Count, class E = typename V::elem>
__attribute__((noinline)) void sliding_block(const Sliding<E>& x, const SlidingEdges<V>& edges, ptrdiff_t m, E* d) {
  SlidingBlock<V, Count>{x, edges, m, {}}.run(d);
}

// The block of so many vectors, count at most Count.
template <class V, size_t Count, class E>
NOX_INLINE void sliding_count(size_t count, const Sliding<E>& x, const SlidingEdges<V>& edges, ptrdiff_t m, E* d) {
  if (count == Count) return sliding_block<V, Count>(x, edges, m, d);
  if constexpr (Count > 1) sliding_count<V, Count - 1>(count, x, edges, m, d);
}

// d[i] = c[first + i], i below n, n at least 1; d overlaps neither array.
template <class K, class E = typename K::elem>
NOX_INLINE void sliding_outputs(const Sliding<E>& x, ptrdiff_t first, ptrdiff_t n, E* d) {
  using V = typename K::vec;
  const SlidingEdges<V> edges(x);
  const SlidingEdges<typename K::one> single(x);
  for (ptrdiff_t m = first, end = first + n; m < end;) {
    // Outputs that still enter s end where others begin to leave it.
    const ptrdiff_t to = m + 1 < x.tapsLen && end > x.len ? x.len : end, room = to - m;
    const size_t vectors = static_cast<size_t>(room) / V::N;
    size_t done;
    if (vectors > 0) {
      const size_t count = vectors < kFirVectors<K> ? vectors : kFirVectors<K>;
      sliding_count<V, kFirVectors<K>>(count, x, edges, m, d);
      done = count * V::N;
    } else {
      done = static_cast<size_t>(room);
      if constexpr (V::N > 1) sliding_count<typename K::one, V::N - 1>(done, x, single, m, d);
    }
    m += static_cast<ptrdiff_t>(done);
    d += done;
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
