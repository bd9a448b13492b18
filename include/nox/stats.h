/* Statistics, ordering and selection: sums, norms, extrema, thresholds, sorting. */
#ifndef NOX_STATS_H
#define NOX_STATS_H

#include "nox/stats/extrema.h"
#include "nox/stats/norm.h"
#include "nox/stats/sort.h"
#include "nox/stats/sum.h"
#include "nox/stats/threshold.h"

#endif
