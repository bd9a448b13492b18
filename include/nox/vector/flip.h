/* Reversal of arrays, with and without conjugation; element values are moved bit for bit. */
#ifndef NOX_VECTOR_FLIP_H
#define NOX_VECTOR_FLIP_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Reverses an array: `pDst[i] = pSrc[len - 1 - i]` for i < len. Equal in all builds.
 *
 * Equal pointers are allowed: the call then is the in-place form, whose checks apply. Arrays that overlap in any
 * other way are not.
 *
 * @param pSrc  array of @p len elements, at any alignment
 * @param pDst  array of @p len elements, at any alignment
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsFlip_8u(const Nox8u pSrc[], Nox8u pDst[], int len);
/** @copydoc noxsFlip_8u */
NOX_API(NoxStatus) noxsFlip_16u(const Nox16u pSrc[], Nox16u pDst[], int len);
/** @copydoc noxsFlip_8u */
NOX_API(NoxStatus) noxsFlip_32f(const Nox32f pSrc[], Nox32f pDst[], int len);
/** @copydoc noxsFlip_8u */
NOX_API(NoxStatus) noxsFlip_64f(const Nox64f pSrc[], Nox64f pDst[], int len);
/** @copydoc noxsFlip_8u */
NOX_API(NoxStatus) noxsFlip_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);

/**
 * @brief Reverses an array in place. Equal in all builds.
 * @param pSrcDst  array of @p len elements, at any alignment
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsFlip_8u_I(Nox8u pSrcDst[], int len);
/** @copydoc noxsFlip_8u_I */
NOX_API(NoxStatus) noxsFlip_16u_I(Nox16u pSrcDst[], int len);
/** @copydoc noxsFlip_8u_I */
NOX_API(NoxStatus) noxsFlip_32f_I(Nox32f pSrcDst[], int len);
/** @copydoc noxsFlip_8u_I */
NOX_API(NoxStatus) noxsFlip_64f_I(Nox64f pSrcDst[], int len);
/** @copydoc noxsFlip_8u_I */
NOX_API(NoxStatus) noxsFlip_64fc_I(Nox64fc pSrcDst[], int len);

/**
 * @brief Conjugates: `re` is kept and `im` negated by its sign bit, so a zero and a NaN change their sign too. Equal in
 * all builds.
 * @param pSrc  array of @p len elements; may be @p pDst
 * @param pDst  array of @p len elements
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConj_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);

/**
 * @brief Conjugates in place, like noxsConj_64fc().
 * @param pSrcDst  array of @p len elements
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConj_64fc_I(Nox64fc pSrcDst[], int len);

/**
 * @brief Reverses and conjugates: `pDst[i]` is the conjugate of `pSrc[len - 1 - i]`. Equal in all builds.
 * @param pSrc  array of @p len elements; must not overlap @p pDst
 * @param pDst  array of @p len elements
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConjFlip_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);

NOX_END_DECLS

#endif
