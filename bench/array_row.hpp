// Functions of the array layer as primitives to measure: they return nothing and count in unsigned integers.
#pragma once
#include "bench/row.hpp"

template <class P>
P operand(const Operands* o, int before) {
  if constexpr (std::is_pointer_v<P>)
    return binding::argument<P>(o, before);
  else if constexpr (std::is_same_v<P, Nox32u>)
    return static_cast<P>(before == 0 ? o->len : o->n[before - 1]);
  else if constexpr (std::is_same_v<P, Nox32s>)
    return o->n[before];
  else
    return constant<P>(o, before);
}

template <class F>
struct Bound;
template <class Result, class... P>
struct Bound<Result (*)(P...)> {
  using Destination = typename binding::First<Nox8u, binding::IsDestination, P...>::Of;
  using Source = typename binding::First<Destination, binding::IsSource, P...>::Of;
  static constexpr int kSources = (0 + ... + binding::kSource<P>);
  template <Result (*F)(P...), size_t... I>
  static NoxStatus call(const Operands* o, std::index_sequence<I...>) {
    F(operand<P>(o, before<I>())...);
    return noxStsNoErr;
  }
  template <auto F>
  static NoxStatus call(const Operands* o) {
    return call<F>(o, std::index_sequence_for<P...>());
  }

 private:
  template <class Q>
  static constexpr int kind() {
    return binding::kSource<Q> ? 0 : binding::kDestination<Q> ? 1 : std::is_same_v<Q, Nox32u> ? 2 : 3;
  }
  template <size_t I>
  static constexpr int before() {
    constexpr int kKinds[] = {kind<P>()...};
    int n = 0;
    for (size_t i = 0; i < I; ++i) n += kKinds[i] == kKinds[I];
    return n;
  }
};
template <auto F>
constexpr Primitive bound() {
  using B = Bound<decltype(F)>;
  return {B::template call<F>, element_of<typename B::Source>(), element_of<typename B::Destination>(), B::kSources};
}
#define ARRAY(name) #name, bound < &name>()

inline Nox32u length(const Operands* o) { return static_cast<Nox32u>(o->len); }
