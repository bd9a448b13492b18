// What every body needs: its own declaration, the build's record, the checks, the lanes and the drivers.
//
// A body is `NOX_BODY(noxsName)`, a C function whose parameters the compiler compares with the public declaration.
// It checks its arguments in the fixed order, picks a path, runs kernels and returns a status.
#pragma once
#include "core/drivers.hpp"
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

// A constant argument, read as the two words a caller may have pushed. One load of eight bytes can't be served from
// two pending pushes: it would wait until they, and all stores before them, have reached the cache.
NOX_INLINE Nox64f by_words(const Nox64f& c) {
  unsigned words[2];
  __builtin_memcpy(words, &c, sizeof words);
  keep_whole(words[0]);
  keep_whole(words[1]);
  return _mm_cvtsd_f64(_mm_castsi128_pd(_mm_set_epi32(0, 0, static_cast<int>(words[1]), static_cast<int>(words[0]))));
}
NOX_INLINE Nox64fc by_words(const Nox64fc& c) { return {by_words(c.re), by_words(c.im)}; }

}  // namespace NOX_VARIANT
}  // namespace nox
