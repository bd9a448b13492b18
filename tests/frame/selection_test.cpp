// Selection of a build by a feature mask, judged by processors that the library is made to believe in; and selection
// while other threads compute.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include "kit/call.hpp"
#include "kit/dispatch.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"

namespace {

using kit::call;

constexpr const char* kTags[] = {"w7", "s8", "p8", "g9", "h9"};
constexpr const char* kNames[] = {"noxSP SSE2 (w7)", "noxSP Atom (s8)", "noxSP SSE4.2 (p8)", "noxSP AVX (g9)",
                                  "noxSP AVX2 (h9)"};
constexpr Nox64u kOnTrust = Nox64u{1} << 63;
constexpr Nox64u high(Nox64u word) { return word << 32; }

class Selection : public testing::Test {
 protected:
  void TearDown() override { kit::restore_automatic_choice(); }
};

// From now on the library takes the processor to have these features; they must fill the row of their build.
void believe(Nox64u mask) {
  call(noxSetCpuFeatures, mask | kOnTrust);
  call(noxSetCpuFeatures, mask | kOnTrust);
}
Nox64u believed() {
  Nox64u mask = 0;
  call(noxGetCpuFeatures, &mask, nullptr);
  return mask;
}

constexpr Nox64u kAvx2 = 0x83FF;                             // all to AVX2, state saved
constexpr Nox64u kAvx512 = kAvx2 | 0x7300000 | high(2);      // one kind of AVX-512, state saved
constexpr Nox64u kAvx512Other = kAvx2 | 0xF00000 | high(2);  // the other kind
constexpr NoxStatus kLacks = noxStsFeatureNotSupported, kGap = noxStsFeaturesCombination, kOk = noxStsNoErr;

const struct {
  const char* what;
  Nox64u processor, request;
  NoxStatus status;
  int variant;
  Nox64u enabled;
} kRequests[] = {
    {"each level, complete", kAvx2, 0x81DF, kOk, 4, 0x81DF},
    {"", kAvx2, 0x1DF, kOk, 3, 0x1DF},
    {"", kAvx2, 0xDF, kOk, 2, 0xDF},
    {"SSE4.1 without SSE4.2", kAvx2, 0x5F, kOk, 1, 0x5F},
    {"", kAvx2, 0x3F, kOk, 1, 0x3F},
    {"", kAvx2, 0x1F, kOk, 1, 0x1F},
    {"", kAvx2, 0xF, kOk, 0, 0xF},
    {"", kAvx2, 0x7, kOk, 0, 0x7},
    {"", kAvx2, 0x3, kOk, 0, 0x3},
    {"MMX alone", kAvx2, 0x1, noxStsNotSupportedCpu, 0, 0x1},
    {"nothing", kAvx2, 0, noxStsNotSupportedCpu, 0, 0x1},
    {"a bit that chooses nothing", kAvx2 | 0x2000, 0x2000, noxStsNotSupportedCpu, 0, 0x2001},
    {"each level, with gaps that are filled", kAvx2, 0x8000, kGap, 4, 0x81DF},
    {"", kAvx2, 0x100, kGap, 3, 0x1DF},
    {"", kAvx2, 0x80, kGap, 2, 0xDF},
    {"", kAvx2, 0x40, kGap, 1, 0x5F},
    {"", kAvx2, 0x20, kGap, 1, 0x3F},
    {"", kAvx2, 0x10, kGap, 1, 0x1F},
    {"", kAvx2, 0x8, kGap, 0, 0xF},
    {"", kAvx2, 0x4, kGap, 0, 0x7},
    {"", kAvx2, 0x2, kGap, 0, 0x3},
    {"more than is there: obeyed and told", 0x1F, 0xDF, kLacks, 2, 0xDF},
    {"lacking goes before a gap", 0x1F, 0x80, kLacks, 2, 0xDF},
    {"one bit too many, low and high", 0x1F, 0x801F, kLacks, 1, 0x1F},
    {"", kAvx2, 0x101F, kLacks, 1, 0x101F},
    {"", kAvx2, high(1) | 0x1F, kLacks, 1, high(1) | 0x1F},
    {"unknown bits", kAvx2, high(0x20000000), kLacks, 0, high(0x20000000) | 1},
    {"", kAvx2, high(0x20) | 0x1F, kLacks, 1, high(0x20) | 0x1F},
    {"an unknown bit that was believed before", high(0x100) | 0x1F, high(0x100) | 0x1F, noxStsUnknownFeature, 1,
     high(0x100) | 0x1F},
    {"AVX state not saved", 0x1FF & ~Nox64u{0x200}, 0x1DF, kLacks, 2, 0xDF},
    {"", kAvx2 & ~Nox64u{0x200}, 0x81DF, kLacks, 2, 0xDF},
    {"", kAvx2 & ~Nox64u{0x200}, 0x8000, kLacks, 0, 0x1},
    {"AVX-512", kAvx512, 0x73081DF, kOk, 4, 0x73081DF},
    {"", kAvx512, 0x7300000, kGap, 4, 0x73081DF},
    {"", kAvx512Other, 0xF081DF, kOk, 4, 0xF081DF},
    {"", kAvx512Other, 0xF00000, kGap, 4, 0xF081DF},
    {"AVX-512 state not saved", kAvx2, 0x73081DF, kLacks, 4, 0x81DF},
    {"", kAvx2, 0x6FF00000 | 0x1F, kLacks, 1, 0x1F},
    {"", kAvx2, high(0xC) | 0x1F, kLacks, 1, 0x1F},
    {"MPX goes its own way", kAvx2, 0x10000000 | 0x1F, kLacks, 1, 0x1000001F},
    {"on trust", 0x7, kOnTrust | 0x81DF, kOk, 4, 0x81DF},
    {"", 0x7, kOnTrust | 0x8000, kGap, 4, 0x81DF},
    {"", 0x7, kOnTrust | high(0x40000000) | 0x3, kOk, 0, high(0x40000000) | 0x3},
    {"", 0x7, kOnTrust, noxStsNotSupportedCpu, 0, 0x1},
};

TEST_F(Selection, ByMask) {
  for (const auto& row : kRequests) {
    SCOPED_TRACE(testing::Message() << row.what << ", request " << std::hex << row.request << " on " << row.processor);
    believe(row.processor);
    ASSERT_EQ(believed(), row.processor);
    EXPECT_EQ(call(noxSetCpuFeatures, row.request), row.status);
    EXPECT_EQ(call(noxGetEnabledCpuFeatures), row.enabled);
    EXPECT_EQ(kit::selector(), row.variant);
    EXPECT_STREQ(noxsGetLibVersion()->targetCpu, kTags[row.variant]);
  }
}

TEST_F(Selection, TrustTurnsTheMaskInForceIntoTheBelievedOne) {
  const Nox64u at_first = call(noxGetEnabledCpuFeatures);
  EXPECT_EQ(call(noxSetCpuFeatures, kOnTrust | 0x3), noxStsNoErr);
  EXPECT_EQ(believed(), at_first);
  EXPECT_EQ(call(noxGetEnabledCpuFeatures), 0x3u);
  EXPECT_EQ(call(noxSetCpuFeatures, kOnTrust | 0x7), noxStsNoErr);
  EXPECT_EQ(believed(), 0x3u);
  EXPECT_EQ(call(noxSetCpuFeatures, 0x7), noxStsFeatureNotSupported);
  EXPECT_EQ(believed(), 0x3u) << "a request without trust changes no belief";
}

TEST_F(Selection, AtLoadIsTheHighestTheProcessorRuns) {
  const kit::Variant best = kit::runnable_variants().back();
  EXPECT_STREQ(call(noxsGetLibVersion)->targetCpu, best.tag);
  const Nox64u enabled = call(noxGetEnabledCpuFeatures);
  EXPECT_EQ(enabled & best.mask, best.mask);
  EXPECT_EQ(enabled & ~kit::processor_mask(), 0u);
}

class VersionRecord : public kit::EachVariant {};

TEST_P(VersionRecord, TellsTheBuild) {
  const NoxLibraryVersion* v = call(noxsGetLibVersion);
  EXPECT_EQ(v->major, 2021);
  EXPECT_EQ(v->minor, 9);
  EXPECT_EQ(v->update, 0);
  EXPECT_EQ(v->build, 0x4FF293FB);
  EXPECT_EQ(std::string(v->targetCpu, 4), std::string(GetParam().tag) + std::string(2, '\0'));
  EXPECT_STREQ(v->name, kNames[GetParam().column]);
  EXPECT_STREQ(v->version, "2021.9.0 (r0x4ff293fb)");
  EXPECT_STREQ(v->buildDate, "May 30 2023");
  EXPECT_EQ(call(noxsGetLibVersion_Idx), v);
}
NOX_EACH_VARIANT(VersionRecord);

// A body that does nothing, so that the registers tell what the way to it did to them.
asm(".text\n.local frame_empty_body\nframe_empty_body: ret\n");
extern "C" void frame_empty_body();

TEST_F(Selection, OutOfAnInitialEntryKeepsTheArgumentRegisters) {
  const int row = kit::row_of(reinterpret_cast<void*>(&noxsFree)), column = kit::runnable_variants().back().column;
  void* const initial = kit::row_entry(row, -1);
  void* const body = kit::row_entry(row, column);
  kit::row_entry(row, column) = reinterpret_cast<void*>(&frame_empty_body);
  kit::selector() = -1;
  alignas(16) uint32_t before[16], after[16];
  for (uint32_t i = 0; i < 16; ++i) before[i] = 0x01010101 * (i + 1);
  uint32_t ecx = 0xC1C2C3C4, edx = 0xD1D2D3D4;
  asm volatile(
      "movaps (%[b]), %%xmm0\n\tmovaps 16(%[b]), %%xmm1\n\tmovaps 32(%[b]), %%xmm2\n\tmovaps 48(%[b]), %%xmm3\n\t"
      "call *%[f]\n\t"
      "movups %%xmm0, (%[a])\n\tmovups %%xmm1, 16(%[a])\n\tmovups %%xmm2, 32(%[a])\n\tmovups %%xmm3, 48(%[a])\n\t"
      : "+c"(ecx), "+d"(edx)
      : [b] "S"(before), [a] "D"(after), [f] "m"(initial)
      : "eax", "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7", "cc", "memory");
  kit::row_entry(row, column) = body;
  EXPECT_EQ(kit::selector(), column);
  EXPECT_TRUE(std::equal(before, before + 16, after));
  EXPECT_EQ(ecx, 0xC1C2C3C4);
  EXPECT_EQ(edx, 0xD1D2D3D4);
}

TEST_F(Selection, WhileOtherThreadsCompute) {
  const auto& variants = kit::runnable_variants();
  std::atomic<bool> stop{false};
  std::atomic<int> rounds{0}, wrong{0};
  const auto compute = [&] {
    std::vector<Nox64f> a(1000), sum(1000);
    for (size_t i = 0; i < a.size(); ++i) a[i] = static_cast<Nox64f>(i) + 0.5;
    while (!stop) {
      const NoxStatus status = call(noxsAdd_64f, a.data(), a.data(), sum.data(), 1000);
      bool good = status == noxStsNoErr;
      for (size_t i = 0; i < a.size(); ++i) good = good && sum[i] == 2 * a[i];
      const NoxLibraryVersion* v = call(noxsGetLibVersion);
      good = good && v->major == 2021;
      if (!good) ++wrong;
      ++rounds;
    }
  };
  std::vector<std::thread> threads;
  for (int t = 0; t < 3; ++t) threads.emplace_back(compute);
  unsigned turn = 0;
  while (rounds < 300 || turn < 300) {
    const kit::Variant& v = variants[turn++ % variants.size()];
    EXPECT_EQ(call(noxSetCpuFeatures, v.mask), noxStsNoErr);
    std::this_thread::yield();
  }
  stop = true;
  for (std::thread& t : threads) t.join();
  EXPECT_EQ(wrong, 0);
}

}  // namespace
