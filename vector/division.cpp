// Division of Nox64f and Nox64fc arrays: the first array is the divisor.
//
// Division is the slow operation, so one serves several quotients. Four vectors of real divisors are multiplied up and
// each reciprocal is won back from that of the product; a block whose divisors could carry a product out of the normal
// range, or hold a zero or a NaN, is divided one by one. Complex values share theirs between the two parts, on vectors
// of real parts and of imaginary parts.
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
    store_run<V>(d, q0, q1, q2, q3);
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

// Replaces the parts of x = re + i*im by those of x / (c + i*d): (re*c + im*d)/m + i(im*c - re*d)/m, m = c*c + d*d, by
// the reciprocal of m; where m is zero, NaNs.
template <class V>
NOX_INLINE void divide(V& re, V& im, V c, V d, Watch<f64>& zeros) {
  const V m = c * c + d * d;
  const V zero = m == V::zero();
  zeros.see(zero);
  const V r = (V::all(1.0) / m) | zero;
  const V product = (re * c + im * d) * r;
  im = (im * c - re * d) * r;
  re = product;
}

NOX_INLINE NoxStatus divide_complex(const Nox64fc* by, const Nox64fc* x, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, by, x, d)) return st;
  using C = c64::vec;
  using V = parts_of<C>;
  const size_t n = static_cast<size_t>(len);
  Watch<f64> zeros;
  size_t i = 0;
  for (; n - i >= 2 * C::N; i += 2 * C::N) {
    const V x0 = parts(C::load(x + i)), x1 = parts(C::load(x + i + C::N));
    const V by0 = parts(C::load(by + i)), by1 = parts(C::load(by + i + C::N));
    V re = low_halves(x0, x1), im = high_halves(x0, x1);
    divide(re, im, low_halves(by0, by1), high_halves(by0, by1), zeros);
    store_run<C>(d + i, complex<C>(low_halves(re, im)), complex<C>(high_halves(re, im)));
  }
  for (; i < n; ++i) {
    F64x1 re = F64x1::load(&x[i].re), im = F64x1::load(&x[i].im);
    divide(re, im, F64x1::load(&by[i].re), F64x1::load(&by[i].im), zeros);
    re.store(&d[i].re);
    im.store(&d[i].im);
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
