/* One level of the Haar wavelet transform: an array is split into a low and a high band of half its length, and put
 * together again. */
#ifndef NOX_TRANSFORM_HAAR_H
#define NOX_TRANSFORM_HAAR_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Splits an array into half differences and means of its pairs. Equal in all builds.
 *
 * With `a = pSrc[2k]` and `b = pSrc[2k + 1]`, `pDstHigh[k] = (b - a) * 0.5` and `pDstLow[k] = pDstHigh[k] + a`. With
 * an odd @p len the last element goes unchanged behind the others of pDstLow.
 *
 * Pairs are taken from the front, and each is read before its results are written, so one of the two destinations may
 * be @p pSrc itself: its results then stand in the front half. The arrays must not overlap in any other way.
 *
 * @param pSrc      array of @p len elements, at any alignment
 * @param len       number of elements
 * @param pDstLow   array of (@p len + 1) / 2 elements, at any alignment; may be @p pSrc
 * @param pDstHigh  array of @p len / 2 elements, at any alignment; may be @p pSrc if pDstLow isn't; must not be null
 *                  even where nothing is written
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWTHaarFwd_64f(const Nox64f pSrc[], int len, Nox64f pDstLow[], Nox64f pDstHigh[]);

/**
 * @brief Puts together what noxsWTHaarFwd_64f() split. Equal in all builds.
 *
 * `pDst[2k] = pSrcLow[k] - pSrcHigh[k]` and `pDst[2k + 1] = pSrcHigh[k] + pSrcLow[k]`. With an odd @p len the last
 * element of pSrcLow goes unchanged to the end of pDst. The original comes back exactly where its sums and differences
 * are exact, as for integers below 2^52 in magnitude; otherwise up to the roundings of both ways.
 *
 * @param pSrcLow   array of (@p len + 1) / 2 elements, at any alignment
 * @param pSrcHigh  array of @p len / 2 elements, at any alignment; must not be null even where nothing is read
 * @param pDst      array of @p len elements, at any alignment; must not overlap the sources
 * @param len       number of elements of pDst
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWTHaarInv_64f(const Nox64f pSrcLow[], const Nox64f pSrcHigh[], Nox64f pDst[], int len);

NOX_END_DECLS

#endif
