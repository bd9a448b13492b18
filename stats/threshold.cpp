// Thresholds of real and integer arrays: elements beyond a level are replaced.
//
// Each rule is a functor over lanes. The order of the operands of a minimum or maximum, and the side of a comparison
// that a NaN falls on, are part of the interface, so they are written as they are for a reason.
#include "core/body.hpp"
#include "core/simd/choose.hpp"

#include <type_traits>

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// What raising and lowering do to one element; a NaN gives the level, the second operand.
struct Raise {
  Nox64f level;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    return max(x, V::all(level));
  }
  NOX_INLINE F64x1 keeping_nan(F64x1 x) const { return max(F64x1::all(level), x); }
};
struct Lower {
  Nox64f level;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    return min(x, V::all(level));
  }
  NOX_INLINE F64x1 keeping_nan(F64x1 x) const { return min(F64x1::all(level), x); }
};

struct RaiseInts {
  template <class V>
  NOX_INLINE V operator()(V x, V level) const {
    return max(x, level);
  }
};
struct LowerInts {
  template <class V>
  NOX_INLINE V operator()(V x, V level) const {
    return min(x, level);
  }
};

// Integers without a comparison of their own order: a < b is b > a.
template <class T>
NOX_INLINE IntOne<T> operator<(IntOne<T> a, IntOne<T> b) {
  return b > a;
}
template <class T, int Bytes>
NOX_INLINE IntLanes<T, Bytes> operator<(IntLanes<T, Bytes> a, IntLanes<T, Bytes> b) {
  return b > a;
}
// Whether x is kept at the lower level. A NaN isn't.
template <class T>
NOX_INLINE IntOne<T> keeps_above(IntOne<T> level, IntOne<T> x, IntOne<T> value) {
  return choose(level > x, value, x);
}
template <class T, int Bytes>
NOX_INLINE IntLanes<T, Bytes> keeps_above(IntLanes<T, Bytes> level, IntLanes<T, Bytes> x, IntLanes<T, Bytes> value) {
  return choose(level > x, value, x);
}
template <class V>
NOX_INLINE V keeps_above(V level, V x, V value) {
  return choose(level <= x, x, value);
}

template <class T>
struct ReplaceBelow {
  T level, value;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    x = once(x);
    return keeps_above(V::all(level), x, V::all(value));
  }
};
template <class T>
struct ReplaceAbove {
  T level, value;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    x = once(x);
    return choose(V::all(level) < x, V::all(value), x);
  }
};
template <class T>
struct ReplaceOutside {
  T low, value_low, high, value_high;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    x = once(x);
    return choose(V::all(high) < x, V::all(value_high), keeps_above(V::all(low), x, V::all(value_low)));
  }
};

// To [-level, level].
template <class T>
struct Clamp {
  T level;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    return max(min(x, V::all(level)), V::zero() - V::all(level));
  }
};

// Away from zero, to the level of the element's sign.
struct RaiseMagnitude {
  Nox64f level;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    x = once(x);
    return max(abs(x), V::all(level)) | (x & V::all(-0.0));
  }
};
template <class T>
struct RaiseMagnitudeInts {
  T level;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    x = once(x);
    const V up = V::all(level);
    return choose(V::zero() > x, min(x, V::zero() - up), max(x, up));
  }
};

struct ReplaceNan {
  Nox64f value;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    x = once(x);
    return choose(is_nan(x), V::all(value), x);
  }
};

template <class K, class F, class T>
NOX_INLINE NoxStatus apply(F f, const T* s, T* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  map<K>(d, len, f, s);
  return noxStsNoErr;
}

// The copying forms. Beyond a first element in the upper half of a 16-byte block, an odd last element is taken the
// other way round, so that there a NaN survives.
template <class F>
NOX_INLINE void limit_copying(F f, const Nox64f* s, Nox64f* d, int len) {
  const int apart = reinterpret_cast<uintptr_t>(d) % 16 == 8;
  const F64x1 last = F64x1::load(s + len - 1);
  map<f64>(d, len, f, s);
  if ((len - apart) % 2 != 0) f.keeping_nan(last).store(d + len - 1);
}

enum { kLess = 0, kGreater = 4 };

NOX_INLINE NoxStatus limit(const Nox64f* s, Nox64f* d, int len, Nox64f level, int relation) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (relation == kLess)
    limit_copying(Raise{level}, s, d, len);
  else if (relation == kGreater)
    limit_copying(Lower{level}, s, d, len);
  else
    return noxStsBadArgErr;
  return noxStsNoErr;
}
NOX_INLINE NoxStatus limit_in_place(Nox64f* d, int len, Nox64f level, int relation) {
  if (const NoxStatus st = check(len, d)) return st;
  if (relation == kLess)
    map<f64>(d, len, Raise{level}, d);
  else if (relation == kGreater)
    map<f64>(d, len, Lower{level}, d);
  else
    return noxStsBadArgErr;
  return noxStsNoErr;
}
template <class T, class F>
NOX_INLINE NoxStatus limit_ints(F f, const T* s, T* d, int len, T level) {
  return apply<ints<T>>([=](auto x) { return f(x, decltype(x)::all(level)); }, s, d, len);
}

template <class T>
using kind_of = std::conditional_t<std::is_same_v<T, Nox64f>, f64, ints<T>>;

template <class T>
NOX_INLINE NoxStatus replace_outside(const T* s, T* d, int len, T low, T value_low, T high, T value_high) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (low > high) return noxStsThresholdErr;
  map<kind_of<T>>(d, len, ReplaceOutside<T>{low, value_low, high, value_high}, s);
  return noxStsNoErr;
}

// Rules on magnitudes, whose level isn't negative.
template <class T, class F>
NOX_INLINE NoxStatus by_magnitude(F f, const T* s, T* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (f.level < 0) return noxStsThreshNegLevelErr;
  map<kind_of<T>>(d, len, f, s);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsThreshold_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f level, int relation) {
  return limit(s, d, len, by_words(level), relation);
}
NoxStatus NOX_BODY(noxsThreshold_64f_I)(Nox64f* d, int len, Nox64f level, int relation) {
  return limit_in_place(d, len, by_words(level), relation);
}
NoxStatus NOX_BODY(noxsThreshold_LT_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f level) {
  return limit(s, d, len, by_words(level), kLess);
}
NoxStatus NOX_BODY(noxsThreshold_LT_64f_I)(Nox64f* d, int len, Nox64f level) {
  return limit_in_place(d, len, by_words(level), kLess);
}
NoxStatus NOX_BODY(noxsThreshold_GT_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f level) {
  return limit(s, d, len, by_words(level), kGreater);
}
NoxStatus NOX_BODY(noxsThreshold_GT_64f_I)(Nox64f* d, int len, Nox64f level) {
  return limit_in_place(d, len, by_words(level), kGreater);
}
NoxStatus NOX_BODY(noxsThreshold_LT_16s)(const Nox16s* s, Nox16s* d, int len, Nox16s level) {
  return limit_ints(RaiseInts{}, s, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_LT_16s_I)(Nox16s* d, int len, Nox16s level) {
  return limit_ints(RaiseInts{}, d, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_LT_32s)(const Nox32s* s, Nox32s* d, int len, Nox32s level) {
  return limit_ints(RaiseInts{}, s, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_LT_32s_I)(Nox32s* d, int len, Nox32s level) {
  return limit_ints(RaiseInts{}, d, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_GT_16s)(const Nox16s* s, Nox16s* d, int len, Nox16s level) {
  return limit_ints(LowerInts{}, s, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_GT_16s_I)(Nox16s* d, int len, Nox16s level) {
  return limit_ints(LowerInts{}, d, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_GT_32s)(const Nox32s* s, Nox32s* d, int len, Nox32s level) {
  return limit_ints(LowerInts{}, s, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_GT_32s_I)(Nox32s* d, int len, Nox32s level) {
  return limit_ints(LowerInts{}, d, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_LTVal_16s)(const Nox16s* s, Nox16s* d, int len, Nox16s level, Nox16s value) {
  return apply<ints<Nox16s>>(ReplaceBelow<Nox16s>{level, value}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_LTVal_16s_I)(Nox16s* d, int len, Nox16s level, Nox16s value) {
  return apply<ints<Nox16s>>(ReplaceBelow<Nox16s>{level, value}, d, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_LTVal_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f level, Nox64f value) {
  return apply<f64>(ReplaceBelow<Nox64f>{by_words(level), by_words(value)}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_LTVal_64f_I)(Nox64f* d, int len, Nox64f level, Nox64f value) {
  return apply<f64>(ReplaceBelow<Nox64f>{by_words(level), by_words(value)}, d, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTVal_16s)(const Nox16s* s, Nox16s* d, int len, Nox16s level, Nox16s value) {
  return apply<ints<Nox16s>>(ReplaceAbove<Nox16s>{level, value}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTVal_16s_I)(Nox16s* d, int len, Nox16s level, Nox16s value) {
  return apply<ints<Nox16s>>(ReplaceAbove<Nox16s>{level, value}, d, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTVal_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f level, Nox64f value) {
  return apply<f64>(ReplaceAbove<Nox64f>{by_words(level), by_words(value)}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTVal_64f_I)(Nox64f* d, int len, Nox64f level, Nox64f value) {
  return apply<f64>(ReplaceAbove<Nox64f>{by_words(level), by_words(value)}, d, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_LTValGTVal_16s)(const Nox16s* s, Nox16s* d, int len, Nox16s low, Nox16s value_low,
                                                 Nox16s high, Nox16s value_high) {
  return replace_outside(s, d, len, low, value_low, high, value_high);
}
NoxStatus NOX_BODY(noxsThreshold_LTValGTVal_16s_I)(Nox16s* d, int len, Nox16s low, Nox16s value_low, Nox16s high,
                                                   Nox16s value_high) {
  return replace_outside(d, d, len, low, value_low, high, value_high);
}
NoxStatus NOX_BODY(noxsThreshold_LTValGTVal_32s)(const Nox32s* s, Nox32s* d, int len, Nox32s low, Nox32s value_low,
                                                 Nox32s high, Nox32s value_high) {
  return replace_outside(s, d, len, low, value_low, high, value_high);
}
NoxStatus NOX_BODY(noxsThreshold_LTValGTVal_32s_I)(Nox32s* d, int len, Nox32s low, Nox32s value_low, Nox32s high,
                                                   Nox32s value_high) {
  return replace_outside(d, d, len, low, value_low, high, value_high);
}
NoxStatus NOX_BODY(noxsThreshold_LTValGTVal_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f low, Nox64f value_low,
                                                 Nox64f high, Nox64f value_high) {
  return replace_outside(s, d, len, by_words(low), by_words(value_low), by_words(high), by_words(value_high));
}
NoxStatus NOX_BODY(noxsThreshold_LTValGTVal_64f_I)(Nox64f* d, int len, Nox64f low, Nox64f value_low, Nox64f high,
                                                   Nox64f value_high) {
  return replace_outside(d, d, len, by_words(low), by_words(value_low), by_words(high), by_words(value_high));
}
NoxStatus NOX_BODY(noxsThreshold_LTAbs_16s)(const Nox16s* s, Nox16s* d, int len, Nox16s level) {
  return by_magnitude(RaiseMagnitudeInts<Nox16s>{level}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_LTAbs_16s_I)(Nox16s* d, int len, Nox16s level) {
  return by_magnitude(RaiseMagnitudeInts<Nox16s>{level}, d, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_LTAbs_32s)(const Nox32s* s, Nox32s* d, int len, Nox32s level) {
  return by_magnitude(RaiseMagnitudeInts<Nox32s>{level}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_LTAbs_32s_I)(Nox32s* d, int len, Nox32s level) {
  return by_magnitude(RaiseMagnitudeInts<Nox32s>{level}, d, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_LTAbs_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f level) {
  return by_magnitude(RaiseMagnitude{by_words(level)}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_LTAbs_64f_I)(Nox64f* d, int len, Nox64f level) {
  return by_magnitude(RaiseMagnitude{by_words(level)}, d, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTAbs_16s)(const Nox16s* s, Nox16s* d, int len, Nox16s level) {
  return by_magnitude(Clamp<Nox16s>{level}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTAbs_16s_I)(Nox16s* d, int len, Nox16s level) {
  return by_magnitude(Clamp<Nox16s>{level}, d, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTAbs_32s)(const Nox32s* s, Nox32s* d, int len, Nox32s level) {
  return by_magnitude(Clamp<Nox32s>{level}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTAbs_32s_I)(Nox32s* d, int len, Nox32s level) {
  return by_magnitude(Clamp<Nox32s>{level}, d, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTAbs_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f level) {
  return by_magnitude(Clamp<Nox64f>{by_words(level)}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTAbs_64f_I)(Nox64f* d, int len, Nox64f level) {
  return by_magnitude(Clamp<Nox64f>{by_words(level)}, d, d, len);
}
NoxStatus NOX_BODY(noxsReplaceNAN_64f_I)(Nox64f* d, int len, Nox64f value) {
  return apply<f64>(ReplaceNan{by_words(value)}, d, d, len);
}

}  // extern "C"
