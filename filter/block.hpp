// Moves and clears of whole elements inside the filters' bodies, for arrays that don't overlap.
//
// K names the kind of lanes, f64 or c64; a length of 0 does nothing. The library's memcpy and memset are not used:
// bodies call no code from outside their build.
#pragma once
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {

struct Keep {
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return a;
  }
};
// Reads its destination by the driver's form only: the value isn't used, so no load is made.
struct Clear {
  template <class V>
  NOX_INLINE V operator()(V) const {
    return V::zero();
  }
};

template <class K, class E = typename K::elem>
NOX_INLINE void copy_block(E* d, const E* s, int len) {
  map<K>(d, len, Keep{}, s);
}
template <class K, class E = typename K::elem>
NOX_INLINE void clear_block(E* d, int len) {
  map<K>(d, len, Clear{}, d);
}
template <class K, class E = typename K::elem>
NOX_INLINE void copy_reversed(E* d, const E* s, int len) {
  map_reversed<K>(d, s, len, Keep{});
}

}  // namespace NOX_VARIANT
}  // namespace nox
