// Running sums, plain and with a lag, ramps, products, and the movers of complex elements.
//
// A running sum of reals adds an element to the sum before it, so it goes element by element with the sum in a
// register; those of integers are formed within a vector first, to which the sum before it is added. With a lag of at
// least a vector the sums of a vector don't depend on each other, and whole vectors run.
#include <string.h>

#include <type_traits>

#include "array/lanes.hpp"
#include "nox/array/running.h"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Each lane's sum of itself and all lanes below it.
template <int Shift, class V>
NOX_INLINE V summed_up(V a) {
  if constexpr (Shift < 16)
    return summed_up<2 * Shift>(a + V{_mm_slli_si128(a.v, Shift)});
  else
    return a;
}
// The highest lane in all lanes.
template <class T>
NOX_INLINE V128<T> highest_lane(V128<T> a) {
  if constexpr (sizeof(T) == 1) a.v = _mm_unpackhi_epi8(a.v, a.v);
  if constexpr (sizeof(T) <= 2) a.v = _mm_shufflehi_epi16(a.v, 0xFF);
  return {_mm_shuffle_epi32(a.v, 0xFF)};
}

template <class T>
NOX_INLINE void running_sum(const T* s, T* d, Nox32u n) {
  using One = typename lanes_of<T>::one;
  if (n == 0) return;
  One sum = One::load(s);
  sum.store(d);
  Nox32u k = 1;
  // Integers may be added in any order.
  if constexpr (std::is_integral_v<T>) {
    using V = V128<T>;
    if (!ahead_of(d, s, n)) {
      V carry = V::all(sum.v);
      for (; n - k >= V::N; k += V::N) {
        const V lanes = summed_up<sizeof(T)>(V::load(s + k));
        (lanes + carry).store(d + k);
        carry = carry + highest_lane(lanes);
      }
      sum = One::load(d + (k - 1));
    }
  }
#pragma GCC unroll 4
  for (; k < n; ++k) {
    sum = sum + One::load(s + k);
    sum.store(d + k);
  }
}

template <class T>
NOX_INLINE void lagged_sum(const T* s, T* d, Nox32u n, Nox32u lag) {
  using V = typename lanes_of<T>::vec;
  using One = typename lanes_of<T>::one;
  constexpr Nox32u N = V::N;
  if (s != d && lag > 0) memmove(d, s, lag * sizeof(T));
  if (lag >= n) return;
  Nox32u k = lag;
  // Without a lag it is a sum's own place that is read. Two reals that straddle the vectors stored just before would
  // have to wait for both stores to reach memory.
  const bool straddles = N == 2 && lag % 2 != 0 && lag < 64;
  if ((lag == 0 || lag >= N) && !straddles && !ahead_of(d, s, n)) {
#pragma GCC unroll 4
    for (; n - k >= N; k += N) (V::load(s + k) + V::load(d + (k - lag))).store(d + k);
  }
  for (; k < n; ++k) (One::load(s + k) + One::load(d + (k - lag))).store(d + k);
}

// Whole vectors of offset + k * step, `one` being what the places k rise by from one to the next. Places are counted as
// doubles, which is exact. Returns the number of reals written.
template <class V>
NOX_INLINE size_t ramp(Nox64f* d, size_t reals, V k, V one, V offset, V step) {
  constexpr size_t N = V::N;
  const V two = one + one, four = two + two;
  size_t i = 0;
  const auto put = [&](size_t at, V place) NOX_INLINED { (offset + place * step).store(d + i + at); };
  for (; reals - i >= 4 * N; i += 4 * N, k = k + four) {
    const V third = k + two;
    put(0, k), put(N, k + one), put(2 * N, third), put(3 * N, third + one);
  }
  for (; reals - i >= N; i += N, k = k + one) put(0, k);
  return i;
}
alignas(32) constexpr Nox64f kPlaces[] = {0, 1, 2, 3}, kComplexPlaces[] = {0, 0, 1, 1};

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void NOX_BODY(CumSum)(const Nox64f src[], Nox64f dst[], Nox32u n) { running_sum(src, dst, n); }
void NOX_BODY(CumSumc)(const Nox64fc src[], Nox64fc dst[], Nox32u n) { running_sum(src, dst, n); }
void NOX_BODY(CumSum_8u)(const Nox8u src[], Nox8u dst[], Nox32u n) { running_sum(src, dst, n); }
void NOX_BODY(CumSum_16s)(const Nox16s src[], Nox16s dst[], Nox32u n) { running_sum(src, dst, n); }
void NOX_BODY(CumSum_32s)(const Nox32s src[], Nox32s dst[], Nox32u n) { running_sum(src, dst, n); }
void NOX_BODY(CumSumDelta)(const Nox64f src[], Nox64f dst[], Nox32u n, Nox32u delta) { lagged_sum(src, dst, n, delta); }
void NOX_BODY(CumSumDeltac)(const Nox64fc src[], Nox64fc dst[], Nox32u n, Nox32u delta) {
  lagged_sum(src, dst, n, delta);
}
void NOX_BODY(CumSumDelta_8u)(const Nox8u src[], Nox8u dst[], Nox32u n, Nox32u delta) {
  lagged_sum(src, dst, n, delta);
}
void NOX_BODY(CumSumDelta_16s)(const Nox16s src[], Nox16s dst[], Nox32u n, Nox32u delta) {
  lagged_sum(src, dst, n, delta);
}
void NOX_BODY(CumSumDelta_32s)(const Nox32s src[], Nox32s dst[], Nox32u n, Nox32u delta) {
  lagged_sum(src, dst, n, delta);
}

void NOX_BODY(Rampd)(Nox64f dst[], Nox32u n, Nox64f offset, Nox64f step) {
  using V = f64::vec;
  for (size_t i = ramp(dst, n, V::load(kPlaces), V::all(V::N), V::all(offset), V::all(step)); i < n; ++i)
    (F64x1::all(offset) + F64x1::all(static_cast<Nox64f>(i)) * F64x1::all(step)).store(dst + i);
}
void NOX_BODY(Rampc)(Nox64fc dst[], Nox32u n, const Nox64fc* offset, const Nox64fc* step) {
  using V = c64::vec;
  using Reals = f64::vec;
  const V from = V::all(*offset), by = V::all(*step);
  const C64x1 last_from = C64x1::load(offset), last_by = C64x1::load(step);
  const size_t done =
      ramp(&dst->re, 2 * size_t{n}, Reals::load(kComplexPlaces), Reals::all(V::N), parts(from), parts(by));
  for (size_t i = done / 2; i < n; ++i)
    complex<C64x1>(parts(last_from) + F64x2::all(static_cast<Nox64f>(i)) * parts(last_by)).store(dst + i);
}

void NOX_BODY(Product)(const Nox64f src[], Nox32u n, Nox64f* product) {
  constexpr Nox32u kChains = 6;
  F64x2 chain[kChains];
  for (F64x2& c : chain) c = F64x2::all(1.0);
  Nox32u i = 0;
  for (; n - i >= 2 * kChains; i += 2 * kChains)
    for (Nox32u c = 0; c < kChains; ++c) chain[c] = chain[c] * F64x2::load(src + i + 2 * c);
  for (; n - i >= 2; i += 2) chain[0] = chain[0] * F64x2::load(src + i);
  const F64x2 all = ((chain[0] * chain[1]) * (chain[2] * chain[3])) * (chain[4] * chain[5]);
  F64x1 total = F64x1{all.v} * F64x1{high_halves(all, all).v};
  if (i < n) total = total * F64x1::load(src + i);
  total.store(product);
}
void NOX_BODY(Productc)(const Nox64fc src[], Nox32u n, Nox64fc* product) {
  C64x1 total = C64x1::all({1.0, 0.0});
  for (Nox32u i = 0; i < n; ++i) total = C64x1::load(src + i) * total;
  total.store(product);
}

void NOX_BODY(Flip)(const Nox64fc src[], Nox64fc dst[], Nox32u n) {
  forward(
      dst, n, [](C64x1 x) { return swap_parts(x); }, src);
}
void NOX_BODY(FlipConj)(const Nox64fc src[], Nox64fc dst[], Nox32u n) {
  forward(
      dst, n, [](C64x1 x) { return conj(swap_parts(x)); }, src);
}
void NOX_BODY(Reverse)(const Nox64fc src[], Nox64fc dst[], Nox32u n) {
  if (src == dst)
    reverse_in_place<c64>(dst, static_cast<int>(n));
  else
    map_reversed<c64>(dst, src, static_cast<int>(n), Keep{});
}

}  // extern "C"
