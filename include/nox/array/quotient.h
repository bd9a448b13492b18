/* Quotients and remainders of integers and of reals.
 *
 * In spite of the capital SFS in their names these functions have no scale factor and don't saturate. Quotients are cut
 * toward zero and remainders have the sign of the dividend: -7 by 2 gives -3 and -1. Bytes are unsigned. -32768 by -1
 * stores -32768, the low bits of the quotient. They return no status and test nothing. No divisor may be 0, nor -1 of
 * the lowest 32-bit integer: such a call may end in the processor's division fault. An array may be its own
 * destination; arrays that overlap in another way are treated element after element from index 0 on. Equal in all
 * builds. */
#ifndef NOX_ARRAY_QUOTIENT_H
#define NOX_ARRAY_QUOTIENT_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Quotients by a constant: `dst[i] = src[i] / value`. Equal in all builds.
 * @param src    array of @p n dividends
 * @param value  the divisor, not 0
 * @param dst    array of @p n elements; may be the source
 * @param n      number of elements, 0 or more
 */
NOX_API(void) DivC_32s_SFS(const Nox32s src[], Nox32s value, Nox32s dst[], Nox32u n);

/**
 * @brief Quotients by a constant, in place. Equal in all builds.
 * @param srcDst  array of @p n dividends, overwritten
 * @param value   the divisor, not 0
 * @param n       number of elements, 0 or more
 */
NOX_API(void) DivC_32s_ISFS(Nox32s srcDst[], Nox32s value, Nox32u n);

/**
 * @brief Remainders by a constant: `dst[i] = src[i] % value`. Equal in all builds.
 * @param src    array of @p n dividends
 * @param value  the divisor, not 0
 * @param dst    array of @p n elements; may be the source
 * @param n      number of elements, 0 or more
 */
NOX_API(void) ModC_8u_SFS(const Nox8u src[], Nox8u value, Nox8u dst[], Nox32u n);
/** @copydoc ModC_8u_SFS */
NOX_API(void) ModC_16s_SFS(const Nox16s src[], Nox16s value, Nox16s dst[], Nox32u n);
/** @copydoc ModC_8u_SFS */
NOX_API(void) ModC_32s_SFS(const Nox32s src[], Nox32s value, Nox32s dst[], Nox32u n);

/**
 * @brief Remainders by a constant, in place. Equal in all builds.
 * @param srcDst  array of @p n dividends, overwritten
 * @param value   the divisor, not 0
 * @param n       number of elements, 0 or more
 */
NOX_API(void) ModC_8u_ISFS(Nox8u srcDst[], Nox8u value, Nox32u n);
/** @copydoc ModC_8u_ISFS */
NOX_API(void) ModC_16s_ISFS(Nox16s srcDst[], Nox16s value, Nox32u n);
/** @copydoc ModC_8u_ISFS */
NOX_API(void) ModC_32s_ISFS(Nox32s srcDst[], Nox32s value, Nox32u n);

/**
 * @brief Quotients of a constant: `dst[i] = value / src[i]`. Equal in all builds.
 * @param src    array of @p n divisors, none 0
 * @param value  the dividend
 * @param dst    array of @p n elements; may be the source
 * @param n      number of elements, 0 or more
 */
NOX_API(void) DivCREV_8u_SFS(const Nox8u src[], Nox8u value, Nox8u dst[], Nox32u n);
/** @copydoc DivCREV_8u_SFS */
NOX_API(void) DivCREV_16s_SFS(const Nox16s src[], Nox16s value, Nox16s dst[], Nox32u n);
/** @copydoc DivCREV_8u_SFS */
NOX_API(void) DivCREV_32s_SFS(const Nox32s src[], Nox32s value, Nox32s dst[], Nox32u n);

/**
 * @brief Quotients of a constant, in place. Equal in all builds.
 * @param srcDst  array of @p n divisors, none 0, overwritten
 * @param value   the dividend
 * @param n       number of elements, 0 or more
 */
NOX_API(void) DivCREV_8u_ISFS(Nox8u srcDst[], Nox8u value, Nox32u n);
/** @copydoc DivCREV_8u_ISFS */
NOX_API(void) DivCREV_16s_ISFS(Nox16s srcDst[], Nox16s value, Nox32u n);
/** @copydoc DivCREV_8u_ISFS */
NOX_API(void) DivCREV_32s_ISFS(Nox32s srcDst[], Nox32s value, Nox32u n);

/**
 * @brief Quotients and remainders of two arrays, given as bases and element indexes; the divisor's index isn't applied.
 * Equal in all builds.
 * @param src      base of the dividends
 * @param srcIdx   their index
 * @param quot     base of the quotients; may be the dividends
 * @param quotIdx  their index
 * @param rem      base of the remainders; may be the dividends
 * @param remIdx   their index
 * @param div      the divisors, none 0, read from their base on
 * @param divIdx   accepted and not applied
 * @param n        number of elements, 0 or more
 */
NOX_API(void)
RemDiv_8u_SFS_Idx(const Nox8u src[], int srcIdx, Nox8u quot[], int quotIdx, Nox8u rem[], int remIdx, const Nox8u div[],
                  int divIdx, Nox32u n);
/** @copydoc RemDiv_8u_SFS_Idx */
NOX_API(void)
RemDiv_16s_SFS_Idx(const Nox16s src[], int srcIdx, Nox16s quot[], int quotIdx, Nox16s rem[], int remIdx,
                   const Nox16s div[], int divIdx, Nox32u n);
/** @copydoc RemDiv_8u_SFS_Idx */
NOX_API(void)
RemDiv_32s_SFS_Idx(const Nox32s src[], int srcIdx, Nox32s quot[], int quotIdx, Nox32s rem[], int remIdx,
                   const Nox32s div[], int divIdx, Nox32u n);

/**
 * @brief Quotients and remainders by a constant. Equal in all builds.
 * @param src      base of the dividends
 * @param srcIdx   their index
 * @param quot     base of the quotients; may be the dividends
 * @param quotIdx  their index
 * @param rem      base of the remainders; may be the dividends
 * @param remIdx   their index
 * @param value    the divisor, not 0
 * @param n        number of elements, 0 or more
 */
NOX_API(void)
RemDivC_8u_SFS_Idx(const Nox8u src[], int srcIdx, Nox8u quot[], int quotIdx, Nox8u rem[], int remIdx, Nox8u value,
                   Nox32u n);
/** @copydoc RemDivC_8u_SFS_Idx */
NOX_API(void)
RemDivC_16s_SFS_Idx(const Nox16s src[], int srcIdx, Nox16s quot[], int quotIdx, Nox16s rem[], int remIdx, Nox16s value,
                    Nox32u n);
/** @copydoc RemDivC_8u_SFS_Idx */
NOX_API(void)
RemDivC_32s_SFS_Idx(const Nox32s src[], int srcIdx, Nox32s quot[], int quotIdx, Nox32s rem[], int remIdx, Nox32s value,
                    Nox32u n);

/**
 * @brief Quotients and remainders of a constant by an array. Equal in all builds.
 * @param src      base of the divisors, none 0
 * @param srcIdx   their index
 * @param quot     base of the quotients; may be the divisors
 * @param quotIdx  their index
 * @param rem      base of the remainders; may be the divisors
 * @param remIdx   their index
 * @param value    the dividend
 * @param n        number of elements, 0 or more
 */
NOX_API(void)
RemDivCREV_8u_SFS_Idx(const Nox8u src[], int srcIdx, Nox8u quot[], int quotIdx, Nox8u rem[], int remIdx, Nox8u value,
                      Nox32u n);
/** @copydoc RemDivCREV_8u_SFS_Idx */
NOX_API(void)
RemDivCREV_16s_SFS_Idx(const Nox16s src[], int srcIdx, Nox16s quot[], int quotIdx, Nox16s rem[], int remIdx,
                       Nox16s value, Nox32u n);
/** @copydoc RemDivCREV_8u_SFS_Idx */
NOX_API(void)
RemDivCREV_32s_SFS_Idx(const Nox32s src[], int srcIdx, Nox32s quot[], int quotIdx, Nox32s rem[], int remIdx,
                       Nox32s value, Nox32u n);

/**
 * @brief Real remainders: `x - y*q`, q the quotient x/y cut to a signed 32-bit integer. Equal in all builds.
 *
 * A quotient that fits no such integer, and a NaN, count as -2147483648; so the remainder is exact for quotients within
 * 32 bits only, and a divisor of 0 gives x.
 *
 * @param x    array of @p n dividends
 * @param y    array of @p n divisors
 * @param dst  array of @p n elements; may be a source
 * @param n    number of elements, 0 or more
 */
NOX_API(void) Rem(const Nox64f x[], const Nox64f y[], Nox64f dst[], Nox32u n);

/**
 * @brief Real remainders by a value: `src - value*q`, q the product of src and 1.0/value cut to a signed 32-bit
 * integer. Equal in all builds.
 *
 * May differ from Rem() where the quotient lies next to an integer.
 *
 * @param src    array of @p n dividends
 * @param value  the divisor
 * @param dst    array of @p n elements; may be the source
 * @param n      number of elements, 0 or more
 */
NOX_API(void) RemVal(const Nox64f src[], Nox64f value, Nox64f dst[], Nox32u n);

NOX_END_DECLS

#endif
