// One level of the Haar transform and its inverse.
//
// Vectors hold the first elements of neighbouring pairs, or their second elements; loads take the pairs apart and
// stores put them together. Single pairs lead up to a vector boundary of the destination, and whole vectors follow in
// ascending order, each read before it is written, so that the forward transform may write over what it has read.
#include "core/body.hpp"
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

template <class V>
struct Pairs {
  V first, second;
};

// Pairs of elements that stand side by side in memory, as many as a vector has lanes.
template <class V>
NOX_INLINE Pairs<V> load_pairs(const Nox64f* s) {
  const V x = V::load(s), y = V::load(s + V::N);
  return {low_halves(x, y), high_halves(x, y)};
}
template <>
NOX_INLINE Pairs<F64x1> load_pairs(const Nox64f* s) {
  return {F64x1::load(s), F64x1::load(s + 1)};
}
#if NOX_LEVEL >= 3
template <>
NOX_INLINE Pairs<F64x4> load_pairs(const Nox64f* s) {
  // Halves come into place on their way from memory, which spares two exchanges of halves between registers.
  const auto pair = [s](int i, int k) {
    return F64x4{_mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(s + i)), _mm_loadu_pd(s + k), 1)};
  };
  const F64x4 x = pair(0, 4), y = pair(2, 6);
  return {low_halves(x, y), high_halves(x, y)};
}
#endif
NOX_INLINE void store_pairs(Nox64f* d, Pairs<F64x1> p) {
  p.first.store(d);
  p.second.store(d + 1);
}
NOX_INLINE void store_pairs(Nox64f* d, Pairs<F64x2> p) {
  store_run<F64x2>(d, low_halves(p.first, p.second), high_halves(p.first, p.second));
}
#if NOX_LEVEL >= 3
NOX_INLINE void store_pairs(Nox64f* d, Pairs<F64x4> p) {
  const F64x4 even = low_halves(p.first, p.second), odd = high_halves(p.first, p.second);
  // The upper half of the even pairs and the lower half of the odd ones change places: one exchange serves both.
  const __m256d inner = _mm256_permute2f128_pd(even.v, odd.v, 0x21);
  store_run<F64x4>(d, F64x4{_mm256_blend_pd(even.v, inner, 0xC)}, F64x4{_mm256_blend_pd(inner, odd.v, 0xC)});
}
#endif

// The forward transform of the pairs whose results stand `at` bytes behind the start of their bands.
struct Split {
  const Nox64f* s;
  Nox64f *low, *high;
  template <class V>
  NOX_INLINE void run(size_t at) const {
    const Pairs<V> p = load_pairs<V>(behind(s, 2 * at));
    const V half = (p.second - p.first) * V::all(0.5);
    half.store(behind(high, at));
    (half + p.first).store(behind(low, at));
  }
};

struct Join {
  const Nox64f *low, *high;
  Nox64f* d;
  template <class V>
  NOX_INLINE void run(size_t at) const {
    const V mean = V::load(behind(low, at)), half = V::load(behind(high, at));
    store_pairs(behind(d, 2 * at), Pairs<V>{mean - half, half + mean});
  }
};

// All pairs in ascending order, `head` of them singly.
template <class Step>
NOX_INLINE void for_pairs(size_t head, size_t pairs, Step step) {
  using V = f64::vec;
  constexpr size_t kElement = sizeof(Nox64f), kVector = kElement * V::N;
  const size_t bytes = pairs * kElement;
  size_t at = 0;
  for (; at < head * kElement; at += kElement) step.template run<F64x1>(at);
  for (const size_t twos_end = bytes - (bytes - at) % (2 * kVector); at != twos_end; at += 2 * kVector) {
    keep_whole(at);
    step.template run<V>(at);
    step.template run<V>(at + kVector);
  }
  if (bytes - at >= kVector) {
    step.template run<V>(at);
    at += kVector;
  }
  for (; at < bytes; at += kElement) step.template run<F64x1>(at);
}

NOX_INLINE NoxStatus forward(const Nox64f* s, int len, Nox64f* low, Nox64f* high) {
  if (const NoxStatus st = check(len, s, low, high)) return st;
  const size_t n = static_cast<size_t>(len), pairs = n / 2;
  for_pairs(elements_to_boundary<f64::vec>(low, pairs), pairs, Split{s, low, high});
  if (n % 2) F64x1::load(s + n - 1).store(low + pairs);
  return noxStsNoErr;
}

NOX_INLINE NoxStatus inverse(const Nox64f* low, const Nox64f* high, Nox64f* d, int len) {
  if (const NoxStatus st = check(len, low, high, d)) return st;
  const size_t n = static_cast<size_t>(len), pairs = n / 2;
  for_pairs(elements_to_boundary<c64::vec>(reinterpret_cast<const Nox64fc*>(d), pairs), pairs, Join{low, high, d});
  if (n % 2) F64x1::load(low + pairs).store(d + n - 1);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsWTHaarFwd_64f)(const Nox64f* s, int len, Nox64f* low, Nox64f* high) {
  return forward(s, len, low, high);
}
NoxStatus NOX_BODY(noxsWTHaarInv_64f)(const Nox64f* low, const Nox64f* high, Nox64f* d, int len) {
  return inverse(low, high, d, len);
}

}  // extern "C"
