/* Fill, copy and move: primitives that look at no value, so every bit of a NaN survives.
 *
 * Element forms differ in element size alone and share one kernel per operation. */
#ifndef NOX_VECTOR_MOVE_H
#define NOX_VECTOR_MOVE_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Sets every element: `pDst[i] = val` for i < len. Equal in all builds.
 * @param val   the value; a complex one is a record passed by value
 * @param pDst  array of @p len elements, at any alignment
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSet_8u(Nox8u val, Nox8u pDst[], int len);
/** @copydoc noxsSet_8u */
NOX_API(NoxStatus) noxsSet_16s(Nox16s val, Nox16s pDst[], int len);
/** @copydoc noxsSet_8u */
NOX_API(NoxStatus) noxsSet_32s(Nox32s val, Nox32s pDst[], int len);
/** @copydoc noxsSet_8u */
NOX_API(NoxStatus) noxsSet_32sc(Nox32sc val, Nox32sc pDst[], int len);
/** @copydoc noxsSet_8u */
NOX_API(NoxStatus) noxsSet_64f(Nox64f val, Nox64f pDst[], int len);
/** @copydoc noxsSet_8u */
NOX_API(NoxStatus) noxsSet_64fc(Nox64fc val, Nox64fc pDst[], int len);

/**
 * @brief Clears all bytes of an array; a zero of Nox64f is +0.0. Equal in all builds.
 * @param pDst  array of @p len elements, at any alignment
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsZero_8u(Nox8u pDst[], int len);
/** @copydoc noxsZero_8u */
NOX_API(NoxStatus) noxsZero_16s(Nox16s pDst[], int len);
/** @copydoc noxsZero_8u */
NOX_API(NoxStatus) noxsZero_32s(Nox32s pDst[], int len);
/** @copydoc noxsZero_8u */
NOX_API(NoxStatus) noxsZero_32sc(Nox32sc pDst[], int len);
/** @copydoc noxsZero_8u */
NOX_API(NoxStatus) noxsZero_64f(Nox64f pDst[], int len);
/** @copydoc noxsZero_8u */
NOX_API(NoxStatus) noxsZero_64fc(Nox64fc pDst[], int len);

/**
 * @brief Copies an array: `pDst[i] = pSrc[i]` for i < len. Equal in all builds.
 *
 * The arrays must not overlap; noxsMove_8u() and its siblings allow it. From 32768 bytes on the g9 and h9 builds
 * choose their method by the distance of the two arrays and by the cache size, with the same result.
 *
 * @param pSrc  array of @p len elements, at any alignment
 * @param pDst  array of @p len elements, at any alignment
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsCopy_8u(const Nox8u pSrc[], Nox8u pDst[], int len);
/** @copydoc noxsCopy_8u */
NOX_API(NoxStatus) noxsCopy_16s(const Nox16s pSrc[], Nox16s pDst[], int len);
/** @copydoc noxsCopy_8u */
NOX_API(NoxStatus) noxsCopy_16sc(const Nox16sc pSrc[], Nox16sc pDst[], int len);
/** @copydoc noxsCopy_8u */
NOX_API(NoxStatus) noxsCopy_32s(const Nox32s pSrc[], Nox32s pDst[], int len);
/** @copydoc noxsCopy_8u */
NOX_API(NoxStatus) noxsCopy_32f(const Nox32f pSrc[], Nox32f pDst[], int len);
/** @copydoc noxsCopy_8u */
NOX_API(NoxStatus) noxsCopy_32sc(const Nox32sc pSrc[], Nox32sc pDst[], int len);
/** @copydoc noxsCopy_8u */
NOX_API(NoxStatus) noxsCopy_32fc(const Nox32fc pSrc[], Nox32fc pDst[], int len);
/** @copydoc noxsCopy_8u */
NOX_API(NoxStatus) noxsCopy_64s(const Nox64s pSrc[], Nox64s pDst[], int len);
/** @copydoc noxsCopy_8u */
NOX_API(NoxStatus) noxsCopy_64f(const Nox64f pSrc[], Nox64f pDst[], int len);
/** @copydoc noxsCopy_8u */
NOX_API(NoxStatus) noxsCopy_64sc(const Nox64sc pSrc[], Nox64sc pDst[], int len);
/** @copydoc noxsCopy_8u */
NOX_API(NoxStatus) noxsCopy_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);

/**
 * @brief Copies an array that may be in place or overlap, as if through a scratch buffer. Equal in all builds.
 * @param pSrc  array of @p len elements, at any alignment
 * @param pDst  array of @p len elements, at any alignment and any distance from @p pSrc, zero included
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMove_8u(const Nox8u pSrc[], Nox8u pDst[], int len);
/** @copydoc noxsMove_8u */
NOX_API(NoxStatus) noxsMove_16s(const Nox16s pSrc[], Nox16s pDst[], int len);
/** @copydoc noxsMove_8u */
NOX_API(NoxStatus) noxsMove_16sc(const Nox16sc pSrc[], Nox16sc pDst[], int len);
/** @copydoc noxsMove_8u */
NOX_API(NoxStatus) noxsMove_32s(const Nox32s pSrc[], Nox32s pDst[], int len);
/** @copydoc noxsMove_8u */
NOX_API(NoxStatus) noxsMove_32f(const Nox32f pSrc[], Nox32f pDst[], int len);
/** @copydoc noxsMove_8u */
NOX_API(NoxStatus) noxsMove_32sc(const Nox32sc pSrc[], Nox32sc pDst[], int len);
/** @copydoc noxsMove_8u */
NOX_API(NoxStatus) noxsMove_32fc(const Nox32fc pSrc[], Nox32fc pDst[], int len);
/** @copydoc noxsMove_8u */
NOX_API(NoxStatus) noxsMove_64s(const Nox64s pSrc[], Nox64s pDst[], int len);
/** @copydoc noxsMove_8u */
NOX_API(NoxStatus) noxsMove_64f(const Nox64f pSrc[], Nox64f pDst[], int len);
/** @copydoc noxsMove_8u */
NOX_API(NoxStatus) noxsMove_64sc(const Nox64sc pSrc[], Nox64sc pDst[], int len);
/** @copydoc noxsMove_8u */
NOX_API(NoxStatus) noxsMove_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len);

/**
 * @brief Copies @p len bits; bit k of a byte is the one under the mask 0x80 >> k. Equal in all builds.
 *
 * The other bits of the first and the last destination byte keep their values. The ranges must not overlap.
 *
 * @param pSrc          bytes of the source; @p srcBitOffset counts from the first bit of the first of them
 * @param srcBitOffset  first source bit, taken modulo 8: the byte pointer isn't moved by the part cut off
 * @param pDst          bytes of the destination
 * @param dstBitOffset  first destination bit, taken modulo 8
 * @param len           number of bits
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1 or a negative offset;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsCopyLE_1u(const Nox8u pSrc[], int srcBitOffset, Nox8u pDst[], int dstBitOffset, int len);

/**
 * @brief Copies @p len bits like noxsCopyLE_1u(), but bit k of a byte is the one under the mask 1 << k. Equal in all
 * builds.
 * @param pSrc          bytes of the source; @p srcBitOffset counts from the first bit of the first of them
 * @param srcBitOffset  first source bit, taken modulo 8: the byte pointer isn't moved by the part cut off
 * @param pDst          bytes of the destination
 * @param dstBitOffset  first destination bit, taken modulo 8
 * @param len           number of bits
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1 or a negative offset;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsCopyBE_1u(const Nox8u pSrc[], int srcBitOffset, Nox8u pDst[], int dstBitOffset, int len);

NOX_END_DECLS

#endif
