// The sliding median: its buffer's size, and the filter by types.
//
// A call first copies the delay line to the buffer and then writes the new one: the lines may be one array, and in
// place the last samples are soon overwritten.
#include "core/body.hpp"
#include "filter/median_window.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

NOX_INLINE int odd_size(int maskSize) { return (maskSize - 1) | 1; }
NOX_INLINE NoxStatus status_of(int maskSize) { return maskSize % 2 == 0 ? noxStsEvenMedianMaskSize : noxStsNoErr; }

// The samples before s[0], oldest first.
template <class T>
NOX_INLINE void load_line(T* line, const T* dlySrc, const T* s, int past) {
  if (dlySrc)
    copy_elements(line, dlySrc, past);
  else
    fill_bytes(line, static_cast<size_t>(past) * sizeof(T), sizeof(T), pattern_of(s[0]));
}
// The samples before the next call's, from those that this one's line has and its own.
template <class T>
NOX_INLINE void save_line(T* dlyDst, const T* line, const T* s, int len, int past) {
  const int own = len < past ? len : past;
  copy_elements(dlyDst, line + own, past - own);
  copy_elements(dlyDst + (past - own), s + (len - own), own);
}

// By the window that is the quickest for its size.
template <class T>
NOX_INLINE void median_by_window(const T* s, T* d, int len, T* line, int m) {
  using V = typename MedianLanes<T>::Of::vec;
  using Narrow = SortedRegisters<typename NarrowLanes<T>::Of, 1>;
  using One = SortedRegisters<V, 1>;
  using Two = SortedRegisters<V, 2>;
  if (m < Narrow::kMost)
    median_by_window(s, d, len, line, m, Narrow(m));
  else if (m < One::kMost)
    median_by_window(s, d, len, line, m, One(m));
  else if (m < Two::kMost)
    median_by_window(s, d, len, line, m, Two(m));
  else if (m < SortedVectors<T>::kMost)
    median_by_window(s, d, len, line, m, SortedVectors<T>(m));
  else
    median_by_window(s, d, len, line, m, SortedArray<T>{line + (m - 1), 0});
}

template <class T>
NOX_INLINE NoxStatus median(const T* s, T* d, int len, int maskSize, const T* dlySrc, T* dlyDst, Nox8u* buffer) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (maskSize < 1) return noxStsMaskSizeErr;
  if (!buffer) return noxStsNullPtrErr;
  const int m = odd_size(maskSize), past = m - 1;
  if (m == 1) {
    if (s != d) copy_elements(d, s, len);
    return status_of(maskSize);
  }
  T* const line = reinterpret_cast<T*>(buffer);
  load_line(line, dlySrc, s, past);
  if (dlyDst) save_line(dlyDst, line, s, len, past);
  if (m == 3)
    median_across_lanes(s, d, len, line, MedianOf3());
  else if (m == 5)
    median_across_lanes(s, d, len, line, MedianOf5());
  else
    median_by_window(s, d, len, line, m);
  return status_of(maskSize);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsFilterMedianGetBufferSize)(int maskSize, int dataType, int* pBufferSize) {
  if (!pBufferSize) return noxStsNullPtrErr;
  if (maskSize < 1) return noxStsMaskSizeErr;
  switch (dataType) {
    case NOX_TYPE_8U:
    case NOX_TYPE_16S:
    case NOX_TYPE_32S:
    case NOX_TYPE_32F:
    case NOX_TYPE_64F:
      *pBufferSize = static_cast<int>(static_cast<Nox32u>(odd_size(maskSize)) * 16);
      return status_of(maskSize);
    default:
      return noxStsDataTypeErr;
  }
}

NoxStatus NOX_BODY(noxsFilterMedian_8u)(const Nox8u* pSrc, Nox8u* pDst, int len, int maskSize, const Nox8u* pDlySrc,
                                        Nox8u* pDlyDst, Nox8u* pBuffer) {
  return median(pSrc, pDst, len, maskSize, pDlySrc, pDlyDst, pBuffer);
}
NoxStatus NOX_BODY(noxsFilterMedian_16s)(const Nox16s* pSrc, Nox16s* pDst, int len, int maskSize, const Nox16s* pDlySrc,
                                         Nox16s* pDlyDst, Nox8u* pBuffer) {
  return median(pSrc, pDst, len, maskSize, pDlySrc, pDlyDst, pBuffer);
}
NoxStatus NOX_BODY(noxsFilterMedian_32s)(const Nox32s* pSrc, Nox32s* pDst, int len, int maskSize, const Nox32s* pDlySrc,
                                         Nox32s* pDlyDst, Nox8u* pBuffer) {
  return median(pSrc, pDst, len, maskSize, pDlySrc, pDlyDst, pBuffer);
}
NoxStatus NOX_BODY(noxsFilterMedian_64f)(const Nox64f* pSrc, Nox64f* pDst, int len, int maskSize, const Nox64f* pDlySrc,
                                         Nox64f* pDlyDst, Nox8u* pBuffer) {
  return median(pSrc, pDst, len, maskSize, pDlySrc, pDlyDst, pBuffer);
}

NoxStatus NOX_BODY(noxsFilterMedian_8u_I)(Nox8u* pSrcDst, int len, int maskSize, const Nox8u* pDlySrc, Nox8u* pDlyDst,
                                          Nox8u* pBuffer) {
  return NOX_BODY(noxsFilterMedian_8u)(pSrcDst, pSrcDst, len, maskSize, pDlySrc, pDlyDst, pBuffer);
}
NoxStatus NOX_BODY(noxsFilterMedian_16s_I)(Nox16s* pSrcDst, int len, int maskSize, const Nox16s* pDlySrc,
                                           Nox16s* pDlyDst, Nox8u* pBuffer) {
  return NOX_BODY(noxsFilterMedian_16s)(pSrcDst, pSrcDst, len, maskSize, pDlySrc, pDlyDst, pBuffer);
}
NoxStatus NOX_BODY(noxsFilterMedian_32s_I)(Nox32s* pSrcDst, int len, int maskSize, const Nox32s* pDlySrc,
                                           Nox32s* pDlyDst, Nox8u* pBuffer) {
  return NOX_BODY(noxsFilterMedian_32s)(pSrcDst, pSrcDst, len, maskSize, pDlySrc, pDlyDst, pBuffer);
}
NoxStatus NOX_BODY(noxsFilterMedian_64f_I)(Nox64f* pSrcDst, int len, int maskSize, const Nox64f* pDlySrc,
                                           Nox64f* pDlyDst, Nox8u* pBuffer) {
  return NOX_BODY(noxsFilterMedian_64f)(pSrcDst, pSrcDst, len, maskSize, pDlySrc, pDlyDst, pBuffer);
}

}  // extern "C"
