// Extrema of Nox64f: values, first places, order of magnitude.
//
// The lanes hold what the processor's maximum of (accumulator, element) gives: the element where either is a NaN or
// both are zeros. So a NaN vanishes with the next element of its lane, and what it does near the end depends on the
// lanes.
#include "stats/extrema.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using V = f64::vec;

// Vectors of accumulators: of one extreme, of the first pass for a place, and of each of two at once.
struct Lanes {
  int one, for_place, both;
};
constexpr Lanes lanes = NOX_LEVEL >= 3 ? Lanes{4, 4, 2} : Lanes{4, 2, 1};

template <int Count, class F>
NOX_INLINE V fold_all(F f, V (&a)[Count]) {
  for (int half = Count / 2; half > 0; half /= 2)
    for (int k = 0; k < half; ++k) a[k] = f(a[k], a[k + half]);
  return a[0];
}
template <class F>
NOX_INLINE F64x1 last(F f, V a) {
  const F64x2 two = halves(f, a);
  return f(low(two), upper(two));
}

template <int Count, class F>
NOX_INLINE F64x1 extreme_of(const Nox64f* s, int len, F f) {
  V acc[Count];
  for (V& a : acc) a = V::all(*s);
  const size_t n = static_cast<size_t>(len);
  const auto fold = [f](V(&a)[Count]) { return fold_all(f, a); };
  return last(f, reduce<f64, Count, FoldAt::BehindRest>(acc, n, peel_to_boundary<V>(s, n), f, fold, s));
}

// Both extremes, each in lanes of its own.
struct Both {
  V least, most;
};
struct OneBoth {
  F64x1 least, most;
};
NOX_INLINE OneBoth low(Both a) { return {low(a.least), low(a.most)}; }
NOX_INLINE Both with_low(Both a, OneBoth b) { return {with_low(a.least, b.least), with_low(a.most, b.most)}; }
struct BothStep {
  NOX_INLINE Both operator()(Both a, V x) const {
    x = for_two(x);
    return {min(a.least, x), max(a.most, x)};
  }
  NOX_INLINE OneBoth operator()(OneBoth a, F64x1 x) const { return {min(a.least, x), max(a.most, x)}; }
};
NOX_INLINE OneBoth extremes_of(const Nox64f* s, int len) {
  constexpr int kCount = lanes.both;
  Both acc[kCount];
  for (Both& a : acc) a = {V::all(*s), V::all(*s)};
  const size_t n = static_cast<size_t>(len);
  const auto fold = [](Both(&a)[kCount]) {
    for (int k = 1; k < kCount; ++k) a[0] = {min(a[0].least, a[k].least), max(a[0].most, a[k].most)};
    return a[0];
  };
  const Both all = reduce<f64, kCount, FoldAt::BehindRest>(acc, n, peel_to_boundary<V>(s, n), BothStep{}, fold, s);
  return {last(Smaller{}, all.least), last(Larger{}, all.most)};
}

// The first element for which equal(vector) holds; 0 if there is none.
template <class Equal>
NOX_INLINE int first_of(const Nox64f* s, int len, Equal&& equal) {
  const size_t n = static_cast<size_t>(len);
  size_t i = 0;
  for (; n - i >= size_t(2 * V::N); i += 2 * V::N) {
    const int found = equal(V::load(s + i)) | equal(V::load(s + i + V::N)) << V::N;
    if (found != 0) return static_cast<int>(i) + __builtin_ctz(unsigned(found));
  }
  for (; i < n; ++i)
    if (equal(F64x1::load(s + i)) & 1) return static_cast<int>(i);
  return 0;
}
// Lanes whose 64 bits are the same.
NOX_INLINE int same_bits(F64x2 a, F64x2 b) {
  const __m128i words = _mm_cmpeq_epi32(_mm_castpd_si128(a.v), _mm_castpd_si128(b.v));
  return _mm_movemask_pd(_mm_castsi128_pd(_mm_and_si128(words, _mm_shuffle_epi32(words, 0xB1))));
}
#if NOX_LEVEL >= 4
NOX_INLINE int same_bits(F64x4 a, F64x4 b) {
  return _mm256_movemask_pd(
      _mm256_castsi256_pd(_mm256_cmpeq_epi64(_mm256_castpd_si256(a.v), _mm256_castpd_si256(b.v))));
}
#elif NOX_LEVEL == 3
NOX_INLINE int same_bits(F64x4 a, F64x4 b) {
  const F64x2 a1 = {_mm256_extractf128_pd(a.v, 1)}, b1 = {_mm256_extractf128_pd(b.v, 1)};
  return same_bits(F64x2{_mm256_castpd256_pd128(a.v)}, F64x2{_mm256_castpd256_pd128(b.v)}) | same_bits(a1, b1) << 2;
}
#endif
NOX_INLINE int same_bits(F64x1 a, F64x1 b) { return same_bits(F64x2{a.v}, F64x2{b.v}) & 1; }
// The value of all lanes, with its bits.
template <class T>
NOX_INLINE T spread(F64x1 a) {
  const F64x2 two = {_mm_unpacklo_pd(a.v, a.v)};
  if constexpr (T::N == 4) {
#if NOX_LEVEL >= 3
    return {_mm256_insertf128_pd(_mm256_castpd128_pd256(two.v), two.v, 1)};
#endif
  } else {
    return {two.v};
  }
}

template <class F>
NOX_INLINE NoxStatus find(const Nox64f* s, int len, F f, Nox64f* value) {
  if (const NoxStatus st = check(len, s, value)) return st;
  extreme_of<lanes.one>(s, len, f).store(value);
  return noxStsNoErr;
}
template <class F>
NOX_INLINE NoxStatus find_with_place(const Nox64f* s, int len, F f, Nox64f* value, int* place) {
  if (!place) return find(s, len, f, value);
  if (const NoxStatus st = check(len, s, value)) return st;
  if (len >= 32 && reinterpret_cast<uintptr_t>(s) % sizeof(Nox64f) == 0) {
    const F64x1 found = extreme_of<lanes.for_place>(s, len, f);
    const V all = spread<V>(found);
    *place = first_of(s, len, [&](auto x) {
      if constexpr (decltype(x)::N == 1)
        return same_bits(x, found);
      else
        return same_bits(x, all);
    });
    found.store(value);
    return noxStsNoErr;
  }
  // Here an element must beat the best one so far, so a NaN never wins, and nothing beats one at the front.
  F64x1 best = F64x1::load(s);
  int at = 0;
  for (int i = 1; i < len; ++i) {
    const F64x1 x = F64x1::load(s + i);
    if (mask_bits(f.beats(x, best)) == 0) continue;
    best = x;
    at = i;
  }
  best.store(value);
  *place = at;
  return noxStsNoErr;
}

struct Largest : Larger {
  static NOX_INLINE F64x1 beats(F64x1 a, F64x1 b) { return b < a; }
};
struct Smallest : Smaller {
  static NOX_INLINE F64x1 beats(F64x1 a, F64x1 b) { return a < b; }
};

// ---- order of magnitude
constexpr Nox32u kInvalid = 1;                // flag of the floating-point control and status word
constexpr Nox32u kLargestHigh = 0x7FEFFFFFu;  // high word of the largest finite value

// Where an infinity hides the rest: the largest top 16 bits of the finite magnitudes. The last of four elements already
// counts as 0 where its high word is that of the largest finite values.
NOX_INLINE Nox32u largest_finite(const Nox64f* s, int len, bool& all_finite) {
  Nox32u most = 0;
  for (int i = 0; i < len; ++i) {
    Nox64u bits;
    __builtin_memcpy(&bits, s + i, sizeof bits);
    const Nox32u high = static_cast<Nox32u>(bits >> 32) & 0x7FFFFFFFu;
    if (high > kLargestHigh) {
      all_finite = false;
      continue;
    }
    if (i % 4 == 3 && high == kLargestHigh) continue;
    if (high >> 16 > most) most = high >> 16;
  }
  return most << 16;
}

// Magnitudes against the accumulator as second operand: a NaN is skipped, and raises the invalid flag.
struct MagnitudeStep {
  template <class T>
  NOX_INLINE T operator()(T a, T x) const {
    return max(abs(x), a);
  }
};

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsMax_64f)(const Nox64f* s, int len, Nox64f* value) { return find(s, len, Largest{}, value); }
NoxStatus NOX_BODY(noxsMin_64f)(const Nox64f* s, int len, Nox64f* value) { return find(s, len, Smallest{}, value); }
NoxStatus NOX_BODY(noxsMinMax_64f)(const Nox64f* s, int len, Nox64f* least, Nox64f* most) {
  if (const NoxStatus st = check(len, s, least, most)) return st;
  const OneBoth both = extremes_of(s, len);
  both.least.store(least);
  both.most.store(most);
  return noxStsNoErr;
}
NoxStatus NOX_BODY(noxsMaxIndx_64f)(const Nox64f* s, int len, Nox64f* value, int* place) {
  return find_with_place(s, len, Largest{}, value, place);
}
NoxStatus NOX_BODY(noxsMinIndx_64f)(const Nox64f* s, int len, Nox64f* value, int* place) {
  return find_with_place(s, len, Smallest{}, value, place);
}
NoxStatus NOX_BODY(noxsMinMaxIndx_64f)(const Nox64f* s, int len, Nox64f* least, int* leastAt, Nox64f* most,
                                       int* mostAt) {
  if (const NoxStatus st = check(len, s, least, leastAt, most, mostAt)) return st;
  const OneBoth both = extremes_of(s, len);
  const auto place = [&](F64x1 value) {
    return first_of(s, len, [&](auto x) { return mask_bits(x == spread<decltype(x)>(value)); });
  };
  const int least_at = place(both.least), most_at = place(both.most);
  both.least.store(least);
  both.most.store(most);
  *leastAt = least_at;
  *mostAt = most_at;
  return noxStsNoErr;
}

NoxStatus NOX_BODY(noxsMaxOrder_64f)(const Nox64f* s, int len, int* order) {
  if (len < 1) return noxStsSizeErr;
  if (!s || !order) return noxStsNullPtrErr;
  V acc[4] = {V::zero(), V::zero(), V::zero(), V::zero()};
  const auto fold = [](V(&a)[4]) { return fold_all(Larger{}, a); };
  const V all = reduce<f64, 4, FoldAt::BehindRest>(acc, static_cast<size_t>(len), 0, MagnitudeStep{}, fold, s);
  Nox64f most;
  last(Larger{}, all).store(&most);
  asm volatile("" : "+m"(most));  // the flags are read behind the maximum that raises them
  Nox64u bits;
  __builtin_memcpy(&bits, &most, sizeof bits);
  Nox32u high = static_cast<Nox32u>(bits >> 32);
  bool all_finite = true;
  if (high >> 20 == 0x7FF) high = largest_finite(s, len, all_finite);
  const Nox32u status = _mm_getcsr();
  if (status & kInvalid) {
    _mm_setcsr(status & ~kInvalid);
    all_finite = false;
  }
  *order = high == 0 ? 0 : static_cast<int>(high >> 20) - 1022;
  return all_finite ? noxStsNoErr : noxStsNanArg;
}

}  // extern "C"
