// One call of the single-rate filter by overlap-save: blocks of N samples, delay line in front, are multiplied by the
// taps' spectrum; of the circular product the last N - delayLen elements are outputs.
//
// The first block is put together in the work buffer. The others lie in the source as they are, and the transform reads
// them from there, until what is left is shorter than a block.
#pragma once
#include "core/drivers.hpp"
#include "filter/elements.hpp"
#include "filter/fir.hpp"

namespace nox {
inline namespace NOX_VARIANT {

struct MultiplySpectra {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return a * b;
  }
};
NOX_INLINE void multiply_spectra(const Nox64f* by, Nox64f* d, int n) { noxsMulPerm_I(by, d, n); }
NOX_INLINE void multiply_spectra(const Nox64fc* by, Nox64fc* d, int n) {
  map<split_c64>(d, n, MultiplySpectra{}, by, static_cast<const Nox64fc*>(d));
}

template <class K>
struct FirOverlap {
  using E = typename K::elem;
  using Transform = FirTransform<K>;
  const NoxFftSpec* fft;
  const E* spectrum;
  int delayLen, len, valid;  // len is N, of which `valid` are outputs
  E* block;
  Nox8u* fftWork;

  // `place` is where the direct sum's part of the work buffer ends.
  NOX_INLINE FirOverlap(const FirSpec* spec, Nox8u* place) {
    fft = spec->pFftSpec;
    spectrum = static_cast<const E*>(spec->pFreqResp);
    delayLen = spec->tapsLen - 1;
    len = spec->fftLen;
    valid = len - delayLen;
    // The transform's work memory has the slack to start at a boundary; the block in front of it takes that.
    if (fft->workSize > 0) place = at_boundary(place);
    block = reinterpret_cast<E*>(place);
    fftWork = reinterpret_cast<Nox8u*>(block + len);
  }

  // As the direct sum's.
  void filter(const E* s, E* d, int n, const E* dlySrc, E* dlyDst) const {
    const int first = n < valid ? n : valid;
    load_delay(block, dlySrc, delayLen);
    copy_elements(block + delayLen, s, first);
    clear_elements(block + delayLen + first, valid - first);
    if (dlyDst) copy_elements(dlyDst, n < delayLen ? block + n : s + (n - delayLen), delayLen);
    product(block, d, first);

    s += first - delayLen;
    d += first;
    for (int rest = n - first; rest > 0; rest -= valid) {
      const E* window = s;
      if (rest < len) {
        const int left = delayLen + rest < len ? delayLen + rest : len;
        copy_elements(block, s, left);
        clear_elements(block + left, len - left);
        window = block;
      }
      product(window, d, rest < valid ? rest : valid);
      s += valid;
      d += valid;
    }
  }

 private:
  // The first n outputs of the block at `window`.
  void product(const E* window, E* d, int n) const {
    Transform::forward(window, block, fft, fftWork);
    multiply_spectra(spectrum, block, len);
    Transform::inverse(block, block, fft, fftWork);
    copy_elements(d, block + delayLen, n);
  }
};

}  // namespace NOX_VARIANT
}  // namespace nox
