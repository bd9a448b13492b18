/* One value of the spectrum of an array, at any relative frequency, by the Goertzel recurrence. */
#ifndef NOX_TRANSFORM_GOERTZEL_H
#define NOX_TRANSFORM_GOERTZEL_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Spectral value: the sum over n < len of `pSrc[n] * exp(2 pi j rFreq (len - n))`.
 *
 * Where `len * rFreq` is a whole number this is the value of the discrete Fourier transform at that bin; elsewhere it
 * is that sum times `exp(2 pi j rFreq len)`. With `phi = 2 pi rFreq`, `s1 = s2 = 0` and, for each element x in order,
 * `t = x - s2, s2 = s1, s1 = s1 * 2 cos(phi) + t`, the result is `exp(j phi) * s1 - s2`.
 *
 * The steps run strictly in this order in every build. The h9 build fuses the multiply and add of a step, so its last
 * bits differ from those of the other four, which agree. Errors grow with the length, most where rFreq is near 0, 0.5
 * or 1: there the recurrence itself grows before its terms cancel.
 *
 * @param pSrc   array of @p len elements, at any alignment
 * @param len    number of elements
 * @param pVal   takes the value
 * @param rFreq  frequency relative to the sampling rate, from 0 to below 1; a NaN passes and gives NaN
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsRelFreqErr for
 *         @p rFreq below 0 or not below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsGoertz_64f(const Nox64f pSrc[], int len, Nox64fc* pVal, Nox64f rFreq);
/** @copydoc noxsGoertz_64f */
NOX_API(NoxStatus) noxsGoertz_64fc(const Nox64fc pSrc[], int len, Nox64fc* pVal, Nox64f rFreq);

NOX_END_DECLS

#endif
