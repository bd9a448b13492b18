/* Signs of an array's elements, and multiplication of an array by them.
 *
 * They return no status and test nothing. The sign of a real value is 1.0, -1.0 or, of a zero or a NaN, 0.0. That of a
 * complex value is the sign of its real part, or where that is a zero or a NaN, of its imaginary part. Arrays that
 * overlap are treated element after element from index 0 on. Equal in all builds. */
#ifndef NOX_ARRAY_SIGN_H
#define NOX_ARRAY_SIGN_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Signs of a real array. Equal in all builds.
 * @param src  array of @p n elements
 * @param dst  array of @p n elements; may be the source
 * @param n    number of elements, 0 or more
 */
NOX_API(void) Sgndd(const Nox64f src[], Nox64f dst[], Nox32u n);
/**
 * @brief Signs of a real array as complex values, imaginary parts 0.0. Equal in all builds.
 * @see Sgndd()
 */
NOX_API(void) Sgndc(const Nox64f src[], Nox64fc dst[], Nox32u n);
/**
 * @brief Signs of a complex array as real values. Equal in all builds.
 * @see Sgndd()
 */
NOX_API(void) Sgncd(const Nox64fc src[], Nox64f dst[], Nox32u n);
/**
 * @brief Signs of a complex array as complex values, imaginary parts 0.0. Equal in all builds.
 * @see Sgndd()
 */
NOX_API(void) Sgncc(const Nox64fc src[], Nox64fc dst[], Nox32u n);

/**
 * @brief Multiplies a real array by the signs of another: 0.0 for a zero, the sign bit flipped for a negative value; a
 * NaN leaves the element. Equal in all builds.
 * @param src  array of @p n elements
 * @param dst  array of @p n elements, changed in place; may be the source
 * @param n    number of elements, 0 or more
 */
NOX_API(void) SgnMul(const Nox64f src[], Nox64f dst[], Nox32u n);
/**
 * @brief Multiplies both parts of a complex array by the signs of a real one, as SgnMul() does. Equal in all builds.
 * @see SgnMul()
 */
NOX_API(void) SgnMuldc(const Nox64f src[], Nox64fc dst[], Nox32u n);

/**
 * @brief Multiplies a real array by the signs of a complex one. Equal in all builds.
 *
 * The sign bit is flipped where the real part is negative, or is a zero and the imaginary part negative; the result is
 * 0.0 where both are zeros. A NaN in the deciding part leaves the element: unlike Sgncd(), a real part that is a NaN
 * doesn't pass the decision on.
 *
 * @param src  array of @p n elements
 * @param dst  array of @p n elements, changed in place; may be the source
 * @param n    number of elements, 0 or more
 */
NOX_API(void) SgnMulcd(const Nox64fc src[], Nox64f dst[], Nox32u n);
/**
 * @brief Multiplies both parts of a complex array by the signs of another, as SgnMulcd() does. Equal in all builds.
 * @see SgnMulcd()
 */
NOX_API(void) SgnMulc(const Nox64fc src[], Nox64fc dst[], Nox32u n);

NOX_END_DECLS

#endif
