/* Packing and unpacking by stride, by index and by mask, and bit fields.
 *
 * Elements move one after the other in ascending order, as bits; arrays that overlap see what came before. The letters
 * tell the element: b Nox8u, si Nox16s, i Nox32s, d with c at the end Nox64fc. Packing takes the selector in front of
 * the destination, unpacking behind it. These functions return no status and test nothing; indexes are trusted. Equal
 * in all builds. */
#ifndef NOX_ARRAY_PACK_H
#define NOX_ARRAY_PACK_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Packs every stride-th element: `dst[k] = src[k * stride]`. Equal in all builds.
 * @param n       number of elements to move, 0 or more
 * @param src     first element of the source
 * @param stride  distance in elements; may be negative
 * @param dst     array of @p n elements
 */
NOX_API(void) vbpacki(Nox32u n, const Nox8u src[], Nox32s stride, Nox8u dst[]);
/** @copydoc vbpacki */
NOX_API(void) vsipacki(Nox32u n, const Nox16s src[], Nox32s stride, Nox16s dst[]);
/** @copydoc vbpacki */
NOX_API(void) vipacki(Nox32u n, const Nox32s src[], Nox32s stride, Nox32s dst[]);
/** @copydoc vbpacki */
NOX_API(void) vdpackic(Nox32u n, const Nox64fc src[], Nox32s stride, Nox64fc dst[]);

/**
 * @brief Packs elements by index: `dst[k] = src[index[k]]`. Equal in all builds.
 * @param n       number of elements to move, 0 or more
 * @param src     the source
 * @param index   array of @p n places in the source
 * @param dst     array of @p n elements
 */
NOX_API(void) vbpackv(Nox32u n, const Nox8u src[], const Nox32s index[], Nox8u dst[]);
/** @copydoc vbpackv */
NOX_API(void) vsipackv(Nox32u n, const Nox16s src[], const Nox32s index[], Nox16s dst[]);
/** @copydoc vbpackv */
NOX_API(void) vipackv(Nox32u n, const Nox32s src[], const Nox32s index[], Nox32s dst[]);
/** @copydoc vbpackv */
NOX_API(void) vdpackvc(Nox32u n, const Nox64fc src[], const Nox32s index[], Nox64fc dst[]);

/**
 * @brief Packs the elements whose mask word is above 0. Equal in all builds.
 * @param n       number of mask words, 0 or more
 * @param src     array of @p n elements
 * @param mask    array of @p n words
 * @param dst     takes the elements selected, and nothing more
 */
NOX_API(void) vbpackm(Nox32u n, const Nox8u src[], const Nox32s mask[], Nox8u dst[]);
/** @copydoc vbpackm */
NOX_API(void) vsipackm(Nox32u n, const Nox16s src[], const Nox32s mask[], Nox16s dst[]);
/** @copydoc vbpackm */
NOX_API(void) vipackm(Nox32u n, const Nox32s src[], const Nox32s mask[], Nox32s dst[]);
/** @copydoc vbpackm */
NOX_API(void) vdpackmc(Nox32u n, const Nox64fc src[], const Nox32s mask[], Nox64fc dst[]);

/**
 * @brief Spreads elements: `dst[k * stride] = src[k]`. Equal in all builds.
 * @param n       number of elements to move, 0 or more
 * @param src     array of @p n elements
 * @param dst     first element of the destination
 * @param stride  distance in elements; may be negative
 */
NOX_API(void) vbunpacki(Nox32u n, const Nox8u src[], Nox8u dst[], Nox32s stride);
/** @copydoc vbunpacki */
NOX_API(void) vsiunpacki(Nox32u n, const Nox16s src[], Nox16s dst[], Nox32s stride);
/** @copydoc vbunpacki */
NOX_API(void) viunpacki(Nox32u n, const Nox32s src[], Nox32s dst[], Nox32s stride);
/** @copydoc vbunpacki */
NOX_API(void) vdunpackic(Nox32u n, const Nox64fc src[], Nox64fc dst[], Nox32s stride);

/**
 * @brief Spreads elements by index: `dst[index[k]] = src[k]`; of equal indexes the last wins. Equal in all builds.
 * @param n       number of elements to move, 0 or more
 * @param src     array of @p n elements
 * @param dst     the destination
 * @param index   array of @p n places in the destination
 */
NOX_API(void) vbunpackv(Nox32u n, const Nox8u src[], Nox8u dst[], const Nox32s index[]);
/** @copydoc vbunpackv */
NOX_API(void) vsiunpackv(Nox32u n, const Nox16s src[], Nox16s dst[], const Nox32s index[]);
/** @copydoc vbunpackv */
NOX_API(void) viunpackv(Nox32u n, const Nox32s src[], Nox32s dst[], const Nox32s index[]);
/** @copydoc vbunpackv */
NOX_API(void) vdunpackvc(Nox32u n, const Nox64fc src[], Nox64fc dst[], const Nox32s index[]);

/**
 * @brief Spreads elements to the places whose mask word is above 0; other places stay. Equal in all builds.
 * @param n       number of mask words, 0 or more
 * @param src     as many elements as are selected; no more are read
 * @param dst     array of @p n elements
 * @param mask    array of @p n words
 */
NOX_API(void) vbunpackm(Nox32u n, const Nox8u src[], Nox8u dst[], const Nox32s mask[]);
/** @copydoc vbunpackm */
NOX_API(void) vsiunpackm(Nox32u n, const Nox16s src[], Nox16s dst[], const Nox32s mask[]);
/** @copydoc vbunpackm */
NOX_API(void) viunpackm(Nox32u n, const Nox32s src[], Nox32s dst[], const Nox32s mask[]);
/** @copydoc vbunpackm */
NOX_API(void) vdunpackmc(Nox32u n, const Nox64fc src[], Nox64fc dst[], const Nox32s mask[]);

/**
 * @brief Packs truth values to a bit field: bit b of word w is set if `src[start + 32*w + b]` isn't 0. Equal in all
 * builds.
 * @param src        the values
 * @param start      first position
 * @param limit      position behind the last; bits from there on are 0
 * @param dst        array of @p wordCount words
 * @param wordCount  words to write; below 1 nothing is
 */
NOX_API(void) BitPack_8u(const Nox8u src[], Nox32s start, Nox32s limit, Nox32u dst[], Nox32s wordCount);
/** @copydoc BitPack_8u */
NOX_API(void) BitPack_16s(const Nox16s src[], Nox32s start, Nox32s limit, Nox32u dst[], Nox32s wordCount);
/** @copydoc BitPack_8u */
NOX_API(void) BitPack_32s(const Nox32s src[], Nox32s start, Nox32s limit, Nox32u dst[], Nox32s wordCount);

/**
 * @brief Unpacks a bit field: `dst[start + i]` becomes bit i, 0 or 1. Equal in all builds.
 * @param src    the words, read from the first on whatever @p start is
 * @param words  not read: the count tells the number of words
 * @param dst    the destination
 * @param start  first position written
 * @param count  bits to unpack; below 1 nothing is written
 */
NOX_API(void) BitUnpack_8u(const Nox32u src[], Nox32s words, Nox8u dst[], Nox32s start, Nox32s count);
/** @copydoc BitUnpack_8u */
NOX_API(void) BitUnpack_16s(const Nox32u src[], Nox32s words, Nox16s dst[], Nox32s start, Nox32s count);
/** @copydoc BitUnpack_8u */
NOX_API(void) BitUnpack_32s(const Nox32u src[], Nox32s words, Nox32s dst[], Nox32s start, Nox32s count);

NOX_END_DECLS

#endif
