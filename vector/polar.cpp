// Angles of complex arrays, and the ways to and from polar form, on the lanes of the library's own elementary
// functions.
#include "vector/complex.hpp"
#include "vmath/atan2.hpp"
#include "vmath/trig.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct PhaseOf {
  NOX_INLINE Reals operator()(Reals re, Reals im) const { return atan2_lanes(im, re); }
  NOX_INLINE Reals operator()(Pairs z) const { return atan2_lanes(z.im, z.re); }
};
constexpr auto from_polar = [](Reals magnitude, Reals phase) {
  Reals sine, cosine;
  sine_cosine_lanes(phase, sine, cosine);
  return Pairs{cosine * magnitude, sine * magnitude};
};

// Of two calls in a row the first failure.
NOX_INLINE NoxStatus first_of(NoxStatus first, NoxStatus second) { return first != noxStsNoErr ? first : second; }

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsPhase_64f)(const Nox64f* re, const Nox64f* im, Nox64f* d, int len) {
  if (const NoxStatus st = check(len, re, im, d)) return st;
  each(d, len, PhaseOf{}, re, im);
  return noxStsNoErr;
}
NoxStatus NOX_BODY(noxsPhase_64fc)(const Nox64fc* s, Nox64f* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  each(d, len, PhaseOf{}, s);
  return noxStsNoErr;
}

NoxStatus NOX_BODY(noxsCartToPolar_64f)(const Nox64f* re, const Nox64f* im, Nox64f* magnitude, Nox64f* phase, int len) {
  const NoxStatus first = NOX_BODY(noxsMagnitude_64f)(re, im, magnitude, len);
  return first_of(first, NOX_BODY(noxsPhase_64f)(re, im, phase, len));
}
NoxStatus NOX_BODY(noxsCartToPolar_64fc)(const Nox64fc* s, Nox64f* magnitude, Nox64f* phase, int len) {
  const NoxStatus first = NOX_BODY(noxsMagnitude_64fc)(s, magnitude, len);
  return first_of(first, NOX_BODY(noxsPhase_64fc)(s, phase, len));
}

NoxStatus NOX_BODY(noxsPolarToCart_64f)(const Nox64f* magnitude, const Nox64f* phase, Nox64f* re, Nox64f* im, int len) {
  if (const NoxStatus st = check(len, magnitude, phase, re, im)) return st;
  each(TwoArrays{re, im}, len, from_polar, magnitude, phase);
  return noxStsNoErr;
}
NoxStatus NOX_BODY(noxsPolarToCart_64fc)(const Nox64f* magnitude, const Nox64f* phase, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, magnitude, phase, d)) return st;
  each(d, len, from_polar, magnitude, phase);
  return noxStsNoErr;
}

}  // extern "C"
