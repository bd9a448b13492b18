// Cosine transforms of 1, 2, 4 and 8 elements in straight lines: sums and differences of mirrored elements, then the
// even results from the sums and the odd ones from the differences. All is read before the first result is written.
#include "transform/dct.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr Nox64f kHalfRoot = 0.7071067811865476;                          // sqrt(1/2)
constexpr Nox64f kSin8 = 0.2705980500730985, kCos8 = 0.6532814824381883;  // of pi/8, times sqrt(1/2)
constexpr Nox64f kEighthRoot = 0.3535533905932738;                        // sqrt(1/8)
constexpr Nox64f kHalfCos8 = 0.46193976625564337, kHalfSin8 = 0.1913417161825449;
// Of pi/16 and 3*pi/16, times sqrt(1/8): sums and differences of the two rotations are cosines times 1/2, and the
// results 3 and 5 lack a factor.
constexpr Nox64f kCos16 = 0.3467599613305369, kSin16 = 0.06897484482073576;
constexpr Nox64f kCos3_16 = 0.2939689006048397, kSin3_16 = 0.1964237395967756;
constexpr Nox64f kRoot = 1.4142135623730951;

void forward1(const Nox64f* s, Nox64f* d) { d[0] = s[0]; }
void forward2(const Nox64f* s, Nox64f* d) {
  const Nox64f a = s[0] * kHalfRoot, b = s[1] * kHalfRoot;
  d[0] = a + b;
  d[1] = a - b;
}
void forward4(const Nox64f* s, Nox64f* d) {
  const Nox64f s0 = s[0] + s[3], s1 = s[1] + s[2], d0 = s[0] - s[3], d1 = s[1] - s[2];
  d[0] = 0.5 * (s0 + s1);
  d[1] = kCos8 * d0 + kSin8 * d1;
  d[2] = 0.5 * (s0 - s1);
  d[3] = kSin8 * d0 - kCos8 * d1;
}
void forward8(const Nox64f* s, Nox64f* d) {
  const Nox64f s0 = s[0] + s[7], s1 = s[1] + s[6], s2 = s[2] + s[5], s3 = s[3] + s[4];
  const Nox64f d0 = s[0] - s[7], d1 = s[1] - s[6], d2 = s[2] - s[5], d3 = s[3] - s[4];
  const Nox64f s03 = s0 + s3, s12 = s1 + s2, d03 = s0 - s3, d12 = s1 - s2;
  const Nox64f a = kCos3_16 * d3 + kSin3_16 * d0, b = kCos3_16 * d0 - kSin3_16 * d3;
  const Nox64f e = kCos16 * d2 + kSin16 * d1, f = kCos16 * d1 - kSin16 * d2;
  const Nox64f sum_be = b + e, sum_af = a + f;
  d[0] = kEighthRoot * (s03 + s12);
  d[1] = sum_be + sum_af;
  d[2] = kHalfCos8 * d03 + kHalfSin8 * d12;
  d[3] = kRoot * (b - e);
  d[4] = kEighthRoot * (s03 - s12);
  d[5] = kRoot * (a - f);
  d[6] = kHalfSin8 * d03 - kHalfCos8 * d12;
  d[7] = sum_be - sum_af;
}

void inverse4(const Nox64f* s, Nox64f* d) {
  const Nox64f s0 = 0.5 * (s[0] + s[2]), s1 = 0.5 * (s[0] - s[2]);
  const Nox64f d0 = kCos8 * s[1] + kSin8 * s[3], d1 = kSin8 * s[1] - kCos8 * s[3];
  d[0] = s0 + d0;
  d[1] = s1 + d1;
  d[2] = s1 - d1;
  d[3] = s0 - d0;
}
void inverse8(const Nox64f* s, Nox64f* d) {
  const Nox64f s03 = kEighthRoot * (s[0] + s[4]), s12 = kEighthRoot * (s[0] - s[4]);
  const Nox64f d03 = kHalfCos8 * s[2] + kHalfSin8 * s[6], d12 = kHalfSin8 * s[2] - kHalfCos8 * s[6];
  const Nox64f s0 = s03 + d03, s3 = s03 - d03, s1 = s12 + d12, s2 = s12 - d12;
  const Nox64f sum_be = s[1] + s[7], sum_af = s[1] - s[7], dif_be = kRoot * s[3], dif_af = kRoot * s[5];
  const Nox64f a = sum_af + dif_af, f = sum_af - dif_af, b = sum_be + dif_be, e = sum_be - dif_be;
  const Nox64f d0 = kSin3_16 * a + kCos3_16 * b, d3 = kCos3_16 * a - kSin3_16 * b;
  const Nox64f d1 = kSin16 * e + kCos16 * f, d2 = kCos16 * e - kSin16 * f;
  d[0] = s0 + d0;
  d[1] = s1 + d1;
  d[2] = s2 + d2;
  d[3] = s3 + d3;
  d[4] = s3 - d3;
  d[5] = s2 - d2;
  d[6] = s1 - d1;
  d[7] = s0 - d0;
}

using Line = void (*)(const Nox64f* s, Nox64f* d);
constexpr Line kForward[] = {nullptr, forward1, forward2, nullptr, forward4, nullptr, nullptr, nullptr, forward8};
constexpr Line kInverse[] = {nullptr, forward1, forward2, nullptr, inverse4, nullptr, nullptr, nullptr, inverse8};

}  // namespace

NoxStatus dct_lines_forward(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u*) {
  kForward[spec->len](s, d);
  return noxStsNoErr;
}
NoxStatus dct_lines_inverse(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u*) {
  kInverse[spec->len](s, d);
  return noxStsNoErr;
}

}  // namespace NOX_VARIANT
}  // namespace nox
