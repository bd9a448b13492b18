// One spectral value of an array by the Goertzel recurrence.
//
// Each step waits for the one before it, a multiplication and an addition away, so the order told to the user costs
// nothing: the loop runs at the latency of this chain. Real and imaginary parts run side by side in two lanes; the
// imaginary lane of a real array stays zero.
#include "core/body.hpp"
#include "core/simd/c64.hpp"
#include "vmath/vmath.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr Nox64f kTwoPi = 6.283185307179586;

NOX_INLINE F64x2 parts_at(const Nox64f* p) { return {F64x1::load(p).v}; }  // a load of one lane zeroes the other
NOX_INLINE F64x2 parts_at(const Nox64fc* p) { return F64x2::load(&p->re); }

template <class T>
NOX_INLINE NoxStatus goertz(const T* s, int len, Nox64fc* value, Nox64f frequency) {
  if (const NoxStatus st = check(len, s, value)) return st;
  if (frequency < 0 || frequency >= 1) return noxStsRelFreqErr;
  Nox64f sine, cosine;
  sincos_one(&sine, &cosine, kTwoPi * frequency);
  const F64x2 twice = F64x2::all(cosine + cosine);
  F64x2 s1 = F64x2::zero(), s2 = F64x2::zero();
  // Two steps an iteration: they change the two names for each other, and no register need be copied.
  int left = len;
  for (; left >= 2; left -= 2, s += 2) {
    s2 = madd(s1, twice, parts_at(s) - s2);
    s1 = madd(s2, twice, parts_at(s + 1) - s1);
  }
  if (left > 0) {
    const F64x2 last = madd(s1, twice, parts_at(s) - s2);
    s2 = s1;
    s1 = last;
  }
  // (c s1.re - s2.re) + (-s) s1.im and (c s1.im - s2.im) + s s1.re, every step rounded in all builds.
  const F64x2 sines = parts(C64x1::all({-sine, sine}));
  const F64x2 sum = (F64x2::all(cosine) * s1 - s2) + sines * reverse(s1);
  complex<C64x1>(sum).store(value);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsGoertz_64f)(const Nox64f* s, int len, Nox64fc* value, Nox64f frequency) {
  return goertz(s, len, value, frequency);
}
NoxStatus NOX_BODY(noxsGoertz_64fc)(const Nox64fc* s, int len, Nox64fc* value, Nox64f frequency) {
  return goertz(s, len, value, frequency);
}

}  // extern "C"
