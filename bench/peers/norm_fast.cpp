// Norms as plain loops, with and without fast math, which lets a compiler reorder the sums.
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

real magnitude(real x) { return __builtin_fabs(x); }
real square(real x) { return x * x; }
real square(complex z) { return z.re * z.re + z.im * z.im; }
real minus(real a, real b) { return a - b; }
complex minus(complex a, complex b) { return {a.re - b.re, a.im - b.im}; }

#define NORM(name, type, start, update, result)                                                  \
  PEER_OUT_OF_LINE real name(const type* __restrict s, const type* __restrict t, int n) {        \
    real acc = start;                                                                            \
    for (int i = 0; i < n; ++i) {                                                                \
      const type x = s[i];                                                                       \
      acc = update;                                                                              \
    }                                                                                            \
    (void)t;                                                                                     \
    return result;                                                                               \
  }                                                                                              \
  PEER_OUT_OF_LINE real name##_diff(const type* __restrict s, const type* __restrict t, int n) { \
    real acc = start;                                                                            \
    for (int i = 0; i < n; ++i) {                                                                \
      const type x = minus(s[i], t[i]);                                                          \
      acc = update;                                                                              \
    }                                                                                            \
    return result;                                                                               \
  }
NORM(inf, real, 0, acc > magnitude(x) ? acc : magnitude(x), acc)
NORM(l1, real, 0, acc + magnitude(x), acc)
NORM(l2, real, 0, acc + square(x), __builtin_sqrt(acc))
NORM(inf_complex, complex, 0, square(x) > acc ? square(x) : acc, __builtin_sqrt(acc))
NORM(l1_complex, complex, 0, acc + __builtin_sqrt(square(x)), acc)
NORM(l2_complex, complex, 0, acc + square(x), __builtin_sqrt(acc))

template <class T, real (*Run)(const T*, const T*, int)>
void run(const Operands* o) {
  *out<real>(o) = Run(in<T>(o->a), in<T>(o->b), o->len);
}

PEER_OUT_OF_LINE void normalize(const real* __restrict s, real* __restrict d, int n, real sub, real div) {
  const real r = 1 / div;
  for (int i = 0; i < n; ++i) d[i] = (s[i] - sub) * r;
}
PEER_OUT_OF_LINE void normalize_complex(const complex* __restrict s, complex* __restrict d, int n, complex sub,
                                        real div) {
  const real r = 1 / div;
  for (int i = 0; i < n; ++i) d[i] = {(s[i].re - sub.re) * r, (s[i].im - sub.im) * r};
}

const NamedLoop kLoops[] = {
    {"noxsNorm_Inf_64f", run<real, inf>},
    {"noxsNorm_L1_64f", run<real, l1>},
    {"noxsNorm_L2_64f", run<real, l2>},
    {"noxsNorm_Inf_64fc64f", run<complex, inf_complex>},
    {"noxsNorm_L1_64fc64f", run<complex, l1_complex>},
    {"noxsNorm_L2_64fc64f", run<complex, l2_complex>},
    {"noxsNormDiff_Inf_64f", run<real, inf_diff>},
    {"noxsNormDiff_L1_64f", run<real, l1_diff>},
    {"noxsNormDiff_L2_64f", run<real, l2_diff>},
    {"noxsNormDiff_Inf_64fc64f", run<complex, inf_complex_diff>},
    {"noxsNormDiff_L1_64fc64f", run<complex, l1_complex_diff>},
    {"noxsNormDiff_L2_64fc64f", run<complex, l2_complex_diff>},
    {"noxsNormalize_64f", [](const Operands* o) { normalize(in<real>(o->a), out<real>(o), o->len, 0.6, 1.7); }},
    {"noxsNormalize_64fc",
     [](const Operands* o) {
       normalize_complex(in<complex>(o->a), out<complex>(o), o->len, {0.6, 0.8}, 1.7);
     }},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
