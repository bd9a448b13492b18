// Parts of complex arrays, powers and magnitudes, absolute values.
#include "vector/complex.hpp"

#include "core/simd/ints_wide.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct Power {
  template <class V>
  NOX_INLINE V operator()(V re, V im) const {
    return re * re + im * im;
  }
  NOX_INLINE Reals operator()(Pairs z) const { return (*this)(z.re, z.im); }
};
struct Magnitude {
  template <class... Z>
  NOX_INLINE auto operator()(Z... z) const {
    return sqrt(Power{}(z...));
  }
};
constexpr auto real_part = [](Pairs z) NOX_INLINED { return z.re; };
constexpr auto imaginary_part = [](Pairs z) NOX_INLINED { return z.im; };
constexpr auto both_parts = [](Pairs z) NOX_INLINED { return z; };
constexpr auto joined = [](Reals re, Reals im) NOX_INLINED { return Pairs{re, im}; };

// Without signs; the lowest value stays as it is.
template <class V>
NOX_INLINE V unsigned_size(V x) {
  const V sign = shift_right(x, 31);
  return (x ^ sign) - sign;
}
#if NOX_LEVEL >= 1
NOX_INLINE V128<Nox32s> unsigned_size(V128<Nox32s> x) { return {_mm_abs_epi32(x.v)}; }
#endif
#if NOX_LEVEL >= 4
NOX_INLINE V256<Nox32s> unsigned_size(V256<Nox32s> x) { return {_mm256_abs_epi32(x.v)}; }
#endif
// Cut at the largest value: the one magnitude beyond it is that of the lowest value, which stays negative at first.
struct Absolute {
  template <class V>
  NOX_INLINE V operator()(V x) const {
    if constexpr (sizeof(typename V::elem) == 2) {
      return max(x, sub_saturated(V::zero(), x));
    } else {
      const V magnitude = unsigned_size(x);
      if constexpr (NOX_LEVEL >= 2 && V::N > 1)
        return as_lanes<Nox32s>(min(as_lanes<Nox32u>(magnitude), as_lanes<Nox32u>(V::all(INT32_MAX))));
      else
        return magnitude + shift_right(magnitude, 31);
    }
  }
};
struct ClearSign {
  template <class V>
  NOX_INLINE V operator()(V x) const {
    return abs(x);
  }
};
template <class K, class F, class T>
NOX_INLINE NoxStatus absolute(F f, const T* s, T* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  map<K>(d, len, f, s);
  return noxStsNoErr;
}

template <class D, class F, class S>
NOX_INLINE NoxStatus from_records(F f, const S* s, D* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  each(d, len, f, s);
  return noxStsNoErr;
}
template <class F>
NOX_INLINE NoxStatus from_arrays(F f, const Nox64f* re, const Nox64f* im, Nox64f* d, int len) {
  if (const NoxStatus st = check(len, re, im, d)) return st;
  map<f64>(d, len, f, re, im);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsMagnitude_64f)(const Nox64f* re, const Nox64f* im, Nox64f* d, int len) {
  return from_arrays(Magnitude{}, re, im, d, len);
}
NoxStatus NOX_BODY(noxsMagnitude_64fc)(const Nox64fc* s, Nox64f* d, int len) {
  return from_records(Magnitude{}, s, d, len);
}
NoxStatus NOX_BODY(noxsPowerSpectr_64f)(const Nox64f* re, const Nox64f* im, Nox64f* d, int len) {
  return from_arrays(Power{}, re, im, d, len);
}
NoxStatus NOX_BODY(noxsPowerSpectr_64fc)(const Nox64fc* s, Nox64f* d, int len) {
  return from_records(Power{}, s, d, len);
}

NoxStatus NOX_BODY(noxsReal_64fc)(const Nox64fc* s, Nox64f* d, int len) { return from_records(real_part, s, d, len); }
NoxStatus NOX_BODY(noxsImag_64fc)(const Nox64fc* s, Nox64f* d, int len) {
  return from_records(imaginary_part, s, d, len);
}
NoxStatus NOX_BODY(noxsCplxToReal_64fc)(const Nox64fc* s, Nox64f* re, Nox64f* im, int len) {
  if (const NoxStatus st = check(len, s, re, im)) return st;
  each(TwoArrays{re, im}, len, both_parts, s);
  return noxStsNoErr;
}
// Zeros stand for a source that is missing; one must be there.
NoxStatus NOX_BODY(noxsRealToCplx_64f)(const Nox64f* re, const Nox64f* im, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, d)) return st;
  if (!re && !im) return noxStsNullPtrErr;
  if (!im)
    each(d, len, joined, re, Missing{});
  else if (!re)
    each(d, len, joined, Missing{}, im);
  else
    each(d, len, joined, re, im);
  return noxStsNoErr;
}

NoxStatus NOX_BODY(noxsAbs_16s)(const Nox16s* s, Nox16s* d, int len) {
  return absolute<ints<Nox16s>>(Absolute{}, s, d, len);
}
NoxStatus NOX_BODY(noxsAbs_16s_I)(Nox16s* d, int len) { return absolute<ints<Nox16s>>(Absolute{}, d, d, len); }
NoxStatus NOX_BODY(noxsAbs_32s)(const Nox32s* s, Nox32s* d, int len) {
  return absolute<ints<Nox32s>>(Absolute{}, s, d, len);
}
NoxStatus NOX_BODY(noxsAbs_32s_I)(Nox32s* d, int len) { return absolute<ints<Nox32s>>(Absolute{}, d, d, len); }
NoxStatus NOX_BODY(noxsAbs_64f)(const Nox64f* s, Nox64f* d, int len) { return absolute<f64>(ClearSign{}, s, d, len); }
NoxStatus NOX_BODY(noxsAbs_64f_I)(Nox64f* d, int len) { return absolute<f64>(ClearSign{}, d, d, len); }

}  // extern "C"
