// Sorting of a few hundred bytes in vectors, by a network of minima and maxima: no step depends on the data.
//
// The bytes are rows of a table in any order. First every column of it is sorted from row to row; then columns that
// stand side by side are joined, two to one, four, and so on, each time by the bitonic merge: elements from both ends
// are compared, then those half as far apart, down to neighbours. In the end the order runs down the columns, and the
// table is turned on its side.
#pragma once
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace bytes {

using V = ints<Nox8u>::vec;
constexpr int kLanes = V::N;

#if NOX_LEVEL >= 1
// Orders of lanes: 0 and 1 exchange those 1 and 2 apart, 2 to 5 are the opposite one within groups of 2, 4, 8, 16.
alignas(16) constexpr Nox8u kOrders[][16] = {
    {1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14}, {2, 3, 0, 1, 6, 7, 4, 5, 10, 11, 8, 9, 14, 15, 12, 13},
    {1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14}, {3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12},
    {7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8}, {15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0}};
NOX_INLINE __m128i order_of(int which) { return _mm_load_si128(reinterpret_cast<const __m128i*>(kOrders[which])); }
NOX_INLINE V128<Nox8u> reorder(V128<Nox8u> a, int which) { return {_mm_shuffle_epi8(a.v, order_of(which))}; }
#endif

// Lanes that lie D apart change places, D a power of two.
template <int D>
NOX_INLINE V128<Nox8u> swap(V128<Nox8u> a) {
#if NOX_LEVEL >= 1
  if constexpr (D <= 2) return reorder(a, D - 1);
#endif
  if constexpr (D == 1) return {_mm_or_si128(_mm_slli_epi16(a.v, 8), _mm_srli_epi16(a.v, 8))};
  if constexpr (D == 2) return {_mm_shufflehi_epi16(_mm_shufflelo_epi16(a.v, 0xB1), 0xB1)};
  return {_mm_shuffle_epi32(a.v, D == 4 ? 0xB1 : 0x4E)};
}
// The lanes of `high` where the number of the lane has the bit D, those of `low` elsewhere.
template <int D>
NOX_INLINE V128<Nox8u> join(V128<Nox8u> low, V128<Nox8u> high) {
  if constexpr (D == 8) return {_mm_castpd_si128(_mm_move_sd(_mm_castsi128_pd(high.v), _mm_castsi128_pd(low.v)))};
#if NOX_LEVEL >= 2
  if constexpr (D > 1) return {_mm_blend_epi16(low.v, high.v, D == 2 ? 0xAA : 0xCC)};
#endif
  constexpr long long kHigh = D == 1 ? 0xFF00FF00FF00FF00ll : D == 2 ? 0xFFFF0000FFFF0000ll : 0xFFFFFFFF00000000ll;
  const __m128i mask = _mm_set1_epi64x(kHigh);
  return {_mm_or_si128(_mm_and_si128(mask, high.v), _mm_andnot_si128(mask, low.v))};
}
// The bytes of two rows in turn.
NOX_INLINE void interleave(V128<Nox8u> a, V128<Nox8u> b, V128<Nox8u>& first, V128<Nox8u>& second) {
  first = {_mm_unpacklo_epi8(a.v, b.v)};
  second = {_mm_unpackhi_epi8(a.v, b.v)};
}

#if NOX_LEVEL >= 4
NOX_INLINE V256<Nox8u> reorder(V256<Nox8u> a, int which) {
  return {_mm256_shuffle_epi8(a.v, _mm256_broadcastsi128_si256(order_of(which)))};
}
template <int D>
NOX_INLINE V256<Nox8u> swap(V256<Nox8u> a) {
  if constexpr (D <= 2) return reorder(a, D - 1);
  if constexpr (D == 16) return {_mm256_permute4x64_epi64(a.v, 0x4E)};
  return {_mm256_shuffle_epi32(a.v, D == 4 ? 0xB1 : 0x4E)};
}
template <int D>
NOX_INLINE V256<Nox8u> join(V256<Nox8u> low, V256<Nox8u> high) {
  if constexpr (D == 1) return {_mm256_blendv_epi8(low.v, high.v, _mm256_set1_epi16(-256))};
  if constexpr (D == 2) return {_mm256_blend_epi16(low.v, high.v, 0xAA)};
  return {_mm256_blend_epi32(low.v, high.v, D == 4 ? 0xAA : D == 8 ? 0xCC : 0xF0)};
}
NOX_INLINE void interleave(V256<Nox8u> a, V256<Nox8u> b, V256<Nox8u>& first, V256<Nox8u>& second) {
  const __m256i low = _mm256_unpacklo_epi8(a.v, b.v), high = _mm256_unpackhi_epi8(a.v, b.v);
  first = {_mm256_permute2x128_si256(low, high, 0x20)};
  second = {_mm256_permute2x128_si256(low, high, 0x31)};
}
#endif

// Lanes in opposite order within groups of 2 * D.
template <int D>
NOX_INLINE V mirror(V a) {
  if constexpr (D == 16) return swap<16>(mirror<8>(a));
#if NOX_LEVEL >= 1
  if constexpr (D < 16) return reorder(a, 2 + __builtin_ctz(D));
#else
  if constexpr (D == 1)
    return swap<1>(a);
  else
    return mirror<D / 2>(swap<D>(a));
#endif
}

NOX_INLINE void put_in_order(V& a, V& b) {
  const V least = min(a, b);
  b = max(a, b);
  a = least;
}

// Rows D apart, then nearer ones.
template <int D, size_t R>
NOX_INLINE void order_rows(V (&x)[R]) {
  if constexpr (D > 0) {
#pragma GCC unroll 8
    for (size_t i = 0; i < R / 2; ++i) {
      const size_t r = i / D * 2 * D + i % D;
      put_in_order(x[r], x[r + D]);
    }
    order_rows<D / 2>(x);
  }
}
// Sorted groups of H rows become sorted groups of 2 * H, up to all.
template <int H, size_t R>
NOX_INLINE void sort_rows(V (&x)[R]) {
  if constexpr (H < R) {
#pragma GCC unroll 8
    for (size_t i = 0; i < R / 2; ++i) {
      const size_t group = i / H * 2 * H;
      put_in_order(x[group + i % H], x[group + 2 * H - 1 - i % H]);
    }
    order_rows<H / 2>(x);
    sort_rows<2 * H>(x);
  }
}

// Lanes D apart, then nearer ones.
template <int D>
NOX_INLINE V order_lanes(V a) {
  if constexpr (D == 0) {
    return a;
  } else {
    const V other = swap<D>(a);
    return order_lanes<D / 2>(join<D>(min(a, other), max(a, other)));
  }
}
// Sorted groups of D columns become sorted groups of 2 * D, up to all.
template <int D, size_t R>
NOX_INLINE void join_columns(V (&x)[R]) {
  if constexpr (D < kLanes) {
#pragma GCC unroll 4
    for (size_t r = 0; r < R / 2; ++r) {
      const V other = mirror<D>(x[R - 1 - r]), least = min(x[r], other), most = max(x[r], other);
      x[r] = order_lanes<D / 2>(join<D>(least, most));
      x[R - 1 - r] = order_lanes<D / 2>(mirror<D>(join<D>(most, least)));
    }
    order_rows<R / 2>(x);
    join_columns<2 * D>(x);
  }
}

// The columns one behind the other.
template <size_t Done, size_t R>
NOX_INLINE void turn(V (&x)[R]) {
  if constexpr (Done < R) {
    V y[R];
#pragma GCC unroll 8
    for (size_t r = 0; r < R / 2; ++r) interleave(x[r], x[r + R / 2], y[2 * r], y[2 * r + 1]);
#pragma GCC unroll 8
    for (size_t r = 0; r < R; ++r) x[r] = y[r];
    turn<2 * Done>(x);
  }
}

// Sorts n bytes, more than half a table of Size and at least a vector: ascending where `flip` is 0, descending where
// it is 255. What lacks to a table is filled up with what comes last in order.
template <size_t Size>
__attribute__((noinline)) void sort_table(Nox8u* d, size_t n, Nox8u flip) {
  constexpr size_t R = Size / kLanes;
  Nox8u copy[Size];
  Nox8u* const table = n == Size ? d : copy;
  if (n < Size) {
    for (size_t i = Size / 2; i < Size; i += kLanes) V::all(static_cast<Nox8u>(~flip)).store(copy + i);
    for (size_t i = 0; i + kLanes <= n; i += kLanes) V::load(d + i).store(copy + i);
    V::load(d + n - kLanes).store(copy + n - kLanes);
  }
  const V change = V::all(flip);
  V x[R];
#pragma GCC unroll 8
  for (size_t r = 0; r < R; ++r) x[r] = V::load(table + r * kLanes) ^ change;
  sort_rows<1>(x);
  join_columns<1>(x);
  turn<1>(x);
#pragma GCC unroll 8
  for (size_t r = 0; r < R; ++r) (x[r] ^ change).store(table + r * kLanes);
  if (n < Size) {
    for (size_t i = 0; i + kLanes <= n; i += kLanes) V::load(copy + i).store(d + i);
    V::load(copy + n - kLanes).store(d + n - kLanes);
  }
}

}  // namespace bytes
}  // namespace NOX_VARIANT
}  // namespace nox
