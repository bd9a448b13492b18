// Quotients and remainders of integers, cut toward zero: the array layer's own, which neither scale nor saturate.
//
// Vectors divide as floating-point numbers. Up to 16 bits a float quotient is off by less than 2^-7 of the distance to
// the next integer, so cutting it gives the true quotient; 32 bits take doubles, where the margin is wider. A constant
// divisor is multiplied by its reciprocal, which is rounded away from zero: exact quotients come out at the integer or
// just beyond. Only the quotient 32768 of 16 bits doesn't fit: its low bits are stored. Arrays that overlap otherwise
// than by being the same, and what is left of whole vectors, go by the processor's division.
#include "nox/array/quotient.h"
#include "adapters/adapter.hpp"
#include "array/operands.hpp"
#include "core/simd/ints_real.hpp"
#include "core/simd/ints_wide.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// f of the lanes as floats or doubles, cut to integers.
template <class F, class... V>
NOX_INLINE V128<Nox32s> cut_floats(F f, V... a) {
  return {_mm_cvttps_epi32(f(F32x4{_mm_cvtepi32_ps(a.v)}...).v)};
}
template <class F, class... V>
NOX_INLINE V128<Nox32s> lanes_by(F f, V128<Nox32s> a, V... more) {
  const auto upper = [](__m128i x) { return F64x2{_mm_cvtepi32_pd(_mm_shuffle_epi32(x, 0xEE))}; };
  const __m128i low = _mm_cvttpd_epi32(f(F64x2{_mm_cvtepi32_pd(a.v)}, F64x2{_mm_cvtepi32_pd(more.v)}...).v);
  const __m128i high = _mm_cvttpd_epi32(f(upper(a.v), upper(more.v)...).v);
  return {_mm_unpacklo_epi64(low, high)};
}
template <class F, class... V>
NOX_INLINE V128<Nox16s> lanes_by(F f, V128<Nox16s> a, V... more) {
  const V128<Nox32s> low = cut_floats(f, widen(a).low, widen(more).low...);
  const V128<Nox32s> high = cut_floats(f, widen(a).high, widen(more).high...);
  const auto low_bits = [](V128<Nox32s> x) { return shift_right(shift_left(x, 16), 16); };
  return pack<Nox16s>(low_bits(low), low_bits(high));
}
template <class F, class... V>
NOX_INLINE V128<Nox8u> lanes_by(F f, V128<Nox8u> a, V... more) {
  const auto words = [](V128<Nox16u> x) { return V128<Nox16s>{x.v}; };
  const auto of = [f](auto... x) {
    return pack<Nox16s>(cut_floats(f, widen(x).low...), cut_floats(f, widen(x).high...));
  };
  return pack<Nox8u>(of(words(widen(a).low), words(widen(more).low)...),
                     of(words(widen(a).high), words(widen(more).high)...));
}

NOX_INLINE V128<Nox16s> product(V128<Nox16s> a, V128<Nox16s> b) { return multiply_low(a, b); }
NOX_INLINE V128<Nox32s> product(V128<Nox32s> a, V128<Nox32s> b) {
  const __m128i even = _mm_mul_epu32(a.v, b.v), odd = _mm_mul_epu32(odd_down(a).v, odd_down(b).v);
  return {_mm_unpacklo_epi32(_mm_shuffle_epi32(even, 0x08), _mm_shuffle_epi32(odd, 0x08))};
}
NOX_INLINE V128<Nox8u> product(V128<Nox8u> a, V128<Nox8u> b) {
  const __m128i even = _mm_mullo_epi16(a.v, b.v);
  const __m128i odd = _mm_mullo_epi16(_mm_srli_epi16(a.v, 8), _mm_srli_epi16(b.v, 8));
  return {_mm_or_si128(_mm_and_si128(even, _mm_set1_epi16(0xFF)), _mm_slli_epi16(odd, 8))};
}

// Divisors: operands that give quotients too.
template <class T>
struct Divisors : Elements<T> {
  NOX_INLINE V128<T> quotient(V128<T> x, Nox32u i) const {
    return lanes_by([](auto a, auto b) { return a / b; }, x, this->template lanes<V128<T>>(i));
  }
};
template <class T>
struct ConstantDivisor : Constant<T> {
  Nox64f wide;
  Nox32f narrow;
  explicit NOX_INLINE ConstantDivisor(T v)
      : Constant<T>{v}, wide(1.0 / v * (1 + 0x1p-50)), narrow(1.0f / static_cast<Nox32f>(v) * (1 + 0x1p-22f)) {}
  NOX_INLINE V128<T> quotient(V128<T> x, Nox32u) const {
    if constexpr (sizeof(T) == 4)
      return lanes_by([r = wide](F64x2 a) { return a * F64x2::all(r); }, x);
    else
      return lanes_by([r = narrow](F32x4 a) { return a * F32x4::all(r); }, x);
  }
};

// quotients[i] and remainders[i] of x by v, either of them null if not wanted.
template <class T, class X, class V>
NOX_INLINE void divide(X x, V v, T* quotients, T* remainders, Nox32u n) {
  constexpr Nox32u N = V128<T>::N;
  const auto in_the_way = [&](const T* d, const T* other) {
    return d && (x.changed_by(d, n) || v.changed_by(d, n) || (other && (d == other || ahead_of(d, other, n))));
  };
  Nox32u i = 0;
  if (!in_the_way(quotients, remainders) && !in_the_way(remainders, quotients)) {
    for (; n - i >= N; i += N) {
      const V128<T> a = x.template lanes<V128<T>>(i), b = v.template lanes<V128<T>>(i), q = v.quotient(a, i);
      if (quotients) q.store(quotients + i);
      if (remainders) (a - product(q, b)).store(remainders + i);
    }
  }
  for (; i < n; ++i) {
    const Nox32s a = x.one(i), b = v.one(i);
    if (quotients) IntOne<T>{static_cast<T>(a / b)}.store(quotients + i);
    if (remainders) IntOne<T>{static_cast<T>(a % b)}.store(remainders + i);
  }
}
template <class T>
constexpr T* kNone = nullptr;

// The quotient as a signed 32-bit integer, by the processor's conversion, and back.
template <class V>
NOX_INLINE V cut_to_int(V a) {
  return {_mm_cvtepi32_pd(_mm_cvttpd_epi32(a.v))};
}
#if NOX_LEVEL >= 3
NOX_INLINE F64x4 cut_to_int(F64x4 a) { return {_mm256_cvtepi32_pd(_mm256_cvttpd_epi32(a.v))}; }
#endif

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

void NOX_BODY(DivC_32s_SFS)(const Nox32s src[], Nox32s value, Nox32s dst[], Nox32u n) {
  divide(Elements<Nox32s>{src}, ConstantDivisor<Nox32s>(value), dst, kNone<Nox32s>, n);
}
void NOX_BODY(DivC_32s_ISFS)(Nox32s srcDst[], Nox32s value, Nox32u n) {
  NOX_BODY(DivC_32s_SFS)(srcDst, value, srcDst, n);
}

void NOX_BODY(ModC_8u_SFS)(const Nox8u src[], Nox8u value, Nox8u dst[], Nox32u n) {
  divide(Elements<Nox8u>{src}, ConstantDivisor<Nox8u>(value), kNone<Nox8u>, dst, n);
}
void NOX_BODY(ModC_8u_ISFS)(Nox8u srcDst[], Nox8u value, Nox32u n) { NOX_BODY(ModC_8u_SFS)(srcDst, value, srcDst, n); }
void NOX_BODY(DivCREV_8u_SFS)(const Nox8u src[], Nox8u value, Nox8u dst[], Nox32u n) {
  divide(Constant<Nox8u>{value}, Divisors<Nox8u>{{src}}, dst, kNone<Nox8u>, n);
}
void NOX_BODY(DivCREV_8u_ISFS)(Nox8u srcDst[], Nox8u value, Nox32u n) {
  NOX_BODY(DivCREV_8u_SFS)(srcDst, value, srcDst, n);
}
void NOX_BODY(RemDiv_8u_SFS_Idx)(const Nox8u src[], int srcIdx, Nox8u quot[], int quotIdx, Nox8u rem[], int remIdx,
                                 const Nox8u div[], int, Nox32u n) {
  divide(Elements<Nox8u>{at(src, srcIdx)}, Divisors<Nox8u>{{div}}, at(quot, quotIdx), at(rem, remIdx), n);
}
void NOX_BODY(RemDivC_8u_SFS_Idx)(const Nox8u src[], int srcIdx, Nox8u quot[], int quotIdx, Nox8u rem[], int remIdx,
                                  Nox8u value, Nox32u n) {
  divide(Elements<Nox8u>{at(src, srcIdx)}, ConstantDivisor<Nox8u>(value), at(quot, quotIdx), at(rem, remIdx), n);
}
void NOX_BODY(RemDivCREV_8u_SFS_Idx)(const Nox8u src[], int srcIdx, Nox8u quot[], int quotIdx, Nox8u rem[], int remIdx,
                                     Nox8u value, Nox32u n) {
  divide(Constant<Nox8u>{value}, Divisors<Nox8u>{{at(src, srcIdx)}}, at(quot, quotIdx), at(rem, remIdx), n);
}

void NOX_BODY(ModC_16s_SFS)(const Nox16s src[], Nox16s value, Nox16s dst[], Nox32u n) {
  divide(Elements<Nox16s>{src}, ConstantDivisor<Nox16s>(value), kNone<Nox16s>, dst, n);
}
void NOX_BODY(ModC_16s_ISFS)(Nox16s srcDst[], Nox16s value, Nox32u n) {
  NOX_BODY(ModC_16s_SFS)(srcDst, value, srcDst, n);
}
void NOX_BODY(DivCREV_16s_SFS)(const Nox16s src[], Nox16s value, Nox16s dst[], Nox32u n) {
  divide(Constant<Nox16s>{value}, Divisors<Nox16s>{{src}}, dst, kNone<Nox16s>, n);
}
void NOX_BODY(DivCREV_16s_ISFS)(Nox16s srcDst[], Nox16s value, Nox32u n) {
  NOX_BODY(DivCREV_16s_SFS)(srcDst, value, srcDst, n);
}
void NOX_BODY(RemDiv_16s_SFS_Idx)(const Nox16s src[], int srcIdx, Nox16s quot[], int quotIdx, Nox16s rem[], int remIdx,
                                  const Nox16s div[], int, Nox32u n) {
  divide(Elements<Nox16s>{at(src, srcIdx)}, Divisors<Nox16s>{{div}}, at(quot, quotIdx), at(rem, remIdx), n);
}
void NOX_BODY(RemDivC_16s_SFS_Idx)(const Nox16s src[], int srcIdx, Nox16s quot[], int quotIdx, Nox16s rem[], int remIdx,
                                   Nox16s value, Nox32u n) {
  divide(Elements<Nox16s>{at(src, srcIdx)}, ConstantDivisor<Nox16s>(value), at(quot, quotIdx), at(rem, remIdx), n);
}
void NOX_BODY(RemDivCREV_16s_SFS_Idx)(const Nox16s src[], int srcIdx, Nox16s quot[], int quotIdx, Nox16s rem[],
                                      int remIdx, Nox16s value, Nox32u n) {
  divide(Constant<Nox16s>{value}, Divisors<Nox16s>{{at(src, srcIdx)}}, at(quot, quotIdx), at(rem, remIdx), n);
}

void NOX_BODY(ModC_32s_SFS)(const Nox32s src[], Nox32s value, Nox32s dst[], Nox32u n) {
  divide(Elements<Nox32s>{src}, ConstantDivisor<Nox32s>(value), kNone<Nox32s>, dst, n);
}
void NOX_BODY(ModC_32s_ISFS)(Nox32s srcDst[], Nox32s value, Nox32u n) {
  NOX_BODY(ModC_32s_SFS)(srcDst, value, srcDst, n);
}
void NOX_BODY(DivCREV_32s_SFS)(const Nox32s src[], Nox32s value, Nox32s dst[], Nox32u n) {
  divide(Constant<Nox32s>{value}, Divisors<Nox32s>{{src}}, dst, kNone<Nox32s>, n);
}
void NOX_BODY(DivCREV_32s_ISFS)(Nox32s srcDst[], Nox32s value, Nox32u n) {
  NOX_BODY(DivCREV_32s_SFS)(srcDst, value, srcDst, n);
}
void NOX_BODY(RemDiv_32s_SFS_Idx)(const Nox32s src[], int srcIdx, Nox32s quot[], int quotIdx, Nox32s rem[], int remIdx,
                                  const Nox32s div[], int, Nox32u n) {
  divide(Elements<Nox32s>{at(src, srcIdx)}, Divisors<Nox32s>{{div}}, at(quot, quotIdx), at(rem, remIdx), n);
}
void NOX_BODY(RemDivC_32s_SFS_Idx)(const Nox32s src[], int srcIdx, Nox32s quot[], int quotIdx, Nox32s rem[], int remIdx,
                                   Nox32s value, Nox32u n) {
  divide(Elements<Nox32s>{at(src, srcIdx)}, ConstantDivisor<Nox32s>(value), at(quot, quotIdx), at(rem, remIdx), n);
}
void NOX_BODY(RemDivCREV_32s_SFS_Idx)(const Nox32s src[], int srcIdx, Nox32s quot[], int quotIdx, Nox32s rem[],
                                      int remIdx, Nox32s value, Nox32u n) {
  divide(Constant<Nox32s>{value}, Divisors<Nox32s>{{at(src, srcIdx)}}, at(quot, quotIdx), at(rem, remIdx), n);
}

void NOX_BODY(Rem)(const Nox64f x[], const Nox64f y[], Nox64f dst[], Nox32u n) {
  forward(
      dst, n, [](auto a, auto b) { return a - b * cut_to_int(a / b); }, x, y);
}
void NOX_BODY(RemVal)(const Nox64f src[], Nox64f value, Nox64f dst[], Nox32u n) {
  const Nox64f reciprocal = 1.0 / value;
  const auto step = [=](auto a) {
    using V = decltype(a);
    return a - V::all(value) * cut_to_int(V::all(reciprocal) * a);
  };
  forward(dst, n, step, src);
}

}  // extern "C"
