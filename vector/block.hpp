// Copy, move, zero and fill on byte counts: the kernels that every family uses to move data.
//
// They check nothing, accept any alignment and a count of 0, touch no byte outside the ranges, and look at no value.
// All return noxStsNoErr, so that a body can end in a jump to one.
#pragma once
#include <immintrin.h>

#include "core/frame.hpp"
#include "core/variant.hpp"
#include "nox/status.h"

// Arguments in registers: these calls never leave the library.
#ifdef __i386__
#define NOX_KERNEL NOX_HIDDEN __attribute__((noinline, regparm(3)))
#else
#define NOX_KERNEL NOX_HIDDEN __attribute__((noinline))
#endif

namespace nox {
inline namespace NOX_VARIANT {

// Copies ranges that don't overlap, by the method that suits count and distance.
NOX_KERNEL NoxStatus copy_bytes(void* d, const void* s, size_t n);
NOX_KERNEL NoxStatus copy_large(void* d, const void* s, size_t n);
// Copies ranges that may overlap.
NOX_KERNEL NoxStatus move_bytes(void* d, const void* s, size_t n);
// The two directions of a move: forward for a destination below its source, backward for one above.
NOX_KERNEL NoxStatus copy_forward(void* d, const void* s, size_t n);
NOX_KERNEL NoxStatus copy_backward(void* d, const void* s, size_t n);

// Whether n bytes are too many to leave anything else in the cache, so that they are better stored past it.
NOX_KERNEL bool streams(size_t n);

// Clears bytes, with ordinary stores or with the processor's string store.
NOX_KERNEL NoxStatus zero_bytes(void* d, size_t n);
NOX_KERNEL NoxStatus zero_bytes_by_string(void* d, size_t n);

// Repeats an element over n bytes. `pattern` is the element repeated over 16 bytes, `element` its size: a power of 2
// up to 16 that divides n.
NOX_KERNEL NoxStatus fill_bytes(void* d, size_t n, size_t element, __m128i pattern);
// The same for more than eight vectors, through the caches and past them.
NOX_KERNEL NoxStatus fill_long(void* d, size_t n, size_t element, __m128i pattern);
NOX_KERNEL NoxStatus fill_streaming(void* d, size_t n, size_t element, __m128i pattern);
// The same for large ranges, by the method that suits the count.
NOX_KERNEL NoxStatus fill_bytes_large(void* d, size_t n, size_t element, __m128i pattern);

// Four words of a value as a pattern. Arguments are often pushed as words, and one wide load would wait until all have
// left the store buffer; volatile, lest the compiler join them. As floats they go straight to vector registers.
NOX_INLINE __m128i words_of(const void* value, int i, int j, int k, int l) {
  typedef float Word __attribute__((may_alias));
  const volatile Word* const words = static_cast<const volatile Word*>(value);
  return _mm_castps_si128(_mm_setr_ps(words[i], words[j], words[k], words[l]));
}

// An element of 1, 2, 4, 8 or 16 bytes repeated over 16, by its bits.
template <class T>
NOX_INLINE __m128i pattern_of(const T& value) {
  static_assert(sizeof(T) <= 16 && 16 % sizeof(T) == 0, "the pattern holds whole elements");
  if constexpr (sizeof(T) == 16) {
    return words_of(&value, 0, 1, 2, 3);
  } else if constexpr (sizeof(T) == 8) {
    return words_of(&value, 0, 1, 0, 1);
  } else if constexpr (sizeof(T) == 4) {
    return _mm_set1_epi32(static_cast<int>(value));
  } else if constexpr (sizeof(T) == 2) {
    return _mm_set1_epi16(static_cast<short>(value));
  } else {
    return _mm_set1_epi8(static_cast<char>(value));
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
