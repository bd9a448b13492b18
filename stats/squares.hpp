// Squared magnitudes of complex lanes, and what thresholds do with them, for parts side by side and parts apart.
//
// Side by side, both lanes of a value hold its square, so one expression serves the two kinds.
#pragma once
#include "core/simd/choose.hpp"

namespace nox {
inline namespace NOX_VARIANT {

NOX_INLINE F64x2 squares(C64x1 x) {
  const F64x2 p = parts(x) * parts(x);
  return p + parts(swap_parts(complex<C64x1>(p)));
}
NOX_INLINE SplitLanes::V squares(SplitLanes x) { return x.re * x.re + x.im * x.im; }

NOX_INLINE C64x1 scale(C64x1 x, F64x2 by) { return complex<C64x1>(parts(x) * by); }
NOX_INLINE SplitLanes scale(SplitLanes x, SplitLanes::V by) { return {x.re * by, x.im * by}; }

NOX_INLINE C64x1 ratio(C64x1 x, F64x2 by) { return complex<C64x1>(parts(x) / by); }
NOX_INLINE SplitLanes ratio(SplitLanes x, SplitLanes::V by) { return {x.re / by, x.im / by}; }
NOX_INLINE C64x1 negate_im(C64x1 x) { return conj(x); }
NOX_INLINE SplitLanes negate_im(SplitLanes x) { return {x.re, negate(x.im)}; }

// (infinity, 0 - im).
NOX_INLINE C64x1 beside_infinity(C64x1 x) {
  return {_mm_sub_pd(_mm_set_pd(0.0, __builtin_inf()), _mm_shuffle_pd(_mm_setzero_pd(), x.v, 2))};
}
NOX_INLINE SplitLanes beside_infinity(SplitLanes x) {
  return {SplitLanes::V::all(__builtin_inf()), SplitLanes::V::zero() - x.im};
}

// One value in all places.
template <class C>
NOX_INLINE C everywhere(Nox64fc x) {
  if constexpr (C::N == 1 && sizeof(C) == sizeof(C64x1))
    return {_mm_set_pd(x.im, x.re)};
  else
    return {SplitLanes::V::all(x.re), SplitLanes::V::all(x.im)};
}

}  // namespace NOX_VARIANT
}  // namespace nox
