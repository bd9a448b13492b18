// Extrema against scans written by the definitions: every type, length and place; ties, magnitudes, NaN where the
// outcome is told, the flag that the order of magnitude reads and clears.
#include <gtest/gtest.h>
#include <xmmintrin.h>

#include <cmath>
#include <functional>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "vector/places.hpp"

namespace {

using kit::call;
using kit::Guarded;

class Extrema : public kit::EachVariant {};
NOX_EACH_VARIANT(Extrema);

template <class T>
struct Functions {
  NoxStatus (*max)(const T*, int, T*);
  NoxStatus (*min)(const T*, int, T*);
  NoxStatus (*min_max)(const T*, int, T*, T*);
  NoxStatus (*max_place)(const T*, int, T*, int*);
  NoxStatus (*min_place)(const T*, int, T*, int*);
  NoxStatus (*both_places)(const T*, int, T*, int*, T*, int*);
};

template <class T>
void check(const Functions<T>& f) {
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    std::vector<T> x(n);
    for (T& e : x) {
      const T few = static_cast<T>(random.integer(-3, 3));
      e = turn % 3 == 0 ? few : random.value<T>();
      if constexpr (!std::is_floating_point_v<T>)
        if (turn % 3 == 1) e = random.special<T>();
      if (e == 0) e = 0;
    }
    size_t most = 0, least = 0;
    for (size_t i = 1; i < n; ++i) {
      if (x[i] > x[most]) most = i;
      if (x[i] < x[least]) least = i;
    }
    Guarded<T> s(x, place.edge, place.first);
    const int len = static_cast<int>(n);
    T a = 77, b = 77;
    int at = -1, at2 = -1;
    ASSERT_EQ(noxStsNoErr, call(f.max, s.data(), len, &a));
    ASSERT_EQ(noxStsNoErr, call(f.min, s.data(), len, &b));
    ASSERT_TRUE(a == x[most] && b == x[least]);
    a = b = 77;
    ASSERT_EQ(noxStsNoErr, call(f.min_max, s.data(), len, &b, &a));
    ASSERT_TRUE(a == x[most] && b == x[least]);
    ASSERT_EQ(noxStsNoErr, call(f.max_place, s.data(), len, &a, &at));
    ASSERT_EQ(noxStsNoErr, call(f.min_place, s.data(), len, &b, &at2));
    ASSERT_TRUE(a == x[most] && b == x[least]);
    ASSERT_EQ(at, static_cast<int>(most));
    ASSERT_EQ(at2, static_cast<int>(least));
    a = b = 77, at = at2 = -1;
    ASSERT_EQ(noxStsNoErr, call(f.both_places, s.data(), len, &b, &at2, &a, &at));
    ASSERT_TRUE(a == x[most] && b == x[least] && at == static_cast<int>(most) && at2 == static_cast<int>(least));
    a = 77;
    ASSERT_EQ(noxStsNoErr, call(f.max_place, s.data(), len, &a, nullptr));
    ASSERT_EQ(noxStsNoErr, call(f.min_place, s.data(), len, &b, nullptr));
    ASSERT_TRUE(a == x[most] && b == x[least]);
  });
}

TEST_P(Extrema, ValuesAndFirstPlaces) {
  check<Nox16s>({noxsMax_16s, noxsMin_16s, noxsMinMax_16s, noxsMaxIndx_16s, noxsMinIndx_16s, noxsMinMaxIndx_16s});
  check<Nox32s>({noxsMax_32s, noxsMin_32s, noxsMinMax_32s, noxsMaxIndx_32s, noxsMinIndx_32s, noxsMinMaxIndx_32s});
  check<Nox64f>({noxsMax_64f, noxsMin_64f, noxsMinMax_64f, noxsMaxIndx_64f, noxsMinIndx_64f, noxsMinMaxIndx_64f});
}

TEST_P(Extrema, MagnitudesOrdersAndCounts) {
  kit::Random random;
  for_lengths_and_places(sizeof(Nox32s), [&](size_t n, const Place& place, size_t turn) {
    std::vector<Nox32s> x(n);
    random.fill_special(x);
    if (turn % 2) x[n / 2] = INT32_MIN;
    if (turn % 4 == 0)
      for (Nox32s& e : x) e = static_cast<Nox32s>(random.integer(-9, 9));
    const auto magnitude = [](Nox32s e) { return e == INT32_MIN ? INT32_MAX : std::abs(e); };
    size_t most = 0, least = 0;
    Nox32u bits = 0;
    int inside = 0;
    for (size_t i = 0; i < n; ++i) {
      if (magnitude(x[i]) > magnitude(x[most])) most = i;
      if (magnitude(x[i]) < magnitude(x[least])) least = i;
      bits |= x[i] < 0 ? 0u - static_cast<Nox32u>(x[i]) : static_cast<Nox32u>(x[i]);
      inside += x[i] > -5 && x[i] < 1000000000;
    }
    Guarded<Nox32s> s(x, place.edge, place.first);
    const int len = static_cast<int>(n);
    Nox32s a = 0, b = 0;
    int at = -1, at2 = -1, order = -1, count = -1;
    ASSERT_EQ(noxStsNoErr, call(noxsMaxAbs_32s, s.data(), len, &a));
    ASSERT_EQ(noxStsNoErr, call(noxsMinAbs_32s, s.data(), len, &b));
    ASSERT_TRUE(a == magnitude(x[most]) && b == magnitude(x[least]));
    a = b = -1;
    ASSERT_EQ(noxStsNoErr, call(noxsMaxAbsIndx_32s, s.data(), len, &a, &at));
    ASSERT_EQ(noxStsNoErr, call(noxsMinAbsIndx_32s, s.data(), len, &b, &at2));
    ASSERT_TRUE(a == magnitude(x[most]) && b == magnitude(x[least]));
    ASSERT_EQ(at, static_cast<int>(most));
    ASSERT_EQ(at2, static_cast<int>(least));
    ASSERT_EQ(noxStsNoErr, call(noxsMaxAbsIndx_32s, s.data(), len, &a, nullptr));
    ASSERT_EQ(noxStsNoErr, call(noxsMaxOrder_32s, s.data(), len, &order));
    ASSERT_EQ(order, bits == 0 ? 0 : 32 - __builtin_clz(bits));
    ASSERT_EQ(noxStsNoErr, call(noxsCountInRange_32s, s.data(), len, &count, -5, 1000000000));
    ASSERT_EQ(count, inside);
    ASSERT_EQ(noxStsNoErr, call(noxsCountInRange_32s, s.data(), len, &count, 9, -9));
    ASSERT_EQ(count, 0);
  });
}

// In front of a NaN's lane's next element it vanishes; at the front of a short array nothing beats it.
TEST_P(Extrema, NanInRealData) {
  const Nox64f nan = std::nan("");
  std::vector<Nox64f> x(100, 1.0);
  x[0] = nan, x[50] = 7, x[60] = -7, x[99] = 7;
  Guarded<Nox64f> s(x);
  Nox64f a = 0, b = 0;
  int at = -1, at2 = -1;
  EXPECT_EQ(noxStsNoErr, call(noxsMaxIndx_64f, s.data(), 100, &a, &at));
  EXPECT_TRUE(a == 7 && at == 50);
  EXPECT_EQ(noxStsNoErr, call(noxsMinIndx_64f, s.data(), 100, &b, &at));
  EXPECT_TRUE(b == -7 && at == 60);
  EXPECT_EQ(noxStsNoErr, call(noxsMinMax_64f, s.data(), 100, &b, &a));
  EXPECT_TRUE(a == 7 && b == -7);
  const Nox64f few[3] = {nan, 1, 2}, later[3] = {1, nan, 2};
  EXPECT_EQ(noxStsNoErr, call(noxsMaxIndx_64f, few, 3, &a, &at));
  EXPECT_TRUE(std::isnan(a) && at == 0);
  EXPECT_EQ(noxStsNoErr, call(noxsMinIndx_64f, later, 3, &a, &at));
  EXPECT_TRUE(a == 1 && at == 0);
  EXPECT_EQ(noxStsNoErr, call(noxsMinMaxIndx_64f, few, 1, &a, &at, &b, &at2));
  EXPECT_TRUE(std::isnan(a) && std::isnan(b) && at == 0 && at2 == 0);
  // By its bits: the later of two zeros is the value, so the place is the first of its sign.
  std::vector<Nox64f> zeros(40, -1.0);
  zeros[3] = 0.0, zeros[5] = -0.0;
  Guarded<Nox64f> z(zeros);
  EXPECT_EQ(noxStsNoErr, call(noxsMaxIndx_64f, z.data(), 40, &a, &at));
  EXPECT_EQ(a, 0.0);
  EXPECT_EQ(at, std::signbit(a) ? 5 : 3);
}

TEST_P(Extrema, OrderOfRealMagnitudes) {
  struct Case {
    std::vector<Nox64f> data;
    int order;
    NoxStatus status;
  };
  const Nox64f inf = HUGE_VAL, nan = std::nan("");
  const Case cases[] = {{{1.0}, 1, noxStsNoErr},
                        {{0.5, -0.25}, 0, noxStsNoErr},
                        {{0.0, -0.0}, 0, noxStsNoErr},
                        {{-3.0, 1.0, 2.0}, 2, noxStsNoErr},
                        {{0x1p-1030}, -1022, noxStsNoErr},
                        {{0x1p-1070}, 0, noxStsNoErr},
                        {{1.7e308}, 1024, noxStsNoErr},
                        {{1.0, inf}, 1, noxStsNanArg},
                        {{-inf}, 0, noxStsNanArg},
                        {{nan}, 0, noxStsNanArg},
                        {{4.0, nan, 1.0, 1.0, 1.0}, 3, noxStsNanArg},
                        {{inf, nan, -0.75, 1e-300}, 0, noxStsNanArg},
                        {{inf, 1.0, 1.0, 1.7976931348623157e308}, 1, noxStsNanArg},
                        {{inf, 1.0, 1.7976931348623157e308}, 1024, noxStsNanArg}};
  for (const Case& c : cases)
    for (const size_t padding : {0, 40}) {
      std::vector<Nox64f> x = c.data;
      x.resize(x.size() + padding, 0.0);
      Guarded<Nox64f> s(x, kit::Edge::End, padding % 7);
      int order = -1;
      _mm_setcsr(_mm_getcsr() & ~0x3Fu);
      EXPECT_EQ(c.status, noxsMaxOrder_64f(s.data(), static_cast<int>(x.size()), &order)) << x[0] << ' ' << x.size();
      EXPECT_EQ(c.order, order) << x[0] << ' ' << x.size();
      EXPECT_EQ(_mm_getcsr() & 1u, 0u) << "the flag is left raised";
    }
  // A flag raised before counts, once.
  const Nox64f one = 1;
  int order = 0;
  _mm_setcsr(_mm_getcsr() | 1u);
  EXPECT_EQ(noxStsNanArg, noxsMaxOrder_64f(&one, 1, &order));
  EXPECT_EQ(noxStsNoErr, call(noxsMaxOrder_64f, &one, 1, &order));
  EXPECT_EQ(noxStsSizeErr, call(noxsMaxOrder_64f, nullptr, 0, &order));
  EXPECT_EQ(noxStsSizeErr, call(noxsMaxOrder_32s, nullptr, -1, nullptr));
  EXPECT_EQ(noxStsNullPtrErr, call(noxsMaxOrder_32s, nullptr, 1, &order));
}

template <class T, class F>
void check_every(NoxStatus (*plain)(const T*, int, const T*, int, T*, int, int),
                 NoxStatus (*in_place)(const T*, int, T*, int, int), F pick) {
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t) {
    std::vector<T> x(n), y(n), expected(n);
    random.fill_special(x);
    random.fill_special(y);
    for (size_t i = 0; i < n; ++i) expected[i] = pick(x[i], y[i]) ? x[i] : y[i];
    Guarded<T> a(x, place.edge, place.first), b(y, place.edge, place.second), d(n, place.edge, place.dst);
    const int len = static_cast<int>(n);
    if (plain) {
      ASSERT_EQ(noxStsNoErr, call(plain, a.data() - 1, 1, b.data(), 0, d.data() + 2, -2, len));
      ASSERT_TRUE(kit::same_bits(d.data(), expected.data(), n));
    }
    ASSERT_EQ(noxStsNoErr, call(in_place, a.data(), 0, b.data() + 1, -1, len));
    ASSERT_TRUE(kit::same_bits(b.data(), expected.data(), n));
  });
}

TEST_P(Extrema, OfTwoArraysElementByElement) {
  const auto larger = [](auto x, auto y) { return x > y; };
  const auto smaller = [](auto x, auto y) { return x < y; };
  check_every<Nox8u>(noxsMaxEvery_8u_Idx, noxsMaxEvery_8u_I_Idx, larger);
  check_every<Nox16u>(noxsMaxEvery_16u_Idx, noxsMaxEvery_16u_I_Idx, larger);
  check_every<Nox64f>(noxsMaxEvery_64f_Idx, noxsMaxEvery_64f_I_Idx, larger);
  check_every<Nox16s>(nullptr, noxsMaxEvery_16s_I_Idx, larger);
  check_every<Nox32s>(nullptr, noxsMaxEvery_32s_I_Idx, larger);
  check_every<Nox8u>(noxsMinEvery_8u_Idx, noxsMinEvery_8u_I_Idx, smaller);
  check_every<Nox16u>(noxsMinEvery_16u_Idx, noxsMinEvery_16u_I_Idx, smaller);
  check_every<Nox64f>(noxsMinEvery_64f_Idx, noxsMinEvery_64f_I_Idx, smaller);
  check_every<Nox16s>(nullptr, noxsMinEvery_16s_I_Idx, smaller);
  check_every<Nox32s>(nullptr, noxsMinEvery_32s_I_Idx, smaller);
}

// The forms with pointers to scalars hand these on as they are.
TEST_P(Extrema, IndexForms) {
  const Nox32s x[4] = {9, -5, 3, -5};
  const Nox16s y[4] = {9, -5, 3, -5};
  const Nox64f z[4] = {9, -5, 3, -5};
  Nox32s a = 0, b = 0;
  Nox16s c = 0, d = 0;
  Nox64f e = 0, f = 0;
  int at = 0, at2 = 0;
  const auto expect = [](auto most, auto least, int i, int j) {
    EXPECT_TRUE(most == 3 && least == -5 && i == 1 && j == 0);
  };
  call(noxsMax_32s_Idx, x, 1, 3, &a), call(noxsMin_32s_Idx, x, 1, 3, &b);
  expect(a, b, 1, 0);
  call(noxsMax_16s_Idx, y, 1, 3, &c), call(noxsMin_16s_Idx, y, 1, 3, &d);
  expect(c, d, 1, 0);
  call(noxsMax_64f_Idx, z, 1, 3, &e), call(noxsMin_64f_Idx, z, 1, 3, &f);
  expect(e, f, 1, 0);
  a = b = c = d = 0, e = f = 0;
  call(noxsMinMax_32s_Idx, x, 1, 3, &b, &a);
  expect(a, b, 1, 0);
  call(noxsMinMax_16s_Idx, y, 1, 3, &d, &c);
  expect(c, d, 1, 0);
  call(noxsMinMax_64f_Idx, z, 1, 3, &f, &e);
  expect(e, f, 1, 0);
  call(noxsMaxIndx_32s_Idx, x, 1, 3, &a, &at), call(noxsMinIndx_32s_Idx, x, 1, 3, &b, &at2);
  expect(a, b, at, at2);
  call(noxsMaxIndx_16s_Idx, y, 1, 3, &c, &at), call(noxsMinIndx_16s_Idx, y, 1, 3, &d, &at2);
  expect(c, d, at, at2);
  call(noxsMaxIndx_64f_Idx, z, 1, 3, &e, &at), call(noxsMinIndx_64f_Idx, z, 1, 3, &f, &at2);
  expect(e, f, at, at2);
  call(noxsMinMaxIndx_32s_Idx, x, 1, 3, &b, &at2, &a, &at);
  expect(a, b, at, at2);
  call(noxsMinMaxIndx_16s_Idx, y, 1, 3, &d, &at2, &c, &at);
  expect(c, d, at, at2);
  call(noxsMinMaxIndx_64f_Idx, z, 1, 3, &f, &at2, &e, &at);
  expect(e, f, at, at2);
  call(noxsMaxAbs_32s_Idx, x, 1, 3, &a), call(noxsMinAbs_32s_Idx, x, 1, 3, &b);
  EXPECT_TRUE(a == 5 && b == 3);
  call(noxsMaxAbsIndx_32s_Idx, x, 1, 3, &a, &at), call(noxsMinAbsIndx_32s_Idx, x, 1, 3, &b, &at2);
  EXPECT_TRUE(a == 5 && b == 3 && at == 0 && at2 == 1);
  call(noxsMaxOrder_32s_Idx, x, 1, 3, &at), call(noxsMaxOrder_64f_Idx, z, 1, 3, &at2);
  EXPECT_TRUE(at == 3 && at2 == 3);
  call(noxsCountInRange_32s_Idx, x, 1, 3, &at, -5, 4);
  EXPECT_EQ(at, 1);
}

}  // namespace
