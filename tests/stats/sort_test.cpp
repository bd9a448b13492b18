// Sorting: the order, the same elements as before, positions that tell where each stood, and bounded time on data that
// lead a quicksort astray.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <limits>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "vector/places.hpp"

namespace {

using kit::Guarded;

class Sort : public kit::EachVariant {};
NOX_EACH_VARIANT(Sort);

template <class T>
struct Sorts {
  NoxStatus (*alone)(T*, int);
  NoxStatus (*with_index)(T*, Nox32s*, int);
  bool descending;
};
template <class T>
struct Both {
  Sorts<T> up, down;
};
const Both<Nox8u> k8u{{noxsSortAscend_8u_I, noxsSortIndexAscend_8u_I, false},
                      {noxsSortDescend_8u_I, noxsSortIndexDescend_8u_I, true}};
const Both<Nox16s> k16s{{noxsSortAscend_16s_I, noxsSortIndexAscend_16s_I, false},
                        {noxsSortDescend_16s_I, noxsSortIndexDescend_16s_I, true}};
const Both<Nox32s> k32s{{noxsSortAscend_32s_I, noxsSortIndexAscend_32s_I, false},
                        {noxsSortDescend_32s_I, noxsSortIndexDescend_32s_I, true}};
const Both<Nox64f> k64f{{noxsSortAscend_64f_I, noxsSortIndexAscend_64f_I, false},
                        {noxsSortDescend_64f_I, noxsSortIndexDescend_64f_I, true}};

template <class T>
std::vector<T> few_values(kit::Random& random, size_t n) {
  std::vector<T> x(n);
  for (T& e : x) e = static_cast<T>(random.integer(0, 3));
  return x;
}

// The elements' bits in an order of their own, to compare two arrays as collections.
template <class T>
std::vector<Nox64u> collection(const T* x, size_t n) {
  std::vector<Nox64u> bits(n);
  for (size_t i = 0; i < n; ++i) std::memcpy(&bits[i], x + i, sizeof(T));
  std::sort(bits.begin(), bits.end());
  return bits;
}

template <class T>
void check_sort(const Sorts<T>& sorts, const std::vector<T>& x, const Place& place) {
  const size_t n = x.size();
  const int len = static_cast<int>(n);
  const bool unordered = std::any_of(x.begin(), x.end(), [](T e) { return e != e; });
  Guarded<T> d(x, place.edge, place.dst);
  Guarded<Nox32s> places(n, place.edge, place.first);
  const auto check_order = [&] {
    for (size_t i = 1; i < n && !unordered; ++i)
      ASSERT_FALSE(sorts.descending ? d[i - 1] < d[i] : d[i] < d[i - 1]) << i << " of " << n;
    ASSERT_EQ(collection(x.data(), n), collection(d.data(), n));
  };
  ASSERT_EQ(noxStsNoErr, kit::call(sorts.alone, d.data(), len));
  check_order();
  d.fill(x);
  ASSERT_EQ(noxStsNoErr, kit::call(sorts.with_index, d.data(), places.data(), len));
  check_order();
  std::vector<char> seen(n);
  for (size_t i = 0; i < n; ++i) {
    const size_t from = static_cast<size_t>(places[i]);
    ASSERT_TRUE(from < n && !seen[from]) << "position " << from << " at " << i;
    seen[from] = 1;
    ASSERT_TRUE(kit::same_bits(&d[i], &x[from], 1)) << "element " << i << " didn't stand at " << from;
  }
}

template <class T>
void check_type(const Both<T>& both) {
  kit::Random random;
  for_lengths_and_places(sizeof(T), [&](size_t n, const Place& place, size_t turn) {
    std::vector<T> x(n);
    if (turn % 3 == 0)
      random.fill(x);
    else if (turn % 3 == 1)
      random.fill_special(x);  // extremes, zeros of either sign, NaN
    else
      x = few_values<T>(random, n);
    check_sort(turn % 2 ? both.up : both.down, x, place);
  });
}

TEST_P(Sort, OrdersAndKeepsTheElements) {
  check_type(k8u);
  check_type(k16s);
  check_type(k32s);
  check_type(k64f);
}

// Bytes are sorted in other ways from 128, past 256 and past 512 on, and what ends an array depends on its last runs.
TEST_P(Sort, BytesOfEveryLength) {
  kit::Random random;
  const auto check = [](const std::vector<Nox8u>& x, const Place& place) {
    std::vector<Nox8u> y = x;
    std::sort(y.begin(), y.end());
    Guarded<Nox8u> d(x, place.edge, place.dst);
    for (const auto& sorts : {k8u.up, k8u.down}) {
      d.fill(x);
      ASSERT_EQ(noxStsNoErr, sorts.alone(d.data(), static_cast<int>(x.size())));
      ASSERT_TRUE(kit::same_bits(d.data(), y.data(), y.size())) << y.size() << " bytes";
      std::reverse(y.begin(), y.end());
    }
  };
  size_t turn = 0;
  for (size_t n = 120; n < 560; n += kit::quick() ? 11 : 1) {
    std::vector<Nox8u> x(n);
    random.fill(x);
    check(x, kPlaces[++turn % std::size(kPlaces)]);
    for (Nox8u& e : x) e = random.integer(0, static_cast<int>(n)) < static_cast<int>(turn % n) ? 0 : 255;
    check(x, kPlaces[++turn % std::size(kPlaces)]);
  }
  for (size_t most = 0; most <= 40; ++most)
    for (const size_t n : {600, 615}) {
      std::vector<Nox8u> x(n);
      for (size_t i = 0; i < n; ++i) x[i] = i < most ? 255 : i < 2 * most ? 0 : static_cast<Nox8u>(1 + i % 253);
      check(x, kPlaces[++turn % std::size(kPlaces)]);
    }
}

TEST_P(Sort, StaysInsideWhereNothingCompares) {
  kit::Random random;
  for (const size_t n : {9, 10, 300, 5000}) {
    std::vector<Nox64f> x(n, std::numeric_limits<Nox64f>::quiet_NaN());
    check_sort(k64f.up, x, kPlaces[0]);
    for (size_t i = 0; i < n; i += 2) x[i] = random.value<Nox64f>();
    check_sort(k64f.down, x, kPlaces[1]);
  }
}

// Shapes that make a quicksort quadratic. A quadratic sort of this length takes thousands of times as long as one of
// random data; the bound leaves room for a busy machine.
TEST_P(Sort, NoShapeIsSlow) {
  const int n = kit::quick() ? 20000 : 50000;
  const int mid = n / 2;
  Nox32s (*const shapes[])(int, int) = {
      [](int i, int) { return static_cast<Nox32s>(static_cast<Nox32u>(i) * 0x9E3779B1u); },  // as good as random
      [](int i, int) { return i; },
      [](int i, int) { return -i; },
      [](int, int) { return 7; },
      [](int i, int half) { return i < half ? i : 2 * half - i; },
      [](int i, int) { return i % 1000; },
      [](int i, int) { return i % 3; },
      [](int i, int) { return i % 100 != 0 ? 1 : 0; },
      [](int i, int half) { return i % 2      ? i
                                   : i < half ? half + i
                                              : half - i; },
  };
  double measure = 0;
  for (const auto& shape : shapes) {
    std::vector<Nox32s> x(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) x[static_cast<size_t>(i)] = shape(i, mid);
    std::vector<Nox64f> wide(x.begin(), x.end());
    const auto start = std::chrono::steady_clock::now();
    ASSERT_EQ(noxStsNoErr, noxsSortAscend_32s_I(x.data(), n));
    ASSERT_EQ(noxStsNoErr, noxsSortDescend_64f_I(wide.data(), n));
    const double took = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    ASSERT_TRUE(std::is_sorted(x.begin(), x.end()));
    ASSERT_TRUE(std::is_sorted(wide.rbegin(), wide.rend()));
    if (&shape == &shapes[0]) measure = took;
    EXPECT_LT(took, 40 * measure) << "shape " << &shape - shapes;
  }
}

}  // namespace
