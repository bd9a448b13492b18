// The single-rate FIR filter: sizes, Init and the filter itself, for real and complex data.
//
// A call joins the delay line and the first samples in the work buffer, so that every output is one sum over one
// window: the first outputs over the joined sequence, the others over the source. Where the destination is also a
// source, outputs are staged in the work buffer and the call runs in chunks.
#include "filter/fir.hpp"

#include "core/body.hpp"
#include "core/drivers.hpp"
#include "filter/fir_kernels.hpp"
#include "vector/block.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Moves and clears of whole elements, for arrays that don't overlap; a length of 0 does nothing.
template <class E>
NOX_INLINE void copy_elements(E* d, const E* s, int len) {
  copy_bytes(d, s, static_cast<size_t>(len) * sizeof(E));
}
template <class E>
NOX_INLINE void clear_elements(E* d, int len) {
  zero_bytes(d, static_cast<size_t>(len) * sizeof(E));
}

// Bytes of an element by its type code; 0 for the codes that have no filter.
Nox64u element_bytes(int type) {
  switch (type) {
    case NOX_TYPE_32F:
      return sizeof(Nox32f);
    case NOX_TYPE_32FC:
      return sizeof(Nox32fc);
    case NOX_TYPE_64F:
      return sizeof(Nox64f);
    case NOX_TYPE_64FC:
      return sizeof(Nox64fc);
    default:
      return 0;
  }
}

// The wide taps, behind the reversed ones.
template <class E>
NOX_INLINE Nox64f* wide_taps(const E* reversed, int tapsLen) {
  const FirLayout layout(static_cast<Nox64u>(tapsLen), sizeof(E));
  return reinterpret_cast<Nox64f*>(reinterpret_cast<uintptr_t>(reversed) + static_cast<size_t>(layout.taps));
}

template <class K, class E = typename K::elem>
NOX_INLINE NoxStatus fir_init(const E* taps, int tapsLen, int algType, NoxFirSpec* memory) {
  if (tapsLen < 1) return noxStsSizeErr;
  if (!taps || !memory) return noxStsNullPtrErr;
  if (algType < NOX_ALG_AUTO || algType > NOX_ALG_FFT) return noxStsAlgTypeErr;
  char* const record = first_boundary(reinterpret_cast<char*>(memory));
  E* const reversed = reinterpret_cast<E*>(record + kFirAlign);
  map_reversed<K>(reversed, taps, tapsLen, Keep{});
  if constexpr (kFirWideTaps<E>) {
    Nox64f* const wide = wide_taps(reversed, tapsLen);
    for (size_t j = 0; j < static_cast<size_t>(tapsLen); ++j)
      f64::vec::all(reversed[j].im).store(wide + j * kFirWideLanes);
  }
  *reinterpret_cast<FirSpec*>(record) = {tapsLen, reversed, algType, nullptr, nullptr, nullptr, nullptr, 0};
  return noxStsNoErr;
}

// One call's view of the spec and the work buffer.
template <class K>
struct Fir {
  using E = typename K::elem;
  int delayLen;
  FirTaps<E> taps;
  E* sequence;  // delayLen delay elements, then at most delayLen samples
  E* delay;     // delayLen elements kept between chunks
  E* staging;   // outputs of one chunk

  NOX_INLINE Fir(const NoxFirSpec* memory, Nox8u* work) {
    const FirSpec* const spec = reinterpret_cast<const FirSpec*>(first_boundary(memory));
    const int tapsLen = spec->tapsLen;
    const E* const reversed = static_cast<const E*>(spec->pTapsRev);
    delayLen = tapsLen - 1;
    taps = {reversed, reversed + tapsLen, wide_taps(reversed, tapsLen)};
    const FirLayout layout(static_cast<Nox64u>(tapsLen), sizeof(E));
    sequence = reinterpret_cast<E*>(work);
    delay = reinterpret_cast<E*>(work + static_cast<size_t>(layout.sequence));
    staging = reinterpret_cast<E*>(work + static_cast<size_t>(layout.sequence + layout.delay));
  }

  // Lays down the sequence: the delay line, or zeros for null, and the first samples behind it.
  NOX_INLINE void join(const E* dlySrc, const E* s, int n) const {
    if (dlySrc)
      copy_elements(sequence, dlySrc, delayLen);
    else
      clear_elements(sequence, delayLen);
    copy_elements(sequence + delayLen, s, n < delayLen ? n : delayLen);
  }

  // The last delayLen samples up to the n-th of s. Taken from the joined sequence, never from the old delay line, so
  // it may be written over that.
  NOX_INLINE void next_delay(E* dlyDst, const E* s, int n) const {
    copy_elements(dlyDst, n < delayLen ? sequence + n : s + (n - delayLen), delayLen);
  }

  // n outputs: those whose windows begin before s from the sequence, the others from s.
  NOX_INLINE void outputs(const E* s, E* d, int n) const {
    const size_t all = static_cast<size_t>(n), past = static_cast<size_t>(delayLen), joined = all < past ? all : past;
    run(sequence, d, joined);
    run(s, d + joined, all - joined);
  }

  // One copy of the kernels for both places they are called from.
  __attribute__((noinline)) static void sums(const E* s, E* d, size_t n, const FirTaps<E>& taps) {
    fir_outputs<K>(s, d, n, taps);
  }
  NOX_INLINE void run(const E* s, E* d, size_t n) const {
    if (n) sums(s, d, n, taps);
  }

  // Destination apart from the sources.
  NOX_INLINE void filter(const E* s, E* d, int n, const E* dlySrc, E* dlyDst) const {
    join(dlySrc, s, n);
    if (dlyDst) next_delay(dlyDst, s, n);
    outputs(s, d, n);
  }

  // Destination is a source: each chunk has read all it needs, the next delay line included, before it is written.
  NOX_INLINE void filter_staged(const E* s, E* d, int n, const E* dlySrc, E* dlyDst) const {
    for (int done = 0; done < n;) {
      const int chunk = n - done < kFirChunk<E> ? n - done : kFirChunk<E>;
      join(dlySrc, s + done, chunk);
      next_delay(delay, s + done, chunk);
      outputs(s + done, staging, chunk);
      copy_elements(d + done, staging, chunk);
      dlySrc = delay;
      done += chunk;
    }
    if (dlyDst) copy_elements(dlyDst, delay, delayLen);
  }
};

template <class K, class E = typename K::elem>
NOX_INLINE NoxStatus fir(const E* s, E* d, int n, const NoxFirSpec* spec, const E* dlySrc, E* dlyDst, Nox8u* work) {
  if (const NoxStatus st = check(n, spec, s, d, work)) return st;
  const Fir<K> fir(spec, work);
  if (s == d || d == dlySrc)
    fir.filter_staged(s, d, n, dlySrc, dlyDst);
  else
    fir.filter(s, d, n, dlySrc, dlyDst);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsFIRSRGetSize)(int tapsLen, int tapsType, int* pSpecSize, int* pBufSize) {
  if (tapsLen < 1) return noxStsSizeErr;
  const Nox64u element = element_bytes(tapsType);
  if (element == 0) return noxStsDataTypeErr;
  if (!pSpecSize || !pBufSize) return noxStsNullPtrErr;
  const FirLayout layout(static_cast<Nox64u>(tapsLen), element);
  const bool fits = layout.spec_bytes() <= INT32_MAX && layout.work_bytes() <= INT32_MAX;
  *pSpecSize = fits ? static_cast<int>(layout.spec_bytes()) : 0;
  *pBufSize = fits ? static_cast<int>(layout.work_bytes()) : 0;
  return fits ? noxStsNoErr : noxStsFftOrderErr;
}

NoxStatus NOX_BODY(noxsFIRSRInit_64f)(const Nox64f* pTaps, int tapsLen, int algType, NoxFirSpec* pSpec) {
  return fir_init<f64>(pTaps, tapsLen, algType, pSpec);
}
NoxStatus NOX_BODY(noxsFIRSRInit_64fc)(const Nox64fc* pTaps, int tapsLen, int algType, NoxFirSpec* pSpec) {
  return fir_init<c64>(pTaps, tapsLen, algType, pSpec);
}

NoxStatus NOX_BODY(noxsFIRSR_64f)(const Nox64f* pSrc, Nox64f* pDst, int numIters, const NoxFirSpec* pSpec,
                                  const Nox64f* pDlySrc, Nox64f* pDlyDst, Nox8u* pBuf) {
  return fir<f64>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}
NoxStatus NOX_BODY(noxsFIRSR_64fc)(const Nox64fc* pSrc, Nox64fc* pDst, int numIters, const NoxFirSpec* pSpec,
                                   const Nox64fc* pDlySrc, Nox64fc* pDlyDst, Nox8u* pBuf) {
  return fir<c64>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}

}  // extern "C"
