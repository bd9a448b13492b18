// The single-rate FIR filter's record, and the places of everything in the caller's two pieces of memory.
//
// Spec memory, from its first 64-byte boundary: the record, 64 bytes on the reversed taps, behind them the wide taps of
// the builds that use them. Work memory, from its own address, whatever that is: the joined sequence (delay line, then
// first samples), room for two delay lines kept between chunks, and 32768 bytes for the outputs of one chunk.
#pragma once
#include "filter/fir_kernels.hpp"
#include "nox/filter.h"

namespace nox {
inline namespace NOX_VARIANT {

struct FirSpec {
  Nox32s tapsLen;
  void* pTapsRev;  // Nox64f or Nox64fc, by the Init that made the record; element j is tap tapsLen - 1 - j
  Nox32s algType;
  void* pFftSpec;  // these five belong to overlap-save and stay empty without it
  void* pFftMem;
  void* pFftInit;
  void* pFreqResp;
  Nox32s fftLen;
};

constexpr size_t kFirAlign = 64;       // of the record, and the distance from it to the taps
constexpr size_t kFirStaging = 32768;  // bytes of outputs staged at a time
static_assert(sizeof(FirSpec) <= kFirAlign, "the taps stand 64 bytes behind the record");

template <class E>
constexpr int kFirChunk = static_cast<int>(kFirStaging / sizeof(E));

constexpr Nox64u round64(Nox64u bytes) { return (bytes + 63) & ~Nox64u{63}; }

// The record inside the caller's memory; reading and writing have the same place.
template <class T>
NOX_INLINE T* first_boundary(T* p) {
  return reinterpret_cast<T*>((reinterpret_cast<uintptr_t>(p) + kFirAlign - 1) & ~(kFirAlign - 1));
}

// Bytes of the parts, for taps of `element` bytes each.
struct FirLayout {
  Nox64u taps;      // reversed taps
  Nox64u wide;      // imaginary parts of complex taps, each in all lanes of a vector
  Nox64u sequence;  // room for a delay line and as many samples
  Nox64u delay;     // two delay lines; the direct sum keeps one between chunks and leaves the second alone
  constexpr FirLayout(Nox64u tapsLen, Nox64u element)
      : taps(round64(element * tapsLen)),
        wide(element == sizeof(Nox64fc) && kFirWideTaps<Nox64fc> ? round64(kFirWideLanes * sizeof(Nox64f) * tapsLen)
                                                                 : 0),
        sequence(round64(2 * element * tapsLen)),
        delay(round64(2 * element * (tapsLen - 1))) {}
  constexpr Nox64u spec_bytes() const { return (kFirAlign - 1) + kFirAlign + taps + wide; }
  constexpr Nox64u work_bytes() const { return sequence + delay + kFirStaging; }
};

}  // namespace NOX_VARIANT
}  // namespace nox
