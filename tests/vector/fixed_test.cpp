// Scaled integer arithmetic: bit for bit what the rule gives, at every scale factor and in every build; what the
// divisions warn of and refuse; and independence of the caller's rounding mode.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <climits>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "reference/fixed.hpp"
#include "vector/places.hpp"

namespace {

using kit::Guarded;

class Fixed : public kit::EachVariant {};
NOX_EACH_VARIANT(Fixed);

template <class T>
struct OfTwo {
  const char* name;
  NoxStatus (*plain)(const T*, const T*, T*, int, int);
  NoxStatus (*in_place)(const T*, T*, int, int);
  T (*expected)(T, T, int);
};
template <class T>
struct WithConstant {
  const char* name;
  NoxStatus (*plain)(const T*, T, T*, int, int);
  NoxStatus (*in_place)(T, T*, int, int);
  T (*expected)(T x, T c, int);
};

constexpr OfTwo<Nox8u> kBytes[] = {
    {"Add_8u", noxsAdd_8u_Sfs, noxsAdd_8u_ISfs, reference::add},
    {"Sub_8u", noxsSub_8u_Sfs, noxsSub_8u_ISfs, reference::subtract_from},
    {"Mul_8u", noxsMul_8u_Sfs, noxsMul_8u_ISfs, reference::multiply},
    {"Div_8u", noxsDiv_8u_Sfs, noxsDiv_8u_ISfs, reference::divide},
};
constexpr OfTwo<Nox16s> kShorts[] = {
    {"Add_16s", noxsAdd_16s_Sfs, noxsAdd_16s_ISfs, reference::add},
    {"Sub_16s", noxsSub_16s_Sfs, noxsSub_16s_ISfs, reference::subtract_from},
    {"Mul_16s", noxsMul_16s_Sfs, noxsMul_16s_ISfs, reference::multiply},
    {"Div_16s", noxsDiv_16s_Sfs, noxsDiv_16s_ISfs, reference::divide},
};
constexpr OfTwo<Nox32s> kWords[] = {
    {"Add_32s", noxsAdd_32s_Sfs, noxsAdd_32s_ISfs, reference::add},
    {"Sub_32s", noxsSub_32s_Sfs, noxsSub_32s_ISfs, reference::subtract_from},
    {"Mul_32s", noxsMul_32s_Sfs, noxsMul_32s_ISfs, reference::scaled_product_of_doubles},
    {"Div_32s", noxsDiv_32s_Sfs, noxsDiv_32s_ISfs, reference::divide},
};
constexpr OfTwo<Nox32sc> kComplex[] = {
    {"Add_32sc", noxsAdd_32sc_Sfs, noxsAdd_32sc_ISfs, reference::add},
    {"Sub_32sc", noxsSub_32sc_Sfs, noxsSub_32sc_ISfs, reference::subtract_from},
};
constexpr WithConstant<Nox8u> kBytesByConstant[] = {
    {"AddC_8u", noxsAddC_8u_Sfs, noxsAddC_8u_ISfs, reference::add},
    {"SubC_8u", noxsSubC_8u_Sfs, noxsSubC_8u_ISfs, reference::subtract},
    {"SubCRev_8u", noxsSubCRev_8u_Sfs, noxsSubCRev_8u_ISfs, reference::subtract_from},
    {"MulC_8u", noxsMulC_8u_Sfs, noxsMulC_8u_ISfs, reference::multiply},
    {"DivC_8u", noxsDivC_8u_Sfs, noxsDivC_8u_ISfs, reference::divide_by},
};
constexpr WithConstant<Nox16s> kShortsByConstant[] = {
    {"AddC_16s", noxsAddC_16s_Sfs, noxsAddC_16s_ISfs, reference::add},
    {"SubC_16s", noxsSubC_16s_Sfs, noxsSubC_16s_ISfs, reference::subtract},
    {"SubCRev_16s", noxsSubCRev_16s_Sfs, noxsSubCRev_16s_ISfs, reference::subtract_from},
    {"MulC_16s", noxsMulC_16s_Sfs, noxsMulC_16s_ISfs, reference::multiply},
    {"DivC_16s", noxsDivC_16s_Sfs, noxsDivC_16s_ISfs, reference::divide_by},
};
constexpr WithConstant<Nox32s> kWordsByConstant[] = {
    {"AddC_32s", noxsAddC_32s_Sfs, noxsAddC_32s_ISfs, reference::add},
    {"SubC_32s", noxsSubC_32s_Sfs, noxsSubC_32s_ISfs, reference::subtract},
    {"SubCRev_32s", noxsSubCRev_32s_Sfs, noxsSubCRev_32s_ISfs, reference::subtract_from},
    {"MulC_32s", noxsMulC_32s_Sfs, noxsMulC_32s_ISfs, reference::multiply},
};
constexpr WithConstant<Nox32sc> kComplexByConstant[] = {
    {"AddC_32sc", noxsAddC_32sc_Sfs, noxsAddC_32sc_ISfs, reference::add},
    {"SubC_32sc", noxsSubC_32sc_Sfs, noxsSubC_32sc_ISfs, reference::subtract},
    {"SubCRev_32sc", noxsSubCRev_32sc_Sfs, noxsSubCRev_32sc_ISfs, reference::subtract_from},
    {"MulC_32sc", noxsMulC_32sc_Sfs, noxsMulC_32sc_ISfs, reference::multiply},
};

bool divides(const char* name) { return name[0] == 'D'; }
template <class T>
bool is_zero(const T& x) {
  const T zero{};
  return std::memcmp(&x, &zero, sizeof x) == 0;
}

// Every scale factor that could tell two results apart, or some, and the ends of the range.
std::vector<int> scales(bool every) {
  std::vector<int> all = {INT_MIN, INT_MIN + 1, -1000, 1000, INT_MAX};
  for (int s = -70; s <= 70; ++s)
    if (every || (s >= 0 && s <= 2) || s % 8 == 0 || s % 8 == -1 || s > 60) all.push_back(s);
  return all;
}

// Numbers of all magnitudes and both signs: small ones make ties at small scales, the ends make them at large ones.
template <class T>
T number(kit::Random& random) {
  if constexpr (kit::is_complex<T>) {
    const auto re = number<Nox32s>(random);
    return {re, number<Nox32s>(random)};
  } else {
    const T x = random.special<T>();
    return random.chance(0.6) ? T(x >> random.integer(0, int(sizeof(T)) * 8 - 2)) : x;
  }
}
template <class T>
std::vector<T> numbers(kit::Random& random, size_t n) {
  std::vector<T> out(n);
  for (T& x : out) x = number<T>(random);
  return out;
}

template <class T>
void check_of_two(const OfTwo<T>& op, const std::vector<T>& x, const std::vector<T>& y, const Place& place, int s) {
  const size_t n = x.size();
  const int len = static_cast<int>(n);
  std::vector<T> expected(n);
  NoxStatus status = noxStsNoErr;
  for (size_t i = 0; i < n; ++i) {
    expected[i] = op.expected(x[i], y[i], s);
    if (divides(op.name) && is_zero(x[i])) status = noxStsDivByZero;
  }
  Guarded<T> a(x, place.edge, place.first), b(y, place.edge, place.second), d(n, place.edge, place.dst);
  ASSERT_EQ(status, kit::call(op.plain, a.data(), b.data(), d.data(), len, s));
  ASSERT_TRUE(kit::same_bits(d.data(), expected.data(), n));
  ASSERT_TRUE(kit::same_bits(a.data(), x.data(), n)) << "the first source was written";
  ASSERT_TRUE(kit::same_bits(b.data(), y.data(), n)) << "the second source was written";
  ASSERT_EQ(status, kit::call(op.plain, a.data(), b.data(), a.data(), len, s));
  ASSERT_TRUE(kit::same_bits(a.data(), expected.data(), n)) << "over the first source";
  a.fill(x);
  ASSERT_EQ(status, kit::call(op.in_place, a.data(), b.data(), len, s));
  ASSERT_TRUE(kit::same_bits(b.data(), expected.data(), n)) << "in place";
}
template <class T>
void check_with_constant(const WithConstant<T>& op, const std::vector<T>& x, T c, const Place& place, int s) {
  const size_t n = x.size();
  const int len = static_cast<int>(n);
  SCOPED_TRACE(kit::describe(c));
  Guarded<T> a(x, place.edge, place.first), d(n, place.edge, place.dst);
  const bool refused = divides(op.name) && is_zero(c);
  const NoxStatus status = refused ? noxStsDivByZeroErr : noxStsNoErr;
  std::vector<T> expected = d.values();
  for (size_t i = 0; i < n && !refused; ++i) expected[i] = op.expected(x[i], c, s);
  ASSERT_EQ(status, kit::call(op.plain, a.data(), c, d.data(), len, s));
  ASSERT_TRUE(kit::same_bits(d.data(), expected.data(), n));
  ASSERT_TRUE(kit::same_bits(a.data(), x.data(), n)) << "the source was written";
  ASSERT_EQ(status, kit::call(op.in_place, c, a.data(), len, s));
  ASSERT_TRUE(kit::same_bits(a.data(), (refused ? x : expected).data(), n)) << "in place";
}
// One operation at all scales on one length, and at all lengths and places with scales in turn.
template <class T, class Check>
void sweep(const char* name, Check&& check) {
  SCOPED_TRACE(name);
  const std::vector<int> all = scales(!kit::quick());
  kit::Random random;
  for (const int s : all) {
    SCOPED_TRACE("scale " + std::to_string(s));
    check(random, 75, kPlaces[0], s);
    if (testing::Test::HasFatalFailure()) return;
  }
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    constexpr int kScales[] = {0, 1, 3, 100, -2, -100, 25};
    if (turn % 3 != 0) return;  // two or three places of each length
    const int s = kScales[(turn / std::size(kPlaces) + turn) % std::size(kScales)];
    SCOPED_TRACE("scale " + std::to_string(s));
    if (!testing::Test::HasFatalFailure()) check(random, n, place, s);
  });
}
template <class T, size_t N>
void sweep_of_two(const OfTwo<T> (&table)[N]) {
  for (const OfTwo<T>& op : table)
    sweep<T>(op.name, [&](kit::Random& random, size_t n, const Place& place, int s) {
      std::vector<T> x = numbers<T>(random, n);
      // No zero divisors in half of the calls, that their status is seen too.
      if (divides(op.name) && random.chance(0.5))
        for (T& by : x)
          if (is_zero(by)) std::memset(&by, 1, sizeof by);
      check_of_two(op, x, numbers<T>(random, n), place, s);
    });
}
template <class T, size_t N>
void sweep_with_constant(const WithConstant<T> (&table)[N]) {
  for (const WithConstant<T>& op : table)
    sweep<T>(op.name, [&](kit::Random& random, size_t n, const Place& place, int s) {
      check_with_constant(op, numbers<T>(random, n), number<T>(random), place, s);
    });
}

TEST_P(Fixed, OfTwoArrays) {
  sweep_of_two(kBytes);
  sweep_of_two(kShorts);
  sweep_of_two(kWords);
  sweep_of_two(kComplex);
}

TEST_P(Fixed, WithAConstant) {
  sweep_with_constant(kBytesByConstant);
  sweep_with_constant(kShortsByConstant);
  sweep_with_constant(kWordsByConstant);
  sweep_with_constant(kComplexByConstant);
}

// Constants that take a way of their own, and the one complex constant whose products pass 63 bits.
TEST_P(Fixed, RemarkableConstants) {
  const auto check = [](const auto& table, auto c) {
    using T = decltype(c);
    kit::Random random;
    std::vector<T> x = numbers<T>(random, 43);
    std::memset(&x[30], 0, sizeof(T));
    if constexpr (kit::is_complex<T>) x[31] = {INT_MIN, INT_MIN};
    for (const auto& op : table)
      for (const int s : scales(false)) {
        SCOPED_TRACE(std::string(op.name) + " scale " + std::to_string(s));
        check_with_constant(op, x, c, kPlaces[5], s);
      }
  };
  for (const int c : {0, 1, 255}) check(kBytesByConstant, Nox8u(c));
  for (const int c : {0, 1, -1, -32768}) check(kShortsByConstant, Nox16s(c));
  for (const int c : {0, 1, -1, INT_MIN}) check(kWordsByConstant, Nox32s(c));
  for (const Nox32sc& c : {Nox32sc{0, 0}, Nox32sc{1, 0}, Nox32sc{INT_MIN, INT_MIN}, Nox32sc{INT_MIN, INT_MAX}})
    check(kComplexByConstant, c);
}

// Every pair of operands, at the scales that round.
TEST_P(Fixed, EveryPairOfBytes) {
  std::vector<Nox8u> x(65536), y(65536), d(65536), expected(65536);
  for (size_t i = 0; i < x.size(); ++i) {
    x[i] = Nox8u(i);
    y[i] = Nox8u(i >> 8);
  }
  for (const auto& op : kBytes)
    for (const int s : kit::quick() ? std::vector<int>{2} : std::vector<int>{1, 2}) {
      for (size_t i = 0; i < x.size(); ++i) expected[i] = op.expected(x[i], y[i], s);
      op.plain(x.data(), y.data(), d.data(), 65536, s);
      ASSERT_TRUE(kit::same_bits(d.data(), expected.data(), d.size())) << op.name << " scale " << s;
    }
}
TEST_P(Fixed, QuotientsNextToTies) {
  kit::Random random;
  std::vector<Nox16s> by, x, d, expected;
  // Dividends whose quotient is nearest to k + 1/2, on either side of it.
  for (int i = 0; i < 3000; ++i) {
    const int s = static_cast<int>(random.integer(-15, 3));
    const int64_t divisor = random.integer(1, random.chance(0.5) ? 32767 : 255);
    const int64_t most = static_cast<int64_t>(std::ldexp(32767, -s)) / divisor;  // whose dividend has 16 bits
    const double tie = static_cast<double>(random.integer(0, std::min<int64_t>(most, 32767))) + 0.5;
    const double near = std::ldexp(tie * static_cast<double>(divisor), s);
    by.clear();
    x.clear();
    for (int k = -1; k <= 1; ++k)
      for (const int sign : {-1, 1})
        if (const double dividend = sign * (std::floor(near) + k); std::fabs(dividend) < 32768) {
          by.push_back(Nox16s(divisor));
          x.push_back(Nox16s(dividend));
        }
    d.resize(x.size());
    expected.resize(x.size());
    for (size_t j = 0; j < x.size(); ++j) expected[j] = reference::divide(by[j], x[j], s);
    if (x.empty()) continue;
    noxsDiv_16s_Sfs(by.data(), x.data(), d.data(), static_cast<int>(x.size()), s);
    ASSERT_TRUE(kit::same_bits(d.data(), expected.data(), d.size())) << "scale " << s;
    noxsDivC_16s_Sfs(x.data(), by[0], d.data(), static_cast<int>(x.size()), s);
    ASSERT_TRUE(kit::same_bits(d.data(), expected.data(), d.size())) << "scale " << s << " constant";
  }
}

TEST_P(Fixed, AddsProducts) {
  sweep<Nox32s>("AddProduct_32s", [](kit::Random& random, size_t n, const Place& place, int s) {
    std::vector<Nox32s> x = numbers<Nox32s>(random, n), y = numbers<Nox32s>(random, n), z = numbers<Nox32s>(random, n);
    x[0] = y[0] = INT_MIN;
    std::vector<Nox32s> expected(n);
    for (size_t i = 0; i < n; ++i) expected[i] = reference::multiply_add(x[i], y[i], z[i], s);
    Guarded<Nox32s> a(x, place.edge, place.first), b(y, place.edge, place.second), d(z, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(noxsAddProduct_32s_Sfs, a.data(), b.data(), d.data(), static_cast<int>(n), s));
    ASSERT_TRUE(kit::same_bits(d.data(), expected.data(), n));
  });
}

// The probe of the call sees that the mode is put back.
TEST_P(Fixed, RoundsToNearestInEveryMode) {
  const unsigned before = _mm_getcsr();
  kit::Random random;
  const auto check = [&](const auto& table) {
    for (const auto& op : table) {
      using T = decltype(op.expected({}, {}, 0));
      const std::vector<T> x = numbers<T>(random, 37), y = numbers<T>(random, 37);
      std::vector<T> d(37), expected(37);
      for (size_t i = 0; i < x.size(); ++i) expected[i] = op.expected(x[i], y[i], 2);
      for (const unsigned mode : {_MM_ROUND_DOWN, _MM_ROUND_UP, _MM_ROUND_TOWARD_ZERO}) {
        _mm_setcsr((before & ~_MM_ROUND_MASK) | mode);
        kit::call(op.plain, x.data(), y.data(), d.data(), 37, 2);
        EXPECT_EQ(mode, _mm_getcsr() & _MM_ROUND_MASK) << op.name;
        _mm_setcsr(before);
        EXPECT_TRUE(kit::same_bits(d.data(), expected.data(), d.size())) << op.name << " mode " << mode;
      }
    }
  };
  check(kShorts);
  check(kWords);
}

TEST_P(Fixed, OrderOfTheChecks) {
  Nox16s x = 1, y = 1;
  EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsDivC_16s_Sfs, nullptr, Nox16s(0), &y, 0, 0));
  EXPECT_EQ(noxStsSizeErr, kit::call(noxsDivC_16s_Sfs, &x, Nox16s(0), &y, 0, 0));
  EXPECT_EQ(noxStsSizeErr, kit::call(noxsDivC_16s_ISfs, Nox16s(0), &y, -1, 0));
  Nox32sc z{};
  EXPECT_EQ(noxStsSizeErr, kit::call(noxsAdd_32sc_ISfs, nullptr, &z, 0, 0));
  EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsSub_32sc_Sfs, &z, &z, nullptr, 1, 0));
  EXPECT_EQ(noxStsNullPtrErr, kit::call(noxsMulC_32sc_Sfs, nullptr, z, nullptr, 0, 0));
}

}  // namespace
