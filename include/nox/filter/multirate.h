/* The multi-rate FIR filter, which resamples by a rational factor, and the samplers up and down without a filter.
 *
 * The filter puts the input on a grid upFactor times as fine, u[i * upFactor + upPhase] = x[i] with zeros elsewhere,
 * filters there and takes every downFactor-th value: y[m] = sum over k of taps[k] * u[m * downFactor + downPhase - k].
 * The grid is never formed: Init sorts the taps by the inputs they meet. An iteration reads downFactor elements and
 * writes upFactor. Past samples come in and go out through delay lines of (tapsLen + upFactor - 1) / upFactor elements,
 * oldest first. */
#ifndef NOX_FILTER_MULTIRATE_H
#define NOX_FILTER_MULTIRATE_H

#include "nox/filter/codes.h"

NOX_BEGIN_DECLS

/**
 * @brief Sizes of the memory a multi-rate FIR filter needs, for the build in force.
 *
 * Both sizes include the slack for any base address, so memory from any allocator will do. With both factors 1 they are
 * those of noxsFIRSRGetSize().
 *
 * @param tapsLen     number of taps, at least 1
 * @param upFactor    outputs per iteration, at least 1
 * @param downFactor  inputs per iteration, at least 1
 * @param tapsType    ::NoxTypeCode of taps and data; the 32-bit types are sized although no filter of them exists
 * @param pSpecSize   takes the bytes of the spec
 * @param pBufSize    takes the bytes of the work buffer of one call
 * @return ::noxStsFIRLenErr for @p tapsLen below 1, then ::noxStsFIRMRFactorErr for a negative factor, then
 *         ::noxStsNullPtrErr for a null pointer, then ::noxStsDataTypeErr for another type code, then
 *         ::noxStsFIRMRFactorErr for a factor of 0; ::noxStsFftOrderErr with both sizes 0 for a filter too large for a
 *         32-bit process; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsFIRMRGetSize(int tapsLen, int upFactor, int downFactor, int tapsType, int* pSpecSize, int* pBufSize);

/**
 * @brief Builds a multi-rate FIR spec in the caller's memory.
 * @param pTaps       the taps, @p tapsLen of them, copied
 * @param tapsLen     number of taps, at least 1
 * @param upFactor    outputs per iteration, at least 1
 * @param upPhase     place of an input among the upFactor places it opens, from 0 to upFactor - 1
 * @param downFactor  inputs per iteration, at least 1
 * @param downPhase   place of an output among the downFactor places it stands for, from 0 to downFactor - 1
 * @param pSpec       memory of the size noxsFIRMRGetSize() told, at any address
 * @return ::noxStsFIRLenErr for @p tapsLen below 1, then ::noxStsFIRMRFactorErr for a negative factor, then
 *         ::noxStsFIRMRPhaseErr for a phase out of its range, as every phase is for a factor of 0, then
 *         ::noxStsNullPtrErr for a null pointer, then ::noxStsMemAllocErr if four times the product of the factors
 *         reaches 2147483647, with a spec that must not be run; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsFIRMRInit_64f(const Nox64f pTaps[], int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase,
                  NoxFirMrSpec* pSpec);
/** @copydoc noxsFIRMRInit_64f */
NOX_API(NoxStatus)
noxsFIRMRInit_64fc(const Nox64fc pTaps[], int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase,
                   NoxFirMrSpec* pSpec);

/**
 * @brief Filters a block and changes its rate by upFactor / downFactor.
 *
 * The terms of an output are added from the oldest sample to the newest whatever its place, so a stream cut into blocks
 * at any places gives the same bits as one call; an output of zero is positive. A NaN or an infinity reaches the
 * outputs that use the sample and no others. The h9 build fuses multiply and add, so its last bits differ from those of
 * the other four, which agree. In place, with pSrc equal to pDst, the array holds the longer of input and output, and
 * outputs are staged in the spec: in-place calls with one spec must not run at the same time.
 *
 * With both factors 1 the call is noxsFIRSR_64f() with ::NOX_ALG_AUTO and all it says of rounding. Of the delay lines,
 * which have one element more than that filter wants, the elements from 1 on are used if @p pDlySrc is given; if it is
 * null, @p pDlyDst takes the tapsLen - 1 elements from element 0 on.
 *
 * @param pSrc      @p numIters * downFactor samples
 * @param pDst      @p numIters * upFactor outputs; may be @p pSrc, or @p pDlySrc; no other overlap
 * @param numIters  number of iterations
 * @param pSpec     spec of the Init function of the same type, made under the build in force
 * @param pDlySrc   the samples before pSrc[0]; null for zeros
 * @param pDlyDst   takes the last samples, for the next call; null if not wanted; may be @p pDlySrc
 * @param pBuf      work memory of the size noxsFIRMRGetSize() told, at any address
 * @return ::noxStsNullPtrErr for a null pSpec, pSrc, pDst or pBuf, then ::noxStsSizeErr for @p numIters below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsFIRMR_64f(const Nox64f pSrc[], Nox64f pDst[], int numIters, const NoxFirMrSpec* pSpec,
              NOX_NULLABLE const Nox64f pDlySrc[], NOX_NULLABLE Nox64f pDlyDst[], Nox8u* pBuf);
/** @copydoc noxsFIRMR_64f */
NOX_API(NoxStatus)
noxsFIRMR_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int numIters, const NoxFirMrSpec* pSpec,
               NOX_NULLABLE const Nox64fc pDlySrc[], NOX_NULLABLE Nox64fc pDlyDst[], Nox8u* pBuf);

/**
 * @brief Spreads an array, zeros between its elements: `pDst[i * factor + phase] = pSrc[i]`. Equal in all builds.
 * @param pSrc     array of @p srcLen elements, which keep every bit
 * @param srcLen   number of elements
 * @param pDst     array of srcLen * factor elements; must not overlap the source
 * @param pDstLen  takes srcLen * factor
 * @param factor   distance of the elements in @p pDst, at least 1
 * @param pPhase   place of the first, from 0 to factor - 1; not changed
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p srcLen below 1, then
 *         ::noxStsSampleFactorErr for @p factor below 1, then ::noxStsSamplePhaseErr for a phase out of its range;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsSampleUp_64f(const Nox64f pSrc[], int srcLen, Nox64f pDst[], int* pDstLen, int factor, int* pPhase);
/** @copydoc noxsSampleUp_64f */
NOX_API(NoxStatus)
noxsSampleUp_64fc(const Nox64fc pSrc[], int srcLen, Nox64fc pDst[], int* pDstLen, int factor, int* pPhase);

/**
 * @brief Keeps every factor-th element: `pDst[j] = pSrc[phase + j * factor]`. Equal in all builds.
 * @param pSrc     array of @p srcLen elements, which keep every bit
 * @param srcLen   number of elements
 * @param pDst     array for the elements kept, at most srcLen / factor + 1; must not overlap the source
 * @param pDstLen  takes the number of elements kept, which may be 0
 * @param factor   distance of the elements kept, at least 1
 * @param pPhase   index of the first one, from 0 to factor - 1; takes that for the next block of the stream
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p srcLen below 1, then
 *         ::noxStsSampleFactorErr for @p factor below 1, then ::noxStsSamplePhaseErr for a phase out of its range;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsSampleDown_64f(const Nox64f pSrc[], int srcLen, Nox64f pDst[], int* pDstLen, int factor, int* pPhase);
/** @copydoc noxsSampleDown_64f */
NOX_API(NoxStatus)
noxsSampleDown_64fc(const Nox64fc pSrc[], int srcLen, Nox64fc pDst[], int* pDstLen, int factor, int* pPhase);

NOX_END_DECLS

#endif
