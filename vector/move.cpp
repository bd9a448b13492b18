// Fill, copy and move: checks, then byte kernels shared by all element types.
#include "core/body.hpp"
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {
template <class T> NOX_INLINE NoxStatus set(T v, T* d, int len) {
  if (const NoxStatus st = check(len, d)) return st;
  for (int i = 0; i < len; ++i) d[i] = v;
  return noxStsNoErr;
}
template <class T> NOX_INLINE NoxStatus zero(T* d, int len) {
  if (const NoxStatus st = check(len, d)) return st;
  __builtin_memset(d, 0, sizeof(T) * size_t(len));
  return noxStsNoErr;
}
template <class T> NOX_INLINE NoxStatus copy(const T* s, T* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  __builtin_memcpy(d, s, sizeof(T) * size_t(len));
  return noxStsNoErr;
}
template <class T> NOX_INLINE NoxStatus move(const T* s, T* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  __builtin_memmove(d, s, sizeof(T) * size_t(len));
  return noxStsNoErr;
}
template <bool Msb> NOX_INLINE NoxStatus bits(const Nox8u* s, int so, Nox8u* d, int dof, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (so < 0 || dof < 0) return noxStsSizeErr;
  so &= 7; dof &= 7;
  for (int i = 0; i < len; ++i) {
    const size_t a = size_t(so) + size_t(i), b = size_t(dof) + size_t(i);
    const int am = Msb ? 0x80 >> (a & 7) : 1 << (a & 7), bm = Msb ? 0x80 >> (b & 7) : 1 << (b & 7);
    d[b / 8] = Nox8u(s[a / 8] & am ? d[b / 8] | bm : d[b / 8] & ~bm);
  }
  return noxStsNoErr;
}
}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox
using namespace nox;
extern "C" {
NoxStatus NOX_BODY(noxsSet_8u)(Nox8u v, Nox8u* d, int len) { return set(v, d, len); }
NoxStatus NOX_BODY(noxsZero_8u)(Nox8u* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsSet_16s)(Nox16s v, Nox16s* d, int len) { return set(v, d, len); }
NoxStatus NOX_BODY(noxsZero_16s)(Nox16s* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsSet_32s)(Nox32s v, Nox32s* d, int len) { return set(v, d, len); }
NoxStatus NOX_BODY(noxsZero_32s)(Nox32s* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsSet_32sc)(Nox32sc v, Nox32sc* d, int len) { return set(v, d, len); }
NoxStatus NOX_BODY(noxsZero_32sc)(Nox32sc* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsSet_64f)(Nox64f v, Nox64f* d, int len) { return set(v, d, len); }
NoxStatus NOX_BODY(noxsZero_64f)(Nox64f* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsSet_64fc)(Nox64fc v, Nox64fc* d, int len) { return set(v, d, len); }
NoxStatus NOX_BODY(noxsZero_64fc)(Nox64fc* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsCopy_8u)(const Nox8u* s, Nox8u* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_8u)(const Nox8u* s, Nox8u* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_16s)(const Nox16s* s, Nox16s* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_16s)(const Nox16s* s, Nox16s* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_16sc)(const Nox16sc* s, Nox16sc* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_16sc)(const Nox16sc* s, Nox16sc* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_32s)(const Nox32s* s, Nox32s* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_32s)(const Nox32s* s, Nox32s* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_32f)(const Nox32f* s, Nox32f* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_32f)(const Nox32f* s, Nox32f* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_32sc)(const Nox32sc* s, Nox32sc* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_32sc)(const Nox32sc* s, Nox32sc* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_32fc)(const Nox32fc* s, Nox32fc* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_32fc)(const Nox32fc* s, Nox32fc* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_64s)(const Nox64s* s, Nox64s* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_64s)(const Nox64s* s, Nox64s* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_64f)(const Nox64f* s, Nox64f* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_64f)(const Nox64f* s, Nox64f* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_64sc)(const Nox64sc* s, Nox64sc* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_64sc)(const Nox64sc* s, Nox64sc* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_64fc)(const Nox64fc* s, Nox64fc* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsMove_64fc)(const Nox64fc* s, Nox64fc* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsCopyLE_1u)(const Nox8u* s, int so, Nox8u* d, int dof, int len) { return bits<true>(s, so, d, dof, len); }
NoxStatus NOX_BODY(noxsCopyBE_1u)(const Nox8u* s, int so, Nox8u* d, int dof, int len) { return bits<false>(s, so, d, dof, len); }
}
