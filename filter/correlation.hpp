// What auto and cross correlation share: the fields of algType, the queries' types, normalisation.
#pragma once
#include "core/body.hpp"
#include "filter/elements.hpp"
#include "filter/sliding.hpp"
#include "filter/spectral.hpp"
#include "nox/filter.h"

namespace nox {
inline namespace NOX_VARIANT {

constexpr int norm_of(int algType) { return algType >> 8 & 0xFF; }

// The checks that both size queries begin with.
NOX_INLINE NoxStatus check_query(int algType) {
  return norm_of(algType) > NOX_NORM_B >> 8 || method_of(algType) > NOX_ALG_FFT ? noxStsAlgTypeErr : noxStsNoErr;
}

constexpr bool is_complex_type(int type) { return type == NOX_TYPE_32FC || type == NOX_TYPE_64FC; }

// The answer of a query that transforms, by the kind of data.
NOX_INLINE NoxStatus spectral_bytes_of(int type, int order, Nox64u data, int* answer) {
  return is_complex_type(type) ? spectral_bytes<Nox64fc>(order, data, answer)
                               : spectral_bytes<Nox64f>(order, data, answer);
}

// Normalisation works on the parts of complex elements alike.
struct Scale {
  Nox64f by;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return a * V::all(by);
  }
};
template <class E>
NOX_INLINE void scale(E* d, size_t n, Nox64f by) {
  // In halves: complex elements have more parts than an int counts.
  constexpr size_t kParts = sizeof(E) / sizeof(Nox64f);
  Nox64f* part = reinterpret_cast<Nox64f*>(d);
  for (size_t k = 0; k < kParts; ++k, part += n)
    if (n) map<f64>(part, static_cast<int>(n), Scale{by}, static_cast<const Nox64f*>(part));
}

// d[i] = d[i] / (first + step * i), both factors integers.
template <class E>
NOX_INLINE void divide_by_ramp(E* d, size_t n, Nox64f first, Nox64f step) {
  using V = f64::vec;
  constexpr size_t kParts = sizeof(E) / sizeof(Nox64f), kElements = V::N / kParts;
  Nox64f lanes[V::N];
  for (size_t k = 0; k < V::N; ++k) lanes[k] = first + step * static_cast<Nox64f>(k / kParts);
  V by = V::load(lanes);
  const V further = V::all(step * static_cast<Nox64f>(kElements));
  Nox64f* part = reinterpret_cast<Nox64f*>(d);
  size_t i = 0;
  for (; n - i >= kElements; i += kElements, part += V::N, by = by + further) (V::load(part) / by).store(part);
  for (; i < n; ++i)
    for (size_t k = 0; k < kParts; ++k) *part++ /= first + step * static_cast<Nox64f>(i);
}

}  // namespace NOX_VARIANT
}  // namespace nox
