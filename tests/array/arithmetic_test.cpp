// Arithmetic with values and mixed operands, and signs: the scalar loop's results in every layout, the plain and the
// index form.
#include <complex>

#include "array/layout.hpp"

namespace {

using layout::get;
using layout::put;
using Real = Nox64f;
using Complex = Nox64fc;

Complex operator+(Complex a, Complex b) { return {a.re + b.re, a.im + b.im}; }
Complex operator-(Complex a, Complex b) { return {a.re - b.re, a.im - b.im}; }
Complex operator*(Complex a, Complex b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
Complex operator/(Complex a, Complex b) {
  const Real r = 1.0 / (b.re * b.re + b.im * b.im);
  return {(a.re * b.re + a.im * b.im) * r, (a.im * b.re - a.re * b.im) * r};
}
Complex with_zero(Real a) { return {a, 0.0}; }

// d[i] = f(a[i], b[i])
template <class A, class B, class D, class F>
void two(void (*plain)(const A*, const B*, D*, Nox32u), void (*index)(const A*, int, const B*, int, D*, int, Nox32u),
         F f) {
  const auto loop = [f](const A* a, const B* b, D* d, Nox32u n) {
    for (Nox32u i = 0; i < n; ++i) put(d + i, D(f(get(a + i), get(b + i))));
  };
  layout::check<A, B, D>([=](A* a, B* b, D* d, Nox32u n) { kit::call(plain, a, b, d, n); }, loop);
  layout::check<A, B, D>([=](A* a, B* b, D* d, Nox32u n) { kit::call(index, a - 3, 3, b + 5, -5, d - 1, 1, n); }, loop);
}
// d[i] = f(a[i], d[i])
template <class A, class D, class F>
void one(void (*plain)(const A*, D*, Nox32u), void (*index)(const A*, int, D*, int, Nox32u), F f) {
  const auto loop = [f](const A* a, const A*, D* d, Nox32u n) {
    for (Nox32u i = 0; i < n; ++i) put(d + i, D(f(get(a + i), get(d + i))));
  };
  layout::check<A, A, D>([=](A* a, A*, D* d, Nox32u n) { kit::call(plain, a, d, n); }, loop);
  layout::check<A, A, D>([=](A* a, A*, D* d, Nox32u n) { kit::call(index, a - 3, 3, d + 2, -2, n); }, loop);
}
// d[i] = f(a[i], value), the value real
template <class A, class D, class F>
void value(void (*plain)(const A*, D*, Real, Nox32u), void (*index)(const A*, int, D*, int, Real, Nox32u), F f) {
  for (const Real v : {1.25, -0.0, HUGE_VAL, std::nan("")}) {
    SCOPED_TRACE(v);
    const auto loop = [=](const A* a, const A*, D* d, Nox32u n) {
      for (Nox32u i = 0; i < n; ++i) put(d + i, D(f(get(a + i), v)));
    };
    layout::check<A, A, D>([=](A* a, A*, D* d, Nox32u n) { kit::call(plain, a, d, v, n); }, loop);
    layout::check<A, A, D>([=](A* a, A*, D* d, Nox32u n) { kit::call(index, a - 3, 3, d + 2, -2, v, n); }, loop);
  }
}
// d[i] = f(a[i], *value), the value complex; where the second array begins in the destination, so does the value.
template <class A, class F>
void value(void (*plain)(const A*, Complex*, const Complex*, Nox32u),
           void (*index)(const A*, int, Complex*, int, const Complex*, Nox32u), F f) {
  const auto loop = [f](const A* a, const Complex* v, Complex* d, Nox32u n) {
    for (Nox32u i = 0; i < n; ++i) put(d + i, f(get(a + i), get(v)));
  };
  using P = Complex*;
  layout::check<A, Complex, Complex>([=](A* a, P v, P d, Nox32u n) { kit::call(plain, a, d, v, n); }, loop);
  layout::check<A, Complex, Complex>([=](A* a, P v, P d, Nox32u n) { kit::call(index, a - 3, 3, d + 2, -2, v, n); },
                                     loop);
}

TEST(ArrayArithmetic, WithAValue) {
  value(AddValue, AddValue_Idx, [](Real x, Real v) { return x + v; });
  value(AddValuec, AddValuec_Idx, [](Complex x, Complex v) { return x + v; });
  value(AddValuecd, AddValuecd_Idx, [](Complex x, Real v) { return with_zero(v) + x; });
  value(AddValuedc, AddValuedc_Idx, [](Real x, Complex v) { return with_zero(x) + v; });
  value(SubFromValue, SubFromValue_Idx, [](Real x, Real v) { return v - x; });
  value(SubFromValuec, SubFromValuec_Idx, [](Complex x, Complex v) { return v - x; });
  value(SubFromValuecd, SubFromValuecd_Idx, [](Complex x, Real v) { return with_zero(v) - x; });
  value(SubFromValuedc, SubFromValuedc_Idx, [](Real x, Complex v) { return v - with_zero(x); });
  value(ScaleByValue, ScaleByValue_Idx, [](Real x, Real v) { return x * v; });
  value(ScaleByValuec, ScaleByValuec_Idx, [](Complex x, Complex v) { return x * v; });
  value(ScaleByValuecd, ScaleByValuecd_Idx, [](Complex x, Real v) { return Complex{x.re * v, x.im * v}; });
  value(ScaleByValuedc, ScaleByValuedc_Idx, [](Real x, Complex v) { return Complex{x * v.re, x * v.im}; });
  value(DivideValue, DivideValue_Idx, [](Real x, Real v) { return v / x; });
  value(DivideValuec, DivideValuec_Idx, [](Complex x, Complex v) { return v / x; });
  value(DivideValuecd, DivideValuecd_Idx, [](Complex x, Real v) { return with_zero(v) / x; });
  value(DivideValuedc, DivideValuedc_Idx, [](Real x, Complex v) { return Complex{v.re / x, v.im / x}; });
}

TEST(ArrayArithmetic, OfTwoArrays) {
  two(AddVeccd, AddVeccd_Idx, [](Complex x, Real y) { return with_zero(y) + x; });
  two(SubVeccd, SubVeccd_Idx, [](Complex x, Real y) { return x - with_zero(y); });
  two(SubVecdc, SubVecdc_Idx, [](Real x, Complex y) { return with_zero(x) - y; });
  two(MulVeccd, MulVeccd_Idx, [](Complex x, Real y) { return Complex{x.re * y, x.im * y}; });
  two(DivVeccd, DivVeccd_Idx, [](Complex x, Real y) { return Complex{x.re / y, x.im / y}; });
  two(DivVecdc, DivVecdc_Idx, [](Real x, Complex y) { return with_zero(x) / y; });
  two(DivVeccc, DivVeccc_Idx, [](Complex x, Complex y) { return x / y; });
  two(ConjMulcc, ConjMulcc_Idx, [](Complex x, Complex y) { return x * Complex{y.re, -y.im}; });
}

Real sign(Real x) { return x > 0 ? 1.0 : x < 0 ? -1.0 : 0.0; }
Real sign(Complex x) { return x.re > 0 ? 1.0 : x.re < 0 ? -1.0 : sign(x.im); }
Real by_sign(Real d, Real x) { return x == 0 ? 0.0 : x < 0 ? -d : d; }
Real by_sign(Real d, Complex x) { return x.re == 0 ? by_sign(d, x.im) : x.re < 0 ? -d : d; }
template <class X>
Complex by_sign(Complex d, X x) {
  return {by_sign(d.re, x), by_sign(d.im, x)};
}

TEST(ArrayArithmetic, Signs) {
  one(Sgndd, Sgndd_Idx, [](Real x, Real) { return sign(x); });
  one(Sgndc, Sgndc_Idx, [](Real x, Complex) { return with_zero(sign(x)); });
  one(Sgncd, Sgncd_Idx, [](Complex x, Real) { return sign(x); });
  one(Sgncc, Sgncc_Idx, [](Complex x, Complex) { return with_zero(sign(x)); });
  one(SgnMul, SgnMul_Idx, [](Real x, Real d) { return by_sign(d, x); });
  one(SgnMuldc, SgnMuldc_Idx, [](Real x, Complex d) { return by_sign(d, x); });
  one(SgnMulcd, SgnMulcd_Idx, [](Complex x, Real d) { return by_sign(d, x); });
  one(SgnMulc, SgnMulc_Idx, [](Complex x, Complex d) { return by_sign(d, x); });
  one(MulI, MulI_Idx, [](Complex x, Complex) { return Complex{-x.im, x.re}; });
}

// The first element is neither computed nor written; the others are the C library's powers.
TEST(ArrayArithmetic, PowersBeginAtTheSecondElement) {
  const Complex a[3] = {{2, 0}, {2, 1}, {-1, 0.5}}, b[3] = {{3, 0}, {0.5, -1}, {2, 0}};
  for (const Nox32u n : {0u, 1u, 3u}) {
    Complex d[3] = {{7, 8}, {7, 8}, {7, 8}};
    kit::call(Powc, a, b, d, n);
    for (Nox32u i = 0; i < 3; ++i) {
      if (i == 0 || i >= n) {
        EXPECT_EQ(d[i].re, 7);
        EXPECT_EQ(d[i].im, 8);
        continue;
      }
      const std::complex<double> power =
          std::pow(std::complex<double>(a[i].re, a[i].im), std::complex<double>(b[i].re, b[i].im));
      EXPECT_NEAR(d[i].re, power.real(), 1e-14);
      EXPECT_NEAR(d[i].im, power.imag(), 1e-14);
    }
  }
}

}  // namespace
