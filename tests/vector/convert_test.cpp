// Conversions against their definitions: every pair of types at every length and place, scale factors to the ends of
// int, all modes; every half.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "reference/convert.hpp"
#include "vector/places.hpp"

namespace {

using kit::call;
using kit::Guarded;

class Conversions : public kit::EachVariant {};
NOX_EACH_VARIANT(Conversions);

// Elements of three bytes.
struct Int24 {
  Nox8u bytes[3];
  long double value(bool is_signed) const {
    const int x = bytes[0] | bytes[1] << 8 | bytes[2] << 16;
    return is_signed && x >= 1 << 23 ? x - (1 << 24) : x;
  }
};
Int24 int24(long double x) {
  const unsigned v = static_cast<unsigned>(static_cast<int>(x));
  return {{static_cast<Nox8u>(v), static_cast<Nox8u>(v >> 8), static_cast<Nox8u>(v >> 16)}};
}

// What a type is as a number, and what it takes.
template <class T>
struct Type {
  static long double value(T x) { return x; }
  static constexpr long double kLow = std::numeric_limits<T>::lowest(), kHigh = std::numeric_limits<T>::max();
  static T of(long double x) { return static_cast<T>(x); }
};
struct S24 : Int24 {};
struct U24 : Int24 {};
template <>
struct Type<S24> {
  static long double value(const S24& x) { return x.Int24::value(true); }
  static constexpr long double kLow = -8388608, kHigh = 8388607;
  static S24 of(long double x) { return {int24(x)}; }
};
template <>
struct Type<U24> {
  static long double value(const U24& x) { return x.Int24::value(false); }
  static constexpr long double kLow = 0, kHigh = 16777215;
  static U24 of(long double x) { return {int24(x)}; }
};

template <class T>
T source_value(kit::Random& random, size_t turn) {
  if constexpr (sizeof(T) == 3) {
    Int24 x;
    for (Nox8u& b : x.bytes) b = static_cast<Nox8u>(turn % 3 ? random.integer(0, 255) : 255 * random.integer(0, 1));
    return {x};
  } else if constexpr (std::is_floating_point_v<T>) {
    // Around integers and halves of the narrow types, around their ends, and anything.
    const T near = static_cast<T>(static_cast<int>(random.integer(-140000, 140000)) * 0.5);
    switch (turn % 4) {
      case 0:
        return near;
      case 1:
        return std::nextafter(near, random.integer(0, 1) ? static_cast<T>(HUGE_VAL) : static_cast<T>(-HUGE_VAL));
      case 2:
        return static_cast<T>(random.uniform(-0x1p33, 0x1p33));
      default:
        return random.special<T>();
    }
  } else {
    return turn % 2 ? random.value<T>() : random.special<T>();
  }
}

template <class T>
using Raw = std::conditional_t<sizeof(T) == 3, Nox8u, T>;

// run(source, destination, len) gives expected(x) for every x.
template <class S, class D, class Run, class Expected>
void check(Run&& run, Expected&& expected, bool every_place = true) {
  kit::Random random;
  const auto one = [&](size_t n, const Place& place) {
    std::vector<S> x(n);
    std::vector<D> wanted(n);
    for (size_t i = 0; i < n; ++i) {
      x[i] = source_value<S>(random, i + n);
      wanted[i] = expected(x[i]);
    }
    Guarded<S> s(x, place.edge, place.first);
    Guarded<D> d(n, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr,
              run(reinterpret_cast<const Raw<S>*>(s.data()), reinterpret_cast<Raw<D>*>(d.data()), static_cast<int>(n)));
    for (size_t i = 0; i < n; ++i)
      ASSERT_EQ(0, std::memcmp(&d[i], &wanted[i], sizeof(D)))
          << static_cast<double>(Type<S>::value(x[i])) << " gives " << static_cast<double>(Type<D>::value(d[i]))
          << ", not " << static_cast<double>(Type<D>::value(wanted[i])) << " at " << i << " of " << n;
  };
  if (!every_place) return one(150, kPlaces[0]);
  for_lengths_and_places(sizeof(S), [&](size_t n, const Place& place, size_t) { one(n, place); });
}

template <class S, class D>
void widens(NoxStatus (*convert)(const Raw<S>*, Raw<D>*, int)) {
  check<S, D>([=](const Raw<S>* s, Raw<D>* d, int n) { return call(convert, s, d, n); },
              [](const S& x) {
                if constexpr (std::is_floating_point_v<S>)
                  return static_cast<D>(x);
                else
                  return Type<D>::of(Type<S>::value(x));
              });
}
TEST_P(Conversions, Widening) {
  widens<Nox8s, Nox16s>(noxsConvert_8s16s);
  widens<Nox8s, Nox32f>(noxsConvert_8s32f);
  widens<Nox8u, Nox32f>(noxsConvert_8u32f);
  widens<Nox16s, Nox32s>(noxsConvert_16s32s);
  widens<Nox16s, Nox32f>(noxsConvert_16s32f);
  widens<Nox16u, Nox32f>(noxsConvert_16u32f);
  widens<Nox32s, Nox32f>(noxsConvert_32s32f);
  widens<Nox32s, Nox64f>(noxsConvert_32s64f);
  widens<Nox32f, Nox64f>(noxsConvert_32f64f);
  widens<Nox64f, Nox32f>(noxsConvert_64f32f);
  widens<S24, Nox32s>(noxsConvert_24s32s);
  widens<S24, Nox32f>(noxsConvert_24s32f);
  widens<U24, Nox32u>(noxsConvert_24u32u);
  widens<U24, Nox32f>(noxsConvert_24u32f);
}

std::vector<int> scale_factors() {
  std::vector<int> s = {INT_MIN, INT_MIN + 1, -1100, -200, -128, 128, 200, 1100, INT_MAX};
  for (int k = -70; k <= 70; ++k) s.push_back(k);
  return s;
}

template <class S, class D>
void scales(NoxStatus (*convert)(const S*, D*, int, int), int low = INT_MIN, int high = INT_MAX) {
  const auto with = [=](int scale, bool every_place) {
    SCOPED_TRACE(testing::Message() << "scale factor " << scale);
    const int s = scale < low ? low : scale > high ? high : scale;
    const int exponent =
        sizeof(D) == 4 ? reference::factor_exponent(s, -126, 127) : reference::factor_exponent(s, -1022, 1023);
    check<S, D>([=](const S* x, D* d, int n) { return call(convert, x, d, n, scale); },
                [=](S x) { return static_cast<D>(x) * static_cast<D>(std::ldexp(1.0L, exponent)); }, every_place);
  };
  for (const int scale : scale_factors()) with(scale, false);
  with(3, true);
}
TEST_P(Conversions, IntegersToScaledReals) {
  scales<Nox16s, Nox32f>(noxsConvert_16s32f_Sfs);
  scales<Nox16s, Nox64f>(noxsConvert_16s64f_Sfs);
  scales<Nox32s, Nox32f>(noxsConvert_32s32f_Sfs, -96, 126);
  scales<Nox32s, Nox64f>(noxsConvert_32s64f_Sfs);
}

// An integer by 2^-s; where s is far out, everything is 0 or cut.
template <class S>
long double scaled(const S& x, int s) {
  return std::ldexp(Type<S>::value(x), -std::clamp(s, -200, 200));
}
template <class S, class D>
D narrowed(const S& x, int s, int mode) {
  return Type<D>::of(
      reference::saturated<long double>(reference::rounded(scaled(x, s), mode), Type<D>::kLow, Type<D>::kHigh, 0));
}
template <class S, class D>
void narrows(NoxStatus (*convert)(const S*, Raw<D>*, int, int), int low = INT_MIN, int high = INT_MAX) {
  const auto with = [=](int scale, bool every_place) {
    SCOPED_TRACE(testing::Message() << "scale factor " << scale);
    check<S, D>([=](const S* s, Raw<D>* d, int n) { return call(convert, s, d, n, scale); },
                [=](S x) { return narrowed<S, D>(x, std::clamp(scale, low, high), noxRndNear); }, every_place);
  };
  for (const int scale : scale_factors()) with(scale, false);
  for (const int scale : {-2, 0, 1, 5}) with(scale, true);
}
TEST_P(Conversions, IntegersToNarrowerOnes) {
  check<Nox32s, Nox16s>([](const Nox32s* s, Nox16s* d, int n) { return call(noxsConvert_32s16s, s, d, n); },
                        [](Nox32s x) { return narrowed<Nox32s, Nox16s>(x, 0, noxRndNear); });
  narrows<Nox32s, Nox16s>(noxsConvert_32s16s_Sfs, -15, 31);
  narrows<Nox32s, S24>(noxsConvert_32s24s_Sfs);
  narrows<Nox32u, U24>(noxsConvert_32u24u_Sfs);
  for (const int mode : {0, 1, 2, 3, -1})
    for (const int scale : scale_factors()) {
      SCOPED_TRACE(testing::Message() << "mode " << mode << ", scale factor " << scale);
      check<Nox64s, Nox32s>(
          [=](const Nox64s* s, Nox32s* d, int n) { return call(noxsConvert_64s32s_Sfs, s, d, n, mode, scale); },
          [=](Nox64s x) { return narrowed<Nox64s, Nox32s>(x, scale, mode); }, scale == 2);
    }
}

// Ties at the edges of the lanes' arithmetic.
TEST_P(Conversions, TiesOfIntegers) {
  for (int s = 1; s <= 40; ++s)
    for (const Nox64s base : {0LL, 1LL, 2LL, 3LL, -1LL, -2LL, -3LL, 1000LL}) {
      const Nox64s half = s <= 40 ? base * (Nox64s{1} << s) + (Nox64s{1} << (s - 1)) : 0;
      for (const Nox64s x : {half - 1, half, half + 1}) {
        Nox32s d32 = 0;
        call(noxsConvert_64s32s_Sfs, &x, &d32, 1, int{noxRndNear}, s);
        ASSERT_EQ(d32, (narrowed<Nox64s, Nox32s>(x, s, noxRndNear))) << x << " by " << s;
        if (x < INT32_MIN || x > INT32_MAX || s > 31) continue;
        const Nox32s x32 = static_cast<Nox32s>(x);
        Nox16s d16 = 0;
        call(noxsConvert_32s16s_Sfs, &x32, &d16, 1, s);
        ASSERT_EQ(d16, (narrowed<Nox32s, Nox16s>(x32, s, noxRndNear))) << x << " by " << s;
      }
    }
}

template <class S, class D, class Run>
void rounds(Run&& convert, int mode, D for_nan) {
  const auto with = [=](int scale, bool every_place) {
    SCOPED_TRACE(testing::Message() << "mode " << mode << ", scale factor " << scale);
    const int exponent =
        sizeof(S) == 4 ? reference::factor_exponent(scale, -126, 127) : reference::factor_exponent(scale, -1022, 1023);
    check<S, D>([=](const S* s, Raw<D>* d, int n) { return convert(s, d, n, mode, scale); },
                [=](S x) {
                  const S product = x * static_cast<S>(std::ldexp(1.0L, exponent));
                  if (std::isnan(product)) return for_nan;
                  return Type<D>::of(reference::saturated<long double>(reference::rounded(product, mode), Type<D>::kLow,
                                                                       Type<D>::kHigh, 0));
                },
                every_place);
  };
  for (const int scale : scale_factors()) with(scale, false);
  with(0, true);
  with(-1, true);
}
template <class S, class D>
void rounds_by_mode(NoxStatus (*convert)(const S*, D*, int, int, int), D for_nan) {
  const auto run = [=](const S* s, D* d, int n, int mode, int scale) { return call(convert, s, d, n, mode, scale); };
  for (const int mode : {0, 1, 2, 7}) rounds<S, D>(run, mode, for_nan);
}
TEST_P(Conversions, RealsToIntegers) {
  rounds_by_mode<Nox32f, Nox8s>(noxsConvert_32f8s_Sfs, 127);
  rounds_by_mode<Nox32f, Nox8u>(noxsConvert_32f8u_Sfs, 255);
  rounds_by_mode<Nox32f, Nox16s>(noxsConvert_32f16s_Sfs, 32767);
  rounds_by_mode<Nox32f, Nox16u>(noxsConvert_32f16u_Sfs, 65535);
  rounds_by_mode<Nox32f, Nox32s>(noxsConvert_32f32s_Sfs, 2147483520);
  rounds_by_mode<Nox64f, Nox16s>(noxsConvert_64f16s_Sfs, 32767);
  rounds_by_mode<Nox64f, Nox32s>(noxsConvert_64f32s_Sfs, 2147483647);
  rounds<Nox32f, S24>(
      [](const Nox32f* s, Nox8u* d, int n, int, int k) { return call(noxsConvert_32f24s_Sfs, s, d, n, k); }, noxRndNear,
      Type<S24>::of(8388607));
  rounds<Nox32f, U24>(
      [](const Nox32f* s, Nox8u* d, int n, int, int k) { return call(noxsConvert_32f24u_Sfs, s, d, n, k); }, noxRndNear,
      Type<U24>::of(16777215));
}

TEST_P(Conversions, EveryHalf) {
  std::vector<Nox16f> all(65536);
  for (size_t i = 0; i < all.size(); ++i) all[i] = static_cast<Nox16f>(i);
  std::vector<Nox32f> found(all.size()), wanted(all.size());
  ASSERT_EQ(noxStsNoErr, call(noxsConvert_16f32f, all.data(), found.data(), 65536));
  for (size_t i = 0; i < all.size(); ++i) wanted[i] = reference::value_of_half(all[i]);
  EXPECT_TRUE(kit::same_bits(found.data(), wanted.data(), all.size()));
  for (const int mode : {int{noxRndZero}, int{noxRndNear}})
    for (const int scale : {0, 2, -3, 40, -40}) {
      std::vector<Nox16s> words(all.size());
      ASSERT_EQ(noxStsNoErr, call(noxsConvert_16f16s_Sfs, all.data(), words.data(), 65536, mode, scale));
      for (size_t i = 0; i < all.size(); ++i) {
        const Nox32f x = std::ldexp(wanted[i], -scale);
        const Nox16s y = std::isnan(x)
                             ? Nox16s(32767)
                             : static_cast<Nox16s>(std::clamp(reference::rounded(x, mode), -32768.0L, 32767.0L));
        ASSERT_EQ(words[i], y) << wanted[i] << ", mode " << mode << ", scale factor " << scale;
      }
    }
}

TEST_P(Conversions, ToHalves) {
  // Every half and its neighbours, the middles between two, ends, and any bits.
  std::vector<Nox32f> x;
  kit::Random random;
  for (unsigned h = 0; h < 0x7C01; ++h) {
    const Nox32f a = reference::value_of_half(static_cast<Nox16f>(h)),
                 b = reference::value_of_half(static_cast<Nox16f>(h + 1));
    const Nox32f middle = h < 0x7BFF ? (a + b) / 2 : 65520.f;
    for (const Nox32f y : {a, middle}) {
      x.push_back(std::nextafter(y, 0.f));
      x.push_back(-y);
      x.push_back(std::nextafter(y, HUGE_VALF));
    }
  }
  for (int i = 0; i < 20000; ++i) {
    const Nox32u bits = static_cast<Nox32u>(random.value<Nox32s>());
    Nox32f f;
    std::memcpy(&f, &bits, sizeof f);
    if (std::fabs(f) >= 1.17549435e-38f || std::isnan(f)) x.push_back(f);
  }
  std::vector<Nox16f> h(x.size());
  const int n = static_cast<int>(x.size());
  for (const int mode : {0, 1, 5}) {
    ASSERT_EQ(noxStsNoErr, call(noxsConvert_32f16f, x.data(), h.data(), n, mode));
    for (size_t i = 0; i < x.size(); ++i)
      ASSERT_EQ(h[i], reference::half_of(x[i], mode == 1)) << x[i] << ", mode " << mode;
  }
  std::vector<Nox16s> w(65536);
  for (size_t i = 0; i < w.size(); ++i) w[i] = static_cast<Nox16s>(i);
  h.resize(w.size());
  for (const int mode : {0, 1, -1}) {
    ASSERT_EQ(noxStsNoErr, call(noxsConvert_16s16f, w.data(), h.data(), 65536, mode));
    for (size_t i = 0; i < w.size(); ++i) ASSERT_EQ(h[i], reference::half_of(w[i], mode == 1)) << w[i];
  }
}

TEST_P(Conversions, HalvesAtEveryPlace) {
  check<Nox16u, Nox32f>([](const Nox16u* s, Nox32f* d, int n) { return call(noxsConvert_16f32f, s, d, n); },
                        [](Nox16u h) { return reference::value_of_half(h); });
  check<Nox32f, Nox16u>([](const Nox32f* s, Nox16u* d, int n) { return call(noxsConvert_32f16f, s, d, n, 1); },
                        [](Nox32f x) { return reference::half_of(x, true); });
  check<Nox16s, Nox16u>([](const Nox16s* s, Nox16u* d, int n) { return call(noxsConvert_16s16f, s, d, n, 0); },
                        [](Nox16s x) { return reference::half_of(x, false); });
  check<Nox16u, Nox16s>([](const Nox16u* s, Nox16s* d, int n) { return call(noxsConvert_16f16s_Sfs, s, d, n, 1, 0); },
                        [](Nox16u h) {
                          const Nox32f x = reference::value_of_half(h);
                          return static_cast<Nox16s>(
                              std::isnan(x) ? 32767.0L : std::clamp(reference::rounded(x, 1), -32768.0L, 32767.0L));
                        });
  const Nox32f x[1] = {1};
  Nox16f h[1] = {7};
  EXPECT_EQ(noxStsRoundModeNotSupportedErr, call(noxsConvert_32f16f, x, h, 1, int{noxRndHalfAway}));
  EXPECT_EQ(noxStsSizeErr, call(noxsConvert_32f16f, x, h, 0, int{noxRndHalfAway}));
  EXPECT_EQ(7, h[0]);
}

}  // namespace
