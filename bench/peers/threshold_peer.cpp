// The inverse threshold as one packed division a vector, which GCC makes of this loop.
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

PEER_OUT_OF_LINE void invert_loop(const real* __restrict a, real* __restrict d, int len, real level) {
  for (int i = 0; i < len; ++i) {
    const real size = __builtin_fabs(a[i]);
    d[i] = 1 / __builtin_copysign(size > level ? size : level, a[i]);
  }
}
void invert(const Operands* o) { invert_loop(in<real>(o->a), out<real>(o), o->len, o->c[0]); }

const NamedLoop kLoops[] = {{"noxsThreshold_LTInv_64f", invert}};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(packed_reciprocal, "packed", kLoops);
