/* Seeded random numbers, uniform and normally distributed.
 *
 * A generator is a record that the caller owns: a size query, an Init with two parameters and a seed, and fills that
 * advance the record. Consecutive fills continue one stream, whatever the lengths they are cut into, and the seed
 * determines all of it. A record holds no pointers, may stand at any address, and belongs to one thread at a time.
 *
 * The source adds, with wrap-around, X = X a + c and t = B - C + D, where A (the newest), B and C are the last three
 * t; if t is negative, the borrow D becomes -1 and t is lessened by 18, else D becomes 0. It runs in 64 bits for
 * uniform Nox64f values, in 32 bits for all others, and takes one step a value. */
#ifndef NOX_GENERATE_RANDOM_H
#define NOX_GENERATE_RANDOM_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Tells the bytes of a record of uniform values: 56 for Nox8u and Nox16s, 80 for Nox64f.
 * @param pSize  takes the bytes
 * @return ::noxStsNullPtrErr for a null pointer; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsRandUniformGetSize_8u(int* pSize);
/** @copydoc noxsRandUniformGetSize_8u */
NOX_API(NoxStatus) noxsRandUniformGetSize_16s(int* pSize);
/** @copydoc noxsRandUniformGetSize_8u */
NOX_API(NoxStatus) noxsRandUniformGetSize_64f(int* pSize);

/**
 * @brief Starts a stream of uniform values in a record; any values are taken, also low above high.
 * @param pState  memory of the size noxsRandUniformGetSize_8u() and its kin tell, at any address
 * @param low     lower end of the values
 * @param high    upper end of the values
 * @param seed    determines the stream
 * @return ::noxStsNullPtrErr for a null pointer; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsRandUniformInit_8u(NoxRandUniformState_8u* pState, Nox8u low, Nox8u high, unsigned int seed);
/** @copydoc noxsRandUniformInit_8u */
NOX_API(NoxStatus) noxsRandUniformInit_16s(NoxRandUniformState_16s* pState, Nox16s low, Nox16s high, unsigned int seed);
/** @copydoc noxsRandUniformInit_8u */
NOX_API(NoxStatus) noxsRandUniformInit_64f(NoxRandUniformState_64f* pState, Nox64f low, Nox64f high, unsigned int seed);

/**
 * @brief Fills an array with the next uniform integers, `r * (high - low) / 2^32 + (low + high) / 2` for a step's r.
 *
 * Computed in double and rounded to nearest, ties to even, whatever rounding mode the thread is in. The h9 build fuses
 * product and sum, so that a value next to a tie can differ by 1 from the other builds; these are equal.
 *
 * @param pDst    array of @p len elements
 * @param len     number of elements
 * @param pState  record of the same type, which advances by @p len steps
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsContextMatchErr
 *   for a record of another kind; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsRandUniform_8u(Nox8u pDst[], int len, NoxRandUniformState_8u* pState);
/** @copydoc noxsRandUniform_8u */
NOX_API(NoxStatus) noxsRandUniform_16s(Nox16s pDst[], int len, NoxRandUniformState_16s* pState);

/**
 * @brief Fills an array with the next uniform doubles, `r * ((high - low) * k) + (low + high) / 2` for a step's r.
 *
 * k is 2^-64 + 2^-86, so that a value can lie outside [low, high] by that excess of a part in 2^23. Product and sum run
 * on the x87 unit at the precision it stands at, all bits of r taking part. Equal in all builds.
 *
 * @param pDst    array of @p len elements
 * @param len     number of elements
 * @param pState  record of noxsRandUniformInit_64f(), which advances by @p len steps
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsContextMatchErr
 *   for a record of another kind; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsRandUniform_64f(Nox64f pDst[], int len, NoxRandUniformState_64f* pState);

/**
 * @brief Tells the bytes of a record of normally distributed values: 64 for Nox8u and Nox16s, 72 for Nox32f.
 * @param pSize  takes the bytes
 * @return ::noxStsNullPtrErr for a null pointer; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsRandGaussGetSize_8u(int* pSize);
/** @copydoc noxsRandGaussGetSize_8u */
NOX_API(NoxStatus) noxsRandGaussGetSize_16s(int* pSize);
/** @copydoc noxsRandGaussGetSize_8u */
NOX_API(NoxStatus) noxsRandGaussGetSize_32f(int* pSize);

/**
 * @brief Starts a stream of normally distributed values; any parameters are taken, also a negative deviation.
 *
 * No fill takes a record of Nox32f.
 *
 * @param pState  memory of the size noxsRandGaussGetSize_8u() and its kin tell, at any address
 * @param mean    mean of the values
 * @param stdDev  their standard deviation
 * @param seed    determines the stream
 * @return ::noxStsNullPtrErr for a null pointer; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsRandGaussInit_8u(NoxRandGaussState_8u* pState, Nox8u mean, Nox8u stdDev, unsigned int seed);
/** @copydoc noxsRandGaussInit_8u */
NOX_API(NoxStatus) noxsRandGaussInit_16s(NoxRandGaussState_16s* pState, Nox16s mean, Nox16s stdDev, unsigned int seed);
/** @copydoc noxsRandGaussInit_8u */
NOX_API(NoxStatus) noxsRandGaussInit_32f(NoxRandGaussState_32f* pState, Nox32f mean, Nox32f stdDev, unsigned int seed);

/**
 * @brief Fills an array with the next normally distributed values, by the polar method.
 *
 * Two steps give u and v in [-1, 1); with s = u u + v v, a pair with s = 0 or s >= 1 is dropped; the others give
 * `v * stdDev * f + mean` and then `u * stdDev * f + mean`, f = sqrt(-2 ln(s) / s). An odd length leaves the second
 * value to the next fill. Integers are rounded to nearest, ties to even, whatever rounding mode the thread is in, and
 * saturate. The logarithm's last bit may differ between builds, and h9 fuses a product and the sum in s and in the
 * values, so that these differ by a few units in the last place; once in a very long stream a pair with s next to 1
 * is taken by one build and dropped by another.
 *
 * @param pDst    array of @p len elements
 * @param len     number of elements
 * @param pState  record of the same type, which advances by the steps taken
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsContextMatchErr
 *   for a record of another kind; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsRandGauss_8u(Nox8u pDst[], int len, NoxRandGaussState_8u* pState);
/** @copydoc noxsRandGauss_8u */
NOX_API(NoxStatus) noxsRandGauss_16s(Nox16s pDst[], int len, NoxRandGaussState_16s* pState);
/** @copydoc noxsRandGauss_8u */
NOX_API(NoxStatus) noxsRandGauss_64f(Nox64f pDst[], int len, NoxRandGaussState_64f* pState);

NOX_END_DECLS

#endif
