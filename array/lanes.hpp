// The lanes of every element type, for functors that are written once for all of them.
#pragma once
#include "array/forward.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class T>
struct lanes_of : ints<T> {};
template <>
struct lanes_of<Nox64f> : f64 {};
template <>
struct lanes_of<Nox64fc> : c64 {};

}  // namespace NOX_VARIANT
}  // namespace nox
