// Division of Nox64f and Nox64fc arrays: the first array is the divisor.
//
// Division is the slow operation, so one serves several quotients: four vectors of real divisors are multiplied up and
// each reciprocal is won back from that of the product, and two vectors of squared magnitudes share likewise. A block
// whose divisors could carry a product out of the normal range, or hold a zero or a NaN, is divided one by one.
#include "core/body.hpp"
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Whether every lane lies between the bounds; a lane that is no number doesn't.
template <class V, class... M>
NOX_INLINE bool all_within(Nox64f low, Nox64f high, M... m) {
  return mask_bits(((V::all(low) <= m) & ...) & ((m <= V::all(high)) & ...)) == (1 << V::N) - 1;
}

// True quotients, with the rule for a zero divisor of either sign: the dividend times +infinity.
template <class V>
NOX_INLINE V divide(V x, V by, Watch<f64>& zeros) {
  const V zero = by == V::zero();
  zeros.see(zero);
  return select(zero, x * V::all(__builtin_inf()), x / by);
}

// Four vectors of quotients at d, of x by `by`; the lanes in one place of the four vectors are a group.
template <class V>
NOX_INLINE void divide_block(const Nox64f* by, const Nox64f* x, Nox64f* d, Watch<f64>& zeros) {
  // Four factors between 2^-255 and 2^255 leave the product and its reciprocal normal.
  constexpr Nox64f kLow = 0x1p-255, kHigh = 0x1p255;
  const V by0 = V::load(by), by1 = V::load(by + V::N), by2 = V::load(by + 2 * V::N), by3 = V::load(by + 3 * V::N);
  const V low = min(min(abs(by0), abs(by1)), min(abs(by2), abs(by3)));
  const V high = max(max(abs(by0), abs(by1)), max(abs(by2), abs(by3)));
  const V by01 = by0 * by1, by23 = by2 * by3, product = by01 * by23;
  // Smallest and largest pass over a NaN, the product keeps it.
  const V usual = (V::all(kLow) <= low) & (high <= V::all(kHigh)) & (product == product);
  if (mask_bits(usual) == (1 << V::N) - 1) {
    const V r = V::all(1.0) / product, r01 = r * by23, r23 = r * by01;
    const V q0 = V::load(x) * (r01 * by1), q1 = V::load(x + V::N) * (r01 * by0);
    const V q2 = V::load(x + 2 * V::N) * (r23 * by3), q3 = V::load(x + 3 * V::N) * (r23 * by2);
    q0.store(d);
    q1.store(d + V::N);
    q2.store(d + 2 * V::N);
    q3.store(d + 3 * V::N);
  } else {
    for (size_t i = 0; i < 4 * V::N; i += V::N) divide(V::load(x + i), V::load(by + i), zeros).store(d + i);
  }
}

NOX_INLINE NoxStatus divide_reals(const Nox64f* by, const Nox64f* x, Nox64f* d, int len) {
  if (const NoxStatus st = check(len, by, x, d)) return st;
  using V = f64::vec;
  const size_t n = static_cast<size_t>(len);
  Watch<f64> zeros;
  size_t i = 0;
  for (; n - i >= 4 * V::N; i += 4 * V::N) divide_block<V>(by + i, x + i, d + i, zeros);
  for (; n - i >= V::N; i += V::N) divide(V::load(x + i), V::load(by + i), zeros).store(d + i);
  for (; i < n; ++i) divide(F64x1::load(x + i), F64x1::load(by + i), zeros).store(d + i);
  return zeros.any() ? noxStsDivByZero : noxStsNoErr;
}

// The squared magnitudes of two vectors of complex values, and reciprocals in the same order spread back over them.
template <class C, class P = parts_of<C>>
NOX_INLINE P squared_magnitudes(C a, C b) {
  const P aa = parts(a) * parts(a), bb = parts(b) * parts(b);
  return low_halves(aa, bb) + high_halves(aa, bb);
}

// 1 / m; where m is zero, a NaN.
template <class P>
NOX_INLINE P reciprocal_or_nan(P m, Watch<f64>& zeros) {
  const P zero = m == P::zero();
  zeros.see(zero);
  return (P::all(1.0) / m) | zero;
}

// x / by, given 1 / |by|^2 in both lanes of each value: (ac + bd) + i(bc - ad) times that.
template <class C, class P = parts_of<C>>
NOX_INLINE C quotient(C x, C by, P reciprocal) {
  const C product = sub_add(complex<C>(parts(x) * parts(re_twice(by))),
                            complex<C>(parts(swap_parts(x)) * negate(parts(im_twice(by)))));
  return complex<C>(parts(product) * reciprocal);
}

// Quotients of two vectors that share a vector of reciprocals.
template <class C, class P = parts_of<C>>
NOX_INLINE void quotients(const Nox64fc* by, const Nox64fc* x, Nox64fc* d, P reciprocals) {
  const C q0 = quotient(C::load(x), C::load(by), low_halves(reciprocals, reciprocals));
  const C q1 = quotient(C::load(x + C::N), C::load(by + C::N), high_halves(reciprocals, reciprocals));
  q0.store(d);
  q1.store(d + C::N);
}

// Four vectors of quotients at d, of x by `by`.
template <class C, class P = parts_of<C>>
NOX_INLINE void divide_block(const Nox64fc* by, const Nox64fc* x, Nox64fc* d, Watch<f64>& zeros) {
  // Two factors between 2^-510 and 2^510 leave the product and its reciprocal normal.
  constexpr Nox64f kLow = 0x1p-510, kHigh = 0x1p510;
  const P m0 = squared_magnitudes(C::load(by), C::load(by + C::N));
  const P m1 = squared_magnitudes(C::load(by + 2 * C::N), C::load(by + 3 * C::N));
  const bool usual = all_within<P>(kLow, kHigh, m0, m1);
  const P r = usual ? P::all(1.0) / (m0 * m1) : P::zero();
  const P r0 = usual ? r * m1 : reciprocal_or_nan(m0, zeros), r1 = usual ? r * m0 : reciprocal_or_nan(m1, zeros);
  quotients<C>(by, x, d, r0);
  quotients<C>(by + 2 * C::N, x + 2 * C::N, d + 2 * C::N, r1);
}

NOX_INLINE NoxStatus divide_complex(const Nox64fc* by, const Nox64fc* x, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, by, x, d)) return st;
  using C = c64::vec;
  const size_t n = static_cast<size_t>(len);
  Watch<f64> zeros;
  size_t i = 0;
  for (; n - i >= 4 * C::N; i += 4 * C::N) divide_block<C>(by + i, x + i, d + i, zeros);
  for (; i < n; ++i) {
    const C64x1 b = C64x1::load(by + i);
    const F64x2 squares = parts(b) * parts(b), m = low_halves(squares, squares) + high_halves(squares, squares);
    quotient(C64x1::load(x + i), b, reciprocal_or_nan(m, zeros)).store(d + i);
  }
  return zeros.any() ? noxStsDivByZero : noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsDiv_64f)(const Nox64f* by, const Nox64f* x, Nox64f* d, int len) {
  return divide_reals(by, x, d, len);
}
NoxStatus NOX_BODY(noxsDiv_64f_I)(const Nox64f* by, Nox64f* d, int len) { return divide_reals(by, d, d, len); }
NoxStatus NOX_BODY(noxsDiv_64fc)(const Nox64fc* by, const Nox64fc* x, Nox64fc* d, int len) {
  return divide_complex(by, x, d, len);
}
NoxStatus NOX_BODY(noxsDiv_64fc_I)(const Nox64fc* by, Nox64fc* d, int len) { return divide_complex(by, d, d, len); }

}  // extern "C"
