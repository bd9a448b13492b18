// Reduction of an angle to the quarter turn around the nearest multiple of pi/2.
//
// x = n pi/2 + r + rr with |r| up to pi/4 and rr the part of the remainder that r can't hold. Up to kFarAngle pi/2 is
// taken off in parts (Cody and Waite): n times a part is exact or its error is carried along, so r keeps all its bits
// even where nearly everything cancels. Larger angles are reduced one by one with as many bits of 2/pi as they need.
#pragma once
#include "vmath/lanes.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class V>
struct Angle {
  V r, rr;
  V turns;  // kTurnsShift + n: the low bits are those of n, its sum with a small whole number is exact
};

constexpr double kTurnsShift = 0x1.8p52;
// Up to here every step of the short reduction is as exact as said there: without fused instructions n may have 24
// bits.
constexpr double kFarAngle = variant.fuses ? 0x1p36 : 0x1p24;
constexpr double kTwoOverPi = 0x1.45f306dc9c883p-1;

// The parts of pi/2 for the build that fuses: three doubles, each the nearest to what is left.
constexpr double kHalfPi[] = {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54, -0x1.f1976b7ed8fbcp-110};
// For the others: three parts of 29 bits, whose products with n are exact, and a double.
constexpr double kHalfPiShort[] = {0x1.921fb54p+0, 0x1.10b4611p-30, 0x1.4c4c662p-59, 0x1.1701b839a252p-88};

// Reduces the angles of a vector that lie beyond kFarAngle or aren't finite, and leaves the others alone. An infinite
// angle and a NaN give NaN.
void reduce_far(const double* x, double* r, double* rr, double* turns, int lanes);

template <class V>
NOX_INLINE Angle<V> reduce_near(V x) {
  const V turns = madd(x, V::all(kTwoOverPi), V::all(kTurnsShift));
  const V n = turns - V::all(kTurnsShift);
  // The first difference is exact. In each further one the subtrahend's last bit isn't above that of the minuend, so
  // what the rounding took can be had back by subtracting twice.
  if constexpr (variant.fuses) {
    const V r0 = nmadd(n, V::all(kHalfPi[0]), x);
    const V t = n * V::all(kHalfPi[1]);
    const V lost = nmadd(n, V::all(kHalfPi[1]), t);  // t less the product
    const V r = r0 - t;
    return {r, nmadd(n, V::all(kHalfPi[2]), ((r0 - r) - t) + lost), turns};
  } else {
    const V r0 = x - n * V::all(kHalfPiShort[0]);
    const V t1 = n * V::all(kHalfPiShort[1]), r1 = r0 - t1;
    const V t2 = n * V::all(kHalfPiShort[2]), r2 = r1 - t2;
    return {r2, (((r0 - r1) - t1) + ((r1 - r2) - t2)) - n * V::all(kHalfPiShort[3]), turns};
  }
}

template <class V>
NOX_INLINE Angle<V> reduce(V x) {
  Angle<V> a = reduce_near(x);
  if (__builtin_expect(mask_bits(abs(x) <= V::all(kFarAngle)) != kAllLanes<V>, 0)) {
    double xs[V::N], r[V::N], rr[V::N], turns[V::N];
    x.store(xs);
    a.r.store(r);
    a.rr.store(rr);
    a.turns.store(turns);
    reduce_far(xs, r, rr, turns, V::N);
    a = {V::load(r), V::load(rr), V::load(turns)};
  }
  return a;
}

}  // namespace NOX_VARIANT
}  // namespace nox
