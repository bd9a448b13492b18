/* Sums and extremes of bytes, plain conversions, and rounding up and down.
 *
 * They return no status and test nothing. Bytes are unsigned; the first of equal extremes counts. Equal in all builds.
 */
#ifndef NOX_ARRAY_BYTES_H
#define NOX_ARRAY_BYTES_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Sum of bytes as a 32-bit integer, which wraps; there is no scale factor. Equal in all builds.
 * @param src  array of @p n bytes
 * @param n    number of elements, 0 or more
 * @param sum  takes the sum, 0 of none
 */
NOX_API(void) Sum_8u32s_SFS(const Nox8u src[], Nox32u n, Nox32s* sum);

/**
 * @brief Largest byte, 0 of none. Equal in all builds.
 * @param src  array of @p n bytes
 * @param n    number of elements, 0 or more
 * @param max  takes it
 */
NOX_API(void) Max_8u(const Nox8u src[], Nox32u n, Nox8u* max);

/**
 * @brief Smallest byte, 255 of none. Equal in all builds.
 * @param src  array of @p n bytes
 * @param n    number of elements, 0 or more
 * @param min  takes it
 */
NOX_API(void) Min_8u(const Nox8u src[], Nox32u n, Nox8u* min);

/**
 * @brief Smallest and largest byte; 255 and 0 of none. Equal in all builds.
 * @param src  array of @p n bytes
 * @param n    number of elements, 0 or more
 * @param min  takes the smallest, in spite of the name's order
 * @param max  takes the largest
 */
NOX_API(void) MaxMin_8u(const Nox8u src[], Nox32u n, Nox8u* min, Nox8u* max);

/**
 * @brief Largest byte and its first place; 0 at 0 of none. Equal in all builds.
 * @param src    array of @p n bytes
 * @param n      number of elements, 0 or more
 * @param max    takes the largest
 * @param index  takes its place
 */
NOX_API(void) MaxIndx_8u(const Nox8u src[], Nox32u n, Nox8u* max, Nox32s* index);

/**
 * @brief Smallest byte and its first place; 255 at 0 of none. Equal in all builds.
 * @param src    array of @p n bytes
 * @param n      number of elements, 0 or more
 * @param min    takes the smallest
 * @param index  takes its place
 */
NOX_API(void) MinIndx_8u(const Nox8u src[], Nox32u n, Nox8u* min, Nox32s* index);

/**
 * @brief Index form of MaxIndx_8u(): largest byte and its first place from the index on. Equal in all builds.
 * @param src     base of the bytes
 * @param srcIdx  index of the first one
 * @param n       number of elements, 0 or more
 * @param max     takes the largest
 * @param index   takes its place
 */
NOX_API(void) MaxIndx_8u_Idx(const Nox8u src[], int srcIdx, Nox32u n, Nox8u* max, Nox32s* index);

/**
 * @brief Another name of MaxIndx_8u_Idx(): delivers the largest byte, not the smallest. Equal in all builds.
 * @param src     base of the bytes
 * @param srcIdx  index of the first one
 * @param n       number of elements, 0 or more
 * @param min     takes the largest
 * @param index   takes its place
 */
NOX_API(void) MinIndx_8u_Idx(const Nox8u src[], int srcIdx, Nox32u n, Nox8u* min, Nox32s* index);

/**
 * @brief Smallest and largest byte and their first places; 255 and 0 at 0 of none. Equal in all builds.
 * @param src       array of @p n bytes
 * @param n         number of elements, 0 or more
 * @param min       takes the smallest
 * @param minIndex  takes its place
 * @param max       takes the largest
 * @param maxIndex  takes its place
 */
NOX_API(void) MaxMinIndx_8u(const Nox8u src[], Nox32u n, Nox8u* min, Nox32s* minIndex, Nox8u* max, Nox32s* maxIndex);

/**
 * @brief Widens elements by value. Equal in all builds.
 * @param src  array of @p n elements
 * @param dst  array of @p n elements
 * @param n    number of elements, 0 or more
 */
NOX_API(void) Convert_8u16s(const Nox8u src[], Nox16s dst[], Nox32u n);
/** @copydoc Convert_8u16s */
NOX_API(void) Convert_8u32s(const Nox8u src[], Nox32s dst[], Nox32u n);
/** @copydoc Convert_8u16s */
NOX_API(void) Convert_8u64f(const Nox8u src[], Nox64f dst[], Nox32u n);
/** @copydoc Convert_8u16s */
NOX_API(void) Convert_16s64f(const Nox16s src[], Nox64f dst[], Nox32u n);

/**
 * @brief Narrows elements to bytes, cut to 0 ... 255. Equal in all builds.
 * @param src  array of @p n elements
 * @param dst  array of @p n elements; may be the source
 * @param n    number of elements, 0 or more
 */
NOX_API(void) Convert_16s8u(const Nox16s src[], Nox8u dst[], Nox32u n);
/** @copydoc Convert_16s8u */
NOX_API(void) Convert_32s8u(const Nox32s src[], Nox8u dst[], Nox32u n);

/**
 * @brief Rounds down: the largest integer not above; -0.0, infinities and NaN pass. Equal in all builds.
 * @param src  array of @p n elements
 * @param dst  array of @p n elements; may be the source
 * @param n    number of elements, 0 or more
 */
NOX_API(void) Floor(const Nox64f src[], Nox64f dst[], Nox32u n);

/**
 * @brief Rounds up: the smallest integer not below; -0.0, infinities and NaN pass. Equal in all builds.
 * @param src  array of @p n elements
 * @param dst  array of @p n elements; may be the source
 * @param n    number of elements, 0 or more
 */
NOX_API(void) Ceil(const Nox64f src[], Nox64f dst[], Nox32u n);

NOX_END_DECLS

#endif
