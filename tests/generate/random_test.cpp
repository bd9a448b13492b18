// Random streams against the recurrences taken one value at a time, however they are cut into fills.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/declarations.hpp"
#include "kit/dispatch.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "reference/random.hpp"
#include "vector/places.hpp"

namespace {

using kit::Guarded;

class RandomNumbers : public kit::EachVariant {
 protected:
  static bool fused() { return GetParam().column == 4; }
};
NOX_EACH_VARIANT(RandomNumbers);

// What a type's calls are, and its streams by the reference.
template <class T, class State>
struct Calls {
  NoxStatus (*size)(int*);
  NoxStatus (*init)(State*, T, T, unsigned int);
  NoxStatus (*fill)(T*, int, State*);
  Nox32u id;
  int bytes;
};
const Calls<Nox8u, NoxRandUniformState_8u> kUniform8u = {noxsRandUniformGetSize_8u, noxsRandUniformInit_8u,
                                                         noxsRandUniform_8u, 37, 56};
const Calls<Nox16s, NoxRandUniformState_16s> kUniform16s = {noxsRandUniformGetSize_16s, noxsRandUniformInit_16s,
                                                            noxsRandUniform_16s, 38, 56};
const Calls<Nox64f, NoxRandUniformState_64f> kUniform64f = {noxsRandUniformGetSize_64f, noxsRandUniformInit_64f,
                                                            noxsRandUniform_64f, 40, 80};
const Calls<Nox8u, NoxRandGaussState_8u> kGauss8u = {noxsRandGaussGetSize_8u, noxsRandGaussInit_8u, noxsRandGauss_8u,
                                                     41, 64};
const Calls<Nox16s, NoxRandGaussState_16s> kGauss16s = {noxsRandGaussGetSize_16s, noxsRandGaussInit_16s,
                                                        noxsRandGauss_16s, 42, 64};
const Calls<Nox32f, NoxRandGaussState_32f> kGauss32f = {noxsRandGaussGetSize_32f, noxsRandGaussInit_32f, nullptr, 43,
                                                        72};
// Size and Init have rows but no exports.
template <class F>
F entry(const std::string& name, int column) {
  return reinterpret_cast<F>(kit::row_entry(kit::find_declaration(name)->row, column));
}
Calls<Nox64f, NoxRandGaussState_64f> gauss_64f(int column) {
  using C = Calls<Nox64f, NoxRandGaussState_64f>;
  return {entry<decltype(C::size)>("noxsRandGaussGetSize_64f", column),
          entry<decltype(C::init)>("noxsRandGaussInit_64f", column), noxsRandGauss_64f, 44, 80};
}

// A record of its promised size, at an odd address against an unmapped page.
template <class T, class State>
class Record {
 public:
  Record(const Calls<T, State>& calls, T first, T second, Nox32u seed) : memory_(static_cast<size_t>(calls.bytes)) {
    int bytes = 0;
    EXPECT_EQ(noxStsNoErr, kit::call(calls.size, &bytes));
    EXPECT_EQ(calls.bytes, bytes);
    EXPECT_EQ(noxStsNoErr, kit::call(calls.init, state(), first, second, seed));
    EXPECT_EQ(calls.id, word(0));
    EXPECT_EQ(seed, word(4));
  }
  State* state() { return reinterpret_cast<State*>(memory_.data()); }
  Nox32u word(size_t offset) const {
    Nox32u w;
    std::memcpy(&w, memory_.data() + offset, sizeof w);
    return w;
  }

 private:
  Guarded<Nox8u> memory_{0};
};

template <class T>
T to_integer(double x) {
  x = std::nearbyint(x);
  const double low = std::numeric_limits<T>::min(), high = std::numeric_limits<T>::max();
  return static_cast<T>(x < low ? low : x > high ? high : x);
}

// Fills of all lengths, one behind the other, against `next`, which gives the value and how far it may be off.
template <class T, class State, class Next, class Same>
void compare_stream(const Calls<T, State>& calls, Record<T, State>& record, Next&& next, Same&& same) {
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t) {
    Guarded<T> d(n, place.edge, place.dst);
    ASSERT_EQ(noxStsNoErr, kit::call(calls.fill, d.data(), static_cast<int>(n), record.state()));
    for (size_t i = 0; i < n; ++i) {
      const auto expected = next();
      ASSERT_TRUE(same(d[i], expected)) << "element " << i << " of " << n << ": " << kit::describe(d[i]) << " against "
                                        << expected;
    }
  });
}

template <class T, class State>
void uniform_integers(const Calls<T, State>& calls, T low, T high, Nox32u seed, bool fused) {
  Record<T, State> record(calls, low, high, seed);
  reference::RandomSource<Nox32u> source(seed);
  compare_stream(
      calls, record, [&] { return reference::uniform(source, low, high, fused); },
      [](T a, double b) { return a == to_integer<T>(b); });
  EXPECT_EQ(record.word(32), source.x);
  EXPECT_EQ(record.word(36), source.a);
  EXPECT_EQ(record.word(48), source.d);
}
TEST_P(RandomNumbers, UniformIntegers) {
  uniform_integers<Nox8u>(kUniform8u, 0, 255, 0, fused());
  uniform_integers<Nox8u>(kUniform8u, 200, 3, 1, fused());
  uniform_integers<Nox8u>(kUniform8u, 9, 9, 7, fused());
  uniform_integers<Nox16s>(kUniform16s, -32768, 32767, 0xFFFFFFFF, fused());
  uniform_integers<Nox16s>(kUniform16s, -3, 4, 12345, fused());
}

TEST_P(RandomNumbers, UniformDoubles) {
  for (const Nox32u seed : {0u, 4711u, 0xFFFFFFFFu}) {
    const double low = seed ? -1.5 : 0, high = seed ? 7.25 : 1;
    Record<Nox64f, NoxRandUniformState_64f> record(kUniform64f, low, high, seed);
    EXPECT_EQ(record.word(72), 0xFFFFFFFFu) << "the first borrow is a sum";
    EXPECT_EQ(record.word(76), 0u);
    reference::RandomSource<Nox64u> source(seed);
    compare_stream(
        kUniform64f, record, [&] { return reference::uniform(source, low, high); },
        [](double a, double b) { return a == b; });
    EXPECT_EQ(record.word(76), static_cast<Nox32u>(source.d >> 32));
  }
}

template <class T, class State>
void gauss_integers(const Calls<T, State>& calls, T mean, T deviation, bool fused) {
  Record<T, State> record(calls, mean, deviation, 99);
  reference::Gauss gauss(99, fused);
  compare_stream(
      calls, record, [&] { return gauss.next(mean, deviation); },
      // The C library's logarithm may be a bit away: next to a tie either integer will do.
      [](T a, double b) {
        return a == to_integer<T>(b) || a == to_integer<T>(b + 1e-9) || a == to_integer<T>(b - 1e-9);
      });
  EXPECT_EQ(record.word(12), gauss.source.x);
}
TEST_P(RandomNumbers, GaussIntegers) {
  gauss_integers<Nox8u>(kGauss8u, 128, 20, fused());
  gauss_integers<Nox8u>(kGauss8u, 0, 255, fused());
  gauss_integers<Nox8u>(kGauss8u, 7, 0, fused());
  gauss_integers<Nox16s>(kGauss16s, -500, 30000, fused());
  gauss_integers<Nox16s>(kGauss16s, 3, -2, fused());
}

TEST_P(RandomNumbers, GaussDoubles) {
  const auto calls = gauss_64f(GetParam().column);
  Record<Nox64f, NoxRandGaussState_64f> record(calls, 0.5, -3, 17);
  reference::Gauss gauss(17, fused());
  // Two logarithms a unit apart, through quotient, root and product, beside a mean that may cancel.
  compare_stream(
      calls, record, [&] { return gauss.next(0.5, -3); },
      [](double a, double b) { return std::fabs(a - b) <= 4e-15 * (std::fabs(b) + 1); });
  EXPECT_EQ(record.word(24), gauss.source.x);
  EXPECT_EQ(record.word(28), gauss.source.a);
}

// The cuts of a stream leave no trace, not in the last bit; a copy of the record saves it.
TEST_P(RandomNumbers, ACutStreamIsTheSame) {
  const auto calls = gauss_64f(GetParam().column);
  Record<Nox64f, NoxRandGaussState_64f> whole(calls, 1, 2, 3), cut(calls, 1, 2, 3);
  std::vector<Nox64f> expected(1000), got(1000);
  ASSERT_EQ(noxStsNoErr, kit::call(noxsRandGauss_64f, expected.data(), 1000, whole.state()));
  for (int at = 0, n = 1; at < 1000; at += n, n = (n * 5 + 2) % 37 + 1)
    ASSERT_EQ(noxStsNoErr,
              kit::call(noxsRandGauss_64f, &got[static_cast<size_t>(at)], std::min(n, 1000 - at), cut.state()));
  EXPECT_TRUE(kit::same_bits(got.data(), expected.data(), 1000));
}

template <class T, class State>
void index_form(const Calls<T, State>& calls, NoxStatus (*indexed)(T*, int, int, State*)) {
  Record<T, State> plain(calls, 10, 3, 5), by_index(calls, 10, 3, 5);
  T expected[9] = {}, got[9] = {};
  ASSERT_EQ(noxStsNoErr, kit::call(calls.fill, expected + 4, 5, plain.state()));
  ASSERT_EQ(noxStsNoErr, kit::call(indexed, got + 6, -2, 5, by_index.state()));
  EXPECT_TRUE(kit::same_bits(got, expected, 9));
}
TEST_P(RandomNumbers, IndexForms) {
  index_form(kUniform8u, noxsRandUniform_8u_Idx);
  index_form(kUniform16s, noxsRandUniform_16s_Idx);
  index_form(kUniform64f, noxsRandUniform_64f_Idx);
  index_form(kGauss8u, noxsRandGauss_8u_Idx);
  index_form(kGauss16s, noxsRandGauss_16s_Idx);
  index_form(gauss_64f(GetParam().column), noxsRandGauss_64f_Idx);
}

TEST_P(RandomNumbers, RecordsOfAnotherKind) {
  Record<Nox16s, NoxRandUniformState_16s> wrong(kUniform16s, 0, 9, 1);
  Record<Nox32f, NoxRandGaussState_32f> unfilled(kGauss32f, 0.5f, 2, 1);
  Nox8u d[3] = {1, 2, 3};
  EXPECT_EQ(noxStsContextMatchErr,
            kit::call(noxsRandUniform_8u, d, 3, reinterpret_cast<NoxRandUniformState_8u*>(wrong.state())));
  EXPECT_EQ(noxStsContextMatchErr,
            kit::call(noxsRandGauss_8u, d, 3, reinterpret_cast<NoxRandGaussState_8u*>(unfilled.state())));
  EXPECT_EQ(wrong.word(32), 1131199209u);
  EXPECT_EQ(d[0] + d[1] + d[2], 6);
}

// Integers round to nearest whatever mode the thread is in.
TEST_P(RandomNumbers, TheThreadsRoundingModeIsLeftOutAndKept) {
  Nox8u expected[500], got[500];
  for (Nox8u* d : {expected, got}) {
    Record<Nox8u, NoxRandUniformState_8u> record(kUniform8u, 0, 3, 1);
    std::fesetround(d == got ? FE_UPWARD : FE_TONEAREST);
    const NoxStatus st = noxsRandUniform_8u(d, 500, record.state());
    const int mode = std::fegetround();
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(noxStsNoErr, st);
    EXPECT_EQ(mode, d == got ? FE_UPWARD : FE_TONEAREST);
  }
  EXPECT_TRUE(kit::same_bits(got, expected, 500));
}

}  // namespace
