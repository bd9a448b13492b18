// A choice between two vectors by a mask of whole lanes, by the blend instruction where the build has one.
#pragma once
#include "core/simd/c64.hpp"
#include "core/simd/f64.hpp"
#include "core/simd/ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {

NOX_INLINE F64x1 choose(F64x1 mask, F64x1 yes, F64x1 no) {
#if NOX_LEVEL >= 2
  return {_mm_blendv_pd(no.v, yes.v, mask.v)};
#else
  return select(mask, yes, no);
#endif
}
NOX_INLINE F64x2 choose(F64x2 mask, F64x2 yes, F64x2 no) {
#if NOX_LEVEL >= 2
  return {_mm_blendv_pd(no.v, yes.v, mask.v)};
#else
  return select(mask, yes, no);
#endif
}
#if NOX_LEVEL >= 3
NOX_INLINE F64x4 choose(F64x4 mask, F64x4 yes, F64x4 no) { return {_mm256_blendv_pd(no.v, yes.v, mask.v)}; }
#endif

template <class T>
NOX_INLINE IntOne<T> choose(IntOne<T> mask, IntOne<T> yes, IntOne<T> no) {
  return mask.v ? yes : no;
}
template <class T>
NOX_INLINE V128<T> choose(V128<T> mask, V128<T> yes, V128<T> no) {
#if NOX_LEVEL >= 2
  return {_mm_blendv_epi8(no.v, yes.v, mask.v)};
#else
  return select_lanes(mask, yes, no);
#endif
}
#if NOX_LEVEL >= 4
template <class T>
NOX_INLINE V256<T> choose(V256<T> mask, V256<T> yes, V256<T> no) {
  return {_mm256_blendv_epi8(no.v, yes.v, mask.v)};
}
#endif

// Keeps a vector that is used more than once in a register: the compiler would load it for each use, and a load off a
// vector boundary is dear.
template <class V>
NOX_INLINE V once(V x) {
  asm("" : "+x"(x.v));
  return x;
}
template <class T>
NOX_INLINE IntOne<T> once(IntOne<T> x) {
  return x;
}

// Complex values by masks of their real lanes.
NOX_INLINE C64x1 choose(F64x2 mask, C64x1 yes, C64x1 no) { return complex<C64x1>(choose(mask, parts(yes), parts(no))); }
NOX_INLINE SplitLanes choose(SplitLanes::V mask, SplitLanes yes, SplitLanes no) {
  return {choose(mask, yes.re, no.re), choose(mask, yes.im, no.im)};
}

}  // namespace NOX_VARIANT
}  // namespace nox
