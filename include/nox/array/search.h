/* Search: masks, indexes and elements that stand in a relation to a second array or a constant.
 *
 * Bytes compare as unsigned, other integers as signed. Equality of reals, codes 4 and 5, is not IEEE's: two NaN are
 * equal, and so are two infinities of whatever sign. With a NaN the four ordered relations don't hold. A mask is an
 * array of Nox32s, a word per element. These functions return no status and test nothing. Equal in all builds. */
#ifndef NOX_ARRAY_SEARCH_H
#define NOX_ARRAY_SEARCH_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Mask of the elements that stand in a relation to those of a second array. Equal in all builds.
 *
 * A word is 1 for a match and 0 for none; but an element -Inf that equals an infinity gives -1, all bits set. A code
 * above 5 leaves the mask alone.
 *
 * @param code        the relation: 0 `<`, 1 `<=`, 2 `>`, 3 `>=`, 4 equal, 5 not equal
 * @param x           base of the first array
 * @param xIdx        its index
 * @param y           base of the second array
 * @param yIdx        its index
 * @param mask        base of the mask, @p n words
 * @param maskIdx     its index
 * @param n           number of elements, 0 or more
 */
NOX_API(void)
FindMask_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, const Nox8u y[], int yIdx, Nox32s mask[], int maskIdx,
                Nox32u n);
/** @copydoc FindMask_8u_Idx */
NOX_API(void)
FindMask_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, const Nox16s y[], int yIdx, Nox32s mask[], int maskIdx,
                 Nox32u n);
/** @copydoc FindMask_8u_Idx */
NOX_API(void)
FindMask_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, const Nox32s y[], int yIdx, Nox32s mask[], int maskIdx,
                 Nox32u n);
/** @copydoc FindMask_8u_Idx */
NOX_API(void)
FindMask_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, const Nox64f y[], int yIdx, Nox32s mask[], int maskIdx,
                 Nox32u n);

/**
 * @brief Mask of the elements that stand in a relation to a constant. Equal in all builds.
 *
 * A word is 1 for a match and 0 for none; but an element -Inf that equals an infinity gives -1, all bits set. A code
 * above 5 leaves the mask alone.
 *
 * @param code        the relation: 0 `<`, 1 `<=`, 2 `>`, 3 `>=`, 4 equal, 5 not equal
 * @param x           base of the first array
 * @param xIdx        its index
 * @param value       the constant, second in the relation
 * @param mask        base of the mask, @p n words
 * @param maskIdx     its index
 * @param n           number of elements, 0 or more
 */
NOX_API(void)
FindMaskC_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, Nox8u value, Nox32s mask[], int maskIdx, Nox32u n);
/** @copydoc FindMaskC_8u_Idx */
NOX_API(void)
FindMaskC_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, Nox16s value, Nox32s mask[], int maskIdx, Nox32u n);
/** @copydoc FindMaskC_8u_Idx */
NOX_API(void)
FindMaskC_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, Nox32s value, Nox32s mask[], int maskIdx, Nox32u n);
/** @copydoc FindMaskC_8u_Idx */
NOX_API(void)
FindMaskC_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, Nox64f value, Nox32s mask[], int maskIdx, Nox32u n);

/**
 * @brief Indexes of the elements that stand in a relation to those of a second array. Equal in all builds.
 *
 * Indexes count from 0 and ascend; nothing but matches is written. A code above 5 matches nothing.
 *
 * @param code        the relation: 0 `<`, 1 `<=`, 2 `>`, 3 `>=`, 4 equal, 5 not equal
 * @param x           base of the first array
 * @param xIdx        its index
 * @param y           base of the second array
 * @param yIdx        its index
 * @param indexes     base of the list, with room for @p n
 * @param indexesIdx  its index
 * @param n           number of elements, 0 or more
 * @param count       takes the number of matches
 */
NOX_API(void)
FindIndexes_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, const Nox8u y[], int yIdx, Nox32u indexes[], int indexesIdx,
                   Nox32u n, Nox32u* count);
/** @copydoc FindIndexes_8u_Idx */
NOX_API(void)
FindIndexes_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, const Nox16s y[], int yIdx, Nox32u indexes[],
                    int indexesIdx, Nox32u n, Nox32u* count);
/** @copydoc FindIndexes_8u_Idx */
NOX_API(void)
FindIndexes_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, const Nox32s y[], int yIdx, Nox32u indexes[],
                    int indexesIdx, Nox32u n, Nox32u* count);
/** @copydoc FindIndexes_8u_Idx */
NOX_API(void)
FindIndexes_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, const Nox64f y[], int yIdx, Nox32u indexes[],
                    int indexesIdx, Nox32u n, Nox32u* count);

/**
 * @brief Indexes of the elements that stand in a relation to a constant. Equal in all builds.
 *
 * Indexes count from 0 and ascend; nothing but matches is written. A code above 5 matches nothing.
 *
 * @param code        the relation: 0 `<`, 1 `<=`, 2 `>`, 3 `>=`, 4 equal, 5 not equal
 * @param x           base of the first array
 * @param xIdx        its index
 * @param value       the constant, second in the relation
 * @param indexes     base of the list, with room for @p n
 * @param indexesIdx  its index
 * @param n           number of elements, 0 or more
 * @param count       takes the number of matches
 */
NOX_API(void)
FindIndexesC_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, Nox8u value, Nox32u indexes[], int indexesIdx, Nox32u n,
                    Nox32u* count);
/** @copydoc FindIndexesC_8u_Idx */
NOX_API(void)
FindIndexesC_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, Nox16s value, Nox32u indexes[], int indexesIdx, Nox32u n,
                     Nox32u* count);
/** @copydoc FindIndexesC_8u_Idx */
NOX_API(void)
FindIndexesC_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, Nox32s value, Nox32u indexes[], int indexesIdx, Nox32u n,
                     Nox32u* count);
/** @copydoc FindIndexesC_8u_Idx */
NOX_API(void)
FindIndexesC_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, Nox64f value, Nox32u indexes[], int indexesIdx, Nox32u n,
                     Nox32u* count);

/**
 * @brief Indexes and elements that stand in a relation to those of a second array. Equal in all builds.
 *
 * Indexes count from 0 and ascend; nothing but matches is written. A code above 5 matches nothing.
 *
 * @param code        the relation: 0 `<`, 1 `<=`, 2 `>`, 3 `>=`, 4 equal, 5 not equal
 * @param x           base of the first array
 * @param xIdx        its index
 * @param y           base of the second array
 * @param yIdx        its index
 * @param indexes     base of the list, with room for @p n
 * @param indexesIdx  its index
 * @param values      base of the matching elements of x, with room for @p n
 * @param valuesIdx   its index
 * @param n           number of elements, 0 or more
 * @param count       takes the number of matches
 */
NOX_API(void)
FindAndGather_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, const Nox8u y[], int yIdx, Nox32u indexes[],
                     int indexesIdx, Nox8u values[], int valuesIdx, Nox32u n, Nox32u* count);
/** @copydoc FindAndGather_8u_Idx */
NOX_API(void)
FindAndGather_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, const Nox16s y[], int yIdx, Nox32u indexes[],
                      int indexesIdx, Nox16s values[], int valuesIdx, Nox32u n, Nox32u* count);
/** @copydoc FindAndGather_8u_Idx */
NOX_API(void)
FindAndGather_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, const Nox32s y[], int yIdx, Nox32u indexes[],
                      int indexesIdx, Nox32s values[], int valuesIdx, Nox32u n, Nox32u* count);
/** @copydoc FindAndGather_8u_Idx */
NOX_API(void)
FindAndGather_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, const Nox64f y[], int yIdx, Nox32u indexes[],
                      int indexesIdx, Nox64f values[], int valuesIdx, Nox32u n, Nox32u* count);

/**
 * @brief Indexes and elements that stand in a relation to a constant. Equal in all builds.
 *
 * Indexes count from 0 and ascend; nothing but matches is written. A code above 5 matches nothing.
 *
 * @param code        the relation: 0 `<`, 1 `<=`, 2 `>`, 3 `>=`, 4 equal, 5 not equal
 * @param x           base of the first array
 * @param xIdx        its index
 * @param value       the constant, second in the relation
 * @param indexes     base of the list, with room for @p n
 * @param indexesIdx  its index
 * @param values      base of the matching elements of x, with room for @p n
 * @param valuesIdx   its index
 * @param n           number of elements, 0 or more
 * @param count       takes the number of matches
 */
NOX_API(void)
FindAndGatherC_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, Nox8u value, Nox32u indexes[], int indexesIdx,
                      Nox8u values[], int valuesIdx, Nox32u n, Nox32u* count);
/** @copydoc FindAndGatherC_8u_Idx */
NOX_API(void)
FindAndGatherC_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, Nox16s value, Nox32u indexes[], int indexesIdx,
                       Nox16s values[], int valuesIdx, Nox32u n, Nox32u* count);
/** @copydoc FindAndGatherC_8u_Idx */
NOX_API(void)
FindAndGatherC_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, Nox32s value, Nox32u indexes[], int indexesIdx,
                       Nox32s values[], int valuesIdx, Nox32u n, Nox32u* count);
/** @copydoc FindAndGatherC_8u_Idx */
NOX_API(void)
FindAndGatherC_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, Nox64f value, Nox32u indexes[], int indexesIdx,
                       Nox64f values[], int valuesIdx, Nox32u n, Nox32u* count);

/**
 * @brief Number of elements above a value; NaN isn't. Equal in all builds.
 * @param x      array of @p n elements
 * @param value  the value
 * @param count  takes the number
 * @param n      number of elements, 0 or more
 */
NOX_API(void) CountGT(const Nox64f x[], Nox64f value, Nox32u* count, Nox32u n);

/**
 * @brief Packs the elements whose mask word is above 0, as bits; returns their number. Equal in all builds.
 * @param n     number of elements, 0 or more
 * @param src   array of @p n elements
 * @param dst   takes the elements selected, and nothing more; may be the source
 * @param mask  array of @p n words; 0 and negative words drop the element
 * @return the number of elements written
 */
NOX_API(Nox32s) PackByMask(Nox32u n, const Nox64f src[], Nox64f dst[], const Nox32s mask[]);
/** @copydoc PackByMask */
NOX_API(Nox32s) PackByMaskc(Nox32u n, const Nox64fc src[], Nox64fc dst[], const Nox32s mask[]);

NOX_END_DECLS

#endif
