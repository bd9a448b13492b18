// Conversions, eight elements at a time: a format reads eight elements of an array as integers, floats or doubles, and
// writes such ones; what stands between is a functor on eights. What is left of an array goes through memory of the
// loop's own, so that nothing outside is touched; eight elements of 24 bits are two overlapping loads of 16 bytes.
#pragma once
#include "core/body.hpp"
#include "core/drivers.hpp"
#include "core/simd/eights.hpp"
#include "core/simd/ints_wide.hpp"

namespace nox {
inline namespace NOX_VARIANT {

NOX_INLINE __m128i load_16(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }
NOX_INLINE __m128i load_8(const void* p) { return _mm_loadl_epi64(static_cast<const __m128i*>(p)); }
NOX_INLINE __m128i load_4(const void* p) {
  int four;
  __builtin_memcpy(&four, p, sizeof four);
  return _mm_cvtsi32_si128(four);
}
NOX_INLINE void store_16(void* p, __m128i x) { _mm_storeu_si128(static_cast<__m128i*>(p), x); }
// As floats: of the lower half as an integer the compiler would make two of 32 bits.
NOX_INLINE void store_8(void* p, __m128i x) { _mm_storel_pi(static_cast<__m64*>(p), _mm_castsi128_ps(x)); }

// Eight words in the low halves of eight integers, with their signs or without.
template <bool Signed>
NOX_INLINE Ints8 from_words(__m128i x) {
#if NOX_LEVEL >= 4
  return {{{Signed ? _mm256_cvtepi16_epi32(x) : _mm256_cvtepu16_epi32(x)}}};
#else
  const __m128i sign = Signed ? _mm_srai_epi16(x, 15) : _mm_setzero_si128();
  return ints8({_mm_unpacklo_epi16(x, sign), _mm_unpackhi_epi16(x, sign)});
#endif
}
template <bool Signed>
NOX_INLINE __m128i words_from_bytes(__m128i x) {
  if constexpr (Signed) return _mm_srai_epi16(_mm_unpacklo_epi8(x, x), 8);
  return _mm_unpacklo_epi8(x, _mm_setzero_si128());
}
template <class To>
NOX_INLINE __m128i words_of(Ints8 a) {
  const Quads8 q = quads(a);
  return pack<To>(V128<Nox32s>{q.low}, V128<Nox32s>{q.high}).v;
}

#if NOX_LEVEL >= 2
// Four elements in the lowest bytes as integers.
template <class T>
NOX_INLINE __m128i four_from(__m128i x) {
  if constexpr (sizeof(T) == 1) return is_signed<T> ? _mm_cvtepi8_epi32(x) : _mm_cvtepu8_epi32(x);
  return is_signed<T> ? _mm_cvtepi16_epi32(x) : _mm_cvtepu16_epi32(x);
}
#endif

// ---- 24 bits: four elements are 12 bytes
template <bool Signed>
NOX_INLINE __m128i four_from_24(__m128i x) {
#if NOX_LEVEL >= 1
  const __m128i top = _mm_shuffle_epi8(x, _mm_setr_epi8(-1, 0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11));
#else
  const __m128i first = _mm_unpacklo_epi32(x, _mm_srli_si128(x, 3));
  const __m128i second = _mm_unpacklo_epi32(_mm_srli_si128(x, 6), _mm_srli_si128(x, 9));
  const __m128i top = _mm_slli_epi32(_mm_unpacklo_epi64(first, second), 8);
#endif
  return Signed ? _mm_srai_epi32(top, 8) : _mm_srli_epi32(top, 8);
}
NOX_INLINE __m128i four_to_24(__m128i x) {  // the last four bytes are 0
#if NOX_LEVEL >= 1
  return _mm_shuffle_epi8(x, _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1));
#else
  const __m128i low = _mm_and_si128(x, _mm_set1_epi64x(0xFFFFFF));
  const __m128i pairs =
      _mm_or_si128(low, _mm_slli_epi64(_mm_srli_epi64(_mm_slli_epi64(_mm_srli_epi64(x, 32), 40), 40), 24));
  const __m128i second = _mm_slli_si128(_mm_srli_si128(pairs, 8), 6);
  return _mm_or_si128(_mm_move_epi64(pairs), second);
#endif
}

// ---- formats: elem, how many of them an element is made of, whether put cuts integers to the range, take, put
template <class T>
struct Format {
  using elem = T;
  static constexpr size_t kPer = 1;
  static constexpr bool kCuts = sizeof(T) < 4;
  static NOX_INLINE auto take(const T* p) {
#if NOX_LEVEL == 2 || NOX_LEVEL == 3
    if constexpr (sizeof(T) == 1) return ints8({four_from<T>(load_4(p)), four_from<T>(load_4(p + 4))});
    if constexpr (sizeof(T) == 2) return ints8({four_from<T>(load_8(p)), four_from<T>(load_8(p + 4))});
#endif
    if constexpr (sizeof(T) == 1) {
      return from_words<is_signed<T>>(words_from_bytes<is_signed<T>>(load_8(p)));
    } else if constexpr (sizeof(T) == 2) {
      return from_words<is_signed<T>>(load_16(p));
    } else {
#if NOX_LEVEL >= 4
      return Ints8{{{_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))}}};
#else
      return ints8({load_16(p), load_16(p + 4)});
#endif
    }
  }
  static NOX_INLINE void put(T* p, Ints8 a) {
    if constexpr (sizeof(T) == 1) {
      const V128<Nox16s> words{words_of<Nox16s>(a)};
      store_8(p, pack<T>(words, words).v);
    } else if constexpr (sizeof(T) == 2) {
      store_16(p, words_of<T>(a));
    } else {
#if NOX_LEVEL >= 4
      _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), a.v[0].v);
#else
      const Quads8 q = quads(a);
      store_16(p, q.low);
      store_16(p + 4, q.high);
#endif
    }
  }
};
template <bool Signed>
struct Format24 {
  using elem = Nox8u;
  static constexpr size_t kPer = 3;
  static constexpr bool kCuts = false;
#if NOX_LEVEL >= 4
  static NOX_INLINE Ints8 take(const Nox8u* p) {
    const __m256i top =
        _mm256_shuffle_epi8(_mm256_inserti128_si256(_mm256_castsi128_si256(load_16(p)), load_16(p + 8), 1),
                            _mm256_setr_epi8(-1, 0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11,  //
                                             -1, 4, 5, 6, -1, 7, 8, 9, -1, 10, 11, 12, -1, 13, 14, 15));
    return {{{Signed ? _mm256_srai_epi32(top, 8) : _mm256_srli_epi32(top, 8)}}};
  }
  static NOX_INLINE void put(Nox8u* p, Ints8 a) {
    const __m256i apart = _mm256_shuffle_epi8(
        a.v[0].v, _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1)));
    const __m256i joined = _mm256_permutevar8x32_epi32(apart, _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 3, 7));
    store_16(p, _mm256_castsi256_si128(joined));
    store_8(p + 16, _mm256_extracti128_si256(joined, 1));
  }
#else
  static NOX_INLINE Ints8 take(const Nox8u* p) {
    return ints8({four_from_24<Signed>(load_16(p)), four_from_24<Signed>(_mm_srli_si128(load_16(p + 8), 4))});
  }
  static NOX_INLINE void put(Nox8u* p, Ints8 a) {
    const Quads8 q = quads(a);
    const __m128i low = four_to_24(q.low), high = four_to_24(q.high);
    store_16(p, _mm_or_si128(low, _mm_slli_si128(high, 12)));
    store_8(p + 16, _mm_srli_si128(high, 4));
  }
#endif
};
template <class Eights, class T>
struct RealFormat {
  using elem = T;
  static constexpr size_t kPer = 1;
  using V = typename Eights::Vector;
  static NOX_INLINE Eights take(const T* p) {
    Eights a;
#pragma GCC unroll 4
    for (size_t i = 0; i < Eights::kCount; ++i) a.v[i] = V::load(p + i * V::N);
    return a;
  }
  static NOX_INLINE void put(T* p, Eights a) {
#pragma GCC unroll 4
    for (size_t i = 0; i < Eights::kCount; ++i) a.v[i].store(p + i * V::N);
  }
};
template <>
struct Format<Nox32f> : RealFormat<Floats8, Nox32f> {};
template <>
struct Format<Nox64f> : RealFormat<Doubles8, Nox64f> {};

// ---- sixteen bytes with signs as words
struct SignedBytes16 {
  using elem = Nox8s;
  static constexpr size_t kPer = 1;
#if NOX_LEVEL >= 4
  static NOX_INLINE __m256i take(const Nox8s* p) { return _mm256_cvtepi8_epi16(load_16(p)); }
#elif NOX_LEVEL >= 2
  static NOX_INLINE Quads8 take(const Nox8s* p) {
    return {_mm_cvtepi8_epi16(load_8(p)), _mm_cvtepi8_epi16(load_8(p + 8))};
  }
#else
  static NOX_INLINE Quads8 take(const Nox8s* p) {
    const __m128i x = load_16(p);
    return {_mm_srai_epi16(_mm_unpacklo_epi8(x, x), 8), _mm_srai_epi16(_mm_unpackhi_epi8(x, x), 8)};
  }
#endif
};
struct Words16 {
  using elem = Nox16s;
  static constexpr size_t kPer = 1;
#if NOX_LEVEL >= 4
  static NOX_INLINE void put(Nox16s* p, __m256i x) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), x); }
#else
  static NOX_INLINE void put(Nox16s* p, Quads8 x) {
    store_16(p, x.low);
    store_16(p + 8, x.high);
  }
#endif
};

// d[i] = f(s[i]) in these formats, which take and put `Step` elements at once.
template <class From, class To, size_t Step = 8, class F>
NOX_INLINE void convert_eights(const typename From::elem* s, typename To::elem* d, int len, F&& f) {
  size_t n = static_cast<size_t>(len);
  const auto step = [&](size_t at) NOX_INLINED {
    To::put(d + at * To::kPer, f(From::take(s + at * From::kPer)));
    in_order();
  };
  const auto on = [&](size_t by) NOX_INLINED {
    s += by * From::kPer, d += by * To::kPer, n -= by;
    keep_whole(s), keep_whole(d);
  };
  typename To::elem last[Step * To::kPer];
  if (n < Step) {
    typename From::elem in[Step * From::kPer] = {};
    __builtin_memcpy(in, s, n * From::kPer * sizeof *s);
    To::put(last, f(From::take(in)));
    __builtin_memcpy(d, last, n * To::kPer * sizeof *d);
    return;
  }
  // What no whole step is left for goes with the last step, before the destination, which may be the source, is
  // written.
  if (n % Step != 0) To::put(last, f(From::take(s + (n - Step) * From::kPer)));
  for (; n >= 4 * Step; on(4 * Step)) step(0), step(Step), step(2 * Step), step(3 * Step);
  for (; n >= Step; on(Step)) step(0);
  if (n != 0) __builtin_memcpy(d + n * To::kPer - Step * To::kPer, last, sizeof last);
}
template <class From, class To, size_t Step = 8, class F>
NOX_INLINE NoxStatus convert(const typename From::elem* s, typename To::elem* d, int len, F&& f) {
  if (const NoxStatus st = check(len, s, d)) return st;
  convert_eights<From, To, Step>(s, d, len, f);
  return noxStsNoErr;
}

// 2^-scaleFactor as a normal number, as near to it as there is one.
NOX_INLINE Nox32f float_factor(int s) {
  const int n = s < -127 ? 127 : s > 126 ? -126 : -s;
  const Nox32u bits = Nox32u(127 + n) << 23;
  Nox32f power;
  __builtin_memcpy(&power, &bits, sizeof power);
  return power;
}
NOX_INLINE Nox64f double_factor(int s) {
  const int n = s < -1023 ? 1023 : s > 1022 ? -1022 : -s;
  const Nox64u bits = Nox64u(Nox32u(1023 + n)) << 52;
  Nox64f power;
  __builtin_memcpy(&power, &bits, sizeof power);
  return power;
}

struct ToFloats {
  template <class X>
  NOX_INLINE Floats8 operator()(X x) const {
    return to_floats(x);
  }
};
struct ToDoubles {
  template <class X>
  NOX_INLINE Doubles8 operator()(X x) const {
    return to_doubles(x);
  }
};
struct Same {
  template <class X>
  NOX_INLINE X operator()(X x) const {
    return x;
  }
};

// Rounding of reals to integers. Halves away from zero: the cut value, and twice what was cut
// off, cut again, which is one more where that is a half or more; exact, so the rounding mode of the thread has no part
// in it.
struct Near {
  template <class X>
  NOX_INLINE Ints8 operator()(X x) const {
    return rounded(x);
  }
};
struct Cut {
  template <class X>
  NOX_INLINE Ints8 operator()(X x) const {
    return cut(x);
  }
};
template <class X>
NOX_INLINE X back(Ints8 a) {
  if constexpr (sizeof(X{}.v[0].v) / X::Vector::N == 4)
    return to_floats(a);
  else
    return to_doubles(a);
}
struct HalfAway {
  template <class X>
  NOX_INLINE Ints8 operator()(X x) const {
    using V = typename X::Vector;
    const Ints8 whole = cut(x);
    const X twice_rest = each_vector([](V a, V b) NOX_INLINED { return (a - b) + (a - b); }, x, back<X>(whole));
    return each_vector([](auto w, auto one) NOX_INLINED { return w + one; }, whole, cut(twice_rest));
  }
};

}  // namespace NOX_VARIANT
}  // namespace nox
