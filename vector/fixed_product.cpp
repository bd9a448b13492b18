// Scaled products of integer arrays, and with a constant.
//
// Products of 8 and 16 bits are rounded in lanes of twice the width. Those of 32 bits go through doubles where that is
// told, and where it can't be seen: a product below 2^53 is exact, and above it the result is cut off as long as the
// scale leaves it beyond 32 bits. The others are rounded in 64-bit lanes.
#include "core/rounding.hpp"
#include "core/simd/ints_real.hpp"
#include "vector/fixed.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// ---- 8 and 16 bits

struct Product {
  template <class V>
  static NOX_INLINE V saturated(V a, V b) {
    const auto t = multiply_wide(a, b);
    return pack<typename V::elem>(t.low, t.high);
  }
  template <class V>
  static NOX_INLINE V halved(V a, V b) {
    const auto t = multiply_wide(a, b);
    return pack<typename V::elem>(half(t.low), half(t.high));
  }
  template <class V>
  static NOX_INLINE V scaled(V a, V b, int s) {
    const auto t = multiply_wide(a, b);
    return pack<typename V::elem>(rounded(t.low, s), rounded(t.high, s));
  }
  // The same for 16 bits and s up to 15: in a half that is rounded up, the lowest s + 1 bits of t are 110...0, and one
  // more of t there lets 2^(s - 1) - 1 do for the half. No carry leaves the lower half of t.
  template <class V>
  static NOX_INLINE V scaled_short(V a, V b, int s) {
    const V low = multiply_low(a, b), up = (low & V::all(Nox16s((2 << s) - 1))) == V::all(Nox16s(3 << (s - 1)));
    auto t = join(low - up, multiply_high(a, b));
    const auto below_half = decltype(t.low)::all((1 << (s - 1)) - 1);
    return pack<Nox16s>(shift_right(t.low + below_half, s), shift_right(t.high + below_half, s));
  }

 private:
  template <class W>
  static NOX_INLINE W half(W t) {
    const W floor = shift_right(t, 1);
    return floor + (t & floor & W::all(1));
  }
  // (t + bit s of t + 2^(s - 1) - 1) / 2^s, s from 2 on; the product of two 16-bit numbers leaves room for the sum,
  // that of two bytes doesn't, and its first halving is that of the average.
  template <class W>
  static NOX_INLINE W rounded(W t, int s) {
    using T = typename W::elem;
    const W odd = shift_right(t, s) & W::all(1);
    if constexpr (sizeof(T) == 2)
      return shift_right(average(t, odd + W::all(T((1u << (s - 1)) - 2))), s - 1);
    else
      return shift_right(t + W::all(T((1u << (s - 1)) - 1)) + odd, s);
  }
};

// The scale factor above which even the largest product is at most half a unit.
template <class T>
constexpr int kZeroAbove = sizeof(T) == 1   ? 16
                           : sizeof(T) == 2 ? 30
                                            : 62;

template <Operand Constant, class... S>
NOX_OUT_OF_LINE void scale_short_products(Nox16s c, Nox16s* d, int len, int s, const S*... src) {
  const auto f = [s](auto a, auto b) { return Product::scaled_short(a, b, s); };
  map_vectors(d, len, Bound<Constant, Nox16s, decltype(f)>{f, c}, src...);
}
template <Operand Constant, class T, class... S>
NOX_OUT_OF_LINE NoxStatus products(T c, T* d, int len, int s, const S*... src) {
  if constexpr (sizeof(T) == 2) {
    if (s > 1 && s < 16) {
      scale_short_products<Constant>(c, d, len, s, src...);
      return noxStsNoErr;
    }
  }
  return scaled<Product, Constant>(kZeroAbove<T>, c, d, len, s, src...);
}

// ---- 32 bits by doubles

// The largest scale factor at which doubles can't be told from exact products, or sums of one and a 32-bit number:
// they are inexact from 2^53 on, and what is above 2^52 gives a result above 2^31.
constexpr int kExactByDoubles = 21;
constexpr Nox64f kTop = 2147483647.0;

struct ProductByDoubles {
  Nox64f scale;
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return min(a * V::all(scale) * b, V::all(kTop));
  }
};
struct MultipleByDoubles {
  Nox64f scaled_constant;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return min(a * V::all(scaled_constant), V::all(kTop));
  }
};
struct ProductSumByDoubles {
  Nox64f scale;
  template <class V>
  NOX_INLINE V operator()(V a, V b, V sum) const {
    return min(madd(a, b, sum) * V::all(scale), V::all(kTop));
  }
};

// The factor for a scale; from a left shift by 31 on, any number but 0 is cut off.
NOX_INLINE Nox64f factor(int s) { return power_of_two(s < -31 ? 31 : -s); }

template <class F, class... S>
NOX_OUT_OF_LINE void map_by_doubles(F f, Nox32s* d, int len, const S*... s) {
  using V = Quads::vec;
  const auto pinned = [f](auto... lanes) { return by_doubles(f, lanes...); };
  if (len < 2 * V::N) return map_lanes<Quads>(d, len, pinned, s...);
  // All but the last vector is converted from memory: there, even twice the bytes are those of the array.
  const int rest = len - V::N;
  const V last = pinned(V::load(behind(s, bytes_of<Nox32s>(rest)))...);
  map_long<Quads>(
      d, rest, [f](auto... lanes) { return by_doubles<false>(f, lanes...); }, s...);
  last.store(behind(d, bytes_of<Nox32s>(rest)));
}

// ---- 32 bits in 64

// t / 2^s rounded, for s from 2 to 62. t is moved up by 2^63, for there is a shift of unsigned lanes alone; its last
// bit is taken off before the sum that it would carry out of the lane, and rounds with the others.
template <class W>
NOX_INLINE W rounded(W t, int s) {
  const W up = t ^ W::all(Nox64u(1) << 63), odd = (up | shift_right(up, s)) & W::all(1);
  return shift_right(shift_right(up, 1) + W::all((Nox64u(1) << (s - 2)) - 1) + odd, s - 1) -
         W::all(Nox64u(1) << (63 - s));
}
template <class W>
NOX_INLINE W halved(W t) {
  const W up = t ^ W::all(Nox64u(1) << 63), floor = shift_right(up, 1);
  return floor + (up & floor & W::all(1)) - W::all(Nox64u(1) << 62);
}

struct Exact {
  template <class V>
  NOX_INLINE auto operator()(V a, V b) const {
    return multiply_pairs(a, b);
  }
  template <class V>
  NOX_INLINE auto operator()(V a, V b, V sum) const {
    auto t = multiply_pairs(a, b);
    const auto more = widen_pairs(sum);
    t.even = t.even + more.even;
    t.odd = t.odd + more.odd;
    return t;
  }
};
// A product of complex numbers: even lanes are real parts, odd ones imaginary parts.
struct ExactComplex {
  template <class V>
  NOX_INLINE auto operator()(V a, V b) const {
    auto t = multiply_pairs(a, b);
    t.even = t.even - t.odd;
    t.odd = multiply_even(a, odd_down(b)) + multiply_even(odd_down(a), b);
    return t;
  }
};
template <class F>
struct Scaled {
  F exact;
  int s;
  template <class... V>
  NOX_INLINE auto operator()(V... v) const {
    auto t = exact(v...);
    t.even = rounded(t.even, s);
    t.odd = rounded(t.odd, s);
    return pack_pairs(t);
  }
};

// One result, for the scales that no vector path has: s up to 63.
NOX_INLINE Nox32s one_scaled(Nox64s t, int s) {
  if (s > 0) {
    const Nox64u rest = Nox64u(t) & ((Nox64u(1) << s) - 1), half = Nox64u(1) << (s - 1);
    t >>= s;
    t += rest > half - (Nox64u(t) & 1);
  }
  Nox32s r = cut<Nox32s>(t).v;
  if (s < 0) r = cut<Nox32s>(Nox64s(r) * (Nox64s(1) << left_shift<Nox32s>(s))).v;
  return r;
}

template <class T>
NOX_INLINE NoxStatus product(const T* a, const T* b, T* d, int len, int s) {
  if (const NoxStatus st = check(len, a, b, d)) return st;
  if constexpr (sizeof(T) <= 2) return products<Operand::Array>(T{}, d, len, s, a, b);
  if constexpr (sizeof(T) == 4) {
    if (s > kZeroAbove<T>) return zeros(d, len);
    const RoundToNearest mode;
    map_by_doubles(ProductByDoubles{factor(s)}, d, len, a, b);
  }
  return noxStsNoErr;
}

template <class E>
NOX_OUT_OF_LINE void scale_wide_multiples(const E* a, E c, E* d, int len, int s) {
  using F = std::conditional_t<__is_same(E, Nox32sc), ExactComplex, Exact>;
  const Scaled<F> f{{}, s};
  map_vectors(d, len, Bound<Operand::Second, E, Scaled<F>>{f, c}, a);
}

NOX_INLINE NoxStatus multiples(const Nox32s* a, Nox32s c, Nox32s* d, int len, int s) {
  if (s == 0 && c == 1) return unchanged(a, d, len);
  if (s > kZeroAbove<Nox32s>) return zeros(d, len);
  if (s > kExactByDoubles) {
    scale_wide_multiples(a, c, d, len, s);
  } else {
    const RoundToNearest mode;
    map_by_doubles(MultipleByDoubles{c * factor(s)}, d, len, a);
  }
  return noxStsNoErr;
}
template <class T>
NOX_INLINE NoxStatus multiples(const T* a, T c, T* d, int len, int s) {
  return products<Operand::Second>(c, d, len, s, a);
}

NOX_OUT_OF_LINE void multiples_one_by_one(const Nox32sc* a, Nox32sc c, Nox32sc* d, int len, int s) {
  for (; len > 0; --len) {
    Nox32sc x;
    __builtin_memcpy(&x, a, sizeof x);
    const Nox64s re = Nox64s(x.re) * c.re - Nox64s(x.im) * c.im;
    Nox64s im = Nox64s(Nox64u(Nox64s(x.re) * c.im) + Nox64u(Nox64s(x.im) * c.re));
    // No imaginary part is so small: it is 2^63, and one less rounds to the same at every scale.
    if (im == lowest<Nox64s>) im = highest<Nox64s>;
    const Nox32sc r = {one_scaled(re, s), one_scaled(im, s)};
    __builtin_memcpy(d, &r, sizeof r);
    advance(sizeof r, a, d);
  }
}
NOX_OUT_OF_LINE NoxStatus multiples(const Nox32sc* a, Nox32sc c, Nox32sc* d, int len, int s) {
  if (s > 63) return zeros(d, len);
  const auto run = [&](auto f) { map_vectors(d, len, Bound<Operand::Second, Nox32sc, decltype(f)>{f, c}, a); };
  if (s == 63 || (c.re == lowest<Nox32s> && c.im == lowest<Nox32s>)) {
    // The imaginary part may pass 63 bits by one.
    multiples_one_by_one(a, c, d, len, s);
  } else if (s > 1) {
    scale_wide_multiples(a, c, d, len, s);
  } else if (s == 1) {
    run([](auto x, auto y) {
      auto t = ExactComplex{}(x, y);
      t.even = halved(t.even);
      t.odd = halved(t.odd);
      return pack_pairs(t);
    });
  } else {
    const int left = left_shift<Nox32s>(s);
    run([left](auto x, auto y) { return shift_up_saturated(pack_pairs(ExactComplex{}(x, y)), left); });
  }
  return noxStsNoErr;
}

template <class E>
NOX_INLINE NoxStatus by_constant(const E* a, E c, E* d, int len, int s) {
  if (const NoxStatus st = check(len, a, d)) return st;
  if (is_zero(c)) return zeros(d, len);
  return multiples(a, c, d, len, s);
}

NOX_OUT_OF_LINE void scale_wide_product_sums(const Nox32s* a, const Nox32s* b, Nox32s* d, int len, int s) {
  const Scaled<Exact> f{{}, s};
  map_vectors(d, len, f, a, b, d);
}
NOX_OUT_OF_LINE void product_sums_one_by_one(const Nox32s* a, const Nox32s* b, Nox32s* d, int len, int s) {
  using One = IntOne<Nox32s>;
  for (; len > 0; --len) {
    const Nox64s t = Nox64s(One::load(a).v) * One::load(b).v + One::load(d).v;
    One{one_scaled(t, s)}.store(d);
    advance(sizeof(Nox32s), a, b, d);
  }
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsAddProduct_32s_Sfs)(const Nox32s* a, const Nox32s* b, Nox32s* d, int len, int s) {
  if (const NoxStatus st = check(len, a, b, d)) return st;
  if (s > 63) return zeros(d, len);
  if (s == 63) {
    product_sums_one_by_one(a, b, d, len, s);
  } else if (s > kExactByDoubles) {
    scale_wide_product_sums(a, b, d, len, s);
  } else {
    const RoundToNearest mode;
    map_by_doubles(ProductSumByDoubles{factor(s)}, d, len, a, b, d);
  }
  return noxStsNoErr;
}

NoxStatus NOX_BODY(noxsMul_8u_Sfs)(const Nox8u* a, const Nox8u* b, Nox8u* d, int len, int s) {
  return product(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsMul_8u_ISfs)(const Nox8u* a, Nox8u* d, int len, int s) { return product(a, d, d, len, s); }
NoxStatus NOX_BODY(noxsMul_16s_Sfs)(const Nox16s* a, const Nox16s* b, Nox16s* d, int len, int s) {
  return product(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsMul_16s_ISfs)(const Nox16s* a, Nox16s* d, int len, int s) { return product(a, d, d, len, s); }
NoxStatus NOX_BODY(noxsMul_32s_Sfs)(const Nox32s* a, const Nox32s* b, Nox32s* d, int len, int s) {
  return product(a, b, d, len, s);
}
NoxStatus NOX_BODY(noxsMul_32s_ISfs)(const Nox32s* a, Nox32s* d, int len, int s) { return product(a, d, d, len, s); }

NoxStatus NOX_BODY(noxsMulC_8u_Sfs)(const Nox8u* a, Nox8u c, Nox8u* d, int len, int s) {
  return by_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsMulC_8u_ISfs)(Nox8u c, Nox8u* d, int len, int s) { return by_constant(d, c, d, len, s); }
NoxStatus NOX_BODY(noxsMulC_16s_Sfs)(const Nox16s* a, Nox16s c, Nox16s* d, int len, int s) {
  return by_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsMulC_16s_ISfs)(Nox16s c, Nox16s* d, int len, int s) { return by_constant(d, c, d, len, s); }
NoxStatus NOX_BODY(noxsMulC_32s_Sfs)(const Nox32s* a, Nox32s c, Nox32s* d, int len, int s) {
  return by_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsMulC_32s_ISfs)(Nox32s c, Nox32s* d, int len, int s) { return by_constant(d, c, d, len, s); }
NoxStatus NOX_BODY(noxsMulC_32sc_Sfs)(const Nox32sc* a, Nox32sc c, Nox32sc* d, int len, int s) {
  return by_constant(a, c, d, len, s);
}
NoxStatus NOX_BODY(noxsMulC_32sc_ISfs)(Nox32sc c, Nox32sc* d, int len, int s) { return by_constant(d, c, d, len, s); }

}  // extern "C"
