// The record of the border filter and the places behind it, and the sizes of the memory that the filters ask for.
//
// Spec memory, from its first 64-byte boundary: the record, 128 bytes on the kernel in reversed order, behind it, again
// at a boundary, the kernel in the caller's order with each coefficient four times.
#pragma once
#include "core/variant.hpp"
#include "nox/image.h"

namespace nox {
inline namespace NOX_VARIANT {

struct BorderSpec {
  int kind;
  int width, height;  // of the kernel
  int round;
  int offset;
  Nox32f offsetValue;
  int hint;
  Nox32f* reversed;
  Nox32f* quads;
  int channels;
};

constexpr unsigned kSpecAlign = 64, kKernelAt = 128, kPlaneAlign = 32;
constexpr int kAccurate = 1 << 16;
static_assert(sizeof(BorderSpec) <= kKernelAt, "the kernel stands behind the record");

constexpr Nox64u rounded_up(Nox64u bytes, unsigned to) { return (bytes + to - 1) & ~Nox64u{to - 1}; }

template <class T>
NOX_INLINE T* aligned_up(T* p, unsigned to) {
  return reinterpret_cast<T*>((reinterpret_cast<uintptr_t>(p) + to - 1) & ~uintptr_t{to - 1});
}
NOX_INLINE BorderSpec* record_of(NoxFilterBorderSpec* p) {
  return reinterpret_cast<BorderSpec*>(aligned_up(p, kSpecAlign));
}
NOX_INLINE const BorderSpec* record_of(const NoxFilterBorderSpec* p) {
  return reinterpret_cast<const BorderSpec*>(aligned_up(p, kSpecAlign));
}

// Pixels that a window of n pixels reaches beyond its anchor, its centre, or before it where n is even.
constexpr int before(int n) { return (n - 1) >> 1; }
constexpr int after(int n) { return n - 1 - before(n); }

// The double filter's buffer: kept by the interface for callers who allocate by it, and not used.
constexpr Nox64u double_buffer(Nox64u width, Nox64u height, int outputs) {
  if (NOX_LEVEL == 0) return 0;
  if (width == 1) return height > 2 && outputs > 15 ? 32 * height : 0;
  return ((width + 2) / 2 * 32 + width * 4) * height + 15;
}

}  // namespace NOX_VARIANT
}  // namespace nox
