/* The array layer: functions that return no status and test nothing, with the same results on all processors.
 *
 * A bad address faults; the accessors serve hosts that can't read through an address themselves. */
#ifndef NOX_ARRAY_H
#define NOX_ARRAY_H

#include "nox/array/bytes.h"
#include "nox/array/companding.h"
#include "nox/array/every.h"
#include "nox/array/histogram.h"
#include "nox/array/matrix.h"
#include "nox/array/neighbours.h"
#include "nox/array/pack.h"
#include "nox/array/quotient.h"
#include "nox/array/running.h"
#include "nox/array/search.h"
#include "nox/array/sign.h"
#include "nox/array/value.h"
#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Reads a real value: `*out = *p`.
 * @param p    address of the value, not tested
 * @param out  takes the value, bit for bit
 */
NOX_API(void) GetValFromPtr(const Nox64f* p, Nox64f* out);

/**
 * @brief Reads a real value and returns it.
 * @param p  address of the value, not tested
 * @return the value; a signalling NaN may come back quiet, since the result passes through the x87 unit
 */
NOX_API(Nox64f) GetValFromPtrf(const Nox64f* p);

/**
 * @brief Reads an integer: `*out = *p`.
 * @param p    address of the value, not tested
 * @param out  takes the value
 */
NOX_API(void) GetValIFromPtr(const Nox32s* p, Nox32s* out);

/**
 * @brief Reads a complex value, `re` first, then `im`.
 * @param p    address of the value, not tested
 * @param out  takes the value, bit for bit
 */
NOX_API(void) GetValcFromPtr(const Nox64fc* p, Nox64fc* out);

/**
 * @brief Writes a real value: `*p = val`.
 * @param p    address to write to, not tested
 * @param val  the value
 */
NOX_API(void) SetValToPtr(Nox64f* p, Nox64f val);

/**
 * @brief Writes an integer: `*p = val`.
 * @param p    address to write to, not tested
 * @param val  the value
 */
NOX_API(void) SetValIToPtr(Nox32s* p, Nox32s val);

/**
 * @brief Writes a complex value, `re` first, then `im`.
 * @param p  address to write to, not tested
 * @param v  address of the value: unlike the real form, the value comes by pointer
 */
NOX_API(void) SetValcToPtr(Nox64fc* p, const Nox64fc* v);

NOX_END_DECLS

#endif
