// Arc tangent of y / x in the quarter of the plane that (x, y) lies in, on the lanes of vectors.
//
// The half plane of y >= 0 is divided into five sectors around the multiples of pi/4, so the angle is k pi/4 and an arc
// tangent of at most tan(pi/8), of a quotient whose numerator and denominator are sums of |x| and |y|. The errors of
// these sums and of the quotient are kept and added to the small part: t + tt, then k pi/4 +- (t + (tt + t z A(z))).
#pragma once
#include "vmath/lanes.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Minimax coefficients by tools/minimax.py, t + t z A(z) on [-tan(pi/8), tan(pi/8)] within 2^-59.4.
constexpr double kArcTangent[] = {-0x1.555555555553dp-2, 0x1.99999999957cep-3,  -0x1.24924922aa508p-3,
                                  0x1.c71c70e50f11fp-4,  -0x1.745cf8c3874f0p-4, 0x1.3b11179646b91p-4,
                                  -0x1.10eba8d3bf1cap-4, 0x1.df0e80c2d3687p-5,  -0x1.9ccf817de6889p-5,
                                  0x1.37ce2656156a5p-5,  -0x1.255b4ceb5699ep-6};
constexpr double kTanEighthPi = 0x1.a827999fcef32p-2;
// pi/4, the first part with room for a factor up to 4.
constexpr double kQuarterPi[] = {0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55};
// Where no product of the division's correction leaves the normal range.
constexpr double kAtanLeast = 0x1p-400, kAtanMost = 0x1p400;

// n - t d for t near n / d, exact. Without fused instructions t must have 26 bits.
template <class V>
NOX_INLINE V remainder(V n, V t, V d) {
  if constexpr (variant.fuses) {
    return nmadd(t, d, n);
  } else {
    const V high = d & all_bits<V>(0xFFFFFFFFF8000000);
    return (n - t * high) - t * (d - high);
  }
}

// Of sizes and signs; the sizes are within the range above, `ay` may be zero also.
template <class V>
NOX_INLINE V atan2_normal(V ay, V ax, V y_sign, V x_sign) {
  const V steep = ax < ay;
  const V num = min(ax, ay), den = max(ax, ay);
  // Around the diagonal: atan(num / den) = pi/4 + atan((num - den) / (num + den)).
  const V diagonal = den * V::all(kTanEighthPi) < num;
  const V den_in = diagonal & den, num_in = diagonal & num;
  const V n = num - den_in, n_lost = num - (n + den_in);
  const V d = den + num_in, d_lost = num_in - (d - den);

  const V inverse = V::all(1) / d;
  V t = n * inverse, tt;
  if constexpr (variant.fuses) {
    tt = nmadd(t, d_lost, remainder(n, t, d) + n_lost) * inverse;
  } else {
    const V t26 = t & all_bits<V>(0xFFFFFFFFF8000000);
    const V rest = nmadd(t26, d_lost, remainder(n, t26, d) + n_lost) * inverse;
    t = t26 + rest;
    tt = rest - (t - t26);
  }
  const V z = t * t;
  const V small = madd(t * z, polynomial(kArcTangent, z), nmadd(z, tt, tt));

  // Multiples of pi/4 and the direction: from the y axis backward if steep, then from the negative x axis backward.
  V k = diagonal & V::all(1);
  k = pick(steep, V::all(2) - k, k);
  k = pick(x_sign, V::all(4) - k, k);
  const V turn = x_sign ^ sign_of(steep);
  const V base = k * V::all(kQuarterPi[0]), step = t ^ turn;
  const V sum = base + step, lost = (base - sum) + step;
  const V rest = madd(k, V::all(kQuarterPi[1]), lost + (small ^ turn));
  return (sum + rest) ^ y_sign;
}

// The lanes that atan2_normal may have. A NaN isn't among them: min and max give their second operand for one.
template <class V>
NOX_INLINE V atan2_in_range(V ay, V ax) {
  const V num = min(ay, ax), den = max(ax, ay);
  return (V::all(kAtanLeast) <= den) & (den <= V::all(kAtanMost)) & ((V::all(kAtanLeast) <= num) | (num == V::zero()));
}

// Some lane is outside the range of atan2_normal: the others get what it gives them.
template <class V>
__attribute__((noinline)) void atan2_any(const double* py, const double* px, double* to) {
  const V y = V::load(py), x = V::load(px), zero = V::zero(), one = V::all(1), infinity = V::all(__builtin_inf());
  V ay = abs(y), ax = abs(x);
  const V usual = atan2_in_range(ay, ax);
  // Beside an infinity a finite size is nothing, and two infinities are equal; two zeros stand for a flat angle.
  const V endless = (ax == infinity) | (ay == infinity), none = (ax == zero) & (ay == zero);
  ay = select(endless, (ay == infinity) & one, ay);
  ax = select(endless, (ax == infinity) & one, ax);
  ax = select(none, one, ax);
  // Scaled so that the larger is in range. A smaller one that isn't can't be seen beside a multiple of pi/4; where
  // there is none to stand beside, the quotient is the angle.
  const V most = max(ax, ay), large = V::all(kAtanMost) < most, little = most < V::all(kAtanLeast);
  const V factor = select(large, V::all(0x1p-700), select(little, V::all(0x1p700), one));
  const V sy = ay * factor, sx = ax * factor;
  const V flat = and_not(usual, sy < sx * V::all(0x1p-100)), steep = and_not(usual, sx < sy * V::all(0x1p-100));
  const V general = atan2_normal(and_not(flat, sy), and_not(steep, sx), sign_of(y), sign_of(x));
  const V right = pick(x, general, select(flat, (ay / ax) ^ sign_of(y), general));
  select(is_nan(x) | is_nan(y), x + y, right).store(to);
}

template <class V>
NOX_INLINE V atan2_lanes(V y, V x) {
  const V ay = abs(y), ax = abs(x);
  if (__builtin_expect(mask_bits(atan2_in_range(ay, ax)) != kAllLanes<V>, 0)) {
    double ys[V::N], xs[V::N];
    y.store(ys);
    x.store(xs);
    atan2_any<V>(ys, xs, ys);
    return V::load(ys);
  }
  return atan2_normal(ay, ax, sign_of(y), sign_of(x));
}

}  // namespace NOX_VARIANT
}  // namespace nox
