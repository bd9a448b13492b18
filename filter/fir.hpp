// The single-rate FIR filter's record, the places of everything in the caller's two pieces of memory, and the lengths
// from which each build filters by transforms.
//
// Spec memory, from its first 64-byte boundary: the record, 64 bytes on the reversed taps, behind them the wide taps of
// the builds that use them; then the transform's spec, its init memory and the spectrum of the taps. Work memory, from
// its own address, whatever that is: the joined sequence (delay line, then first samples), room for two delay lines
// kept between chunks, 32768 bytes for the outputs of one chunk; then a block of the transform and its work memory.
#pragma once
#include "core/simd/c64.hpp"
#include "filter/fir_kernels.hpp"
#include "nox/filter.h"
#include "transform/fft.hpp"
#include "transform/memory.hpp"

namespace nox {
inline namespace NOX_VARIANT {

struct FirSpec {
  Nox32s tapsLen;
  void* pTapsRev;  // Nox64f or Nox64fc, by the Init that made the record; element j is tap tapsLen - 1 - j
  Nox32s algType;
  NoxFftSpec* pFftSpec;  // these five stay empty in a spec of the direct sum alone
  void* pFftMem;
  void* pFftInit;
  void* pFreqResp;
  Nox32s fftLen;
};

constexpr size_t kFirStaging = 32768;  // bytes of outputs staged at a time
static_assert(sizeof(FirSpec) <= kBoundary, "the taps stand 64 bytes behind the record");

template <class E>
constexpr int kFirChunk = static_cast<int>(kFirStaging / sizeof(E));

// The shortest filter and call for which transforms are faster than the direct sum.
struct FirThreshold {
  int taps, samples;
};
struct FirVariant {
  FirThreshold real, complex;
};
namespace fir_variants {
constexpr FirVariant w7{{124, 640}, {40, 512}};
constexpr FirVariant s8{{48, 384}, {18, 256}};
constexpr FirVariant p8{{48, 384}, {18, 256}};
constexpr FirVariant g9{{48, 384}, {16, 256}};
constexpr FirVariant h9{{40, 384}, {17, 256}};
}  // namespace fir_variants
constexpr FirVariant fir_variant = fir_variants::NOX_VARIANT;

// Real and complex elements and their transforms.
template <class K>
struct FirTransform;
template <>
struct FirTransform<f64> {
  static constexpr FirThreshold threshold = fir_variant.real;
  static constexpr auto size = noxsRealFftGetSize;
  static constexpr auto init = noxsRealFftInit;
  static constexpr auto forward = noxsRealFftFwdPerm;
  static constexpr auto inverse = noxsRealFftInvPerm;
};
template <>
struct FirTransform<c64> {
  static constexpr FirThreshold threshold = fir_variant.complex;
  static constexpr auto size = noxsCplxFftGetSize;
  static constexpr auto init = noxsCplxFftInit;
  static constexpr auto forward = noxsCplxFftFwd;
  static constexpr auto inverse = noxsCplxFftInv;
};

// Order of the transform: more than twice the taps, at most four times. It may pass what transforms exist for.
constexpr int fir_order(int tapsLen) { return 33 - __builtin_clz(static_cast<unsigned>(tapsLen)); }

// Bytes of the transform's parts, and the status of its size query.
struct FirTransformLayout {
  NoxStatus status;
  int spec = 0, init = 0, work = 0;
  Nox64u block;  // of N elements
  template <class Size>
  FirTransformLayout(Size size, int tapsLen, Nox64u element) : block(element << fir_order(tapsLen)) {
    status = size(fir_order(tapsLen), NOX_FFT_SCALE_INV_1_N, 0, &spec, &init, &work);
    if (init < work) init = work;  // it serves the transform of the taps as work memory
  }
  Nox64u spec_bytes() const { return static_cast<Nox64u>(spec) + static_cast<Nox64u>(init) + block; }
  Nox64u work_bytes() const { return static_cast<Nox64u>(work) + block; }
};

// Bytes of the other parts, for taps of `element` bytes each.
struct FirLayout {
  Nox64u taps;      // reversed taps
  Nox64u wide;      // imaginary parts of complex taps, each in all lanes of a vector
  Nox64u sequence;  // room for a delay line and as many samples
  Nox64u delay;     // two delay lines; one is kept between chunks, the second is room that callers count on
  constexpr FirLayout(Nox64u tapsLen, Nox64u element)
      : taps(round_to_boundary(element * tapsLen)),
        wide(element == sizeof(Nox64fc) && kFirWideTaps<Nox64fc>
                 ? round_to_boundary(kFirWideLanes * sizeof(Nox64f) * tapsLen)
                 : 0),
        sequence(round_to_boundary(2 * element * tapsLen)),
        delay(round_to_boundary(2 * element * (tapsLen - 1))) {}
  constexpr Nox64u spec_bytes() const { return (kBoundary - 1) + kBoundary + taps + wide; }
  constexpr Nox64u work_bytes() const { return sequence + delay + kFirStaging; }
};

}  // namespace NOX_VARIANT
}  // namespace nox
