/* Status codes: the value that every primitive returns, and what it means.
 *
 * 0 is success, a negative value an error (the operation was refused and nothing was written), a positive value a
 * warning (the operation was carried out, with the reservation that the code states). The comment behind each code
 * is its text: noxGetStatusString() gives the name, a colon and this text. The list is a vocabulary shared by a
 * family of libraries, so it holds codes that no function of this one returns. */
#ifndef NOX_STATUS_H
#define NOX_STATUS_H

#include <stdint.h>

/** Status of a call: one of the values of ::NoxStatusCode, as a signed 32-bit number. */
typedef int32_t NoxStatus;

/* clang-format off */
/** The named status codes, in ascending order. */
enum NoxStatusCode {
  noxStsCpuNotSupportedErr = -9999, /**< The target CPU is not supported */
  noxStsInplaceModeNotSupportedErr = -9998, /**< The inplace operation is currently not supported */
  noxStsIIRIIRLengthErr = -234, /**< Vector length for IIRIIR function is less than 3*(IIR order) */
  noxStsWarpTransformTypeErr = -233, /**< The warp transform type is illegal */
  noxStsExceededSizeErr = -232, /**< Requested size exceeded the maximum supported ROI size */
  noxStsWarpDirectionErr = -231, /**< The warp transform direction is illegal */
  noxStsFilterTypeErr = -230, /**< The filter type is incorrect or not supported */
  noxStsNormErr = -229, /**< The norm is incorrect or not supported */
  noxStsAlgTypeErr = -228, /**< Algorithm type is not supported */
  noxStsMisalignedOffsetErr = -227, /**< The offset is not aligned with an element */
  noxStsBorderErr = -225, /**< Illegal value for border type */
  noxStsDitherTypeErr = -224, /**< Dithering type is not supported */
  noxStsLoadDynErr = -221, /**< Error when loading the dynamic library */
  noxStsUnknownStatusCodeErr = -216, /**< Unknown status code */
  noxStsLzoBrokenStreamErr = -214, /**< LZO safe decompression function cannot decode LZO stream */
  noxStsRoundModeNotSupportedErr = -213, /**< Rounding mode is not supported */
  noxStsDecimateFractionErr = -212, /**< Fraction in Decimate is not supported */
  noxStsWeightErr = -211, /**< Incorrect value for weight */
  noxStsQualityIndexErr = -210, /**< Cannot calculate the quality index for an image filled with a constant */
  noxStsIIRPassbandRippleErr = -209, /**< Ripple in passband for Chebyshev1 design is less than zero, equal to zero, or greater than 29 */
  noxStsFilterFrequencyErr = -208, /**< Cutoff frequency of filter is less than zero, equal to zero, or greater than 0.5 */
  noxStsIIRGenOrderErr = -206, /**< Order of the IIR filter for design is less than 1, or greater than 12 */
  noxStsConvergeErr = -205, /**< The algorithm does not converge */
  noxStsSizeMatchMatrixErr = -204, /**< The sizes of the source matrices are unsuitable */
  noxStsCountMatrixErr = -203, /**< Count value is less than, or equal to zero */
  noxStsRoiShiftMatrixErr = -202, /**< RoiShift value is negative or not divisible by the size of the data type */
  noxStsSrcDataErr = -200, /**< The source buffer contains unsupported data */
  noxStsSingularErr = -195, /**< Matrix is singular */
  noxStsSparseErr = -194, /**< Positions of taps are not in ascending order, or are negative, or repetitive */
  noxStsRegExpOptionsErr = -190, /**< RegExp: Options for the pattern are incorrect */
  noxStsRegExpErr = -189, /**< RegExp: The structure pRegExpState contains incorrect data */
  noxStsRegExpMatchLimitErr = -188, /**< RegExp: The match limit is exhausted */
  noxStsRegExpQuantifierErr = -187, /**< RegExp: Incorrect quantifier */
  noxStsRegExpGroupingErr = -186, /**< RegExp: Incorrect grouping */
  noxStsRegExpBackRefErr = -185, /**< RegExp: Incorrect back reference */
  noxStsRegExpChClassErr = -184, /**< RegExp: Incorrect character class */
  noxStsRegExpMetaChErr = -183, /**< RegExp: Incorrect metacharacter */
  noxStsStrideMatrixErr = -182, /**< Stride value is not positive or not divisible by the size of the data type */
  noxStsNoiseRangeErr = -125, /**< Noise value for Wiener Filter is out of range */
  noxStsNotEvenStepErr = -108, /**< Step value is not pixel multiple */
  noxStsHistoNofLevelsErr = -107, /**< Number of levels for histogram is less than 2 */
  noxStsLUTNofLevelsErr = -106, /**< Number of levels for LUT is less than 2 */
  noxStsChannelOrderErr = -60, /**< Incorrect order of the destination channels */
  noxStsDataTypeErr = -59, /**< Data type is incorrect or not supported */
  noxStsQuadErr = -58, /**< The quadrangle is nonconvex or degenerates into triangle, line, or point */
  noxStsRectErr = -57, /**< Size of the rectangle region is less than, or equal to 1 */
  noxStsCoeffErr = -56, /**< Incorrect values for transformation coefficients */
  noxStsNoiseValErr = -55, /**< Incorrect value for noise amplitude for dithering */
  noxStsDitherLevelsErr = -54, /**< Number of dithering levels is out of range */
  noxStsNumChannelsErr = -53, /**< Number of channels is incorrect, or not supported */
  noxStsCOIErr = -52, /**< COI is out of range */
  noxStsDivisorErr = -51, /**< Divisor is equal to zero, function is aborted */
  noxStsAlphaTypeErr = -50, /**< Illegal type of image compositing operation */
  noxStsGammaRangeErr = -49, /**< Gamma range bounds is less than, or equal to zero */
  noxStsChannelErr = -47, /**< Illegal channel number */
  noxStsToneMagnErr = -46, /**< Tone magnitude is less than, or equal to zero */
  noxStsToneFreqErr = -45, /**< Tone frequency is negative, or greater than, or equal to 0.5 */
  noxStsTonePhaseErr = -44, /**< Tone phase is negative, or greater than, or equal to 2*PI */
  noxStsTrnglMagnErr = -43, /**< Triangle magnitude is less than, or equal to zero */
  noxStsTrnglFreqErr = -42, /**< Triangle frequency is negative, or greater than, or equal to 0.5 */
  noxStsTrnglPhaseErr = -41, /**< Triangle phase is negative, or greater than, or equal to 2*PI */
  noxStsTrnglAsymErr = -40, /**< Triangle asymmetry is less than -PI, or greater than, or equal to PI */
  noxStsHugeWinErr = -39, /**< Kaiser window is too big */
  noxStsJaehneErr = -38, /**< Magnitude value is negative */
  noxStsStrideErr = -37, /**< Stride value is less than the length of the row */
  noxStsEpsValErr = -36, /**< Negative epsilon value */
  noxStsWtOffsetErr = -35, /**< Invalid offset value for wavelet filter */
  noxStsAnchorErr = -34, /**< Anchor point is outside the mask */
  noxStsMaskSizeErr = -33, /**< Invalid mask size */
  noxStsShiftErr = -32, /**< Shift value is less than zero */
  noxStsSampleFactorErr = -31, /**< Sampling factor is less than, or equal to zero */
  noxStsSamplePhaseErr = -30, /**< Phase value is out of range: 0 <= phase < factor */
  noxStsFIRMRFactorErr = -29, /**< MR FIR sampling factor is less than, or equal to zero */
  noxStsFIRMRPhaseErr = -28, /**< MR FIR sampling phase is negative, or greater than, or equal to the sampling factor */
  noxStsRelFreqErr = -27, /**< Relative frequency value is out of range */
  noxStsFIRLenErr = -26, /**< Length of a FIR filter is less than, or equal to zero */
  noxStsIIROrderErr = -25, /**< Order of an IIR filter is not valid */
  noxStsResizeFactorErr = -24, /**< Resize factor(s) is less than, or equal to zero */
  noxStsInterpolationErr = -23, /**< Invalid interpolation mode */
  noxStsMirrorFlipErr = -22, /**< Invalid flip mode */
  noxStsMoment00ZeroErr = -21, /**< Moment value M(0,0) is too small to continue calculations */
  noxStsThreshNegLevelErr = -20, /**< Negative value of the level in the threshold operation */
  noxStsThresholdErr = -19, /**< Invalid threshold bounds */
  noxStsFftFlagErr = -18, /**< Invalid value for the FFT flag parameter */
  noxStsFftOrderErr = -17, /**< Invalid value for the FFT order parameter */
  noxStsStepErr = -16, /**< Step value is not valid */
  noxStsLengthErr = -15, /**< Incorrect value for string length */
  noxStsNotSupportedModeErr = -14, /**< The requested mode is currently not supported */
  noxStsContextMatchErr = -13, /**< Context parameter does not match the operation */
  noxStsScaleRangeErr = -12, /**< Scale bounds are out of range */
  noxStsOutOfRangeErr = -11, /**< Argument is out of range, or point is outside the image */
  noxStsDivByZeroErr = -10, /**< An attempt to divide by zero */
  noxStsMemAllocErr = -9, /**< Memory allocated for the operation is not enough */
  noxStsNullPtrErr = -8, /**< Null pointer error */
  noxStsRangeErr = -7, /**< Incorrect values for bounds: the lower bound is greater than the upper bound */
  noxStsSizeErr = -6, /**< Incorrect value for data size */
  noxStsBadArgErr = -5, /**< Incorrect arg/param of the function */
  noxStsNoMemErr = -4, /**< Not enough memory for the operation */
  noxStsErr = -2, /**< Unknown/unspecified error, -2 */
  noxStsNoErr = 0, /**< No errors */
  noxStsNoOperation = 1, /**< No operation has been executed */
  noxStsDivByZero = 2, /**< Zero value(s) for the divisor in the Div function */
  noxStsSqrtNegArg = 3, /**< Negative value(s) for the argument in the Sqrt function */
  noxStsInvZero = 4, /**< INF result. Zero value was met by InvThresh with zero level */
  noxStsEvenMedianMaskSize = 5, /**< Even size of the Median Filter mask was replaced with the odd one */
  noxStsLnZeroArg = 7, /**< Zero value(s) for the argument in the Ln function */
  noxStsLnNegArg = 8, /**< Negative value(s) for the argument in the Ln function */
  noxStsNanArg = 9, /**< Argument value is not a number */
  noxStsOverflow = 12, /**< Overflow in the operation */
  noxStsUnderflow = 17, /**< Underflow in the operation */
  noxStsSingularity = 18, /**< Singularity in the operation */
  noxStsDomain = 19, /**< Argument is out of the function domain */
  noxStsNonIntelCpu = 20, /**< The target CPU is not Genuine Intel */
  noxStsCpuMismatch = 21, /**< Cannot set the library for the given CPU */
  noxStsOvermuchStrings = 26, /**< Number of destination strings is more than expected */
  noxStsOverlongString = 27, /**< Length of one of the destination strings is more than expected */
  noxStsAffineQuadChanged = 28, /**< 4th vertex of destination quad is not equal to customer's one */
  noxStsWrongIntersectROI = 29, /**< ROI has no intersection with the source or destination ROI. No operation */
  noxStsWrongIntersectQuad = 30, /**< Quadrangle has no intersection with the source or destination ROI. No operation */
  noxStsSrcSizeLessExpected = 32, /**< DC: Size of the source buffer is less than the expected one */
  noxStsDstSizeLessExpected = 33, /**< DC: Size of the destination buffer is less than the expected one */
  noxStsDoubleSize = 35, /**< Width or height of image is odd */
  noxStsNotSupportedCpu = 36, /**< The CPU is not supported */
  noxStsUnknownCacheSize = 37, /**< The CPU is supported, but the size of the cache is unknown */
  noxStsSymKernelExpected = 38, /**< The Kernel is not symmetric */
  noxStsEvenMedianWeight = 39, /**< Even weight of the Weighted Median Filter is replaced with the odd one */
  noxStsWrongIntersectVOI = 40, /**< VOI has no intersection with the source or destination volume. No operation */
  noxStsWaterfall = 43, /**< Cannot load required library, waterfall is used */
  noxStsNoAntialiasing = 46, /**< The mode does not support antialiasing */
  noxStsRepetitiveSrcData = 47, /**< DC: The source data is too repetitive */
  noxStsSizeWrn = 48, /**< The size does not allow to perform full operation */
  noxStsFeatureNotSupported = 49, /**< Current CPU doesn't support at least 1 of the desired features */
  noxStsUnknownFeature = 50, /**< At least one of the desired features is unknown */
  noxStsFeaturesCombination = 51, /**< Wrong combination of features */
  noxStsAccurateModeNotSupported = 52, /**< Accurate mode is not supported */
};
/* clang-format on */

#endif
