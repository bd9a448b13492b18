// What the index forms share: an address from a base and an element index.
//
// The sum wraps like the processor's own address arithmetic; nothing tests it.
#pragma once
#include "core/frame.hpp"
#include "plain.hpp"

namespace nox {

template <class T>
inline T* at(T* base, int index) {
  return reinterpret_cast<T*>(reinterpret_cast<uintptr_t>(base) + static_cast<uintptr_t>(index) * sizeof(T));
}

// For an array that the primitive allows to be null: null stays null.
template <class T>
inline T* at_or_null(T* base, int index) {
  return base ? at(base, index) : nullptr;
}

}  // namespace nox
