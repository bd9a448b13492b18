// Loops that call the C library's elementary functions, which have no vector forms for this target.
#include <cmath>

#include "bench/peers/peers.hpp"

namespace NOX_PEER_SPACE {

template <double (*F)(double)>
void each(const Operands* o) {
  for (int i = 0; i < o->len; ++i) static_cast<double*>(o->d)[i] = F(static_cast<const double*>(o->a)[i]);
}
void both(const Operands* o) {
  for (int i = 0; i < o->len; ++i) {
    static_cast<double*>(o->d)[i] = std::sin(static_cast<const double*>(o->a)[i]);
    static_cast<double*>(o->e)[i] = std::cos(static_cast<const double*>(o->a)[i]);
  }
}
void arc_tangent(const Operands* o) {
  for (int i = 0; i < o->len; ++i)
    static_cast<double*>(o->d)[i] =
        std::atan2(static_cast<const double*>(o->b)[i], static_cast<const double*>(o->a)[i]);
}

const NamedLoop kLoops[] = {
    {"sine", each<std::sin>},
    {"cosine", each<std::cos>},
    {"sine and cosine", both},
    {"logarithm", each<std::log>},
    {"arc tangent", arc_tangent},
    {"single sine", each<std::sin>},
    {"single logarithm", each<std::log>},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(libm, "libm", kLoops);
