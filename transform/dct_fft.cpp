// The cosine transform of powers of two: one real Fourier transform of the reordered elements, and a turn of each
// value of its spectrum.
#include "transform/dct.hpp"

namespace nox {
inline namespace NOX_VARIANT {

NoxStatus dct_init_fft(DctSpec* spec, bool inverse, Nox8u* tables, Nox8u* init) {
  const size_t n = static_cast<size_t>(spec->len);
  Nox64fc* const turns = reinterpret_cast<Nox64fc*>(tables);
  dct_make_turns(*spec, inverse, turns, n / 2);
  spec->pPostTwiddle = turns;
  NoxFftSpec* fft = nullptr;
  const int order = log2_up(static_cast<Nox32u>(n));
  if (const NoxStatus st = noxsRealFftInit(&fft, order, NOX_FFT_SCALE_NONE, 0, tables + 8 * n, init)) return st;
  spec->pFftSpec = fft;
  spec->workSize = fft->workSize + 8 * spec->len;
  return noxStsNoErr;
}

NoxStatus dct_fft_forward(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work) {
  const size_t n = static_cast<size_t>(spec->len);
  Nox64f* const v = reinterpret_cast<Nox64f*>(work);
  dct_part(s, v, n);
  if (const NoxStatus st = noxsRealFftFwdPerm(v, v, spec->pFftSpec, work + 8 * n)) return st;
  dct_turn_out(reinterpret_cast<const Nox64fc*>(v), spec->pPostTwiddle, d, n);
  return noxStsNoErr;
}

NoxStatus dct_fft_inverse(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work) {
  const size_t n = static_cast<size_t>(spec->len);
  Nox64f* const v = reinterpret_cast<Nox64f*>(work);
  dct_turn_in(s, spec->pPostTwiddle, reinterpret_cast<Nox64fc*>(v), n);
  if (const NoxStatus st = noxsRealFftInvPerm(v, v, spec->pFftSpec, work + 8 * n)) return st;
  dct_unpart(v, d, n);
  return noxStsNoErr;
}

}  // namespace NOX_VARIANT
}  // namespace nox
