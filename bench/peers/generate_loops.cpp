// Plain loops of windows, tones and ramps, each element by the C library's cosine and sine.
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

constexpr real kTurn = 6.283185307179586;

struct Bartlett {
  static real of(real k, real last) { return 1 - __builtin_fabs(2 * k / last - 1); }
};
struct Hann {
  static real of(real k, real last) { return 0.5 - 0.5 * __builtin_cos(kTurn / last * k); }
};
struct Hamming {
  static real of(real k, real last) { return 0.54 - 0.46 * __builtin_cos(kTurn / last * k); }
};
real blackman(real k, real last, real alpha) {
  const real c = 0.5 * __builtin_cos(kTurn / last * k);
  return alpha + 0.5 - c - 4 * alpha * c * c;
}
struct Blackman {
  static real of(real k, real last) { return blackman(k, last, 0.3); }
};
struct BlackmanStd {
  static real of(real k, real last) { return blackman(k, last, -0.16); }
};
struct BlackmanOpt {
  static real of(real k, real last) {
    const real root = 0.5 / __builtin_cos(kTurn / 2 / last);
    return blackman(k, last, -root * root);
  }
};

real times(real a, real w) { return a * w; }
complex times(complex a, real w) { return {a.re * w, a.im * w}; }

// The middle of an odd length would have weight 1 all the same.
template <class T, class W>
PEER_OUT_OF_LINE void weigh(const T* __restrict a, T* __restrict d, int len) {
  const real last = len - 1;
  for (int i = 0; i < len; ++i) d[i] = times(a[i], W::of(i, last));
}
template <class T, class W>
void window(const Operands* o) {
  weigh<T, W>(in<T>(o->a), out<T>(o), o->len);
}

PEER_OUT_OF_LINE void tone_loop(real* d, int len, real step, real phase) {
  for (int i = 0; i < len; ++i) d[i] = __builtin_cos(step * i + phase);
}
PEER_OUT_OF_LINE void tone_loop(complex* d, int len, real step, real phase) {
  for (int i = 0; i < len; ++i) d[i] = {__builtin_cos(step * i + phase), __builtin_sin(step * i + phase)};
}
template <class T>
void tone(const Operands* o) {
  tone_loop(out<T>(o), o->len, kTurn * kFrequency, 0.5);
}

template <class T>
PEER_OUT_OF_LINE void ramp_loop(T* d, int len, T offset, T slope) {
  for (int i = 0; i < len; ++i) d[i] = offset + slope * static_cast<T>(i);
}
template <class T>
void ramp(const Operands* o) {
  ramp_loop(out<T>(o), o->len, static_cast<T>(o->c[0]), static_cast<T>(o->c[1]));
}
template <class T>
PEER_OUT_OF_LINE void integer_ramp_loop(T* d, int len, float offset, float slope, real low, real high) {
  for (int i = 0; i < len; ++i) {
    real x = static_cast<real>(offset) + static_cast<real>(slope) * i;
    x = x < low ? low : x > high ? high : x;
    d[i] = static_cast<T>(static_cast<int>(x < 0 ? x - 0.5 : x + 0.5));
  }
}
template <class T, int Low, int High>
void integer_ramp(const Operands* o) {
  integer_ramp_loop(out<T>(o), o->len, static_cast<float>(o->c[0]), static_cast<float>(o->c[1]), Low, High);
}

PEER_OUT_OF_LINE void chirp_loop(real* d, int len, real magn) {
  const real c = kTurn / 4 / len;
  for (int i = 0; i < len; ++i) d[i] = magn * __builtin_sin(c * i * i);
}
void chirp(const Operands* o) { chirp_loop(out<real>(o), o->len, o->c[0]); }

const NamedLoop kLoops[] = {
    {"noxsWinBartlett_64f", window<real, Bartlett>},
    {"noxsWinHann_64f", window<real, Hann>},
    {"noxsWinHann_64fc", window<complex, Hann>},
    {"noxsWinHamming_64f", window<real, Hamming>},
    {"noxsWinBlackman_64f", window<real, Blackman>},
    {"noxsWinBlackmanStd_64f", window<real, BlackmanStd>},
    {"noxsWinBlackmanOpt_64f", window<real, BlackmanOpt>},
    {"noxsTone_Direct_64f", tone<real>},
    {"noxsTone_Direct_64fc", tone<complex>},
    {"noxsVectorSlope_64f", ramp<real>},
    {"noxsVectorSlope_32f", ramp<float>},
    {"noxsVectorSlope_16s", integer_ramp<short, -32768, 32767>},
    {"noxsVectorSlope_8u", integer_ramp<unsigned char, 0, 255>},
    {"noxsVectorJaehne_64f", chirp},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
