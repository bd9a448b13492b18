// The seed of the run.
#include "kit/random.hpp"

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>

namespace kit {

uint64_t run_seed() {
  static const uint64_t seed = [] {
    if (const char* given = std::getenv("NOX_TEST_SEED"))
      return static_cast<uint64_t>(std::strtoull(given, nullptr, 0));
    return static_cast<uint64_t>(std::random_device{}());
  }();
  return seed;
}

Random::Random(uint64_t stream) : state_(run_seed() * 0x9E3779B97F4A7C15u + stream) {
  if (const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info()) {
    for (const char* part : {test->test_suite_name(), test->name()})
      for (; *part; ++part) state_ = (state_ ^ static_cast<unsigned char>(*part)) * 0x100000001B3u;
  }
  bits();
}

namespace {

class PrintSeed : public testing::Environment {
  void SetUp() override { std::printf("NOX_TEST_SEED=%llu\n", static_cast<unsigned long long>(run_seed())); }
};
const testing::Environment* const kPrintSeed = testing::AddGlobalTestEnvironment(new PrintSeed);

}  // namespace
}  // namespace kit
