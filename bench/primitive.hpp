// A primitive as something to measure: its call with the harness's operands, its elements, the number of arrays read.
//
// For most signatures PRIMITIVE(noxsAdd_64f) is all that a table needs: pointers to constants are the sources in their
// order, other pointers the destinations, the first int is the length, further ones the row's numbers n[], values of
// another type the constants c[]. Of the element's type being int only the forms written out below are told apart;
// everything else is a row with a lambda (row.hpp).
#pragma once
#include <type_traits>
#include <utility>

#include "bench/peers/peers.hpp"
#include "nox/nox.h"

enum class Type { kBytes, kU8, kS8, kU16, kS16, kU32, kS32, kU64, kS64, kF32, kF64 };

struct Element {
  Type type;  // of the element or of its two parts
  int size;   // bytes, of both parts
  bool complex;
  bool floating() const { return type == Type::kF32 || type == Type::kF64; }
};

template <class T>
constexpr Type type_of() {
  if (std::is_floating_point_v<T>) return sizeof(T) == 4 ? Type::kF32 : Type::kF64;
  if (!std::is_integral_v<T>) return Type::kBytes;
  const bool s = std::is_signed_v<T>;
  switch (sizeof(T)) {
    case 1:
      return s ? Type::kS8 : Type::kU8;
    case 2:
      return s ? Type::kS16 : Type::kU16;
    case 4:
      return s ? Type::kS32 : Type::kU32;
    default:
      return s ? Type::kS64 : Type::kU64;
  }
}
template <class T, class = void>
struct PartOf {
  using Part = T;
};
template <class T>
struct PartOf<T, std::void_t<decltype(T::re)>> {
  using Part = decltype(T::re);
};
template <class T>
constexpr bool kIsComplex = !std::is_same_v<typename PartOf<T>::Part, T>;
template <class T>
constexpr Element element_of() {
  return {type_of<typename PartOf<T>::Part>(), sizeof(T), kIsComplex<T>};
}

struct Primitive {
  NoxStatus (*call)(const Operands*);
  Element source, destination;
  int sources;  // arrays read besides the destination
};

// The operands of a call in the caller's types.
template <class T>
const T* first(const Operands* o) {
  return static_cast<const T*>(o->a);
}
template <class T>
const T* second(const Operands* o) {
  return static_cast<const T*>(o->b);
}
template <class T>
T* destination(const Operands* o) {
  return static_cast<T*>(o->d);
}
template <class T>
T* other(const Operands* o) {
  return static_cast<T*>(o->e);
}
template <class T>
T* work(const Operands* o, int offset = 0) {
  return reinterpret_cast<T*>(static_cast<char*>(o->work) + offset);
}
template <class T>
T constant(const Operands* o, int which = 0) {
  if constexpr (kIsComplex<T>) {
    using Part = typename PartOf<T>::Part;
    return {static_cast<Part>(o->c[0]), static_cast<Part>(o->c[1])};
  } else {
    return static_cast<T>(o->c[which]);
  }
}

namespace binding {

template <class P>
constexpr bool kSource = std::is_pointer_v<P>&& std::is_const_v<std::remove_pointer_t<P>>;
template <class P>
constexpr bool kDestination = std::is_pointer_v<P> && !std::is_const_v<std::remove_pointer_t<P>>;
template <class P>
constexpr bool kInt = std::is_same_v<P, int>;
template <class P>
constexpr bool kConstant = !std::is_pointer_v<P> && !std::is_same_v<P, int>;

// Of the first parameter of a kind, or Default.
template <class Default, template <class> class Is, class... P>
struct First {
  using Of = Default;
};
template <class P>
struct IsSource : std::bool_constant<kSource<P>> {};
template <class P>
struct IsDestination : std::bool_constant<kDestination<P>> {};
template <class Default, template <class> class Is, class Head, class... P>
struct First<Default, Is, Head, P...> {
  using Of = typename std::conditional_t<Is<Head>::value, First<std::remove_cv_t<std::remove_pointer_t<Head>>, Is>,
                                         First<Default, Is, P...>>::Of;
};

// Parameter of type P; `before` are those of its own kind in front of it.
template <class P>
P argument(const Operands* o, int before) {
  static_assert(!std::is_enum_v<P>, "a row with a lambda says which number is meant");
  if constexpr (kSource<P>)
    return static_cast<P>(before == 0 ? o->a : before == 1 ? o->b : o->taps);
  else if constexpr (kDestination<P>)
    return static_cast<P>(before == 0 ? o->d : o->e);
  else if constexpr (kInt<P>)
    return before == 0 ? o->len : o->n[before - 1];
  else
    return constant<P>(o, before);
}

template <class Function, Function F>
struct Bind;
template <class... P, NoxStatus (*F)(P...)>
struct Bind<NoxStatus (*)(P...), F> {
  using Destination = typename First<Nox8u, IsDestination, P...>::Of;
  using Source = typename First<Destination, IsSource, P...>::Of;
  static constexpr int kSources = (0 + ... + kSource<P>);
  static NoxStatus call(const Operands* o) { return call(o, std::index_sequence_for<P...>()); }

 private:
  template <size_t... I>
  static NoxStatus call(const Operands* o, std::index_sequence<I...>) {
    return F(argument<P>(o, before<I>())...);
  }
  template <size_t I>
  static constexpr int before() {
    constexpr int kKinds[] = {kSource<P> ? 0 : kDestination<P> ? 1 : kInt<P> ? 2 : 3 ...};
    int n = 0;
    for (size_t i = 0; i < I; ++i) n += kKinds[i] == kKinds[I];
    return n;
  }
};
// The element's type may be int here, so the value's place tells it from a length.
template <class T, NoxStatus (*F)(const T*, T, T*, int)>
struct Bind<NoxStatus (*)(const T*, T, T*, int), F> {
  using Source = T;
  using Destination = T;
  static constexpr int kSources = 1;
  static NoxStatus call(const Operands* o) { return F(first<T>(o), constant<T>(o), destination<T>(o), o->len); }
};
template <class T, NoxStatus (*F)(const T*, T, T*, int, int)>
struct Bind<NoxStatus (*)(const T*, T, T*, int, int), F> {
  using Source = T;
  using Destination = T;
  static constexpr int kSources = 1;
  static NoxStatus call(const Operands* o) {
    return F(first<T>(o), constant<T>(o), destination<T>(o), o->len, o->n[0]);
  }
};
template <class T, NoxStatus (*F)(T, T*, int)>
struct Bind<NoxStatus (*)(T, T*, int), F> {
  using Source = T;
  using Destination = T;
  static constexpr int kSources = 0;
  static NoxStatus call(const Operands* o) { return F(constant<T>(o), destination<T>(o), o->len); }
};
template <class T, NoxStatus (*F)(T, T*, int, int)>
struct Bind<NoxStatus (*)(T, T*, int, int), F> {
  using Source = T;
  using Destination = T;
  static constexpr int kSources = 0;
  static NoxStatus call(const Operands* o) { return F(constant<T>(o), destination<T>(o), o->len, o->n[0]); }
};

}  // namespace binding

template <auto F>
constexpr Primitive primitive() {
  using Bound = binding::Bind<decltype(F), F>;
  return {Bound::call, element_of<typename Bound::Source>(), element_of<typename Bound::Destination>(),
          Bound::kSources};
}

// A macro because a template can't see the name of its argument.
#define PRIMITIVE(name) #name, primitive < &name>()
