// Threads: calls on data of their own while another thread changes the build in force, and one spec shared by several.
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

#include "filter/fir_stream.hpp"
#include "kit/compare.hpp"
#include "kit/lengths.hpp"
#include "kit/variants.hpp"
#include "transform/dct_case.hpp"

namespace {

constexpr int kThreads = 4;

void in_threads(const std::function<void(int)>& work) {
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) threads.emplace_back(work, t);
  for (std::thread& t : threads) t.join();
}

// Functions that are equal in all builds, on arrays of one thread: a copying one, in place, with a warning, a
// reduction, one of the array layer, one whose long arrays ask the cache's size, a sort.
struct Work {
  static constexpr int kN = 5003;
  std::vector<Nox64f> a, b, c, d;
  std::vector<Nox32s> i, k;
  Nox64f largest = 0;
  int place = -1;
  int statuses = 0;

  explicit Work(kit::Random& random) : a(kN), b(kN), c(kN), d(kN), i(kN), k(kN) {
    random.fill(a);
    random.fill(b);
    for (Nox32s& x : i) x = static_cast<Nox32s>(random.integer(-3, 3));
  }
  void run() {
    c = a;
    statuses = noxsMul_64f(a.data(), b.data(), d.data(), kN) | noxsAdd_64f_I(d.data(), c.data(), kN);
    statuses |= noxsDiv_32s_Sfs(i.data(), i.data(), k.data(), kN, 0);
    statuses |= noxsMaxIndx_64f(c.data(), kN, &largest, &place);
    SubFromValue(c.data(), c.data(), 2.5, static_cast<Nox32u>(kN));
    statuses |= noxsCopy_64f(c.data(), d.data(), kN);
    statuses |= noxsSortAscend_64f_I(d.data(), kN);
  }
  void expect_like(const Work& other) const {
    EXPECT_EQ(statuses, other.statuses);
    EXPECT_EQ(largest, other.largest);
    EXPECT_EQ(place, other.place);
    EXPECT_TRUE(kit::same_bits(c.data(), other.c.data(), kN));
    EXPECT_TRUE(kit::same_bits(d.data(), other.d.data(), kN));
    EXPECT_TRUE(kit::same_bits(k.data(), other.k.data(), kN));
  }
};

TEST(Threads, GetTheSameWhateverBuildIsPutInForceMeanwhile) {
  kit::Random random;
  std::vector<Work> works;
  for (int t = 0; t < kThreads; ++t) works.emplace_back(random), works.back().run();
  const std::vector<Work> expected = works;
  EXPECT_EQ(expected[0].statuses, int{noxStsDivByZero}) << "zeros among the divisors are a warning";

  std::atomic<int> running{kThreads}, switches{0};
  std::thread switcher([&] {
    while (running > 0)
      for (const kit::Variant& v : kit::runnable_variants()) noxSetCpuFeatures(v.mask | Nox64u{1} << 63), ++switches;
  });
  in_threads([&](int t) {
    Work& w = works[static_cast<size_t>(t)];
    for (int turn = 0; turn < (kit::quick() ? 30 : 300) && !testing::Test::HasFailure(); ++turn) {
      w.run();
      w.expect_like(expected[static_cast<size_t>(t)]);
    }
    --running;
  });
  switcher.join();
  kit::restore_automatic_choice();
  EXPECT_GT(switches, 100) << "the builds hardly changed";
}

class SharedSpecs : public kit::EachVariant {};

// Every thread its own block, work buffer and delay lines; alone first, then all at once.
TEST_P(SharedSpecs, FirFilters) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    for (const int algorithm : {NOX_ALG_DIRECT, NOX_ALG_FFT}) {
      kit::Random random;
      constexpr int kTaps = 150, kN = 3000;
      std::vector<T> taps(kTaps);
      random.fill(taps);
      FirStream<T> filter(taps, 5, algorithm);
      const size_t work_bytes = static_cast<size_t>(fir_sizes(kTaps, FirOf<T>::kType).work);
      std::vector<std::vector<T>> sources(kThreads, std::vector<T>(kN)), alone(kThreads, std::vector<T>(kN));
      const auto block = [&](int t, T* dst) {
        std::vector<Nox8u> work(work_bytes, Nox8u(t));
        std::vector<T> line(kTaps - 1);
        return FirOf<T>::run(sources[static_cast<size_t>(t)].data(), dst, kN, filter.spec(), line.data(), line.data(),
                             work.data());
      };
      for (int t = 0; t < kThreads; ++t) {
        random.fill(sources[static_cast<size_t>(t)]);
        EXPECT_EQ(noxStsNoErr, block(t, alone[static_cast<size_t>(t)].data()));
      }
      in_threads([&](int t) {
        for (int turn = 0; turn < 8; ++turn) {
          std::vector<T> dst(kN);
          EXPECT_EQ(noxStsNoErr, block(t, dst.data()));
          EXPECT_TRUE(kit::same_bits(dst.data(), alone[static_cast<size_t>(t)].data(), kN)) << algorithm;
        }
      });
    }
  });
}

// Lengths of each method: a power of two, the direct sum, the chirp.
TEST_P(SharedSpecs, CosineTransforms) {
  for (const int n : {1024, 30, 1000}) {
    kit::Random random;
    DctCase dct(kDctForward, n);
    const size_t work_bytes = static_cast<size_t>(dct_sizes(kDctForward, n).work);
    std::vector<std::vector<Nox64f>> sources(kThreads, std::vector<Nox64f>(static_cast<size_t>(n))), alone;
    for (std::vector<Nox64f>& s : sources) {
      random.fill(s);
      alone.push_back(dct(s));
    }
    in_threads([&](int t) {
      std::vector<Nox8u> work(work_bytes + 1);
      for (int turn = 0; turn < 50; ++turn) {
        std::vector<Nox64f> dst(static_cast<size_t>(n));
        EXPECT_EQ(noxStsNoErr,
                  noxsDCTFwd_64f(sources[static_cast<size_t>(t)].data(), dst.data(), dct.spec(), work.data()));
        EXPECT_TRUE(kit::same_bits(dst.data(), alone[static_cast<size_t>(t)].data(), n));
      }
    });
  }
}
NOX_EACH_VARIANT(SharedSpecs);

}  // namespace
