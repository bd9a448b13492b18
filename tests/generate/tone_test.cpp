// Tones, triangle waves, ramps and the chirp against direct computation, and the order of their checks.
#include <gtest/gtest.h>

#include <cfenv>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/dispatch.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "reference/tone.hpp"
#include "vector/places.hpp"

namespace {

using kit::Guarded;
constexpr double kPi = 3.141592653589793, kTurn = 6.283185307179586;
const double kNan = std::numeric_limits<double>::quiet_NaN();

// Tones and triangles have rows but no exports; their index forms take the same arrays.
class Signals : public kit::EachVariant {};
NOX_EACH_VARIANT(Signals);

double re(Nox64f x) { return x; }
double re(const Nox64fc& x) { return x.re; }

NoxStatus tone(Nox64f* d, int n, double magn, double f, double* phase, int hint) {
  return kit::call(noxsTone_Direct_64f_Idx, d, 0, n, magn, f, phase, hint);
}
NoxStatus tone(Nox64fc* d, int n, double magn, double f, double* phase, int hint) {
  return kit::call(noxsTone_Direct_64fc_Idx, d, 0, n, magn, f, phase, hint);
}
NoxStatus triangle(Nox64f* d, int n, double magn, double f, double asym, double* phase) {
  return kit::call(noxsTriangle_Direct_64f_Idx, d, 0, n, magn, f, asym, phase);
}
NoxStatus triangle(Nox64fc* d, int n, double magn, double f, double asym, double* phase) {
  return kit::call(noxsTriangle_Direct_64fc_Idx, d, 0, n, magn, f, asym, phase);
}

// How far apart two phases are on the circle.
double apart(long double a, long double b) {
  const long double d = std::fabs(std::remainder(a - b, 2 * reference::kPi));
  return static_cast<double>(d);
}

template <class E>
void tones(double above) {
  size_t turn = 0;
  for_lengths_and_places(sizeof(E), [&](size_t n, const Place& place, size_t) {
    const double frequencies[] = {0, 0.01, 0.123, 0.25, 0.31, 0.4999}, phases[] = {0, 1, 3, 6.28};
    const double f = frequencies[turn % 6] * above * 2, first = phases[turn % 4],
                 magn = 0.5 + static_cast<double>(turn % 3);
    const int hint = static_cast<int>(turn++ % 3);
    Guarded<E> d(n, place.edge, place.dst);
    double phase = first;
    ASSERT_EQ(noxStsNoErr, tone(d.data(), static_cast<int>(n), magn, f, &phase, hint));
    ASSERT_TRUE(phase >= 0 && phase < kTurn);
    ASSERT_LT(apart(phase, reference::angle(f, first, static_cast<int>(n))), 1e-11);
    for (size_t k = 0; k < n; ++k) {
      // The recurrence multiplies what the first two values are off by 1 / sin(w), or by k where that is less.
      const double k1 = static_cast<double>(k) + 1, amplified = std::min(1 / std::fabs(std::sin(kTurn * f)), k1);
      const double allowed = magn * 4e-16 * (k1 + 8) * (amplified + 1);
      ASSERT_NEAR(re(d[k]), reference::tone(magn, f, first, static_cast<int>(k)), allowed)
          << k << " of " << n << ", " << f;
      if constexpr (kit::is_complex<E>) {
        ASSERT_NEAR(d[k].im, reference::tone_sine(magn, f, first, static_cast<int>(k)), allowed) << k << " of " << n;
      }
    }
  });
}
TEST_P(Signals, Tones) {
  tones<Nox64f>(0.5);
  tones<Nox64fc>(1);
}

// Hint 1 keeps the error of a slow tone bounded: its blocks start from direct values.
TEST_P(Signals, TonesStartAfresh) {
  constexpr int kCount = 5000;
  const double f = 1e-5, tight = 1e-14;
  std::vector<Nox64f> d(kCount), loose(kCount);
  std::vector<Nox64fc> c(kCount);
  for (const int hint : {1, 0}) {
    double phase = 0.5, other = 0.5;
    ASSERT_EQ(noxStsNoErr, tone(hint ? d.data() : loose.data(), kCount, 1, f, &phase, hint));
    ASSERT_EQ(noxStsNoErr, tone(c.data(), kCount, 1, f, &other, hint));
    EXPECT_EQ(phase, other);
    for (const int at : {2048, 2049, 4096, 4097}) {
      const double exact = reference::tone(1, f, 0.5, at);
      if (hint) {
        EXPECT_NEAR(d[static_cast<size_t>(at)], exact, tight) << at;
        EXPECT_NEAR(c[static_cast<size_t>(at)].re, exact, tight) << at;
        EXPECT_NEAR(c[static_cast<size_t>(at)].im, reference::tone_sine(1, f, 0.5, at), tight) << at;
      }
    }
  }
  EXPECT_TRUE(kit::same_bits(d.data(), loose.data(), 2048)) << "the first block is the same";
  EXPECT_FALSE(kit::same_bits(d.data() + 2048, loose.data() + 2048, 100)) << "the next one isn't";
}

template <class E>
void triangles() {
  size_t turn = 0;
  for_lengths_and_places(sizeof(E), [&](size_t n, const Place& place, size_t) {
    const double frequencies[] = {0, 0.001, 0.03, 0.1, 0.109, 0.11, 0.139, 0.14, 0.33, 0.499};
    const double asyms[] = {0, 1, -1, 3.1, -3.1, 2}, phases[] = {0, 2, 4, 6.28};
    const double f = frequencies[turn % 10], asym = asyms[turn / 2 % 6], first = phases[turn % 4], magn = 2.5;
    ++turn;
    Guarded<E> d(n, place.edge, place.dst);
    double phase = first;
    ASSERT_EQ(noxStsNoErr, triangle(d.data(), static_cast<int>(n), magn, f, asym, &phase));
    ASSERT_TRUE(phase >= 0 && phase < kTurn);
    ASSERT_LT(apart(phase, reference::angle(f, first, static_cast<int>(n))), 1e-11);
    // Rounding adds up; the short part of a lopsided wave multiplies it.
    const double allowed = 1e-14 * (8 + static_cast<double>(n)) * 2 * kPi / (kPi - std::fabs(asym));
    for (size_t k = 0; k < n; ++k) {
      const long double p = reference::angle(f, first, static_cast<int>(k));
      ASSERT_NEAR(re(d[k]), reference::triangle_at(magn, asym, p), allowed)
          << k << " of " << n << ", " << f << ' ' << asym;
      if constexpr (kit::is_complex<E>) {
        ASSERT_NEAR(d[k].im, reference::triangle_at(magn, asym, p + reference::later(asym)), allowed) << k << ", " << f;
      }
    }
  });
}
TEST_P(Signals, Triangles) {
  triangles<Nox64f>();
  triangles<Nox64fc>();
}

// No falling part, at a frequency of either method: a rise of 2 f magn a step that jumps back.
TEST_P(Signals, ASawtooth) {
  for (const double f : {0.07, 0.3}) {
    Nox64f d[200];
    double phase = 0.1;
    ASSERT_EQ(noxStsNoErr, triangle(d, 200, 1, f, -kPi, &phase));
    for (int k = 0; k < 200; ++k) {
      const double turns = 0.1 / kTurn + f * k;
      ASSERT_NEAR(d[k], 2 * (turns - std::floor(turns)) - 1, 1e-12) << k;
    }
  }
}

TEST_P(Signals, ChecksInOrder) {
  double phase = 1, above = kTurn;
  Nox64f d = 7;
  EXPECT_EQ(noxStsNullPtrErr, tone(&d, 1, 0, 9, nullptr, 0));
  EXPECT_EQ(noxStsToneMagnErr, tone(static_cast<Nox64f*>(nullptr), 0, 0, 0.5, &above, 0));
  EXPECT_EQ(noxStsToneFreqErr, tone(static_cast<Nox64f*>(nullptr), 0, 1, 0.5, &above, 0));
  EXPECT_EQ(noxStsToneFreqErr, tone(&d, 1, 1, -1e-300, &phase, 0));
  EXPECT_EQ(noxStsToneFreqErr, tone(&d, 1, 1, kNan, &phase, 0));
  EXPECT_EQ(noxStsTonePhaseErr, tone(static_cast<Nox64f*>(nullptr), 0, 1, 0.1, &above, 0));
  EXPECT_EQ(noxStsNullPtrErr, tone(static_cast<Nox64f*>(nullptr), 0, 1, 0.1, &phase, 0));
  EXPECT_EQ(noxStsSizeErr, tone(&d, 0, 1, 0.1, &phase, 0));
  Nox64fc c = {7, 7};
  EXPECT_EQ(noxStsToneFreqErr, tone(&c, 1, 1, 1, &phase, 0));
  EXPECT_EQ(noxStsNullPtrErr, triangle(&d, 1, 0, 9, 9, nullptr));
  EXPECT_EQ(noxStsTrnglMagnErr, triangle(static_cast<Nox64f*>(nullptr), 0, -1, 9, 9, &above));
  EXPECT_EQ(noxStsTrnglFreqErr, triangle(static_cast<Nox64f*>(nullptr), 0, 1, 0.5, 9, &above));
  EXPECT_EQ(noxStsTrnglAsymErr, triangle(static_cast<Nox64f*>(nullptr), 0, 1, 0.1, kPi, &above));
  EXPECT_EQ(noxStsTrnglPhaseErr, triangle(static_cast<Nox64f*>(nullptr), 0, 1, 0.1, -kPi, &above));
  EXPECT_EQ(noxStsNullPtrErr, triangle(static_cast<Nox64f*>(nullptr), 0, 1, 0.1, 0, &phase));
  EXPECT_EQ(noxStsSizeErr, triangle(&d, 0, 1, 0.1, 0, &phase));
  EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsVectorJaehne_64f, nullptr, 0, -1.0));
  EXPECT_EQ(noxStsSizeErr, kit::call(noxsVectorJaehne_64f, &d, 0, -1.0));
  EXPECT_EQ(noxStsJaehneErr, kit::call(noxsVectorJaehne_64f, &d, 1, -1.0));
  EXPECT_TRUE(phase == 1 && d == 7 && c.re == 7);
  EXPECT_EQ(noxStsNoErr, kit::call(noxsVectorJaehne_64f, &d, 1, 1.0));
  EXPECT_EQ(d, 0);
}

template <class T, class P>
void float_slopes(NoxStatus (*ramp)(T*, int, P, P), double unit) {
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    const P offset = static_cast<P>(turn % 7) - P(2.7), slope = P(0.3) * static_cast<P>(turn % 5) - P(0.61);
    Guarded<T> d(n, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(ramp, d.data(), static_cast<int>(n), offset, slope));
    for (size_t k = 0; k < n; ++k) {
      const double k_ = static_cast<double>(k), exact = double{offset} + double{slope} * k_;
      ASSERT_NEAR(d[k], exact, unit * (4 + k_) * (4 + std::fabs(exact))) << k << " of " << n;
    }
  });
}
template <class T, class P>
void integer_slopes(NoxStatus (*ramp)(T*, int, P, P)) {
  const double low = std::numeric_limits<T>::min(), high = std::numeric_limits<T>::max();
  // Rising and falling through one bound, through both, none; flat; halves, which round away from zero.
  const double lines[][2] = {{high - 5, 1},
                             {low - 40, 2.5},
                             {low + 3.5, -0.5},
                             {high + 700, -7},
                             {high + 9, 3},
                             {low - 9, -3},
                             {0.5, 0},
                             {-2.5, 0},
                             {high * 2, 0},
                             {low * 2 - 1, 0},
                             {high + 60, -(high - low) / 32},
                             {low - 1, (high - low) / 64},
                             {10.5, 1},
                             {0.25, 0.25}};
  size_t which = 0;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t) {
    const P offset = static_cast<P>(lines[which % 14][0]), slope = static_cast<P>(lines[which % 14][1]);
    ++which;
    Guarded<T> d(n, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(ramp, d.data(), static_cast<int>(n), offset, slope));
    for (size_t k = 0; k < n; ++k)
      ASSERT_EQ(d[k], reference::rounded_line(offset, slope, static_cast<int>(k), low, high))
          << k << " of " << n << ", " << offset << " + k * " << slope;
  });
}
TEST_P(Signals, Slopes) {
  float_slopes(noxsVectorSlope_64f, 2e-16);
  float_slopes(noxsVectorSlope_32f, 1e-7);
  integer_slopes(noxsVectorSlope_32s);
  integer_slopes(noxsVectorSlope_16s);
  integer_slopes(noxsVectorSlope_8u);
}

TEST_P(Signals, Jaehne) {
  for_lengths_and_places(sizeof(Nox64f), [&](size_t n, const Place& place, size_t) {
    const int len = static_cast<int>(n);
    Guarded<Nox64f> d(n, place.edge, place.dst);
    Guarded<Nox32s> i(n, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(noxsVectorJaehne_64f, d.data(), len, 3.0));
    std::fesetround(FE_UPWARD);
    const NoxStatus st = noxsVectorJaehne_32s(i.data(), len, 1000);
    std::fesetround(FE_TONEAREST);
    ASSERT_EQ(noxStsNoErr, st);
    for (size_t k = 0; k < n; ++k) {
      ASSERT_NEAR(d[k], reference::jaehne(3, len, static_cast<int>(k)), 3e-15 + 2.1e-15 * len) << k << " of " << n;
      ASSERT_NEAR(i[k], reference::jaehne(1000, len, static_cast<int>(k)), 0.5 + 1e-9) << k << " of " << n;
    }
  });
}

}  // namespace
