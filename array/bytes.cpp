// Sums and extremes of bytes, conversions between bytes, integers and reals, and rounding of reals up and down.
//
// Extremes are found in vectors first; a second pass looks for the first place that holds one.
#include "nox/array/bytes.h"
#include "adapters/adapter.hpp"
#include "array/operands.hpp"
#include "core/simd/ints_wide.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using Bytes = V128<Nox8u>;
struct Larger {
  static constexpr Nox8u kOfNone = 0;
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return max(a, b);
  }
};
struct Smaller {
  static constexpr Nox8u kOfNone = 255;
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return min(a, b);
  }
};

template <class F>
NOX_INLINE Nox8u fold(F f, Bytes a) {
  a = f(a, Bytes{_mm_srli_si128(a.v, 8)});
  a = f(a, Bytes{_mm_srli_si128(a.v, 4)});
  a = f(a, Bytes{_mm_srli_si128(a.v, 2)});
  a = f(a, Bytes{_mm_srli_si128(a.v, 1)});
  return static_cast<Nox8u>(_mm_cvtsi128_si32(a.v));
}
template <class F>
NOX_INLINE Nox8u extreme(F f, const Nox8u* s, Nox32u n) {
  Nox8u found = F::kOfNone;
  Nox32u i = 0;
  if (n >= 16) {
    Bytes a = Bytes::load(s), b = Bytes::load(s + (n - 16)), c = a, d = b;
    for (; n - i >= 64; i += 64) {
      a = f(a, Bytes::load(s + i)), b = f(b, Bytes::load(s + i + 16));
      c = f(c, Bytes::load(s + i + 32)), d = f(d, Bytes::load(s + i + 48));
    }
    for (; n - i >= 16; i += 16) a = f(a, Bytes::load(s + i));
    return fold(f, f(f(a, b), f(c, d)));
  }
  for (; i < n; ++i) found = f(IntOne<Nox8u>{found}, IntOne<Nox8u>{s[i]}).v;
  return found;
}
// The first place of a value that is there; 0 in an empty array.
NOX_INLINE Nox32s first_place(const Nox8u* s, Nox32u n, Nox8u value) {
  Nox32u i = 0;
  for (const Bytes wanted = Bytes::all(value); n - i >= 16; i += 16) {
    const int found = _mm_movemask_epi8((Bytes::load(s + i) == wanted).v);
    if (found != 0) return static_cast<Nox32s>(i + static_cast<Nox32u>(__builtin_ctz(static_cast<unsigned>(found))));
  }
  for (; i < n; ++i)
    if (s[i] == value) return static_cast<Nox32s>(i);
  return 0;
}
template <class F>
NOX_INLINE void extreme_with_place(F f, const Nox8u* s, Nox32u n, Nox8u* value, Nox32s* place) {
  const Nox8u found = extreme(f, s, n);
  *value = found;
  *place = first_place(s, n, found);
}

// d[i] = one(s[i]) element after element, or `Step` of them at once by wide(s + i, d + i).
template <Nox32u Step, class D, class S, class Wide, class One>
NOX_INLINE void convert(const S* s, D* d, Nox32u n, Wide&& wide, One&& one) {
  Nox32u i = 0;
  if (n >= Step && !overlap(s, n * sizeof(S), d, n * sizeof(D))) {
#pragma GCC unroll 4
    for (; n - i >= Step; i += Step) {
      wide(s + i, d + i);
      in_order();
    }
    if (i < n) wide(s + (n - Step), d + (n - Step));
    return;
  }
  for (; i < n; ++i) put_element(d + i, static_cast<D>(one(element_at(s + i))));
}
template <class T>
NOX_INLINE Nox8u clamped(T x) {
  return x < 0 ? Nox8u(0) : x > 255 ? Nox8u(255) : static_cast<Nox8u>(x);
}
NOX_INLINE V128<Nox32s> dwords(V128<Nox16u> a, bool high) {
  const Two<V128<Nox32s>> both = widen(a);
  return high ? both.high : both.low;
}
NOX_INLINE void store_doubles(V128<Nox32s> a, Nox64f* d) {
#if NOX_LEVEL >= 3
  _mm256_storeu_pd(d, _mm256_cvtepi32_pd(a.v));
#else
  _mm_storeu_pd(d, _mm_cvtepi32_pd(a.v));
  _mm_storeu_pd(d + 2, _mm_cvtepi32_pd(_mm_shuffle_epi32(a.v, 0xEE)));
#endif
}

// The integer on the wanted side: by the processor's instruction, or rounded to whichever neighbour the rounding mode
// in force prefers and stepped from there. Zeros come out of the steps without their signs.
#if NOX_LEVEL >= 2
template <bool Up>
NOX_INLINE __m128d stepped(__m128d x) {
  return _mm_round_pd(x, (Up ? _MM_FROUND_TO_POS_INF : _MM_FROUND_TO_NEG_INF) | _MM_FROUND_NO_EXC);
}
#if NOX_LEVEL >= 3
template <bool Up>
NOX_INLINE __m256d stepped(__m256d x) {
  return _mm256_round_pd(x, (Up ? _MM_FROUND_TO_POS_INF : _MM_FROUND_TO_NEG_INF) | _MM_FROUND_NO_EXC);
}
#endif
template <bool Up, class V>
NOX_INLINE V beside(V x) {
  return {stepped<Up>(x.v)};
}
#else
template <bool Up, class V>
NOX_INLINE V beside(V x) {
  const V sign = x & V::all(-0.0), shift = sign | V::all(0x1p52);
  const V near = (x + shift) - shift;
  const V step = Up ? near + ((near < x) & V::all(1.0)) : near - ((x < near) & V::all(1.0));
  return abs(step) | sign;
}
#endif
// Values from 2^52 on are integers, and those and NaN are passed on.
template <bool Up, class V>
NOX_INLINE V whole(V x) {
  return select(abs(x) < V::all(0x1p52), beside<Up>(x), x);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void NOX_BODY(Sum_8u32s_SFS)(const Nox8u src[], Nox32u n, Nox32s* sum) {
  __m128i a = _mm_setzero_si128(), b = a;
  const auto sums = [&](Nox32u i) { return _mm_sad_epu8(Bytes::load(src + i).v, _mm_setzero_si128()); };
  Nox32u i = 0, rest = 0;
  for (; n - i >= 32; i += 32) a = _mm_add_epi32(a, sums(i)), b = _mm_add_epi32(b, sums(i + 16));
  for (; i < n; ++i) rest += src[i];
  a = _mm_add_epi32(a, b);
  *sum = static_cast<Nox32s>(rest + static_cast<Nox32u>(_mm_cvtsi128_si32(_mm_add_epi32(a, _mm_srli_si128(a, 8)))));
}
void NOX_BODY(Max_8u)(const Nox8u src[], Nox32u n, Nox8u* max) { *max = extreme(Larger{}, src, n); }
void NOX_BODY(Min_8u)(const Nox8u src[], Nox32u n, Nox8u* min) { *min = extreme(Smaller{}, src, n); }
void NOX_BODY(MaxMin_8u)(const Nox8u src[], Nox32u n, Nox8u* min, Nox8u* max) {
  if (n < 16) {
    const Nox8u least = extreme(Smaller{}, src, n), most = extreme(Larger{}, src, n);
    *min = least;
    *max = most;
    return;
  }
  Bytes least = Bytes::load(src + (n - 16)), most = least, low = least, high = least;
  const auto see = [](Bytes x, Bytes& l, Bytes& m) { l = Smaller{}(l, x), m = Larger{}(m, x); };
  Nox32u i = 0;
  for (; n - i >= 64; i += 64) {
    see(Bytes::load(src + i), least, most), see(Bytes::load(src + i + 16), low, high);
    see(Bytes::load(src + i + 32), least, most), see(Bytes::load(src + i + 48), low, high);
  }
  for (; n - i >= 16; i += 16) see(Bytes::load(src + i), least, most);
  *min = fold(Smaller{}, Smaller{}(least, low));
  *max = fold(Larger{}, Larger{}(most, high));
}
void NOX_BODY(MaxIndx_8u)(const Nox8u src[], Nox32u n, Nox8u* max, Nox32s* index) {
  extreme_with_place(Larger{}, src, n, max, index);
}
void NOX_BODY(MinIndx_8u)(const Nox8u src[], Nox32u n, Nox8u* min, Nox32s* index) {
  extreme_with_place(Smaller{}, src, n, min, index);
}
void NOX_BODY(MaxMinIndx_8u)(const Nox8u src[], Nox32u n, Nox8u* min, Nox32s* minIndex, Nox8u* max, Nox32s* maxIndex) {
  extreme_with_place(Smaller{}, src, n, min, minIndex);
  extreme_with_place(Larger{}, src, n, max, maxIndex);
}
void NOX_BODY(MaxIndx_8u_Idx)(const Nox8u src[], int srcIdx, Nox32u n, Nox8u* max, Nox32s* index) {
  extreme_with_place(Larger{}, at(src, srcIdx), n, max, index);
}

void NOX_BODY(Convert_8u16s)(const Nox8u src[], Nox16s dst[], Nox32u n) {
  const auto wide = [](const Nox8u* s, Nox16s* d) {
    const Two<V128<Nox16u>> words = widen(Bytes::load(s));
    V128<Nox16s>{words.low.v}.store(d);
    V128<Nox16s>{words.high.v}.store(d + 8);
  };
  convert<16>(src, dst, n, wide, [](Nox8u x) { return Nox16s(x); });
}
void NOX_BODY(Convert_8u32s)(const Nox8u src[], Nox32s dst[], Nox32u n) {
  const auto wide = [](const Nox8u* s, Nox32s* d) {
    const Two<V128<Nox16u>> words = widen(Bytes::load(s));
    for (int half = 0; half < 2; ++half) {
      dwords(words.low, half).store(d + 4 * half);
      dwords(words.high, half).store(d + 8 + 4 * half);
    }
  };
  convert<16>(src, dst, n, wide, [](Nox8u x) { return Nox32s(x); });
}
void NOX_BODY(Convert_8u64f)(const Nox8u src[], Nox64f dst[], Nox32u n) {
  const auto wide = [](const Nox8u* s, Nox64f* d) {
    const Two<V128<Nox16u>> words = widen(Bytes::load(s));
    for (int half = 0; half < 2; ++half) {
      store_doubles(dwords(words.low, half), d + 4 * half);
      store_doubles(dwords(words.high, half), d + 8 + 4 * half);
    }
  };
  convert<16>(src, dst, n, wide, [](Nox8u x) { return Nox64f(x); });
}
void NOX_BODY(Convert_16s64f)(const Nox16s src[], Nox64f dst[], Nox32u n) {
  const auto wide = [](const Nox16s* s, Nox64f* d) {
    const Two<V128<Nox32s>> dwords = widen(V128<Nox16s>::load(s));
    store_doubles(dwords.low, d);
    store_doubles(dwords.high, d + 4);
  };
  convert<8>(src, dst, n, wide, [](Nox16s x) { return Nox64f(x); });
}
void NOX_BODY(Convert_16s8u)(const Nox16s src[], Nox8u dst[], Nox32u n) {
  const auto wide = [](const Nox16s* s, Nox8u* d) {
    pack<Nox8u>(V128<Nox16s>::load(s), V128<Nox16s>::load(s + 8)).store(d);
  };
  convert<16>(src, dst, n, wide, clamped<Nox16s>);
}
void NOX_BODY(Convert_32s8u)(const Nox32s src[], Nox8u dst[], Nox32u n) {
  const auto wide = [](const Nox32s* s, Nox8u* d) {
    const auto words = [s](int i) { return pack<Nox16s>(V128<Nox32s>::load(s + i), V128<Nox32s>::load(s + i + 4)); };
    pack<Nox8u>(words(0), words(8)).store(d);
  };
  convert<16>(src, dst, n, wide, clamped<Nox32s>);
}

void NOX_BODY(Floor)(const Nox64f src[], Nox64f dst[], Nox32u n) {
  forward(
      dst, n, [](auto x) { return whole<false>(x); }, src);
}
void NOX_BODY(Ceil)(const Nox64f src[], Nox64f dst[], Nox32u n) {
  forward(
      dst, n, [](auto x) { return whole<true>(x); }, src);
}

}  // extern "C"
