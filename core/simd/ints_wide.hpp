// Integer lanes of twice the width and back: widening, saturating packs, wide products, shifts that saturate.
//
// Lanes of twice the width come as two vectors, `low` and `high`. Within each 128 bits they hold the lanes of the lower
// and of the upper half, which is what the instructions do in every build; `pack` undoes it, so a functor that widens
// and packs again needn't know. Products of 32 bits come as `even` and `odd` lanes instead.
#pragma once
#include <type_traits>

#include "core/simd/ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class V>
struct Two {
  V low, high;
};
template <class V>
struct EvenOdd {
  V even, odd;
};

// ---- 128 bits

NOX_INLINE Two<V128<Nox16u>> widen(V128<Nox8u> a) {
  const __m128i zero = _mm_setzero_si128();
  return {{_mm_unpacklo_epi8(a.v, zero)}, {_mm_unpackhi_epi8(a.v, zero)}};
}
NOX_INLINE Two<V128<Nox32s>> widen(V128<Nox16u> a) {
  const __m128i zero = _mm_setzero_si128();
  return {{_mm_unpacklo_epi16(a.v, zero)}, {_mm_unpackhi_epi16(a.v, zero)}};
}
NOX_INLINE Two<V128<Nox32s>> widen(V128<Nox16s> a) {
  return {{_mm_srai_epi32(_mm_unpacklo_epi16(a.v, a.v), 16)}, {_mm_srai_epi32(_mm_unpackhi_epi16(a.v, a.v), 16)}};
}

// Lanes cut to the range of half their width.
template <class To>
NOX_INLINE V128<To> pack(V128<Nox16s> low, V128<Nox16s> high) {
  static_assert(sizeof(To) == 1, "halves the width");
  return {is_signed<To> ? _mm_packs_epi16(low.v, high.v) : _mm_packus_epi16(low.v, high.v)};
}
template <class To>
NOX_INLINE V128<To> pack(V128<Nox16u> low, V128<Nox16u> high) {
  static_assert(sizeof(To) == 1 && !is_signed<To>, "halves the width");
  const __m128i top = _mm_set1_epi16(255);
#if NOX_LEVEL >= 2
  return {_mm_packus_epi16(_mm_min_epu16(low.v, top), _mm_min_epu16(high.v, top))};
#else
  return {_mm_packus_epi16(_mm_sub_epi16(low.v, _mm_subs_epu16(low.v, top)),
                           _mm_sub_epi16(high.v, _mm_subs_epu16(high.v, top)))};
#endif
}
template <class To>
NOX_INLINE V128<To> pack(V128<Nox32s> low, V128<Nox32s> high) {
  static_assert(sizeof(To) == 2, "halves the width");
  if constexpr (is_signed<To>) return {_mm_packs_epi32(low.v, high.v)};
#if NOX_LEVEL >= 2
  return {_mm_packus_epi32(low.v, high.v)};
#else
  // Negative lanes become 0, then the signed pack cuts at the top of a range moved down to it.
  const auto down = [](__m128i x) {
    return _mm_sub_epi32(_mm_andnot_si128(_mm_srai_epi32(x, 31), x), _mm_set1_epi32(0x8000));
  };
  return {_mm_xor_si128(_mm_packs_epi32(down(low.v), down(high.v)), _mm_set1_epi16(-0x8000))};
#endif
}

NOX_INLINE Two<V128<Nox16u>> multiply_wide(V128<Nox8u> a, V128<Nox8u> b) {
  const Two<V128<Nox16u>> x = widen(a), y = widen(b);
  return {{_mm_mullo_epi16(x.low.v, y.low.v)}, {_mm_mullo_epi16(x.high.v, y.high.v)}};
}
// The lower and the upper halves of products of 16 bits, and the products put together of them.
NOX_INLINE V128<Nox16s> multiply_low(V128<Nox16s> a, V128<Nox16s> b) { return {_mm_mullo_epi16(a.v, b.v)}; }
NOX_INLINE V128<Nox16s> multiply_high(V128<Nox16s> a, V128<Nox16s> b) { return {_mm_mulhi_epi16(a.v, b.v)}; }
NOX_INLINE Two<V128<Nox32s>> join(V128<Nox16s> low, V128<Nox16s> high) {
  return {{_mm_unpacklo_epi16(low.v, high.v)}, {_mm_unpackhi_epi16(low.v, high.v)}};
}
// Products of the even lanes; the odd ones are moved down first.
NOX_INLINE V128<Nox64u> multiply_even(V128<Nox32s> a, V128<Nox32s> b) {
#if NOX_LEVEL >= 2
  return {_mm_mul_epi32(a.v, b.v)};
#else
  // Of the unsigned product, a negative factor leaves the other one too much in the upper half.
  const __m128i excess =
      _mm_add_epi32(_mm_and_si128(_mm_srai_epi32(a.v, 31), b.v), _mm_and_si128(_mm_srai_epi32(b.v, 31), a.v));
  return {_mm_sub_epi64(_mm_mul_epu32(a.v, b.v), _mm_slli_epi64(excess, 32))};
#endif
}
NOX_INLINE V128<Nox32s> odd_down(V128<Nox32s> a) { return {_mm_srli_epi64(a.v, 32)}; }
// Each lane at twice its width.
NOX_INLINE EvenOdd<V128<Nox64u>> widen_pairs(V128<Nox32s> a) {
  const __m128i sign = _mm_srai_epi32(a.v, 31), upper = _mm_set_epi32(-1, 0, -1, 0);
  return {{_mm_or_si128(_mm_andnot_si128(upper, a.v), _mm_slli_epi64(sign, 32))},
          {_mm_or_si128(_mm_srli_epi64(a.v, 32), _mm_and_si128(sign, upper))}};
}
// The lower, or the upper, halves of 64-bit lanes in the places from which they came.
NOX_INLINE V128<Nox32s> lower_halves(EvenOdd<V128<Nox64u>> a) {
  const __m128 both = _mm_shuffle_ps(_mm_castsi128_ps(a.even.v), _mm_castsi128_ps(a.odd.v), 0x88);
  return {_mm_shuffle_epi32(_mm_castps_si128(both), 0xD8)};
}
NOX_INLINE V128<Nox32s> upper_halves(EvenOdd<V128<Nox64u>> a) {
  const __m128 both = _mm_shuffle_ps(_mm_castsi128_ps(a.even.v), _mm_castsi128_ps(a.odd.v), 0xDD);
  return {_mm_shuffle_epi32(_mm_castps_si128(both), 0xD8)};
}
// Whether any bit is set.
template <class T>
NOX_INLINE bool any_lane(V128<T> a) {
  return _mm_movemask_epi8(_mm_cmpeq_epi8(a.v, _mm_setzero_si128())) != 0xFFFF;
}
// (a + b + 1) / 2, with no bit lost in between.
NOX_INLINE V128<Nox16u> average(V128<Nox16u> a, V128<Nox16u> b) { return {_mm_avg_epu16(a.v, b.v)}; }
#if NOX_LEVEL >= 1
// (a * b + 2^14) / 2^15, rounded down.
NOX_INLINE V128<Nox16s> multiply_rounded(V128<Nox16s> a, V128<Nox16s> b) { return {_mm_mulhrs_epi16(a.v, b.v)}; }
#endif
// `yes` where the sign of a lane of `sign` is set, else `no`.
NOX_INLINE V128<Nox32s> select_by_sign(V128<Nox32s> sign, V128<Nox32s> yes, V128<Nox32s> no) {
#if NOX_LEVEL >= 2
  return {_mm_castps_si128(_mm_blendv_ps(_mm_castsi128_ps(no.v), _mm_castsi128_ps(yes.v), _mm_castsi128_ps(sign.v)))};
#else
  return select_lanes(V128<Nox32s>{_mm_srai_epi32(sign.v, 31)}, yes, no);
#endif
}

// ---- 256 bits

#if NOX_LEVEL >= 4
NOX_INLINE Two<V256<Nox16u>> widen(V256<Nox8u> a) {
  const __m256i zero = _mm256_setzero_si256();
  return {{_mm256_unpacklo_epi8(a.v, zero)}, {_mm256_unpackhi_epi8(a.v, zero)}};
}
NOX_INLINE Two<V256<Nox32s>> widen(V256<Nox16u> a) {
  const __m256i zero = _mm256_setzero_si256();
  return {{_mm256_unpacklo_epi16(a.v, zero)}, {_mm256_unpackhi_epi16(a.v, zero)}};
}
NOX_INLINE Two<V256<Nox32s>> widen(V256<Nox16s> a) {
  return {{_mm256_srai_epi32(_mm256_unpacklo_epi16(a.v, a.v), 16)},
          {_mm256_srai_epi32(_mm256_unpackhi_epi16(a.v, a.v), 16)}};
}

template <class To>
NOX_INLINE V256<To> pack(V256<Nox16s> low, V256<Nox16s> high) {
  static_assert(sizeof(To) == 1, "halves the width");
  return {is_signed<To> ? _mm256_packs_epi16(low.v, high.v) : _mm256_packus_epi16(low.v, high.v)};
}
template <class To>
NOX_INLINE V256<To> pack(V256<Nox16u> low, V256<Nox16u> high) {
  static_assert(sizeof(To) == 1 && !is_signed<To>, "halves the width");
  const __m256i top = _mm256_set1_epi16(255);
  return {_mm256_packus_epi16(_mm256_min_epu16(low.v, top), _mm256_min_epu16(high.v, top))};
}
template <class To>
NOX_INLINE V256<To> pack(V256<Nox32s> low, V256<Nox32s> high) {
  static_assert(sizeof(To) == 2, "halves the width");
  return {is_signed<To> ? _mm256_packs_epi32(low.v, high.v) : _mm256_packus_epi32(low.v, high.v)};
}

NOX_INLINE Two<V256<Nox16u>> multiply_wide(V256<Nox8u> a, V256<Nox8u> b) {
  const Two<V256<Nox16u>> x = widen(a), y = widen(b);
  return {{_mm256_mullo_epi16(x.low.v, y.low.v)}, {_mm256_mullo_epi16(x.high.v, y.high.v)}};
}
NOX_INLINE V256<Nox16s> multiply_low(V256<Nox16s> a, V256<Nox16s> b) { return {_mm256_mullo_epi16(a.v, b.v)}; }
NOX_INLINE V256<Nox16s> multiply_high(V256<Nox16s> a, V256<Nox16s> b) { return {_mm256_mulhi_epi16(a.v, b.v)}; }
NOX_INLINE Two<V256<Nox32s>> join(V256<Nox16s> low, V256<Nox16s> high) {
  return {{_mm256_unpacklo_epi16(low.v, high.v)}, {_mm256_unpackhi_epi16(low.v, high.v)}};
}
NOX_INLINE V256<Nox64u> multiply_even(V256<Nox32s> a, V256<Nox32s> b) { return {_mm256_mul_epi32(a.v, b.v)}; }
NOX_INLINE V256<Nox32s> odd_down(V256<Nox32s> a) { return {_mm256_srli_epi64(a.v, 32)}; }
NOX_INLINE EvenOdd<V256<Nox64u>> widen_pairs(V256<Nox32s> a) {
  const __m256i sign = _mm256_srai_epi32(a.v, 31);
  return {{_mm256_blend_epi32(a.v, _mm256_slli_epi64(sign, 32), 0xAA)},
          {_mm256_blend_epi32(_mm256_srli_epi64(a.v, 32), sign, 0xAA)}};
}
NOX_INLINE V256<Nox32s> lower_halves(EvenOdd<V256<Nox64u>> a) {
  return {_mm256_blend_epi32(a.even.v, _mm256_slli_epi64(a.odd.v, 32), 0xAA)};
}
NOX_INLINE V256<Nox32s> upper_halves(EvenOdd<V256<Nox64u>> a) {
  return {_mm256_blend_epi32(_mm256_srli_epi64(a.even.v, 32), a.odd.v, 0xAA)};
}
template <class T>
NOX_INLINE bool any_lane(V256<T> a) {
  return !_mm256_testz_si256(a.v, a.v);
}
NOX_INLINE V256<Nox16u> average(V256<Nox16u> a, V256<Nox16u> b) { return {_mm256_avg_epu16(a.v, b.v)}; }
NOX_INLINE V256<Nox16s> multiply_rounded(V256<Nox16s> a, V256<Nox16s> b) { return {_mm256_mulhrs_epi16(a.v, b.v)}; }
NOX_INLINE V256<Nox32s> select_by_sign(V256<Nox32s> sign, V256<Nox32s> yes, V256<Nox32s> no) {
  return {_mm256_castps_si256(
      _mm256_blendv_ps(_mm256_castsi256_ps(no.v), _mm256_castsi256_ps(yes.v), _mm256_castsi256_ps(sign.v)))};
}
#endif

// ---- either width

template <class To, template <class, int> class L, class From, int Bytes>
NOX_INLINE L<To, Bytes> as_lanes(L<From, Bytes> a) {
  return {a.v};
}

// Shifts of lanes of any width up to 32 bits: bytes are shifted in pairs, and what crosses between them is cut away.
template <class T, int Bytes>
NOX_INLINE IntLanes<T, Bytes> shift_down(IntLanes<T, Bytes> a, int n) {
  if constexpr (sizeof(T) == 1)
    return as_lanes<T>(shift_right(as_lanes<Nox16u>(a), n)) & IntLanes<T, Bytes>::all(T(0xFF >> n));
  else
    return shift_right(a, n);
}
template <class T, int Bytes>
NOX_INLINE IntLanes<T, Bytes> shift_up(IntLanes<T, Bytes> a, int n) {
  if constexpr (sizeof(T) == 1)
    return as_lanes<T>(shift_left(as_lanes<Nox16u>(a), n)) & IntLanes<T, Bytes>::all(T(0xFF << n));
  else
    return shift_left(a, n);
}

// a * 2^n cut to the range of the lane; n from 0 to the number of bits without the sign.
template <class V>
NOX_INLINE V shift_up_saturated(V a, int n) {
  using T = typename V::elem;
  const V top = V::all(T(highest<T> >> n)), bottom = V::all(T(lowest<T> >> n));
  // What the top leaves of the largest number is filled up with its own bits.
  return shift_up(min(max(a, bottom), top), n) | ((a > top) & V::all(highest<T>));
}

// a + b and a - b cut to the range of the lane, of up to 32 bits.
template <class T, int Bytes>
NOX_INLINE IntLanes<T, Bytes> sum_saturated(IntLanes<T, Bytes> a, IntLanes<T, Bytes> b) {
  if constexpr (sizeof(T) <= 2) {
    return add_saturated(a, b);
  } else {
    // Unless bits are lost, a sum is below a where b is below 0.
    const IntLanes<T, Bytes> sum = a + b, cut = shift_right(sum, 31) ^ IntLanes<T, Bytes>::all(lowest<T>);
    return select_by_sign((a > sum) ^ b, cut, sum);
  }
}
template <class T, int Bytes>
NOX_INLINE IntLanes<T, Bytes> difference_saturated(IntLanes<T, Bytes> a, IntLanes<T, Bytes> b) {
  if constexpr (sizeof(T) <= 2) {
    return sub_saturated(a, b);
  } else {
    const IntLanes<T, Bytes> rest = a - b, cut = shift_right(rest, 31) ^ IntLanes<T, Bytes>::all(lowest<T>);
    return select_by_sign((rest > a) ^ b, cut, rest);
  }
}

// Products of 16-bit lanes and of 32-bit lanes.
template <int Bytes>
NOX_INLINE auto multiply_wide(IntLanes<Nox16s, Bytes> a, IntLanes<Nox16s, Bytes> b) {
  return join(multiply_low(a, b), multiply_high(a, b));
}
template <class V>
NOX_INLINE auto multiply_pairs(V a, V b) {
  const auto even = multiply_even(a, b);
  return EvenOdd<std::remove_const_t<decltype(even)>>{even, multiply_even(odd_down(a), odd_down(b))};
}

// 64-bit lanes cut to 32 bits, in the places from which they came.
template <class E>
NOX_INLINE auto pack_pairs(EvenOdd<E> a) {
  const auto low = lower_halves(a), high = upper_halves(a);
  using V = std::remove_const_t<decltype(low)>;
  return select_lanes(high == shift_right(low, 31), low, shift_right(high, 31) ^ V::all(highest<Nox32s>));
}

}  // namespace NOX_VARIANT
}  // namespace nox
