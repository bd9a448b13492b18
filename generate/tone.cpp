// Cosine tones, real and complex, by recurrence.
//
// x[k + m] = 2 cos(m w) x[k] - x[k - m]: from two values the distance m is doubled, 2 cos(2 m w) following from
// 2 cos(m w), until it spans many vectors, which then are chains of their own. A complex tone is the same recurrence
// on real and imaginary parts side by side. The values one and two distances back are read again from the array.
#include "generate/phase.hpp"
#include "vmath/vmath.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr size_t kBlock = 2048;  // elements between two restarts
constexpr int kRestarts = 1;     // the hint that asks for them

// a b - c, by the processor's fused form where there is one.
template <class L>
NOX_INLINE L minus(L a, L b, L c) {
  return madd(a, b, negate(c));
}

// Continues doubles from `at` to `end`, `twice` being 2 cos(w) of the distance.
NOX_INLINE void extend(Nox64f* y, size_t at, size_t end, size_t distance, Nox64f twice) {
  using V = f64::vec;
  const auto next = [&](auto factor) {
    using L = decltype(factor);
    minus(factor, L::load(y + at - distance), L::load(y + at - 2 * distance)).store(y + at);
    at += L::N;
  };
  const F64x1 one = F64x1::all(twice);
  if (distance >= V::N) {
    for (size_t head = elements_to_boundary<V>(y + at, end - at); head > 0; --head) next(one);
    const V factor = V::all(twice);
    while (end - at >= V::N) next(factor);
  }
  while (at < end) next(one);
}

// Continues n doubles from the first 2 Parts of them, `twice` being 2 cos(w).
template <size_t Parts>
__attribute__((noinline)) void continue_tone(Nox64f* y, size_t n, Nox64f twice) {
  constexpr size_t kSpan = 64;  // of the last distance
  size_t distance = Parts;
  for (size_t at = 2 * Parts; at < n;) {
    const size_t end = distance < kSpan && 4 * distance < n ? 4 * distance : n;
    extend(y, at, end, distance, twice);
    at = end;
    distance *= 2;
    twice = twice * twice - 2;
  }
}

// The first two elements at an angle and the next.
NOX_INLINE void start(Nox64f* d, size_t n, Nox64f magn, Nox64f angle, Nox64f next) {
  Nox64f x[2] = {angle, next};
  cos_array(x, x, 2);
  d[0] = magn * x[0];
  if (n > 1) d[1] = magn * x[1];
}
NOX_INLINE void start(Nox64fc* d, size_t n, Nox64f magn, Nox64f angle, Nox64f next) {
  Nox64f x[2] = {angle, next}, sine[2];
  sincos_array(sine, x, x, 2);
  d[0] = {magn * x[0], magn * sine[0]};
  if (n > 1) d[1] = {magn * x[1], magn * sine[1]};
}
NOX_INLINE Nox64f* doubles(Nox64f* d) { return d; }
NOX_INLINE Nox64f* doubles(Nox64fc* d) { return &d->re; }

template <class E>
NOX_INLINE NoxStatus tone(E* d, int len, Nox64f magn, Nox64f frequency, Nox64f* phase, int hint, Nox64f above) {
  if (!phase) return noxStsNullPtrErr;
  if (magn <= 0) return noxStsToneMagnErr;
  if (!in_range(frequency, 0, above)) return noxStsToneFreqErr;
  const Nox64f first = *phase;
  if (!in_range(first, 0, kTurn)) return noxStsTonePhaseErr;
  if (const NoxStatus st = check(len, d)) return st;

  constexpr size_t kParts = sizeof(E) / sizeof(Nox64f);
  const Nox64f step = kTurn * frequency, twice = 2 * cos_one(step);
  *phase = phase_after(first, step, len);
  const size_t n = static_cast<size_t>(len), block = hint == kRestarts ? kBlock : n;
  for (size_t at = 0; at < n; at += block) {
    const size_t count = n - at < block ? n - at : block;
    const Nox64f k = static_cast<Nox64f>(at);
    start(d + at, count, magn, k * step + first, (k + 1) * step + first);
    continue_tone<kParts>(doubles(d + at), count * kParts, twice);
  }
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsTone_Direct_64f)(Nox64f* d, int len, Nox64f magn, Nox64f frequency, Nox64f* phase, int hint) {
  return tone(d, len, magn, frequency, phase, hint, 0.5);
}
NoxStatus NOX_BODY(noxsTone_Direct_64fc)(Nox64fc* d, int len, Nox64f magn, Nox64f frequency, Nox64f* phase, int hint) {
  return tone(d, len, magn, frequency, phase, hint, 1);
}

}  // extern "C"
