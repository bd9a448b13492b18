// The real transform: sizes, Init and the four operations.
//
// The spec is that of the complex transform of half the length with the real one's header put over it, and the two
// recombination tables stand behind its tables. A transform hands the complex one a copy of the header, so the scaling
// by the real length's factor is done there.
#include "transform/fft_real.hpp"

#include "core/simd/f64.hpp"
#include "transform/memory.hpp"
#include "vector/block.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr int kDirectSpecSize = kFftHeader + kBoundary;

constexpr bool is_flag(int flag) {
  return flag == NOX_FFT_SCALE_FWD_1_N || flag == NOX_FFT_SCALE_INV_1_N || flag == NOX_FFT_SCALE_SQRT_N ||
         flag == NOX_FFT_SCALE_NONE;
}

// Distance from the spec to the recombination tables, given the size of the complex spec, which allows for any base.
constexpr Nox64u tables_at(int complex_size) {
  return (static_cast<Nox64u>(complex_size) - 1) & ~Nox64u{kBoundary - 1};
}

// From this order on a spec is made with the help of init memory.
constexpr int kNeedsInit = 11;
constexpr Nox64u init_bytes(int order) {
  return order < kNeedsInit ? 0 : (((Nox64u{2} << order) + 71) & ~Nox64u{63}) + kBoundary;
}

// The header; false for a refused flag.
bool write_header(NoxFftSpec* spec, int order, int flag, int hint, Nox32s work_size) {
  if (!is_flag(flag)) {
    spec->idCtx = 0;
    return false;
  }
  spec->idCtx = kRealFft;
  spec->order = order;
  spec->scaleFwd = flag == NOX_FFT_SCALE_FWD_1_N || flag == NOX_FFT_SCALE_SQRT_N;
  spec->scaleInv = flag == NOX_FFT_SCALE_INV_1_N || flag == NOX_FFT_SCALE_SQRT_N;
  const F64x1 n = F64x1::all(static_cast<Nox64f>(1 << order)), one = F64x1::all(1);
  spec->normFactor = 0;
  if (flag != NOX_FFT_SCALE_NONE) (one / (flag == NOX_FFT_SCALE_SQRT_N ? sqrt(n) : n)).store(&spec->normFactor);
  spec->hint = hint;
  spec->workSize = work_size;
  spec->reserved = 0;
  return true;
}

NoxFftSpec complex_part(const NoxFftSpec* spec) {
  NoxFftSpec core = *spec;
  core.idCtx = kComplexFft;
  core.order = spec->order - 1;
  return core;
}

NoxStatus check_transform(const Nox64f* s, const Nox64f* d, const NoxFftSpec* spec, const Nox8u* work) {
  if (!spec) return noxStsNullPtrErr;
  if (spec->idCtx != kRealFft) return noxStsContextMatchErr;
  if (!s || !d) return noxStsNullPtrErr;
  return spec->workSize > 0 && !work ? noxStsNullPtrErr : noxStsNoErr;
}

NoxStatus forward(const Nox64f* s, Nox64f* d, const NoxFftSpec* spec, Nox8u* work) {
  if (spec->order <= real_fft_range.direct) {
    real_direct(false, spec->scaleFwd, spec->order, s, d, spec->normFactor);
    return noxStsNoErr;
  }
  const NoxFftSpec core = complex_part(spec);
  if (const NoxStatus st =
          noxsCplxFftFwd(reinterpret_cast<const Nox64fc*>(s), reinterpret_cast<Nox64fc*>(d), &core, work))
    return st;
  recombine_forward(spec->order, spec->pRecombFwd, d);
  return noxStsNoErr;
}

NoxStatus inverse(const Nox64f* s, Nox64f* d, const NoxFftSpec* spec, Nox8u* work) {
  if (spec->order <= real_fft_range.direct) {
    real_direct(true, spec->scaleInv, spec->order, s, d, spec->normFactor);
    return noxStsNoErr;
  }
  recombine_inverse(spec->order, spec->pRecombInv, s, d);
  const NoxFftSpec core = complex_part(spec);
  Nox64fc* const z = reinterpret_cast<Nox64fc*>(d);
  return noxsCplxFftInv(z, z, &core, work);
}

}  // namespace

NoxStatus noxsRealFftGetSize(int order, int flag, int hint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
  if (order < 0 || order > 30) return noxStsFftOrderErr;
  if (!pSpecSize || !pInitSize || !pWorkSize) return noxStsNullPtrErr;
  if (real_fft_range.limit_first && order > kRealFftMaxOrder) return noxStsFftOrderErr;
  if (!is_flag(flag)) return noxStsFftFlagErr;
  if (order > kRealFftMaxOrder) return noxStsFftOrderErr;
  if (order <= real_fft_range.direct) {
    *pSpecSize = kDirectSpecSize;
    *pInitSize = *pWorkSize = 0;
    return noxStsNoErr;
  }
  int spec_size = 0, init_size = 0, work_size = 0;
  *pSpecSize = *pInitSize = *pWorkSize = 0;
  if (const NoxStatus st = noxsCplxFftGetSize(order - 1, flag, hint, &spec_size, &init_size, &work_size)) return st;
  const Nox64u spec = tables_at(spec_size) + 2 * recombination_bytes(order) + kBoundary, init = init_bytes(order);
  if (spec > INT32_MAX) return noxStsFftOrderErr;
  *pSpecSize = static_cast<int>(spec);
  *pInitSize = init > static_cast<Nox64u>(init_size) ? static_cast<int>(init) : init_size;
  *pWorkSize = work_size;
  return noxStsNoErr;
}

NoxStatus noxsRealFftInit(NoxFftSpec** ppSpec, int order, int flag, int hint, Nox8u* pSpecMem, Nox8u* pInitMem) {
  if (!ppSpec) return noxStsNullPtrErr;
  if (order < 0 || order > kRealFftMaxOrder) return noxStsFftOrderErr;
  if (!pSpecMem) return noxStsNullPtrErr;
  NoxFftSpec* spec = reinterpret_cast<NoxFftSpec*>(at_boundary(pSpecMem));
  *spec = {};
  if (!write_header(spec, order, flag, hint, 0)) return noxStsFftFlagErr;
  if (order >= kNeedsInit && !pInitMem) return noxStsNullPtrErr;
  if (order > real_fft_range.direct) {
    int spec_size = 0, init_size = 0, work_size = 0;
    if (const NoxStatus st = noxsCplxFftGetSize(order - 1, flag, hint, &spec_size, &init_size, &work_size)) return st;
    // One wave serves both: the complex transform takes every other sample.
    const Wave wave = make_wave(order, reinterpret_cast<Nox64f*>(at_boundary(pInitMem)));
    const Wave half = order <= kConstantWave + 1 ? constant_wave(order - 1) : Wave{wave.quarter, 2, order - 1};
    if (const NoxStatus st = init_complex(&spec, order - 1, flag, hint, pSpecMem, pInitMem, &half)) return st;
    write_header(spec, order, flag, hint, spec->workSize);
    Nox64f* const tables =
        reinterpret_cast<Nox64f*>(reinterpret_cast<uintptr_t>(spec) + static_cast<uintptr_t>(tables_at(spec_size)));
    Nox64f* const second = tables + recombination_bytes(order) / sizeof(Nox64f);
    make_recombination(order, wave, tables, second);
    spec->pRecombFwd = tables;
    spec->pRecombInv = second;
  }
  *ppSpec = spec;
  return noxStsNoErr;
}

NoxStatus noxsRealFftFwdPerm(const Nox64f* pSrc, Nox64f* pDst, const NoxFftSpec* pSpec, Nox8u* pWork) {
  if (const NoxStatus st = check_transform(pSrc, pDst, pSpec, pWork)) return st;
  return forward(pSrc, pDst, pSpec, pWork);
}

NoxStatus noxsRealFftInvPerm(const Nox64f* pSrc, Nox64f* pDst, const NoxFftSpec* pSpec, Nox8u* pWork) {
  if (const NoxStatus st = check_transform(pSrc, pDst, pSpec, pWork)) return st;
  return inverse(pSrc, pDst, pSpec, pWork);
}

// The layouts differ in the place of the value at N/2 alone, and from N = 4 on.
NoxStatus noxsRealFftFwdPack(const Nox64f* pSrc, Nox64f* pDst, const NoxFftSpec* pSpec, Nox8u* pWork) {
  if (const NoxStatus st = check_transform(pSrc, pDst, pSpec, pWork)) return st;
  if (const NoxStatus st = forward(pSrc, pDst, pSpec, pWork)) return st;
  const size_t n = size_t{1} << pSpec->order;
  if (n > 2) {
    const Nox64f middle = pDst[1];
    move_bytes(pDst + 1, pDst + 2, (n - 2) * sizeof(Nox64f));
    pDst[n - 1] = middle;
  }
  return noxStsNoErr;
}

NoxStatus noxsRealFftInvPack(const Nox64f* pSrc, Nox64f* pDst, const NoxFftSpec* pSpec, Nox8u* pWork) {
  if (const NoxStatus st = check_transform(pSrc, pDst, pSpec, pWork)) return st;
  const size_t n = size_t{1} << pSpec->order;
  if (n <= 2) return inverse(pSrc, pDst, pSpec, pWork);
  const Nox64f first = pSrc[0], middle = pSrc[n - 1];
  move_bytes(pDst + 2, pSrc + 1, (n - 2) * sizeof(Nox64f));
  pDst[0] = first;
  pDst[1] = middle;
  return inverse(pDst, pDst, pSpec, pWork);
}

}  // namespace NOX_VARIANT
}  // namespace nox
