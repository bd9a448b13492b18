// Places in the caller's memory, which may stand at any address: everything laid out there starts at a boundary.
#pragma once
#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

constexpr size_t kBoundary = 64;

constexpr Nox64u round_to_boundary(Nox64u bytes) { return (bytes + kBoundary - 1) & ~Nox64u{kBoundary - 1}; }

// The first boundary at or behind p.
template <class T>
NOX_INLINE T* at_boundary(T* p) {
  return reinterpret_cast<T*>((reinterpret_cast<uintptr_t>(p) + kBoundary - 1) & ~uintptr_t{kBoundary - 1});
}

}  // namespace NOX_VARIANT
}  // namespace nox
