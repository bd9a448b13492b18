// Plain loops of extrema, with and without fast math, which lets a compiler pass over NaN and the sign of zero.
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

struct Larger {
  template <class T>
  static T of(T a, T b) {
    return a > b ? a : b;
  }
};
struct Smaller {
  template <class T>
  static T of(T a, T b) {
    return a < b ? a : b;
  }
};
template <class T, class F>
PEER_OUT_OF_LINE void fold_loop(const T* __restrict s, int len, T* __restrict result) {
  T best = s[0];
  for (int i = 1; i < len; ++i) best = F::of(best, s[i]);
  *result = best;
}
template <class T, class F>
void fold(const Operands* o) {
  fold_loop<T, F>(in<T>(o->a), o->len, out<T>(o));
}
PEER_OUT_OF_LINE void size_loop(const int* __restrict s, int len, int* __restrict result) {
  int best = 0;
  for (int i = 0; i < len; ++i) {
    const int size = s[i] == -2147483647 - 1 ? 2147483647 : s[i] < 0 ? -s[i] : s[i];
    best = size > best ? size : best;
  }
  *result = best;
}
void size(const Operands* o) { size_loop(in<int>(o->a), o->len, out<int>(o)); }

template <class T>
PEER_OUT_OF_LINE void both_loop(const T* __restrict s, int len, T* __restrict least, T* __restrict most) {
  T low = s[0], high = s[0];
  for (int i = 1; i < len; ++i) low = Smaller::of(low, s[i]), high = Larger::of(high, s[i]);
  *least = low;
  *most = high;
}
template <class T>
void both(const Operands* o) {
  both_loop(in<T>(o->a), o->len, out<T>(o), static_cast<T*>(o->e));
}

template <class T, bool Most>
PEER_OUT_OF_LINE void place_loop(const T* __restrict s, int len, T* __restrict result, int* __restrict place) {
  T best = s[0];
  int at = 0;
  for (int i = 1; i < len; ++i)
    if (Most ? s[i] > best : s[i] < best) best = s[i], at = i;
  *result = best;
  *place = at;
}
template <class T, bool Most>
void place(const Operands* o) {
  place_loop<T, Most>(in<T>(o->a), o->len, out<T>(o), static_cast<int*>(o->e));
}

const NamedLoop kLoops[] = {
    {"noxsMax_64f", fold<real, Larger>},
    {"noxsMin_64f", fold<real, Smaller>},
    {"noxsMax_32s", fold<int, Larger>},
    {"noxsMin_16s", fold<short, Smaller>},
    {"noxsMaxAbs_32s", size},
    {"noxsMinMax_64f", both<real>},
    {"noxsMinMax_32s", both<int>},
    {"noxsMinMax_16s", both<short>},
    {"noxsMaxIndx_64f", place<real, true>},
    {"noxsMaxIndx_32s", place<int, true>},
    {"noxsMinIndx_16s", place<short, false>},
    {"noxsMaxEvery_64f", Shape<real, Larger>::zip},
    {"noxsMaxEvery_32s", Shape<int, Larger>::zip},
    {"noxsMinEvery_16s", Shape<short, Smaller>::zip},
    {"noxsMinEvery_8u", Shape<unsigned char, Smaller>::zip},
    {"noxsMaxEvery_32s_I", Shape<int, Larger>::zip_in_place},
    {"noxsMinEvery_16s_I", Shape<short, Smaller>::zip_in_place},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
