// Exponential of the lanes of a vector, for arguments of at most 700 in absolute value; a NaN stays one.
//
// x = k log(2) + r with k whole and r within half of log(2): a power of two, made in the exponent field, times the
// Taylor polynomial of r up to the thirteenth power, which stops within 2^-57 of the exponential.
#pragma once
#include "vmath/lanes.hpp"

namespace nox {
inline namespace NOX_VARIANT {

constexpr double kExp[] = {
    1,         1,          1. / 2,      1. / 6,       1. / 24,       1. / 120,       1. / 720,
    1. / 5040, 1. / 40320, 1. / 362880, 1. / 3628800, 1. / 39916800, 1. / 479001600, 1. / 6227020800};

template <class V>
NOX_INLINE V exp_lanes(V x) {
  // Of this sum the low bits are k, and the rest goes away again; k log(2) in two parts, the first with room for k.
  const V shift = V::all(0x1.8p52), moved = madd(x, V::all(0x1.71547652b82fep0), shift), k = moved - shift;
  const V r = nmadd(k, V::all(0x1.ef35793c7673p-45), nmadd(k, V::all(0x1.62e42fefa38p-1), x));
  const V power = shift_bits_left<52>(add_bits(moved, all_bits<V>(1023)));
  return polynomial(kExp, r) * power;
}

}  // namespace NOX_VARIANT
}  // namespace nox
