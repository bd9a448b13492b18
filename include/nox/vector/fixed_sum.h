/* Scaled integer arithmetic on arrays: sums and differences.
 *
 * The exact result is multiplied by 2 to the power of minus `scaleFactor`, rounded to the nearest integer, an exact
 * half to the even neighbour, and cut to the range of the element: 0 to 255, -32768 to 32767, -2147483648 to
 * 2147483647. So 32767 + 32767 with a scale factor of 1 is 32767. Complex elements are scaled, rounded and cut part by
 * part. Results don't depend on the rounding mode of the calling thread, which is left as it was. Arrays may stand at
 * any address; those that overlap must be the same. */
#ifndef NOX_VECTOR_FIXED_SUM_H
#define NOX_VECTOR_FIXED_SUM_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Scaled sum: `pDst[i] = pSrc1[i] + pSrc2[i]`. Equal in all builds.
 * @param pSrc1        array of @p len elements
 * @param pSrc2        array of @p len elements
 * @param pDst         array of @p len elements; may be one of the sources
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAdd_8u_Sfs(const Nox8u pSrc1[], const Nox8u pSrc2[], Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsAdd_8u_Sfs */
NOX_API(NoxStatus) noxsAdd_16s_Sfs(const Nox16s pSrc1[], const Nox16s pSrc2[], Nox16s pDst[], int len, int scaleFactor);
/** @copydoc noxsAdd_8u_Sfs */
NOX_API(NoxStatus) noxsAdd_32s_Sfs(const Nox32s pSrc1[], const Nox32s pSrc2[], Nox32s pDst[], int len, int scaleFactor);
/**
 * @brief Scaled sum: `pDst[i] = pSrc1[i] + pSrc2[i]`. Equal in all builds.
 *
 * The length is looked at first, then the pointers.
 * @param pSrc1        array of @p len elements
 * @param pSrc2        array of @p len elements
 * @param pDst         array of @p len elements; may be one of the sources
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null pointer;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsAdd_32sc_Sfs(const Nox32sc pSrc1[], const Nox32sc pSrc2[], Nox32sc pDst[], int len, int scaleFactor);

/**
 * @brief Scaled sum in place: `pSrcDst[i] = pSrcDst[i] + pSrc[i]`. Equal in all builds.
 * @param pSrc         array of @p len elements
 * @param pSrcDst      array of @p len elements, overwritten by the result; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAdd_8u_ISfs(const Nox8u pSrc[], Nox8u pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsAdd_8u_ISfs */
NOX_API(NoxStatus) noxsAdd_16s_ISfs(const Nox16s pSrc[], Nox16s pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsAdd_8u_ISfs */
NOX_API(NoxStatus) noxsAdd_32s_ISfs(const Nox32s pSrc[], Nox32s pSrcDst[], int len, int scaleFactor);
/**
 * @brief Scaled sum in place: `pSrcDst[i] = pSrcDst[i] + pSrc[i]`. Equal in all builds.
 *
 * The length is looked at first, then the pointers.
 * @param pSrc         array of @p len elements
 * @param pSrcDst      array of @p len elements, overwritten by the result; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null pointer;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAdd_32sc_ISfs(const Nox32sc pSrc[], Nox32sc pSrcDst[], int len, int scaleFactor);

/**
 * @brief Scaled difference, second array minus first: `pDst[i] = pSrc2[i] - pSrc1[i]`. Equal in all builds.
 * @param pSrc1        array of @p len elements, subtracted
 * @param pSrc2        array of @p len elements, subtracted from
 * @param pDst         array of @p len elements; may be one of the sources
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSub_8u_Sfs(const Nox8u pSrc1[], const Nox8u pSrc2[], Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsSub_8u_Sfs */
NOX_API(NoxStatus) noxsSub_16s_Sfs(const Nox16s pSrc1[], const Nox16s pSrc2[], Nox16s pDst[], int len, int scaleFactor);
/** @copydoc noxsSub_8u_Sfs */
NOX_API(NoxStatus) noxsSub_32s_Sfs(const Nox32s pSrc1[], const Nox32s pSrc2[], Nox32s pDst[], int len, int scaleFactor);
/**
 * @brief Scaled difference, second array minus first: `pDst[i] = pSrc2[i] - pSrc1[i]`. Equal in all builds.
 *
 * The length is looked at first, then the pointers.
 * @param pSrc1        array of @p len elements, subtracted
 * @param pSrc2        array of @p len elements, subtracted from
 * @param pDst         array of @p len elements; may be one of the sources
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null pointer;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsSub_32sc_Sfs(const Nox32sc pSrc1[], const Nox32sc pSrc2[], Nox32sc pDst[], int len, int scaleFactor);

/**
 * @brief Scaled difference in place: `pSrcDst[i] = pSrcDst[i] - pSrc[i]`. Equal in all builds.
 * @param pSrc         array of @p len elements, subtracted
 * @param pSrcDst      array of @p len elements, subtracted from, overwritten by the result; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSub_8u_ISfs(const Nox8u pSrc[], Nox8u pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsSub_8u_ISfs */
NOX_API(NoxStatus) noxsSub_16s_ISfs(const Nox16s pSrc[], Nox16s pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsSub_8u_ISfs */
NOX_API(NoxStatus) noxsSub_32s_ISfs(const Nox32s pSrc[], Nox32s pSrcDst[], int len, int scaleFactor);
/**
 * @brief Scaled difference in place: `pSrcDst[i] = pSrcDst[i] - pSrc[i]`. Equal in all builds.
 *
 * The length is looked at first, then the pointers.
 * @param pSrc         array of @p len elements, subtracted
 * @param pSrcDst      array of @p len elements, subtracted from, overwritten by the result; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null pointer;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSub_32sc_ISfs(const Nox32sc pSrc[], Nox32sc pSrcDst[], int len, int scaleFactor);

/**
 * @brief Scaled sum with a constant: `pDst[i] = pSrc[i] + val`. Equal in all builds.
 * @param pSrc         array of @p len elements
 * @param val          the constant
 * @param pDst         array of @p len elements; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAddC_8u_Sfs(const Nox8u pSrc[], Nox8u val, Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsAddC_8u_Sfs */
NOX_API(NoxStatus) noxsAddC_16s_Sfs(const Nox16s pSrc[], Nox16s val, Nox16s pDst[], int len, int scaleFactor);
/** @copydoc noxsAddC_8u_Sfs */
NOX_API(NoxStatus) noxsAddC_32s_Sfs(const Nox32s pSrc[], Nox32s val, Nox32s pDst[], int len, int scaleFactor);
/** @copydoc noxsAddC_8u_Sfs */
NOX_API(NoxStatus) noxsAddC_32sc_Sfs(const Nox32sc pSrc[], Nox32sc val, Nox32sc pDst[], int len, int scaleFactor);

/**
 * @brief Scaled sum with a constant in place: `pSrcDst[i] = pSrcDst[i] + val`. Equal in all builds.
 * @param val          the constant
 * @param pSrcDst      array of @p len elements, overwritten by the result
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsAddC_8u_ISfs(Nox8u val, Nox8u pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsAddC_8u_ISfs */
NOX_API(NoxStatus) noxsAddC_16s_ISfs(Nox16s val, Nox16s pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsAddC_8u_ISfs */
NOX_API(NoxStatus) noxsAddC_32s_ISfs(Nox32s val, Nox32s pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsAddC_8u_ISfs */
NOX_API(NoxStatus) noxsAddC_32sc_ISfs(Nox32sc val, Nox32sc pSrcDst[], int len, int scaleFactor);

/**
 * @brief Scaled difference, element minus constant: `pDst[i] = pSrc[i] - val`. Equal in all builds.
 * @param pSrc         array of @p len elements
 * @param val          the constant
 * @param pDst         array of @p len elements; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSubC_8u_Sfs(const Nox8u pSrc[], Nox8u val, Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsSubC_8u_Sfs */
NOX_API(NoxStatus) noxsSubC_16s_Sfs(const Nox16s pSrc[], Nox16s val, Nox16s pDst[], int len, int scaleFactor);
/** @copydoc noxsSubC_8u_Sfs */
NOX_API(NoxStatus) noxsSubC_32s_Sfs(const Nox32s pSrc[], Nox32s val, Nox32s pDst[], int len, int scaleFactor);
/** @copydoc noxsSubC_8u_Sfs */
NOX_API(NoxStatus) noxsSubC_32sc_Sfs(const Nox32sc pSrc[], Nox32sc val, Nox32sc pDst[], int len, int scaleFactor);

/**
 * @brief Scaled difference in place, element minus constant: `pSrcDst[i] = pSrcDst[i] - val`. Equal in all builds.
 * @param val          the constant
 * @param pSrcDst      array of @p len elements, overwritten by the result
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSubC_8u_ISfs(Nox8u val, Nox8u pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsSubC_8u_ISfs */
NOX_API(NoxStatus) noxsSubC_16s_ISfs(Nox16s val, Nox16s pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsSubC_8u_ISfs */
NOX_API(NoxStatus) noxsSubC_32s_ISfs(Nox32s val, Nox32s pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsSubC_8u_ISfs */
NOX_API(NoxStatus) noxsSubC_32sc_ISfs(Nox32sc val, Nox32sc pSrcDst[], int len, int scaleFactor);

/**
 * @brief Scaled difference, constant minus element: `pDst[i] = val - pSrc[i]`. Equal in all builds.
 * @param pSrc         array of @p len elements
 * @param val          the constant
 * @param pDst         array of @p len elements; may be the source
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSubCRev_8u_Sfs(const Nox8u pSrc[], Nox8u val, Nox8u pDst[], int len, int scaleFactor);
/** @copydoc noxsSubCRev_8u_Sfs */
NOX_API(NoxStatus) noxsSubCRev_16s_Sfs(const Nox16s pSrc[], Nox16s val, Nox16s pDst[], int len, int scaleFactor);
/** @copydoc noxsSubCRev_8u_Sfs */
NOX_API(NoxStatus) noxsSubCRev_32s_Sfs(const Nox32s pSrc[], Nox32s val, Nox32s pDst[], int len, int scaleFactor);
/** @copydoc noxsSubCRev_8u_Sfs */
NOX_API(NoxStatus) noxsSubCRev_32sc_Sfs(const Nox32sc pSrc[], Nox32sc val, Nox32sc pDst[], int len, int scaleFactor);

/**
 * @brief Scaled difference in place, constant minus element: `pSrcDst[i] = val - pSrcDst[i]`. Equal in all builds.
 * @param val          the constant
 * @param pSrcDst      array of @p len elements, overwritten by the result
 * @param len          number of elements
 * @param scaleFactor  binary digits by which the result is scaled down, up where it is negative; any int
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1;
 *         otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsSubCRev_8u_ISfs(Nox8u val, Nox8u pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsSubCRev_8u_ISfs */
NOX_API(NoxStatus) noxsSubCRev_16s_ISfs(Nox16s val, Nox16s pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsSubCRev_8u_ISfs */
NOX_API(NoxStatus) noxsSubCRev_32s_ISfs(Nox32s val, Nox32s pSrcDst[], int len, int scaleFactor);
/** @copydoc noxsSubCRev_8u_ISfs */
NOX_API(NoxStatus) noxsSubCRev_32sc_ISfs(Nox32sc val, Nox32sc pSrcDst[], int len, int scaleFactor);

NOX_END_DECLS

#endif
