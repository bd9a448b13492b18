// Kernels that fill bytes: one element repeated, or zeros.
//
// A fill stores unaligned vectors at both ends and aligned ones between them. Where an element doesn't reach the
// boundary by whole steps, the aligned vectors hold the element rotated, read back from what was just stored. Zeros in
// bulk are left to the processor's string store, which knows how to make them without reading a line.
#include "vector/block.hpp"
#include "vector/block_lanes.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr size_t kShort = 8 * kWide;
constexpr size_t kGroup = 4 * kWide;

#if NOX_LEVEL >= 3
NOX_INLINE Wide widen(__m128i pattern) {
  return {_mm256_insertf128_si256(_mm256_castsi128_si256(pattern), pattern, 1)};
}
#else
NOX_INLINE Wide widen(__m128i pattern) { return {pattern}; }
#endif

// The end of a fill. A caller without VEX instructions merges what it loads into the old upper half, so its next value
// would wait for this one to be done with; a register cleared by this idiom depends on nothing.
NOX_INLINE NoxStatus released(Wide v) {
#if NOX_LEVEL >= 3
  asm volatile("vpxor %x0, %x0, %x0" : "+x"(v.v));
#endif
  (void)v;
  return noxStsNoErr;
}

template <class C>
NOX_INLINE NoxStatus fill_ends(Byte* d, size_t n, C v) {
  v.store(d);
  v.store(d + n - C::kBytes);
  return noxStsNoErr;
}

// Less than eight bytes, apart because they need more registers.
NOX_KERNEL NoxStatus fill_tiny(Byte* d, size_t n, __m128i pattern) {
  const uint32_t word = static_cast<uint32_t>(_mm_cvtsi128_si32(pattern));
  if (n >= 4) return fill_ends(d, n, Chunk<4>{{word}});
  if (n >= 2) return fill_ends(d, n, Chunk<2>{{static_cast<uint16_t>(word)}});
  if (n == 1) *d = static_cast<Byte>(word);
  return noxStsNoErr;
}

// Up to eight vectors. Fewer bytes than an element don't come here but as 0.
NOX_INLINE NoxStatus fill_short(Byte* d, size_t n, __m128i pattern) {
  if (n >= kWide) {
    const Wide v = widen(pattern);
    fill_ends(d, n, v);
    if (n <= 2 * kWide) return released(v);
    fill_ends(d + kWide, n - 2 * kWide, v);
    if (n <= 4 * kWide) return released(v);
    fill_ends(d + 2 * kWide, n - 4 * kWide, v);
    fill_ends(d + 3 * kWide, n - 6 * kWide, v);
    return released(v);
  }
  if (kWide > 16 && n >= 16) return fill_ends(d, n, Chunk<16>{pattern});
  if (n >= 8) return fill_ends(d, n, Chunk<8>{pattern});
  return fill_tiny(d, n, pattern);
}

// The vector for the boundaries behind d. Where an element doesn't reach them by whole steps, it is what stands at p,
// the first of them, once two vectors are stored.
NOX_INLINE Wide in_phase(Byte* d, const Byte* p, size_t element, Wide v) {
  if ((address(d) & (element - 1)) == 0) return v;
  v.store(d + kWide);
  return Wide::load(p);
}

}  // namespace

// Groups begin on a line.
NoxStatus fill_long(void* to, size_t n, size_t element, __m128i pattern) {
  Byte* const d = bytes(to);
  const Wide unaligned = widen(pattern);
  unaligned.store(d);
  Byte* p = d + to_next_vector(d);
  const Wide v = in_phase(d, p, element, unaligned);
  Byte* last = d + n - kWide;
  unaligned.store(last);
  for (; address(p) & (kLine - 1); p += kWide) v.store_aligned(p);
  last -= kGroup;
  for (; p <= last; p += kGroup) {
    v.store_aligned(p);
    v.store_aligned(p + kWide);
    v.store_aligned(p + 2 * kWide);
    v.store_aligned(p + 3 * kWide);
  }
  last += kGroup;
  for (; p < last; p += kWide) v.store_aligned(p);
  released(unaligned);
  return released(v);
}

NoxStatus fill_streaming(void* to, size_t n, size_t element, __m128i pattern) {
  Byte* const d = bytes(to);
  const Wide unaligned = widen(pattern);
  Byte* p = d + to_next_vector(d);
  Byte* const last = d + n - kWide;
  unaligned.store(d);
  const Wide v = in_phase(d, p, element, unaligned);
  for (; p < last; p += kWide) v.stream(p);
  _mm_sfence();  // other threads see the data before the call returns
  unaligned.store(last);
  return noxStsNoErr;
}

NoxStatus fill_bytes(void* d, size_t n, size_t element, __m128i pattern) {
  if (n <= kShort) return fill_short(bytes(d), n, pattern);
  return fill_long(d, n, element, pattern);
}

NoxStatus zero_bytes(void* d, size_t n) { return fill_bytes(d, n, 1, _mm_setzero_si128()); }

NoxStatus zero_bytes_by_string(void* d, size_t n) {
  asm volatile("rep stosb" : "+D"(d), "+c"(n) : "a"(0) : "memory");
  return noxStsNoErr;
}

}  // namespace NOX_VARIANT
}  // namespace nox
