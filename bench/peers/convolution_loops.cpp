// Direct convolution and correlation as loops: each element of the shorter array adds its multiple of the longer one,
// which vectorises without reordering a sum.
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

PEER_OUT_OF_LINE void convolve(const real* __restrict a, int a_len, const real* __restrict b, int b_len,
                               real* __restrict d) {
  for (int i = 0; i < a_len + b_len - 1; ++i) d[i] = 0;
  for (int j = 0; j < b_len; ++j)
    for (int i = 0; i < a_len; ++i) d[i + j] += a[i] * b[j];
}
PEER_OUT_OF_LINE void correlate(const real* __restrict a, int a_len, const real* __restrict b, int b_len,
                                real* __restrict d) {
  for (int i = 0; i < a_len + b_len - 1; ++i) d[i] = 0;
  for (int j = 0; j < b_len; ++j)
    for (int i = 0; i < a_len; ++i) d[i + b_len - 1 - j] += a[i] * b[j];
}
PEER_OUT_OF_LINE void correlate_complex(const complex* __restrict a, int a_len, const complex* __restrict b, int b_len,
                                        complex* __restrict d) {
  for (int i = 0; i < a_len + b_len - 1; ++i) d[i] = {0, 0};
  for (int j = 0; j < b_len; ++j)
    for (int i = 0; i < a_len; ++i) {
      complex& to = d[i + b_len - 1 - j];
      to.re += b[j].re * a[i].re + b[j].im * a[i].im;
      to.im += b[j].re * a[i].im - b[j].im * a[i].re;
    }
}

const NamedLoop kLoops[] = {
    {"noxsConvolve_64f",
     [](const Operands* o) { convolve(in<real>(o->a), o->len - o->n[0] + 1, in<real>(o->b), o->n[0], out<real>(o)); }},
    {"noxsCrossCorrNorm_64f",
     [](const Operands* o) { correlate(in<real>(o->a), o->len - o->n[0] + 1, in<real>(o->b), o->n[0], out<real>(o)); }},
    {"noxsCrossCorrNorm_64fc",
     [](const Operands* o) {
       correlate_complex(in<complex>(o->a), o->len - o->n[0] + 1, in<complex>(o->b), o->n[0], out<complex>(o));
     }},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
