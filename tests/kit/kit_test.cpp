// The kit tried on faults made on purpose: a probe or a canary that sees nothing would blind every other test.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <set>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/coverage.hpp"
#include "kit/dispatch.hpp"
#include "kit/guarded.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"

extern "C" {
int faulty_nothing(void);
int faulty_ebx(void);
int faulty_esi(void);
int faulty_edi(void);
int faulty_ebp(void);
int faulty_stack(void);
int faulty_direction(void);
int faulty_x87_left_full(void);
int faulty_mmx_left_open(void);
int faulty_x87_control(void);
int faulty_rounding(void);
int faulty_flush_to_zero(void);
int faulty_upper_half(void);
double faulty_no_real(void);
int kit_stack_offset(void);
}

namespace {

using kit::call;
using kit::Edge;
using kit::Guarded;

TEST(Probe, SeesEveryBrokenRule) {
  call(faulty_nothing);
  EXPECT_NONFATAL_FAILURE(call(faulty_ebx), "ebx was not kept");
  EXPECT_NONFATAL_FAILURE(call(faulty_esi), "esi was not kept");
  EXPECT_NONFATAL_FAILURE(call(faulty_edi), "edi was not kept");
  EXPECT_NONFATAL_FAILURE(call(faulty_ebp), "ebp was not kept");
  EXPECT_NONFATAL_FAILURE(call(faulty_stack), "the stack pointer went");
  EXPECT_NONFATAL_FAILURE(call(faulty_direction), "direction flag");
  EXPECT_NONFATAL_FAILURE(call(faulty_x87_left_full), "x87 registers");
  EXPECT_NONFATAL_FAILURE(call(faulty_mmx_left_open), "x87 registers");
  EXPECT_NONFATAL_FAILURE(call(faulty_x87_control), "x87 control word");
  EXPECT_NONFATAL_FAILURE(call(faulty_rounding), "MXCSR");
  EXPECT_NONFATAL_FAILURE(call(faulty_flush_to_zero), "MXCSR");
  EXPECT_NONFATAL_FAILURE(call(faulty_no_real), "x87 registers");
  if (__builtin_cpu_supports("avx")) {
    EXPECT_NONFATAL_FAILURE(call(faulty_upper_half), "upper half of ymm5");
  }
  call(faulty_nothing);  // and puts right what was broken
}

TEST(Probe, CallsAtEveryStackOffset) {
  std::set<int> seen;
  for (int i = 0; i < 4; ++i) seen.insert(call(kit_stack_offset));
  EXPECT_EQ(seen, (std::set<int>{0, 4, 8, 12}));
}

// Not sanitized: frames with marks around them must stand on 8 bytes, and the probe's stack may stand on 4.
__attribute__((no_sanitize("address"))) Nox64s mixed(Nox8s a, double b, Nox64fc c, const char* d, Nox64s e, Nox16u f,
                                                     float g) {
  return a == -3 && b == 0.1 && c.re == 0.2 && c.im == -0.3 && *d == 'x' && f == 0xFFFE && g == 0.5f ? e : 0;
}
double half(double x) { return x / 2; }
void nothing(int* p) { *p = 1; }

TEST(Probe, HandsArgumentsAndResultsThrough) {
  EXPECT_EQ(call(mixed, -3, 0.1, Nox64fc{0.2, -0.3}, "x", -5000000000, 0xFFFE, 0.5f), -5000000000);
  EXPECT_EQ(call(half, 3), 1.5);
  int written = 0;
  call(nothing, &written);
  EXPECT_EQ(written, 1);
}

TEST(GuardedArray, FindsWritesBesideIt) {
  for (const Edge edge : {Edge::End, Edge::Start}) {
    Guarded<int> a(7, edge, 3);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(a.data() + (edge == Edge::End ? a.size() : 0)) % 4096,
              edge == Edge::End ? 4096 - 3u : 3u);
    char* const first = reinterpret_cast<char*>(a.data());
    char* const last = reinterpret_cast<char*>(a.data() + a.size()) - 1;
    for (char* at : {first - 1, last + 1}) {
      *at ^= 1;
      EXPECT_FALSE(a.canaries_intact());
      EXPECT_NONFATAL_FAILURE(a.check(), "were written");
      EXPECT_TRUE(a.canaries_intact());
    }
    *first = *last = 0;
    EXPECT_TRUE(a.canaries_intact());
  }
}

TEST(GuardedArrayDeathTest, FaultsBeyondItsEdge) {
  Guarded<double> at_end(5), at_start(5, Edge::Start), pages(1024);
  volatile double sink;
  EXPECT_DEATH(sink = at_end.data()[5], "");
  EXPECT_DEATH(sink = at_start.data()[-1], "");
  EXPECT_DEATH(sink = pages.data()[-1], "");
  static_cast<void>(sink);
}

TEST(Compare, MeasuresInUnitsOfTheLastPlace) {
  EXPECT_EQ(kit::ulp_distance(1.0, 1.0 + 0x1p-52), 1u);
  EXPECT_EQ(kit::ulp_distance(-0.0, 0.0), 0u);
  EXPECT_EQ(kit::ulp_distance(-0x1p-1074, 0x1p-1074), 2u);
  EXPECT_GT(kit::ulp_distance(NAN, 1.0), 1u << 30);
  const double plus[] = {1, 0.0, NAN}, minus[] = {1, -0.0, -NAN};
  EXPECT_TRUE(kit::same_bits(plus, minus, 1));
  EXPECT_FALSE(kit::same_bits(plus, minus, 2));
  EXPECT_FALSE(kit::same_values(plus, minus, 3));
  EXPECT_TRUE(kit::same_values(plus + 2, minus + 2, 1));
  EXPECT_FALSE(kit::same_values(plus + 2, minus, 1));
}

TEST(Coverage, CountsTheEntriesOfTheBuildInForce) {
  const int row = kit::row_of(reinterpret_cast<void*>(&noxsSqr_64f));
  double x[] = {2};
  for (const kit::Variant& v : kit::runnable_variants()) {
    const kit::UseVariant use(v);
    const unsigned before = kit::entries(row, v.column);
    noxsSqr_64f(x, x, 1);
    EXPECT_EQ(kit::entries(row, v.column), before + 1);
    {
      const kit::PauseCoverage pause;
      noxsSqr_64f(x, x, 1);
    }
    EXPECT_EQ(kit::entries(row, v.column), before + 1);
  }
}

TEST(Variants, LeaveTheAutomaticChoiceBehind) {
  {
    const kit::UseVariant lowest(kit::runnable_variants().front());
    EXPECT_STREQ(noxsGetLibVersion()->targetCpu, "w7");
  }
  EXPECT_STREQ(noxsGetLibVersion()->targetCpu, kit::runnable_variants().back().tag);
  Nox64u mask = 0;
  EXPECT_EQ(noxGetCpuFeatures(&mask, nullptr), noxStsNoErr);
  EXPECT_EQ(mask, kit::processor_mask());
  EXPECT_EQ(noxSetCpuFeatures(mask), noxStsNoErr);
}

// A processor model that offers more or less than its test run was set up for would leave a build untested.
TEST(Variants, ReachTheBuildThisRunIsFor) {
  const char* expected = std::getenv("NOX_TEST_HIGHEST");
  if (!expected) GTEST_SKIP() << "NOX_TEST_HIGHEST isn't set";
  EXPECT_STREQ(kit::runnable_variants().back().tag, expected);
}

}  // namespace
