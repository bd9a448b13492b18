// Runs of complex values by whole vectors and, where they end, by fewer lanes; for the steps of the cosine transform.
#pragma once
#include "transform/fft_complex_lanes.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Complex values, real and imaginary parts apart.
template <class L>
NOX_INLINE Split<L> load_parts(const Nox64fc* z) {
  if constexpr (L::N == 1)
    return {L::load(&z->re), L::load(&z->im)};
  else
    return load_joined<L>(&z->re);
}
template <class L>
NOX_INLINE Split<L> load_parts_down(const Nox64fc* z) {
  if constexpr (L::N == 1)
    return load_parts<L>(z);
  else
    return load_joined_down<L>(&z->re);
}
template <class L>
NOX_INLINE void store_parts(Nox64fc* z, Split<L> x) {
  if constexpr (L::N == 1) {
    x.re.store(&z->re);
    x.im.store(&z->im);
  } else {
    store_joined(&z->re, x);
  }
}
template <class L>
NOX_INLINE void store_parts_down(Nox64fc* z, Split<L> x) {
  if constexpr (L::N == 1)
    store_parts(z, x);
  else
    store_joined_down(&z->re, x);
}

// step(lanes, k) for k from `from` up to, but not, `to`: by vectors, what is left by ever fewer lanes.
template <class Step>
NOX_INLINE void by_lanes(size_t from, size_t to, Step step) {
  size_t k = from;
  for (; k + f64::vec::N <= to; k += f64::vec::N) step(f64::vec{}, k);
  if constexpr (f64::vec::N > 2)
    if (k + 2 <= to) step(F64x2{}, k), k += 2;
  if (k < to) step(F64x1{}, k);
}

// The same for a step that may be done twice, and at least a vector: the last one goes over what the one before it did.
template <class Step>
NOX_INLINE void by_vectors(size_t from, size_t to, Step step) {
  constexpr size_t kLanes = f64::vec::N;
  size_t k = from;
  for (; k + kLanes <= to; k += kLanes) step(f64::vec{}, k);
  if (k < to) step(f64::vec{}, to - kLanes);
}

}  // namespace NOX_VARIANT
}  // namespace nox
