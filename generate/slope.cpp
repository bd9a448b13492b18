// Ramps and the chirp with a sine of the squared position.
//
// Floating ramps are eight chains that add eight steps at a time. Integer ramps compute positions in double, round
// half away from zero, and do so only where the line is inside the range of the type; what lies outside is filled.
#include "core/body.hpp"
#include "core/rounding.hpp"
#include "generate/narrow.hpp"
#include "vector/block.hpp"
#include "vmath/vmath.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr Nox64f kQuarterTurn = 1.5707963267948966;
constexpr size_t kBlock = 128;  // elements computed before they are stored as integers

// Lanes of single precision; the AVX builds hold eight in one register.
struct F32Lanes {
  using elem = Nox32f;
#if NOX_LEVEL >= 3
  static constexpr int N = 8;
  __m256 v;
  static NOX_INLINE F32Lanes load(const elem* p) { return {_mm256_loadu_ps(p)}; }
  static NOX_INLINE F32Lanes all(elem x) { return {_mm256_set1_ps(x)}; }
  NOX_INLINE void store(elem* p) const { _mm256_storeu_ps(p, v); }
  NOX_INLINE F32Lanes operator+(F32Lanes b) const { return {_mm256_add_ps(v, b.v)}; }
#else
  static constexpr int N = 4;
  __m128 v;
  static NOX_INLINE F32Lanes load(const elem* p) { return {_mm_loadu_ps(p)}; }
  static NOX_INLINE F32Lanes all(elem x) { return {_mm_set1_ps(x)}; }
  NOX_INLINE void store(elem* p) const { _mm_storeu_ps(p, v); }
  NOX_INLINE F32Lanes operator+(F32Lanes b) const { return {_mm_add_ps(v, b.v)}; }
#endif
};

// The chains begin at the first 16-byte boundary, where that can be reached.
template <class V, class T = typename V::elem>
NOX_INLINE NoxStatus ramp(T* d, int len, T offset, T slope) {
  if (const NoxStatus st = check(len, d)) return st;
  constexpr size_t kVectors = 8 / V::N;
  const size_t n = static_cast<size_t>(len), past = (0 - reinterpret_cast<uintptr_t>(d)) & 15;
  const size_t boundary = past % sizeof(T) == 0 ? past / sizeof(T) : 0;
  size_t at = 0;
  const auto direct = [&](size_t k) { return static_cast<T>(static_cast<int>(k)) * slope + offset; };
  for (; at < boundary && at < n; ++at) d[at] = direct(at);
  T lanes[8];
  for (size_t i = 0; i < 8; ++i) lanes[i] = direct(at + i);
  V x[kVectors];
  const V step = V::all(8 * slope);
#pragma GCC unroll 4
  for (size_t i = 0; i < kVectors; ++i) x[i] = V::load(lanes + i * V::N);
  for (; n - at >= 8; at += 8) {
#pragma GCC unroll 4
    for (size_t i = 0; i < kVectors; ++i) {
      x[i].store(d + at + i * V::N);
      x[i] = x[i] + step;
    }
  }
#pragma GCC unroll 4
  for (size_t i = 0; i < kVectors; ++i) x[i].store(lanes + i * V::N);
  for (size_t i = 0; at < n; ++i, ++at) d[at] = lanes[i];
  return noxStsNoErr;
}

// The line's value at V::N positions, cut to the type's range and rounded half away from zero.
template <class T, class V>
NOX_INLINE V rounded(V x) {
  const V inside = min(max(x, V::all(static_cast<Nox64f>(lowest<T>))), V::all(static_cast<Nox64f>(highest<T>)));
  const V whole = truncate(inside), rest = inside - whole, one = V::all(1);
  return whole + ((V::all(0.5) <= rest) & one) - ((rest <= V::all(-0.5)) & one);
}

template <class T>
NOX_INLINE void fill(T* d, size_t n, T value) {
  fill_bytes(d, n * sizeof(T), sizeof(T), pattern_of(value));
}

template <class T>
NOX_INLINE void line(T* d, size_t n, Nox64f start, Nox64f slope) {
  using V = f64::vec;
  constexpr Nox64f kFirst[4] = {0, 1, 2, 3};
  V position = V::load(kFirst);
  Nox64f values[kBlock];
  while (n > 0) {
    const size_t count = n < kBlock ? n : kBlock;
    for (size_t i = 0; i < count; i += V::N) {
      rounded<T>(position * V::all(slope) + V::all(start)).store(values + i);
      position = position + V::all(V::N);
    }
    narrow(values, d, count);
    d += count;
    n -= count;
  }
}

// The first position at or behind the line's crossing of a bound.
NOX_INLINE size_t crossing(Nox64f bound, Nox64f offset, Nox32f inverse) {
  const Nox64f at = (bound - offset) * static_cast<Nox64f>(inverse) + 1;
  if (!(at > 0)) return 0;
  return at >= 2147483648.0 ? 2147483647 : static_cast<size_t>(static_cast<Nox32s>(at));
}

template <class T>
NOX_INLINE NoxStatus integer_ramp(T* d, int len, Nox64f offset, Nox64f slope) {
  if (const NoxStatus st = check(len, d)) return st;
  const size_t n = static_cast<size_t>(len);
  if (slope == 0) {
    const F64x2 value = rounded<T>(F64x2::all(offset));
    fill(d, n, static_cast<T>(_mm_cvttsd_si32(value.v)));
    return noxStsNoErr;
  }
  const Nox32f inverse = static_cast<Nox32f>(1 / slope);
  const T from = slope < 0 ? highest<T> : lowest<T>, to = slope < 0 ? lowest<T> : highest<T>;
  const size_t enters = crossing(static_cast<Nox64f>(from), offset, inverse);
  const size_t leaves = crossing(static_cast<Nox64f>(to), offset, inverse);
  const size_t front = enters < n ? enters : n;
  const size_t behind = leaves < front ? front : leaves < n ? leaves : n;
  fill(d, front, from);
  line(d + front, behind - front, offset + slope * static_cast<Nox64f>(front), slope);
  fill(d + behind, n - behind, to);
  return noxStsNoErr;
}

NOX_INLINE void put(const Nox64f* s, Nox64f* d, size_t n) { map<f64>(d, static_cast<int>(n), Keep{}, s); }
NOX_INLINE void put(const Nox64f* s, Nox32s* d, size_t n) { narrow(s, d, n); }

template <class T>
__attribute__((noinline)) void chirp(T* d, size_t n, Nox64f magn) {
  using V = f64::vec;
  const V c = V::all(kQuarterTurn / static_cast<Nox64f>(n));
  constexpr Nox64f kFirst[4] = {0, 1, 2, 3};
  V k = V::load(kFirst);
  Nox64f values[kBlock];
  while (n > 0) {
    const size_t count = n < kBlock ? n : kBlock;
    for (size_t i = 0; i < count; i += V::N) {
      (c * k * k).store(values + i);
      k = k + V::all(V::N);
    }
    sin_array(values, values, count);
    for (size_t i = 0; i < count; i += V::N) (V::load(values + i) * V::all(magn)).store(values + i);
    put(values, d, count);
    d += count;
    n -= count;
  }
}
template <class T>
NOX_INLINE NoxStatus jaehne(T* d, int len, T magn) {
  if (const NoxStatus st = check(len, d)) return st;
  if (magn < 0) return noxStsJaehneErr;
  if (len == 1)
    d[0] = 0;
  else
    chirp(d, static_cast<size_t>(len), static_cast<Nox64f>(magn));
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsVectorSlope_64f)(Nox64f* d, int len, Nox64f offset, Nox64f slope) {
  return ramp<f64::vec>(d, len, offset, slope);
}
NoxStatus NOX_BODY(noxsVectorSlope_32f)(Nox32f* d, int len, Nox32f offset, Nox32f slope) {
  return ramp<F32Lanes>(d, len, offset, slope);
}
NoxStatus NOX_BODY(noxsVectorSlope_32s)(Nox32s* d, int len, Nox64f offset, Nox64f slope) {
  return integer_ramp(d, len, offset, slope);
}
NoxStatus NOX_BODY(noxsVectorSlope_16s)(Nox16s* d, int len, Nox32f offset, Nox32f slope) {
  return integer_ramp(d, len, static_cast<Nox64f>(offset), static_cast<Nox64f>(slope));
}
NoxStatus NOX_BODY(noxsVectorSlope_8u)(Nox8u* d, int len, Nox32f offset, Nox32f slope) {
  return integer_ramp(d, len, static_cast<Nox64f>(offset), static_cast<Nox64f>(slope));
}

NoxStatus NOX_BODY(noxsVectorJaehne_64f)(Nox64f* d, int len, Nox64f magn) { return jaehne(d, len, magn); }
NoxStatus NOX_BODY(noxsVectorJaehne_32s)(Nox32s* d, int len, Nox32s magn) {
  const RoundToNearest mode;
  return jaehne(d, len, magn);
}

}  // extern "C"
