// The one-call forms of the FIR filter: the handle continues a stream, and is freed whatever became of its Init.
#include "filter/fir_stream.hpp"
#include "kit/variants.hpp"

namespace {

template <class T>
struct HandleOf;
template <>
struct HandleOf<Nox64f> {
  static constexpr auto make = noxsFIRSRInitAlloc_64f_Idx;
  static constexpr auto run = noxsFIRSR_64f_Idx;
  static constexpr auto run_in_place = noxsFIRSR_64f_I_Idx;
  static constexpr auto one = noxsFIROne_64f_Idx;
};
template <>
struct HandleOf<Nox64fc> {
  static constexpr auto make = noxsFIRSRInitAlloc_64fc_Idx;
  static constexpr auto run = noxsFIRSR_64fc_Idx;
  static constexpr auto run_in_place = noxsFIRSR_64fc_I_Idx;
  static constexpr auto one = noxsFIROne_64fc_Idx;
};

class FirHandle : public kit::EachVariant {};
NOX_EACH_VARIANT(FirHandle);

TEST_P(FirHandle, BlocksContinueOneSignal) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    for (const int tapsLen : {1, 2, 9, 50}) {
      const std::vector<T> taps = random_elements<T>(random, static_cast<size_t>(tapsLen));
      constexpr int kFirst = 40, kAll = 133;
      kit::Guarded<T> src(kAll), expected(kAll), out(kAll), data(kAll);
      random.fill(src);
      FirStream<T>(taps).run(src.data(), expected.data(), kAll, nullptr, nullptr);
      const auto make = [&] {
        NoxFilterHandle* handle = nullptr;
        // The taps' base lies three elements behind them, out of the array.
        EXPECT_EQ(noxStsNoErr, kit::call(HandleOf<T>::make, taps.data() + 3, -3, tapsLen, NOX_ALG_DIRECT, &handle));
        return handle;
      };
      NoxFilterHandle* handle = make();
      // Base and index of the second half meet in the middle of the arrays.
      EXPECT_EQ(noxStsNoErr, kit::call(HandleOf<T>::run, src.data(), 0, out.data() + 7, -7, kFirst, handle));
      EXPECT_EQ(noxStsNoErr, kit::call(HandleOf<T>::run, src.data() + kAll, kFirst - kAll, out.data(), kFirst,
                                       kAll - kFirst, handle));
      EXPECT_TRUE(kit::same_bits(out.data(), expected.data(), kAll));
      kit::call(noxsFIRSRFree_Idx, handle);

      handle = make();
      data.fill(src.values());
      for (int done = 0; done < kAll; ++done)
        EXPECT_EQ(noxStsNoErr, kit::call(HandleOf<T>::run_in_place, data.data() + 1, done - 1, 1, handle));
      EXPECT_TRUE(kit::same_bits(data.data(), expected.data(), kAll));
      EXPECT_EQ(noxStsSizeErr, kit::call(HandleOf<T>::run, src.data(), 0, out.data(), 0, 0, handle));
      EXPECT_EQ(noxStsNullPtrErr, kit::call(HandleOf<T>::run, nullptr, 0, out.data(), 0, 1, handle));
      kit::call(noxsFIRSRFree_Idx, handle);
    }
  });
}

TEST_P(FirHandle, OneSampleAtATime) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    constexpr int kPast = 10, kAll = 35;
    FirStream<T> stream(random_elements<T>(random, kPast + 1), 3);
    kit::Guarded<T> src(kAll), expected(kAll), out(kAll), line(kPast), next(kPast);
    random.fill(src);
    stream.run(src.data(), expected.data(), kAll, nullptr, nullptr);
    Nox8u* const work = stream.work();
    // The first sample starts from no line; afterwards one array is read and written, or two by turns.
    const auto one = [&](int i, const T* from, int fromIdx, T* to, int toIdx) {
      return kit::call(HandleOf<T>::one, src[static_cast<size_t>(i)], &out[static_cast<size_t>(i)], stream.spec(), from,
                       fromIdx, to, toIdx, work + 5, -5);
    };
    EXPECT_EQ(noxStsNoErr, one(0, nullptr, 12345, line.data() - 2, 2));
    for (int i = 1; i < 20; ++i) EXPECT_EQ(noxStsNoErr, one(i, line.data() + 1, -1, line.data(), 0));
    for (int i = 20; i < kAll; ++i) {
      T* const from = i % 2 ? next.data() : line.data();
      T* const to = i % 2 ? line.data() : next.data();
      EXPECT_EQ(noxStsNoErr, one(i, from, 0, to, 0));
    }
    EXPECT_TRUE(kit::same_bits(out.data(), expected.data(), kAll));
    // No line wanted, whatever the index.
    T y{};
    EXPECT_EQ(noxStsNoErr, kit::call(HandleOf<T>::one, src[0], &y, stream.spec(), nullptr, 7, nullptr, -7, work, 0));
    EXPECT_TRUE(kit::same_bits(&y, expected.data(), 1));
    EXPECT_EQ(noxStsNullPtrErr,
              kit::call(HandleOf<T>::one, src[0], &y, stream.spec(), nullptr, 0, nullptr, 0, nullptr, 64));
  });
}

TEST_P(FirHandle, DeliveredAndFreedWhateverTheInitSays) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    const T taps[1] = {};
    const struct {
      const T* taps;
      int tapsLen, algType;
      NoxStatus status;
    } cases[] = {{taps, 0, NOX_ALG_DIRECT, noxStsSizeErr},
                 {taps, -5, NOX_ALG_DIRECT, noxStsSizeErr},
                 {nullptr, 1, NOX_ALG_DIRECT, noxStsNullPtrErr},
                 {taps, 1, 3, noxStsAlgTypeErr},
                 // No memory of that size: the sizes are 0, the spec is null.
                 {taps, INT32_MAX, NOX_ALG_DIRECT, noxStsNullPtrErr}};
    for (const auto& c : cases) {
      NoxFilterHandle* handle = nullptr;
      EXPECT_EQ(c.status, kit::call(HandleOf<T>::make, c.taps, 0, c.tapsLen, c.algType, &handle));
      EXPECT_NE(nullptr, handle);
      kit::call(noxsFIRSRFree_Idx, handle);
    }
    kit::call(noxsFIRSRFree_Idx, nullptr);
  });
}

}  // namespace
