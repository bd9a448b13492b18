// Reordering before and turning after the Fourier transform, two elements at a time; what is left goes by single lanes.
#include "transform/dct.hpp"
#include "transform/sine.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using V = F64x2;

// Real and imaginary parts of one complex value or of two; and both back.
struct One {
  F64x1 re, im;
};
struct Two {
  V re, im;
};
template <class P>
NOX_INLINE P load_parts(const Nox64fc* z) {
  if constexpr (__is_same(P, One)) {
    return {F64x1::load(&z->re), F64x1::load(&z->im)};
  } else {
    const V a = V::load(&z[0].re), b = V::load(&z[1].re);
    return {low_halves(a, b), high_halves(a, b)};
  }
}
NOX_INLINE void store_parts(Nox64fc* z, One x) {
  x.re.store(&z->re);
  x.im.store(&z->im);
}
NOX_INLINE void store_parts(Nox64fc* z, Two x) {
  low_halves(x.re, x.im).store(&z[0].re);
  high_halves(x.re, x.im).store(&z[1].re);
}

// Elements k, k + 1 and n - k, n - k - 1 of the coefficients, or only the first of each.
template <class P>
NOX_INLINE void turn_out(const Nox64fc* spectrum, const Nox64fc* turns, Nox64f* d, size_t n, size_t k) {
  using L = decltype(P::re);
  const P x = load_parts<P>(spectrum + k), w = load_parts<P>(turns + k);
  (x.re * w.re + x.im * w.im).store(d + k);
  reverse(x.re * w.im - x.im * w.re).store(d + n - k - (L::N - 1));
}
template <class P>
NOX_INLINE void turn_in(const Nox64f* s, const Nox64fc* turns, Nox64fc* spectrum, size_t n, size_t k) {
  using L = decltype(P::re);
  const P w = load_parts<P>(turns + k);
  const L low = L::load(s + k), high = reverse(L::load(s + n - k - (L::N - 1)));
  store_parts(spectrum + k, P{low * w.re + high * w.im, low * w.im - high * w.re});
}

}  // namespace

void dct_part(const Nox64f* s, Nox64f* d, size_t n) {
  size_t m = 0;
  for (; m + 2 <= n / 2; m += 2) {
    const V a = V::load(s + 2 * m), b = V::load(s + 2 * m + 2);
    low_halves(a, b).store(d + m);
    low_halves(reverse(b), reverse(a)).store(d + n - 2 - m);
  }
  if (m < n / 2) {
    d[m] = s[2 * m];
    d[n - 1 - m] = s[2 * m + 1];
  }
}

void dct_unpart(const Nox64f* s, Nox64f* d, size_t n) {
  size_t m = 0;
  for (; m + 2 <= n / 2; m += 2) {
    const V front = V::load(s + m), back = reverse(V::load(s + n - 2 - m));
    low_halves(front, back).store(d + 2 * m);
    high_halves(front, back).store(d + 2 * m + 2);
  }
  if (m < n / 2) {
    d[2 * m] = s[m];
    d[2 * m + 1] = s[n - 1 - m];
  }
}

void dct_make_turns(const DctSpec& spec, bool inverse, Nox64fc* turns, size_t count) {
  const Nox32u whole = 4 * static_cast<Nox32u>(spec.len);
  const Nox64f scale = inverse ? 0.5 * spec.scaleK : spec.scaleK;
  for_turns(
      static_cast<Nox32u>(count), whole, [](Nox32u k) { return k; },
      [=](Nox32u k, Turn w) {
        turns[k] = {scale * w.cosine, scale * w.sine};
      });
  turns[0] = {spec.scale0, 0};
}

void dct_turn_out(const Nox64fc* spectrum, const Nox64fc* turns, Nox64f* d, size_t n) {
  d[0] = spectrum[0].re * turns[0].re;
  d[n / 2] = spectrum[0].im * turns[0].re;
  size_t k = 1;
  for (; k + 2 <= n / 2; k += 2) turn_out<Two>(spectrum, turns, d, n, k);
  if (k < n / 2) turn_out<One>(spectrum, turns, d, n, k);
}

void dct_turn_in(const Nox64f* s, const Nox64fc* turns, Nox64fc* spectrum, size_t n) {
  spectrum[0] = {s[0] * turns[0].re, s[n / 2] * turns[0].re};
  size_t k = 1;
  for (; k + 2 <= n / 2; k += 2) turn_in<Two>(s, turns, spectrum, n, k);
  if (k < n / 2) turn_in<One>(s, turns, spectrum, n, k);
}

}  // namespace NOX_VARIANT
}  // namespace nox
