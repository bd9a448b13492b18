/* Recursive filters: one direct form of any order, and a cascade of second-order sections.
 *
 * A direct form of order n computes
 *
 *     a[0] y[i] = b[0] x[i] + ... + b[n] x[i - n] - a[1] y[i - 1] - ... - a[n] y[i - n],
 *
 * a cascade passes the output of each section, a direct form of order 2, to the next. State and signal memory are the
 * caller's: ask for the size, hand a buffer of that size to the Init function, filter, free the buffer. The state
 * carries the delay line, so consecutive calls continue one signal. It belongs to one stream: two threads must not
 * filter with it at the same time.
 *
 * The delay line is that of the transposed direct form II, d[0] to d[n - 1]: each sample x gives
 *
 *     y = b[0] x + d[0],   d[k] = b[k + 1] x - a[k + 1] y + d[k + 1],   d[n] = 0,
 *
 * with all taps divided by a[0]; a cascade has two elements a section, in the order of the sections. */
#ifndef NOX_FILTER_IIR_H
#define NOX_FILTER_IIR_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Bytes of the state of a direct form of order n, for the build in force.
 *
 * The size includes the slack for any base address. The AVX builds tell more than the others for orders up to 8.
 *
 * @param order       order of the filter, at least 1
 * @param pStateSize  takes the size in bytes
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsIIROrderErr for @p order below 1, or so high that the
 *         size would pass 2^31 - 1 bytes (some 29 million for real filters, 7 million for complex ones); otherwise
 *         ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsIIRGetStateSize_64f(int order, int* pStateSize);
/** @copydoc noxsIIRGetStateSize_64f */
NOX_API(NoxStatus) noxsIIRGetStateSize_64fc(int order, int* pStateSize);

/**
 * @brief Bytes of the state of a cascade of second-order sections. Equal in all builds.
 * @param numBq       number of sections, at least 1
 * @param pStateSize  takes the size in bytes; it includes the slack for any base address
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsIIROrderErr for @p numBq below 1, or so high that the
 *         size would pass 2^31 - 1 bytes (some 6 million for real filters, 1.8 million for complex ones); otherwise
 *         ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsIIRGetStateSize_BiQuad_64f(int numBq, int* pStateSize);
/** @copydoc noxsIIRGetStateSize_BiQuad_64f */
NOX_API(NoxStatus) noxsIIRGetStateSize_BiQuad_64fc(int numBq, int* pStateSize);

/**
 * @brief Builds the state of a direct form in the caller's memory.
 *
 * The taps are multiplied by the reciprocal of a[0]. A zero b[0] is fine; a NaN among the taps makes the outputs NaN.
 * The filter looks ahead by products of up to eight recursive taps, so divided taps of a magnitude that overflows
 * these, 10^38 and above, make NaN of what would be finite.
 *
 * @param ppState   takes the address of the state, inside @p pBuf; it is set even when a[0] is zero, but that state
 *                  must not be used
 * @param pTaps     2 (order + 1) taps, b[0] to b[order], then a[0] to a[order]; copied
 * @param order     order of the filter, at least 1
 * @param pDlyLine  the delay line to begin with, @p order elements, copied; null for zeros
 * @param pBuf      memory of the size noxsIIRGetStateSize_64f() told under the build in force, at any address; it
 *                  holds the state, and may hold an old one
 * @return ::noxStsNullPtrErr for a null ppState, pTaps or pBuf, then ::noxStsIIROrderErr for @p order below 1 or
 *         beyond what has a size, then ::noxStsDivByZeroErr for a zero a[0]; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsIIRInit_64f(NoxIIRState** ppState, const Nox64f pTaps[], int order, NOX_NULLABLE const Nox64f pDlyLine[],
                Nox8u* pBuf);
/** @copydoc noxsIIRInit_64f */
NOX_API(NoxStatus)
noxsIIRInit_64fc(NoxIIRState** ppState, const Nox64fc pTaps[], int order, NOX_NULLABLE const Nox64fc pDlyLine[],
                 Nox8u* pBuf);

/**
 * @brief Builds the state of a cascade of second-order sections in the caller's memory.
 *
 * Each section's taps are multiplied by the reciprocal of its a[0]; what noxsIIRInit_64f() says of NaN and of taps
 * beyond all measure holds here too. Unlike there, a section with a zero b[0] is refused.
 *
 * @param ppState   takes the address of the state, inside @p pBuf; it is set even when a tap is refused, but that state
 *                  must not be used
 * @param pTaps     six taps a section, b[0], b[1], b[2], a[0], a[1], a[2]; copied
 * @param numBq     number of sections, at least 1
 * @param pDlyLine  the delay line to begin with, two elements a section, copied; null for zeros
 * @param pBuf      memory of the size noxsIIRGetStateSize_BiQuad_64f() told, at any address; it holds the state, and
 *                  may hold an old one
 * @return ::noxStsNullPtrErr for a null ppState, pTaps or pBuf, then ::noxStsIIROrderErr for @p numBq below 1 or
 *         beyond what has a size, then ::noxStsDivByZeroErr for a zero a[0] or b[0]; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsIIRInit_BiQuad_64f(NoxIIRState** ppState, const Nox64f pTaps[], int numBq, NOX_NULLABLE const Nox64f pDlyLine[],
                       Nox8u* pBuf);
/** @copydoc noxsIIRInit_BiQuad_64f */
NOX_API(NoxStatus)
noxsIIRInit_BiQuad_64fc(NoxIIRState** ppState, const Nox64fc pTaps[], int numBq, NOX_NULLABLE const Nox64fc pDlyLine[],
                        Nox8u* pBuf);

/**
 * @brief Filters the next block of a stream by a direct form or a cascade, whichever the state is of.
 *
 * Samples are taken in chunks of at most 1024. A chunk of more than four times the order (or the number of sections)
 * is filtered by look-ahead, two to eight outputs at a time; a shorter one sample by sample. Both leave the same delay
 * line and differ in rounding alone, so a stream cut into blocks at any places gives the outputs of one call up to
 * rounding, as do the builds: an error of a few units of 2^-53 of the terms of each sum, carried on as the filter
 * carries on an input of that size. A NaN or an infinity doesn't reach the outputs before it. Overflow isn't reported:
 * an unstable filter runs to infinities and NaN.
 *
 * @param pSrc    @p len samples
 * @param pDst    @p len outputs; may be the source, no other overlap; in place gives the same bits
 * @param len     number of samples
 * @param pState  state of an Init function of the same type, made under the build in force; its delay line moves on
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsContextMatchErr
 *         for what is no state of this type; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsIIR_64f(const Nox64f pSrc[], Nox64f pDst[], int len, NoxIIRState* pState);
/** @copydoc noxsIIR_64f */
NOX_API(NoxStatus) noxsIIR_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len, NoxIIRState* pState);

/**
 * @brief Filters the next block of a stream in place, like noxsIIR_64f().
 * @param pSrcDst  @p len samples, overwritten by the outputs
 * @param len      number of samples
 * @param pState   state of an Init function of the same type, made under the build in force; its delay line moves on
 * @return as noxsIIR_64f()
 */
NOX_API(NoxStatus) noxsIIR_64f_I(Nox64f pSrcDst[], int len, NoxIIRState* pState);
/** @copydoc noxsIIR_64f_I */
NOX_API(NoxStatus) noxsIIR_64fc_I(Nox64fc pSrcDst[], int len, NoxIIRState* pState);

NOX_END_DECLS

#endif
