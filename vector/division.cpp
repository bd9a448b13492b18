// Division of Nox64f and Nox64fc arrays: the first array is the divisor.
//
// Division is the slow operation. One serves the two parts of a complex quotient, and a vector of them a pair of real
// quotients: two divisors are multiplied and each reciprocal is won back from that of the product. A pair of vectors
// whose divisors could carry the product out of the normal range, or hold a zero or a NaN, is divided one by one.
#include "core/body.hpp"
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// True quotients, with the rule for a zero divisor of either sign: the dividend times +infinity.
template <class V>
NOX_INLINE V divide(V x, V by, Watch<f64>& zeros) {
  const V zero = by == V::zero();
  zeros.see(zero);
  return select(zero, x * V::all(__builtin_inf()), x / by);
}

// Two vectors of quotients at d, of x by `by`; the lanes in one place of the two vectors are a pair.
template <class V>
NOX_INLINE void divide_pair(const Nox64f* by, const Nox64f* x, Nox64f* d, Watch<f64>& zeros) {
  // Two factors between 2^-510 and 2^510 leave the product and its reciprocal normal.
  constexpr Nox64f kLow = 0x1p-510, kHigh = 0x1p510;
  const V by0 = V::load(by), by1 = V::load(by + V::N), product = by0 * by1;
  const V low = min(abs(by0), abs(by1)), high = max(abs(by0), abs(by1));
  // Smaller and larger pass over a NaN, the product keeps it.
  const V usual = (V::all(kLow) <= low) & (high <= V::all(kHigh)) & (product == product);
  if (mask_bits(usual) == (1 << V::N) - 1) {
    const V r = V::all(1.0) / product;
    const V q0 = V::load(x) * (r * by1), q1 = V::load(x + V::N) * (r * by0);
    store_run<V>(d, q0, q1);
  } else {
    const V q0 = divide(V::load(x), by0, zeros), q1 = divide(V::load(x + V::N), by1, zeros);
    store_run<V>(d, q0, q1);
  }
}

NOX_INLINE NoxStatus divide_reals(const Nox64f* by, const Nox64f* x, Nox64f* d, int len) {
  if (const NoxStatus st = check(len, by, x, d)) return st;
  using V = f64::vec;
  Watch<f64> zeros;
  size_t left = static_cast<size_t>(len);
  for (; left >= 2 * V::N; left -= 2 * V::N) {
    divide_pair<V>(by, x, d, zeros);
    advance(2 * V::N * sizeof(Nox64f), by, x, d);
  }
  if (left >= V::N) {
    divide(V::load(x), V::load(by), zeros).store(d);
    left -= V::N;
    advance(V::N * sizeof(Nox64f), by, x, d);
  }
  for (; left > 0; --left) {
    divide(F64x1::load(x), F64x1::load(by), zeros).store(d);
    advance(sizeof(Nox64f), by, x, d);
  }
  return zeros.any() ? noxStsDivByZero : noxStsNoErr;
}

// Replaces x = re + i im by its quotient by a + ib: the conjugate's product times the reciprocal of the squared
// magnitude, and NaNs where that is zero. The vectors hold real parts and imaginary parts apart.
template <class V>
NOX_INLINE void quotients(V a, V b, V& re, V& im, Watch<f64>& zeros) {
  const V magnitude = a * a + b * b, zero = magnitude == V::zero();
  V r = V::all(1.0) / magnitude;
  if (mask_bits(zero) != 0) {
    zeros.see(zero);
    r = r | zero;
  }
  const V product = re * a + im * b;
  im = (im * a - re * b) * r;
  re = product * r;
}

NOX_INLINE NoxStatus divide_complex(const Nox64fc* by, const Nox64fc* x, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, by, x, d)) return st;
  using C = c64::vec;
  using V = parts_of<C>;
  Watch<f64> zeros;
  size_t left = static_cast<size_t>(len);
  for (; left >= 2 * C::N; left -= 2 * C::N) {
    const V by0 = parts(C::load(by)), by1 = parts(C::load(by + C::N));
    const V x0 = parts(C::load(x)), x1 = parts(C::load(x + C::N));
    V re = low_halves(x0, x1), im = high_halves(x0, x1);
    quotients(low_halves(by0, by1), high_halves(by0, by1), re, im, zeros);
    store_run<C>(d, complex<C>(low_halves(re, im)), complex<C>(high_halves(re, im)));
    advance(2 * C::N * sizeof(Nox64fc), by, x, d);
  }
  for (; left > 0; --left) {
    F64x1 re = F64x1::load(&x->re), im = F64x1::load(&x->im);
    quotients(F64x1::load(&by->re), F64x1::load(&by->im), re, im, zeros);
    re.store(&d->re);
    im.store(&d->im);
    advance(sizeof(Nox64fc), by, x, d);
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
