// The complex transform: sizes of the memory, the spec and its tables, the choice of the engine's range.
//
// A build that makes plans has the four operations in the plans' files, and nothing of this engine.
#if NOX_LEVEL < 4
#include "transform/fft_complex_direct.hpp"
#include "transform/fft_complex_large.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr int kFftQueryOrder = 30;  // up to this order a null pointer is reported in front of the order
constexpr size_t kFftAlign = 64;

// ---- sizes
struct FftSizes {
  Nox32s spec, init, work;
};
constexpr Nox32s to64(Nox32s bytes) { return (bytes + 63) & ~63; }
constexpr Nox32s array_bytes(int order) { return static_cast<Nox32s>(sizeof(Nox64fc)) << order; }

// Bytes of the tables behind the header. Large orders: one column table per level, the stages of the deepest rows, the
// reversal.
constexpr Nox32s stage_bytes(int order) { return to64(array_bytes(order) + 16); }
constexpr Nox32s reversal_bytes(int order) { return to64((1 << order) + 4); }
constexpr Nox32s tiled_reversal_bytes(int order) {
  return to64(static_cast<Nox32s>(sizeof(Nox32u)) * ((1 << (order - kTileOrder)) + static_cast<Nox32s>(kSwapEntries)));
}
constexpr Nox32s reversal_bytes_of_large(int order) {
  return order < fft_variant.tiledFrom ? reversal_bytes(order) : tiled_reversal_bytes(order);
}
constexpr Nox32s level_bytes(int order) {
  const int row = order - fft_variant.cut(order).s;
  return array_bytes(order - 1) + (row <= fft_variant.middleLast ? stage_bytes(row) : level_bytes(row));
}
constexpr Nox32s max(Nox32s a, Nox32s b) { return a < b ? b : a; }
constexpr Nox32s work_of_large(int order) {
  const FftCut cut = fft_variant.cut(order);
  const int row = order - cut.s;
  const Nox32s rows = row <= fft_variant.middleLast ? to64(array_bytes(row)) : work_of_large(row);
  const Nox32s tiles = order < fft_variant.tiledFrom ? 0 : 2 * array_bytes(kTileOrder);
  return max(max(rows, array_bytes(cut.t)), tiles);
}

constexpr Nox32s kTablesAt = to64(kFftHeader), kSlack = 64;  // any base address allowed for
constexpr FftSizes sizes_of(int order) {
  if (order <= fft_variant.directLast) return {kFftHeader + kSlack, 0, 0};
  const Nox32s sine = (1 << order) * 2 + 8, init = order <= kConstantWave ? 0 : to64(sine) + kSlack;
  if (order <= fft_variant.middleLast)
    return {stage_bytes(order) + reversal_bytes(order) + kTablesAt + kSlack, init, to64(array_bytes(order)) + kSlack};
  return {level_bytes(order) + reversal_bytes_of_large(order) + kTablesAt + kSlack, init,
          work_of_large(order) + kSlack};
}

constexpr bool is_flag(int flag) { return flag == 1 || flag == 2 || flag == 4 || flag == 8; }

template <class T>
T* aligned(T* p) {
  return reinterpret_cast<T*>((reinterpret_cast<uintptr_t>(p) + kFftAlign - 1) & ~(kFftAlign - 1));
}

// ---- init
void fill_header(NoxFftSpec& spec, int order, int flag, int hint) {
  const Nox64f n = static_cast<Nox64f>(1 << order);
  spec.idCtx = kComplexFft;
  spec.order = order;
  spec.scaleFwd = flag == NOX_FFT_SCALE_FWD_1_N || flag == NOX_FFT_SCALE_SQRT_N;
  spec.scaleInv = flag == NOX_FFT_SCALE_INV_1_N || flag == NOX_FFT_SCALE_SQRT_N;
  if (flag == NOX_FFT_SCALE_SQRT_N)
    spec.normFactor = 1.0 / __builtin_sqrt(n);
  else if (flag != NOX_FFT_SCALE_NONE)
    spec.normFactor = 1.0 / n;
  spec.hint = hint;
  spec.workSize = sizes_of(order).work;
}

// Hands out the memory behind the header piece by piece.
template <class T>
T* take(Nox8u*& at, Nox32s bytes) {
  T* const piece = reinterpret_cast<T*>(at);
  at += bytes;
  return piece;
}

void fill_middle(NoxFftSpec& spec, const Wave& wave, Nox8u* at) {
  Nox32u* const reversal = take<Nox32u>(at, reversal_bytes(spec.order));
  Nox64f* const stages = take<Nox64f>(at, stage_bytes(spec.order));
  fill_reversal(reversal, spec.order);
  fill_stages(stages, wave, spec.order);
  spec.pBitRev = reversal;
  spec.pTwiddle = stages;
}

void fill_large(NoxFftSpec& spec, const Wave& wave, Nox8u* at) {
  Nox32u* const reversal = take<Nox32u>(at, reversal_bytes_of_large(spec.order));
  if (spec.order < fft_variant.tiledFrom)
    fill_reversal(reversal, spec.order);
  else
    fill_tiled_reversal(reversal, spec.order);
  spec.pBitRev = reversal;
  // The full last stage of an inner level takes more than its half of an array; the halved one of the outermost level
  // leaves more than that free, so the tables stand close behind each other.
  Nox64f* next = reinterpret_cast<Nox64f*>(at);
  int order = spec.order;
  for (int level = 0; order > fft_variant.middleLast; ++level, order -= fft_variant.cut(order).s) {
    spec.pLevelTwiddle[level] = next;
    next = aligned(fill_columns(next, wave, order, level == 0));
  }
  spec.pTwiddle = next;
  fill_stages(next, wave, order);
}

// ---- transforms
template <bool Inverse>
NoxStatus transform(const Nox64fc* src, Nox64fc* dst, const NoxFftSpec* spec, Nox8u* work) {
  if (!spec) return noxStsNullPtrErr;
  if (spec->idCtx != kComplexFft) return noxStsContextMatchErr;
  if (!src || !dst || (!work && spec->workSize > 0)) return noxStsNullPtrErr;
  const int order = spec->order;
  const bool scales = Inverse ? spec->scaleInv : spec->scaleFwd;
  if (order <= fft_variant.directLast) {
    (scales ? kDirect<Inverse, true> : kDirect<Inverse, false>)[order](&src->re, &dst->re, spec->normFactor);
    return noxStsNoErr;
  }
  Nox64f* const room = reinterpret_cast<Nox64f*>(aligned(work));
  if (order <= fft_variant.middleLast) {
    middle<Inverse>(&src->re, &dst->re, order, spec->pTwiddle, static_cast<const Nox32u*>(spec->pBitRev), room);
    if (scales) scale_all(&dst->re, size_t{2} << order, spec->normFactor);
  } else {
    large<Inverse>(src, dst, *spec, scales ? spec->normFactor : 0, room);
  }
  return noxStsNoErr;
}

}  // namespace

NoxStatus noxsCplxFftGetSize(int order, int flag, int, int* pSpecSize, int* pInitSize, int* pWorkSize) {
  if (order < 0 || order > kFftQueryOrder) return noxStsFftOrderErr;
  if (!pSpecSize || !pInitSize || !pWorkSize) return noxStsNullPtrErr;
  if (!is_flag(flag)) return noxStsFftFlagErr;
  if (order > kFftMaxOrder) return noxStsFftOrderErr;
  const FftSizes sizes = sizes_of(order);
  *pSpecSize = sizes.spec;
  *pInitSize = sizes.init;
  *pWorkSize = sizes.work;
  return noxStsNoErr;
}

NoxStatus noxsCplxFftInit(NoxFftSpec** ppSpec, int order, int flag, int hint, Nox8u* pSpecMem, Nox8u* pInitMem) {
  return init_complex(ppSpec, order, flag, hint, pSpecMem, pInitMem, nullptr);
}

NoxStatus init_complex(NoxFftSpec** ppSpec, int order, int flag, int hint, Nox8u* pSpecMem, Nox8u* pInitMem,
                       const Wave* wave) {
  if (!ppSpec) return noxStsNullPtrErr;
  if (order < 0 || order > kFftMaxOrder) return noxStsFftOrderErr;
  if (!pSpecMem) return noxStsNullPtrErr;
  Nox8u* const memory = aligned(pSpecMem);
  NoxFftSpec& spec = *reinterpret_cast<NoxFftSpec*>(memory);
  zero_bytes(&spec, kFftHeader);
  if (!is_flag(flag)) return noxStsFftFlagErr;  // idCtx is 0
  fill_header(spec, order, flag, hint);
  if (order > kConstantWave && !pInitMem) return noxStsNullPtrErr;
  if (order > fft_variant.directLast)
    (order <= fft_variant.middleLast ? fill_middle : fill_large)(
        spec, wave ? *wave : make_wave(order, reinterpret_cast<Nox64f*>(aligned(pInitMem))), memory + kTablesAt);
  *ppSpec = &spec;
  return noxStsNoErr;
}

NoxStatus noxsCplxFftFwd(const Nox64fc* pSrc, Nox64fc* pDst, const NoxFftSpec* pSpec, Nox8u* pWork) {
  return transform<false>(pSrc, pDst, pSpec, pWork);
}
NoxStatus noxsCplxFftInv(const Nox64fc* pSrc, Nox64fc* pDst, const NoxFftSpec* pSpec, Nox8u* pWork) {
  return transform<true>(pSrc, pDst, pSpec, pWork);
}

}  // namespace NOX_VARIANT
}  // namespace nox
#endif
