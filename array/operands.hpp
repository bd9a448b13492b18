// Operands that are an array or a constant, to write an operation once for both; and whether arrays meet.
#pragma once
#include "array/lanes.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Whether two ranges share a byte.
NOX_INLINE bool overlap(const void* a, size_t a_bytes, const void* b, size_t b_bytes) {
  const uintptr_t p = reinterpret_cast<uintptr_t>(a), q = reinterpret_cast<uintptr_t>(b);
  return p - q < b_bytes || q - p < a_bytes;
}

// Whether writing elements 0 to k of d changes no element of s behind k, for n elements.
template <class D, class S>
NOX_INLINE bool keeps_unread(const D* d, const S* s, Nox32u n) {
  const bool behind = sizeof(D) <= sizeof(S) && reinterpret_cast<uintptr_t>(d) <= reinterpret_cast<uintptr_t>(s);
  return behind || !overlap(d, n * sizeof(D), s, n * sizeof(S));
}

// One element, at any address, as its bits.
template <class T>
NOX_INLINE T element_at(const T* p) {
  T x;
  __builtin_memcpy(&x, p, sizeof x);
  return x;
}
template <class T>
NOX_INLINE void put_element(T* p, T x) {
  __builtin_memcpy(p, &x, sizeof x);
}

template <class T>
struct Elements {
  using elem = T;
  const T* p;
  template <class V>
  NOX_INLINE V lanes(Nox32u i) const {
    return V::load(p + i);
  }
  NOX_INLINE T one(Nox32u i) const { return element_at(p + i); }
  template <class D>
  NOX_INLINE bool changed_by(const D* d, Nox32u n) const {
    return ahead_of(d, p, n);
  }
  NOX_INLINE bool meets(const void* d, size_t bytes, Nox32u n) const { return overlap(p, n * sizeof(T), d, bytes); }
};
template <class T>
struct Constant {
  using elem = T;
  T c;
  template <class V>
  NOX_INLINE V lanes(Nox32u) const {
    return V::all(c);
  }
  NOX_INLINE T one(Nox32u) const { return c; }
  template <class D>
  NOX_INLINE bool changed_by(const D*, Nox32u) const {
    return false;
  }
  NOX_INLINE bool meets(const void*, size_t, Nox32u) const { return false; }
};

}  // namespace NOX_VARIANT
}  // namespace nox
