// The planes that the filters' rows and their peers work on: sizes, taps, and a plane extended by its border.
#pragma once

namespace {

constexpr int kSide = 1024, kMostTaps = 15 * 15;
constexpr float kConstant = 0.5f;  // of the border that is one

// Coefficient i of a kernel k wide: different ones, whose sum is about 1.
template <class T>
T tap(int i, int k) {
  return static_cast<T>(i % 7 + 1) / static_cast<T>(4 * k * k);
}

// The plane s with what is beyond its edges made by kind (1: the edge, 3: mirrored, 6: the constant).
template <class T>
void pad(const T* s, T* plane, int k, int kind) {
  const int before = (k - 1) / 2, across = kSide + k - 1;
  const auto place = [kind](int i) {
    if (kind == 3) return i < 0 ? -i : i >= kSide ? 2 * (kSide - 1) - i : i;
    return i < 0 ? 0 : i >= kSide ? kSide - 1 : i;
  };
  for (int y = 0; y < across; ++y)
    for (int x = 0; x < across; ++x) {
      const int sy = y - before, sx = x - before;
      const bool inside = sy >= 0 && sy < kSide && sx >= 0 && sx < kSide;
      plane[y * across + x] = kind == 6 && !inside ? static_cast<T>(kConstant) : s[place(sy) * kSide + place(sx)];
    }
}

}  // namespace
