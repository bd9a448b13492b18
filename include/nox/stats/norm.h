/* Norms of arrays and of differences of two arrays, and normalisation.
 *
 * Nothing is scaled on the way: a norm of magnitudes beyond about 1e154 overflows where squares are summed, and below
 * 1e-154 they vanish. Nothing is written on an error. */
#ifndef NOX_STATS_NORM_H
#define NOX_STATS_NORM_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Largest magnitude, `max |pSrc[i]|`. Equal in all builds.
 *
 * Elements go in turn to four lanes, in which a NaN gives way to the next element and takes what the lane held with it:
 * it shows in the result only as the last of its lane. A first element at an odd multiple of 8 bytes goes to the first
 * lane on its own.
 *
 * @param pSrc   array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNorm_Inf_64f(const Nox64f pSrc[], int len, Nox64f* pNorm);

/**
 * @brief Sum of magnitudes, `sum |pSrc[i]|`.
 *
 * The order of the additions follows the build and the address, so that the last bits differ between builds.
 *
 * @param pSrc   array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNorm_L1_64f(const Nox64f pSrc[], int len, Nox64f* pNorm);

/**
 * @brief Square root of the sum of squares, `sqrt(sum pSrc[i]^2)`; otherwise like noxsNorm_L1_64f().
 * @param pSrc   array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNorm_L2_64f(const Nox64f pSrc[], int len, Nox64f* pNorm);

/**
 * @brief Largest magnitude of complex elements, the root of the largest `re^2 + im^2`. Equal in all builds.
 *
 * An element with a NaN is passed over.
 *
 * @param pSrc   array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm; 0 where every element holds a NaN
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNorm_Inf_64fc64f(const Nox64fc pSrc[], int len, Nox64f* pNorm);

/**
 * @brief Sum of magnitudes of complex elements, `sum sqrt(re^2 + im^2)`; otherwise like noxsNorm_L1_64f().
 * @param pSrc   array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNorm_L1_64fc64f(const Nox64fc pSrc[], int len, Nox64f* pNorm);

/**
 * @brief Square root of the sum of `re^2 + im^2`; otherwise like noxsNorm_L1_64f().
 * @param pSrc   array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNorm_L2_64fc64f(const Nox64fc pSrc[], int len, Nox64f* pNorm);

/**
 * @brief Norm of the difference `pSrc1[i] - pSrc2[i]`, otherwise like noxsNorm_Inf_64f(); lanes go by the first array.
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNormDiff_Inf_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], int len, Nox64f* pNorm);
/**
 * @brief Norm of the difference `pSrc1[i] - pSrc2[i]`, otherwise like noxsNorm_L1_64f().
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNormDiff_L1_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], int len, Nox64f* pNorm);
/**
 * @brief Norm of the difference `pSrc1[i] - pSrc2[i]`, otherwise like noxsNorm_L2_64f().
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNormDiff_L2_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], int len, Nox64f* pNorm);
/**
 * @brief Norm of the difference `pSrc1[i] - pSrc2[i]`, otherwise like noxsNorm_Inf_64fc64f().
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNormDiff_Inf_64fc64f(const Nox64fc pSrc1[], const Nox64fc pSrc2[], int len, Nox64f* pNorm);
/**
 * @brief Norm of the difference `pSrc1[i] - pSrc2[i]`, otherwise like noxsNorm_L1_64fc64f().
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNormDiff_L1_64fc64f(const Nox64fc pSrc1[], const Nox64fc pSrc2[], int len, Nox64f* pNorm);
/**
 * @brief Norm of the difference `pSrc1[i] - pSrc2[i]`, otherwise like noxsNorm_L2_64fc64f().
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param len    number of elements
 * @param pNorm  takes the norm
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNormDiff_L2_64fc64f(const Nox64fc pSrc1[], const Nox64fc pSrc2[], int len, Nox64f* pNorm);

/**
 * @brief Subtracts and divides: `pDst[i] = (pSrc[i] - vSub) * (1 / vDiv)`.
 *
 * h9 fuses: `pSrc[i] * (1 / vDiv) - vSub / vDiv` with one rounding at the end. The other builds are equal; against
 * them h9 differs by rounding.
 *
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @param vSub  what is subtracted
 * @param vDiv  the divisor; a NaN gives NaN everywhere
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsDivByZeroErr for
 *         a magnitude of @p vDiv below the smallest normal double; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNormalize_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f vSub, Nox64f vDiv);
/** @copydoc noxsNormalize_64f */
NOX_API(NoxStatus) noxsNormalize_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len, Nox64fc vSub, Nox64f vDiv);

NOX_END_DECLS

#endif
