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

/* Normally distributed Nox64f values, for the one-call forms; described in nox/generate/random.h. */
NOX_INTERNAL(NoxStatus) noxsRandGaussGetSize_64f(int* pSize);
NOX_INTERNAL(NoxStatus)
noxsRandGaussInit_64f(NoxRandGaussState_64f* pState, Nox64f mean, Nox64f stdDev, unsigned int seed);

NOX_END_DECLS

#endif
