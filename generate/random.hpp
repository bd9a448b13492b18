// The records of the random generators, and the source of randomness that all of them advance.
//
// The source adds two generators: a linear congruential one, X = X a + c, and one that subtracts with borrow,
// t = B - C + D, whose last three values are A, B, C (A the newest) and whose borrow D is 0 or all ones; a borrow takes
// 18 off. The second is one chain from value to value. The first can be carried ahead by constants, so its lanes don't
// wait for each other. A record's words advance by exactly one step for each value drawn.
#pragma once
#include "core/body.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class Word>
struct RandomWords {
  alignas(sizeof(Word)) Word x;
  Word a, b, c, d;
};

enum RandomId : Nox32s {
  kUniform8u = 37,
  kUniform16s = 38,
  kUniform64f = 40,
  kGauss8u = 41,
  kGauss16s = 42,
  kGauss32f = 43,
  kGauss64f = 44
};

template <class T, class Word>
struct UniformRecord {
  Nox32s id;
  Nox32u seed;
  T low, high;
  alignas(8) Nox64f mid;
  Nox64f scale;
  RandomWords<Word> words;
};
template <class T>
struct GaussRecord {
  Nox32s id;
  Nox32u seed;
  T mean, std_dev;
  RandomWords<Nox32u> words;
  Nox32s no_spare;            // 0: the second value of the last pair is still to be given
  alignas(8) Nox64f f, u, v;  // of that pair
};

// The bytes of a record, told to a caller who makes room for it.
NOX_INLINE NoxStatus give(int* size, size_t bytes) {
  if (!size) return noxStsNullPtrErr;
  *size = static_cast<int>(bytes);
  return noxStsNoErr;
}

template <class Word>
struct Step;
template <>
struct Step<Nox32u> {
  static constexpr Nox32u kFactor = 69069, kTerm = 1013904243;
};
template <>
struct Step<Nox64u> {
  static constexpr Nox64u kFactor = 0x5851F42D4C957F2D, kTerm = 0x14057B7EF767814F;
};
constexpr int kBorrowCost = 18;

template <class Word>
NOX_INLINE RandomWords<Word> seeded(Nox32u seed) {
  RandomWords<Word> w;
  w.x = 0x436CBAE9;
  w.a = seed;
  w.b = static_cast<Word>(w.a * Step<Word>::kFactor + Step<Word>::kTerm);
  w.c = static_cast<Word>(w.b * Step<Word>::kFactor + Step<Word>::kTerm);
  w.d = 0xFFFFFFFF;  // in 64-bit words too, where the first step adds it instead of borrowing
  return w;
}

// t with the borrow's cost taken off, the borrow left in d.
NOX_INLINE Nox32u settle(Nox32u t, Nox32u& d) {
  d = static_cast<Nox32u>(static_cast<Nox32s>(t) >> 31);
  return t - (d & kBorrowCost);
}
NOX_INLINE Nox64u settle(Nox64u t, Nox64u& d) {
  d = static_cast<Nox64u>(static_cast<Nox64s>(t) >> 63);
  return t - (d & kBorrowCost);
}

template <class Word>
NOX_INLINE Word draw_one(RandomWords<Word>& w) {
  w.x = w.x * Step<Word>::kFactor + Step<Word>::kTerm;
  const Word t = settle(w.b - w.c + w.d, w.d);
  w.c = w.b;
  w.b = w.a;
  w.a = t;
  return t + w.x;
}

// Pairs of values: the first ones to `first`, the second ones to `second`, `stride` apart.
NOX_INLINE void draw_pairs(RandomWords<Nox32u>& words, Nox32s* first, Nox32s* second, size_t stride, size_t pairs) {
  using S = Step<Nox32u>;
  constexpr Nox32u kFactor2 = S::kFactor * S::kFactor, kTerm2 = S::kFactor * S::kTerm + S::kTerm;
  RandomWords<Nox32u> w = words;
  Nox32u odd = w.x * S::kFactor + S::kTerm;
  for (; pairs > 0; --pairs, first += stride, second += stride) {
    const Nox32u t1 = settle(w.b - w.c + w.d, w.d);
    const Nox32u t2 = settle(w.a - w.b + w.d, w.d);
    *first = static_cast<Nox32s>(t1 + odd);
    odd = odd * kFactor2 + kTerm2;
    w.x = w.x * kFactor2 + kTerm2;
    *second = static_cast<Nox32s>(t2 + w.x);
    w.c = w.a;
    w.b = t1;
    w.a = t2;
  }
  words = w;
}

}  // namespace NOX_VARIANT
}  // namespace nox
