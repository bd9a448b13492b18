/* The sliding median.
 *
 * An output is the median of the newest maskSize samples, so the filter looks back only. The samples before a block
 * come in and go out through two delay-line arrays of maskSize - 1 elements, oldest first: a stream is filtered in
 * blocks by handing each call's pDlyDst to the next as pDlySrc. An even mask size works as the odd one below it, with a
 * warning; "m" below is the odd size. The one-call forms in nox/adapters.h keep delay lines and work buffer behind one
 * handle. */
#ifndef NOX_FILTER_MEDIAN_H
#define NOX_FILTER_MEDIAN_H

#include "nox/filter/codes.h"

NOX_BEGIN_DECLS

/**
 * @brief Bytes of the work buffer of a median filter: 16 for each element of the odd mask size, in all builds.
 *
 * That is room for two arrays of m doubles; the narrower elements are given the same. The product wraps in 32 bits, so
 * that masks from 2^27 on get no size to rely on.
 *
 * @param maskSize     samples of a window, at least 1
 * @param dataType     ::NOX_TYPE_8U, ::NOX_TYPE_16S, ::NOX_TYPE_32S, ::NOX_TYPE_64F, or ::NOX_TYPE_32F, of which there
 *                     is no filter
 * @param pBufferSize  takes the bytes
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsMaskSizeErr for @p maskSize below 1, then
 *         ::noxStsDataTypeErr for another type code; ::noxStsEvenMedianMaskSize, with the size written, for an even
 *         mask; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsFilterMedianGetBufferSize(int maskSize, int dataType, int* pBufferSize);

/**
 * @brief Filters a block: `pDst[i]` is the median of `pSrc[i]` and the m - 1 samples before it.
 *
 * Equal in all builds. A stream cut into blocks at any places gives the outputs of one call.
 *
 * For Nox64f, m = 3 compares the samples a, b, c of a window, oldest first, so: of a and b the larger is b if a <= b,
 * otherwise a; if it is above c, the output is the smaller if that is at least c, otherwise c; if not, it is the larger
 * itself. With a NaN in the window the output follows from these comparisons, and the same holds for m = 5, whose
 * comparisons pick the second value where neither is the lesser or the greater. From m = 7 on, a NaN makes
 * all outputs of the call meaningless, though it harms nothing else, and which of the zeros -0 and +0 comes out
 * is not told.
 *
 * The time of an output grows with m from 7 on.
 *
 * @param pSrc      @p len samples
 * @param pDst      @p len outputs; may be @p pSrc, or @p pDlySrc; no other overlap
 * @param len       number of samples
 * @param maskSize  samples of a window, at least 1; for 1 and 2 the samples are copied and the delay lines left alone
 * @param pDlySrc   m - 1 samples before pSrc[0], oldest first; null for copies of pSrc[0]
 * @param pDlyDst   takes the last m - 1 samples, for the next call; null if not wanted; may be @p pDlySrc
 * @param pBuffer   work memory of the size noxsFilterMedianGetBufferSize() told, at any address
 * @return ::noxStsNullPtrErr for a null pSrc or pDst, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsMaskSizeErr for @p maskSize below 1, then ::noxStsNullPtrErr for a null pBuffer;
 *         ::noxStsEvenMedianMaskSize, with all outputs written, for an even mask; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsFilterMedian_8u(const Nox8u pSrc[], Nox8u pDst[], int len, int maskSize, NOX_NULLABLE const Nox8u pDlySrc[],
                    NOX_NULLABLE Nox8u pDlyDst[], Nox8u* pBuffer);
/** @copydoc noxsFilterMedian_8u */
NOX_API(NoxStatus)
noxsFilterMedian_16s(const Nox16s pSrc[], Nox16s pDst[], int len, int maskSize, NOX_NULLABLE const Nox16s pDlySrc[],
                     NOX_NULLABLE Nox16s pDlyDst[], Nox8u* pBuffer);
/** @copydoc noxsFilterMedian_8u */
NOX_API(NoxStatus)
noxsFilterMedian_32s(const Nox32s pSrc[], Nox32s pDst[], int len, int maskSize, NOX_NULLABLE const Nox32s pDlySrc[],
                     NOX_NULLABLE Nox32s pDlyDst[], Nox8u* pBuffer);
/** @copydoc noxsFilterMedian_8u */
NOX_API(NoxStatus)
noxsFilterMedian_64f(const Nox64f pSrc[], Nox64f pDst[], int len, int maskSize, NOX_NULLABLE const Nox64f pDlySrc[],
                     NOX_NULLABLE Nox64f pDlyDst[], Nox8u* pBuffer);

/**
 * @brief Filters a block in place, like noxsFilterMedian_8u() with pDst equal to pSrc.
 * @param pSrcDst   @p len samples, overwritten by the outputs
 * @param len       number of samples
 * @param maskSize  samples of a window, at least 1
 * @param pDlySrc   m - 1 samples before pSrcDst[0], oldest first; null for copies of pSrcDst[0]
 * @param pDlyDst   takes the last m - 1 samples, for the next call; null if not wanted; may be @p pDlySrc
 * @param pBuffer   work memory of the size noxsFilterMedianGetBufferSize() told, at any address
 * @return as noxsFilterMedian_8u()
 */
NOX_API(NoxStatus)
noxsFilterMedian_8u_I(Nox8u pSrcDst[], int len, int maskSize, NOX_NULLABLE const Nox8u pDlySrc[],
                      NOX_NULLABLE Nox8u pDlyDst[], Nox8u* pBuffer);
/** @copydoc noxsFilterMedian_8u_I */
NOX_API(NoxStatus)
noxsFilterMedian_16s_I(Nox16s pSrcDst[], int len, int maskSize, NOX_NULLABLE const Nox16s pDlySrc[],
                       NOX_NULLABLE Nox16s pDlyDst[], Nox8u* pBuffer);
/** @copydoc noxsFilterMedian_8u_I */
NOX_API(NoxStatus)
noxsFilterMedian_32s_I(Nox32s pSrcDst[], int len, int maskSize, NOX_NULLABLE const Nox32s pDlySrc[],
                       NOX_NULLABLE Nox32s pDlyDst[], Nox8u* pBuffer);
/** @copydoc noxsFilterMedian_8u_I */
NOX_API(NoxStatus)
noxsFilterMedian_64f_I(Nox64f pSrcDst[], int len, int maskSize, NOX_NULLABLE const Nox64f pDlySrc[],
                       NOX_NULLABLE Nox64f pDlyDst[], Nox8u* pBuffer);

NOX_END_DECLS

#endif
