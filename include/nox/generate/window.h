/* Windows: an array times the weights of a classical window function. For the bare window, pass an array of ones.
 *
 * Weights are symmetric, w[n - 1 - k] = w[k], and made from both ends toward the middle; the middle element of an odd
 * length is copied bit for bit. Complex elements have both parts multiplied by the same weight. Elements that are NaN
 * stay NaN where a weight multiplies them. The destination may be the source; otherwise the arrays must not overlap. */
#ifndef NOX_GENERATE_WINDOW_H
#define NOX_GENERATE_WINDOW_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Bartlett window: weights `2k / (n - 1)` on the first half.
 *
 * The weights are formed by repeated addition, for even and odd positions apart, so that rounding adds up along the
 * half: by at most len units in the last place of 1. Of three elements the outer ones become 0.0, whatever they are.
 * Equal in all builds.
 *
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 3; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinBartlett_64f(const Nox64f pSrc[], Nox64f pDst[], int len);
/** @copydoc noxsWinBartlett_64f */
NOX_API(NoxStatus) noxsWinBartlett_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);
/**
 * @brief noxsWinBartlett_64f() in place.
 * @param pSrcDst  array of @p len elements
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 3; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinBartlett_64f_I(Nox64f pSrcDst[], int len);
/** @copydoc noxsWinBartlett_64f_I */
NOX_API(NoxStatus) noxsWinBartlett_64fc_I(Nox64fc pSrcDst[], int len);

/**
 * @brief Hann window: weights `0.5 - 0.5 cos(2 pi k / (n - 1))`.
 *
 * The cosines follow from two of them by recurrence, whose errors grow with the square of the length: weights are off
 * by at most 1e-12 for 1025 elements, 1e-9 for 16384 and 1e-5 for a million. Builds may differ by as much.
 *
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 3; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinHann_64f(const Nox64f pSrc[], Nox64f pDst[], int len);
/** @copydoc noxsWinHann_64f */
NOX_API(NoxStatus) noxsWinHann_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);
/**
 * @brief noxsWinHann_64f() in place.
 * @param pSrcDst  array of @p len elements
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 3; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinHann_64f_I(Nox64f pSrcDst[], int len);
/** @copydoc noxsWinHann_64f_I */
NOX_API(NoxStatus) noxsWinHann_64fc_I(Nox64fc pSrcDst[], int len);

/**
 * @brief Hamming window: weights `0.54 - 0.46 cos(2 pi k / (n - 1))`.
 *
 * The cosines follow from two of them by recurrence, whose errors grow with the square of the length: weights are off
 * by at most 1e-12 for 1025 elements, 1e-9 for 16384 and 1e-5 for a million. Builds may differ by as much.
 *
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 3; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinHamming_64f(const Nox64f pSrc[], Nox64f pDst[], int len);
/** @copydoc noxsWinHamming_64f */
NOX_API(NoxStatus) noxsWinHamming_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);
/**
 * @brief noxsWinHamming_64f() in place.
 * @param pSrcDst  array of @p len elements
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 3; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinHamming_64f_I(Nox64f pSrcDst[], int len);
/** @copydoc noxsWinHamming_64f_I */
NOX_API(NoxStatus) noxsWinHamming_64fc_I(Nox64fc pSrcDst[], int len);

/**
 * @brief Blackman window: weights `alpha + 0.5 - c - 4 alpha c^2`, where `c = 0.5 cos(2 pi k / (n - 1))`.
 *
 * The cosines follow from two of them by recurrence, whose errors grow with the square of the length: weights are off
 * by at most 1e-12 for 1025 elements, 1e-9 for 16384 and 1e-5 for a million. Above 1025 elements the recurrence goes by
 * single positions. Builds may differ by as much, since h9 fuses products and sums. Of three elements the outer ones
 * become 0.0, whatever they are.
 *
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param alpha  any value; -0.16 is usual
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 3; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinBlackman_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f alpha);
/** @copydoc noxsWinBlackman_64f */
NOX_API(NoxStatus) noxsWinBlackman_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len, Nox64f alpha);
/**
 * @brief noxsWinBlackman_64f() in place.
 * @param pSrcDst  array of @p len elements
 * @param len      number of elements
 * @param alpha    any value; -0.16 is usual
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 3; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinBlackman_64f_I(Nox64f pSrcDst[], int len, Nox64f alpha);
/** @copydoc noxsWinBlackman_64f_I */
NOX_API(NoxStatus) noxsWinBlackman_64fc_I(Nox64fc pSrcDst[], int len, Nox64f alpha);

/**
 * @brief Blackman window with alpha = -0.16, see noxsWinBlackman_64f().
 *
 * As accurate as that.
 *
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 3; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinBlackmanStd_64f(const Nox64f pSrc[], Nox64f pDst[], int len);
/** @copydoc noxsWinBlackmanStd_64f */
NOX_API(NoxStatus) noxsWinBlackmanStd_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);
/**
 * @brief noxsWinBlackmanStd_64f() in place.
 * @param pSrcDst  array of @p len elements
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 3; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinBlackmanStd_64f_I(Nox64f pSrcDst[], int len);
/** @copydoc noxsWinBlackmanStd_64f_I */
NOX_API(NoxStatus) noxsWinBlackmanStd_64fc_I(Nox64fc pSrcDst[], int len);

/**
 * @brief Blackman window with alpha = `-(0.5 / cos(pi / (n - 1)))^2`, see noxsWinBlackman_64f().
 *
 * As accurate as that.
 *
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @return ::noxStsSizeErr for @p len below 4, then ::noxStsNullPtrErr for a null pointer; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinBlackmanOpt_64f(const Nox64f pSrc[], Nox64f pDst[], int len);
/** @copydoc noxsWinBlackmanOpt_64f */
NOX_API(NoxStatus) noxsWinBlackmanOpt_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);
/**
 * @brief noxsWinBlackmanOpt_64f() in place.
 * @param pSrcDst  array of @p len elements
 * @param len      number of elements
 * @return ::noxStsSizeErr for @p len below 4, then ::noxStsNullPtrErr for a null pointer; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinBlackmanOpt_64f_I(Nox64f pSrcDst[], int len);
/** @copydoc noxsWinBlackmanOpt_64f_I */
NOX_API(NoxStatus) noxsWinBlackmanOpt_64fc_I(Nox64fc pSrcDst[], int len);

/**
 * @brief Kaiser window: weights `I0(|alpha| sqrt(k (n - 1 - k))) / I0(|alpha| (n - 1) / 2)`.
 *
 * I0 is the modified Bessel function of order zero by two polynomials with coefficients of ten digits, below an
 * argument of 4 (within 2e-9 of it) and from there on (within 6e-6 at 4, 2e-7 from 12 on); their value at 0 is
 * 0.9999999985. Builds differ by a few units in the last place. A single element is copied; a NaN for alpha makes all
 * weights NaN.
 *
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param alpha  either sign gives the same weights
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsHugeWinErr for
 *   `|alpha| (len - 1) / 2` above 308; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinKaiser_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f alpha);
/** @copydoc noxsWinKaiser_64f */
NOX_API(NoxStatus) noxsWinKaiser_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len, Nox64f alpha);
/**
 * @brief noxsWinKaiser_64f() in place.
 * @param pSrcDst  array of @p len elements
 * @param len      number of elements
 * @param alpha    either sign gives the same weights
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsHugeWinErr for
 *   `|alpha| (len - 1) / 2` above 308; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsWinKaiser_64f_I(Nox64f pSrcDst[], int len, Nox64f alpha);
/** @copydoc noxsWinKaiser_64f_I */
NOX_API(NoxStatus) noxsWinKaiser_64fc_I(Nox64fc pSrcDst[], int len, Nox64f alpha);

NOX_END_DECLS

#endif
