// Index forms of the movers: long arrays go in chunks whose byte counts fit in 31 bits; and the fill that makes no
// checks.
#include "adapters/adapter.hpp"
#include "nox/adapters.h"

namespace nox {
namespace {

constexpr int kOneCallBelow = 1024;

// The chunks run forward, and the status of the last one is the result: an earlier failure doesn't end the loop.
template <class T, class Move>
NoxStatus move_in_chunks(Move move, const T* s, int s_index, T* d, int d_index, int len) {
  if (len < kOneCallBelow) return move(at(s, s_index), at(d, d_index), len);
  constexpr int kLimit = 0x7FFFFFFF / static_cast<int>(sizeof(T));
  NoxStatus status = noxStsNoErr;
  for (int remaining = len; remaining > 0;) {
    const int chunk = remaining < kLimit ? remaining : kLimit;
    status = move(at(s, s_index), at(d, d_index), chunk);
    s = at(s, chunk);
    d = at(d, chunk);
    remaining -= chunk;
  }
  return status;
}

}  // namespace
}  // namespace nox

using nox::at;
using nox::move_in_chunks;

extern "C" {

NoxStatus noxsSet_64f_Idx(Nox64f val, Nox64f* pDst, int dstIdx, int len) {
  if (len < 1) return noxStsNoErr;
  Nox64f* const d = at(pDst, dstIdx);
  *d = val;  // no pointer is tested here: a null one faults, where the primitive would quietly refuse it
  if (len > 1) plain_noxsSet_64f(val, d + 1, len - 1);
  return noxStsNoErr;
}

NoxStatus noxsMove_8u_Idx(const Nox8u* pSrc, int srcIdx, Nox8u* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_8u, pSrc, srcIdx, pDst, dstIdx, len);
}
NoxStatus noxsMove_16s_Idx(const Nox16s* pSrc, int srcIdx, Nox16s* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_16s, pSrc, srcIdx, pDst, dstIdx, len);
}
NoxStatus noxsMove_16sc_Idx(const Nox16sc* pSrc, int srcIdx, Nox16sc* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_16sc, pSrc, srcIdx, pDst, dstIdx, len);
}
NoxStatus noxsMove_32s_Idx(const Nox32s* pSrc, int srcIdx, Nox32s* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_32s, pSrc, srcIdx, pDst, dstIdx, len);
}
NoxStatus noxsMove_32f_Idx(const Nox32f* pSrc, int srcIdx, Nox32f* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_32f, pSrc, srcIdx, pDst, dstIdx, len);
}
NoxStatus noxsMove_32sc_Idx(const Nox32sc* pSrc, int srcIdx, Nox32sc* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_32sc, pSrc, srcIdx, pDst, dstIdx, len);
}
NoxStatus noxsMove_32fc_Idx(const Nox32fc* pSrc, int srcIdx, Nox32fc* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_32fc, pSrc, srcIdx, pDst, dstIdx, len);
}
NoxStatus noxsMove_64s_Idx(const Nox64s* pSrc, int srcIdx, Nox64s* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_64s, pSrc, srcIdx, pDst, dstIdx, len);
}
NoxStatus noxsMove_64f_Idx(const Nox64f* pSrc, int srcIdx, Nox64f* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_64f, pSrc, srcIdx, pDst, dstIdx, len);
}
NoxStatus noxsMove_64sc_Idx(const Nox64sc* pSrc, int srcIdx, Nox64sc* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_64sc, pSrc, srcIdx, pDst, dstIdx, len);
}
NoxStatus noxsMove_64fc_Idx(const Nox64fc* pSrc, int srcIdx, Nox64fc* pDst, int dstIdx, int len) {
  return move_in_chunks(plain_noxsMove_64fc, pSrc, srcIdx, pDst, dstIdx, len);
}

}  // extern "C"
