// Conversions to integers, but for those of 64 bits: values are scaled by a power of two, rounded and cut to the range
// of the destination.
#include "vector/convert.hpp"

#include "core/rounding.hpp"
#include "nox/vector/convert.h"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using S24 = Format24<true>;
using U24 = Format24<false>;
constexpr Nox32s kMost24s = 0x7FFFFF, kMost24u = 0xFFFFFF;

// Reals cut at the top, and at the bottom where the store wouldn't do it; a NaN becomes the top.
template <class E>
struct Range {
  E bottom, top;
};
template <class From, class To, class Round, class E>
NOX_INLINE void real_to_int(const E* s, typename To::elem* d, int len, Range<E> range, Round round, E factor) {
  convert_eights<From, To>(s, d, len, [=](auto x) NOX_INLINED {
    using V = typename decltype(x)::Vector;
    const auto cut_off = [=](V a) NOX_INLINED {
      return most(least(a * all_of<V>(factor), all_of<V>(range.top)), all_of<V>(range.bottom));
    };
    return round(each_vector(cut_off, x));
  });
}
// The same where the top of the range isn't a float: what reaches 2^31 is put in at the end.
struct FloatRange {};
template <class From, class To, class Round>
NOX_INLINE void real_to_int(const Nox32f* s, Nox32s* d, int len, FloatRange, Round round, Nox32f factor) {
  convert_eights<From, To>(s, d, len, [=](Floats8 x) NOX_INLINED {
    using V = FloatVector;
    const Floats8 y = each_vector([=](V a) NOX_INLINED { return a * all_of<V>(factor); }, x);
    const Floats8 beyond = each_vector([](V a) NOX_INLINED { return all_of<V>(0x1p31f) <= a; }, y);
    const auto cut_off = [](V a) NOX_INLINED { return most(least(a, all_of<V>(0x1.fffffep30f)), all_of<V>(-0x1p31f)); };
    const auto end = [](auto a, auto past) NOX_INLINED { return select_lanes(past, decltype(a)::all(INT32_MAX), a); };
    return each_vector(end, round(each_vector(cut_off, y)), int_bits(beyond));
  });
}

// To nearest by the processor's conversion, which asks the control word.
template <class From, class To, class R, class E>
__attribute__((noinline)) void to_nearest(const E* s, typename To::elem* d, int len, R range, E factor) {
  real_to_int<From, To>(s, d, len, range, Near{}, factor);
}
template <class From, class To, class R, class E>
NOX_INLINE NoxStatus by_mode(const E* s, typename To::elem* d, int len, int mode, R range, E factor) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (mode == noxRndNear) {
    const RoundToNearest nearest;
    to_nearest<From, To>(s, d, len, range, factor);
  } else if (mode == noxRndZero) {
    real_to_int<From, To>(s, d, len, range, Cut{}, factor);
  } else {
    real_to_int<From, To>(s, d, len, range, HalfAway{}, factor);
  }
  return noxStsNoErr;
}

// ---- integers
using V = Ints8::Vector;

// x / 2^s to nearest, halves to even, for s from 1 to 31; as bits without a sign if `Signed` is false.
template <bool Signed>
NOX_INLINE V shifted_down(V x, int s) {
  const V q = Signed ? shift_right(x, s) : as_lanes<Nox32s>(shift_right(as_lanes<Nox32u>(x), s));
  const Nox32u below_half = (Nox32u{1} << (s - 1)) - 1;
  const V rest = x & V::all(static_cast<Nox32s>(2 * below_half + 1));
  const V carried = rest + (V::all(static_cast<Nox32s>(below_half)) + (q & V::all(1)));
  return q + as_lanes<Nox32s>(shift_right(as_lanes<Nox32u>(carried), s));
}
// x * 2^n cut to a range, for n with which the lowest value is a multiple of 2^n and which takes every other one
// beyond.
NOX_INLINE V shifted_up(V x, int n, Nox32s bottom, Nox32s top) {
  const V high = V::all(top >> n), low = V::all(bottom >> n);
  const V shifted = shift_left(x, n);
  return select_lanes(x > high, V::all(top), select_lanes(low > x, V::all(bottom), shifted));
}
template <class To>
NOX_INLINE NoxStatus int_to_int(const Nox32s* s, typename To::elem* d, int len, int scale, int least_scale,
                                Nox32s bottom, Nox32s top) {
  const auto cut_off = [=](V x) NOX_INLINED {
    if (To::kCuts) return x;
    return min(max(x, V::all(bottom)), V::all(top));
  };
  // Cut before the quotient is taken, where that is a multiple of 2^scale in 32 bits, a sum leaves room for its
  // rounding.
  if (!To::kCuts && scale > 0 && Nox64s{top} << scale <= INT32_MAX) {
    const V low = V::all(bottom * (1 << scale)), high = V::all(top << scale),
            below_half = V::all((1 << (scale - 1)) - 1);
    return convert<Format<Nox32s>, To>(s, d, len, [=](Ints8 a) NOX_INLINED {
      const auto quotient = [=](V x) NOX_INLINED {
        const V in_range = min(max(x, low), high), odd = shift_right(in_range, scale) & V::all(1);
        return shift_right(in_range + (below_half + odd), scale);
      };
      return each_vector(quotient, a);
    });
  }
  if (scale > 0)
    return convert<Format<Nox32s>, To>(s, d, len, [=](Ints8 a) NOX_INLINED {
      return each_vector([=](V x) NOX_INLINED { return cut_off(shifted_down<true>(x, scale)); }, a);
    });
  const int n = scale < least_scale ? -least_scale : -scale;
  return convert<Format<Nox32s>, To>(s, d, len, [=](Ints8 a) NOX_INLINED {
    return each_vector([=](V x) NOX_INLINED { return shifted_up(x, n, bottom, top); }, a);
  });
}
struct Zero {
  NOX_INLINE Ints8 operator()(Ints8 a) const {
    return each_vector([](V) NOX_INLINED { return V::zero(); }, a);
  }
};
// As lanes compare with signs, values without one are moved down by half their range.
constexpr Nox32s kFlip = INT32_MIN;

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsConvert_32f8s_Sfs)(const Nox32f* s, Nox8s* d, int len, int mode, int scale) {
  return by_mode<Format<Nox32f>, Format<Nox8s>>(s, d, len, mode, Range<Nox32f>{-128, 127}, float_factor(scale));
}
NoxStatus NOX_BODY(noxsConvert_32f8u_Sfs)(const Nox32f* s, Nox8u* d, int len, int mode, int scale) {
  return by_mode<Format<Nox32f>, Format<Nox8u>>(s, d, len, mode, Range<Nox32f>{0, 255}, float_factor(scale));
}
NoxStatus NOX_BODY(noxsConvert_32f16s_Sfs)(const Nox32f* s, Nox16s* d, int len, int mode, int scale) {
  return by_mode<Format<Nox32f>, Format<Nox16s>>(s, d, len, mode, Range<Nox32f>{-32768, 32767}, float_factor(scale));
}
NoxStatus NOX_BODY(noxsConvert_32f16u_Sfs)(const Nox32f* s, Nox16u* d, int len, int mode, int scale) {
  return by_mode<Format<Nox32f>, Format<Nox16u>>(s, d, len, mode, Range<Nox32f>{0, 65535}, float_factor(scale));
}
NoxStatus NOX_BODY(noxsConvert_32f32s_Sfs)(const Nox32f* s, Nox32s* d, int len, int mode, int scale) {
  return by_mode<Format<Nox32f>, Format<Nox32s>>(s, d, len, mode, FloatRange{}, float_factor(scale));
}
NoxStatus NOX_BODY(noxsConvert_64f16s_Sfs)(const Nox64f* s, Nox16s* d, int len, int mode, int scale) {
  return by_mode<Format<Nox64f>, Format<Nox16s>>(s, d, len, mode, Range<Nox64f>{-32768, 32767}, double_factor(scale));
}
NoxStatus NOX_BODY(noxsConvert_64f32s_Sfs)(const Nox64f* s, Nox32s* d, int len, int mode, int scale) {
  const Range<Nox64f> range{INT32_MIN, INT32_MAX};
  return by_mode<Format<Nox64f>, Format<Nox32s>>(s, d, len, mode, range, double_factor(scale));
}
NoxStatus NOX_BODY(noxsConvert_32f24s_Sfs)(const Nox32f* s, Nox8u* d, int len, int scale) {
  return by_mode<Format<Nox32f>, S24>(s, d, len, noxRndNear, Range<Nox32f>{-kMost24s - 1, kMost24s},
                                      float_factor(scale));
}
NoxStatus NOX_BODY(noxsConvert_32f24u_Sfs)(const Nox32f* s, Nox8u* d, int len, int scale) {
  return by_mode<Format<Nox32f>, U24>(s, d, len, noxRndNear, Range<Nox32f>{0, kMost24u}, float_factor(scale));
}

NoxStatus NOX_BODY(noxsConvert_32s16s)(const Nox32s* s, Nox16s* d, int len) {
  return convert<Format<Nox32s>, Format<Nox16s>>(s, d, len, Same{});
}
NoxStatus NOX_BODY(noxsConvert_32s16s_Sfs)(const Nox32s* s, Nox16s* d, int len, int scale) {
  if (scale == 0) return NOX_BODY(noxsConvert_32s16s)(s, d, len);
  return int_to_int<Format<Nox16s>>(s, d, len, scale > 31 ? 31 : scale, -15, INT16_MIN, INT16_MAX);
}
NoxStatus NOX_BODY(noxsConvert_32s24s_Sfs)(const Nox32s* s, Nox8u* d, int len, int scale) {
  // A quotient by 2^32 is a half at most, which goes to 0.
  if (scale > 31) return convert<Format<Nox32s>, S24>(s, d, len, Zero{});
  return int_to_int<S24>(s, d, len, scale, -23, -kMost24s - 1, kMost24s);
}
NoxStatus NOX_BODY(noxsConvert_32u24u_Sfs)(const Nox32u* s, Nox8u* d, int len, int scale) {
  using From = Format<Nox32u>;
  const V flip = V::all(kFlip), top = V::all(kMost24u);
  if (scale > 32) return convert<From, U24>(s, d, len, Zero{});
  if (scale == 32)  // 1 above the half of 2^32, else 0
    return convert<From, U24>(s, d, len, [=](Ints8 a) NOX_INLINED {
      return each_vector([=](V x) NOX_INLINED { return V::zero() - ((x ^ flip) > V::zero()); }, a);
    });
  if (scale > 0)
    return convert<From, U24>(s, d, len, [=](Ints8 a) NOX_INLINED {
      return each_vector(
          [=](V x) NOX_INLINED {
            const V q = shifted_down<false>(x, scale);
            return min(q, top) | ((V::zero() > q) & top);
          },
          a);
    });
  const int n = scale < -24 ? 24 : -scale;
  return convert<From, U24>(s, d, len, [=](Ints8 a) NOX_INLINED {
    return each_vector(
        [=](V x) NOX_INLINED {
          const V beyond = (x ^ flip) > V::all((kMost24u >> n) ^ kFlip);
          return select_lanes(beyond, top, shift_left(x, n));
        },
        a);
  });
}

}  // extern "C"
