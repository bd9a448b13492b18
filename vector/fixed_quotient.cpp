// Scaled quotients of integer arrays, and by a constant: the first array is the divisor.
//
// A quotient is a floating-point division, rounded to an integer. That this gives the rounded exact quotient needs a
// proof, for it rounds twice. Let the quotient be n / m in integers, and h = k + 1/2 for any integer k. Unless 2n =
// 2hm, and n / m is h itself, 2n and the integer 2hm are 1 apart at least, and n / m and h are 1 / (2m): relative to
// the quotient, 1 / (2n). A division to p bits rounds by at most 2^-p of the quotient, and never past h, which has a
// float; so with n below 2^(p - 1) it gives h only for h, and the second rounding decides as it would on n / m.
//
//   8 bits                   n up to 2^8, or, where scaling up, up to 2^8 m <= 2^16: the rest is cut      floats
//   16 bits, s from 0 on     n up to 2^15; the scale is in m                                              floats
//   16 bits, s below 0       n up to 2^16 m <= 2^31: the rest is cut                                      doubles
//   32 bits                  defined as the division of doubles                                           doubles
//
// p is 24 for floats and 53 for doubles. A dividend times a power of two is exact, and so is a 16-bit divisor. Scale
// factors beyond those that matter are drawn in to one where every quotient rounds to 0 or is cut. A zero divisor makes
// an infinity of the dividend's sign, which is cut; a dividend 0 gives 0 whatever the divisor.
#include "core/rounding.hpp"
#include "core/simd/ints_real.hpp"
#include "vector/fixed.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// f of the lanes at 32 bits, cut to their own width again.
template <int Bytes, class F, class... V>
NOX_INLINE IntLanes<Nox32s, Bytes> at_32_bits(F f, IntLanes<Nox32s, Bytes> a, V... more) {
  return f(a, more...);
}
template <int Bytes, class F, class... V>
NOX_INLINE IntLanes<Nox16s, Bytes> at_32_bits(F f, IntLanes<Nox16s, Bytes> a, V... more) {
  return pack<Nox16s>(f(widen(a).low, widen(more).low...), f(widen(a).high, widen(more).high...));
}
template <int Bytes, class F, class... V>
NOX_INLINE IntLanes<Nox8u, Bytes> at_32_bits(F f, IntLanes<Nox8u, Bytes> a, V... more) {
  const auto half = [&](auto first, auto... others) {
    return pack<Nox16s>(f(widen(first).low, widen(others).low...), f(widen(first).high, widen(others).high...));
  };
  return pack<Nox8u>(half(widen(a).low, widen(more).low...), half(widen(a).high, widen(more).high...));
}

// Quotients of integer lanes by real ones: x * scale / divisor. Below the range the lanes and packs cut by themselves.
template <class T, bool Floats>
struct Quotient {
  Nox64f scale;
  template <class V>
  NOX_INLINE V operator()(V by, V x) const {
    const auto divide = [this](auto divisor, auto dividend) {
      using R = decltype(dividend);
      return min(dividend * R::all(typename R::elem(scale)) / divisor, R::all(typename R::elem(highest<T>)));
    };
    const V r = at_32_bits(
        [&](auto... lanes) {
          if constexpr (Floats)
            return by_floats(divide, lanes...);
          else
            return by_doubles(divide, lanes...);
        },
        by, x);
    return and_not(x == V::zero(), r);
  }
};
// The divisor carries the scale.
template <class T, bool Floats>
struct QuotientByConstant {
  Nox64f divisor;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    const auto divide = [this](auto dividend) {
      using R = decltype(dividend);
      return min(dividend / R::all(typename R::elem(divisor)), R::all(typename R::elem(highest<T>)));
    };
    return at_32_bits(
        [&](auto lanes) {
          if constexpr (Floats)
            return by_floats(divide, lanes);
          else
            return by_doubles(divide, lanes);
        },
        x);
  }
};

// The scale factors at which every quotient is cut, unless it is 0, and at which every one is 0.
struct ScaleRange {
  int all_cut, all_zero;
};
template <class T>
constexpr ScaleRange kRange = sizeof(T) == 1   ? ScaleRange{-17, 10}
                              : sizeof(T) == 2 ? ScaleRange{-32, 17}
                                               : ScaleRange{-63, 33};
template <class T>
NOX_INLINE int drawn_in(int s) {
  constexpr ScaleRange range = kRange<T>;
  return s < range.all_cut ? range.all_cut : s > range.all_zero ? range.all_zero : s;
}
template <class T>
NOX_INLINE bool in_floats(int s) {
  return sizeof(T) == 1 || (sizeof(T) == 2 && s >= 0);
}

template <class T, bool Floats>
NOX_OUT_OF_LINE bool divide(const T* by, const T* x, T* d, int len, int s) {
  using L = std::conditional_t<sizeof(T) == 4, Quads, Elements<T>>;
  using V = typename L::vec;
  V seen = V::zero();
  const Quotient<T, Floats> quotient{power_of_two(-s)};
  map_lanes<L>(
      d, len,
      // Out of line it would get its vectors on a stack that nobody has aligned.
      [&](V divisor, V dividend) __attribute__((always_inline)) {
        seen = seen | (divisor == V::zero());
        return quotient(divisor, dividend);
      },
      by, x);
  return any_lane(seen);
}
template <class T, bool Floats>
NOX_OUT_OF_LINE void divide_by_constant(const T* x, T by, T* d, int len, int s) {
  map_vectors(d, len, QuotientByConstant<T, Floats>{by * power_of_two(s)}, x);
}

template <class T>
NOX_INLINE NoxStatus quotient(const T* by, const T* x, T* d, int len, int s) {
  if (const NoxStatus st = check(len, by, x, d)) return st;
  s = drawn_in<T>(s);
  const RoundToNearest mode;
  bool zero = false;
  if constexpr (sizeof(T) <= 2)
    if (in_floats<T>(s)) zero = divide<T, true>(by, x, d, len, s);
  if constexpr (sizeof(T) >= 2)
    if (!in_floats<T>(s)) zero = divide<T, false>(by, x, d, len, s);
  return zero ? noxStsDivByZero : noxStsNoErr;
}
template <class T>
NOX_INLINE NoxStatus quotient_by_constant(const T* x, T by, T* d, int len, int s) {
  if (const NoxStatus st = check(len, x, d)) return st;
  if (by == 0) return noxStsDivByZeroErr;
  s = drawn_in<T>(s);
  const RoundToNearest mode;
  if (in_floats<T>(s))
    divide_by_constant<T, true>(x, by, d, len, s);
  else if constexpr (sizeof(T) == 2)
    divide_by_constant<T, false>(x, by, d, len, s);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsDiv_8u_Sfs)(const Nox8u* by, const Nox8u* x, Nox8u* d, int len, int s) {
  return quotient(by, x, d, len, s);
}
NoxStatus NOX_BODY(noxsDiv_8u_ISfs)(const Nox8u* by, Nox8u* d, int len, int s) { return quotient(by, d, d, len, s); }
NoxStatus NOX_BODY(noxsDiv_16s_Sfs)(const Nox16s* by, const Nox16s* x, Nox16s* d, int len, int s) {
  return quotient(by, x, d, len, s);
}
NoxStatus NOX_BODY(noxsDiv_16s_ISfs)(const Nox16s* by, Nox16s* d, int len, int s) { return quotient(by, d, d, len, s); }
NoxStatus NOX_BODY(noxsDiv_32s_Sfs)(const Nox32s* by, const Nox32s* x, Nox32s* d, int len, int s) {
  return quotient(by, x, d, len, s);
}
NoxStatus NOX_BODY(noxsDiv_32s_ISfs)(const Nox32s* by, Nox32s* d, int len, int s) { return quotient(by, d, d, len, s); }

NoxStatus NOX_BODY(noxsDivC_8u_Sfs)(const Nox8u* x, Nox8u by, Nox8u* d, int len, int s) {
  return quotient_by_constant(x, by, d, len, s);
}
NoxStatus NOX_BODY(noxsDivC_8u_ISfs)(Nox8u by, Nox8u* d, int len, int s) {
  return quotient_by_constant(d, by, d, len, s);
}
NoxStatus NOX_BODY(noxsDivC_16s_Sfs)(const Nox16s* x, Nox16s by, Nox16s* d, int len, int s) {
  return quotient_by_constant(x, by, d, len, s);
}
NoxStatus NOX_BODY(noxsDivC_16s_ISfs)(Nox16s by, Nox16s* d, int len, int s) {
  return quotient_by_constant(d, by, d, len, s);
}

}  // extern "C"
