/* Correlations of arrays with themselves and with each other, by direct sums or by Fourier transforms.
 *
 * An algType holds the method, a value of ::NoxAlgType, in its low byte, and the normalisation, a value of
 * ::NoxNormType, in the byte above; higher bits aren't looked at. By direct sums, a sum of S products is off by at most
 * S + 3 roundings of the sum of their magnitudes, and a value that is infinite or not a number reaches only the
 * outputs it has a part in. Through a transform it reaches all of the block, and errors are relative to the largest
 * outputs. Builds differ in the last bits. */
#ifndef NOX_FILTER_CORRELATION_H
#define NOX_FILTER_CORRELATION_H

#include "nox/filter/codes.h"

NOX_BEGIN_DECLS

/** Normalisations of a correlation, in the second byte of an algType. */
enum NoxNormType {
  NOX_NORM_NONE = 0,  /**< the sums as they are */
  NOX_NORM_A = 0x100, /**< divided by the length of the array, or of the shorter one */
  NOX_NORM_B = 0x200  /**< each divided by the number of its terms */
};

/**
 * @brief Size of the work buffer of noxsAutoCorrNorm_64f() or noxsAutoCorrNorm_64fc(), for the build in force.
 *
 * The size includes the slack for any base address. It is 64 where direct sums are taken.
 *
 * @param srcLen       elements of the source, at least 1
 * @param dstLen       number of lags, at least 1
 * @param dataType     a value of ::NoxTypeCode; the 32-bit types are sized although no correlation of them exists
 * @param algType      method and normalisation
 * @param pBufferSize  takes the bytes of the work buffer
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for a length below 1, then ::noxStsAlgTypeErr for
 *         another normalisation or method, then, with a size of 0, ::noxStsDataTypeErr for another type and
 *         ::noxStsFftOrderErr for lengths too large for a transform or for a 32-bit process; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsAutoCorrNormGetBufferSize(int srcLen, int dstLen, int dataType, int algType, int* pBufferSize);

/**
 * @brief Autocorrelation: `pDst[k]` is the sum over n of conj(pSrc[n]) * pSrc[n + k], normalised.
 *
 * Lags from @p srcLen on are 0. ::NOX_NORM_A multiplies by 1/@p srcLen, which for real data is a single-precision
 * reciprocal; ::NOX_NORM_B divides the value at k by @p srcLen - k. The method of ::NOX_ALG_AUTO goes by the smaller of
 * the lengths: real data are transformed from 856 on (h9: 1200), complex data from 368 on (h9: 128).
 * Builds differ by rounding.
 *
 * @param pSrc     array of @p srcLen elements
 * @param srcLen   its length
 * @param pDst     array of @p dstLen elements; must not overlap the source
 * @param dstLen   number of lags, from 0 on
 * @param algType  method and normalisation
 * @param pBuffer  work memory of the size noxsAutoCorrNormGetBufferSize() told, at any address; needed by every method
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for a length below 1, then ::noxStsAlgTypeErr for
 *         another method, then ::noxStsFftOrderErr for lengths too large; ::noxStsAlgTypeErr for another normalisation
 *         too, but with the correlation written, not normalised; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsAutoCorrNorm_64f(const Nox64f pSrc[], int srcLen, Nox64f pDst[], int dstLen, int algType,
                     NOX_NULLABLE Nox8u pBuffer[]);
/** @copydoc noxsAutoCorrNorm_64f */
NOX_API(NoxStatus)
noxsAutoCorrNorm_64fc(const Nox64fc pSrc[], int srcLen, Nox64fc pDst[], int dstLen, int algType,
                      NOX_NULLABLE Nox8u pBuffer[]);

/**
 * @brief Size of the work buffer of noxsCrossCorrNorm_64f() or noxsCrossCorrNorm_64fc(), for the build in force.
 *
 * The size includes the slack for any base address. It is 64 where direct sums are taken.
 *
 * @param src1Len      elements of the first array, at least 1
 * @param src2Len      elements of the second, at least 1
 * @param dstLen       number of lags, at least 1
 * @param lowLag       the first of them
 * @param dataType     a value of ::NoxTypeCode; the 32-bit types are sized although no correlation of them exists
 * @param algType      method and normalisation
 * @param pBufferSize  takes the bytes of the work buffer
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for a length below 1, then ::noxStsAlgTypeErr for
 *         another normalisation or method, then, with a size of 0, ::noxStsDataTypeErr for another type and
 *         ::noxStsFftOrderErr for lengths too large for a transform or for a 32-bit process; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsCrossCorrNormGetBufferSize(int src1Len, int src2Len, int dstLen, int lowLag, int dataType, int algType,
                               int* pBufferSize);

/**
 * @brief Cross correlation: `pDst[i]` is the sum over k of conj(pSrc1[k]) * pSrc2[k + lowLag + i], normalised.
 *
 * Lags without a term are 0. ::NOX_NORM_A multiplies by one over the shorter length; ::NOX_NORM_B divides each value by
 * the number of its terms. ::NOX_ALG_AUTO transforms where the number of lags that have terms, times the shorter length
 * by the longer one, reaches 512: block by block where one array is at least three times as long as the other.
 * Builds differ by rounding.
 *
 * @param pSrc1    array of @p src1Len elements
 * @param src1Len  its length
 * @param pSrc2    array of @p src2Len elements
 * @param src2Len  its length
 * @param pDst     array of @p dstLen elements; must not overlap the sources
 * @param dstLen   number of lags
 * @param lowLag   the first of them, of any value
 * @param algType  method and normalisation
 * @param pBuffer  work memory of the size noxsCrossCorrNormGetBufferSize() told, at any address; null will do where no
 *                 transform is taken
 * @return ::noxStsNullPtrErr for a null array, then ::noxStsSizeErr for a length below 1, then ::noxStsAlgTypeErr for
 *         another method, then ::noxStsFftOrderErr for lengths whose sum is too large, ::noxStsNullPtrErr for a null
 *         buffer that a transform needs, ::noxStsFftOrderErr for a transform too long; ::noxStsAlgTypeErr for another
 *         normalisation too, but with the correlation written, not normalised, and not where no lag has a term;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsCrossCorrNorm_64f(const Nox64f pSrc1[], int src1Len, const Nox64f pSrc2[], int src2Len, Nox64f pDst[], int dstLen,
                      int lowLag, int algType, NOX_NULLABLE Nox8u pBuffer[]);
/** @copydoc noxsCrossCorrNorm_64f */
NOX_API(NoxStatus)
noxsCrossCorrNorm_64fc(const Nox64fc pSrc1[], int src1Len, const Nox64fc pSrc2[], int src2Len, Nox64fc pDst[],
                       int dstLen, int lowLag, int algType, NOX_NULLABLE Nox8u pBuffer[]);

NOX_END_DECLS

#endif
