// The loop of the complex helpers: a vector of elements at a time, complex ones as two vectors of parts.
//
// Sources and destinations are named by type: `const Nox64f*` is read as a vector, `const Nox64fc*` as a pair of them,
// and a result is stored likewise; TwoArrays takes a pair of parts apart, and Missing gives zeros. What is left behind
// the last whole vector goes through memory of the loop's own.
#pragma once
#include "core/body.hpp"
#include "core/simd/joined.hpp"

namespace nox {
inline namespace NOX_VARIANT {

using Reals = f64::vec;
using Pairs = Split<Reals>;

struct TwoArrays {
  Nox64f *first, *second;
};
struct Missing {};

NOX_INLINE Reals take(const Nox64f* p, size_t i) { return Reals::load(p + i); }
NOX_INLINE Pairs take(const Nox64fc* p, size_t i) { return load_joined<Reals>(&p[i].re); }
NOX_INLINE Reals take(Missing, size_t) { return Reals::zero(); }
NOX_INLINE void put(Nox64f* p, size_t i, Reals x) { x.store(p + i); }
NOX_INLINE void put(Nox64fc* p, size_t i, Pairs x) { store_joined(&p[i].re, x); }
NOX_INLINE void put(TwoArrays d, size_t i, Pairs x) {
  x.re.store(d.first + i);
  x.im.store(d.second + i);
}

// The first elements of an array in a vector's room, the rest ones: every function is quick on them.
template <class T>
struct Rest {
  T room[Reals::N];
};
NOX_INLINE void fill(Rest<Nox64f>& to, const Nox64f* p, size_t n) {
  for (size_t i = 0; i < Reals::N; ++i) to.room[i] = i < n ? p[i] : 1;
}
NOX_INLINE void fill(Rest<Nox64fc>& to, const Nox64fc* p, size_t n) {
  for (size_t i = 0; i < Reals::N; ++i) to.room[i] = i < n ? p[i] : Nox64fc{1, 1};
}
template <class T>
NOX_INLINE auto rest_of(const T* p, size_t n) {
  Rest<T> rest;
  fill(rest, p, n);
  return rest;
}
NOX_INLINE Missing rest_of(Missing, size_t) { return {}; }
template <class T>
NOX_INLINE auto take(const Rest<T>& rest, size_t) {
  return take(rest.room, 0);
}
NOX_INLINE void put_some(Nox64f* p, size_t n, Reals x) {
  Nox64f room[Reals::N];
  x.store(room);
  for (size_t i = 0; i < n; ++i) p[i] = room[i];
}
NOX_INLINE void put_some(TwoArrays d, size_t n, Pairs x) {
  put_some(d.first, n, x.re);
  put_some(d.second, n, x.im);
}
NOX_INLINE void put_some(Nox64fc* p, size_t n, Pairs x) {
  Nox64fc room[Reals::N];
  put(room, 0, x);
  for (size_t i = 0; i < n; ++i) p[i] = room[i];
}
NOX_INLINE Nox64f* behind_elements(Nox64f* p, size_t n) { return p + n; }
NOX_INLINE Nox64fc* behind_elements(Nox64fc* p, size_t n) { return p + n; }
NOX_INLINE TwoArrays behind_elements(TwoArrays d, size_t n) { return {d.first + n, d.second + n}; }
NOX_INLINE const Nox64f* behind_elements(const Nox64f* p, size_t n) { return p + n; }
NOX_INLINE const Nox64fc* behind_elements(const Nox64fc* p, size_t n) { return p + n; }
NOX_INLINE Missing behind_elements(Missing, size_t) { return {}; }

// d[i] = f(s[i]...)
template <class D, class F, class... S>
NOX_INLINE void each(D d, int len, F&& f, S... s) {
  const size_t n = static_cast<size_t>(len);
  size_t i = 0;
#pragma GCC unroll 4
  for (; n - i >= size_t(Reals::N); i += Reals::N) {
    put(d, i, f(take(s, i)...));
    in_order();
  }
  if (i < n) put_some(behind_elements(d, i), n - i, f(take(rest_of(behind_elements(s, i), n - i), 0)...));
}

}  // namespace NOX_VARIANT
}  // namespace nox
