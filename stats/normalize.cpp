// Normalisation: a value is subtracted from every element and the rest divided by another one, as a product with its
// reciprocal. h9 fuses: the element by the reciprocal, less the quotient of the two values.
#include <float.h>

#include "core/body.hpp"
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// The lanes of a vector, and one value in all of them.
NOX_INLINE F64x1 lanes(F64x1 a) { return a; }
NOX_INLINE f64::vec lanes(f64::vec a) { return a; }
template <class C, class P = parts_of<C>>
NOX_INLINE P lanes(C a) {
  return parts(a);
}

template <class E>
struct Normalize {
  E sub;  // h9: what is subtracted behind the product
  Nox64f reciprocal;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    const auto x = lanes(a), c = lanes(V::all(sub));
    const auto r = decltype(x + x)::all(reciprocal);
    return {(variant.fuses ? madd(x, r, negate(c)) : (x - c) * r).v};
  }
};

NOX_INLINE Nox64f over(Nox64f sub, Nox64f div) { return sub / div; }
NOX_INLINE Nox64fc over(Nox64fc sub, Nox64f div) { return {sub.re / div, sub.im / div}; }

template <class K, class E>
NOX_INLINE NoxStatus normalize(const E* s, E* d, int len, E sub, Nox64f div) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (__builtin_fabs(div) < DBL_MIN) return noxStsDivByZeroErr;
  map<K>(d, len, Normalize<E>{variant.fuses ? over(sub, div) : sub, 1.0 / div}, s);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsNormalize_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f sub, Nox64f div) {
  return normalize<f64>(s, d, len, by_words(sub), by_words(div));
}
NoxStatus NOX_BODY(noxsNormalize_64fc)(const Nox64fc* s, Nox64fc* d, int len, Nox64fc sub, Nox64f div) {
  return normalize<c64>(s, d, len, by_words(sub), by_words(div));
}

}  // extern "C"
