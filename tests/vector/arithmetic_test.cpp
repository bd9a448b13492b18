// Sums, differences, products and squares: bit for bit what the definition gives with every step rounded, under every
// build, at every length and place, in place and not; and quotients by a constant, which are products.
#include <gtest/gtest.h>
#include <xmmintrin.h>

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

class Arithmetic : public kit::EachVariant {};
NOX_EACH_VARIANT(Arithmetic);

template <class T>
struct OfTwo {
  const char* name;
  NoxStatus (*plain)(const T*, const T*, T*, int);
  NoxStatus (*in_place)(const T*, T*, int);
  T (*expected)(T, T);
};
constexpr OfTwo<Nox64f> kRealOfTwo[] = {
    {"Add_64f", noxsAdd_64f, noxsAdd_64f_I, reference::add},
    {"Sub_64f", noxsSub_64f, noxsSub_64f_I, reference::subtract_from},
    {"Mul_64f", noxsMul_64f, noxsMul_64f_I, reference::multiply},
};
constexpr OfTwo<Nox64fc> kComplexOfTwo[] = {
    {"Add_64fc", noxsAdd_64fc, noxsAdd_64fc_I, reference::add},
    {"Sub_64fc", noxsSub_64fc, noxsSub_64fc_I, reference::subtract_from},
    {"Mul_64fc", noxsMul_64fc, noxsMul_64fc_I, reference::multiply},
};

template <class T>
struct WithConstant {
  const char* name;
  NoxStatus (*plain)(const T*, T, T*, int);
  NoxStatus (*in_place)(T, T*, int);
  T (*expected)(T x, T c);
  bool divides;
};
constexpr WithConstant<Nox64f> kRealWithConstant[] = {
    {"AddC_64f", noxsAddC_64f, noxsAddC_64f_I, reference::add, false},
    {"SubC_64f", noxsSubC_64f, noxsSubC_64f_I, reference::subtract, false},
    {"SubCRev_64f", noxsSubCRev_64f, noxsSubCRev_64f_I, reference::subtract_from, false},
    {"MulC_64f", noxsMulC_64f, noxsMulC_64f_I, reference::multiply, false},
    {"DivC_64f", noxsDivC_64f, noxsDivC_64f_I, reference::divide_by_constant, true},
};
constexpr WithConstant<Nox64fc> kComplexWithConstant[] = {
    {"AddC_64fc", noxsAddC_64fc, noxsAddC_64fc_I, reference::add, false},
    {"SubC_64fc", noxsSubC_64fc, noxsSubC_64fc_I, reference::subtract, false},
    {"SubCRev_64fc", noxsSubCRev_64fc, noxsSubCRev_64fc_I, reference::subtract_from, false},
    {"MulC_64fc", noxsMulC_64fc, noxsMulC_64fc_I, reference::multiply, false},
    {"DivC_64fc", noxsDivC_64fc, noxsDivC_64fc_I, reference::divide_by_constant, true},
};

// Ordinary numbers, in which a fused product would show, or every other one remarkable.
template <class T>
std::vector<T> data(kit::Random& random, size_t n, size_t turn) {
  std::vector<T> out(n);
  if (turn & 1)
    random.fill(out);
  else
    random.fill_special(out);
  return out;
}

template <class T>
void check_of_two(const OfTwo<T>& op) {
  SCOPED_TRACE(op.name);
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    const int len = static_cast<int>(n);
    const std::vector<T> x = data<T>(random, n, turn), y = data<T>(random, n, turn);
    std::vector<T> expected(n), of_same(n);
    for (size_t i = 0; i < n; ++i) {
      expected[i] = op.expected(x[i], y[i]);
      of_same[i] = op.expected(x[i], x[i]);
    }
    Guarded<T> a(x, place.edge, place.first), b(y, place.edge, place.second), d(n, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(op.plain, a.data(), b.data(), d.data(), len));
    ASSERT_TRUE(kit::same_values(d.data(), expected.data(), n));
    ASSERT_TRUE(kit::same_bits(a.data(), x.data(), n)) << "the first source was written";
    ASSERT_TRUE(kit::same_bits(b.data(), y.data(), n)) << "the second source was written";
    d.fill(y);
    ASSERT_EQ(noxStsNoErr, kit::call(op.in_place, a.data(), d.data(), len));
    ASSERT_TRUE(kit::same_values(d.data(), expected.data(), n)) << "in place";
    ASSERT_EQ(noxStsNoErr, kit::call(op.plain, a.data(), b.data(), b.data(), len));
    ASSERT_TRUE(kit::same_values(b.data(), expected.data(), n)) << "over the second source";
    b.fill(y);
    ASSERT_EQ(noxStsNoErr, kit::call(op.plain, a.data(), b.data(), a.data(), len));
    ASSERT_TRUE(kit::same_values(a.data(), expected.data(), n)) << "over the first source";
    a.fill(x);
    ASSERT_EQ(noxStsNoErr, kit::call(op.in_place, a.data(), a.data(), len));
    ASSERT_TRUE(kit::same_values(a.data(), of_same.data(), n)) << "one array in both places";
  });
}

TEST_P(Arithmetic, OfTwoArrays) {
  for (const auto& op : kRealOfTwo) check_of_two(op);
  for (const auto& op : kComplexOfTwo) check_of_two(op);
}

template <class T>
T constant(kit::Random& random, size_t turn) {
  constexpr double kConstants[] = {0.0, -0.0, 1, -1, HUGE_VAL, 3, 1e-170, 1e200, NAN, 0x1p-1060};
  const auto part = [&](size_t i) {
    return i % 2 ? random.value<double>() : kConstants[i / 2 % std::size(kConstants)];
  };
  if constexpr (kit::is_complex<T>)
    return {part(turn), turn % 3 ? part(turn / 3) : 0.0};
  else
    return part(turn);
}

// Constants are taken as they come: 0 and 1 get no short way by which a NaN or the sign of a zero would be lost.
template <class T>
void check_with_constant(const WithConstant<T>& op) {
  SCOPED_TRACE(op.name);
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    const int len = static_cast<int>(n);
    const std::vector<T> x = data<T>(random, n, turn / 2);
    const T c = constant<T>(random, turn);
    SCOPED_TRACE(kit::describe(c));
    const bool refused = op.divides && reference::magnitude(c) == 0;
    const NoxStatus status = refused ? noxStsDivByZeroErr : noxStsNoErr;
    Guarded<T> a(x, place.edge, place.first), d(n, place.edge, place.dst);
    std::vector<T> expected = d.values();
    if (!refused)
      for (size_t i = 0; i < n; ++i) expected[i] = op.expected(x[i], c);
    ASSERT_EQ(status, kit::call(op.plain, a.data(), c, d.data(), len));
    ASSERT_TRUE(kit::same_values(d.data(), expected.data(), n));
    ASSERT_TRUE(kit::same_bits(a.data(), x.data(), n)) << "the source was written";
    d.fill(x);
    if (refused) expected = x;
    ASSERT_EQ(status, kit::call(op.in_place, c, d.data(), len));
    ASSERT_TRUE(kit::same_values(d.data(), expected.data(), n)) << "in place";
    ASSERT_EQ(status, kit::call(op.plain, a.data(), c, a.data(), len));
    ASSERT_TRUE(kit::same_values(a.data(), expected.data(), n)) << "over the source";
  });
}

TEST_P(Arithmetic, WithAConstant) {
  for (const auto& op : kRealWithConstant) check_with_constant(op);
  for (const auto& op : kComplexWithConstant) check_with_constant(op);
}

// A zero constant is the last thing that is looked at.
TEST_P(Arithmetic, ZeroConstantIsRefusedAfterPointersAndLength) {
  const auto check = [](const auto& op, auto zero) {
    using T = decltype(zero);
    T x{}, y{};
    EXPECT_EQ(noxStsNullPtrErr, kit::call(op.plain, nullptr, zero, &y, 0));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(op.plain, &x, zero, nullptr, 1));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(op.in_place, zero, nullptr, 0));
    EXPECT_EQ(noxStsSizeErr, kit::call(op.plain, &x, zero, &y, 0));
    EXPECT_EQ(noxStsSizeErr, kit::call(op.in_place, zero, &y, -1));
    EXPECT_EQ(noxStsDivByZeroErr, kit::call(op.plain, &x, zero, &y, 1));
    EXPECT_EQ(noxStsDivByZeroErr, kit::call(op.in_place, zero, &y, 1));
  };
  for (const Nox64f zero : {0.0, -0.0}) check(kRealWithConstant[4], zero);
  for (const Nox64fc& zero : {Nox64fc{0, -0.0}, Nox64fc{1e-170, -1e-170}}) check(kComplexWithConstant[4], zero);
}

template <class T>
void check_square(NoxStatus (*plain)(const T*, T*, int), NoxStatus (*in_place)(T*, int)) {
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    const int len = static_cast<int>(n);
    const std::vector<T> x = data<T>(random, n, turn);
    std::vector<T> expected(n);
    for (size_t i = 0; i < n; ++i) expected[i] = reference::square(x[i]);
    Guarded<T> a(x, place.edge, place.first), d(n, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(plain, a.data(), d.data(), len));
    ASSERT_TRUE(kit::same_values(d.data(), expected.data(), n));
    ASSERT_TRUE(kit::same_bits(a.data(), x.data(), n)) << "the source was written";
    d.fill(x);
    ASSERT_EQ(noxStsNoErr, kit::call(in_place, d.data(), len));
    ASSERT_TRUE(kit::same_values(d.data(), expected.data(), n)) << "in place";
    ASSERT_EQ(noxStsNoErr, kit::call(plain, a.data(), a.data(), len));
    ASSERT_TRUE(kit::same_values(a.data(), expected.data(), n)) << "over the source";
  });
}

TEST_P(Arithmetic, Squares) {
  check_square(noxsSqr_64f, noxsSqr_64f_I);
  check_square(noxsSqr_64fc, noxsSqr_64fc_I);
}

template <class T>
void check_add_product(NoxStatus (*fn)(const T*, const T*, T*, int)) {
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    const int len = static_cast<int>(n);
    const std::vector<T> x = data<T>(random, n, turn), y = data<T>(random, n, turn), z = data<T>(random, n, turn);
    std::vector<T> expected(n), over_first(n);
    for (size_t i = 0; i < n; ++i) {
      expected[i] = reference::add_product(x[i], y[i], z[i]);
      over_first[i] = reference::add_product(x[i], y[i], x[i]);
    }
    Guarded<T> a(x, place.edge, place.first), b(y, place.edge, place.second), d(z, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(fn, a.data(), b.data(), d.data(), len));
    ASSERT_TRUE(kit::same_values(d.data(), expected.data(), n));
    ASSERT_TRUE(kit::same_bits(a.data(), x.data(), n)) << "the first source was written";
    ASSERT_TRUE(kit::same_bits(b.data(), y.data(), n)) << "the second source was written";
    ASSERT_EQ(noxStsNoErr, kit::call(fn, a.data(), b.data(), a.data(), len));
    ASSERT_TRUE(kit::same_values(a.data(), over_first.data(), n)) << "over a factor";
  });
}

TEST_P(Arithmetic, AddsProducts) {
  check_add_product(noxsAddProduct_64f);
  check_add_product(noxsAddProduct_64fc);
}

class RoundingMode {
 public:
  explicit RoundingMode(unsigned mode) : before_(_mm_getcsr()) { _mm_setcsr((before_ & ~_MM_ROUND_MASK) | mode); }
  ~RoundingMode() { _mm_setcsr(before_); }
  RoundingMode(const RoundingMode&) = delete;
  RoundingMode& operator=(const RoundingMode&) = delete;

 private:
  unsigned before_;
};

template <class T>
void check_rounding(const OfTwo<T>& op) {
  SCOPED_TRACE(op.name);
  constexpr size_t kCount = 37;
  kit::Random random;
  std::vector<T> x(kCount), y(kCount), d(kCount), expected(kCount);
  random.fill(x);
  random.fill(y, -1e-3, 1e3);
  for (const unsigned mode : {_MM_ROUND_DOWN, _MM_ROUND_UP, _MM_ROUND_TOWARD_ZERO}) {
    {
      const RoundingMode use(mode);
      for (size_t i = 0; i < kCount; ++i) expected[i] = op.expected(x[i], y[i]);
      kit::call(op.plain, x.data(), y.data(), d.data(), static_cast<int>(kCount));
    }
    EXPECT_TRUE(kit::same_values(d.data(), expected.data(), kCount)) << "mode " << mode;
  }
}

TEST_P(Arithmetic, RoundsAsTheCallerDoes) {
  for (const auto& op : kRealOfTwo) check_rounding(op);
  for (const auto& op : kComplexOfTwo) check_rounding(op);
}

}  // namespace
