/* Complex values as records, as two arrays of parts and in polar form; absolute values.
 *
 * The _64f forms take separate arrays of parts, the _64fc forms records. Nothing is scaled on the way: a magnitude
 * whose parts pass 1.3e154 is infinity, and one whose squares vanish is 0. Nothing is written on an error but where
 * told. */
#ifndef NOX_VECTOR_COMPLEX_H
#define NOX_VECTOR_COMPLEX_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Magnitudes: `pDst[i] = sqrt(re^2 + im^2)`, each operation rounded. Equal in all builds.
 * @param pSrcRe  array of @p len real parts
 * @param pSrcIm  array of @p len imaginary parts
 * @param pDst    array of @p len elements; may be one of the sources
 * @param len     number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMagnitude_64f(const Nox64f pSrcRe[], const Nox64f pSrcIm[], Nox64f pDst[], int len);
/**
 * @brief Magnitudes of records: `pDst[i] = sqrt(re^2 + im^2)`, each operation rounded. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; must not overlap the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMagnitude_64fc(const Nox64fc pSrc[], Nox64f pDst[], int len);

/**
 * @brief Powers: `pDst[i] = re^2 + im^2`, each operation rounded. Equal in all builds.
 * @param pSrcRe  array of @p len real parts
 * @param pSrcIm  array of @p len imaginary parts
 * @param pDst    array of @p len elements; may be one of the sources
 * @param len     number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsPowerSpectr_64f(const Nox64f pSrcRe[], const Nox64f pSrcIm[], Nox64f pDst[], int len);
/**
 * @brief Powers of records: `pDst[i] = re^2 + im^2`, each operation rounded. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; must not overlap the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsPowerSpectr_64fc(const Nox64fc pSrc[], Nox64f pDst[], int len);

/**
 * @brief Angles from -pi to pi, as the arc tangent of two arguments: `pDst[i] = atan2(im, re)`.
 *
 * Signs of zeros count: (-1, +0) has the angle pi, (-1, -0) the angle -pi. At most 0.83 units in the last place off;
 * builds may differ by that.
 *
 * @param pSrcRe  array of @p len real parts
 * @param pSrcIm  array of @p len imaginary parts
 * @param pDst    array of @p len elements; may be one of the sources
 * @param len     number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsPhase_64f(const Nox64f pSrcRe[], const Nox64f pSrcIm[], Nox64f pDst[], int len);
/**
 * @brief Angles of records, like noxsPhase_64f().
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; must not overlap the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsPhase_64fc(const Nox64fc pSrc[], Nox64f pDst[], int len);

/**
 * @brief Polar form: first noxsMagnitude_64f(), then noxsPhase_64f() of the same arrays.
 *
 * Each makes its own checks and both run, so that with a null pDstPhase the magnitudes are written all the same. Builds
 * may differ in the angles' last place.
 *
 * @param pSrcRe     array of @p len real parts
 * @param pSrcIm     array of @p len imaginary parts
 * @param pDstMagn   array of @p len elements; must not overlap the sources
 * @param pDstPhase  array of @p len elements; may be one of the sources
 * @param len        number of elements
 * @return the status of the first call unless that is ::noxStsNoErr, otherwise that of the second: ::noxStsNullPtrErr
 *         for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsCartToPolar_64f(const Nox64f pSrcRe[], const Nox64f pSrcIm[], Nox64f pDstMagn[], Nox64f pDstPhase[], int len);
/**
 * @brief Polar form of records: first noxsMagnitude_64fc(), then noxsPhase_64fc(); like noxsCartToPolar_64f().
 * @param pSrc       array of @p len elements
 * @param pDstMagn   array of @p len elements; must not overlap the source
 * @param pDstPhase  array of @p len elements; must not overlap the source
 * @param len        number of elements
 * @return the status of the first call unless that is ::noxStsNoErr, otherwise that of the second: ::noxStsNullPtrErr
 *         for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsCartToPolar_64fc(const Nox64fc pSrc[], Nox64f pDstMagn[], Nox64f pDstPhase[], int len);

/**
 * @brief Parts from polar form: `pDstRe[i] = magn * cos(phase)`, `pDstIm[i] = magn * sin(phase)`.
 *
 * Sine and cosine are at most 0.83 units in the last place off at any angle; the products are rounded. Builds may
 * differ in the last places.
 *
 * @param pSrcMagn   array of @p len magnitudes, of either sign
 * @param pSrcPhase  array of @p len angles in radians
 * @param pDstRe     array of @p len elements; may be @p pSrcPhase, must not overlap @p pSrcMagn
 * @param pDstIm     array of @p len elements; likewise
 * @param len        number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsPolarToCart_64f(const Nox64f pSrcMagn[], const Nox64f pSrcPhase[], Nox64f pDstRe[], Nox64f pDstIm[], int len);
/**
 * @brief Records from polar form, with the values of noxsPolarToCart_64f(); otherwise like noxsPolarToCart_64f().
 * @param pSrcMagn   array of @p len magnitudes, of either sign
 * @param pSrcPhase  array of @p len angles in radians
 * @param pDst       array of @p len elements; must not overlap the sources
 * @param len        number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsPolarToCart_64fc(const Nox64f pSrcMagn[], const Nox64f pSrcPhase[], Nox64fc pDst[], int len);

/**
 * @brief Real parts of records: `pDstRe[i] = pSrc[i].re`. Equal in all builds.
 * @param pSrc    array of @p len elements
 * @param pDstRe  array of @p len elements; must not overlap the source
 * @param len     number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsReal_64fc(const Nox64fc pSrc[], Nox64f pDstRe[], int len);
/**
 * @brief Imaginary parts of records: `pDstIm[i] = pSrc[i].im`. Equal in all builds.
 * @param pSrc    array of @p len elements
 * @param pDstIm  array of @p len elements; must not overlap the source
 * @param len     number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsImag_64fc(const Nox64fc pSrc[], Nox64f pDstIm[], int len);
/**
 * @brief Both parts of records, each to its array. Equal in all builds.
 * @param pSrc    array of @p len elements
 * @param pDstRe  array of @p len real parts; must not overlap the source
 * @param pDstIm  array of @p len imaginary parts; must not overlap the source
 * @param len     number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsCplxToReal_64fc(const Nox64fc pSrc[], Nox64f pDstRe[], Nox64f pDstIm[], int len);
/**
 * @brief Records from two arrays of parts. Equal in all builds.
 * @param pSrcRe  array of @p len real parts; null for 0.0 everywhere
 * @param pSrcIm  array of @p len imaginary parts; null for 0.0 everywhere
 * @param pDst    array of @p len elements; must not overlap the sources
 * @param len     number of elements
 * @return ::noxStsNullPtrErr for a null pDst, then ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr if both
 *         sources are null; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsRealToCplx_64f(NOX_NULLABLE const Nox64f pSrcRe[], NOX_NULLABLE const Nox64f pSrcIm[], Nox64fc pDst[], int len);

/**
 * @brief Absolute values; that of the lowest value saturates to the highest. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAbs_16s(const Nox16s pSrc[], Nox16s pDst[], int len);
/** @copydoc noxsAbs_16s */
NOX_API(NoxStatus) noxsAbs_32s(const Nox32s pSrc[], Nox32s pDst[], int len);
/**
 * @brief Absolute values, by clearing the sign: -0.0 gives 0.0, a NaN keeps its payload. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAbs_64f(const Nox64f pSrc[], Nox64f pDst[], int len);
/**
 * @brief Absolute values in place, like noxsAbs_16s().
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAbs_16s_I(Nox16s pSrcDst[], int len);
/** @copydoc noxsAbs_16s_I */
NOX_API(NoxStatus) noxsAbs_32s_I(Nox32s pSrcDst[], int len);
/**
 * @brief Absolute values in place, like noxsAbs_64f().
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAbs_64f_I(Nox64f pSrcDst[], int len);

NOX_END_DECLS

#endif
