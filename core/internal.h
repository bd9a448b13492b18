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

/**
 * @brief Fills an array with a cosine tone: `pDst[k] = magn * cos(2 pi rFreq k + phase)`.
 *
 * By recurrence from the first two values; its errors grow with the length, for low frequencies with their reciprocal
 * too. With @p hint 1 it starts afresh from direct values every 2048 elements. The phase word takes the phase of the
 * element behind the last, in [0, 2 pi), so that the next call continues the tone. Builds may differ in the last bits.
 *
 * @param pDst    array of @p len elements
 * @param len     number of elements
 * @param magn    magnitude, above 0
 * @param rFreq   frequency in cycles per sample, 0 <= rFreq < 0.5
 * @param pPhase  phase in radians, 0 <= phase < 2 pi; takes that of the next call
 * @param hint    1 bounds the error by restarts; any other value doesn't
 * @return ::noxStsNullPtrErr for a null pPhase, then ::noxStsToneMagnErr, ::noxStsToneFreqErr, ::noxStsTonePhaseErr for
 *   what is out of range, then ::noxStsNullPtrErr for a null pDst, then ::noxStsSizeErr for @p len below 1; otherwise
 *   ::noxStsNoErr
 */
NOX_INTERNAL(NoxStatus)
noxsTone_Direct_64f(Nox64f pDst[], int len, Nox64f magn, Nox64f rFreq, Nox64f* pPhase, int hint);

/**
 * @brief Fills an array with a complex tone, whose real part is noxsTone_Direct_64f() and whose imaginary part the
 * sine.
 *
 * Frequencies up to 1 are taken: 0 <= rFreq < 1.
 *
 * @copydetails noxsTone_Direct_64f
 */
NOX_INTERNAL(NoxStatus)
noxsTone_Direct_64fc(Nox64fc pDst[], int len, Nox64f magn, Nox64f rFreq, Nox64f* pPhase, int hint);

/**
 * @brief Fills an array with a triangle wave: from magn at phase 0 down to -magn at pi + asym and up again to 2 pi.
 *
 * Below a frequency of 0.14 each value is the last one plus a step, so that rounding adds up; from there on each is
 * computed from its phase. An asym of -pi leaves no falling part: the wave jumps from magn to -magn. The phase word
 * takes the phase of the element behind the last, in [0, 2 pi). Builds may differ in the last bits.
 *
 * @param pDst    array of @p len elements
 * @param len     number of elements
 * @param magn    magnitude, above 0
 * @param rFreq   frequency in cycles per sample, 0 <= rFreq < 0.5
 * @param asym    asymmetry, -pi <= asym < pi; 0 for parts of equal length
 * @param pPhase  phase in radians, 0 <= phase < 2 pi; takes that of the next call
 * @return ::noxStsNullPtrErr for a null pPhase, then ::noxStsTrnglMagnErr, ::noxStsTrnglFreqErr, ::noxStsTrnglAsymErr,
 *   ::noxStsTrnglPhaseErr for what is out of range, then ::noxStsNullPtrErr for a null pDst, then ::noxStsSizeErr for
 *   @p len below 1; otherwise ::noxStsNoErr
 */
NOX_INTERNAL(NoxStatus)
noxsTriangle_Direct_64f(Nox64f pDst[], int len, Nox64f magn, Nox64f rFreq, Nox64f asym, Nox64f* pPhase);

/**
 * @brief Fills an array with a complex triangle wave: noxsTriangle_Direct_64f() beside the same wave later.
 *
 * The imaginary part is later by `(2 pi + a) / 2`, a = pi + asym: with phase 0 it begins in the middle of the rise.
 * Values are computed from their phases from a frequency of 0.11 on.
 *
 * @copydetails noxsTriangle_Direct_64f
 */
NOX_INTERNAL(NoxStatus)
noxsTriangle_Direct_64fc(Nox64fc pDst[], int len, Nox64f magn, Nox64f rFreq, Nox64f asym, Nox64f* pPhase);

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
