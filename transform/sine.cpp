// The angle is taken to the first eighth of the turn in whole numbers, so that nothing is lost there and symmetric
// entries of a table are equal bit for bit; the rest is one instruction in extended precision.
#include "transform/sine.hpp"

namespace nox {
inline namespace NOX_VARIANT {

Turn turn(Nox32u part, Nox32u whole) {
  // In eighths of a turn times `whole`: up to `whole` is the first eighth.
  const Nox64s eighth = whole;
  Nox64s at = Nox64s{8} * part;
  const bool below = at > 4 * eighth;
  if (below) at = 8 * eighth - at;
  const bool left = at > 2 * eighth;
  if (left) at = 4 * eighth - at;
  const bool steep = at > eighth;
  if (steep) at = 2 * eighth - at;
  const long double angle =
      static_cast<long double>(at) * 0.785398163397448309615660845819875721L / static_cast<long double>(eighth);
  long double cosine, sine;
  asm("fsincos" : "=t"(cosine), "=u"(sine) : "0"(angle));
  const Nox64f c = static_cast<Nox64f>(steep ? sine : cosine), s = static_cast<Nox64f>(steep ? cosine : sine);
  return {left ? -c : c, below ? -s : s};
}

}  // namespace NOX_VARIANT
}  // namespace nox
