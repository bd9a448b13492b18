/* The discrete cosine transform of any length.
 *
 * Forward is the orthonormal transform of type II: with s = sqrt(2/N), y[0] = sum of x[n] / sqrt(N) and
 * y[k] = s * sum over n of x[n] * cos(pi*k*(2n+1) / (2N)); inverse is its transpose, of type III, which undoes it. A
 * caller asks for the sizes of three pieces of memory, lets Init make a spec in the first, and runs any number of
 * transforms on it. The one-call forms in nox/adapters.h keep all of it behind a handle. */
#ifndef NOX_TRANSFORM_DCT_H
#define NOX_TRANSFORM_DCT_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Sizes of the memory a cosine transform needs, for the build in force.
 *
 * All sizes include the slack for any base address, so memory from any allocator will do.
 *
 * @param len        number of elements, at least 1; a power of two up to 2^26, or up to 16777215
 * @param hint       without effect
 * @param pSpecSize  takes the bytes of the spec
 * @param pInitSize  takes the bytes of the memory that Init alone uses; may be 0
 * @param pWorkSize  takes the bytes of the work buffer of one call; may be 0
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for a
 *         @p len above the limit; ::noxStsFftOrderErr with all sizes 0 where they would pass 31 bits; otherwise
 *         ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDCTFwdGetSize_64f(int len, int hint, int* pSpecSize, int* pInitSize, int* pWorkSize);
/** @copydoc noxsDCTFwdGetSize_64f */
NOX_API(NoxStatus) noxsDCTInvGetSize_64f(int len, int hint, int* pSpecSize, int* pInitSize, int* pWorkSize);

/**
 * @brief Builds the spec of a cosine transform in the caller's memory.
 *
 * Sines and cosines of the tables are rounded from more than double precision.
 *
 * @param ppSpec    takes the spec's address inside @p pSpecMem; left alone on an error
 * @param len       number of elements, at least 1; a power of two up to 2^26, or up to 33554431
 * @param hint      stored, without effect
 * @param pSpecMem  memory of the size the query told, at any address; the spec lives there and may not be moved
 * @param pInitMem  memory of the size the query told, needed during this call; may be null if the size is 0
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null ppSpec or pSpecMem, then
 *         ::noxStsSizeErr for a @p len above the limit, then ::noxStsNullPtrErr for a null pInitMem that is needed;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsDCTFwdInit_64f(NoxDctSpec** ppSpec, int len, int hint, Nox8u* pSpecMem, Nox8u* pInitMem);
/** @copydoc noxsDCTFwdInit_64f */
NOX_API(NoxStatus)
noxsDCTInvInit_64f(NoxDctSpec** ppSpec, int len, int hint, Nox8u* pSpecMem, Nox8u* pInitMem);

/**
 * @brief Transforms an array, forward or inverse by the function's name. Builds differ by rounding.
 *
 * Lengths 1, 2, 4 and 8 run in straight lines, longer powers of two by a real Fourier transform, other lengths below
 * 46 by the direct sum and those above by a chirp transform. A NaN or infinity may spread over all results. Any
 * number of threads may share a spec, each with its own work buffer.
 *
 * @param pSrc   array of the spec's length
 * @param pDst   array of the spec's length; may be the source, no other overlap
 * @param pSpec  spec of the Init of the same direction, made under the build in force
 * @param pWork  work memory of the size the query told, at any address; may be null if the size is 0
 * @return ::noxStsNullPtrErr for a null pSpec, pSrc or pDst, then ::noxStsContextMatchErr for a record that is no spec
 *         of this direction, then ::noxStsNullPtrErr for a null pWork that is needed; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsDCTFwd_64f(const Nox64f pSrc[], Nox64f pDst[], const NoxDctSpec* pSpec, Nox8u* pWork);
/** @copydoc noxsDCTFwd_64f */
NOX_API(NoxStatus) noxsDCTInv_64f(const Nox64f pSrc[], Nox64f pDst[], const NoxDctSpec* pSpec, Nox8u* pWork);

/**
 * @brief Transforms in place, like noxsDCTFwd_64f() and noxsDCTInv_64f().
 * @param pSrcDst  array of the spec's length
 * @param pSpec    spec of the Init of the same direction, made under the build in force
 * @param pWork    work memory of the size the query told, at any address; may be null if the size is 0
 * @return as noxsDCTFwd_64f()
 */
NOX_API(NoxStatus) noxsDCTFwd_64f_I(Nox64f pSrcDst[], const NoxDctSpec* pSpec, Nox8u* pWork);
/** @copydoc noxsDCTFwd_64f_I */
NOX_API(NoxStatus) noxsDCTInv_64f_I(Nox64f pSrcDst[], const NoxDctSpec* pSpec, Nox8u* pWork);

NOX_END_DECLS

#endif
