// The dot product of Nox32s, in double precision, in one order of additions for all builds.
//
// Four lanes where the second array can be brought to a 16-byte boundary, else one; it is the address that decides,
// not what the build could load.
#include "core/body.hpp"
#include "core/reduce.hpp"
#include "core/rounding.hpp"
#include "core/simd/f64_ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Lanes of doubles from 32-bit integers.
template <class T>
struct Widened : T {
  static NOX_INLINE T load(const Nox32s* p) { return widen<T>(p); }
};
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
  return scaled(value_of(ordered_sum(a, b, static_cast<size_t>(len))), scale);
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
