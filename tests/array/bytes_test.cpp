// Sums and extremes of bytes, conversions, rounding: against the definitions, at every length past some vectors.
#include <fenv.h>

#include "array/layout.hpp"

namespace {

using kit::call;
using layout::get;
using layout::put;

TEST(ArrayBytes, SumsAndExtremes) {
  kit::Random random;
  for (Nox32u n = 0; n < 200; ++n) {
    std::vector<Nox8u> x(n);
    for (Nox8u& b : x) b = static_cast<Nox8u>(random.integer(n % 3 == 0 ? 100 : 0, n % 3 == 1 ? 120 : 255));
    kit::Guarded<Nox8u> s(x, n % 2 ? kit::Edge::Start : kit::Edge::End, n % 5);
    Nox32s sum = 0, least_at = 0, most_at = 0, at = -1, at2 = -1;
    Nox8u least = 255, most = 0, a = 7, b = 7;
    for (Nox32u i = 0; i < n; ++i) {
      sum += x[i];
      if (x[i] < least) least = x[i], least_at = static_cast<Nox32s>(i);
      if (x[i] > most) most = x[i], most_at = static_cast<Nox32s>(i);
    }
    Nox32s found = -1;
    call(Sum_8u32s_SFS, s.data(), n, &found);
    EXPECT_EQ(found, sum);
    call(Max_8u, s.data(), n, &a);
    call(Min_8u, s.data(), n, &b);
    EXPECT_EQ(a, most);
    EXPECT_EQ(b, least);
    call(MaxMin_8u, s.data(), n, &a, &b);
    EXPECT_EQ(a, least);
    EXPECT_EQ(b, most);
    call(MaxIndx_8u, s.data(), n, &a, &at);
    call(MinIndx_8u, s.data(), n, &b, &at2);
    EXPECT_TRUE(a == most && at == most_at && b == least && at2 == least_at) << n;
    call(MaxMinIndx_8u, s.data(), n, &a, &at, &b, &at2);
    EXPECT_TRUE(a == least && at == least_at && b == most && at2 == most_at) << n;
    call(MaxIndx_8u_Idx, s.data() - 9, 9, n, &a, &at);
    EXPECT_TRUE(a == most && at == most_at) << n;
    call(MinIndx_8u_Idx, s.data() + 9, -9, n, &a, &at);
    EXPECT_TRUE(a == most && at == most_at) << "the name that says minimum delivers the maximum";
  }
  EXPECT_EQ(MinIndx_8u_Idx, MaxIndx_8u_Idx);
  // The remaining index forms, which hand their scalars on.
  const Nox8u x[4] = {9, 3, 1, 3};
  Nox8u a = 0, b = 0;
  Nox32s at = 0, at2 = 0;
  call(Sum_8u32s_SFS_Idx, x, 1, 3u, &at);
  EXPECT_EQ(at, 7);
  call(Max_8u_Idx, x, 1, 3u, &a);
  call(Min_8u_Idx, x, 1, 3u, &b);
  EXPECT_TRUE(a == 3 && b == 1);
  call(MaxMin_8u_Idx, x, 2, 2u, &a, &b);
  EXPECT_TRUE(a == 1 && b == 3);
  call(MaxMinIndx_8u_Idx, x, 1, 3u, &a, &at, &b, &at2);
  EXPECT_TRUE(a == 1 && at == 1 && b == 3 && at2 == 0);
}

template <class S, class D, class F>
void check_conversion(void (*convert)(const S*, D*, Nox32u), F one) {
  const auto loop = [one](const S* s, const S*, D* d, Nox32u n) {
    for (Nox32u i = 0; i < n; ++i) put(d + i, D(one(get(s + i))));
  };
  layout::check<S, S, D>([=](S* s, S*, D* d, Nox32u n) { call(convert, s, d, n); }, loop);
}

TEST(ArrayBytes, Conversions) {
  const auto same = [](auto x) { return x; };
  const auto cut = [](auto x) { return x < 0 ? 0 : x > 255 ? 255 : x; };
  check_conversion<Nox8u, Nox16s>(Convert_8u16s, same);
  check_conversion<Nox8u, Nox32s>(Convert_8u32s, same);
  check_conversion<Nox8u, Nox64f>(Convert_8u64f, same);
  check_conversion<Nox16s, Nox64f>(Convert_16s64f, same);
  check_conversion<Nox16s, Nox8u>(Convert_16s8u, cut);
  check_conversion<Nox32s, Nox8u>(Convert_32s8u, cut);
}

// Every rounding mode: the caller's must not show.
TEST(ArrayBytes, RoundingUpAndDown) {
  std::vector<Nox64f> x = {0.0,        -0.0,       0.3,      -0.3,      0.5,          -0.5,         1 - 0x1p-53,
                           0x1p-1074,  -0x1p-1074, 2.5,      -2.5,      0x1p52 - 0.5, 0.5 - 0x1p52, 0x1p52,
                           0x1p52 + 1, -0x1p53,    HUGE_VAL, -HUGE_VAL, 1e300,        3.0,          -3.0};
  kit::Random random;
  for (int i = 0; i < 100; ++i) x.push_back(random.uniform(-1e3, 1e3));
  std::vector<Nox64f> down(x.size()), up(x.size());
  for (size_t i = 0; i < x.size(); ++i) down[i] = std::floor(x[i]), up[i] = std::ceil(x[i]);
  for (const int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    kit::Guarded<Nox64f> s(x), d(x.size());
    fesetround(mode);
    Floor(s.data(), d.data(), static_cast<Nox32u>(x.size()));
    fesetround(FE_TONEAREST);
    EXPECT_TRUE(kit::same_bits(d.data(), down.data(), x.size())) << mode;
    fesetround(mode);
    Ceil(s.data(), d.data(), static_cast<Nox32u>(x.size()));
    fesetround(FE_TONEAREST);
    EXPECT_TRUE(kit::same_bits(d.data(), up.data(), x.size())) << mode;
  }
  using P = Nox64f*;
  layout::check<Nox64f, Nox64f, Nox64f>([](P s, P, P d, Nox32u n) { call(Floor, s, d, n); },
                                        [](P s, P, P d, Nox32u n) {
                                          for (Nox32u i = 0; i < n; ++i) put(d + i, std::floor(get(s + i)));
                                        });
  layout::check<Nox64f, Nox64f, Nox64f>([](P s, P, P d, Nox32u n) { call(Ceil, s, d, n); },
                                        [](P s, P, P d, Nox32u n) {
                                          for (Nox32u i = 0; i < n; ++i) put(d + i, std::ceil(get(s + i)));
                                        });
}

}  // namespace
