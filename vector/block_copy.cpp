// Kernels that copy bytes: forward, backward, and the choice between them for long ranges.
//
// Both directions save the outermost vectors of the source first and store them last, so that the aligned loop between
// them needs no exact ends and overlap does no harm: inside a group all loads come before the stores. Up to eight
// vectors are loaded whole before the first store, from both ends towards the middle.
#include "nox/core.h"
#include "vector/block.hpp"
#include "vector/block_lanes.hpp"
#include "vector/block_method.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr size_t kShort = 2 * kWide;
constexpr size_t kMedium = 8 * kWide;
constexpr size_t kGroup = 4 * kWide;

// Count chunks forward from the starts and backward from the ends, which may overlap in the middle. The recursion puts
// all loads before all stores.
template <class C, int Count = 1>
NOX_INLINE NoxStatus copy_ends(Byte* d, const Byte* s, Byte* d_end, const Byte* s_end) {
  const auto head = C::load(s), tail = C::load(s_end - C::kBytes);
  if constexpr (Count > 1) copy_ends<C, Count - 1>(d + C::kBytes, s + C::kBytes, d_end - C::kBytes, s_end - C::kBytes);
  head.store(d);
  tail.store(d_end - C::kBytes);
  return noxStsNoErr;
}

// Two to eight vectors, of ranges that overlap in any way.
NOX_KERNEL NoxStatus copy_medium(Byte* d, const Byte* s, size_t n) {
  if (n <= 4 * kWide) return copy_ends<Wide, 2>(d, s, d + n, s + n);
  return copy_ends<Wide, 4>(d, s, d + n, s + n);
}

// At most two vectors, of ranges that overlap in any way.
NOX_INLINE NoxStatus copy_short(Byte* d, const Byte* s, size_t n) {
  if (n >= kWide) return copy_ends<Wide>(d, s, d + n, s + n);
  if (kWide > 16 && n >= 16) return copy_ends<Chunk<16>>(d, s, d + n, s + n);
  if (n >= 8) return copy_ends<Chunk<8>>(d, s, d + n, s + n);
  if (n >= 4) return copy_ends<Chunk<4>>(d, s, d + n, s + n);
  if (n >= 2) return copy_ends<Chunk<2>>(d, s, d + n, s + n);
  if (n == 1) *d = *s;
  return noxStsNoErr;
}

// Four vectors to an aligned destination.
NOX_INLINE void copy_group(Byte* d, const Byte* s) {
  const Wide v0 = Wide::load(s), v1 = Wide::load(s + kWide);
  const Wide v2 = Wide::load(s + 2 * kWide), v3 = Wide::load(s + 3 * kWide);
  v0.store_aligned(d);
  v1.store_aligned(d + kWide);
  v2.store_aligned(d + 2 * kWide);
  v3.store_aligned(d + 3 * kWide);
}

// The same from the highest vector down.
NOX_INLINE void copy_group_down(Byte* d, const Byte* s) {
  const Wide v3 = Wide::load(s + 3 * kWide), v2 = Wide::load(s + 2 * kWide);
  const Wide v1 = Wide::load(s + kWide), v0 = Wide::load(s);
  v3.store_aligned(d + 3 * kWide);
  v2.store_aligned(d + 2 * kWide);
  v1.store_aligned(d + kWide);
  v0.store_aligned(d);
}

// More than kMedium bytes, the destination below the source if they overlap. Groups begin on a line, since a group that
// straddles two takes longer from the second cache on.
NOX_KERNEL NoxStatus forward_long(Byte* d, const Byte* s, size_t n) {
  const Wide head = Wide::load(s), tail = Wide::load(s + n - kWide);
  const size_t skip = to_next_vector(d);
  Byte* p = d + skip;
  const Byte* q = s + skip;
  Byte* const last = d + n - kWide;
  for (; address(p) & (kLine - 1); p += kWide, q += kWide) Wide::load(q).store_aligned(p);
  const Byte* const stop = p + (static_cast<size_t>(last - p) & ~(kGroup - 1));
  for (; p != stop; p += kGroup, q += kGroup) copy_group(p, q);
  for (; p < last; p += kWide, q += kWide) Wide::load(q).store_aligned(p);
  tail.store(last);
  head.store(d);
  return noxStsNoErr;
}

// More than kMedium bytes, the destination above the source if they overlap: the same from the end.
NOX_KERNEL NoxStatus backward_long(Byte* d, const Byte* s, size_t n) {
  const Wide head = Wide::load(s), tail = Wide::load(s + n - kWide);
  const size_t skip = (address(d + n) - 1) % kWide + 1;
  Byte* p = d + n - skip;
  const Byte* q = s + n - skip;
  while (address(p) & (kLine - 1)) {
    p -= kWide;
    q -= kWide;
    Wide::load(q).store_aligned(p);
  }
  const Byte* const stop = p - (static_cast<size_t>(p - d) & ~(kGroup - 1));
  while (p != stop) {
    p -= kGroup;
    q -= kGroup;
    copy_group_down(p, q);
  }
  while (p > d + kWide) {
    p -= kWide;
    q -= kWide;
    Wide::load(q).store_aligned(p);
  }
  head.store(d);
  tail.store(d + n - kWide);
  return noxStsNoErr;
}

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

NOX_KERNEL NoxStatus copy_large(Byte* d, const Byte* s, size_t n) {
  if (streams(n)) return copy_streaming(d, s, n);
  if (forward_collides(address(d), address(s))) return copy_lines_backward(d, s, n);
  return copy_forward(d, s, n);
}

}  // namespace

bool streams(size_t n) {
  int cache;
  return n > kStreamAbove && noxGetMaxCacheSizeB(&cache) == noxStsNoErr && overruns_cache(n, cache);
}

NoxStatus copy_forward(void* d, const void* s, size_t n) {
  if (n <= kShort) return copy_short(bytes(d), bytes(s), n);
  if (n <= kMedium) return copy_medium(bytes(d), bytes(s), n);
  return forward_long(bytes(d), bytes(s), n);
}

NoxStatus copy_backward(void* d, const void* s, size_t n) {
  if (n <= kShort) return copy_short(bytes(d), bytes(s), n);
  if (n <= kMedium) return copy_medium(bytes(d), bytes(s), n);
  return backward_long(bytes(d), bytes(s), n);
}

NoxStatus copy_bytes(void* d, const void* s, size_t n) {
  if (n <= kShort) return copy_short(bytes(d), bytes(s), n);
  if (n <= kMedium) return copy_medium(bytes(d), bytes(s), n);
  if (n >= variant.copy_large_from) return copy_large(bytes(d), bytes(s), n);
  return forward_long(bytes(d), bytes(s), n);
}

NoxStatus move_bytes(void* d, const void* s, size_t n) {
  if (d == s) return noxStsNoErr;
  if (n <= kShort) return copy_short(bytes(d), bytes(s), n);
  if (n <= kMedium) return copy_medium(bytes(d), bytes(s), n);
  return address(s) < address(d) ? backward_long(bytes(d), bytes(s), n) : forward_long(bytes(d), bytes(s), n);
}

}  // namespace NOX_VARIANT
}  // namespace nox
