/* Index forms that do more than forward: written by hand, each with a body of its own.
 *
 * An index form takes every array as a base pointer and an element index, which may be negative; nothing tests the
 * sum. The index forms that only forward are in nox/index.h, made from the declarations of their primitives. */
#ifndef NOX_ADAPTERS_H
#define NOX_ADAPTERS_H

#include "nox/adapters/median.h"
#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Sets elements like noxsSet_64f(), but a length below 1 is no error and no pointer is tested.
 * @param val     the value
 * @param pDst    base of the array; a null one with a positive length faults
 * @param dstIdx  index of the first element to set
 * @param len     number of elements; below 1 nothing is done
 * @return ::noxStsNoErr always
 */
NOX_API(NoxStatus) noxsSet_64f_Idx(Nox64f val, Nox64f pDst[], int dstIdx, int len);

/**
 * @brief Index form of the noxsMove functions: long arrays go in chunks whose byte counts fit in 31 bits.
 *
 * From 1024 elements on, chunks run forward from the first element, so a move between overlapping ranges is safe
 * only inside one chunk of 0x7FFFFFFF bytes.
 *
 * @param pSrc    base of the source
 * @param srcIdx  index of the first source element
 * @param pDst    base of the destination
 * @param dstIdx  index of the first destination element
 * @param len     number of elements
 * @return the status of the last chunk: ::noxStsNullPtrErr for a null address, then ::noxStsSizeErr for @p len below
 *         1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMove_8u_Idx(const Nox8u pSrc[], int srcIdx, Nox8u pDst[], int dstIdx, int len);
/** @copydoc noxsMove_8u_Idx */
NOX_API(NoxStatus) noxsMove_16s_Idx(const Nox16s pSrc[], int srcIdx, Nox16s pDst[], int dstIdx, int len);
/** @copydoc noxsMove_8u_Idx */
NOX_API(NoxStatus) noxsMove_16sc_Idx(const Nox16sc pSrc[], int srcIdx, Nox16sc pDst[], int dstIdx, int len);
/** @copydoc noxsMove_8u_Idx */
NOX_API(NoxStatus) noxsMove_32s_Idx(const Nox32s pSrc[], int srcIdx, Nox32s pDst[], int dstIdx, int len);
/** @copydoc noxsMove_8u_Idx */
NOX_API(NoxStatus) noxsMove_32f_Idx(const Nox32f pSrc[], int srcIdx, Nox32f pDst[], int dstIdx, int len);
/** @copydoc noxsMove_8u_Idx */
NOX_API(NoxStatus) noxsMove_32sc_Idx(const Nox32sc pSrc[], int srcIdx, Nox32sc pDst[], int dstIdx, int len);
/** @copydoc noxsMove_8u_Idx */
NOX_API(NoxStatus) noxsMove_32fc_Idx(const Nox32fc pSrc[], int srcIdx, Nox32fc pDst[], int dstIdx, int len);
/** @copydoc noxsMove_8u_Idx */
NOX_API(NoxStatus) noxsMove_64s_Idx(const Nox64s pSrc[], int srcIdx, Nox64s pDst[], int dstIdx, int len);
/** @copydoc noxsMove_8u_Idx */
NOX_API(NoxStatus) noxsMove_64f_Idx(const Nox64f pSrc[], int srcIdx, Nox64f pDst[], int dstIdx, int len);
/** @copydoc noxsMove_8u_Idx */
NOX_API(NoxStatus) noxsMove_64sc_Idx(const Nox64sc pSrc[], int srcIdx, Nox64sc pDst[], int dstIdx, int len);
/** @copydoc noxsMove_8u_Idx */
NOX_API(NoxStatus) noxsMove_64fc_Idx(const Nox64fc pSrc[], int srcIdx, Nox64fc pDst[], int dstIdx, int len);

/**
 * @brief Makes the handle of a one-call FIR filter: spec, work buffer and cleared delay lines.
 *
 * Memory comes from the process heap and from the aligned allocator. Allocations are not tested: a process that is
 * out of memory faults here.
 *
 * @param pTaps     base of the taps
 * @param tapsIdx   index of the first tap
 * @param tapsLen   number of taps, at least 1
 * @param algType   a value of ::NoxAlgType
 * @param ppHandle  takes the handle, whatever the status; give it to noxsFIRSRFree_Idx() in every case
 * @return the status of the Init: ::noxStsSizeErr, ::noxStsNullPtrErr, ::noxStsAlgTypeErr or ::noxStsNoErr; a handle
 *         that came with an error must not be run
 */
NOX_API(NoxStatus)
noxsFIRSRInitAlloc_64f_Idx(const Nox64f pTaps[], int tapsIdx, int tapsLen, int algType, NoxFilterHandle** ppHandle);
/** @copydoc noxsFIRSRInitAlloc_64f_Idx */
NOX_API(NoxStatus)
noxsFIRSRInitAlloc_64fc_Idx(const Nox64fc pTaps[], int tapsIdx, int tapsLen, int algType, NoxFilterHandle** ppHandle);

/**
 * @brief Filters the next block of a stream; the handle carries the past samples from call to call.
 * @param pSrc     base of the source
 * @param srcIdx   index of the first sample
 * @param pDst     base of the destination
 * @param dstIdx   index of the first output
 * @param len      number of samples
 * @param pHandle  handle of noxsFIRSRInitAlloc of the same type; one call at a time
 * @return ::noxStsNullPtrErr for a null address, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsFIRSR_64f_Idx(const Nox64f pSrc[], int srcIdx, Nox64f pDst[], int dstIdx, int len, NoxFilterHandle* pHandle);
/** @copydoc noxsFIRSR_64f_Idx */
NOX_API(NoxStatus)
noxsFIRSR_64fc_Idx(const Nox64fc pSrc[], int srcIdx, Nox64fc pDst[], int dstIdx, int len, NoxFilterHandle* pHandle);

/**
 * @brief Filters the next block of a stream in place, like noxsFIRSR_64f_Idx().
 * @param pSrcDst    base of the array
 * @param srcDstIdx  index of the first sample, overwritten by the first output
 * @param len        number of samples
 * @param pHandle    handle of noxsFIRSRInitAlloc of the same type; one call at a time
 * @return ::noxStsNullPtrErr for a null address, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsFIRSR_64f_I_Idx(Nox64f pSrcDst[], int srcDstIdx, int len, NoxFilterHandle* pHandle);
/** @copydoc noxsFIRSR_64f_I_Idx */
NOX_API(NoxStatus) noxsFIRSR_64fc_I_Idx(Nox64fc pSrcDst[], int srcDstIdx, int len, NoxFilterHandle* pHandle);

/**
 * @brief Frees a handle of noxsFIRSRInitAlloc with all that belongs to it.
 * @param pHandle  the handle, or null, which is ignored
 */
NOX_API(void) noxsFIRSRFree_Idx(NoxFilterHandle* pHandle);

/**
 * @brief Makes the handle of a one-call multi-rate FIR filter, like noxsFIRSRInitAlloc_64f_Idx().
 * @param pTaps       base of the taps
 * @param tapsIdx     index of the first tap
 * @param tapsLen     number of taps, at least 1
 * @param upFactor    outputs per iteration, at least 1
 * @param upPhase     place of an input among the upFactor places it opens
 * @param downFactor  inputs per iteration, at least 1
 * @param downPhase   place of an output among the downFactor places it stands for
 * @param ppHandle    takes the handle, whatever the status; give it to noxsFIRMRFree_Idx() in every case
 * @return the status of noxsFIRMRInit_64f(); a handle that came with an error must not be run
 */
NOX_API(NoxStatus)
noxsFIRMRInitAlloc_64f_Idx(const Nox64f pTaps[], int tapsIdx, int tapsLen, int upFactor, int upPhase, int downFactor,
                           int downPhase, NoxFilterHandle** ppHandle);
/** @copydoc noxsFIRMRInitAlloc_64f_Idx */
NOX_API(NoxStatus)
noxsFIRMRInitAlloc_64fc_Idx(const Nox64fc pTaps[], int tapsIdx, int tapsLen, int upFactor, int upPhase, int downFactor,
                            int downPhase, NoxFilterHandle** ppHandle);

/**
 * @brief Filters the next block of a stream and changes its rate; the handle carries the past samples.
 * @param pSrc     base of the source
 * @param srcIdx   index of the first sample
 * @param pDst     base of the destination
 * @param dstIdx   index of the first output
 * @param len      number of iterations, each of downFactor samples and upFactor outputs
 * @param pHandle  handle of noxsFIRMRInitAlloc of the same type; one call at a time
 * @return ::noxStsNullPtrErr for a null address, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsFIRMR_64f_Idx(const Nox64f pSrc[], int srcIdx, Nox64f pDst[], int dstIdx, int len, NoxFilterHandle* pHandle);
/** @copydoc noxsFIRMR_64f_Idx */
NOX_API(NoxStatus)
noxsFIRMR_64fc_Idx(const Nox64fc pSrc[], int srcIdx, Nox64fc pDst[], int dstIdx, int len, NoxFilterHandle* pHandle);

/**
 * @brief Filters the next block of a stream in place, like noxsFIRMR_64f_Idx().
 * @param pSrcDst    base of an array with room for the samples and for the outputs
 * @param srcDstIdx  index of the first sample, overwritten by the first output
 * @param len        number of iterations
 * @param pHandle    handle of noxsFIRMRInitAlloc of the same type; one call at a time
 * @return ::noxStsNullPtrErr for a null address, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsFIRMR_64f_I_Idx(Nox64f pSrcDst[], int srcDstIdx, int len, NoxFilterHandle* pHandle);
/** @copydoc noxsFIRMR_64f_I_Idx */
NOX_API(NoxStatus) noxsFIRMR_64fc_I_Idx(Nox64fc pSrcDst[], int srcDstIdx, int len, NoxFilterHandle* pHandle);

/**
 * @brief Frees a handle of noxsFIRMRInitAlloc with all that belongs to it.
 * @param pHandle  the handle, or null, which is ignored
 */
NOX_API(void) noxsFIRMRFree_Idx(NoxFilterHandle* pHandle);

/**
 * @brief Filters one sample like noxsFIRSR_64f(), with a spec and delay lines of the caller's, which may be in place.
 * @param val         the sample
 * @param pDstVal     takes the output
 * @param pSpec       spec of noxsFIRSRInit of the same type
 * @param pDlySrc     base of the delay line read; null for zeros, whatever the index
 * @param dlySrcIdx   index of its first element
 * @param pDlyDst     base of the delay line written; null if not wanted, whatever the index
 * @param dlyDstIdx   index of its first element
 * @param pBuf        base of the work buffer
 * @param bufIdx      offset into the work buffer, in bytes
 * @return ::noxStsNullPtrErr for a null pSpec, pDstVal or pBuf, otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsFIROne_64f_Idx(Nox64f val, Nox64f* pDstVal, const NoxFirSpec* pSpec, NOX_NULLABLE const Nox64f pDlySrc[],
                   int dlySrcIdx, NOX_NULLABLE Nox64f pDlyDst[], int dlyDstIdx, NOX_NULLABLE Nox8u pBuf[], int bufIdx);
/** @copydoc noxsFIROne_64f_Idx */
NOX_API(NoxStatus)
noxsFIROne_64fc_Idx(Nox64fc val, Nox64fc* pDstVal, const NoxFirSpec* pSpec, NOX_NULLABLE const Nox64fc pDlySrc[],
                    int dlySrcIdx, NOX_NULLABLE Nox64fc pDlyDst[], int dlyDstIdx, NOX_NULLABLE Nox8u pBuf[],
                    int bufIdx);

/**
 * @brief Filters one sample of a stream, like noxsIIR_64f(); the state's delay line moves on.
 * @param val      the sample
 * @param pDstVal  takes the output
 * @param pState   state of an Init function of the same type
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsContextMatchErr for what is no state of this type;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsIIROne_64f_Idx(Nox64f val, Nox64f* pDstVal, NoxIIRState* pState);
/** @copydoc noxsIIROne_64f_Idx */
NOX_API(NoxStatus) noxsIIROne_64fc_Idx(Nox64fc val, Nox64fc* pDstVal, NoxIIRState* pState);

/**
 * @brief Two spectral values of one array, as by noxsGoertz_64f(): at pFreqs[0] into pVal[0], at pFreqs[1] into
 * pVal[1].
 * @param pSrc    base of the source
 * @param srcIdx  index of the first element
 * @param len     number of elements
 * @param pVal    takes the two values; one whose frequency is refused stays as it was
 * @param pFreqs  the two frequencies relative to the sampling rate, each from 0 to below 1
 * @return the status of the second value alone, so a refused pFreqs[0] goes unnoticed: ::noxStsNullPtrErr for a null
 *         address or pFreqs, then ::noxStsSizeErr for @p len below 1, then ::noxStsRelFreqErr for pFreqs[1] below 0 or
 *         not below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsGoertzTwo_64f_Idx(const Nox64f pSrc[], int srcIdx, int len, Nox64fc* pVal, const Nox64f* pFreqs);
/** @copydoc noxsGoertzTwo_64f_Idx */
NOX_API(NoxStatus)
noxsGoertzTwo_64fc_Idx(const Nox64fc pSrc[], int srcIdx, int len, Nox64fc* pVal, const Nox64f* pFreqs);

/**
 * @brief Makes a handle for cosine transforms of one length; free it with noxsDCTFree_64f_Idx().
 * @param ppHandle  takes the handle; left alone on an error
 * @param len       number of elements, at least 1
 * @param hint      stored, without effect
 * @return the status of the size query, with nothing allocated, or that of the Init, with all freed again
 */
NOX_API(NoxStatus) noxsDCTFwdInitAlloc_64f_Idx(NoxDctHandle** ppHandle, int len, int hint);
/** @copydoc noxsDCTFwdInitAlloc_64f_Idx */
NOX_API(NoxStatus) noxsDCTInvInitAlloc_64f_Idx(NoxDctHandle** ppHandle, int len, int hint);

/**
 * @brief Transforms like noxsDCTFwd_64f() or noxsDCTInv_64f(), with spec and work buffer of the handle.
 * @param pSrc     base of the source
 * @param srcIdx   index of its first element
 * @param pDst     base of the destination
 * @param dstIdx   index of its first element
 * @param pHandle  handle of the InitAlloc of the same direction; one call at a time
 * @return ::noxStsNullPtrErr for a null address, then ::noxStsContextMatchErr for a handle of the other direction;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsDCTFwd_64f_Idx(const Nox64f pSrc[], int srcIdx, Nox64f pDst[], int dstIdx, NoxDctHandle* pHandle);
/** @copydoc noxsDCTFwd_64f_Idx */
NOX_API(NoxStatus)
noxsDCTInv_64f_Idx(const Nox64f pSrc[], int srcIdx, Nox64f pDst[], int dstIdx, NoxDctHandle* pHandle);

/**
 * @brief Transforms in place, like noxsDCTFwd_64f_Idx().
 * @param pSrcDst    base of the array
 * @param srcDstIdx  index of its first element
 * @param pHandle    handle of the InitAlloc of the same direction; one call at a time
 * @return as noxsDCTFwd_64f_Idx()
 */
NOX_API(NoxStatus) noxsDCTFwd_64f_I_Idx(Nox64f pSrcDst[], int srcDstIdx, NoxDctHandle* pHandle);
/** @copydoc noxsDCTFwd_64f_I_Idx */
NOX_API(NoxStatus) noxsDCTInv_64f_I_Idx(Nox64f pSrcDst[], int srcDstIdx, NoxDctHandle* pHandle);

/**
 * @brief Frees a handle of noxsDCTFwdInitAlloc_64f_Idx() or noxsDCTInvInitAlloc_64f_Idx() with all that belongs to it.
 * @param pHandle  the handle, or null, which is ignored
 */
NOX_API(void) noxsDCTFree_64f_Idx(NoxDctHandle* pHandle);

/**
 * @brief Fills an array like noxsRandGauss_64f(), from a stream started for this call alone.
 * @param pDst    base of the destination
 * @param dstIdx  index of its first element
 * @param len     number of elements
 * @param mean    mean of the values
 * @param stdDev  their standard deviation
 * @param pSeed   the seed, which is read and not changed: the same one gives the same values again
 * @return ::noxStsNullPtrErr for a null pSeed or address, or where there is no memory for the record, then
 *         ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsRandGauss_Direct_64f_Idx(Nox64f pDst[], int dstIdx, int len, Nox64f mean, Nox64f stdDev, const unsigned int* pSeed);

/**
 * @brief Fills an array like noxsRandUniform_64f(), from a stream started for this call alone.
 * @param pDst    base of the destination
 * @param dstIdx  index of its first element
 * @param len     number of elements
 * @param low     lower end of the range
 * @param high    upper end of the range
 * @param pSeed   the seed, which is read and not changed: the same one gives the same values again
 * @return as noxsRandGauss_Direct_64f_Idx()
 */
NOX_API(NoxStatus)
noxsRandUniform_Direct_64f_Idx(Nox64f pDst[], int dstIdx, int len, Nox64f low, Nox64f high, const unsigned int* pSeed);

NOX_END_DECLS

#endif
