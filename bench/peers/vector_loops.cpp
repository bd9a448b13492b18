// Plain loops of the elementwise primitives and the one-shot transforms, compiled by each compiler at -O3 for each
// instruction set.
//
// To add a loop: one functor unless it exists, one line in the table.
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

struct Keep {
  template <class T>
  static T of(T a) {
    return a;
  }
};
struct Add {
  static real of(real a, real b) { return a + b; }
  static complex of(complex a, complex b) { return {a.re + b.re, a.im + b.im}; }
};
struct SubtractFrom {  // second minus first
  static real of(real a, real b) { return b - a; }
  static complex of(complex a, complex b) { return {b.re - a.re, b.im - a.im}; }
};
struct Subtract {
  static real of(real a, real c) { return a - c; }
  static complex of(complex a, complex c) { return {a.re - c.re, a.im - c.im}; }
};
struct Multiply {
  static real of(real a, real b) { return a * b; }
  static complex of(complex a, complex b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
};
struct AddProduct {
  static real of(real a, real b, real d) { return d + a * b; }
  static complex of(complex a, complex b, complex d) { return Add::of(d, Multiply::of(a, b)); }
};
struct Square {
  static real of(real a) { return a * a; }
  static complex of(complex a) { return Multiply::of(a, a); }
};
struct Divide {  // second by first
  static real of(real a, real b) { return b / a; }
  static complex of(complex a, complex b) {
    const real m = a.re * a.re + a.im * a.im;
    return {(b.re * a.re + b.im * a.im) / m, (b.im * a.re - b.re * a.im) / m};
  }
};
struct SquareRoot {
  static real of(real a) { return __builtin_sqrt(a); }
  static complex of(complex a) {
    const real x = a.re * 0.5, y = a.im * 0.5;
    const real s = __builtin_sqrt(__builtin_fabs(x) + __builtin_sqrt(x * x + y * y)), t = __builtin_fabs(y) / s;
    const real re = a.re < 0 ? t : s, im = a.re < 0 ? s : t;
    return {re, a.im < 0 ? -im : im};
  }
};
struct Conjugate {
  static complex of(complex a) { return {a.re, -a.im}; }
};

// Goertzel's recurrence, in the order and with the last bits of the primitive's.
PEER_OUT_OF_LINE void goertzel_real(const real* a, complex* value, int len, real frequency) {
  const real phi = 6.283185307179586 * frequency, c = __builtin_cos(phi), s = __builtin_sin(phi), twice = c + c;
  real s1 = 0, s2 = 0;
  for (int i = 0; i < len; ++i) {
    const real t = a[i] - s2;
    s2 = s1;
    s1 = s1 * twice + t;
  }
  *value = {c * s1 - s2, s * s1};
}
PEER_OUT_OF_LINE void goertzel_complex(const complex* a, complex* value, int len, real frequency) {
  const real phi = 6.283185307179586 * frequency, c = __builtin_cos(phi), s = __builtin_sin(phi), twice = c + c;
  complex s1 = {0, 0}, s2 = {0, 0};
  for (int i = 0; i < len; ++i) {
    const complex t = {a[i].re - s2.re, a[i].im - s2.im};
    s2 = s1;
    s1 = {s1.re * twice + t.re, s1.im * twice + t.im};
  }
  *value = {c * s1.re - s2.re - s * s1.im, c * s1.im - s2.im + s * s1.re};
}
void goertzel_of_reals(const Operands* o) { goertzel_real(in<real>(o->a), out<complex>(o), o->len, kFrequency); }
void goertzel_of_complex(const Operands* o) {
  goertzel_complex(in<complex>(o->a), out<complex>(o), o->len, kFrequency);
}

PEER_OUT_OF_LINE void haar_loop(const real* __restrict a, int len, real* __restrict low, real* __restrict high) {
  for (int k = 0; k < len / 2; ++k) {
    high[k] = (a[2 * k + 1] - a[2 * k]) * 0.5;
    low[k] = high[k] + a[2 * k];
  }
  if (len % 2) low[len / 2] = a[len - 1];
}
PEER_OUT_OF_LINE void haar_back_loop(const real* __restrict low, const real* __restrict high, real* __restrict d,
                                     int len) {
  for (int k = 0; k < len / 2; ++k) {
    d[2 * k] = low[k] - high[k];
    d[2 * k + 1] = high[k] + low[k];
  }
  if (len % 2) d[len - 1] = low[len / 2];
}
void haar(const Operands* o) { haar_loop(in<real>(o->a), o->len, out<real>(o), static_cast<real*>(o->e)); }
void haar_back(const Operands* o) { haar_back_loop(in<real>(o->a), in<real>(o->b), out<real>(o), o->len); }

using u8 = unsigned char;
using u16 = unsigned short;
using s16 = short;
using s32 = int;
using s64 = long long;

const NamedLoop kLoops[] = {
    {"noxsAdd_64f", Shape<real, Add>::zip},
    {"noxsAdd_64fc", Shape<complex, Add>::zip},
    {"noxsAdd_64f_I", Shape<real, Add>::zip_in_place},
    {"noxsAdd_64fc_I", Shape<complex, Add>::zip_in_place},
    {"noxsSub_64f", Shape<real, SubtractFrom>::zip},
    {"noxsSub_64fc", Shape<complex, SubtractFrom>::zip},
    {"noxsSub_64f_I", Shape<real, SubtractFrom>::zip_in_place},
    {"noxsSub_64fc_I", Shape<complex, SubtractFrom>::zip_in_place},
    {"noxsMul_64f", Shape<real, Multiply>::zip},
    {"noxsMul_64fc", Shape<complex, Multiply>::zip},
    {"noxsMul_64f_I", Shape<real, Multiply>::zip_in_place},
    {"noxsMul_64fc_I", Shape<complex, Multiply>::zip_in_place},
    {"noxsAddProduct_64f", Shape<real, AddProduct>::accumulate},
    {"noxsAddProduct_64fc", Shape<complex, AddProduct>::accumulate},
    {"noxsSqr_64f", Shape<real, Square>::each},
    {"noxsSqr_64fc", Shape<complex, Square>::each},
    {"noxsSqr_64f_I", Shape<real, Square>::each_in_place},
    {"noxsSqr_64fc_I", Shape<complex, Square>::each_in_place},
    {"noxsAddC_64f", Shape<real, Add>::with},
    {"noxsAddC_64fc", Shape<complex, Add>::with},
    {"noxsAddC_64f_I", Shape<real, Add>::with_in_place},
    {"noxsAddC_64fc_I", Shape<complex, Add>::with_in_place},
    {"noxsSubC_64f", Shape<real, Subtract>::with},
    {"noxsSubC_64fc", Shape<complex, Subtract>::with},
    {"noxsSubC_64f_I", Shape<real, Subtract>::with_in_place},
    {"noxsSubC_64fc_I", Shape<complex, Subtract>::with_in_place},
    {"noxsSubCRev_64f", Shape<real, SubtractFrom>::with},
    {"noxsSubCRev_64fc", Shape<complex, SubtractFrom>::with},
    {"noxsSubCRev_64f_I", Shape<real, SubtractFrom>::with_in_place},
    {"noxsSubCRev_64fc_I", Shape<complex, SubtractFrom>::with_in_place},
    {"noxsMulC_64f", Shape<real, Multiply>::with},
    {"noxsMulC_64fc", Shape<complex, Multiply>::with},
    {"noxsMulC_64f_I", Shape<real, Multiply>::with_in_place},
    {"noxsMulC_64fc_I", Shape<complex, Multiply>::with_in_place},
    {"noxsDivC_64f", Shape<real, Multiply>::with_reciprocal},
    {"noxsDivC_64fc", Shape<complex, Multiply>::with_reciprocal},
    {"noxsDivC_64f_I", Shape<real, Multiply>::with_reciprocal_in_place},
    {"noxsDivC_64fc_I", Shape<complex, Multiply>::with_reciprocal_in_place},

    {"noxsDiv_64f", Shape<real, Divide>::zip},
    {"noxsDiv_64fc", Shape<complex, Divide>::zip},
    {"noxsDiv_64f_I", Shape<real, Divide>::zip_in_place},
    {"noxsDiv_64fc_I", Shape<complex, Divide>::zip_in_place},
    {"noxsSqrt_64f", Shape<real, SquareRoot>::each},
    {"noxsSqrt_64fc", Shape<complex, SquareRoot>::each},
    {"noxsSqrt_64f_I", Shape<real, SquareRoot>::each_in_place},
    {"noxsSqrt_64fc_I", Shape<complex, SquareRoot>::each_in_place},

    {"noxsFlip_8u", Shape<u8, Keep>::reversed},
    {"noxsFlip_16u", Shape<u16, Keep>::reversed},
    {"noxsFlip_32f", Shape<float, Keep>::reversed},
    {"noxsFlip_64f", Shape<real, Keep>::reversed},
    {"noxsFlip_64fc", Shape<complex, Keep>::reversed},
    {"noxsFlip_8u_I", Shape<u8, Keep>::reverse_in_place},
    {"noxsFlip_16u_I", Shape<u16, Keep>::reverse_in_place},
    {"noxsFlip_32f_I", Shape<float, Keep>::reverse_in_place},
    {"noxsFlip_64f_I", Shape<real, Keep>::reverse_in_place},
    {"noxsFlip_64fc_I", Shape<complex, Keep>::reverse_in_place},
    {"noxsConj_64fc", Shape<complex, Conjugate>::each},
    {"noxsConj_64fc_I", Shape<complex, Conjugate>::each_in_place},
    {"noxsConjFlip_64fc", Shape<complex, Conjugate>::reversed},

    {"noxsGoertz_64f", goertzel_of_reals},
    {"noxsGoertz_64fc", goertzel_of_complex},
    {"noxsWTHaarFwd_64f", haar},
    {"noxsWTHaarInv_64f", haar_back},

    {"noxsSet_8u", Shape<u8, Keep>::fill},
    {"noxsSet_16s", Shape<s16, Keep>::fill},
    {"noxsSet_32s", Shape<s32, Keep>::fill},
    {"noxsSet_32sc", Shape<Pair<s32>, Keep>::fill},
    {"noxsSet_64f", Shape<real, Keep>::fill},
    {"noxsSet_64fc", Shape<complex, Keep>::fill},
    {"noxsZero_8u", Shape<u8, Keep>::zero},
    {"noxsZero_16s", Shape<s16, Keep>::zero},
    {"noxsZero_32s", Shape<s32, Keep>::zero},
    {"noxsZero_32sc", Shape<Pair<s32>, Keep>::zero},
    {"noxsZero_64f", Shape<real, Keep>::zero},
    {"noxsZero_64fc", Shape<complex, Keep>::zero},
    // A move between arrays that don't overlap is the same loop as a copy.
    {"noxsCopy_8u", Shape<u8, Keep>::each},
    {"noxsCopy_16s", Shape<s16, Keep>::each},
    {"noxsCopy_16sc", Shape<Pair<s16>, Keep>::each},
    {"noxsCopy_32s", Shape<s32, Keep>::each},
    {"noxsCopy_32f", Shape<float, Keep>::each},
    {"noxsCopy_32sc", Shape<Pair<s32>, Keep>::each},
    {"noxsCopy_32fc", Shape<Pair<float>, Keep>::each},
    {"noxsCopy_64s", Shape<s64, Keep>::each},
    {"noxsCopy_64f", Shape<real, Keep>::each},
    {"noxsCopy_64sc", Shape<Pair<s64>, Keep>::each},
    {"noxsCopy_64fc", Shape<complex, Keep>::each},
    {"noxsMove_8u", Shape<u8, Keep>::each},
    {"noxsMove_16s", Shape<s16, Keep>::each},
    {"noxsMove_16sc", Shape<Pair<s16>, Keep>::each},
    {"noxsMove_32s", Shape<s32, Keep>::each},
    {"noxsMove_32f", Shape<float, Keep>::each},
    {"noxsMove_32sc", Shape<Pair<s32>, Keep>::each},
    {"noxsMove_32fc", Shape<Pair<float>, Keep>::each},
    {"noxsMove_64s", Shape<s64, Keep>::each},
    {"noxsMove_64f", Shape<real, Keep>::each},
    {"noxsMove_64sc", Shape<Pair<s64>, Keep>::each},
    {"noxsMove_64fc", Shape<complex, Keep>::each},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
