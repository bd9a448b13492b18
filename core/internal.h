/* Dispatched primitives without an export of their own: each has a row in the dispatch table and is reached by its
 * index form alone. Declared here with NOX_INTERNAL(result) exactly as a public header declares with NOX_API. */
#ifndef NOX_CORE_INTERNAL_H
#define NOX_CORE_INTERNAL_H

#include "nox/types.h"

#define NOX_INTERNAL(type) __attribute__((visibility("hidden"))) extern type

/* Normally distributed Nox64f values, for the one-call forms; described in nox/generate/random.h. */
NOX_INTERNAL(NoxStatus) noxsRandGaussGetSize_64f(int* pSize);
NOX_INTERNAL(NoxStatus)
noxsRandGaussInit_64f(NoxRandGaussState_64f* pState, Nox64f mean, Nox64f stdDev, unsigned int seed);

#endif
