/* The single-rate FIR filter.
 *
 * A FIR filter computes y[n] = sum over j < tapsLen of taps[j] * x[n - j]. Its spec holds the taps and no signal: the
 * past samples come in and go out through two delay-line arrays of tapsLen - 1 elements, oldest first, so a stream is
 * filtered in blocks by handing each call's pDlyDst to the next as pDlySrc. The one-call forms in nox/adapters.h keep
 * spec, delay lines and work buffer behind one handle. */
#ifndef NOX_FILTER_FIR_H
#define NOX_FILTER_FIR_H

#include "nox/filter/codes.h"

NOX_BEGIN_DECLS

/**
 * @brief Sizes of the memory a single-rate FIR filter needs, for the build in force.
 *
 * Both sizes include the slack for any base address, so memory from any allocator will do.
 *
 * @param tapsLen    number of taps, at least 1
 * @param tapsType   ::NoxTypeCode of taps and data; the 32-bit types are sized although no filter of them exists
 * @param pSpecSize  takes the bytes of the spec
 * @param pBufSize   takes the bytes of the work buffer of one call
 * @return ::noxStsSizeErr for @p tapsLen below 1, then ::noxStsDataTypeErr for another type code, then
 *         ::noxStsNullPtrErr for a null pointer; ::noxStsFftOrderErr with both sizes 0 for taps too many for a
 *         32-bit process; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsFIRSRGetSize(int tapsLen, int tapsType, int* pSpecSize, int* pBufSize);

/**
 * @brief Builds a FIR spec in the caller's memory.
 * @param pTaps    the taps, @p tapsLen of them, copied
 * @param tapsLen  number of taps, at least 1
 * @param algType  a value of ::NoxAlgType
 * @param pSpec    memory of the size noxsFIRSRGetSize() told, at any address
 * @return ::noxStsSizeErr for @p tapsLen below 1, then ::noxStsNullPtrErr for a null pointer, then
 *         ::noxStsAlgTypeErr for another @p algType; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsFIRSRInit_64f(const Nox64f pTaps[], int tapsLen, int algType, NoxFirSpec* pSpec);
/** @copydoc noxsFIRSRInit_64f */
NOX_API(NoxStatus) noxsFIRSRInit_64fc(const Nox64fc pTaps[], int tapsLen, int algType, NoxFirSpec* pSpec);

/**
 * @brief Filters a block: `pDst[i]` is the sum over j of taps[j] times the sample j before `pSrc[i]`.
 *
 * The samples before pSrc[0] come from @p pDlySrc. A spec of ::NOX_ALG_DIRECT filters by the direct sum, one of
 * ::NOX_ALG_FFT by transforms, and one of ::NOX_ALG_AUTO by transforms where taps and samples are at least
 *
 * | build | Nox64f | Nox64fc |
 * | --- | --- | --- |
 * | w7 | 124 taps, 640 samples | 40 taps, 512 samples |
 * | s8, p8 | 48 taps, 384 samples | 18 taps, 256 samples |
 * | g9 | 48 taps, 384 samples | 16 taps, 256 samples |
 * | h9 | 40 taps, 384 samples | 17 taps, 256 samples |
 *
 * By the direct sum, terms are added from the oldest sample to the newest whatever the place of the output, so a stream
 * cut into blocks at any places gives the same bits as one call, and a NaN or an infinity reaches the outputs that use
 * the sample and no others. The h9 build fuses multiply and add, so its last bits differ from those of the other four,
 * which agree. By transforms, an output's rounding depends on its place in a block and on the build: a few
 * units of 2^-53 times the norm of the taps times the norm of the block, and a NaN or an infinity may reach all the
 * outputs of its block, at most 4 tapsLen of them. In place, with pSrc equal to pDst, the filter works in chunks staged
 * in
 * @p pBuf. Any number of threads may share a spec, each with its own buffer and delay lines.
 *
 * @param pSrc      @p numIters samples
 * @param pDst      @p numIters outputs; may be @p pSrc, or @p pDlySrc; no other overlap
 * @param numIters  number of samples
 * @param pSpec     spec of the Init function of the same type, made under the build in force
 * @param pDlySrc   tapsLen - 1 samples before pSrc[0], oldest first; null for zeros
 * @param pDlyDst   takes the last tapsLen - 1 samples, for the next call; null if not wanted; may be @p pDlySrc
 * @param pBuf      work memory of the size noxsFIRSRGetSize() told, at any address
 * @return ::noxStsNullPtrErr for a null pSpec, pSrc, pDst or pBuf, then ::noxStsSizeErr for @p numIters below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsFIRSR_64f(const Nox64f pSrc[], Nox64f pDst[], int numIters, const NoxFirSpec* pSpec,
              NOX_NULLABLE const Nox64f pDlySrc[], NOX_NULLABLE Nox64f pDlyDst[], Nox8u* pBuf);
/** @copydoc noxsFIRSR_64f */
NOX_API(NoxStatus)
noxsFIRSR_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int numIters, const NoxFirSpec* pSpec,
               NOX_NULLABLE const Nox64fc pDlySrc[], NOX_NULLABLE Nox64fc pDlyDst[], Nox8u* pBuf);

NOX_END_DECLS

#endif
