// The feature mask, beside what the compiler's own run-time reads of the processor.
#include <cpuid.h>
#include <gtest/gtest.h>

#include <cstring>

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
