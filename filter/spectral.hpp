// A Fourier transform laid down in a caller's work buffer for one call, and arrays of its length behind it.
//
// The buffer holds, from its first boundary on: the transform's spec, its init memory, its work memory, each rounded up
// to a boundary, then the arrays. One code serves real and complex data.
#pragma once
#include "core/drivers.hpp"
#include "transform/fft_real.hpp"
#include "transform/memory.hpp"
#include "vector/block.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The method is the low byte of an algType.
constexpr int method_of(int algType) { return algType & 0xFF; }

constexpr int log2_up(Nox64u n) {
  int order = 0;
  while ((Nox64u{1} << order) < n) ++order;
  return order;
}

// The two methods, by shorter and longer length: blocks along the longer array where it is at least three times the
// shorter, or one transform of the whole result.
struct SpectralMethod {
  bool blocks;
  int order;
  constexpr SpectralMethod(Nox64u shorter, Nox64u longer)
      : blocks(longer >= 3 * shorter), order(blocks ? log2_up(2 * shorter) + 1 : log2_up(shorter + longer - 1)) {}
};

// The transform of a kind of elements. Real data are transformed as half as many complex values, and their products
// made of these: the sizes are those of a real transform, whose spec holds the complex one's.
struct MultiplyByConjugate {
  template <class C>
  NOX_INLINE C operator()(C a, C b) const {
    return split(conj(b)) * a;
  }
};
template <class E>
struct SpectralOf;
template <>
struct SpectralOf<Nox64f> {
  static constexpr auto get_size = noxsRealFftGetSize;
  static constexpr int complex_order(int order) { return order < 2 ? 0 : order - 1; }
  // d = a * b, and a * conj(b); d may be a or b
  static NOX_INLINE void multiply(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, size_t n, const Wave& wave) {
    multiply_halves(a, b, d, n, wave);
  }
  static NOX_INLINE void multiply_conj(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, size_t n, const Wave& wave) {
    multiply_halves_conj(a, b, d, n, wave);
  }
};
template <>
struct SpectralOf<Nox64fc> {
  static constexpr auto get_size = noxsCplxFftGetSize;
  static constexpr int complex_order(int order) { return order; }
  static NOX_INLINE void multiply_conj(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, size_t n, const Wave&) {
    map<c64>(d, static_cast<int>(n), MultiplyByConjugate{}, a, b);
  }
};

// Sizes of the transform's three memories, rounded up, by type of data and order.
struct SpectralSizes {
  Nox64u spec, init, work;
  template <class E>
  NOX_INLINE NoxStatus get(int order) {
    int bytes[3];
    const NoxStatus st =
        SpectralOf<E>::get_size(order, NOX_FFT_SCALE_INV_1_N, 0, &bytes[0], &bytes[1], &bytes[2]);
    if (st) return st;
    spec = round_to_boundary(static_cast<Nox64u>(bytes[0]));
    init = round_to_boundary(static_cast<Nox64u>(bytes[1]));
    work = round_to_boundary(static_cast<Nox64u>(bytes[2]));
    return noxStsNoErr;
  }
};

constexpr int kNoSpectralMemory = 64;  // what a call needs that transforms nothing

// The answer of a size query, for `data` bytes of arrays: 0 with any failure.
template <class E>
NOX_INLINE NoxStatus spectral_bytes(int order, Nox64u data, int* answer) {
  *answer = 0;
  SpectralSizes sizes;
  if (const NoxStatus st = sizes.get<E>(order)) return st;
  const Nox64u bytes = sizes.spec + sizes.init + sizes.work + round_to_boundary(data) + kBoundary;
  if (bytes > INT32_MAX) return noxStsFftOrderErr;
  *answer = static_cast<int>(bytes);
  return noxStsNoErr;
}

template <class E>
struct Spectral {
  size_t n;  // the transform's length
  E* data;   // the first array
  NoxFftSpec* spec;
  Nox8u* work;
  Wave wave;  // of the complex transform

  NOX_INLINE NoxStatus open(Nox8u* buffer, int order) {
    SpectralSizes sizes;
    if (const NoxStatus st = sizes.get<E>(order)) return st;
    Nox8u* const at = at_boundary(buffer);
    Nox8u* const init = at + static_cast<size_t>(sizes.spec);
    work = init + static_cast<size_t>(sizes.init);
    data = reinterpret_cast<E*>(work + static_cast<size_t>(sizes.work));
    const int complex = SpectralOf<E>::complex_order(order);
    n = (sizeof(Nox64fc) << complex) / sizeof(E);
    wave = make_wave(complex, reinterpret_cast<Nox64f*>(init));
    return init_complex(&spec, complex, NOX_FFT_SCALE_INV_1_N, 0, at, init, &wave);
  }
  NOX_INLINE NoxStatus forward(const E* s, E* x) const {
    return noxsCplxFftFwd(reinterpret_cast<const Nox64fc*>(s), pairs(x), spec, work);
  }
  // x[before + i] = s[i], zeros around, and its spectrum.
  NOX_INLINE NoxStatus load(E* x, const E* s, size_t len, size_t before = 0) const {
    zero_bytes(x, before * sizeof(E));
    copy_bytes(x + before, s, len * sizeof(E));
    zero_bytes(x + before + len, (n - before - len) * sizeof(E));
    return forward(x, x);
  }
  NOX_INLINE NoxStatus inverse(E* x) const { return noxsCplxFftInv(pairs(x), pairs(x), spec, work); }
  // d = a * b, and a * conj(b), of spectra; d may be a or b
  NOX_INLINE void multiply(const E* a, const E* b, E* d) const {
    SpectralOf<E>::multiply(pairs(a), pairs(b), pairs(d), count(), wave);
  }
  NOX_INLINE void multiply_conj(const E* a, const E* b, E* d) const {
    SpectralOf<E>::multiply_conj(pairs(a), pairs(b), pairs(d), count(), wave);
  }

 private:
  static NOX_INLINE Nox64fc* pairs(E* x) { return reinterpret_cast<Nox64fc*>(x); }
  static NOX_INLINE const Nox64fc* pairs(const E* x) { return reinterpret_cast<const Nox64fc*>(x); }
  NOX_INLINE size_t count() const { return n * sizeof(E) / sizeof(Nox64fc); }
};

}  // namespace NOX_VARIANT
}  // namespace nox
