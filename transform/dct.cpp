// The cosine transform: sizes, Init, and the choice of the way by the length, which is made at Init.
#include "transform/dct.hpp"

#include "core/body.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr int kFftLimit = 0x7FFFFFF, kChirpQueryLimit = 0xFFFFFF, kChirpInitLimit = 0x1FFFFFF;

constexpr bool within_limit(int len, int chirp_limit) {
  const DctPath path = dct_path(len);
  return !(path == DctPath::kFft && len > kFftLimit) && !(path == DctPath::kChirp && len > chirp_limit);
}

// Bytes of the three memories.
struct Sizes {
  Nox64u spec, init, work;
};

NoxStatus sizes_of(int len, Sizes& sizes) {
  const Nox64u n = static_cast<Nox64u>(len);
  int spec = 0, init = 0, work = 0;
  switch (dct_path(len)) {
    case DctPath::kLines:
      sizes = {144, 0, 0};
      return noxStsNoErr;
    case DctPath::kDirect:
      sizes = {32 * n + kDctSlack, 0, 8 * n + kBoundary};
      return noxStsNoErr;
    case DctPath::kFft: {
      const int order = log2_up(static_cast<Nox32u>(len));
      if (const NoxStatus st = noxsRealFftGetSize(order, NOX_FFT_SCALE_NONE, 0, &spec, &init, &work)) return st;
      sizes = {8 * n + kDctSlack, 0, 8 * n + kBoundary};
      break;
    }
    case DctPath::kChirp: {
      const DctChirp chirp(len);
      if (const NoxStatus st = noxsCplxFftGetSize(chirp.order, NOX_FFT_SCALE_NONE, 0, &spec, &init, &work)) return st;
      sizes = {16 * (Nox64u{3} * chirp.points + chirp.fft_len()) + kDctSlack, 0,
               16 * Nox64u{chirp.fft_len()} + kBoundary};
      if (init < work) init = work;  // the filter is transformed there
      break;
    }
  }
  sizes.spec += static_cast<Nox64u>(spec);
  sizes.work += static_cast<Nox64u>(work);
  if (init > 0) sizes.init = static_cast<Nox64u>(init) + kBoundary;
  return noxStsNoErr;
}

NoxStatus get_size(int len, int* pSpecSize, int* pInitSize, int* pWorkSize) {
  if (len < 1) return noxStsSizeErr;
  if (!pSpecSize || !pInitSize || !pWorkSize) return noxStsNullPtrErr;
  if (!within_limit(len, kChirpQueryLimit)) return noxStsSizeErr;
  Sizes sizes{};
  NoxStatus status = sizes_of(len, sizes);
  const bool fits = sizes.spec <= INT32_MAX && sizes.init <= INT32_MAX && sizes.work <= INT32_MAX;
  if (!status && !fits) status = noxStsFftOrderErr;
  if (status) sizes = {};
  *pSpecSize = static_cast<int>(sizes.spec);
  *pInitSize = static_cast<int>(sizes.init);
  *pWorkSize = static_cast<int>(sizes.work);
  return status;
}

NoxStatus make_tables(DctSpec* spec, bool inverse, Nox8u* tables, Nox8u* init) {
  switch (dct_path(spec->len)) {
    case DctPath::kFft:
      return dct_init_fft(spec, inverse, tables, init);
    case DctPath::kDirect:
      return dct_init_direct(spec, tables);
    case DctPath::kChirp:
      return dct_init_chirp(spec, inverse, tables, init);
    default:
      return noxStsNoErr;
  }
}

NoxStatus init_spec(bool inverse, NoxDctSpec** ppSpec, int len, int hint, Nox8u* pSpecMem, Nox8u* pInitMem) {
  if (len < 1) return noxStsSizeErr;
  if (!ppSpec || !pSpecMem) return noxStsNullPtrErr;
  if (!within_limit(len, kChirpInitLimit)) return noxStsSizeErr;
  Nox8u* const base = at_boundary(pSpecMem);
  DctSpec* const spec = reinterpret_cast<DctSpec*>(base);
  *spec = {};
  spec->len = len;
  spec->hint = hint;
  const F64x1 root = sqrt(F64x1::all(static_cast<Nox64f>(len)));
  (F64x1::all(1) / root).store(&spec->scale0);
  (sqrt(F64x1::all(2)) / root).store(&spec->scaleK);
  spec->isSmall = dct_path(len) == DctPath::kLines;
  spec->isPow2 = dct_path(len) == DctPath::kFft;
  spec->isChirp = dct_path(len) == DctPath::kChirp;
  if (const NoxStatus st = make_tables(spec, inverse, base + kDctTables, pInitMem)) return st;
  spec->idCtx = inverse ? kDctInverse : kDctForward;
  *ppSpec = reinterpret_cast<NoxDctSpec*>(spec);
  return noxStsNoErr;
}

// By direction and path.
constexpr DctRun kRuns[2][4] = {{dct_lines_forward, dct_fft_forward, dct_direct_forward, dct_chirp_forward},
                                {dct_lines_inverse, dct_fft_inverse, dct_direct_inverse, dct_chirp_inverse}};

NoxStatus run(bool inverse, const Nox64f* s, Nox64f* d, const NoxDctSpec* record, Nox8u* work) {
  if (!record || !s || !d) return noxStsNullPtrErr;
  const DctSpec* const spec = reinterpret_cast<const DctSpec*>(record);
  if (spec->idCtx != (inverse ? kDctInverse : kDctForward)) return noxStsContextMatchErr;
  if (!work && spec->workSize > 0) return noxStsNullPtrErr;
  return kRuns[inverse][static_cast<int>(dct_path(spec->len))](s, d, spec, at_boundary(work));
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsDCTFwdGetSize_64f)(int len, int, int* pSpecSize, int* pInitSize, int* pWorkSize) {
  return get_size(len, pSpecSize, pInitSize, pWorkSize);
}
NoxStatus NOX_BODY(noxsDCTInvGetSize_64f)(int len, int, int* pSpecSize, int* pInitSize, int* pWorkSize) {
  return get_size(len, pSpecSize, pInitSize, pWorkSize);
}

NoxStatus NOX_BODY(noxsDCTFwdInit_64f)(NoxDctSpec** ppSpec, int len, int hint, Nox8u* pSpecMem, Nox8u* pInitMem) {
  return init_spec(false, ppSpec, len, hint, pSpecMem, pInitMem);
}
NoxStatus NOX_BODY(noxsDCTInvInit_64f)(NoxDctSpec** ppSpec, int len, int hint, Nox8u* pSpecMem, Nox8u* pInitMem) {
  return init_spec(true, ppSpec, len, hint, pSpecMem, pInitMem);
}

NoxStatus NOX_BODY(noxsDCTFwd_64f)(const Nox64f* pSrc, Nox64f* pDst, const NoxDctSpec* pSpec, Nox8u* pWork) {
  return run(false, pSrc, pDst, pSpec, pWork);
}
NoxStatus NOX_BODY(noxsDCTInv_64f)(const Nox64f* pSrc, Nox64f* pDst, const NoxDctSpec* pSpec, Nox8u* pWork) {
  return run(true, pSrc, pDst, pSpec, pWork);
}
NoxStatus NOX_BODY(noxsDCTFwd_64f_I)(Nox64f* pSrcDst, const NoxDctSpec* pSpec, Nox8u* pWork) {
  return run(false, pSrcDst, pSrcDst, pSpec, pWork);
}
NoxStatus NOX_BODY(noxsDCTInv_64f_I)(Nox64f* pSrcDst, const NoxDctSpec* pSpec, Nox8u* pWork) {
  return run(true, pSrcDst, pSrcDst, pSpec, pWork);
}

}  // extern "C"
