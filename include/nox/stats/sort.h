/* Sorting in place, alone or with the positions that the elements came from.
 *
 * Arrays may stand at any address. No memory is allocated, and no data takes more than n log n steps. */
#ifndef NOX_STATS_SORT_H
#define NOX_STATS_SORT_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Sorts an array in ascending order. Equal in all builds.
 *
 * Zeros of either sign are equal and stand in any order. With a NaN among the elements all elements are kept, in an
 * order that isn't specified.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSortAscend_64f_I(Nox64f pSrcDst[], int len);
/** @copydoc noxsSortAscend_64f_I */
NOX_API(NoxStatus) noxsSortAscend_32s_I(Nox32s pSrcDst[], int len);
/** @copydoc noxsSortAscend_64f_I */
NOX_API(NoxStatus) noxsSortAscend_16s_I(Nox16s pSrcDst[], int len);
/** @copydoc noxsSortAscend_64f_I */
NOX_API(NoxStatus) noxsSortAscend_8u_I(Nox8u pSrcDst[], int len);

/**
 * @brief Sorts an array in ascending order and tells where each element stood. Equal in all builds.
 *
 * Equal elements, and so their indexes, stand in any order. With a NaN among the elements all elements are kept with
 * their indexes, in an order that isn't specified.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param pDstIdx  array of @p len elements for the former indexes, counted from 0; must not overlap the other
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSortIndexAscend_64f_I(Nox64f pSrcDst[], Nox32s pDstIdx[], int len);
/** @copydoc noxsSortIndexAscend_64f_I */
NOX_API(NoxStatus) noxsSortIndexAscend_32s_I(Nox32s pSrcDst[], Nox32s pDstIdx[], int len);
/** @copydoc noxsSortIndexAscend_64f_I */
NOX_API(NoxStatus) noxsSortIndexAscend_16s_I(Nox16s pSrcDst[], Nox32s pDstIdx[], int len);
/** @copydoc noxsSortIndexAscend_64f_I */
NOX_API(NoxStatus) noxsSortIndexAscend_8u_I(Nox8u pSrcDst[], Nox32s pDstIdx[], int len);

/**
 * @brief Sorts an array in descending order. Equal in all builds.
 *
 * Zeros of either sign are equal and stand in any order. With a NaN among the elements all elements are kept, in an
 * order that isn't specified.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSortDescend_64f_I(Nox64f pSrcDst[], int len);
/** @copydoc noxsSortDescend_64f_I */
NOX_API(NoxStatus) noxsSortDescend_32s_I(Nox32s pSrcDst[], int len);
/** @copydoc noxsSortDescend_64f_I */
NOX_API(NoxStatus) noxsSortDescend_16s_I(Nox16s pSrcDst[], int len);
/** @copydoc noxsSortDescend_64f_I */
NOX_API(NoxStatus) noxsSortDescend_8u_I(Nox8u pSrcDst[], int len);

/**
 * @brief Sorts an array in descending order and tells where each element stood. Equal in all builds.
 *
 * Equal elements, and so their indexes, stand in any order. With a NaN among the elements all elements are kept with
 * their indexes, in an order that isn't specified.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param pDstIdx  array of @p len elements for the former indexes, counted from 0; must not overlap the other
 * @param len      number of elements
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSortIndexDescend_64f_I(Nox64f pSrcDst[], Nox32s pDstIdx[], int len);
/** @copydoc noxsSortIndexDescend_64f_I */
NOX_API(NoxStatus) noxsSortIndexDescend_32s_I(Nox32s pSrcDst[], Nox32s pDstIdx[], int len);
/** @copydoc noxsSortIndexDescend_64f_I */
NOX_API(NoxStatus) noxsSortIndexDescend_16s_I(Nox16s pSrcDst[], Nox32s pDstIdx[], int len);
/** @copydoc noxsSortIndexDescend_64f_I */
NOX_API(NoxStatus) noxsSortIndexDescend_8u_I(Nox8u pSrcDst[], Nox32s pDstIdx[], int len);

NOX_END_DECLS

#endif
