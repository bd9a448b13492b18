// The direct sum: d[i] = sum over j < tapsLen of taps[j] * s[i + j], with the taps reversed and s a window of samples.
//
// Lanes are neighbouring outputs, so one tap in all lanes meets one unaligned load of samples, and several vectors of
// outputs run at a time to hide the latency of the sums. Every output starts as its first product and takes the other
// terms in order of j, whatever lane, vector or call computes it: that makes the bits independent of position.
#pragma once
#include <utility>

#include "core/simd/c64.hpp"
#include "core/simd/f64.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Vectors of outputs that run at a time. There are eight vector registers: the fused operation takes its samples from
// memory and leaves all but the tap's for sums, a separate product needs one of its own, a complex output two sums.
template <class K>
constexpr size_t kFirVectors = variant.fuses ? 7 : 6;
template <>
constexpr size_t kFirVectors<c64> = 3;

// Taps as the kernels take them, reversed.
template <class E>
struct FirTaps {
  const E *first, *end;
  const Nox64f* wide_im;  // the imaginary part of each in kFirWideLanes lanes, if kFirWideTaps<E>
};
constexpr size_t kFirWideLanes = 4;
template <class E>
constexpr bool kFirWideTaps = false;
template <>
constexpr bool kFirWideTaps<Nox64fc> = variant.fuses;

// The same address, but unknown to the compiler: what it read near p before isn't kept for reuse. Neighbouring windows
// share samples, and holding these in registers would push the sums out to memory.
template <class E>
NOX_INLINE const E* read_anew(const E* p) {
  asm("" : "+r"(p));
  return p;
}

// The same value, in a register: its load can't be repeated as a memory operand of each use.
template <class V>
NOX_INLINE V in_register(V x) {
  asm("" : "+x"(x.v));
  return x;
}

// Count vectors of outputs at d, d + N and so on, but the last one at d + last, where it may overlap the one before.
// The vectors are written out as a pack of indices: a loop over them may stay a loop, with the sums in memory.
template <class V, size_t... I>
NOX_INLINE void fir_block(std::index_sequence<I...>, const Nox64f* s, Nox64f* d, ptrdiff_t last, FirTaps<Nox64f> taps) {
  const auto place = [last](size_t k) { return k + 1 < sizeof...(I) ? static_cast<ptrdiff_t>(k * V::N) : last; };
  const Nox64f* tap = taps.first;
  V h = V::all(*tap);
  V sum[] = {h * V::load(s + place(I))...};
  while (++tap != taps.end) {
    s = read_anew(s + 1);
    h = V::all(*tap);
    ((sum[I] = madd(h, V::load(s + place(I)), sum[I])), ...);
  }
  (sum[I].store(d + place(I)), ...);
}

// The same for complex elements. The products with the taps' real parts and those with their imaginary parts are
// summed apart, both on samples as they lie in memory, and joined once at the end:
// re = sum(h.re * s.re) - sum(h.im * s.im), im = sum(h.re * s.im) + sum(h.im * s.re).
// With six sums and the real part of the tap in all lanes, one register is left. Where the operation takes a factor
// from memory it holds the samples, and the imaginary part comes from the wide taps: an aligned load, while unaligned
// ones of samples often cross a line. Otherwise the register holds the product, and the samples are read twice.
template <class C, size_t... I>
NOX_INLINE void fir_block(std::index_sequence<I...>, const Nox64fc* s, Nox64fc* d, ptrdiff_t last,
                          FirTaps<Nox64fc> taps) {
  using V = parts_of<C>;
  const auto place = [last](size_t k) { return k + 1 < sizeof...(I) ? static_cast<ptrdiff_t>(k * C::N) : last; };
  const Nox64fc* tap = taps.first;
  V h = V::all(tap->re);
  V by_re[] = {h * parts(C::load(s + place(I)))...};
  h = V::all(tap->im);
  V by_im[] = {h * parts(C::load(s + place(I)))...};
  const Nox64f* wide = taps.wide_im;
  while (++tap != taps.end) {
    s = read_anew(s + 1);
    h = V::all(tap->re);
    if constexpr (kFirWideTaps<Nox64fc>) {
      wide += kFirWideLanes;
      const auto both = [&](V& re, V& im, V x) {
        re = madd(h, x, re);
        wide = read_anew(wide);
        im = madd(V::load(wide), x, im);
      };
      (both(by_re[I], by_im[I], in_register(parts(C::load(s + place(I))))), ...);
    } else {
      ((by_re[I] = madd(h, parts(C::load(s + place(I))), by_re[I])), ...);
      const Nox64fc* const again = read_anew(s);
      h = V::all(tap->im);
      ((by_im[I] = madd(h, parts(C::load(again + place(I))), by_im[I])), ...);
    }
  }
  (sub_add(complex<C>(by_re[I]), swap_parts(complex<C>(by_im[I]))).store(d + place(I)), ...);
}

// n outputs in count vectors, count at most Count; the last vector ends with the last output, and with a count of 1
// it may begin before the first, on outputs computed already.
template <class V, size_t Count, class E>
NOX_INLINE void fir_tail(size_t count, const E* s, E* d, size_t n, FirTaps<E> taps) {
  if (count == Count)
    return fir_block<V>(std::make_index_sequence<Count>{}, s, d, static_cast<ptrdiff_t>(n) - V::N, taps);
  if constexpr (Count > 1) fir_tail<V, Count - 1>(count, s, d, n, taps);
}

// n outputs at d, which overlaps neither samples nor taps. K names the kind of lanes: f64, c64.
template <class K, class E = typename K::elem>
NOX_INLINE void fir_outputs(const E* s, E* d, size_t n, FirTaps<E> taps) {
  using V = typename K::vec;
  constexpr size_t kVectors = kFirVectors<K>;
  if constexpr (V::N > 1) {
    if (n < V::N) return fir_tail<typename K::one, V::N - 1>(n, s, d, n, taps);
  }
  size_t i = 0;
  for (; n - i >= kVectors * V::N; i += kVectors * V::N)
    fir_block<V>(std::make_index_sequence<kVectors>{}, s + i, d + i, (kVectors - 1) * V::N, taps);
  const size_t rest = n - i;
  if (rest == 0) return;
  fir_tail<V, kVectors>((rest + V::N - 1) / V::N, s + i, d + i, rest, taps);
}

}  // namespace NOX_VARIANT
}  // namespace nox
