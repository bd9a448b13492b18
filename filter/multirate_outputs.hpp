// The order in which the multi-rate filter computes its outputs: by groups over whole patterns and what is left of one,
// or phase by phase.
#pragma once
#include "filter/multirate.hpp"
#include "filter/multirate_kernels.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class K>
struct MrOutputs {
  using E = typename K::elem;
  using V = typename K::vec;
  using One = typename K::one;
  static constexpr size_t kWindows = kMrWindows<K>;
  static constexpr int kLanes = V::N;
  const MrState& state;
  const E* joined;  // the first sample as the joined sequence has it; samples past lie before
  const E* s;
  E* d;
  const E *taps, *table;

  NOX_INLINE MrOutputs(const MrState& of, const E* first, const E* source, E* dst)
      : state(of),
        joined(first),
        s(source),
        d(dst),
        taps(static_cast<const E*>(of.pTaps)),
        table(static_cast<const E*>(of.pTable)) {}

  // All outputs of n iterations, from the table.
  void by_groups(int n) const {
    const int patterns = n / state.iterations, inputs = state.iterations * state.down;
    // The windows of these may begin before the first sample.
    const int early = (state.delayLen + inputs - 1) / inputs;
    const int first = early < patterns ? early : patterns;
    groups<1>(0, first, state.groups);
    groups_together<kWindows>(first, patterns);
    const int rest = n % state.iterations * state.up, whole = rest / kLanes;
    groups<1>(patterns, patterns + 1, whole);
    for (int m = whole * kLanes; m < rest; ++m) single(patterns * state.iterations + m / state.up, m % state.up);
  }

  // All outputs of the iterations from `from` up to n, each by itself.
  __attribute__((noinline)) void by_phases(int from, int n) const {
    const int early = (state.delayLen + state.down - 1) / state.down;
    for (; from < n && from < early; ++from)
      for (int phase = 0; phase < state.up; ++phase) single(from, phase);
    for (; n - from >= static_cast<int>(kWindows); from += static_cast<int>(kWindows))
      for (int phase = 0; phase < state.up; ++phase) outputs<kWindows>(from, phase);
    for (; from < n; ++from)
      for (int phase = 0; phase < state.up; ++phase) single(from, phase);
  }

 private:
  NOX_INLINE const E* input(int i) const { return (i < 0 ? joined : s) + i; }

  // One phase's outputs of Count iterations.
  template <size_t Count>
  NOX_INLINE void outputs(int iteration, int phase) const {
    const MrWindow w = state.pPhases[phase];
    const size_t up = static_cast<size_t>(state.up);
    E* const to = d + static_cast<size_t>(iteration) * up + static_cast<size_t>(phase);
    mr_sums<One>(std::make_index_sequence<Count>{}, taps + w.at, static_cast<size_t>(w.count), 1,
                 input(w.first + iteration * state.down), static_cast<size_t>(state.down),
                 [&](size_t k, One y) { y.store(to + k * up); });
  }
  __attribute__((noinline)) void single(int iteration, int phase) const { outputs<1>(iteration, phase); }

  // All groups of the patterns from `from` up to `end`, Count patterns at a time and then fewer.
  template <size_t Count>
  NOX_INLINE void groups_together(int from, int end) const {
    const int whole = (end - from) / static_cast<int>(Count) * static_cast<int>(Count);
    if (whole > 0) groups<Count>(from, from + whole, state.groups);
    if constexpr (Count > 1) groups_together<Count - 1>(from + whole, end);
  }
  // The first `count` groups of the patterns from `from` up to `end`, Count patterns at a time.
  template <size_t Count>
  __attribute__((noinline)) void groups(int from, int end, int count) const {
    const size_t iterations = static_cast<size_t>(state.iterations);
    const size_t distance = iterations * static_cast<size_t>(state.up),
                 inputs = iterations * static_cast<size_t>(state.down);
    const MrWindow* const windows = state.pGroups;
    for (int pattern = from; pattern < end; pattern += static_cast<int>(Count)) {
      E* to = d + static_cast<size_t>(pattern) * distance;
      for (int g = 0; g < count; ++g, to += kLanes) {
        const MrWindow w = windows[g];
        auto nan = decltype(reals(V::zero()))::zero();
        mr_sums<V>(std::make_index_sequence<Count>{}, table + static_cast<size_t>(w.at) * kLanes,
                   static_cast<size_t>(w.count), kLanes, input(w.first + pattern * static_cast<int>(inputs)), inputs,
                   [&](size_t k, V y) {
                     y.store(to + k * distance);
                     nan = nan | is_nan(reals(y));
                   });
        if (mask_bits(nan) != 0) again(pattern, g, Count);
      }
    }
  }
  // A zero of the table times an infinity or a NaN is NaN: a group with one is summed again, tap by tap.
  __attribute__((noinline, cold)) void again(int pattern, int g, size_t count) const {
    for (int k = 0; k < static_cast<int>(count); ++k)
      for (int m = g * kLanes; m < (g + 1) * kLanes; ++m)
        single((pattern + k) * state.iterations + m / state.up, m % state.up);
  }
};

}  // namespace NOX_VARIANT
}  // namespace nox
