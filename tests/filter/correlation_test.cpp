// Correlations: against their definitions by every method and norm, at any lags, and their statuses.
#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "filter/fir_stream.hpp"
#include "kit/lengths.hpp"
#include "kit/variants.hpp"
#include "reference/correlation.hpp"

namespace {

using kit::Guarded;

class Correlation : public kit::EachVariant {};
NOX_EACH_VARIANT(Correlation);

constexpr int kLowest = std::numeric_limits<int>::min(), kMost = std::numeric_limits<int>::max();
constexpr int kMethods[] = {NOX_ALG_AUTO, NOX_ALG_DIRECT, NOX_ALG_FFT};
constexpr int kNorms[] = {NOX_NORM_NONE, NOX_NORM_A, NOX_NORM_B};

template <class T>
constexpr bool kReal = std::is_same_v<T, Nox64f>;
template <class T>
constexpr auto kAuto = noxsAutoCorrNorm_64f;
template <>
constexpr auto kAuto<Nox64fc> = noxsAutoCorrNorm_64fc;
template <class T>
constexpr auto kCross = noxsCrossCorrNorm_64f;
template <>
constexpr auto kCross<Nox64fc> = noxsCrossCorrNorm_64fc;

kit::Edge edge_of(size_t place) { return place & 1 ? kit::Edge::Start : kit::Edge::End; }

int auto_size(int srcLen, int dstLen, int type, int algType) {
  int size = -1;
  EXPECT_EQ(noxStsNoErr, kit::call(noxsAutoCorrNormGetBufferSize, srcLen, dstLen, type, algType, &size));
  return size;
}
int cross_size(int aLen, int bLen, int dstLen, int lowLag, int type, int algType) {
  int size = -1;
  EXPECT_EQ(noxStsNoErr, kit::call(noxsCrossCorrNormGetBufferSize, aLen, bLen, dstLen, lowLag, type, algType, &size));
  return size;
}

TEST_P(Correlation, OfOneArrayAgreesWithTheDefinition) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    size_t place = 0;
    for (const int srcLen : {1, 2, 3, 5, 8, 27, 28, 33, 64, 150, 300}) {
      if (kit::quick() && srcLen > 64) break;
      const std::vector<T> x = random_elements<T>(random, static_cast<size_t>(srcLen));
      const long double largest = reference::largest_sum(x, x);
      for (const int dstLen : {1, srcLen / 2 + 1, srcLen, srcLen + 9})
        for (const int algType : kMethods)
          for (const int norm : kNorms) {
            const int size = auto_size(srcLen, dstLen, FirOf<T>::kType, algType | norm);
            const kit::Edge edge = edge_of(++place);
            const Guarded<T> src(x, edge, place * 3 % 32);
            Guarded<T> dst(static_cast<size_t>(dstLen), edge, place * 5 % 32);
            Guarded<Nox8u> buffer(static_cast<size_t>(size), edge, place % 64);
            ASSERT_EQ(noxStsNoErr, kit::call(kAuto<T>, src.data(), srcLen, dst.data(), dstLen, algType | norm | 0x30000,
                                             buffer.data()));
            for (int k = 0; k < dstLen; ++k) {
              const long double whole = kReal<T> ? Nox64f(1.0f / Nox32f(srcLen)) : 1.0L / srcLen;
              const long double factor = norm == NOX_NORM_A                 ? whole
                                         : norm == NOX_NORM_B && k < srcLen ? 1.0L / (srcLen - k)
                                                                            : 1;
              ASSERT_TRUE(reference::is_sum(dst[static_cast<size_t>(k)], reference::correlated(x, x, k), factor,
                                            size == 64 || k >= srcLen, largest))
                  << "lag " << k << " of " << srcLen << " elements, algType " << (algType | norm);
            }
          }
    }
  });
}

template <class T>
void check_cross(const std::vector<T>& a, const std::vector<T>& b, int dstLen, int lowLag, int algType, size_t place) {
  SCOPED_TRACE(testing::Message() << a.size() << " and " << b.size() << " elements, " << dstLen << " lags from "
                                  << lowLag << ", algType " << algType);
  const int aLen = static_cast<int>(a.size()), bLen = static_cast<int>(b.size());
  const int size = cross_size(aLen, bLen, dstLen, lowLag, FirOf<T>::kType, algType), norm = algType & 0xFF00;
  const Guarded<T> first(a, edge_of(place), place * 3 % 32), second(b, edge_of(place), place * 5 % 32);
  Guarded<T> dst(static_cast<size_t>(dstLen), edge_of(place), place * 7 % 32);
  Guarded<Nox8u> buffer(static_cast<size_t>(size), edge_of(place), place % 64);
  ASSERT_EQ(noxStsNoErr, kit::call(kCross<T>, first.data(), aLen, second.data(), bLen, dst.data(), dstLen, lowLag,
                                   algType, size == 64 ? nullptr : buffer.data()));
  const long double largest = reference::largest_sum(a, b);
  for (int i = 0; i < dstLen; ++i) {
    const reference::Sum sum = reference::correlated(a, b, int64_t{lowLag} + i);
    const long double factor = norm == NOX_NORM_A                    ? 1.0L / std::min(aLen, bLen)
                               : norm == NOX_NORM_B && sum.terms > 0 ? 1.0L / sum.terms
                                                                     : 1;
    ASSERT_TRUE(reference::is_sum(dst[static_cast<size_t>(i)], sum, factor, size == 64 || sum.terms == 0, largest))
        << "output " << i;
  }
}

TEST_P(Correlation, OfTwoArraysAgreesWithTheDefinition) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    size_t place = 0;
    for (int round = 0; round < (kit::quick() ? 5 : 80); ++round) {
      const int most = round % 3 == 0 ? 10 : 90;
      const int shorter = static_cast<int>(random.integer(1, most));
      const int longer = shorter + static_cast<int>(random.integer(0, round % 4 == 0 ? 9 * shorter : most));
      std::vector<T> a = random_elements<T>(random, static_cast<size_t>(shorter));
      std::vector<T> b = random_elements<T>(random, static_cast<size_t>(longer));
      if (random.chance(0.5)) std::swap(a, b);
      const int aLen = static_cast<int>(a.size()), all = shorter + longer - 1;
      // The whole correlation, more than it, and a stretch that begins and ends anywhere.
      const int from = static_cast<int>(random.integer(-aLen - 9, all - aLen + 9));
      const int some = static_cast<int>(random.integer(1, all));
      for (const int algType : kMethods)
        for (const int norm : kNorms) {
          check_cross(a, b, all, 1 - aLen, algType | norm, ++place);
          check_cross(a, b, all + 12, -aLen - 5, algType | norm, ++place);
          check_cross(a, b, some, from, algType | norm, ++place);
          if (testing::Test::HasFailure()) return;
        }
    }
    if (kit::quick()) return;
    const std::vector<T> x = random_elements<T>(random, 700), y = random_elements<T>(random, 50);
    for (const int algType : kMethods) {
      check_cross(x, y, 749, -699, algType | NOX_NORM_B, ++place);
      check_cross(y, x, 500, 101, algType | NOX_NORM_B, ++place);
    }
  });
}

TEST_P(Correlation, LagsBesideTheArraysAreZeros) {
  const std::vector<Nox64f> x(8, 1.0), zeros(6, 0.0);
  for (const int lowLag : {kLowest, -13, 8, kMost}) {
    std::vector<Nox64f> d(6, 7.0);
    // No lag has a term, so nothing is normalised, and no buffer is needed.
    EXPECT_EQ(noxStsNoErr,
              noxsCrossCorrNorm_64f(x.data(), 8, x.data(), 8, d.data(), 6, lowLag, NOX_ALG_FFT | 0x700, nullptr));
    EXPECT_TRUE(kit::same_bits(d.data(), zeros.data(), 6)) << lowLag;
    EXPECT_EQ(cross_size(8, 8, 6, lowLag, NOX_TYPE_64F, NOX_ALG_FFT), 64);
  }
}

TEST_P(Correlation, RefusesTheNormLast) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    const std::vector<T> x = random_elements<T>(random, 40);
    std::vector<Nox8u> buffer(static_cast<size_t>(auto_size(40, 40, FirOf<T>::kType, NOX_ALG_FFT)) * 4);
    for (const int algType : {NOX_ALG_DIRECT, NOX_ALG_FFT})
      for (const int norm : {0x300, 0xFF00}) {
        T plain[40], late[40];
        ASSERT_EQ(noxStsNoErr, kAuto<T>(x.data(), 40, plain, 40, algType, buffer.data()));
        EXPECT_EQ(noxStsAlgTypeErr, kAuto<T>(x.data(), 40, late, 40, algType | norm, buffer.data()));
        EXPECT_TRUE(kit::same_bits(plain, late, 40));
        ASSERT_EQ(noxStsNoErr, kCross<T>(x.data(), 40, x.data(), 30, plain, 40, -20, algType, buffer.data()));
        EXPECT_EQ(noxStsAlgTypeErr,
                  kCross<T>(x.data(), 40, x.data(), 30, late, 40, -20, algType | norm, buffer.data()));
        EXPECT_TRUE(kit::same_bits(plain, late, 40));
      }
    T untouched[4];
    std::fill_n(untouched, 4, x[0]);
    EXPECT_EQ(noxStsAlgTypeErr, kAuto<T>(x.data(), 40, untouched, 4, 0x103, buffer.data()));
    EXPECT_EQ(noxStsAlgTypeErr, kCross<T>(x.data(), 40, x.data(), 30, untouched, 4, 0, 0x103, nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kCross<T>(x.data(), 40, x.data(), 30, untouched, 4, -41, NOX_ALG_FFT, nullptr));
    EXPECT_EQ(noxStsFftOrderErr, kCross<T>(x.data(), kMost, x.data(), kMost, untouched, 4, 0, 1, buffer.data()));
    for (const T& value : untouched) EXPECT_TRUE(kit::same_bits(&value, x.data(), 1));
  });
}

TEST_P(Correlation, QueriesTellMethodAndLength) {
  const bool h9 = std::string(GetParam().tag) == "h9";
  const struct {
    int type, from;
  } kAutoFrom[] = {{NOX_TYPE_32F, h9 ? 1200 : 856},
                   {NOX_TYPE_64F, h9 ? 1200 : 856},
                   {NOX_TYPE_32FC, h9 ? 128 : 152},
                   {NOX_TYPE_64FC, h9 ? 128 : 368}};
  for (const auto& c : kAutoFrom) {
    EXPECT_EQ(auto_size(c.from - 1, 5000, c.type, NOX_NORM_B), 64);
    EXPECT_EQ(auto_size(5000, c.from - 1, c.type, NOX_ALG_AUTO), 64);
    EXPECT_GT(auto_size(c.from, c.from, c.type, NOX_ALG_AUTO), 64);
  }
  const struct {
    int type, from;
  } kCrossFrom[] = {{NOX_TYPE_32F, 384}, {NOX_TYPE_64F, 512}, {NOX_TYPE_32FC, 256}, {NOX_TYPE_64FC, 512}};
  for (const auto& c : kCrossFrom) {
    EXPECT_EQ(cross_size(1000, 500, 2 * c.from - 1, -999, c.type, NOX_ALG_AUTO), 64);
    EXPECT_GT(cross_size(1000, 500, 2 * c.from, -999, c.type, NOX_ALG_AUTO), 64);
    // Lags without a term don't count.
    EXPECT_EQ(cross_size(1000, 500, 4 * c.from, -1000 - 2 * c.from, c.type, NOX_ALG_AUTO), 64);
  }
  // The transform's length, by what two types of data need.
  const auto points = [](int wide, int narrow, int bytes) { return (wide - narrow) / bytes; };
  const auto auto_points = [&](int len) {
    return points(auto_size(len, 1, NOX_TYPE_64F, 2), auto_size(len, 1, NOX_TYPE_32F, 2), 4);
  };
  const auto cross_points = [&](int a, int b) {
    return points(cross_size(a, b, 1, 0, NOX_TYPE_64FC, 2), cross_size(a, b, 1, 0, NOX_TYPE_32FC, 2), 16);
  };
  EXPECT_EQ(auto_points(128), 256);
  EXPECT_EQ(auto_points(129), 512);
  EXPECT_EQ(points(auto_size(99, 1, NOX_TYPE_64FC, 2), auto_size(99, 1, NOX_TYPE_32FC, 2), 16), 256);
  EXPECT_EQ(cross_points(100, 299), 512);
  EXPECT_EQ(cross_points(129, 2000), 1024);
  EXPECT_EQ(cross_points(384, 128), 512);

  int size = 7;
  EXPECT_EQ(noxStsSizeErr, noxsCrossCorrNormGetBufferSize(1, 1, 0, 0, 99, 0x303, &size));
  for (const int algType : {0x301, 0x401, 0xFF01, 0x103}) {
    EXPECT_EQ(noxStsAlgTypeErr, noxsCrossCorrNormGetBufferSize(1, 1, 1, 0, 99, algType, &size));
    EXPECT_EQ(noxStsAlgTypeErr, noxsAutoCorrNormGetBufferSize(1, 1, 99, algType, &size));
  }
  EXPECT_EQ(size, 7);
  EXPECT_EQ(noxStsDataTypeErr, noxsCrossCorrNormGetBufferSize(1, 1, 1, 0, 15, 0x10001, &size));
  EXPECT_EQ(std::exchange(size, 7), 0);
  EXPECT_EQ(noxStsDataTypeErr, noxsAutoCorrNormGetBufferSize(1, 1, 15, 0x10001, &size));
  EXPECT_EQ(std::exchange(size, 7), 0);
  EXPECT_EQ(noxStsFftOrderErr, noxsAutoCorrNormGetBufferSize(kMost, 1, NOX_TYPE_64FC, 2, &size));
  EXPECT_EQ(std::exchange(size, 7), 0);
  EXPECT_EQ(noxStsFftOrderErr, noxsCrossCorrNormGetBufferSize(kMost, kMost, 1, 0, NOX_TYPE_64F, 1, &size));
  EXPECT_EQ(size, 0);
}

}  // namespace
