// Logarithmic companding of 16-bit speech samples to 8 bits and back, by the mu law and the A law of G.711.
//
// A code holds the sign, the number of the segment, which is the magnitude's highest bit, and four bits below that.
// Both laws clip magnitudes at 32635. The lowest sample has no magnitude of 16 bits: it stays negative, and its code is
// near zero. Decoding goes by tables, which are computed when this is compiled.
#include "nox/array/companding.h"

#include "adapters/adapter.hpp"
#include "array/operands.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr Nox32s kClip = 32635, kMuBias = 132;
constexpr Nox64f kEncodeScale = 32767.0, kDecodeScale = 0x1p-15;

// The clipped magnitude, in 16 bits.
NOX_INLINE Nox32s magnitude(Nox16s x) {
  const Nox32s m = static_cast<Nox16s>(x < 0 ? -x : x);
  return m < kClip ? m : kClip;
}
NOX_INLINE Nox32s highest(Nox32u x) { return 31 - __builtin_clz(x | 1); }

struct MuLaw {
  static NOX_INLINE Nox8u encode(Nox16s x) {
    const Nox32s m = magnitude(x) + kMuBias, sign = x < 0 ? 0x80 : 0;
    const Nox32s segment = highest(static_cast<Nox32u>(m >> 7 & 255));
    return static_cast<Nox8u>(~(sign | segment << 4 | (m >> (segment + 3) & 15)));
  }
  static constexpr Nox16s decode(Nox32u code) {
    const Nox32s bits = static_cast<Nox32s>(~code & 0xFF), segment = bits >> 4 & 7;
    const Nox32s m = ((((bits & 15) << 3) + kMuBias) << segment) - kMuBias;
    return static_cast<Nox16s>(bits & 0x80 ? -m : m);
  }
};
struct ALaw {
  static NOX_INLINE Nox8u encode(Nox16s x) {
    const Nox32s m = magnitude(x);
    Nox32s code = m >> 4;
    if (m >= 256) {
      const Nox32s segment = 1 + highest(static_cast<Nox32u>(m >> 8 & 127));
      code = segment << 4 | (m >> (segment + 3) & 15);
    }
    return static_cast<Nox8u>(code ^ (x < 0 ? 0x55 : 0xD5));
  }
  static constexpr Nox16s decode(Nox32u code) {
    const Nox32s bits = static_cast<Nox32s>(code ^ 0x55), segment = bits >> 4 & 7, low = (bits & 15) << 4;
    const Nox32s m = segment == 0 ? low + 8 : (low + 0x108) << (segment - 1);
    return static_cast<Nox16s>(bits & 0x80 ? m : -m);
  }
};

template <class Law>
struct Decoded {
  Nox16s of[256];
  constexpr Decoded() : of() {
    for (Nox32u code = 0; code < 256; ++code) of[code] = Law::decode(code);
  }
};
template <class Law>
constexpr Decoded<Law> kDecoded{};

// A sample as 16 bits; real ones are those of full scale 1, rounded with halves away from zero. A NaN passes the clamp
// and becomes what the cut to 16 bits leaves of the processor's answer, 0.
NOX_INLINE Nox16s sample(Nox16s x) { return x; }
NOX_INLINE Nox16s rounded(Nox64f x) {
  return static_cast<Nox16s>(_mm_cvttsd_si32(_mm_set_sd(x + (x < 0 ? -0.5 : 0.5))));
}
NOX_INLINE Nox16s sample(Nox64f x) { return rounded((x < -1 ? -1 : x > 1 ? 1 : x) * kEncodeScale); }
NOX_INLINE Nox16s sample(Nox32f x) {
  return rounded((x < -1 ? -1 : x > 1 ? 1 : x) * static_cast<Nox32f>(kEncodeScale));
}
NOX_INLINE void decoded(Nox16s value, Nox16s* d) { put_element(d, value); }
NOX_INLINE void decoded(Nox16s value, Nox64f* d) { put_element(d, value * kDecodeScale); }
NOX_INLINE void decoded(Nox16s value, Nox32f* d) { put_element(d, static_cast<Nox32f>(value * kDecodeScale)); }

// The length is looked at before the pointers.
NOX_INLINE NoxStatus check_length_first(int len, const void* s, const void* d) {
  if (len < 1) return noxStsSizeErr;
  return s && d ? noxStsNoErr : noxStsNullPtrErr;
}
template <class Law, class T>
NOX_INLINE NoxStatus encode(const T* s, Nox8u* d, int len) {
  if (const NoxStatus st = check_length_first(len, s, d)) return st;
  for (int i = 0; i < len; ++i) d[i] = Law::encode(sample(element_at(s + i)));
  return noxStsNoErr;
}
template <class Law, class T>
NOX_INLINE NoxStatus decode(const Nox8u* s, T* d, int len) {
  if (const NoxStatus st = check_length_first(len, s, d)) return st;
  for (int i = 0; i < len; ++i) decoded(kDecoded<Law>.of[s[i]], d + i);
  return noxStsNoErr;
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
