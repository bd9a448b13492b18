// Reversal and conjugation. Values move as bits: no arithmetic instruction touches them.
#include "core/body.hpp"
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct Conjugate {
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return conj(a);
  }
};

template <class K>
NOX_INLINE NoxStatus flip_in_place(typename K::elem* d, int len) {
  if (const NoxStatus st = check(len, d)) return st;
  reverse_in_place<K>(d, len);
  return noxStsNoErr;
}
// Equal pointers are looked at before any check: the in-place form then makes its own.
template <class K>
NOX_INLINE NoxStatus flip(const typename K::elem* s, typename K::elem* d, int len) {
  if (s == d) return flip_in_place<K>(d, len);
  if (const NoxStatus st = check(len, s, d)) return st;
  map_reversed<K>(d, s, len, Keep{});
  return noxStsNoErr;
}
NOX_INLINE NoxStatus conjugate(const Nox64fc* s, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  map<c64>(d, len, Conjugate{}, s);
  return noxStsNoErr;
}

// Moved as words of the same size.
NOX_INLINE const Nox32u* words(const Nox32f* p) { return reinterpret_cast<const Nox32u*>(p); }
NOX_INLINE Nox32u* words(Nox32f* p) { return reinterpret_cast<Nox32u*>(p); }

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsFlip_8u)(const Nox8u* s, Nox8u* d, int len) { return flip<ints<Nox8u>>(s, d, len); }
NoxStatus NOX_BODY(noxsFlip_16u)(const Nox16u* s, Nox16u* d, int len) { return flip<ints<Nox16u>>(s, d, len); }
NoxStatus NOX_BODY(noxsFlip_32f)(const Nox32f* s, Nox32f* d, int len) {
  return flip<ints<Nox32u>>(words(s), words(d), len);
}
NoxStatus NOX_BODY(noxsFlip_64f)(const Nox64f* s, Nox64f* d, int len) { return flip<f64>(s, d, len); }
NoxStatus NOX_BODY(noxsFlip_64fc)(const Nox64fc* s, Nox64fc* d, int len) { return flip<c64>(s, d, len); }

NoxStatus NOX_BODY(noxsFlip_8u_I)(Nox8u* d, int len) { return flip_in_place<ints<Nox8u>>(d, len); }
NoxStatus NOX_BODY(noxsFlip_16u_I)(Nox16u* d, int len) { return flip_in_place<ints<Nox16u>>(d, len); }
NoxStatus NOX_BODY(noxsFlip_32f_I)(Nox32f* d, int len) { return flip_in_place<ints<Nox32u>>(words(d), len); }
NoxStatus NOX_BODY(noxsFlip_64f_I)(Nox64f* d, int len) { return flip_in_place<f64>(d, len); }
NoxStatus NOX_BODY(noxsFlip_64fc_I)(Nox64fc* d, int len) { return flip_in_place<c64>(d, len); }

NoxStatus NOX_BODY(noxsConj_64fc)(const Nox64fc* s, Nox64fc* d, int len) { return conjugate(s, d, len); }
NoxStatus NOX_BODY(noxsConj_64fc_I)(Nox64fc* d, int len) { return conjugate(d, d, len); }
NoxStatus NOX_BODY(noxsConjFlip_64fc)(const Nox64fc* s, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  map_reversed<c64>(d, s, len, Conjugate{});
  return noxStsNoErr;
}

}  // extern "C"
