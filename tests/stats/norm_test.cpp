// Norms in the lanes that the builds for SSE keep to, bit for bit; the AVX builds' sums within rounding. NaN at every
// place of short arrays. Normalisation with its divisors.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "reference/norms.hpp"
#include "vector/places.hpp"

namespace {

using kit::call;
using kit::Guarded;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

class Norms : public kit::EachVariant {
 protected:
  static bool wide() { return GetParam().column >= 3; }
  static bool fused() { return GetParam().column == 4; }
};
NOX_EACH_VARIANT(Norms);

double minus(double a, double b) { return a - b; }
Nox64fc minus(Nox64fc a, Nox64fc b) { return {a.re - b.re, a.im - b.im}; }

template <class T>
struct Functions {
  NoxStatus (*of_one)(const T*, int, Nox64f*);
  NoxStatus (*of_difference)(const T*, const T*, int, Nox64f*);
};

// expected(n, address, x) against the norm of x and that of the difference of two arrays that make x.
template <class T, class Expected>
void check(const Functions<T>& f, bool exact, Expected&& expected) {
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    std::vector<T> x(n), y(n), difference(n);
    turn % 4 == 0 && exact ? random.fill_special(x) : random.fill(x);
    random.fill(y);
    for (size_t i = 0; i < n; ++i) difference[i] = minus(x[i], y[i]);
    Guarded<T> a(x, place.edge, place.first), b(y, place.edge, place.second);
    const int len = static_cast<int>(n);
    const uintptr_t address = reinterpret_cast<uintptr_t>(a.data());
    const auto right = [&](Nox64f found, Nox64f wanted) {
      return exact ? kit::same_values(&found, &wanted, 1)
             : std::fabs(found - wanted) <= 1e-15 * static_cast<double>(n) * wanted
                 ? testing::AssertionSuccess()
                 : testing::AssertionFailure() << found << ", not " << wanted;
    };
    Nox64f norm = -1;
    ASSERT_EQ(noxStsNoErr, call(f.of_one, a.data(), len, &norm));
    ASSERT_TRUE(right(norm, expected(n, address, x))) << n;
    ASSERT_EQ(noxStsNoErr, call(f.of_difference, a.data(), b.data(), len, &norm));
    ASSERT_TRUE(right(norm, expected(n, address, difference))) << n;
  });
}

TEST_P(Norms, OfRealArrays) {
  using Values = std::vector<Nox64f>;
  check<Nox64f>({noxsNorm_Inf_64f, noxsNormDiff_Inf_64f}, true, [](size_t n, uintptr_t at, const Values& x) {
    return reference::four_lanes(
        n, at, [&](size_t i) { return std::fabs(x[i]); }, reference::larger_or_new);
  });
  check<Nox64f>({noxsNorm_L1_64f, noxsNormDiff_L1_64f}, !wide(), [](size_t n, uintptr_t at, const Values& x) {
    return reference::four_lanes(
        n, at, [&](size_t i) { return std::fabs(x[i]); }, reference::sum);
  });
  check<Nox64f>({noxsNorm_L2_64f, noxsNormDiff_L2_64f}, !wide(), [](size_t n, uintptr_t at, const Values& x) {
    return std::sqrt(reference::four_lanes(
        n, at, [&](size_t i) { return x[i] * x[i]; }, reference::sum));
  });
}

TEST_P(Norms, OfComplexArrays) {
  using Values = std::vector<Nox64fc>;
  check<Nox64fc>({noxsNorm_Inf_64fc64f, noxsNormDiff_Inf_64fc64f}, true, [](size_t n, uintptr_t, const Values& x) {
    return std::sqrt(reference::two_lanes(
        n, [&](size_t i) { return reference::power(x[i]); }, reference::larger_or_old));
  });
  check<Nox64fc>({noxsNorm_L1_64fc64f, noxsNormDiff_L1_64fc64f}, !wide(), [](size_t n, uintptr_t, const Values& x) {
    return reference::two_lanes(
        n, [&](size_t i) { return std::sqrt(reference::power(x[i])); }, reference::sum);
  });
  check<Nox64fc>({noxsNorm_L2_64fc64f, noxsNormDiff_L2_64fc64f}, !wide(), [](size_t n, uintptr_t, const Values& x) {
    return std::sqrt(reference::two_lanes(
        n, [&](size_t i) { return reference::power(x[i]); }, reference::sum));
  });
}

TEST_P(Norms, NanInTheMaximum) {
  for (size_t n = 1; n < 40; ++n)
    for (size_t at = 0; at < n; ++at)
      for (const size_t shift : {0u, 8u, 4u}) {
        std::vector<Nox64f> x(n, 1.0);
        x[0] = 3.0;
        x[at] = kNan;
        Guarded<Nox64f> a(x, kit::Edge::Start, shift);
        Nox64f norm = -1;
        const Nox64f expected = reference::four_lanes(
            n, shift, [&](size_t i) { return std::fabs(x[i]); }, reference::larger_or_new);
        call(noxsNorm_Inf_64f, a.data(), static_cast<int>(n), &norm);
        ASSERT_TRUE(kit::same_values(&norm, &expected, 1)) << n << " elements, NaN at " << at << ", off by " << shift;
        std::vector<Nox64fc> z(n, Nox64fc{3, 4});
        z[at].im = kNan;
        call(noxsNorm_Inf_64fc64f, z.data(), static_cast<int>(n), &norm);
        ASSERT_EQ(norm, n == 1 ? 0 : 5);
      }
}

template <class T>
void check_normalize(NoxStatus (*normalize)(const T*, T*, int, T, Nox64f), T sub, bool fused) {
  kit::Random random;
  const Nox64f div = -0.7, r = 1 / div;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    std::vector<T> x(n), expected(n);
    turn % 3 == 0 ? random.fill_special(x) : random.fill(x);
    const auto one = [&](Nox64f e, Nox64f c) { return fused ? std::fma(e, r, -(c / div)) : (e - c) * r; };
    for (size_t i = 0; i < n; ++i)
      if constexpr (std::is_same_v<T, Nox64f>)
        expected[i] = one(x[i], sub);
      else
        expected[i] = {one(x[i].re, sub.re), one(x[i].im, sub.im)};
    Guarded<T> s(x, place.edge, place.first), d(n, place.edge, place.dst);
    const int len = static_cast<int>(n);
    ASSERT_EQ(noxStsNoErr, call(normalize, s.data(), d.data(), len, sub, div));
    ASSERT_TRUE(kit::same_values(d.data(), expected.data(), n));
    ASSERT_EQ(noxStsNoErr, call(normalize, s.data(), s.data(), len, sub, div));
    ASSERT_TRUE(kit::same_values(s.data(), expected.data(), n)) << "in place";
  });
}

TEST_P(Norms, Normalize) {
  check_normalize<Nox64f>(noxsNormalize_64f, 1.25, fused());
  check_normalize<Nox64fc>(noxsNormalize_64fc, {1.25, -0.5}, fused());
  const Nox64f x[2] = {1, 2};
  Nox64f d[2] = {7, 7};
  for (const double div : {0.0, -0.0, 1e-310, -2.2250738585072009e-308})
    EXPECT_EQ(noxStsDivByZeroErr, call(noxsNormalize_64f, x, d, 2, 0.0, div));
  EXPECT_EQ(noxStsSizeErr, call(noxsNormalize_64f, x, d, 0, 0.0, 0.0));
  EXPECT_EQ(7, d[0]);
  EXPECT_EQ(noxStsNoErr, call(noxsNormalize_64f, x, d, 2, 0.0, kNan));
  EXPECT_TRUE(std::isnan(d[0]) && std::isnan(d[1]));
  EXPECT_EQ(noxStsNoErr, call(noxsNormalize_64f, x, d, 2, 0.0, 2.2250738585072014e-308));
  EXPECT_TRUE(std::isfinite(d[0]));
}

}  // namespace
