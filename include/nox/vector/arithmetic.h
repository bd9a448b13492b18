/* Arithmetic on arrays of Nox64f and Nox64fc: IEEE-754 results in the calling thread's rounding mode.
 *
 * Every plain form may be given a source that is its destination; arrays that overlap in any other way are not
 * allowed. Arrays may stand at any address. Add, subtract, multiply, square and square root of real data are the
 * correctly rounded results and equal in all builds; what else holds is told at each function. A NaN in an operand
 * gives a NaN in the result; which of two NaN payloads survives may differ between builds. */
#ifndef NOX_VECTOR_ARITHMETIC_H
#define NOX_VECTOR_ARITHMETIC_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Element-wise sum: `pDst[i] = pSrc1[i] + pSrc2[i]`. Equal in all builds.
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param pDst   array of @p len elements; may be one of the sources
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAdd_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], Nox64f pDst[], int len);
/** @copydoc noxsAdd_64f */
NOX_API(NoxStatus) noxsAdd_64fc(const Nox64fc pSrc1[], const Nox64fc pSrc2[], Nox64fc pDst[], int len);

/**
 * @brief Sum in place: `pSrcDst[i] = pSrcDst[i] + pSrc[i]`; otherwise like noxsAdd_64f().
 * @param pSrc     array of @p len elements
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAdd_64f_I(const Nox64f pSrc[], Nox64f pSrcDst[], int len);

/**
 * @brief Sum in place: `pSrcDst[i] = pSrcDst[i] + pSrc[i]`; otherwise like noxsAdd_64fc().
 * @param pSrc     array of @p len elements
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAdd_64fc_I(const Nox64fc pSrc[], Nox64fc pSrcDst[], int len);

/**
 * @brief Element-wise difference, second array minus first: `pDst[i] = pSrc2[i] - pSrc1[i]`. Equal in all
 * builds.
 * @param pSrc1  array of @p len elements, subtracted
 * @param pSrc2  array of @p len elements, subtracted from
 * @param pDst   array of @p len elements; may be one of the sources
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSub_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], Nox64f pDst[], int len);
/** @copydoc noxsSub_64f */
NOX_API(NoxStatus) noxsSub_64fc(const Nox64fc pSrc1[], const Nox64fc pSrc2[], Nox64fc pDst[], int len);

/**
 * @brief Difference in place: `pSrcDst[i] = pSrcDst[i] - pSrc[i]`; otherwise like noxsSub_64f().
 * @param pSrc     array of @p len elements, subtracted
 * @param pSrcDst  array of @p len elements, subtracted from, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSub_64f_I(const Nox64f pSrc[], Nox64f pSrcDst[], int len);

/**
 * @brief Difference in place: `pSrcDst[i] = pSrcDst[i] - pSrc[i]`; otherwise like noxsSub_64fc().
 * @param pSrc     array of @p len elements, subtracted
 * @param pSrcDst  array of @p len elements, subtracted from, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSub_64fc_I(const Nox64fc pSrc[], Nox64fc pSrcDst[], int len);

/**
 * @brief Element-wise product: `pDst[i] = pSrc1[i] * pSrc2[i]`. Equal in all builds.
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param pDst   array of @p len elements; may be one of the sources
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMul_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], Nox64f pDst[], int len);

/**
 * @brief Element-wise product: `pDst[i] = pSrc1[i] * pSrc2[i]`.
 *
 * With a + ib and c + id the result is (ac - bd) + i(ad + bc), each product rounded. Equal in all builds.
 * @param pSrc1  array of @p len elements
 * @param pSrc2  array of @p len elements
 * @param pDst   array of @p len elements; may be one of the sources
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMul_64fc(const Nox64fc pSrc1[], const Nox64fc pSrc2[], Nox64fc pDst[], int len);

/**
 * @brief Product in place: `pSrcDst[i] = pSrcDst[i] * pSrc[i]`; otherwise like noxsMul_64f().
 * @param pSrc     array of @p len elements
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMul_64f_I(const Nox64f pSrc[], Nox64f pSrcDst[], int len);

/**
 * @brief Product in place: `pSrcDst[i] = pSrcDst[i] * pSrc[i]`; otherwise like noxsMul_64fc().
 * @param pSrc     array of @p len elements
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMul_64fc_I(const Nox64fc pSrc[], Nox64fc pSrcDst[], int len);

/**
 * @brief Element-wise quotient, second array by first: `pDst[i] = pSrc2[i] / pSrc1[i]`.
 *
 * Four divisors share one reciprocal, so a quotient may differ from the rounded one by up to 4 units in the last
 * place, and between builds; groups with very large, very small or special divisors are divided one by one. A zero
 * divisor of either sign gives the dividend times +infinity: +infinity or -infinity by the dividend's sign, NaN for
 * a zero or NaN dividend.
 * @param pSrc1  array of @p len elements, the divisors
 * @param pSrc2  array of @p len elements, the dividends
 * @param pDst   array of @p len elements; may be one of the sources
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 *         ::noxStsDivByZero if a divisor was zero, after the whole array is done, else ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDiv_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], Nox64f pDst[], int len);

/**
 * @brief Element-wise quotient, second array by first: `pDst[i] = pSrc2[i] / pSrc1[i]`.
 *
 * With divisor c + id, dividend a + ib and m = c*c + d*d the result is (ac + bd)/m + i(bc - ad)/m, by the
 * reciprocal of m; it is not scaled against overflow of m. A zero m gives NaN in both parts. Each part is within 4
 * units in the last place of (|ac| + |bd|)/m or (|bc| + |ad|)/m; equal in all builds.
 * @param pSrc1  array of @p len elements, the divisors
 * @param pSrc2  array of @p len elements, the dividends
 * @param pDst   array of @p len elements; may be one of the sources
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 *         ::noxStsDivByZero if a divisor was zero, after the whole array is done, else ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDiv_64fc(const Nox64fc pSrc1[], const Nox64fc pSrc2[], Nox64fc pDst[], int len);

/**
 * @brief Quotient in place: `pSrcDst[i] = pSrcDst[i] / pSrc[i]`; otherwise like noxsDiv_64f().
 * @param pSrc     array of @p len elements, the divisors
 * @param pSrcDst  array of @p len elements, the dividends, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 *         ::noxStsDivByZero if a divisor was zero, after the whole array is done, else ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDiv_64f_I(const Nox64f pSrc[], Nox64f pSrcDst[], int len);

/**
 * @brief Quotient in place: `pSrcDst[i] = pSrcDst[i] / pSrc[i]`; otherwise like noxsDiv_64fc().
 * @param pSrc     array of @p len elements, the divisors
 * @param pSrcDst  array of @p len elements, the dividends, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 *         ::noxStsDivByZero if a divisor was zero, after the whole array is done, else ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDiv_64fc_I(const Nox64fc pSrc[], Nox64fc pSrcDst[], int len);

/**
 * @brief Adds a constant: `pDst[i] = pSrc[i] + val`. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param val   the constant
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAddC_64f(const Nox64f pSrc[], Nox64f val, Nox64f pDst[], int len);
/** @copydoc noxsAddC_64f */
NOX_API(NoxStatus) noxsAddC_64fc(const Nox64fc pSrc[], Nox64fc val, Nox64fc pDst[], int len);

/**
 * @brief Adds a constant in place; otherwise like noxsAddC_64f().
 * @param val      the constant
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAddC_64f_I(Nox64f val, Nox64f pSrcDst[], int len);
/** @copydoc noxsAddC_64f_I */
NOX_API(NoxStatus) noxsAddC_64fc_I(Nox64fc val, Nox64fc pSrcDst[], int len);

/**
 * @brief Subtracts a constant: `pDst[i] = pSrc[i] - val`. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param val   the constant
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSubC_64f(const Nox64f pSrc[], Nox64f val, Nox64f pDst[], int len);
/** @copydoc noxsSubC_64f */
NOX_API(NoxStatus) noxsSubC_64fc(const Nox64fc pSrc[], Nox64fc val, Nox64fc pDst[], int len);

/**
 * @brief Subtracts a constant in place; otherwise like noxsSubC_64f().
 * @param val      the constant
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSubC_64f_I(Nox64f val, Nox64f pSrcDst[], int len);
/** @copydoc noxsSubC_64f_I */
NOX_API(NoxStatus) noxsSubC_64fc_I(Nox64fc val, Nox64fc pSrcDst[], int len);

/**
 * @brief Subtracts from a constant: `pDst[i] = val - pSrc[i]`. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param val   the constant
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSubCRev_64f(const Nox64f pSrc[], Nox64f val, Nox64f pDst[], int len);
/** @copydoc noxsSubCRev_64f */
NOX_API(NoxStatus) noxsSubCRev_64fc(const Nox64fc pSrc[], Nox64fc val, Nox64fc pDst[], int len);

/**
 * @brief Subtracts from a constant in place; otherwise like noxsSubCRev_64f().
 * @param val      the constant
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSubCRev_64f_I(Nox64f val, Nox64f pSrcDst[], int len);
/** @copydoc noxsSubCRev_64f_I */
NOX_API(NoxStatus) noxsSubCRev_64fc_I(Nox64fc val, Nox64fc pSrcDst[], int len);

/**
 * @brief Multiplies by a constant: `pDst[i] = pSrc[i] * val`. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param val   the constant
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMulC_64f(const Nox64f pSrc[], Nox64f val, Nox64f pDst[], int len);

/**
 * @brief Multiplies by a constant: `pDst[i] = pSrc[i] * val`.
 *
 * With a + ib and val = c + id the result is (ac - bd) + i(ad + bc), each product rounded. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param val   the constant
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMulC_64fc(const Nox64fc pSrc[], Nox64fc val, Nox64fc pDst[], int len);

/**
 * @brief Multiplies by a constant in place; otherwise like noxsMulC_64f().
 * @param val      the constant
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMulC_64f_I(Nox64f val, Nox64f pSrcDst[], int len);

/**
 * @brief Multiplies by a constant in place; otherwise like noxsMulC_64fc().
 * @param val      the constant
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMulC_64fc_I(Nox64fc val, Nox64fc pSrcDst[], int len);

/**
 * @brief Divides by a constant, as the product with its reciprocal: `pDst[i] = pSrc[i] * (1 / val)`.
 *
 * The reciprocal is rounded before the product, so 3.0 / 3.0 need not be 1.0; equal in all builds.
 * @param pSrc  array of @p len elements
 * @param val   the constant
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsDivByZeroErr for a zero @p val, with nothing written; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDivC_64f(const Nox64f pSrc[], Nox64f val, Nox64f pDst[], int len);

/**
 * @brief Divides by a constant, as the product with its reciprocal: `pDst[i] = pSrc[i] * (1 / val)`.
 *
 * With val = c + id and m = c*c + d*d the constant of the product is c*(1/m) - i*d*(1/m), so a magnitude whose square
 * overflows or underflows is lost; equal in all builds. A val whose m is 0 counts as zero.
 * @param pSrc  array of @p len elements
 * @param val   the constant
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsDivByZeroErr for a zero @p val, with nothing written; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDivC_64fc(const Nox64fc pSrc[], Nox64fc val, Nox64fc pDst[], int len);

/**
 * @brief Divides by a constant in place; otherwise like noxsDivC_64f().
 * @param val      the constant
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsDivByZeroErr for a zero @p val, with nothing written; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDivC_64f_I(Nox64f val, Nox64f pSrcDst[], int len);

/**
 * @brief Divides by a constant in place; otherwise like noxsDivC_64fc().
 * @param val      the constant
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsDivByZeroErr for a zero @p val, with nothing written; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDivC_64fc_I(Nox64fc val, Nox64fc pSrcDst[], int len);

/**
 * @brief Adds a product: `pSrcDst[i] = pSrcDst[i] + pSrc1[i] * pSrc2[i]`; the product is rounded, then the sum. Equal
 * in all builds.
 * @param pSrc1    array of @p len elements
 * @param pSrc2    array of @p len elements
 * @param pSrcDst  array of @p len elements, overwritten by the result; may be one of the sources
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAddProduct_64f(const Nox64f pSrc1[], const Nox64f pSrc2[], Nox64f pSrcDst[], int len);
/** @copydoc noxsAddProduct_64f */
NOX_API(NoxStatus) noxsAddProduct_64fc(const Nox64fc pSrc1[], const Nox64fc pSrc2[], Nox64fc pSrcDst[], int len);

/**
 * @brief Square of each element. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSqr_64f(const Nox64f pSrc[], Nox64f pDst[], int len);

/**
 * @brief Squares in place; otherwise like noxsSqr_64f().
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSqr_64f_I(Nox64f pSrcDst[], int len);

/**
 * @brief Square of each element.
 *
 * With a + ib the result is (a*a - b*b) + i(2ab), each product rounded. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSqr_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);

/**
 * @brief Squares in place; otherwise like noxsSqr_64fc().
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSqr_64fc_I(Nox64fc pSrcDst[], int len);

/**
 * @brief Square root of each element. Equal in all builds.
 *
 * A negative element gives NaN and the warning; -0.0 gives -0.0 and a NaN gives NaN, both without one.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 *         ::noxStsSqrtNegArg if an element was negative, after the whole array is done, else ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSqrt_64f(const Nox64f pSrc[], Nox64f pDst[], int len);

/**
 * @brief Square root in place; otherwise like noxsSqrt_64f().
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 *         ::noxStsSqrtNegArg if an element was negative, after the whole array is done, else ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSqrt_64f_I(Nox64f pSrcDst[], int len);

/**
 * @brief Square root of each element.
 *
 * The principal root, by s = sqrt(|re|/2 + sqrt((re/2)^2 + (im/2)^2)) and t = |im/2| / s: s + it for
 * re >= 0, t + is otherwise, im negated where im < 0 (a negative zero isn't). A few units in the last place; squares
 * that underflow are lost.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSqrt_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);

/**
 * @brief Square root in place; otherwise like noxsSqrt_64fc().
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSqrt_64fc_I(Nox64fc pSrcDst[], int len);

NOX_END_DECLS

#endif
