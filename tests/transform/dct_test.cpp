// The cosine transform: against its definition on all of its ways, in place, in the memory it asks for, its statuses.
#include <algorithm>
#include <cmath>

#include "kit/lengths.hpp"
#include "kit/variants.hpp"
#include "reference/dct.hpp"
#include "transform/dct_case.hpp"

namespace {

using kit::Edge;
using kit::Guarded;

class Dct : public kit::EachVariant {};
NOX_EACH_VARIANT(Dct);

// All of the short lengths, then neighbours of powers of two, primes and round numbers: the chirp is run for even and
// odd lengths, with an even and an odd half.
std::vector<int> lengths() {
  std::vector<int> all;
  for (int n = 1; n <= 70; ++n) all.push_back(n);
  for (const int n : {90, 92, 96, 100, 127, 128, 255, 256, 257, 512}) all.push_back(n);
  if (!kit::quick())
    for (const int n : {997, 1000, 1023, 1024, 2050, 4096}) all.push_back(n);
  return all;
}

// The largest error, in units of the root mean square of the outputs: a Fourier transform spreads its rounding evenly.
double relative_error(const std::vector<Nox64f>& out, const std::vector<long double>& expected) {
  long double worst = 0, square = 0;
  for (size_t i = 0; i < out.size(); ++i) {
    worst = std::max(worst, std::fabs(expected[i] - static_cast<long double>(out[i])));
    square += expected[i] * expected[i];
  }
  return static_cast<double>(worst / std::sqrt(square / static_cast<long double>(out.size())));
}

// Nearly twice what random data showed under all builds. Sums of rounding errors grow with the root of the logarithm of
// the length; the direct sum's with that of the length.
double bound(int n) { return 0x1p-53 * (n < 46 ? 24.0 : 12.0 + 4.0 * std::log2(n)); }

TEST_P(Dct, AgreesWithTheDefinition) {
  kit::Random random;
  size_t place = 0;
  for (const int len : lengths()) {
    const size_t n = static_cast<size_t>(len);
    const std::vector<long double> cosines = reference::dct_cosines(n);
    for (const bool inverse : {false, true}) {
      ++place;
      DctCase dct(inverse ? kDctInverse : kDctForward, len, place);
      const Edge edge = place & 8 ? Edge::Start : Edge::End;
      Guarded<Nox64f> src(n, edge, place % 5 * 4), dst(n, edge, place % 3 * 8);
      random.fill(src);
      const std::vector<Nox64f> given = src.values();
      std::vector<long double> expected(n);
      for (size_t i = 0; i < n; ++i)
        expected[i] = inverse ? reference::dct_inverse(given, i, cosines) : reference::dct_forward(given, i, cosines);
      dct.run(src.data(), dst.data());
      EXPECT_LE(relative_error(dst.values(), expected), bound(len)) << len << (inverse ? " inverse" : " forward");
      EXPECT_TRUE(kit::same_bits(src.data(), given.data(), n)) << "the source was written";
      // In place, by both functions, at the place of the destination.
      Guarded<Nox64f> data(given, edge, place % 3 * 8);
      dct.run_in_place(data.data());
      EXPECT_TRUE(kit::same_bits(data.data(), dst.data(), n)) << len << " in place";
      data.fill(given);
      dct.run(data.data(), data.data());
      EXPECT_TRUE(kit::same_bits(data.data(), dst.data(), n)) << len << " in place";
    }
  }
}

// Long lengths are beyond the definition's reach; what comes back tells nearly as much, and single waves the rest.
TEST_P(Dct, LongLengthsComeBack) {
  kit::Random random;
  std::vector<int> lens{6000, 1 << 14};
  if (!kit::quick()) lens.insert(lens.end(), {20011, 1 << 17, 75000});
  for (const int len : lens) {
    const size_t n = static_cast<size_t>(len);
    DctCase forward(kDctForward, len, n), inverse(kDctInverse, len, n + 3);
    std::vector<Nox64f> x(n);
    random.fill(x);
    const std::vector<Nox64f> back = inverse(forward(x));
    EXPECT_LE(relative_error(back, {x.begin(), x.end()}), 2 * bound(len)) << len;
    for (const size_t k : {size_t{1}, n / 3, n - 1}) {
      std::vector<Nox64f> one(n), wave(n);
      one[k] = 1;
      const long double step = std::acos(-1.0L) / (2 * static_cast<long double>(n));
      for (size_t i = 0; i < n; ++i) {
        const auto angle = static_cast<long double>((2 * uint64_t{i} + 1) * k % (4 * uint64_t{n}));
        wave[i] = static_cast<Nox64f>(std::cos(angle * step) * reference::dct_scale(n, k));
      }
      EXPECT_LE(relative_error(inverse(one), {wave.begin(), wave.end()}), bound(len)) << len << " wave " << k;
    }
  }
}

TEST_P(Dct, OneElementIsCopied) {
  for (const DctFunctions& f : {kDctForward, kDctInverse}) {
    DctCase dct(f, 1);
    for (const Nox64f x : {-0.0, 5e-324, 1e308, -HUGE_VAL}) EXPECT_TRUE(kit::same_bits(dct({x}).data(), &x, 1));
  }
}

TEST_P(Dct, SizesOfTheWays) {
  const struct {
    int len, spec, work;  // where no Fourier transform takes part
  } known[] = {{1, 144, 0}, {2, 144, 0}, {4, 144, 0}, {8, 144, 0}, {3, 288, 88}, {45, 1632, 424}};
  for (const auto& k : known) {
    const DctSizes sizes = dct_sizes(kDctForward, k.len);
    EXPECT_EQ(k.spec, sizes.spec) << k.len;
    EXPECT_EQ(0, sizes.init) << k.len;
    EXPECT_EQ(k.work, sizes.work) << k.len;
  }
  for (const int len : {1, 3, 16, 45, 46, 47, 64, 1000, 4096, 1 << 20, 1 << 26, 0xFFFFFF}) {
    const DctSizes forward = dct_sizes(kDctForward, len), inverse = dct_sizes(kDctInverse, len);
    EXPECT_EQ(forward.spec, inverse.spec) << len;
    EXPECT_EQ(forward.init, inverse.init) << len;
    EXPECT_EQ(forward.work, inverse.work) << len;
    EXPECT_GE(forward.spec, 144) << len;
    EXPECT_GE(forward.init, 0) << len;
    EXPECT_GE(forward.work, 0) << len;
  }
}

TEST_P(Dct, StatusesInTheirOrder) {
  for (const DctFunctions& f : {kDctForward, kDctInverse}) {
    int spec = 77, init = 77, work = 77;
    EXPECT_EQ(noxStsSizeErr, kit::call(f.get_size, 0, 0, nullptr, &init, &work));
    EXPECT_EQ(noxStsSizeErr, kit::call(f.get_size, INT32_MIN, 0, &spec, &init, &work));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(f.get_size, INT32_MAX, 0, nullptr, &init, &work));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(f.get_size, 8, 0, &spec, nullptr, &work));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(f.get_size, 8, 0, &spec, &init, nullptr));
    for (const int len : {0x1000000 + 1, INT32_MAX, 1 << 27, 1 << 30})
      EXPECT_EQ(noxStsSizeErr, kit::call(f.get_size, len, 0, &spec, &init, &work)) << len;
    EXPECT_EQ(77 * 3, spec + init + work);

    NoxDctSpec* made = nullptr;
    Guarded<Nox8u> memory(static_cast<size_t>(dct_sizes(f, 1000).spec));
    EXPECT_EQ(noxStsSizeErr, kit::call(f.init, nullptr, 0, 0, nullptr, nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(f.init, nullptr, INT32_MAX, 0, memory.data(), nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(f.init, &made, INT32_MAX, 0, nullptr, nullptr));
    for (const int len : {0x1FFFFFF + 1 + 1, INT32_MAX, 1 << 27, 1 << 30})
      EXPECT_EQ(noxStsSizeErr, kit::call(f.init, &made, len, 0, memory.data(), nullptr)) << len;
    EXPECT_EQ(noxStsNullPtrErr, kit::call(f.init, &made, 1000, 0, memory.data(), nullptr));
    EXPECT_EQ(nullptr, made);
  }
}

TEST_P(Dct, ASpecServesItsDirectionOnly) {
  for (const int len : {8, 20, 64, 100}) {
    std::vector<Nox64f> x(static_cast<size_t>(len), 1.0);
    const std::vector<Nox64f> before = x;
    DctCase forward(kDctForward, len), inverse(kDctInverse, len);
    const NoxDctSpec* const other = inverse.spec();
    Nox64f* const data = x.data();
    EXPECT_EQ(noxStsContextMatchErr, kit::call(noxsDCTFwd_64f, data, data, other, nullptr));
    EXPECT_EQ(noxStsContextMatchErr, kit::call(noxsDCTFwd_64f_I, data, other, nullptr));
    EXPECT_EQ(noxStsContextMatchErr, kit::call(noxsDCTInv_64f, data, data, forward.spec(), nullptr));
    EXPECT_EQ(noxStsContextMatchErr, kit::call(noxsDCTInv_64f_I, data, forward.spec(), nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsDCTFwd_64f, nullptr, data, other, nullptr));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsDCTInv_64f, data, nullptr, forward.spec(), nullptr));
    if (forward.work()) {
      EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsDCTFwd_64f, data, data, forward.spec(), nullptr));
      EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsDCTInv_64f_I, data, other, nullptr));
    }
    EXPECT_TRUE(kit::same_bits(x.data(), before.data(), x.size())) << "written on an error";
  }
}

}  // namespace
