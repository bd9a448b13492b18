// What rounds to integers gives the same whatever rounding mode the thread is in, and leaves the mode as it was: the
// probe around every call looks at both control words.
#include <gtest/gtest.h>

#include <cfenv>
#include <cstring>
#include <functional>

#include "kit/call.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"

namespace {

using kit::call;
constexpr int kCount = 83;

struct Source {
  std::vector<Nox32f> floats = std::vector<Nox32f>(kCount);
  std::vector<Nox64f> doubles = std::vector<Nox64f>(kCount);
  std::vector<Nox16f> halves = std::vector<Nox16f>(kCount);
  std::vector<Nox8u> bytes = std::vector<Nox8u>(kCount);
  std::vector<Nox16s> words = std::vector<Nox16s>(kCount);
  std::vector<Nox32s> ints = std::vector<Nox32s>(kCount);
  Source() {
    kit::Random random;
    for (size_t i = 0; i < kCount; ++i) {
      doubles[i] = i % 4 == 0 ? static_cast<double>(i) - 40.5 : random.uniform(-100, 100);
      floats[i] = static_cast<Nox32f>(doubles[i]);
      ints[i] = static_cast<Nox32s>(random.uniform(1, 1e6));
      words[i] = static_cast<Nox16s>(random.uniform(1, 3e4));
      bytes[i] = static_cast<Nox8u>(random.uniform(1, 255));
    }
    noxsConvert_32f16f(floats.data(), halves.data(), kCount, noxRndNear);
  }
};
struct Case {
  const char* name;
  std::function<NoxStatus(const Source&, void*)> run;
};
template <class T>
T* to(void* d) {
  return static_cast<T*>(d);
}

const Case kCases[] = {
    {"32f8s",
     [](auto& s, void* d) { return call(noxsConvert_32f8s_Sfs, s.floats.data(), to<Nox8s>(d), kCount, 1, 0); }},
    {"32f16u",
     [](auto& s, void* d) { return call(noxsConvert_32f16u_Sfs, s.floats.data(), to<Nox16u>(d), kCount, 1, -2); }},
    {"32f32s",
     [](auto& s, void* d) { return call(noxsConvert_32f32s_Sfs, s.floats.data(), to<Nox32s>(d), kCount, 1, 1); }},
    {"32f16s away",
     [](auto& s, void* d) { return call(noxsConvert_32f16s_Sfs, s.floats.data(), to<Nox16s>(d), kCount, 2, 0); }},
    {"64f16s",
     [](auto& s, void* d) { return call(noxsConvert_64f16s_Sfs, s.doubles.data(), to<Nox16s>(d), kCount, 1, 0); }},
    {"64f32s",
     [](auto& s, void* d) { return call(noxsConvert_64f32s_Sfs, s.doubles.data(), to<Nox32s>(d), kCount, 1, 0); }},
    {"64f32s away",
     [](auto& s, void* d) { return call(noxsConvert_64f32s_Sfs, s.doubles.data(), to<Nox32s>(d), kCount, 2, 0); }},
    {"32f24s", [](auto& s, void* d) { return call(noxsConvert_32f24s_Sfs, s.floats.data(), to<Nox8u>(d), kCount, 0); }},
    {"32f24u", [](auto& s, void* d) { return call(noxsConvert_32f24u_Sfs, s.floats.data(), to<Nox8u>(d), kCount, 0); }},
    {"16f16s",
     [](auto& s, void* d) { return call(noxsConvert_16f16s_Sfs, s.halves.data(), to<Nox16s>(d), kCount, 1, 0); }},
    {"32f16f", [](auto& s, void* d) { return call(noxsConvert_32f16f, s.floats.data(), to<Nox16f>(d), kCount, 1); }},
    {"16s16f", [](auto& s, void* d) { return call(noxsConvert_16s16f, s.words.data(), to<Nox16f>(d), kCount, 1); }},
    {"Mul_16s",
     [](auto& s, void* d) { return call(noxsMul_16s_Sfs, s.words.data(), s.words.data(), to<Nox16s>(d), kCount, 9); }},
    {"Mul_32s",
     [](auto& s, void* d) { return call(noxsMul_32s_Sfs, s.ints.data(), s.ints.data(), to<Nox32s>(d), kCount, 9); }},
    {"Div_8u",
     [](auto& s, void* d) {
       return call(noxsDiv_8u_Sfs, s.bytes.data(), s.bytes.data() + 1, to<Nox8u>(d), kCount - 1, -3);
     }},
    {"Div_16s",
     [](auto& s, void* d) {
       return call(noxsDiv_16s_Sfs, s.words.data(), s.words.data() + 1, to<Nox16s>(d), kCount - 1, -3);
     }},
    {"Div_32s",
     [](auto& s, void* d) {
       return call(noxsDiv_32s_Sfs, s.ints.data(), s.ints.data() + 1, to<Nox32s>(d), kCount - 1, -3);
     }},
    {"DotProd_32s",
     [](auto& s, void* d) {
       return call(noxsDotProd_32s_Sfs, s.ints.data(), s.ints.data(), kCount, to<Nox32s>(d), 20);
     }},
    {"Mean_32s", [](auto& s, void* d) { return call(noxsMean_32s_Sfs, s.ints.data(), kCount, to<Nox32s>(d), 0); }},
};

class RoundingModes : public kit::EachVariant {};
NOX_EACH_VARIANT(RoundingModes);

TEST_P(RoundingModes, LeaveIntegersAlone) {
  const Source source;
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    Nox8u expected[4 * kCount] = {}, found[4 * kCount] = {};
    ASSERT_EQ(noxStsNoErr, c.run(source, expected));
    for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
      std::fesetround(mode);
      const NoxStatus st = c.run(source, found);
      EXPECT_EQ(mode, std::fegetround());
      std::fesetround(FE_TONEAREST);
      EXPECT_EQ(noxStsNoErr, st);
      EXPECT_EQ(0, std::memcmp(expected, found, sizeof found)) << "mode " << mode;
    }
  }
}

}  // namespace
