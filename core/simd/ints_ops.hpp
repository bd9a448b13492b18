// Operations of the integer lanes, 128 bits wide and, in the AVX2 build, 256.
//
// The two widths stand side by side; `V128` and `V256` name them. Included by core/simd/ints.hpp alone.
#pragma once

namespace nox {
inline namespace NOX_VARIANT {

template <class T>
using V128 = IntLanes<T, 16>;
#if NOX_LEVEL >= 4
template <class T>
using V256 = IntLanes<T, 32>;
#endif
template <class T>
NOX_INLINE V128<T> operator&(V128<T> a, V128<T> b) {
  return {_mm_and_si128(a.v, b.v)};
}

template <class T>
NOX_INLINE V128<T> operator|(V128<T> a, V128<T> b) {
  return {_mm_or_si128(a.v, b.v)};
}

template <class T>
NOX_INLINE V128<T> operator^(V128<T> a, V128<T> b) {
  return {_mm_xor_si128(a.v, b.v)};
}

template <class T>
NOX_INLINE V128<T> and_not(V128<T> no, V128<T> b) {
  return {_mm_andnot_si128(no.v, b.v)};
}

template <class T>
NOX_INLINE V128<T> operator+(V128<T> a, V128<T> b) {
  if constexpr (sizeof(T) == 1)
    return {_mm_add_epi8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {_mm_add_epi16(a.v, b.v)};
  else if constexpr (sizeof(T) == 4)
    return {_mm_add_epi32(a.v, b.v)};
  else
    return {_mm_add_epi64(a.v, b.v)};
}

template <class T>
NOX_INLINE V128<T> operator-(V128<T> a, V128<T> b) {
  if constexpr (sizeof(T) == 1)
    return {_mm_sub_epi8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {_mm_sub_epi16(a.v, b.v)};
  else if constexpr (sizeof(T) == 4)
    return {_mm_sub_epi32(a.v, b.v)};
  else
    return {_mm_sub_epi64(a.v, b.v)};
}

template <class T>
NOX_INLINE V128<T> add_saturated(V128<T> a, V128<T> b) {
  static_assert(sizeof(T) <= 2, "wider sums are formed by their family");
  if constexpr (sizeof(T) == 1)
    return {is_signed<T> ? _mm_adds_epi8(a.v, b.v) : _mm_adds_epu8(a.v, b.v)};
  else
    return {is_signed<T> ? _mm_adds_epi16(a.v, b.v) : _mm_adds_epu16(a.v, b.v)};
}

template <class T>
NOX_INLINE V128<T> sub_saturated(V128<T> a, V128<T> b) {
  static_assert(sizeof(T) <= 2, "wider differences are formed by their family");
  if constexpr (sizeof(T) == 1)
    return {is_signed<T> ? _mm_subs_epi8(a.v, b.v) : _mm_subs_epu8(a.v, b.v)};
  else
    return {is_signed<T> ? _mm_subs_epi16(a.v, b.v) : _mm_subs_epu16(a.v, b.v)};
}

template <class T>
NOX_INLINE V128<T> shift_left(V128<T> a, int n) {
  static_assert(sizeof(T) >= 2, "there is no shift of byte lanes");
  const __m128i count = _mm_cvtsi32_si128(n);
  if constexpr (sizeof(T) == 2)
    return {_mm_sll_epi16(a.v, count)};
  else if constexpr (sizeof(T) == 4)
    return {_mm_sll_epi32(a.v, count)};
  else
    return {_mm_sll_epi64(a.v, count)};
}

template <class T>
NOX_INLINE V128<T> shift_right(V128<T> a, int n) {
  static_assert(sizeof(T) == 2 || sizeof(T) == 4 || (sizeof(T) == 8 && !is_signed<T>), "no such shift");
  const __m128i count = _mm_cvtsi32_si128(n);
  if constexpr (sizeof(T) == 2)
    return {is_signed<T> ? _mm_sra_epi16(a.v, count) : _mm_srl_epi16(a.v, count)};
  else if constexpr (sizeof(T) == 4)
    return {is_signed<T> ? _mm_sra_epi32(a.v, count) : _mm_srl_epi32(a.v, count)};
  else
    return {_mm_srl_epi64(a.v, count)};
}

template <class T>
NOX_INLINE V128<T> operator==(V128<T> a, V128<T> b) {
  static_assert(sizeof(T) <= 4, "no such comparison below SSE4.1");
  if constexpr (sizeof(T) == 1)
    return {_mm_cmpeq_epi8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {_mm_cmpeq_epi16(a.v, b.v)};
  else
    return {_mm_cmpeq_epi32(a.v, b.v)};
}
// Unsigned lanes compare as signed ones with their top bits turned over.
template <class T>
NOX_INLINE V128<T> operator>(V128<T> a, V128<T> b) {
  static_assert(sizeof(T) <= 4, "no such comparison below SSE4.2");
  if constexpr (!is_signed<T>) {
    const V128<T> top = V128<T>::all(T(T(1) << (sizeof(T) * 8 - 1)));
    a = a ^ top;
    b = b ^ top;
  }
  if constexpr (sizeof(T) == 1)
    return {_mm_cmpgt_epi8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {_mm_cmpgt_epi16(a.v, b.v)};
  else
    return {_mm_cmpgt_epi32(a.v, b.v)};
}
template <class T>
NOX_INLINE V128<T> min(V128<T> a, V128<T> b) {
  if constexpr (sizeof(T) == 1 && !is_signed<T>)
    return {_mm_min_epu8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2 && is_signed<T>)
    return {_mm_min_epi16(a.v, b.v)};
#if NOX_LEVEL >= 2
  else if constexpr (sizeof(T) == 1)
    return {_mm_min_epi8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {_mm_min_epu16(a.v, b.v)};
  else if constexpr (sizeof(T) == 4)
    return {is_signed<T> ? _mm_min_epi32(a.v, b.v) : _mm_min_epu32(a.v, b.v)};
#endif
  else {
    const V128<T> greater = a > b;
    return (greater & b) | and_not(greater, a);
  }
}
template <class T>
NOX_INLINE V128<T> max(V128<T> a, V128<T> b) {
  if constexpr (sizeof(T) == 1 && !is_signed<T>)
    return {_mm_max_epu8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2 && is_signed<T>)
    return {_mm_max_epi16(a.v, b.v)};
#if NOX_LEVEL >= 2
  else if constexpr (sizeof(T) == 1)
    return {_mm_max_epi8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {_mm_max_epu16(a.v, b.v)};
  else if constexpr (sizeof(T) == 4)
    return {is_signed<T> ? _mm_max_epi32(a.v, b.v) : _mm_max_epu32(a.v, b.v)};
#endif
  else {
    const V128<T> greater = a > b;
    return (greater & a) | and_not(greater, b);
  }
}
// Lanes in the opposite order.
template <class T>
NOX_INLINE V128<T> reverse(V128<T> a) {
  if constexpr (sizeof(T) == 8)
    return {_mm_shuffle_epi32(a.v, 0x4E)};
  else if constexpr (sizeof(T) == 4)
    return {_mm_shuffle_epi32(a.v, 0x1B)};
#if NOX_LEVEL >= 1
  else if constexpr (sizeof(T) == 2)
    return {_mm_shuffle_epi8(a.v, _mm_set_epi8(1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14))};
  else
    return {_mm_shuffle_epi8(a.v, _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15))};
#else
  else {
    __m128i words = _mm_shufflehi_epi16(_mm_shufflelo_epi16(_mm_shuffle_epi32(a.v, 0x4E), 0x1B), 0x1B);
    if constexpr (sizeof(T) == 1) words = _mm_or_si128(_mm_slli_epi16(words, 8), _mm_srli_epi16(words, 8));
    return {words};
  }
#endif
}

#if NOX_LEVEL >= 4
template <class T>
NOX_INLINE V256<T> operator&(V256<T> a, V256<T> b) {
  return {_mm256_and_si256(a.v, b.v)};
}

template <class T>
NOX_INLINE V256<T> operator|(V256<T> a, V256<T> b) {
  return {_mm256_or_si256(a.v, b.v)};
}

template <class T>
NOX_INLINE V256<T> operator^(V256<T> a, V256<T> b) {
  return {_mm256_xor_si256(a.v, b.v)};
}

template <class T>
NOX_INLINE V256<T> and_not(V256<T> no, V256<T> b) {
  return {_mm256_andnot_si256(no.v, b.v)};
}

template <class T>
NOX_INLINE V256<T> operator+(V256<T> a, V256<T> b) {
  if constexpr (sizeof(T) == 1)
    return {_mm256_add_epi8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {_mm256_add_epi16(a.v, b.v)};
  else if constexpr (sizeof(T) == 4)
    return {_mm256_add_epi32(a.v, b.v)};
  else
    return {_mm256_add_epi64(a.v, b.v)};
}

template <class T>
NOX_INLINE V256<T> operator-(V256<T> a, V256<T> b) {
  if constexpr (sizeof(T) == 1)
    return {_mm256_sub_epi8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {_mm256_sub_epi16(a.v, b.v)};
  else if constexpr (sizeof(T) == 4)
    return {_mm256_sub_epi32(a.v, b.v)};
  else
    return {_mm256_sub_epi64(a.v, b.v)};
}

template <class T>
NOX_INLINE V256<T> add_saturated(V256<T> a, V256<T> b) {
  static_assert(sizeof(T) <= 2, "wider sums are formed by their family");
  if constexpr (sizeof(T) == 1)
    return {is_signed<T> ? _mm256_adds_epi8(a.v, b.v) : _mm256_adds_epu8(a.v, b.v)};
  else
    return {is_signed<T> ? _mm256_adds_epi16(a.v, b.v) : _mm256_adds_epu16(a.v, b.v)};
}

template <class T>
NOX_INLINE V256<T> sub_saturated(V256<T> a, V256<T> b) {
  static_assert(sizeof(T) <= 2, "wider differences are formed by their family");
  if constexpr (sizeof(T) == 1)
    return {is_signed<T> ? _mm256_subs_epi8(a.v, b.v) : _mm256_subs_epu8(a.v, b.v)};
  else
    return {is_signed<T> ? _mm256_subs_epi16(a.v, b.v) : _mm256_subs_epu16(a.v, b.v)};
}

template <class T>
NOX_INLINE V256<T> shift_left(V256<T> a, int n) {
  static_assert(sizeof(T) >= 2, "there is no shift of byte lanes");
  const __m128i count = _mm_cvtsi32_si128(n);
  if constexpr (sizeof(T) == 2)
    return {_mm256_sll_epi16(a.v, count)};
  else if constexpr (sizeof(T) == 4)
    return {_mm256_sll_epi32(a.v, count)};
  else
    return {_mm256_sll_epi64(a.v, count)};
}

template <class T>
NOX_INLINE V256<T> shift_right(V256<T> a, int n) {
  static_assert(sizeof(T) == 2 || sizeof(T) == 4 || (sizeof(T) == 8 && !is_signed<T>), "no such shift");
  const __m128i count = _mm_cvtsi32_si128(n);
  if constexpr (sizeof(T) == 2)
    return {is_signed<T> ? _mm256_sra_epi16(a.v, count) : _mm256_srl_epi16(a.v, count)};
  else if constexpr (sizeof(T) == 4)
    return {is_signed<T> ? _mm256_sra_epi32(a.v, count) : _mm256_srl_epi32(a.v, count)};
  else
    return {_mm256_srl_epi64(a.v, count)};
}

template <class T>
NOX_INLINE V256<T> operator==(V256<T> a, V256<T> b) {
  if constexpr (sizeof(T) == 1)
    return {_mm256_cmpeq_epi8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {_mm256_cmpeq_epi16(a.v, b.v)};
  else if constexpr (sizeof(T) == 4)
    return {_mm256_cmpeq_epi32(a.v, b.v)};
  else
    return {_mm256_cmpeq_epi64(a.v, b.v)};
}
template <class T>
NOX_INLINE V256<T> operator>(V256<T> a, V256<T> b) {
  if constexpr (!is_signed<T>) {
    const V256<T> top = V256<T>::all(T(T(1) << (sizeof(T) * 8 - 1)));
    a = a ^ top;
    b = b ^ top;
  }
  if constexpr (sizeof(T) == 1)
    return {_mm256_cmpgt_epi8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {_mm256_cmpgt_epi16(a.v, b.v)};
  else if constexpr (sizeof(T) == 4)
    return {_mm256_cmpgt_epi32(a.v, b.v)};
  else
    return {_mm256_cmpgt_epi64(a.v, b.v)};
}
template <class T>
NOX_INLINE V256<T> min(V256<T> a, V256<T> b) {
  if constexpr (sizeof(T) == 1)
    return {is_signed<T> ? _mm256_min_epi8(a.v, b.v) : _mm256_min_epu8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {is_signed<T> ? _mm256_min_epi16(a.v, b.v) : _mm256_min_epu16(a.v, b.v)};
  else
    return {is_signed<T> ? _mm256_min_epi32(a.v, b.v) : _mm256_min_epu32(a.v, b.v)};
}
template <class T>
NOX_INLINE V256<T> max(V256<T> a, V256<T> b) {
  if constexpr (sizeof(T) == 1)
    return {is_signed<T> ? _mm256_max_epi8(a.v, b.v) : _mm256_max_epu8(a.v, b.v)};
  else if constexpr (sizeof(T) == 2)
    return {is_signed<T> ? _mm256_max_epi16(a.v, b.v) : _mm256_max_epu16(a.v, b.v)};
  else
    return {is_signed<T> ? _mm256_max_epi32(a.v, b.v) : _mm256_max_epu32(a.v, b.v)};
}
template <class T>
NOX_INLINE V256<T> reverse(V256<T> a) {
  if constexpr (sizeof(T) == 8)
    return {_mm256_permute4x64_epi64(a.v, 0x1B)};
  else if constexpr (sizeof(T) == 4)
    return {_mm256_permutevar8x32_epi32(a.v, _mm256_set_epi32(0, 1, 2, 3, 4, 5, 6, 7))};
  else {
    const __m256i swapped = _mm256_permute4x64_epi64(a.v, 0x4E);
    const __m128i order = sizeof(T) == 2 ? _mm_set_epi8(1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14)
                                         : _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    return {_mm256_shuffle_epi8(swapped, _mm256_broadcastsi128_si256(order))};
  }
}
#endif

}  // namespace NOX_VARIANT
}  // namespace nox
