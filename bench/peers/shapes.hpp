// Loop shapes shared by the compilers' plain loops: what a user of the library would otherwise write by hand.
//
// Each loop is a function of its own with the natural arguments and external linkage, so a measured call pays for one
// call by the platform's convention like a call of the library; a local function would get its arguments in registers.
// Sources and destination are promised not to overlap, which is the compilers' best case.
#pragma once
#include "bench/peers/peers.hpp"

#ifdef __clang__
#define NOX_PEER_NO_CLONES
#else
#define NOX_PEER_NO_CLONES __attribute__((noclone))
#endif
#define PEER_OUT_OF_LINE __attribute__((noinline)) NOX_PEER_NO_CLONES

namespace NOX_PEER_SPACE {

template <class T>
struct Pair {
  T re, im;
};
using real = double;
using complex = Pair<double>;

// The constant operand as a value of any element type.
template <class T>
struct Constant {
  static T of(const Operands* o) { return static_cast<T>(o->c[0]); }
};
template <class T>
struct Constant<Pair<T>> {
  static Pair<T> of(const Operands* o) { return {static_cast<T>(o->c[0]), static_cast<T>(o->c[1])}; }
};

template <class T>
struct Reciprocal {
  static T of(T c) { return 1 / c; }
};
template <class T>
struct Reciprocal<Pair<T>> {
  static Pair<T> of(Pair<T> c) {
    const T m = c.re * c.re + c.im * c.im;
    return {c.re / m, -c.im / m};
  }
};

template <class T>
const T* in(const void* p) {
  return static_cast<const T*>(p);
}
template <class T>
T* out(const Operands* o) {
  return static_cast<T*>(o->d);
}

template <class T, class F>
struct Shape {
  // d = f(a, b)
  PEER_OUT_OF_LINE static void zip_loop(const T* __restrict a, const T* __restrict b, T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = F::of(a[i], b[i]);
  }
  static void zip(const Operands* o) { zip_loop(in<T>(o->a), in<T>(o->b), out<T>(o), o->len); }
  // d = f(a, d)
  PEER_OUT_OF_LINE static void zip_in_place_loop(const T* __restrict a, T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = F::of(a[i], d[i]);
  }
  static void zip_in_place(const Operands* o) { zip_in_place_loop(in<T>(o->a), out<T>(o), o->len); }
  // d = f(a)
  PEER_OUT_OF_LINE static void each_loop(const T* __restrict a, T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = F::of(a[i]);
  }
  static void each(const Operands* o) { each_loop(in<T>(o->a), out<T>(o), o->len); }
  // d = f(d)
  PEER_OUT_OF_LINE static void each_in_place_loop(T* d, int len) {
    for (int i = 0; i < len; ++i) d[i] = F::of(d[i]);
  }
  static void each_in_place(const Operands* o) { each_in_place_loop(out<T>(o), o->len); }
  // d = f(a, c)
  PEER_OUT_OF_LINE static void with_loop(const T* __restrict a, T c, T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = F::of(a[i], c);
  }
  static void with(const Operands* o) { with_loop(in<T>(o->a), Constant<T>::of(o), out<T>(o), o->len); }
  // d = f(d, c)
  PEER_OUT_OF_LINE static void with_in_place_loop(T c, T* d, int len) {
    for (int i = 0; i < len; ++i) d[i] = F::of(d[i], c);
  }
  static void with_in_place(const Operands* o) { with_in_place_loop(Constant<T>::of(o), out<T>(o), o->len); }
  // d = f(a, 1 / c) and d = f(d, 1 / c), by the reciprocal as the library does it
  static void with_reciprocal(const Operands* o) {
    with_loop(in<T>(o->a), Reciprocal<T>::of(Constant<T>::of(o)), out<T>(o), o->len);
  }
  static void with_reciprocal_in_place(const Operands* o) {
    with_in_place_loop(Reciprocal<T>::of(Constant<T>::of(o)), out<T>(o), o->len);
  }
  // d = f(a, b, d)
  PEER_OUT_OF_LINE static void accumulate_loop(const T* __restrict a, const T* __restrict b, T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = F::of(a[i], b[i], d[i]);
  }
  static void accumulate(const Operands* o) { accumulate_loop(in<T>(o->a), in<T>(o->b), out<T>(o), o->len); }
  // d reversed = f(a)
  PEER_OUT_OF_LINE static void reversed_loop(const T* __restrict a, T* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = F::of(a[len - 1 - i]);
  }
  static void reversed(const Operands* o) { reversed_loop(in<T>(o->a), out<T>(o), o->len); }
  // exchange of both ends
  PEER_OUT_OF_LINE static void reverse_in_place_loop(T* d, int len) {
    for (int i = 0; i < len / 2; ++i) {
      const T t = d[i];
      d[i] = d[len - 1 - i];
      d[len - 1 - i] = t;
    }
  }
  static void reverse_in_place(const Operands* o) { reverse_in_place_loop(out<T>(o), o->len); }
  // d = c
  PEER_OUT_OF_LINE static void fill_loop(T c, T* d, int len) {
    for (int i = 0; i < len; ++i) d[i] = c;
  }
  static void fill(const Operands* o) { fill_loop(Constant<T>::of(o), out<T>(o), o->len); }
  static void zero(const Operands* o) { fill_loop(T{}, out<T>(o), o->len); }
};

}  // namespace NOX_PEER_SPACE
