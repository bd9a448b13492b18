/* Sums, means, sample deviations, dot products.
 *
 * Sums of reals run in several lanes, which the address of the data and the build determine: their last bits differ
 * between builds, and between addresses in one build. A lane starts from +0, so a sum of zeros is +0. A NaN in the data
 * gives a NaN, a sum out of range an infinity. Arrays may stand at any address. Integer forms are equal in all builds.
 * Nothing is written on an error. */
#ifndef NOX_STATS_SUM_H
#define NOX_STATS_SUM_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Sum of the elements, in lanes; its last bits differ between builds and addresses.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pSum  takes the sum
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSum_64f(const Nox64f pSrc[], int len, Nox64f* pSum);
/** @copydoc noxsSum_64f */
NOX_API(NoxStatus) noxsSum_64fc(const Nox64fc pSrc[], int len, Nox64fc* pSum);

/**
 * @brief Exact sum times 2^-scaleFactor, rounded to nearest, halves to even, and saturated. Equal in all builds.
 *
 * A scale factor above 63 counts as 63, one below -31 as -31.
 *
 * @param pSrc         array of @p len elements
 * @param len          number of elements
 * @param pSum         takes the sum
 * @param scaleFactor  any value
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSum_32s_Sfs(const Nox32s pSrc[], int len, Nox32s* pSum, int scaleFactor);
/**
 * @brief Exact sum times 2^-scaleFactor, rounded to nearest, halves to even, and saturated. Equal in all builds.
 * @param pSrc         array of @p len elements
 * @param len          number of elements
 * @param pSum         takes the sum
 * @param scaleFactor  any value
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSum_16s32s_Sfs(const Nox16s pSrc[], int len, Nox32s* pSum, int scaleFactor);

/**
 * @brief Mean: the sum of noxsSum_64f() divided by @p len; its last bits differ between builds and addresses.
 * @param pSrc   array of @p len elements
 * @param len    number of elements
 * @param pMean  takes the mean
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMean_64f(const Nox64f pSrc[], int len, Nox64f* pMean);
/**
 * @brief Mean: the sum of noxsSum_64fc() times the rounded 1 / @p len; its last bits differ between builds and
 * addresses.
 * @param pSrc   array of @p len elements
 * @param len    number of elements
 * @param pMean  takes the mean
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMean_64fc(const Nox64fc pSrc[], int len, Nox64fc* pMean);
/**
 * @brief Mean of the exact sum, rounded to nearest, halves to even, and scaled by 2^-scaleFactor. Equal in all builds.
 *
 * A scale factor s above 0 rounds a second time: of the rounded magnitude q it makes q plus its bit s - 1, shifted
 * right by s; both shifts count modulo 32. One below 0 shifts the sum left before the division where the sum fits
 * Nox32s, and the rounded mean otherwise. Results saturate; -32 and below leave 0 or an end of the range.
 *
 * @param pSrc         array of @p len elements
 * @param len          number of elements
 * @param pMean        takes the mean
 * @param scaleFactor  any value
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMean_32s_Sfs(const Nox32s pSrc[], int len, Nox32s* pMean, int scaleFactor);

/**
 * @brief Sample standard deviation: `sqrt((Q n - S S) / (n (n - 1)))` with S the sum of the elements, Q that of their
 * squares; its last bits differ between builds and addresses.
 *
 * A numerator that isn't above 0, by cancellation or as a NaN, counts as 0: a NaN or an infinity in the data gives 0,
 * two equal values do too.
 *
 * @param pSrc     array of @p len elements
 * @param len      number of elements
 * @param pStdDev  takes the deviation
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 2; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsStdDev_64f(const Nox64f pSrc[], int len, Nox64f* pStdDev);
/**
 * @brief Mean, `S / n`, and sample standard deviation as noxsStdDev_64f() gives it, in one pass.
 * @param pSrc     array of @p len elements; a NaN gives a NaN mean and the deviation 0
 * @param len      number of elements
 * @param pMean    takes the mean
 * @param pStdDev  takes the deviation
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 2; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMeanStdDev_64f(const Nox64f pSrc[], int len, Nox64f* pMean, Nox64f* pStdDev);

/**
 * @brief Dot product: sum of `pSrc1[i] * pSrc2[i]`, in lanes; its last bits differ between builds and addresses.
 *
 * Complex products aren't conjugated. In the build with fused multiply-add a product isn't rounded before it is added.
 *
 * @param pSrc1     array of @p len elements
 * @param pSrc2     array of @p len elements; may be the first
 * @param len       number of elements
 * @param pDotProd  takes the sum of the products
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDotProd_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], int len, Nox64f* pDotProd);
/** @copydoc noxsDotProd_64f */
NOX_API(NoxStatus) noxsDotProd_64fc(const Nox64fc pSrc1[], const Nox64fc pSrc2[], int len, Nox64fc* pDotProd);
/** @copydoc noxsDotProd_64f */
NOX_API(NoxStatus) noxsDotProd_64f64fc(const Nox64f pSrc1[], const Nox64fc pSrc2[], int len, Nox64fc* pDotProd);
/**
 * @brief Dot product in double precision times 2^-scaleFactor, rounded to nearest, halves to even, and saturated.
 * Equal in all builds.
 *
 * Exact while the magnitudes of the products sum to less than 2^53; beyond, products and sums are rounded in an order
 * that depends on the address of the second array. A scale factor below -31 counts as -31, one above 93 as 93.
 *
 * @param pSrc1        array of @p len elements
 * @param pSrc2        array of @p len elements; may be the first
 * @param len          number of elements
 * @param pDotProd     takes the sum of the products
 * @param scaleFactor  any value
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsDotProd_32s_Sfs(const Nox32s pSrc1[], const Nox32s pSrc2[], int len, Nox32s* pDotProd, int scaleFactor);

NOX_END_DECLS

#endif
