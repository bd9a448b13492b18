// Bitwise operations, shifts and swaps of bytes as plain loops.
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

using u8 = unsigned char;
using u16 = unsigned short;
using u32 = unsigned;
using u64 = unsigned long long;

struct And {
  template <class T>
  static T of(T a, T b) {
    return static_cast<T>(a & b);
  }
};
struct Or {
  template <class T>
  static T of(T a, T b) {
    return static_cast<T>(a | b);
  }
};
struct Xor {
  template <class T>
  static T of(T a, T b) {
    return static_cast<T>(a ^ b);
  }
};
struct Not {
  template <class T>
  static T of(T a) {
    return static_cast<T>(~a);
  }
};
struct Swap {
  static u16 of(u16 a) { return __builtin_bswap16(a); }
  static u32 of(u32 a) { return __builtin_bswap32(a); }
  static u64 of(u64 a) { return __builtin_bswap64(a); }
};

template <class T>
struct Shift {
  PEER_OUT_OF_LINE static void up_loop(const T* __restrict s, T* __restrict d, int len, int n) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<T>(static_cast<u32>(s[i]) << n);
  }
  static void up(const Operands* o) { up_loop(in<T>(o->a), out<T>(o), o->len, o->n[0]); }
  PEER_OUT_OF_LINE static void down_loop(const T* __restrict s, T* __restrict d, int len, int n) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<T>(s[i] >> n);
  }
  static void down(const Operands* o) { down_loop(in<T>(o->a), out<T>(o), o->len, o->n[0]); }
};

PEER_OUT_OF_LINE void swap_triples(const u8* __restrict s, u8* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[3 * i] = s[3 * i + 2], d[3 * i + 1] = s[3 * i + 1], d[3 * i + 2] = s[3 * i];
}

const NamedLoop kLoops[] = {
    {"noxsAnd_8u", Shape<u8, And>::zip},
    {"noxsAnd_16u", Shape<u16, And>::zip},
    {"noxsAnd_32u", Shape<u32, And>::zip},
    {"noxsOr_8u", Shape<u8, Or>::zip},
    {"noxsXor_32u", Shape<u32, Xor>::zip},
    {"noxsXor_32u_I", Shape<u32, Xor>::zip_in_place},
    {"noxsAndC_8u", Shape<u8, And>::with},
    {"noxsOrC_16u", Shape<u16, Or>::with},
    {"noxsXorC_32u", Shape<u32, Xor>::with},
    {"noxsNot_8u", Shape<u8, Not>::each},
    {"noxsLShiftC_8u", Shift<u8>::up},
    {"noxsLShiftC_16s", Shift<short>::up},
    {"noxsLShiftC_32s", Shift<int>::up},
    {"noxsRShiftC_8u", Shift<u8>::down},
    {"noxsRShiftC_16s", Shift<short>::down},
    {"noxsRShiftC_32s", Shift<int>::down},
    {"noxsSwapBytes_16u", Shape<u16, Swap>::each},
    {"noxsSwapBytes_24u", [](const Operands* o) { swap_triples(in<u8>(o->a), out<u8>(o), o->len); }},
    {"noxsSwapBytes_32u", Shape<u32, Swap>::each},
    {"noxsSwapBytes_64u", Shape<u64, Swap>::each},
    {"noxsSwapBytes_64u_I", Shape<u64, Swap>::each_in_place},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
