// Companding: every code and every sample, by the segment tables and by search among the decoded values.
#include <cmath>

#include "array/layout.hpp"

namespace {

using kit::call;

// The laws with their segments by table.
Nox8u mu_law(Nox16s x) {
  int segment_of[256] = {};
  for (int i = 2; i < 256; ++i) segment_of[i] = static_cast<int>(std::log2(i));
  int m = static_cast<Nox16s>(x >= 0 ? x : -x);
  m = std::min(m, 32635) + 132;
  const int segment = segment_of[(m >> 7) & 255];
  return static_cast<Nox8u>(~((x < 0) << 7 | segment << 4 | ((m >> (segment + 3)) & 15)));
}
Nox8u a_law(Nox16s x) {
  int m = std::min<int>(static_cast<Nox16s>(x >= 0 ? x : -x), 32635), code = m >> 4;
  if (m >= 256) {
    const int high = (m >> 8) & 127, segment = high < 2 ? 1 : static_cast<int>(std::log2(high)) + 1;
    code = segment << 4 | ((m >> (segment + 3)) & 15);
  }
  return static_cast<Nox8u>(code ^ (x < 0 ? 0x55 : 0xD5));
}

struct Law {
  NoxStatus (*encode)(const Nox16s*, int, Nox8u*, int, int);
  NoxStatus (*encode_float)(const Nox32f*, int, Nox8u*, int, int);
  NoxStatus (*encode_double)(const Nox64f*, int, Nox8u*, int, int);
  NoxStatus (*decode)(const Nox8u*, int, Nox16s*, int, int);
  NoxStatus (*decode_float)(const Nox8u*, int, Nox32f*, int, int);
  NoxStatus (*decode_double)(const Nox8u*, int, Nox64f*, int, int);
  Nox8u (*expected)(Nox16s);
  Nox16s most;    // of the decoded values
  int half_step;  // between a small sample and its decoded value
};
const Law kLaws[] = {{noxsLinToMuLaw_16s8u_Idx, noxsLinToMuLaw_32f8u_Idx, noxsLinToMuLaw_64f8u_Idx,
                      noxsMuLawToLin_8u16s_Idx, noxsMuLawToLin_8u32f_Idx, noxsMuLawToLin_8u64f_Idx, mu_law, 32124, 4},
                     {noxsLinToALaw_16s8u_Idx, noxsLinToALaw_32f8u_Idx, noxsLinToALaw_64f8u_Idx,
                      noxsALawToLin_8u16s_Idx, noxsALawToLin_8u32f_Idx, noxsALawToLin_8u64f_Idx, a_law, 32256, 8}};

TEST(ArrayCompanding, EverySample) {
  std::vector<Nox16s> x(65536);
  for (size_t i = 0; i < x.size(); ++i) x[i] = static_cast<Nox16s>(i);
  for (const Law& law : kLaws) {
    kit::Guarded<Nox16s> s(x);
    kit::Guarded<Nox8u> d(x.size());
    ASSERT_EQ(noxStsNoErr, call(law.encode, s.data() - 3, 3, d.data(), 0, 65536));
    for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(d[i], law.expected(x[i])) << x[i];
    // Around every rounding to a sample and its code.
    for (int k = -32768; k <= 32768; k += 7)
      for (const double part : {-0.5, -0.25, 0.0, 0.25, 0.5}) {
        const double y = (k + part) / 32767;
        const float f = static_cast<float>(y);
        const auto code = [&](double scaled) {
          return law.expected(static_cast<Nox16s>(std::clamp(std::round(scaled), -32767.0, 32767.0)));
        };
        Nox8u found = 0;
        call(law.encode_double, &y, 0, &found, 0, 1);
        ASSERT_EQ(found, code(std::clamp(y, -1.0, 1.0) * 32767)) << y;
        call(law.encode_float, &f, 0, &found, 0, 1);
        ASSERT_EQ(found, code(std::clamp(f, -1.f, 1.f) * 32767.f)) << f;
      }
    const double odd[3] = {NAN, 2.0, -HUGE_VAL};
    Nox8u codes[3];
    call(law.encode_double, odd, 0, codes, 0, 3);
    EXPECT_EQ(codes[0], law.expected(0));
    EXPECT_EQ(codes[1], law.expected(32767));
    EXPECT_EQ(codes[2], law.expected(-32767));
  }
  EXPECT_EQ(0x7F, mu_law(-32768));
  EXPECT_EQ(0x55, a_law(-32768));
}

TEST(ArrayCompanding, EveryCode) {
  std::vector<Nox8u> codes(256);
  for (size_t i = 0; i < 256; ++i) codes[i] = static_cast<Nox8u>(i);
  for (const Law& law : kLaws) {
    kit::Guarded<Nox8u> s(codes);
    kit::Guarded<Nox16s> d(256);
    kit::Guarded<Nox32f> f(256);
    kit::Guarded<Nox64f> r(256);
    ASSERT_EQ(noxStsNoErr, call(law.decode, s.data(), 0, d.data() + 9, -9, 256));
    ASSERT_EQ(noxStsNoErr, call(law.decode_float, s.data(), 0, f.data(), 0, 256));
    ASSERT_EQ(noxStsNoErr, call(law.decode_double, s.data(), 0, r.data(), 0, 256));
    EXPECT_EQ(law.most, *std::max_element(d.begin(), d.end()));
    EXPECT_EQ(-law.most, *std::min_element(d.begin(), d.end()));
    for (size_t i = 0; i < 256; ++i) {
      ASSERT_EQ(r[i], d[i] / 32768.0);
      ASSERT_EQ(f[i], static_cast<float>(r[i]));
      // A decoded value encodes to its code again, but for the second zero of the mu law.
      if (d[i] != 0) {
        ASSERT_EQ(law.expected(d[i]), i);
      }
      // No other decoded value is nearer to a small sample than its own.
      const Nox16s x = static_cast<Nox16s>(i);
      ASSERT_LE(std::abs(d[law.expected(x)] - x), law.half_step + (x + 132) / 32) << x;
    }
    Nox8u out = 9;
    EXPECT_EQ(noxStsSizeErr, call(law.encode, nullptr, 0, &out, 0, 0));
    EXPECT_EQ(noxStsNullPtrErr, call(law.encode, nullptr, 0, &out, 0, 1));
    EXPECT_EQ(noxStsSizeErr, call(law.decode, nullptr, 0, nullptr, 0, -1));
    EXPECT_EQ(noxStsNullPtrErr, call(law.decode_double, s.data(), 0, nullptr, 0, 1));
    EXPECT_EQ(9, out);
  }
}

}  // namespace
