// One-call forms of the sliding median: a handle holds delay lines and work buffer.
//
// A run first copies the delay line that the last call wrote over the one that this call reads.
#include <stdlib.h>

#include "adapters/filter_handle.hpp"

namespace nox {
namespace {

// What differs between the element types.
template <class T>
struct MedianType;
template <>
struct MedianType<Nox8u> {
  static constexpr int kCode = NOX_TYPE_8U;
  static constexpr auto set = plain_noxsSet_8u;
  static constexpr auto copy = plain_noxsCopy_8u;
  static constexpr auto run = plain_noxsFilterMedian_8u;
  static constexpr auto run_in_place = plain_noxsFilterMedian_8u_I;
};
template <>
struct MedianType<Nox16s> {
  static constexpr int kCode = NOX_TYPE_16S;
  static constexpr auto set = plain_noxsSet_16s;
  static constexpr auto copy = plain_noxsCopy_16s;
  static constexpr auto run = plain_noxsFilterMedian_16s;
  static constexpr auto run_in_place = plain_noxsFilterMedian_16s_I;
};
template <>
struct MedianType<Nox32s> {
  static constexpr int kCode = NOX_TYPE_32S;
  static constexpr auto set = plain_noxsSet_32s;
  static constexpr auto copy = plain_noxsCopy_32s;
  static constexpr auto run = plain_noxsFilterMedian_32s;
  static constexpr auto run_in_place = plain_noxsFilterMedian_32s_I;
};
template <>
struct MedianType<Nox64f> {
  static constexpr int kCode = NOX_TYPE_64F;
  static constexpr auto set = plain_noxsSet_64f;
  static constexpr auto copy = plain_noxsCopy_64f;
  static constexpr auto run = plain_noxsFilterMedian_64f;
  static constexpr auto run_in_place = plain_noxsFilterMedian_64f_I;
};

template <class T>
T* cleared_line(int len) {
  T* const line = static_cast<T*>(aligned_allocate(len < 1 ? 0 : static_cast<Nox64u>(len) * sizeof(T)));
  MedianType<T>::set(0, line, len);
  return line;
}

template <class T>
NoxStatus make_handle(NoxFilterHandle** ppHandle, int maskSize, int useDelay) {
  NoxFilterHandle* const h = static_cast<NoxFilterHandle*>(malloc(sizeof(NoxFilterHandle)));
  int work_size = 0;
  const NoxStatus status = plain_noxsFilterMedianGetBufferSize(maskSize, MedianType<T>::kCode, &work_size);
  *h = {nullptr, useDelay ? cleared_line<T>(maskSize) : nullptr, useDelay ? cleared_line<T>(maskSize) : nullptr,
        static_cast<Nox8u*>(aligned_allocate(static_cast<Nox64u>(work_size))), maskSize};
  *ppHandle = h;
  return status;
}

// Makes the past that the last run left the past of this one.
template <class T>
void recall(NoxFilterHandle* h) {
  MedianType<T>::copy(static_cast<const T*>(h->dlyOut), static_cast<T*>(h->dlyIn), h->size);
}
template <class T>
NoxStatus run(const T* s, T* d, int len, NoxFilterHandle* h) {
  recall<T>(h);
  return MedianType<T>::run(s, d, len, h->size, static_cast<const T*>(h->dlyIn), static_cast<T*>(h->dlyOut), h->work);
}
template <class T>
NoxStatus run_in_place(T* d, int len, NoxFilterHandle* h) {
  recall<T>(h);
  return MedianType<T>::run_in_place(d, len, h->size, static_cast<const T*>(h->dlyIn), static_cast<T*>(h->dlyOut),
                                     h->work);
}

}  // namespace
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus noxsFilterMedianAlloc_8u_Idx(NoxFilterHandle** ppHandle, int maskSize, int useDelay) {
  return make_handle<Nox8u>(ppHandle, maskSize, useDelay);
}
NoxStatus noxsFilterMedianAlloc_16s_Idx(NoxFilterHandle** ppHandle, int maskSize, int useDelay) {
  return make_handle<Nox16s>(ppHandle, maskSize, useDelay);
}
NoxStatus noxsFilterMedianAlloc_32s_Idx(NoxFilterHandle** ppHandle, int maskSize, int useDelay) {
  return make_handle<Nox32s>(ppHandle, maskSize, useDelay);
}
NoxStatus noxsFilterMedianAlloc_64f_Idx(NoxFilterHandle** ppHandle, int maskSize, int useDelay) {
  return make_handle<Nox64f>(ppHandle, maskSize, useDelay);
}

NoxStatus noxsFilterMedian_8u_Idx(const Nox8u* pSrc, int srcIdx, Nox8u* pDst, int dstIdx, int len,
                                  NoxFilterHandle* pHandle) {
  return run(at(pSrc, srcIdx), at(pDst, dstIdx), len, pHandle);
}
NoxStatus noxsFilterMedian_16s_Idx(const Nox16s* pSrc, int srcIdx, Nox16s* pDst, int dstIdx, int len,
                                   NoxFilterHandle* pHandle) {
  return run(at(pSrc, srcIdx), at(pDst, dstIdx), len, pHandle);
}
NoxStatus noxsFilterMedian_32s_Idx(const Nox32s* pSrc, int srcIdx, Nox32s* pDst, int dstIdx, int len,
                                   NoxFilterHandle* pHandle) {
  return run(at(pSrc, srcIdx), at(pDst, dstIdx), len, pHandle);
}
NoxStatus noxsFilterMedian_64f_Idx(const Nox64f* pSrc, int srcIdx, Nox64f* pDst, int dstIdx, int len,
                                   NoxFilterHandle* pHandle) {
  return run(at(pSrc, srcIdx), at(pDst, dstIdx), len, pHandle);
}

NoxStatus noxsFilterMedian_8u_I_Idx(Nox8u* pSrcDst, int srcDstIdx, int len, NoxFilterHandle* pHandle) {
  return run_in_place(at(pSrcDst, srcDstIdx), len, pHandle);
}
NoxStatus noxsFilterMedian_16s_I_Idx(Nox16s* pSrcDst, int srcDstIdx, int len, NoxFilterHandle* pHandle) {
  return run_in_place(at(pSrcDst, srcDstIdx), len, pHandle);
}
NoxStatus noxsFilterMedian_32s_I_Idx(Nox32s* pSrcDst, int srcDstIdx, int len, NoxFilterHandle* pHandle) {
  return run_in_place(at(pSrcDst, srcDstIdx), len, pHandle);
}
NoxStatus noxsFilterMedian_64f_I_Idx(Nox64f* pSrcDst, int srcDstIdx, int len, NoxFilterHandle* pHandle) {
  return run_in_place(at(pSrcDst, srcDstIdx), len, pHandle);
}

void noxsFilterMedianFree_Idx(NoxFilterHandle* pHandle) {
  if (!pHandle) return;
  aligned_free(pHandle->dlyIn);
  aligned_free(pHandle->dlyOut);
  aligned_free(pHandle->work);
  free(pHandle);
}

}  // extern "C"
