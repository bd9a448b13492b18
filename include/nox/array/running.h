/* Running sums, ramps, products, and movers of complex elements.
 *
 * They return no status and test nothing. Integer sums wrap at the width of their type. Where arrays overlap other than
 * by being the same, elements are computed and written one after the other from index 0 on. Equal in all builds. */
#ifndef NOX_ARRAY_RUNNING_H
#define NOX_ARRAY_RUNNING_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Running sum: `dst[k] = dst[k - 1] + src[k]`, strictly in this order. Equal in all builds.
 * @param src  array of @p n elements
 * @param dst  array of @p n elements; may be the source
 * @param n    number of elements, 0 or more
 */
NOX_API(void) CumSum(const Nox64f src[], Nox64f dst[], Nox32u n);
/** @copydoc CumSum */
NOX_API(void) CumSumc(const Nox64fc src[], Nox64fc dst[], Nox32u n);
/** @copydoc CumSum */
NOX_API(void) CumSum_8u(const Nox8u src[], Nox8u dst[], Nox32u n);
/** @copydoc CumSum */
NOX_API(void) CumSum_16s(const Nox16s src[], Nox16s dst[], Nox32u n);
/** @copydoc CumSum */
NOX_API(void) CumSum_32s(const Nox32s src[], Nox32s dst[], Nox32u n);

/**
 * @brief Running sum with a lag: `dst[k] = src[k] + dst[k - delta]`, which gives delta interleaved sums. Equal in all
 * builds.
 *
 * The first @p delta elements are copied, also where there are more of them than @p n. A delta of 0 adds the source to
 * what the destination holds.
 *
 * @param src  array of @p n elements
 * @param dst  array of @p n elements; may be the source
 * @param n    number of elements, 0 or more
 * @param delta  the lag in elements
 */
NOX_API(void) CumSumDelta(const Nox64f src[], Nox64f dst[], Nox32u n, Nox32u delta);
/** @copydoc CumSumDelta */
NOX_API(void) CumSumDeltac(const Nox64fc src[], Nox64fc dst[], Nox32u n, Nox32u delta);
/** @copydoc CumSumDelta */
NOX_API(void) CumSumDelta_8u(const Nox8u src[], Nox8u dst[], Nox32u n, Nox32u delta);
/** @copydoc CumSumDelta */
NOX_API(void) CumSumDelta_16s(const Nox16s src[], Nox16s dst[], Nox32u n, Nox32u delta);
/** @copydoc CumSumDelta */
NOX_API(void) CumSumDelta_32s(const Nox32s src[], Nox32s dst[], Nox32u n, Nox32u delta);

/**
 * @brief Ramp: `dst[k] = offset + k * step`, each element from its own position. Equal in all builds.
 * @param dst     array of @p n elements
 * @param n       number of elements, 0 or more
 * @param offset  first value
 * @param step    difference of neighbours
 */
NOX_API(void) Rampd(Nox64f dst[], Nox32u n, Nox64f offset, Nox64f step);

/**
 * @brief Complex ramp: Rampd() part by part, with offset and step by pointer. Equal in all builds.
 * @param dst     array of @p n elements
 * @param n       number of elements, 0 or more
 * @param offset  first value
 * @param step    difference of neighbours
 */
NOX_API(void) Rampc(Nox64fc dst[], Nox32u n, const Nox64fc* offset, const Nox64fc* step);

/**
 * @brief Product of all elements, 1.0 of none. Equal in all builds; the order of the factors isn't promised.
 * @param src      array of @p n elements
 * @param n        number of elements, 0 or more
 * @param product  takes the product
 */
NOX_API(void) Product(const Nox64f src[], Nox32u n, Nox64f* product);

/**
 * @brief Complex product of all elements in their order, (1.0, 0.0) of none. Equal in all builds.
 * @param src      array of @p n elements
 * @param n        number of elements, 0 or more
 * @param product  takes the product
 */
NOX_API(void) Productc(const Nox64fc src[], Nox32u n, Nox64fc* product);

/**
 * @brief Exchanges the parts of each element: `dst.re = src.im`, `dst.im = src.re`; doesn't reverse the array. Equal in
 * all builds.
 * @param src  array of @p n elements
 * @param dst  array of @p n elements; may be the source
 * @param n    number of elements, 0 or more
 */
NOX_API(void) Flip(const Nox64fc src[], Nox64fc dst[], Nox32u n);
/**
 * @brief Exchanges the parts of each element and flips the sign bit of the new imaginary part. Equal in all builds.
 * @see Flip()
 */
NOX_API(void) FlipConj(const Nox64fc src[], Nox64fc dst[], Nox32u n);

/**
 * @brief Reverses the order of complex elements: `dst[n - 1 - k] = src[k]`. Equal in all builds.
 * @param src  array of @p n elements
 * @param dst  array of @p n elements; may be the source, no other overlap
 * @param n    number of elements, 0 or more
 */
NOX_API(void) Reverse(const Nox64fc src[], Nox64fc dst[], Nox32u n);

NOX_END_DECLS

#endif
