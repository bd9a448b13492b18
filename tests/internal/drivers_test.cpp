// The drivers on arrays of every length against guard pages, at every place on and off a vector boundary.
#include <algorithm>

#include "internal/builds.hpp"
#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/lengths.hpp"
#include "kit/random.hpp"

namespace {

using internal::DriverCase;
using internal::Shape;
using kit::Edge;
using kit::Guarded;

template <class T>
T plus(const T& a, const T& b) {
  if constexpr (kit::is_complex<T>)
    return {a.re + b.re, a.im + b.im};
  else if constexpr (std::is_floating_point_v<T>)
    return a + b;
  else
    return static_cast<T>(static_cast<Nox64u>(a) + static_cast<Nox64u>(b));
}
template <class T>
T minus(const T& a, const T& b) {
  if constexpr (kit::is_complex<T>)
    return {a.re - b.re, a.im - b.im};
  else if constexpr (std::is_floating_point_v<T>)
    return a - b;
  else
    return static_cast<T>(static_cast<Nox64u>(a) - static_cast<Nox64u>(b));
}

bool may_be_in_place(Shape s) { return s == Shape::Map1 || s == Shape::Map2 || s == Shape::Map3; }

template <class T>
std::vector<T> expected(Shape shape, const std::vector<T>& a, const std::vector<T>& b, const std::vector<T>& c) {
  std::vector<T> d = a;
  const size_t n = a.size();
  for (size_t i = 0; i < n; ++i) {
    switch (shape) {
      case Shape::Map1:
        d[i] = plus(a[i], a[i]);
        break;
      case Shape::Map2:
        d[i] = minus(a[i], b[i]);
        break;
      case Shape::Map3:
        d[i] = plus(minus(a[i], b[i]), c[i]);
        break;
      case Shape::MapReversed:
        d[i] = plus(a[n - 1 - i], a[n - 1 - i]);
        break;
      case Shape::ReverseInPlace:
        d[i] = a[n - 1 - i];
        break;
      case Shape::Watch:
        break;
    }
  }
  return d;
}

// Whole numbers, so that sums of doubles are exact in any order.
template <class T>
std::vector<T> numbers(size_t n, kit::Random& random) {
  std::vector<T> out(n);
  const auto number = [&] { return static_cast<double>(random.integer(-100, 100)); };
  for (T& x : out) {
    if constexpr (kit::is_complex<T>)
      x = {number(), number()};
    else if constexpr (std::is_floating_point_v<T>)
      x = number();
    else
      x = random.value<T>();
  }
  return out;
}

template <class T>
void test_case(const DriverCase& driver, kit::Random& random) {
  const size_t element = sizeof(T);
  struct Place {
    Edge edge;
    size_t a, d;  // bytes off the edge of the source and of the destination
  };
  const Place places[] = {{Edge::End, 0, 0},
                          {Edge::Start, 0, element},
                          {Edge::Start, element, 3 * element},
                          {Edge::Start, 1, 5},
                          {Edge::End, 2 * element, 1}};
  for (const int len : kit::lengths(element)) {
    const size_t n = static_cast<size_t>(len);
    const std::vector<T> x = numbers<T>(n, random), y = numbers<T>(n, random), z = numbers<T>(n, random);
    const std::vector<T> wanted = expected(driver.shape, x, y, z);
    for (const Place& place : places) {
      Guarded<T> a(x, place.edge, place.a), b(y, place.edge, place.d), c(z, place.edge, place.a);
      Guarded<T> d(wanted.size(), place.edge, place.d);
      if (driver.shape == Shape::ReverseInPlace) d.fill(x);
      kit::call(driver.run, d.data(), a.data(), b.data(), c.data(), len);
      ASSERT_TRUE(kit::same_bits(d.data(), wanted.data(), wanted.size())) << "length " << len;
      if (!may_be_in_place(driver.shape)) continue;
      Guarded<T>& place_of = driver.shape == Shape::Map1 ? a : driver.shape == Shape::Map2 ? b : c;
      kit::call(driver.run, place_of.data(), a.data(), b.data(), c.data(), len);
      ASSERT_TRUE(kit::same_bits(place_of.data(), wanted.data(), n)) << "in place, length " << len;
    }
  }
}

class Drivers : public kit::EachVariant {};

TEST_P(Drivers, AgreeWithTheScalarReference) {
  const internal::Cases& cases = internal::cases_of(GetParam());
  kit::Random random;
  for (int i = 0; i < cases.driver_count; ++i) {
    const DriverCase& driver = cases.drivers[i];
    if (driver.shape == Shape::Watch) continue;
    SCOPED_TRACE(internal::describe(driver));
    internal::with_type(driver.element, [&](auto t) { test_case<typename decltype(t)::type>(driver, random); });
  }
}

// A watched lane is seen wherever it stands: before the boundary, in a vector, behind the last.
TEST_P(Drivers, WatchEveryLane) {
  const internal::Cases& cases = internal::cases_of(GetParam());
  const DriverCase* watch = std::find_if(cases.drivers, cases.drivers + cases.driver_count,
                                         [](const DriverCase& d) { return d.shape == Shape::Watch; });
  for (const size_t n : {1u, 2u, 7u, 23u, 40u}) {
    for (const size_t off : {size_t{0}, sizeof(double)}) {
      Guarded<double> a(std::vector<double>(n, 1.0), Edge::Start, off), d(n, Edge::Start, off);
      kit::call(watch->run, d.data(), a.data(), nullptr, nullptr, static_cast<int>(n));
      EXPECT_EQ(d[0], 0.0) << n;
      for (size_t i = 0; i < n; ++i) {
        a[i] = -1;
        kit::call(watch->run, d.data(), a.data(), nullptr, nullptr, static_cast<int>(n));
        EXPECT_EQ(d[0], 1.0) << "element " << i << " of " << n;
        a[i] = 1;
      }
    }
  }
}
NOX_EACH_VARIANT(Drivers);

}  // namespace
