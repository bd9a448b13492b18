// Square roots of Nox64f and Nox64fc arrays.
//
// The real root is the processor's. The complex one is the principal root by two real roots and a quotient, on
// vectors of real parts and of imaginary parts taken apart from the array and put together again.
#include "core/body.hpp"
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct Root {
  Watch<f64>& negatives;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    negatives.see(a < V::zero());  // neither -0.0 nor a NaN
    return sqrt(a);
  }
};

NOX_INLINE NoxStatus real_roots(const Nox64f* s, Nox64f* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  Watch<f64> negatives;
  map<f64>(d, len, Root{negatives}, s);
  return negatives.any() ? noxStsSqrtNegArg : noxStsNoErr;
}

// Replaces real and imaginary parts by those of the principal root. Halves, so that the squares of values near the top
// of the range don't overflow.
template <class V>
NOX_INLINE void principal_root(V& re, V& im) {
  const V a = re * V::all(0.5), b = im * V::all(0.5);
  const V s = sqrt(abs(a) + sqrt(a * a + b * b));
  const V divisor = select(s == V::zero(), V::all(0.5), s);  // of the zero b; the result keeps the true s
  const V t = abs(b) / divisor;
  const V left = re < V::zero();
  const V sign = (im < V::zero()) & V::all(-0.0);  // a negative zero isn't negative here
  re = select(left, t, s);
  im = select(left, s, t) ^ sign;
}

NOX_INLINE NoxStatus complex_roots(const Nox64fc* s, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  using C = c64::vec;
  using V = parts_of<C>;
  const size_t n = static_cast<size_t>(len);
  size_t i = 0;
  for (; n - i >= 2 * C::N; i += 2 * C::N) {
    const V a = parts(C::load(s + i)), b = parts(C::load(s + i + C::N));
    V re = low_halves(a, b), im = high_halves(a, b);
    principal_root(re, im);
    complex<C>(low_halves(re, im)).store(d + i);
    complex<C>(high_halves(re, im)).store(d + i + C::N);
  }
  for (; i < n; ++i) {
    F64x1 re = F64x1::load(&s[i].re), im = F64x1::load(&s[i].im);
    principal_root(re, im);
    re.store(&d[i].re);
    im.store(&d[i].im);
  }
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsSqrt_64f)(const Nox64f* s, Nox64f* d, int len) { return real_roots(s, d, len); }
NoxStatus NOX_BODY(noxsSqrt_64f_I)(Nox64f* d, int len) { return real_roots(d, d, len); }
NoxStatus NOX_BODY(noxsSqrt_64fc)(const Nox64fc* s, Nox64fc* d, int len) { return complex_roots(s, d, len); }
NoxStatus NOX_BODY(noxsSqrt_64fc_I)(Nox64fc* d, int len) { return complex_roots(d, d, len); }

}  // extern "C"
