// Fill, copy and move: the checks and the byte counts; the work is done by kernels that know nothing of elements.
//
// Counts of bytes wrap at 32 bits, but for copies that divide a long array into pieces. Values pass as bits: not even a
// signalling NaN is changed.
#include "core/body.hpp"
#include "vector/block.hpp"
#include "vector/block_lanes.hpp"
#include "vector/block_method.hpp"

#define NOX_QUOTE2(text) #text
#define NOX_QUOTE(text) NOX_QUOTE2(text)
#define NOX_LABEL(name) NOX_QUOTE(NOX_BODY(name))

namespace nox {
inline namespace NOX_VARIANT {
namespace {

template <class T>
NOX_INLINE size_t bytes_of(int len) {
  return static_cast<uint32_t>(len) * static_cast<uint32_t>(sizeof(T));
}

template <class T>
NOX_INLINE NoxStatus set_pattern(__m128i pattern, T* d, int len) {
  if (const NoxStatus st = check(len, d)) return st;
  const size_t n = bytes_of<T>(len);
  if (n > variant.fill_large) return fill_bytes_large(d, n, sizeof(T), pattern);
  return fill_bytes(d, n, sizeof(T), pattern);
}

template <class T>
NOX_INLINE NoxStatus set(const T& value, T* d, int len) {
  return set_pattern(pattern_of(value), d, len);
}

template <class T>
NOX_INLINE NoxStatus zero(T* d, int len) {
  if (const NoxStatus st = check(len, d)) return st;
  const size_t n = bytes_of<T>(len);
  if (n > (sizeof(T) == 1 ? variant.zero_bytes_large : variant.fill_large)) return zero_bytes_by_string(d, n);
  return zero_bytes(d, n);
}

template <size_t Element>
NOX_KERNEL NoxStatus copy_in_pieces(void* d, const void* s, int len) {
  const Byte* const from = bytes(s);
  Byte* const to = bytes(d);
  in_pieces<Element>(len, [=](size_t done, size_t n) { copy_bytes(to + done * Element, from + done * Element, n); });
  return noxStsNoErr;
}

// 32-bit integers are divided in every build, other wide elements where the build says so.
template <class T>
NOX_INLINE NoxStatus copy(const T* s, T* d, int len, bool divides = sizeof(T) > 1 && variant.divides_long_copy) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (divides && needs_division<sizeof(T)>(len)) return copy_in_pieces<sizeof(T)>(d, s, len);
  return copy_bytes(d, s, bytes_of<T>(len));
}

template <class T>
NOX_INLINE NoxStatus move(const T* s, T* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  return move_bytes(d, s, bytes_of<T>(len));
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

// The body of noxsSet_64f takes its value as two words, which stand on the stack where the double does: it may have
// been pushed by words, and reading it at once would wait until both have left the store buffer.
static_assert(2 * sizeof(Nox32f) == sizeof(Nox64f));
static_assert(__is_same(decltype(noxsSet_64f), NoxStatus(Nox64f, Nox64f*, int)));
NOX_HIDDEN NoxStatus set_words(Nox32f low, Nox32f high, Nox64f* d, int len) asm(NOX_LABEL(noxsSet_64f));

NoxStatus NOX_BODY(noxsSet_8u)(Nox8u value, Nox8u* d, int len) { return set(value, d, len); }
NoxStatus NOX_BODY(noxsSet_16s)(Nox16s value, Nox16s* d, int len) { return set(value, d, len); }
NoxStatus NOX_BODY(noxsSet_32s)(Nox32s value, Nox32s* d, int len) { return set(value, d, len); }
NoxStatus NOX_BODY(noxsSet_32sc)(Nox32sc value, Nox32sc* d, int len) { return set(value, d, len); }
NoxStatus set_words(Nox32f low, Nox32f high, Nox64f* d, int len) {
  return set_pattern(_mm_castps_si128(_mm_setr_ps(low, high, low, high)), d, len);
}
NoxStatus NOX_BODY(noxsSet_64fc)(Nox64fc value, Nox64fc* d, int len) { return set(value, d, len); }

NoxStatus NOX_BODY(noxsZero_8u)(Nox8u* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsZero_16s)(Nox16s* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsZero_32s)(Nox32s* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsZero_32sc)(Nox32sc* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsZero_64f)(Nox64f* d, int len) { return zero(d, len); }
NoxStatus NOX_BODY(noxsZero_64fc)(Nox64fc* d, int len) { return zero(d, len); }

NoxStatus NOX_BODY(noxsCopy_8u)(const Nox8u* s, Nox8u* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_16s)(const Nox16s* s, Nox16s* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_16sc)(const Nox16sc* s, Nox16sc* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_32s)(const Nox32s* s, Nox32s* d, int len) { return copy(s, d, len, true); }
NoxStatus NOX_BODY(noxsCopy_32f)(const Nox32f* s, Nox32f* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_32sc)(const Nox32sc* s, Nox32sc* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_32fc)(const Nox32fc* s, Nox32fc* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_64s)(const Nox64s* s, Nox64s* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_64f)(const Nox64f* s, Nox64f* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_64sc)(const Nox64sc* s, Nox64sc* d, int len) { return copy(s, d, len); }
NoxStatus NOX_BODY(noxsCopy_64fc)(const Nox64fc* s, Nox64fc* d, int len) { return copy(s, d, len); }

NoxStatus NOX_BODY(noxsMove_8u)(const Nox8u* s, Nox8u* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsMove_16s)(const Nox16s* s, Nox16s* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsMove_16sc)(const Nox16sc* s, Nox16sc* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsMove_32s)(const Nox32s* s, Nox32s* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsMove_32f)(const Nox32f* s, Nox32f* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsMove_32sc)(const Nox32sc* s, Nox32sc* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsMove_32fc)(const Nox32fc* s, Nox32fc* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsMove_64s)(const Nox64s* s, Nox64s* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsMove_64f)(const Nox64f* s, Nox64f* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsMove_64sc)(const Nox64sc* s, Nox64sc* d, int len) { return move(s, d, len); }
NoxStatus NOX_BODY(noxsMove_64fc)(const Nox64fc* s, Nox64fc* d, int len) { return move(s, d, len); }

}  // extern "C"
