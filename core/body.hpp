// What every body needs: its own declaration, the build's record, the checks, the lanes and the drivers.
//
// A body is `NOX_BODY(noxsName)`, a C function whose parameters the compiler compares with the public declaration.
// It checks its arguments in the fixed order, picks a path, runs kernels and returns a status.
#pragma once
#include "core/frame.hpp"
#include "core/internal.h"
#include "core/variant.hpp"

#include "bodies.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The checks of nearly every primitive: pointers in argument order, then the length.
template <class... P>
NOX_INLINE NoxStatus check(int len, const P*... pointers) {
  if ((!pointers || ...)) return noxStsNullPtrErr;
  return len < 1 ? noxStsSizeErr : noxStsNoErr;
}

}  // namespace NOX_VARIANT
}  // namespace nox
