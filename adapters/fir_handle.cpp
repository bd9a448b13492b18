// One-call forms of the FIR filters: a handle holds spec, delay lines and work buffer.
//
// A run first copies the delay line that the last call wrote over the one that this call reads: that is what makes
// successive calls continue one signal.
#include <stdlib.h>

#include "adapters/filter_handle.hpp"
#include "nox/adapters.h"

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
  static constexpr auto init_mr = plain_noxsFIRMRInit_64f;
  static constexpr auto run_mr = plain_noxsFIRMR_64f;
};
template <>
struct FirType<Nox64fc> {
  static constexpr int kCode = NOX_TYPE_64FC;
  static constexpr auto allocate = plain_noxsMalloc_64fc;
  static constexpr auto zero = plain_noxsZero_64fc;
  static constexpr auto copy = plain_noxsCopy_64fc;
  static constexpr auto init = plain_noxsFIRSRInit_64fc;
  static constexpr auto run = plain_noxsFIRSR_64fc;
  static constexpr auto init_mr = plain_noxsFIRMRInit_64fc;
  static constexpr auto run_mr = plain_noxsFIRMR_64fc;
};

template <class T>
T* cleared_line(int len) {
  T* line = FirType<T>::allocate(len);
  FirType<T>::zero(line, len);
  return line;
}

// A handle for tapsLen taps, whatever they are; get_size(&spec, &work) asks for the sizes and init(spec) fills the
// spec.
template <class T, class GetSize, class Init>
NoxStatus make_handle(int tapsLen, NoxFilterHandle** ppHandle, GetSize&& get_size, Init&& init) {
  NoxFilterHandle* h = static_cast<NoxFilterHandle*>(malloc(sizeof(NoxFilterHandle)));
  h->dlyIn = cleared_line<T>(tapsLen);
  h->dlyOut = cleared_line<T>(tapsLen);
  int spec_size = 0, work_size = 0;
  get_size(&spec_size, &work_size);
  h->work = static_cast<Nox8u*>(aligned_allocate(static_cast<Nox64u>(work_size)));
  h->spec = aligned_allocate(static_cast<Nox64u>(spec_size));
  h->size = tapsLen;
  const NoxStatus status = init(h->spec);
  *ppHandle = h;
  return status;
}

template <class T>
NoxStatus init_handle(const T* taps, int tapsLen, int algType, NoxFilterHandle** ppHandle) {
  return make_handle<T>(
      tapsLen, ppHandle, [=](int* spec, int* work) { plain_noxsFIRSRGetSize(tapsLen, FirType<T>::kCode, spec, work); },
      [=](void* spec) { return FirType<T>::init(taps, tapsLen, algType, static_cast<NoxFirSpec*>(spec)); });
}

struct Rates {
  int up, upPhase, down, downPhase;
};
template <class T>
NoxStatus init_handle(const T* taps, int tapsLen, Rates r, NoxFilterHandle** ppHandle) {
  return make_handle<T>(
      tapsLen, ppHandle,
      [=](int* spec, int* work) { plain_noxsFIRMRGetSize(tapsLen, r.up, r.down, FirType<T>::kCode, spec, work); },
      [=](void* spec) {
        return FirType<T>::init_mr(taps, tapsLen, r.up, r.upPhase, r.down, r.downPhase,
                                   static_cast<NoxFirMrSpec*>(spec));
      });
}

template <class Spec, class T, class Run>
NoxStatus run_with(Run filter, const T* s, T* d, int len, NoxFilterHandle* h) {
  T* in = static_cast<T*>(h->dlyIn);
  T* out = static_cast<T*>(h->dlyOut);
  FirType<T>::copy(out, in, h->size);
  return filter(s, d, len, static_cast<const Spec*>(h->spec), in, out, h->work);
}
template <class T>
NoxStatus run(const T* s, T* d, int len, NoxFilterHandle* h) {
  return run_with<NoxFirSpec>(FirType<T>::run, s, d, len, h);
}
template <class T>
NoxStatus run_mr(const T* s, T* d, int len, NoxFilterHandle* h) {
  return run_with<NoxFirMrSpec>(FirType<T>::run_mr, s, d, len, h);
}

void free_handle(NoxFilterHandle* h) {
  if (!h) return;
  aligned_free(h->dlyIn);
  aligned_free(h->dlyOut);
  aligned_free(h->work);
  aligned_free(h->spec);
  free(h);
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

void noxsFIRSRFree_Idx(NoxFilterHandle* pHandle) { free_handle(pHandle); }

NoxStatus noxsFIRMRInitAlloc_64f_Idx(const Nox64f* pTaps, int tapsIdx, int tapsLen, int upFactor, int upPhase,
                                     int downFactor, int downPhase, NoxFilterHandle** ppHandle) {
  return init_handle(at(pTaps, tapsIdx), tapsLen, Rates{upFactor, upPhase, downFactor, downPhase}, ppHandle);
}
NoxStatus noxsFIRMRInitAlloc_64fc_Idx(const Nox64fc* pTaps, int tapsIdx, int tapsLen, int upFactor, int upPhase,
                                      int downFactor, int downPhase, NoxFilterHandle** ppHandle) {
  return init_handle(at(pTaps, tapsIdx), tapsLen, Rates{upFactor, upPhase, downFactor, downPhase}, ppHandle);
}

NoxStatus noxsFIRMR_64f_Idx(const Nox64f* pSrc, int srcIdx, Nox64f* pDst, int dstIdx, int len,
                            NoxFilterHandle* pHandle) {
  return run_mr(at(pSrc, srcIdx), at(pDst, dstIdx), len, pHandle);
}
NoxStatus noxsFIRMR_64fc_Idx(const Nox64fc* pSrc, int srcIdx, Nox64fc* pDst, int dstIdx, int len,
                             NoxFilterHandle* pHandle) {
  return run_mr(at(pSrc, srcIdx), at(pDst, dstIdx), len, pHandle);
}
NoxStatus noxsFIRMR_64f_I_Idx(Nox64f* pSrcDst, int srcDstIdx, int len, NoxFilterHandle* pHandle) {
  return run_mr<Nox64f>(at(pSrcDst, srcDstIdx), at(pSrcDst, srcDstIdx), len, pHandle);
}
NoxStatus noxsFIRMR_64fc_I_Idx(Nox64fc* pSrcDst, int srcDstIdx, int len, NoxFilterHandle* pHandle) {
  return run_mr<Nox64fc>(at(pSrcDst, srcDstIdx), at(pSrcDst, srcDstIdx), len, pHandle);
}

void noxsFIRMRFree_Idx(NoxFilterHandle* pHandle) { free_handle(pHandle); }

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
