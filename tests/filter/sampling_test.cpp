// The samplers up and down: every phase, every kernel, streams in blocks, statuses.
#include <algorithm>

#include "filter/fir_stream.hpp"
#include "kit/variants.hpp"

namespace {

using kit::Guarded;

template <class T>
struct SamplerOf;
template <>
struct SamplerOf<Nox64f> {
  static constexpr auto up = noxsSampleUp_64f, down = noxsSampleDown_64f;
  static constexpr auto up_index = noxsSampleUp_64f_Idx, down_index = noxsSampleDown_64f_Idx;
};
template <>
struct SamplerOf<Nox64fc> {
  static constexpr auto up = noxsSampleUp_64fc, down = noxsSampleDown_64fc;
  static constexpr auto up_index = noxsSampleUp_64fc_Idx, down_index = noxsSampleDown_64fc_Idx;
};

class Sampling : public kit::EachVariant {};
NOX_EACH_VARIANT(Sampling);

TEST_P(Sampling, EveryLengthFactorAndPhase) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    size_t aside = 0;
    for (const int factor : {1, 2, 3, 4, 7, 60, 20000}) {
      for (const int len : {1, 2, 3, 4, 5, 8, 13, 47, 48, 49, 100}) {
        for (const int phase : {0, 1, factor / 2, factor - 1}) {
          if (phase >= factor || (factor > 60 && len > 3)) continue;
          aside = (aside + 1) % 16;
          Guarded<T> src(static_cast<size_t>(len), aside & 1 ? kit::Edge::Start : kit::Edge::End, aside);
          random.fill_bits(src);
          std::vector<T> kept;
          for (int i = phase; i < len; i += factor) kept.push_back(src[static_cast<size_t>(i)]);
          Guarded<T> down(kept.size(), kit::Edge::End, aside);
          int n = -1, at = phase;
          ASSERT_EQ(noxStsNoErr, kit::call(SamplerOf<T>::down, src.data(), len, down.data(), &n, factor, &at));
          ASSERT_EQ(static_cast<int>(kept.size()), n) << factor << ' ' << len << ' ' << phase;
          ASSERT_TRUE(kit::same_bits(down.data(), kept.data(), kept.size())) << factor << ' ' << len << ' ' << phase;
          ASSERT_EQ(factor == 1 ? 0 : phase + n * factor - len, at) << factor << ' ' << len;

          std::vector<T> spread(src.size() * static_cast<size_t>(factor));
          for (size_t i = 0; i < src.size(); ++i)
            spread[i * static_cast<size_t>(factor) + static_cast<size_t>(phase)] = src[i];
          Guarded<T> up(spread.size(), kit::Edge::Start, aside);
          at = phase;
          ASSERT_EQ(noxStsNoErr, kit::call(SamplerOf<T>::up, src.data(), len, up.data(), &n, factor, &at));
          ASSERT_EQ(static_cast<int>(spread.size()), n);
          ASSERT_EQ(phase, at);
          ASSERT_TRUE(kit::same_bits(up.data(), spread.data(), spread.size())) << factor << ' ' << len << ' ' << phase;
        }
      }
    }
  });
}

TEST_P(Sampling, BlocksContinueAStream) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    const std::vector<T> signal = random_elements<T>(random, 500);
    for (const int factor : {1, 2, 3, 50}) {
      std::vector<T> out;
      int phase = 0;
      for (size_t done = 0; done < signal.size();) {
        const size_t block = std::min(signal.size() - done, static_cast<size_t>(random.integer(1, 60)));
        const int at = static_cast<int>(done), len = static_cast<int>(block), before = phase;
        Guarded<T> part(block), spread(block * static_cast<size_t>(factor));
        int n = -1, same = before;
        EXPECT_EQ(noxStsNoErr,
                  kit::call(SamplerOf<T>::up_index, signal.data(), at, len, spread.data() + 3, -3, &n, factor, &same));
        EXPECT_TRUE(kit::same_bits(&spread[static_cast<size_t>(before)], &signal[done], 1));
        EXPECT_EQ(noxStsNoErr,
                  kit::call(SamplerOf<T>::down_index, signal.data(), at, len, part.data() - 2, 2, &n, factor, &phase));
        out.insert(out.end(), part.begin(), part.begin() + n);
        done += block;
      }
      for (size_t j = 0; j * static_cast<size_t>(factor) < signal.size(); ++j)
        ASSERT_TRUE(kit::same_bits(&out[j], &signal[j * static_cast<size_t>(factor)], 1)) << factor;
      EXPECT_EQ((signal.size() - 1) / static_cast<size_t>(factor) + 1, out.size());
    }
  });
}

TEST_P(Sampling, StatusesInTheirOrder) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    T x[4] = {}, y[4];
    for (const auto sample : {SamplerOf<T>::up, SamplerOf<T>::down}) {
      int n = 77, good = 0, bad = 2;
      EXPECT_EQ(noxStsNullPtrErr, kit::call(sample, x, 0, y, &n, 0, nullptr));
      EXPECT_EQ(noxStsSizeErr, kit::call(sample, x, 0, y, &n, 0, &bad));
      EXPECT_EQ(noxStsSampleFactorErr, kit::call(sample, x, 2, y, &n, 0, &bad));
      EXPECT_EQ(noxStsSampleFactorErr, kit::call(sample, x, 2, y, &n, INT32_MIN, &good));
      EXPECT_EQ(noxStsSamplePhaseErr, kit::call(sample, x, 2, y, &n, 2, &bad));
      bad = -1;
      EXPECT_EQ(noxStsSamplePhaseErr, kit::call(sample, x, 2, y, &n, 2, &bad));
      EXPECT_EQ(77, n);
      EXPECT_EQ(-1, bad);
    }
  });
}

}  // namespace
