// The direct form on one chunk: a transposed direct form II of any order.
//
// A long chunk is split into a numerator pass, which is a plain FIR, and a recursion that yields four or eight outputs
// at a time by look-ahead; around them the delay line is used up by the first outputs and made anew from the last
// samples and outputs, in the meaning it has for the per-sample step. A short chunk goes through that step alone.
#pragma once
#include "filter/iir.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The recursion over `count` outputs at y, behind at least `order` earlier ones: the newest four outputs are taken from
// a register, older ones from memory, where they have long arrived.
template <class K, int Quads, int Near>
__attribute__((noinline)) void iir_recursion(typename K::elem* y, const typename K::elem* w, size_t count, Nox64f* rows,
                                             int order) {
  using E = typename K::elem;
  using Q = typename QuadOf<K>::type;
  using One = typename K::one;
  constexpr size_t kStep = Quads * kRow<Q>;
  const LookAhead<K> table{rows, Quads};
  const Q t1 = Q::all(table.response(0)), t2 = Q::all(table.response(1)), t3 = Q::all(table.response(2));
  E newest[4] = {};
  for (int k = 0; k < Near; ++k) newest[3 - k] = y[-1 - k];
  Q last = Q::load(newest);
  const size_t older = static_cast<size_t>(order) * kStep;  // end of the rows

  // Quads of outputs at a time, by the first of the columns.
  const auto block = [&](auto quads) {
    constexpr int kQuads = decltype(quads)::value;
    Q sum[kQuads];
    sum[0] = add_moved(Q::load(w), t1, t2, t3);
    if constexpr (kQuads > 1) {
      // What the first four contribute to the next four, but for the outputs before both.
      const Q next = add_moved(Q::load(w + 4), t1, t2, t3);
      sum[1] = add_newest<Near>(rows, kStep, sum[0], next);
    }
    if constexpr (Near == 4) {
      const E* h = y - 5;
      for (size_t k = 4 * kStep; k < older; k += kStep, --h) {
        const Q past = Q::all(*h);
        for (int q = 0; q < kQuads; ++q) sum[q] = add_product(load_row<Q>(rows + k + q * kRow<Q>), past, sum[q]);
      }
    }
    for (int q = 0; q < kQuads; ++q) {
      sum[q] = add_newest<Near>(rows + q * kRow<Q>, kStep, last, sum[q]);
      sum[q].store(y + 4 * q);
    }
    last = sum[kQuads - 1];
    y += 4 * kQuads;
    w += 4 * kQuads;
    count -= 4 * kQuads;
  };
  while (count >= 4 * Quads) block(std::integral_constant<int, Quads>{});
  if constexpr (Quads > 1) {
    if (count >= 4) block(std::integral_constant<int, 1>{});
  }
  for (; count; --count, ++y, ++w) {
    One sum = One::load(w);
    for (int k = order - 1; k >= 0; --k) {
      const Nox64f* const r = rows + static_cast<size_t>(k) * kStep;
      if constexpr (sizeof(E) == sizeof(Nox64f))
        sum = add_product(One::load(r), One::load(y - 1 - k), sum);
      else
        sum = add_product(One::all({r[0], r[4]}), One::load(y - 1 - k), sum);
    }
    sum.store(y);
  }
}

template <class K>
struct IirDirect {
  using E = typename K::elem;
  using One = typename K::one;
  const IirState& state;
  const int order;
  const E* const b;  // b[0..order]
  const E* const a;  // a[0] is the tap of the newest output
  E* const d;

  NOX_INLINE explicit IirDirect(const IirState& of)
      : state(of), order(of.order), b(static_cast<E*>(of.taps)), a(b + order + 1), d(static_cast<E*>(of.delay)) {}

  // n samples, at most a chunk; y may be x.
  NOX_INLINE void filter(const E* x, E* y, int n) const {
    if (n > 4 * order)
      blocks(x, y, n);
    else
      steps(x, y, n);
  }

 private:
  void steps(const E* x, E* y, int n) const {
    const One b0 = One::load(b);
    for (int i = 0; i < n; ++i) {
      const One in = One::load(x + i), out = add_product(b0, in, One::load(d));
      for (int k = 0; k < order; ++k) {
        const One fed = add_product(One::load(b + k + 1), in, One::load(d + k + 1));
        sub_product(One::load(a + k), out, fed).store(d + k);
      }
      out.store(y + i);
    }
  }

  // d[i] = op(sum over j < order - i of taps[order - 1 - j] * s[i + j], d[i]).
  template <class Op>
  NOX_INLINE void tails(Op op, const E* taps, const E* s) const {
    for (int i = 0; i < order; ++i) {
      One sum = One::zero();
      for (int j = 0; j < order - i; ++j) sum = add_product(One::load(taps + order - 1 - j), One::load(s + i + j), sum);
      op(sum, One::load(d + i)).store(d + i);
    }
  }

  void blocks(const E* x, E* y, int n) const {
    E* const w = static_cast<E*>(state.work);
    const E* const reversed = static_cast<const E*>(state.numerator);
    const size_t outputs = static_cast<size_t>(n - order);
    fir_outputs<K>(x, w, outputs,
                   FirTaps<E>{reversed, reversed + order + 1, reinterpret_cast<const Nox64f*>(reversed + order + 1)});
    steps(x, y, order);
    tails([](One sum, One) { return sum; }, b + 1, x + n - order);
    recursion(y + order, w, outputs);
    tails([](One sum, One old) { return old - sum; }, a, y + n - order);
  }

  NOX_INLINE void recursion(E* y, const E* w, size_t count) const {
    if constexpr (kIirQuads < K >> 1) {
      if (order <= kIirSmallOrder) return recursion_by<kIirQuads<K>>(y, w, count);
    }
    recursion_by<1>(y, w, count);
  }
  template <int Quads>
  NOX_INLINE void recursion_by(E* y, const E* w, size_t count) const {
    Nox64f* const rows = state.recursion;
    switch (order) {
      case 1:
        return iir_recursion<K, Quads, 1>(y, w, count, rows, order);
      case 2:
        return iir_recursion<K, Quads, 2>(y, w, count, rows, order);
      case 3:
        return iir_recursion<K, Quads, 3>(y, w, count, rows, order);
      default:
        return iir_recursion<K, Quads, 4>(y, w, count, rows, order);
    }
  }
};

}  // namespace NOX_VARIANT
}  // namespace nox
