// Plain loops of the multi-rate FIR filter, at -O3 and at -O3 -ffast-math: each output a sum over the taps of its
// phase, which a preparation has sorted.
//
// The samples before a[0] are read where they stand. n is up, down, taps per phase; taps come reversed.
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

template <class T>
void sort_taps(const Operands* o) {
  const T* reversed = reinterpret_cast<const T*>(o->taps);
  T* sorted = static_cast<T*>(o->work);
  for (int phase = 0; phase < o->n[0]; ++phase)
    for (int j = 0; j < o->n[2]; ++j) *sorted++ = reversed[(j + 1) * o->n[0] - 1 - phase];
}

PEER_OUT_OF_LINE void sum_real(const real* __restrict x, const real* __restrict h, int taps, real* y) {
  real sum = 0;
  for (int j = 0; j < taps; ++j) sum += h[j] * x[j];
  *y = sum;
}
PEER_OUT_OF_LINE void sum_complex(const complex* __restrict x, const complex* __restrict h, int taps, complex* y) {
  real re = 0, im = 0;
  for (int j = 0; j < taps; ++j) {
    re += h[j].re * x[j].re - h[j].im * x[j].im;
    im += h[j].re * x[j].im + h[j].im * x[j].re;
  }
  *y = {re, im};
}

template <class T, class Sum>
void resample(const Operands* o, Sum sum) {
  const int up = o->n[0], down = o->n[1], taps = o->n[2], outputs = o->len / (up > down ? up : down) * up;
  const T *x = in<T>(o->a) - (taps - 1), *sorted = static_cast<const T*>(o->work);
  T* y = out<T>(o);
  int input = 0, phase = 0;
  for (int m = 0; m < outputs; ++m) {
    sum(x + input, sorted + phase * taps, taps, y + m);
    for (phase += down; phase >= up; phase -= up) ++input;
  }
}
void mr_64f(const Operands* o) { resample<real>(o, sum_real); }
void mr_64fc(const Operands* o) { resample<complex>(o, sum_complex); }

const NamedLoop kLoops[] = {
    {"noxsFIRMR_64f", mr_64f, sort_taps<real>},
    {"noxsFIRMR_64fc", mr_64fc, sort_taps<complex>},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
