// Movers by stride, by index and by mask, and bit fields.
//
// Elements move one by one, as bits, in ascending order. A word of a bit field is made of the sign bits of comparisons
// with zero, and taken apart by testing each bit in a lane of its own.
#include "nox/array/pack.h"

#include <string.h>

#include "array/masks.hpp"
#include "core/simd/ints_wide.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// The element `stride` times k from p on; the product wraps as addresses do.
template <class T>
NOX_INLINE T* strided(T* p, Nox32u k, Nox32s stride) {
  return p + static_cast<Nox32s>(k * static_cast<Nox32u>(stride));
}
template <class T>
NOX_INLINE void pack_by_stride(Nox32u n, const T* s, Nox32s stride, T* d) {
  if (stride == 1 && !ahead_of(d, s, n)) {
    memmove(d, s, n * sizeof(T));
    return;
  }
  for (Nox32u k = 0; k < n; ++k) move_one(d + k, strided(s, k, stride));
}
template <class T>
NOX_INLINE void unpack_by_stride(Nox32u n, const T* s, T* d, Nox32s stride) {
  for (Nox32u k = 0; k < n; ++k) move_one(strided(d, k, stride), s + k);
}
template <class T>
NOX_INLINE void pack_by_index(Nox32u n, const T* s, const Nox32s* index, T* d) {
#pragma GCC unroll 4
  for (Nox32u k = 0; k < n; ++k) move_one(d + k, s + element_at(index + k));
}
template <class T>
NOX_INLINE void unpack_by_index(Nox32u n, const T* s, T* d, const Nox32s* index) {
#pragma GCC unroll 4
  for (Nox32u k = 0; k < n; ++k) move_one(d + element_at(index + k), s + k);
}
template <class T>
NOX_INLINE void unpack_by_mask(Nox32u n, const T* s, T* d, const Nox32s* mask) {
  for (Nox32u k = 0; k < n; ++k)
    if (element_at(mask + k) > 0) move_one(d + k, s++);
}

// ---- bit fields
// A bit for each of 16 elements that is zero.
template <class T>
NOX_INLINE Nox32u zeros_of(const T* s) {
  return outcomes<T>([=](Nox32u i) { return V128<T>::load(s + i) == V128<T>::zero(); }).bits();
}
template <class T>
NOX_INLINE void pack_bits(const T* s, Nox32s start, Nox32s limit, Nox32u* d, Nox32s words) {
  Nox64s base = start;
  for (Nox32s w = 0; w < words; ++w, base += 32) {
    const T* const from = s + base;
    const Nox64s count = limit - base;
    Nox32u word = 0;
    if (count >= 32)
      word = ~(zeros_of(from) | zeros_of(from + 16) << 16);
    else
      for (Nox32s b = 0; b < count; ++b) word |= Nox32u(element_at(from + b) != 0) << b;
    put_element(d + w, word);
  }
}

// Eight bits as 1 and 0 in lanes of 16 bits.
NOX_INLINE V128<Nox16s> eight(Nox32u bits) {
  const __m128i each = _mm_setr_epi16(1, 2, 4, 8, 16, 32, 64, 128);
  const __m128i set = _mm_and_si128(_mm_set1_epi16(static_cast<short>(bits & 0xFF)), each);
  return {_mm_srli_epi16(_mm_cmpeq_epi16(set, each), 15)};
}
NOX_INLINE void store_sixteen(Nox32u bits, Nox16s* d) {
  eight(bits).store(d);
  eight(bits >> 8).store(d + 8);
}
NOX_INLINE void store_sixteen(Nox32u bits, Nox8u* d) { pack<Nox8u>(eight(bits), eight(bits >> 8)).store(d); }
NOX_INLINE void store_sixteen(Nox32u bits, Nox32s* d) {
  for (int half = 0; half < 2; ++half) {
    const Two<V128<Nox32s>> words = widen(eight(bits >> 8 * half));
    words.low.store(d + 8 * half);
    words.high.store(d + 8 * half + 4);
  }
}
template <class T>
NOX_INLINE void unpack_bits(const Nox32u* s, T* d, Nox32s start, Nox32s count) {
  for (d += start; count > 0; count -= 32, d += 32) {
    const Nox32u word = element_at(s++);
    if (count >= 32) {
      store_sixteen(word, d);
      store_sixteen(word >> 16, d + 16);
    } else {
      for (Nox32s b = 0; b < count; ++b) put_element(d + b, static_cast<T>(word >> b & 1));
    }
  }
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void NOX_BODY(vbpacki)(Nox32u n, const Nox8u src[], Nox32s stride, Nox8u dst[]) { pack_by_stride(n, src, stride, dst); }
void NOX_BODY(vbpackv)(Nox32u n, const Nox8u src[], const Nox32s index[], Nox8u dst[]) {
  pack_by_index(n, src, index, dst);
}
void NOX_BODY(vbpackm)(Nox32u n, const Nox8u src[], const Nox32s mask[], Nox8u dst[]) { compress(src, dst, mask, n); }
void NOX_BODY(vbunpacki)(Nox32u n, const Nox8u src[], Nox8u dst[], Nox32s stride) {
  unpack_by_stride(n, src, dst, stride);
}
void NOX_BODY(vbunpackv)(Nox32u n, const Nox8u src[], Nox8u dst[], const Nox32s index[]) {
  unpack_by_index(n, src, dst, index);
}
void NOX_BODY(vbunpackm)(Nox32u n, const Nox8u src[], Nox8u dst[], const Nox32s mask[]) {
  unpack_by_mask(n, src, dst, mask);
}

void NOX_BODY(vsipacki)(Nox32u n, const Nox16s src[], Nox32s stride, Nox16s dst[]) {
  pack_by_stride(n, src, stride, dst);
}
void NOX_BODY(vsipackv)(Nox32u n, const Nox16s src[], const Nox32s index[], Nox16s dst[]) {
  pack_by_index(n, src, index, dst);
}
void NOX_BODY(vsipackm)(Nox32u n, const Nox16s src[], const Nox32s mask[], Nox16s dst[]) {
  compress(src, dst, mask, n);
}
void NOX_BODY(vsiunpacki)(Nox32u n, const Nox16s src[], Nox16s dst[], Nox32s stride) {
  unpack_by_stride(n, src, dst, stride);
}
void NOX_BODY(vsiunpackv)(Nox32u n, const Nox16s src[], Nox16s dst[], const Nox32s index[]) {
  unpack_by_index(n, src, dst, index);
}
void NOX_BODY(vsiunpackm)(Nox32u n, const Nox16s src[], Nox16s dst[], const Nox32s mask[]) {
  unpack_by_mask(n, src, dst, mask);
}

void NOX_BODY(vipacki)(Nox32u n, const Nox32s src[], Nox32s stride, Nox32s dst[]) {
  pack_by_stride(n, src, stride, dst);
}
void NOX_BODY(vipackv)(Nox32u n, const Nox32s src[], const Nox32s index[], Nox32s dst[]) {
  pack_by_index(n, src, index, dst);
}
void NOX_BODY(vipackm)(Nox32u n, const Nox32s src[], const Nox32s mask[], Nox32s dst[]) { compress(src, dst, mask, n); }
void NOX_BODY(viunpacki)(Nox32u n, const Nox32s src[], Nox32s dst[], Nox32s stride) {
  unpack_by_stride(n, src, dst, stride);
}
void NOX_BODY(viunpackv)(Nox32u n, const Nox32s src[], Nox32s dst[], const Nox32s index[]) {
  unpack_by_index(n, src, dst, index);
}
void NOX_BODY(viunpackm)(Nox32u n, const Nox32s src[], Nox32s dst[], const Nox32s mask[]) {
  unpack_by_mask(n, src, dst, mask);
}

void NOX_BODY(vdpackic)(Nox32u n, const Nox64fc src[], Nox32s stride, Nox64fc dst[]) {
  pack_by_stride(n, src, stride, dst);
}
void NOX_BODY(vdpackvc)(Nox32u n, const Nox64fc src[], const Nox32s index[], Nox64fc dst[]) {
  pack_by_index(n, src, index, dst);
}
void NOX_BODY(vdpackmc)(Nox32u n, const Nox64fc src[], const Nox32s mask[], Nox64fc dst[]) {
  compress(src, dst, mask, n);
}
void NOX_BODY(vdunpackic)(Nox32u n, const Nox64fc src[], Nox64fc dst[], Nox32s stride) {
  unpack_by_stride(n, src, dst, stride);
}
void NOX_BODY(vdunpackvc)(Nox32u n, const Nox64fc src[], Nox64fc dst[], const Nox32s index[]) {
  unpack_by_index(n, src, dst, index);
}
void NOX_BODY(vdunpackmc)(Nox32u n, const Nox64fc src[], Nox64fc dst[], const Nox32s mask[]) {
  unpack_by_mask(n, src, dst, mask);
}

void NOX_BODY(BitPack_8u)(const Nox8u src[], Nox32s start, Nox32s limit, Nox32u dst[], Nox32s wordCount) {
  pack_bits(src, start, limit, dst, wordCount);
}
void NOX_BODY(BitUnpack_8u)(const Nox32u src[], Nox32s, Nox8u dst[], Nox32s start, Nox32s count) {
  unpack_bits(src, dst, start, count);
}

void NOX_BODY(BitPack_16s)(const Nox16s src[], Nox32s start, Nox32s limit, Nox32u dst[], Nox32s wordCount) {
  pack_bits(src, start, limit, dst, wordCount);
}
void NOX_BODY(BitUnpack_16s)(const Nox32u src[], Nox32s, Nox16s dst[], Nox32s start, Nox32s count) {
  unpack_bits(src, dst, start, count);
}

void NOX_BODY(BitPack_32s)(const Nox32s src[], Nox32s start, Nox32s limit, Nox32u dst[], Nox32s wordCount) {
  pack_bits(src, start, limit, dst, wordCount);
}
void NOX_BODY(BitUnpack_32s)(const Nox32u src[], Nox32s, Nox32s dst[], Nox32s start, Nox32s count) {
  unpack_bits(src, dst, start, count);
}

}  // extern "C"
