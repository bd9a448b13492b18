// Moves and clears of whole elements, and their type codes: what the filters do besides arithmetic.
#pragma once
#include "core/simd/f64.hpp"
#include "nox/filter.h"
#include "vector/block.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// For arrays that don't overlap; a length of 0 does nothing.
template <class E>
NOX_INLINE void copy_elements(E* d, const E* s, int len) {
  copy_bytes(d, s, static_cast<size_t>(len) * sizeof(E));
}
template <class E>
NOX_INLINE void clear_elements(E* d, int len) {
  zero_bytes(d, static_cast<size_t>(len) * sizeof(E));
}
// A delay line, or zeros for null.
template <class E>
NOX_INLINE void load_delay(E* d, const E* line, int len) {
  if (line)
    copy_elements(d, line, len);
  else
    clear_elements(d, len);
}

// Bytes of an element by its type code; 0 for the codes that have no filter.
NOX_INLINE Nox64u element_bytes(int type) {
  switch (type) {
    case NOX_TYPE_32F:
      return sizeof(Nox32f);
    case NOX_TYPE_32FC:
      return sizeof(Nox32fc);
    case NOX_TYPE_64F:
      return sizeof(Nox64f);
    case NOX_TYPE_64FC:
      return sizeof(Nox64fc);
    default:
      return 0;
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
