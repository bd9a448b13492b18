// The array layer on integers and matrices as plain loops: quotients by the language's division.
#include <math.h>
#include <stdint.h>

#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

using u8 = unsigned char;

struct Larger {
  template <class T>
  static T of(T a, T b) {
    return b > a ? b : a;
  }
};
struct Smaller {
  template <class T>
  static T of(T a, T b) {
    return b < a ? b : a;
  }
};
struct Over {
  template <class T>
  static T of(T a, T b) {
    return static_cast<T>(a / b);
  }
};
struct Under {
  template <class T>
  static T of(T a, T b) {
    return static_cast<T>(b / a);
  }
};
struct Rest {
  template <class T>
  static T of(T a, T b) {
    return static_cast<T>(a % b);
  }
};
struct Down {
  static real of(real a) { return __builtin_floor(a); }
};
struct Up {
  static real of(real a) { return __builtin_ceil(a); }
};

PEER_OUT_OF_LINE int sum_loop(const u8* __restrict s, int len) {
  unsigned sum = 0;
  for (int i = 0; i < len; ++i) sum += s[i];
  return static_cast<int>(sum);
}
template <class F>
struct Extreme {
  PEER_OUT_OF_LINE static u8 loop(const u8* __restrict s, int len) {
    u8 best = s[0];
    for (int i = 1; i < len; ++i) best = F::of(best, s[i]);
    return best;
  }
  static void run(const Operands* o) { *out<u8>(o) = loop(in<u8>(o->a), o->len); }
};
PEER_OUT_OF_LINE void both_loop(const u8* __restrict s, int len, u8* least, u8* most) {
  u8 low = s[0], high = s[0];
  for (int i = 1; i < len; ++i) low = Smaller::of(low, s[i]), high = Larger::of(high, s[i]);
  *least = low, *most = high;
}

template <class S, class D>
struct Cast {
  PEER_OUT_OF_LINE static void loop(const S* __restrict s, D* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<D>(s[i]);
  }
  static void run(const Operands* o) { loop(in<S>(o->a), out<D>(o), o->len); }
  PEER_OUT_OF_LINE static void cut_loop(const S* __restrict s, D* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<D>(s[i] < 0 ? 0 : s[i] > 255 ? 255 : s[i]);
  }
  static void cut(const Operands* o) { cut_loop(in<S>(o->a), out<D>(o), o->len); }
};

template <class T>
struct Divide {
  PEER_OUT_OF_LINE static void loop(const T* __restrict a, const T* __restrict b, T* __restrict q, T* __restrict r,
                                    int len) {
    for (int i = 0; i < len; ++i) q[i] = static_cast<T>(a[i] / b[i]), r[i] = static_cast<T>(a[i] % b[i]);
  }
  static void run(const Operands* o) { loop(in<T>(o->a), in<T>(o->b), out<T>(o), static_cast<T*>(o->e), o->len); }
};

// Codes of the laws: the segment is the number of the highest bit.
int top_bit(unsigned x) { return 31 - __builtin_clz(x | 1); }
u8 mu_law(int x) {
  int m = x < 0 ? static_cast<short>(-x) : x;
  m = (m < 32635 ? m : 32635) + 132;
  const int segment = top_bit(static_cast<unsigned>(m >> 7 & 255));
  return static_cast<u8>(~((x < 0 ? 0x80 : 0) | segment << 4 | (m >> (segment + 3) & 15)));
}
u8 a_law(int x) {
  int m = x < 0 ? static_cast<short>(-x) : x;
  m = m < 32635 ? m : 32635;
  const int segment = m < 256 ? 0 : 1 + top_bit(static_cast<unsigned>(m >> 8 & 127));
  const int code = m < 256 ? m >> 4 : segment << 4 | (m >> (segment + 3) & 15);
  return static_cast<u8>(code ^ (x < 0 ? 0x55 : 0xD5));
}
int from_mu_law(int code) {
  const int bits = ~code & 0xFF, m = ((((bits & 15) << 3) + 132) << (bits >> 4 & 7)) - 132;
  return bits & 0x80 ? -m : m;
}
int from_a_law(int code) {
  const int bits = code ^ 0x55, segment = bits >> 4 & 7, low = (bits & 15) << 4;
  const int m = segment == 0 ? low + 8 : (low + 0x108) << (segment - 1);
  return bits & 0x80 ? m : -m;
}
PEER_OUT_OF_LINE void to_mu_law(const short* __restrict s, u8* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[i] = mu_law(s[i]);
}
PEER_OUT_OF_LINE void to_a_law(const real* __restrict s, u8* __restrict d, int len) {
  for (int i = 0; i < len; ++i) {
    const real x = s[i] < -1 ? -1 : s[i] > 1 ? 1 : s[i];
    d[i] = a_law(static_cast<int>(x * 32767 + (x < 0 ? -0.5 : 0.5)));
  }
}
PEER_OUT_OF_LINE void mu_law_to_words(const u8* __restrict s, short* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[i] = static_cast<short>(from_mu_law(s[i]));
}
PEER_OUT_OF_LINE void a_law_to_reals(const u8* __restrict s, real* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[i] = from_a_law(s[i]) * 0x1p-15;
}

constexpr int kSide = 1000;
template <class T>
struct Turn {
  PEER_OUT_OF_LINE static void loop(const T* __restrict s, T* __restrict d, int rows, int columns) {
    for (int i = 0; i < rows; ++i)
      for (int k = 0; k < columns; ++k) d[k * rows + i] = s[i * columns + k];
  }
  static void run(const Operands* o) { loop(in<T>(o->a), out<T>(o), kSide, kSide); }
};
PEER_OUT_OF_LINE void turn_conjugated(const complex* __restrict s, complex* __restrict d, int rows, int columns) {
  for (int i = 0; i < rows; ++i)
    for (int k = 0; k < columns; ++k) d[k * rows + i] = {s[i * columns + k].re, -s[i * columns + k].im};
}

const NamedLoop kLoops[] = {
    {"Sum_8u32s_SFS", [](const Operands* o) { *out<int>(o) = sum_loop(in<u8>(o->a), o->len); }},
    {"Max_8u", Extreme<Larger>::run},
    {"Min_8u", Extreme<Smaller>::run},
    {"MaxMin_8u", [](const Operands* o) { both_loop(in<u8>(o->a), o->len, out<u8>(o), static_cast<u8*>(o->e)); }},
    {"Convert_8u16s", Cast<u8, short>::run},
    {"Convert_8u32s", Cast<u8, int>::run},
    {"Convert_8u64f", Cast<u8, real>::run},
    {"Convert_16s64f", Cast<short, real>::run},
    {"Convert_16s8u", Cast<short, u8>::cut},
    {"Convert_32s8u", Cast<int, u8>::cut},
    {"Floor", Shape<real, Down>::each},
    {"Ceil", Shape<real, Up>::each},
    {"noxsMaxEvery_16s", Shape<short, Larger>::zip},
    {"noxsMaxEvery_32s", Shape<int, Larger>::zip},
    {"noxsMinEvery_32s", Shape<int, Smaller>::zip},
    {"DivC_32s_SFS", Shape<int, Over>::with},
    {"ModC_8u_SFS", Shape<u8, Rest>::with},
    {"ModC_16s_SFS", Shape<short, Rest>::with},
    {"ModC_32s_SFS", Shape<int, Rest>::with},
    {"DivCREV_8u_SFS", Shape<u8, Under>::with},
    {"DivCREV_16s_SFS", Shape<short, Under>::with},
    {"DivCREV_32s_SFS", Shape<int, Under>::with},
    {"RemDiv_8u_SFS", Divide<u8>::run},
    {"RemDiv_16s_SFS", Divide<short>::run},
    {"RemDiv_32s_SFS", Divide<int>::run},
    {"noxsLinToMuLaw_16s8u", [](const Operands* o) { to_mu_law(in<short>(o->a), out<u8>(o), o->len); }},
    {"noxsLinToALaw_64f8u", [](const Operands* o) { to_a_law(in<real>(o->a), out<u8>(o), o->len); }},
    {"noxsMuLawToLin_8u16s", [](const Operands* o) { mu_law_to_words(in<u8>(o->a), out<short>(o), o->len); }},
    {"noxsALawToLin_8u64f", [](const Operands* o) { a_law_to_reals(in<u8>(o->a), out<real>(o), o->len); }},
    {"TransposeMatrix", Turn<real>::run},
    {"TransposeMatrixc", Turn<complex>::run},
    {"AdjungateMatrixc", [](const Operands* o) { turn_conjugated(in<complex>(o->a), out<complex>(o), kSide, kSide); }},
    {"TransposeMatrix_8u", Turn<u8>::run},
    {"TransposeMatrix_16s", Turn<short>::run},
    {"TransposeMatrix_32s", Turn<int>::run},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
