// Scaled sums and differences of integer arrays, and with a constant.
//
// A sum needs one bit more than its operands. No lanes are widened for it: floor(t / 2) fits, and with the lost bit,
// the lowest of a ^ b, it tells all of t that rounding asks for.
#include "vector/fixed.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// t is 2 * floor plus the lowest bit of `odd`.
template <class V>
struct Halves {
  V floor, odd;
};

// How far a is above b, as a number to subtract: -1 where it is, in signed lanes.
template <class V>
NOX_INLINE V add_where_above(V r, V a, V b) {
  if constexpr (is_signed<typename V::elem>)
    return r - (a > b);
  else
    return r + min(sub_saturated(a, b), V::all(1));
}

template <class Op>
struct ByHalves {
  template <class V>
  static NOX_INLINE V halved(V a, V b) {
    const Halves<V> t = Op::halves(a, b);
    // A half is rounded up where the floor is odd; from the largest number that leaves the range.
    return sum_saturated(t.floor, t.odd & t.floor & V::all(1));
  }
  // s from 2 on. The remainder is what the floor shifts out, and the lost bit below it.
  template <class V>
  static NOX_INLINE V scaled(V a, V b, int s) {
    using T = typename V::elem;
    const int n = s - 1;
    const Halves<V> t = Op::halves(a, b);
    const V one = V::all(1);
#if NOX_LEVEL >= 1
    // The product rounds halves up; an even r without the lost bit is moved below its half. (-32768 is no half.)
    if constexpr (sizeof(T) == 2) {
      const V stays = and_not(shift_down(t.floor, n) | t.odd, one);
      return multiply_rounded(sub_saturated(t.floor, stays), V::all(T(1 << (15 - n))));
    }
#endif
    const V r = shift_down(t.floor, n), rest = t.floor & V::all(T((Nox64u(1) << n) - 1));
    // Up from above the half, and from the half itself where the lost bit is set or r is odd.
    const V half = V::all(T(Nox64u(1) << (n - 1)));
    return add_where_above(r, rest, half - ((t.odd | r) & one));
  }
};

struct Sum : ByHalves<Sum> {
  template <class V>
  static NOX_INLINE V saturated(V a, V b) {
    return sum_saturated(a, b);
  }
  template <class V>
  static NOX_INLINE Halves<V> halves(V a, V b) {
    const V odd = a ^ b;
    return {(a & b) + shift_down(odd, 1), odd};
  }
};
// b - a.
struct Difference : ByHalves<Difference> {
  template <class V>
  static NOX_INLINE V saturated(V a, V b) {
    return difference_saturated(b, a);
  }
  template <class V>
  static NOX_INLINE Halves<V> halves(V a, V b) {
    if constexpr (is_signed<typename V::elem>) {
      const V odd = a ^ b;
      return {shift_down(odd, 1) - and_not(b, a), odd};
    } else {
      // Below 0 the result is 0 at every scale.
      const V t = sub_saturated(b, a);
      return {shift_down(t, 1), t};
    }
  }
};

// The scale factor above which even the largest t is at most half a unit.
template <class E>
constexpr int kZeroAbove = sizeof(typename Elements<E>::part) == 1   ? 9
                           : sizeof(typename Elements<E>::part) == 2 ? 16
                                                                     : 32;

template <class Op, class E>
NOX_OUT_OF_LINE NoxStatus of_two(const E* a, const E* b, E* d, int len, int s) {
  if (const NoxStatus st = check(len, a, b, d)) return st;
  return scaled<Op, Operand::Array>(kZeroAbove<E>, E{}, d, len, s, a, b);
}
// A complex array is one of twice as many parts. The length comes first here, and not the pointers.
template <class Op>
NOX_INLINE NoxStatus of_two_complex(const Nox32sc* a, const Nox32sc* b, Nox32sc* d, int len, int s) {
  if (len < 1) return noxStsSizeErr;
  if (const NoxStatus st = check(len, a, b, d)) return st;
  const int parts = static_cast<int>(2u * static_cast<unsigned>(len));
  return of_two<Op>(&a->re, &b->re, &d->re, parts, s);
}

template <class Op, Operand Constant, class E>
NOX_OUT_OF_LINE NoxStatus with_constant(const E* a, E c, E* d, int len, int s) {
  if (const NoxStatus st = check(len, a, d)) return st;
  constexpr bool kKeeps = Constant == Operand::First || __is_same(Op, Sum);  // a constant 0 changes nothing
  if (kKeeps && s == 0 && is_zero(c)) return unchanged(a, d, len);
  return scaled<Op, Constant>(kZeroAbove<E>, c, d, len, s, a);
}
template <class E>
NOX_INLINE NoxStatus add_constant(const E* a, E c, E* d, int len, int s) {
  return with_constant<Sum, Operand::Second>(a, c, d, len, s);
}
template <class E>
NOX_INLINE NoxStatus subtract_constant(const E* a, E c, E* d, int len, int s) {
  return with_constant<Difference, Operand::First>(a, c, d, len, s);
}
template <class E>
NOX_INLINE NoxStatus subtract_from_constant(const E* a, E c, E* d, int len, int s) {
  return with_constant<Difference, Operand::Second>(a, c, d, len, s);
}
// A sum of bytes with a constant above 0 is above 0, so by its sign alone it is the largest number.
NOX_INLINE NoxStatus add_byte(const Nox8u* a, Nox8u c, Nox8u* d, int len, int s) {
  if (s >= -7 || c == 0 || check(len, a, d)) return add_constant(a, c, d, len, s);
  return fill_bytes(d, bytes_of<Nox8u>(len), 1, pattern_of(Nox8u{255}));
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsAdd_8u_Sfs)(const Nox8u* a, const Nox8u* b, Nox8u* d, int len, int s) {
  return of_two<Sum>(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsAdd_8u_ISfs)(const Nox8u* a, Nox8u* d, int len, int s) { return of_two<Sum>(a, d, d, len, s); }
NoxStatus NOX_BODY(noxsAdd_16s_Sfs)(const Nox16s* a, const Nox16s* b, Nox16s* d, int len, int s) {
  return of_two<Sum>(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsAdd_16s_ISfs)(const Nox16s* a, Nox16s* d, int len, int s) {
  return of_two<Sum>(a, d, d, len, s);
}
NoxStatus NOX_BODY(noxsAdd_32s_Sfs)(const Nox32s* a, const Nox32s* b, Nox32s* d, int len, int s) {
  return of_two<Sum>(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsAdd_32s_ISfs)(const Nox32s* a, Nox32s* d, int len, int s) {
  return of_two<Sum>(a, d, d, len, s);
}
NoxStatus NOX_BODY(noxsAdd_32sc_Sfs)(const Nox32sc* a, const Nox32sc* b, Nox32sc* d, int len, int s) {
  return of_two_complex<Sum>(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsAdd_32sc_ISfs)(const Nox32sc* a, Nox32sc* d, int len, int s) {
  return of_two_complex<Sum>(a, d, d, len, s);
}

NoxStatus NOX_BODY(noxsSub_8u_Sfs)(const Nox8u* a, const Nox8u* b, Nox8u* d, int len, int s) {
  return of_two<Difference>(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsSub_8u_ISfs)(const Nox8u* a, Nox8u* d, int len, int s) {
  return of_two<Difference>(a, d, d, len, s);
}
NoxStatus NOX_BODY(noxsSub_16s_Sfs)(const Nox16s* a, const Nox16s* b, Nox16s* d, int len, int s) {
  return of_two<Difference>(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsSub_16s_ISfs)(const Nox16s* a, Nox16s* d, int len, int s) {
  return of_two<Difference>(a, d, d, len, s);
}
NoxStatus NOX_BODY(noxsSub_32s_Sfs)(const Nox32s* a, const Nox32s* b, Nox32s* d, int len, int s) {
  return of_two<Difference>(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsSub_32s_ISfs)(const Nox32s* a, Nox32s* d, int len, int s) {
  return of_two<Difference>(a, d, d, len, s);
}
NoxStatus NOX_BODY(noxsSub_32sc_Sfs)(const Nox32sc* a, const Nox32sc* b, Nox32sc* d, int len, int s) {
  return of_two_complex<Difference>(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsSub_32sc_ISfs)(const Nox32sc* a, Nox32sc* d, int len, int s) {
  return of_two_complex<Difference>(a, d, d, len, s);
}

NoxStatus NOX_BODY(noxsAddC_8u_Sfs)(const Nox8u* a, Nox8u c, Nox8u* d, int len, int s) {
  return add_byte(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsAddC_8u_ISfs)(Nox8u c, Nox8u* d, int len, int s) { return add_byte(d, c, d, len, s); }
NoxStatus NOX_BODY(noxsAddC_16s_Sfs)(const Nox16s* a, Nox16s c, Nox16s* d, int len, int s) {
  return add_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsAddC_16s_ISfs)(Nox16s c, Nox16s* d, int len, int s) { return add_constant(d, c, d, len, s); }
NoxStatus NOX_BODY(noxsAddC_32s_Sfs)(const Nox32s* a, Nox32s c, Nox32s* d, int len, int s) {
  return add_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsAddC_32s_ISfs)(Nox32s c, Nox32s* d, int len, int s) { return add_constant(d, c, d, len, s); }
NoxStatus NOX_BODY(noxsAddC_32sc_Sfs)(const Nox32sc* a, Nox32sc c, Nox32sc* d, int len, int s) {
  return add_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsAddC_32sc_ISfs)(Nox32sc c, Nox32sc* d, int len, int s) { return add_constant(d, c, d, len, s); }

NoxStatus NOX_BODY(noxsSubC_8u_Sfs)(const Nox8u* a, Nox8u c, Nox8u* d, int len, int s) {
  return subtract_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubC_8u_ISfs)(Nox8u c, Nox8u* d, int len, int s) { return subtract_constant(d, c, d, len, s); }
NoxStatus NOX_BODY(noxsSubC_16s_Sfs)(const Nox16s* a, Nox16s c, Nox16s* d, int len, int s) {
  return subtract_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubC_16s_ISfs)(Nox16s c, Nox16s* d, int len, int s) {
  return subtract_constant(d, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubC_32s_Sfs)(const Nox32s* a, Nox32s c, Nox32s* d, int len, int s) {
  return subtract_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubC_32s_ISfs)(Nox32s c, Nox32s* d, int len, int s) {
  return subtract_constant(d, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubC_32sc_Sfs)(const Nox32sc* a, Nox32sc c, Nox32sc* d, int len, int s) {
  return subtract_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubC_32sc_ISfs)(Nox32sc c, Nox32sc* d, int len, int s) {
  return subtract_constant(d, c, d, len, s);
}

NoxStatus NOX_BODY(noxsSubCRev_8u_Sfs)(const Nox8u* a, Nox8u c, Nox8u* d, int len, int s) {
  return subtract_from_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubCRev_8u_ISfs)(Nox8u c, Nox8u* d, int len, int s) {
  return subtract_from_constant(d, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubCRev_16s_Sfs)(const Nox16s* a, Nox16s c, Nox16s* d, int len, int s) {
  return subtract_from_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubCRev_16s_ISfs)(Nox16s c, Nox16s* d, int len, int s) {
  return subtract_from_constant(d, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubCRev_32s_Sfs)(const Nox32s* a, Nox32s c, Nox32s* d, int len, int s) {
  return subtract_from_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubCRev_32s_ISfs)(Nox32s c, Nox32s* d, int len, int s) {
  return subtract_from_constant(d, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubCRev_32sc_Sfs)(const Nox32sc* a, Nox32sc c, Nox32sc* d, int len, int s) {
  return subtract_from_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsSubCRev_32sc_ISfs)(Nox32sc c, Nox32sc* d, int len, int s) {
  return subtract_from_constant(d, c, d, len, s);
}

}  // extern "C"
