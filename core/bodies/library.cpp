// Dispatched bodies of the frame itself: the version record and the aligned allocator.
#include "core/body.hpp"

namespace nox {
inline namespace NOX_VARIANT {

// The product of length and element size is formed exactly; the allocator refuses what passes 31 bits.
template <class T>
NOX_INLINE T* allocate(int len) {
  return len < 1 ? nullptr : static_cast<T*>(aligned_allocate(static_cast<Nox64u>(len) * sizeof(T)));
}

}  // namespace NOX_VARIANT
}  // namespace nox

using nox::variant;

extern "C" {

const NoxLibraryVersion* NOX_BODY(noxsGetLibVersion)() {
  static constexpr NoxLibraryVersion kVersion = {
      2021, 9, 0, 1341297659, {variant.tag[0], variant.tag[1]}, variant.name, "2021.9.0 (r0x4ff293fb)", "May 30 2023"};
  return &kVersion;
}

Nox32s* NOX_BODY(noxsMalloc_32s)(int len) { return nox::allocate<Nox32s>(len); }
Nox32sc* NOX_BODY(noxsMalloc_32sc)(int len) { return nox::allocate<Nox32sc>(len); }
Nox64f* NOX_BODY(noxsMalloc_64f)(int len) { return nox::allocate<Nox64f>(len); }
Nox64fc* NOX_BODY(noxsMalloc_64fc)(int len) { return nox::allocate<Nox64fc>(len); }
void NOX_BODY(noxsFree)(void* ptr) { nox::aligned_free(ptr); }

}  // extern "C"
