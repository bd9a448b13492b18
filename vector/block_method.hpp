// How block primitives decide: the method of a long copy, and the pieces of one that passes 31 bits of bytes.
//
// Plain arithmetic on addresses and counts, apart from the kernels, so that it can be tested with sizes that no
// process can allocate.
#pragma once
#include <stddef.h>
#include <stdint.h>

namespace nox {
inline namespace NOX_VARIANT {

// Whether a copy of n bytes would push everything else out of a cache of that size.
constexpr bool overruns_cache(size_t n, int cache_bytes) { return n >= static_cast<size_t>(cache_bytes) / 2; }
constexpr size_t kStreamAbove = 0x400000;  // bytes below which the cache isn't asked for

// A destination that stands less than 160 bytes above its source modulo a page makes forward loads wait for the
// stores just made, since a processor first compares the low 12 address bits: such a copy should run backward.
constexpr bool forward_collides(uintptr_t destination, uintptr_t source) {
  return static_cast<uint32_t>(destination % 4096) - static_cast<uint32_t>(source % 4096) < 160;
}

constexpr size_t kBytesOfCall = 0x7FFFFFFF;   // above that a count is divided
constexpr size_t kBytesOfPiece = 0x7FFFFFE0;  // a whole number of elements of up to 32 bytes

template <size_t Element>
constexpr bool needs_division(int len) {
  return static_cast<size_t>(len) > kBytesOfCall / Element;
}
// Calls copy(first element, bytes) for one piece after the other.
template <size_t Element, class Copy>
constexpr void in_pieces(int len, Copy&& copy) {
  constexpr size_t kElements = kBytesOfPiece / Element;
  size_t done = 0, left = static_cast<size_t>(len);
  for (; left > kBytesOfCall / Element; done += kElements, left -= kElements) copy(done, kBytesOfPiece);
  copy(done, left * Element);
}

}  // namespace NOX_VARIANT
}  // namespace nox
