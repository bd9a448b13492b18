// Sums, means and deviations of Nox64f and Nox64fc.
//
// The order of a sum's additions is part of its contract, for each build: lanes from +0, single elements in front of
// the first vector boundary, four vectors an iteration, and the lanes' fold. Deviations hold the sums of the elements
// and of their squares side by side.
#include "core/body.hpp"
#include "core/reduce.hpp"
#include "core/simd/choose.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using V = f64::vec;
using C = c64::vec;

struct Add {
  template <class T>
  NOX_INLINE T operator()(T a, T x) const {
    return a + x;
  }
};

NOX_INLINE F64x1 last(V lanes) {
  const F64x2 two = halves(Add{}, lanes);
  return upper(two) + low(two);
}

// Four accumulators and what follows them into one. The AVX builds halve them, and take as many vectors as there are
// accumulators after each time.
template <class K, class Acc, class E>
NOX_INLINE size_t take_all(Acc (&acc)[4], size_t n, const E*& s) {
  n = take_vectors<K, 4>(acc, n, Add{}, s);
  if constexpr (NOX_LEVEL >= 3) {
    acc[0] = acc[2] + acc[0], acc[1] = acc[3] + acc[1];
    n = take_vectors<K, 2>(acc, n, Add{}, s);
    acc[0] = acc[1] + acc[0];
  } else {
    acc[2] = acc[2] + acc[3];
    acc[0] = acc[0] + acc[1] + acc[2];
  }
  return take_vectors<K, 1>(acc, n, Add{}, s);
}

NOX_INLINE F64x1 sum_of(const Nox64f* s, int len) {
  V acc[4] = {V::zero(), V::zero(), V::zero(), V::zero()};
  size_t n = static_cast<size_t>(len);
  const size_t peel = peel_to_boundary<V>(s, n);
  take_singles<f64>(acc[0], peel, Add{}, s);
  n = take_all<f64>(acc, n - peel, s);
#if NOX_LEVEL >= 3
  if (n >= 2) {
    const F64x2 pair = F64x2{_mm256_castpd256_pd128(acc[0].v)} + F64x2::load(s);
    acc[0] = {_mm256_blend_pd(acc[0].v, _mm256_castpd128_pd256(pair.v), 3)};
    advance(2 * sizeof(Nox64f), s);
    n -= 2;
  }
#endif
  take_singles<f64>(acc[0], n, Add{}, s);
  return last(acc[0]);
}

NOX_INLINE C64x1 complex_sum(C64x1 from, const Nox64fc* s, size_t n) {
  C acc[4] = {with_low(C::zero(), from), C::zero(), C::zero(), C::zero()};
  const size_t peel = peel_to_boundary<C>(s, n);
  take_singles<c64>(acc[0], peel, Add{}, s);
  n = take_all<c64>(acc, n - peel, s);
  take_singles<c64>(acc[0], n, Add{}, s);
  return halves(Add{}, acc[0]);
}
NOX_INLINE C64x1 sum_of(const Nox64fc* s, int len) {
  const size_t n = static_cast<size_t>(len);
  switch (reinterpret_cast<uintptr_t>(s) % sizeof(Nox64fc)) {
    case 0:
      return complex_sum(C64x1::zero(), s, n);
    case sizeof(Nox64f): {
      // Vector boundaries fall between real and imaginary part: lanes of (imaginary part, next real part), and a single
      // part at each end.
      const Nox64f* const end = &s[n - 1].im;
      const F64x2 first = F64x2::zero() + F64x2{_mm_set_pd(s->re, 0)};
      const C64x1 swapped = complex_sum(complex<C64x1>(first), reinterpret_cast<const Nox64fc*>(&s->im), n - 1);
      return swap_parts(complex<C64x1>(with_low(parts(swapped), F64x1{swapped.v} + F64x1::load(end))));
    }
    default: {
      if constexpr (NOX_LEVEL >= 3) return complex_sum(C64x1::zero(), s, n);
      C64x1 acc = C64x1::zero();
      take_singles<c64>(acc, n, Add{}, s);
      return acc;
    }
  }
}

// ---- deviations

// The sums of elements and squares. Squares are rounded in every build: fused, those of equal values wouldn't cancel.
struct Moments {
  V sum, squares;
};
struct OneMoments {
  F64x1 sum, squares;
};
NOX_INLINE OneMoments low(Moments a) { return {low(a.sum), low(a.squares)}; }
NOX_INLINE Moments with_low(Moments a, OneMoments b) {
  return {with_low(a.sum, b.sum), with_low(a.squares, b.squares)};
}
struct MomentsStep {
  template <class M, class T>
  NOX_INLINE M operator()(M a, T element) const {
    const T x = once(element);
    return {a.sum + x, a.squares + x * x};
  }
};
// Lanes whose loads fetch the cache line 128 bytes ahead.
struct AheadLanes : V {
  static NOX_INLINE V load(const Nox64f* p) {
    _mm_prefetch(behind(reinterpret_cast<const char*>(p), 128), _MM_HINT_T0);
    return V::load(p);
  }
};
struct f64_ahead : f64 {
  using vec = AheadLanes;
};

// As many accumulators as the registers hold.
constexpr int kMoments = NOX_LEVEL >= 3 ? 3 : 2;

NOX_INLINE OneMoments moments_of(const Nox64f* s, int len) {
  Moments acc[kMoments];
  for (Moments& a : acc) a = {V::zero(), V::zero()};
  const size_t n = static_cast<size_t>(len);
  const auto fold = [](Moments(&a)[kMoments]) {
    for (int k = 1; k < kMoments; ++k) a[0] = {a[0].sum + a[k].sum, a[0].squares + a[k].squares};
    return a[0];
  };
  const Moments all =
      reduce<f64_ahead, kMoments, FoldAt::BeforeRest>(acc, n, peel_to_boundary<V>(s, n), MomentsStep{}, fold, s);
  return {last(all.sum), last(all.squares)};
}
NOX_INLINE F64x1 deviation(OneMoments m, int len) {
  const F64x1 n = F64x1::all(len), pairs = n * F64x1::all(len - 1);
  // The maximum is its second operand where the first is a NaN.
  return sqrt(max(m.squares * n - m.sum * m.sum, F64x1::zero()) / pairs);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsSum_64f)(const Nox64f* s, int len, Nox64f* sum) {
  if (const NoxStatus st = check(len, s, sum)) return st;
  sum_of(s, len).store(sum);
  return noxStsNoErr;
}
NoxStatus NOX_BODY(noxsSum_64fc)(const Nox64fc* s, int len, Nox64fc* sum) {
  if (const NoxStatus st = check(len, s, sum)) return st;
  sum_of(s, len).store(sum);
  return noxStsNoErr;
}
NoxStatus NOX_BODY(noxsMean_64f)(const Nox64f* s, int len, Nox64f* mean) {
  if (const NoxStatus st = check(len, s, mean)) return st;
  (sum_of(s, len) / F64x1::all(len)).store(mean);
  return noxStsNoErr;
}
NoxStatus NOX_BODY(noxsMean_64fc)(const Nox64fc* s, int len, Nox64fc* mean) {
  if (const NoxStatus st = check(len, s, mean)) return st;
  complex<C64x1>(parts(sum_of(s, len)) * F64x2::all(1.0 / len)).store(mean);
  return noxStsNoErr;
}

NoxStatus NOX_BODY(noxsStdDev_64f)(const Nox64f* s, int len, Nox64f* stdDev) {
  if (!s || !stdDev) return noxStsNullPtrErr;
  if (len < 2) return noxStsSizeErr;
  deviation(moments_of(s, len), len).store(stdDev);
  return noxStsNoErr;
}
NoxStatus NOX_BODY(noxsMeanStdDev_64f)(const Nox64f* s, int len, Nox64f* mean, Nox64f* stdDev) {
  if (!s || !mean || !stdDev) return noxStsNullPtrErr;
  if (len < 2) return noxStsSizeErr;
  const OneMoments m = moments_of(s, len);
  (m.sum / F64x1::all(len)).store(mean);
  deviation(m, len).store(stdDev);
  return noxStsNoErr;
}

}  // extern "C"
