// The cosine transform of other lengths by a chirp transform.
//
// The real data are taken as L complex values (an even length N reordered, L = N/2; an odd one padded to 2N, L = N),
// and their Fourier transform of length L is a convolution, since n*k = (n^2 + k^2 - (n - k)^2) / 2: multiply by the
// chirp c[n] = e^(-i*pi*n^2/L), convolve with its conjugate by two transforms of a power of two, multiply by c again.
// The half-length spectrum is then recombined and turned. The inverse recombination leaves its pairs exchanged, so that
// the same forward transform serves it.
#include "core/drivers.hpp"
#include "transform/dct.hpp"
#include "transform/dct_lanes.hpp"
#include "transform/sine.hpp"
#include "vector/block.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct Multiply {
  template <class C>
  NOX_INLINE C operator()(C a, C b) const {
    return a * b;
  }
};
void multiply(Nox64fc* z, const Nox64fc* by, size_t count) { map<c64>(z, static_cast<int>(count), Multiply{}, z, by); }

void make_chirp(Nox64fc* c, Nox32u points) {
  Nox32u square = 0;  // n^2 modulo 2L
  const auto next_square = [&](Nox32u n) {
    const Nox32u at = square;
    square += 2 * n + 1;
    if (square >= 2 * points) square -= 2 * points;
    return at;
  };
  for_turns(points, 2 * points, next_square, [=](Nox32u n, Turn w) { c[n] = {w.cosine, -w.sine}; });
}

NoxStatus make_filter(Nox64fc* h, const Nox64fc* c, Nox32u points, size_t len, const NoxFftSpec* fft, Nox8u* work) {
  zero_bytes(h, len * sizeof(Nox64fc));
  h[0] = c[0];
  for (size_t n = 1; n < points; ++n) h[n] = h[len - n] = {c[n].re, -c[n].im};
  if (const NoxStatus st = noxsCplxFftFwd(h, h, fft, work)) return st;
  const Nox64f scale = 1 / static_cast<Nox64f>(static_cast<Nox32s>(len));
  for (size_t n = 0; n < len; ++n) h[n] = {h[n].re * scale, h[n].im * scale};
  return noxStsNoErr;
}

// The Fourier transform of length L of the first `given` values of z; the others are zeros not yet written.
NoxStatus transform(Nox64fc* z, size_t given, const DctSpec* spec) {
  const size_t len = static_cast<size_t>(spec->chirpFftLen);
  Nox8u* const work = reinterpret_cast<Nox8u*>(z + len);
  multiply(z, spec->pChirp, given);
  zero_bytes(z + given, (len - given) * sizeof(Nox64fc));
  if (const NoxStatus st = noxsCplxFftFwd(z, z, spec->pFftSpec, work)) return st;
  multiply(z, spec->pChirpFilter, len);
  if (const NoxStatus st = noxsCplxFftInv(z, z, spec->pFftSpec, work)) return st;
  multiply(z, spec->pChirp, DctChirp(spec->len).points);
  return noxStsNoErr;
}

NOX_INLINE void separate_first(Nox64fc* z) { *z = {z->re + z->im, z->re - z->im}; }

// rule(x, y, factor) on the pairs k and points - k, k from 1 on while they differ; leaves the new pair in x and y.
template <class Rule>
NOX_INLINE void for_mirrored(Nox64fc* z, const Nox64fc* factors, size_t points, Rule rule) {
  by_lanes(1, (points + 1) / 2, [=](auto lanes, size_t k) {
    using L = decltype(lanes);
    Split<L> x = load_parts<L>(z + k), y = load_parts_down<L>(z + points - k);
    rule(x, y, load_parts<L>(factors + k));
    store_parts(z + k, x);
    store_parts_down(z + points - k, y);
  });
}

void recombine_forward(Nox64fc* z, const Nox64fc* factors, size_t points) {
  separate_first(z);
  for_mirrored(z, factors, points, [](auto& x, auto& y, auto w) {
    const auto d = x.re - y.re, t = x.im + y.im, u = w.re * t + w.im * d, v = w.im * t - w.re * d;
    const auto re = x.re - u, im = v - x.im;
    x = {y.re + u, v - y.im};
    y = {re, im};
  });
  if (points % 2 == 0) z[points / 2].im = -z[points / 2].im;
}

void recombine_inverse(Nox64fc* z, const Nox64fc* factors, size_t points) {
  separate_first(z);
  for_mirrored(z, factors, points, [](auto& x, auto& y, auto w) {
    const auto d = x.re - y.re, t = x.im + y.im, u = w.im * d - w.re * t, v = w.re * d + w.im * t;
    const auto re = x.re + y.re, im = x.im - y.im;
    x = {re - u, v - im};
    y = {re + u, v + im};
  });
  if (points % 2 == 0) {
    Nox64fc& middle = z[points / 2];
    middle = {2 * middle.re, -2 * middle.im};
  }
}

}  // namespace

NoxStatus dct_init_chirp(DctSpec* spec, bool inverse, Nox8u* tables, Nox8u* init) {
  const DctChirp chirp(spec->len);
  const size_t len = chirp.fft_len(), points = chirp.points;
  Nox64fc* const c = reinterpret_cast<Nox64fc*>(tables);
  Nox64fc* const filter = c + points;
  Nox64fc* const factors = filter + len;
  Nox64fc* const turns = factors + points;
  NoxFftSpec* fft = nullptr;
  Nox8u* const fft_memory = reinterpret_cast<Nox8u*>(turns + points);
  if (const NoxStatus st = noxsCplxFftInit(&fft, chirp.order, NOX_FFT_SCALE_NONE, 0, fft_memory, init)) return st;
  if (fft->workSize > 0 && !init) return noxStsNullPtrErr;
  make_chirp(c, chirp.points);
  if (const NoxStatus st = make_filter(filter, c, chirp.points, len, fft, init)) return st;
  for_turns(
      chirp.points, 2 * chirp.points, [](Nox32u k) { return k; },
      [=](Nox32u k, Turn w) {
        factors[k] = inverse ? Nox64fc{w.cosine, -w.sine} : Nox64fc{0.5 * w.cosine, 0.5 - 0.5 * w.sine};
      });
  dct_make_turns(*spec, inverse, turns, points);
  spec->pChirp = c;
  spec->pChirpFilter = filter;
  spec->pCombine = factors;
  spec->pPostTwiddle = turns;
  spec->pFftSpec = fft;
  spec->chirpFftLen = static_cast<Nox32s>(len);
  spec->workSize = static_cast<Nox32s>(static_cast<Nox32u>(fft->workSize) + 16 * static_cast<Nox32u>(len));
  return noxStsNoErr;
}

NoxStatus dct_chirp_forward(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work) {
  const size_t n = static_cast<size_t>(spec->len), points = DctChirp(spec->len).points;
  Nox64fc* const z = reinterpret_cast<Nox64fc*>(work);
  if (n % 2) {
    copy_bytes(z, s, n * sizeof(Nox64f));
    z[n / 2].im = 0;
  } else {
    dct_part(s, &z->re, n);
  }
  if (const NoxStatus st = transform(z, (n + 1) / 2, spec)) return st;
  recombine_forward(z, spec->pCombine, points);
  if (n % 2)
    by_lanes(0, n, [=](auto lanes, size_t k) {
      const auto x = load_parts<decltype(lanes)>(z + k), w = load_parts<decltype(lanes)>(spec->pPostTwiddle + k);
      (x.re * w.re + x.im * w.im).store(d + k);
    });
  else
    dct_turn_out(z, spec->pPostTwiddle, d, n);
  return noxStsNoErr;
}

NoxStatus dct_chirp_inverse(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work) {
  const size_t n = static_cast<size_t>(spec->len), points = DctChirp(spec->len).points;
  Nox64fc* const z = reinterpret_cast<Nox64fc*>(work);
  if (n % 2)
    by_lanes(0, n, [=](auto lanes, size_t k) {
      const auto x = decltype(lanes)::load(s + k);
      const auto w = load_parts<decltype(lanes)>(spec->pPostTwiddle + k);
      store_parts(z + k, Split<decltype(lanes)>{x * w.re, x * w.im});
    });
  else
    dct_turn_in(s, spec->pPostTwiddle, z, n);
  recombine_inverse(z, spec->pCombine, points);
  if (const NoxStatus st = transform(z, points, spec)) return st;
  if (n % 2)
    copy_bytes(d, z, n * sizeof(Nox64f));
  else
    dct_unpart(&z->re, d, n);
  return noxStsNoErr;
}

}  // namespace NOX_VARIANT
}  // namespace nox
