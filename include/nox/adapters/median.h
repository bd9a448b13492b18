/* One-call forms of the sliding median: a handle holds delay lines and work buffer. */
#ifndef NOX_ADAPTERS_MEDIAN_H
#define NOX_ADAPTERS_MEDIAN_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Makes the handle of a one-call median filter: work buffer and cleared delay lines.
 *
 * Memory comes from the process heap and from the aligned allocator. Allocations are not tested: a process that is
 * out of memory faults here.
 *
 * @param ppHandle  takes the handle, whatever the status; give it to noxsFilterMedianFree_Idx() in every case
 * @param maskSize  samples of a window, at least 1
 * @param useDelay  0 for a handle without delay lines, which must not be run
 * @return the status of noxsFilterMedianGetBufferSize(): ::noxStsMaskSizeErr for @p maskSize below 1, and such a handle
 *         must not be run; ::noxStsEvenMedianMaskSize for an even one; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsFilterMedianAlloc_8u_Idx(NoxFilterHandle** ppHandle, int maskSize, int useDelay);
/** @copydoc noxsFilterMedianAlloc_8u_Idx */
NOX_API(NoxStatus) noxsFilterMedianAlloc_16s_Idx(NoxFilterHandle** ppHandle, int maskSize, int useDelay);
/** @copydoc noxsFilterMedianAlloc_8u_Idx */
NOX_API(NoxStatus) noxsFilterMedianAlloc_32s_Idx(NoxFilterHandle** ppHandle, int maskSize, int useDelay);
/** @copydoc noxsFilterMedianAlloc_8u_Idx */
NOX_API(NoxStatus) noxsFilterMedianAlloc_64f_Idx(NoxFilterHandle** ppHandle, int maskSize, int useDelay);

/**
 * @brief Filters the next block of a stream, before whose first sample stand zeros; the handle carries the past
 * samples.
 * @param pSrc     base of the source
 * @param srcIdx   index of the first sample
 * @param pDst     base of the destination, which may be the source
 * @param dstIdx   index of the first output
 * @param len      number of samples
 * @param pHandle  handle of noxsFilterMedianAlloc of the same type; one call at a time
 * @return ::noxStsNullPtrErr for a null address, then ::noxStsSizeErr for @p len below 1; ::noxStsEvenMedianMaskSize,
 *         with all outputs written, for an even mask; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsFilterMedian_8u_Idx(const Nox8u pSrc[], int srcIdx, Nox8u pDst[], int dstIdx, int len, NoxFilterHandle* pHandle);
/** @copydoc noxsFilterMedian_8u_Idx */
NOX_API(NoxStatus)
noxsFilterMedian_16s_Idx(const Nox16s pSrc[], int srcIdx, Nox16s pDst[], int dstIdx, int len, NoxFilterHandle* pHandle);
/** @copydoc noxsFilterMedian_8u_Idx */
NOX_API(NoxStatus)
noxsFilterMedian_32s_Idx(const Nox32s pSrc[], int srcIdx, Nox32s pDst[], int dstIdx, int len, NoxFilterHandle* pHandle);
/** @copydoc noxsFilterMedian_8u_Idx */
NOX_API(NoxStatus)
noxsFilterMedian_64f_Idx(const Nox64f pSrc[], int srcIdx, Nox64f pDst[], int dstIdx, int len, NoxFilterHandle* pHandle);

/**
 * @brief Filters the next block of a stream in place, like noxsFilterMedian_8u_Idx().
 * @param pSrcDst    base of the array
 * @param srcDstIdx  index of the first sample, overwritten by the first output
 * @param len        number of samples
 * @param pHandle    handle of noxsFilterMedianAlloc of the same type; one call at a time
 * @return as noxsFilterMedian_8u_Idx()
 */
NOX_API(NoxStatus) noxsFilterMedian_8u_I_Idx(Nox8u pSrcDst[], int srcDstIdx, int len, NoxFilterHandle* pHandle);
/** @copydoc noxsFilterMedian_8u_I_Idx */
NOX_API(NoxStatus) noxsFilterMedian_16s_I_Idx(Nox16s pSrcDst[], int srcDstIdx, int len, NoxFilterHandle* pHandle);
/** @copydoc noxsFilterMedian_8u_I_Idx */
NOX_API(NoxStatus) noxsFilterMedian_32s_I_Idx(Nox32s pSrcDst[], int srcDstIdx, int len, NoxFilterHandle* pHandle);
/** @copydoc noxsFilterMedian_8u_I_Idx */
NOX_API(NoxStatus) noxsFilterMedian_64f_I_Idx(Nox64f pSrcDst[], int srcDstIdx, int len, NoxFilterHandle* pHandle);

/**
 * @brief Frees a handle of noxsFilterMedianAlloc with all that belongs to it.
 * @param pHandle  the handle, or null, which is ignored
 */
NOX_API(void) noxsFilterMedianFree_Idx(NoxFilterHandle* pHandle);

NOX_END_DECLS

#endif
