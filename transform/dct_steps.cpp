// Reordering before and turning after the Fourier transform, a vector at a time.
#include "transform/dct.hpp"
#include "transform/dct_lanes.hpp"
#include "transform/sine.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Elements k, k + 1, ... and n - k, n - k - 1, ... of the coefficients, as many as there are lanes.
template <class L>
NOX_INLINE void turn_out(const Nox64fc* spectrum, const Nox64fc* turns, Nox64f* d, size_t n, size_t k) {
  const Split<L> x = load_parts<L>(spectrum + k), w = load_parts<L>(turns + k);
  (x.re * w.re + x.im * w.im).store(d + k);
  reverse(x.re * w.im - x.im * w.re).store(d + n - k - (L::N - 1));
}
template <class L>
NOX_INLINE void turn_in(const Nox64f* s, const Nox64fc* turns, Nox64fc* spectrum, size_t n, size_t k) {
  const Split<L> w = load_parts<L>(turns + k);
  const L low = L::load(s + k), high = reverse(L::load(s + n - k - (L::N - 1)));
  store_parts(spectrum + k, Split<L>{low * w.re + high * w.im, low * w.im - high * w.re});
}

}  // namespace

void dct_part(const Nox64f* s, Nox64f* d, size_t n) {
  by_lanes(0, n / 2, [=](auto lanes, size_t m) {
    using L = decltype(lanes);
    const Split<L> pair = load_parts<L>(reinterpret_cast<const Nox64fc*>(s) + m);
    pair.re.store(d + m);
    reverse(pair.im).store(d + n - m - L::N);
  });
}

void dct_unpart(const Nox64f* s, Nox64f* d, size_t n) {
  by_lanes(0, n / 2, [=](auto lanes, size_t m) {
    using L = decltype(lanes);
    store_parts(reinterpret_cast<Nox64fc*>(d) + m, Split<L>{L::load(s + m), reverse(L::load(s + n - m - L::N))});
  });
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
  by_vectors(1, n / 2, [=](auto lanes, size_t k) { turn_out<decltype(lanes)>(spectrum, turns, d, n, k); });
}

void dct_turn_in(const Nox64f* s, const Nox64fc* turns, Nox64fc* spectrum, size_t n) {
  spectrum[0] = {s[0] * turns[0].re, s[n / 2] * turns[0].re};
  by_vectors(1, n / 2, [=](auto lanes, size_t k) { turn_in<decltype(lanes)>(s, turns, spectrum, n, k); });
}

}  // namespace NOX_VARIANT
}  // namespace nox
