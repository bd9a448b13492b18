// Sine and cosine of the lanes of a vector.
//
// On the quarter turn around zero both are polynomials of r^2 behind their leading terms, which are kept apart and
// added last, so that the result carries little more than its own rounding. Which of the two a lane takes, and its
// sign, depends on the number of quarter turns. Both are always computed: that costs less than choosing coefficients.
#pragma once
#include "vmath/angle.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Minimax coefficients by tools/minimax.py.
// Sine: r + r^3 S(r^2), cosine: 1 - r^2/2 + r^4 C(r^2), on [-pi/4, pi/4] within 2^-57.9 and 2^-64.
constexpr double kSine[] = {-0x1.5555555555548p-3, 0x1.111111110f7d0p-7,   -0x1.a01a019bfdec1p-13,
                            0x1.71de3567d1872p-19, -0x1.ae5e5a907cc02p-26, 0x1.5d8fd170d469fp-33};
constexpr double kCosine[] = {0x1.555555555554bp-5,   -0x1.6c16c16c14f91p-10, 0x1.a01a019c844ffp-16,
                              -0x1.27e4f7eac4fbap-22, 0x1.1ee9d7b4f4cb4p-29,  -0x1.8fa49a06216f1p-37};

// Sine and cosine of r + rr.
template <class V>
NOX_INLINE V sine_near_zero(const Angle<V>& a, V z) {
  const V half = V::all(0.5);
  // sin(r + rr) = r + (r^3 S + rr (1 - z/2)); subtracted from r, so that the sine of -0 stays -0.
  const V tail = nmadd(z * half, a.rr, a.rr);
  return a.r - nmadd(a.r * z, polynomial(kSine, z), V::zero() - tail);
}
template <class V>
NOX_INLINE V cosine_near_zero(const Angle<V>& a, V z) {
  const V one = V::all(1), half = z * V::all(0.5), lead = one - half;
  // cos(r + rr) = 1 - z/2 + (z^2 C - r rr); what 1 - z/2 lost in rounding is added to the small part.
  const V tail = ((one - lead) - half) + nmadd(a.r, a.rr, z * z * polynomial(kCosine, z));
  return lead + tail;
}

template <class V>
NOX_INLINE V quarter_odd(V turns) {
  return shift_bits_left<63>(turns);  // the top bit says it
}
template <class V>
NOX_INLINE V quarter_sign(V turns) {
  return sign_of(shift_bits_left<62>(turns));
}

template <class V>
NOX_INLINE V sine_lanes(V x) {
  const Angle<V> a = reduce(x);
  const V z = a.r * a.r;
  return pick(quarter_odd(a.turns), cosine_near_zero(a, z), sine_near_zero(a, z)) ^ quarter_sign(a.turns);
}
template <class V>
NOX_INLINE V cosine_lanes(V x) {
  const Angle<V> a = reduce(x);
  const V z = a.r * a.r;
  return pick(quarter_odd(a.turns), sine_near_zero(a, z), cosine_near_zero(a, z)) ^ quarter_sign(a.turns + V::all(1));
}
template <class V>
NOX_INLINE void sine_cosine_lanes(V x, V& sine, V& cosine) {
  const Angle<V> a = reduce(x);
  const V z = a.r * a.r;
  const V s = sine_near_zero(a, z), c = cosine_near_zero(a, z), odd = quarter_odd(a.turns);
  sine = pick(odd, c, s) ^ quarter_sign(a.turns);
  cosine = pick(odd, s, c) ^ quarter_sign(a.turns + V::all(1));
}

}  // namespace NOX_VARIANT
}  // namespace nox
