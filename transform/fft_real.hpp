// What the parts of the real transform share: the ranges of its build, the recombination tables, the short transforms.
//
// N real values are transformed as N/2 complex ones, whose spectrum a recombination turns into that of the real data.
// The shortest lengths have straight-line routines instead.
#pragma once
#include "transform/fft.hpp"
#include "transform/sine.hpp"

namespace nox {
inline namespace NOX_VARIANT {

constexpr int kRealFftMaxOrder = kFftMaxOrder + 1;

struct RealFftRange {
  int direct;        // orders up to this one are straight lines
  int two_level;     // from this order on the recombination's factors are made of two short tables
  bool limit_first;  // an order above the limit is refused before a bad flag is
};
namespace real_fft_ranges {
constexpr RealFftRange w7{5, 18, false}, s8{5, 18, false}, p8{5, 19, false}, g9{4, 18, false}, h9{4, 18, true};
}  // namespace real_fft_ranges
constexpr RealFftRange real_fft_range = real_fft_ranges::NOX_VARIANT;

// Transforms of an order up to the direct range, spectrum in head layout, every result multiplied by the scale if
// there is one. In place if s is d.
NOX_HIDDEN void real_direct(bool inverse, bool scaled, int order, const Nox64f* s, Nox64f* d, Nox64f scale);

// ---- recombination, for orders above the direct range
// Bytes of one table; there are two, forward and inverse.
constexpr Nox64u recombination_bytes(int order) {
  const Nox64u n = Nox64u{1} << order;
  return order < real_fft_range.two_level ? (4 * n + 63) & ~Nox64u{63} : (n / 128 + 8255) & ~Nox64u{63};
}
// Out of a wave of 2^order samples.
NOX_HIDDEN void make_recombination(int order, const Wave& wave, Nox64f* forward, Nox64f* inverse);
// From the half-length spectrum to that of the real data, in place.
NOX_HIDDEN void recombine_forward(int order, const Nox64f* table, Nox64f* d);
// And back, doubled, in place or to another array.
NOX_HIDDEN void recombine_inverse(int order, const Nox64f* table, const Nox64f* s, Nox64f* d);

// ---- products without recombination
// Of real data transformed as m complex values each, two samples in one: d becomes what the inverse complex transform
// takes to the data whose spectrum is the product, or that with the conjugate of b's. d may be a or b, and these one;
// the wave is of m samples, and from m = 4 on asked for.
NOX_HIDDEN void multiply_halves(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, size_t m, const Wave& wave);
NOX_HIDDEN void multiply_halves_conj(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, size_t m, const Wave& wave);

}  // namespace NOX_VARIANT
}  // namespace nox
