// The rounding mode of vector arithmetic, for kernels whose results are defined for rounding to nearest.
#pragma once
#include <immintrin.h>

#include "core/variant.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// Rounds to nearest while it lives and puts the caller's control word back. What is to round so stands in a function
// that isn't inlined: the compiler knows of no bond between the control word and arithmetic.
class RoundToNearest {
 public:
  NOX_INLINE RoundToNearest() : before_(_mm_getcsr()) {
    if (before_ & kField) _mm_setcsr(before_ & ~kField);
  }
  NOX_INLINE ~RoundToNearest() {
    if (before_ & kField) _mm_setcsr(before_);
  }
  RoundToNearest(const RoundToNearest&) = delete;
  RoundToNearest& operator=(const RoundToNearest&) = delete;

 private:
  static constexpr unsigned kField = 0x6000;
  const unsigned before_;
};

}  // namespace NOX_VARIANT
}  // namespace nox
