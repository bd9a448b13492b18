// Uniform random numbers: sizes, initialisation and fills of the three uniform records.
//
// Integers come by way of double, r * scale + mid, on vectors of a block drawn beforehand. The doubles are converted
// on the x87 unit, which holds all 64 bits of r.
#include "generate/random.hpp"

#include "core/rounding.hpp"
#include "generate/narrow.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr size_t kBlock = 256;  // values drawn at a time

using Uniform8u = UniformRecord<Nox8u, Nox32u>;
using Uniform16s = UniformRecord<Nox16s, Nox32u>;
using Uniform64f = UniformRecord<Nox64f, Nox64u>;
static_assert(sizeof(Uniform8u) == 56 && sizeof(Uniform16s) == 56 && sizeof(Uniform64f) == 80, "sizes are promised");

// By the width of the source: 2^-32; and a little above 2^-64, by 2^-86, which the streams are made with.
NOX_INLINE Nox64f reach(Nox32u) { return 0x1p-32; }
NOX_INLINE Nox64f reach(Nox64u) { return 0x1.0000040000000p-64; }

template <class T, class Word>
NOX_INLINE NoxStatus init(void* state, RandomId id, T low, T high, Nox32u seed) {
  if (!state) return noxStsNullPtrErr;
  const Nox64f from = static_cast<Nox64f>(low), to = static_cast<Nox64f>(high);
  auto& record = *static_cast<UniformRecord<T, Word>*>(state);
  record.id = id;
  record.seed = seed;
  record.low = low;
  record.high = high;
  record.mid = (from + to) * 0.5;
  record.scale = (to - from) * reach(Word{});
  record.words = seeded<Word>(seed);
  return noxStsNoErr;
}

// The processor's fused form where there is one.
struct Place {
  Nox64f scale, mid;
  template <class V>
  NOX_INLINE V operator()(V r) const {
    return madd(r, V::all(scale), V::all(mid));
  }
};

// Out of line: the rounding mode is set around it.
template <class T>
__attribute__((noinline)) void fill_integers(T* d, size_t n, UniformRecord<T, Nox32u>& record) {
  using V = f64::vec;
  const Place place{record.scale, record.mid};
  RandomWords<Nox32u> words = record.words;
  Nox32s r[kBlock];
  Nox64f values[kBlock];
  while (n > 0) {
    const size_t count = n < kBlock ? n : kBlock;
    draw_pairs(words, r, r + 1, 2, count / 2);
    if (count % 2) r[count - 1] = static_cast<Nox32s>(draw_one(words));
    size_t i = 0;
    for (; count - i >= V::N; i += V::N) place(widen<V>(r + i)).store(values + i);
    for (; i < count; ++i) place(widen<F64x1>(r + i)).store(values + i);
    narrow(values, d, count);
    d += count;
    n -= count;
  }
  record.words = words;
}

// a^Steps and c (1 + a + ... + a^(Steps - 1)): so many steps of the congruential generator at once.
struct Jump {
  Nox64u factor, term;
};
constexpr Jump jump(int steps) {
  Jump j{1, 0};
  for (int i = 0; i < steps; ++i)
    j = {j.factor * Step<Nox64u>::kFactor, j.term * Step<Nox64u>::kFactor + Step<Nox64u>::kTerm};
  return j;
}

using Two = IntLanes<Nox64u, 16>;  // 64-bit words; chains of single ones use the low lane

NOX_INLINE Two after(Two x, Jump j) {
  const __m128i low = _mm_set1_epi64x(static_cast<Nox64s>(j.factor)),
                high = _mm_set1_epi64x(static_cast<Nox64s>(j.factor >> 32));
  const __m128i cross = _mm_add_epi64(_mm_mul_epu32(_mm_srli_epi64(x.v, 32), low), _mm_mul_epu32(x.v, high));
  return Two{_mm_add_epi64(_mm_mul_epu32(x.v, low), _mm_slli_epi64(cross, 32))} + Two::all(j.term);
}
NOX_INLINE Two low_word(const Nox64u& x) { return {_mm_loadl_epi64(reinterpret_cast<const __m128i*>(&x))}; }
NOX_INLINE void keep_low(Two x, Nox64u& to) { _mm_storel_epi64(reinterpret_cast<__m128i*>(&to), x.v); }

// The difference less the borrow `owed`, 0 or 1, and its cost settled.
NOX_INLINE Two settle(Two difference, Two& owed) {
  const Two t = difference - owed;
  owed = {_mm_srli_epi64(t.v, 63)};
  const __m128i negative = _mm_shuffle_epi32(_mm_srai_epi32(t.v, 31), 0xF5);
  return t - Two{_mm_and_si128(negative, Two::all(kBorrowCost).v)};
}

// Values in fours.
NOX_INLINE void draw_fours(RandomWords<Nox64u>& words, Nox64s* r, size_t fours) {
  const Nox64u x1 = words.x * jump(1).factor + jump(1).term, x2 = words.x * jump(2).factor + jump(2).term;
  Two x12 = {_mm_unpacklo_epi64(low_word(x1).v, low_word(x2).v)}, x34 = after(x12, jump(2)), x = low_word(words.x);
  Two a = low_word(words.a), b = low_word(words.b), c = low_word(words.c), owed = Two::zero() - low_word(words.d);
  for (; fours > 0; --fours, r += 4) {
    const Two t1 = settle(b - c, owed), t2 = settle(a - b, owed), t3 = settle(t1 - a, owed), t4 = settle(t2 - t1, owed);
    (Two{_mm_unpacklo_epi64(t1.v, t2.v)} + x12).store(reinterpret_cast<Nox64u*>(r));
    (Two{_mm_unpacklo_epi64(t3.v, t4.v)} + x34).store(reinterpret_cast<Nox64u*>(r + 2));
    x = x34;
    x12 = after(x12, jump(4));
    x34 = after(x34, jump(4));
    c = t2;
    b = t3;
    a = t4;
  }
  keep_low({_mm_unpackhi_epi64(x.v, x.v)}, words.x);
  keep_low(a, words.a);
  keep_low(b, words.b);
  keep_low(c, words.c);
  keep_low(Two::zero() - owed, words.d);
}

NOX_INLINE void fill_doubles(Nox64f* d, size_t n, Uniform64f& record) {
  const long double scale = record.scale, mid = record.mid;
  RandomWords<Nox64u> words = record.words;
  Nox64s r[kBlock];
  while (n > 0) {
    const size_t count = n < kBlock ? n : kBlock;
    if (count >= 4) draw_fours(words, r, count / 4);
    for (size_t i = count & ~size_t{3}; i < count; ++i) r[i] = static_cast<Nox64s>(draw_one(words));
    for (size_t i = 0; i < count; ++i) d[i] = static_cast<Nox64f>(static_cast<long double>(r[i]) * scale + mid);
    d += count;
    n -= count;
  }
  record.words = words;
}

template <class T, class Word>
NOX_INLINE NoxStatus check_fill(const T* d, int len, const UniformRecord<T, Word>* record, RandomId id) {
  if (const NoxStatus st = check(len, d, record)) return st;
  return record->id == id ? noxStsNoErr : noxStsContextMatchErr;
}
template <class T>
NOX_INLINE NoxStatus fill(T* d, int len, void* state, RandomId id) {
  auto* const record = static_cast<UniformRecord<T, Nox32u>*>(state);
  if (const NoxStatus st = check_fill(d, len, record, id)) return st;
  const RoundToNearest mode;
  fill_integers(d, static_cast<size_t>(len), *record);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsRandUniformGetSize_8u)(int* size) { return give(size, sizeof(Uniform8u)); }
NoxStatus NOX_BODY(noxsRandUniformGetSize_16s)(int* size) { return give(size, sizeof(Uniform16s)); }
NoxStatus NOX_BODY(noxsRandUniformGetSize_64f)(int* size) { return give(size, sizeof(Uniform64f)); }

NoxStatus NOX_BODY(noxsRandUniformInit_8u)(NoxRandUniformState_8u* state, Nox8u low, Nox8u high, unsigned int seed) {
  return init<Nox8u, Nox32u>(state, kUniform8u, low, high, seed);
}
NoxStatus NOX_BODY(noxsRandUniformInit_16s)(NoxRandUniformState_16s* state, Nox16s low, Nox16s high,
                                            unsigned int seed) {
  return init<Nox16s, Nox32u>(state, kUniform16s, low, high, seed);
}
NoxStatus NOX_BODY(noxsRandUniformInit_64f)(NoxRandUniformState_64f* state, Nox64f low, Nox64f high,
                                            unsigned int seed) {
  return init<Nox64f, Nox64u>(state, kUniform64f, low, high, seed);
}

NoxStatus NOX_BODY(noxsRandUniform_8u)(Nox8u* d, int len, NoxRandUniformState_8u* state) {
  return fill(d, len, state, kUniform8u);
}
NoxStatus NOX_BODY(noxsRandUniform_16s)(Nox16s* d, int len, NoxRandUniformState_16s* state) {
  return fill(d, len, state, kUniform16s);
}
NoxStatus NOX_BODY(noxsRandUniform_64f)(Nox64f* d, int len, NoxRandUniformState_64f* state) {
  auto* const record = reinterpret_cast<Uniform64f*>(state);
  if (const NoxStatus st = check_fill(d, len, record, kUniform64f)) return st;
  fill_doubles(d, static_cast<size_t>(len), *record);
  return noxStsNoErr;
}

}  // extern "C"
