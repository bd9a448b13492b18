// The single-rate FIR filter: sizes, Init and the filter itself, for real and complex data.
//
// A call filters by the direct sum or by transforms, as the spec and the lengths say. Where the destination is also a
// source, outputs are staged in the work buffer and the call runs in chunks.
#include "filter/fir.hpp"

#include "core/body.hpp"
#include "core/drivers.hpp"
#include "filter/fir_direct.hpp"
#include "filter/fir_overlap.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// ---- Init
// Lays out the transform behind the taps and transforms these. A filter too long for any transform goes without.
template <class K, class E = typename K::elem>
void init_transform(FirSpec* spec, const E* taps) {
  using Transform = FirTransform<K>;
  const int tapsLen = spec->tapsLen;
  const FirTransformLayout layout(Transform::size, tapsLen, sizeof(E));
  if (layout.status) return;
  const FirLayout direct(static_cast<Nox64u>(tapsLen), sizeof(E));
  Nox8u* const memory = static_cast<Nox8u*>(spec->pTapsRev) + static_cast<size_t>(direct.taps + direct.wide);
  Nox8u* const init = memory + layout.spec;
  E* const spectrum = reinterpret_cast<E*>(init + layout.init);
  spec->fftLen = 1 << fir_order(tapsLen);
  spec->pFftMem = memory;
  spec->pFftInit = init;
  spec->pFreqResp = spectrum;
  Transform::init(&spec->pFftSpec, fir_order(tapsLen), NOX_FFT_SCALE_INV_1_N, 0, memory, init);
  copy_elements(spectrum, taps, tapsLen);
  clear_elements(spectrum + tapsLen, spec->fftLen - tapsLen);
  Transform::forward(spectrum, spectrum, spec->pFftSpec, init);
}

template <class K, class E = typename K::elem>
NOX_INLINE NoxStatus fir_init(const E* taps, int tapsLen, int algType, NoxFirSpec* memory) {
  if (tapsLen < 1) return noxStsSizeErr;
  if (!taps || !memory) return noxStsNullPtrErr;
  if (algType < NOX_ALG_AUTO || algType > NOX_ALG_FFT) return noxStsAlgTypeErr;
  char* const record = at_boundary(reinterpret_cast<char*>(memory));
  E* const reversed = reinterpret_cast<E*>(record + kBoundary);
  map_reversed<K>(reversed, taps, tapsLen, Keep{});
  if constexpr (kFirWideTaps<E>) {
    Nox64f* const wide = wide_taps(reversed, tapsLen);
    for (size_t j = 0; j < static_cast<size_t>(tapsLen); ++j)
      f64::vec::all(reversed[j].im).store(wide + j * kFirWideLanes);
  }
  FirSpec* const spec = reinterpret_cast<FirSpec*>(record);
  *spec = {tapsLen, reversed, algType, nullptr, nullptr, nullptr, nullptr, 0};
  if (algType != NOX_ALG_DIRECT) init_transform<K>(spec, taps);
  return noxStsNoErr;
}

// ---- the filter
template <class K>
NOX_INLINE bool transforms(const FirSpec* spec, int n) {
  if (!spec->pFftSpec) return false;
  const FirThreshold from = FirTransform<K>::threshold;
  return spec->algType == NOX_ALG_FFT || (spec->tapsLen >= from.taps && n >= from.samples);
}

// The parts of the work buffer that belong to no method.
template <class E>
struct FirStages {
  E* delay;    // delay line kept between chunks
  E* outputs;  // of one chunk
  Nox8u* end;
  NOX_INLINE FirStages(const FirSpec* spec, Nox8u* work) {
    const FirLayout layout(static_cast<Nox64u>(spec->tapsLen), sizeof(E));
    delay = reinterpret_cast<E*>(work + static_cast<size_t>(layout.sequence));
    outputs = reinterpret_cast<E*>(work + static_cast<size_t>(layout.sequence + layout.delay));
    end = work + static_cast<size_t>(layout.work_bytes());
  }
};

// Destination is a source: each chunk has read all it needs, the next delay line included, before it is written.
template <class Method, class E>
NOX_INLINE void filter_staged(const Method& method, const FirStages<E>& stages, const E* s, E* d, int n,
                              const E* dlySrc, E* dlyDst) {
  for (int done = 0; done < n;) {
    const int chunk = n - done < kFirChunk<E> ? n - done : kFirChunk<E>;
    method.filter(s + done, stages.outputs, chunk, dlySrc, stages.delay);
    copy_elements(d + done, stages.outputs, chunk);
    dlySrc = stages.delay;
    done += chunk;
  }
  if (dlyDst) copy_elements(dlyDst, stages.delay, method.delayLen);
}

template <class K, class E = typename K::elem>
NOX_INLINE NoxStatus fir(const E* s, E* d, int n, const NoxFirSpec* memory, const E* dlySrc, E* dlyDst, Nox8u* work) {
  if (const NoxStatus st = check(n, memory, s, d, work)) return st;
  const FirSpec* const spec = reinterpret_cast<const FirSpec*>(at_boundary(memory));
  const FirStages<E> stages(spec, work);
  const auto run = [&](const auto& method) {
    if (s == d || d == dlySrc)
      filter_staged(method, stages, s, d, n, dlySrc, dlyDst);
    else
      method.filter(s, d, n, dlySrc, dlyDst);
  };
  if (transforms<K>(spec, n))
    run(FirOverlap<K>(spec, stages.end));
  else
    run(FirDirect<K>(spec, work));
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
  const bool complex = tapsType == NOX_TYPE_32FC || tapsType == NOX_TYPE_64FC;
  const FirLayout layout(static_cast<Nox64u>(tapsLen), element);
  // The method isn't known here, so the transform's memory is always counted.
  const FirTransformLayout transform(complex ? FirTransform<c64>::size : FirTransform<f64>::size, tapsLen, element);
  const Nox64u spec = layout.spec_bytes() + transform.spec_bytes(), work = layout.work_bytes() + transform.work_bytes();
  const bool fits = !transform.status && spec <= INT32_MAX && work <= INT32_MAX;
  *pSpecSize = fits ? static_cast<int>(spec) : 0;
  *pBufSize = fits ? static_cast<int>(work) : 0;
  return transform.status ? transform.status : fits ? noxStsNoErr : noxStsFftOrderErr;
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
