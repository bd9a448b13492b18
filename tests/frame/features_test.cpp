// The feature mask, beside what the compiler's own run-time reads of the processor.
#include <cpuid.h>
#include <gtest/gtest.h>

#include <cstring>
#include <utility>

#include "core/feature_mask.hpp"
#include "kit/call.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"

namespace {

using kit::call;

struct Words {
  Nox32u a, b, c, d;
};
Words cpuid(Nox32u leaf, Nox32u subleaf) {
  Words w;
  __cpuid_count(leaf, subleaf, w.a, w.b, w.c, w.d);
  return w;
}
constexpr Nox32u kApicId = 0xFF000000;  // of leaf 1, EBX: the core that answered

bool has(int bit) { return kit::processor_mask() >> bit & 1; }

TEST(Features, AgreeWithTheCompilersReading) {
#define ROW(bit, name) \
  { bit, name, __builtin_cpu_supports(name) != 0 }
  const struct {
    int bit;
    const char* name;
    bool supported;
  } rows[] = {ROW(0, "mmx"),    ROW(1, "sse"),    ROW(2, "sse2"),    ROW(3, "sse3"),    ROW(4, "ssse3"),
              ROW(5, "movbe"),  ROW(6, "sse4.1"), ROW(7, "sse4.2"),  ROW(10, "aes"),    ROW(11, "pclmul"),
              ROW(13, "rdrnd"), ROW(16, "adx"),   ROW(17, "rdseed"), ROW(18, "prfchw"), ROW(19, "sha")};
  for (const auto& row : rows) EXPECT_EQ(has(row.bit), row.supported) << row.name;
  // The compiler counts these only where the operating system saves the registers.
  const struct {
    int bit;
    const char* name;
    bool supported;
  } avx_rows[] = {ROW(8, "avx"), ROW(9, "avx"), ROW(14, "f16c")};
  const bool level2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") &&
                      __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2");
  if (has(9)) {
    for (const auto& row : avx_rows) EXPECT_EQ(has(row.bit), row.supported) << row.name;
    EXPECT_EQ(has(15), level2);
  } else {
    EXPECT_FALSE(__builtin_cpu_supports("avx"));
  }
  const struct {
    int bit;
    const char* name;
    bool supported;
  } wide_rows[] = {ROW(20, "avx512f"),         ROW(21, "avx512cd"),    ROW(24, "avx512bw"),   ROW(25, "avx512dq"),
                   ROW(26, "avx512vl"),        ROW(27, "avx512vbmi"),  ROW(32, "avx512ifma"), ROW(33, "avx512f"),
                   ROW(34, "avx512vpopcntdq"), ROW(35, "avx512bitalg")};
#undef ROW
  if (has(33)) {
    for (const auto& row : wide_rows) EXPECT_EQ(has(row.bit), row.supported) << row.name;
  } else {
    EXPECT_FALSE(__builtin_cpu_supports("avx512f"));
  }
  EXPECT_FALSE(has(12));
  EXPECT_EQ(kit::processor_mask() >> 37, 0u);
}

// Each bit by itself, with the places the compiler's header gives; what no processor at hand has is seen here alone.
TEST(FeatureMask, TakesEachFeatureFromItsPlace) {
  using Id = nox::Identification;
  const auto c1 = [](Nox32u bits) { return Id{{0, 0, bits, 0}, {}, 0, 0, true}; };
  const auto d1 = [](Nox32u bits) { return Id{{0, 0, 0, bits}, {}, 0, 0, true}; };
  const auto b7 = [](Nox32u bits) { return Id{{}, {0, bits, 0, 0}, 0, 0, true}; };
  const auto c7 = [](Nox32u bits) { return Id{{}, {0, 0, bits, 0}, 0, 0, true}; };
  const auto d7 = [](Nox32u bits) { return Id{{}, {0, 0, 0, bits}, 0, 0, true}; };
  const struct {
    int bit;
    Id id;
  } rows[] = {{0, d1(bit_MMX)},           {1, d1(bit_SSE)},
              {2, d1(bit_SSE2)},          {3, c1(bit_SSE3)},
              {4, c1(bit_SSSE3)},         {5, c1(bit_MOVBE)},
              {6, c1(bit_SSE4_1)},        {7, c1(bit_SSE4_2)},
              {8, c1(bit_AVX)},           {10, c1(bit_AES)},
              {11, c1(bit_PCLMUL)},       {13, c1(bit_RDRND)},
              {14, c1(bit_F16C)},         {16, b7(bit_ADX)},
              {17, b7(bit_RDSEED)},       {18, Id{{}, {}, bit_PRFCHW, 0, true}},
              {19, b7(bit_SHA)},          {20, b7(bit_AVX512F)},
              {21, b7(bit_AVX512CD)},     {22, b7(bit_AVX512ER)},
              {23, b7(bit_AVX512PF)},     {24, b7(bit_AVX512BW)},
              {25, b7(bit_AVX512DQ)},     {26, b7(bit_AVX512VL)},
              {27, c7(bit_AVX512VBMI)},   {28, b7(1u << 14)},
              {29, d7(bit_AVX5124FMAPS)}, {30, d7(bit_AVX5124VNNIW)},
              {32, b7(bit_AVX512IFMA)},   {34, c7(bit_AVX512VPOPCNTDQ)},
              {35, c7(bit_AVX512BITALG)}, {36, d7(1u << 23)}};
  for (const auto& row : rows) EXPECT_EQ(nox::feature_mask(row.id), Nox64u{1} << row.bit) << row.bit;
}

TEST(FeatureMask, JoinsWhatOnlyCountsTogether) {
  constexpr Nox64u kAvx = 0x100, kAvxSaved = 0x200, kLevel2 = 0x8000, kAvx512Saved = Nox64u{2} << 32;
  constexpr Nox32u kLevel2Words = bit_AVX2 | bit_BMI | bit_BMI2;
  const auto mask = [](Nox32u c1, Nox32u b7, Nox32u saved, bool has_leaf7 = true) {
    return nox::feature_mask({{0, 0, c1, 0}, {0, b7, 0, 0}, 0, saved, has_leaf7});
  };
  EXPECT_EQ(mask(bit_AVX | bit_OSXSAVE, 0, 0x7), kAvx | kAvxSaved);
  EXPECT_EQ(mask(bit_AVX | bit_OSXSAVE, 0, 0x3), kAvx);
  EXPECT_EQ(mask(bit_AVX | bit_OSXSAVE, 0, 0x5), kAvx);
  EXPECT_EQ(mask(bit_AVX, 0, 0x7), kAvx);
  EXPECT_EQ(mask(bit_OSXSAVE, 0, 0x7), 0u);
  EXPECT_EQ(mask(bit_FMA, kLevel2Words, 0), kLevel2);
  EXPECT_EQ(mask(0, kLevel2Words, 0), 0u);
  for (const Nox32u one : {bit_AVX2, bit_BMI, bit_BMI2})
    EXPECT_EQ(mask(bit_FMA, kLevel2Words & ~static_cast<Nox32u>(one), 0), 0u);
  EXPECT_EQ(mask(bit_OSXSAVE, 0, 0xE0), kAvx512Saved);
  EXPECT_EQ(mask(bit_OSXSAVE, 0, 0x60), 0u);
  EXPECT_EQ(mask(0, 0, 0xE0), 0u);
  EXPECT_EQ(mask(bit_OSXSAVE, 0, 0xE0, false), 0u);
  for (const auto& [signature, found] :
       {std::pair{0xB10u, true}, {0xFFFFFB1Fu, true}, {0xB00u, false}, {0xA10u, false}})
    EXPECT_EQ(nox::feature_mask({{signature, 0, 0, 0}, {}, 0, 0, true}) != 0, found) << std::hex << signature;
}

TEST(Features, QueryGivesMaskAndFirstLeaf) {
  Nox64u mask = 0;
  EXPECT_EQ(call(noxGetCpuFeatures, &mask, nullptr), noxStsNoErr);
  EXPECT_EQ(mask, kit::processor_mask());
  EXPECT_EQ(call(noxGetCpuFeatures, nullptr, nullptr), noxStsNullPtrErr);
  Nox32u words[4] = {0, 5, 7, 6};
  EXPECT_EQ(call(noxGetCpuFeatures, nullptr, words), noxStsNullPtrErr);
  EXPECT_EQ(words[0], 0u);
  // Half of the letters is no free query.
  for (const Nox64u before : {Nox64u{0x69746567}, Nox64u{0x616F666E} << 32}) {
    mask = before;
    words[0] = 0, words[2] = 0;
    EXPECT_EQ(call(noxGetCpuFeatures, &mask, words), noxStsNoErr);
    EXPECT_EQ(mask, kit::processor_mask());
    const Words l1 = cpuid(1, 0);
    EXPECT_EQ(words[0], l1.a);
    EXPECT_EQ(words[1] & ~kApicId, l1.b & ~kApicId);
    EXPECT_EQ(words[2], l1.c);
    EXPECT_EQ(words[3], l1.d);
  }
}

TEST(Features, FreeQueryTakesLeafAndSubleaf) {
  for (const Words& asked : {Words{0, 0, 0, 0}, Words{7, 0, 0, 0}, Words{0xD, 0, 2, 0}, Words{0x80000000, 0, 0, 0}}) {
    Nox64u mask;
    std::memcpy(&mask, "getinfoa", 8);
    Nox32u words[4] = {asked.a, 0x11111111, asked.c, 0x22222222};
    EXPECT_EQ(call(noxGetCpuFeatures, &mask, words), noxStsNoErr);
    EXPECT_EQ(mask, kit::processor_mask());
    const Words w = cpuid(asked.a, asked.c);
    EXPECT_EQ(words[0], w.a) << asked.a;
    EXPECT_EQ(words[1], w.b) << asked.a;
    EXPECT_EQ(words[2], w.c) << asked.a;
    EXPECT_EQ(words[3], w.d) << asked.a;
  }
}

}  // namespace
