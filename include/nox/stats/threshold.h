/* Thresholds: elements below or above a level are replaced, by the level, by a value, or by the level's reciprocal.
 *
 * The arrays of a copying form are the same or don't overlap; they may stand at any address. Comparisons of integers
 * are signed and exact. */
#ifndef NOX_STATS_THRESHOLD_H
#define NOX_STATS_THRESHOLD_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Limits elements at a level, from below or from above. Equal in all builds.
 *
 * A NaN becomes the level. One may survive in the last element: where the number of elements, without a first one that
 * stands in the upper half of a 16-byte block of @p pDst, is odd.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, of any sign
 * @param relOp  0 replaces elements below the level, 4 those above it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsBadArgErr for
 *         another @p relOp; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f level, int relOp);

/**
 * @brief In-place form of noxsThreshold_64f(): elements beyond the level become the level.
 *
 * A NaN becomes the level everywhere.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, of any sign
 * @param relOp    0 replaces elements below the level, 4 those above it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsBadArgErr for
 *         another @p relOp; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_64f_I(Nox64f pSrcDst[], int len, Nox64f level, int relOp);

/**
 * @brief Limits magnitudes at a level, from below or from above, as noxsThreshold_LT_64fc() and noxsThreshold_GT_64fc()
 * do. Equal in all builds.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, at least 0
 * @param relOp  0 replaces elements below the level, 4 those above it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsBadArgErr for
 *         another @p relOp, then ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len, Nox64f level, int relOp);

/**
 * @brief In-place form of noxsThreshold_64fc(): magnitudes beyond the level become the level.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, at least 0
 * @param relOp    0 replaces elements below the level, 4 those above it
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsBadArgErr for
 *         another @p relOp, then ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_64fc_I(Nox64fc pSrcDst[], int len, Nox64f level, int relOp);

/**
 * @brief Raises elements to a level: `pDst[i] = pSrc[i] > level ? pSrc[i] : level`. Equal in all builds.
 *
 * A NaN becomes the level. One may survive in the last element: where the number of elements, without a first one that
 * stands in the upper half of a 16-byte block of @p pDst, is odd.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, of any sign
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LT_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f level);

/**
 * @brief In-place form of noxsThreshold_LT_64f(): raises elements to the level.
 *
 * A NaN becomes the level everywhere.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, of any sign
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LT_64f_I(Nox64f pSrcDst[], int len, Nox64f level);

/**
 * @brief Raises elements to a level: `pDst[i] = pSrc[i] < level ? level : pSrc[i]`. Equal in all builds.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, of any sign
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LT_16s(const Nox16s pSrc[], Nox16s pDst[], int len, Nox16s level);
/** @copydoc noxsThreshold_LT_16s */
NOX_API(NoxStatus) noxsThreshold_LT_32s(const Nox32s pSrc[], Nox32s pDst[], int len, Nox32s level);

/**
 * @brief In-place form of noxsThreshold_LT_16s(): raises elements to the level.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, of any sign
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LT_16s_I(Nox16s pSrcDst[], int len, Nox16s level);
/** @copydoc noxsThreshold_LT_16s_I */
NOX_API(NoxStatus) noxsThreshold_LT_32s_I(Nox32s pSrcDst[], int len, Nox32s level);

/**
 * @brief Lowers elements to a level: `pDst[i] = pSrc[i] < level ? pSrc[i] : level`. Equal in all builds.
 *
 * A NaN becomes the level. One may survive in the last element: where the number of elements, without a first one that
 * stands in the upper half of a 16-byte block of @p pDst, is odd.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, of any sign
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GT_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f level);

/**
 * @brief In-place form of noxsThreshold_GT_64f(): lowers elements to the level.
 *
 * A NaN becomes the level everywhere.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, of any sign
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GT_64f_I(Nox64f pSrcDst[], int len, Nox64f level);

/**
 * @brief Lowers elements to a level: `pDst[i] = pSrc[i] > level ? level : pSrc[i]`. Equal in all builds.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, of any sign
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GT_16s(const Nox16s pSrc[], Nox16s pDst[], int len, Nox16s level);
/** @copydoc noxsThreshold_GT_16s */
NOX_API(NoxStatus) noxsThreshold_GT_32s(const Nox32s pSrc[], Nox32s pDst[], int len, Nox32s level);

/**
 * @brief In-place form of noxsThreshold_GT_16s(): lowers elements to the level.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, of any sign
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GT_16s_I(Nox16s pSrcDst[], int len, Nox16s level);
/** @copydoc noxsThreshold_GT_16s_I */
NOX_API(NoxStatus) noxsThreshold_GT_32s_I(Nox32s pSrcDst[], int len, Nox32s level);

/**
 * @brief Raises magnitudes to a level and keeps the phase: `pSrc[i] * sqrt(level^2 / |pSrc[i]|^2)` below the level.
 * Equal in all builds.
 *
 * Magnitudes are compared by their squares, rounded step by step. An element whose square is a NaN is kept.
 * An element whose square is 0 becomes (level, 0). Level 0 copies.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LT_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len, Nox64f level);

/**
 * @brief In-place form of noxsThreshold_LT_64fc(): raises magnitudes to the level.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LT_64fc_I(Nox64fc pSrcDst[], int len, Nox64f level);

/**
 * @brief Lowers magnitudes to a level and keeps the phase: `pSrc[i] * sqrt(level^2 / |pSrc[i]|^2)` above the level.
 * Equal in all builds.
 *
 * Magnitudes are compared by their squares, rounded step by step. An element whose square is a NaN is kept.
 * Level 0 makes every element (0, 0).
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GT_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len, Nox64f level);

/**
 * @brief In-place form of noxsThreshold_GT_64fc(): lowers magnitudes to the level.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GT_64fc_I(Nox64fc pSrcDst[], int len, Nox64f level);

/**
 * @brief Replaces elements below a level: `pDst[i] = level <= pSrc[i] ? pSrc[i] : value`; a NaN becomes value. Equal in
 * all builds.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, of any sign
 * @param value  what such an element becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LTVal_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f level, Nox64f value);
/** @copydoc noxsThreshold_LTVal_64f */
NOX_API(NoxStatus) noxsThreshold_LTVal_16s(const Nox16s pSrc[], Nox16s pDst[], int len, Nox16s level, Nox16s value);

/**
 * @brief In-place form of noxsThreshold_LTVal_64f(): replaces elements below the level.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, of any sign
 * @param value    what such an element becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LTVal_64f_I(Nox64f pSrcDst[], int len, Nox64f level, Nox64f value);
/** @copydoc noxsThreshold_LTVal_64f_I */
NOX_API(NoxStatus) noxsThreshold_LTVal_16s_I(Nox16s pSrcDst[], int len, Nox16s level, Nox16s value);

/**
 * @brief Replaces elements whose magnitude is below a level, or a NaN. Equal in all builds.
 *
 * Magnitudes are compared by their squares, rounded step by step.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, at least 0
 * @param value  what such an element becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LTVal_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len, Nox64f level, Nox64fc value);

/**
 * @brief In-place form of noxsThreshold_LTVal_64fc(): replaces elements of smaller magnitude.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, at least 0
 * @param value    what such an element becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LTVal_64fc_I(Nox64fc pSrcDst[], int len, Nox64f level, Nox64fc value);

/**
 * @brief Replaces elements above a level: `pDst[i] = level < pSrc[i] ? value : pSrc[i]`; a NaN stays. Equal in all
 * builds.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, of any sign
 * @param value  what such an element becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GTVal_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f level, Nox64f value);

/**
 * @brief In-place form of noxsThreshold_GTVal_64f(): replaces elements above the level.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, of any sign
 * @param value    what such an element becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GTVal_64f_I(Nox64f pSrcDst[], int len, Nox64f level, Nox64f value);

/**
 * @brief Replaces elements whose magnitude is above a level. Equal in all builds.
 *
 * Magnitudes are compared by their squares, rounded step by step. An element whose square is a NaN is kept.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, at least 0
 * @param value  what such an element becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GTVal_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len, Nox64f level, Nox64fc value);

/**
 * @brief In-place form of noxsThreshold_GTVal_64fc(): replaces elements of larger magnitude.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, at least 0
 * @param value    what such an element becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GTVal_64fc_I(Nox64fc pSrcDst[], int len, Nox64f level, Nox64fc value);

/**
 * @brief Replaces elements below one level and above another by a value for each; a NaN becomes valueLT. Equal in all
 * builds.
 * @param pSrc     array of @p len elements
 * @param pDst     array of @p len elements; may be the source
 * @param len      number of elements
 * @param levelLT  the lower level
 * @param valueLT  what an element below it becomes, bit for bit
 * @param levelGT  the upper level; a NaN level is taken
 * @param valueGT  what an element above it becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsThresholdErr
 *         for @p levelLT above @p levelGT; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsThreshold_LTValGTVal_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f levelLT, Nox64f valueLT,
                             Nox64f levelGT, Nox64f valueGT);
/** @copydoc noxsThreshold_LTValGTVal_64f */
NOX_API(NoxStatus)
noxsThreshold_LTValGTVal_32s(const Nox32s pSrc[], Nox32s pDst[], int len, Nox32s levelLT, Nox32s valueLT,
                             Nox32s levelGT, Nox32s valueGT);
/** @copydoc noxsThreshold_LTValGTVal_64f */
NOX_API(NoxStatus)
noxsThreshold_LTValGTVal_16s(const Nox16s pSrc[], Nox16s pDst[], int len, Nox16s levelLT, Nox16s valueLT,
                             Nox16s levelGT, Nox16s valueGT);

/**
 * @brief In-place form of noxsThreshold_LTValGTVal_64f(): replaces elements outside the levels.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param levelLT  the lower level
 * @param valueLT  what an element below it becomes, bit for bit
 * @param levelGT  the upper level; a NaN level is taken
 * @param valueGT  what an element above it becomes, bit for bit
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then ::noxStsThresholdErr
 *         for @p levelLT above @p levelGT; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus)
noxsThreshold_LTValGTVal_64f_I(Nox64f pSrcDst[], int len, Nox64f levelLT, Nox64f valueLT, Nox64f levelGT,
                               Nox64f valueGT);
/** @copydoc noxsThreshold_LTValGTVal_64f_I */
NOX_API(NoxStatus)
noxsThreshold_LTValGTVal_32s_I(Nox32s pSrcDst[], int len, Nox32s levelLT, Nox32s valueLT, Nox32s levelGT,
                               Nox32s valueGT);
/** @copydoc noxsThreshold_LTValGTVal_64f_I */
NOX_API(NoxStatus)
noxsThreshold_LTValGTVal_16s_I(Nox16s pSrcDst[], int len, Nox16s levelLT, Nox16s valueLT, Nox16s levelGT,
                               Nox16s valueGT);

/**
 * @brief Raises magnitudes to a level and keeps the sign. Equal in all builds.
 *
 * A NaN becomes the level with the sign of the NaN, -0.0 minus the level, an integer 0 plus the level.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LTAbs_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f level);
/** @copydoc noxsThreshold_LTAbs_64f */
NOX_API(NoxStatus) noxsThreshold_LTAbs_32s(const Nox32s pSrc[], Nox32s pDst[], int len, Nox32s level);
/** @copydoc noxsThreshold_LTAbs_64f */
NOX_API(NoxStatus) noxsThreshold_LTAbs_16s(const Nox16s pSrc[], Nox16s pDst[], int len, Nox16s level);

/**
 * @brief In-place form of noxsThreshold_LTAbs_64f(): raises magnitudes to the level.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LTAbs_64f_I(Nox64f pSrcDst[], int len, Nox64f level);
/** @copydoc noxsThreshold_LTAbs_64f_I */
NOX_API(NoxStatus) noxsThreshold_LTAbs_32s_I(Nox32s pSrcDst[], int len, Nox32s level);
/** @copydoc noxsThreshold_LTAbs_64f_I */
NOX_API(NoxStatus) noxsThreshold_LTAbs_16s_I(Nox16s pSrcDst[], int len, Nox16s level);

/**
 * @brief Lowers magnitudes to a level and keeps the sign: a clamp to `[-level, level]`. Equal in all builds.
 *
 * A NaN becomes the level.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GTAbs_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f level);
/** @copydoc noxsThreshold_GTAbs_64f */
NOX_API(NoxStatus) noxsThreshold_GTAbs_32s(const Nox32s pSrc[], Nox32s pDst[], int len, Nox32s level);
/** @copydoc noxsThreshold_GTAbs_64f */
NOX_API(NoxStatus) noxsThreshold_GTAbs_16s(const Nox16s pSrc[], Nox16s pDst[], int len, Nox16s level);

/**
 * @brief In-place form of noxsThreshold_GTAbs_64f(): lowers magnitudes to the level.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_GTAbs_64f_I(Nox64f pSrcDst[], int len, Nox64f level);
/** @copydoc noxsThreshold_GTAbs_64f_I */
NOX_API(NoxStatus) noxsThreshold_GTAbs_32s_I(Nox32s pSrcDst[], int len, Nox32s level);
/** @copydoc noxsThreshold_GTAbs_64f_I */
NOX_API(NoxStatus) noxsThreshold_GTAbs_16s_I(Nox16s pSrcDst[], int len, Nox16s level);

/**
 * @brief Reciprocals of elements whose magnitudes are first raised to a level. At most 4 units in the last place.
 *
 * A NaN becomes the reciprocal of the level with its sign; at level 0 it stays. At level 0 a zero becomes the infinity
 * of its sign. Floating-point exceptions are masked during the call, and the control state is put back.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; after the whole array ::noxStsInvZero for a zero at level
 *         0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LTInv_64f(const Nox64f pSrc[], Nox64f pDst[], int len, Nox64f level);

/**
 * @brief In-place form of noxsThreshold_LTInv_64f(): reciprocals of raised elements.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; after the whole array ::noxStsInvZero for a zero at level
 *         0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LTInv_64f_I(Nox64f pSrcDst[], int len, Nox64f level);

/**
 * @brief Reciprocals of elements whose magnitudes are first raised to a level. At most 6 units in the last place.
 *
 * A zero becomes (1 / level, 0), and (+infinity, 0 - im) at level 0, where so does an element whose square underflows.
 * Floating-point exceptions are masked during the call, and the control state is put back. Units are those of the
 * larger part of the result.
 * @param pSrc   array of @p len elements
 * @param pDst   array of @p len elements; may be the source
 * @param len    number of elements
 * @param level  the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; after the whole array ::noxStsInvZero for a zero at level
 *         0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LTInv_64fc(const Nox64fc pSrc[], Nox64fc pDst[], int len, Nox64f level);

/**
 * @brief In-place form of noxsThreshold_LTInv_64fc(): reciprocals of raised elements.
 * @param pSrcDst  array of @p len elements, overwritten by the result
 * @param len      number of elements
 * @param level    the level, at least 0
 * @return ::noxStsNullPtrErr for a null pointer, then ::noxStsSizeErr for @p len below 1, then
 *         ::noxStsThreshNegLevelErr for a negative level; after the whole array ::noxStsInvZero for a zero at level
 *         0; otherwise ::noxStsNoErr
 */
NOX_API(NoxStatus) noxsThreshold_LTInv_64fc_I(Nox64fc pSrcDst[], int len, Nox64f level);

NOX_END_DECLS

#endif
