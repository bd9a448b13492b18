// Convolution: against its definition by every method, the choice of methods, and what infinities reach.
#include <algorithm>
#include <cmath>
#include <limits>

#include "filter/fir_stream.hpp"
#include "kit/lengths.hpp"
#include "kit/variants.hpp"
#include "reference/correlation.hpp"

namespace {

using kit::Guarded;

class Convolution : public kit::EachVariant {};
NOX_EACH_VARIANT(Convolution);

struct Lengths {
  int first, second;
};
int buffer_size(Lengths l, int algType, int type = NOX_TYPE_64F) {
  int size = -1;
  EXPECT_EQ(noxStsNoErr, kit::call(noxsConvolveGetBufferSize, l.first, l.second, type, algType, &size));
  return size;
}

// The convolution in arrays of exactly their sizes; `place` chooses edges and misalignments.
std::vector<Nox64f> convolve(const std::vector<Nox64f>& a, const std::vector<Nox64f>& b, int algType, size_t place) {
  const Lengths l{static_cast<int>(a.size()), static_cast<int>(b.size())};
  const kit::Edge edge = place & 1 ? kit::Edge::Start : kit::Edge::End;
  const Guarded<Nox64f> first(a, edge, place * 3 % 32), second(b, edge, place * 5 % 32);
  Guarded<Nox64f> dst(a.size() + b.size() - 1, edge, place * 7 % 32);
  Guarded<Nox8u> buffer(static_cast<size_t>(buffer_size(l, algType)), edge, place % 64);
  EXPECT_EQ(noxStsNoErr, kit::call(noxsConvolve_64f, first.data(), l.first, second.data(), l.second, dst.data(),
                                   algType, buffer.data()));
  return dst.values();
}

TEST_P(Convolution, AgreesWithTheDefinition) {
  kit::Random random;
  std::vector<Lengths> lengths{{192, 64}, {64, 191}};
  if (!kit::quick()) lengths = {{70, 61}, {256, 256}, {449, 64}, {64, 450}, {191, 64}, {192, 64}, {500, 65}, {900, 20}};
  for (int i = kit::quick() ? 7 : 1; i <= 37; i += kit::quick() ? 9 : 4)
    for (int j = 1; j <= i + 30; j += kit::quick() ? 11 : 5) lengths.push_back({i, j});
  size_t place = 0;
  for (const Lengths& l : lengths) {
    const std::vector<Nox64f> a = random_elements<Nox64f>(random, static_cast<size_t>(l.first));
    const std::vector<Nox64f> b = random_elements<Nox64f>(random, static_cast<size_t>(l.second));
    const long double largest = reference::largest_sum(a, b);
    constexpr int kMethods[] = {NOX_ALG_AUTO, NOX_ALG_DIRECT, NOX_ALG_FFT, 0x7F00 | NOX_ALG_DIRECT};
    for (const int algType : kMethods) {
      SCOPED_TRACE(testing::Message() << l.first << " and " << l.second << " elements, algType " << algType);
      const bool direct = buffer_size(l, algType) == 64;
      const std::vector<Nox64f> d = convolve(a, b, algType, ++place);
      if (l.first != l.second) {
        ASSERT_TRUE(kit::same_bits(d.data(), convolve(b, a, algType, place).data(), d.size()));
      }
      for (size_t n = 0; n < d.size(); ++n)
        ASSERT_TRUE(reference::is_sum(d[n], reference::convolved(a, b, static_cast<int64_t>(n)), 1, direct, largest))
            << "output " << n;
    }
  }
}

// Beyond the lengths whose roots of unity are constants.
TEST_P(Convolution, LongTransformsAgreeWithDirectSums) {
  kit::Random random;
  for (const Lengths& l : {Lengths{2500, 2400}, Lengths{1100, 9000}}) {
    const std::vector<Nox64f> a = random_elements<Nox64f>(random, static_cast<size_t>(l.first));
    const std::vector<Nox64f> b = random_elements<Nox64f>(random, static_cast<size_t>(l.second));
    const std::vector<Nox64f> sums = convolve(a, b, NOX_ALG_DIRECT, 2), d = convolve(a, b, NOX_ALG_FFT, 3);
    double largest = 0, error = 0;
    for (size_t n = 0; n < d.size(); ++n) {
      largest = std::max(largest, std::abs(sums[n]));
      error = std::max(error, std::abs(d[n] - sums[n]));
    }
    EXPECT_LE(error, 1e-14 * largest) << l.first << " and " << l.second << " elements";
  }
}

TEST_P(Convolution, ChoosesByTheLengths) {
  // Length of the transform, or 0 for direct sums: it shows in what two types of data need.
  constexpr struct {
    Lengths l;
    int algType, points;
  } kCases[] = {{{256, 256}, NOX_ALG_AUTO, 0},  {{64, 449}, NOX_ALG_AUTO, 256}, {{449, 63}, NOX_ALG_AUTO, 0},
                {{191, 64}, NOX_ALG_FFT, 256},  {{192, 64}, NOX_ALG_FFT, 256},  {{299, 100}, NOX_ALG_FFT, 512},
                {{600, 200}, NOX_ALG_FFT, 1024}, {{599, 200}, NOX_ALG_FFT, 1024}, {{1, 1}, NOX_ALG_FFT, 1},
                {{5000, 128}, NOX_ALG_AUTO, 512}, {{5000, 129}, NOX_ALG_AUTO, 1024}, {{9, 9}, 0x301, 0}};
  for (const auto& c : kCases) {
    const int wide = buffer_size(c.l, c.algType), narrow = buffer_size(c.l, c.algType, NOX_TYPE_32F);
    if (c.points == 0)
      EXPECT_EQ(wide, 64) << c.l.first;
    else
      EXPECT_EQ(wide - narrow, (16 * c.points + 63) / 64 * 64 - (8 * c.points + 63) / 64 * 64) << c.l.first;
  }
}

TEST_P(Convolution, RefusesWhatItCannotDo) {
  constexpr int kMost = std::numeric_limits<int>::max();
  int size = 7;
  EXPECT_EQ(noxStsSizeErr, noxsConvolveGetBufferSize(0, 1, 99, 3, &size));
  EXPECT_EQ(noxStsAlgTypeErr, noxsConvolveGetBufferSize(1, 1, 99, 3, &size));
  EXPECT_EQ(size, 7);
  for (const Lengths& l : {Lengths{1 << 28, 1 << 28}, Lengths{kMost, 1000}, Lengths{kMost, kMost}}) {
    size = 7;
    EXPECT_EQ(noxStsFftOrderErr, noxsConvolveGetBufferSize(l.first, l.second, NOX_TYPE_64F, NOX_ALG_FFT, &size));
    EXPECT_EQ(size, 0);
  }
  size = 7;
  EXPECT_EQ(noxStsDataTypeErr, noxsConvolveGetBufferSize(1, 1, NOX_TYPE_64FC, NOX_ALG_DIRECT, &size));
  EXPECT_EQ(size, 0);
  Nox64f d = 5, one = 1;
  Nox8u buffer[64];
  EXPECT_EQ(noxStsAlgTypeErr, noxsConvolve_64f(&one, 1, &one, 1, &d, 0x103, buffer));
  EXPECT_EQ(noxStsFftOrderErr, noxsConvolve_64f(&one, kMost, &one, kMost, &d, NOX_ALG_DIRECT, buffer));
  EXPECT_EQ(d, 5);
}

TEST_P(Convolution, DirectSumsKeepInfinitiesToTheirOutputs) {
  kit::Random random;
  for (int round = 0; round < (kit::quick() ? 10 : 60); ++round) {
    std::vector<Nox64f> a = random_elements<Nox64f>(random, static_cast<size_t>(random.integer(1, 90)));
    std::vector<Nox64f> b = random_elements<Nox64f>(random, static_cast<size_t>(random.integer(1, 90)));
    const size_t at = static_cast<size_t>(random.integer(0, static_cast<int64_t>(a.size()) - 1));
    a[at] = std::numeric_limits<Nox64f>::infinity();
    const std::vector<Nox64f> d = convolve(a, b, NOX_ALG_DIRECT, static_cast<size_t>(round));
    for (size_t n = 0; n < d.size(); ++n)
      ASSERT_EQ(std::isfinite(d[n]), n < at || n >= at + b.size()) << n << " of " << a.size() << ", " << b.size();
  }
}

}  // namespace
