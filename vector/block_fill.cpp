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

template <class C>
NOX_INLINE NoxStatus fill_ends(Byte* d, size_t n, C v) {
  v.store(d);
  v.store(d + n - C::kBytes);
  return noxStsNoErr;
}

// Up to eight vectors. Fewer bytes than an element don't come here but as 0.
NOX_INLINE NoxStatus fill_short(Byte* d, size_t n, __m128i pattern) {
  if (n >= kWide) {
    const Wide v = widen(pattern);
    fill_ends(d, n, v);
    if (n <= 2 * kWide) return noxStsNoErr;
    fill_ends(d + kWide, n - 2 * kWide, v);
    if (n <= 4 * kWide) return noxStsNoErr;
    fill_ends(d + 2 * kWide, n - 4 * kWide, v);
    return fill_ends(d + 3 * kWide, n - 6 * kWide, v);
  }
  if (kWide > 16 && n >= 16) return fill_ends(d, n, Chunk<16>{pattern});
  if (n >= 8) return fill_ends(d, n, Chunk<8>{pattern});
  const uint32_t word = static_cast<uint32_t>(_mm_cvtsi128_si32(pattern));
  if (n >= 4) return fill_ends(d, n, Chunk<4>{{word}});
  if (n >= 2) return fill_ends(d, n, Chunk<2>{{static_cast<uint16_t>(word)}});
  if (n == 1) *d = static_cast<Byte>(word);
  return noxStsNoErr;
}

// What stands at p, a boundary inside the first two vectors of the fill, when the fill begins at d.
NOX_INLINE Wide in_phase(Byte* d, const Byte* p, size_t element, Wide v) {
  if ((static_cast<size_t>(p - d) & (element - 1)) == 0) return v;
  v.store(d + kWide);
  return Wide::load(p);
}

// More than kShort bytes; groups begin on a line.
NOX_KERNEL NoxStatus fill_long(Byte* d, size_t n, size_t element, __m128i pattern) {
  const Wide unaligned = widen(pattern);
  Byte* p = d + to_next_vector(d);
  Byte* const last = d + n - kWide;
  unaligned.store(d);
  unaligned.store(last);
  const Wide v = in_phase(d, p, element, unaligned);
  for (; address(p) & (kLine - 1); p += kWide) v.store_aligned(p);
  const Byte* const stop = p + (static_cast<size_t>(last - p) & ~(kGroup - 1));
  for (; p != stop; p += kGroup) {
    v.store_aligned(p);
    v.store_aligned(p + kWide);
    v.store_aligned(p + 2 * kWide);
    v.store_aligned(p + 3 * kWide);
  }
  for (; p < last; p += kWide) v.store_aligned(p);
  return noxStsNoErr;
}

// Past the caches.
NOX_KERNEL NoxStatus fill_streaming(Byte* d, size_t n, size_t element, __m128i pattern) {
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

}  // namespace

NoxStatus fill_bytes(void* d, size_t n, size_t element, __m128i pattern) {
  if (n <= kShort) return fill_short(bytes(d), n, pattern);
  return fill_long(bytes(d), n, element, pattern);
}

NoxStatus fill_bytes_large(void* d, size_t n, size_t element, __m128i pattern) {
  if (streams(n)) return fill_streaming(bytes(d), n, element, pattern);
  return fill_long(bytes(d), n, element, pattern);
}

NoxStatus zero_bytes(void* d, size_t n) { return fill_bytes(d, n, 1, _mm_setzero_si128()); }

NoxStatus zero_bytes_by_string(void* d, size_t n) {
  asm volatile("rep stosb" : "+D"(d), "+c"(n) : "a"(0) : "memory");
  return noxStsNoErr;
}

}  // namespace NOX_VARIANT
}  // namespace nox
