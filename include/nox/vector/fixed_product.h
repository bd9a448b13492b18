/* Scaled integer arithmetic on arrays: products and quotients.
 *
 * The exact result is multiplied by 2 to the power of minus `scaleFactor`, rounded to the nearest integer, an exact
 * half to the even neighbour, and cut to the range of the element: 0 to 255, -32768 to 32767, -2147483648 to
 * 2147483647. So 32767 + 32767 with a scale factor of 1 is 32767. Complex elements are scaled, rounded and cut part by
 * part. Results don't depend on the rounding mode of the calling thread, which is left as it was. Arrays may stand at
 * any address; those that overlap must be the same. */
#ifndef NOX_VECTOR_FIXED_PRODUCT_H
#define NOX_VECTOR_FIXED_PRODUCT_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Scaled product: `pDst[i] = pSrc1[i] * pSrc2[i]`. Equal in all builds.
 * @param pSrc1        array of @p len elements
 * @param pSrc2        array of @p len elements
 * @param pDst         array of @p len elements; may be one of the sources
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMul_8u_Sfs(const Nox8u pSrc1[], const Nox8u pSrc2[], Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsMul_8u_Sfs */
NOX_API(NoxStatus) noxsMul_16s_Sfs(const Nox16s pSrc1[], const Nox16s pSrc2[], Nox16s pDst[], int len, int scaleFactor);
/**
 * @brief Scaled product: `pDst[i] = pSrc1[i] * pSrc2[i]`. Equal in all builds.
 *
 * With a scale factor other than 0 the product is one of doubles: `pSrc1[i]` times the power of two, times `pSrc2[i]`,
 * rounded to 53 bits before it is rounded to an integer. Products of up to 53 bits are scaled exactly.
 * @param pSrc1        array of @p len elements
 * @param pSrc2        array of @p len elements
 * @param pDst         array of @p len elements; may be one of the sources
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMul_32s_Sfs(const Nox32s pSrc1[], const Nox32s pSrc2[], Nox32s pDst[], int len, int scaleFactor);

/**
 * @brief Scaled product in place: `pSrcDst[i] = pSrcDst[i] * pSrc[i]`. Equal in all builds.
 * @param pSrc         array of @p len elements
 * @param pSrcDst      array of @p len elements, overwritten by the result; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMul_8u_ISfs(const Nox8u pSrc[], Nox8u pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsMul_8u_ISfs */
NOX_API(NoxStatus) noxsMul_16s_ISfs(const Nox16s pSrc[], Nox16s pSrcDst[], int len, int scaleFactor);
/**
 * @brief Scaled product in place: `pSrcDst[i] = pSrcDst[i] * pSrc[i]`. Equal in all builds.
 *
 * With a scale factor other than 0 the product is one of doubles: `pSrc[i]` times the power of two, times `pSrcDst[i]`,
 * rounded to 53 bits before it is rounded to an integer. Products of up to 53 bits are scaled exactly.
 * @param pSrc         array of @p len elements
 * @param pSrcDst      array of @p len elements, overwritten by the result; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMul_32s_ISfs(const Nox32s pSrc[], Nox32s pSrcDst[], int len, int scaleFactor);

/**
 * @brief Scaled product with a constant: `pDst[i] = pSrc[i] * val`. Equal in all builds.
 *
 * The product is exact before it is scaled, also that of 32 bits and the complex one.
 * @param pSrc         array of @p len elements
 * @param val          the constant
 * @param pDst         array of @p len elements; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMulC_8u_Sfs(const Nox8u pSrc[], Nox8u val, Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsMulC_8u_Sfs */
NOX_API(NoxStatus) noxsMulC_16s_Sfs(const Nox16s pSrc[], Nox16s val, Nox16s pDst[], int len, int scaleFactor);
/** @copydoc noxsMulC_8u_Sfs */
NOX_API(NoxStatus) noxsMulC_32s_Sfs(const Nox32s pSrc[], Nox32s val, Nox32s pDst[], int len, int scaleFactor);
/** @copydoc noxsMulC_8u_Sfs */
NOX_API(NoxStatus) noxsMulC_32sc_Sfs(const Nox32sc pSrc[], Nox32sc val, Nox32sc pDst[], int len, int scaleFactor);

/**
 * @brief Scaled product with a constant in place: `pSrcDst[i] = pSrcDst[i] * val`. Equal in all builds.
 *
 * The product is exact before it is scaled, also that of 32 bits and the complex one.
 * @param val          the constant
 * @param pSrcDst      array of @p len elements, overwritten by the result
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMulC_8u_ISfs(Nox8u val, Nox8u pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsMulC_8u_ISfs */
NOX_API(NoxStatus) noxsMulC_16s_ISfs(Nox16s val, Nox16s pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsMulC_8u_ISfs */
NOX_API(NoxStatus) noxsMulC_32s_ISfs(Nox32s val, Nox32s pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsMulC_8u_ISfs */
NOX_API(NoxStatus) noxsMulC_32sc_ISfs(Nox32sc val, Nox32sc pSrcDst[], int len, int scaleFactor);

/**
 * @brief Scaled sum with a product: `pSrcDst[i] = pSrcDst[i] + pSrc1[i] * pSrc2[i]`. Equal in all builds.
 *
 * The sum is exact before it is scaled.
 * @param pSrc1        array of @p len elements
 * @param pSrc2        array of @p len elements
 * @param pSrcDst      array of @p len elements, overwritten by the result; may be one of the sources
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsAddProduct_32s_Sfs(const Nox32s pSrc1[], const Nox32s pSrc2[], Nox32s pSrcDst[], int len, int scaleFactor);

/**
 * @brief Scaled quotient, second array by first: `pDst[i] = pSrc2[i] / pSrc1[i]`. Equal in all builds.
 *
 * A divisor 0 gives the largest number for a dividend above 0, the smallest for one below 0, and 0 for 0.
 * @param pSrc1        array of @p len elements, the divisors
 * @param pSrc2        array of @p len elements, the dividends
 * @param pDst         array of @p len elements; may be one of the sources
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; ::noxStsDivByZero if a
 *         divisor was 0, after the whole array is done; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDiv_8u_Sfs(const Nox8u pSrc1[], const Nox8u pSrc2[], Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsDiv_8u_Sfs */
NOX_API(NoxStatus) noxsDiv_16s_Sfs(const Nox16s pSrc1[], const Nox16s pSrc2[], Nox16s pDst[], int len, int scaleFactor);
/**
 * @brief Scaled quotient, second array by first: `pDst[i] = pSrc2[i] / pSrc1[i]`. Equal in all builds.
 *
 * A divisor 0 gives the largest number for a dividend above 0, the smallest for one below 0, and 0 for 0.
 * The quotient is one of doubles, the dividend times the power of two over the divisor, rounded to 53 bits before it
 * is rounded to an integer; from a scale factor of 0 on that is the rounded exact quotient.
 * @param pSrc1        array of @p len elements, the divisors
 * @param pSrc2        array of @p len elements, the dividends
 * @param pDst         array of @p len elements; may be one of the sources
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; ::noxStsDivByZero if a
 *         divisor was 0, after the whole array is done; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDiv_32s_Sfs(const Nox32s pSrc1[], const Nox32s pSrc2[], Nox32s pDst[], int len, int scaleFactor);

/**
 * @brief Scaled quotient in place: `pSrcDst[i] = pSrcDst[i] / pSrc[i]`. Equal in all builds.
 *
 * A divisor 0 gives the largest number for a dividend above 0, the smallest for one below 0, and 0 for 0.
 * @param pSrc         array of @p len elements, the divisors
 * @param pSrcDst      array of @p len elements, the dividends, overwritten by the result; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; ::noxStsDivByZero if a
 *         divisor was 0, after the whole array is done; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDiv_8u_ISfs(const Nox8u pSrc[], Nox8u pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsDiv_8u_ISfs */
NOX_API(NoxStatus) noxsDiv_16s_ISfs(const Nox16s pSrc[], Nox16s pSrcDst[], int len, int scaleFactor);
/**
 * @brief Scaled quotient in place: `pSrcDst[i] = pSrcDst[i] / pSrc[i]`. Equal in all builds.
 *
 * A divisor 0 gives the largest number for a dividend above 0, the smallest for one below 0, and 0 for 0.
 * The quotient is one of doubles, the dividend times the power of two over the divisor, rounded to 53 bits before it
 * is rounded to an integer; from a scale factor of 0 on that is the rounded exact quotient.
 * @param pSrc         array of @p len elements, the divisors
 * @param pSrcDst      array of @p len elements, the dividends, overwritten by the result; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; ::noxStsDivByZero if a
 *         divisor was 0, after the whole array is done; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDiv_32s_ISfs(const Nox32s pSrc[], Nox32s pSrcDst[], int len, int scaleFactor);

/**
 * @brief Scaled quotient by a constant: `pDst[i] = pSrc[i] / val`. Equal in all builds.
 * @param pSrc         array of @p len elements
 * @param val          the constant
 * @param pDst         array of @p len elements; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsDivByZeroErr for @p val 0, with nothing written; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDivC_8u_Sfs(const Nox8u pSrc[], Nox8u val, Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsDivC_8u_Sfs */
NOX_API(NoxStatus) noxsDivC_16s_Sfs(const Nox16s pSrc[], Nox16s val, Nox16s pDst[], int len, int scaleFactor);

/**
 * @brief Scaled quotient by a constant in place: `pSrcDst[i] = pSrcDst[i] / val`. Equal in all builds.
 * @param val          the constant
 * @param pSrcDst      array of @p len elements, overwritten by the result
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsDivByZeroErr for @p val 0, with nothing written; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDivC_8u_ISfs(Nox8u val, Nox8u pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsDivC_8u_ISfs */
NOX_API(NoxStatus) noxsDivC_16s_ISfs(Nox16s val, Nox16s pSrcDst[], int len, int scaleFactor);

NOX_END_DECLS

#endif
