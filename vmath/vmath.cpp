// The array and single-value forms: one loop of vectors per function.
//
// What is left of an array behind its last whole vector goes through a vector filled up with ones, on which every
// function is defined and quick; nothing outside the array is touched.
#include "vmath/vmath.hpp"

#include "vmath/atan2.hpp"
#include "vmath/log.hpp"
#include "vmath/trig.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using V = f64::vec;

NOX_INLINE V load_some(const Nox64f* p, size_t n) {
  if (__builtin_expect(n >= V::N, 1)) return V::load(p);
  Nox64f lanes[V::N];
  V::all(1).store(lanes);
  for (size_t i = 0; i < n; ++i) lanes[i] = p[i];
  return V::load(lanes);
}
NOX_INLINE void store_some(V v, Nox64f* p, size_t n) {
  if (__builtin_expect(n >= V::N, 1)) return v.store(p);
  Nox64f lanes[V::N];
  v.store(lanes);
  for (size_t i = 0; i < n; ++i) p[i] = lanes[i];
}

// d[i] = f(s[i]...)
template <class F, class... S>
NOX_INLINE void each(Nox64f* d, size_t n, F&& f, const S*... s) {
  for (size_t i = 0; i < n; i += V::N) store_some(f(load_some(s + i, n - i)...), d + i, n - i);
}

template <class F, class... X>
NOX_INLINE Nox64f one(F&& f, X... x) {
  return _mm_cvtsd_f64(f(F64x2::all(x)...).v);
}

struct Sine {
  template <class L>
  NOX_INLINE L operator()(L x) const {
    return sine_lanes(x);
  }
};
struct Cosine {
  template <class L>
  NOX_INLINE L operator()(L x) const {
    return cosine_lanes(x);
  }
};
struct Atan2 {
  template <class L>
  NOX_INLINE L operator()(L y, L x) const {
    return atan2_lanes(y, x);
  }
};
struct Log {
  template <class L>
  NOX_INLINE L operator()(L x) const {
    return log_lanes(x);
  }
};

}  // namespace

void sin_array(Nox64f* d, const Nox64f* s, size_t n) { each(d, n, Sine{}, s); }
void cos_array(Nox64f* d, const Nox64f* s, size_t n) { each(d, n, Cosine{}, s); }
void sincos_array(Nox64f* sine, Nox64f* cosine, const Nox64f* s, size_t n) {
  for (size_t i = 0; i < n; i += V::N) {
    V sn, cs;
    sine_cosine_lanes(load_some(s + i, n - i), sn, cs);
    store_some(sn, sine + i, n - i);
    store_some(cs, cosine + i, n - i);
  }
}
void atan2_array(Nox64f* d, const Nox64f* y, const Nox64f* x, size_t n) { each(d, n, Atan2{}, y, x); }
void log_array(Nox64f* d, const Nox64f* s, size_t n) { each(d, n, Log{}, s); }

Nox64f sin_one(Nox64f x) { return one(Sine{}, x); }
Nox64f cos_one(Nox64f x) { return one(Cosine{}, x); }
void sincos_one(Nox64f* sine, Nox64f* cosine, Nox64f x) {
  F64x2 sn, cs;
  sine_cosine_lanes(F64x2::all(x), sn, cs);
  _mm_store_sd(sine, sn.v);
  _mm_store_sd(cosine, cs.v);
}
Nox64f atan2_one(Nox64f y, Nox64f x) { return one(Atan2{}, y, x); }
Nox64f log_one(Nox64f x) { return one(Log{}, x); }

}  // namespace NOX_VARIANT
}  // namespace nox
