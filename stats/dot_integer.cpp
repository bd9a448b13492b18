// The dot product of Nox32s, in double precision, in one order of additions for all builds.
//
// Four lanes where the second array can be brought to a 16-byte boundary, else one; it is the address that decides,
// not what the build could load. Where the magnitudes sum to less than 2^53 nothing is rounded in any order, and
// the AVX2 build sums integers, which is faster; whether they may is found out on the way.
#include "core/body.hpp"
#include "core/reduce.hpp"
#include "core/rounding.hpp"
#include "core/simd/choose.hpp"
#include "core/simd/f64_ints.hpp"
#include "core/simd/ints_real.hpp"
#include "core/simd/ints_wide.hpp"
#include "stats/extrema.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Lanes of doubles from 32-bit integers. Four are loaded first and converted then: it is the adds that take the time.
template <class T>
struct Widened : T {
  static NOX_INLINE T load(const Nox32s* p) { return widen<T>(p); }
};
#if NOX_LEVEL >= 3
template <>
NOX_INLINE F64x4 Widened<F64x4>::load(const Nox32s* p) {
  return four_doubles<true>(V128<Nox32s>::load(p).v);
}
#endif
struct widened {
  using vec = Widened<f64::vec>;
  using one = Widened<F64x1>;
};
struct AddProduct {
  template <class T>
  NOX_INLINE T operator()(T sum, T a, T b) const {
    return sum + a * b;
  }
};

NOX_INLINE F64x1 ordered_sum(const Nox32s* a, const Nox32s* b, size_t n) {
  using V = f64::vec;
  constexpr size_t kBoundary = 16, kGroup = 8;
  constexpr int kVectors = 4 / V::N;  // of accumulators, which make four lanes
  V lanes[kVectors];
  for (V& v : lanes) v = V::zero();
  const size_t past = (0 - reinterpret_cast<uintptr_t>(b)) % kBoundary;
  size_t tail = n;
  if (n >= kGroup && past % sizeof(Nox32s) == 0) {
    take_singles<widened>(lanes[0], past / sizeof(Nox32s), AddProduct{}, a, b);
    n -= past / sizeof(Nox32s);
    tail = n % kGroup;
    take_vectors<widened, kVectors>(lanes, n - tail, AddProduct{}, a, b);
  }
  for (int k = 1; k < kVectors; ++k) lanes[0] = lanes[0] + lanes[k];
  const F64x2 two = halves([](F64x2 x, F64x2 y) { return x + y; }, lanes[0]);
  F64x1 sum = low(two) + upper(two);
  take_singles<widened>(sum, tail, AddProduct{}, a, b);
  return sum;
}

// Sums of products, and the bits that the magnitudes in each array have.
struct Exact {
  ints<Nox64u>::vec even, odd;
  ints<Nox32s>::vec first, second;
};
// The magnitude, or that less 1.
template <class V>
NOX_INLINE V magnitude(V a) {
  return a ^ shift_right(a, 31);
}
#if NOX_LEVEL >= 4
NOX_INLINE V256<Nox32s> magnitude(V256<Nox32s> a) { return {_mm256_abs_epi32(a.v)}; }
#endif
struct AddExact {
  template <class V>
  NOX_INLINE Exact operator()(Exact sum, V x, V y) const {
    const V a = once(x), b = once(y);
    // Kept apart: the compiler would add and join the steps' values first, and run out of registers.
    return {once(sum.even + multiply_even(a, b)), once(sum.odd + multiply_even(odd_down(a), odd_down(b))),
            once(sum.first | magnitude(a)), once(sum.second | magnitude(b))};
  }
};
struct Or {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return a | b;
  }
};

// Whether the magnitudes of the products sum to less than 2^53, and if so their exact sum. Looks after blocks of
// growing lengths, so that data out of range cost little.
NOX_INLINE bool exact_sum(const Nox32s* a, const Nox32s* b, size_t n, Nox64s& sum) {
  using Sums = ints<Nox64u>::vec;
  using Words = ints<Nox32s>::vec;
  using One = IntOne<Nox32s>;
  size_t left = n - n % Words::N;
  Nox64u total = 0;
  One first = One::zero(), second = One::zero();
  for (size_t i = left; i < n; ++i) {
    const One x = One::load(a + i), y = One::load(b + i);
    total += Nox64u(Nox64s(x.v) * y.v);
    first = first | magnitude(x), second = second | magnitude(y);
  }
  Exact acc[1] = {{Sums::zero(), Sums::zero(), Words::zero(), Words::zero()}};
  for (size_t block = 256; left > 0; block *= 8) {
    const size_t now = left < block ? left : block;
    left -= now;
    const size_t odd = take_vectors<in_pairs<ints<Nox32s>>, 1>(acc, now, PairStep<AddExact>{}, a, b);
    take_vectors<ints<Nox32s>, 1>(acc, odd, AddExact{}, a, b);
    const Nox32u bits_a = Nox32u(first.v | fold_lanes(Or{}, acc[0].first));
    const Nox32u bits_b = Nox32u(second.v | fold_lanes(Or{}, acc[0].second));
    if ((bits_a + 1.0) * (bits_b + 1.0) * Nox64f(n) >= 0x1p53) return false;
  }
  Nox64u lanes[Sums::N];
  (acc[0].even + acc[0].odd).store(lanes);
  for (const Nox64u lane : lanes) total += lane;
  sum = Nox64s(total);
  return true;
}

NOX_INLINE Nox64f dot(const Nox32s* a, const Nox32s* b, size_t n) {
  // In vectors of four the integers take no less time than the doubles.
  constexpr bool kPays = NOX_LEVEL >= 4;
  constexpr size_t kFrom = 32;
  if constexpr (kPays) {
    Nox64s sum;
    if (n >= kFrom && exact_sum(a, b, n, sum)) return static_cast<Nox64f>(sum);
  }
  return value_of(ordered_sum(a, b, n));
}

// sum 2^-scale, halves to even, saturated.
NOX_INLINE Nox32s scaled(Nox64f sum, int scale) {
  const int exponent = scale < -31 ? -31 : scale > 93 ? 93 : scale;
  const Nox64u factor_bits = Nox64u(1023 - exponent) << 52;
  Nox64f factor;
  __builtin_memcpy(&factor, &factor_bits, sizeof factor);
  const F64x1 bounded = min(max(F64x1::all(sum * factor), F64x1::all(-0x1p31)), F64x1::all(0x1p31 - 1));
  const Nox64f t = value_of(bounded), away = t < 0 ? t - 0.5 : t + 0.5;
  const Nox32s k = _mm_cvttsd_si32(_mm_set_sd(away));
  const bool odd_half = (k & 1) && k == away;
  return k - (odd_half ? (away < 0 ? -1 : 1) : 0);
}

__attribute__((noinline)) Nox32s scaled_dot(const Nox32s* a, const Nox32s* b, int len, int scale) {
  return scaled(dot(a, b, static_cast<size_t>(len)), scale);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" NoxStatus NOX_BODY(noxsDotProd_32s_Sfs)(const Nox32s* a, const Nox32s* b, int len, Nox32s* sum, int scale) {
  if (const NoxStatus st = check(len, a, b, sum)) return st;
  const RoundToNearest nearest;
  *sum = scaled_dot(a, b, len, scale);
  return noxStsNoErr;
}
