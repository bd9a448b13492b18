// Natural logarithm of the lanes of a vector.
//
// x = 2^k m with m in [sqrt(1/2), sqrt(2)), f = m - 1. With s = f / (2 + f), log(m) = 2 atanh(s), and
// 2 atanh(s) = f - f^2/2 + s (f^2/2 + z L(z)), z = s^2: the quotient is needed only in the small last term. The leading
// terms k log(2), f and f^2/2 are added with their rounding errors kept.
#pragma once
#include "vmath/lanes.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Minimax coefficients by tools/minimax.py, within 2^-59.5 of the logarithm.
constexpr double kLog[] = {0x1.5555555555592p-1, 0x1.999999997fee9p-2, 0x1.24924941e0ba5p-2, 0x1.c71c521656dc9p-3,
                           0x1.74663c50f70c7p-3, 0x1.39a1fbe3db5e3p-3, 0x1.2f02e2be0b149p-3};
// log(2), the first part with room for the bits of k.
constexpr double kLog2[] = {0x1.62e42fefa38p-1, 0x1.ef35793c7673p-45};

// Of positive normal lanes; `scale` is added to the exponent.
template <class V>
NOX_INLINE V log_normal(V x, V scale) {
  // Moved so that the exponent field changes at sqrt(1/2) instead of at 1.
  constexpr Nox64u kRootHalf = 0x3FE6A09E667F3BCD, kOne = 0x3FF0000000000000, kBits52 = 0x4330000000000000;
  const V moved = add_bits(x, all_bits<V>(kOne - kRootHalf));
  const V k = ((shift_bits_right<52>(moved) | all_bits<V>(kBits52)) - V::all(0x1p52 + 1023)) + scale;
  const V m = add_bits(moved & all_bits<V>(0xFFFFFFFFFFFFF), all_bits<V>(kRootHalf));

  const V f = m - V::all(1), half = V::all(0.5) * f * f;
  const V s = f / (V::all(2) + f), z = s * s;
  const V small = madd(s, madd(z, polynomial(kLog, z), half), k * V::all(kLog2[1]));
  const V h = f - half, h_lost = (f - h) - half;
  const V base = k * V::all(kLog2[0]);  // exact, and larger than h or zero
  const V sum = base + h, sum_lost = (base - sum) + h;
  return sum + (sum_lost + (h_lost + small));
}

// Some lane is a denormal, zero, negative, infinite or a NaN: the other lanes get what log_normal gives them.
template <class V>
__attribute__((noinline)) void log_any(const double* from, double* to) {
  const V x = V::load(from), zero = V::zero(), infinity = V::all(__builtin_inf());
  const V tiny = x < V::all(__DBL_MIN__);
  V result = log_normal(select(tiny, x * V::all(0x1p54), x), tiny & V::all(-54));
  result = select(x == infinity, infinity, result);
  result = select(x == zero, negate(infinity), result);
  result = select(x < zero, V::all(__builtin_nan("")), result);
  select(is_nan(x), x + x, result).store(to);
}

template <class V>
NOX_INLINE V log_lanes(V x) {
  const V normal = (V::all(__DBL_MIN__) <= x) & (x <= V::all(__DBL_MAX__));
  if (__builtin_expect(mask_bits(normal) != kAllLanes<V>, 0)) {
    double lanes[V::N];
    x.store(lanes);
    log_any<V>(lanes, lanes);
    return V::load(lanes);
  }
  return log_normal(x, V::zero());
}

}  // namespace NOX_VARIANT
}  // namespace nox
