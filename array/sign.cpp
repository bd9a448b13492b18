// Signs of an array's elements, and multiplication by them.
//
// The sign of a NaN is no sign, so that of a complex value whose real part is a NaN is that of its imaginary part; but
// a product by a NaN leaves its destination alone. Vectors hold the real parts and the imaginary parts apart where the
// result is real, and the same part in both lanes where it is complex.
#include "nox/array/sign.h"
#include "array/forward.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// 1.0 where a is above zero, -1.0 where it is below, else 0.0.
template <class V>
NOX_INLINE V sign(V a) {
  return ((V::zero() < a) & V::all(1.0)) | ((a < V::zero()) & V::all(-1.0));
}
template <class V>
NOX_INLINE V sign(V re, V im) {
  const V decided = (re < V::zero()) | (V::zero() < re);
  return sign(re) | and_not(decided, sign(im));
}
template <class V>
NOX_INLINE V signed_by(V d, V a) {
  return and_not(a == V::zero(), d ^ ((a < V::zero()) & V::all(-0.0)));
}
template <class V>
NOX_INLINE V signed_by(V d, V re, V im) {
  const V zero = V::zero(), undecided = re == zero;
  const V minus = (re < zero) | (undecided & (im < zero));
  return and_not(undecided & (im == zero), d ^ (minus & V::all(-0.0)));
}

// The parts of one complex value, or of two.
struct OneComplex {
  F64x1 re, im;
};
NOX_INLINE OneComplex apart(C64x1 a) { return {F64x1{a.v}, F64x1{im_twice(a).v}}; }
NOX_INLINE TwoComplex apart(TwoComplex a) { return a; }

NOX_INLINE C64x1 beside_zero(F64x1 a) { return {_mm_move_sd(_mm_setzero_pd(), a.v)}; }

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void NOX_BODY(Sgndd)(const Nox64f src[], Nox64f dst[], Nox32u n) {
  forward(
      dst, n, [](auto x) { return sign(x); }, src);
}
void NOX_BODY(Sgndc)(const Nox64f src[], Nox64fc dst[], Nox32u n) {
  forward(
      dst, n, [](F64x1 x) { return beside_zero(sign(x)); }, src);
}
void NOX_BODY(Sgncd)(const Nox64fc src[], Nox64f dst[], Nox32u n) {
  forward(
      dst, n, [](auto x) { return sign(apart(x).re, apart(x).im); }, src);
}
void NOX_BODY(Sgncc)(const Nox64fc src[], Nox64fc dst[], Nox32u n) {
  const auto of = [](C64x1 x) {
    const F64x2 signs = sign(parts(x));  // of both parts; zero where there is none
    return beside_zero(F64x1{(signs | ((signs == F64x2::zero()) & high_halves(signs, signs))).v});
  };
  forward(dst, n, of, src);
}

void NOX_BODY(SgnMul)(const Nox64f src[], Nox64f dst[], Nox32u n) {
  forward(
      dst, n, [](auto d, auto x) { return signed_by(d, x); }, dst, src);
}
void NOX_BODY(SgnMuldc)(const Nox64f src[], Nox64fc dst[], Nox32u n) {
  const auto step = [](C64x1 d, F64x1 x) { return complex<C64x1>(signed_by(parts(d), parts(re_twice(C64x1{x.v})))); };
  forward(dst, n, step, dst, src);
}
void NOX_BODY(SgnMulcd)(const Nox64fc src[], Nox64f dst[], Nox32u n) {
  forward(
      dst, n, [](auto d, auto x) { return signed_by(d, apart(x).re, apart(x).im); }, dst, src);
}
void NOX_BODY(SgnMulc)(const Nox64fc src[], Nox64fc dst[], Nox32u n) {
  const auto step = [](C64x1 d, C64x1 x) {
    return complex<C64x1>(signed_by(parts(d), parts(re_twice(x)), parts(im_twice(x))));
  };
  forward(dst, n, step, dst, src);
}

}  // extern "C"
