/* The larger or smaller of two integers at every place: index forms without a primitive behind them. */
#ifndef NOX_ARRAY_EVERY_H
#define NOX_ARRAY_EVERY_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Larger of two elements, `pDst[i] = max(pSrc1[i], pSrc2[i])`; may be in place. Equal in all builds.
 *
 * Goes by the scalar loop from index 0 on: overlapping arrays feed results back as that does. No pointer is tested.
 *
 * @param pSrc1    base of the first source
 * @param src1Idx  index of its first element
 * @param pSrc2    base of the second source
 * @param src2Idx  index of its first element
 * @param pDst     base of the destination
 * @param dstIdx   index of its first element
 * @param len      number of elements; for 0 nothing is done
 * @return ::noxStsSizeErr for @p len below 0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsMaxEvery_16s_Idx(const Nox16s pSrc1[], int src1Idx, const Nox16s pSrc2[], int src2Idx, Nox16s pDst[], int dstIdx,
                     int len);
/** @copydoc noxsMaxEvery_16s_Idx */
NOX_API(NoxStatus)
noxsMaxEvery_32s_Idx(const Nox32s pSrc1[], int src1Idx, const Nox32s pSrc2[], int src2Idx, Nox32s pDst[], int dstIdx,
                     int len);
/**
 * @brief Smaller of two elements, `pDst[i] = min(pSrc1[i], pSrc2[i])`; otherwise noxsMaxEvery_16s_Idx().
 * @param pSrc1    base of the first source
 * @param src1Idx  index of its first element
 * @param pSrc2    base of the second source
 * @param src2Idx  index of its first element
 * @param pDst     base of the destination; may be a source
 * @param dstIdx   index of its first element
 * @param len      number of elements; for 0 nothing is done
 * @return ::noxStsSizeErr for @p len below 0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsMinEvery_16s_Idx(const Nox16s pSrc1[], int src1Idx, const Nox16s pSrc2[], int src2Idx, Nox16s pDst[], int dstIdx,
                     int len);
/** @copydoc noxsMinEvery_16s_Idx */
NOX_API(NoxStatus)
noxsMinEvery_32s_Idx(const Nox32s pSrc1[], int src1Idx, const Nox32s pSrc2[], int src2Idx, Nox32s pDst[], int dstIdx,
                     int len);

NOX_END_DECLS

#endif
