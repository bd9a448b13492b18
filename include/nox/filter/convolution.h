/* Linear convolution of two arrays, by direct sums or by Fourier transforms. */
#ifndef NOX_FILTER_CONVOLUTION_H
#define NOX_FILTER_CONVOLUTION_H

#include "nox/filter/codes.h"

NOX_BEGIN_DECLS

/**
 * @brief Size of the work buffer of noxsConvolve_64f(), for the build in force.
 *
 * The size includes the slack for any base address. It is 64 where the direct sum is taken.
 *
 * @param src1Len      elements of one array, at least 1
 * @param src2Len      elements of the other, at least 1
 * @param dataType     ::NOX_TYPE_64F, or ::NOX_TYPE_32F, which is sized although no convolution of it exists
 * @param algType      a value of ::NoxAlgType in the low byte; the others aren't looked at
 * @param pBufferSize  takes the bytes of the work buffer
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for a length below 1, then ::noxStsAlgTypeErr
 *         for another method, then, with a size of 0, ::noxStsDataTypeErr for another type and ::noxStsFftOrderErr for
 *         lengths too large for a transform or for a 32-bit process; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsConvolveGetBufferSize(int src1Len, int src2Len, int dataType, int algType, int* pBufferSize);

/**
 * @brief Linear convolution: `pDst[n]` is the sum over k of pSrc1[k] * pSrc2[n - k], for all n with a term.
 *
 * ::NOX_ALG_AUTO takes the direct sum where the result is shorter than 512 elements or one array shorter than 64, and
 * transforms otherwise: block by block where one array is at least three times as long as the other. Exchanging
 * arrays of different lengths changes nothing. A direct sum of S products is off by at most S + 1 roundings of the sum
 * of their magnitudes, and a value that is infinite or not a number reaches only the outputs it has a part in; through
 * a transform it reaches all of the block, and errors are relative to the largest outputs. Builds differ in the last
 * bits.
 *
 * @param pSrc1    array of @p src1Len elements
 * @param src1Len  its length
 * @param pSrc2    array of @p src2Len elements
 * @param src2Len  its length
 * @param pDst     array of @p src1Len + @p src2Len - 1 elements; must not overlap the sources
 * @param algType  a value of ::NoxAlgType in the low byte; the others aren't looked at
 * @param pBuffer  work memory of the size noxsConvolveGetBufferSize() told, at any address; needed by every method
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for a length below 1, then ::noxStsAlgTypeErr for
 *         another method, then ::noxStsFftOrderErr for lengths too large; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsConvolve_64f(const Nox64f pSrc1[], int src1Len, const Nox64f pSrc2[], int src2Len, Nox64f pDst[], int algType,
                 NOX_NULLABLE Nox8u pBuffer[]);

NOX_END_DECLS

#endif
