/* The whole interface of the library: includes every other header. */
#ifndef NOX_NOX_H
#define NOX_NOX_H

#include "nox/adapters.h"
#include "nox/array.h"
#include "nox/core.h"
#include "nox/filter.h"
#include "nox/generate.h"
#include "nox/image.h"
#include "nox/index.h"
#include "nox/stats.h"
#include "nox/status.h"
#include "nox/transform.h"
#include "nox/types.h"
#include "nox/vector.h"

#endif
