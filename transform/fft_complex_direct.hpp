// The smallest transforms: straight-line code for each order, with and without a scale.
//
// N = R * C: transforms of R over every C-th element, side by side in lanes; twiddles; a transposition in registers;
// transforms of C, whose results come out in natural order. All is read before anything is written.
#pragma once
#include "transform/fft_complex_tables.hpp"

namespace nox {
inline namespace NOX_VARIANT {

using FftDirect = void (*)(const Nox64f* src, Nox64f* dst, Nox64f scale);

constexpr int order_of(size_t n) { return n == 1 ? 0 : 1 + order_of(n / 2); }

// exp(-2*pi*i*j*k/N), for row k and column j.
template <size_t R, size_t C>
struct DirectTwiddles {
  alignas(32) Nox64f c[R][C], s[R][C];
  constexpr DirectTwiddles() : c{}, s{} {
    const Wave wave = constant_wave(order_of(R * C));
    for (size_t k = 0; k < R; ++k)
      for (size_t j = 0; j < C; ++j) {
        c[k][j] = wave.cosine(j * k);
        s[k][j] = -wave.sine(j * k);
      }
  }
};
template <size_t R, size_t C>
constexpr DirectTwiddles<R, C> kDirectTwiddles;

NOX_INLINE void transpose(F64x2* a) {
  const F64x2 x = a[0], y = a[1];
  a[0] = low_halves(x, y);
  a[1] = high_halves(x, y);
}
#if NOX_LEVEL >= 3
NOX_INLINE void transpose(F64x4* a) {
  const F64x4 even01 = low_halves(a[0], a[1]), odd01 = high_halves(a[0], a[1]);
  const F64x4 even23 = low_halves(a[2], a[3]), odd23 = high_halves(a[2], a[3]);
  a[0] = {_mm256_permute2f128_pd(even01.v, even23.v, 0x20)};
  a[1] = {_mm256_permute2f128_pd(odd01.v, odd23.v, 0x20)};
  a[2] = {_mm256_permute2f128_pd(even01.v, even23.v, 0x31)};
  a[3] = {_mm256_permute2f128_pd(odd01.v, odd23.v, 0x31)};
}
#endif

template <bool Inverse, bool Scaled, size_t R, size_t C, class V>
void direct_grid(const Nox64f* src, Nox64f* dst, Nox64f scale) {
  constexpr size_t kLanes = V::N;
  static_assert(R % kLanes == 0 && C % kLanes == 0, "whole vectors of rows and of columns");
  Split<V> grid[C / kLanes][R];
#pragma GCC unroll 8
  for (size_t j = 0; j < C; j += kLanes) {
    Split<V>(&x)[R] = grid[j / kLanes];
#pragma GCC unroll 8
    for (size_t a = 0; a < R; ++a) x[a] = load_joined<V>(src + 2 * (C * a + j));
    dft<Inverse>(x);
#pragma GCC unroll 8
    for (size_t k = 1; k < R; ++k)
      x[k] = turned<Inverse>(x[k], load_at_boundary<V>(kDirectTwiddles<R, C>.c[k] + j),
                             load_at_boundary<V>(kDirectTwiddles<R, C>.s[k] + j));
  }
#pragma GCC unroll 8
  for (size_t k = 0; k < R; k += kLanes) {
    Split<V> x[C];
#pragma GCC unroll 8
    for (size_t j = 0; j < C; j += kLanes) {
      V re[kLanes], im[kLanes];
#pragma GCC unroll 4
      for (size_t i = 0; i < kLanes; ++i) {
        re[i] = grid[j / kLanes][k + i].re;
        im[i] = grid[j / kLanes][k + i].im;
      }
      transpose(re);
      transpose(im);
#pragma GCC unroll 4
      for (size_t i = 0; i < kLanes; ++i) x[j + i] = {re[i], im[i]};
    }
    dft<Inverse>(x);
#pragma GCC unroll 8
    for (size_t a = 0; a < C; ++a) store_joined(dst + 2 * (R * a + k), Scaled ? scaled(x[a], V::all(scale)) : x[a]);
  }
}

// Up to four elements, each in a lane of its own.
template <bool Inverse, bool Scaled, int Order>
void direct_line(const Nox64f* src, Nox64f* dst, Nox64f scale) {
  constexpr int kLength = 1 << Order;
  Split<F64x1> x[kLength];
#pragma GCC unroll 4
  for (int i = 0; i < kLength; ++i) x[i] = {F64x1::load(src + 2 * i), F64x1::load(src + 2 * i + 1)};
  if constexpr (Order > 0) dft<Inverse>(x);
#pragma GCC unroll 4
  for (int i = 0; i < kLength; ++i) {
    if constexpr (Scaled) x[i] = scaled(x[i], F64x1::all(scale));
    x[i].re.store(dst + 2 * i);
    x[i].im.store(dst + 2 * i + 1);
  }
}

template <bool Inverse, bool Scaled>
constexpr FftDirect kDirect[] = {
    direct_line<Inverse, Scaled, 0>,
    direct_line<Inverse, Scaled, 1>,
    direct_line<Inverse, Scaled, 2>,
    direct_grid<Inverse, Scaled, 4, 2, F64x2>,
    direct_grid<Inverse, Scaled, 4, 4, f64::vec>,
    direct_grid<Inverse, Scaled, 8, 4, f64::vec>,
#if NOX_LEVEL >= 3
    direct_grid<Inverse, Scaled, 8, 8, f64::vec>,
#endif
};
static_assert(sizeof(kDirect<false, false>) / sizeof(FftDirect) == fft_variant.directLast + 1,
              "a routine for each order");

}  // namespace NOX_VARIANT
}  // namespace nox
