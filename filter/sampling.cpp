// Samplers up and down: elements spread among zeros, and every factor-th element kept. Nothing looks at a value.
#include "core/body.hpp"
#include "filter/elements.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

NOX_INLINE NoxStatus check_sampling(const void* s, int len, const void* d, const int* dstLen, int factor,
                                    const int* phase) {
  if (!s || !d || !dstLen || !phase) return noxStsNullPtrErr;
  if (len < 1) return noxStsSizeErr;
  if (factor < 1) return noxStsSampleFactorErr;
  return *phase < 0 || *phase >= factor ? noxStsSamplePhaseErr : noxStsNoErr;
}

// The first elements of pairs, by vectors as far as these go; tells how many.
NOX_INLINE size_t keep_every_second(const Nox64f* s, Nox64f* d, size_t inputs) {
  size_t i = 0;
  for (; 2 * i + 4 <= inputs; i += 2) low_halves(F64x2::load(s + 2 * i), F64x2::load(s + 2 * i + 2)).store(d + i);
  return i;
}
NOX_INLINE size_t keep_every_second(const Nox64fc*, Nox64fc*, size_t) { return 0; }

template <class K, class E = typename K::elem>
NOX_INLINE NoxStatus sample_down(const E* s, int len, E* d, int* dstLen, int factor, int* phase) {
  if (const NoxStatus st = check_sampling(s, len, d, dstLen, factor, phase)) return st;
  using One = typename K::one;
  if (factor == 1) {
    copy_elements(d, s, len);
    *dstLen = len;
    *phase = 0;
    return noxStsNoErr;
  }
  const int first = *phase, count = len > first ? (len - first - 1) / factor + 1 : 0;
  // The index behind the last one kept may pass the range of int, but not what is left of it.
  *phase = static_cast<int>(static_cast<Nox64s>(count) * factor + first - len);
  *dstLen = count;
  const size_t n = static_cast<size_t>(count), step = static_cast<size_t>(factor);
  s += first;
  size_t i = factor == 2 && count > 0 ? keep_every_second(s, d, static_cast<size_t>(len - first)) : 0;
  for (s += i * step; i < n; ++i, s += step) One::load(s).store(d + i);
  return noxStsNoErr;
}

// Outputs that are cleared before elements go among them, while they are in the nearest cache.
constexpr int kCleared = 16384;  // bytes

template <class K, class E = typename K::elem>
NOX_INLINE NoxStatus sample_up(const E* s, int len, E* d, int* dstLen, int factor, const int* phase) {
  if (const NoxStatus st = check_sampling(s, len, d, dstLen, factor, phase)) return st;
  using One = typename K::one;
  if (factor == 1) {
    copy_elements(d, s, len);
    *dstLen = len;
    return noxStsNoErr;
  }
  const size_t step = static_cast<size_t>(factor), first = static_cast<size_t>(*phase);
  *dstLen = static_cast<int>(static_cast<unsigned>(len) * static_cast<unsigned>(factor));
  constexpr int kElements = kCleared / static_cast<int>(sizeof(E));
  const int longest = factor < kElements ? kElements / factor : 1;
  for (int left = len; left > 0;) {
    const int n = left < longest ? left : longest;
    zero_bytes(d, static_cast<size_t>(n) * step * sizeof(E));
    E* to = d + first;
    for (int i = 0; i < n; ++i, to += step) One::load(s + i).store(to);
    s += n;
    d += static_cast<size_t>(n) * step;
    left -= n;
  }
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsSampleUp_64f)(const Nox64f* pSrc, int srcLen, Nox64f* pDst, int* pDstLen, int factor,
                                     int* pPhase) {
  return sample_up<f64>(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
NoxStatus NOX_BODY(noxsSampleUp_64fc)(const Nox64fc* pSrc, int srcLen, Nox64fc* pDst, int* pDstLen, int factor,
                                      int* pPhase) {
  return sample_up<c64>(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
NoxStatus NOX_BODY(noxsSampleDown_64f)(const Nox64f* pSrc, int srcLen, Nox64f* pDst, int* pDstLen, int factor,
                                       int* pPhase) {
  return sample_down<f64>(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}
NoxStatus NOX_BODY(noxsSampleDown_64fc)(const Nox64fc* pSrc, int srcLen, Nox64fc* pDst, int* pDstLen, int factor,
                                        int* pPhase) {
  return sample_down<c64>(pSrc, srcLen, pDst, pDstLen, factor, pPhase);
}

}  // extern "C"
