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
// How elements lie in vectors: the number of lanes, what they hold, a constant in all of them.
template <class E>
struct Elements {
  using elem = E;
  using part = E;
  using vec = typename ints<E>::vec;
  static NOX_INLINE vec lanes(vec v) { return v; }
  static NOX_INLINE vec all(E c) { return vec::all(c); }
};
template <>
struct Elements<Nox32sc> {
  using elem = Nox32sc;
  using part = Nox32s;
  using vec = ComplexInts;
  static NOX_INLINE ComplexInts::Parts lanes(ComplexInts v) { return v.v; }
  static NOX_INLINE ComplexInts::Parts all(Nox32sc c) {
    const Nox64u both = Nox64u(Nox32u(c.im)) << 32 | Nox32u(c.re);
    return as_lanes<Nox32s>(ints<Nox64u>::vec::all(both));
  }
};

// Four integers, which are as many doubles as a vector has in the AVX builds.
struct Quads {
  using elem = Nox32s;
  using vec = V128<Nox32s>;
  static NOX_INLINE vec lanes(vec v) { return v; }
};

// Makes the map driver run on vectors alone: it asks for single lanes only of arrays shorter than a vector.
template <class E>
struct NoSingle {
  using elem = E;
  static constexpr int N = 1;
  static NOX_INLINE NoSingle load(const E*) { return {}; }
  NOX_INLINE void store(E*) const {}
};
template <class L>
struct vectors_of {
  using elem = typename L::elem;
  using one = NoSingle<elem>;
  using vec = typename L::vec;
};
template <class L, class F>
struct OnVectors {
  using V = typename L::vec;
  using Single = NoSingle<typename L::elem>;
  F& f;
  template <class... A>
  NOX_INLINE V operator()(V a, A... more) const {
    return {f(L::lanes(a), L::lanes(more)...)};
  }
  template <class... A>
  NOX_INLINE Single operator()(Single, A...) const {
    return {};
  }
};
template <class V>
struct Padded {
  using E = typename V::elem;
  E at[V::N];
  NOX_INLINE Padded(const E* s, int len) {
    // No lane may look like a zero divisor.
    IntLanes<Nox8u, sizeof(at)>::all(1).store(reinterpret_cast<Nox8u*>(at));
    for (int i = 0; i < len; ++i) __builtin_memcpy(at + i, behind(s, size_t(i) * sizeof(E)), sizeof(E));
  }
};

// d[i] = f(s[i]...) of at least a vector; a source may be the destination.
template <class L, class F, class... S>
NOX_INLINE void map_long(typename L::elem* d, int len, F&& f, const S*... s) {
  if (len < L::vec::N) __builtin_unreachable();
  map<vectors_of<L>>(d, len, OnVectors<L, F>{f}, s...);
}
// The same of any length. A short array is put into a vector and taken out.
template <class L, class F, class... S>
NOX_INLINE void map_lanes(typename L::elem* d, int len, F&& f, const S*... s) {
  using E = typename L::elem;
  using V = typename L::vec;
  if (len >= V::N) return map_long<L>(d, len, f, s...);
  E out[V::N];
  OnVectors<L, F>{f}(V::load(Padded<V>(s, len).at)...).store(out);
  for (int i = 0; i < len; ++i) __builtin_memcpy(behind(d, size_t(i) * sizeof(E)), out + i, sizeof(E));
}
template <class E, class F, class... S>
NOX_INLINE void map_vectors(E* d, int len, F&& f, const S*... s) {
  map_lanes<Elements<E>>(d, len, f, s...);
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
NOX_INLINE bool is_zero(T c) {
  return c == 0;
}
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

// The same, with the common path in a function of its own: it needs no stack, which would have to be aligned.
template <class Op, Operand Constant, class E, class... S>
NOX_INLINE NoxStatus scaled(int zero_above, E c, E* d, int len, int s, const S*... src) {
  if (s != 0 || len < Elements<E>::vec::N) return scale_paths<Op, Constant>(zero_above, c, d, len, s, src...);
  const auto f = [](auto a, auto b) { return Op::saturated(a, b); };
  map_long<Elements<E>>(d, len, Bound<Constant, E, decltype(f)>{f, c}, src...);
  return noxStsNoErr;
}

}  // namespace NOX_VARIANT
}  // namespace nox
