// The loops of the array layer: what the scalar loop from index 0 on gives, whatever overlaps whatever.
//
// An element of a complex array is as wide as a vector, so complex results are formed one at a time, which is the
// scalar loop itself. Two real results make a vector: they are formed one at a time only where the destination begins
// inside a source, for then a result is the operand of a later one.
#pragma once
#include <type_traits>

#include "array_bodies.hpp"
#include "core/body.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// One element in a vector register. A real one stands in the low lane, beside a zero.
NOX_INLINE F64x1 one(const Nox64f* p) { return F64x1::load(p); }
NOX_INLINE C64x1 one(const Nox64fc* p) { return C64x1::load(p); }
// Two elements; complex ones with their real parts and their imaginary parts apart.
struct TwoComplex {
  F64x2 re, im;
};
NOX_INLINE F64x2 two(const Nox64f* p) { return F64x2::load(p); }
NOX_INLINE TwoComplex two(const Nox64fc* p) {
  const F64x2 a = parts(C64x1::load(p)), b = parts(C64x1::load(p + 1));
  return {low_halves(a, b), high_halves(a, b)};
}

// Whether writing n elements to d forwards changes elements of s that are still to be read.
template <class D, class S>
NOX_INLINE bool ahead_of(const D* d, const S* s, Nox32u n) {
  const uintptr_t distance = reinterpret_cast<uintptr_t>(d) - reinterpret_cast<uintptr_t>(s);
  return distance - 1 < n * sizeof(S) - 1;
}

// d[i] = f(s[i]...)
template <class F, class... S>
NOX_INLINE void forward(Nox64fc* d, Nox32u n, F&& f, const S*... s) {
#pragma GCC unroll 4
  for (Nox32u i = 0; i < n; ++i) C64x1(f(one(s + i)...)).store(d + i);
}
template <class F, class... S>
NOX_INLINE void forward(Nox64f* d, Nox32u n, F&& f, const S*... s) {
  Nox32u i = 0;
  if (!(ahead_of(d, s, n) || ...)) {
    if constexpr ((std::is_same_v<S, Nox64f> && ...)) {
      using V = f64::vec;
#pragma GCC unroll 4
      for (; n - i >= Nox32u(V::N); i += V::N) V(f(V::load(s + i)...)).store(d + i);
    } else {
#pragma GCC unroll 4
      for (; n - i >= 2; i += 2) F64x2(f(two(s + i)...)).store(d + i);
    }
  }
  for (; i < n; ++i) F64x1(f(one(s + i)...)).store(d + i);
}

}  // namespace NOX_VARIANT
}  // namespace nox
