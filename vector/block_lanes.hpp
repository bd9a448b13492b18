// Chunk<Bytes>: 2 to 32 bytes on their way through one register, whatever they mean.
//
// Chunks of 8 bytes and more travel in vector registers, so no value passes a floating-point conversion and every bit
// survives. Wide is the widest chunk of the build; addresses need no alignment.
#pragma once
#include <immintrin.h>

#include "core/variant.hpp"

namespace nox {
inline namespace NOX_VARIANT {

using Byte = unsigned char;

template <class Word>
struct WordChunk {
  static constexpr size_t kBytes = sizeof(Word);
  Word v;
  static NOX_INLINE WordChunk load(const Byte* p) {
    WordChunk r;
    __builtin_memcpy(&r.v, p, sizeof(Word));
    return r;
  }
  NOX_INLINE void store(Byte* p) const { __builtin_memcpy(p, &v, sizeof(Word)); }
};

template <size_t Bytes>
struct Chunk;
template <>
struct Chunk<2> : WordChunk<uint16_t> {};
template <>
struct Chunk<4> : WordChunk<uint32_t> {};
template <>
struct Chunk<8> {
  static constexpr size_t kBytes = 8;
  __m128i v;
  static NOX_INLINE Chunk load(const Byte* p) { return {_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))}; }
  NOX_INLINE void store(Byte* p) const { _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v); }
};
template <>
struct Chunk<16> {
  static constexpr size_t kBytes = 16;
  __m128i v;
  static NOX_INLINE Chunk load(const Byte* p) { return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))}; }
  NOX_INLINE void store(Byte* p) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
  NOX_INLINE void store_aligned(Byte* p) const { _mm_store_si128(reinterpret_cast<__m128i*>(p), v); }
  NOX_INLINE void stream(Byte* p) const { _mm_stream_si128(reinterpret_cast<__m128i*>(p), v); }
};
#if NOX_LEVEL >= 3
template <>
struct Chunk<32> {
  static constexpr size_t kBytes = 32;
  __m256i v;
  static NOX_INLINE Chunk load(const Byte* p) { return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))}; }
  NOX_INLINE void store(Byte* p) const { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
  NOX_INLINE void store_aligned(Byte* p) const { _mm256_store_si256(reinterpret_cast<__m256i*>(p), v); }
  NOX_INLINE void stream(Byte* p) const { _mm256_stream_si256(reinterpret_cast<__m256i*>(p), v); }
};
using Wide = Chunk<32>;
#else
using Wide = Chunk<16>;
#endif
constexpr size_t kWide = Wide::kBytes;

NOX_INLINE Byte* bytes(void* p) { return static_cast<Byte*>(p); }
NOX_INLINE const Byte* bytes(const void* p) { return static_cast<const Byte*>(p); }
NOX_INLINE uintptr_t address(const void* p) { return reinterpret_cast<uintptr_t>(p); }
constexpr size_t kLine = 64;

// The first boundary of a vector behind p, 1 to kWide bytes away.
NOX_INLINE size_t to_next_vector(const Byte* p) { return kWide - (address(p) & (kWide - 1)); }
// Bytes from p to the first boundary at or behind it.
NOX_INLINE size_t to_boundary(const Byte* p, size_t boundary) { return -address(p) & (boundary - 1); }

}  // namespace NOX_VARIANT
}  // namespace nox
