/* Arithmetic of an array with a value, and of a complex array with a real one.
 *
 * These functions return no status and test nothing: a bad address faults, and a division by zero gives what IEEE-754
 * says of the formula. The letters at a name's end tell the operands in their order, c for complex, d for real; without
 * letters all are real. An array may be its own destination; where arrays overlap in another way, elements are computed
 * and written one after the other from index 0 on, so later ones see what earlier ones wrote; so does a complex value
 * that stands inside the destination. Every element has the correctly rounded operations of its formula, in that order,
 * whatever the processor. One body serves all builds: results are equal in all of them. */
#ifndef NOX_ARRAY_VALUE_H
#define NOX_ARRAY_VALUE_H

#include "nox/types.h"

NOX_BEGIN_DECLS

/**
 * @brief Adds a real value to a real array: `dst[i] = src[i] + value`. Equal in all builds.
 * @param src    array of @p n elements
 * @param dst    array of @p n elements; may be the source
 * @param value  the value; a complex one comes by pointer
 * @param n      number of elements, 0 or more
 */
NOX_API(void) AddValue(const Nox64f src[], Nox64f dst[], Nox64f value, Nox32u n);
/**
 * @brief Adds a complex value to a complex array, part by part. Equal in all builds.
 * @see AddValue()
 */
NOX_API(void) AddValuec(const Nox64fc src[], Nox64fc dst[], const Nox64fc* value, Nox32u n);
/**
 * @brief Adds a real value to a complex array: the real parts; 0.0 is added to the imaginary ones, so -0.0 becomes 0.0.
 * Equal in all builds.
 * @see AddValue()
 */
NOX_API(void) AddValuecd(const Nox64fc src[], Nox64fc dst[], Nox64f value, Nox32u n);
/**
 * @brief Adds a complex value to a real array: `src[i] + value.re`, `0.0 + value.im`. Equal in all builds.
 * @see AddValue()
 */
NOX_API(void) AddValuedc(const Nox64f src[], Nox64fc dst[], const Nox64fc* value, Nox32u n);

/**
 * @brief Subtracts a real array from a real value: `dst[i] = value - src[i]`. Equal in all builds.
 * @param src    array of @p n elements
 * @param dst    array of @p n elements; may be the source
 * @param value  the value; a complex one comes by pointer
 * @param n      number of elements, 0 or more
 */
NOX_API(void) SubFromValue(const Nox64f src[], Nox64f dst[], Nox64f value, Nox32u n);
/**
 * @brief Subtracts a complex array from a complex value, part by part. Equal in all builds.
 * @see SubFromValue()
 */
NOX_API(void) SubFromValuec(const Nox64fc src[], Nox64fc dst[], const Nox64fc* value, Nox32u n);
/**
 * @brief Subtracts a complex array from a real value: `value - src.re`, `0.0 - src.im`. Equal in all builds.
 * @see SubFromValue()
 */
NOX_API(void) SubFromValuecd(const Nox64fc src[], Nox64fc dst[], Nox64f value, Nox32u n);
/**
 * @brief Subtracts a real array from a complex value: `value.re - src[i]`, `value.im - 0.0`. Equal in all builds.
 * @see SubFromValue()
 */
NOX_API(void) SubFromValuedc(const Nox64f src[], Nox64fc dst[], const Nox64fc* value, Nox32u n);

/**
 * @brief Multiplies a real array by a real value: `dst[i] = src[i] * value`. Equal in all builds.
 * @param src    array of @p n elements
 * @param dst    array of @p n elements; may be the source
 * @param value  the value; a complex one comes by pointer
 * @param n      number of elements, 0 or more
 */
NOX_API(void) ScaleByValue(const Nox64f src[], Nox64f dst[], Nox64f value, Nox32u n);
/**
 * @brief Multiplies a complex array by a complex value: `re*vre - im*vim`, `re*vim + im*vre`. Equal in all builds.
 * @see ScaleByValue()
 */
NOX_API(void) ScaleByValuec(const Nox64fc src[], Nox64fc dst[], const Nox64fc* value, Nox32u n);
/**
 * @brief Multiplies both parts of a complex array by a real value. Equal in all builds.
 * @see ScaleByValue()
 */
NOX_API(void) ScaleByValuecd(const Nox64fc src[], Nox64fc dst[], Nox64f value, Nox32u n);
/**
 * @brief Multiplies a real array by both parts of a complex value. Equal in all builds.
 * @see ScaleByValue()
 */
NOX_API(void) ScaleByValuedc(const Nox64f src[], Nox64fc dst[], const Nox64fc* value, Nox32u n);

/**
 * @brief Divides a real value by the elements of a real array: `dst[i] = value / src[i]`. Equal in all builds.
 * @param src    array of @p n elements
 * @param dst    array of @p n elements; may be the source
 * @param value  the value; a complex one comes by pointer
 * @param n      number of elements, 0 or more
 */
NOX_API(void) DivideValue(const Nox64f src[], Nox64f dst[], Nox64f value, Nox32u n);
/**
 * @brief Divides a complex value by the elements of a complex array, as DivVeccc() does. Equal in all builds.
 * @see DivideValue()
 */
NOX_API(void) DivideValuec(const Nox64fc src[], Nox64fc dst[], const Nox64fc* value, Nox32u n);
/**
 * @brief Divides a real value, as `value + 0.0i`, by the elements of a complex array, as DivVeccc() does. Equal in all
 * builds.
 * @see DivideValue()
 */
NOX_API(void) DivideValuecd(const Nox64fc src[], Nox64fc dst[], Nox64f value, Nox32u n);
/**
 * @brief Divides both parts of a complex value by the elements of a real array. Equal in all builds.
 * @see DivideValue()
 */
NOX_API(void) DivideValuedc(const Nox64f src[], Nox64fc dst[], const Nox64fc* value, Nox32u n);

/**
 * @brief Adds a real array to a complex one: `b + a.re`, `0.0 + a.im`. Equal in all builds.
 * @param a    array of @p n elements
 * @param b    array of @p n elements
 * @param dst  array of @p n elements; may be one of the sources
 * @param n    number of elements, 0 or more
 */
NOX_API(void) AddVeccd(const Nox64fc a[], const Nox64f b[], Nox64fc dst[], Nox32u n);
/**
 * @brief Subtracts a real array from a complex one: `a.re - b`, `a.im - 0.0`. Equal in all builds.
 * @see AddVeccd()
 */
NOX_API(void) SubVeccd(const Nox64fc a[], const Nox64f b[], Nox64fc dst[], Nox32u n);
/**
 * @brief Subtracts a complex array from a real one: `a - b.re`, `0.0 - b.im`. Equal in all builds.
 * @see AddVeccd()
 */
NOX_API(void) SubVecdc(const Nox64f a[], const Nox64fc b[], Nox64fc dst[], Nox32u n);
/**
 * @brief Multiplies both parts of a complex array by the elements of a real one. Equal in all builds.
 * @see AddVeccd()
 */
NOX_API(void) MulVeccd(const Nox64fc a[], const Nox64f b[], Nox64fc dst[], Nox32u n);
/**
 * @brief Divides both parts of a complex array by the elements of a real one. Equal in all builds.
 * @see AddVeccd()
 */
NOX_API(void) DivVeccd(const Nox64fc a[], const Nox64f b[], Nox64fc dst[], Nox32u n);

/**
 * @brief Quotient of two complex arrays, `a / b`, by the reciprocal of the squared magnitude. Equal in all builds.
 *
 * With `D = b.re*b.re + b.im*b.im` and `R = 1.0 / D`: `re = (a.re*b.re + a.im*b.im)*R` and
 * `im = (a.im*b.re - a.re*b.im)*R`. The denominator isn't scaled: where its square leaves the range of doubles, so does
 * the result.
 *
 * @param a    array of @p n elements
 * @param b    array of @p n elements
 * @param dst  array of @p n elements; may be one of the sources
 * @param n    number of elements, 0 or more
 */
NOX_API(void) DivVeccc(const Nox64fc a[], const Nox64fc b[], Nox64fc dst[], Nox32u n);
/**
 * @brief Quotient of a real array, as `a + 0.0i`, by a complex one. Equal in all builds.
 * @see DivVeccc()
 */
NOX_API(void) DivVecdc(const Nox64f a[], const Nox64fc b[], Nox64fc dst[], Nox32u n);

/**
 * @brief Product of a complex array and the conjugate of another: `a * conj(b)`. Equal in all builds.
 * @param a    array of @p n elements
 * @param b    array of @p n elements
 * @param dst  array of @p n elements; may be one of the sources
 * @param n    number of elements, 0 or more
 */
NOX_API(void) ConjMulcc(const Nox64fc a[], const Nox64fc b[], Nox64fc dst[], Nox32u n);

/**
 * @brief Multiplies a complex array by i: `-src.im`, `src.re`; the sign bit is flipped, also of a NaN. Equal in all
 * builds.
 * @param src    array of @p n elements
 * @param dst    array of @p n elements; may be the source
 * @param n      number of elements, 0 or more
 */
NOX_API(void) MulI(const Nox64fc src[], Nox64fc dst[], Nox32u n);

/**
 * @brief Complex power `a[i]` to `b[i]`, principal value, for every element but the first, which is neither computed
 * nor written.
 *
 * It is the C library's complex power, with that library's accuracy.
 *
 * @param a    array of @p n elements
 * @param b    array of @p n elements
 * @param dst  array of @p n elements; may be one of the sources
 * @param n    number of elements, 0 or more
 */
NOX_API(void) Powc(const Nox64fc a[], const Nox64fc b[], Nox64fc dst[], Nox32u n);

NOX_END_DECLS

#endif
