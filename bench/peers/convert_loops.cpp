// Conversions as plain loops with the same rounding and the same cuts.
#include <math.h>
#include <stdint.h>

#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

typedef unsigned char u8;

template <class S, class D>
struct Cast {
  PEER_OUT_OF_LINE static void loop(const S* __restrict s, D* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<D>(s[i]);
  }
  static void run(const Operands* o) { loop(in<S>(o->a), out<D>(o), o->len); }
};
template <class S, class D>
struct Scale {
  PEER_OUT_OF_LINE static void loop(const S* __restrict s, D* __restrict d, int len, D factor) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<D>(s[i]) * factor;
  }
  static void run(const Operands* o) { loop(in<S>(o->a), out<D>(o), o->len, static_cast<D>(ldexp(1.0, -o->n[0]))); }
};
// To nearest, halves to even.
inline int shifted(int x, int n) {
  if (n == 0) return x;
  const int q = x >> n, rest = x & ((1 << n) - 1), half = 1 << (n - 1);
  return q + (rest > half || (rest == half && (q & 1)));
}
inline int clamp(int x, int low, int high) { return x < low ? low : x > high ? high : x; }
struct Narrow {
  PEER_OUT_OF_LINE static void loop(const int* __restrict s, short* __restrict d, int len, int n) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<short>(clamp(shifted(s[i], n), -32768, 32767));
  }
  static void run(const Operands* o) { loop(in<int>(o->a), out<short>(o), o->len, o->n[0]); }
  PEER_OUT_OF_LINE static void plain_loop(const int* __restrict s, short* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<short>(clamp(s[i], -32768, 32767));
  }
  static void plain(const Operands* o) { plain_loop(in<int>(o->a), out<short>(o), o->len); }
};
struct From64 {
  PEER_OUT_OF_LINE static void loop(const int64_t* __restrict s, int* __restrict d, int len, int n) {
    for (int i = 0; i < len; ++i) {
      const int64_t x = s[i], rest = x & ((int64_t{1} << n) - 1), half = int64_t{1} << (n - 1);
      int64_t q = x >> n;
      q += rest > half || (rest == half && (q & 1));
      d[i] = static_cast<int>(q < INT32_MIN ? INT32_MIN : q > INT32_MAX ? INT32_MAX : q);
    }
  }
  static void run(const Operands* o) { loop(in<int64_t>(o->a), out<int>(o), o->len, o->n[1]); }
};
inline float to_int(float x, int mode) {
  return mode == 0 ? __builtin_truncf(x) : mode == 1 ? __builtin_rintf(x) : __builtin_roundf(x);
}
inline double to_int(double x, int) { return __builtin_rint(x); }
template <class S, class D, int Mode, int Low, int High>
struct Round {
  PEER_OUT_OF_LINE static void loop(const S* __restrict s, D* __restrict d, int len, S factor) {
    for (int i = 0; i < len; ++i) {
      const S y = to_int(s[i] * factor, Mode);
      d[i] = static_cast<D>(static_cast<int>(y < S(Low) ? S(Low) : y > S(High) ? S(High) : y));
    }
  }
  static void run(const Operands* o) {
    if (Mode == o->n[0]) loop(in<S>(o->a), out<D>(o), o->len, static_cast<S>(ldexp(1.0, -o->n[1])));
  }
};
void round_words(const Operands* o) {
  if (o->n[0] == 0) return Round<float, short, 0, -32768, 32767>::run(o);
  if (o->n[0] == 1) return Round<float, short, 1, -32768, 32767>::run(o);
  Round<float, short, 2, -32768, 32767>::run(o);
}
template <class D>
struct From24 {
  PEER_OUT_OF_LINE static void loop(const u8* __restrict s, D* __restrict d, int len) {
    for (int i = 0; i < len; ++i)
      d[i] = static_cast<D>(static_cast<int>(static_cast<unsigned>(s[3 * i] << 8 | s[3 * i + 1] << 16) |
                                             static_cast<unsigned>(s[3 * i + 2]) << 24) >>
                            8);
  }
  static void run(const Operands* o) { loop(in<u8>(o->a), out<D>(o), o->len); }
};
PEER_OUT_OF_LINE void to_24_loop(const int* __restrict s, u8* __restrict d, int len, int n) {
  for (int i = 0; i < len; ++i) {
    const int x = clamp(shifted(s[i], n), -8388608, 8388607);
    d[3 * i] = static_cast<u8>(x), d[3 * i + 1] = static_cast<u8>(x >> 8), d[3 * i + 2] = static_cast<u8>(x >> 16);
  }
}
void to_24(const Operands* o) { to_24_loop(in<int>(o->a), out<u8>(o), o->len, o->n[0]); }

// Halves by their fields.
PEER_OUT_OF_LINE void from_half_loop(const unsigned short* __restrict s, float* __restrict d, int len) {
  for (int i = 0; i < len; ++i) {
    const unsigned h = s[i], exponent = h >> 10 & 31, mantissa = h & 0x3FF;
    float f;
    if (exponent == 0) {
      f = static_cast<float>(mantissa) * 0x1p-24f;
      if (h & 0x8000) f = -f;
    } else {
      const unsigned bits = (h & 0x8000) << 16 | (exponent == 31 ? 255 : exponent + 112) << 23 | mantissa << 13 |
                            (exponent == 31 && mantissa ? 1u << 22 : 0);
      __builtin_memcpy(&f, &bits, sizeof f);
    }
    d[i] = f;
  }
}
PEER_OUT_OF_LINE void to_half_loop(const float* __restrict s, unsigned short* __restrict d, int len) {
  for (int i = 0; i < len; ++i) {
    unsigned bits;
    __builtin_memcpy(&bits, s + i, sizeof bits);
    const unsigned sign = bits >> 16 & 0x8000, size = bits & 0x7FFFFFFF;
    unsigned h;
    if (size > 0x7F800000) {
      h = 0x7E00 | (size >> 13 & 0x3FF);
    } else if (size >= 0x477FF000) {
      h = 0x7C00;
    } else if (size >= 0x38800000) {
      h = (size + 0xFFF + (size >> 13 & 1) - (112u << 23)) >> 13;
    } else {
      float f;
      __builtin_memcpy(&f, &size, sizeof f);
      h = static_cast<unsigned>(__builtin_rintf(f * 0x1p24f));
    }
    d[i] = static_cast<unsigned short>(sign | h);
  }
}

const NamedLoop kLoops[] = {
    {"noxsConvert_8s16s", Cast<signed char, short>::run},
    {"noxsConvert_8u32f", Cast<u8, float>::run},
    {"noxsConvert_16s32s", Cast<short, int>::run},
    {"noxsConvert_16s32f", Cast<short, float>::run},
    {"noxsConvert_32s32f", Cast<int, float>::run},
    {"noxsConvert_32s64f", Cast<int, double>::run},
    {"noxsConvert_32f64f", Cast<float, double>::run},
    {"noxsConvert_64f32f", Cast<double, float>::run},
    {"noxsConvert_16s64f_Sfs", Scale<short, double>::run},
    {"noxsConvert_32s32f_Sfs", Scale<int, float>::run},
    {"noxsConvert_32s16s", Narrow::plain},
    {"noxsConvert_32s16s_Sfs", Narrow::run},
    {"noxsConvert_64s32s_Sfs", From64::run},
    {"noxsConvert_32f8u_Sfs", Round<float, u8, 1, 0, 255>::run},
    {"noxsConvert_32f16s_Sfs", round_words},
    {"noxsConvert_64f32s_Sfs", Round<double, int, 1, INT32_MIN, INT32_MAX>::run},
    {"noxsConvert_24s32s", From24<int>::run},
    {"noxsConvert_24s32f", From24<float>::run},
    {"noxsConvert_32s24s_Sfs", to_24},
    {"noxsConvert_16f32f", [](const Operands* o) { from_half_loop(in<unsigned short>(o->a), out<float>(o), o->len); }},
    {"noxsConvert_32f16f", [](const Operands* o) { to_half_loop(in<float>(o->a), out<unsigned short>(o), o->len); }},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
