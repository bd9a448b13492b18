// Extrema of Nox16s and Nox32s: values, magnitudes, their first places, order of magnitude, count in a range; and the
// larger and smaller of two arrays, element by element.
//
// The value is found first, in vectors; its place by a second pass that stops at the first match.
#include <type_traits>

#include "stats/extrema.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using AsIs = Keep;

template <class T, class View, class F>
NOX_INLINE NoxStatus find(const T* s, int len, View view, F f, T* value) {
  if (const NoxStatus st = check(len, s, value)) return st;
  IntOne<T>{extreme(s, len, view, f)}.store(value);
  return noxStsNoErr;
}
// A null place isn't asked for.
template <class T, class View, class F>
NOX_INLINE NoxStatus find_with_place(const T* s, int len, View view, F f, T* value, int* place) {
  if (const NoxStatus st = check(len, s, value)) return st;
  const T found = extreme(s, len, view, f);
  const int at = place ? first_place(s, len, view, found) : 0;
  IntOne<T>{found}.store(value);
  if (place) *place = at;
  return noxStsNoErr;
}
template <class T>
NOX_INLINE NoxStatus find_both(const T* s, int len, T* least, T* most) {
  if (const NoxStatus st = check(len, s, least, most)) return st;
  const Extremes<T> both = extremes(s, len);
  *least = both.least;
  *most = both.most;
  return noxStsNoErr;
}
template <class T>
NOX_INLINE NoxStatus find_both_with_places(const T* s, int len, T* least, int* least_at, T* most, int* most_at) {
  if (const NoxStatus st = check(len, s, least, least_at, most, most_at)) return st;
  const auto [low, high] = extremes(s, len);
  const int low_at = first_place(s, len, AsIs{}, low), high_at = first_place(s, len, AsIs{}, high);
  *least = low;
  *least_at = low_at;
  *most = high;
  *most_at = high_at;
  return noxStsNoErr;
}

// Folds by bitwise or need a start that changes nothing, as all its lanes are seen by now.
struct AnyBit {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return a | b;
  }
};
// The magnitude as it wraps: the lowest integer keeps its pattern.
struct WrappedMagnitude {
  template <class V>
  NOX_INLINE V operator()(V a) const {
    const V sign = shift_right(a, 31);
    return (a ^ sign) - sign;
  }
};

template <class T, class F>
NOX_INLINE NoxStatus every(const T* a, const T* b, T* d, int len, F f) {
  if (const NoxStatus st = check(len, a, b, d)) return st;
  using K = std::conditional_t<sizeof(T) == 8, f64, ints<T>>;
  map<K>(d, len, f, a, b);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsMax_16s)(const Nox16s* s, int len, Nox16s* value) {
  return find(s, len, AsIs{}, Larger{}, value);
}
NoxStatus NOX_BODY(noxsMaxIndx_16s)(const Nox16s* s, int len, Nox16s* value, int* place) {
  return find_with_place(s, len, AsIs{}, Larger{}, value, place);
}
NoxStatus NOX_BODY(noxsMin_16s)(const Nox16s* s, int len, Nox16s* value) {
  return find(s, len, AsIs{}, Smaller{}, value);
}
NoxStatus NOX_BODY(noxsMinIndx_16s)(const Nox16s* s, int len, Nox16s* value, int* place) {
  return find_with_place(s, len, AsIs{}, Smaller{}, value, place);
}
NoxStatus NOX_BODY(noxsMinMax_16s)(const Nox16s* s, int len, Nox16s* least, Nox16s* most) {
  return find_both(s, len, least, most);
}
NoxStatus NOX_BODY(noxsMinMaxIndx_16s)(const Nox16s* s, int len, Nox16s* least, int* leastAt, Nox16s* most,
                                       int* mostAt) {
  return find_both_with_places(s, len, least, leastAt, most, mostAt);
}

NoxStatus NOX_BODY(noxsMax_32s)(const Nox32s* s, int len, Nox32s* value) {
  return find(s, len, AsIs{}, Larger{}, value);
}
NoxStatus NOX_BODY(noxsMaxIndx_32s)(const Nox32s* s, int len, Nox32s* value, int* place) {
  return find_with_place(s, len, AsIs{}, Larger{}, value, place);
}
NoxStatus NOX_BODY(noxsMin_32s)(const Nox32s* s, int len, Nox32s* value) {
  return find(s, len, AsIs{}, Smaller{}, value);
}
NoxStatus NOX_BODY(noxsMinIndx_32s)(const Nox32s* s, int len, Nox32s* value, int* place) {
  return find_with_place(s, len, AsIs{}, Smaller{}, value, place);
}
NoxStatus NOX_BODY(noxsMinMax_32s)(const Nox32s* s, int len, Nox32s* least, Nox32s* most) {
  return find_both(s, len, least, most);
}
NoxStatus NOX_BODY(noxsMinMaxIndx_32s)(const Nox32s* s, int len, Nox32s* least, int* leastAt, Nox32s* most,
                                       int* mostAt) {
  return find_both_with_places(s, len, least, leastAt, most, mostAt);
}

NoxStatus NOX_BODY(noxsMaxAbs_32s)(const Nox32s* s, int len, Nox32s* value) {
  return find(s, len, Magnitude{}, Larger{}, value);
}
NoxStatus NOX_BODY(noxsMaxAbsIndx_32s)(const Nox32s* s, int len, Nox32s* value, int* place) {
  return find_with_place(s, len, Magnitude{}, Larger{}, value, place);
}
NoxStatus NOX_BODY(noxsMinAbs_32s)(const Nox32s* s, int len, Nox32s* value) {
  return find(s, len, Magnitude{}, Smaller{}, value);
}
NoxStatus NOX_BODY(noxsMinAbsIndx_32s)(const Nox32s* s, int len, Nox32s* value, int* place) {
  return find_with_place(s, len, Magnitude{}, Smaller{}, value, place);
}

NoxStatus NOX_BODY(noxsMaxOrder_32s)(const Nox32s* s, int len, int* order) {
  if (len < 1) return noxStsSizeErr;
  if (!s || !order) return noxStsNullPtrErr;
  const Nox32u bits = static_cast<Nox32u>(extreme(s, len, WrappedMagnitude{}, AnyBit{}));
  *order = bits == 0 ? 0 : 32 - __builtin_clz(bits);
  return noxStsNoErr;
}

NoxStatus NOX_BODY(noxsCountInRange_32s)(const Nox32s* s, int len, int* count, Nox32s lower, Nox32s above) {
  if (const NoxStatus st = check(len, s, count)) return st;
  using V = ints<Nox32s>::vec;
  const V from = V::all(lower), to = V::all(above);
  V first = V::zero(), second = V::zero();
  const auto inside = [&](const Nox32s* p) {
    const V x = V::load(p);
    return (x > from) & (to > x);
  };
  size_t left = static_cast<size_t>(len);
  for (; left >= size_t(2 * V::N); left -= 2 * V::N) {
    first = first - inside(s), second = second - inside(s + V::N);
    advance(2 * V::N * sizeof(Nox32s), s);
  }
  struct Sum {
    NOX_INLINE V128<Nox32s> operator()(V128<Nox32s> a, V128<Nox32s> b) const { return a + b; }
  };
  int found = fold_lanes(Sum{}, first + second);
  for (; left > 0; --left, advance(sizeof(Nox32s), s)) {
    const Nox32s x = IntOne<Nox32s>::load(s).v;
    found += x > lower && x < above;
  }
  *count = found;
  return noxStsNoErr;
}

NoxStatus NOX_BODY(noxsMaxEvery_8u)(const Nox8u* a, const Nox8u* b, Nox8u* d, int len) {
  return every(a, b, d, len, Larger{});
}
NoxStatus NOX_BODY(noxsMaxEvery_16u)(const Nox16u* a, const Nox16u* b, Nox16u* d, int len) {
  return every(a, b, d, len, Larger{});
}
NoxStatus NOX_BODY(noxsMaxEvery_64f)(const Nox64f* a, const Nox64f* b, Nox64f* d, int len) {
  return every(a, b, d, len, Larger{});
}
NoxStatus NOX_BODY(noxsMaxEvery_8u_I)(const Nox8u* a, Nox8u* d, int len) { return every(a, d, d, len, Larger{}); }
NoxStatus NOX_BODY(noxsMaxEvery_16s_I)(const Nox16s* a, Nox16s* d, int len) { return every(a, d, d, len, Larger{}); }
NoxStatus NOX_BODY(noxsMaxEvery_16u_I)(const Nox16u* a, Nox16u* d, int len) { return every(a, d, d, len, Larger{}); }
NoxStatus NOX_BODY(noxsMaxEvery_32s_I)(const Nox32s* a, Nox32s* d, int len) { return every(a, d, d, len, Larger{}); }
NoxStatus NOX_BODY(noxsMaxEvery_64f_I)(const Nox64f* a, Nox64f* d, int len) { return every(a, d, d, len, Larger{}); }
NoxStatus NOX_BODY(noxsMinEvery_8u)(const Nox8u* a, const Nox8u* b, Nox8u* d, int len) {
  return every(a, b, d, len, Smaller{});
}
NoxStatus NOX_BODY(noxsMinEvery_16u)(const Nox16u* a, const Nox16u* b, Nox16u* d, int len) {
  return every(a, b, d, len, Smaller{});
}
NoxStatus NOX_BODY(noxsMinEvery_64f)(const Nox64f* a, const Nox64f* b, Nox64f* d, int len) {
  return every(a, b, d, len, Smaller{});
}
NoxStatus NOX_BODY(noxsMinEvery_8u_I)(const Nox8u* a, Nox8u* d, int len) { return every(a, d, d, len, Smaller{}); }
NoxStatus NOX_BODY(noxsMinEvery_16s_I)(const Nox16s* a, Nox16s* d, int len) { return every(a, d, d, len, Smaller{}); }
NoxStatus NOX_BODY(noxsMinEvery_16u_I)(const Nox16u* a, Nox16u* d, int len) { return every(a, d, d, len, Smaller{}); }
NoxStatus NOX_BODY(noxsMinEvery_32s_I)(const Nox32s* a, Nox32s* d, int len) { return every(a, d, d, len, Smaller{}); }
NoxStatus NOX_BODY(noxsMinEvery_64f_I)(const Nox64f* a, Nox64f* d, int len) { return every(a, d, d, len, Smaller{}); }

}  // extern "C"
