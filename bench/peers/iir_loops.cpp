// Plain loops of the recursive filters: the transposed direct form II, for a cascade section by section.
//
// n is the order and 0, or 0 and the number of sections.
#include "bench/peers/iir_taps.hpp"
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

static inline real plus_product(real c, real a, real b) { return c + a * b; }
static inline complex plus_product(complex c, complex a, complex b) {
  return {c.re + (a.re * b.re - a.im * b.im), c.im + (a.re * b.im + a.im * b.re)};
}
static inline real minus_product(real c, real a, real b) { return c - a * b; }
static inline complex minus_product(complex c, complex a, complex b) {
  return {c.re - (a.re * b.re - a.im * b.im), c.im - (a.re * b.im + a.im * b.re)};
}

// Taps are b0, b1, b2, a1, a2.
// In place from the second section on.
template <class T>
PEER_OUT_OF_LINE void section(const T* x, T* y, int len, const T* __restrict taps, T* __restrict d) {
  const T b0 = taps[0], b1 = taps[1], b2 = taps[2], a1 = taps[3], a2 = taps[4];
  T d0 = d[0], d1 = d[1];
  for (int i = 0; i < len; ++i) {
    const T in = x[i], out = plus_product(d0, b0, in);
    d0 = minus_product(plus_product(d1, b1, in), a1, out);
    d1 = minus_product(plus_product(T{}, b2, in), a2, out);
    y[i] = out;
  }
  d[0] = d0;
  d[1] = d1;
}
// Taps are b0..bn, a1..an.
template <class T>
PEER_OUT_OF_LINE void direct(const T* __restrict x, T* __restrict y, int len, const T* __restrict taps, T* __restrict d,
                             int order) {
  const T *b = taps, *a = taps + order;
  for (int i = 0; i < len; ++i) {
    const T in = x[i], out = plus_product(d[0], b[0], in);
    for (int k = 0; k < order; ++k) d[k] = minus_product(plus_product(d[k + 1], b[k + 1], in), a[k + 1], out);
    y[i] = out;
  }
}

// The work memory holds taps and, behind them, the delay line.
template <class T>
T* taps_of(const Operands* o) {
  return static_cast<T*>(o->work);
}
template <class T>
T* delay_of(const Operands* o) {
  return taps_of<T>(o) + 4 * kIirMost;
}

template <class T>
void prepare(const Operands* o) {
  constexpr int kParts = sizeof(T) / sizeof(real);
  const int order = o->n[0], sections = o->n[1];
  real* to = static_cast<real*>(o->work);
  for (int s = 0; s < sections; ++s, to += 5 * kParts) {
    real b[3], a[3] = {1}, taps[5];
    iir_section(s, taps);
    for (int k = 0; k < 3; ++k) b[k] = taps[k];
    for (int k = 1; k < 3; ++k) a[k] = taps[k + 2];
    real parts[6] = {b[0], b[1], b[2]}, last[6] = {a[0], a[1], a[2]};
    if (kParts == 2) iir_turn(parts, 3), iir_turn(last, 3);
    for (int k = 0; k < 3 * kParts; ++k) to[k] = parts[k];
    for (int k = 0; k < 2 * kParts; ++k) to[3 * kParts + k] = last[kParts + k];
  }
  if (order) {
    real taps[2 * (kIirMost + 1)], turned[2 * (kIirMost + 1)];
    iir_direct(order, taps);
    for (int half = 0; half < 2; ++half) {
      for (int k = 0; k <= order; ++k) turned[k] = taps[half * (order + 1) + k];
      if (kParts == 2) iir_turn(turned, order + 1);
      for (int k = half * kParts; k < (order + 1) * kParts; ++k) *to++ = turned[k];
    }
  }
  for (int k = 0; k <= kIirMost; ++k) delay_of<T>(o)[k] = T{};
}

template <class T>
void filter(const Operands* o) {
  const T* taps = taps_of<T>(o);
  T* d = delay_of<T>(o);
  const T* x = in<T>(o->a);
  if (o->n[0]) return direct(x, out<T>(o), o->len, taps, d, o->n[0]);
  for (int s = 0; s < o->n[1]; ++s, x = out<T>(o)) section(x, out<T>(o), o->len, taps + 5 * s, d + 2 * s);
}

const NamedLoop kLoops[] = {
    {"noxsIIR_64f", filter<real>, prepare<real>},
    {"noxsIIR_64fc", filter<complex>, prepare<complex>},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
