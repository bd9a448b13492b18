// Comparisons of sixteen elements at a time: their outcome as words of a mask or as bits, lowest element first.
//
// Vectors hold an outcome as all bits of a lane or none, in lanes as wide as the element but for reals, whose outcomes
// are cut to 32 bits. Sixteen fill a vector of bytes, from where the bits come.
#pragma once
#include "array/operands.hpp"

namespace nox {
inline namespace NOX_VARIANT {

constexpr Nox32u kGroup = 16;

// Of a lambda that a loop calls in several places.
#define NOX_IN_LOOP __attribute__((always_inline))

template <class T>
struct Outcomes {
  static constexpr Nox32u kWidth = sizeof(T) < 4 ? sizeof(T) : 4;
  __m128i v[kWidth];

  NOX_INLINE Nox32u bits() const {
    if constexpr (kWidth == 1)
      return static_cast<Nox32u>(_mm_movemask_epi8(v[0]));
    else if constexpr (kWidth == 2)
      return static_cast<Nox32u>(_mm_movemask_epi8(_mm_packs_epi16(v[0], v[1])));
    else
      return static_cast<Nox32u>(
          _mm_movemask_epi8(_mm_packs_epi16(_mm_packs_epi32(v[0], v[1]), _mm_packs_epi32(v[2], v[3]))));
  }
};

// The i-th vector of outcomes, test(k) giving those of the elements from k on.
template <class T, class Test>
NOX_INLINE __m128i outcome(Nox32u i, Test&& test) {
  if constexpr (sizeof(T) <= 4) {
    return test(i * (kGroup / Outcomes<T>::kWidth)).v;
  } else {
    const __m128 low = _mm_castpd_ps(test(4 * i).v), high = _mm_castpd_ps(test(4 * i + 2).v);
    return _mm_castps_si128(_mm_shuffle_ps(low, high, 0x88));
  }
}
template <class T, class Test>
NOX_INLINE Outcomes<T> outcomes(Test&& test) {
  Outcomes<T> r;
#pragma GCC unroll 4
  for (Nox32u i = 0; i < r.kWidth; ++i) r.v[i] = outcome<T>(i, test);
  return r;
}
// put(q, words) for each quarter of the sixteen that the i-th vector of outcomes holds, in words of 32 bits.
template <class T, class Put>
NOX_INLINE void words(Nox32u i, __m128i v, Put&& put) {
  if constexpr (sizeof(T) == 1) {
    words<Nox16s>(0, _mm_unpacklo_epi8(v, v), put);
    words<Nox16s>(1, _mm_unpackhi_epi8(v, v), put);
  } else if constexpr (sizeof(T) == 2) {
    put(2 * i, _mm_unpacklo_epi16(v, v));
    put(2 * i + 1, _mm_unpackhi_epi16(v, v));
  } else {
    put(i, v);
  }
}

// The outcome of a single element.
template <class T>
NOX_INLINE bool met(IntOne<T> a) {
  return a.v != 0;
}
NOX_INLINE bool met(F64x1 a) { return mask_bits(a) != 0; }

// put(i) for each bit set, the lowest first.
template <class Put>
NOX_INLINE void each_bit(Nox32u bits, Put&& put) {
  for (; bits != 0; bits &= bits - 1) put(static_cast<Nox32u>(__builtin_ctz(bits)));
}

template <class T>
NOX_INLINE void move_one(T* d, const T* s) {
  lanes_of<T>::one::load(s).store(d);
}

// The length without groups at the end that hold no match; bits(k) are those of the group from k on.
template <class Bits>
NOX_INLINE Nox32u without_tail(Nox32u n, Bits&& bits) {
  while (n >= kGroup && bits(n - kGroup) == 0) n -= kGroup;
  return n;
}
// put(k, found) for every k, `found` being the number of matches before it: what is put there for a k that doesn't
// match is written over for the next one that does. So it goes without a branch for each element, as long as a match is
// sure to come; the rest, some 31 elements, is put only if matched(k). Returns the number of matches.
template <class Bits, class Matched, class Put>
NOX_INLINE Nox32u list_matches(Nox32u n, bool grouped, Bits&& bits, Matched&& matched, Put&& put) {
  Nox32u found = 0, k = 0;
  if (grouped) {
    n = without_tail(n, bits);
    for (; n - k >= 2 * kGroup; k += kGroup) {
      const Nox32u group = bits(k);
      if (group == 0) continue;
#pragma GCC unroll 16
      for (Nox32u i = 0; i < kGroup; ++i) {
        put(k + i, found);
        found += group >> i & 1;
      }
    }
  }
  for (; k < n; ++k)
    if (matched(k)) put(k, found++);
  return found;
}

NOX_INLINE Nox32u selected_bits(const Nox32s* mask) {
  return outcomes<Nox32s>([=](Nox32u i) NOX_IN_LOOP { return V128<Nox32s>::load(mask + i) > V128<Nox32s>::zero(); })
      .bits();
}

// Moves what the mask selects together; returns how many elements those are.
template <class T>
NOX_INLINE Nox32u compress(const T* s, T* d, const Nox32s* mask, Nox32u n) {
  const bool grouped = keeps_unread(d, s, n) && keeps_unread(d, mask, n);
  return list_matches(
      n, grouped, [=](Nox32u k) { return selected_bits(mask + k); }, [=](Nox32u k) { return element_at(mask + k) > 0; },
      [=](Nox32u k, Nox32u found) { move_one(d + found, s + k); });
}

}  // namespace NOX_VARIANT
}  // namespace nox
