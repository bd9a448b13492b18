// Norms of arrays and of differences of two arrays, real and complex.
//
// A norm joins one term an element in a few lanes, all from +0. The SSE builds keep to four lanes of a real array and
// two of a complex one, so that their bits follow from the address alone; the AVX builds keep sixteen. The maximum of
// real magnitudes depends on its lanes where there are NaNs: an array that holds one is gone through once more in the
// four lanes of the SSE builds.
#include "core/body.hpp"
#include "core/reduce.hpp"
#include "stats/squares.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Sixteen bytes a vector in every build.
struct pairs {
  using elem = Nox64f;
  using vec = F64x2;
  using one = F64x1;
};
constexpr bool kWide = NOX_LEVEL >= 3;

// The square of a magnitude, in lanes of accumulators.
NOX_INLINE F64x1 power(C64x1 x) { return {squares(x).v}; }
NOX_INLINE SplitLanes::V power(SplitLanes x) { return squares(x); }

struct Sum {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return a + b;
  }
};
struct Larger {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return max(a, b);
  }
};

// What enters an accumulator: of an element, or of the difference of two.
template <class Term>
struct Step {
  Term term;
  template <class A, class X>
  NOX_INLINE A operator()(A acc, X x) const {
    return term(acc, x);
  }
  template <class A, class X>
  NOX_INLINE A operator()(A acc, X x, X y) const {
    return term(acc, x - y);
  }
};
constexpr auto add_magnitude = [](auto acc, auto x) { return acc + abs(x); };
constexpr auto add_square = [](auto acc, auto x) { return madd(x, x, acc); };
constexpr auto add_root = [](auto acc, auto x) { return acc + sqrt(power(x)); };
constexpr auto add_power = [](auto acc, auto x) { return acc + power(x); };
// A NaN enters, and gives way to whatever follows it.
constexpr auto larger_magnitude = [](auto acc, auto x) { return max(acc, abs(x)); };
// A NaN doesn't enter.
constexpr auto larger_power = [](auto acc, auto x) { return max(power(x), acc); };

// Count accumulators of type Acc over elements in lanes of kind K, joined by f at the end.
template <class K, class Acc, int Count, class Term, class F, class... S>
NOX_INLINE F64x1 norm(Term term, F f, size_t peel, int len, const S*... s) {
  Acc acc[Count];
  for (Acc& a : acc) a = Acc::zero();
  const auto fold = [f](Acc(&a)[Count]) {
    for (int half = Count / 2; half > 0; half /= 2)
      for (int k = 0; k < half; ++k) a[k] = f(a[k], a[k + half]);
    return a[0];
  };
  const size_t n = static_cast<size_t>(len);
  const Acc all = reduce<K, Count, FoldAt::BehindRest>(acc, n, peel < n ? peel : n, Step<Term>{term}, fold, s...);
  const F64x2 two = halves(f, all);
  return f(low(two), upper(two));
}
template <class Term, class F, class... S>
NOX_INLINE F64x1 real_norm(Term term, F f, int len, const Nox64f* s, const S*... more) {
  using V = f64::vec;
  const size_t peel = peel_to_boundary<V>(s, static_cast<size_t>(len));
  return norm<f64, V, (kWide ? 4 : 2)>(term, f, peel, len, s, more...);
}
template <class Term, class F, class... S>
NOX_INLINE F64x1 complex_norm(Term term, F f, int len, const S*... s) {
  return norm<split_c64, SplitLanes::V, (kWide ? 4 : 1)>(term, f, 0, len, s...);
}

// The maximum of real magnitudes in four lanes of two vectors.
template <class... S>
NOX_INLINE F64x1 largest_in_four_lanes(int len, const Nox64f* s, const S*... more) {
  const size_t peel = peel_to_boundary<F64x2>(s, static_cast<size_t>(len));
  return norm<pairs, F64x2, 2>(larger_magnitude, Larger{}, peel, len, s, more...);
}
#if NOX_LEVEL >= 3
// Remembers whether a NaN was among magnitudes. With integers of eight lanes it keeps the largest high words, which
// takes an infinity for a NaN too.
struct NanWatch {
  F64x4 seen = F64x4::zero();
#if NOX_LEVEL >= 4
  static NOX_INLINE F64x4 either(F64x4 a, F64x4 b) {
    return {_mm256_castsi256_pd(_mm256_max_epi32(_mm256_castpd_si256(a.v), _mm256_castpd_si256(b.v)))};
  }
  NOX_INLINE void see(F64x4 a, F64x4 b) { seen = either(seen, either(a, b)); }
  NOX_INLINE bool any() const {
    const __m256i finite = _mm256_set1_epi32(0x7FEFFFFF);
    return _mm256_movemask_pd(_mm256_castsi256_pd(_mm256_cmpgt_epi32(_mm256_castpd_si256(seen.v), finite))) != 0;
  }
#else
  NOX_INLINE void see(F64x4 a, F64x4 b) { seen = seen | F64x4{_mm256_cmp_pd(a.v, b.v, _CMP_UNORD_Q)}; }
  NOX_INLINE bool any() const { return mask_bits(seen) != 0; }
#endif
};

NOX_INLINE F64x4 magnitude_at(size_t i, const Nox64f* s) { return abs(F64x4::load(s + i)); }
NOX_INLINE F64x4 magnitude_at(size_t i, const Nox64f* s, const Nox64f* t) {
  return abs(F64x4::load(s + i) - F64x4::load(t + i));
}

template <class... S>
NOX_INLINE F64x1 largest(int len, const S*... s) {
  constexpr size_t N = F64x4::N;
  const size_t n = static_cast<size_t>(len);
  if (n < N) return largest_in_four_lanes(len, s...);
  F64x4 most[2] = {F64x4::zero(), F64x4::zero()};
  NanWatch nan;
  // In pairs, whose maximum doesn't wait for the accumulator.
  const auto take = [&](int to, F64x4 a, F64x4 b) {
    most[to] = max(most[to], max(a, b));
    nan.see(a, b);
  };
  const auto sweep = [&](const S*... at) {
    size_t left = n;
    for (; left >= 4 * N; left -= 4 * N) {
      take(0, magnitude_at(0, at...), magnitude_at(N, at...));
      take(1, magnitude_at(2 * N, at...), magnitude_at(3 * N, at...));
      advance(4 * N * sizeof(Nox64f), at...);
    }
    for (; left >= N; left -= N) {
      take(0, magnitude_at(0, at...), F64x4::zero());
      advance(N * sizeof(Nox64f), at...);
    }
  };
  sweep(s...);
  // The last vector may overlap what has been seen: a maximum doesn't mind.
  if (n % N != 0) take(0, magnitude_at(n - N, s...), F64x4::zero());
  if (nan.any()) return largest_in_four_lanes(len, s...);
  const F64x2 two = halves(Larger{}, max(most[0], most[1]));
  return max(low(two), upper(two));
}
#else
template <class... S>
NOX_INLINE F64x1 largest(int len, const S*... s) {
  return largest_in_four_lanes(len, s...);
}
#endif

// The checks, and the result of `compute(s...)` where they pass.
template <class Compute, class... S>
NOX_INLINE NoxStatus to(Nox64f* result, int len, Compute&& compute, const S*... s) {
  if (const NoxStatus st = check(len, s..., result)) return st;
  *result = value_of(compute(len, s...));
  return noxStsNoErr;
}

constexpr auto of_largest = [](int len, auto*... s) { return largest(len, s...); };
constexpr auto of_magnitudes = [](int len, auto*... s) { return real_norm(add_magnitude, Sum{}, len, s...); };
constexpr auto of_squares = [](int len, auto*... s) { return sqrt(real_norm(add_square, Sum{}, len, s...)); };
constexpr auto of_largest_power = [](int len, auto*... s) {
  return sqrt(complex_norm(larger_power, Larger{}, len, s...));
};
constexpr auto of_roots = [](int len, auto*... s) { return complex_norm(add_root, Sum{}, len, s...); };
constexpr auto of_powers = [](int len, auto*... s) { return sqrt(complex_norm(add_power, Sum{}, len, s...)); };

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsNorm_Inf_64f)(const Nox64f* s, int len, Nox64f* norm) { return to(norm, len, of_largest, s); }
NoxStatus NOX_BODY(noxsNorm_L1_64f)(const Nox64f* s, int len, Nox64f* norm) { return to(norm, len, of_magnitudes, s); }
NoxStatus NOX_BODY(noxsNorm_L2_64f)(const Nox64f* s, int len, Nox64f* norm) { return to(norm, len, of_squares, s); }
NoxStatus NOX_BODY(noxsNormDiff_Inf_64f)(const Nox64f* s, const Nox64f* t, int len, Nox64f* norm) {
  return to(norm, len, of_largest, s, t);
}
NoxStatus NOX_BODY(noxsNormDiff_L1_64f)(const Nox64f* s, const Nox64f* t, int len, Nox64f* norm) {
  return to(norm, len, of_magnitudes, s, t);
}
NoxStatus NOX_BODY(noxsNormDiff_L2_64f)(const Nox64f* s, const Nox64f* t, int len, Nox64f* norm) {
  return to(norm, len, of_squares, s, t);
}

NoxStatus NOX_BODY(noxsNorm_Inf_64fc64f)(const Nox64fc* s, int len, Nox64f* norm) {
  return to(norm, len, of_largest_power, s);
}
NoxStatus NOX_BODY(noxsNorm_L1_64fc64f)(const Nox64fc* s, int len, Nox64f* norm) { return to(norm, len, of_roots, s); }
NoxStatus NOX_BODY(noxsNorm_L2_64fc64f)(const Nox64fc* s, int len, Nox64f* norm) { return to(norm, len, of_powers, s); }
NoxStatus NOX_BODY(noxsNormDiff_Inf_64fc64f)(const Nox64fc* s, const Nox64fc* t, int len, Nox64f* norm) {
  return to(norm, len, of_largest_power, s, t);
}
NoxStatus NOX_BODY(noxsNormDiff_L1_64fc64f)(const Nox64fc* s, const Nox64fc* t, int len, Nox64f* norm) {
  return to(norm, len, of_roots, s, t);
}
NoxStatus NOX_BODY(noxsNormDiff_L2_64fc64f)(const Nox64fc* s, const Nox64fc* t, int len, Nox64f* norm) {
  return to(norm, len, of_powers, s, t);
}

}  // extern "C"
