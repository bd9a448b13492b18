// The complex transform of each build: results, memory, statuses.
#include <map>
#include <memory>
#include <thread>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/lengths.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "reference/fft.hpp"
#include "transform/operations.hpp"

namespace {

using kit::Edge;
using kit::Guarded;
using reference::Spectrum;
using Samples = std::vector<Nox64fc>;

enum Flag { kForward = 1, kInverse = 2, kRoot = 4, kNone = 8 };
constexpr int kLimit = 27;
// In units of 2^-53 of the root mean square: the largest error is below this many times the order.
constexpr long double kErrorPerOrder = 2;

class Fft : public kit::EachVariant {
 protected:
  const transforms::Operations& fft() const {
    const transforms::Operations* const all[] = {&w7_complex_fft, &s8_complex_fft, &p8_complex_fft, &g9_complex_fft,
                                                 &h9_complex_fft};
    return *all[GetParam().column];
  }
};

int max_order() { return kit::quick() ? 16 : 20; }
// For what holds whichever way a long transform is cut.
int long_order() { return kit::quick() ? 16 : 18; }
size_t length(int order) { return size_t{1} << order; }

Samples random_samples(int order, uint64_t stream = 0) {
  kit::Random random(stream);
  Samples x(length(order));
  random.fill(x);
  return x;
}

// A spec in memory of exactly the queried sizes, each piece `misalign` bytes off its unmapped page.
class Plan {
 public:
  Plan(const transforms::Operations& fft, int order, int flag, size_t misalign = 0) : fft_(fft) {
    int spec = -1, init = -1, work = -1;
    EXPECT_EQ(noxStsNoErr, kit::call(fft.size, order, flag, 0, &spec, &init, &work));
    memory_ = std::make_unique<Guarded<Nox8u>>(static_cast<size_t>(spec), Edge::End, misalign);
    work_ = std::make_unique<Guarded<Nox8u>>(static_cast<size_t>(work), Edge::End, misalign);
    Guarded<Nox8u> once(static_cast<size_t>(init), Edge::End, misalign);
    EXPECT_EQ(noxStsNoErr, kit::call(fft.init, &spec_, order, flag, 0, memory_->data(), init ? once.data() : nullptr));
    once.fill_with(0xFF);  // nobody reads it any more
    before_ = memory_->values();
  }
  ~Plan() { EXPECT_EQ(before_, memory_->values()) << "a transform wrote to its spec"; }
  void forward(const Nox64fc* s, Nox64fc* d) const { run(fft_.forward, s, d); }
  void inverse(const Nox64fc* s, Nox64fc* d) const { run(fft_.inverse, s, d); }
  const void* spec() const { return spec_; }
  size_t work_bytes() const { return work_->size(); }

 private:
  void run(decltype(transforms::Operations::forward) f, const Nox64fc* s, Nox64fc* d) const {
    EXPECT_EQ(noxStsNoErr, kit::call(f, s, d, spec_, work_->size() ? work_->data() : nullptr));
  }
  const transforms::Operations& fft_;
  std::unique_ptr<Guarded<Nox8u>> memory_, work_;
  void* spec_ = nullptr;
  std::vector<Nox8u> before_;
};

// The exact transforms of the samples that every build gets for an order.
struct Exact {
  Samples x;
  Spectrum forward, inverse;
};
const Exact& exact(int order) {
  static std::map<int, Exact> known;
  Exact& e = known[order];
  if (e.x.empty()) {
    e.x = random_samples(order, static_cast<uint64_t>(order));
    const bool summed = order <= 8;
    e.forward = summed ? reference::fourier_sum(e.x, -1) : reference::fourier(e.x, -1);
    // The conjugate spectrum of the conjugate samples, so equal to the forward one read backwards.
    e.inverse = e.forward;
    std::reverse(e.inverse.begin() + 1, e.inverse.end());
  }
  return e;
}

testing::AssertionResult is_transform(const Nox64fc* got, const Spectrum& exact, int order, double scale) {
  const long double error = reference::largest_error(got, exact, scale), allowed = kErrorPerOrder * (order + 1);
  if (error <= allowed) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "order " << order << ": an error of " << error << " with " << allowed
                                     << " allowed";
}

TEST(FftReference, HalvingEqualsTheSum) {
  const Samples x = random_samples(7);
  for (const int sign : {-1, 1}) {
    const Spectrum a = reference::fourier(x, sign), b = reference::fourier_sum(x, sign);
    for (size_t k = 0; k < x.size(); ++k) EXPECT_LE(std::abs(a[k] - b[k]), 1e-16L) << k;
  }
}

TEST_P(Fft, ResultsAreExactWithinRounding) {
  long double worst = 0;
  for (int order = 0; order <= max_order(); ++order) {
    const Exact& e = exact(order);
    const Plan plan(fft(), order, kNone);
    const Guarded<Nox64fc> x(e.x);
    Guarded<Nox64fc> d(e.x.size());
    plan.forward(x.data(), d.data());
    EXPECT_TRUE(is_transform(d.data(), e.forward, order, 1)) << "forward";
    worst = std::max(worst, reference::largest_error(d.data(), e.forward, 1) / (order + 1));
    plan.inverse(x.data(), d.data());
    EXPECT_TRUE(is_transform(d.data(), e.inverse, order, 1)) << "inverse";
    worst = std::max(worst, reference::largest_error(d.data(), e.inverse, 1) / (order + 1));
    EXPECT_TRUE(kit::same_bits(x.data(), e.x.data(), x.size()));
  }
  RecordProperty("largest error per order + 1, in units of 2^-53", std::to_string(worst));
}

// Random samples hide one wrong factor among many elements; an impulse shows each factor alone.
TEST_P(Fft, ImpulsesBecomeTurns) {
  for (int order = 1; order <= long_order(); ++order) {
    const size_t n = length(order);
    const Spectrum w = reference::turns(n, -1);
    const Plan plan(fft(), order, kNone);
    Guarded<Nox64fc> x(n);
    kit::Random random;
    for (int i = 0; i < 3; ++i) {
      const size_t place = static_cast<size_t>(random.bits() % n);
      x.fill_with({0, 0});
      x[place] = {1, 0};
      plan.forward(x.data(), x.data());
      for (size_t k = 0; k < n; ++k) {
        const Spectrum::value_type factor = w[place * k % n];
        ASSERT_LE(std::abs(factor - Spectrum::value_type(x[k].re, x[k].im)), 4 * (order + 1) * 0x1p-53L)
            << "order " << order << ", impulse at " << place << ", element " << k;
      }
    }
  }
}

// Orders at which the lowest build cuts its rows again and all copy in front of the reversal; too long for a whole
// reference, so a few samples among zeros, and the spectrum at some places.
TEST_P(Fft, LongestOrdersTakeEveryPath) {
  if (kit::quick()) GTEST_SKIP() << "too long for an emulator";
  for (const int order : {21, 22}) {
    const size_t n = length(order);
    kit::Random random;
    std::map<size_t, Nox64fc> samples;
    while (samples.size() < 16) samples[static_cast<size_t>(random.bits() % n)] = random.value<Nox64fc>();
    Samples x(n);
    for (const auto& [place, value] : samples) x[place] = value;
    const Plan plan(fft(), order, kForward);
    Guarded<Nox64fc> d(n);
    plan.forward(x.data(), d.data());
    for (int i = 0; i < 2000; ++i) {
      const size_t k = static_cast<size_t>(random.bits() % n);
      Spectrum::value_type sum = 0;
      for (const auto& [place, value] : samples) {
        const long double part = static_cast<long double>(uint64_t{k} * place % n) / static_cast<long double>(n);
        sum += Spectrum::value_type(value.re, value.im) * std::polar(1.0L, -reference::kTurn * part);
      }
      const Spectrum::value_type got(d[k].re, d[k].im);
      ASSERT_LE(std::abs(sum / static_cast<long double>(n) - got) * static_cast<long double>(n), 100 * 0x1p-53L)
          << "order " << order << ", element " << k;
    }
    plan.forward(x.data(), x.data());
    EXPECT_TRUE(kit::same_bits(x.data(), d.data(), n)) << "in place, order " << order;
  }
}

TEST_P(Fft, FlagsScale) {
  for (int order = 0; order <= long_order(); ++order) {
    const Exact& e = exact(order);
    const double n = static_cast<double>(e.x.size());
    const struct {
      Flag flag;
      double forward, inverse;
    } cases[] = {{kForward, 1 / n, 1}, {kInverse, 1, 1 / n}, {kRoot, 1 / std::sqrt(n), 1 / std::sqrt(n)}};
    Samples plain(e.x.size()), d(e.x.size());
    const Plan unscaled(fft(), order, kNone);
    for (const auto& c : cases) {
      const Plan plan(fft(), order, c.flag);
      plan.forward(e.x.data(), d.data());
      EXPECT_TRUE(is_transform(d.data(), e.forward, order, c.forward)) << "forward, flag " << c.flag;
      plan.inverse(d.data(), d.data());
      Spectrum back = reference::widen(e.x);
      EXPECT_TRUE(is_transform(d.data(), back, 2 * order, 1)) << "and back, flag " << c.flag;
    }
    unscaled.forward(e.x.data(), d.data());
    unscaled.inverse(d.data(), plain.data());
    EXPECT_TRUE(is_transform(plain.data(), reference::widen(e.x), 2 * order, n));
  }
}

TEST_P(Fft, InPlaceAndMisalignedGiveTheSame) {
  for (int order = 0; order <= long_order(); ++order) {
    const Exact& e = exact(order);
    const size_t n = e.x.size();
    const Plan plan(fft(), order, kForward), awry(fft(), order, kForward, 8 * (order % 8) + 4);
    Guarded<Nox64fc> apart(n);
    plan.forward(e.x.data(), apart.data());
    Guarded<Nox64fc> within(e.x);
    plan.forward(within.data(), within.data());
    EXPECT_TRUE(kit::same_bits(apart.data(), within.data(), n)) << "in place, order " << order;
    for (const size_t misalign : {8u, 4u, 1u}) {
      Guarded<Nox64fc> x(e.x, Edge::Start, misalign), d(n, Edge::End, misalign);
      awry.forward(x.data(), d.data());
      EXPECT_TRUE(is_transform(d.data(), e.forward, order, 1 / static_cast<double>(n))) << misalign;
      awry.forward(x.data(), x.data());
      EXPECT_TRUE(kit::same_bits(x.data(), d.data(), n)) << "in place, off by " << misalign << ", order " << order;
      awry.inverse(x.data(), x.data());
      EXPECT_TRUE(is_transform(x.data(), reference::widen(e.x), 2 * order, 1)) << misalign;
    }
  }
}

// Bases at every offset from a boundary that memory from elsewhere may have.
TEST_P(Fft, MemoryMayStandAnywhere) {
  for (const int order : {4, 7, 11}) {
    const Exact& e = exact(order);
    Samples d(e.x.size());
    for (size_t misalign = 0; misalign < 64; misalign += 7) {
      const Plan plan(fft(), order, kNone, misalign);
      EXPECT_EQ(0u, reinterpret_cast<uintptr_t>(plan.spec()) % 64);
      plan.forward(e.x.data(), d.data());
      EXPECT_TRUE(is_transform(d.data(), e.forward, order, 1)) << misalign;
    }
  }
}

TEST_P(Fft, ThreadsShareASpec) {
  const int order = max_order() - 2;
  const Exact& e = exact(order);
  const Plan plan(fft(), order, kNone);
  const auto operations = &fft();
  Samples a(e.x.size()), b(e.x.size());
  const auto run = [&](Samples* d) {
    std::vector<Nox8u> work(plan.work_bytes());
    for (int i = 0; i < 3; ++i) operations->forward(e.x.data(), d->data(), plan.spec(), work.data());
  };
  std::thread other(run, &a);
  run(&b);
  other.join();
  EXPECT_TRUE(kit::same_bits(a.data(), b.data(), a.size()));
  EXPECT_TRUE(is_transform(a.data(), e.forward, order, 1));
}

TEST_P(Fft, SizesAreFixed) {
  struct Sizes {
    int order, spec, init, work;
  };
  static constexpr int kOwn = -2;
  static constexpr Sizes kSizes[5][9] = {
      {{5, 160, 0, 0},
       {6, 1408, 0, 1088},
       {11, 35136, 4224, 32832},
       {14, 164160, 32896, 16448},
       {17, 1181504, 262272, 131136},
       {20, 8459584, 2097280, 131136},
       {22, 33719616, 8388736, 131136},
       {25, 269747520, 67108992, 131136},
       {27, 1078592832, 268435584, 131136}},
      {{5, 160, 0, 0},
       {6, 1408, 0, 1088},
       {11, 35136, 4224, 32832},
       {14, 278848, 32896, 262208},
       {17, 1212736, 262272, 32832},
       {20, 8656192, 2097280, 262208},
       {22, 33834304, 8388736, 262208},
       {25, 269649216, 67108992, 131136},
       {27, 1078592832, 268435584, 131136}},
      {{5, 160, 0, 0},
       {6, 1408, 0, 1088},
       {11, 35136, 4224, 32832},
       {14, 278848, 32896, 262208},
       {17, 1311040, 262272, 131136},
       {20, 8656192, 2097280, 262208},
       {22, 33834304, 8388736, 262208},
       {25, 269747520, 67108992, 131136},
       {27, 1078986048, 268435584, 524352}},
      {{5, 160, 0, 0},
       {6, 160, 0, 0},
       {11, 35136, 4224, 32832},
       {14, 278848, 32896, 262208},
       {17, 2228544, 262272, 2097216},
       {20, 9442624, 2097280, 1048640},
       {22, 33834304, 8388736, 262208},
       {25, 270665024, 67108992, 2097216},
       {27, 1078986048, 268435584, 524352}},
      // Long plans take what they need.
      {{0, 2066, 0, 0},
       {5, 2624, 0, 0},
       {6, 3200, 0, 0},
       {7, 4352, 0, 2176},
       {10, 20480, 0, 16512},
       {11, kOwn, 4224, 32896},
       {15, kOwn, 65664, 524416},
       {20, kOwn, 2097280, 16777344},
       {26, kOwn, 134217856, 1073741952}},
  };
  for (const Sizes& s : kSizes[GetParam().column]) {
    int spec = -1, init = -1, work = -1;
    EXPECT_EQ(noxStsNoErr, kit::call(fft().size, s.order, kRoot, 0, &spec, &init, &work));
    EXPECT_EQ(s.spec == kOwn ? spec : s.spec, spec) << s.order;
    EXPECT_EQ(s.init, init) << s.order;
    EXPECT_EQ(s.work, work) << s.order;
  }
  if (GetParam().column == 4) {
    int sizes[] = {-1, -1, -1};
    EXPECT_EQ(noxStsFftOrderErr, kit::call(fft().size, kLimit, kRoot, 0, &sizes[0], &sizes[1], &sizes[2]));
    for (const int size : sizes) EXPECT_EQ(0, size) << "memory beyond the range of int";
  }
}

TEST_P(Fft, QueriesRefuseInOrder) {
  int a = -1, b = -1, c = -1;
  const auto size = [&](int order, int flag, int* spec) { return kit::call(fft().size, order, flag, 0, spec, &b, &c); };
  for (const int order : {-1, 31, 1 << 30}) EXPECT_EQ(noxStsFftOrderErr, size(order, 3, nullptr));
  for (const int order : {0, kLimit, kLimit + 1, 30}) {
    EXPECT_EQ(noxStsNullPtrErr, size(order, 3, nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(fft().size, order, 3, 0, &a, nullptr, &c));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(fft().size, order, 3, 0, &a, &b, nullptr));
  }
  const bool atOnce = GetParam().column == 4;  // the newest build looks at the limit first
  for (const int flag : {0, 3, 5, 16, -1}) {
    EXPECT_EQ(noxStsFftFlagErr, size(kLimit, flag, &a));
    EXPECT_EQ(atOnce ? noxStsFftOrderErr : noxStsFftFlagErr, size(kLimit + 1, flag, &a));
  }
  for (const int order : {kLimit + 1, 30}) EXPECT_EQ(noxStsFftOrderErr, size(order, kNone, &a));
  EXPECT_EQ(-1, a);
  EXPECT_EQ(-1, b);
  EXPECT_EQ(-1, c);
}

TEST_P(Fft, InitRefusesInOrder) {
  alignas(64) Nox8u memory[64 + 96] = {}, none = 0;
  const auto context = [&] { return *reinterpret_cast<const int*>(memory); };
  void* spec = &none;
  const auto init = [&](int order, int flag, Nox8u* spec_memory) {
    return kit::call(fft().init, &spec, order, flag, 0, spec_memory, nullptr);
  };
  EXPECT_EQ(noxStsNullPtrErr, kit::call(fft().init, nullptr, -1, 3, 0, nullptr, nullptr));
  for (const int order : {-1, kLimit + 1, 30}) EXPECT_EQ(noxStsFftOrderErr, init(order, 3, nullptr));
  EXPECT_EQ(noxStsNullPtrErr, init(kLimit, 3, nullptr));
  memory[0] = 8;
  EXPECT_EQ(noxStsFftFlagErr, init(kLimit, 3, memory));
  EXPECT_EQ(0, context());
  EXPECT_EQ(noxStsNullPtrErr, init(kLimit, kNone, memory));
  EXPECT_EQ(8, context()) << "the header is there by then";
  EXPECT_EQ(&none, spec) << "a refused spec was handed out";
}

TEST_P(Fft, TransformsRefuseInOrder) {
  Samples x(length(7), Nox64fc{1, 1});
  const Plan plan(fft(), 7, kNone);
  for (const auto run : {fft().forward, fft().inverse}) {
    EXPECT_EQ(noxStsNullPtrErr, kit::call(run, nullptr, nullptr, nullptr, nullptr));
    alignas(64) const Nox32s real[24] = {10}, refused[24] = {};
    for (const Nox32s* other : {real, refused})
      EXPECT_EQ(noxStsContextMatchErr, kit::call(run, nullptr, nullptr, other, nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(run, nullptr, x.data(), plan.spec(), nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(run, x.data(), nullptr, plan.spec(), nullptr));
    if (plan.work_bytes() > 0) {
      EXPECT_EQ(noxStsNullPtrErr, kit::call(run, x.data(), x.data(), plan.spec(), nullptr));
    }
  }
  for (const Nox64fc& v : x) ASSERT_TRUE(v.re == 1 && v.im == 1) << "a refused transform wrote";
}

NOX_EACH_VARIANT(Fft);

}  // namespace
