// Plain loops of the primitives that sum, compiled at -O3 and, since their order is the compilers' limit, at
// -O3 -ffast-math too: direct FIR filters.
//
// The samples before a[0] are read where they stand; taps come reversed, so both inner reads run forward.
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

PEER_OUT_OF_LINE void fir_real(const real* __restrict x, real* __restrict y, int len, const real* __restrict taps,
                               int taps_len) {
  x -= taps_len - 1;
  for (int i = 0; i < len; ++i) {
    real sum = 0;
    for (int j = 0; j < taps_len; ++j) sum += taps[j] * x[i + j];
    y[i] = sum;
  }
}

PEER_OUT_OF_LINE void fir_complex(const complex* __restrict x, complex* __restrict y, int len,
                                  const complex* __restrict taps, int taps_len) {
  x -= taps_len - 1;
  for (int i = 0; i < len; ++i) {
    real re = 0, im = 0;
    for (int j = 0; j < taps_len; ++j) {
      re += taps[j].re * x[i + j].re - taps[j].im * x[i + j].im;
      im += taps[j].re * x[i + j].im + taps[j].im * x[i + j].re;
    }
    y[i] = {re, im};
  }
}

void fir_64f(const Operands* o) { fir_real(in<real>(o->a), out<real>(o), o->len, o->taps, o->n[0]); }
void fir_64fc(const Operands* o) {
  fir_complex(in<complex>(o->a), out<complex>(o), o->len, reinterpret_cast<const complex*>(o->taps), o->n[0]);
}

const NamedLoop kLoops[] = {
    {"noxsFIRSR_64f", fir_64f},
    {"noxsFIRSR_64fc", fir_64fc},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
