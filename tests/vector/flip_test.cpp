// Reversal and conjugation: values of any bits, signalling NaN included, arrive bit for bit at every length and place.
#include <gtest/gtest.h>

#include <algorithm>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "vector/places.hpp"

namespace {

using kit::Guarded;

class Flip : public kit::EachVariant {};
NOX_EACH_VARIANT(Flip);

template <class T>
using Plain = NoxStatus (*)(const T*, T*, int);
template <class T>
using InPlace = NoxStatus (*)(T*, int);

// Runs the forms of a function that gives expected(values) for any values; in_place may be null.
template <class T, class Expected>
void check_forms(Plain<T> plain, InPlace<T> in_place, Expected&& expected) {
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t) {
    const int len = static_cast<int>(n);
    std::vector<T> x(n);
    random.fill_bits(x);
    const std::vector<T> wanted = expected(x);
    Guarded<T> a(x, place.edge, place.first), d(n, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(plain, a.data(), d.data(), len));
    ASSERT_TRUE(kit::same_bits(d.data(), wanted.data(), n));
    ASSERT_TRUE(kit::same_bits(a.data(), x.data(), n)) << "the source was written";
    if (!in_place) return;
    d.fill(x);
    ASSERT_EQ(noxStsNoErr, kit::call(in_place, d.data(), len));
    ASSERT_TRUE(kit::same_bits(d.data(), wanted.data(), n)) << "in place";
    ASSERT_EQ(noxStsNoErr, kit::call(plain, a.data(), a.data(), len));
    ASSERT_TRUE(kit::same_bits(a.data(), wanted.data(), n)) << "over the source";
  });
}

template <class T>
std::vector<T> reversed(std::vector<T> v) {
  std::reverse(v.begin(), v.end());
  return v;
}
std::vector<Nox64fc> conjugated(std::vector<Nox64fc> v) {
  for (Nox64fc& z : v) {
    uint64_t bits;
    std::memcpy(&bits, &z.im, sizeof bits);
    bits ^= uint64_t{1} << 63;
    std::memcpy(&z.im, &bits, sizeof bits);
  }
  return v;
}

TEST_P(Flip, ReversesEveryType) {
  check_forms<Nox8u>(noxsFlip_8u, noxsFlip_8u_I, reversed<Nox8u>);
  check_forms<Nox16u>(noxsFlip_16u, noxsFlip_16u_I, reversed<Nox16u>);
  check_forms<Nox32f>(noxsFlip_32f, noxsFlip_32f_I, reversed<Nox32f>);
  check_forms<Nox64f>(noxsFlip_64f, noxsFlip_64f_I, reversed<Nox64f>);
  check_forms<Nox64fc>(noxsFlip_64fc, noxsFlip_64fc_I, reversed<Nox64fc>);
}

TEST_P(Flip, Conjugates) {
  check_forms<Nox64fc>(noxsConj_64fc, noxsConj_64fc_I, conjugated);
  check_forms<Nox64fc>(noxsConjFlip_64fc, nullptr,
                       [](const std::vector<Nox64fc>& v) { return conjugated(reversed(v)); });
}

// Equal pointers lead to the in-place form before anything is checked, so two nulls are refused there.
TEST_P(Flip, EqualPointersAreCheckedByTheInPlaceForm) {
  const auto check = [](auto zero, auto plain) {
    auto x = zero;
    EXPECT_EQ(noxStsNullPtrErr, kit::call(plain, nullptr, nullptr, 5));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(plain, nullptr, nullptr, 0));
    EXPECT_EQ(noxStsSizeErr, kit::call(plain, &x, &x, 0));
  };
  check(Nox8u{}, noxsFlip_8u);
  check(Nox16u{}, noxsFlip_16u);
  check(Nox32f{}, noxsFlip_32f);
  check(Nox64f{}, noxsFlip_64f);
  check(Nox64fc{}, noxsFlip_64fc);
}

}  // namespace
