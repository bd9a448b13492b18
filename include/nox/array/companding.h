/* Companding of speech samples by the mu law and the A law of G.711, in index form.
 *
 * Real samples have the full scale 1. Encoding scales by 32767, decoding by 1/32768: a round trip isn't the identity.
 * Unlike elsewhere the length is checked before the pointers. */
#ifndef NOX_ARRAY_COMPANDING_H
#define NOX_ARRAY_COMPANDING_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Encodes samples by the mu law of G.711. Equal in all builds.
 *
 * Magnitudes are clipped at 32635. Real samples are clamped to -1 and 1, multiplied by 32767 and rounded, halves away
 * from zero; a NaN gives the code of 0. The sample -32768 gives 0x7F, a code near zero.
 *
 * @param pSrc    base of the source
 * @param srcIdx  index of its first element
 * @param pDst    base of the destination; must not overlap the source
 * @param dstIdx  index of its first element
 * @param len     number of elements
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null address; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsLinToMuLaw_16s8u_Idx(const Nox16s pSrc[], int srcIdx, Nox8u pDst[], int dstIdx, int len);
/** @copydoc noxsLinToMuLaw_16s8u_Idx */
NOX_API(NoxStatus) noxsLinToMuLaw_32f8u_Idx(const Nox32f pSrc[], int srcIdx, Nox8u pDst[], int dstIdx, int len);
/** @copydoc noxsLinToMuLaw_16s8u_Idx */
NOX_API(NoxStatus) noxsLinToMuLaw_64f8u_Idx(const Nox64f pSrc[], int srcIdx, Nox8u pDst[], int dstIdx, int len);

/**
 * @brief Decodes samples of the mu law of G.711, as multiples of 1/32768 where they are real. Equal in all builds.
 * @param pSrc    base of the source
 * @param srcIdx  index of its first element
 * @param pDst    base of the destination; must not overlap the source
 * @param dstIdx  index of its first element
 * @param len     number of elements
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null address; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMuLawToLin_8u16s_Idx(const Nox8u pSrc[], int srcIdx, Nox16s pDst[], int dstIdx, int len);
/** @copydoc noxsMuLawToLin_8u16s_Idx */
NOX_API(NoxStatus) noxsMuLawToLin_8u32f_Idx(const Nox8u pSrc[], int srcIdx, Nox32f pDst[], int dstIdx, int len);
/** @copydoc noxsMuLawToLin_8u16s_Idx */
NOX_API(NoxStatus) noxsMuLawToLin_8u64f_Idx(const Nox8u pSrc[], int srcIdx, Nox64f pDst[], int dstIdx, int len);

/**
 * @brief Encodes samples by the A law of G.711. Equal in all builds.
 *
 * Magnitudes are clipped at 32635. Real samples are clamped to -1 and 1, multiplied by 32767 and rounded, halves away
 * from zero; a NaN gives the code of 0. The sample -32768 gives 0x55, a code near zero.
 *
 * @param pSrc    base of the source
 * @param srcIdx  index of its first element
 * @param pDst    base of the destination; must not overlap the source
 * @param dstIdx  index of its first element
 * @param len     number of elements
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null address; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsLinToALaw_16s8u_Idx(const Nox16s pSrc[], int srcIdx, Nox8u pDst[], int dstIdx, int len);
/** @copydoc noxsLinToALaw_16s8u_Idx */
NOX_API(NoxStatus) noxsLinToALaw_32f8u_Idx(const Nox32f pSrc[], int srcIdx, Nox8u pDst[], int dstIdx, int len);
/** @copydoc noxsLinToALaw_16s8u_Idx */
NOX_API(NoxStatus) noxsLinToALaw_64f8u_Idx(const Nox64f pSrc[], int srcIdx, Nox8u pDst[], int dstIdx, int len);

/**
 * @brief Decodes samples of the A law of G.711, as multiples of 1/32768 where they are real. Equal in all builds.
 * @param pSrc    base of the source
 * @param srcIdx  index of its first element
 * @param pDst    base of the destination; must not overlap the source
 * @param dstIdx  index of its first element
 * @param len     number of elements
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null address; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsALawToLin_8u16s_Idx(const Nox8u pSrc[], int srcIdx, Nox16s pDst[], int dstIdx, int len);
/** @copydoc noxsALawToLin_8u16s_Idx */
NOX_API(NoxStatus) noxsALawToLin_8u32f_Idx(const Nox8u pSrc[], int srcIdx, Nox32f pDst[], int dstIdx, int len);
/** @copydoc noxsALawToLin_8u16s_Idx */
NOX_API(NoxStatus) noxsALawToLin_8u64f_Idx(const Nox8u pSrc[], int srcIdx, Nox64f pDst[], int dstIdx, int len);

NOX_END_DECLS

#endif
