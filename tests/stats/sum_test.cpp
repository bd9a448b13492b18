// Sums, means, deviations and dot products: reals bit for bit in the promised order of additions, complex values on
// integers, where no order rounds, integer forms against wide arithmetic over scales of any size.
#include <gtest/gtest.h>

#include <cfenv>
#include <climits>
#include <cmath>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "reference/sums.hpp"
#include "vector/places.hpp"

namespace {

using kit::call;
using kit::Guarded;

class Sums : public kit::EachVariant {
 protected:
  reference::Order order() const { return {GetParam().column >= 3, GetParam().column == 4}; }
};
NOX_EACH_VARIANT(Sums);

// The result of a call that takes a pointer to it behind its other arguments.
template <class T, class F, class... A>
T result(F fn, A... arguments) {
  T value{};
  EXPECT_EQ(noxStsNoErr, call(fn, arguments..., &value));
  return value;
}
template <class T>
testing::AssertionResult equal(T expected, T got) {
  return kit::same_values(&expected, &got, 1);
}

TEST_P(Sums, RealsInThePromisedOrder) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64f), [&](size_t n, const Place& place, size_t turn) {
    Guarded<Nox64f> x(n, place.edge, place.first), y(n, place.edge, place.second);
    random.fill(x);
    random.fill(y);
    if (turn % 16 == 0) x[n / 2] = turn % 32 ? INFINITY : NAN;
    const int len = static_cast<int>(n);
    const double count = len, sum = reference::sum(x.data(), n, order());
    ASSERT_TRUE(equal(sum, result<Nox64f>(noxsSum_64f, x.data(), len))) << n;
    ASSERT_TRUE(equal(sum / count, result<Nox64f>(noxsMean_64f, x.data(), len)));
    ASSERT_TRUE(
        equal(reference::dot(x.data(), y.data(), n, order()), result<Nox64f>(noxsDotProd_64f, x.data(), y.data(), len)))
        << n << " at " << place.first << " and " << place.second;
    if (n < 2) return;
    const double deviation = reference::deviation(x.data(), n, order());
    ASSERT_TRUE(equal(deviation, result<Nox64f>(noxsStdDev_64f, x.data(), len)));
    Nox64f mean = 0;
    ASSERT_TRUE(equal(deviation, result<Nox64f>(noxsMeanStdDev_64f, x.data(), len, &mean)));
    ASSERT_TRUE(equal(reference::moment(x.data(), n, 1, order()) / count, mean));
  });
}

TEST_P(Sums, ComplexValuesOnIntegers) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64fc), [&](size_t n, const Place& place, size_t) {
    Guarded<Nox64fc> a(n, place.edge, place.first), b(n, place.edge, place.second);
    Guarded<Nox64f> r(n, place.edge, place.dst);
    const auto integer = [&] { return static_cast<double>(random.integer(-1000000, 1000000)); };
    Nox64fc sum = {}, products = {}, scaled = {};
    for (size_t i = 0; i < n; ++i) {
      a[i] = {integer(), integer()}, b[i] = {integer(), integer()}, r[i] = integer();
      sum.re += a[i].re, sum.im += a[i].im;
      products.re += a[i].re * b[i].re - a[i].im * b[i].im;
      products.im += a[i].re * b[i].im + a[i].im * b[i].re;
      scaled.re += r[i] * b[i].re, scaled.im += r[i] * b[i].im;
    }
    const int len = static_cast<int>(n);
    ASSERT_TRUE(equal(sum, result<Nox64fc>(noxsSum_64fc, a.data(), len))) << n << " at " << place.first;
    const Nox64f by = 1.0 / len;
    ASSERT_TRUE(equal(Nox64fc{sum.re * by, sum.im * by}, result<Nox64fc>(noxsMean_64fc, a.data(), len)));
    ASSERT_TRUE(equal(products, result<Nox64fc>(noxsDotProd_64fc, a.data(), b.data(), len))) << n;
    ASSERT_TRUE(equal(scaled, result<Nox64fc>(noxsDotProd_64f64fc, r.data(), b.data(), len))) << n;
  });
}

TEST_P(Sums, ZerosCancellationAndTooFewSamples) {
  alignas(32) const Nox64f zeros[2] = {-0.0, -0.0}, close[4] = {1e8 + 1e-7, 1e8, 1e8 + 1e-7, 1e8};
  alignas(32) const Nox64fc zero = {-0.0, -0.0};
  EXPECT_TRUE(equal(0.0, result<Nox64f>(noxsSum_64f, zeros, 1)));
  EXPECT_TRUE(equal(0.0, result<Nox64f>(noxsDotProd_64f, zeros, zeros + 1, 1)));
  EXPECT_TRUE(equal(Nox64fc{0, 0}, result<Nox64fc>(noxsSum_64fc, &zero, 1)));
  for (const Nox64f x : {0.1, 1e100, 3.0, -1.0 / 3}) {
    const Nox64f same[3] = {x, x, x};
    for (int at = 0; at < 2; ++at) EXPECT_TRUE(equal(0.0, result<Nox64f>(noxsStdDev_64f, same + at, 2))) << x;
  }
  // Here the squares' sum times 4 comes out below the square of the sum, or next to it: never a NaN.
  for (int n = 2; n <= 4; ++n) EXPECT_GE(result<Nox64f>(noxsStdDev_64f, close, n), 0.0);
  Nox64f mean = 5, deviation = 5;
  EXPECT_EQ(noxStsSizeErr, call(noxsStdDev_64f, close, 1, &deviation));
  EXPECT_EQ(noxStsSizeErr, call(noxsMeanStdDev_64f, close, 1, &mean, &deviation));
  EXPECT_TRUE(mean == 5 && deviation == 5);
}

// ---- integers
const std::vector<int>& scales() {
  static const std::vector<int> list = [] {
    std::vector<int> v = {INT_MIN, INT_MIN + 1, -2000000000, -200, 200, 2000000000, INT_MAX};
    for (int s = -70; s <= 70; ++s) v.push_back(s);
    return v;
  }();
  return list;
}

template <class T>
Nox64s wide_sum(const Guarded<T>& x) {
  Nox64s sum = 0;
  for (const T e : x) sum += e;
  return sum;
}
Nox32s scaled_result(NoxStatus (*fn)(const Nox32s*, int, Nox32s*, int), const Guarded<Nox32s>& x, int scale) {
  Nox32s value = 77;
  EXPECT_EQ(noxStsNoErr, call(fn, x.data(), static_cast<int>(x.size()), &value, scale));
  return value;
}
void check_sums(const Guarded<Nox32s>& x, const Guarded<Nox16s>& y, int scale) {
  const Nox64s sum = wide_sum(x), short_sum = wide_sum(y);
  Nox32s value = 77;
  ASSERT_EQ(noxStsNoErr, call(noxsSum_16s32s_Sfs, y.data(), static_cast<int>(y.size()), &value, scale));
  ASSERT_EQ(reference::scaled(short_sum, scale), value) << short_sum << " by " << scale;
  ASSERT_EQ(reference::scaled(sum, scale), scaled_result(noxsSum_32s_Sfs, x, scale)) << sum << " by " << scale;
  ASSERT_EQ(reference::scaled_mean(sum, x.size(), scale), scaled_result(noxsMean_32s_Sfs, x, scale))
      << sum << " of " << x.size() << " by " << scale;
}

TEST_P(Sums, IntegersByEveryScale) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox16s), [&](size_t n, const Place& place, size_t turn) {
    Guarded<Nox32s> x(n, place.edge, place.first), z(n, place.edge, place.second);
    Guarded<Nox16s> y(n, place.edge, place.second);
    random.fill_special(x);
    random.fill_special(y);
    random.fill_special(z);
    if (turn % 3 == 0)
      for (size_t i = 0; i < n; ++i) x[i] = static_cast<Nox32s>(random.integer(-4, 4)), z[i] %= 10, y[i] %= 9;
    // Sums of magnitudes around 2^53 and below, whose products nearly cancel, so that what was rounded shows; some with
    // a last product that is much larger.
    if (turn % 3 == 1)
      for (size_t i = 0; i < n; ++i) {
        x[i] = i < n / 2 ? x[i] >> turn % 17 : ~x[i - n / 2];
        z[i] = i < n / 2 ? z[i] >> turn % 13 : z[i - n / 2];
      }
    if (turn % 6 == 0) x[n - 1] = INT_MIN, z[n - 1] = INT_MIN + 1;
    const double products = reference::dot(x.data(), z.data(), n);
    // The short arrays by all scales, the others by a few of them.
    const size_t step = n <= 3 && place.first == 0 ? 1 : 37;
    for (size_t k = turn % step; k < scales().size(); k += step) {
      const int scale = scales()[k];
      check_sums(x, y, scale);
      Nox32s value = 77;
      ASSERT_EQ(noxStsNoErr, call(noxsDotProd_32s_Sfs, x.data(), z.data(), static_cast<int>(n), &value, scale));
      ASSERT_EQ(reference::scaled(products, scale < -31  ? -31
                                            : scale > 93 ? 93
                                                         : scale),
                value)
          << products << " by " << scale << ", length " << n << " at " << place.second;
    }
  });
}

TEST_P(Sums, IntegersBeyondOneBlock) {
  const size_t n = kit::quick() ? 70001 : 200003;
  for (const int low : {0, 1}) {
    Guarded<Nox32s> x(n, kit::Edge::End, 4);
    Guarded<Nox16s> y(n, kit::Edge::End, 2);
    x.fill_with(low ? INT_MIN : INT_MAX);
    y.fill_with(low ? SHRT_MIN : SHRT_MAX);
    x[n - 1] = 12345, y[0] = 54;
    for (const int scale : {0, 3, 18}) check_sums(x, y, scale);
  }
}

// 2^54, ones, -2^54: the ones that share a lane with 2^54 are lost, in every build.
TEST_P(Sums, LargeProductsAreRoundedInOrder) {
  std::vector<Nox32s> x(40, 1);
  x[0] = 1 << 27, x[39] = -x[0];
  for (const size_t misalign : {0, 4, 2}) {
    Guarded<Nox32s> a(x, kit::Edge::Start, misalign), b(a.values(), kit::Edge::Start, misalign);
    b[39] = 1 << 27;
    const double sum = reference::dot(a.data(), b.data(), x.size());
    EXPECT_LT(sum, 38);
    Nox32s value = 77;
    EXPECT_EQ(noxStsNoErr, call(noxsDotProd_32s_Sfs, a.data(), b.data(), 40, &value, 0));
    EXPECT_EQ(sum, value);
  }
}

TEST_P(Sums, MeansAndProductsRoundHalvesToEven) {
  const auto mean = [](std::vector<Nox32s> x, int scale) {
    return scaled_result(noxsMean_32s_Sfs, Guarded<Nox32s>(x), scale);
  };
  EXPECT_EQ(mean({1, 2}, 0), 2);
  EXPECT_EQ(mean({2, 3}, 0), 2);
  EXPECT_EQ(mean({-2, -3}, 0), -2);
  EXPECT_EQ(mean({5}, 1), 3);
  EXPECT_EQ(mean({INT_MIN, INT_MIN}, 0), INT_MIN);
  EXPECT_EQ(mean({INT_MIN, INT_MIN}, 32), INT_MIN);
  // In whatever mode the caller rounds. 2^53 + 1 + 1 - 2^53 tells how the additions did.
  const Nox32s x[4] = {1 << 27, 1, 1, -(1 << 27)}, y[4] = {1 << 26, 1, 1, 1 << 26}, five = 5, one = 1;
  for (const int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    Nox32s sum = 77, half = 77;
    std::fesetround(mode);
    const NoxStatus a = noxsDotProd_32s_Sfs(x, y, 4, &sum, 0), b = noxsDotProd_32s_Sfs(&five, &one, 1, &half, 1);
    std::fesetround(FE_TONEAREST);
    EXPECT_TRUE(a == noxStsNoErr && b == noxStsNoErr && sum == 0 && half == 2) << mode;
  }
}

}  // namespace
