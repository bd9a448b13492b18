// Bitwise operations, shifts and byte swaps: every type against single elements, at every length and place, in place
// and not; shift counts on both sides of every border, and the order of their statuses.
#include <gtest/gtest.h>

#include <cstring>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "vector/places.hpp"

namespace {

using kit::Guarded;

class Logic : public kit::EachVariant {};
NOX_EACH_VARIANT(Logic);

// plain(sources..., d, len) and in_place(first sources..., d, len) give expected(x, y) of any values.
template <class T, class Plain, class InPlace, class Expected>
void check_forms(size_t parts, Plain&& plain, InPlace&& in_place, Expected&& expected) {
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t) {
    const int len = static_cast<int>(n);
    std::vector<T> x(n * parts), y(n * parts), wanted(n * parts);
    random.fill_bits(x);
    random.fill_bits(y);
    for (size_t i = 0; i < x.size(); ++i) wanted[i] = expected(x, y, i);
    Guarded<T> a(x, place.edge, place.first), b(y, place.edge, place.second), d(x.size(), place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, plain(a.data(), b.data(), d.data(), len));
    ASSERT_TRUE(kit::same_bits(d.data(), wanted.data(), wanted.size()));
    ASSERT_TRUE(kit::same_bits(a.data(), x.data(), x.size())) << "the source was written";
    d.fill(x);
    ASSERT_EQ(noxStsNoErr, in_place(b.data(), d.data(), len));
    ASSERT_TRUE(kit::same_bits(d.data(), wanted.data(), wanted.size())) << "in place";
    ASSERT_EQ(noxStsNoErr, plain(a.data(), b.data(), a.data(), len));
    ASSERT_TRUE(kit::same_bits(a.data(), wanted.data(), wanted.size())) << "over the source";
  });
}

template <class T>
struct Bitwise {
  NoxStatus (*two)(const T*, const T*, T*, int);
  NoxStatus (*two_in_place)(const T*, T*, int);
  NoxStatus (*constant)(const T*, T, T*, int);
  NoxStatus (*constant_in_place)(T, T*, int);
  T (*expected)(T, T);
};
template <class T>
T and_of(T a, T b) {
  return T(a & b);
}
template <class T>
T or_of(T a, T b) {
  return T(a | b);
}
template <class T>
T xor_of(T a, T b) {
  return T(a ^ b);
}

template <class T>
void check_bitwise(const Bitwise<T>& f) {
  using Values = std::vector<T>;
  check_forms<T>(
      1, [&](const T* a, const T* b, T* d, int len) { return kit::call(f.two, a, b, d, len); },
      [&](const T* b, T* d, int len) { return kit::call(f.two_in_place, b, d, len); },
      [&](const Values& x, const Values& y, size_t i) { return f.expected(x[i], y[i]); });
  for (const T c : {T(0), T(0x5A6978C3)})
    check_forms<T>(
        1, [&](const T* a, const T*, T* d, int len) { return kit::call(f.constant, a, c, d, len); },
        [&](const T*, T* d, int len) { return kit::call(f.constant_in_place, c, d, len); },
        [&](const Values& x, const Values&, size_t i) { return f.expected(x[i], c); });
}

TEST_P(Logic, Bitwise) {
#define OPERATIONS(T, Op, expected) \
  Bitwise<Nox##T>{noxs##Op##_##T, noxs##Op##_##T##_I, noxs##Op##C_##T, noxs##Op##C_##T##_I, expected<Nox##T>}
  check_bitwise(OPERATIONS(8u, And, and_of));
  check_bitwise(OPERATIONS(16u, And, and_of));
  check_bitwise(OPERATIONS(32u, And, and_of));
  check_bitwise(OPERATIONS(8u, Or, or_of));
  check_bitwise(OPERATIONS(16u, Or, or_of));
  check_bitwise(OPERATIONS(32u, Or, or_of));
  check_bitwise(OPERATIONS(8u, Xor, xor_of));
  check_bitwise(OPERATIONS(16u, Xor, xor_of));
  check_bitwise(OPERATIONS(32u, Xor, xor_of));
#undef OPERATIONS
}

template <class T>
using Plain = NoxStatus (*)(const T*, T*, int);
template <class T>
using InPlace = NoxStatus (*)(T*, int);

template <class T>
void check_unary(Plain<T> plain, InPlace<T> in_place, size_t parts, T (*expected)(const std::vector<T>&, size_t)) {
  check_forms<T>(
      parts, [=](const T* a, const T*, T* d, int len) { return kit::call(plain, a, d, len); },
      [=](const T*, T* d, int len) { return kit::call(in_place, d, len); },
      [=](const std::vector<T>& x, const std::vector<T>&, size_t i) { return expected(x, i); });
}
template <class T>
T complement(const std::vector<T>& x, size_t i) {
  return T(~x[i]);
}
template <class T>
T bytes_reversed(const std::vector<T>& x, size_t i) {
  T out = 0;
  for (size_t k = 0; k < sizeof(T); ++k) out = T(out << 8 | (x[i] >> 8 * k & 0xFF));
  return out;
}
Nox8u triple_reversed(const std::vector<Nox8u>& x, size_t i) { return x[i - i % 3 + 2 - i % 3]; }

TEST_P(Logic, ComplementsAndByteSwaps) {
  check_unary<Nox8u>(noxsNot_8u, noxsNot_8u_I, 1, complement);
  check_unary<Nox16u>(noxsNot_16u, noxsNot_16u_I, 1, complement);
  check_unary<Nox32u>(noxsNot_32u, noxsNot_32u_I, 1, complement);
  check_unary<Nox16u>(noxsSwapBytes_16u, noxsSwapBytes_16u_I, 1, bytes_reversed);
  check_unary<Nox8u>(noxsSwapBytes_24u, noxsSwapBytes_24u_I, 3, triple_reversed);
  check_unary<Nox32u>(noxsSwapBytes_32u, noxsSwapBytes_32u_I, 1, bytes_reversed);
  check_unary<Nox64u>(noxsSwapBytes_64u, noxsSwapBytes_64u_I, 1, bytes_reversed);
}

// By products and quotients, rounded down, of powers of two.
template <class T>
T shifted_left(T x, int n) {
  return n >= 32 ? T(0) : T(static_cast<Nox64s>(x) * (Nox64s{1} << n));
}
template <class T>
T shifted_right(T x, int n) {
  const Nox64s divisor = Nox64s{1} << (n < 40 ? n : 40);
  return T((x - (x % divisor + divisor) % divisor) / divisor);
}

template <class T>
void check_shift(NoxStatus (*plain)(const T*, int, T*, int), NoxStatus (*in_place)(int, T*, int),
                 T (*expected)(T, int)) {
  constexpr int kWidth = static_cast<int>(sizeof(T)) * 8;
  for (const int n : {0, 3, kWidth - 1, kWidth, 0x7FFFFFFF})
    check_forms<T>(
        1, [=](const T* a, const T*, T* d, int len) { return kit::call(plain, a, n, d, len); },
        [=](const T*, T* d, int len) { return kit::call(in_place, n, d, len); },
        [=](const std::vector<T>& x, const std::vector<T>&, size_t i) { return expected(x[i], n); });
  // A null pointer counts before the length, and both before the count, whichever way the count takes.
  for (const int n : {-1, 0, 3, kWidth, 100, -0x7FFFFFFF - 1}) {
    T x[2] = {T(77), T(78)}, d[2] = {T(5), T(6)};
    EXPECT_EQ(noxStsNullPtrErr, kit::call(plain, nullptr, n, d, 0));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(plain, x, n, nullptr, 0));
    EXPECT_EQ(noxStsSizeErr, kit::call(plain, x, n, d, 0));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(in_place, n, nullptr, 0));
    EXPECT_EQ(noxStsSizeErr, kit::call(in_place, n, d, -1));
    if (n < 0) {
      EXPECT_EQ(noxStsShiftErr, kit::call(plain, x, n, d, 2));
      EXPECT_EQ(noxStsShiftErr, kit::call(in_place, n, d, 2));
    }
    EXPECT_EQ(T(5), d[0]);
    EXPECT_EQ(T(6), d[1]);
  }
}

TEST_P(Logic, Shifts) {
  check_shift<Nox8u>(noxsLShiftC_8u, noxsLShiftC_8u_I, shifted_left);
  check_shift<Nox16s>(noxsLShiftC_16s, noxsLShiftC_16s_I, shifted_left);
  check_shift<Nox32s>(noxsLShiftC_32s, noxsLShiftC_32s_I, shifted_left);
  check_shift<Nox8u>(noxsRShiftC_8u, noxsRShiftC_8u_I, shifted_right);
  check_shift<Nox16s>(noxsRShiftC_16s, noxsRShiftC_16s_I, shifted_right);
  check_shift<Nox32s>(noxsRShiftC_32s, noxsRShiftC_32s_I, shifted_right);
}

}  // namespace
