/* Dispatched primitives without an export of their own: each has a row in the dispatch table and is reached by its
 * index form alone. Declared here with NOX_INTERNAL(result) exactly as a public header declares with NOX_API. */
#ifndef NOX_CORE_INTERNAL_H
#define NOX_CORE_INTERNAL_H

#include "nox/types.h"

#define NOX_INTERNAL(type) __attribute__((visibility("hidden"))) extern type

#endif
