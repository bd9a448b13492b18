/* Conversions between element types, named source then destination.
 *
 * 24-bit elements are three bytes, least significant first, in arrays of Nox8u; the index of such an array in an index
 * form counts bytes. Values aren't normalised: -1 becomes -1.0. A scale factor multiplies by 2^-scaleFactor, with the
 * factor kept in the range of normal numbers. Integers saturate without a warning. Nothing is written on an error. */
#ifndef NOX_VECTOR_CONVERT_H
#define NOX_VECTOR_CONVERT_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/** Rounding of conversions, `rndMode`; any value but 0 and 1 is taken as 2. */
enum NoxRndMode {
  noxRndZero = 0,    /**< toward zero */
  noxRndNear = 1,    /**< to nearest, halves to even */
  noxRndHalfAway = 2 /**< to nearest, halves away from zero */
};

/**
 * @brief Widens integers. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; must not overlap the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_8s16s(const Nox8s pSrc[], Nox16s pDst[], int len);
/** @copydoc noxsConvert_8s16s */
NOX_API(NoxStatus) noxsConvert_16s32s(const Nox16s pSrc[], Nox32s pDst[], int len);
/** @copydoc noxsConvert_8s16s */
NOX_API(NoxStatus) noxsConvert_24s32s(const Nox8u pSrc[], Nox32s pDst[], int len);
/** @copydoc noxsConvert_8s16s */
NOX_API(NoxStatus) noxsConvert_24u32u(const Nox8u pSrc[], Nox32u pDst[], int len);

/**
 * @brief Converts to a real type that holds every value of the source. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; must not overlap the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_8s32f(const Nox8s pSrc[], Nox32f pDst[], int len);
/** @copydoc noxsConvert_8s32f */
NOX_API(NoxStatus) noxsConvert_8u32f(const Nox8u pSrc[], Nox32f pDst[], int len);
/** @copydoc noxsConvert_8s32f */
NOX_API(NoxStatus) noxsConvert_16s32f(const Nox16s pSrc[], Nox32f pDst[], int len);
/** @copydoc noxsConvert_8s32f */
NOX_API(NoxStatus) noxsConvert_16u32f(const Nox16u pSrc[], Nox32f pDst[], int len);
/** @copydoc noxsConvert_8s32f */
NOX_API(NoxStatus) noxsConvert_24s32f(const Nox8u pSrc[], Nox32f pDst[], int len);
/** @copydoc noxsConvert_8s32f */
NOX_API(NoxStatus) noxsConvert_24u32f(const Nox8u pSrc[], Nox32f pDst[], int len);
/** @copydoc noxsConvert_8s32f */
NOX_API(NoxStatus) noxsConvert_32s64f(const Nox32s pSrc[], Nox64f pDst[], int len);
/** @copydoc noxsConvert_8s32f */
NOX_API(NoxStatus) noxsConvert_32f64f(const Nox32f pSrc[], Nox64f pDst[], int len);

/**
 * @brief Converts to floats, rounded by the mode of the thread; overflow gives infinity. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; must not overlap the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_32s32f(const Nox32s pSrc[], Nox32f pDst[], int len);
/** @copydoc noxsConvert_32s32f */
NOX_API(NoxStatus) noxsConvert_64f32f(const Nox64f pSrc[], Nox32f pDst[], int len);

/**
 * @brief Converts to reals, times 2^-scaleFactor. Equal in all builds.
 * @param pSrc         array of @p len elements
 * @param pDst         array of @p len elements; must not overlap the source
 * @param len          number of elements
 * @param scaleFactor  any; the value is multiplied by 2 to the minus of it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_16s32f_Sfs(const Nox16s pSrc[], Nox32f pDst[], int len, int scaleFactor);
/** @copydoc noxsConvert_16s32f_Sfs */
NOX_API(NoxStatus) noxsConvert_16s64f_Sfs(const Nox16s pSrc[], Nox64f pDst[], int len, int scaleFactor);
/** @copydoc noxsConvert_16s32f_Sfs */
NOX_API(NoxStatus) noxsConvert_32s64f_Sfs(const Nox32s pSrc[], Nox64f pDst[], int len, int scaleFactor);

/**
 * @brief Converts to floats, times 2^-scaleFactor with the scale factor kept within -96 and 126. Equal in all builds.
 * @param pSrc         array of @p len elements
 * @param pDst         array of @p len elements; must not overlap the source
 * @param len          number of elements
 * @param scaleFactor  any; the value is multiplied by 2 to the minus of it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_32s32f_Sfs(const Nox32s pSrc[], Nox32f pDst[], int len, int scaleFactor);

/**
 * @brief Narrows integers, saturating. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; must not overlap the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_32s16s(const Nox32s pSrc[], Nox16s pDst[], int len);

/**
 * @brief Scales integers, rounds to nearest, halves to even, and saturates. Equal in all builds.
 *
 * For Nox16s a scale factor above 31 counts as 31 and one below -15 as -15.
 *
 * @param pSrc         array of @p len elements
 * @param pDst         array of @p len elements; must not overlap the source
 * @param len          number of elements
 * @param scaleFactor  any; the value is multiplied by 2 to the minus of it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_32s16s_Sfs(const Nox32s pSrc[], Nox16s pDst[], int len, int scaleFactor);
/** @copydoc noxsConvert_32s16s_Sfs */
NOX_API(NoxStatus) noxsConvert_32s24s_Sfs(const Nox32s pSrc[], Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsConvert_32s16s_Sfs */
NOX_API(NoxStatus) noxsConvert_32u24u_Sfs(const Nox32u pSrc[], Nox8u pDst[], int len, int scaleFactor);

/**
 * @brief Scales integers, rounds by mode and saturates. Equal in all builds.
 * @param pSrc         array of @p len elements
 * @param pDst         array of @p len elements; must not overlap the source
 * @param len          number of elements
 * @param rndMode      ::NoxRndMode
 * @param scaleFactor  any; the value is multiplied by 2 to the minus of it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_64s32s_Sfs(const Nox64s pSrc[], Nox32s pDst[], int len, int rndMode, int scaleFactor);

/**
 * @brief Scales reals, rounds by mode to integers and saturates. Equal in all builds.
 *
 * The rounding mode of the thread has no part in it. A NaN becomes the highest value, for Nox32s of floats the highest
 * float below it.
 *
 * @param pSrc         array of @p len elements
 * @param pDst         array of @p len elements; must not overlap the source
 * @param len          number of elements
 * @param rndMode      ::NoxRndMode
 * @param scaleFactor  any; the value is multiplied by 2 to the minus of it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_32f8s_Sfs(const Nox32f pSrc[], Nox8s pDst[], int len, int rndMode, int scaleFactor);
/** @copydoc noxsConvert_32f8s_Sfs */
NOX_API(NoxStatus) noxsConvert_32f8u_Sfs(const Nox32f pSrc[], Nox8u pDst[], int len, int rndMode, int scaleFactor);
/** @copydoc noxsConvert_32f8s_Sfs */
NOX_API(NoxStatus) noxsConvert_32f16s_Sfs(const Nox32f pSrc[], Nox16s pDst[], int len, int rndMode, int scaleFactor);
/** @copydoc noxsConvert_32f8s_Sfs */
NOX_API(NoxStatus) noxsConvert_32f16u_Sfs(const Nox32f pSrc[], Nox16u pDst[], int len, int rndMode, int scaleFactor);
/** @copydoc noxsConvert_32f8s_Sfs */
NOX_API(NoxStatus) noxsConvert_32f32s_Sfs(const Nox32f pSrc[], Nox32s pDst[], int len, int rndMode, int scaleFactor);
/** @copydoc noxsConvert_32f8s_Sfs */
NOX_API(NoxStatus) noxsConvert_64f16s_Sfs(const Nox64f pSrc[], Nox16s pDst[], int len, int rndMode, int scaleFactor);
/** @copydoc noxsConvert_32f8s_Sfs */
NOX_API(NoxStatus) noxsConvert_64f32s_Sfs(const Nox64f pSrc[], Nox32s pDst[], int len, int rndMode, int scaleFactor);

/**
 * @brief Scales floats, rounds to nearest, halves to even, and saturates to 24 bits. Equal in all builds.
 *
 * The rounding mode of the thread has no part in it. A NaN becomes the highest value.
 *
 * @param pSrc         array of @p len elements
 * @param pDst         array of @p len elements; must not overlap the source
 * @param len          number of elements
 * @param scaleFactor  any; the value is multiplied by 2 to the minus of it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_32f24s_Sfs(const Nox32f pSrc[], Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsConvert_32f24s_Sfs */
NOX_API(NoxStatus) noxsConvert_32f24u_Sfs(const Nox32f pSrc[], Nox8u pDst[], int len, int scaleFactor);

/**
 * @brief Converts half precision to floats, without loss; a NaN becomes quiet. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param pDst  array of @p len elements; must not overlap the source
 * @param len   number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_16f32f(const Nox16f pSrc[], Nox32f pDst[], int len);

/**
 * @brief Converts to half precision. Equal in all builds.
 *
 * Values beyond the range become infinity to nearest and the largest half otherwise; those below the normal range are
 * kept as far as halves go. A NaN becomes quiet and keeps the upper bits of its payload.
 *
 * @param pSrc     array of @p len elements
 * @param pDst     array of @p len elements; must not overlap the source
 * @param len      number of elements
 * @param rndMode  ::noxRndNear; any other value but ::noxRndHalfAway rounds toward zero
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsRoundModeNotSupportedErr for ::noxRndHalfAway; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_32f16f(const Nox32f pSrc[], Nox16f pDst[], int len, int rndMode);
/** @copydoc noxsConvert_32f16f */
NOX_API(NoxStatus) noxsConvert_16s16f(const Nox16s pSrc[], Nox16f pDst[], int len, int rndMode);

/**
 * @brief Scales halves, rounds to integers and saturates. Equal in all builds.
 *
 * The rounding mode of the thread has no part in it. A NaN becomes the highest value.
 *
 * @param pSrc         array of @p len elements
 * @param pDst         array of @p len elements; must not overlap the source
 * @param len          number of elements
 * @param rndMode      ::noxRndNear; any other value but ::noxRndHalfAway rounds toward zero
 * @param scaleFactor  any; the value is multiplied by 2 to the minus of it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsRoundModeNotSupportedErr for ::noxRndHalfAway; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsConvert_16f16s_Sfs(const Nox16f pSrc[], Nox16s pDst[], int len, int rndMode, int scaleFactor);

NOX_END_DECLS

#endif
