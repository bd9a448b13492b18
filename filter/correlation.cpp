// Cross correlation at any stretch of lags: direct sums, one transform of the whole, or transforms of blocks.
//
// Every method takes the stretch of the full correlation that has values, from the place `skip` on. The direct sums and
// the blocks take the shorter array for the one that slides; where that is the second, the stretch comes out mirrored
// and, of complex data, conjugated.
#include "filter/correlation.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Values wanted from which on the automatic choice transforms, weighed by the ratio of the lengths.
constexpr int shortest_fft(int type) { return type == NOX_TYPE_32F ? 384 : type == NOX_TYPE_32FC ? 256 : 512; }

// The lags wanted, and the method. Places count from lag 1 - len1 on.
struct CorrelationPlan {
  Nox64u shorter, longer, full;  // lengths of the arrays and of the whole correlation
  Nox64s before, values, skip;   // outputs ahead of the first lag with a value; with values; the first one's place
  bool direct;
  NOX_INLINE CorrelationPlan(int len1, int len2, int dstLen, int lowLag, int type, int algType)
      : shorter(static_cast<Nox64u>(len1 < len2 ? len1 : len2)),
        longer(static_cast<Nox64u>(len1 < len2 ? len2 : len1)),
        full(shorter + longer - 1) {
    const Nox64s place = Nox64s{lowLag} + len1 - 1;
    before = place < 0 ? (-place < dstLen ? -place : dstLen) : 0;
    skip = place < 0 ? 0 : place;
    const Nox64s there = skip < static_cast<Nox64s>(full) ? static_cast<Nox64s>(full) - skip : 0;
    values = dstLen - before < there ? dstLen - before : there;
    const Nox32f weight = static_cast<Nox32f>(static_cast<int>(shorter)) *
                          static_cast<Nox32f>(static_cast<int>(values)) / static_cast<Nox32f>(static_cast<int>(longer));
    const int method = method_of(algType);
    direct = values < 1 || method == NOX_ALG_DIRECT ||
             (method == NOX_ALG_AUTO && weight < static_cast<Nox32f>(shortest_fft(type)));
  }
};

struct Conjugate {
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return conj(a);
  }
};
NOX_INLINE void mirror(Nox64f* d, size_t n) { reverse_in_place<f64>(d, static_cast<int>(n)); }
NOX_INLINE void mirror(Nox64fc* d, size_t n) {
  reverse_in_place<c64>(d, static_cast<int>(n));
  map<c64>(d, static_cast<int>(n), Conjugate{}, static_cast<const Nox64fc*>(d));
}

template <class E>
NoxStatus correlate_whole(const Spectral<E>& fft, const E* a, size_t aLen, const E* b, size_t bLen, size_t skip, E* d,
                          size_t n) {
  E *const x = fft.data, *const y = x + fft.n;
  if (const NoxStatus st = fft.load(x, a, aLen)) return st;
  if (const NoxStatus st = fft.load(y, b, bLen, aLen - 1)) return st;
  fft.multiply_conj(y, x, y);
  if (const NoxStatus st = fft.inverse(y)) return st;
  copy_bytes(d, y + skip, n * sizeof(E));
  return noxStsNoErr;
}

// d[i] = the correlation of the shorter array a with b at place m + i. A block's window of b begins aLen - 1 elements
// before its place; of what its product gives, the first values are right, as many as the window is longer than a.
template <class E>
NoxStatus correlate_blocks(const Spectral<E>& fft, const E* a, size_t aLen, const E* b, size_t bLen, size_t m, E* d,
                           size_t n) {
  E *const h = fft.data, *const w = h + fft.n;
  if (const NoxStatus st = fft.load(h, a, aLen)) return st;
  const size_t step = fft.n - aLen + 1, past = aLen - 1;
  for (size_t done = 0; done < n; done += step, m += step) {
    const size_t zeros = m < past ? past - m : 0, from = m < past ? 0 : m - past, room = fft.n - zeros;
    if (zeros == 0 && bLen - from >= fft.n) {
      if (const NoxStatus st = fft.forward(b + from, w)) return st;
    } else if (const NoxStatus st = fft.load(w, b + from, bLen - from < room ? bLen - from : room, zeros)) {
      return st;
    }
    fft.multiply_conj(w, h, w);
    if (const NoxStatus st = fft.inverse(w)) return st;
    copy_bytes(d + done, w, (n - done < step ? n - done : step) * sizeof(E));
  }
  return noxStsNoErr;
}

// Divides each lag by the number of samples that overlap at it; the stretch d begins at place m.
template <class E>
NOX_INLINE void divide_by_overlap(E* d, size_t n, size_t m, size_t shorter, size_t longer) {
  const size_t end = m + n;
  const auto stretch = [&](size_t to) {
    const size_t count = m < to ? (to < end ? to : end) - m : 0;
    m += count;
    return count;
  };
  Nox64f value = static_cast<Nox64f>(m + 1);
  size_t count = stretch(shorter - 1);
  divide_by_ramp(d, count, value, 1);
  d += count;
  count = stretch(longer);
  scale(d, count, 1.0 / static_cast<Nox64f>(shorter));
  d += count;
  value = static_cast<Nox64f>(shorter + longer - 1 - m);
  divide_by_ramp(d, end - m, value, -1);
}

template <class K, int Type, class E = typename K::elem>
NOX_INLINE NoxStatus cross_correlation(const E* a, int aLen, const E* b, int bLen, E* d, int dstLen, int lowLag,
                                       int algType, Nox8u* buffer) {
  if (!a || !b || !d) return noxStsNullPtrErr;
  if (aLen < 1 || bLen < 1 || dstLen < 1) return noxStsSizeErr;
  if (method_of(algType) > NOX_ALG_FFT) return noxStsAlgTypeErr;
  const CorrelationPlan plan(aLen, bLen, dstLen, lowLag, Type, algType);
  if (plan.full > INT32_MAX) return noxStsFftOrderErr;
  if (!plan.direct && !buffer) return noxStsNullPtrErr;
  const SpectralMethod method(plan.shorter, plan.longer);
  Spectral<E> fft;
  if (!plan.direct)
    if (const NoxStatus st = fft.open(buffer, method.order)) return st;

  const size_t before = static_cast<size_t>(plan.before), n = static_cast<size_t>(plan.values);
  const size_t skip = static_cast<size_t>(plan.skip), full = static_cast<size_t>(plan.full);
  zero_bytes(d, before * sizeof(E));
  d += before;
  zero_bytes(d + n, (static_cast<size_t>(dstLen) - before - n) * sizeof(E));
  if (n == 0) return noxStsNoErr;

  if (!plan.direct && !method.blocks) {
    const NoxStatus st = correlate_whole(fft, a, static_cast<size_t>(aLen), b, static_cast<size_t>(bLen), skip, d, n);
    if (st) return st;
  } else {
    const bool mirrored = aLen > bLen;
    const E *const s = mirrored ? a : b, *const taps = mirrored ? b : a;
    const size_t sLen = static_cast<size_t>(plan.longer), tapsLen = static_cast<size_t>(plan.shorter);
    const size_t m = mirrored ? full - n - skip : skip;
    if (plan.direct)
      sliding_outputs<K>({taps + (tapsLen - 1), -1, static_cast<ptrdiff_t>(tapsLen), s, static_cast<ptrdiff_t>(sLen)},
                         static_cast<ptrdiff_t>(m), static_cast<ptrdiff_t>(n), d);
    else if (const NoxStatus st = correlate_blocks(fft, taps, tapsLen, s, sLen, m, d, n))
      return st;
    if (mirrored) mirror(d, n);
  }

  const size_t shorter = static_cast<size_t>(plan.shorter);
  switch (norm_of(algType) << 8) {
    case NOX_NORM_NONE:
      return noxStsNoErr;
    case NOX_NORM_A:
      scale(d, n, 1.0 / static_cast<Nox64f>(shorter));
      return noxStsNoErr;
    case NOX_NORM_B:
      divide_by_overlap(d, n, skip, shorter, static_cast<size_t>(plan.longer));
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

NoxStatus NOX_BODY(noxsCrossCorrNormGetBufferSize)(int src1Len, int src2Len, int dstLen, int lowLag, int dataType,
                                                   int algType, int* pBufferSize) {
  if (!pBufferSize) return noxStsNullPtrErr;
  if (src1Len < 1 || src2Len < 1 || dstLen < 1) return noxStsSizeErr;
  if (const NoxStatus st = check_query(algType)) return st;
  const Nox64u element = element_bytes(dataType);
  *pBufferSize = 0;
  if (element == 0) return noxStsDataTypeErr;
  const CorrelationPlan plan(src1Len, src2Len, dstLen, lowLag, dataType, algType);
  if (plan.full > INT32_MAX) return noxStsFftOrderErr;
  if (plan.direct) {
    *pBufferSize = kNoSpectralMemory;
    return noxStsNoErr;
  }
  const SpectralMethod method(plan.shorter, plan.longer);
  return spectral_bytes_of(dataType, method.order, (2 * element) << method.order, pBufferSize);
}

NoxStatus NOX_BODY(noxsCrossCorrNorm_64f)(const Nox64f* pSrc1, int src1Len, const Nox64f* pSrc2, int src2Len,
                                          Nox64f* pDst, int dstLen, int lowLag, int algType, Nox8u* pBuffer) {
  return cross_correlation<f64, NOX_TYPE_64F>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag, algType, pBuffer);
}
NoxStatus NOX_BODY(noxsCrossCorrNorm_64fc)(const Nox64fc* pSrc1, int src1Len, const Nox64fc* pSrc2, int src2Len,
                                           Nox64fc* pDst, int dstLen, int lowLag, int algType, Nox8u* pBuffer) {
  return cross_correlation<c64, NOX_TYPE_64FC>(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag, algType, pBuffer);
}

}  // extern "C"
