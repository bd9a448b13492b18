// Linear convolution: the direct sum, one transform of the whole, or transforms of overlapping blocks.
#include "core/body.hpp"
#include "filter/sliding.hpp"
#include "filter/spectral.hpp"
#include "nox/filter.h"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr int kShortestFft = 512, kShortestFftTaps = 64;  // of result and shorter array, for the automatic choice

// Lengths in order, and the choice of method.
struct ConvolutionPlan {
  Nox64u shorter, longer, result;
  bool direct;
  NOX_INLINE ConvolutionPlan(int len1, int len2, int algType)
      : shorter(static_cast<Nox64u>(len1 < len2 ? len1 : len2)),
        longer(static_cast<Nox64u>(len1 < len2 ? len2 : len1)),
        result(shorter + longer - 1) {
    const int method = method_of(algType);
    direct = method == NOX_ALG_DIRECT ||
             (method == NOX_ALG_AUTO && (result < kShortestFft || shorter < kShortestFftTaps));
  }
};

NoxStatus convolve_whole(const Spectral<Nox64f>& fft, const Nox64f* a, size_t aLen, const Nox64f* b, size_t bLen,
                         Nox64f* d) {
  Nox64f *const x = fft.data, *const y = x + fft.n;
  if (const NoxStatus st = fft.load(x, a, aLen)) return st;
  if (const NoxStatus st = fft.load(y, b, bLen)) return st;
  fft.multiply(x, y, y);
  if (const NoxStatus st = fft.inverse(y)) return st;
  copy_bytes(d, y, (aLen + bLen - 1) * sizeof *d);
  return noxStsNoErr;
}

// Each block's first values are of no use but in the first block, whose samples have nothing before them.
NoxStatus convolve_blocks(const Spectral<Nox64f>& fft, const Nox64f* a, size_t aLen, const Nox64f* b, size_t bLen,
                          Nox64f* d) {
  Nox64f *const x = fft.data, *const y = x + fft.n;
  if (const NoxStatus st = fft.load(x, b, bLen)) return st;
  const size_t result = aLen + bLen - 1, step = fft.n - bLen + 1;
  for (size_t q = 0, history = 0; q < result; q += step, history = bLen - 1) {
    const size_t left = aLen - q + history, taken = left < history + step ? left : history + step;
    if (taken == fft.n) {
      if (const NoxStatus st = fft.forward(a + (q - history), y)) return st;
    } else if (const NoxStatus st = fft.load(y, a + (q - history), taken)) {
      return st;
    }
    fft.multiply(x, y, y);
    if (const NoxStatus st = fft.inverse(y)) return st;
    copy_bytes(d + q, y + history, (result - q < step ? result - q : step) * sizeof *d);
  }
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsConvolveGetBufferSize)(int src1Len, int src2Len, int dataType, int algType, int* pBufferSize) {
  if (!pBufferSize) return noxStsNullPtrErr;
  if (src1Len < 1 || src2Len < 1) return noxStsSizeErr;
  if (method_of(algType) > NOX_ALG_FFT) return noxStsAlgTypeErr;
  *pBufferSize = 0;
  if (dataType != NOX_TYPE_32F && dataType != NOX_TYPE_64F) return noxStsDataTypeErr;
  const ConvolutionPlan plan(src1Len, src2Len, algType);
  if (plan.result > INT32_MAX) return noxStsFftOrderErr;
  if (plan.direct) {
    *pBufferSize = kNoSpectralMemory;
    return noxStsNoErr;
  }
  const SpectralMethod method(plan.shorter, plan.longer);
  const Nox64u element = dataType == NOX_TYPE_32F ? sizeof(Nox32f) : sizeof(Nox64f);
  return spectral_bytes<Nox64f>(method.order, (2 * element) << method.order, pBufferSize);
}

NoxStatus NOX_BODY(noxsConvolve_64f)(const Nox64f* pSrc1, int src1Len, const Nox64f* pSrc2, int src2Len, Nox64f* pDst,
                                     int algType, Nox8u* pBuffer) {
  if (const NoxStatus st = check(src1Len < src2Len ? src1Len : src2Len, pSrc1, pSrc2, pDst, pBuffer)) return st;
  if (method_of(algType) > NOX_ALG_FFT) return noxStsAlgTypeErr;
  const ConvolutionPlan plan(src1Len, src2Len, algType);
  if (plan.result > INT32_MAX) return noxStsFftOrderErr;
  const bool swapped = src1Len < src2Len;
  const Nox64f *const a = swapped ? pSrc2 : pSrc1, *const b = swapped ? pSrc1 : pSrc2;
  const size_t aLen = static_cast<size_t>(plan.longer), bLen = static_cast<size_t>(plan.shorter);
  if (plan.direct) {
    sliding_outputs<f64>({b, 1, static_cast<ptrdiff_t>(bLen), a, static_cast<ptrdiff_t>(aLen)}, 0,
                         static_cast<ptrdiff_t>(plan.result), pDst);
    return noxStsNoErr;
  }
  const SpectralMethod method(plan.shorter, plan.longer);
  Spectral<Nox64f> fft;
  if (const NoxStatus st = fft.open(pBuffer, method.order)) return st;
  return (method.blocks ? convolve_blocks : convolve_whole)(fft, a, aLen, b, bLen, pDst);
}

}  // extern "C"
