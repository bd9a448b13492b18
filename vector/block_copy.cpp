// Kernels that copy bytes: forward and backward.
//
// Both directions save the outermost vectors of the source first and store them last, so that the aligned loop between
// them needs no exact ends and overlap does no harm: inside a group all loads come before the stores. Up to eight
// vectors are loaded whole before the first store, from both ends towards the middle.
#include "vector/block.hpp"
#include "vector/block_lanes.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr size_t kShort = 64;
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

// Up to eight vectors, of ranges that overlap in any way.
NOX_KERNEL NoxStatus copy_medium(Byte* d, const Byte* s, size_t n) {
  if (n <= 4 * kWide) return copy_ends<Wide, 2>(d, s, d + n, s + n);
  return copy_ends<Wide, 4>(d, s, d + n, s + n);
}

// Less than eight bytes, apart because they need more registers.
NOX_KERNEL NoxStatus copy_tiny(Byte* d, const Byte* s, size_t n) {
  if (n >= 4) return copy_ends<Chunk<4>>(d, s, d + n, s + n);
  if (n >= 2) return copy_ends<Chunk<2>>(d, s, d + n, s + n);
  if (n == 1) *d = *s;
  return noxStsNoErr;
}

// At most kShort bytes, of ranges that overlap in any way.
NOX_INLINE NoxStatus copy_short(Byte* d, const Byte* s, size_t n) {
  if (n > 2 * kWide) return copy_ends<Wide, 2>(d, s, d + n, s + n);
  if (n >= kWide) return copy_ends<Wide>(d, s, d + n, s + n);
  if (kWide > 16 && n >= 16) return copy_ends<Chunk<16>>(d, s, d + n, s + n);
  if (n >= 8) return copy_ends<Chunk<8>>(d, s, d + n, s + n);
  return copy_tiny(d, s, n);
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

// What belongs at p, by the distance between the ranges: one register less than a pointer into each.
NOX_INLINE const Byte* source_of(const Byte* p, uintptr_t distance) {
  return reinterpret_cast<const Byte*>(address(p) + distance);
}

// More than kMedium bytes, the destination below the source if they overlap. Groups begin on a line, since a group that
// straddles two takes longer from the second cache on. Once the vector behind it is loaded, the head overwrites nothing
// that is still to be read.
NOX_KERNEL NoxStatus forward_long(Byte* d, const Byte* s, size_t n) {
  Byte* last = d + n - kWide;
  const uintptr_t distance = address(s) - address(d);
  Byte* p = d + to_next_vector(d);
  const Wide head = Wide::load(s), tail = Wide::load(source_of(last, distance));
  const Wide next = Wide::load(source_of(p, distance));
  head.store(d);
  next.store_aligned(p);
  p += kWide;
  for (; address(p) & (kLine - 1); p += kWide) Wide::load(source_of(p, distance)).store_aligned(p);
  last -= kGroup;
  for (; p <= last; p += kGroup) copy_group(p, source_of(p, distance));
  last += kGroup;
  for (; p < last; p += kWide) Wide::load(source_of(p, distance)).store_aligned(p);
  tail.store(last);
  return noxStsNoErr;
}

// More than kMedium bytes, the destination above the source if they overlap: the same from the end.
NOX_KERNEL NoxStatus backward_long(Byte* d, const Byte* s, size_t n) {
  Byte* const last = d + n - kWide;
  const uintptr_t distance = address(s) - address(d);
  Byte* p = d + n - 1;
  p -= address(p) % kWide + kWide;
  const Wide head = Wide::load(s), tail = Wide::load(source_of(last, distance));
  const Wide next = Wide::load(source_of(p, distance));
  tail.store(last);
  next.store_aligned(p);
  while (address(p) & (kLine - 1)) {
    p -= kWide;
    Wide::load(source_of(p, distance)).store_aligned(p);
  }
  Byte* const first = d + kGroup;
  while (p >= first) {
    p -= kGroup;
    copy_group_down(p, source_of(p, distance));
  }
  while (p > d + kWide) {
    p -= kWide;
    Wide::load(source_of(p, distance)).store_aligned(p);
  }
  head.store(d);
  return noxStsNoErr;
}

}  // namespace

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
