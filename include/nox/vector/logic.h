/* Bitwise operations, shifts by a constant and reversal of the bytes of elements. */
#ifndef NOX_VECTOR_LOGIC_H
#define NOX_VECTOR_LOGIC_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Bitwise operation on two arrays: `pDst[i] = pSrc1[i] & pSrc2[i]`. Equal in all builds.
 * @param pSrc1  array of @p len elements, at any alignment
 * @param pSrc2  array of @p len elements, at any alignment
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAnd_8u(const Nox8u pSrc1[], const Nox8u pSrc2[], Nox8u pDst[], int len);
/** @copydoc noxsAnd_8u */
NOX_API(NoxStatus) noxsAnd_16u(const Nox16u pSrc1[], const Nox16u pSrc2[], Nox16u pDst[], int len);
/** @copydoc noxsAnd_8u */
NOX_API(NoxStatus) noxsAnd_32u(const Nox32u pSrc1[], const Nox32u pSrc2[], Nox32u pDst[], int len);

/**
 * @brief Bitwise operation in place: `pSrcDst[i] = pSrcDst[i] & pSrc[i]`. Equal in all builds.
 * @param pSrc     array of @p len elements, at any alignment
 * @param pSrcDst  array of @p len elements; may be the source
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAnd_8u_I(const Nox8u pSrc[], Nox8u pSrcDst[], int len);
/** @copydoc noxsAnd_8u_I */
NOX_API(NoxStatus) noxsAnd_16u_I(const Nox16u pSrc[], Nox16u pSrcDst[], int len);
/** @copydoc noxsAnd_8u_I */
NOX_API(NoxStatus) noxsAnd_32u_I(const Nox32u pSrc[], Nox32u pSrcDst[], int len);

/**
 * @brief Bitwise operation on two arrays: `pDst[i] = pSrc1[i] | pSrc2[i]`. Equal in all builds.
 * @param pSrc1  array of @p len elements, at any alignment
 * @param pSrc2  array of @p len elements, at any alignment
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsOr_8u(const Nox8u pSrc1[], const Nox8u pSrc2[], Nox8u pDst[], int len);
/** @copydoc noxsOr_8u */
NOX_API(NoxStatus) noxsOr_16u(const Nox16u pSrc1[], const Nox16u pSrc2[], Nox16u pDst[], int len);
/** @copydoc noxsOr_8u */
NOX_API(NoxStatus) noxsOr_32u(const Nox32u pSrc1[], const Nox32u pSrc2[], Nox32u pDst[], int len);

/**
 * @brief Bitwise operation in place: `pSrcDst[i] = pSrcDst[i] | pSrc[i]`. Equal in all builds.
 * @param pSrc     array of @p len elements, at any alignment
 * @param pSrcDst  array of @p len elements; may be the source
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsOr_8u_I(const Nox8u pSrc[], Nox8u pSrcDst[], int len);
/** @copydoc noxsOr_8u_I */
NOX_API(NoxStatus) noxsOr_16u_I(const Nox16u pSrc[], Nox16u pSrcDst[], int len);
/** @copydoc noxsOr_8u_I */
NOX_API(NoxStatus) noxsOr_32u_I(const Nox32u pSrc[], Nox32u pSrcDst[], int len);

/**
 * @brief Bitwise operation on two arrays: `pDst[i] = pSrc1[i] ^ pSrc2[i]`. Equal in all builds.
 * @param pSrc1  array of @p len elements, at any alignment
 * @param pSrc2  array of @p len elements, at any alignment
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsXor_8u(const Nox8u pSrc1[], const Nox8u pSrc2[], Nox8u pDst[], int len);
/** @copydoc noxsXor_8u */
NOX_API(NoxStatus) noxsXor_16u(const Nox16u pSrc1[], const Nox16u pSrc2[], Nox16u pDst[], int len);
/** @copydoc noxsXor_8u */
NOX_API(NoxStatus) noxsXor_32u(const Nox32u pSrc1[], const Nox32u pSrc2[], Nox32u pDst[], int len);

/**
 * @brief Bitwise operation in place: `pSrcDst[i] = pSrcDst[i] ^ pSrc[i]`. Equal in all builds.
 * @param pSrc     array of @p len elements, at any alignment
 * @param pSrcDst  array of @p len elements; may be the source
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsXor_8u_I(const Nox8u pSrc[], Nox8u pSrcDst[], int len);
/** @copydoc noxsXor_8u_I */
NOX_API(NoxStatus) noxsXor_16u_I(const Nox16u pSrc[], Nox16u pSrcDst[], int len);
/** @copydoc noxsXor_8u_I */
NOX_API(NoxStatus) noxsXor_32u_I(const Nox32u pSrc[], Nox32u pSrcDst[], int len);

/**
 * @brief Bitwise operation with a constant: `pDst[i] = pSrc[i] & val`. Equal in all builds.
 * @param pSrc  array of @p len elements, at any alignment
 * @param val   the constant
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAndC_8u(const Nox8u pSrc[], Nox8u val, Nox8u pDst[], int len);
/** @copydoc noxsAndC_8u */
NOX_API(NoxStatus) noxsAndC_16u(const Nox16u pSrc[], Nox16u val, Nox16u pDst[], int len);
/** @copydoc noxsAndC_8u */
NOX_API(NoxStatus) noxsAndC_32u(const Nox32u pSrc[], Nox32u val, Nox32u pDst[], int len);

/**
 * @brief Bitwise operation with a constant in place: `pSrcDst[i] = pSrcDst[i] & val`. Equal in all builds.
 * @param val      the constant
 * @param pSrcDst  array of @p len elements, at any alignment
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAndC_8u_I(Nox8u val, Nox8u pSrcDst[], int len);
/** @copydoc noxsAndC_8u_I */
NOX_API(NoxStatus) noxsAndC_16u_I(Nox16u val, Nox16u pSrcDst[], int len);
/** @copydoc noxsAndC_8u_I */
NOX_API(NoxStatus) noxsAndC_32u_I(Nox32u val, Nox32u pSrcDst[], int len);

/**
 * @brief Bitwise operation with a constant: `pDst[i] = pSrc[i] | val`. Equal in all builds.
 * @param pSrc  array of @p len elements, at any alignment
 * @param val   the constant
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsOrC_8u(const Nox8u pSrc[], Nox8u val, Nox8u pDst[], int len);
/** @copydoc noxsOrC_8u */
NOX_API(NoxStatus) noxsOrC_16u(const Nox16u pSrc[], Nox16u val, Nox16u pDst[], int len);
/** @copydoc noxsOrC_8u */
NOX_API(NoxStatus) noxsOrC_32u(const Nox32u pSrc[], Nox32u val, Nox32u pDst[], int len);

/**
 * @brief Bitwise operation with a constant in place: `pSrcDst[i] = pSrcDst[i] | val`. Equal in all builds.
 * @param val      the constant
 * @param pSrcDst  array of @p len elements, at any alignment
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsOrC_8u_I(Nox8u val, Nox8u pSrcDst[], int len);
/** @copydoc noxsOrC_8u_I */
NOX_API(NoxStatus) noxsOrC_16u_I(Nox16u val, Nox16u pSrcDst[], int len);
/** @copydoc noxsOrC_8u_I */
NOX_API(NoxStatus) noxsOrC_32u_I(Nox32u val, Nox32u pSrcDst[], int len);

/**
 * @brief Bitwise operation with a constant: `pDst[i] = pSrc[i] ^ val`. Equal in all builds.
 * @param pSrc  array of @p len elements, at any alignment
 * @param val   the constant
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsXorC_8u(const Nox8u pSrc[], Nox8u val, Nox8u pDst[], int len);
/** @copydoc noxsXorC_8u */
NOX_API(NoxStatus) noxsXorC_16u(const Nox16u pSrc[], Nox16u val, Nox16u pDst[], int len);
/** @copydoc noxsXorC_8u */
NOX_API(NoxStatus) noxsXorC_32u(const Nox32u pSrc[], Nox32u val, Nox32u pDst[], int len);

/**
 * @brief Bitwise operation with a constant in place: `pSrcDst[i] = pSrcDst[i] ^ val`. Equal in all builds.
 * @param val      the constant
 * @param pSrcDst  array of @p len elements, at any alignment
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsXorC_8u_I(Nox8u val, Nox8u pSrcDst[], int len);
/** @copydoc noxsXorC_8u_I */
NOX_API(NoxStatus) noxsXorC_16u_I(Nox16u val, Nox16u pSrcDst[], int len);
/** @copydoc noxsXorC_8u_I */
NOX_API(NoxStatus) noxsXorC_32u_I(Nox32u val, Nox32u pSrcDst[], int len);

/**
 * @brief Complement of every bit: `pDst[i] = ~pSrc[i]`. Equal in all builds.
 * @param pSrc  array of @p len elements, at any alignment
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNot_8u(const Nox8u pSrc[], Nox8u pDst[], int len);
/** @copydoc noxsNot_8u */
NOX_API(NoxStatus) noxsNot_16u(const Nox16u pSrc[], Nox16u pDst[], int len);
/** @copydoc noxsNot_8u */
NOX_API(NoxStatus) noxsNot_32u(const Nox32u pSrc[], Nox32u pDst[], int len);

/**
 * @brief Complement of every bit in place. Equal in all builds.
 * @param pSrcDst  array of @p len elements, at any alignment
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsNot_8u_I(Nox8u pSrcDst[], int len);
/** @copydoc noxsNot_8u_I */
NOX_API(NoxStatus) noxsNot_16u_I(Nox16u pSrcDst[], int len);
/** @copydoc noxsNot_8u_I */
NOX_API(NoxStatus) noxsNot_32u_I(Nox32u pSrcDst[], int len);

/**
 * @brief Shifts every element left by `val` bits. Equal in all builds.
 *
 * Bits moved out are lost and zeros come in; nothing saturates. From the width of the element on, the result is 0.
 *
 * @param pSrc  array of @p len elements, at any alignment
 * @param val   number of bits, from 0 on; not limited to the width of the element
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, ::noxStsSizeErr for @p len below 1, then ::noxStsShiftErr for @p val
 *         below 0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsLShiftC_8u(const Nox8u pSrc[], int val, Nox8u pDst[], int len);
/** @copydoc noxsLShiftC_8u */
NOX_API(NoxStatus) noxsLShiftC_16s(const Nox16s pSrc[], int val, Nox16s pDst[], int len);
/** @copydoc noxsLShiftC_8u */
NOX_API(NoxStatus) noxsLShiftC_32s(const Nox32s pSrc[], int val, Nox32s pDst[], int len);

/**
 * @brief Shifts every element left by `val` bits in place, like noxsLShiftC_8u(). Equal in all builds.
 * @param val      number of bits, from 0 on; not limited to the width of the element
 * @param pSrcDst  array of @p len elements, at any alignment
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, ::noxStsSizeErr for @p len below 1, then ::noxStsShiftErr for @p val
 *         below 0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsLShiftC_8u_I(int val, Nox8u pSrcDst[], int len);
/** @copydoc noxsLShiftC_8u_I */
NOX_API(NoxStatus) noxsLShiftC_16s_I(int val, Nox16s pSrcDst[], int len);
/** @copydoc noxsLShiftC_8u_I */
NOX_API(NoxStatus) noxsLShiftC_32s_I(int val, Nox32s pSrcDst[], int len);

/**
 * @brief Shifts every element right by `val` bits. Equal in all builds.
 *
 * Zeros come in for unsigned elements, the sign for signed ones. From the width of the element on, the result is
 * 0, or -1 for a negative element.
 *
 * @param pSrc  array of @p len elements, at any alignment
 * @param val   number of bits, from 0 on; not limited to the width of the element
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, ::noxStsSizeErr for @p len below 1, then ::noxStsShiftErr for @p val
 *         below 0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsRShiftC_8u(const Nox8u pSrc[], int val, Nox8u pDst[], int len);
/** @copydoc noxsRShiftC_8u */
NOX_API(NoxStatus) noxsRShiftC_16s(const Nox16s pSrc[], int val, Nox16s pDst[], int len);
/** @copydoc noxsRShiftC_8u */
NOX_API(NoxStatus) noxsRShiftC_32s(const Nox32s pSrc[], int val, Nox32s pDst[], int len);

/**
 * @brief Shifts every element right by `val` bits in place, like noxsRShiftC_8u(). Equal in all builds.
 * @param val      number of bits, from 0 on; not limited to the width of the element
 * @param pSrcDst  array of @p len elements, at any alignment
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, ::noxStsSizeErr for @p len below 1, then ::noxStsShiftErr for @p val
 *         below 0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsRShiftC_8u_I(int val, Nox8u pSrcDst[], int len);
/** @copydoc noxsRShiftC_8u_I */
NOX_API(NoxStatus) noxsRShiftC_16s_I(int val, Nox16s pSrcDst[], int len);
/** @copydoc noxsRShiftC_8u_I */
NOX_API(NoxStatus) noxsRShiftC_32s_I(int val, Nox32s pSrcDst[], int len);

/**
 * @brief Reverses the bytes of every element. Equal in all builds.
 * @param pSrc  array of @p len elements, at any alignment; 3 bytes each in the 24-bit form
 * @param pDst  array of @p len elements; may be the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSwapBytes_16u(const Nox16u pSrc[], Nox16u pDst[], int len);
/** @copydoc noxsSwapBytes_16u */
NOX_API(NoxStatus) noxsSwapBytes_24u(const Nox8u pSrc[], Nox8u pDst[], int len);
/** @copydoc noxsSwapBytes_16u */
NOX_API(NoxStatus) noxsSwapBytes_32u(const Nox32u pSrc[], Nox32u pDst[], int len);
/** @copydoc noxsSwapBytes_16u */
NOX_API(NoxStatus) noxsSwapBytes_64u(const Nox64u pSrc[], Nox64u pDst[], int len);

/**
 * @brief Reverses the bytes of every element in place. Equal in all builds.
 * @param pSrcDst  array of @p len elements, at any alignment; 3 bytes each in the 24-bit form
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSwapBytes_16u_I(Nox16u pSrcDst[], int len);
/** @copydoc noxsSwapBytes_16u_I */
NOX_API(NoxStatus) noxsSwapBytes_24u_I(Nox8u pSrcDst[], int len);
/** @copydoc noxsSwapBytes_16u_I */
NOX_API(NoxStatus) noxsSwapBytes_32u_I(Nox32u pSrcDst[], int len);
/** @copydoc noxsSwapBytes_16u_I */
NOX_API(NoxStatus) noxsSwapBytes_64u_I(Nox64u pSrcDst[], int len);

NOX_END_DECLS

#endif
