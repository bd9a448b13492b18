// One call of the single-rate filter by the direct sum.
//
// Delay line and first samples are joined in the work buffer, so that every output is one sum over one window: the
// first outputs over the joined sequence, the others over the source.
#pragma once
#include "filter/elements.hpp"
#include "filter/fir.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The wide taps, behind the reversed ones.
template <class E>
NOX_INLINE Nox64f* wide_taps(const E* reversed, int tapsLen) {
  const FirLayout layout(static_cast<Nox64u>(tapsLen), sizeof(E));
  return reinterpret_cast<Nox64f*>(reinterpret_cast<uintptr_t>(reversed) + static_cast<size_t>(layout.taps));
}

template <class K>
struct FirDirect {
  using E = typename K::elem;
  int delayLen;
  FirTaps<E> taps;
  E* sequence;  // delayLen delay elements, then at most delayLen samples

  NOX_INLINE FirDirect(const FirSpec* spec, Nox8u* work) {
    const int tapsLen = spec->tapsLen;
    const E* const reversed = static_cast<const E*>(spec->pTapsRev);
    delayLen = tapsLen - 1;
    taps = {reversed, reversed + tapsLen, wide_taps(reversed, tapsLen)};
    sequence = reinterpret_cast<E*>(work);
  }

  // n outputs to d, which is none of the sources; dlyDst, unless null, takes the last samples. Both delay lines are
  // read from the joined sequence alone, so they may be one array.
  NOX_INLINE void filter(const E* s, E* d, int n, const E* dlySrc, E* dlyDst) const {
    load_delay(sequence, dlySrc, delayLen);
    copy_elements(sequence + delayLen, s, n < delayLen ? n : delayLen);
    if (dlyDst) copy_elements(dlyDst, n < delayLen ? sequence + n : s + (n - delayLen), delayLen);
    const size_t all = static_cast<size_t>(n), past = static_cast<size_t>(delayLen), joined = all < past ? all : past;
    run(sequence, d, joined);
    run(s, d + joined, all - joined);
  }

 private:
  // One copy of the kernels for both places they are called from.
  __attribute__((noinline)) static void sums(const E* s, E* d, size_t n, const FirTaps<E>& taps) {
    fir_outputs<K>(s, d, n, taps);
  }
  NOX_INLINE void run(const E* s, E* d, size_t n) const {
    if (n) sums(s, d, n, taps);
  }
};

}  // namespace NOX_VARIANT
}  // namespace nox
