// The cosine transform's record, the four ways to compute it, and the places of their tables.
//
// Spec memory, from its first boundary: the record, at the next boundary but one the tables, and behind them the spec
// of the Fourier transform where one is used. Work memory, from its first boundary: the sequence being transformed,
// then the Fourier transform's own.
#pragma once
#include "core/simd/f64.hpp"
#include "nox/transform.h"
#include "transform/fft.hpp"
#include "transform/memory.hpp"

namespace nox {
inline namespace NOX_VARIANT {

constexpr Nox32s kDctForward = 25, kDctInverse = 26;  // idCtx of a spec

struct DctSpec {
  Nox32s idCtx;
  Nox32s len;
  Nox32s hint;      // the caller's, stored and never consulted
  Nox32s workSize;  // bytes of work memory a transform needs; 0 for none
  Nox32s reserved;
  alignas(8) Nox64f scale0;  // 1/sqrt(N), of element 0
  Nox64f scaleK;             // sqrt(2)/sqrt(N), of the others
  Nox32s isSmall;
  Nox32s isPow2;
  Nox32s isChirp;
  Nox32s chirpFftLen;
  const Nox64f* pCosTable;
  const Nox64fc* pPostTwiddle;
  const Nox64fc* pCombine;
  const Nox64fc* pChirp;
  const Nox64fc* pChirpFilter;
  const NoxFftSpec* pFftSpec;
};
static_assert(sizeof(void*) != 4 || sizeof(DctSpec) == 80, "the record has 80 bytes");
constexpr size_t kDctTables = 128;  // distance from the record to the tables
constexpr size_t kDctSlack = 192;   // bytes of record and slack

// The ways by length.
enum class DctPath { kLines, kFft, kDirect, kChirp };
constexpr int kDctLongestLine = 8, kDctFirstChirp = 46;

constexpr DctPath dct_path(int len) {
  if ((len & (len - 1)) == 0) return len <= kDctLongestLine ? DctPath::kLines : DctPath::kFft;
  return len < kDctFirstChirp ? DctPath::kDirect : DctPath::kChirp;
}
constexpr int log2_up(Nox32u n) {
  int order = 0;
  while ((Nox32u{1} << order) < n) ++order;
  return order;
}

// The chirp path runs a Fourier transform of `points` values on one of 2^order.
struct DctChirp {
  Nox32u points;
  int order;
  explicit constexpr DctChirp(int len)
      : points(static_cast<Nox32u>(len % 2 ? len : len / 2)), order(log2_up(2 * points - 1)) {}
  constexpr size_t fft_len() const { return size_t{1} << order; }
};

// Each path: makes its tables at `tables`, and the spec that owns them; runs a transform out of place or in place.
NOX_HIDDEN NoxStatus dct_init_fft(DctSpec* spec, bool inverse, Nox8u* tables, Nox8u* init);
NOX_HIDDEN NoxStatus dct_init_direct(DctSpec* spec, Nox8u* tables);
NOX_HIDDEN NoxStatus dct_init_chirp(DctSpec* spec, bool inverse, Nox8u* tables, Nox8u* init);

using DctRun = NoxStatus (*)(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work);
NOX_HIDDEN NoxStatus dct_lines_forward(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work);
NOX_HIDDEN NoxStatus dct_lines_inverse(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work);
NOX_HIDDEN NoxStatus dct_fft_forward(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work);
NOX_HIDDEN NoxStatus dct_fft_inverse(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work);
NOX_HIDDEN NoxStatus dct_direct_forward(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work);
NOX_HIDDEN NoxStatus dct_direct_inverse(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work);
NOX_HIDDEN NoxStatus dct_chirp_forward(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work);
NOX_HIDDEN NoxStatus dct_chirp_inverse(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work);

// ---- steps that both transforms by Fourier transforms take
// d: elements of even places ascending, then those of odd places descending; and back. For an even count.
NOX_HIDDEN void dct_part(const Nox64f* s, Nox64f* d, size_t n);
NOX_HIDDEN void dct_unpart(const Nox64f* s, Nox64f* d, size_t n);
// The factors g * e^(i*k*pi/(2N)) for k < count, the first one 1/sqrt(N). The pairs of an inverse are doubled by the
// transform, so its g is half as large.
NOX_HIDDEN void dct_make_turns(const DctSpec& spec, bool inverse, Nox64fc* turns, size_t count);
// Between the n cosine coefficients and the half spectrum, for an even count: element k of the spectrum turned back by
// its factor gives coefficients k and n - k. The spectrum's first element holds those at 0 and n/2.
NOX_HIDDEN void dct_turn_out(const Nox64fc* spectrum, const Nox64fc* turns, Nox64f* d, size_t n);
NOX_HIDDEN void dct_turn_in(const Nox64f* s, const Nox64fc* turns, Nox64fc* spectrum, size_t n);

}  // namespace NOX_VARIANT
}  // namespace nox
