// Scaled integer arithmetic: the scale-factor rule, and the loops of its families.
//
// An exact result t is scaled by 2^-s, rounded to the nearest integer, halves to the even one, and cut to the range of
// the element. The path is chosen by s once per call; an operation gives, on vectors of elements, t cut to the range
// (`saturated`), t / 2 (`halved`) and t / 2^s for s from 2 on (`scaled`). A left shift is that of the cut t: where t
// was cut, so is every multiple of it. From the shift on that leaves a sign alone of any t, all shifts are alike.
#pragma once
#include "core/body.hpp"
#include "core/simd/ints_wide.hpp"
#include "vector/block.hpp"

#define NOX_OUT_OF_LINE __attribute__((noinline))

namespace nox {
inline namespace NOX_VARIANT {

// Complex elements as twice as many integer lanes.
struct ComplexInts {
  using elem = Nox32sc;
  using Parts = ints<Nox32s>::vec;
  static constexpr int N = Parts::N / 2;
  Parts v;
  static NOX_INLINE ComplexInts load(const Nox32sc* p) { return {Parts::load(&p->re)}; }
  NOX_INLINE void store(Nox32sc* p) const { v.store(&p->re); }
};
template <class E>
struct Elements {
  using part = E;
  using vec = typename ints<E>::vec;
  static NOX_INLINE vec lanes(vec v) { return v; }
  static NOX_INLINE vec all(E c) { return vec::all(c); }
};
template <>
struct Elements<Nox32sc> {
  using part = Nox32s;
  using vec = ComplexInts;
  static NOX_INLINE ComplexInts::Parts lanes(ComplexInts v) { return v.v; }
  static NOX_INLINE ComplexInts::Parts all(Nox32sc c) {
    const Nox64u both = Nox64u(Nox32u(c.im)) << 32 | Nox32u(c.re);
    return as_lanes<Nox32s>(ints<Nox64u>::vec::all(both));
  }
};

// Makes the map driver run on vectors alone: it asks for single lanes only of arrays shorter than a vector.
template <class E>
struct NoSingle {
  using elem = E;
  static constexpr int N = 1;
  static NOX_INLINE NoSingle load(const E*) { return {}; }
  NOX_INLINE void store(E*) const {}
};
template <class E>
struct vectors_of {
  using elem = E;
  using one = NoSingle<E>;
  using vec = typename Elements<E>::vec;
};
template <class E, class F>
struct OnVectors {
  using V = typename Elements<E>::vec;
  F& f;
  template <class... A>
  NOX_INLINE V operator()(V a, A... more) const {
    return {f(Elements<E>::lanes(a), Elements<E>::lanes(more)...)};
  }
  template <class... A>
  NOX_INLINE NoSingle<E> operator()(NoSingle<E>, A...) const {
    return {};
  }
};
template <class V, class E>
struct Padded {
  E at[V::N];
  NOX_INLINE Padded(const E* s, int len) {
    // No lane may look like a zero divisor.
    for (E& e : at) __builtin_memset(&e, 1, sizeof(E));
    for (int i = 0; i < len; ++i) __builtin_memcpy(at + i, behind(s, size_t(i) * sizeof(E)), sizeof(E));
  }
};

// d[i] = f(s[i]...) in vectors; a source may be the destination. A short array is put into a vector and taken out.
template <class E, class F, class... S>
NOX_INLINE void map_vectors(E* d, int len, F&& f, const S*... s) {
  using V = typename Elements<E>::vec;
  const OnVectors<E, F> whole{f};
  if (len >= V::N) {
    map<vectors_of<E>>(d, len, whole, s...);
    return;
  }
  E out[V::N];
  whole(V::load(Padded<V, S>(s, len).at)...).store(out);
  for (int i = 0; i < len; ++i) __builtin_memcpy(behind(d, size_t(i) * sizeof(E)), out + i, sizeof(E));
}

// What stands beside the elements of an array: those of another one, or a constant as the first or second operand.
enum class Operand { Array, First, Second };

template <Operand Constant, class E, class F>
struct Bound {
  F f;
  E c;
  template <class... V>
  NOX_INLINE auto operator()(V... v) const {
    if constexpr (Constant == Operand::First)
      return f(Elements<E>::all(c), v...);
    else if constexpr (Constant == Operand::Second)
      return f(v..., Elements<E>::all(c));
    else
      return f(v...);
  }
};

// The left shift for a scale factor up to 0: from the number of bits without the sign on, a sign is all that is left.
template <class T>
NOX_INLINE int left_shift(int s) {
  constexpr int kSignOnly = int(sizeof(T)) * 8 - (is_signed<T> ? 1 : 0);
  return s < -kSignOnly ? kSignOnly : -s;
}

// 2^n, for n in the exponent range of normal numbers.
NOX_INLINE Nox64f power_of_two(int n) {
  const Nox64u bits = Nox64u(Nox32u(1023 + n)) << 52;
  Nox64f power;
  __builtin_memcpy(&power, &bits, sizeof power);
  return power;
}

template <class T>
NOX_INLINE bool is_zero(T c) { return c == 0; }
NOX_INLINE bool is_zero(Nox32sc c) { return (c.re | c.im) == 0; }

template <class E>
NOX_INLINE size_t bytes_of(int len) {
  return static_cast<size_t>(len) * sizeof(E);
}
template <class E>
NOX_INLINE NoxStatus zeros(E* d, int len) {
  return zero_bytes(d, bytes_of<E>(len));
}
template <class E>
NOX_INLINE NoxStatus unchanged(const E* s, E* d, int len) {
  return s == d ? noxStsNoErr : copy_bytes(d, s, bytes_of<E>(len));
}

// The paths of an operation whose results are 0 for all operands when s is above `zero_above`.
template <class Op, Operand Constant, class E, class... S>
NOX_OUT_OF_LINE NoxStatus scale_paths(int zero_above, E c, E* d, int len, int s, const S*... src) {
  const auto run = [&](auto f) { map_vectors(d, len, Bound<Constant, E, decltype(f)>{f, c}, src...); };
  if (s == 0) {
    run([](auto a, auto b) { return Op::saturated(a, b); });
  } else if (s == 1) {
    run([](auto a, auto b) { return Op::halved(a, b); });
  } else if (s > zero_above) {
    return zeros(d, len);
  } else if (s > 0) {
    run([s](auto a, auto b) { return Op::scaled(a, b, s); });
  } else {
    const int left = left_shift<typename Elements<E>::part>(s);
    run([left](auto a, auto b) { return shift_up_saturated(Op::saturated(a, b), left); });
  }
  return noxStsNoErr;
}

}  // namespace NOX_VARIANT
}  // namespace nox
