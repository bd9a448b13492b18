// The cosine transform of other lengths by a chirp transform.
//
// The real data are taken as L complex values (an even length N reordered, L = N/2; an odd one padded to 2N, L = N),
// and their Fourier transform of length L is a convolution, since n*k = (n^2 + k^2 - (n - k)^2) / 2: multiply by the
// chirp c[n] = e^(-i*pi*n^2/L), convolve with its conjugate by two transforms of a power of two, multiply by c again.
// The half-length spectrum is then recombined and turned. The inverse recombination leaves its pairs exchanged, so that
// the same forward transform serves it.
#include "core/drivers.hpp"
#include "transform/dct.hpp"
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

void recombine_forward(Nox64fc* z, const Nox64fc* factors, size_t points) {
  separate_first(z);
  size_t k = 1;
  for (; 2 * k < points; ++k) {
    const Nox64fc x = z[k], y = z[points - k];
    const Nox64f a = factors[k].re, b = factors[k].im, d = x.re - y.re, t = x.im + y.im;
    const Nox64f u = a * t + b * d, v = b * t - a * d;
    z[k] = {y.re + u, v - y.im};
    z[points - k] = {x.re - u, v - x.im};
  }
  if (2 * k == points) z[k].im = -z[k].im;
}

void recombine_inverse(Nox64fc* z, const Nox64fc* factors, size_t points) {
  separate_first(z);
  size_t k = 1;
  for (; 2 * k < points; ++k) {
    const Nox64fc x = z[k], y = z[points - k];
    const Nox64f a = factors[k].re, b = factors[k].im, d = x.re - y.re, t = x.im + y.im;
    const Nox64f u = b * d - a * t, v = a * d + b * t, re = x.re + y.re, im = x.im - y.im;
    z[k] = {re - u, v - im};
    z[points - k] = {re + u, v + im};
  }
  if (2 * k == points) z[k] = {2 * z[k].re, -2 * z[k].im};
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
    for (size_t k = 0; k < n; ++k) d[k] = z[k].re * spec->pPostTwiddle[k].re + z[k].im * spec->pPostTwiddle[k].im;
  else
    dct_turn_out(z, spec->pPostTwiddle, d, n);
  return noxStsNoErr;
}

NoxStatus dct_chirp_inverse(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work) {
  const size_t n = static_cast<size_t>(spec->len), points = DctChirp(spec->len).points;
  Nox64fc* const z = reinterpret_cast<Nox64fc*>(work);
  if (n % 2)
    for (size_t k = 0; k < n; ++k) z[k] = {s[k] * spec->pPostTwiddle[k].re, s[k] * spec->pPostTwiddle[k].im};
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
