// Reversal of the bytes of each element.
//
// Elements of 3 bytes go five at a time: a vector holds one byte more, which is left as it is and belongs to the next
// five. In a single element the first and the third byte are exchanged.
#include "core/body.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

template <class T>
NOX_INLINE IntOne<T> swap_bytes(IntOne<T> a) {
  if constexpr (sizeof(T) == 2)
    return {__builtin_bswap16(a.v)};
  else if constexpr (sizeof(T) == 4)
    return {__builtin_bswap32(a.v)};
  else
    return {__builtin_bswap64(a.v)};
}

#if NOX_LEVEL >= 1
template <class T>
NOX_INLINE __m128i swap_order() {
  if constexpr (sizeof(T) == 2)
    return _mm_setr_epi8(1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14);
  else if constexpr (sizeof(T) == 4)
    return _mm_setr_epi8(3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12);
  else
    return _mm_setr_epi8(7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8);
}
template <class T>
NOX_INLINE V128<T> swap_bytes(V128<T> a) {
  return {_mm_shuffle_epi8(a.v, swap_order<T>())};
}
NOX_INLINE __m128i swap_five(__m128i a) {
  return _mm_shuffle_epi8(a, _mm_setr_epi8(2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 14, 13, 12, 15));
}
#else
template <class T>
NOX_INLINE V128<T> swap_bytes(V128<T> a) {
  __m128i words = a.v;  // of 16 bits, first brought into the opposite order
  if constexpr (sizeof(T) == 4) words = _mm_shufflehi_epi16(_mm_shufflelo_epi16(words, 0xB1), 0xB1);
  if constexpr (sizeof(T) == 8) words = _mm_shufflehi_epi16(_mm_shufflelo_epi16(words, 0x1B), 0x1B);
  return {_mm_or_si128(_mm_slli_epi16(words, 8), _mm_srli_epi16(words, 8))};
}
NOX_INLINE __m128i swap_five(__m128i a) {
  const __m128i first = _mm_setr_epi8(-1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, 0);
  const __m128i third = _mm_slli_si128(first, 2);
  const __m128i moved =
      _mm_or_si128(_mm_and_si128(_mm_srli_si128(a, 2), first), _mm_and_si128(_mm_slli_si128(a, 2), third));
  return _mm_or_si128(_mm_andnot_si128(_mm_or_si128(first, third), a), moved);
}
#endif
#if NOX_LEVEL >= 4
template <class T>
NOX_INLINE V256<T> swap_bytes(V256<T> a) {
  return {_mm256_shuffle_epi8(a.v, _mm256_broadcastsi128_si256(swap_order<T>()))};
}
#endif

struct SwapBytes {
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return swap_bytes(a);
  }
};

template <class T>
NOX_INLINE NoxStatus swap(const T* s, T* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  map<ints<T>>(d, len, SwapBytes{}, s);
  return noxStsNoErr;
}

NOX_INLINE NoxStatus swap_triples(const Nox8u* s, Nox8u* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  using V = V128<Nox8u>;
  constexpr size_t kFive = 15;
  size_t left = static_cast<size_t>(len) * 3;
  if (left > kFive) {
    V next = V::load(s);
    for (; left > 2 * kFive; left -= kFive) {
      // Read before the store, which in place it would overlap and have to wait for.
      const V now = next;
      advance(kFive, s);
      next = V::load(s);
      V{swap_five(now.v)}.store(d);
      advance(kFive, d);
    }
    V{swap_five(next.v)}.store(d);
    left -= kFive;
    advance(kFive, s, d);
  }
  for (; left > 0; left -= 3, s += 3, d += 3) {
    const Nox8u first = s[0], second = s[1], third = s[2];
    d[0] = third;
    d[1] = second;
    d[2] = first;
  }
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsSwapBytes_16u)(const Nox16u* s, Nox16u* d, int len) { return swap(s, d, len); }
NoxStatus NOX_BODY(noxsSwapBytes_16u_I)(Nox16u* d, int len) { return swap(d, d, len); }
NoxStatus NOX_BODY(noxsSwapBytes_24u)(const Nox8u* s, Nox8u* d, int len) { return swap_triples(s, d, len); }
NoxStatus NOX_BODY(noxsSwapBytes_24u_I)(Nox8u* d, int len) { return swap_triples(d, d, len); }
NoxStatus NOX_BODY(noxsSwapBytes_32u)(const Nox32u* s, Nox32u* d, int len) { return swap(s, d, len); }
NoxStatus NOX_BODY(noxsSwapBytes_32u_I)(Nox32u* d, int len) { return swap(d, d, len); }
NoxStatus NOX_BODY(noxsSwapBytes_64u)(const Nox64u* s, Nox64u* d, int len) { return swap(s, d, len); }
NoxStatus NOX_BODY(noxsSwapBytes_64u_I)(Nox64u* d, int len) { return swap(d, d, len); }

}  // extern "C"
