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
  using Q = typename QuadOf<K>::type;
  static constexpr int kQuads = kIirQuads<K>;
  static constexpr size_t kStep = kQuads * kRow<Q>;
  const IirState& state;
  const int sections;

  NOX_INLINE explicit IirCascade(const IirState& of) : state(of), sections(of.sections) {}

  // n samples, at most a chunk; y may be x.
  NOX_INLINE void filter(const E* x, E* y, int n) const {
    if (n <= 4 * sections) return steps(x, y, n);
    const int whole = n & ~3;
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
        v = add_product(One::load(t), in, One::load(d));
        add_product(One::load(t + 2), in, add_product(One::load(t + 4), v, One::load(d + 1))).store(d);
        add_product(One::load(t + 3), in, One::load(t + 5) * v).store(d + 1);
      }
      v.store(y + i);
    }
  }

  // n samples, a multiple of four, through section s.
  __attribute__((noinline)) void section(int s, const E* x, E* y, size_t n) const {
    const E* const t = row(s);
    E* const d = delay(s);
    Nox64f* const rows = state.recursion + 2 * kStep * static_cast<size_t>(s);
    const LookAhead<K> table{rows, kQuads};
    const Q b0 = Q::all(t[0]), b1 = Q::all(t[2]), b2 = Q::all(t[3]);
    const Q t1 = Q::all(table.response(0)), t2 = Q::all(table.response(1)), t3 = Q::all(table.response(2));
    // The past is what the delay line adds to the first two outputs, so the samples and outputs before count as zeros.
    Q in = Q::load(x);
    Q last = add_moved(add_product(b2, two_back(Q::zero(), in),
                                   add_product(b1, one_back(Q::zero(), in), add_product(b0, in, Q::pair(d[0], d[1])))),
                       t1, t2, t3);
    last.store(y);
    const auto alone = [&](const E* from) {
      const Q next = Q::load(from);
      const Q w = add_product(b2, two_back(in, next), add_product(b1, one_back(in, next), b0 * next));
      in = next;
      return add_moved(w, t1, t2, t3);
    };
    x += 4, y += 4, n -= 4;
    if constexpr (kQuads > 1) {
      for (; n >= 8; n -= 8, x += 8, y += 8) {
        Q low = alone(x), high = alone(x + 4);
        high = add_newest<2>(rows, kStep, low, high);
        low = add_newest<2>(rows, kStep, last, low);
        last = add_newest<2>(rows + kRow<Q>, kStep, last, high);
        low.store(y);
        last.store(y + 4);
      }
    }
    for (; n; n -= 4, x += 4, y += 4) {
      last = add_newest<2>(rows, kStep, last, alone(x));
      last.store(y);
    }
    E xs[4], ys[4];
    in.store(xs);
    last.store(ys);
    const One x1 = One::load(xs + 3), x2 = One::load(xs + 2), y1 = One::load(ys + 3), y2 = One::load(ys + 2);
    const One c1 = One::load(t + 2), c2 = One::load(t + 3), r0 = One::load(t + 4), r1 = One::load(t + 5);
    add_product(r0, y1, add_product(r1, y2, add_product(c1, x1, c2 * x2))).store(d);
    add_product(r1, y1, c2 * x1).store(d + 1);
  }
};

}  // namespace NOX_VARIANT
}  // namespace nox
