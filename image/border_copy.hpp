// Copies a rectangle that reaches beyond the region into a plane of its own, with border pixels made by their kind.
//
// Coordinates are those of the region: its first pixel is (0, 0). Sides in memory are read as they stand.
#pragma once
#include "image/window_sum.hpp"
#include "nox/image.h"

namespace nox {
inline namespace NOX_VARIANT {

struct Region {
  const Nox32f* src;
  ptrdiff_t step;
  int width, height, border;
  Nox32f value;
  NOX_INLINE int kind() const { return border & 15; }
  NOX_INLINE bool has(int side) const { return (border & side) != 0; }
};

struct Rectangle {
  int left, top, width, height;
};

// The pixel of 0 to n - 1 that stands in for pixel i of one beyond the ends.
NOX_INLINE int stand_in(int i, int n, int kind) {
  if (kind != noxBorderMirror || n == 1) return i < 0 ? 0 : i >= n ? n - 1 : i;
  while (i < 0 || i >= n) i = i < 0 ? -i : 2 * (n - 1) - i;
  return i;
}

inline void copy_with_border(const Region& r, const Rectangle& a, Nox32f* plane) {
  const int right = a.left + a.width;
  // Columns that are read as they stand.
  const int from = a.left < 0 && !r.has(noxBorderInMemLeft) ? 0 : a.left;
  const int to = right > r.width && !r.has(noxBorderInMemRight) ? r.width : right;
  const bool constant = r.kind() == noxBorderConst;
  for (int y = a.top; y < a.top + a.height; ++y, plane += a.width) {
    const bool outside = (y < 0 && !r.has(noxBorderInMemTop)) || (y >= r.height && !r.has(noxBorderInMemBottom));
    if (outside && constant) {
      for (int x = 0; x < a.width; ++x) plane[x] = r.value;
      continue;
    }
    const Nox32f* const row = step_by(r.src, (outside ? stand_in(y, r.height, r.kind()) : y) * r.step);
    const auto made = [&](int x) {
      if (constant)
        plane[x - a.left] = r.value;
      else
        F32x1::load(row + stand_in(x, r.width, r.kind())).store(plane + (x - a.left));
    };
    int x = a.left;
    for (; x < from; ++x) made(x);
    for (; x <= to - F32x4::N; x += F32x4::N) F32x4::load(row + x).store(plane + (x - a.left));
    for (; x < to; ++x) F32x1::load(row + x).store(plane + (x - a.left));
    for (; x < right; ++x) made(x);
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
