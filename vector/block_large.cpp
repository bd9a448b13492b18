// Large ranges: the choice of a method by count, distance and cache, and the copies that only they take.
//
// Apart from the other kernels, since a choice that asks for the cache keeps a pattern on the stack meanwhile.
#include "nox/core.h"
#include "vector/block.hpp"
#include "vector/block_lanes.hpp"
#include "vector/block_method.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Whole lines to an aligned destination, past the caches.
NOX_INLINE void stream_lines(Byte* d, const Byte* s, size_t bytes) {
  for (const Byte* const stop = d + bytes; d != stop; d += kLine, s += kLine) {
    const Wide v0 = Wide::load(s), v1 = Wide::load(s + kWide);
    v0.stream(d);
    v1.stream(d + kWide);
  }
}

NOX_KERNEL NoxStatus copy_streaming(Byte* d, const Byte* s, size_t n) {
  const size_t head = to_boundary(d, kLine), body = (n - head) & ~(kLine - 1);
  copy_forward(d, s, head);
  stream_lines(d + head, s + head, body);
  copy_forward(d + head + body, s + head + body, n - head - body);
  _mm_sfence();  // other threads see the data before the call returns
  return noxStsNoErr;
}

// Whole lines of the destination from the last to the first, with the ends around them.
NOX_KERNEL NoxStatus copy_lines_backward(Byte* d, const Byte* s, size_t n) {
  const size_t head = to_boundary(d, kLine), body = (n - head) & ~(kLine - 1);
  copy_forward(d + head + body, s + head + body, n - head - body);
  Byte* p = d + head + body;
  const Byte* q = s + head + body;
  for (const Byte* const stop = d + head; p != stop;) {
    p -= kLine;
    q -= kLine;
    const Wide v1 = Wide::load(q + kWide), v0 = Wide::load(q);
    v1.store_aligned(p + kWide);
    v0.store_aligned(p);
  }
  return copy_forward(d, s, head);
}

}  // namespace

bool streams(size_t n) {
  int cache;
  return n > kStreamAbove && noxGetMaxCacheSizeB(&cache) == noxStsNoErr && overruns_cache(n, cache);
}

NoxStatus copy_large(void* d, const void* s, size_t n) {
  if (streams(n)) return copy_streaming(bytes(d), bytes(s), n);
  if (forward_collides(address(d), address(s))) return copy_lines_backward(bytes(d), bytes(s), n);
  return copy_forward(d, s, n);
}

NoxStatus fill_bytes_large(void* d, size_t n, size_t element, __m128i pattern) {
  if (streams(n)) return fill_streaming(d, n, element, pattern);
  return fill_long(d, n, element, pattern);
}

}  // namespace NOX_VARIANT
}  // namespace nox
