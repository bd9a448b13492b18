/* Dispatched primitives without an export of their own: each has a row in the dispatch table and is reached by its
 * index form alone. Declared here with NOX_INTERNAL(result) exactly as a public header declares with NOX_API. */
#ifndef NOX_CORE_INTERNAL_H
#define NOX_CORE_INTERNAL_H

#include "nox/types.h"

#define NOX_INTERNAL(type) __attribute__((visibility("hidden"))) extern type

NOX_BEGIN_DECLS

/**
 * @brief Replaces every NaN: `pSrcDst[i] = isnan(pSrcDst[i]) ? value : pSrcDst[i]`. Equal in all builds.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param value    what a NaN becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_INTERNAL(NoxStatus) noxsReplaceNAN_64f_I(Nox64f pSrcDst[], int len, Nox64f value);

/**
 * @brief Replaces elements above a level: `pDst[i] = pSrc[i] > level ? value : pSrc[i]`. Equal in all builds.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, of any sign
 * @param value  what elements above the level become
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_INTERNAL(NoxStatus)
noxsThreshold_GTVal_16s(const Nox16s pSrc[], Nox16s pDst[], int len, Nox16s level, Nox16s value);

/**
 * @brief In-place form of noxsThreshold_GTVal_16s().
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, of any sign
 * @param value    what elements above the level become
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_INTERNAL(NoxStatus) noxsThreshold_GTVal_16s_I(Nox16s pSrcDst[], int len, Nox16s level, Nox16s value);

/**
 * @brief Larger of two arrays, element by element: the second where either is a NaN or both are zeros. Equal in all
 * builds.
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param pDst   array of @p len elements; may be a source
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_INTERNAL(NoxStatus) noxsMaxEvery_8u(const Nox8u pSrc1[], const Nox8u pSrc2[], Nox8u pDst[], int len);
/** @copydoc noxsMaxEvery_8u */
NOX_INTERNAL(NoxStatus) noxsMaxEvery_16u(const Nox16u pSrc1[], const Nox16u pSrc2[], Nox16u pDst[], int len);
/** @copydoc noxsMaxEvery_8u */
NOX_INTERNAL(NoxStatus) noxsMaxEvery_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], Nox64f pDst[], int len);

/**
 * @brief Larger of two arrays in place, element by element: the second where either is a NaN or both are zeros. Equal
 * in all builds.
 * @param pSrc     array of @p len elements
 * @param pSrcDst  array of @p len elements, the second operands, overwritten
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_INTERNAL(NoxStatus) noxsMaxEvery_8u_I(const Nox8u pSrc[], Nox8u pSrcDst[], int len);
/** @copydoc noxsMaxEvery_8u_I */
NOX_INTERNAL(NoxStatus) noxsMaxEvery_16s_I(const Nox16s pSrc[], Nox16s pSrcDst[], int len);
/** @copydoc noxsMaxEvery_8u_I */
NOX_INTERNAL(NoxStatus) noxsMaxEvery_16u_I(const Nox16u pSrc[], Nox16u pSrcDst[], int len);
/** @copydoc noxsMaxEvery_8u_I */
NOX_INTERNAL(NoxStatus) noxsMaxEvery_32s_I(const Nox32s pSrc[], Nox32s pSrcDst[], int len);
/** @copydoc noxsMaxEvery_8u_I */
NOX_INTERNAL(NoxStatus) noxsMaxEvery_64f_I(const Nox64f pSrc[], Nox64f pSrcDst[], int len);

/**
 * @brief Smaller of two arrays, element by element: the second where either is a NaN or both are zeros. Equal in all
 * builds.
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param pDst   array of @p len elements; may be a source
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_INTERNAL(NoxStatus) noxsMinEvery_8u(const Nox8u pSrc1[], const Nox8u pSrc2[], Nox8u pDst[], int len);
/** @copydoc noxsMinEvery_8u */
NOX_INTERNAL(NoxStatus) noxsMinEvery_16u(const Nox16u pSrc1[], const Nox16u pSrc2[], Nox16u pDst[], int len);
/** @copydoc noxsMinEvery_8u */
NOX_INTERNAL(NoxStatus) noxsMinEvery_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], Nox64f pDst[], int len);

/**
 * @brief Smaller of two arrays in place, element by element: the second where either is a NaN or both are zeros. Equal
 * in all builds.
 * @param pSrc     array of @p len elements
 * @param pSrcDst  array of @p len elements, the second operands, overwritten
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_INTERNAL(NoxStatus) noxsMinEvery_8u_I(const Nox8u pSrc[], Nox8u pSrcDst[], int len);
/** @copydoc noxsMinEvery_8u_I */
NOX_INTERNAL(NoxStatus) noxsMinEvery_16s_I(const Nox16s pSrc[], Nox16s pSrcDst[], int len);
/** @copydoc noxsMinEvery_8u_I */
NOX_INTERNAL(NoxStatus) noxsMinEvery_16u_I(const Nox16u pSrc[], Nox16u pSrcDst[], int len);
/** @copydoc noxsMinEvery_8u_I */
NOX_INTERNAL(NoxStatus) noxsMinEvery_32s_I(const Nox32s pSrc[], Nox32s pSrcDst[], int len);
/** @copydoc noxsMinEvery_8u_I */
NOX_INTERNAL(NoxStatus) noxsMinEvery_64f_I(const Nox64f pSrc[], Nox64f pSrcDst[], int len);

NOX_END_DECLS

#endif
