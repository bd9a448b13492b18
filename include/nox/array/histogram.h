/* Histograms: counts and sums in bins.
 *
 * They return no status and test nothing; indexes are trusted. Bins are added to and never cleared. Equal in all
 * builds. */
#ifndef NOX_ARRAY_HISTOGRAM_H
#define NOX_ARRAY_HISTOGRAM_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Counts elements in bins: 1 is added to `bins[(src[k] - offset) * scale]`. Equal in all builds.
 *
 * The bin's number is cut toward zero to a signed 32-bit integer, then to 0 ... binCount - 1. A value that fits no such
 * integer, and a NaN, go to bin 0, however large.
 *
 * @param src       array of @p n elements
 * @param scale     bins per unit
 * @param offset    value at which bin 0 begins
 * @param bins      the bins, added to and never cleared; must not overlap the source
 * @param binCount  number of bins; below 1 there is no cut, and every bin must be known to exist
 * @param n         number of elements, 0 or more
 */
NOX_API(void) HistogramCount(const Nox64f src[], Nox64f scale, Nox64f offset, Nox32u bins[], Nox32s binCount, Nox32u n);
/**
 * @brief Sums elements in bins: `src[k]` is added to `bins[(src[k] - offset) * scale]`, in their order. Equal in all
 * builds.
 * @see HistogramCount()
 */
NOX_API(void) HistogramSum(const Nox64f src[], Nox64f scale, Nox64f offset, Nox64f bins[], Nox32s binCount, Nox32u n);

/**
 * @brief Counts indexes: `bins[indexes[k]] += 1`. Equal in all builds.
 * @param indexes  array of @p n bin numbers, from 0
 * @param bins     the counts; must not overlap the indexes
 * @param n        number of elements, 0 or more
 */
NOX_API(void) HistoCount(const Nox32u indexes[], Nox32u bins[], Nox32u n);

/**
 * @brief Sums values by index: `sums[indexes[k]] += values[k]`, in their order. Equal in all builds.
 * @param indexes  array of @p n bin numbers, from 0
 * @param values   array of @p n values
 * @param sums     the sums; must not overlap the other arrays
 * @param n        number of elements, 0 or more
 */
NOX_API(void) HistoSum(const Nox32u indexes[], const Nox64f values[], Nox64f sums[], Nox32u n);

NOX_END_DECLS

#endif
