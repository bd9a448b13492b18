// Plain loops of sums, means, deviations and dot products, compiled at -O3 and, since their order is the compilers'
// limit, at -O3 -ffast-math too.
#include <cmath>

#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

PEER_OUT_OF_LINE void sum_real(const real* x, int len, real* d) {
  real sum = 0;
  for (int i = 0; i < len; ++i) sum += x[i];
  *d = sum;
}
PEER_OUT_OF_LINE void mean_real(const real* x, int len, real* d) {
  real sum = 0;
  for (int i = 0; i < len; ++i) sum += x[i];
  *d = sum / len;
}
PEER_OUT_OF_LINE void sum_complex(const complex* x, int len, complex* d) {
  real re = 0, im = 0;
  for (int i = 0; i < len; ++i) re += x[i].re, im += x[i].im;
  *d = {re, im};
}
PEER_OUT_OF_LINE void mean_complex(const complex* x, int len, complex* d) {
  real re = 0, im = 0;
  for (int i = 0; i < len; ++i) re += x[i].re, im += x[i].im;
  *d = {re / len, im / len};
}
PEER_OUT_OF_LINE void moments(const real* x, int len, real* mean, real* deviation) {
  real sum = 0, squares = 0;
  for (int i = 0; i < len; ++i) sum += x[i], squares += x[i] * x[i];
  const real n = len, v = squares * n - sum * sum;
  if (mean) *mean = sum / n;
  *deviation = std::sqrt((v > 0 ? v : 0) / (n * (n - 1)));
}
PEER_OUT_OF_LINE void dot_real(const real* a, const real* b, int len, real* d) {
  real sum = 0;
  for (int i = 0; i < len; ++i) sum += a[i] * b[i];
  *d = sum;
}
PEER_OUT_OF_LINE void dot_complex(const complex* a, const complex* b, int len, complex* d) {
  real re = 0, im = 0;
  for (int i = 0; i < len; ++i) {
    re += a[i].re * b[i].re - a[i].im * b[i].im;
    im += a[i].re * b[i].im + a[i].im * b[i].re;
  }
  *d = {re, im};
}
PEER_OUT_OF_LINE void dot_mixed(const real* a, const complex* b, int len, complex* d) {
  real re = 0, im = 0;
  for (int i = 0; i < len; ++i) re += a[i] * b[i].re, im += a[i] * b[i].im;
  *d = {re, im};
}

// The integer results of the rows fit, so that the peers need not saturate.
template <class T>
PEER_OUT_OF_LINE void sum_integers(const T* x, int len, int* d) {
  long long sum = 0;
  for (int i = 0; i < len; ++i) sum += x[i];
  *d = static_cast<int>(sum);
}
PEER_OUT_OF_LINE void mean_integers(const int* x, int len, int* d) {
  long long sum = 0;
  for (int i = 0; i < len; ++i) sum += x[i];
  *d = static_cast<int>(std::nearbyint(static_cast<double>(sum) / len));
}
PEER_OUT_OF_LINE void dot_integers(const int* a, const int* b, int len, int* d) {
  double sum = 0;
  for (int i = 0; i < len; ++i) sum += static_cast<double>(a[i]) * b[i];
  *d = static_cast<int>(sum < -0x1p31 ? -0x1p31 : sum > 0x1p31 - 1 ? 0x1p31 - 1 : sum);
}

template <class S, class D, void (*F)(const S*, int, D*)>
void one(const Operands* o) {
  F(in<S>(o->a), o->len, static_cast<D*>(o->d));
}
template <class A, class B, class D, void (*F)(const A*, const B*, int, D*)>
void two(const Operands* o) {
  F(in<A>(o->a), in<B>(o->b), o->len, static_cast<D*>(o->d));
}
void deviation(const Operands* o) { moments(in<real>(o->a), o->len, nullptr, out<real>(o)); }
void mean_and_deviation(const Operands* o) { moments(in<real>(o->a), o->len, out<real>(o), static_cast<real*>(o->e)); }

const NamedLoop kLoops[] = {
    {"noxsSum_64f", one<real, real, sum_real>},
    {"noxsSum_64fc", one<complex, complex, sum_complex>},
    {"noxsSum_32s_Sfs", one<int, int, sum_integers<int>>},
    {"noxsSum_16s32s_Sfs", one<short, int, sum_integers<short>>},
    {"noxsMean_64f", one<real, real, mean_real>},
    {"noxsMean_64fc", one<complex, complex, mean_complex>},
    {"noxsMean_32s_Sfs", one<int, int, mean_integers>},
    {"noxsStdDev_64f", deviation},
    {"noxsMeanStdDev_64f", mean_and_deviation},
    {"noxsDotProd_64f", two<real, real, real, dot_real>},
    {"noxsDotProd_64fc", two<complex, complex, complex, dot_complex>},
    {"noxsDotProd_64f64fc", two<real, complex, complex, dot_mixed>},
    {"noxsDotProd_32s_Sfs", two<int, int, int, dot_integers>},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
