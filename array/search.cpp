// Search: masks, lists of indexes and gathered elements of a comparison, and packing by a mask.
//
// Equality of reals is not IEEE's: NaN equals NaN, and an infinity equals both infinities. Masks run in vectors, whose
// lanes are spread over the words of the mask; lists grow with each match, so they go element by element and write
// nothing but matches.
#include "nox/array/search.h"
#include "adapters/adapter.hpp"
#include "array/operands.hpp"
#include "core/simd/ints_wide.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// ---- relations, on vectors and on single elements; the compare code is their number
NOX_INLINE F64x2 is_infinite(F64x2 a) { return abs(a) == F64x2::all(__builtin_inf()); }
NOX_INLINE bool is_infinite(Nox64f a) { return __builtin_isinf(a); }
NOX_INLINE F64x2 less(F64x2 a, F64x2 b) { return a < b; }
NOX_INLINE F64x2 not_above(F64x2 a, F64x2 b) { return a <= b; }
NOX_INLINE F64x2 same(F64x2 a, F64x2 b) {
  return (a == b) | (is_nan(a) & is_nan(b)) | (is_infinite(a) & is_infinite(b));
}
NOX_INLINE F64x2 inverse(F64x2 a) {
  return a ^ F64x2 { _mm_castsi128_pd(_mm_set1_epi32(-1)) };
}
template <class T>
NOX_INLINE V128<T> inverse(V128<T> a) {
  return a ^ V128<T>::all(T(-1));
}
template <class T>
NOX_INLINE V128<T> less(V128<T> a, V128<T> b) {
  return b > a;
}
template <class T>
NOX_INLINE V128<T> not_above(V128<T> a, V128<T> b) {
  return inverse(a > b);
}
template <class T>
NOX_INLINE V128<T> same(V128<T> a, V128<T> b) {
  return a == b;
}
template <class T>
NOX_INLINE bool less(T a, T b) {
  return a < b;
}
template <class T>
NOX_INLINE bool not_above(T a, T b) {
  return a <= b;
}
template <class T>
NOX_INLINE bool same(T a, T b) {
  return a == b;
}
NOX_INLINE bool same(Nox64f a, Nox64f b) { return a == b || (a != a && b != b) || (is_infinite(a) && is_infinite(b)); }
NOX_INLINE bool inverse(bool a) { return !a; }

template <int Code>
struct Relation {
  static constexpr bool kEqual = Code == 4;
  template <class V>
  NOX_INLINE auto operator()(V x, V y) const {
    if constexpr (Code == 0)
      return less(x, y);
    else if constexpr (Code == 1)
      return not_above(x, y);
    else if constexpr (Code == 2)
      return less(y, x);
    else if constexpr (Code == 3)
      return not_above(y, x);
    else if constexpr (Code == 4)
      return same(x, y);
    else
      return inverse(same(x, y));
  }
};
// use(relation), or nothing for a code that has none.
template <class Use>
NOX_INLINE void with_relation(Nox32u code, Use&& use) {
  switch (code) {
    case 0:
      return use(Relation<0>{});
    case 1:
      return use(Relation<1>{});
    case 2:
      return use(Relation<2>{});
    case 3:
      return use(Relation<3>{});
    case 4:
      return use(Relation<4>{});
    case 5:
      return use(Relation<5>{});
    default:
      return;
  }
}

// ---- masks: lanes of matches spread over words of 1 and 0
NOX_INLINE void spread(V128<Nox32s> m, Nox32s* d) { (m & V128<Nox32s>::all(1)).store(d); }
NOX_INLINE void spread(V128<Nox16s> m, Nox32s* d) {
  const Two<V128<Nox32s>> words = widen(V128<Nox16u>{(m & V128<Nox16s>::all(1)).v});
  words.low.store(d);
  words.high.store(d + 4);
}
NOX_INLINE void spread(V128<Nox8u> m, Nox32s* d) {
  const Two<V128<Nox16u>> halves = widen(m);
  spread(V128<Nox16s>{halves.low.v}, d);
  spread(V128<Nox16s>{halves.high.v}, d + 8);
}

template <class T, class R, class Y>
struct MaskStep {
  static constexpr Nox32u kElements = V128<T>::N;
  static NOX_INLINE void run(R relation, Elements<T> x, Y y, Nox32u i, Nox32s* d) {
    spread(relation(x.lanes(i), y.lanes(i)), d);
  }
  static NOX_INLINE Nox32s one(R relation, T x, T y) { return relation(x, y); }
};
// A match of infinities carries the sign of the first: -1 where it is negative.
template <class R, class Y>
struct MaskStep<Nox64f, R, Y> {
  static constexpr Nox32u kElements = 4;
  static NOX_INLINE V128<Nox32s> words(F64x2 low, F64x2 high) {
    return {_mm_castps_si128(_mm_shuffle_ps(_mm_castpd_ps(low.v), _mm_castpd_ps(high.v), 0x88))};
  }
  static NOX_INLINE void run(R relation, Elements<Nox64f> x, Y y, Nox32u i, Nox32s* d) {
    const F64x2 x0 = x.lanes(i), x1 = x.lanes(i + 2), y0 = y.lanes(i), y1 = y.lanes(i + 2);
    const F64x2 m0 = relation(x0, y0), m1 = relation(x1, y1);
    V128<Nox32s> out = words(m0, m1) & V128<Nox32s>::all(1);
    if constexpr (R::kEqual) {
      const F64x2 negative0 = is_infinite(y0) & (x0 < F64x2::zero()),
                  negative1 = is_infinite(y1) & (x1 < F64x2::zero());
      out = out | words(m0 & negative0, m1 & negative1);
    }
    out.store(d);
  }
  static NOX_INLINE Nox32s one(R relation, Nox64f x, Nox64f y) {
    return R::kEqual && is_infinite(y) && x < 0 ? -Nox32s(relation(x, y)) : Nox32s(relation(x, y));
  }
};
template <class T, class Y>
NOX_INLINE void find_mask(Nox32u code, Elements<T> x, Y y, Nox32s* mask, Nox32u n) {
  with_relation(code, [&](auto relation) {
    using Step = MaskStep<T, decltype(relation), Y>;
    Nox32u i = 0;
    if (!x.meets(mask, n * sizeof *mask, n) && !y.meets(mask, n * sizeof *mask, n))
      for (; n - i >= Step::kElements; i += Step::kElements) Step::run(relation, x, y, i, mask + i);
    for (; i < n; ++i) put_element(mask + i, Step::one(relation, x.one(i), y.one(i)));
  });
}

// ---- lists: found(k, x[k]) for every match
template <class T, class Y, class Found>
NOX_INLINE void each_match(Nox32u code, Elements<T> x, Y y, Nox32u n, Found&& found) {
  with_relation(code, [&](auto relation) {
#pragma GCC unroll 2
    for (Nox32u k = 0; k < n; ++k) {
      const T element = x.one(k);
      if (relation(element, y.one(k))) found(k, element);
    }
  });
}
template <class T, class Y>
NOX_INLINE void find_indexes(Nox32u code, Elements<T> x, Y y, Nox32u* indexes, Nox32u n, Nox32u* count) {
  Nox32u found = 0;
  each_match(code, x, y, n, [&](Nox32u k, T) { put_element(indexes + found++, k); });
  *count = found;
}
template <class T, class Y>
NOX_INLINE void find_and_gather(Nox32u code, Elements<T> x, Y y, Nox32u* indexes, T* values, Nox32u n, Nox32u* count) {
  Nox32u found = 0;
  each_match(code, x, y, n, [&](Nox32u k, T) {
    put_element(indexes + found, k);
    lanes_of<T>::one::load(x.p + k).store(values + found);
    ++found;
  });
  *count = found;
}

template <class T>
NOX_INLINE Nox32s pack_by_mask(Nox32u n, const T* s, T* d, const Nox32s* mask) {
  using One = typename lanes_of<T>::one;
  Nox32s packed = 0;
  for (Nox32u k = 0; k < n; ++k)
    if (element_at(mask + k) > 0) One::load(s + k).store(d + packed++);
  return packed;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void CountGT(const Nox64f x[], Nox64f value, Nox32u* count, Nox32u n) {
  const F64x2 least = F64x2::all(value);
  __m128i low = _mm_setzero_si128(), high = low;
  const auto above = [&](Nox32u i) { return _mm_castpd_si128((least < F64x2::load(x + i)).v); };
  Nox32u i = 0;
  for (; n - i >= 4; i += 4) low = _mm_sub_epi64(low, above(i)), high = _mm_sub_epi64(high, above(i + 2));
  low = _mm_add_epi64(low, high);
  Nox32u found = static_cast<Nox32u>(_mm_cvtsi128_si32(low) + _mm_cvtsi128_si32(_mm_srli_si128(low, 8)));
  for (; i < n; ++i) found += element_at(x + i) > value;
  *count = found;
}
Nox32s PackByMask(Nox32u n, const Nox64f src[], Nox64f dst[], const Nox32s mask[]) {
  return pack_by_mask(n, src, dst, mask);
}
Nox32s PackByMaskc(Nox32u n, const Nox64fc src[], Nox64fc dst[], const Nox32s mask[]) {
  return pack_by_mask(n, src, dst, mask);
}

void FindMask_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, const Nox8u y[], int yIdx, Nox32s mask[], int maskIdx,
                     Nox32u n) {
  find_mask(code, Elements<Nox8u>{at(x, xIdx)}, Elements<Nox8u>{at(y, yIdx)}, at(mask, maskIdx), n);
}
void FindIndexes_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, const Nox8u y[], int yIdx, Nox32u indexes[],
                        int indexesIdx, Nox32u n, Nox32u* count) {
  find_indexes(code, Elements<Nox8u>{at(x, xIdx)}, Elements<Nox8u>{at(y, yIdx)}, at(indexes, indexesIdx), n, count);
}
void FindAndGather_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, const Nox8u y[], int yIdx, Nox32u indexes[],
                          int indexesIdx, Nox8u values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find_and_gather(code, Elements<Nox8u>{at(x, xIdx)}, Elements<Nox8u>{at(y, yIdx)}, at(indexes, indexesIdx),
                  at(values, valuesIdx), n, count);
}

void FindMaskC_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, Nox8u value, Nox32s mask[], int maskIdx, Nox32u n) {
  find_mask(code, Elements<Nox8u>{at(x, xIdx)}, Constant<Nox8u>{value}, at(mask, maskIdx), n);
}
void FindIndexesC_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, Nox8u value, Nox32u indexes[], int indexesIdx,
                         Nox32u n, Nox32u* count) {
  find_indexes(code, Elements<Nox8u>{at(x, xIdx)}, Constant<Nox8u>{value}, at(indexes, indexesIdx), n, count);
}
void FindAndGatherC_8u_Idx(Nox32u code, const Nox8u x[], int xIdx, Nox8u value, Nox32u indexes[], int indexesIdx,
                           Nox8u values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find_and_gather(code, Elements<Nox8u>{at(x, xIdx)}, Constant<Nox8u>{value}, at(indexes, indexesIdx),
                  at(values, valuesIdx), n, count);
}

void FindMask_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, const Nox16s y[], int yIdx, Nox32s mask[], int maskIdx,
                      Nox32u n) {
  find_mask(code, Elements<Nox16s>{at(x, xIdx)}, Elements<Nox16s>{at(y, yIdx)}, at(mask, maskIdx), n);
}
void FindIndexes_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, const Nox16s y[], int yIdx, Nox32u indexes[],
                         int indexesIdx, Nox32u n, Nox32u* count) {
  find_indexes(code, Elements<Nox16s>{at(x, xIdx)}, Elements<Nox16s>{at(y, yIdx)}, at(indexes, indexesIdx), n, count);
}
void FindAndGather_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, const Nox16s y[], int yIdx, Nox32u indexes[],
                           int indexesIdx, Nox16s values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find_and_gather(code, Elements<Nox16s>{at(x, xIdx)}, Elements<Nox16s>{at(y, yIdx)}, at(indexes, indexesIdx),
                  at(values, valuesIdx), n, count);
}

void FindMaskC_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, Nox16s value, Nox32s mask[], int maskIdx, Nox32u n) {
  find_mask(code, Elements<Nox16s>{at(x, xIdx)}, Constant<Nox16s>{value}, at(mask, maskIdx), n);
}
void FindIndexesC_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, Nox16s value, Nox32u indexes[], int indexesIdx,
                          Nox32u n, Nox32u* count) {
  find_indexes(code, Elements<Nox16s>{at(x, xIdx)}, Constant<Nox16s>{value}, at(indexes, indexesIdx), n, count);
}
void FindAndGatherC_16s_Idx(Nox32u code, const Nox16s x[], int xIdx, Nox16s value, Nox32u indexes[], int indexesIdx,
                            Nox16s values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find_and_gather(code, Elements<Nox16s>{at(x, xIdx)}, Constant<Nox16s>{value}, at(indexes, indexesIdx),
                  at(values, valuesIdx), n, count);
}

void FindMask_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, const Nox32s y[], int yIdx, Nox32s mask[], int maskIdx,
                      Nox32u n) {
  find_mask(code, Elements<Nox32s>{at(x, xIdx)}, Elements<Nox32s>{at(y, yIdx)}, at(mask, maskIdx), n);
}
void FindIndexes_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, const Nox32s y[], int yIdx, Nox32u indexes[],
                         int indexesIdx, Nox32u n, Nox32u* count) {
  find_indexes(code, Elements<Nox32s>{at(x, xIdx)}, Elements<Nox32s>{at(y, yIdx)}, at(indexes, indexesIdx), n, count);
}
void FindAndGather_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, const Nox32s y[], int yIdx, Nox32u indexes[],
                           int indexesIdx, Nox32s values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find_and_gather(code, Elements<Nox32s>{at(x, xIdx)}, Elements<Nox32s>{at(y, yIdx)}, at(indexes, indexesIdx),
                  at(values, valuesIdx), n, count);
}

void FindMaskC_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, Nox32s value, Nox32s mask[], int maskIdx, Nox32u n) {
  find_mask(code, Elements<Nox32s>{at(x, xIdx)}, Constant<Nox32s>{value}, at(mask, maskIdx), n);
}
void FindIndexesC_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, Nox32s value, Nox32u indexes[], int indexesIdx,
                          Nox32u n, Nox32u* count) {
  find_indexes(code, Elements<Nox32s>{at(x, xIdx)}, Constant<Nox32s>{value}, at(indexes, indexesIdx), n, count);
}
void FindAndGatherC_32s_Idx(Nox32u code, const Nox32s x[], int xIdx, Nox32s value, Nox32u indexes[], int indexesIdx,
                            Nox32s values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find_and_gather(code, Elements<Nox32s>{at(x, xIdx)}, Constant<Nox32s>{value}, at(indexes, indexesIdx),
                  at(values, valuesIdx), n, count);
}

void FindMask_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, const Nox64f y[], int yIdx, Nox32s mask[], int maskIdx,
                      Nox32u n) {
  find_mask(code, Elements<Nox64f>{at(x, xIdx)}, Elements<Nox64f>{at(y, yIdx)}, at(mask, maskIdx), n);
}
void FindIndexes_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, const Nox64f y[], int yIdx, Nox32u indexes[],
                         int indexesIdx, Nox32u n, Nox32u* count) {
  find_indexes(code, Elements<Nox64f>{at(x, xIdx)}, Elements<Nox64f>{at(y, yIdx)}, at(indexes, indexesIdx), n, count);
}
void FindAndGather_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, const Nox64f y[], int yIdx, Nox32u indexes[],
                           int indexesIdx, Nox64f values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find_and_gather(code, Elements<Nox64f>{at(x, xIdx)}, Elements<Nox64f>{at(y, yIdx)}, at(indexes, indexesIdx),
                  at(values, valuesIdx), n, count);
}

void FindMaskC_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, Nox64f value, Nox32s mask[], int maskIdx, Nox32u n) {
  find_mask(code, Elements<Nox64f>{at(x, xIdx)}, Constant<Nox64f>{value}, at(mask, maskIdx), n);
}
void FindIndexesC_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, Nox64f value, Nox32u indexes[], int indexesIdx,
                          Nox32u n, Nox32u* count) {
  find_indexes(code, Elements<Nox64f>{at(x, xIdx)}, Constant<Nox64f>{value}, at(indexes, indexesIdx), n, count);
}
void FindAndGatherC_64f_Idx(Nox32u code, const Nox64f x[], int xIdx, Nox64f value, Nox32u indexes[], int indexesIdx,
                            Nox64f values[], int valuesIdx, Nox32u n, Nox32u* count) {
  find_and_gather(code, Elements<Nox64f>{at(x, xIdx)}, Constant<Nox64f>{value}, at(indexes, indexesIdx),
                  at(values, valuesIdx), n, count);
}

}  // extern "C"
