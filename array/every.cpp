// The larger or the smaller of two signed integers at every place, for the two index forms without a primitive.
#include "nox/array/every.h"

#include "adapters/adapter.hpp"
#include "array/operands.hpp"
#include "core/simd/ints_wide.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// What the scalar loop from index 0 on gives, whatever overlaps whatever.
template <class T, class F>
NOX_INLINE NoxStatus every(F f, const T* a, const T* b, T* d, int len) {
  if (len < 0) return noxStsSizeErr;
  const Elements<T> x{a}, y{b};
  const Nox32u n = static_cast<Nox32u>(len);
  constexpr Nox32u N = V128<T>::N;
  Nox32u i = 0;
  if (n >= N && !x.changed_by(d, n) && !y.changed_by(d, n)) {
    const auto last = f(x.lanes(n - N), y.lanes(n - N));  // before the destination, which may be a source, is written
#pragma GCC unroll 4
    for (; n - i >= N; i += N) {
      f(x.lanes(i), y.lanes(i)).store(d + i);
      in_order();
    }
    if (i < n) last.store(d + (n - N));
    return noxStsNoErr;
  }
  for (; i < n; ++i) put_element(d + i, f(IntOne<T>{x.one(i)}, IntOne<T>{y.one(i)}).v);
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
