// The larger or the smaller of two signed integers at every place, for the two index forms without a primitive.
#include "nox/array/every.h"

#include "adapters/adapter.hpp"
#include "array/operands.hpp"
#include "core/simd/ints_wide.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// In whole vectors, for arrays from one on.
template <class V, class T, class F>
NOX_INLINE void vectors(F f, const T* a, const T* b, T* d, Nox32u n) {
  constexpr Nox32u N = V::N;
  const auto of = [=](Nox32u i) NOX_INLINED { return f(V::load(a + i), V::load(b + i)); };
  const V last = of(n - N);  // before the destination, which may be a source, is written
  Nox32u i = 0;
#pragma GCC unroll 4
  for (; n - i >= N; i += N) {
    of(i).store(d + i);
    in_order();
  }
  if (i < n) last.store(d + (n - N));
}
// What the scalar loop from index 0 on gives, whatever overlaps whatever.
template <class T, class F>
NOX_INLINE NoxStatus every(F f, const T* a, const T* b, T* d, int len) {
  if (len < 0) return noxStsSizeErr;
  const Nox32u n = static_cast<Nox32u>(len);
  using Wide = typename ints<T>::vec;
  using One = typename ints<T>::one;
  if (n < Nox32u(V128<T>::N) || ahead_of(d, a, n) || ahead_of(d, b, n))
    for (Nox32u i = 0; i < n; ++i) f(One::load(a + i), One::load(b + i)).store(d + i);
  else if (n < Nox32u(Wide::N))
    vectors<V128<T>>(f, a, b, d, n);
  else
    vectors<Wide>(f, a, b, d, n);
  return noxStsNoErr;
}
constexpr auto larger = [](auto a, auto b) { return max(a, b); };
constexpr auto smaller = [](auto a, auto b) { return min(a, b); };

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsMaxEvery_16s_Idx)(const Nox16s* a, int ai, const Nox16s* b, int bi, Nox16s* d, int di, int len) {
  return every(larger, at(a, ai), at(b, bi), at(d, di), len);
}
NoxStatus NOX_BODY(noxsMaxEvery_32s_Idx)(const Nox32s* a, int ai, const Nox32s* b, int bi, Nox32s* d, int di, int len) {
  return every(larger, at(a, ai), at(b, bi), at(d, di), len);
}
NoxStatus NOX_BODY(noxsMinEvery_16s_Idx)(const Nox16s* a, int ai, const Nox16s* b, int bi, Nox16s* d, int di, int len) {
  return every(smaller, at(a, ai), at(b, bi), at(d, di), len);
}
NoxStatus NOX_BODY(noxsMinEvery_32s_Idx)(const Nox32s* a, int ai, const Nox32s* b, int bi, Nox32s* d, int di, int len) {
  return every(smaller, at(a, ai), at(b, bi), at(d, di), len);
}

}  // extern "C"
