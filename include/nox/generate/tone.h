/* Ramps and the chirp for test signals. Tones and triangle waves are reached by their index forms alone. */
#ifndef NOX_GENERATE_TONE_H
#define NOX_GENERATE_TONE_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Fills an array with a ramp: `pDst[k] = offset + slope * k`.
 *
 * Elements before the first 16-byte boundary are computed directly; from there on eight chains add 8 slope at a time,
 * so that rounding adds up and results may differ between addresses in their last bits. Equal in all builds.
 *
 * @param pDst    array of @p len elements
 * @param len     number of elements
 * @param offset  value of the first element
 * @param slope   what each element adds
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsVectorSlope_64f(Nox64f pDst[], int len, Nox64f offset, Nox64f slope);
/** @copydoc noxsVectorSlope_64f */
NOX_API(NoxStatus) noxsVectorSlope_32f(Nox32f pDst[], int len, Nox32f offset, Nox32f slope);

/**
 * @brief Fills an array with an integer ramp: `offset + slope * k`, rounded half away from zero and saturated.
 *
 * Computed in double. The positions where the line crosses the bounds of the type follow from `1 / slope` in single
 * precision, and what lies beyond is filled with the bound: where a crossing is millions of elements away, the fill may
 * begin early by a part in 2^24 of that. Equal in all builds.
 *
 * @param pDst    array of @p len elements
 * @param len     number of elements
 * @param offset  value of the first element; not a NaN
 * @param slope   what each element adds; not a NaN
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsVectorSlope_32s(Nox32s pDst[], int len, Nox64f offset, Nox64f slope);
/** @copydoc noxsVectorSlope_32s */
NOX_API(NoxStatus) noxsVectorSlope_16s(Nox16s pDst[], int len, Nox32f offset, Nox32f slope);
/** @copydoc noxsVectorSlope_32s */
NOX_API(NoxStatus) noxsVectorSlope_8u(Nox8u pDst[], int len, Nox32f offset, Nox32f slope);

/**
 * @brief Fills an array with the Jaehne signal: `pDst[k] = magn * sin((pi / 2) k^2 / len)`; a single element is 0.
 *
 * Each angle is computed directly, in rounded steps, and may be large: at its end the signal is off by up to
 * 7e-16 len magn. Builds may differ in the last place. Integers are rounded to nearest, ties to even, whatever
 * rounding mode the thread is in.
 *
 * @param pDst  array of @p len elements
 * @param len   number of elements
 * @param magn  magnitude, not below 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsJaehneErr for
 *   @p magn below 0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsVectorJaehne_64f(Nox64f pDst[], int len, Nox64f magn);
/** @copydoc noxsVectorJaehne_64f */
NOX_API(NoxStatus) noxsVectorJaehne_32s(Nox32s pDst[], int len, Nox32s magn);

NOX_END_DECLS

#endif
