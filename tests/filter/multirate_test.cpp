// The multi-rate FIR filter: against its definition, under every cut and aliasing of a stream, its sizes and statuses,
// and its one-call forms.
#include <algorithm>

#include "filter/fir_stream.hpp"
#include "kit/lengths.hpp"
#include "kit/variants.hpp"
#include "reference/multirate.hpp"

namespace {

using kit::Edge;
using kit::Guarded;
using reference::Rates;

template <class T>
struct MrOf;
template <>
struct MrOf<Nox64f> {
  static constexpr auto init = noxsFIRMRInit_64f;
  static constexpr auto init_idx = noxsFIRMRInit_64f_Idx;
  static constexpr auto run = noxsFIRMR_64f;
  static constexpr auto make = noxsFIRMRInitAlloc_64f_Idx;
  static constexpr auto run_handle = noxsFIRMR_64f_Idx;
  static constexpr auto run_handle_in_place = noxsFIRMR_64f_I_Idx;
};
template <>
struct MrOf<Nox64fc> {
  static constexpr auto init = noxsFIRMRInit_64fc;
  static constexpr auto init_idx = noxsFIRMRInit_64fc_Idx;
  static constexpr auto run = noxsFIRMR_64fc;
  static constexpr auto make = noxsFIRMRInitAlloc_64fc_Idx;
  static constexpr auto run_handle = noxsFIRMR_64fc_Idx;
  static constexpr auto run_handle_in_place = noxsFIRMR_64fc_I_Idx;
};

FirSizes mr_sizes(int tapsLen, const Rates& r, int type) {
  FirSizes sizes;
  EXPECT_EQ(noxStsNoErr, kit::call(noxsFIRMRGetSize, tapsLen, r.up, r.down, type, &sizes.spec, &sizes.work));
  return sizes;
}

// A filter whose spec and work buffer have exactly the queried sizes and stand against unmapped memory.
template <class T>
class MrStream {
 public:
  MrStream(const std::vector<T>& taps, const Rates& r, size_t place = 0)
      : MrStream(taps, r, place, mr_sizes(static_cast<int>(taps.size()), r, FirOf<T>::kType)) {}
  void run(const T* src, T* dst, size_t iterations, const T* dlySrc, T* dlyDst) {
    work_.fill_with(0xFF);  // NaN, whatever the element
    ASSERT_EQ(noxStsNoErr,
              kit::call(MrOf<T>::run, src, dst, static_cast<int>(iterations), spec(), dlySrc, dlyDst, work_.data()));
    // Only a call in place may write the spec.
    EXPECT_TRUE(src == dst || kit::same_bits(spec_.data(), before_.data(), spec_.size()));
    before_ = spec_.values();
    spec_.check();
    work_.check();
  }
  NoxFirMrSpec* spec() { return reinterpret_cast<NoxFirMrSpec*>(spec_.data()); }
  Nox8u* work() { return work_.data(); }
  const Rates rates;
  const size_t past, up, down;

 private:
  MrStream(const std::vector<T>& taps, const Rates& r, size_t place, FirSizes sizes)
      : rates(r),
        past(r.past(taps.size())),
        up(static_cast<size_t>(r.up)),
        down(static_cast<size_t>(r.down)),
        spec_(static_cast<size_t>(sizes.spec), place & 1 ? Edge::Start : Edge::End, place % 64),
        work_(static_cast<size_t>(sizes.work), place & 2 ? Edge::Start : Edge::End, place * 7 % 64) {
    Guarded<T> given(taps, Edge::End, place % 16);
    const int n = static_cast<int>(taps.size());
    EXPECT_EQ(noxStsNoErr,
              place & 1
                  ? kit::call(MrOf<T>::init_idx, given.data() + n, -n, n, r.up, r.upPhase, r.down, r.downPhase, spec())
                  : kit::call(MrOf<T>::init, given.data(), n, r.up, r.upPhase, r.down, r.downPhase, spec()));
    before_ = spec_.values();
  }
  Guarded<Nox8u> spec_, work_;
  std::vector<Nox8u> before_;
};

enum class Way { Apart, OneLine, InPlace, OverDelay };
constexpr Way kWays[] = {Way::Apart, Way::OneLine, Way::InPlace, Way::OverDelay};

// Runs the iterations on guarded arrays and leaves the new delay line in `line`.
template <class T>
std::vector<T> filter_block(MrStream<T>& stream, Way way, const T* samples, size_t iterations, std::vector<T>& line,
                            size_t aside = 0) {
  const size_t in = iterations * stream.down, out = iterations * stream.up;
  const Edge edge = aside & 1 ? Edge::Start : Edge::End;
  Guarded<T> src(way == Way::InPlace ? std::max(in, out) : in, edge, aside), dst(out, edge, aside);
  Guarded<T> over(std::max(out, stream.past)), read(line, edge, aside), written(stream.past, edge, aside);
  std::copy_n(samples, in, src.begin());
  std::copy(line.begin(), line.end(), over.begin());
  const T* from = way == Way::OverDelay ? over.data() : read.data();
  T* const to = way == Way::InPlace ? src.data() : way == Way::OverDelay ? over.data() : dst.data();
  T* const next = way == Way::OneLine ? read.data() : written.data();
  stream.run(src.data(), to, iterations, from, next);
  line.assign(next, next + stream.past);
  return {to, to + out};
}

template <class T>
std::vector<T> filter_whole(MrStream<T>& stream, const std::vector<T>& signal) {
  std::vector<T> line(signal.begin(), signal.begin() + static_cast<std::ptrdiff_t>(stream.past));
  return filter_block(stream, Way::Apart, signal.data() + stream.past, (signal.size() - stream.past) / stream.down,
                      line);
}

class FirMr : public kit::EachVariant {};
NOX_EACH_VARIANT(FirMr);

struct Case {
  Rates rates;
  size_t tapsLen, iterations;
};

// Dense and sparse tables on both sides of their borders, phases at both ends, taps fewer than phases, and at random.
std::vector<Case> cases(kit::Random& random) {
  std::vector<Case> out{{{2, 1, 0, 0}, 1, 1},        {{2, 1, 1, 0}, 5, 1},       {{1, 3, 0, 2}, 9, 50},
                        {{1, 3, 0, 0}, 10, 50},      {{3, 2, 2, 1}, 72, 100},    {{2, 3, 0, 2}, 48, 100},
                        {{160, 147, 5, 9}, 3840, 9}, {{25, 9, 24, 8}, 600, 60},  {{7, 100, 6, 99}, 100, 20},
                        {{4, 100, 0, 0}, 129, 20},   {{4, 100, 3, 50}, 128, 20}, {{6, 4, 1, 3}, 40, 33},
                        {{1, 10, 0, 3}, 24, 100},    {{200, 1, 199, 0}, 3, 4},   {{8, 8, 3, 5}, 30, 30}};
  for (int i = 0; i < (kit::quick() ? 20 : 200); ++i) {
    const int up = static_cast<int>(random.integer(1, random.chance(0.3) ? 40 : 6));
    const int down = static_cast<int>(random.integer(up == 1 ? 2 : 1, random.chance(0.3) ? 40 : 6));
    out.push_back(
        {{up, down, static_cast<int>(random.integer(0, up - 1)), static_cast<int>(random.integer(0, down - 1))},
         static_cast<size_t>(random.integer(1, 90)),
         static_cast<size_t>(random.integer(1, 70))});
  }
  return out;
}

TEST_P(FirMr, AgreesWithTheDefinition) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    size_t place = 0;
    for (const Case& c : cases(random)) {
      const std::vector<T> taps = random_elements<T>(random, c.tapsLen);
      MrStream<T> stream(taps, c.rates, ++place);
      const size_t in = c.iterations * stream.down, past = stream.past;
      const std::vector<T> signal = random_elements<T>(random, past + in);
      std::vector<T> line(signal.begin(), signal.begin() + static_cast<std::ptrdiff_t>(past));
      const std::vector<T> out = filter_block(stream, Way::Apart, signal.data() + past, c.iterations, line, place % 16);
      ASSERT_TRUE(reference::is_resampled(out.data(), out.size(), signal, taps, c.rates));
      ASSERT_TRUE(kit::same_bits(line.data(), signal.data() + in, past)) << c.rates << ", " << c.tapsLen << " taps";
    }
  });
}

TEST_P(FirMr, AnyCutInAnyWayGivesTheSameBits) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    for (const Case& c : cases(random)) {
      MrStream<T> stream(random_elements<T>(random, c.tapsLen), c.rates, c.iterations);
      const size_t past = stream.past;
      const std::vector<T> signal = random_elements<T>(random, past + c.iterations * stream.down);
      const std::vector<T> whole = filter_whole(stream, signal);
      for (const Way way : kWays) {
        std::vector<T> line(signal.begin(), signal.begin() + static_cast<std::ptrdiff_t>(past)), out;
        for (size_t done = 0; done < c.iterations;) {
          const size_t block = std::min(c.iterations - done, static_cast<size_t>(random.integer(1, 30)));
          const std::vector<T> part = filter_block(stream, way, signal.data() + past + done * stream.down, block, line);
          out.insert(out.end(), part.begin(), part.end());
          done += block;
        }
        ASSERT_TRUE(kit::same_bits(out.data(), whole.data(), whole.size()))
            << c.rates << ", " << c.tapsLen << " taps, way " << static_cast<int>(way);
        ASSERT_TRUE(kit::same_bits(line.data(), signal.data() + signal.size() - past, past)) << c.rates;
      }
    }
  });
}

TEST_P(FirMr, ChunksInPlaceDoNotShow) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    // Outputs beyond one chunk, more and fewer than the inputs; an iteration longer than a chunk.
    for (const Case& c : {Case{{5, 2, 0, 0}, 30, 2000}, Case{{2, 5, 0, 0}, 30, 4500}, Case{{4, 4, 0, 0}, 9, 1025},
                          Case{{5000, 3, 4999, 0}, 7000, 3}, Case{{4096, 4000, 1, 2}, 5000, 3}}) {
      MrStream<T> stream(random_elements<T>(random, c.tapsLen), c.rates, 3);
      const std::vector<T> signal = random_elements<T>(random, stream.past + c.iterations * stream.down);
      const std::vector<T> whole = filter_whole(stream, signal);
      std::vector<T> line(signal.begin(), signal.begin() + static_cast<std::ptrdiff_t>(stream.past));
      const std::vector<T> out = filter_block(stream, Way::InPlace, signal.data() + stream.past, c.iterations, line);
      EXPECT_TRUE(kit::same_bits(out.data(), whole.data(), whole.size())) << c.rates;
      EXPECT_TRUE(kit::same_bits(line.data(), signal.data() + signal.size() - stream.past, stream.past)) << c.rates;
    }
  });
}

TEST_P(FirMr, NullDelayLinesAreZerosAndUnwanted) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    for (const Rates& r : {Rates{3, 2, 1, 0}, Rates{1, 10, 0, 0}, Rates{2, 5, 0, 0}}) {
      MrStream<T> stream(random_elements<T>(random, 20), r);
      constexpr size_t kIterations = 40;
      std::vector<T> signal(stream.past);
      for (const T& x : random_elements<T>(random, kIterations * stream.down)) signal.push_back(x);
      const std::vector<T> whole = filter_whole(stream, signal);
      Guarded<T> data(kIterations * std::max(stream.up, stream.down)), out(whole.size());
      std::copy_n(signal.begin() + static_cast<std::ptrdiff_t>(stream.past), kIterations * stream.down, data.begin());
      stream.run(data.data(), out.data(), kIterations, nullptr, nullptr);
      EXPECT_TRUE(kit::same_bits(out.data(), whole.data(), whole.size()));
      stream.run(data.data(), data.data(), kIterations, nullptr, nullptr);
      EXPECT_TRUE(kit::same_bits(data.data(), whole.data(), whole.size()));
    }
  });
}

template <class T>
bool finite(const T& x) {
  return std::isfinite(static_cast<double>(reference::real_part(x) + reference::imag_part(x)));
}

TEST_P(FirMr, NanAndInfinityTouchOnlyTheOutputsThatUseTheSample) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    for (const Case& c : cases(random)) {
      const std::vector<T> taps = random_elements<T>(random, c.tapsLen);
      MrStream<T> stream(taps, c.rates);
      std::vector<T> signal = random_elements<T>(random, stream.past + c.iterations * stream.down);
      const std::vector<T> clean = filter_whole(stream, signal);
      const int at = static_cast<int>(random.integer(0, static_cast<int64_t>(signal.size()) - 1));
      signal[static_cast<size_t>(at)] = T{};
      reinterpret_cast<Nox64f&>(signal[static_cast<size_t>(at)]) = c.tapsLen % 2 ? std::nan("") : -HUGE_VAL;
      const std::vector<T> out = filter_whole(stream, signal);
      for (size_t m = 0; m < out.size(); ++m) {
        const int tap = static_cast<int>(m) * c.rates.down + c.rates.downPhase -
                        (at - static_cast<int>(stream.past)) * c.rates.up - c.rates.upPhase;
        if (tap >= 0 && tap < static_cast<int>(c.tapsLen))
          EXPECT_FALSE(finite(out[m])) << c.rates << " output " << m;
        else
          ASSERT_TRUE(kit::same_bits(&out[m], &clean[m], 1)) << c.rates << " output " << m << " without the sample";
      }
    }
  });
}

TEST_P(FirMr, BothFactorsOneIsTheSingleRateFilter) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    constexpr size_t kTaps = 9, kAll = 30;
    const std::vector<T> taps = random_elements<T>(random, kTaps), signal = random_elements<T>(random, kTaps + kAll);
    EXPECT_EQ(fir_sizes(kTaps, FirOf<T>::kType).spec, mr_sizes(kTaps, {}, FirOf<T>::kType).spec);
    EXPECT_EQ(fir_sizes(kTaps, FirOf<T>::kType).work, mr_sizes(kTaps, {}, FirOf<T>::kType).work);
    MrStream<T> stream(taps, {}, 1);
    FirStream<T> single(taps);
    Guarded<T> src(kAll), expected(kAll), out(kAll), read(kTaps), written(kTaps);
    std::copy_n(signal.begin(), kTaps, read.begin());
    std::copy_n(signal.begin() + kTaps, kAll, src.begin());
    single.run(src.data(), expected.data(), kAll, read.data() + 1, nullptr);
    stream.run(src.data(), out.data(), kAll, read.data(), written.data());
    EXPECT_TRUE(kit::same_bits(out.data(), expected.data(), kAll));
    // The element that the filter has no use for is neither read nor written.
    const T untouched = Guarded<T>(1)[0];
    EXPECT_TRUE(kit::same_bits(written.data(), &untouched, 1));
    EXPECT_TRUE(kit::same_bits(written.data() + 1, signal.data() + signal.size() - (kTaps - 1), kTaps - 1));
    stream.run(src.data(), out.data(), kAll, read.data(), read.data());
    EXPECT_TRUE(kit::same_bits(read.data(), signal.data(), 1));
    EXPECT_TRUE(kit::same_bits(read.data() + 1, signal.data() + signal.size() - (kTaps - 1), kTaps - 1));
    // With no line to read, the new one starts at its first element.
    stream.run(src.data(), out.data(), kAll, nullptr, written.data());
    EXPECT_TRUE(kit::same_bits(written.data(), signal.data() + signal.size() - (kTaps - 1), kTaps - 1));
  });
}

TEST(FirMrBuilds, ThoseThatDoNotFuseAgree) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    for (const Rates& r : {Rates{3, 2, 0, 0}, Rates{4, 3, 2, 1}, Rates{1, 20, 0, 0}}) {
      const std::vector<T> taps = random_elements<T>(random, 50), signal = random_elements<T>(random, r.past(50) + 600);
      std::vector<T> first;
      for (const kit::Variant& v : kit::runnable_variants()) {
        if (v.column == 4) continue;
        const kit::UseVariant use(v);
        MrStream<T> stream(taps, r);
        const std::vector<T> out = filter_whole(stream, signal);
        if (first.empty()) first = out;
        EXPECT_TRUE(kit::same_bits(out.data(), first.data(), out.size())) << r << ' ' << v.tag;
      }
    }
  });
}

TEST_P(FirMr, HandlesCarryAStream) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    for (const Rates& r : {Rates{3, 2, 1, 1}, Rates{2, 7, 0, 0}, Rates{}}) {
      const std::vector<T> taps = random_elements<T>(random, 12);
      constexpr int kFirst = 11, kAll = 40;
      MrStream<T> stream(taps, r);
      Guarded<T> src(kAll * stream.down), expected(kAll * stream.up), out(kAll * stream.up);
      Guarded<T> data(kAll * std::max(stream.up, stream.down));
      random.fill(src);
      stream.run(src.data(), expected.data(), kAll, nullptr, nullptr);
      const auto make = [&] {
        NoxFilterHandle* handle = nullptr;
        EXPECT_EQ(noxStsNoErr,
                  kit::call(MrOf<T>::make, taps.data() + 3, -3, 12, r.up, r.upPhase, r.down, r.downPhase, &handle));
        return handle;
      };
      NoxFilterHandle* handle = make();
      EXPECT_EQ(noxStsNoErr, kit::call(MrOf<T>::run_handle, src.data() + 5, -5, out.data(), 0, kFirst, handle));
      EXPECT_EQ(noxStsNoErr, kit::call(MrOf<T>::run_handle, src.data(), kFirst * r.down, out.data() + 1,
                                       kFirst * r.up - 1, kAll - kFirst, handle));
      EXPECT_TRUE(kit::same_bits(out.data(), expected.data(), out.size())) << r;
      kit::call(noxsFIRMRFree_Idx, handle);
      handle = make();
      data.fill(src.values());
      EXPECT_EQ(noxStsNoErr, kit::call(MrOf<T>::run_handle_in_place, data.data() + 1, -1, kAll, handle));
      EXPECT_TRUE(kit::same_bits(data.data(), expected.data(), expected.size())) << r;
      kit::call(noxsFIRMRFree_Idx, handle);
    }
    NoxFilterHandle* handle = nullptr;
    const T taps[1] = {};
    EXPECT_EQ(noxStsFIRMRPhaseErr, kit::call(MrOf<T>::make, taps, 0, 1, 0, 0, 1, 0, &handle));
    EXPECT_NE(nullptr, handle);
    kit::call(noxsFIRMRFree_Idx, handle);
    kit::call(noxsFIRMRFree_Idx, nullptr);
  });
}

TEST_P(FirMr, Sizes) {
  if (GetParam().column == 0) {
    // 32 bytes a delay element, 16 an element of the joined sequence, and 65599.
    EXPECT_EQ(((32 * 24 + 126) & ~127) + ((16 * (26 + 24) + 79) & ~63) + 65599, mr_sizes(72, {3, 2}, 19).work);
    EXPECT_EQ(((32 * 1000 + 126) & ~127) + ((16 * (1015 + 1000) + 79) & ~63) + 65599, mr_sizes(1000, {1, 5}, 20).work);
  }
  for (const Rates& r : {Rates{1 << 30, 1 << 30}, Rates{1, INT32_MAX}, Rates{INT32_MAX, 1}}) {
    FirSizes sizes;
    EXPECT_EQ(noxStsFftOrderErr, kit::call(noxsFIRMRGetSize, 5, r.up, r.down, 19, &sizes.spec, &sizes.work)) << r;
    EXPECT_EQ(0, sizes.spec);
    EXPECT_EQ(0, sizes.work);
  }
}

TEST_P(FirMr, StatusesInTheirOrder) {
  int spec = 77, work = 77;
  const auto size = [&](int tapsLen, int up, int down, int type, int* s, int* w) {
    return kit::call(noxsFIRMRGetSize, tapsLen, up, down, type, s, w);
  };
  EXPECT_EQ(noxStsFIRLenErr, size(0, -1, -1, 1, nullptr, nullptr));
  EXPECT_EQ(noxStsFIRMRFactorErr, size(1, -1, 1, 1, nullptr, nullptr));
  EXPECT_EQ(noxStsFIRMRFactorErr, size(1, 1, -1, 1, nullptr, nullptr));
  EXPECT_EQ(noxStsNullPtrErr, size(1, 0, 0, 1, nullptr, &work));
  EXPECT_EQ(noxStsNullPtrErr, size(1, 0, 0, 1, &spec, nullptr));
  EXPECT_EQ(noxStsDataTypeErr, size(1, 0, 0, 18, &spec, &work));
  EXPECT_EQ(noxStsFIRMRFactorErr, size(1, 0, 1, 19, &spec, &work));
  EXPECT_EQ(noxStsFIRMRFactorErr, size(1, 1, 0, 19, &spec, &work));
  EXPECT_EQ(77, spec);
  EXPECT_EQ(77, work);
  for_both_types([](auto zero) {
    using T = decltype(zero);
    const T taps[2] = {};
    Guarded<Nox8u> memory(static_cast<size_t>(mr_sizes(2, {3, 2}, FirOf<T>::kType).spec));
    const std::vector<Nox8u> before = memory.values();
    NoxFirMrSpec* const to = reinterpret_cast<NoxFirMrSpec*>(memory.data());
    const auto init = [&](const T* h, int tapsLen, int up, int upPhase, int down, int downPhase, NoxFirMrSpec* s) {
      return kit::call(MrOf<T>::init, h, tapsLen, up, upPhase, down, downPhase, s);
    };
    EXPECT_EQ(noxStsFIRLenErr, init(nullptr, 0, -1, 9, -1, 9, nullptr));
    EXPECT_EQ(noxStsFIRMRFactorErr, init(nullptr, 2, -1, 9, 2, 9, nullptr));
    EXPECT_EQ(noxStsFIRMRFactorErr, init(nullptr, 2, 3, 9, -1, 9, nullptr));
    for (const Rates& r : {Rates{0, 2, 0, 0}, Rates{3, 0, 0, 0}, Rates{3, 2, 3, 0}, Rates{3, 2, -1, 0},
                           Rates{3, 2, 0, 2}, Rates{3, 2, 0, -1}})
      EXPECT_EQ(noxStsFIRMRPhaseErr, init(nullptr, 2, r.up, r.upPhase, r.down, r.downPhase, nullptr)) << r;
    EXPECT_EQ(noxStsNullPtrErr, init(nullptr, 2, 3, 0, 2, 0, to));
    EXPECT_EQ(noxStsNullPtrErr, init(taps, 2, 3, 0, 2, 0, nullptr));
    EXPECT_TRUE(kit::same_bits(memory.data(), before.data(), memory.size())) << "written on an error";
    EXPECT_EQ(noxStsMemAllocErr, init(taps, 2, 32768, 0, 16384, 0, to));
    MrStream<T> stream({T{}, T{}}, {3, 2});
    T x[3] = {}, y[3];
    for (const int n : {0, -1, INT32_MIN})
      EXPECT_EQ(noxStsSizeErr, kit::call(MrOf<T>::run, x, y, n, stream.spec(), nullptr, nullptr, stream.work()));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(MrOf<T>::run, x, y, 0, nullptr, nullptr, nullptr, stream.work()));
  });
}

}  // namespace
