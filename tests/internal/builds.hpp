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

// For messages, in the order of the enumerations.
constexpr const char* kElementNames[] = {"8u", "8s", "16u", "16s", "32u", "32s", "64u", "64s", "64f", "64fc"};
constexpr const char* kOpNames[] = {
    "all",      "zero",          "and",           "or",         "xor",         "and_not", "add",
    "sub",      "add_saturated", "sub_saturated", "shift_left", "shift_right", "equal",   "greater",
    "less",     "less_equal",    "min",           "max",        "reverse",     "select",  "mul",
    "div",      "sqrt",          "is_nan",        "mask_bits",  "madd",        "abs",     "negate",
    "re_twice", "im_twice",      "swap_parts",    "conj",       "sub_add"};
constexpr const char* kShapeNames[] = {"map of 1", "map of 2", "map of 3", "map_reversed", "reverse_in_place", "watch"};
inline std::string describe(const LaneCase& c) {
  return std::string(kOpNames[static_cast<int>(c.op)]) + " on " + std::to_string(c.lanes) + " x " +
         kElementNames[static_cast<int>(c.element)];
}
inline std::string describe(const DriverCase& c) {
  return std::string(kShapeNames[static_cast<int>(c.shape)]) + " on " + kElementNames[static_cast<int>(c.element)];
}

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
