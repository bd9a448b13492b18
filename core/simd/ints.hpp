// Lanes of integers: IntLanes<T, 16>, in the AVX2 build IntLanes<T, 32>, and IntOne<T> for a single element.
//
// Operations that no build has as one instruction are put together here from those it has, so that a functor reads
// alike in every build. A comparison gives a mask: all bits of a lane set, or none.
#pragma once
#include <immintrin.h>

#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

template <class T>
constexpr bool is_signed = T(-1) < T(0);
template <class T>
constexpr T lowest = is_signed<T> ? T(T(1) << (sizeof(T) * 8 - 1)) : T(0);
template <class T>
constexpr T highest = T(~lowest<T>);

// One element; arithmetic wraps like that of the vectors.
template <class T>
struct IntOne {
  using elem = T;
  static constexpr int N = 1;
  T v;
  static NOX_INLINE IntOne load(const T* p) {
    IntOne r;
    __builtin_memcpy(&r.v, p, sizeof(T));
    return r;
  }
  static NOX_INLINE IntOne all(T x) { return {x}; }
  static NOX_INLINE IntOne zero() { return {T(0)}; }
  NOX_INLINE void store(T* p) const { __builtin_memcpy(p, &v, sizeof(T)); }
};
template <class T>
NOX_INLINE IntOne<T> operator&(IntOne<T> a, IntOne<T> b) {
  return {T(a.v & b.v)};
}
template <class T>
NOX_INLINE IntOne<T> operator|(IntOne<T> a, IntOne<T> b) {
  return {T(a.v | b.v)};
}
template <class T>
NOX_INLINE IntOne<T> operator^(IntOne<T> a, IntOne<T> b) {
  return {T(a.v ^ b.v)};
}
template <class T>
NOX_INLINE IntOne<T> and_not(IntOne<T> no, IntOne<T> b) {
  return {T(~no.v & b.v)};
}
template <class T>
NOX_INLINE IntOne<T> operator+(IntOne<T> a, IntOne<T> b) {
  return {T(Nox64u(a.v) + Nox64u(b.v))};
}
template <class T>
NOX_INLINE IntOne<T> operator-(IntOne<T> a, IntOne<T> b) {
  return {T(Nox64u(a.v) - Nox64u(b.v))};
}
template <class T>
NOX_INLINE IntOne<T> operator==(IntOne<T> a, IntOne<T> b) {
  return {T(a.v == b.v ? ~T(0) : T(0))};
}
template <class T>
NOX_INLINE IntOne<T> operator>(IntOne<T> a, IntOne<T> b) {
  return {T(a.v > b.v ? ~T(0) : T(0))};
}
template <class T>
NOX_INLINE IntOne<T> min(IntOne<T> a, IntOne<T> b) {
  return {a.v < b.v ? a.v : b.v};
}
template <class T>
NOX_INLINE IntOne<T> max(IntOne<T> a, IntOne<T> b) {
  return {a.v > b.v ? a.v : b.v};
}
// Sum and difference cut to the range of T, of at most 32 bits.
template <class T>
NOX_INLINE IntOne<T> cut(Nox64s x) {
  return {x < lowest<T> ? lowest<T> : x > highest<T> ? highest<T> : T(x)};
}
template <class T>
NOX_INLINE IntOne<T> add_saturated(IntOne<T> a, IntOne<T> b) {
  return cut<T>(Nox64s(a.v) + b.v);
}
template <class T>
NOX_INLINE IntOne<T> sub_saturated(IntOne<T> a, IntOne<T> b) {
  return cut<T>(Nox64s(a.v) - b.v);
}
template <class T>
NOX_INLINE IntOne<T> shift_left(IntOne<T> a, int n) {
  return {T(Nox64u(a.v) << n)};
}
template <class T>
NOX_INLINE IntOne<T> shift_right(IntOne<T> a, int n) {
  return {T(a.v >> n)};
}
template <class T>
NOX_INLINE IntOne<T> reverse(IntOne<T> a) {
  return a;
}

template <class T, int Bytes>
struct IntLanes;

template <class T>
struct IntLanes<T, 16> {
  using elem = T;
  static constexpr int N = 16 / sizeof(T);
  __m128i v;
  static NOX_INLINE IntLanes load(const T* p) { return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))}; }
  static NOX_INLINE IntLanes zero() { return {_mm_setzero_si128()}; }
  static NOX_INLINE IntLanes all(T x) {
    if constexpr (sizeof(T) == 1)
      return {_mm_set1_epi8(static_cast<char>(x))};
    else if constexpr (sizeof(T) == 2)
      return {_mm_set1_epi16(static_cast<short>(x))};
    else if constexpr (sizeof(T) == 4)
      return {_mm_set1_epi32(static_cast<int>(x))};
    else
      return {_mm_set1_epi64x(static_cast<long long>(x))};
  }
  NOX_INLINE void store(T* p) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
};

#if NOX_LEVEL >= 4
template <class T>
struct IntLanes<T, 32> {
  using elem = T;
  static constexpr int N = 32 / sizeof(T);
  __m256i v;
  static NOX_INLINE IntLanes load(const T* p) { return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))}; }
  static NOX_INLINE IntLanes zero() { return {_mm256_setzero_si256()}; }
  static NOX_INLINE IntLanes all(T x) {
    if constexpr (sizeof(T) == 1)
      return {_mm256_set1_epi8(static_cast<char>(x))};
    else if constexpr (sizeof(T) == 2)
      return {_mm256_set1_epi16(static_cast<short>(x))};
    else if constexpr (sizeof(T) == 4)
      return {_mm256_set1_epi32(static_cast<int>(x))};
    else
      return {_mm256_set1_epi64x(static_cast<long long>(x))};
  }
  NOX_INLINE void store(T* p) const { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
};
#endif

}  // namespace NOX_VARIANT
}  // namespace nox

#include "core/simd/ints_ops.hpp"

namespace nox {
inline namespace NOX_VARIANT {

template <class V>
NOX_INLINE V select_lanes(V mask, V yes, V no) {
  return (mask & yes) | and_not(mask, no);
}

// The kind of lanes a driver works on, for elements of T.
template <class T>
struct ints {
  using elem = T;
  using one = IntOne<T>;
#if NOX_LEVEL >= 4
  using vec = IntLanes<T, 32>;
#else
  using vec = IntLanes<T, 16>;
#endif
};

}  // namespace NOX_VARIANT
}  // namespace nox
