// Exact sums of integers, scaled sums and rounded means of them.
//
// Blocks are short enough for 32-bit lanes: 16-bit elements are added in pairs; 32-bit ones as they are, modulo 2^32,
// and their upper halves beside, which tell the sum's upper bits. That takes fewer instructions than 64-bit lanes.
#include "core/body.hpp"
#include "core/reduce.hpp"
#include "core/simd/choose.hpp"
#include "stats/extrema.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using V = ints<Nox32s>::vec;

struct Add {
  template <class T>
  NOX_INLINE T operator()(T a, T b) const {
    return a + b;
  }
};

// ---- 16 bits: a block sums to at least -2^31 and less than 2^31.
constexpr size_t kShorts = 65536;

NOX_INLINE V128<Nox32s> add_pairs(V128<Nox16s> x) { return {_mm_madd_epi16(x.v, _mm_set1_epi16(1))}; }
#if NOX_LEVEL >= 4
NOX_INLINE V256<Nox32s> add_pairs(V256<Nox16s> x) { return {_mm256_madd_epi16(x.v, _mm256_set1_epi16(1))}; }
#endif
struct AddPairs {
  template <class S>
  NOX_INLINE V operator()(V sum, S x) const {
    return sum + add_pairs(x);
  }
};

// Adds the whole vectors of up to a block's elements to `sum`, and returns how many elements are left.
NOX_INLINE size_t add_block(Nox64s& sum, size_t n, const Nox16s*& s) {
  V acc[4] = {V::zero(), V::zero(), V::zero(), V::zero()};
  n = take_vectors<ints<Nox16s>, 4>(acc, n, AddPairs{}, s);
  n = take_vectors<ints<Nox16s>, 1>(acc, n, AddPairs{}, s);
  sum += fold_lanes(Add{}, acc[0] + acc[1] + (acc[2] + acc[3]));
  return n;
}

// ---- 32 bits: with x = 65536 high + low, of a block |sum of high| <= 2^30 and 0 <= sum of low < 2^31.
constexpr size_t kWords = 32768;

struct Halves {
  V whole, high;
};
struct AddHalves {
  NOX_INLINE Halves operator()(Halves sum, V element) const {
    const V x = once(element);
    return {once(sum.whole + x), once(sum.high + shift_right(x, 16))};
  }
};

NOX_INLINE size_t add_block(Nox64s& sum, size_t n, const Nox32s*& s) {
  Halves acc[2] = {{V::zero(), V::zero()}, {V::zero(), V::zero()}};
  n = take_vectors<in_pairs<ints<Nox32s>>, 2>(acc, n, PairStep<AddHalves>{}, s);
  n = take_vectors<ints<Nox32s>, 1>(acc, n, AddHalves{}, s);
  const Nox32s whole = fold_lanes(Add{}, acc[0].whole + acc[1].whole);
  const Nox32s high = fold_lanes(Add{}, acc[0].high + acc[1].high);
  sum += Nox64s(high) * 65536 + (Nox32u(whole) - (Nox32u(high) << 16));
  return n;
}

template <class T, size_t Block>
NOX_INLINE Nox64s exact_sum(const T* s, int len) {
  Nox64s sum = 0;
  size_t left = static_cast<size_t>(len);
  size_t rest = 0;
  while (left > 0) {
    const size_t block = left < Block ? left : Block;
    left -= block;
    rest = add_block(sum, block, s);
  }
  for (; rest > 0; --rest) {
    sum += IntOne<T>::load(s).v;
    advance(sizeof(T), s);
  }
  return sum;
}

// ---- results

NOX_INLINE Nox32s saturated(Nox64s x) { return IntOne<Nox32s>(cut<Nox32s>(x)).v; }

// sum 2^-scale, halves to even, saturated; |sum| <= 2^62.
NOX_INLINE Nox32s scaled(Nox64s sum, int scale) {
  if (scale > 0) {
    const int s = scale < 63 ? scale : 63;
    return saturated((sum + ((Nox64s(1) << (s - 1)) - 1) + ((sum >> s) & 1)) >> s);
  }
  const int n = scale > -31 ? -scale : 31;
  constexpr Nox32s kMost = highest<Nox32s>, kLeast = lowest<Nox32s>;
  if (sum > (kMost >> n)) return kMost;
  if (sum < (kLeast >> n)) return kLeast;
  return Nox32s(Nox32u(sum) << n);
}

template <class T, size_t Block>
NOX_INLINE NoxStatus scaled_sum(const T* s, int len, Nox32s* sum, int scale) {
  if (const NoxStatus st = check(len, s, sum)) return st;
  *sum = scaled(exact_sum<T, Block>(s, len), scale);
  return noxStsNoErr;
}

// (high 2^32 + low) / by and its remainder, for high < by: the processor's division, which the compiler would call a
// library function for.
NOX_INLINE Nox32u divide(Nox32u high, Nox32u low, Nox32u by, Nox32u& remainder) {
  Nox32u q;
  asm("divl %4" : "=a"(q), "=d"(remainder) : "a"(low), "d"(high), "rm"(by) : "cc");
  return q;
}
// m / n, halves to even, for n < 2^31.
NOX_INLINE Nox64u rounded_quotient(Nox64u m, Nox32u n) {
  const Nox32u high = Nox32u(m >> 32);
  Nox32u r;
  const Nox32u low = divide(high % n, Nox32u(m), n, r);
  const Nox64u q = Nox64u(high / n) << 32 | low;
  return q + (2 * r > n || (2 * r == n && (q & 1)));
}

NOX_INLINE Nox32s scaled_mean(Nox64s sum, Nox32u n, int scale) {
  const Nox64u magnitude = sum < 0 ? 0 - Nox64u(sum) : Nox64u(sum);
  Nox64u q;
  if (scale >= 0) {
    q = rounded_quotient(magnitude, n);
    if (scale > 0) q = (Nox32u(q) + ((Nox32u(q) >> ((scale - 1) & 31)) & 1)) >> (scale & 31);
  } else {
    const Nox32u up = 0 - Nox32u(scale);
    if (up < 32 && sum == Nox32s(sum)) {
      q = rounded_quotient(magnitude << up, n);
    } else {
      q = rounded_quotient(magnitude, n);
      q = up < 32 ? q << up : Nox64u(q != 0) << 32;
    }
  }
  return saturated(sum < 0 ? -Nox64s(q) : Nox64s(q));
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsSum_32s_Sfs)(const Nox32s* s, int len, Nox32s* sum, int scale) {
  return scaled_sum<Nox32s, kWords>(s, len, sum, scale);
}
NoxStatus NOX_BODY(noxsSum_16s32s_Sfs)(const Nox16s* s, int len, Nox32s* sum, int scale) {
  return scaled_sum<Nox16s, kShorts>(s, len, sum, scale);
}
NoxStatus NOX_BODY(noxsMean_32s_Sfs)(const Nox32s* s, int len, Nox32s* mean, int scale) {
  if (const NoxStatus st = check(len, s, mean)) return st;
  *mean = scaled_mean(exact_sum<Nox32s, kWords>(s, len), Nox32u(len), scale);
  return noxStsNoErr;
}

}  // extern "C"
