// Sines and cosines of fractions of a turn, as the tables of the transforms need them.
#pragma once
#include "core/frame.hpp"
#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

struct Turn {
  Nox64f cosine, sine;
};

// Cosine and sine of 2*pi*part/whole, for part up to whole; exact at the quarters of the turn.
NOX_HIDDEN Turn turn(Nox32u part, Nox32u whole);

}  // namespace NOX_VARIANT
}  // namespace nox
