// Quotients of arrays and square roots: within their bound whatever the neighbours are that share a reciprocal, with
// remarkable elements planted at every place of a block, and the warnings that come after the whole array.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "reference/arithmetic.hpp"
#include "vector/places.hpp"

namespace {

using kit::Guarded;
using L = std::numeric_limits<double>;

class Division : public kit::EachVariant {};
NOX_EACH_VARIANT(Division);
class Roots : public kit::EachVariant {};
NOX_EACH_VARIANT(Roots);

template <class T>
struct DivisionOf;
template <>
struct DivisionOf<Nox64f> {
  static constexpr auto plain = noxsDiv_64f;
  static constexpr auto in_place = noxsDiv_64f_I;
};
template <>
struct DivisionOf<Nox64fc> {
  static constexpr auto plain = noxsDiv_64fc;
  static constexpr auto in_place = noxsDiv_64fc_I;
};

// Runs all forms on divisors x and dividends y.
template <class T>
void check_division(const std::vector<T>& x, const std::vector<T>& y, const Place& place) {
  const size_t n = x.size();
  const int len = static_cast<int>(n);
  const bool any_zero = std::any_of(x.begin(), x.end(), [](const T& d) { return reference::magnitude(d) == 0; });
  const NoxStatus status = any_zero ? noxStsDivByZero : noxStsNoErr;
  Guarded<T> a(x, place.edge, place.first), b(y, place.edge, place.second), d(n, place.edge, place.dst);
  ASSERT_EQ(status, kit::call(DivisionOf<T>::plain, a.data(), b.data(), d.data(), len));
  ASSERT_TRUE(reference::are_quotients(d.data(), x.data(), y.data(), n));
  ASSERT_TRUE(kit::same_bits(a.data(), x.data(), n)) << "the divisors were written";
  ASSERT_TRUE(kit::same_bits(b.data(), y.data(), n)) << "the dividends were written";
  d.fill(y);
  ASSERT_EQ(status, kit::call(DivisionOf<T>::in_place, a.data(), d.data(), len));
  ASSERT_TRUE(reference::are_quotients(d.data(), x.data(), y.data(), n)) << "in place";
  ASSERT_EQ(status, kit::call(DivisionOf<T>::plain, a.data(), b.data(), b.data(), len));
  ASSERT_TRUE(reference::are_quotients(b.data(), x.data(), y.data(), n)) << "over the dividends";
  b.fill(y);
  ASSERT_EQ(status, kit::call(DivisionOf<T>::plain, a.data(), b.data(), a.data(), len));
  ASSERT_TRUE(reference::are_quotients(a.data(), x.data(), y.data(), n)) << "over the divisors";
}

// A number of either sign with an exponent of up to `range` either way.
double wide(kit::Random& random, int range) {
  const double mantissa = random.uniform(1, 2), sign = random.chance(0.5) ? 1 : -1;
  return sign * std::ldexp(mantissa, static_cast<int>(random.integer(-range, std::min(range, 1023))));
}

// From ordinary groups to groups whose products leave the range, in part or as a whole, and denormal divisors.
TEST_P(Division, RealOfAllMagnitudes) {
  constexpr int kRanges[] = {0, 3, 60, 250, 270, 520, 1000, 1074};
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64f), [&](size_t n, const Place& place, size_t turn) {
    std::vector<Nox64f> x(n), y(n);
    const int range = kRanges[turn % std::size(kRanges)];
    for (Nox64f& d : x) do {
        d = wide(random, range);
      } while (d == 0);
    const int reach = turn & 8 ? 20 : 1020;  // far enough for quotients that are lost at either end
    for (Nox64f& v : y) v = wide(random, reach);
    check_division(x, y, place);
  });
}

// Groups of one magnitude, in which all products go the same way: through every magnitude there is.
TEST_P(Division, RealGroupsOfOneMagnitude) {
  constexpr size_t kCount = 16;
  kit::Random random;
  for (int exponent = -1074; exponent < 1024; exponent += kit::quick() ? 7 : 1) {
    std::vector<Nox64f> x(kCount), y(kCount);
    for (Nox64f& d : x) d = std::ldexp(random.uniform(1, 2), exponent);
    for (size_t i = 0; i < kCount; ++i) y[i] = i % 2 ? wide(random, 10) : x[i] * random.uniform(-1, 1);
    // Pairs that cancel in the product of four, so that it alone looks harmless.
    if (exponent & 1 && exponent > -1000)
      for (size_t i = 0; i < kCount; ++i)
        if (i & 2) x[i] = std::ldexp(random.uniform(1, 2), -exponent);
    check_division(x, y, kPlaces[static_cast<size_t>(exponent + 1074) % std::size(kPlaces)]);
    if (HasFatalFailure()) FAIL() << "exponent " << exponent;
  }
}

// Puts each value at each place of otherwise ordinary blocks, as a divisor and as a dividend.
template <class T, class Values>
void check_planted(const Values& values) {
  kit::Random random;
  for (const size_t n : {16u, 32u}) {
    for (size_t at = 0; at < n; ++at)
      for (const T& value : values)
        for (const Place& place : {kPlaces[1], kPlaces[2]}) {
          std::vector<T> x(n), y(n);
          random.fill(x, 0.5, 2);
          random.fill(y, 0.5, 2);
          std::vector<T> planted = x;
          planted[at] = value;
          check_division(planted, y, place);
          planted = y;
          planted[at] = value;
          check_division(x, planted, place);
          if (testing::Test::HasFatalFailure()) FAIL() << kit::describe(value) << " at " << at << " of " << n;
        }
  }
}

TEST_P(Division, RemarkableRealsAtEveryPlace) {
  check_planted<Nox64f>(std::vector<Nox64f>{0.0, -0.0, HUGE_VAL, -HUGE_VAL, NAN, L::max(), -0x1.3p1023, L::min(),
                                            L::denorm_min(), -0x1.7p-1030});
}

// The second to last: the squared magnitude is a denormal whose reciprocal is infinite. The last two: it is lost.
TEST_P(Division, RemarkableComplexNumbersAtEveryPlace) {
  check_planted<Nox64fc>(std::vector<Nox64fc>{{0, 0},
                                              {-0.0, 0},
                                              {0, -2},
                                              {-3, 0.0},
                                              {NAN, 1},
                                              {1, NAN},
                                              {HUGE_VAL, 1},
                                              {1, -HUGE_VAL},
                                              {0x1p511, -0x1p511},
                                              {0x1p-510, 0x1p-509},
                                              {1e200, -1e200},
                                              {0x1p-530, 0},
                                              {1e-200, -1e-170},
                                              {0, L::denorm_min()}});
}

TEST_P(Division, ZeroDividedByZero) {
  const Nox64f zeros[] = {0.0, -0.0, 0.0, -0.0, 0.0}, x[] = {0.0, -0.0, 1, 1, -HUGE_VAL};
  const Nox64f expected[] = {NAN, NAN, HUGE_VAL, HUGE_VAL, -HUGE_VAL};
  Nox64f d[5];
  EXPECT_EQ(noxStsDivByZero, kit::call(noxsDiv_64f, zeros, x, d, 5));
  EXPECT_TRUE(kit::same_values(d, expected, 5));
  const Nox64fc no[] = {{0, 0}, {-0.0, 0}, {0, 0}}, z[] = {{0, 0}, {1, -1}, {HUGE_VAL, 0}};
  const Nox64fc not_a_number[] = {{NAN, NAN}, {NAN, NAN}, {NAN, NAN}};
  Nox64fc e[3];
  EXPECT_EQ(noxStsDivByZero, kit::call(noxsDiv_64fc, no, z, e, 3));
  EXPECT_TRUE(kit::same_values(e, not_a_number, 3));
}

// Up to divisors whose squared magnitudes are good but not the product of two of them.
TEST_P(Division, ComplexOfManyMagnitudes) {
  constexpr int kRanges[] = {0, 10, 120, 240, 270, 480};
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64fc), [&](size_t n, const Place& place, size_t turn) {
    const int range = kRanges[turn % std::size(kRanges)];
    std::vector<Nox64fc> x(n), y(n);
    const auto number = [&] {
      const double scale = wide(random, range);
      return Nox64fc{scale * random.uniform(), scale * random.uniform()};
    };
    std::generate(x.begin(), x.end(), number);
    std::generate(y.begin(), y.end(), number);
    check_division(x, y, place);
  });
}

// Runs all forms of a root; check(results) compares them.
template <class T, class Check>
void check_root_forms(NoxStatus (*plain)(const T*, T*, int), NoxStatus (*in_place)(T*, int), const std::vector<T>& x,
                      const Place& place, NoxStatus status, Check&& check) {
  const size_t n = x.size();
  const int len = static_cast<int>(n);
  Guarded<T> a(x, place.edge, place.first), d(n, place.edge, place.dst);
  ASSERT_EQ(status, kit::call(plain, a.data(), d.data(), len));
  ASSERT_TRUE(check(d.data()));
  ASSERT_TRUE(kit::same_bits(a.data(), x.data(), n)) << "the source was written";
  d.fill(x);
  ASSERT_EQ(status, kit::call(in_place, d.data(), len));
  ASSERT_TRUE(check(d.data())) << "in place";
  ASSERT_EQ(status, kit::call(plain, a.data(), a.data(), len));
  ASSERT_TRUE(check(a.data())) << "over the source";
}

void check_real_roots(const std::vector<Nox64f>& x, const Place& place) {
  std::vector<Nox64f> expected(x.size());
  std::transform(x.begin(), x.end(), expected.begin(), [](Nox64f v) { return v < 0 ? NAN : std::sqrt(v); });
  const bool negative = std::any_of(x.begin(), x.end(), [](Nox64f v) { return v < 0; });
  check_root_forms(noxsSqrt_64f, noxsSqrt_64f_I, x, place, negative ? noxStsSqrtNegArg : noxStsNoErr,
                   [&](const Nox64f* got) { return kit::same_values(got, expected.data(), x.size()); });
}

TEST_P(Roots, RealAreRoundedAsIeeeSays) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64f), [&](size_t n, const Place& place, size_t turn) {
    std::vector<Nox64f> x(n);
    for (Nox64f& v : x) v = std::fabs(wide(random, turn & 1 ? 1074 : 2));
    check_real_roots(x, place);
    random.fill_special(x);
    check_real_roots(x, place);
  });
}

// Among negatives and what only looks like one, each at every place.
TEST_P(Roots, RealWarnOfNegativesAlone) {
  constexpr size_t kCount = 32;
  std::vector<Nox64f> x(kCount, 2.0);
  for (size_t at = 0; at < kCount; ++at) {
    for (const Nox64f value :
         {-0.0, -1.0, -L::denorm_min(), -HUGE_VAL, static_cast<double>(NAN), -static_cast<double>(NAN)})
      for (const Place& place : {kPlaces[1], kPlaces[2]}) {
        x[at] = value;
        check_real_roots(x, place);
      }
    x[at] = 2.0;
  }
}

void check_complex_roots(const std::vector<Nox64fc>& z, const Place& place) {
  check_root_forms(noxsSqrt_64fc, noxsSqrt_64fc_I, z, place, noxStsNoErr,
                   [&](const Nox64fc* got) { return reference::are_roots(got, z.data(), z.size()); });
}

// Parts whose squares are good, or lost at either end; what shares a reciprocal with them must stay good.
TEST_P(Roots, ComplexOfAllMagnitudes) {
  struct Exponents {
    int low, high;
  };
  constexpr Exponents kGood{-500, 500}, kNear{-20, 20}, kLost{-1074, -545}, kEndless{515, 1022};
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64fc), [&](size_t n, const Place& place, size_t turn) {
    const auto part = [&] {
      Exponents e = turn % 3 ? kGood : kNear;
      if (turn % 3 == 2 && random.chance(0.3)) e = random.chance(0.5) ? kLost : kEndless;
      const double sign = random.chance(0.5) ? 1 : -1;
      return sign * std::ldexp(random.uniform(1, 2), static_cast<int>(random.integer(e.low, e.high)));
    };
    std::vector<Nox64fc> z(n);
    for (Nox64fc& v : z) {
      v.re = part();
      v.im = turn % 3 ? part() : v.re * random.uniform(-1, 1);
    }
    check_complex_roots(z, place);
  });
}

TEST_P(Roots, RemarkableComplexNumbersAtEveryPlace) {
  const Nox64fc values[] = {{0, 0},
                            {-0.0, -0.0},
                            {-4, 0},
                            {-4, -0.0},
                            {4, -0.0},
                            {0, 9},
                            {-0.0, -9},
                            {NAN, 1},
                            {-1, NAN},
                            {HUGE_VAL, 1},
                            {-HUGE_VAL, 1},
                            {1, -HUGE_VAL},
                            {L::max(), L::max()},
                            {-L::max(), 0},
                            {L::denorm_min(), 0},
                            {-4 * L::denorm_min(), 0},
                            {0, 4 * L::denorm_min()},
                            {0x1p-1060, -0x1p-1050}};
  kit::Random random;
  for (const size_t n : {1u, 8u, 16u})
    for (size_t at = 0; at < n; ++at)
      for (const Nox64fc& value : values)
        for (const Place& place : {kPlaces[1], kPlaces[2], kPlaces[3]}) {
          std::vector<Nox64fc> z(n);
          random.fill(z);
          z[at] = value;
          if (n > 8) z[at ^ 1] = values[at % std::size(values)];  // remarkable neighbours
          check_complex_roots(z, place);
          if (HasFatalFailure()) FAIL() << kit::describe(value) << " at " << at << " of " << n;
        }
}

TEST_P(Roots, ExactComplexRoots) {
  struct Case {
    Nox64fc z, root;
  };
  constexpr Case kCases[] = {{{-4, 0}, {0, 2}},   {{-4, -0.0}, {0, 2}}, {{4, -0.0}, {2, 0}}, {{0, 0}, {0, 0}},
                             {{-3, -4}, {1, -2}}, {{-3, 4}, {1, 2}},    {{3, -4}, {2, -1}},  {{0, 2}, {1, 1}}};
  for (const Case& c : kCases) {
    const std::vector<Nox64fc> z(9, c.z), expected(9, c.root);
    for (const int n : {1, 9}) {
      std::vector<Nox64fc> d(9);
      EXPECT_EQ(noxStsNoErr, kit::call(noxsSqrt_64fc, z.data(), d.data(), n));
      EXPECT_TRUE(kit::same_bits(d.data(), expected.data(), n)) << "of " << kit::describe(c.z);
    }
  }
}

}  // namespace
