// The Kaiser window: the modified Bessel function of order zero by two polynomials, a vector of weights at a time.
#include "generate/window.hpp"
#include "vmath/exp.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using V = f64::vec;

constexpr Nox64f kLargest = 308;  // argument whose Bessel function and its reciprocal stay in range

// Below 4, in (x / 4)^2; from 4 on, in 4 / x, behind exp(x) / sqrt(x). Lowest power first.
constexpr double kNear[] = {0.9999999985, 4.0000001935, 3.9999959541, 1.777809969,
                            0.4443189384, 0.0713758187, 0.0075942968, 0.0008267816};
constexpr double kFar[] = {0.3989422809,  0.0124667783,  0.0017623668,  0.00026,      0.0022585672,
                           -0.0128314822, 0.0495811118,  -0.1209940805, 0.1895476618, -0.1867783276,
                           0.1113315511,  -0.0366694767, 0.0051246015};

NOX_INLINE V bessel(V x) {
  const V four = V::all(4), quarter = x * V::all(0.25), near = x < four;
  const int which = mask_bits(near);
  V small = V::zero(), large = V::zero();
  if (which != 0) small = polynomial(kNear, quarter * quarter);
  if (which != kAllLanes<V>) {
    const V far = select(near, four, x);  // no quotient by a zero
    large = exp_lanes(far) / sqrt(far) * polynomial(kFar, four / far);
  }
  return select(near, small, large);
}

class Kaiser {
 public:
  NOX_INLINE Kaiser(size_t n, Nox64f alpha, Nox64f largest)
      : last_(V::all(static_cast<Nox64f>(n - 1))), alpha_(V::all(alpha)), scale_(V::all(1) / bessel(V::all(largest))) {
    constexpr Nox64f kFirst[4] = {0, 1, 2, 3};
    position_ = V::load(kFirst);
  }
  NOX_INLINE V next() {
    const V k = position_;
    position_ = k + V::all(V::N);
    const V other = max(last_ - k, V::zero());  // lanes that fill the last vector up may stand behind the array
    return bessel(abs(alpha_ * sqrt(k * other))) * scale_;
  }

 private:
  V last_, alpha_, scale_, position_;
};

template <class E>
NOX_INLINE NoxStatus kaiser(const E* s, E* d, int len, Nox64f alpha) {
  if (const NoxStatus st = check(len, s, d)) return st;
  const Nox64f half = static_cast<Nox64f>(len - 1) * alpha * 0.5, largest = half < 0 ? -half : half;
  if (largest > kLargest) return noxStsHugeWinErr;
  if (len == 1)
    keep_one(s, d);
  else
    apply_window(s, d, static_cast<size_t>(len), Kaiser(static_cast<size_t>(len), alpha, largest));
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsWinKaiser_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f alpha) {
  return kaiser(s, d, len, alpha);
}
NoxStatus NOX_BODY(noxsWinKaiser_64fc)(const Nox64fc* s, Nox64fc* d, int len, Nox64f alpha) {
  return kaiser(s, d, len, alpha);
}
NoxStatus NOX_BODY(noxsWinKaiser_64f_I)(Nox64f* d, int len, Nox64f alpha) { return kaiser(d, d, len, alpha); }
NoxStatus NOX_BODY(noxsWinKaiser_64fc_I)(Nox64fc* d, int len, Nox64f alpha) { return kaiser(d, d, len, alpha); }

}  // extern "C"
