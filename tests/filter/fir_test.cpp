// The single-rate FIR filter: against its definition, under every cut and aliasing of a stream, and its statuses.
#include <algorithm>

#include "filter/fir_stream.hpp"
#include "kit/lengths.hpp"
#include "kit/variants.hpp"
#include "reference/fir.hpp"

namespace {

using kit::Edge;
using kit::Guarded;

class Fir : public kit::EachVariant {};
NOX_EACH_VARIANT(Fir);

// The outputs of a whole signal, delay line first, by one call out of place.
template <class T>
std::vector<T> filter_whole(FirStream<T>& stream, const std::vector<T>& signal) {
  std::vector<T> out(signal.size() - stream.past());
  stream.run(signal.data() + stream.past(), out.data(), static_cast<int>(out.size()), signal.data(), nullptr);
  return out;
}

std::vector<size_t> tap_counts() {
  if (kit::quick()) return {1, 2, 3, 5, 8, 17, 64, 70};
  std::vector<size_t> counts{181};
  for (size_t n = 1; n <= 70; ++n) counts.push_back(n);
  return counts;
}

TEST_P(Fir, AgreesWithTheDefinition) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    size_t place = 0;
    for (const size_t tapsLen : tap_counts()) {
      const std::vector<T> taps = random_elements<T>(random, tapsLen);
      std::vector<size_t> lengths{1, 2, 3, 4, 5, 7, 13, 28, 29, 57, 100, tapsLen, tapsLen + 1, 2 * tapsLen};
      for (const size_t less : {1u, 2u})
        if (tapsLen > less) lengths.push_back(tapsLen - less);
      for (const size_t n : lengths) {
        ++place;
        const size_t past = tapsLen - 1;
        const std::vector<T> signal = random_elements<T>(random, past + n);
        FirStream<T> stream(taps, place);
        const Edge edge = place & 4 ? Edge::Start : Edge::End;
        const size_t aside = (place / 8 % 4) * 8;
        Guarded<T> src(n, edge, aside), dst(n, edge, aside), line(past, edge, aside), next(past, edge, aside);
        std::copy_n(signal.begin(), past, line.begin());
        std::copy_n(signal.begin() + static_cast<std::ptrdiff_t>(past), n, src.begin());
        stream.run(src.data(), dst.data(), static_cast<int>(n), line.data(), next.data());
        ASSERT_TRUE(reference::is_filtered(dst.data(), n, signal, taps));
        ASSERT_TRUE(kit::same_bits(next.data(), signal.data() + n, past)) << "next delay line, " << n << " samples";
        ASSERT_TRUE(kit::same_bits(src.data(), signal.data() + past, n)) << "the source was written";
      }
    }
  });
}

// Ways to hand over the arrays of a call.
enum class Lines { Two, One };
enum class Place { Apart, InPlace, OverDelay };

// Filters one block and leaves the outputs in `out` and the new delay line in `line`.
template <class T>
void filter_block(FirStream<T>& stream, Place place, Lines lines, const T* src, size_t n, std::vector<T>& line,
                  T* out) {
  const size_t past = stream.past();
  Guarded<T> from(n), to(n), over(std::max(n, past)), read(line), written(past);
  std::copy_n(src, n, from.begin());
  std::copy_n(line.begin(), past, over.begin());
  const T* dlySrc = read.data();
  T* dst = to.data();
  T* dlyDst = lines == Lines::One ? read.data() : written.data();
  if (place == Place::InPlace) dst = from.data();
  if (place == Place::OverDelay) dlySrc = dst = over.data();
  stream.run(from.data(), dst, static_cast<int>(n), dlySrc, dlyDst);
  std::copy_n(dst, n, out);
  line.assign(dlyDst, dlyDst + past);
}

struct Way {
  Place place;
  Lines lines;
};
constexpr Way kWays[] = {{Place::Apart, Lines::Two},
                         {Place::Apart, Lines::One},
                         {Place::InPlace, Lines::Two},
                         {Place::InPlace, Lines::One},
                         {Place::OverDelay, Lines::Two}};

TEST_P(Fir, AnyCutInAnyWayGivesTheSameBits) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    for (int round = 0; round < (kit::quick() ? 15 : 150); ++round) {
      const size_t past = static_cast<size_t>(random.integer(0, 69)), n = static_cast<size_t>(random.integer(1, 400));
      FirStream<T> stream(random_elements<T>(random, past + 1), static_cast<size_t>(round));
      const std::vector<T> signal = random_elements<T>(random, past + n);
      const std::vector<T> whole = filter_whole(stream, signal);
      for (const Way& way : kWays) {
        std::vector<T> line(signal.begin(), signal.begin() + static_cast<std::ptrdiff_t>(past)), out(n);
        for (size_t done = 0; done < n;) {
          const size_t longest = random.chance(0.5) ? 5 : 90;
          const size_t block =
              std::min(n - done, static_cast<size_t>(random.integer(1, static_cast<int64_t>(longest))));
          filter_block(stream, way.place, way.lines, signal.data() + past + done, block, line, out.data() + done);
          done += block;
        }
        ASSERT_TRUE(kit::same_bits(out.data(), whole.data(), n)) << past + 1 << " taps";
        ASSERT_TRUE(kit::same_bits(line.data(), signal.data() + n, past)) << "delay line, " << past + 1 << " taps";
      }
    }
  });
}

TEST_P(Fir, ChunksOfTheStagedRouteDoNotShow) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    constexpr int kChunk = FirOf<T>::kChunk;
    kit::Random random;
    struct Case {
      int tapsLen, n;
    };
    std::vector<Case> cases;
    for (const int tapsLen : {1, 2, 33, 70})
      for (const int n : {kChunk - 1, kChunk, kChunk + 1, 2 * kChunk + 1}) cases.push_back({tapsLen, n});
    // A delay line longer than a chunk, and a last chunk shorter than the delay line.
    if (!kit::quick()) cases.push_back({kChunk + 500, 2 * kChunk + 3});
    for (const Case& c : cases) {
      const size_t past = static_cast<size_t>(c.tapsLen - 1), n = static_cast<size_t>(c.n);
      FirStream<T> stream(random_elements<T>(random, past + 1), static_cast<size_t>(c.n));
      const std::vector<T> signal = random_elements<T>(random, past + n);
      const std::vector<T> whole = filter_whole(stream, signal);
      for (const Way& way : kWays) {
        std::vector<T> line(signal.begin(), signal.begin() + static_cast<std::ptrdiff_t>(past)), out(n);
        filter_block(stream, way.place, way.lines, signal.data() + past, n, line, out.data());
        ASSERT_TRUE(kit::same_bits(out.data(), whole.data(), n)) << c.tapsLen << " taps, " << c.n << " samples";
        ASSERT_TRUE(kit::same_bits(line.data(), signal.data() + n, past)) << c.tapsLen << " taps, " << c.n;
      }
    }
  });
}

TEST_P(Fir, NullDelayLinesAreZerosAndUnwanted) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    for (const size_t past : {0u, 1u, 6u, 40u}) {
      for (const size_t n : {1u, 5u, 40u, 41u, 150u}) {
        FirStream<T> stream(random_elements<T>(random, past + 1), n);
        std::vector<T> signal(past);
        for (const T& x : random_elements<T>(random, n)) signal.push_back(x);
        const std::vector<T> expected = filter_whole(stream, signal);
        Guarded<T> data(n), out(n), next(past);
        const auto load = [&] { std::copy_n(signal.begin() + static_cast<std::ptrdiff_t>(past), n, data.begin()); };
        load();
        stream.run(data.data(), out.data(), static_cast<int>(n), nullptr, nullptr);
        EXPECT_TRUE(kit::same_bits(out.data(), expected.data(), n));
        stream.run(data.data(), out.data(), static_cast<int>(n), nullptr, next.data());
        EXPECT_TRUE(kit::same_bits(out.data(), expected.data(), n));
        EXPECT_TRUE(kit::same_bits(next.data(), signal.data() + n, past));
        stream.run(data.data(), data.data(), static_cast<int>(n), nullptr, nullptr);
        EXPECT_TRUE(kit::same_bits(data.data(), expected.data(), n));
        load();
        stream.run(data.data(), data.data(), static_cast<int>(n), nullptr, next.data());
        EXPECT_TRUE(kit::same_bits(data.data(), expected.data(), n));
        EXPECT_TRUE(kit::same_bits(next.data(), signal.data() + n, past));
      }
    }
  });
}

TEST_P(Fir, OneArrayForOutputsAndBothDelayLinesEndsAsDelayLine) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    constexpr size_t kPast = 6, kAll = 50;
    FirStream<T> stream(random_elements<T>(random, kPast + 1));
    const std::vector<T> signal = random_elements<T>(random, kPast + kAll);
    std::vector<T> expected = filter_whole(stream, signal);
    std::copy_n(signal.begin() + kAll, kPast, expected.begin());
    Guarded<T> src(kAll), all(kAll);
    std::copy_n(signal.begin() + kPast, kAll, src.begin());
    std::copy_n(signal.begin(), kPast, all.begin());
    stream.run(src.data(), all.data(), kAll, all.data(), all.data());
    EXPECT_TRUE(kit::same_bits(all.data(), expected.data(), kAll));
  });
}

template <class T>
T with_part(double part, bool imaginary) {
  if constexpr (kit::is_complex<T>)
    return imaginary ? T{0.5, part} : T{part, 0.5};
  else
    return part;
}

TEST_P(Fir, NanAndInfinityTouchOnlyTheOutputsThatUseTheSample) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    for (int round = 0; round < 60; ++round) {
      const size_t past = static_cast<size_t>(random.integer(0, 40)), n = static_cast<size_t>(random.integer(1, 120));
      FirStream<T> stream(random_elements<T>(random, past + 1), static_cast<size_t>(round));
      std::vector<T> signal = random_elements<T>(random, past + n);
      const std::vector<T> clean = filter_whole(stream, signal);
      const size_t at = static_cast<size_t>(random.integer(0, static_cast<int64_t>(past + n) - 1));
      signal[at] = with_part<T>(round & 1 ? std::nan("") : -HUGE_VAL, round & 2);
      const std::vector<T> out = filter_whole(stream, signal);
      for (size_t i = 0; i < n; ++i) {
        const bool uses = i <= at && at <= i + past;
        if (uses)
          EXPECT_FALSE(std::isfinite(static_cast<double>(reference::real_part(out[i])))) << "output " << i;
        else
          ASSERT_TRUE(kit::same_bits(&out[i], &clean[i], 1)) << "output " << i << " without the sample";
      }
    }
  });
}

TEST_P(Fir, OneTapIsAProduct) {
  const std::vector<Nox64f> signal{-0.0, 0.0, 3, -HUGE_VAL, 5e-324, -2, 1e308};
  FirStream<Nox64f> stream({0.75});
  const std::vector<Nox64f> out = filter_whole(stream, signal);
  for (size_t i = 0; i < signal.size(); ++i) {
    const Nox64f product = 0.75 * signal[i];
    EXPECT_TRUE(kit::same_bits(&out[i], &product, 1));
  }
}

TEST_P(Fir, EveryMethodFilters) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    const std::vector<T> taps = random_elements<T>(random, 20), signal = random_elements<T>(random, 19 + 90);
    for (const int algType : {NOX_ALG_AUTO, NOX_ALG_DIRECT, NOX_ALG_FFT}) {
      FirStream<T> stream(taps, 5, algType);
      EXPECT_TRUE(reference::is_filtered(filter_whole(stream, signal).data(), 90, signal, taps)) << algType;
    }
  });
}

TEST_P(Fir, SizesGrowAndEndWithAnError) {
  for (const int type : {NOX_TYPE_32F, NOX_TYPE_32FC, NOX_TYPE_64F, NOX_TYPE_64FC}) {
    FirSizes last{0, 0};
    for (const int tapsLen : {1, 2, 3, 4, 7, 8, 9, 63, 64, 65, 1000, 100000, 1000000}) {
      const FirSizes sizes = fir_sizes(tapsLen, type);
      EXPECT_GE(sizes.spec, last.spec) << tapsLen;
      EXPECT_GE(sizes.work, last.work) << tapsLen;
      last = sizes;
    }
    // From the first count refused on, all are; sizes never wrap to something positive.
    for (const int tapsLen : {1 << 28, (1 << 28) + 5, 1 << 29, 1 << 30, INT32_MAX}) {
      FirSizes sizes;
      EXPECT_EQ(noxStsFftOrderErr, kit::call(noxsFIRSRGetSize, tapsLen, type, &sizes.spec, &sizes.work)) << tapsLen;
      EXPECT_EQ(0, sizes.spec);
      EXPECT_EQ(0, sizes.work);
    }
  }
}

TEST_P(Fir, StatusesInTheirOrder) {
  int spec = 77, work = 77;
  EXPECT_EQ(noxStsSizeErr, kit::call(noxsFIRSRGetSize, 0, 1, nullptr, nullptr));
  EXPECT_EQ(noxStsSizeErr, kit::call(noxsFIRSRGetSize, INT32_MIN, 19, &spec, &work));
  for (const int type : {0, 12, 15, 18, 21, 19 + 256, -13})
    EXPECT_EQ(noxStsDataTypeErr, kit::call(noxsFIRSRGetSize, 1, type, nullptr, &work)) << type;
  EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsFIRSRGetSize, INT32_MAX, 19, nullptr, &work));
  EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsFIRSRGetSize, 1, 19, &spec, nullptr));
  EXPECT_EQ(77, spec);
  EXPECT_EQ(77, work);

  for_both_types([](auto zero) {
    using T = decltype(zero);
    const T taps[2] = {};
    Guarded<Nox8u> memory(static_cast<size_t>(fir_sizes(2, FirOf<T>::kType).spec));
    const std::vector<Nox8u> before = memory.values();
    NoxFirSpec* const to = reinterpret_cast<NoxFirSpec*>(memory.data());
    EXPECT_EQ(noxStsSizeErr, kit::call(FirOf<T>::init, nullptr, 0, 9, nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(FirOf<T>::init, nullptr, 2, 9, to));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(FirOf<T>::init, taps, 2, 9, nullptr));
    for (const int algType : {-1, 3, 9, 256, 257, INT32_MIN})
      EXPECT_EQ(noxStsAlgTypeErr, kit::call(FirOf<T>::init, taps, 2, algType, to)) << algType;
    EXPECT_TRUE(kit::same_bits(memory.data(), before.data(), memory.size())) << "written on an error";

    FirStream<T> stream({T{}, T{}});
    T x{}, y{};
    for (const int n : {0, -1, INT32_MIN}) {
      EXPECT_EQ(noxStsSizeErr, kit::call(FirOf<T>::run, &x, &y, n, stream.spec(), nullptr, nullptr, stream.work()));
      EXPECT_EQ(noxStsNullPtrErr, kit::call(FirOf<T>::run, &x, &y, n, nullptr, nullptr, nullptr, stream.work()));
    }
  });
}

TEST(FirBuilds, ThoseThatDoNotFuseAgreeBitForBit) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    const std::vector<T> taps = random_elements<T>(random, 37), signal = random_elements<T>(random, 36 + 111);
    std::vector<T> first;
    for (const kit::Variant& v : kit::runnable_variants()) {
      if (std::string(v.tag) == "h9") continue;
      const kit::UseVariant use(v);
      FirStream<T> stream(taps);
      const std::vector<T> out = filter_whole(stream, signal);
      if (first.empty()) first = out;
      EXPECT_TRUE(kit::same_bits(out.data(), first.data(), out.size())) << v.tag;
    }
  });
}

}  // namespace
