// Complex helpers element by element: powers, magnitudes and parts bit for bit, angles and polar forms within a few
// units in the last place of the C library's; absolute values at the ends of their ranges.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "vector/places.hpp"

namespace {

using kit::call;
using kit::Guarded;

class ComplexHelpers : public kit::EachVariant {};
NOX_EACH_VARIANT(ComplexHelpers);

// One case: parts at hand as arrays and as records, destinations, and what is expected.
struct Case {
  Case(kit::Random& random, size_t n, const Place& place, size_t turn)
      : re(values(random, n, turn)),
        im(values(random, n, turn)),
        records(n, place.edge, place.second),
        first(n, place.edge, place.dst),
        second(n, place.edge, place.first),
        joined(n, place.edge, place.dst),
        x(re, place.edge, place.first),
        y(im, place.edge, place.second),
        len(static_cast<int>(n)) {
    for (size_t i = 0; i < n; ++i) records[i] = {re[i], im[i]};
  }
  static std::vector<Nox64f> values(kit::Random& random, size_t n, size_t turn) {
    std::vector<Nox64f> v(n);
    turn % 3 == 0 ? random.fill_special(v) : random.fill(v, -4, 4);
    return v;
  }
  std::vector<Nox64f> re, im;
  Guarded<Nox64fc> records;
  Guarded<Nox64f> first, second;
  Guarded<Nox64fc> joined;
  Guarded<Nox64f> x, y;
  int len;
};

testing::AssertionResult near(const Guarded<Nox64f>& found, const std::vector<Nox64f>& expected, uint64_t ulps) {
  for (size_t i = 0; i < expected.size(); ++i)
    if (!(std::isnan(found[i]) && std::isnan(expected[i])) && kit::ulp_distance(found[i], expected[i]) > ulps)
      return testing::AssertionFailure() << i << ": " << found[i] << ", not " << expected[i];
  return testing::AssertionSuccess();
}

TEST_P(ComplexHelpers, PowersMagnitudesAndParts) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64fc), [&](size_t n, const Place& place, size_t turn) {
    Case c(random, n, place, turn);
    std::vector<Nox64f> power(n), magnitude(n);
    for (size_t i = 0; i < n; ++i) {
      power[i] = c.re[i] * c.re[i] + c.im[i] * c.im[i];
      magnitude[i] = std::sqrt(power[i]);
    }
    const auto right = [&](const std::vector<Nox64f>& expected) {
      return kit::same_values(c.first.data(), expected.data(), n);
    };
    const auto bits = [&](const Guarded<Nox64f>& found, const std::vector<Nox64f>& expected) {
      return kit::same_bits(found.data(), expected.data(), n);
    };
    ASSERT_EQ(noxStsNoErr, call(noxsPowerSpectr_64f, c.x.data(), c.y.data(), c.first.data(), c.len));
    ASSERT_TRUE(right(power));
    ASSERT_EQ(noxStsNoErr, call(noxsPowerSpectr_64fc, c.records.data(), c.first.data(), c.len));
    ASSERT_TRUE(right(power));
    ASSERT_EQ(noxStsNoErr, call(noxsMagnitude_64fc, c.records.data(), c.first.data(), c.len));
    ASSERT_TRUE(right(magnitude));
    ASSERT_EQ(noxStsNoErr, call(noxsReal_64fc, c.records.data(), c.first.data(), c.len));
    ASSERT_TRUE(bits(c.first, c.re));
    ASSERT_EQ(noxStsNoErr, call(noxsImag_64fc, c.records.data(), c.first.data(), c.len));
    ASSERT_TRUE(bits(c.first, c.im));
    ASSERT_EQ(noxStsNoErr, call(noxsCplxToReal_64fc, c.records.data(), c.first.data(), c.second.data(), c.len));
    ASSERT_TRUE(bits(c.first, c.re) && bits(c.second, c.im));
    ASSERT_EQ(noxStsNoErr, call(noxsRealToCplx_64f, c.x.data(), c.y.data(), c.joined.data(), c.len));
    ASSERT_TRUE(kit::same_bits(c.joined.data(), c.records.data(), n));
    ASSERT_EQ(noxStsNoErr, call(noxsMagnitude_64f, c.x.data(), c.y.data(), c.x.data(), c.len));
    ASSERT_TRUE(kit::same_values(c.x.data(), magnitude.data(), n)) << "in place";
  });
}

TEST_P(ComplexHelpers, MissingPartsAreZero) {
  const Nox64f q[5] = {1, 2, 3, 4, 5};
  Nox64fc d[5] = {};
  EXPECT_EQ(noxStsNoErr, call(noxsRealToCplx_64f, nullptr, q, d, 5));
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(d[i].re == 0 && d[i].im == q[i]);
  EXPECT_EQ(noxStsNoErr, call(noxsRealToCplx_64f_Idx, q, 0, nullptr, 3, d, 0, 5));
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(d[i].re == q[i] && d[i].im == 0);
  EXPECT_EQ(noxStsSizeErr, call(noxsRealToCplx_64f, nullptr, nullptr, d, 0));
  EXPECT_EQ(noxStsNullPtrErr, call(noxsRealToCplx_64f, nullptr, nullptr, d, 4));
}

TEST_P(ComplexHelpers, AnglesAndPolarForms) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64fc), [&](size_t n, const Place& place, size_t turn) {
    Case c(random, n, place, turn);
    std::vector<Nox64f> angle(n), magnitude(n), cosine(n), sine(n);
    for (size_t i = 0; i < n; ++i) {
      angle[i] = std::atan2(c.im[i], c.re[i]);
      magnitude[i] = std::sqrt(c.re[i] * c.re[i] + c.im[i] * c.im[i]);
      // The real parts as magnitudes, the imaginary ones as angles.
      cosine[i] = c.re[i] * std::cos(c.im[i]);
      sine[i] = c.re[i] * std::sin(c.im[i]);
    }
    ASSERT_EQ(noxStsNoErr, call(noxsPhase_64f, c.x.data(), c.y.data(), c.first.data(), c.len));
    ASSERT_TRUE(near(c.first, angle, 1));
    c.first.fill_with(0);
    ASSERT_EQ(noxStsNoErr, call(noxsPhase_64fc, c.records.data(), c.first.data(), c.len));
    ASSERT_TRUE(near(c.first, angle, 1));
    ASSERT_EQ(noxStsNoErr, call(noxsCartToPolar_64f, c.x.data(), c.y.data(), c.first.data(), c.second.data(), c.len));
    ASSERT_TRUE(near(c.first, magnitude, 0) && near(c.second, angle, 1));
    c.first.fill_with(0), c.second.fill_with(0);
    ASSERT_EQ(noxStsNoErr, call(noxsCartToPolar_64fc, c.records.data(), c.first.data(), c.second.data(), c.len));
    ASSERT_TRUE(near(c.first, magnitude, 0) && near(c.second, angle, 1));
    ASSERT_EQ(noxStsNoErr, call(noxsPolarToCart_64fc, c.x.data(), c.y.data(), c.joined.data(), c.len));
    ASSERT_EQ(noxStsNoErr, call(noxsPolarToCart_64f, c.x.data(), c.y.data(), c.first.data(), c.y.data(), c.len));
    ASSERT_TRUE(near(c.first, cosine, 2) && near(c.y, sine, 2));
    for (size_t i = 0; i < n; ++i) {
      const Nox64fc separate = {c.first[i], c.y[i]};
      ASSERT_TRUE(kit::same_values(&c.joined[i], &separate, 1)) << i;
    }
  });
  // Both halves run and check for themselves.
  const Nox64f re[2] = {3, -1}, im[2] = {4, -0.0};
  Nox64f magnitude[2] = {}, angle[2] = {};
  EXPECT_EQ(noxStsNullPtrErr, call(noxsCartToPolar_64f, re, im, magnitude, nullptr, 2));
  EXPECT_EQ(5, magnitude[0]);
  EXPECT_EQ(noxStsNullPtrErr, call(noxsCartToPolar_64f, re, im, nullptr, angle, 2));
  EXPECT_EQ(-3.14159265358979323846, angle[1]);
  const Nox64fc z[2] = {{3, 4}, {0, 1}};
  EXPECT_EQ(noxStsNullPtrErr, call(noxsCartToPolar_64fc, z, magnitude, nullptr, 2));
  EXPECT_EQ(1, magnitude[1]);
}

template <class T>
T absolute(T x) {
  if constexpr (std::is_floating_point_v<T>)
    return std::fabs(x);
  else
    return x == std::numeric_limits<T>::min() ? std::numeric_limits<T>::max() : static_cast<T>(x < 0 ? -x : x);
}
template <class T>
void check_absolute(NoxStatus (*plain)(const T*, T*, int), NoxStatus (*in_place)(T*, int)) {
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t) {
    std::vector<T> x(n), expected(n);
    random.fill_special(x);
    for (size_t i = 0; i < n; ++i) expected[i] = absolute(x[i]);
    Guarded<T> s(x, place.edge, place.first), d(n, place.edge, place.dst);
    const int len = static_cast<int>(n);
    ASSERT_EQ(noxStsNoErr, call(plain, s.data(), d.data(), len));
    ASSERT_TRUE(kit::same_bits(d.data(), expected.data(), n));
    ASSERT_EQ(noxStsNoErr, call(in_place, s.data(), len));
    ASSERT_TRUE(kit::same_bits(s.data(), expected.data(), n));
  });
}
TEST_P(ComplexHelpers, AbsoluteValues) {
  check_absolute(noxsAbs_16s, noxsAbs_16s_I);
  check_absolute(noxsAbs_32s, noxsAbs_32s_I);
  check_absolute(noxsAbs_64f, noxsAbs_64f_I);
}

}  // namespace
