// The elementary functions of every build: errors against wider arithmetic, special values, angles that nearly cancel,
// the same bits at every place.
//
// The accuracy program measures errors finely and over the whole range; here a build must stay below one unit.
#include <functional>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/lengths.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "vmath/functions.hpp"

namespace {

using kit::Edge;
using kit::Guarded;

constexpr double kInf = std::numeric_limits<double>::infinity(), kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kLeast = std::numeric_limits<double>::denorm_min(), kMost = std::numeric_limits<double>::max();
constexpr double kPi = 0x1.921fb54442d18p+1;

class Vmath : public kit::EachVariant {
 protected:
  const vmath::Functions& f() const {
    const vmath::Functions* const all[] = {&w7_vmath, &s8_vmath, &p8_vmath, &g9_vmath, &h9_vmath};
    return *all[GetParam().column];
  }
};

// In units in the last place of a double of the exact value's size.
double error_of(double got, long double exact) {
  int exponent;
  std::frexp(exact, &exponent);
  return static_cast<double>(std::fabs(std::ldexp(exact - static_cast<long double>(got), 53 - exponent)));
}
// The reference's own error, in the same units.
constexpr double kSlack = 0x1p-9;

int points() { return kit::quick() ? 2000 : 50000; }

__extension__ typedef __float128 Quad;
// Sine (0) or cosine (1) of an angle below 2^24 that isn't very near to a multiple of pi/2: reduced with 113 bits.
long double circular(double x, int which) {
  const Quad half_pi = static_cast<Quad>(0x1.921fb54442d18p+0) + static_cast<Quad>(0x1.1a62633145c07p-54) -
                       static_cast<Quad>(0x1.f1976b7ed8fbcp-110);
  const double n = std::nearbyint(x / 0x1.921fb54442d18p+0);
  const Quad r = static_cast<Quad>(x) - static_cast<Quad>(n) * half_pi;
  // The angle in two parts: the functions of the first, and the second by their slope.
  const long double high = static_cast<long double>(r), low = static_cast<long double>(r - static_cast<Quad>(high));
  const long double s = std::sin(high), c = std::cos(high);
  const int turn = (static_cast<int>(n) + which) & 3;
  const long double value = turn & 1 ? c - s * low : s + c * low;
  return turn & 2 ? -value : value;
}

TEST_P(Vmath, SineAndCosineAreWithinOneUnit) {
  kit::Random random;
  double worst[2] = {};
  for (int i = 0; i < points(); ++i) {
    const double size = i % 3 == 0 ? 0.8 : i % 3 == 1 ? 10 : std::ldexp(1.0, static_cast<int>(random.integer(4, 24)));
    const double x = random.uniform(-size, size);
    worst[0] = std::max(worst[0], error_of(f().sin_one(x), circular(x, 0)));
    worst[1] = std::max(worst[1], error_of(f().cos_one(x), circular(x, 1)));
  }
  EXPECT_LT(worst[0], 1 + kSlack);
  EXPECT_LT(worst[1], 1 + kSlack);
}

// Doubles next to multiples of pi/2, among them the nearest of all, and the ends of the two reductions' ranges.
TEST_P(Vmath, SineAndCosineKeepTheirBitsWhereTheAngleCancels) {
  const struct {
    double x, sine, cosine;
  } table[] = {{0x1.6ac5b262ca1ffp+849, 0x1p0, -0x1.14ae72e6ba22fp-61},
               {0x1.6ac5b262ca1ffp+850, -0x1.14ae72e6ba22fp-60, -0x1p0},
               {0x1.6c6cbc45dc8dep+5, 0x1p0, -0x1.6d61b58c99c43p-61},
               {0x1.b951f1572eba5p+23, -0x1p0, -0x1.f54f5227a4e84p-60},
               {0x1.39c6fd67805a7p+18, -0x1p0, -0x1.988efe18ff83fp-55},
               {0x1.9eb7148f354d6p+20, 0x1p0, -0x1.d0afa32c646cap-55},
               {0x1.b951f1572eba5p+26, -0x1.f54f5227a4e84p-57, 0x1p0},
               {0x1p24, -0x1.8f22f8433d6eep-1, 0x1.40ad67f3f0c9ap-1},
               {0x1.0000000000001p24, -0x1.8f22f82f32986p-1, 0x1.40ad680ce2f92p-1},
               {kMost, 0x1.452fc98b34e97p-8, -0x1.fffe62ecfab75p-1}};
  for (const auto& row : table) {
    EXPECT_LE(kit::ulp_distance(f().sin_one(row.x), row.sine), 1u) << row.x;
    EXPECT_LE(kit::ulp_distance(f().cos_one(row.x), row.cosine), 1u) << row.x;
    EXPECT_EQ(f().sin_one(-row.x), -f().sin_one(row.x)) << row.x;
    EXPECT_EQ(f().cos_one(-row.x), f().cos_one(row.x)) << row.x;
  }
}

// Doubling leads from angles that the short reduction takes up to the largest, one exponent and one set of bits of 2/pi
// after the other.
TEST_P(Vmath, LargeAnglesAgreeWithTheirHalves) {
  kit::Random random;
  for (int chain = 0; chain < (kit::quick() ? 3 : 100); ++chain) {
    const double start = random.uniform(0x1p22, 0x1p23);
    for (int e = 0; e < 1000; ++e) {
      const double x = std::ldexp(start, e), s = f().sin_one(x), c = f().cos_one(x);
      ASSERT_NEAR(f().sin_one(2 * x), 2 * s * c, 0x1p-50) << x;
      ASSERT_NEAR(f().cos_one(2 * x), (c - s) * (c + s), 0x1p-50) << x;
    }
  }
}

TEST_P(Vmath, LogarithmIsWithinOneUnit) {
  kit::Random random;
  double worst = 0;
  for (int i = 0; i < points(); ++i) {
    double x = random.uniform(0.5, 2);
    if (i % 4 == 1) x = 1 + std::ldexp(random.uniform(), static_cast<int>(random.integer(-52, -3)));
    if (i % 4 == 2) x = std::ldexp(x, static_cast<int>(random.integer(-1021, 1022)));
    if (i % 4 == 3) x = std::max(kLeast, std::ldexp(x, static_cast<int>(random.integer(-1074, -1022))));
    if (x != 1) worst = std::max(worst, error_of(f().log_one(x), std::log(static_cast<long double>(x))));
  }
  EXPECT_LT(worst, 1 + kSlack);
}

TEST_P(Vmath, ArcTangentIsWithinOneUnit) {
  kit::Random random;
  double worst = 0;
  for (int i = 0; i < points(); ++i) {
    double y = random.uniform(), x = random.uniform();
    if (i % 3 == 1) y = std::ldexp(y, static_cast<int>(random.integer(-60, 60)));
    if (i % 3 == 2) {  // any size, so that scaling is seen as well
      const int e = static_cast<int>(random.integer(-1000, 1000));
      y = std::ldexp(y, e);
      x = std::ldexp(x, e + static_cast<int>(random.integer(-20, 20)));
    }
    const long double exact = std::atan2(static_cast<long double>(y), static_cast<long double>(x));
    worst = std::max(worst, error_of(f().atan2_one(y, x), exact));
  }
  EXPECT_LT(worst, 1 + kSlack);
  // Angles that are denormal, or no more than that.
  EXPECT_EQ(f().atan2_one(kLeast, 1), kLeast);
  EXPECT_EQ(f().atan2_one(0x1p-1000, 0x1p50), 0x1p-1050);
  EXPECT_EQ(f().atan2_one(-kLeast, kMost), -0.0);
  EXPECT_EQ(f().atan2_one(3 * kLeast, 3 * kLeast), kPi / 4);
  EXPECT_EQ(f().atan2_one(kMost, -kMost), 0x1.2d97c7f3321d2p+1);
}

struct Special {
  double x, result;
};
void expect(const std::vector<Special>& table, double (*one)(double)) {
  for (const Special& row : table)
    EXPECT_TRUE(kit::same_value(one(row.x), row.result)) << row.x << " gives " << kit::describe(one(row.x));
}
TEST_P(Vmath, SpecialValuesAreThoseOfTheStandard) {
  expect(
      {{0.0, 0.0}, {-0.0, -0.0}, {kInf, kNaN}, {-kInf, kNaN}, {kNaN, kNaN}, {kLeast, kLeast}, {-0x1p-1022, -0x1p-1022}},
      f().sin_one);
  expect({{0.0, 1}, {-0.0, 1}, {kInf, kNaN}, {-kInf, kNaN}, {kNaN, kNaN}, {kLeast, 1}}, f().cos_one);
  expect({{0.0, -kInf},
          {-0.0, -kInf},
          {1, 0.0},
          {-1, kNaN},
          {-kLeast, kNaN},
          {-kInf, kNaN},
          {kInf, kInf},
          {kNaN, kNaN},
          {-kNaN, kNaN}},
         f().log_one);
  // The C library follows the standard here: zeros, infinities, NaN and numbers of both signs, each with each.
  const double values[] = {0.0, -0.0, kInf, -kInf, kNaN, 1, -1, kLeast, -kLeast, kMost, -kMost};
  for (const double y : values)
    for (const double x : values) {
      const double got = f().atan2_one(y, x);
      EXPECT_TRUE(kit::same_value(got, std::atan2(y, x))) << y << ", " << x << " gives " << kit::describe(got);
    }
}

// Every kind of argument a kernel treats apart, so that neighbours in a vector go different ways.
std::vector<double> mixed(size_t n, kit::Random& random) {
  std::vector<double> out(n);
  for (double& x : out) {
    const int64_t kind = random.integer(0, 9);
    x = kind == 0   ? random.special<double>()
        : kind == 1 ? std::ldexp(random.uniform(), static_cast<int>(random.integer(-1070, 1023)))
        : kind == 2 ? random.uniform(-0x1p25, 0x1p25)
                    : random.uniform(-10, 10);
  }
  return out;
}

// One element depends on nothing but its argument: arrays of all lengths, against unmapped pages, in place.
TEST_P(Vmath, ArraysGiveTheBitsOfSingleValues) {
  kit::Random random;
  using Single = double (*)(double);
  using Array = void (*)(double*, const double*, size_t);
  const std::pair<Single, Array> singles[] = {
      {f().sin_one, f().sin_array}, {f().cos_one, f().cos_array}, {f().log_one, f().log_array}};
  for (const int length : kit::lengths(sizeof(double))) {
    const size_t n = static_cast<size_t>(length);
    for (const Edge edge : {Edge::Start, Edge::End}) {
      const size_t off = static_cast<size_t>(random.integer(0, 9));
      const std::vector<double> x = mixed(n, random), y = mixed(n, random);
      Guarded<double> a(x, edge, off), b(y, edge), d(n, edge, 8), e(n, edge, off);
      std::vector<double> wanted(n), second(n);
      for (const auto& [single, array] : singles) {
        for (size_t i = 0; i < n; ++i) wanted[i] = single(x[i]);
        kit::call(array, d.data(), a.data(), n);
        ASSERT_TRUE(kit::same_values(d.data(), wanted.data(), n));
        d.fill(x);
        kit::call(array, d.data(), d.data(), n);
        ASSERT_TRUE(kit::same_values(d.data(), wanted.data(), n)) << "in place";
      }
      for (size_t i = 0; i < n; ++i) {
        wanted[i] = f().sin_one(x[i]);
        second[i] = f().cos_one(x[i]);
        double s, c;
        kit::call(f().sincos_one, &s, &c, x[i]);
        ASSERT_TRUE(kit::same_value(s, wanted[i]) && kit::same_value(c, second[i])) << x[i];
      }
      kit::call(f().sincos_array, d.data(), e.data(), a.data(), n);
      ASSERT_TRUE(kit::same_values(d.data(), wanted.data(), n));
      ASSERT_TRUE(kit::same_values(e.data(), second.data(), n));
      e.fill(x);
      kit::call(f().sincos_array, d.data(), e.data(), e.data(), n);
      ASSERT_TRUE(kit::same_values(d.data(), wanted.data(), n)) << "in place";
      ASSERT_TRUE(kit::same_values(e.data(), second.data(), n)) << "in place";

      for (size_t i = 0; i < n; ++i) wanted[i] = f().atan2_one(y[i], x[i]);
      kit::call(f().atan2_array, d.data(), b.data(), a.data(), n);
      ASSERT_TRUE(kit::same_values(d.data(), wanted.data(), n));
      kit::call(f().atan2_array, b.data(), b.data(), a.data(), n);
      ASSERT_TRUE(kit::same_values(b.data(), wanted.data(), n)) << "in place";
    }
  }
}
NOX_EACH_VARIANT(Vmath);

}  // namespace
