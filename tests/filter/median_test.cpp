// The sliding median: streams cut at any places against each window by itself, its sizes and statuses, and its one-call
// forms.
#include <gtest/gtest.h>

#include <cmath>

#include "kit/call.hpp"
#include "kit/guarded.hpp"
#include "kit/lengths.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "reference/median.hpp"

namespace {

using kit::Edge;
using kit::Guarded;

template <class T>
struct Forms {
  int type;
  NoxStatus (*run)(const T*, T*, int, int, const T*, T*, Nox8u*);
  NoxStatus (*run_in_place)(T*, int, int, const T*, T*, Nox8u*);
  NoxStatus (*make)(NoxFilterHandle**, int, int);
  NoxStatus (*run_handle)(const T*, int, T*, int, int, NoxFilterHandle*);
  NoxStatus (*run_handle_in_place)(T*, int, int, NoxFilterHandle*);
};
#define FORMS(t, code)                                                                                                 \
  Forms<Nox##t> {                                                                                                      \
    code, noxsFilterMedian_##t, noxsFilterMedian_##t##_I, noxsFilterMedianAlloc_##t##_Idx, noxsFilterMedian_##t##_Idx, \
        noxsFilterMedian_##t##_I_Idx                                                                                   \
  }
template <class T>
T element(const Forms<T>&);
template <class Test>
void for_all_types(Test&& test) {
  const auto traced = [&](const char* name, auto forms) {
    SCOPED_TRACE(name);
    test(forms);
  };
  traced("8u", FORMS(8u, 1));
  traced("16s", FORMS(16s, 7));
  traced("32s", FORMS(32s, 11));
  traced("64f", FORMS(64f, 19));
}

int odd(int maskSize) { return maskSize % 2 == 0 ? maskSize - 1 : maskSize; }
NoxStatus success(int maskSize) { return maskSize % 2 == 0 ? noxStsEvenMedianMaskSize : noxStsNoErr; }
size_t buffer_size(int maskSize, int type) {
  int bytes = -1;
  EXPECT_EQ(success(maskSize), kit::call(noxsFilterMedianGetBufferSize, maskSize, type, &bytes));
  EXPECT_EQ(16 * odd(maskSize), bytes);
  return static_cast<size_t>(bytes);
}

// Few different values, so that windows have equal ones; or any, with NaN where its place is told.
template <class T>
std::vector<T> signal_of(kit::Random& random, size_t n, int m) {
  std::vector<T> v(n);
  const int kind = static_cast<int>(random.integer(0, 2));
  if (kind == 0) random.fill_special(v);
  if (kind == 1) random.fill(v);
  if (kind == 2)
    for (T& x : v) x = static_cast<T>(random.integer(0, 9));
  if constexpr (std::is_same_v<T, Nox64f>)
    if (m > 5)
      for (T& x : v) x = std::isnan(x) || x == 0 ? 0.5 : x;
  return v;
}

enum class Way { Apart, OneLine, InPlace, OverDelay };

// Filters a block on guarded arrays, with a buffer of exactly the queried size, and leaves the new line in `line`.
template <class T>
std::vector<T> filter_block(const Forms<T>& f, int maskSize, Way way, const T* samples, size_t n, std::vector<T>& line,
                            size_t aside) {
  const Edge edge = aside & 1 ? Edge::Start : Edge::End;
  const size_t past = line.size();
  Guarded<T> src(n, edge, aside), dst(n, edge, aside * 5 % 16), written(past, edge, aside);
  Guarded<T> read(way == Way::OverDelay ? std::max(n, past) : past, edge, aside);
  Guarded<Nox8u> buffer(buffer_size(maskSize, f.type), edge, aside * 3 % 32);
  std::copy_n(samples, n, src.begin());
  read.fill(line);
  T* const to = way == Way::InPlace ? src.data() : way == Way::OverDelay ? read.data() : dst.data();
  T* const next = way == Way::OneLine ? read.data() : written.data();
  const int len = static_cast<int>(n);
  EXPECT_EQ(success(maskSize), way == Way::InPlace
                                   ? kit::call(f.run_in_place, to, len, maskSize, read.data(), next, buffer.data())
                                   : kit::call(f.run, src.data(), to, len, maskSize, read.data(), next, buffer.data()));
  line.assign(next, next + past);
  return {to, to + n};
}

// The signal without what stands before it, cut at random places; a line of zeros of the filter's own length first.
template <class T>
void check_stream(const Forms<T>& f, int maskSize, Way way, kit::Random& random, size_t turn) {
  const size_t m = static_cast<size_t>(odd(maskSize)), past = m - 1;
  const size_t n =
      static_cast<size_t>(random.integer(1, turn % 3 == 0 ? 30 : 300)) + (turn % 2 ? std::min(m, size_t{300}) : 0);
  const std::vector<T> signal = signal_of<T>(random, past + n, odd(maskSize)), expected = reference::medians(signal, m);
  std::vector<T> line(signal.begin(), signal.begin() + static_cast<std::ptrdiff_t>(past)), out;
  while (out.size() < n) {
    const auto block = static_cast<size_t>(random.integer(1, maskSize < 40 && random.chance(0.5) ? 6 : 300));
    const auto part = filter_block(f, maskSize, way, signal.data() + past + out.size(), std::min(block, n - out.size()),
                                   line, static_cast<size_t>(random.integer(0, 32)));
    out.insert(out.end(), part.begin(), part.end());
  }
  ASSERT_TRUE(kit::same_values(out.data(), expected.data(), n)) << "mask " << maskSize << ", way " << int(way);
  ASSERT_TRUE(kit::same_bits(line.data(), signal.data() + n, past)) << "mask " << maskSize << ", way " << int(way);
}

class FilterMedian : public kit::EachVariant {};
NOX_EACH_VARIANT(FilterMedian);

TEST_P(FilterMedian, AnyCutInAnyWayGivesTheMedians) {
  for_all_types([](auto f) {
    kit::Random random;
    size_t turn = 0;
    for (const int maskSize : {3, 4, 5, 6, 7, 9, 15, 16, 17, 31, 33, 63, 65, 129, 300, 2201})
      for (const Way way : {Way::Apart, Way::OneLine, Way::InPlace, Way::OverDelay})
        for (int times = kit::quick() || maskSize > 40 ? 1 : 4; times > 0; --times)
          check_stream(f, maskSize, way, random, ++turn);
  });
}

TEST_P(FilterMedian, MasksOfOneCopyAndNullLinesRepeatTheFirstSample) {
  for_all_types([](auto f) {
    using T = decltype(element(f));
    kit::Random random;
    for (const int maskSize : {1, 2, 3, 5, 7, 40})
      for (const size_t n : {size_t{1}, size_t{2}, size_t{6}, size_t{90}}) {
        const size_t past = static_cast<size_t>(odd(maskSize) - 1);
        std::vector<T> signal = signal_of<T>(random, past + n, 7);
        std::fill_n(signal.begin(), past, signal[past]);
        const std::vector<T> expected = reference::medians(signal, past + 1);
        Guarded<T> src(n), dst(n), line(std::max(past, size_t{1}));
        const std::vector<T> untouched = line.values();
        Guarded<Nox8u> buffer(buffer_size(maskSize, f.type));
        std::copy(signal.begin() + static_cast<std::ptrdiff_t>(past), signal.end(), src.begin());
        const int len = static_cast<int>(n);
        EXPECT_EQ(success(maskSize),
                  kit::call(f.run, src.data(), dst.data(), len, maskSize, nullptr, line.data(), buffer.data()));
        EXPECT_TRUE(kit::same_bits(dst.data(), expected.data(), n)) << "mask " << maskSize;
        EXPECT_TRUE(kit::same_bits(line.data(), past ? signal.data() + n : untouched.data(), line.size()));
        EXPECT_EQ(success(maskSize),
                  kit::call(f.run_in_place, src.data(), len, maskSize, nullptr, nullptr, buffer.data()));
        EXPECT_TRUE(kit::same_bits(src.data(), expected.data(), n)) << "mask " << maskSize;
      }
  });
}

TEST_P(FilterMedian, NaNHarmsOutputsAlone) {
  kit::Random random;
  const Forms<Nox64f> f = FORMS(64f, 19);
  for (const int maskSize : {7, 15, 31, 301})
    for (const Way way : {Way::Apart, Way::InPlace}) {
      std::vector<Nox64f> signal(500), line(static_cast<size_t>(maskSize - 1));
      random.fill_special(signal);
      random.fill_special(line);
      filter_block(f, maskSize, way, signal.data(), signal.size(), line, 8);
      EXPECT_TRUE(kit::same_bits(line.data(), &*signal.end() - line.size(), line.size()));
    }
}

TEST_P(FilterMedian, StatusesInTheirOrder) {
  for_all_types([](auto f) {
    using T = decltype(element(f));
    T x[4] = {3, 1, 2, 9}, y[4] = {};
    Nox8u buffer[48];
    EXPECT_EQ(noxStsNullPtrErr, kit::call(f.run, nullptr, y, 0, 0, x, y, nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(f.run, x, nullptr, 0, 0, x, y, nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(f.run_in_place, nullptr, 0, 0, x, y, nullptr));
    EXPECT_EQ(noxStsSizeErr, kit::call(f.run, x, y, 0, 0, x, y, nullptr));
    EXPECT_EQ(noxStsMaskSizeErr, kit::call(f.run, x, y, 4, 0, x, y, nullptr));
    EXPECT_EQ(noxStsMaskSizeErr, kit::call(f.run_in_place, y, 4, -3, x, y, buffer));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(f.run, x, y, 4, 1, x, y, nullptr));
    for (const T element : y) EXPECT_EQ(T(0), element);
  });
  int bytes = 7;
  EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsFilterMedianGetBufferSize, 0, 2, nullptr));
  EXPECT_EQ(noxStsMaskSizeErr, kit::call(noxsFilterMedianGetBufferSize, 0, 2, &bytes));
  for (const int type : {-1, 0, 2, 5, 14, 20})
    EXPECT_EQ(noxStsDataTypeErr, kit::call(noxsFilterMedianGetBufferSize, 3, type, &bytes)) << type;
  EXPECT_EQ(7, bytes);
  buffer_size(4, 13);
}

TEST_P(FilterMedian, HandlesContinueOneSignal) {
  for_all_types([](auto f) {
    using T = decltype(element(f));
    kit::Random random;
    for (const int maskSize : {1, 2, 3, 4, 5, 8, 31}) {
      constexpr int kAll = 133, kFirst = 40;
      const size_t past = static_cast<size_t>(odd(maskSize) - 1);
      std::vector<T> signal = signal_of<T>(random, past + kAll, 7);
      std::fill_n(signal.begin(), past, T(0));
      const std::vector<T> expected = reference::medians(signal, past + 1);
      const T* const src = signal.data() + past;
      Guarded<T> out(kAll), data(std::vector<T>(src, src + kAll));
      NoxFilterHandle* handle = nullptr;
      EXPECT_EQ(success(maskSize), kit::call(f.make, &handle, maskSize, 1));
      // Base and index of the second half meet in the middle of the arrays.
      EXPECT_EQ(success(maskSize), kit::call(f.run_handle, src, 0, out.data() + 7, -7, kFirst, handle));
      EXPECT_EQ(success(maskSize),
                kit::call(f.run_handle, src + kAll, kFirst - kAll, out.data(), kFirst, kAll - kFirst, handle));
      EXPECT_TRUE(kit::same_bits(out.data(), expected.data(), kAll)) << "mask " << maskSize;
      EXPECT_EQ(noxStsSizeErr, kit::call(f.run_handle, src, 0, out.data(), 0, 0, handle));
      kit::call(noxsFilterMedianFree_Idx, handle);
      EXPECT_EQ(success(maskSize), kit::call(f.make, &handle, maskSize, -5));
      for (int done = 0; done < kAll; done += 19)
        EXPECT_EQ(success(maskSize), kit::call(f.run_handle_in_place, data.data() + 1, done - 1, 19, handle));
      EXPECT_TRUE(kit::same_bits(data.data(), expected.data(), kAll)) << "mask " << maskSize;
      kit::call(noxsFilterMedianFree_Idx, handle);
    }
    // Handles that can't be run are freed like others.
    NoxFilterHandle* handle = nullptr;
    EXPECT_EQ(noxStsMaskSizeErr, kit::call(f.make, &handle, 0, 1));
    kit::call(noxsFilterMedianFree_Idx, handle);
    EXPECT_EQ(noxStsNoErr, kit::call(f.make, &handle, 5, 0));
    kit::call(noxsFilterMedianFree_Idx, handle);
    kit::call(noxsFilterMedianFree_Idx, nullptr);
  });
}

}  // namespace
