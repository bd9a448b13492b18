// Plain loops of scaled integer arithmetic, compiled by each compiler at -O3 for each instruction set.
//
// The exact result is formed in an integer twice as wide and rounded by adding and shifting; the scale is looked at
// once per call, so that scales 0 and 1 have loops without what they don't need. Quotients and 32-bit products of
// arrays are those of doubles.
#include <cmath>
#include <type_traits>

#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

using s64 = long long;

template <class T>
struct Limits {
  static constexpr bool kSigned = T(-1) < T(0);
  static constexpr s64 kLow = kSigned ? -(1ll << (8 * sizeof(T) - 1)) : 0;
  static constexpr s64 kHigh = kSigned ? (1ll << (8 * sizeof(T) - 1)) - 1 : (1ll << 8 * sizeof(T)) - 1;
};
template <class T, class W>
T cut(W t) {
  constexpr W kLow = W(Limits<T>::kLow), kHigh = W(Limits<T>::kHigh);
  return T(t < kLow ? kLow : t > kHigh ? kHigh : t);
}

struct ScaleNone {
  template <class W>
  W operator()(W t) const {
    return t;
  }
};
struct ScaleOne {
  template <class W>
  W operator()(W t) const {
    return (t + ((t >> 1) & 1)) >> 1;
  }
};
struct ScaleMore {
  int s;
  template <class W>
  W operator()(W t) const {
    return (t + ((t >> s) & 1) + ((W(1) << (s - 1)) - 1)) >> s;
  }
};
// Calls loop with the rule for a scale from 0 on.
template <class Loop>
void by_scale(int s, Loop loop) {
  if (s == 0)
    loop(ScaleNone{});
  else if (s == 1)
    loop(ScaleOne{});
  else
    loop(ScaleMore{s});
}

struct Add {
  template <class W>
  static W of(W a, W b) {
    return a + b;
  }
};
struct SubtractFrom {
  template <class W>
  static W of(W a, W b) {
    return b - a;
  }
};
struct Subtract {
  template <class W>
  static W of(W a, W b) {
    return a - b;
  }
};
struct Multiply {
  template <class W>
  static W of(W a, W b) {
    return a * b;
  }
};

// `Parts` integers make an element.
template <class T, class F, int Parts = 1>
struct Integers {
  using W = std::conditional_t<sizeof(T) == 4, s64, int>;
  PEER_OUT_OF_LINE static void zip_loop(const T* __restrict a, const T* __restrict b, T* __restrict d, int len, int s) {
    by_scale(s, [=](auto rule) {
      for (int i = 0; i < len * Parts; ++i) d[i] = cut<T>(rule(F::of(W(a[i]), W(b[i]))));
    });
  }
  static void zip(const Operands* o) { zip_loop(in<T>(o->a), in<T>(o->b), out<T>(o), o->len, o->n[0]); }
  PEER_OUT_OF_LINE static void zip_in_place_loop(const T* __restrict a, T* __restrict d, int len, int s) {
    by_scale(s, [=](auto rule) {
      for (int i = 0; i < len * Parts; ++i) d[i] = cut<T>(rule(F::of(W(a[i]), W(d[i]))));
    });
  }
  static void zip_in_place(const Operands* o) { zip_in_place_loop(in<T>(o->a), out<T>(o), o->len, o->n[0]); }
  PEER_OUT_OF_LINE static void with_loop(const T* __restrict a, T c0, T c1, T* __restrict d, int len, int s) {
    by_scale(s, [=](auto rule) {
      for (int i = 0; i < len * Parts; i += Parts) {
        d[i] = cut<T>(rule(F::of(W(a[i]), W(c0))));
        if (Parts == 2) d[i + 1] = cut<T>(rule(F::of(W(a[i + 1]), W(c1))));
      }
    });
  }
  static void with(const Operands* o) { with_loop(in<T>(o->a), T(o->c[0]), T(o->c[1]), out<T>(o), o->len, o->n[0]); }
  PEER_OUT_OF_LINE static void with_in_place_loop(T c0, T c1, T* d, int len, int s) {
    by_scale(s, [=](auto rule) {
      for (int i = 0; i < len * Parts; i += Parts) {
        d[i] = cut<T>(rule(F::of(W(d[i]), W(c0))));
        if (Parts == 2) d[i + 1] = cut<T>(rule(F::of(W(d[i + 1]), W(c1))));
      }
    });
  }
  static void with_in_place(const Operands* o) {
    with_in_place_loop(T(o->c[0]), T(o->c[1]), out<T>(o), o->len, o->n[0]);
  }
};

struct ProductOfDoubles {
  static double of(double a, double b, double scale) { return a * scale * b; }
};
struct QuotientOfDoubles {
  static double of(double by, double x, double scale) { return x * scale / by; }
};
template <class T, class F>
struct Doubles {
  // Where there is an instruction that rounds in place, loops with it run in vectors.
  static T rounded(double t) {
#ifdef __SSE4_1__
    return T(int(__builtin_nearbyint(cut<double>(t))));
#else
    return T(__builtin_lrint(cut<double>(t)));
#endif
  }
  template <class D>
  static D cut(D t) {
    constexpr D kLow = D(Limits<T>::kLow), kHigh = D(Limits<T>::kHigh);
    return t < kLow ? kLow : t > kHigh ? kHigh : t;
  }
  PEER_OUT_OF_LINE static void zip_loop(const T* __restrict a, const T* __restrict b, T* __restrict d, int len,
                                        double scale) {
    for (int i = 0; i < len; ++i) d[i] = rounded(F::of(a[i], b[i], scale));
  }
  static void zip(const Operands* o) {
    zip_loop(in<T>(o->a), in<T>(o->b), out<T>(o), o->len, std::ldexp(1.0, -o->n[0]));
  }
  PEER_OUT_OF_LINE static void zip_in_place_loop(const T* __restrict a, T* __restrict d, int len, double scale) {
    for (int i = 0; i < len; ++i) d[i] = rounded(F::of(a[i], d[i], scale));
  }
  static void zip_in_place(const Operands* o) {
    zip_in_place_loop(in<T>(o->a), out<T>(o), o->len, std::ldexp(1.0, -o->n[0]));
  }
  PEER_OUT_OF_LINE static void with_loop(const T* __restrict a, T c, T* __restrict d, int len, double scale) {
    for (int i = 0; i < len; ++i) d[i] = rounded(F::of(c, a[i], scale));
  }
  static void with(const Operands* o) {
    with_loop(in<T>(o->a), T(o->c[0]), out<T>(o), o->len, std::ldexp(1.0, -o->n[0]));
  }
  PEER_OUT_OF_LINE static void with_in_place_loop(T c, T* d, int len, double scale) {
    for (int i = 0; i < len; ++i) d[i] = rounded(F::of(c, d[i], scale));
  }
  static void with_in_place(const Operands* o) {
    with_in_place_loop(T(o->c[0]), out<T>(o), o->len, std::ldexp(1.0, -o->n[0]));
  }
};

PEER_OUT_OF_LINE void add_product_loop(const int* __restrict a, const int* __restrict b, int* __restrict d, int len,
                                       int s) {
  by_scale(s, [=](auto rule) {
    for (int i = 0; i < len; ++i) d[i] = cut<int>(rule(s64(a[i]) * b[i] + d[i]));
  });
}
void add_product(const Operands* o) { add_product_loop(in<int>(o->a), in<int>(o->b), out<int>(o), o->len, o->n[0]); }

// A complex product with a constant of small parts, whose sums stay within 64 bits.
PEER_OUT_OF_LINE void complex_multiple_loop(const int* a, int re, int im, int* d, int len, int s) {
  by_scale(s, [=](auto rule) {
    for (int i = 0; i < 2 * len; i += 2) {
      const s64 x = a[i], y = a[i + 1];
      d[i] = cut<int>(rule(x * re - y * im));
      d[i + 1] = cut<int>(rule(x * im + y * re));
    }
  });
}
void complex_multiple(const Operands* o) {
  complex_multiple_loop(in<int>(o->a), int(o->c[0]), int(o->c[1]), out<int>(o), o->len, o->n[0]);
}
void complex_multiple_in_place(const Operands* o) {
  complex_multiple_loop(out<int>(o), int(o->c[0]), int(o->c[1]), out<int>(o), o->len, o->n[0]);
}

using u8 = unsigned char;
using s16 = short;
using s32 = int;

const NamedLoop kLoops[] = {
    {"noxsAdd_8u_Sfs", Integers<u8, Add>::zip},
    {"noxsAdd_8u_ISfs", Integers<u8, Add>::zip_in_place},
    {"noxsAdd_16s_Sfs", Integers<s16, Add>::zip},
    {"noxsAdd_16s_ISfs", Integers<s16, Add>::zip_in_place},
    {"noxsAdd_32s_Sfs", Integers<s32, Add>::zip},
    {"noxsAdd_32s_ISfs", Integers<s32, Add>::zip_in_place},
    {"noxsAdd_32sc_Sfs", Integers<s32, Add, 2>::zip},
    {"noxsAdd_32sc_ISfs", Integers<s32, Add, 2>::zip_in_place},
    {"noxsSub_8u_Sfs", Integers<u8, SubtractFrom>::zip},
    {"noxsSub_8u_ISfs", Integers<u8, SubtractFrom>::zip_in_place},
    {"noxsSub_16s_Sfs", Integers<s16, SubtractFrom>::zip},
    {"noxsSub_16s_ISfs", Integers<s16, SubtractFrom>::zip_in_place},
    {"noxsSub_32s_Sfs", Integers<s32, SubtractFrom>::zip},
    {"noxsSub_32s_ISfs", Integers<s32, SubtractFrom>::zip_in_place},
    {"noxsSub_32sc_Sfs", Integers<s32, SubtractFrom, 2>::zip},
    {"noxsSub_32sc_ISfs", Integers<s32, SubtractFrom, 2>::zip_in_place},
    {"noxsMul_8u_Sfs", Integers<u8, Multiply>::zip},
    {"noxsMul_8u_ISfs", Integers<u8, Multiply>::zip_in_place},
    {"noxsMul_16s_Sfs", Integers<s16, Multiply>::zip},
    {"noxsMul_16s_ISfs", Integers<s16, Multiply>::zip_in_place},
    {"noxsMul_32s_Sfs", Doubles<s32, ProductOfDoubles>::zip},
    {"noxsMul_32s_ISfs", Doubles<s32, ProductOfDoubles>::zip_in_place},
    {"noxsDiv_8u_Sfs", Doubles<u8, QuotientOfDoubles>::zip},
    {"noxsDiv_8u_ISfs", Doubles<u8, QuotientOfDoubles>::zip_in_place},
    {"noxsDiv_16s_Sfs", Doubles<s16, QuotientOfDoubles>::zip},
    {"noxsDiv_16s_ISfs", Doubles<s16, QuotientOfDoubles>::zip_in_place},
    {"noxsDiv_32s_Sfs", Doubles<s32, QuotientOfDoubles>::zip},
    {"noxsDiv_32s_ISfs", Doubles<s32, QuotientOfDoubles>::zip_in_place},
    {"noxsAddC_8u_Sfs", Integers<u8, Add>::with},
    {"noxsAddC_8u_ISfs", Integers<u8, Add>::with_in_place},
    {"noxsAddC_16s_Sfs", Integers<s16, Add>::with},
    {"noxsAddC_16s_ISfs", Integers<s16, Add>::with_in_place},
    {"noxsAddC_32s_Sfs", Integers<s32, Add>::with},
    {"noxsAddC_32s_ISfs", Integers<s32, Add>::with_in_place},
    {"noxsAddC_32sc_Sfs", Integers<s32, Add, 2>::with},
    {"noxsAddC_32sc_ISfs", Integers<s32, Add, 2>::with_in_place},
    {"noxsSubC_8u_Sfs", Integers<u8, Subtract>::with},
    {"noxsSubC_8u_ISfs", Integers<u8, Subtract>::with_in_place},
    {"noxsSubC_16s_Sfs", Integers<s16, Subtract>::with},
    {"noxsSubC_16s_ISfs", Integers<s16, Subtract>::with_in_place},
    {"noxsSubC_32s_Sfs", Integers<s32, Subtract>::with},
    {"noxsSubC_32s_ISfs", Integers<s32, Subtract>::with_in_place},
    {"noxsSubC_32sc_Sfs", Integers<s32, Subtract, 2>::with},
    {"noxsSubC_32sc_ISfs", Integers<s32, Subtract, 2>::with_in_place},
    {"noxsSubCRev_8u_Sfs", Integers<u8, SubtractFrom>::with},
    {"noxsSubCRev_8u_ISfs", Integers<u8, SubtractFrom>::with_in_place},
    {"noxsSubCRev_16s_Sfs", Integers<s16, SubtractFrom>::with},
    {"noxsSubCRev_16s_ISfs", Integers<s16, SubtractFrom>::with_in_place},
    {"noxsSubCRev_32s_Sfs", Integers<s32, SubtractFrom>::with},
    {"noxsSubCRev_32s_ISfs", Integers<s32, SubtractFrom>::with_in_place},
    {"noxsSubCRev_32sc_Sfs", Integers<s32, SubtractFrom, 2>::with},
    {"noxsSubCRev_32sc_ISfs", Integers<s32, SubtractFrom, 2>::with_in_place},
    {"noxsMulC_8u_Sfs", Integers<u8, Multiply>::with},
    {"noxsMulC_8u_ISfs", Integers<u8, Multiply>::with_in_place},
    {"noxsMulC_16s_Sfs", Integers<s16, Multiply>::with},
    {"noxsMulC_16s_ISfs", Integers<s16, Multiply>::with_in_place},
    {"noxsMulC_32s_Sfs", Integers<s32, Multiply>::with},
    {"noxsMulC_32s_ISfs", Integers<s32, Multiply>::with_in_place},
    {"noxsMulC_32sc_Sfs", complex_multiple},
    {"noxsMulC_32sc_ISfs", complex_multiple_in_place},
    {"noxsDivC_8u_Sfs", Doubles<u8, QuotientOfDoubles>::with},
    {"noxsDivC_8u_ISfs", Doubles<u8, QuotientOfDoubles>::with_in_place},
    {"noxsDivC_16s_Sfs", Doubles<s16, QuotientOfDoubles>::with},
    {"noxsDivC_16s_ISfs", Doubles<s16, QuotientOfDoubles>::with_in_place},
    {"noxsAddProduct_32s_Sfs", add_product},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
