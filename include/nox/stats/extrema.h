/* Extrema: largest and smallest elements, magnitudes, their places, order of magnitude, count in a range.
 *
 * A place is the first, lowest index that holds the value. Integer results are equal in all builds. Nothing is written
 * on an error. */
#ifndef NOX_STATS_EXTREMA_H
#define NOX_STATS_EXTREMA_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Largest element. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMax  takes the value
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMax_16s(const Nox16s pSrc[], int len, Nox16s* pMax);
/** @copydoc noxsMax_16s */
NOX_API(NoxStatus) noxsMax_32s(const Nox32s pSrc[], int len, Nox32s* pMax);

/**
 * @brief Largest element of a real array.
 *
 * An element enters its lane as the processor's maximum (minimum) of lane and element: a NaN is replaced by the next
 * element of its lane, and near the end whether it shows depends on its place, the address and the build. Of zeros of
 * both signs the later wins. Equal in all builds for data without NaN, but for the sign of a zero.
 *
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMax  takes the value
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMax_64f(const Nox64f pSrc[], int len, Nox64f* pMax);

/**
 * @brief Largest element and its first place. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMax   takes the value
 * @param pIndx  takes the place; null if not wanted
 * @return ::noxStsNullPtrErr for a null pSrc or value pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 * ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMaxIndx_16s(const Nox16s pSrc[], int len, Nox16s* pMax, int* pIndx);
/** @copydoc noxsMaxIndx_16s */
NOX_API(NoxStatus) noxsMaxIndx_32s(const Nox32s pSrc[], int len, Nox32s* pMax, int* pIndx);

/**
 * @brief Largest element of a real array and its first place.
 *
 * From 32 elements on, at an address that is a multiple of 8, the value is found as noxsMax_64f() finds it and its
 * place by its bits: zeros of both signs are then different. Otherwise an element must beat the best so far, so a NaN
 * never wins, but at the front it stays. Equal in all builds for data without NaN, but for the sign of a zero.
 *
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMax   takes the value
 * @param pIndx  takes the place; null gives noxsMax_64f()
 * @return ::noxStsNullPtrErr for a null pSrc or value pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 * ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMaxIndx_64f(const Nox64f pSrc[], int len, Nox64f* pMax, int* pIndx);

/**
 * @brief Largest magnitude; that of -2^31 is 2^31 - 1. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMaxAbs  takes the magnitude
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMaxAbs_32s(const Nox32s pSrc[], int len, Nox32s* pMaxAbs);

/**
 * @brief Largest magnitude and its first place; -2^31 counts as 2^31 - 1. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMaxAbs  takes the magnitude
 * @param pIndx    takes the place; null if not wanted
 * @return ::noxStsNullPtrErr for a null pSrc or value pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 * ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMaxAbsIndx_32s(const Nox32s pSrc[], int len, Nox32s* pMaxAbs, int* pIndx);

/**
 * @brief Smallest element. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMin  takes the value
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMin_16s(const Nox16s pSrc[], int len, Nox16s* pMin);
/** @copydoc noxsMin_16s */
NOX_API(NoxStatus) noxsMin_32s(const Nox32s pSrc[], int len, Nox32s* pMin);

/**
 * @brief Smallest element of a real array.
 *
 * An element enters its lane as the processor's maximum (minimum) of lane and element: a NaN is replaced by the next
 * element of its lane, and near the end whether it shows depends on its place, the address and the build. Of zeros of
 * both signs the later wins. Equal in all builds for data without NaN, but for the sign of a zero.
 *
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMin  takes the value
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMin_64f(const Nox64f pSrc[], int len, Nox64f* pMin);

/**
 * @brief Smallest element and its first place. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMin   takes the value
 * @param pIndx  takes the place; null if not wanted
 * @return ::noxStsNullPtrErr for a null pSrc or value pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 * ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMinIndx_16s(const Nox16s pSrc[], int len, Nox16s* pMin, int* pIndx);
/** @copydoc noxsMinIndx_16s */
NOX_API(NoxStatus) noxsMinIndx_32s(const Nox32s pSrc[], int len, Nox32s* pMin, int* pIndx);

/**
 * @brief Smallest element of a real array and its first place.
 *
 * From 32 elements on, at an address that is a multiple of 8, the value is found as noxsMin_64f() finds it and its
 * place by its bits: zeros of both signs are then different. Otherwise an element must beat the best so far, so a NaN
 * never wins, but at the front it stays. Equal in all builds for data without NaN, but for the sign of a zero.
 *
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMin   takes the value
 * @param pIndx  takes the place; null gives noxsMin_64f()
 * @return ::noxStsNullPtrErr for a null pSrc or value pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 * ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMinIndx_64f(const Nox64f pSrc[], int len, Nox64f* pMin, int* pIndx);

/**
 * @brief Smallest magnitude; that of -2^31 is 2^31 - 1. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMinAbs  takes the magnitude
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMinAbs_32s(const Nox32s pSrc[], int len, Nox32s* pMinAbs);

/**
 * @brief Smallest magnitude and its first place; -2^31 counts as 2^31 - 1. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMinAbs  takes the magnitude
 * @param pIndx    takes the place; null if not wanted
 * @return ::noxStsNullPtrErr for a null pSrc or value pointer, then ::noxStsSizeErr for @p len below 1; otherwise
 * ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMinAbsIndx_32s(const Nox32s pSrc[], int len, Nox32s* pMinAbs, int* pIndx);

/**
 * @brief Smallest and largest element. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMin  takes the smallest
 * @param pMax  takes the largest
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMinMax_16s(const Nox16s pSrc[], int len, Nox16s* pMin, Nox16s* pMax);
/** @copydoc noxsMinMax_16s */
NOX_API(NoxStatus) noxsMinMax_32s(const Nox32s pSrc[], int len, Nox32s* pMin, Nox32s* pMax);

/**
 * @brief Smallest and largest element of a real array.
 *
 * An element enters its lane as the processor's maximum (minimum) of lane and element: a NaN is replaced by the next
 * element of its lane, and near the end whether it shows depends on its place, the address and the build. Of zeros of
 * both signs the later wins. Equal in all builds for data without NaN, but for the sign of a zero.
 *
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMin  takes the smallest
 * @param pMax  takes the largest
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMinMax_64f(const Nox64f pSrc[], int len, Nox64f* pMin, Nox64f* pMax);

/**
 * @brief Smallest and largest element and their first places. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMin      takes the smallest
 * @param pMinIndx  takes its place
 * @param pMax      takes the largest
 * @param pMaxIndx  takes its place
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsMinMaxIndx_16s(const Nox16s pSrc[], int len, Nox16s* pMin, int* pMinIndx, Nox16s* pMax, int* pMaxIndx);
/** @copydoc noxsMinMaxIndx_16s */
NOX_API(NoxStatus)
noxsMinMaxIndx_32s(const Nox32s pSrc[], int len, Nox32s* pMin, int* pMinIndx, Nox32s* pMax, int* pMaxIndx);

/**
 * @brief Smallest and largest element of a real array and their first places.
 *
 * The values are those of noxsMinMax_64f(); a place is the first element that compares equal, 0 for a NaN. Equal in all
 * builds for data without NaN, but for the sign of a zero.
 *
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pMin      takes the smallest
 * @param pMinIndx  takes its place
 * @param pMax      takes the largest
 * @param pMaxIndx  takes its place
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsMinMaxIndx_64f(const Nox64f pSrc[], int len, Nox64f* pMin, int* pMinIndx, Nox64f* pMax, int* pMaxIndx);

/**
 * @brief Bits of the largest magnitude: 0 for zeros, 1 for 1, 32 for -2^31. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pOrder  takes the number
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null pointer; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMaxOrder_32s(const Nox32s pSrc[], int len, int* pOrder);

/**
 * @brief Binary order of the largest magnitude m: `floor(log2(m)) + 1`, 0 for zeros. Equal in all builds.
 *
 * NaN is skipped. Where an infinity is the largest, the order is that of the largest finite magnitude, whose lower bits
 * aren't looked at. A subnormal number gives -1022, or 0 if its high word is zero. The call reads and clears the
 * calling thread's flag of invalid operations, which a NaN raises: a flag left by earlier code counts too.
 *
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pOrder  takes the order
 * @return ::noxStsSizeErr for @p len below 1, then ::noxStsNullPtrErr for a null pointer; ::noxStsNanArg, with the
 * order stored, if the data hold a NaN or an infinity or the flag was raised; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsMaxOrder_64f(const Nox64f pSrc[], int len, int* pOrder);

/**
 * @brief Number of elements strictly between two bounds; 0 if they are reversed. Equal in all builds.
 * @param pSrc  array of @p len elements
 * @param len   number of elements
 * @param pCounts     takes the number
 * @param lowerBound  below what counts
 * @param upperBound  above what counts
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsCountInRange_32s(const Nox32s pSrc[], int len, int* pCounts, Nox32s lowerBound, Nox32s upperBound);

NOX_END_DECLS

#endif
