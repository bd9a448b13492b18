// Integers of 64 bits become ones of 32: divided by a power of two, rounded, and cut to the range; eight at a time.
//
// What comes out fits in 32 bits, so 64-bit lanes do no more than they must: a quotient goes on as its lower half and
// as what of it lies beyond 31 bits, a value to be multiplied as its two halves.
#include "nox/vector/convert.h"
#include "vector/convert.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using Long = ints<Nox64u>::vec;
using V = Ints8::Vector;
using Longs8 = Eight<Long>;

struct Longs {
  using elem = Nox64s;
  static constexpr size_t kPer = 1;
  static NOX_INLINE Longs8 take(const Nox64s* p) {
    Longs8 a;
#pragma GCC unroll 4
    for (size_t i = 0; i < Longs8::kCount; ++i) a.v[i] = Long::load(reinterpret_cast<const Nox64u*>(p) + i * Long::N);
    return a;
  }
};

// All lower halves of eight, or all upper ones, in order.
template <bool Upper>
NOX_INLINE Ints8 halves(Longs8 a) {
  constexpr int kWhich = Upper ? 0xDD : 0x88;
#if NOX_LEVEL >= 4
  const auto floats = [](Long x) NOX_INLINED { return _mm256_castsi256_ps(x.v); };
  const __m256i mixed = _mm256_castps_si256(_mm256_shuffle_ps(floats(a.v[0]), floats(a.v[1]), kWhich));
  return {{{_mm256_permute4x64_epi64(mixed, 0xD8)}}};
#else
  const auto floats = [](Long x) NOX_INLINED { return _mm_castsi128_ps(x.v); };
  const auto pair = [=](Long x, Long y)
                        NOX_INLINED { return _mm_castps_si128(_mm_shuffle_ps(floats(x), floats(y), kWhich)); };
  return ints8({pair(a.v[0], a.v[1]), pair(a.v[2], a.v[3])});
#endif
}
// All bits are the sign's.
NOX_INLINE Long signs(Long a) {
#if NOX_LEVEL >= 4
  return {_mm256_shuffle_epi32(_mm256_srai_epi32(a.v, 31), 0xF5)};
#else
  return {_mm_shuffle_epi32(_mm_srai_epi32(a.v, 31), 0xF5)};
#endif
}
NOX_INLINE V by_sign(V sign, V size) { return (size ^ sign) - sign; }

// x / 2^s for s from 1 to 63. The size is rounded by what is added before the shift: it stays below 2^64.
template <int Mode>
NOX_INLINE Ints8 divided(Longs8 x, int s) {
  const Nox64u half = Nox64u{1} << (s - 1);
  const Long bias = Long::all(Mode == noxRndNear ? half - 1 : half), one = Long::all(1);
  const auto quotient = [=](Long a) NOX_INLINED {
    const Long sign = signs(a), size = (a ^ sign) - sign;
    if (Mode == noxRndZero) return shift_right(size, s);
    const Long more = Mode == noxRndNear ? bias + (shift_right(size, s) & one) : bias;
    return shift_right(size + more, s);
  };
  const Longs8 q = each_vector(quotient, x);
  const Ints8 beyond = halves<false>(each_vector([](Long a) NOX_INLINED { return shift_right(a, 31); }, q));
  const auto cut_off = [](V low, V past, V high) NOX_INLINED {
    const V sign = shift_right(high, 31), fits = past == V::zero();
    return select_lanes(fits, by_sign(sign, low), V::all(INT32_MAX) ^ sign);
  };
  return each_vector(cut_off, halves<false>(q), beyond, halves<true>(x));
}

// x * 2^n for n from 0 to 31.
NOX_INLINE Ints8 multiplied(Longs8 x, int n) {
  const V top = V::all(INT32_MAX >> n), bottom = V::all(INT32_MIN >> n);
  const auto cut_off = [=](V low, V high) NOX_INLINED {
    const V fits = (shift_right(low, 31) == high) & ((low > top) == (bottom > low));
    return select_lanes(fits, shift_left(low, n), V::all(INT32_MAX) ^ shift_right(high, 31));
  };
  return each_vector(cut_off, halves<false>(x), halves<true>(x));
}

// A quotient by 2^64 is a half at most, and a half for the lowest value alone: it goes to 0 unless halves go away.
NOX_INLINE Ints8 lowest_to_minus_one(Longs8 x) {
  const auto is_lowest = [](V low, V high) NOX_INLINED { return (low == V::zero()) & (high == V::all(INT32_MIN)); };
  return each_vector(is_lowest, halves<false>(x), halves<true>(x));
}

template <class F>
NOX_INLINE NoxStatus to_ints(const Nox64s* s, Nox32s* d, int len, F&& f) {
  convert_eights<Longs, Format<Nox32s>>(s, d, len, f);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" NoxStatus NOX_BODY(noxsConvert_64s32s_Sfs)(const Nox64s* s, Nox32s* d, int len, int mode, int scale) {
  if (const NoxStatus st = check(len, s, d)) return st;
  const bool away = mode != noxRndZero && mode != noxRndNear;
  if (scale > 63) {
    if (scale == 64 && away) return to_ints(s, d, len, [](Longs8 x) NOX_INLINED { return lowest_to_minus_one(x); });
    return to_ints(s, d, len, [](Longs8) NOX_INLINED { return Ints8{}; });
  }
  if (scale <= 0) {
    const int n = scale < -31 ? 31 : -scale;
    return to_ints(s, d, len, [=](Longs8 x) NOX_INLINED { return multiplied(x, n); });
  }
  if (away) return to_ints(s, d, len, [=](Longs8 x) NOX_INLINED { return divided<noxRndHalfAway>(x, scale); });
  if (mode == noxRndZero)
    return to_ints(s, d, len, [=](Longs8 x) NOX_INLINED { return divided<noxRndZero>(x, scale); });
  return to_ints(s, d, len, [=](Longs8 x) NOX_INLINED { return divided<noxRndNear>(x, scale); });
}
