// The direct form on one chunk: a transposed direct form II of any order.
//
// A long chunk is split into a numerator pass, which is a plain FIR, and a recursion that yields several outputs at a
// time by look-ahead. The first outputs, which use up the delay line, come from the same two kernels with zeros in
// front, and the delay line is made anew from the last samples and outputs with zeros behind them, in the meaning it
// has for the per-sample step. A short chunk goes through that step alone.
#pragma once
#include "filter/elements.hpp"
#include "filter/iir.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The recursion over `count` outputs at y, behind at least `order` earlier ones: the newest run of outputs is taken
// from a register, older ones from memory, where they have long arrived.
template <class K, int Runs, int Near, bool Far>
__attribute__((noinline)) void iir_recursion(typename K::elem* y, const typename K::elem* w, int count,
                                             const typename K::elem* rows, int order) {
  using E = typename K::elem;
  using One = typename K::one;
  using Run = typename RunOf<K>::type;
  using Sum = typename RunOf<K>::sum;
  const Recursion<K, Runs, Near> recursion(rows);
  E newest[Run::N] = {};
  for (int k = 0; k < Near; ++k) newest[Run::N - 1 - k] = y[-1 - k];
  Run last = Run::load(newest);

  // Runs at a time, by the first of the columns.
  const auto block = [&](auto runs) {
    constexpr int kRuns = decltype(runs)::value;
    Run in[kRuns];
    Sum sum[kRuns];
    for (int r = 0; r < kRuns; ++r) {
      in[r] = Run::load(w + r * Run::N);
      sum[r] = Sum::from(in[r]);
    }
    recursion.alone(sum, in);
    Sum older[kRuns];
    if constexpr (Far) recursion.older(older, y, order);
    const Run before = last;
    for (int r = 0; r < kRuns; ++r) {
      recursion.add_newest(sum[r], r, before);
      if constexpr (Far) sum[r].add(older[r]);
      last = sum[r].total();
      last.store(y + r * Run::N);
    }
    y += kRuns * Run::N;
    w += kRuns * Run::N;
    count -= kRuns * Run::N;
  };
  while (count >= Runs * Run::N) block(std::integral_constant<int, Runs>{});
  if constexpr (Runs > 1) {
    if (count >= Run::N) block(std::integral_constant<int, 1>{});
  }
  for (; count; --count, ++y, ++w) {
    One sum = One::load(w);
    for (int k = order - 1; k >= 0; --k)
      sum = sum + One::load(rows + static_cast<size_t>(k) * recursion.kRow) * One::load(y - 1 - k);
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
  const IirWindow<K> numerator, denominator;

  NOX_INLINE explicit IirDirect(const IirState& of)
      : state(of),
        order(of.order),
        b(static_cast<E*>(of.taps)),
        a(b + order + 1),
        d(static_cast<E*>(of.delay)),
        numerator{static_cast<E*>(of.numerator), order + 1},
        denominator{behind(numerator.taps, IirWindow<K>::kBytes * static_cast<size_t>(order + 1)), order} {}

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
      const One in = One::load(x + i), out = b0 * in + One::load(d);
      for (int k = 0; k < order; ++k) {
        const One fed = One::load(b + k + 1) * in + One::load(d + k + 1);
        (fed - One::load(a + k) * out).store(d + k);
      }
      out.store(y + i);
    }
  }

  void blocks(const E* x, E* y, int n) const {
    E* const work = static_cast<E*>(state.work);
    E* const kept = work + kIirChunk - order;  // the last samples, which the outputs may overwrite
    first_outputs(x);
    copy_elements(kept, x + n - order, order);
    numerator.sums(x, work, n - order);
    copy_elements(y, d, order);
    recursion(y + order, work, n - order);
    make_delays(kept, y + n - order);
  }

  // The outputs of the first samples, put in the place of the delay line they use up: all before counts as zeros.
  void first_outputs(const E* x) const {
    E* const padded = static_cast<E*>(state.work);
    E* const w = padded + 2 * order;
    clear_elements(padded, order);
    copy_elements(padded + order, x, order);
    numerator.sums(padded, w, order);
    map<K>(
        w, order, [](auto v, auto add) { return v + add; }, w, d);
    recursion(padded + order, w, order);
    copy_elements(d, padded + order, order);
  }

  // The delay line behind the last samples and outputs: what these contribute to outputs to come.
  void make_delays(const E* samples, const E* outputs) const {
    E* const padded = static_cast<E*>(state.work);
    E* const fed = padded + 2 * order;
    copy_elements(padded, samples, order);
    clear_elements(padded + order, order);
    numerator.sums(padded, d, order);
    copy_elements(padded, outputs, order);
    denominator.sums(padded, fed, order);
    map<K>(
        d, order, [](auto v, auto sub) { return v - sub; }, d, fed);
  }

  void recursion(E* y, const E* w, int count) const {
    if (iir_runs<K>(static_cast<Nox64u>(order)) == kIirRuns)
      recursion_by<kIirRuns>(y, w, count);
    else
      recursion_by<1>(y, w, count);
  }
  template <int Runs, int Near = 1>
  NOX_INLINE void recursion_by(E* y, const E* w, int count) const {
    const E* const rows = static_cast<const E*>(state.recursion);
    if (order == Near)
      iir_recursion<K, Runs, Near, false>(y, w, count, rows, order);
    else if constexpr (Near == RunOf<K>::type::N)
      iir_recursion<K, Runs, Near, true>(y, w, count, rows, order);
    else
      recursion_by<Runs, Near + 1>(y, w, count);
  }
};

}  // namespace NOX_VARIANT
}  // namespace nox
