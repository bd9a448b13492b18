// Autocorrelation at lags from 0 on: direct sums, or the squared spectrum's inverse transform.
#include "filter/correlation.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Lags from which on the automatic choice transforms.
constexpr int shortest_fft(int type) {
  if (variant.fuses) return is_complex_type(type) ? 128 : 1200;
  return type == NOX_TYPE_64FC ? 368 : type == NOX_TYPE_32FC ? 152 : 856;
}
constexpr bool transforms(int lags, int type, int algType) {
  return method_of(algType) == NOX_ALG_FFT || (method_of(algType) == NOX_ALG_AUTO && lags >= shortest_fft(type));
}
constexpr int lags_of(int srcLen, int dstLen) { return srcLen < dstLen ? srcLen : dstLen; }
constexpr int order_of(int srcLen) { return log2_up(2 * static_cast<Nox64u>(srcLen)); }

// What multiplies each value for NOX_NORM_A; real data's is rounded to single precision.
NOX_INLINE Nox64f norm_a(Nox64f, int srcLen) { return static_cast<Nox64f>(1.0f / static_cast<Nox32f>(srcLen)); }
NOX_INLINE Nox64f norm_a(Nox64fc, int srcLen) { return 1.0 / srcLen; }

template <class E>
NoxStatus by_spectrum(const E* s, int srcLen, E* d, int lags, Nox8u* buffer) {
  Spectral<E> fft;
  if (const NoxStatus st = fft.open(buffer, order_of(srcLen))) return st;
  if (const NoxStatus st = fft.load(fft.data, s, static_cast<size_t>(srcLen))) return st;
  fft.multiply_conj(fft.data, fft.data, fft.data);
  if (const NoxStatus st = fft.inverse(fft.data)) return st;
  copy_bytes(d, fft.data, static_cast<size_t>(lags) * sizeof(E));
  return noxStsNoErr;
}

template <class K, int Type, class E = typename K::elem>
NOX_INLINE NoxStatus auto_correlation(const E* s, int srcLen, E* d, int dstLen, int algType, Nox8u* buffer) {
  if (const NoxStatus st = check(lags_of(srcLen, dstLen), s, d, buffer)) return st;
  if (method_of(algType) > NOX_ALG_FFT) return noxStsAlgTypeErr;
  const int lags = lags_of(srcLen, dstLen);
  if (transforms(lags, Type, algType)) {
    if (const NoxStatus st = by_spectrum(s, srcLen, d, lags, buffer)) return st;
  } else {
    sliding_outputs<K>({s + (srcLen - 1), -1, srcLen, s, srcLen}, srcLen - 1, lags, d);
  }
  zero_bytes(d + lags, static_cast<size_t>(dstLen - lags) * sizeof(E));
  switch (norm_of(algType) << 8) {
    case NOX_NORM_NONE:
      return noxStsNoErr;
    case NOX_NORM_A:
      scale(d, static_cast<size_t>(lags), norm_a(E{}, srcLen));
      return noxStsNoErr;
    case NOX_NORM_B:
      divide_by_ramp(d, static_cast<size_t>(lags), srcLen, -1);
      return noxStsNoErr;
    default:
      return noxStsAlgTypeErr;
  }
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsAutoCorrNormGetBufferSize)(int srcLen, int dstLen, int dataType, int algType, int* pBufferSize) {
  if (!pBufferSize) return noxStsNullPtrErr;
  if (srcLen < 1 || dstLen < 1) return noxStsSizeErr;
  if (const NoxStatus st = check_query(algType)) return st;
  const Nox64u element = element_bytes(dataType);
  *pBufferSize = 0;
  if (element == 0) return noxStsDataTypeErr;
  if (!transforms(lags_of(srcLen, dstLen), dataType, algType)) {
    *pBufferSize = kNoSpectralMemory;
    return noxStsNoErr;
  }
  const int order = order_of(srcLen);
  // Complex data have a second array, which this implementation leaves alone.
  return spectral_bytes_of(dataType, order, (is_complex_type(dataType) ? 2 * element : element) << order, pBufferSize);
}

NoxStatus NOX_BODY(noxsAutoCorrNorm_64f)(const Nox64f* pSrc, int srcLen, Nox64f* pDst, int dstLen, int algType,
                                         Nox8u* pBuffer) {
  return auto_correlation<f64, NOX_TYPE_64F>(pSrc, srcLen, pDst, dstLen, algType, pBuffer);
}
NoxStatus NOX_BODY(noxsAutoCorrNorm_64fc)(const Nox64fc* pSrc, int srcLen, Nox64fc* pDst, int dstLen, int algType,
                                          Nox8u* pBuffer) {
  return auto_correlation<c64, NOX_TYPE_64FC>(pSrc, srcLen, pDst, dstLen, algType, pBuffer);
}

}  // extern "C"
