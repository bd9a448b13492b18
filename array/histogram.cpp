// Histograms: counts and sums in bins, by value or by index.
//
// Four bins, or eight if there are few enough, are computed in a vector, then counted one after the other; a bin's
// place leaves the vector through memory, from where the processor takes it as it takes any address. The bin is cut to
// its range as an integer, for a value that fits none converts to the lowest one.
#include "nox/array/histogram.h"
#include "array/forward.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct Bins {
  F64x2 offset, scale;
  V128<Nox32s> top;
  NOX_INLINE __m128i of_pair(F64x2 x) const { return _mm_cvttpd_epi32(((x - offset) * scale).v); }
  template <bool Cut>
  NOX_INLINE V128<Nox32s> cut(__m128i bins) const {
    V128<Nox32s> b{bins};
    if constexpr (Cut) b = min(max(b, V128<Nox32s>::zero()), top);
    return b;
  }
};

// put(bin, i) for every element in turn.
template <bool Cut, class Put>
NOX_INLINE void each_bin(const Nox64f* s, Nox32u n, const Bins& bins, Put&& put) {
  Nox32s at[4];
  Nox32u i = 0;
  for (; n - i >= 4; i += 4) {
    const __m128i low = bins.of_pair(F64x2::load(s + i)), high = bins.of_pair(F64x2::load(s + i + 2));
    bins.cut<Cut>(_mm_unpacklo_epi64(low, high)).store(at);
    for (Nox32u j = 0; j < 4; ++j) put(at[j], i + j);
  }
  for (; i < n; ++i) {
    bins.cut<Cut>(bins.of_pair({F64x1::load(s + i).v})).store(at);
    put(at[0], i);
  }
}

// The same where a bin's number fits 16 bits: eight are cut at once, the first cut being that to 16 bits.
template <class Put>
NOX_INLINE void each_narrow_bin(const Nox64f* s, Nox32u n, const Bins& bins, Put&& put) {
  const V128<Nox16s> top = V128<Nox16s>::all(static_cast<Nox16s>(_mm_cvtsi128_si32(bins.top.v)));
  Nox16u at[8];
  Nox32u i = 0;
  for (; n - i >= 8; i += 8) {
    const auto four = [&](Nox32u k) {
      return _mm_unpacklo_epi64(bins.of_pair(F64x2::load(s + i + k)), bins.of_pair(F64x2::load(s + i + k + 2)));
    };
    const V128<Nox16s> b = {_mm_packs_epi32(four(0), four(4))};
    _mm_storeu_si128(reinterpret_cast<__m128i*>(at), min(max(b, V128<Nox16s>::zero()), top).v);
#pragma GCC unroll 8
    for (Nox32u j = 0; j < 8; ++j) put(at[j], i + j);
  }
  each_bin<true>(s + i, n - i, bins, [&](Nox32s bin, Nox32u j) { put(bin, i + j); });
}

template <class Put>
NOX_INLINE void histogram(const Nox64f* s, Nox64f scale, Nox64f offset, Nox32s count, Nox32u n, Put&& put) {
  const Bins bins = {F64x2::all(offset), F64x2::all(scale), V128<Nox32s>::all(count - 1)};
  if (count >= 1 && count <= 32768)
    each_narrow_bin(s, n, bins, put);
  else if (count >= 1)
    each_bin<true>(s, n, bins, put);
  else
    each_bin<false>(s, n, bins, put);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void NOX_BODY(HistogramCount)(const Nox64f src[], Nox64f scale, Nox64f offset, Nox32u bins[], Nox32s binCount,
                              Nox32u n) {
  histogram(src, scale, offset, binCount, n, [bins](Nox32s bin, Nox32u) { ++bins[bin]; });
}
void NOX_BODY(HistogramSum)(const Nox64f src[], Nox64f scale, Nox64f offset, Nox64f bins[], Nox32s binCount, Nox32u n) {
  histogram(src, scale, offset, binCount, n, [bins, src](Nox32s bin, Nox32u i) { bins[bin] += src[i]; });
}
void NOX_BODY(HistoCount)(const Nox32u indexes[], Nox32u bins[], Nox32u n) {
#pragma GCC unroll 4
  for (Nox32u i = 0; i < n; ++i) ++bins[indexes[i]];
}
void NOX_BODY(HistoSum)(const Nox32u indexes[], const Nox64f values[], Nox64f sums[], Nox32u n) {
#pragma GCC unroll 4
  for (Nox32u i = 0; i < n; ++i) sums[indexes[i]] += values[i];
}

}  // extern "C"
