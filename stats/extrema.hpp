// Extrema of integers: the fold over whole vectors, and the first place of a value.
//
// The order of elements doesn't matter to the largest or smallest one, so the last vector of an array stands at its
// very end and sees some elements twice. A `view` maps elements before they are compared: as they are, or their
// magnitudes.
#pragma once
#include "core/body.hpp"
#include "core/reduce.hpp"
#include "core/simd/choose.hpp"

namespace nox {
inline namespace NOX_VARIANT {

struct Larger {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return max(a, b);
  }
};
struct Smaller {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return min(a, b);
  }
};
// The magnitude, that of the lowest integer cut to the highest.
struct Magnitude {
  template <class V>
  NOX_INLINE V operator()(V a) const {
    const V sign = shift_right(a, 31), magnitude = (a ^ sign) - sign;
    return magnitude + shift_right(magnitude, 31);
  }
};

NOX_INLINE int lane_bits(V128<Nox16s> a) { return _mm_movemask_epi8(a.v); }
NOX_INLINE int lane_bits(V128<Nox32s> a) { return _mm_movemask_epi8(a.v); }
#if NOX_LEVEL >= 4
NOX_INLINE V128<Nox16s> half(V256<Nox16s> a, int upper) {
  return {upper ? _mm256_extracti128_si256(a.v, 1) : _mm256_castsi256_si128(a.v)};
}
NOX_INLINE V128<Nox32s> half(V256<Nox32s> a, int upper) {
  return {upper ? _mm256_extracti128_si256(a.v, 1) : _mm256_castsi256_si128(a.v)};
}
NOX_INLINE int lane_bits(V256<Nox16s> a) { return _mm256_movemask_epi8(a.v); }
NOX_INLINE int lane_bits(V256<Nox32s> a) { return _mm256_movemask_epi8(a.v); }
template <class F, class T>
NOX_INLINE V128<T> to_128(F f, V256<T> a) {
  return f(half(a, 0), half(a, 1));
}
#endif
template <class F, class T>
NOX_INLINE V128<T> to_128(F, V128<T> a) {
  return a;
}
template <class F, class V>
NOX_INLINE typename V::elem fold_lanes(F f, V lanes) {
  using T = typename V::elem;
  V128<T> a = to_128(f, lanes);
  a = f(a, V128<T>{_mm_srli_si128(a.v, 8)});
  a = f(a, V128<T>{_mm_srli_si128(a.v, 4)});
  if constexpr (sizeof(T) == 2) a = f(a, V128<T>{_mm_srli_si128(a.v, 2)});
  return static_cast<T>(_mm_cvtsi128_si32(a.v));
}

template <class T, class View, class F>
NOX_INLINE T extreme(const T* s, int len, View view, F f) {
  using V = typename ints<T>::vec;
  using One = IntOne<T>;
  const size_t n = static_cast<size_t>(len);
  if (n < size_t(V::N)) {
    One found = view(One::load(s));
    for (size_t i = 1; i < n; ++i) found = f(found, view(One::load(s + i)));
    return found.v;
  }
  V a = view(V::load(s)), b = view(V::load(s + n - V::N)), c = a, d = b;
  size_t left = n;
  for (; left >= size_t(4 * V::N); left -= 4 * V::N) {
    a = f(a, view(V::load(s))), b = f(b, view(V::load(s + V::N)));
    c = f(c, view(V::load(s + 2 * V::N))), d = f(d, view(V::load(s + 3 * V::N)));
    advance(4 * V::N * sizeof(T), s);
  }
  for (; left >= size_t(V::N); left -= V::N) {
    a = f(a, view(V::load(s)));
    advance(V::N * sizeof(T), s);
  }
  return fold_lanes(f, f(f(a, b), f(c, d)));
}

// A vector for two operations, loaded once: those of AVX would load it each, from any address; the others can't.
template <class V>
NOX_INLINE V for_two(V x) {
  if constexpr (NOX_LEVEL >= 3) return once(x);
  return x;
}

// Both extremes in one pass.
template <class T>
struct Extremes {
  T least, most;
};
template <class T>
NOX_INLINE Extremes<T> extremes(const T* s, int len) {
  using V = typename ints<T>::vec;
  const size_t n = static_cast<size_t>(len);
  if (n < size_t(V::N)) return {extreme(s, len, Keep{}, Smaller{}), extreme(s, len, Keep{}, Larger{})};
  V least[2], most[2];
  least[0] = most[0] = V::load(s);
  least[1] = most[1] = V::load(s + n - V::N);
  const auto take = [&](const T* p, int k) {
    const V x = for_two(V::load(p));
    least[k] = min(least[k], x);
    most[k] = max(most[k], x);
  };
  size_t left = n;
  for (; left >= size_t(4 * V::N); left -= 4 * V::N) {
    take(s, 0), take(s + V::N, 1), take(s + 2 * V::N, 0), take(s + 3 * V::N, 1);
    advance(4 * V::N * sizeof(T), s);
  }
  for (; left >= size_t(V::N); left -= V::N) {
    take(s, 0);
    advance(V::N * sizeof(T), s);
  }
  return {fold_lanes(Smaller{}, min(least[0], least[1])), fold_lanes(Larger{}, max(most[0], most[1]))};
}
// The largest magnitude is that of an extreme.
NOX_INLINE Nox32s extreme(const Nox32s* s, int len, Magnitude magnitude, Larger) {
  const Extremes<Nox32s> both = extremes(s, len);
  return max(magnitude(IntOne<Nox32s>{both.least}), magnitude(IntOne<Nox32s>{both.most})).v;
}

// The first place whose view is a value that is there.
template <class T, class View>
NOX_INLINE int first_place(const T* s, int len, View view, T value) {
  using V = typename ints<T>::vec;
  using One = IntOne<T>;
  const V wanted = V::all(value);
  const size_t n = static_cast<size_t>(len);
  size_t i = 0;
  for (; n - i >= size_t(2 * V::N); i += 2 * V::N) {
    const V first = view(V::load(s + i)) == wanted, second = view(V::load(s + i + V::N)) == wanted;
    if (lane_bits(first | second) == 0) continue;
    if (const int found = lane_bits(first))
      return static_cast<int>(i) + __builtin_ctz(unsigned(found)) / int(sizeof(T));
    return static_cast<int>(i + V::N) + __builtin_ctz(unsigned(lane_bits(second))) / int(sizeof(T));
  }
  for (; i < n; ++i)
    if (view(One::load(s + i)).v == value) return static_cast<int>(i);
  return 0;
}

}  // namespace NOX_VARIANT
}  // namespace nox
