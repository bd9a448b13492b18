// Compiled with the flags of each build: its elementary functions as a table.
#include "vmath/vmath.hpp"

#include "vmath/functions.hpp"

extern "C" {
extern const vmath::Functions NOX_BODY(vmath);
const vmath::Functions NOX_BODY(vmath) = {nox::sin_array, nox::cos_array, nox::sincos_array, nox::atan2_array,
                                          nox::log_array, nox::sin_one,   nox::cos_one,      nox::sincos_one,
                                          nox::atan2_one, nox::log_one};
}
