/* Statistics, ordering and selection: thresholds and sorting. */
#ifndef NOX_STATS_H
#define NOX_STATS_H

#include "nox/stats/sort.h"
#include "nox/stats/threshold.h"

#endif
