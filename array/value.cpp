// Arithmetic of an array with a value, and of a complex array with a real one.
//
// A real operand of a complex sum stands beside a zero, so that the other part has 0.0 added or subtracted as the
// definitions say; of a complex product or quotient it stands in both parts. A complex value is read through its
// pointer for each element, for it may lie inside the destination.
#include "nox/array/value.h"

#include <type_traits>

#include "array/operands.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

NOX_INLINE C64x1 with_zero(F64x1 a) { return {a.v}; }
NOX_INLINE C64x1 with_zero(Nox64f a) { return {_mm_set_sd(a)}; }
NOX_INLINE C64x1 twice(F64x1 a) { return re_twice(with_zero(a)); }
NOX_INLINE C64x1 twice(Nox64f a) { return re_twice(with_zero(a)); }
NOX_INLINE C64x1 times(C64x1 a, C64x1 b) { return complex<C64x1>(parts(a) * parts(b)); }
NOX_INLINE C64x1 over(C64x1 a, C64x1 b) { return complex<C64x1>(parts(a) / parts(b)); }

// a / b by the reciprocal of the squared magnitude, for one element at a time.
NOX_INLINE C64x1 quotient(C64x1 a, C64x1 b) {
  const F64x2 squares = parts(b) * parts(b);
  const F64x1 magnitude = F64x1{squares.v} + F64x1{high_halves(squares, squares).v};
  const C64x1 direct = times(a, re_twice(b)), crossed = times(swap_parts(a), im_twice(b));
  const C64x1 product = sub_add(direct, complex<C64x1>(negate(parts(crossed))));
  return times(product, twice(F64x1::all(1.0) / magnitude));
}
// The same for two elements, which share the division.
NOX_INLINE TwoComplex quotient(TwoComplex a, TwoComplex b) {
  const F64x2 reciprocal = F64x2::all(1.0) / (b.re * b.re + b.im * b.im);
  return {(a.re * b.re + a.im * b.im) * reciprocal, (a.im * b.re - a.re * b.im) * reciprocal};
}
NOX_INLINE TwoComplex with_zero(F64x2 a) { return {a, F64x2::zero()}; }
NOX_INLINE TwoComplex all_of(C64x1 a) {
  const F64x2 v = parts(a);
  return {low_halves(v, v), high_halves(v, v)};
}

// run(v) with v() the complex constant of a call: read once, or again for every element where a result may change it.
template <class Run>
NOX_INLINE void with_constant(const Nox64fc* value, const Nox64fc* d, Nox32u n, Run&& run) {
  if (overlap(d, n * sizeof *d, value, sizeof *value))
    run([value] { return one(value); });
  else
    run([c = one(value)] { return c; });
}

// d[i] = f(s[i]...) two at a time, unless a result changes an operand of a later one.
template <class F, class... S>
NOX_INLINE void forward_pairs(Nox64fc* d, Nox32u n, F&& f, const S*... s) {
  Nox32u i = 0;
  if ((keeps_unread(d, s, n) && ...)) {
    for (; n - i >= 2; i += 2) {
      const TwoComplex r = f(two(s + i)...);
      complex<C64x1>(low_halves(r.re, r.im)).store(d + i);
      complex<C64x1>(high_halves(r.re, r.im)).store(d + i + 1);
    }
  }
  for (; i < n; ++i) C64x1(f(one(s + i)...)).store(d + i);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void NOX_BODY(AddValue)(const Nox64f src[], Nox64f dst[], Nox64f value, Nox32u n) {
  forward(
      dst, n, [value](auto x) { return x + decltype(x)::all(value); }, src);
}
void NOX_BODY(AddValuec)(const Nox64fc src[], Nox64fc dst[], const Nox64fc* value, Nox32u n) {
  with_constant(value, dst, n, [=](auto v) {
    forward(
        dst, n, [v](C64x1 x) { return x + v(); }, src);
  });
}
void NOX_BODY(AddValuecd)(const Nox64fc src[], Nox64fc dst[], Nox64f value, Nox32u n) {
  forward(
      dst, n, [value](C64x1 x) { return with_zero(value) + x; }, src);
}
void NOX_BODY(AddValuedc)(const Nox64f src[], Nox64fc dst[], const Nox64fc* value, Nox32u n) {
  with_constant(value, dst, n, [=](auto v) {
    forward(
        dst, n, [v](F64x1 x) { return with_zero(x) + v(); }, src);
  });
}

void NOX_BODY(SubFromValue)(const Nox64f src[], Nox64f dst[], Nox64f value, Nox32u n) {
  forward(
      dst, n, [value](auto x) { return decltype(x)::all(value) - x; }, src);
}
void NOX_BODY(SubFromValuec)(const Nox64fc src[], Nox64fc dst[], const Nox64fc* value, Nox32u n) {
  with_constant(value, dst, n, [=](auto v) {
    forward(
        dst, n, [v](C64x1 x) { return v() - x; }, src);
  });
}
void NOX_BODY(SubFromValuecd)(const Nox64fc src[], Nox64fc dst[], Nox64f value, Nox32u n) {
  forward(
      dst, n, [value](C64x1 x) { return with_zero(value) - x; }, src);
}
void NOX_BODY(SubFromValuedc)(const Nox64f src[], Nox64fc dst[], const Nox64fc* value, Nox32u n) {
  with_constant(value, dst, n, [=](auto v) {
    forward(
        dst, n, [v](F64x1 x) { return v() - with_zero(x); }, src);
  });
}

void NOX_BODY(ScaleByValue)(const Nox64f src[], Nox64f dst[], Nox64f value, Nox32u n) {
  forward(
      dst, n, [value](auto x) { return x * decltype(x)::all(value); }, src);
}
void NOX_BODY(ScaleByValuec)(const Nox64fc src[], Nox64fc dst[], const Nox64fc* value, Nox32u n) {
  with_constant(value, dst, n, [=](auto v) {
    forward(
        dst, n, [v](C64x1 x) { return x * v(); }, src);
  });
}
void NOX_BODY(ScaleByValuecd)(const Nox64fc src[], Nox64fc dst[], Nox64f value, Nox32u n) {
  forward(
      dst, n, [value](C64x1 x) { return times(x, twice(value)); }, src);
}
void NOX_BODY(ScaleByValuedc)(const Nox64f src[], Nox64fc dst[], const Nox64fc* value, Nox32u n) {
  with_constant(value, dst, n, [=](auto v) {
    forward(
        dst, n, [v](F64x1 x) { return times(twice(x), v()); }, src);
  });
}

void NOX_BODY(DivideValue)(const Nox64f src[], Nox64f dst[], Nox64f value, Nox32u n) {
  forward(
      dst, n, [value](auto x) { return decltype(x)::all(value) / x; }, src);
}
void NOX_BODY(DivideValuec)(const Nox64fc src[], Nox64fc dst[], const Nox64fc* value, Nox32u n) {
  if (overlap(dst, n * sizeof *dst, value, sizeof *value))
    return forward(
        dst, n, [value](C64x1 x) { return quotient(one(value), x); }, src);
  const C64x1 constant = one(value);
  const auto step = [constant](auto x) {
    if constexpr (std::is_same_v<decltype(x), TwoComplex>)
      return quotient(all_of(constant), x);
    else
      return quotient(constant, x);
  };
  forward_pairs(dst, n, step, src);
}
void NOX_BODY(DivideValuecd)(const Nox64fc src[], Nox64fc dst[], Nox64f value, Nox32u n) {
  const auto step = [value](auto x) {
    if constexpr (std::is_same_v<decltype(x), TwoComplex>)
      return quotient(with_zero(F64x2::all(value)), x);
    else
      return quotient(with_zero(value), x);
  };
  forward_pairs(dst, n, step, src);
}
void NOX_BODY(DivideValuedc)(const Nox64f src[], Nox64fc dst[], const Nox64fc* value, Nox32u n) {
  with_constant(value, dst, n, [=](auto v) {
    forward(
        dst, n, [v](F64x1 x) { return over(v(), twice(x)); }, src);
  });
}

void NOX_BODY(AddVeccd)(const Nox64fc a[], const Nox64f b[], Nox64fc dst[], Nox32u n) {
  forward(
      dst, n, [](C64x1 x, F64x1 y) { return with_zero(y) + x; }, a, b);
}
void NOX_BODY(SubVeccd)(const Nox64fc a[], const Nox64f b[], Nox64fc dst[], Nox32u n) {
  forward(
      dst, n, [](C64x1 x, F64x1 y) { return x - with_zero(y); }, a, b);
}
void NOX_BODY(SubVecdc)(const Nox64f a[], const Nox64fc b[], Nox64fc dst[], Nox32u n) {
  forward(
      dst, n, [](F64x1 x, C64x1 y) { return with_zero(x) - y; }, a, b);
}
void NOX_BODY(MulVeccd)(const Nox64fc a[], const Nox64f b[], Nox64fc dst[], Nox32u n) {
  forward(
      dst, n, [](C64x1 x, F64x1 y) { return times(x, twice(y)); }, a, b);
}
void NOX_BODY(DivVeccd)(const Nox64fc a[], const Nox64f b[], Nox64fc dst[], Nox32u n) {
  forward(
      dst, n, [](C64x1 x, F64x1 y) { return over(x, twice(y)); }, a, b);
}
void NOX_BODY(DivVecdc)(const Nox64f a[], const Nox64fc b[], Nox64fc dst[], Nox32u n) {
  forward_pairs(
      dst, n, [](auto x, auto y) { return quotient(with_zero(x), y); }, a, b);
}
void NOX_BODY(DivVeccc)(const Nox64fc a[], const Nox64fc b[], Nox64fc dst[], Nox32u n) {
  forward_pairs(
      dst, n, [](auto x, auto y) { return quotient(x, y); }, a, b);
}
void NOX_BODY(ConjMulcc)(const Nox64fc a[], const Nox64fc b[], Nox64fc dst[], Nox32u n) {
  forward(
      dst, n, [](C64x1 x, C64x1 y) { return x * conj(y); }, a, b);
}
void NOX_BODY(MulI)(const Nox64fc src[], Nox64fc dst[], Nox32u n) {
  forward(
      dst, n, [](C64x1 x) { return swap_parts(conj(x)); }, src);
}

void NOX_BODY(Powc)(const Nox64fc a[], const Nox64fc b[], Nox64fc dst[], Nox32u n) {
  for (Nox32u i = 1; i < n; ++i) {
    _Complex double base, exponent;
    __real__ base = a[i].re;
    __imag__ base = a[i].im;
    __real__ exponent = b[i].re;
    __imag__ exponent = b[i].im;
    const _Complex double power = __builtin_cpow(base, exponent);
    dst[i] = {__real__ power, __imag__ power};
  }
}

}  // extern "C"
