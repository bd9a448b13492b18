// Reductions: the loop that takes an array into a few independent accumulators and folds these.
//
// An accumulator is a vector, or a struct of some; `step(acc, x...)` takes elements in, on whole vectors and on the low
// lane alone. In order come: `peel` single elements into the low lane of accumulator 0; Count vectors an iteration, one
// to each accumulator; what whole vectors remain, into accumulator 0; single elements into its low lane. The fold of
// the accumulators comes before or behind the remaining vectors, as the order of a sum says. Results in floating point
// depend on this order, so it is data of the call: Count, peel, and the place of the fold.
#pragma once
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The low lane of a vector as a single lane, and a vector with another low lane.
NOX_INLINE F64x1 low(F64x1 a) { return a; }
NOX_INLINE F64x1 with_low(F64x1, F64x1 b) { return b; }
NOX_INLINE F64x1 low(F64x2 a) { return {a.v}; }
NOX_INLINE F64x2 with_low(F64x2 a, F64x1 b) { return {_mm_move_sd(a.v, b.v)}; }
#if NOX_LEVEL >= 3
NOX_INLINE F64x1 low(F64x4 a) { return {_mm256_castpd256_pd128(a.v)}; }
NOX_INLINE F64x4 with_low(F64x4 a, F64x1 b) { return {_mm256_blend_pd(a.v, _mm256_castpd128_pd256(b.v), 1)}; }
#endif

// The two halves of a vector's lanes, folded into one vector of F64x2 by f(lower, upper); SSE2 vectors are one already.
template <class F>
NOX_INLINE F64x2 halves(F&&, F64x2 a) {
  return a;
}
#if NOX_LEVEL >= 3
template <class F>
NOX_INLINE F64x2 halves(F&& f, F64x4 a) {
  return f(F64x2{_mm256_castpd256_pd128(a.v)}, F64x2{_mm256_extractf128_pd(a.v, 1)});
}
#endif
// Likewise complex values into one.
template <class F>
NOX_INLINE C64x1 halves(F&&, C64x1 a) {
  return a;
}
#if NOX_LEVEL >= 3
template <class F>
NOX_INLINE C64x1 halves(F&& f, C64x2 a) {
  return f(C64x1{_mm256_castpd256_pd128(a.v)}, C64x1{_mm256_extractf128_pd(a.v, 1)});
}
#endif
NOX_INLINE F64x1 upper(F64x2 a) { return {_mm_unpackhi_pd(a.v, a.v)}; }
NOX_INLINE Nox64f value_of(F64x1 a) { return _mm_cvtsd_f64(a.v); }

// Elements in front of the first vector boundary, for sums that align their loads.
template <class V>
NOX_INLINE size_t peel_to_boundary(const typename V::elem* p, size_t n) {
  return elements_to_boundary<V>(p, n);
}

// Low lanes of complex vectors: their first value.
NOX_INLINE C64x1 low(C64x1 a) { return a; }
NOX_INLINE C64x1 with_low(C64x1, C64x1 b) { return b; }
#if NOX_LEVEL >= 3
NOX_INLINE C64x1 low(C64x2 a) { return {_mm256_castpd256_pd128(a.v)}; }
NOX_INLINE C64x2 with_low(C64x2 a, C64x1 b) { return {_mm256_blend_pd(a.v, _mm256_castpd128_pd256(b.v), 3)}; }
#endif

// The parts of a reduction, for orders that `reduce` doesn't have. They move the pointers on.
//
// Takes `count` single elements into the low lane of acc.
template <class K, class Acc, class Step, class... S>
NOX_INLINE void take_singles(Acc& acc, size_t count, Step&& step, const S*&... s) {
  for (; count > 0; --count) {
    acc = with_low(acc, step(low(acc), K::one::load(s)...));
    (advance(sizeof(S), s), ...);
  }
}
// Takes what groups of Used vectors are in n elements, vector k of each into acc[k]; returns how many elements remain.
template <class K, int Used, class Acc, class Step, class... S>
NOX_INLINE size_t take_vectors(Acc* acc, size_t n, Step&& step, const S*&... s) {
  using V = typename K::vec;
  for (; n >= size_t(Used) * V::N; n -= size_t(Used) * V::N) {
    // Written out whatever the compiler thinks of it: accumulators that a loop selects stay in memory.
#pragma GCC unroll 8
    for (size_t k = 0; k < Used; ++k) acc[k] = step(acc[k], V::load(s + k * V::N)...);
    (advance(Used * V::N * sizeof(S), s), ...);
  }
  return n;
}

// Lanes of K two vectors at a time, for loops whose steps are short and whose accumulators fill the registers.
template <class K>
struct in_pairs {
  struct vec {
    using V = typename K::vec;
    static constexpr int N = 2 * V::N;
    V front, back;
    template <class E>
    static NOX_INLINE vec load(const E* p) {
      return {V::load(p), V::load(p + V::N)};
    }
  };
};
// The step on them.
template <class Step>
struct PairStep {
  Step step;
  template <class Acc, class... X>
  NOX_INLINE Acc operator()(Acc acc, X... x) const {
    return step(step(acc, x.front...), x.back...);
  }
};

enum class FoldAt { BeforeRest, BehindRest };

// `acc` holds Count accumulators, given with what they start from; returns accumulator 0 with all folded into it.
template <class K, int Count, FoldAt Place, class Acc, class Step, class Fold, class... S>
NOX_INLINE Acc reduce(Acc (&acc)[Count], size_t n, size_t peel, Step&& step, Fold&& fold, const S*... s) {
  take_singles<K>(acc[0], peel, step, s...);
  n = take_vectors<K, Count>(acc, n - peel, step, s...);
  if constexpr (Place == FoldAt::BeforeRest) acc[0] = fold(acc);
  n = take_vectors<K, 1>(acc, n, step, s...);
  take_singles<K>(acc[0], n, step, s...);
  return Place == FoldAt::BeforeRest ? acc[0] : fold(acc);
}

}  // namespace NOX_VARIANT
}  // namespace nox
