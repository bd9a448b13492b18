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
NOX_INLINE F64x1 upper(F64x2 a) { return {_mm_unpackhi_pd(a.v, a.v)}; }
NOX_INLINE Nox64f value_of(F64x1 a) { return _mm_cvtsd_f64(a.v); }

// Elements in front of the first vector boundary, for sums that align their loads.
template <class V>
NOX_INLINE size_t peel_to_boundary(const typename V::elem* p, size_t n) {
  return elements_to_boundary<V>(p, n);
}

enum class FoldAt { BeforeRest, BehindRest };

// `acc` holds Count accumulators, given with what they start from; returns accumulator 0 with all folded into it.
template <class K, int Count, FoldAt Place, class Acc, class Step, class Fold, class... S>
NOX_INLINE Acc reduce(Acc (&acc)[Count], size_t n, size_t peel, Step&& step, Fold&& fold, const S*... s) {
  using V = typename K::vec;
  using One = typename K::one;
  constexpr size_t kVectors = V::N * sizeof(typename K::elem);
  static_assert(kVectors > 0);
  const auto single = [&] {
    acc[0] = with_low(acc[0], step(low(acc[0]), One::load(s)...));
    advance(sizeof(typename K::elem), s...);
  };
  n -= peel;
  for (; peel > 0; --peel) single();
  for (; n >= size_t(Count) * V::N; n -= size_t(Count) * V::N) {
#pragma GCC unroll 8
    for (size_t k = 0; k < Count; ++k) acc[k] = step(acc[k], V::load(s + k * V::N)...);
    advance(Count * kVectors, s...);
  }
  if constexpr (Place == FoldAt::BeforeRest) acc[0] = fold(acc);
  for (; n >= size_t(V::N); n -= V::N) {
    acc[0] = step(acc[0], V::load(s)...);
    advance(kVectors, s...);
  }
  for (; n > 0; --n) single();
  return Place == FoldAt::BeforeRest ? acc[0] : fold(acc);
}

}  // namespace NOX_VARIANT
}  // namespace nox
