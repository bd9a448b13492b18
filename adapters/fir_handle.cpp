// One-call forms of the FIR filters: a handle holds spec, delay lines and work buffer.
//
// A run first copies the delay line that the last call wrote over the one that this call reads: that is what makes
// successive calls continue one signal.
#include <stdlib.h>

#include "adapters/adapter.hpp"
#include "nox/adapters.h"

struct NoxFilterHandle {
  void* spec;
  void* dlyIn;   // read by the next call
  void* dlyOut;  // written by the next call
  Nox8u* work;
  Nox32s size;  // elements of each delay line
};

namespace nox {
namespace {

// What differs between the two element types.
template <class T>
struct FirType;
template <>
struct FirType<Nox64f> {
  static constexpr int kCode = NOX_TYPE_64F;
  static constexpr auto allocate = plain_noxsMalloc_64f;
  static constexpr auto zero = plain_noxsZero_64f;
  static constexpr auto copy = plain_noxsCopy_64f;
  static constexpr auto init = plain_noxsFIRSRInit_64f;
  static constexpr auto run = plain_noxsFIRSR_64f;
};
template <>
struct FirType<Nox64fc> {
  static constexpr int kCode = NOX_TYPE_64FC;
  static constexpr auto allocate = plain_noxsMalloc_64fc;
  static constexpr auto zero = plain_noxsZero_64fc;
  static constexpr auto copy = plain_noxsCopy_64fc;
  static constexpr auto init = plain_noxsFIRSRInit_64fc;
  static constexpr auto run = plain_noxsFIRSR_64fc;
};

template <class T>
T* cleared_line(int len) {
  T* line = FirType<T>::allocate(len);
  FirType<T>::zero(line, len);
  return line;
}

template <class T>
NoxStatus init_handle(const T* taps, int tapsLen, int algType, NoxFilterHandle** ppHandle) {
  NoxFilterHandle* h = static_cast<NoxFilterHandle*>(malloc(sizeof(NoxFilterHandle)));
  h->dlyIn = cleared_line<T>(tapsLen);
  h->dlyOut = cleared_line<T>(tapsLen);
  int spec_size = 0, work_size = 0;
  plain_noxsFIRSRGetSize(tapsLen, FirType<T>::kCode, &spec_size, &work_size);
  h->work = static_cast<Nox8u*>(aligned_allocate(static_cast<Nox64u>(work_size)));
  h->spec = aligned_allocate(static_cast<Nox64u>(spec_size));
  h->size = tapsLen;
  const NoxStatus status = FirType<T>::init(taps, tapsLen, algType, static_cast<NoxFirSpec*>(h->spec));
  *ppHandle = h;
  return status;
}

template <class T>
NoxStatus run(const T* s, T* d, int len, NoxFilterHandle* h) {
  T* in = static_cast<T*>(h->dlyIn);
  T* out = static_cast<T*>(h->dlyOut);
  FirType<T>::copy(out, in, h->size);
  return FirType<T>::run(s, d, len, static_cast<const NoxFirSpec*>(h->spec), in, out, h->work);
}

}  // namespace
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus noxsFIRSRInitAlloc_64f_Idx(const Nox64f* pTaps, int tapsIdx, int tapsLen, int algType,
                                     NoxFilterHandle** ppHandle) {
  return init_handle(at(pTaps, tapsIdx), tapsLen, algType, ppHandle);
}
NoxStatus noxsFIRSRInitAlloc_64fc_Idx(const Nox64fc* pTaps, int tapsIdx, int tapsLen, int algType,
                                      NoxFilterHandle** ppHandle) {
  return init_handle(at(pTaps, tapsIdx), tapsLen, algType, ppHandle);
}

NoxStatus noxsFIRSR_64f_Idx(const Nox64f* pSrc, int srcIdx, Nox64f* pDst, int dstIdx, int len,
                            NoxFilterHandle* pHandle) {
  return run(at(pSrc, srcIdx), at(pDst, dstIdx), len, pHandle);
}
NoxStatus noxsFIRSR_64fc_Idx(const Nox64fc* pSrc, int srcIdx, Nox64fc* pDst, int dstIdx, int len,
                             NoxFilterHandle* pHandle) {
  return run(at(pSrc, srcIdx), at(pDst, dstIdx), len, pHandle);
}
NoxStatus noxsFIRSR_64f_I_Idx(Nox64f* pSrcDst, int srcDstIdx, int len, NoxFilterHandle* pHandle) {
  return run<Nox64f>(at(pSrcDst, srcDstIdx), at(pSrcDst, srcDstIdx), len, pHandle);
}
NoxStatus noxsFIRSR_64fc_I_Idx(Nox64fc* pSrcDst, int srcDstIdx, int len, NoxFilterHandle* pHandle) {
  return run<Nox64fc>(at(pSrcDst, srcDstIdx), at(pSrcDst, srcDstIdx), len, pHandle);
}

void noxsFIRSRFree_Idx(NoxFilterHandle* pHandle) {
  if (!pHandle) return;
  aligned_free(pHandle->dlyIn);
  aligned_free(pHandle->dlyOut);
  aligned_free(pHandle->work);
  aligned_free(pHandle->spec);
  free(pHandle);
}

NoxStatus noxsFIROne_64f_Idx(Nox64f val, Nox64f* pDstVal, const NoxFirSpec* pSpec, const Nox64f* pDlySrc, int dlySrcIdx,
                             Nox64f* pDlyDst, int dlyDstIdx, Nox8u* pBuf, int bufIdx) {
  return plain_noxsFIRSR_64f(&val, pDstVal, 1, pSpec, at_or_null(pDlySrc, dlySrcIdx), at_or_null(pDlyDst, dlyDstIdx),
                             at_or_null(pBuf, bufIdx));
}
NoxStatus noxsFIROne_64fc_Idx(Nox64fc val, Nox64fc* pDstVal, const NoxFirSpec* pSpec, const Nox64fc* pDlySrc,
                              int dlySrcIdx, Nox64fc* pDlyDst, int dlyDstIdx, Nox8u* pBuf, int bufIdx) {
  return plain_noxsFIRSR_64fc(&val, pDstVal, 1, pSpec, at_or_null(pDlySrc, dlySrcIdx), at_or_null(pDlyDst, dlyDstIdx),
                              at_or_null(pBuf, bufIdx));
}

}  // extern "C"
