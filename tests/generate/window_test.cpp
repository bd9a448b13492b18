// Windows against the formulas of their weights, real and complex, in place and not, at every length and place.
#include <gtest/gtest.h>

#include <functional>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "reference/window.hpp"
#include "vector/places.hpp"

namespace {

using kit::Guarded;

class Windows : public kit::EachVariant {};
NOX_EACH_VARIANT(Windows);

template <class E>
using Apply = std::function<NoxStatus(const E*, E*, int)>;
template <class E>
using ApplyInPlace = std::function<NoxStatus(E*, int)>;
struct Window {
  const char* name;
  int shortest;
  Apply<Nox64f> real;
  ApplyInPlace<Nox64f> real_in_place;
  Apply<Nox64fc> complex;
  ApplyInPlace<Nox64fc> complex_in_place;
  std::function<double(int, int)> weight;
};

#define NOX_PLAIN(name)                                                               \
  [](auto s, auto d, int n) { return kit::call(noxsWin##name##_64f, s, d, n); },      \
      [](auto d, int n) { return kit::call(noxsWin##name##_64f_I, d, n); },           \
      [](auto s, auto d, int n) { return kit::call(noxsWin##name##_64fc, s, d, n); }, \
      [](auto d, int n) { return kit::call(noxsWin##name##_64fc_I, d, n); }
#define NOX_SHAPED(name, alpha)                                                              \
  [](auto s, auto d, int n) { return kit::call(noxsWin##name##_64f, s, d, n, alpha); },      \
      [](auto d, int n) { return kit::call(noxsWin##name##_64f_I, d, n, alpha); },           \
      [](auto s, auto d, int n) { return kit::call(noxsWin##name##_64fc, s, d, n, alpha); }, \
      [](auto d, int n) { return kit::call(noxsWin##name##_64fc_I, d, n, alpha); }

const Window kWindows[] = {
    {"Bartlett", 3, NOX_PLAIN(Bartlett), reference::bartlett},
    {"Hann", 3, NOX_PLAIN(Hann), reference::hann},
    {"Hamming", 3, NOX_PLAIN(Hamming), reference::hamming},
    {"Blackman", 3, NOX_SHAPED(Blackman, 0.3), [](int k, int n) { return reference::blackman(k, n, 0.3); }},
    {"BlackmanStd", 3, NOX_PLAIN(BlackmanStd), [](int k, int n) { return reference::blackman(k, n, -0.16); }},
    {"BlackmanOpt", 4, NOX_PLAIN(BlackmanOpt), reference::blackman_optimal},
    {"Kaiser", 1, NOX_SHAPED(Kaiser, -0.05), [](int k, int n) { return reference::kaiser(k, n, 0.05); }},
};

// The weight at both ends; 1 in the middle, where nothing is computed.
double weight_at(const Window& w, int i, int n) {
  return n % 2 && i == n / 2 ? 1 : w.weight(std::min(i, n - 1 - i), n);
}

TEST_P(Windows, WeighFromBothEnds) {
  kit::Random random;
  for (const Window& w : kWindows) {
    SCOPED_TRACE(w.name);
    for_lengths_and_places(sizeof(Nox64f), [&](size_t n, const Place& place, size_t) {
      const int len = static_cast<int>(n);
      if (len < w.shortest) return;
      std::vector<Nox64f> x(n);
      std::vector<Nox64fc> z(n);
      random.fill(x);
      random.fill(z);
      for (size_t i = 0; i < n; ++i) z[i].re = x[i];
      Guarded<Nox64f> s(x, place.edge, place.first), d(n, place.edge, place.dst);
      Guarded<Nox64fc> cs(z, place.edge, place.first), cd(n, place.edge, place.dst);
      ASSERT_EQ(noxStsNoErr, w.real(s.data(), d.data(), len));
      ASSERT_EQ(noxStsNoErr, w.complex(cs.data(), cd.data(), len));
      // The recurrence's errors grow with the square of the length.
      const double allowed = 2e-15 + 4e-18 * static_cast<double>(n) * static_cast<double>(n);
      for (size_t i = 0; i < n; ++i) {
        const double weight = weight_at(w, static_cast<int>(i), len);
        ASSERT_NEAR(d[i], x[i] * weight, allowed) << i << " of " << n;
        ASSERT_EQ(cd[i].re, d[i]) << "real part " << i << " of " << n;
        ASSERT_NEAR(cd[i].im, z[i].im * weight, allowed) << "imaginary part " << i << " of " << n;
      }
      ASSERT_TRUE(n % 2 == 0 || kit::same_bits(&cd[n / 2], &z[n / 2], 1)) << "middle of " << n;
      ASSERT_TRUE(kit::same_bits(s.data(), x.data(), n) && kit::same_bits(cs.data(), z.data(), n));
      ASSERT_EQ(noxStsNoErr, w.real(s.data(), s.data(), len));
      ASSERT_TRUE(kit::same_bits(s.data(), d.data(), n)) << "onto the source, " << n;
      s.fill(x);
      ASSERT_EQ(noxStsNoErr, w.real_in_place(s.data(), len));
      ASSERT_EQ(noxStsNoErr, w.complex_in_place(cs.data(), len));
      ASSERT_TRUE(kit::same_bits(s.data(), d.data(), n)) << "in place, " << n;
      ASSERT_TRUE(kit::same_bits(cs.data(), cd.data(), n)) << "in place, " << n;
    });
  }
}

// What is too short is refused untouched, and the optimal window looks at its length first.
TEST_P(Windows, Lengths) {
  for (const Window& w : kWindows) {
    SCOPED_TRACE(w.name);
    Nox64f d[3] = {1, 2, 3};
    for (int n = 0; n < 4; ++n) {
      const bool refused = n < w.shortest;
      EXPECT_TRUE(!refused || w.real(d, d, n) == noxStsSizeErr) << n;
      EXPECT_EQ(refused && w.shortest == 4 ? noxStsSizeErr : noxStsNullPtrErr, w.real(d, nullptr, n)) << n;
    }
    EXPECT_EQ(d[0] + d[1] + d[2], 6);
  }
}

// The outer two of three elements become positive zeros whatever they are; a middle NaN keeps its bits.
TEST_P(Windows, OfThree) {
  const Nox64f nan = std::numeric_limits<Nox64f>::signaling_NaN();
  for (const int which : {0, 3, 4}) {
    Nox64f d[3] = {nan, 0, -1};
    std::memcpy(&d[1], &nan, sizeof nan);
    ASSERT_EQ(noxStsNoErr, kWindows[which].real_in_place(d, 3));
    const Nox64f zero = 0;
    EXPECT_TRUE(kit::same_bits(d, &zero, 1) && kit::same_bits(d + 1, &nan, 1) && kit::same_bits(d + 2, &zero, 1))
        << kWindows[which].name;
  }
}

TEST_P(Windows, KaisersLimits) {
  std::vector<Nox64f> d(618, 1);
  EXPECT_EQ(noxStsHugeWinErr, kit::call(noxsWinKaiser_64f_I, d.data(), 618, 1.0));
  EXPECT_EQ(noxStsHugeWinErr, kit::call(noxsWinKaiser_64f_I, d.data(), 618, -1.0));
  EXPECT_EQ(d, std::vector<Nox64f>(618, 1));
  EXPECT_EQ(noxStsNoErr, kit::call(noxsWinKaiser_64f_I, d.data(), 617, 1.0));
  for (int i = 0; i < 308; ++i) {
    const double expected = reference::kaiser(i, 617, 1);
    ASSERT_NEAR(d[static_cast<size_t>(i)], expected, 1e-13 * expected) << i;
  }
  d.assign(618, 1);
  EXPECT_EQ(noxStsNoErr, kit::call(noxsWinKaiser_64f_I, d.data(), 618, 0.0));
  for (const Nox64f w : d) ASSERT_NEAR(w, 1, 3e-9);
  Nox64f one = 5;
  EXPECT_EQ(noxStsNoErr, kit::call(noxsWinKaiser_64f_I, &one, 1, 1e300));
  EXPECT_EQ(one, 5);
}

}  // namespace
