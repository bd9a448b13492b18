// Angles beyond the short reduction, up to the largest double, one at a time and in whole numbers (Payne and Hanek).
//
// x = m 2^e with a whole m. Of the bits of 2/pi those that give multiples of 4 quarter turns are left out, the next 224
// are multiplied by m. The product's top bits are the quarter turn; the rest, taken to the nearest, is the fraction of
// one. No double comes as close to a multiple of a quarter turn as 2^-64, so 160 bits of the fraction hold r and rr.
#include "vmath/angle.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// 2/pi in words of 32 bits, the first being its whole part.
constexpr uint32_t kTwoOverPiWords[] = {
    0x00000000, 0xA2F9836E, 0x4E441529, 0xFC2757D1, 0xF534DDC0, 0xDB629599, 0x3C439041, 0xFE5163AB,
    0xDEBBC561, 0xB7246E3A, 0x424DD2E0, 0x06492EEA, 0x09D1921C, 0xFE1DEB1C, 0xB129A73E, 0xE88235F5,
    0x2EBB4484, 0xE99C7026, 0xB45F7E41, 0x3991D639, 0x835339F4, 0x9C845F8B, 0xBDF9283B, 0x1FF897FF,
    0xDE05980F, 0xEF2F118B, 0x5A0A6D1F, 0x6D367ECF, 0x27CB09B7, 0x4F463F66, 0x9E5FEA2D, 0x7527BAC7,
    0xEBE5F17B, 0x3D0739F7, 0x8A5292EA, 0x6BFB5FB1, 0x1F8D5D08, 0x56033046};
constexpr int kWords = 7;

// high + low is a + b; the last bit of a isn't below that of b, or a is zero.
struct Sum {
  double high, low;
};
NOX_INLINE Sum sum(double a, double b) {
  const double high = a + b;
  return {high, (a - high) + b};
}
// The product's error, by halves of the factors.
NOX_INLINE double product_error(double a, double b, double product) {
  constexpr double kSplit = 0x1p27 + 1;
  const double ca = a * kSplit, ah = ca - (ca - a), al = a - ah;
  const double cb = b * kSplit, bh = cb - (cb - b), bl = b - bh;
  return ((ah * bh - product) + ah * bl + al * bh) + al * bl;
}

// By 0 to 31 bits.
NOX_INLINE void shift_left(uint32_t (&p)[kWords], int count) {
  for (int i = kWords - 1; i > 0; --i)
    p[i] = static_cast<uint32_t>((static_cast<Nox64u>(p[i]) << 32 | p[i - 1]) << count >> 32);
  p[0] <<= count;
}

NOX_INLINE void reduce_one(double x, double& r, double& rr, double& turns) {
  Nox64u bits;
  __builtin_memcpy(&bits, &x, sizeof bits);
  const int e = static_cast<int>(bits >> 52 & 0x7FF) - 1075;
  const uint32_t m[] = {static_cast<uint32_t>(bits), (static_cast<uint32_t>(bits >> 32) & 0xFFFFF) | 0x100000};
  const int first = (e + 30) >> 5;  // the words before it give multiples of 4

  // The lower 224 bits of m times the words, lowest word first.
  uint32_t p[kWords] = {};
  for (int k = 0; k < 2; ++k) {
    Nox64u carry = 0;
    for (int i = k; i < kWords; ++i) {
      carry += static_cast<Nox64u>(m[k]) * kTwoOverPiWords[first + kWords - 1 - (i - k)] + p[i];
      p[i] = static_cast<uint32_t>(carry);
      carry >>= 32;
    }
  }
  // The top word's first two bits are to be the quarter turns, the fraction follows.
  shift_left(p, 30 + e - 32 * first);
  const int whole = static_cast<int>(p[kWords - 1] >> 30);
  shift_left(p, 2);
  const bool up = p[kWords - 1] >> 31 != 0;  // a half or more: from the next turn backward
  const int n = whole + up;
  double part[5], unit = 0x1p-32;
  for (int i = 0; i < 5; ++i, unit *= 0x1p-32)
    part[i] = static_cast<double>(p[kWords - 1 - i] ^ (up ? 0xFFFFFFFF : 0)) * unit;
  const Sum s3 = sum(part[3], part[4]), s2 = sum(part[2], s3.high), s1 = sum(part[1], s2.high),
            s0 = sum(part[0], s1.high);
  const double low = s0.low + (s1.low + (s2.low + s3.low));
  r = s0.high * kHalfPi[0];
  rr = product_error(s0.high, kHalfPi[0], r) + (s0.high * kHalfPi[1] + low * kHalfPi[0]);
  if (up != (x < 0)) {
    r = -r;
    rr = -rr;
  }
  turns = kTurnsShift + (x < 0 ? -n : n);
}

}  // namespace

void reduce_far(const double* x, double* r, double* rr, double* turns, int lanes) {
  for (int i = 0; i < lanes; ++i) {
    const double size = __builtin_fabs(x[i]);
    if (size <= kFarAngle) continue;
    if (size <= __DBL_MAX__) {
      reduce_one(x[i], r[i], rr[i], turns[i]);
    } else {
      r[i] = x[i] - x[i];
      rr[i] = 0;
      turns[i] = kTurnsShift;
    }
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
