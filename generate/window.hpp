// The driver of all windows: weights from both ends of the array toward its middle.
//
// A window is an object whose next() gives the weights of the next V::N positions, from position 0 on. Weight k
// multiplies elements k and n - 1 - k; the middle element of an odd length keeps its value.
#pragma once
#include "core/body.hpp"
#include "core/simd/f64_ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// d[i] = s[i] w[i] for V::N elements.
template <class V>
NOX_INLINE void weigh(const Nox64f* s, Nox64f* d, V w) {
  (V::load(s) * w).store(d);
}
template <class V>
NOX_INLINE void weigh(const Nox64fc* s, Nox64fc* d, V w) {
  V first, second;
  alternate(w, w, first, second);
  const V a = V::load(&s->re) * first, b = V::load(&s->re + V::N) * second;
  a.store(&d->re);
  b.store(&d->re + V::N);
}
NOX_INLINE void weigh_one(const Nox64f* s, Nox64f* d, Nox64f w) { (F64x1::load(s) * F64x1::all(w)).store(d); }
NOX_INLINE void weigh_one(const Nox64fc* s, Nox64fc* d, Nox64f w) {
  (F64x2::load(&s->re) * F64x2::all(w)).store(&d->re);
}
// Moved as bits.
NOX_INLINE void keep_one(const Nox64f* s, Nox64f* d) { F64x1::load(s).store(d); }
NOX_INLINE void keep_one(const Nox64fc* s, Nox64fc* d) { F64x2::load(&s->re).store(&d->re); }

// The source may be the destination.
template <class E, class Window>
NOX_INLINE void apply_window(const E* s, E* d, size_t n, Window window) {
  using V = decltype(window.next());
  size_t left = n / 2;
  const E* s_end = s + n;
  E* d_end = d + n;
  if (n % 2) keep_one(s + left, d + left);
  for (; left >= V::N; left -= V::N) {
    const V w = window.next();
    s_end -= V::N;
    d_end -= V::N;
    weigh(s, d, w);
    weigh(s_end, d_end, reverse(w));
    s += V::N;
    d += V::N;
  }
  if (left == 0) return;
  Nox64f w[V::N];
  window.next().store(w);
  for (size_t i = 0; i < left; ++i) {
    weigh_one(s + i, d + i, w[i]);
    weigh_one(--s_end, --d_end, w[i]);
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
