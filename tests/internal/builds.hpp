// The tables of the builds that this processor can run, and the way from an element's code to its type.
#pragma once
#include <gtest/gtest.h>

#include <string>

#include "internal/cases.hpp"
#include "kit/variants.hpp"

extern "C" {
extern const internal::Cases w7_cases, s8_cases, p8_cases, g9_cases, h9_cases;
}

namespace internal {

inline const Cases& cases_of(const kit::Variant& v) {
  const Cases* const tables[] = {&w7_cases, &s8_cases, &p8_cases, &g9_cases, &h9_cases};
  return *tables[v.column];
}

template <class T>
struct TypeOf {
  using type = T;
};
// Calls f(TypeOf<T>{}) with the type of the elements.
template <class F>
void with_type(Element e, F&& f) {
  switch (e) {
    case Element::u8:
      return f(TypeOf<Nox8u>{});
    case Element::s8:
      return f(TypeOf<Nox8s>{});
    case Element::u16:
      return f(TypeOf<Nox16u>{});
    case Element::s16:
      return f(TypeOf<Nox16s>{});
    case Element::u32:
      return f(TypeOf<Nox32u>{});
    case Element::s32:
      return f(TypeOf<Nox32s>{});
    case Element::u64:
      return f(TypeOf<Nox64u>{});
    case Element::s64:
      return f(TypeOf<Nox64s>{});
    case Element::f64:
      return f(TypeOf<Nox64f>{});
    case Element::c64:
      return f(TypeOf<Nox64fc>{});
  }
}

}  // namespace internal
