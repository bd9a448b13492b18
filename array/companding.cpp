// Logarithmic companding of 16-bit speech samples to 8 bits and back, by the mu law and the A law of G.711, eight
// samples at a time.
//
// A code holds the sign, the number of the segment, which is the place of the magnitude's highest bit, and the four
// bits below that: the same as the exponent and the top of the mantissa of the magnitude as a float. So floats find the
// segment, and put the decoded bits in their place. Both laws clip magnitudes at 32635. The lowest sample has no
// magnitude of 16 bits: it counts as a negative 0.
#include "nox/array/companding.h"

#include "adapters/adapter.hpp"
#include "array/operands.hpp"
#include "core/simd/ints_wide.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using Words = V128<Nox16s>;
using Dwords = V128<Nox32s>;
constexpr Nox16s kClip = 32635, kMuBias = 132;
constexpr Nox64f kEncodeScale = 32767.0, kDecodeScale = 0x1p-15;
constexpr int kBelowMantissa = 19;                       // bits of a float behind the four of a code
constexpr Nox32s kFirstSegment = (127 + 7) << 23;        // the exponent of 2^7 in place
constexpr Nox32s kHalfStep = 1 << (kBelowMantissa - 1);  // codes stand for the middle of their step

NOX_INLINE __m128 as_floats(Dwords a) { return _mm_castsi128_ps(a.v); }
// Segments and the bits below of magnitudes from 2^7 on.
NOX_INLINE Dwords segments(Dwords magnitude) {
  const Dwords bits = {_mm_castps_si128(_mm_cvtepi32_ps(magnitude.v))};
  return shift_right(bits, kBelowMantissa) - Dwords::all(kFirstSegment >> kBelowMantissa);
}
NOX_INLINE Words segments(Words magnitude) {
  const Two<Dwords> m = widen(magnitude);
  return pack<Nox16s>(segments(m.low), segments(m.high));
}
// The middles of the steps of codes without their signs.
NOX_INLINE Dwords middles(Dwords codes) {
  const Dwords bits = shift_left(codes, kBelowMantissa) + Dwords::all(kFirstSegment + kHalfStep);
  return {_mm_cvttps_epi32(as_floats(bits))};
}

struct MuLaw {
  static NOX_INLINE Words encode(Words magnitude, Words sign) {
    const Words code = segments(magnitude + Words::all(kMuBias)) | (sign & Words::all(0x80));
    return code ^ Words::all(0xFF);
  }
  static NOX_INLINE Dwords decode(Dwords code) {
    const Dwords bits = code ^ Dwords::all(0xFF), m = middles(bits & Dwords::all(0x7F)) - Dwords::all(kMuBias);
    const Dwords negative = bits > Dwords::all(0x7F);
    return (m ^ negative) - negative;
  }
};
struct ALaw {
  static constexpr Nox16s kMost = 255;  // of the segment that isn't logarithmic
  static NOX_INLINE Words encode(Words magnitude, Words sign) {
    const Words code = select_lanes(magnitude > Words::all(kMost), segments(magnitude), shift_right(magnitude, 4));
    return code ^ Words::all(0xD5) ^ (sign & Words::all(0x80));
  }
  static NOX_INLINE Dwords decode(Dwords code) {
    const Dwords bits = code ^ Dwords::all(0x55), linear = (bits & Dwords::all(0x70)) == Dwords::zero();
    const Dwords below_sign = (bits & Dwords::all(0x7F)) + (linear & Dwords::all(0x10));
    const Dwords m = middles(below_sign) - (linear & Dwords::all(kMost + 1));
    const Dwords negative = Dwords::all(0x80) > bits;
    return (m ^ negative) - negative;
  }
};

// ---- eight samples as 16 bits. Real ones are those of full scale 1, rounded with halves away from zero. A NaN passes
// the clamp and becomes what the cut to 16 bits leaves of the processor's answer, 0.
constexpr int kAtOnce = 8;

NOX_INLINE Words samples(const Nox16s* s) { return Words::load(s); }
// Two scaled reals as integers in the low half.
NOX_INLINE __m128i rounded(__m128d x) {
  const __m128d half = _mm_or_pd(_mm_and_pd(x, _mm_set1_pd(-0.0)), _mm_set1_pd(0.5));
  return _mm_cvttpd_epi32(_mm_add_pd(x, half));
}
NOX_INLINE Words cut(Dwords low, Dwords high) {
  const auto low_bits = [](Dwords a) NOX_INLINED { return shift_right(shift_left(a, 16), 16); };
  return pack<Nox16s>(low_bits(low), low_bits(high));
}
NOX_INLINE Words samples(const Nox64f* s) {
  const auto two = [](const Nox64f* p) NOX_INLINED {
    const __m128d most = _mm_set1_pd(1), x = _mm_max_pd(_mm_set1_pd(-1), _mm_min_pd(most, _mm_loadu_pd(p)));
    return rounded(_mm_mul_pd(x, _mm_set1_pd(kEncodeScale)));
  };
  const auto four = [=](const Nox64f* p) NOX_INLINED { return Dwords{_mm_unpacklo_epi64(two(p), two(p + 2))}; };
  return cut(four(s), four(s + 4));
}
NOX_INLINE Words samples(const Nox32f* s) {
  const auto four = [](const Nox32f* p) NOX_INLINED {
    const __m128 most = _mm_set1_ps(1), x = _mm_max_ps(_mm_set1_ps(-1), _mm_min_ps(most, _mm_loadu_ps(p)));
    const __m128 scaled = _mm_mul_ps(x, _mm_set1_ps(static_cast<Nox32f>(kEncodeScale)));
    const __m128d low = _mm_cvtps_pd(scaled), high = _mm_cvtps_pd(_mm_movehl_ps(scaled, scaled));
    return Dwords{_mm_unpacklo_epi64(rounded(low), rounded(high))};
  };
  return cut(four(s), four(s + 4));
}

NOX_INLINE void put(Two<Dwords> a, Nox16s* d) { pack<Nox16s>(a.low, a.high).store(d); }
NOX_INLINE void put(Two<Dwords> a, Nox32f* d) {
  const __m128 scale = _mm_set1_ps(static_cast<Nox32f>(kDecodeScale));
  _mm_storeu_ps(d, _mm_mul_ps(_mm_cvtepi32_ps(a.low.v), scale));
  _mm_storeu_ps(d + 4, _mm_mul_ps(_mm_cvtepi32_ps(a.high.v), scale));
}
NOX_INLINE void put(Two<Dwords> a, Nox64f* d) {
  const auto two = [d](int i, __m128i x)
                       NOX_INLINED { _mm_storeu_pd(d + i, _mm_mul_pd(_mm_cvtepi32_pd(x), _mm_set1_pd(kDecodeScale))); };
  two(0, a.low.v), two(2, _mm_shuffle_epi32(a.low.v, 0xEE));
  two(4, a.high.v), two(6, _mm_shuffle_epi32(a.high.v, 0xEE));
}

template <class Law>
struct Encode {
  template <class T>
  NOX_INLINE void operator()(const T* s, Nox8u* d) const {
    const Words x = samples(s), sign = shift_right(x, 15);
    const Words size = max(x, Words::zero() - x),
                magnitude = min(and_not(shift_right(size, 15), size), Words::all(kClip));
    const Words code = Law::encode(magnitude, sign);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(d), pack<Nox8u>(code, code).v);
  }
};
template <class Law>
struct Decode {
  template <class T>
  NOX_INLINE void operator()(const Nox8u* s, T* d) const {
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(s)), zero = _mm_setzero_si128();
    const Two<Dwords> codes = widen(V128<Nox16u>{_mm_unpacklo_epi8(bytes, zero)});
    put(Two<Dwords>{Law::decode(codes.low), Law::decode(codes.high)}, d);
  }
};

// What is left behind the last eight goes through memory of the loop's own. The length is looked at before the
// pointers.
template <class F, class S, class D>
NOX_INLINE NoxStatus by_eights(F f, const S* s, D* d, int len) {
  if (len < 1) return noxStsSizeErr;
  if (!s || !d) return noxStsNullPtrErr;
  int i = 0;
  for (; len - i >= kAtOnce; i += kAtOnce) f(s + i, d + i);
  if (i == len) return noxStsNoErr;
  const size_t rest = static_cast<size_t>(len - i);
  S in[kAtOnce] = {};
  D out[kAtOnce];
  __builtin_memcpy(in, s + i, rest * sizeof *s);
  f(in, out);
  __builtin_memcpy(d + i, out, rest * sizeof *d);
  return noxStsNoErr;
}
template <class Law, class T>
NOX_INLINE NoxStatus encode(const T* s, Nox8u* d, int len) {
  return by_eights(Encode<Law>{}, s, d, len);
}
template <class Law, class T>
NOX_INLINE NoxStatus decode(const Nox8u* s, T* d, int len) {
  return by_eights(Decode<Law>{}, s, d, len);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsLinToMuLaw_16s8u_Idx)(const Nox16s* s, int si, Nox8u* d, int di, int len) {
  return encode<MuLaw>(at(s, si), at(d, di), len);
}
NoxStatus NOX_BODY(noxsLinToMuLaw_32f8u_Idx)(const Nox32f* s, int si, Nox8u* d, int di, int len) {
  return encode<MuLaw>(at(s, si), at(d, di), len);
}
NoxStatus NOX_BODY(noxsLinToMuLaw_64f8u_Idx)(const Nox64f* s, int si, Nox8u* d, int di, int len) {
  return encode<MuLaw>(at(s, si), at(d, di), len);
}
NoxStatus NOX_BODY(noxsLinToALaw_16s8u_Idx)(const Nox16s* s, int si, Nox8u* d, int di, int len) {
  return encode<ALaw>(at(s, si), at(d, di), len);
}
NoxStatus NOX_BODY(noxsLinToALaw_32f8u_Idx)(const Nox32f* s, int si, Nox8u* d, int di, int len) {
  return encode<ALaw>(at(s, si), at(d, di), len);
}
NoxStatus NOX_BODY(noxsLinToALaw_64f8u_Idx)(const Nox64f* s, int si, Nox8u* d, int di, int len) {
  return encode<ALaw>(at(s, si), at(d, di), len);
}

NoxStatus NOX_BODY(noxsMuLawToLin_8u16s_Idx)(const Nox8u* s, int si, Nox16s* d, int di, int len) {
  return decode<MuLaw>(at(s, si), at(d, di), len);
}
NoxStatus NOX_BODY(noxsMuLawToLin_8u32f_Idx)(const Nox8u* s, int si, Nox32f* d, int di, int len) {
  return decode<MuLaw>(at(s, si), at(d, di), len);
}
NoxStatus NOX_BODY(noxsMuLawToLin_8u64f_Idx)(const Nox8u* s, int si, Nox64f* d, int di, int len) {
  return decode<MuLaw>(at(s, si), at(d, di), len);
}
NoxStatus NOX_BODY(noxsALawToLin_8u16s_Idx)(const Nox8u* s, int si, Nox16s* d, int di, int len) {
  return decode<ALaw>(at(s, si), at(d, di), len);
}
NoxStatus NOX_BODY(noxsALawToLin_8u32f_Idx)(const Nox8u* s, int si, Nox32f* d, int di, int len) {
  return decode<ALaw>(at(s, si), at(d, di), len);
}
NoxStatus NOX_BODY(noxsALawToLin_8u64f_Idx)(const Nox8u* s, int si, Nox64f* d, int di, int len) {
  return decode<ALaw>(at(s, si), at(d, di), len);
}

}  // extern "C"
