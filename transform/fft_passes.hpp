// Passes over the whole array, for the middle and the small orders of the plan.
//
// After the pass that makes sub-transforms of length L the array holds r = N / L of them one after the other, each in
// natural order: sub-transform q is that of the elements q, q + r, q + 2r, ... A pass joins the sub-transforms q,
// q + r/4, q + 2r/4, q + 3r/4 to one of length 4L at place q. It therefore reads at four places N/4 apart and writes
// at four places L apart, whole vectors in ascending order, and no separate reordering is needed. The first pass,
// from single elements, has no twiddle factors and exchanges halves of vectors instead.
#pragma once
#include "transform/fft_butterfly.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <bool Inverse>
NOX_PASS void first_pass_of_four(const Nox64fc* x, Nox64fc* y, size_t step, Nox64f scale) {
  const C64x2 factor = {_mm256_set1_pd(scale)};
  const Nox64fc* const end = x + step;
  do {
    C64x2 f[4];
    four<Inverse>(
        [&](int j)
            NOX_INLINED { return C64x2{_mm256_mul_pd(factor.v, C64x2::load(x + static_cast<size_t>(j) * step).v)}; },
        [&](int j, C64x2 v) NOX_INLINED { f[j] = v; });
    low_pair(f[0], f[1]).store(y);
    low_pair(f[2], f[3]).store(y + 2);
    high_pair(f[0], f[1]).store(y + 4);
    high_pair(f[2], f[3]).store(y + 6);
    x += 2, y += 8;
  } while (x != end);
}

template <bool Inverse>
NOX_PASS void first_pass_of_eight(const Nox64fc* x, Nox64fc* y, size_t step, Nox64f scale) {
  const C64x2 factor = {_mm256_set1_pd(scale)};
  const Nox64fc* const end = x + step;
  do {
    C64x2 f[8];
    eight<Inverse>(
        [&](int j)
            NOX_INLINED { return C64x2{_mm256_mul_pd(factor.v, C64x2::load(x + static_cast<size_t>(j) * step).v)}; },
        [&](int j, C64x2 v) NOX_INLINED { f[j] = v; });
    low_pair(f[0], f[1]).store(y);
    high_pair(f[0], f[1]).store(y + 8);
    low_pair(f[2], f[3]).store(y + 2);
    high_pair(f[2], f[3]).store(y + 10);
    low_pair(f[4], f[5]).store(y + 4);
    high_pair(f[4], f[5]).store(y + 12);
    low_pair(f[6], f[7]).store(y + 6);
    high_pair(f[6], f[7]).store(y + 14);
    x += 2, y += 16;
  } while (x != end);
}

// Joins sub-transforms of length l in an array of four times `step` elements. Only the last pass, with l == step, may
// be in place.
template <bool Inverse, bool Wide>
NOX_PASS void pass_of_four(const Nox64fc* x, Nox64fc* y, size_t step, size_t l, const Nox64f* twiddles) {
  const Nox64fc* const end = x + step;
  do {
    const Nox64f* w = twiddles;
    const Nox64fc* const part = x + l;
    do {
      four<Inverse>(
          [=](int j) NOX_INLINED {
            const Nox64fc* const at = x + static_cast<size_t>(j) * step;
            return j == 0 ? fetch(at) : twiddled<Inverse, Wide>(at, w, j - 1);
          },
          [=](int j, C64x2 v) NOX_INLINED { v.store(y + static_cast<size_t>(j) * l); });
      x += 2, y += 2, w += kTwiddleStep<Wide>;
    } while (x != part);
    y += 3 * l;
  } while (x != end);
}

// Doubles of the twiddle factors of a pass over sub-transforms of length l.
constexpr size_t pass_doubles(size_t l, bool wide) { return l / 2 * (wide ? 24 : 12); }

}  // namespace NOX_VARIANT
}  // namespace nox
