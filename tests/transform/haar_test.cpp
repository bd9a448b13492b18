// The Haar transform and its inverse, bit for bit their few operations, at every length and place.
#include <gtest/gtest.h>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "vector/places.hpp"

namespace {

using kit::Guarded;

class Haar : public kit::EachVariant {};
NOX_EACH_VARIANT(Haar);

struct Bands {
  std::vector<Nox64f> low, high;
};
Bands split(const std::vector<Nox64f>& x) {
  Bands out;
  for (size_t i = 0; i + 1 < x.size(); i += 2) {
    out.high.push_back((x[i + 1] - x[i]) * 0.5);
    out.low.push_back(out.high.back() + x[i]);
  }
  if (x.size() % 2) out.low.push_back(x.back());
  return out;
}
std::vector<Nox64f> join(const Bands& b) {
  std::vector<Nox64f> out;
  for (size_t k = 0; k < b.high.size(); ++k) {
    out.push_back(b.low[k] - b.high[k]);
    out.push_back(b.high[k] + b.low[k]);
  }
  if (b.low.size() > b.high.size()) out.push_back(b.low.back());
  return out;
}

// Ordinary numbers, in which a fused product or another order would show, or every other one remarkable.
std::vector<Nox64f> data(kit::Random& random, size_t n, size_t turn) {
  std::vector<Nox64f> out(n);
  if (turn & 1)
    random.fill(out);
  else
    random.fill_special(out);
  return out;
}

// The bands have exactly their elements: of one element, the high band has none, and one written faults.
TEST_P(Haar, Forward) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64f), [&](size_t n, const Place& place, size_t turn) {
    const int len = static_cast<int>(n);
    const std::vector<Nox64f> x = data(random, n, turn);
    const Bands expected = split(x);
    Guarded<Nox64f> src(x, place.edge, place.first), low((n + 1) / 2, place.edge, place.dst),
        high(n / 2, place.edge, place.second);
    ASSERT_EQ(noxStsNoErr, kit::call(noxsWTHaarFwd_64f, src.data(), len, low.data(), high.data()));
    ASSERT_TRUE(kit::same_values(low.data(), expected.low.data(), low.size())) << "low band of " << n;
    ASSERT_TRUE(kit::same_values(high.data(), expected.high.data(), high.size())) << "high band of " << n;
    ASSERT_TRUE(kit::same_bits(src.data(), x.data(), n)) << "the source was written";
    // A band over the source leaves the elements behind it alone.
    const auto rest_is_kept = [&](size_t from) { return kit::same_bits(src.data() + from, x.data() + from, n - from); };
    ASSERT_EQ(noxStsNoErr, kit::call(noxsWTHaarFwd_64f, src.data(), len, src.data(), high.data()));
    ASSERT_TRUE(kit::same_values(src.data(), expected.low.data(), low.size())) << "low band over the source, of " << n;
    ASSERT_TRUE(kit::same_values(high.data(), expected.high.data(), high.size())) << "high band beside it, of " << n;
    ASSERT_TRUE(rest_is_kept(low.size()));
    src.fill(x);
    ASSERT_EQ(noxStsNoErr, kit::call(noxsWTHaarFwd_64f, src.data(), len, low.data(), src.data()));
    ASSERT_TRUE(kit::same_values(src.data(), expected.high.data(), high.size())) << "high band over the source, " << n;
    ASSERT_TRUE(kit::same_values(low.data(), expected.low.data(), low.size())) << "low band beside it, of " << n;
    ASSERT_TRUE(rest_is_kept(high.size()));
  });
}

TEST_P(Haar, Inverse) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64f), [&](size_t n, const Place& place, size_t turn) {
    const Bands bands = {data(random, (n + 1) / 2, turn), data(random, n / 2, turn)};
    const std::vector<Nox64f> expected = join(bands);
    Guarded<Nox64f> low(bands.low, place.edge, place.first), high(bands.high, place.edge, place.second),
        dst(n, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(noxsWTHaarInv_64f, low.data(), high.data(), dst.data(), static_cast<int>(n)));
    ASSERT_TRUE(kit::same_values(dst.data(), expected.data(), n)) << n << " elements";
    ASSERT_TRUE(kit::same_bits(low.data(), bands.low.data(), low.size())) << "the low band was written";
    ASSERT_TRUE(kit::same_bits(high.data(), bands.high.data(), high.size())) << "the high band was written";
  });
}

// Values told by hand, and integers that come back as they were.
TEST_P(Haar, ThereAndBack) {
  const Nox64f known[3] = {2, 4, -0.0};
  Nox64f low[2], high[1];
  ASSERT_EQ(noxStsNoErr, kit::call(noxsWTHaarFwd_64f, known, 3, low, high));
  const Nox64f means[2] = {3, -0.0}, halves[1] = {1};
  EXPECT_TRUE(kit::same_bits(low, means, 2));
  EXPECT_TRUE(kit::same_bits(high, halves, 1));

  constexpr size_t kCount = 1001;
  kit::Random random;
  Guarded<Nox64f> x(kCount), to_low(kCount / 2 + 1), to_high(kCount / 2), back(kCount);
  for (Nox64f& v : x) v = static_cast<Nox64f>(random.integer(-(1ll << 52) + 1, (1ll << 52) - 1));
  kit::call(noxsWTHaarFwd_64f, x.data(), static_cast<int>(kCount), to_low.data(), to_high.data());
  kit::call(noxsWTHaarInv_64f, to_low.data(), to_high.data(), back.data(), static_cast<int>(kCount));
  EXPECT_TRUE(kit::same_bits(back.data(), x.data(), kCount));
}

}  // namespace
