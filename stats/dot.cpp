// Dot products of Nox64f, Nox64fc, and one with the other.
//
// Lanes run from +0 like those of a sum. The SSE builds take single elements until the second array stands at a vector
// boundary, and then as many lanes as the first one's place allows; the AVX builds load from any address.
#include "core/body.hpp"
#include "core/reduce.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using V = f64::vec;
using C = c64::vec;

struct AddProduct {
  template <class T>
  NOX_INLINE T operator()(T sum, T a, T b) const {
    return madd(a, b, sum);
  }
};
struct Add {
  template <class T>
  NOX_INLINE T operator()(T a, T b) const {
    return a + b;
  }
};
NOX_INLINE F64x1 both_lanes(F64x2 a) { return low(a) + upper(a); }

#if NOX_LEVEL >= 3
NOX_INLINE F64x1 dot(const Nox64f* a, const Nox64f* b, size_t n) {
  V acc[4] = {V::zero(), V::zero(), V::zero(), V::zero()};
  n = take_vectors<f64, 4>(acc, n, AddProduct{}, a, b);
  n = take_vectors<f64, 2>(acc, n, AddProduct{}, a, b);
  take_singles<f64>(acc[0], n, AddProduct{}, a, b);
  const V all = acc[3] + (acc[2] + (acc[0] + acc[1]));
  return both_lanes({_mm256_castpd256_pd128(all.v)}) + both_lanes({_mm256_extractf128_pd(all.v, 1)});
}
#else
NOX_INLINE bool at_boundary(const Nox64f* p) { return reinterpret_cast<uintptr_t>(p) % sizeof(V) == 0; }
NOX_INLINE bool at_element(const Nox64f* p) { return reinterpret_cast<uintptr_t>(p) % sizeof(Nox64f) == 0; }

NOX_INLINE F64x1 dot(const Nox64f* a, const Nox64f* b, size_t n) {
  // A product commutes, and only the second array can be brought to a boundary.
  if (at_element(a) && !at_element(b)) {
    const Nox64f* const second = a;
    a = b;
    b = second;
  }
  V acc[4] = {V::zero(), V::zero(), V::zero(), V::zero()};
  const size_t peel = at_element(b) ? peel_to_boundary<V>(b, n) : n;
  take_singles<f64>(acc[0], peel, AddProduct{}, a, b);
  n -= peel;
  if (at_boundary(a)) {
    n = take_vectors<f64, 4>(acc, n, AddProduct{}, a, b);
    n = take_vectors<f64, 1>(acc, n, AddProduct{}, a, b);
  } else {
    n = take_vectors<f64, 3>(acc, n, AddProduct{}, a, b);
  }
  take_singles<f64>(acc[0], n, AddProduct{}, a, b);
  // With six lanes the last accumulator is still zero.
  return both_lanes(acc[0] + acc[1] + (acc[2] + acc[3]));
}
#endif

// ---- complex

NOX_INLINE C64x1 fold_halves(C64x1 a) { return a; }
#if NOX_LEVEL >= 3
NOX_INLINE C64x1 fold_halves(C64x2 a) { return complex<C64x1>(halves(Add{}, parts(a))); }
#endif

// Four chains: sums of (re re, im im) and (re im, im re), as many of each as a vector holds values.
template <class T>
struct Chains {
  T straight, crossed;
};
template <class T>
NOX_INLINE Chains<C64x1> low(Chains<T> a) {
  return {low(a.straight), low(a.crossed)};
}
template <class T>
NOX_INLINE Chains<T> with_low(Chains<T> a, Chains<C64x1> b) {
  return {with_low(a.straight, b.straight), with_low(a.crossed, b.crossed)};
}
template <class T>
NOX_INLINE T add_parts_product(T sum, T a, T b) {
  return complex<T>(madd(parts(a), parts(b), parts(sum)));
}
struct AddComplexProduct {
  template <class T>
  NOX_INLINE Chains<T> operator()(Chains<T> sum, T a, T b) const {
    return {add_parts_product(sum.straight, a, b), add_parts_product(sum.crossed, a, swap_parts(b))};
  }
};

// As many accumulators as the registers hold beside the operands.
constexpr int kChains = NOX_LEVEL >= 3 ? 3 : 2;

NOX_INLINE C64x1 dot(const Nox64fc* a, const Nox64fc* b, size_t n) {
  Chains<C> acc[kChains];
  for (Chains<C>& chains : acc) chains = {C::zero(), C::zero()};
  const auto fold = [](Chains<C>(&a)[kChains]) {
    for (int k = 1; k < kChains; ++k) a[0] = {a[0].straight + a[k].straight, a[0].crossed + a[k].crossed};
    return a[0];
  };
  const Chains<C> all = reduce<c64, kChains, FoldAt::BehindRest>(acc, n, 0, AddComplexProduct{}, fold, a, b);
  const F64x2 straight = parts(fold_halves(all.straight)), crossed = parts(fold_halves(all.crossed));
  return complex<C64x1>(low_halves({(low(straight) - upper(straight)).v}, {both_lanes(crossed).v}));
}

// Complex values, and reals with each in both places of one.
template <class T>
struct PairLanes : T {
  static NOX_INLINE T load(const Nox64fc* p) { return T::load(p); }
  static NOX_INLINE T load(const Nox64f* p) {
    if constexpr (T::N == 1) {
      const __m128d x = _mm_load_sd(p);
      return {_mm_unpacklo_pd(x, x)};
    } else {
#if NOX_LEVEL >= 3
      return {_mm256_permute_pd(_mm256_broadcast_pd(reinterpret_cast<const __m128d*>(p)), 12)};
#endif
    }
  }
};
struct pairs {
  using vec = PairLanes<C>;
  using one = PairLanes<C64x1>;
};
struct AddRealProduct {
  template <class T>
  NOX_INLINE T operator()(T sum, T a, T b) const {
    return add_parts_product(sum, a, b);
  }
};

NOX_INLINE C64x1 dot(const Nox64f* a, const Nox64fc* b, size_t n) {
  C acc[4] = {C::zero(), C::zero(), C::zero(), C::zero()};
  const auto fold = [](C(&a)[4]) { return a[0] + a[1] + (a[2] + a[3]); };
  return fold_halves(reduce<pairs, 4, FoldAt::BehindRest>(acc, n, 0, AddRealProduct{}, fold, a, b));
}

template <class A, class B>
NOX_INLINE NoxStatus dot_product(const A* a, const B* b, int len, B* sum) {
  if (const NoxStatus st = check(len, a, b, sum)) return st;
  dot(a, b, static_cast<size_t>(len)).store(sum);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsDotProd_64f)(const Nox64f* a, const Nox64f* b, int len, Nox64f* sum) {
  return dot_product(a, b, len, sum);
}
NoxStatus NOX_BODY(noxsDotProd_64fc)(const Nox64fc* a, const Nox64fc* b, int len, Nox64fc* sum) {
  return dot_product(a, b, len, sum);
}
NoxStatus NOX_BODY(noxsDotProd_64f64fc)(const Nox64f* a, const Nox64fc* b, int len, Nox64fc* sum) {
  return dot_product(a, b, len, sum);
}

}  // extern "C"
