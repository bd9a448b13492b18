// Dot products of Nox64f, Nox64fc, and one with the other.
//
// Lanes run from +0 like those of a sum. The SSE builds take single elements until the second array stands at a vector
// boundary, and then as many lanes as the first one's place allows; the AVX builds load from any address.
#include "core/body.hpp"
#include "core/reduce.hpp"
#include "core/simd/choose.hpp"

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
  NOX_INLINE Chains<T> operator()(Chains<T> sum, T a, T factor) const {
    const T b = once(factor);
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
  const F64x2 straight = parts(halves(Add{}, all.straight)), crossed = parts(halves(Add{}, all.crossed));
  return complex<C64x1>(low_halves({(low(straight) - upper(straight)).v}, {both_lanes(crossed).v}));
}

// Two vectors of complex values, and reals with each in both places of one.
struct Pair {
  static constexpr int N = 2 * C::N;
  C front, back;
  static NOX_INLINE Pair load(const Nox64fc* p) { return {C::load(p), C::load(p + C::N)}; }
  static NOX_INLINE Pair load(const Nox64f* p) {
#if NOX_LEVEL >= 4
    const __m256d x = once(V::load(p)).v;
    return {{_mm256_permute4x64_pd(x, 0x50)}, {_mm256_permute4x64_pd(x, 0xFA)}};
#elif NOX_LEVEL == 3
    const auto twice = [](const Nox64f* two) {
      return C{_mm256_permute_pd(_mm256_broadcast_pd(reinterpret_cast<const __m128d*>(two)), 12)};
    };
    return {twice(p), twice(p + 2)};
#else
    const __m128d x = _mm_loadu_pd(p);
    return {{_mm_unpacklo_pd(x, x)}, {_mm_unpackhi_pd(x, x)}};
#endif
  }
};
struct OneOfPair {
  static NOX_INLINE C64x1 load(const Nox64fc* p) { return C64x1::load(p); }
  static NOX_INLINE C64x1 load(const Nox64f* p) { return re_twice(C64x1{_mm_load_sd(p)}); }
};
struct pairs {
  using vec = Pair;
  using one = OneOfPair;
};
NOX_INLINE C64x1 low(Pair a) { return low(a.front); }
NOX_INLINE Pair with_low(Pair a, C64x1 b) { return {with_low(a.front, b), a.back}; }
struct AddRealProduct {
  NOX_INLINE C64x1 operator()(C64x1 sum, C64x1 a, C64x1 b) const { return add_parts_product(sum, a, b); }
  NOX_INLINE Pair operator()(Pair sum, Pair a, Pair b) const {
    return {add_parts_product(sum.front, a.front, b.front), add_parts_product(sum.back, a.back, b.back)};
  }
};
// Four elements an iteration in the SSE builds; in the AVX builds twelve, to cover the time that an addition takes.
constexpr int kPairs = NOX_LEVEL >= 3 ? 3 : 2;

NOX_INLINE C64x1 dot(const Nox64f* a, const Nox64fc* b, size_t n) {
  Pair acc[kPairs] = {};
  const auto fold = [](Pair(&a)[kPairs]) {
#pragma GCC unroll 4
    for (int k = 1; k < kPairs; ++k) a[0] = {a[0].front + a[k].front, a[0].back + a[k].back};
    return a[0];
  };
  const Pair all = reduce<pairs, kPairs, FoldAt::BehindRest>(acc, n, 0, AddRealProduct{}, fold, a, b);
  return halves(Add{}, all.front + all.back);
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
