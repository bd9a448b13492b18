// The cascade of second-order sections on one chunk.
//
// A long chunk runs section by section, each a numerator of three taps and a look-ahead recursion in one pass; the
// samples and outputs before the current ones stay in registers, so that a section works in place. A short chunk runs
// sample by sample through all sections, by the transposed direct form II.
#pragma once
#include "filter/iir.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class K>
struct IirCascade {
  using E = typename K::elem;
  using One = typename K::one;
  using Run = typename RunOf<K>::type;
  using Factor = typename RunOf<K>::factor;
  using Sum = typename RunOf<K>::sum;
  using Outputs = Recursion<K, kIirRuns, 2>;
  const IirState& state;
  const int sections;

  NOX_INLINE explicit IirCascade(const IirState& of) : state(of), sections(of.sections) {}

  // n samples, at most a chunk; y may be x.
  NOX_INLINE void filter(const E* x, E* y, int n) const {
    if (n <= 4 * sections) return steps(x, y, n);
    const int whole = n / Run::N * Run::N;
    for (int s = 0; s < sections; ++s) section(s, s ? y : x, y, static_cast<size_t>(whole));
    steps(x + whole, y + whole, n - whole);
  }

 private:
  NOX_INLINE const E* row(int s) const { return static_cast<const E*>(state.sample) + 6 * static_cast<size_t>(s); }
  NOX_INLINE E* delay(int s) const { return static_cast<E*>(state.delay) + 2 * static_cast<size_t>(s); }

  void steps(const E* x, E* y, int n) const {
    for (int i = 0; i < n; ++i) {
      One v = One::load(x + i);
      for (int s = 0; s < sections; ++s) {
        const E* const t = row(s);
        E* const d = delay(s);
        const One in = v;
        v = One::load(t) * in + One::load(d);
        (One::load(t + 2) * in + (One::load(t + 4) * v + One::load(d + 1))).store(d);
        (One::load(t + 3) * in + One::load(t + 5) * v).store(d + 1);
      }
      v.store(y + i);
    }
  }

  // n samples, whole runs, through section s.
  __attribute__((noinline)) void section(int s, const E* x, E* y, size_t n) const {
    const E* const t = row(s);
    E* const d = delay(s);
    const Outputs recursion(static_cast<const E*>(state.recursion) + 2 * Outputs::kRow * static_cast<size_t>(s));
    const Factor b0 = Factor::all(t[0]), b1 = Factor::all(t[2]), b2 = Factor::all(t[3]);
    Run in = Run::zero(), last = Run::zero();
    // Outputs of some runs; `numerator` begins the sums for the samples of one.
    const auto block = [&](auto runs, auto numerator) {
      constexpr int kRuns = decltype(runs)::value;
      Run w[kRuns];
      Sum sum[kRuns];
      for (int r = 0; r < kRuns; ++r) {
        const Run next = Run::load(x + r * Run::N);
        sum[r] = numerator(next);
        sum[r].add(b1, one_back(in, next));
        sum[r].add(b2, two_back(in, next));
        in = next;
        w[r] = sum[r].total();
        sum[r] = Sum::from(w[r]);
      }
      recursion.alone(sum, w);
      const Run before = last;
      for (int r = 0; r < kRuns; ++r) {
        recursion.add_newest(sum[r], r, before);
        last = sum[r].total();
        last.store(y + r * Run::N);
      }
      x += kRuns * Run::N;
      y += kRuns * Run::N;
      n -= kRuns * Run::N;
    };
    const std::integral_constant<int, 1> single;
    // The past is what the delay line adds to the first two outputs, so the samples and outputs before count as zeros.
    block(single, [&](Run next) {
      Sum sum = Sum::from(Run::two(d));
      sum.add(b0, next);
      return sum;
    });
    const auto plain = [&](Run next) { return Sum::of(b0, next); };
    while (n >= kIirRuns * Run::N) block(std::integral_constant<int, kIirRuns>{}, plain);
    if (kIirRuns > 1 && n) block(single, plain);
    E xs[Run::N], ys[Run::N];
    in.store(xs);
    last.store(ys);
    const One x1 = One::load(xs + Run::N - 1), x2 = One::load(xs + Run::N - 2);
    const One y1 = One::load(ys + Run::N - 1), y2 = One::load(ys + Run::N - 2);
    const One c1 = One::load(t + 2), c2 = One::load(t + 3), r0 = One::load(t + 4), r1 = One::load(t + 5);
    ((c2 * x2 + c1 * x1) + (r1 * y2 + r0 * y1)).store(d);
    (c2 * x1 + r1 * y1).store(d + 1);
  }
};

}  // namespace NOX_VARIANT
}  // namespace nox
