/* Filters: single-rate and multi-rate FIR; convolution and correlation; the sliding median. */
#ifndef NOX_FILTER_H
#define NOX_FILTER_H

#include "nox/filter/codes.h"
#include "nox/filter/convolution.h"
#include "nox/filter/correlation.h"
#include "nox/filter/fir.h"
#include "nox/filter/median.h"
#include "nox/filter/multirate.h"

#endif
