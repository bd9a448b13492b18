// Comparisons that deliver a mask, places, or places and elements; a count; compression by a mask.
//
// Sixteen elements are compared at a time. Tests that are another's complement share its loop, which flips the outcome.
#include "nox/array/search.h"

#include <math.h>

#include <type_traits>

#include "adapters/adapter.hpp"
#include "array/masks.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct Less {
  template <class V>
  NOX_INLINE V operator()(V x, V y) const {
    if constexpr (std::is_integral_v<typename V::elem>)
      return y > x;
    else
      return x < y;
  }
};
struct More {
  template <class V>
  NOX_INLINE V operator()(V x, V y) const {
    return Less{}(y, x);
  }
};
// For reals alone, of which a NaN is neither less nor more nor equal.
struct LessOrEqual {
  template <class V>
  NOX_INLINE V operator()(V x, V y) const {
    return x <= y;
  }
};
struct MoreOrEqual {
  template <class V>
  NOX_INLINE V operator()(V x, V y) const {
    return y <= x;
  }
};
struct Equal {
  template <class V>
  NOX_INLINE V operator()(V x, V y) const {
    return x == y;
  }
};
// Equality of reals in three cases, by what stands on the right.
struct BothNan {
  template <class V>
  NOX_INLINE V operator()(V x, V) const {
    return is_nan(x);
  }
};
struct BothInfinite {
  template <class V>
  NOX_INLINE V operator()(V x, V) const {
    return abs(x) == V::all(HUGE_VAL);
  }
};
struct Alike {
  template <class V>
  NOX_INLINE V operator()(V x, V y) const {
    const V infinity = V::all(HUGE_VAL);
    return (x == y) | (is_nan(x) & is_nan(y)) | ((abs(x) == infinity) & (abs(y) == infinity));
  }
};

// What an array is compared with: n elements of another, or a constant.
template <class T>
struct Others {
  const T* p;
  template <class V>
  NOX_INLINE V lanes(Nox32u k) const {
    return V::load(p + k);
  }
  template <class D>
  NOX_INLINE bool kept_by(const D* d, Nox32u n) const {
    return keeps_unread(d, p, n);
  }
  // run(test, flipped) for the test of equality.
  template <class Run, class Flipped>
  NOX_INLINE void equality(Run&& run, Flipped flipped) const {
    if constexpr (std::is_integral_v<T>)
      run(Equal{}, flipped);
    else
      run(Alike{}, flipped);
  }
};
template <class T>
struct Value {
  T value;
  template <class V>
  NOX_INLINE V lanes(Nox32u) const {
    return V::all(value);
  }
  template <class D>
  NOX_INLINE bool kept_by(const D*, Nox32u) const {
    return true;
  }
  template <class Run, class Flipped>
  NOX_INLINE void equality(Run&& run, Flipped flipped) const {
    if constexpr (std::is_integral_v<T>) {
      run(Equal{}, flipped);
    } else {
      if (value != value)
        run(BothNan{}, flipped);
      else if (value == HUGE_VAL || value == -HUGE_VAL)
        run(BothInfinite{}, flipped);
      else
        run(Equal{}, flipped);
    }
  }
};

// run(test, flipped) for the test of a code; nothing for a code that there isn't.
template <class T, class Right, class Run>
NOX_INLINE void by_code(Nox32u code, const Right& right, Run&& run) {
  constexpr bool kWhole = std::is_integral_v<T>;
  constexpr std::false_type kAsIs;
  constexpr std::true_type kFlipped;
  switch (code) {
    case 0:
      return run(Less{}, kAsIs);
    case 1:
      if constexpr (kWhole)
        return run(More{}, kFlipped);
      else
        return run(LessOrEqual{}, kAsIs);
    case 2:
      return run(More{}, kAsIs);
    case 3:
      if constexpr (kWhole)
        return run(Less{}, kFlipped);
      else
        return run(MoreOrEqual{}, kAsIs);
    case 4:
      return right.equality(run, kAsIs);
    case 5:
      return right.equality(run, kFlipped);
  }
}

// The outcomes of lanes, by their place from k on.
template <class T, class Right, class Test>
NOX_INLINE auto compared(const T* x, const Right& right, Nox32u k, Test test) {
  using V = std::conditional_t<std::is_integral_v<T>, V128<T>, F64x2>;
  return [=](Nox32u i) NOX_IN_LOOP { return test(V::load(x + k + i), right.template lanes<V>(k + i)); };
}
template <class T, class Right, class Test>
NOX_INLINE bool compared_one(const T* x, const Right& right, Nox32u k, Test test) {
  using One = typename lanes_of<T>::one;
  return met(test(One::load(x + k), right.template lanes<One>(k)));
}

// The words of a match are 1, but for a negative infinity found equal to an infinity: that is -1. A negative infinity
// matches nothing else, so x alone decides.
template <class Test>
constexpr bool kSigned = std::is_same_v<Test, Alike> || std::is_same_v<Test, BothInfinite>;

template <class T, class Right>
NOX_INLINE void find_mask(Nox32u code, const T* x, Right right, Nox32s* mask, Nox32u n) {
  by_code<T>(code, right, [&](auto test, auto flipped) NOX_IN_LOOP {
    using Test = decltype(test);
    constexpr bool kSigns = kSigned<Test> && !flipped;
    const Value<T> lowest = {std::is_integral_v<T> ? T(0) : static_cast<T>(-HUGE_VAL)};
    Nox32u k = 0;
    if (n >= kGroup && keeps_unread(mask, x, n) && right.kept_by(mask, n)) {
      const auto group = [=](Nox32u at, Nox32s* to) NOX_IN_LOOP {
        const __m128i one = _mm_set1_epi32(1);
        const auto put = [=](Nox32u q, __m128i w) NOX_IN_LOOP {
          __m128i ones = one;
          if constexpr (kSigns) ones = _mm_or_si128(one, outcome<T>(q, compared(x, lowest, at, Equal{})));
          V128<Nox32s>{flipped ? _mm_andnot_si128(w, one) : _mm_and_si128(w, ones)}.store(to + 4 * q);
        };
#pragma GCC unroll 4
        for (Nox32u i = 0; i < Outcomes<T>::kWidth; ++i) {
          words<T>(i, outcome<T>(i, compared(x, right, at, test)), put);
          in_order();
        }
      };
      Nox32s last[kGroup];  // before anything that it depends on may be written over
      if (n % kGroup != 0) group(n - kGroup, last);
      for (; n - k >= kGroup; k += kGroup) group(k, mask + k);
      if (k < n) __builtin_memcpy(mask + (n - kGroup), last, sizeof last);
      return;
    }
    for (; k < n; ++k) {
      Nox32s word = compared_one(x, right, k, test) != flipped;
      if constexpr (kSigns)
        if (compared_one(x, lowest, k, Equal{})) word = -word;
      IntOne<Nox32s>{word}.store(mask + k);
    }
  });
}

template <class T>
constexpr T* kNone = nullptr;

// Places of what matches, and the elements too if it gathers.
template <bool Gathers, class T, class Right>
NOX_INLINE void find(Nox32u code, const T* x, Right right, Nox32u* indexes, T* values, Nox32u n, Nox32u* count) {
  Nox32u found = 0;
  const bool grouped = keeps_unread(indexes, x, n) && right.kept_by(indexes, n) &&
                       (!Gathers || (keeps_unread(values, x, n) && right.kept_by(values, n)));
  by_code<T>(code, right, [&](auto test, bool flipped) NOX_IN_LOOP {
    const Nox32u flip = flipped ? (1u << kGroup) - 1 : 0;
    found = list_matches(
        n, grouped, [=](Nox32u k) NOX_IN_LOOP { return outcomes<T>(compared(x, right, k, test)).bits() ^ flip; },
        [=](Nox32u k) NOX_IN_LOOP { return compared_one(x, right, k, test) != flipped; },
        [=](Nox32u k, Nox32u place) NOX_IN_LOOP {
          if constexpr (Gathers) move_one(values + place, x + k);
          put_element(indexes + place, k);
        });
  });
  *count = found;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void NOX_BODY(FindMask_8u_Idx)(Nox32u code, const Nox8u x[], int xIdx, const Nox8u y[], int yIdx, Nox32s mask[],
                               int maskIdx, Nox32u n) {
  find_mask(code, at(x, xIdx), Others<Nox8u>{at(y, yIdx)}, at(mask, maskIdx), n);
}
void NOX_BODY(FindIndexes_8u_Idx)(Nox32u code, const Nox8u x[], int xIdx, const Nox8u y[], int yIdx, Nox32u indexes[],
                                  int indexesIdx, Nox32u n, Nox32u* count) {
  find<false>(code, at(x, xIdx), Others<Nox8u>{at(y, yIdx)}, at(indexes, indexesIdx), kNone<Nox8u>, n, count);
}
void NOX_BODY(FindAndGather_8u_Idx)(Nox32u code, const Nox8u x[], int xIdx, const Nox8u y[], int yIdx, Nox32u indexes[],
                                    int indexesIdx, Nox8u values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find<true>(code, at(x, xIdx), Others<Nox8u>{at(y, yIdx)}, at(indexes, indexesIdx), at(values, valuesIdx), n, count);
}
void NOX_BODY(FindMaskC_8u_Idx)(Nox32u code, const Nox8u x[], int xIdx, Nox8u value, Nox32s mask[], int maskIdx,
                                Nox32u n) {
  find_mask(code, at(x, xIdx), Value<Nox8u>{value}, at(mask, maskIdx), n);
}
void NOX_BODY(FindIndexesC_8u_Idx)(Nox32u code, const Nox8u x[], int xIdx, Nox8u value, Nox32u indexes[],
                                   int indexesIdx, Nox32u n, Nox32u* count) {
  find<false>(code, at(x, xIdx), Value<Nox8u>{value}, at(indexes, indexesIdx), kNone<Nox8u>, n, count);
}
void NOX_BODY(FindAndGatherC_8u_Idx)(Nox32u code, const Nox8u x[], int xIdx, Nox8u value, Nox32u indexes[],
                                     int indexesIdx, Nox8u values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find<true>(code, at(x, xIdx), Value<Nox8u>{value}, at(indexes, indexesIdx), at(values, valuesIdx), n, count);
}

void NOX_BODY(FindMask_16s_Idx)(Nox32u code, const Nox16s x[], int xIdx, const Nox16s y[], int yIdx, Nox32s mask[],
                                int maskIdx, Nox32u n) {
  find_mask(code, at(x, xIdx), Others<Nox16s>{at(y, yIdx)}, at(mask, maskIdx), n);
}
void NOX_BODY(FindIndexes_16s_Idx)(Nox32u code, const Nox16s x[], int xIdx, const Nox16s y[], int yIdx,
                                   Nox32u indexes[], int indexesIdx, Nox32u n, Nox32u* count) {
  find<false>(code, at(x, xIdx), Others<Nox16s>{at(y, yIdx)}, at(indexes, indexesIdx), kNone<Nox16s>, n, count);
}
void NOX_BODY(FindAndGather_16s_Idx)(Nox32u code, const Nox16s x[], int xIdx, const Nox16s y[], int yIdx,
                                     Nox32u indexes[], int indexesIdx, Nox16s values[], int valuesIdx, Nox32u n,
                                     Nox32u* count) {
  find<true>(code, at(x, xIdx), Others<Nox16s>{at(y, yIdx)}, at(indexes, indexesIdx), at(values, valuesIdx), n, count);
}
void NOX_BODY(FindMaskC_16s_Idx)(Nox32u code, const Nox16s x[], int xIdx, Nox16s value, Nox32s mask[], int maskIdx,
                                 Nox32u n) {
  find_mask(code, at(x, xIdx), Value<Nox16s>{value}, at(mask, maskIdx), n);
}
void NOX_BODY(FindIndexesC_16s_Idx)(Nox32u code, const Nox16s x[], int xIdx, Nox16s value, Nox32u indexes[],
                                    int indexesIdx, Nox32u n, Nox32u* count) {
  find<false>(code, at(x, xIdx), Value<Nox16s>{value}, at(indexes, indexesIdx), kNone<Nox16s>, n, count);
}
void NOX_BODY(FindAndGatherC_16s_Idx)(Nox32u code, const Nox16s x[], int xIdx, Nox16s value, Nox32u indexes[],
                                      int indexesIdx, Nox16s values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find<true>(code, at(x, xIdx), Value<Nox16s>{value}, at(indexes, indexesIdx), at(values, valuesIdx), n, count);
}

void NOX_BODY(FindMask_32s_Idx)(Nox32u code, const Nox32s x[], int xIdx, const Nox32s y[], int yIdx, Nox32s mask[],
                                int maskIdx, Nox32u n) {
  find_mask(code, at(x, xIdx), Others<Nox32s>{at(y, yIdx)}, at(mask, maskIdx), n);
}
void NOX_BODY(FindIndexes_32s_Idx)(Nox32u code, const Nox32s x[], int xIdx, const Nox32s y[], int yIdx,
                                   Nox32u indexes[], int indexesIdx, Nox32u n, Nox32u* count) {
  find<false>(code, at(x, xIdx), Others<Nox32s>{at(y, yIdx)}, at(indexes, indexesIdx), kNone<Nox32s>, n, count);
}
void NOX_BODY(FindAndGather_32s_Idx)(Nox32u code, const Nox32s x[], int xIdx, const Nox32s y[], int yIdx,
                                     Nox32u indexes[], int indexesIdx, Nox32s values[], int valuesIdx, Nox32u n,
                                     Nox32u* count) {
  find<true>(code, at(x, xIdx), Others<Nox32s>{at(y, yIdx)}, at(indexes, indexesIdx), at(values, valuesIdx), n, count);
}
void NOX_BODY(FindMaskC_32s_Idx)(Nox32u code, const Nox32s x[], int xIdx, Nox32s value, Nox32s mask[], int maskIdx,
                                 Nox32u n) {
  find_mask(code, at(x, xIdx), Value<Nox32s>{value}, at(mask, maskIdx), n);
}
void NOX_BODY(FindIndexesC_32s_Idx)(Nox32u code, const Nox32s x[], int xIdx, Nox32s value, Nox32u indexes[],
                                    int indexesIdx, Nox32u n, Nox32u* count) {
  find<false>(code, at(x, xIdx), Value<Nox32s>{value}, at(indexes, indexesIdx), kNone<Nox32s>, n, count);
}
void NOX_BODY(FindAndGatherC_32s_Idx)(Nox32u code, const Nox32s x[], int xIdx, Nox32s value, Nox32u indexes[],
                                      int indexesIdx, Nox32s values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find<true>(code, at(x, xIdx), Value<Nox32s>{value}, at(indexes, indexesIdx), at(values, valuesIdx), n, count);
}

void NOX_BODY(FindMask_64f_Idx)(Nox32u code, const Nox64f x[], int xIdx, const Nox64f y[], int yIdx, Nox32s mask[],
                                int maskIdx, Nox32u n) {
  find_mask(code, at(x, xIdx), Others<Nox64f>{at(y, yIdx)}, at(mask, maskIdx), n);
}
void NOX_BODY(FindIndexes_64f_Idx)(Nox32u code, const Nox64f x[], int xIdx, const Nox64f y[], int yIdx,
                                   Nox32u indexes[], int indexesIdx, Nox32u n, Nox32u* count) {
  find<false>(code, at(x, xIdx), Others<Nox64f>{at(y, yIdx)}, at(indexes, indexesIdx), kNone<Nox64f>, n, count);
}
void NOX_BODY(FindAndGather_64f_Idx)(Nox32u code, const Nox64f x[], int xIdx, const Nox64f y[], int yIdx,
                                     Nox32u indexes[], int indexesIdx, Nox64f values[], int valuesIdx, Nox32u n,
                                     Nox32u* count) {
  find<true>(code, at(x, xIdx), Others<Nox64f>{at(y, yIdx)}, at(indexes, indexesIdx), at(values, valuesIdx), n, count);
}
void NOX_BODY(FindMaskC_64f_Idx)(Nox32u code, const Nox64f x[], int xIdx, Nox64f value, Nox32s mask[], int maskIdx,
                                 Nox32u n) {
  find_mask(code, at(x, xIdx), Value<Nox64f>{value}, at(mask, maskIdx), n);
}
void NOX_BODY(FindIndexesC_64f_Idx)(Nox32u code, const Nox64f x[], int xIdx, Nox64f value, Nox32u indexes[],
                                    int indexesIdx, Nox32u n, Nox32u* count) {
  find<false>(code, at(x, xIdx), Value<Nox64f>{value}, at(indexes, indexesIdx), kNone<Nox64f>, n, count);
}
void NOX_BODY(FindAndGatherC_64f_Idx)(Nox32u code, const Nox64f x[], int xIdx, Nox64f value, Nox32u indexes[],
                                      int indexesIdx, Nox64f values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find<true>(code, at(x, xIdx), Value<Nox64f>{value}, at(indexes, indexesIdx), at(values, valuesIdx), n, count);
}

void NOX_BODY(CountGT)(const Nox64f x[], Nox64f value, Nox32u* count, Nox32u n) {
  const F64x2 bound = F64x2::all(value);
  __m128i fewer[4] = {};  // the counts of four chains, negative
  Nox32u k = 0;
  for (; n - k >= 8; k += 8) {
#pragma GCC unroll 4
    for (Nox32u i = 0; i < 4; ++i)
      fewer[i] = _mm_add_epi32(fewer[i], _mm_castpd_si128((bound < F64x2::load(x + k + 2 * i)).v));
  }
  const __m128i pairs = _mm_add_epi32(_mm_add_epi32(fewer[0], fewer[1]), _mm_add_epi32(fewer[2], fewer[3]));
  Nox32u found = 0u - static_cast<Nox32u>(_mm_cvtsi128_si32(_mm_add_epi32(pairs, _mm_srli_si128(pairs, 8))));
  for (; k < n; ++k) found += met(F64x1::all(value) < F64x1::load(x + k));
  *count = found;
}

Nox32s NOX_BODY(PackByMask)(Nox32u n, const Nox64f src[], Nox64f dst[], const Nox32s mask[]) {
  return static_cast<Nox32s>(compress(src, dst, mask, n));
}
Nox32s NOX_BODY(PackByMaskc)(Nox32u n, const Nox64fc src[], Nox64fc dst[], const Nox32s mask[]) {
  return static_cast<Nox32s>(compress(src, dst, mask, n));
}

}  // extern "C"
