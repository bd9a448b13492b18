// A primitive as something to measure: from the signature of an exported function alone follow the call with the
// harness's operands, the element, and the number of arrays read.
//
// `PRIMITIVE(noxsAdd_64f)` is all a table needs. A new signature takes one more specialisation of Bind.
#pragma once
#include <type_traits>

#include "bench/peers/peers.hpp"
#include "nox/nox.h"

struct Primitive {
  NoxStatus (*call)(const Operands*);
  int element;    // bytes
  bool floating;  // of doubles: results are compared by a tolerance, not bit for bit
  bool complex;
  int sources;  // arrays read besides the destination
};

namespace binding {

template <class T>
T constant(const Operands* o) {
  if constexpr (std::is_arithmetic_v<T>) {
    return static_cast<T>(o->c[0]);
  } else {
    using Part = decltype(T::re);
    return {static_cast<Part>(o->c[0]), static_cast<Part>(o->c[1])};
  }
}
template <class T>
const T* a(const Operands* o) {
  return static_cast<const T*>(o->a);
}
template <class T>
const T* b(const Operands* o) {
  return static_cast<const T*>(o->b);
}
template <class T>
T* d(const Operands* o) {
  return static_cast<T*>(o->d);
}

template <class Function, Function F>
struct Bind;
template <class T, NoxStatus (*F)(const T*, const T*, T*, int)>
struct Bind<NoxStatus (*)(const T*, const T*, T*, int), F> {
  using Element = T;
  static constexpr int kSources = 2;
  static NoxStatus call(const Operands* o) { return F(a<T>(o), b<T>(o), d<T>(o), o->len); }
};
template <class T, NoxStatus (*F)(const T*, T*, int)>
struct Bind<NoxStatus (*)(const T*, T*, int), F> {
  using Element = T;
  static constexpr int kSources = 1;
  static NoxStatus call(const Operands* o) { return F(a<T>(o), d<T>(o), o->len); }
};
template <class T, NoxStatus (*F)(const T*, T, T*, int)>
struct Bind<NoxStatus (*)(const T*, T, T*, int), F> {
  using Element = T;
  static constexpr int kSources = 1;
  static NoxStatus call(const Operands* o) { return F(a<T>(o), constant<T>(o), d<T>(o), o->len); }
};
template <class T, NoxStatus (*F)(T, T*, int)>
struct Bind<NoxStatus (*)(T, T*, int), F> {
  using Element = T;
  static constexpr int kSources = 0;
  static NoxStatus call(const Operands* o) { return F(constant<T>(o), d<T>(o), o->len); }
};
template <class T, NoxStatus (*F)(T*, int)>
struct Bind<NoxStatus (*)(T*, int), F> {
  using Element = T;
  static constexpr int kSources = 0;
  static NoxStatus call(const Operands* o) { return F(d<T>(o), o->len); }
};
// One value of a spectrum, at a frequency where nothing is simple; the rest of the destination stays as it is.
template <class T, NoxStatus (*F)(const T*, int, Nox64fc*, Nox64f)>
struct Bind<NoxStatus (*)(const T*, int, Nox64fc*, Nox64f), F> {
  using Element = T;
  static constexpr int kSources = 1;
  static NoxStatus call(const Operands* o) { return F(a<T>(o), o->len, d<Nox64fc>(o), kFrequency); }
};
// Two bands of half the length, one behind the other in the destination.
template <class T, NoxStatus (*F)(const T*, int, T*, T*)>
struct Bind<NoxStatus (*)(const T*, int, T*, T*), F> {
  using Element = T;
  static constexpr int kSources = 1;
  static NoxStatus call(const Operands* o) { return F(a<T>(o), o->len, d<T>(o), d<T>(o) + (o->len + 1) / 2); }
};
// Bit copies: lengths count whole bytes, of which the last is left out to stay inside the arrays.
template <NoxStatus (*F)(const Nox8u*, int, Nox8u*, int, int)>
struct Bind<NoxStatus (*)(const Nox8u*, int, Nox8u*, int, int), F> {
  using Element = Nox8u;
  static constexpr int kSources = 1;
  static NoxStatus call(const Operands* o) { return F(a<Nox8u>(o), 3, d<Nox8u>(o), 5, 8 * (o->len - 1)); }
};

}  // namespace binding

template <auto F>
constexpr Primitive primitive() {
  using Bound = binding::Bind<decltype(F), F>;
  using T = typename Bound::Element;
  constexpr bool kComplex = std::is_same_v<T, Nox64fc>;
  return {Bound::call, sizeof(T), kComplex || std::is_same_v<T, Nox64f>, kComplex, Bound::kSources};
}

// A macro because a template can't see the name of its argument.
#define PRIMITIVE(name) #name, primitive < &name>()
