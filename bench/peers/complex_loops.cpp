// Complex helpers and absolute values as plain loops.
#include <math.h>

#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

PEER_OUT_OF_LINE void magnitude_loop(const real* __restrict x, const real* __restrict y, real* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[i] = __builtin_sqrt(x[i] * x[i] + y[i] * y[i]);
}
PEER_OUT_OF_LINE void power_loop(const real* __restrict x, const real* __restrict y, real* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[i] = x[i] * x[i] + y[i] * y[i];
}
PEER_OUT_OF_LINE void magnitudes_loop(const complex* __restrict z, real* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[i] = __builtin_sqrt(z[i].re * z[i].re + z[i].im * z[i].im);
}
PEER_OUT_OF_LINE void powers_loop(const complex* __restrict z, real* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[i] = z[i].re * z[i].re + z[i].im * z[i].im;
}
PEER_OUT_OF_LINE void real_loop(const complex* __restrict z, real* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[i] = z[i].re;
}
PEER_OUT_OF_LINE void join_loop(const real* __restrict x, const real* __restrict y, complex* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[i] = {x[i], y[i]};
}
template <class T>
struct Absolute {
  PEER_OUT_OF_LINE static void loop(const T* __restrict s, T* __restrict d, int len) {
    constexpr T kHighest = T((1ULL << (8 * sizeof(T) - 1)) - 1), kLowest = T(-kHighest - 1);
    for (int i = 0; i < len; ++i) d[i] = s[i] == kLowest ? kHighest : T(s[i] < 0 ? -s[i] : s[i]);
  }
  static void run(const Operands* o) { loop(in<T>(o->a), out<T>(o), o->len); }
};
PEER_OUT_OF_LINE void absolute_loop(const real* __restrict s, real* __restrict d, int len) {
  for (int i = 0; i < len; ++i) d[i] = __builtin_fabs(s[i]);
}

template <void (*Loop)(const real*, const real*, real*, int)>
void of_arrays(const Operands* o) {
  Loop(in<real>(o->a), in<real>(o->b), out<real>(o), o->len);
}
template <void (*Loop)(const complex*, real*, int)>
void of_records(const Operands* o) {
  Loop(in<complex>(o->a), out<real>(o), o->len);
}

const NamedLoop kLoops[] = {
    {"noxsMagnitude_64f", of_arrays<magnitude_loop>},
    {"noxsMagnitude_64fc", of_records<magnitudes_loop>},
    {"noxsPowerSpectr_64f", of_arrays<power_loop>},
    {"noxsPowerSpectr_64fc", of_records<powers_loop>},
    {"noxsReal_64fc", of_records<real_loop>},
    {"noxsRealToCplx_64f",
     [](const Operands* o) { join_loop(in<real>(o->a), in<real>(o->b), out<complex>(o), o->len); }},
    {"noxsAbs_16s", Absolute<short>::run},
    {"noxsAbs_32s", Absolute<int>::run},
    {"noxsAbs_64f", [](const Operands* o) { absolute_loop(in<real>(o->a), out<real>(o), o->len); }},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
