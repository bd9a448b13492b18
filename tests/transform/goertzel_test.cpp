// The Goertzel recurrence: bit for bit its steps in their order, fused where the build fuses, and a spectral value.
//
// Cosine and sine are what a call on the single element 1 gives. They are compared with those of the C library in the
// x87 format, and from then on taken as they are.
#include <gtest/gtest.h>

#include <cmath>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "vector/places.hpp"

namespace {

using kit::Guarded;

constexpr double kTwoPi = 6.283185307179586;
constexpr double kFrequencies[] = {0.1, 0.0, 0.123, 0.25, 0.3, 0.5, 0.75, 0.999, 1e-9, 1e-310, 0.125};

template <class T>
struct GoertzOf;
template <>
struct GoertzOf<Nox64f> {
  static constexpr auto plain = noxsGoertz_64f;
  static constexpr auto index = noxsGoertz_64f_Idx;
  static constexpr auto two = noxsGoertzTwo_64f_Idx;
};
template <>
struct GoertzOf<Nox64fc> {
  static constexpr auto plain = noxsGoertz_64fc;
  static constexpr auto index = noxsGoertz_64fc_Idx;
  static constexpr auto two = noxsGoertzTwo_64fc_Idx;
};
Nox64f re(Nox64f x) { return x; }
Nox64f im(Nox64f) { return 0; }
Nox64f re(const Nox64fc& x) { return x.re; }
Nox64f im(const Nox64fc& x) { return x.im; }

class Goertzel : public kit::EachVariant {
 protected:
  static bool fuses() { return GetParam().column == 4; }

  // Cosine and sine of the library for a frequency.
  static Nox64fc direction(double frequency) {
    const Nox64f one = 1;
    Nox64fc w{};
    EXPECT_EQ(noxStsNoErr, kit::call(noxsGoertz_64f, &one, 1, &w, frequency));
    return w;
  }
  template <class T>
  static Nox64fc expected(const std::vector<T>& x, const Nox64fc& w) {
    const double twice = w.re + w.re;
    const auto step = [&](double s1, double t) { return fuses() ? std::fma(s1, twice, t) : s1 * twice + t; };
    Nox64fc s1{}, s2{};
    for (const T& v : x) {
      const Nox64fc t = {re(v) - s2.re, im(v) - s2.im};
      s2 = s1;
      s1 = {step(s1.re, t.re), step(s1.im, t.im)};
    }
    return {w.re * s1.re - s2.re + -w.im * s1.im, w.re * s1.im - s2.im + w.im * s1.re};
  }
  template <class T>
  static void check_steps();
  template <class T>
  static void check_spectrum();
  template <class T>
  static void check_refusals();
  template <class T>
  static void check_index_forms();
};
NOX_EACH_VARIANT(Goertzel);

TEST_P(Goertzel, CosineAndSineAreOfDoublePrecision) {
  kit::Random random;
  for (size_t i = 0; i < 200; ++i) {
    const double frequency = i < std::size(kFrequencies) ? kFrequencies[i] : random.uniform(0, 1);
    const long double phi = kTwoPi * frequency;  // rounded to a double
    const Nox64fc w = direction(frequency);
    // A unit in the last place, at most.
    const auto near = [](double got, long double exact) {
      return std::fabs(got - exact) <= 0x1p-52L * std::fabs(exact);
    };
    EXPECT_TRUE(near(w.re, std::cos(phi))) << frequency << ": " << kit::describe(w.re);
    EXPECT_TRUE(near(w.im, std::sin(phi))) << frequency << ": " << kit::describe(w.im);
  }
}

template <class T>
void Goertzel::check_steps() {
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    const double frequency = kFrequencies[turn % std::size(kFrequencies)];
    std::vector<T> x(n);
    if (turn % 3)
      random.fill(x);
    else
      random.fill_special(x);
    const Nox64fc expected_value = expected(x, direction(frequency));
    Guarded<T> a(x, place.edge, place.first);
    Guarded<Nox64fc> value(1, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(GoertzOf<T>::plain, a.data(), static_cast<int>(n), value.data(), frequency));
    ASSERT_TRUE(kit::same_values(value.data(), &expected_value, 1)) << n << " elements at frequency " << frequency;
    ASSERT_TRUE(kit::same_bits(a.data(), x.data(), n)) << "the source was written";
  });
}

TEST_P(Goertzel, StepsInOrderBitForBit) {
  check_steps<Nox64f>();
  check_steps<Nox64fc>();
}

// The sum it stands for, term by term in a wider format.
template <class T>
void Goertzel::check_spectrum() {
  constexpr size_t kCount = 96;
  kit::Random random;
  std::vector<T> x(kCount);
  random.fill(x);
  for (const double frequency : {5.0 / kCount, 0.0, 0.123, 0.5, 0.9}) {
    const long double phi = kTwoPi * frequency;
    long double sum_re = 0, sum_im = 0;
    for (size_t i = 0; i < kCount; ++i) {
      const long double c = std::cos(phi * (kCount - i)), s = std::sin(phi * (kCount - i));
      sum_re += re(x[i]) * c - im(x[i]) * s;
      sum_im += re(x[i]) * s + im(x[i]) * c;
    }
    Nox64fc value{};
    ASSERT_EQ(noxStsNoErr, kit::call(GoertzOf<T>::plain, x.data(), static_cast<int>(kCount), &value, frequency));
    EXPECT_NEAR(static_cast<double>(sum_re), value.re, 1e-11) << frequency;
    EXPECT_NEAR(static_cast<double>(sum_im), value.im, 1e-11) << frequency;
  }
}

TEST_P(Goertzel, IsAValueOfTheSpectrum) {
  check_spectrum<Nox64f>();
  check_spectrum<Nox64fc>();
  const Nox64f ones[4] = {1, 1, 1, 1};
  const Nox64fc four{4, 0};
  Nox64fc value{};
  EXPECT_EQ(noxStsNoErr, kit::call(noxsGoertz_64f, ones, 4, &value, 0.0));
  EXPECT_TRUE(kit::same_bits(&value, &four, 1));
}

template <class T>
void Goertzel::check_refusals() {
  const T x[3] = {};
  const Nox64fc before{7, -7};
  const struct {
    const T* src;
    int len;
    bool with_value;
    double frequency;
    NoxStatus status;
  } cases[] = {{nullptr, 0, true, 1.0, noxStsNullPtrErr}, {x, 0, false, 1.0, noxStsNullPtrErr},
               {x, 0, true, 1.0, noxStsSizeErr},          {x, -1, true, 0.5, noxStsSizeErr},
               {x, 3, true, 1.0, noxStsRelFreqErr},       {x, 3, true, -0x1p-1074, noxStsRelFreqErr},
               {x, 3, true, HUGE_VAL, noxStsRelFreqErr},  {x, 3, true, -HUGE_VAL, noxStsRelFreqErr},
               {x, 3, true, -0.0, noxStsNoErr},           {x, 3, true, 0.999, noxStsNoErr},
               {x, 3, true, 1 - 0x1p-53, noxStsNoErr}};
  for (const auto& c : cases) {
    Nox64fc value = before;
    EXPECT_EQ(c.status, kit::call(GoertzOf<T>::plain, c.src, c.len, c.with_value ? &value : nullptr, c.frequency))
        << c.len << ' ' << c.frequency;
    EXPECT_EQ(c.status != noxStsNoErr, bool(kit::same_bits(&value, &before, 1))) << c.len << ' ' << c.frequency;
  }
  Nox64fc value = before;
  EXPECT_EQ(noxStsNoErr, kit::call(GoertzOf<T>::plain, x, 3, &value, std::nan("")));
  EXPECT_TRUE(std::isnan(value.re) && std::isnan(value.im)) << kit::describe(value);
}

TEST_P(Goertzel, RefusesFrequenciesLastAndPassesNan) {
  check_refusals<Nox64f>();
  check_refusals<Nox64fc>();
}

template <class T>
void Goertzel::check_index_forms() {
  constexpr size_t kCount = 21;
  constexpr int kLen = static_cast<int>(kCount);
  kit::Random random;
  Guarded<T> x(kCount);
  random.fill(x);
  const double frequencies[2] = {0.2, 0.7};
  Nox64fc expected[2], values[2];
  for (int i = 0; i < 2; ++i) {
    kit::call(GoertzOf<T>::plain, x.data(), kLen, &expected[i], frequencies[i]);
    EXPECT_EQ(noxStsNoErr, kit::call(GoertzOf<T>::index, x.data() + 9, -9, kLen, &values[i], frequencies[i]));
  }
  EXPECT_TRUE(kit::same_bits(values, expected, 2));
  const auto two = [&](std::initializer_list<double> f) {
    values[0] = values[1] = {7, 7};
    return kit::call(GoertzOf<T>::two, x.data() - 5, 5, kLen, values, f.begin());
  };
  const Nox64fc untouched{7, 7};
  EXPECT_EQ(noxStsNoErr, two({0.2, 0.7}));
  EXPECT_TRUE(kit::same_bits(values, expected, 2));
  EXPECT_EQ(noxStsNoErr, two({1.5, 0.7})) << "the first status doesn't count";
  EXPECT_TRUE(kit::same_bits(values, &untouched, 1));
  EXPECT_TRUE(kit::same_bits(values + 1, expected + 1, 1));
  EXPECT_EQ(noxStsRelFreqErr, two({0.2, 1.5}));
  EXPECT_TRUE(kit::same_bits(values, expected, 1));
  EXPECT_TRUE(kit::same_bits(values + 1, &untouched, 1));
}

TEST_P(Goertzel, IndexFormsAndTwoAtOnce) {
  check_index_forms<Nox64f>();
  check_index_forms<Nox64fc>();
}

}  // namespace
