// The aligned allocator behind noxsMalloc_* and the one-call forms.
//
// A block is handed out at the first 64-byte boundary that leaves room for one word in front, and that word holds
// the address the system allocator returned; nothing else is kept.
#include <stdlib.h>

#include "core/frame.hpp"

namespace nox {
namespace {
constexpr uintptr_t kAlign = 64;
constexpr uintptr_t kSlack = kAlign + sizeof(void*);
}  // namespace

void* aligned_allocate(Nox64u bytes) {
  if (bytes < 1 || bytes > INT32_MAX) return nullptr;
  void* raw = malloc(static_cast<size_t>(bytes + kSlack));
  if (!raw) return nullptr;
  void** p = reinterpret_cast<void**>((reinterpret_cast<uintptr_t>(raw) + kSlack - 1) & ~(kAlign - 1));
  p[-1] = raw;
  return p;
}

void aligned_free(void* p) {
  if (p) free(static_cast<void**>(p)[-1]);
}

}  // namespace nox
