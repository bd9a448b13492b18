// Cache, cores, clock, threads, and the denormals-are-zeros mode.
#include <gtest/gtest.h>
#include <time.h>

#include <cfloat>
#include <cstring>
#include <thread>
#include <vector>

#include "core/cache_size.hpp"
#include "kit/call.hpp"
#include "kit/lengths.hpp"
#include "nox/nox.h"

namespace {

using kit::call;

TEST(Queries, ThreadsAreAlwaysOne) {
  EXPECT_EQ(call(noxSetNumThreads, 8), noxStsNoOperation);
  int threads = 0;
  EXPECT_EQ(call(noxGetNumThreads, &threads), noxStsNoOperation);
  EXPECT_EQ(threads, 1);
  EXPECT_EQ(call(noxGetNumThreads, nullptr), noxStsNullPtrErr);
}

TEST(Queries, CacheSizeIsAskedOnce) {
  EXPECT_EQ(call(noxGetMaxCacheSizeB, nullptr), noxStsNullPtrErr);
  int first = 12345;
  const NoxStatus status = call(noxGetMaxCacheSizeB, &first);
  if (!nox::genuine_intel()) {
    EXPECT_EQ(status, noxStsNotSupportedCpu);
    EXPECT_EQ(first, -1);
  } else if (status == noxStsUnknownCacheSize) {
    EXPECT_EQ(first, 0);
  } else {
    EXPECT_EQ(status, noxStsNoErr);
    EXPECT_GE(first, 4096);
  }
  int second = 12345;
  EXPECT_EQ(call(noxGetMaxCacheSizeB, &second), status);
  EXPECT_EQ(second, first);
}

TEST(CacheSize, OfDescriptors) {
  const Nox32u empty = 0x80000000;
  const struct {
    nox::CpuidWords words;
    bool found;
    int32_t size;
  } rows[] = {
      {{0x665B5001, 0, 0, 0x007A7040}, true, 262144},
      {{0x66000001, empty | 0x45, 0, 0x45}, true, 2097152},
      {{0x00000001, 0x41, 0xEC00, 0x4D000000}, true, 25165824},        // the largest, wherever it stands
      {{0x00000001, empty | 0xEC, empty | 0xEC, 0x3A}, true, 196608},  // registers that count as empty
      {{empty | 0x4501, 0, 0, 0x41}, true, 131072},                    // the first one too
      {{0x00000001, 0, 0, 0}, false, 0},
      {{0x4D004102, 0x45, 0, 0}, true, 0x4D004102},  // not descriptors: the word itself
      {{0x80000000, 0x45, 0, 0}, true, INT32_MIN},
      {{0, 0x45, 0, 0}, true, 0},
  };
  for (const auto& row : rows) {
    int32_t size = 0;
    EXPECT_EQ(nox::largest_cache_of_descriptors(row.words, size), row.found) << std::hex << row.words.a;
    EXPECT_EQ(size, row.size) << std::hex << row.words.a;
  }
}

TEST(CacheSize, OfGeometry) {
  // Type in EAX; in EBX ways - 1, partitions - 1, line - 1; sets - 1 in ECX.
  const auto cache = [](Nox32u type, Nox32u ways, Nox32u partitions, Nox32u line, Nox32u sets) {
    return nox::CpuidWords{0x1C004020 | type, (ways - 1) << 22 | (partitions - 1) << 12 | (line - 1), sets - 1, 0};
  };
  const auto largest = [](std::vector<nox::CpuidWords> list) {
    int32_t size = -7;
    const bool found = nox::largest_cache(
        [&](Nox32u subleaf) { return subleaf < list.size() ? list[subleaf] : nox::CpuidWords{}; }, size);
    return found ? size : -1;
  };
  const nox::CpuidWords data = cache(1, 8, 1, 64, 64), code = cache(2, 16, 1, 64, 4096);
  const nox::CpuidWords unified = cache(3, 12, 2, 64, 1024);
  EXPECT_EQ(largest({data, code}), 32768);
  EXPECT_EQ(largest({data, code, unified}), 12 * 2 * 64 * 1024);
  EXPECT_EQ(largest({unified, data}), 12 * 2 * 64 * 1024);
  EXPECT_EQ(largest({data, cache(0, 1, 1, 1, 1), unified}), 32768) << "the list ends at the type 0";
  EXPECT_EQ(largest({data, cache(3, 1024, 1024, 2048, 1)}), 32768) << "a size past 31 bits counts as negative";
  EXPECT_EQ(largest({code}), -1);
  EXPECT_EQ(largest({}), -1);
}

TEST(Queries, CoresArePositiveAndStable) {
  const int cores = call(noxGetNumCoresOnDie);
  EXPECT_GE(cores, 1);
  EXPECT_LE(cores, 0xFFFF);
  EXPECT_EQ(call(noxGetNumCoresOnDie), cores);
  Nox32u highest, b, c, d;
  __cpuid(0, highest, b, c, d);
  const bool tells = c == 0x6C65746E || c == 0x444D4163;
  EXPECT_TRUE(tells || cores == 1) << cores << " of a vendor that doesn't tell";
}

Nox64u nanoseconds() {
  timespec t;
  clock_gettime(CLOCK_MONOTONIC, &t);
  return static_cast<Nox64u>(t.tv_sec) * 1000000000 + static_cast<Nox64u>(t.tv_nsec);
}

TEST(Queries, FrequencyIsThatOfTheClocks) {
  EXPECT_EQ(call(noxGetCpuFreqMhz, nullptr), noxStsNullPtrErr);
  const Nox64u clocks = call(noxGetCpuClocks);
  EXPECT_LT(clocks, call(noxGetCpuClocks));
  if (kit::quick()) GTEST_SKIP() << "takes three seconds";
  const Nox64u before = nanoseconds();
  int mhz = 0;
  ASSERT_EQ(call(noxGetCpuFreqMhz, &mhz), noxStsNoErr);
  const Nox64u passed = nanoseconds() - before;
  const double expected = static_cast<double>(call(noxGetCpuClocks) - clocks) * 1000 / static_cast<double>(passed);
  EXPECT_GE(passed, 1990000000u);
  EXPECT_LE(passed, 4500000000u);  // three seconds at most, and what a busy machine adds
  EXPECT_NEAR(mhz, expected, 0.05 * expected);
}

uint64_t bits(double x) {
  uint64_t b;
  std::memcpy(&b, &x, sizeof b);
  return b;
}

// At the mercy of the mode in force when it runs.
double product(double a, double b) {
  volatile double x = a, y = b;
  return x * y;
}

constexpr unsigned kDaz = 0x40, kFtz = 0x8000;

// The control bits: the lowest six are flags that every operation may set.
unsigned control() { return __builtin_ia32_stmxcsr() & ~0x3Fu; }

TEST(DenormalsAreZeros, SwitchesItsBitAlone) {
  const unsigned before = control();
  for (const unsigned ftz : {0u, kFtz}) {
    const unsigned start = (before & ~(kDaz | kFtz)) | ftz;
    __builtin_ia32_ldmxcsr(start);
    for (const int on : {1, 0x40, -1, INT32_MIN}) {
      EXPECT_EQ(call(noxSetDenormAreZeros, on), noxStsNoErr);
      EXPECT_EQ(control(), start | kDaz);
      EXPECT_EQ(bits(product(0x1p-1060, 0x1p60)), 0u) << "a denormal operand counts as zero";
      EXPECT_EQ(call(noxSetDenormAreZeros, 0), noxStsNoErr);
      EXPECT_EQ(control(), start);
      EXPECT_EQ(bits(product(0x1p-1060, 0x1p60)), bits(0x1p-1000));
    }
  }
  __builtin_ia32_ldmxcsr(before);
}

TEST(DenormalsAreZeros, BelongsToTheThread) {
  const unsigned before = control();
  unsigned there = 0;
  std::thread([&] {
    call(noxSetDenormAreZeros, 1);
    there = control();
  }).join();
  EXPECT_EQ(there, before | kDaz);
  EXPECT_EQ(control(), before);
}

}  // namespace
