// Add, subtract, multiply and their relatives on Nox64f and Nox64fc.
//
// One functor per operation, run by the map driver on real lanes (f64) or complex lanes (c64); a plain form and its
// in-place form differ in their arguments alone. Sums and differences of complex arrays run on their real parts.
#include "core/body.hpp"
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct Add {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return a + b;
  }
};
struct SubtractFrom {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return b - a;
  }
};
struct Multiply {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return a * b;
  }
};
struct AddProduct {
  template <class V>
  NOX_INLINE V operator()(V a, V b, V sum) const {
    return sum + a * b;
  }
};
struct Square {
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return a * a;
  }
};

// Operations with a constant of the element type.
template <class E>
struct AddConstant {
  E c;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return a + V::all(c);
  }
};
template <class E>
struct SubtractConstant {
  E c;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return a - V::all(c);
  }
};
template <class E>
struct SubtractFromConstant {
  E c;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return V::all(c) - a;
  }
};
struct MultiplyByReal {
  Nox64f c;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return a * V::all(c);
  }
};
struct MultiplyByComplex {
  Nox64fc c;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return split(V::all(c)) * a;
  }
};

template <class K, class F, class E>
NOX_INLINE NoxStatus binary(F f, const E* a, const E* b, E* d, int len) {
  if (const NoxStatus st = check(len, a, b, d)) return st;
  map<K>(d, len, f, a, b);
  return noxStsNoErr;
}
template <class K, class F, class E>
NOX_INLINE NoxStatus unary(F f, const E* a, E* d, int len) {
  if (const NoxStatus st = check(len, a, d)) return st;
  map<K>(d, len, f, a);
  return noxStsNoErr;
}
// The reciprocal of a real constant, and of a complex one by its squared magnitude.
NOX_INLINE MultiplyByReal reciprocal(Nox64f c) { return {1.0 / c}; }
NOX_INLINE MultiplyByComplex reciprocal(Nox64fc c) {
  const Nox64f r = 1.0 / (c.re * c.re + c.im * c.im);
  return {{c.re * r, -c.im * r}};
}
NOX_INLINE bool is_zero(Nox64f c) { return c == 0; }
NOX_INLINE bool is_zero(Nox64fc c) { return c.re * c.re + c.im * c.im == 0; }

template <class K, class E>
NOX_INLINE NoxStatus divide_by_constant(const E* a, E c, E* d, int len) {
  if (const NoxStatus st = check(len, a, d)) return st;
  if (is_zero(c)) return noxStsDivByZeroErr;
  map<K>(d, len, reciprocal(c), a);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsAdd_64f)(const Nox64f* a, const Nox64f* b, Nox64f* d, int len) {
  return binary<f64>(Add{}, a, b, d, len);
}
NoxStatus NOX_BODY(noxsAdd_64f_I)(const Nox64f* a, Nox64f* d, int len) { return binary<f64>(Add{}, a, d, d, len); }
NoxStatus NOX_BODY(noxsAdd_64fc)(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, int len) {
  return binary<c64>(Add{}, a, b, d, len);
}
NoxStatus NOX_BODY(noxsAdd_64fc_I)(const Nox64fc* a, Nox64fc* d, int len) { return binary<c64>(Add{}, a, d, d, len); }

NoxStatus NOX_BODY(noxsSub_64f)(const Nox64f* a, const Nox64f* b, Nox64f* d, int len) {
  return binary<f64>(SubtractFrom{}, a, b, d, len);
}
NoxStatus NOX_BODY(noxsSub_64f_I)(const Nox64f* a, Nox64f* d, int len) {
  return binary<f64>(SubtractFrom{}, a, d, d, len);
}
NoxStatus NOX_BODY(noxsSub_64fc)(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, int len) {
  return binary<c64>(SubtractFrom{}, a, b, d, len);
}
NoxStatus NOX_BODY(noxsSub_64fc_I)(const Nox64fc* a, Nox64fc* d, int len) {
  return binary<c64>(SubtractFrom{}, a, d, d, len);
}

NoxStatus NOX_BODY(noxsMul_64f)(const Nox64f* a, const Nox64f* b, Nox64f* d, int len) {
  return binary<f64>(Multiply{}, a, b, d, len);
}
NoxStatus NOX_BODY(noxsMul_64f_I)(const Nox64f* a, Nox64f* d, int len) { return binary<f64>(Multiply{}, a, d, d, len); }
NoxStatus NOX_BODY(noxsMul_64fc)(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, int len) {
  return binary<split_c64>(Multiply{}, a, b, d, len);
}
NoxStatus NOX_BODY(noxsMul_64fc_I)(const Nox64fc* a, Nox64fc* d, int len) {
  return binary<split_c64>(Multiply{}, a, d, d, len);
}

NoxStatus NOX_BODY(noxsAddProduct_64f)(const Nox64f* a, const Nox64f* b, Nox64f* d, int len) {
  if (const NoxStatus st = check(len, a, b, d)) return st;
  map<f64>(d, len, AddProduct{}, a, b, d);
  return noxStsNoErr;
}
NoxStatus NOX_BODY(noxsSqr_64f)(const Nox64f* a, Nox64f* d, int len) { return unary<f64>(Square{}, a, d, len); }
NoxStatus NOX_BODY(noxsSqr_64f_I)(Nox64f* d, int len) { return unary<f64>(Square{}, d, d, len); }
NoxStatus NOX_BODY(noxsAddProduct_64fc)(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, a, b, d)) return st;
  map<split_c64>(d, len, AddProduct{}, a, b, d);
  return noxStsNoErr;
}
NoxStatus NOX_BODY(noxsSqr_64fc)(const Nox64fc* a, Nox64fc* d, int len) {
  return unary<split_c64>(Square{}, a, d, len);
}
NoxStatus NOX_BODY(noxsSqr_64fc_I)(Nox64fc* d, int len) { return unary<split_c64>(Square{}, d, d, len); }

NoxStatus NOX_BODY(noxsAddC_64f)(const Nox64f* a, Nox64f c, Nox64f* d, int len) {
  return unary<f64>(AddConstant<Nox64f>{by_words(c)}, a, d, len);
}
NoxStatus NOX_BODY(noxsAddC_64f_I)(Nox64f c, Nox64f* d, int len) {
  return unary<f64>(AddConstant<Nox64f>{by_words(c)}, d, d, len);
}
NoxStatus NOX_BODY(noxsSubC_64f)(const Nox64f* a, Nox64f c, Nox64f* d, int len) {
  return unary<f64>(SubtractConstant<Nox64f>{by_words(c)}, a, d, len);
}
NoxStatus NOX_BODY(noxsSubC_64f_I)(Nox64f c, Nox64f* d, int len) {
  return unary<f64>(SubtractConstant<Nox64f>{by_words(c)}, d, d, len);
}
NoxStatus NOX_BODY(noxsSubCRev_64f)(const Nox64f* a, Nox64f c, Nox64f* d, int len) {
  return unary<f64>(SubtractFromConstant<Nox64f>{by_words(c)}, a, d, len);
}
NoxStatus NOX_BODY(noxsSubCRev_64f_I)(Nox64f c, Nox64f* d, int len) {
  return unary<f64>(SubtractFromConstant<Nox64f>{by_words(c)}, d, d, len);
}
NoxStatus NOX_BODY(noxsMulC_64f)(const Nox64f* a, Nox64f c, Nox64f* d, int len) {
  return unary<f64>(MultiplyByReal{by_words(c)}, a, d, len);
}
NoxStatus NOX_BODY(noxsMulC_64f_I)(Nox64f c, Nox64f* d, int len) {
  return unary<f64>(MultiplyByReal{by_words(c)}, d, d, len);
}
NoxStatus NOX_BODY(noxsDivC_64f)(const Nox64f* a, Nox64f c, Nox64f* d, int len) {
  return divide_by_constant<f64>(a, by_words(c), d, len);
}
NoxStatus NOX_BODY(noxsDivC_64f_I)(Nox64f c, Nox64f* d, int len) {
  return divide_by_constant<f64>(d, by_words(c), d, len);
}

NoxStatus NOX_BODY(noxsAddC_64fc)(const Nox64fc* a, Nox64fc c, Nox64fc* d, int len) {
  return unary<c64>(AddConstant<Nox64fc>{by_words(c)}, a, d, len);
}
NoxStatus NOX_BODY(noxsAddC_64fc_I)(Nox64fc c, Nox64fc* d, int len) {
  return unary<c64>(AddConstant<Nox64fc>{by_words(c)}, d, d, len);
}
NoxStatus NOX_BODY(noxsSubC_64fc)(const Nox64fc* a, Nox64fc c, Nox64fc* d, int len) {
  return unary<c64>(SubtractConstant<Nox64fc>{by_words(c)}, a, d, len);
}
NoxStatus NOX_BODY(noxsSubC_64fc_I)(Nox64fc c, Nox64fc* d, int len) {
  return unary<c64>(SubtractConstant<Nox64fc>{by_words(c)}, d, d, len);
}
NoxStatus NOX_BODY(noxsSubCRev_64fc)(const Nox64fc* a, Nox64fc c, Nox64fc* d, int len) {
  return unary<c64>(SubtractFromConstant<Nox64fc>{by_words(c)}, a, d, len);
}
NoxStatus NOX_BODY(noxsSubCRev_64fc_I)(Nox64fc c, Nox64fc* d, int len) {
  return unary<c64>(SubtractFromConstant<Nox64fc>{by_words(c)}, d, d, len);
}
NoxStatus NOX_BODY(noxsMulC_64fc)(const Nox64fc* a, Nox64fc c, Nox64fc* d, int len) {
  return unary<c64>(MultiplyByComplex{by_words(c)}, a, d, len);
}
NoxStatus NOX_BODY(noxsMulC_64fc_I)(Nox64fc c, Nox64fc* d, int len) {
  return unary<c64>(MultiplyByComplex{by_words(c)}, d, d, len);
}
NoxStatus NOX_BODY(noxsDivC_64fc)(const Nox64fc* a, Nox64fc c, Nox64fc* d, int len) {
  return divide_by_constant<c64>(a, by_words(c), d, len);
}
NoxStatus NOX_BODY(noxsDivC_64fc_I)(Nox64fc c, Nox64fc* d, int len) {
  return divide_by_constant<c64>(d, by_words(c), d, len);
}

}  // extern "C"
