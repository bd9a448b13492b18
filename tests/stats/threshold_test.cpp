// Thresholds: bit for bit what the rules say of each element, under every build, at every length and place, in place
// and not; the last element's exception; and the bounds and warnings of the reciprocals.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <cmath>
#include <limits>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/index.h"
#include "nox/nox.h"
#include "reference/threshold.hpp"
#include "vector/places.hpp"

namespace {

using kit::Guarded;

constexpr Nox64f kInf = std::numeric_limits<Nox64f>::infinity(), kNan = std::numeric_limits<Nox64f>::quiet_NaN();

class Threshold : public kit::EachVariant {};
NOX_EACH_VARIANT(Threshold);

// One rule in both forms against expected(x, constants...).
template <class T, class Expected, class... C>
void check(const char* name, NoxStatus (*plain)(const T*, T*, int, C...), NoxStatus (*in_place)(T*, int, C...),
           Expected expected, bool last_differs, C... c) {
  SCOPED_TRACE(name);
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    const int len = static_cast<int>(n);
    std::vector<T> x(n), y(n);
    if (turn & 1)
      random.fill(x);
    else
      random.fill_special(x);
    for (size_t i = 0; i < n; ++i) y[i] = expected(x[i], c...);
    Guarded<T> s(x, place.edge, place.first), d(n, place.edge, place.dst), both(x, place.edge, place.second);
    ASSERT_EQ(noxStsNoErr, kit::call(in_place, both.data(), len, c...));
    ASSERT_TRUE(kit::same_values(both.data(), y.data(), n)) << "in place";
    ASSERT_EQ(noxStsNoErr, kit::call(plain, s.data(), d.data(), len, c...));
    const size_t apart = reinterpret_cast<uintptr_t>(d.data()) % 16 == 8;
    if (last_differs && (n - apart) % 2 != 0) y[n - 1] = reference::limit_last(x[n - 1], y[n - 1], c...);
    ASSERT_TRUE(kit::same_values(d.data(), y.data(), n));
    ASSERT_TRUE(kit::same_bits(s.data(), x.data(), n)) << "the source was written";
  });
}

TEST_P(Threshold, Real) {
  for (const Nox64f level : {0.25, -0.5, 0.0, kInf}) {
    check("LT_64f", noxsThreshold_LT_64f, noxsThreshold_LT_64f_I, reference::raise, true, level);
    check("GT_64f", noxsThreshold_GT_64f, noxsThreshold_GT_64f_I, reference::lower, true, level);
    check("64f", noxsThreshold_64f, noxsThreshold_64f_I, reference::limit, true, level, level < 0 ? 0 : 4);
    check("LTVal_64f", noxsThreshold_LTVal_64f, noxsThreshold_LTVal_64f_I, reference::below<Nox64f>, false, level,
          -0.0);
    check("GTVal_64f", noxsThreshold_GTVal_64f, noxsThreshold_GTVal_64f_I, reference::above<Nox64f>, false, level, 7.0);
    if (level < 0) continue;
    check("LTAbs_64f", noxsThreshold_LTAbs_64f, noxsThreshold_LTAbs_64f_I, reference::raise_size, false, level);
    check("GTAbs_64f", noxsThreshold_GTAbs_64f, noxsThreshold_GTAbs_64f_I, reference::clamp, false, level);
  }
  for (const Nox64f low : {-0.5, 0.25, kNan})
    check("LTValGTVal_64f", noxsThreshold_LTValGTVal_64f, noxsThreshold_LTValGTVal_64f_I, reference::outside<Nox64f>,
          false, low, -9.0, 0.25, 9.0);
}

template <class T>
void check_integers(const char* name, T low, T high, T size) {
  SCOPED_TRACE(name);
  const auto pick = [&](auto of16, auto of32) {
    if constexpr (sizeof(T) == 2)
      return of16;
    else
      return of32;
  };
  check(
      "LT", pick(noxsThreshold_LT_16s, noxsThreshold_LT_32s), pick(noxsThreshold_LT_16s_I, noxsThreshold_LT_32s_I),
      [](T x, T level) { return x < level ? level : x; }, false, low);
  check(
      "GT", pick(noxsThreshold_GT_16s, noxsThreshold_GT_32s), pick(noxsThreshold_GT_16s_I, noxsThreshold_GT_32s_I),
      [](T x, T level) { return x > level ? level : x; }, false, high);
  check("LTValGTVal", pick(noxsThreshold_LTValGTVal_16s, noxsThreshold_LTValGTVal_32s),
        pick(noxsThreshold_LTValGTVal_16s_I, noxsThreshold_LTValGTVal_32s_I), reference::outside<T>, false, low, T(-3),
        high, T(5));
  check("LTAbs", pick(noxsThreshold_LTAbs_16s, noxsThreshold_LTAbs_32s),
        pick(noxsThreshold_LTAbs_16s_I, noxsThreshold_LTAbs_32s_I), reference::raise_size_of<T>, false, size);
  check("GTAbs", pick(noxsThreshold_GTAbs_16s, noxsThreshold_GTAbs_32s),
        pick(noxsThreshold_GTAbs_16s_I, noxsThreshold_GTAbs_32s_I), reference::clamp_to<T>, false, size);
}

TEST_P(Threshold, Integers) {
  check_integers<Nox16s>("16s", -1000, 1, 5);
  check_integers<Nox16s>("16s", -32768, 32767, 0);
  check_integers<Nox32s>("32s", -1, 1 << 30, 1 << 29);
  check_integers<Nox32s>("32s", 0, 0, 0x7FFFFFFF);
  check("LTVal_16s", noxsThreshold_LTVal_16s, noxsThreshold_LTVal_16s_I, reference::below<Nox16s>, false, Nox16s{1},
        Nox16s{-9});
}

TEST_P(Threshold, ReachedByIndexAlone) {
  Nox64f x[] = {1, kNan, -kNan, kInf, -0.0, kNan, 2};
  EXPECT_EQ(noxStsNoErr, kit::call(noxsReplaceNAN_64f_I_Idx, x, 1, 6, 5.0));
  const Nox64f expected[] = {1, 5, 5, kInf, -0.0, 5, 2};
  EXPECT_TRUE(kit::same_values(x, expected, 7));
  const Nox16s s[] = {0, 5, 6, 32767, -32768, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17};
  Nox16s d[18] = {}, in_place[18];
  std::copy(std::begin(s), std::end(s), in_place);
  EXPECT_EQ(noxStsNoErr, kit::call(noxsThreshold_GTVal_16s_Idx, s, 1, d, 1, 17, Nox16s{5}, Nox16s{-1}));
  EXPECT_EQ(noxStsNoErr, kit::call(noxsThreshold_GTVal_16s_I_Idx, in_place, 0, 18, Nox16s{5}, Nox16s{-1}));
  for (int i = 0; i < 18; ++i) EXPECT_EQ(s[i] > 5 ? -1 : s[i], d[i]);
  for (int i = 0; i < 18; ++i) EXPECT_EQ(d[i], in_place[i]);
}

TEST_P(Threshold, Complex) {
  for (const Nox64f level : {0.0, 0.7, 2.0, kInf}) {
    const Nox64fc value{-3, kNan};
    check("LT_64fc", noxsThreshold_LT_64fc, noxsThreshold_LT_64fc_I, reference::lengthen, false, level);
    check("GT_64fc", noxsThreshold_GT_64fc, noxsThreshold_GT_64fc_I, reference::shorten, false, level);
    check("64fc", noxsThreshold_64fc, noxsThreshold_64fc_I, reference::limit_complex, false, level, level > 1 ? 4 : 0);
    check("LTVal_64fc", noxsThreshold_LTVal_64fc, noxsThreshold_LTVal_64fc_I, reference::shorter, false, level, value);
    check("GTVal_64fc", noxsThreshold_GTVal_64fc, noxsThreshold_GTVal_64fc_I, reference::longer, false, level, value);
  }
}

TEST_P(Threshold, RefusesArguments) {
  Nox64f x[2] = {1, 2};
  Nox64fc c[2] = {{1, 2}, {3, 4}};
  Nox16s s[2] = {1, 2};
  EXPECT_EQ(noxStsBadArgErr, noxsThreshold_64f(x, x, 2, 5, 1));
  EXPECT_EQ(noxStsSizeErr, noxsThreshold_64f_I(x, 0, 5, 1));
  EXPECT_EQ(noxStsBadArgErr, noxsThreshold_64fc_I(c, 2, -5, 1)) << "the relation is looked at before the level";
  EXPECT_EQ(noxStsThreshNegLevelErr, noxsThreshold_64fc(c, c, 2, -5, 4));
  EXPECT_EQ(noxStsThreshNegLevelErr, noxsThreshold_LTVal_64fc_I(c, 2, -5, {9, 9}));
  EXPECT_EQ(noxStsThreshNegLevelErr, noxsThreshold_GTVal_64fc_I(c, 2, -5, {9, 9}));
  EXPECT_EQ(noxStsThreshNegLevelErr, noxsThreshold_LTAbs_16s_I(s, 2, -5));
  EXPECT_EQ(noxStsThreshNegLevelErr, noxsThreshold_GTAbs_64f_I(x, 2, -5));
  EXPECT_EQ(noxStsThreshNegLevelErr, noxsThreshold_LTInv_64f_I(x, 2, -5));
  EXPECT_EQ(noxStsThreshNegLevelErr, noxsThreshold_LTInv_64fc_I(c, 2, -5));
  EXPECT_EQ(noxStsThresholdErr, noxsThreshold_LTValGTVal_16s_I(s, 2, 5, 0, 4, 0));
  EXPECT_EQ(noxStsThresholdErr, noxsThreshold_LTValGTVal_64f_I(x, 2, 5, 0, 4, 0));
  EXPECT_TRUE(x[0] == 1 && x[1] == 2 && c[0].re == 1 && c[1].im == 4 && s[0] == 1 && s[1] == 2);
}

// Elements of every size, so that products of neighbours overflow, vanish and do neither.
Nox64f of_any_size(kit::Random& random, int exponent) {
  const Nox64f x = std::ldexp(random.uniform(1, 2), static_cast<int>(random.integer(-exponent, exponent)));
  return random.chance(0.5) ? x : -x;
}

TEST_P(Threshold, Reciprocals) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64f), [&](size_t n, const Place& place, size_t turn) {
    std::vector<Nox64f> x(n);
    if (turn % 3 == 0)
      random.fill_special(x);
    else
      for (Nox64f& e : x) e = of_any_size(random, turn % 3 == 1 ? 2 : 1000);
    for (const Nox64f level : {0.0, 0.5, 0x1p-700}) {
      bool zero = false;
      std::vector<Nox64f> y(n);
      for (size_t i = 0; i < n; ++i) {
        zero |= level == 0 && x[i] == 0;
        y[i] = 1 / (level == 0 ? x[i] : reference::raise_size(x[i], level));
      }
      Guarded<Nox64f> s(x, place.edge, place.first), d(n, place.edge, place.dst);
      const unsigned control = _mm_getcsr();
      ASSERT_EQ(zero ? noxStsInvZero : noxStsNoErr,
                kit::call(noxsThreshold_LTInv_64f, s.data(), d.data(), static_cast<int>(n), level));
      ASSERT_EQ(control, _mm_getcsr());
      ASSERT_EQ(zero ? noxStsInvZero : noxStsNoErr,
                kit::call(noxsThreshold_LTInv_64f_I, s.data(), static_cast<int>(n), level));
      for (size_t i = 0; i < n; ++i) {
        ASSERT_LE(kit::ulp_distance(y[i], d[i]), 4u) << "1 / " << x[i];
        ASSERT_TRUE(std::isnan(y[i]) || std::signbit(y[i]) == std::signbit(d[i])) << "1 / " << x[i];
        ASSERT_LE(kit::ulp_distance(y[i], s[i]), 4u) << "1 / " << x[i] << " in place";
      }
      s.fill(x);
    }
  });
}

TEST_P(Threshold, ComplexReciprocals) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox64fc), [&](size_t n, const Place& place, size_t turn) {
    std::vector<Nox64fc> x(n);
    for (Nox64fc& e : x) {
      const int exponent = turn % 2 ? 2 : 480;
      e = {of_any_size(random, exponent), of_any_size(random, exponent)};
      if (random.chance(0.1)) e = {random.chance(0.5) ? 0.0 : -0.0, 0.0};
    }
    for (const Nox64f level : {0.0, 1.5, 0x1p-400}) {
      bool zero = false;
      Guarded<Nox64fc> s(x, place.edge, place.first), d(n, place.edge, place.dst);
      const NoxStatus st = kit::call(noxsThreshold_LTInv_64fc, s.data(), d.data(), static_cast<int>(n), level);
      ASSERT_EQ(st, kit::call(noxsThreshold_LTInv_64fc_I, s.data(), static_cast<int>(n), level));
      ASSERT_TRUE(kit::same_values(s.data(), d.data(), n));
      for (size_t i = 0; i < n; ++i) {
        zero |= level == 0 && x[i].re * x[i].re + x[i].im * x[i].im == 0;
        const Nox64fc y = reference::invert(x[i], level);
        if (std::isinf(y.re)) {
          ASSERT_TRUE(kit::same_value(y, d[i]));
          continue;
        }
        const Nox64f unit = std::max(std::fabs(y.re), std::fabs(y.im)) * 0x1p-53 + 0x1p-1074;
        ASSERT_LE(std::fabs(y.re - d[i].re), 6 * unit) << x[i].re << ' ' << x[i].im << " level " << level;
        ASSERT_LE(std::fabs(y.im - d[i].im), 6 * unit) << x[i].re << ' ' << x[i].im << " level " << level;
      }
      ASSERT_EQ(zero ? noxStsInvZero : noxStsNoErr, st);
    }
  });
}

// A host may have exceptions unmasked: they don't reach it, and its settings come back.
TEST_P(Threshold, MasksExceptions) {
  const unsigned control = _mm_getcsr();
  Nox64f x[] = {0, 1e-310, kInf, 4, 0, -1, 2, 3, 5};
  Nox64fc c[] = {{0, 0}, {1e-300, 0}, {1e300, 1}, {1, 1}, {0, -0.0}};
  _mm_setcsr(control & ~(_MM_MASK_MASK | _MM_EXCEPT_MASK));
  const unsigned unmasked = _mm_getcsr();
  const NoxStatus real = noxsThreshold_LTInv_64f_I(x, 9, 0), complex = noxsThreshold_LTInv_64fc_I(c, 4, 0);
  const NoxStatus raised = noxsThreshold_LTInv_64fc_I(c + 4, 1, 0x1p-600);
  const unsigned after = _mm_getcsr();
  _mm_setcsr(control);
  EXPECT_EQ(unmasked, after);
  EXPECT_EQ(noxStsInvZero, real);
  EXPECT_EQ(noxStsInvZero, complex);
  EXPECT_EQ(noxStsNoErr, raised);
  EXPECT_EQ(kInf, x[0]);
  EXPECT_EQ(0.25, x[3]);
  EXPECT_EQ(0x1p600, c[4].re);
}

}  // namespace
