// Tests of array functions against the scalar loop from index 0 on, in every layout: arrays apart, the same, or one
// beginning inside another.
//
// All arrays of a case stand in one block of memory. Function and loop run on copies of it, and the whole blocks are
// compared: what the loop leaves alone, the function must leave alone.
#pragma once
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/lengths.hpp"
#include "kit/random.hpp"
#include "nox/nox.h"

namespace layout {

// Places of the arrays, in doubles from the front of the block; `shift` moves all of them by so many bytes.
struct Layout {
  int first, second, dst, shift;
};
constexpr int kFar = 640;  // beyond any other array
constexpr Layout kLayouts[] = {
    {8, kFar, 2 * kFar, 0}, {8, kFar, 2 * kFar, 4}, {8, kFar, 2 * kFar, 1}, {8, kFar, 8, 0},
    {8, kFar, kFar, 0},     {8, 8, 8, 0},           {8, kFar, 9, 0},        {8, kFar, 7, 0},
    {8, kFar, 10, 0},       {8, kFar, 6, 0},        {8, kFar, kFar + 1, 0}, {8, kFar, kFar - 1, 0},
    {8, kFar, kFar + 3, 0}, {8, kFar, 12, 4},       {8, kFar, 2 * kFar, 4}, {9, kFar + 1, 2 * kFar, 0},
};
constexpr Nox32u kLengths[] = {0, 1, 2, 3, 4, 5, 7, 8, 9, 16, 23, 40, 257};

// Two blocks of equal contents, one for the function, one for the loop.
class Blocks {
 public:
  Blocks(kit::Random& random, bool special, int shift) : shift_(static_cast<size_t>(shift)) {
    std::vector<double> values(3 * kFar);
    if (special)
      random.fill_special(values);
    else
      random.fill(values);
    actual_.resize(values.size() * 8 + 16);
    std::memcpy(actual_.data() + shift_, values.data(), values.size() * 8);
    expected_ = actual_;
  }
  template <class T>
  T* actual(int place) {
    return reinterpret_cast<T*>(actual_.data() + shift_ + place * 8);
  }
  template <class T>
  T* expected(int place) {
    return reinterpret_cast<T*>(expected_.data() + shift_ + place * 8);
  }
  testing::AssertionResult same() const {
    std::vector<double> a(3 * kFar), e(3 * kFar);
    std::memcpy(a.data(), actual_.data() + shift_, a.size() * 8);
    std::memcpy(e.data(), expected_.data() + shift_, e.size() * 8);
    return kit::same_values(a.data(), e.data(), a.size());
  }

 private:
  size_t shift_;
  std::vector<char> actual_, expected_;
};

// One element, at whatever address.
template <class T>
T get(const T* p) {
  T x;
  std::memcpy(&x, p, sizeof x);
  return x;
}
template <class T>
void put(T* p, const T& x) {
  std::memcpy(p, &x, sizeof x);
}

// run(first, second, dst, n) and its loop, both given as functors of the pointers, in every layout; then between
// unmapped pages.
template <class A, class B, class D, class Run, class Loop>
void check(Run&& run, Loop&& loop) {
  kit::Random random;
  size_t turn = 0;
  for (const Layout& l : kLayouts)
    for (const Nox32u n : kLengths) {
      SCOPED_TRACE(testing::Message() << n << " elements at " << l.first << ", " << l.second << ", " << l.dst
                                      << ", shifted by " << l.shift);
      Blocks blocks(random, ++turn % 2, l.shift);
      run(blocks.actual<A>(l.first), blocks.actual<B>(l.second), blocks.actual<D>(l.dst), n);
      loop(blocks.expected<A>(l.first), blocks.expected<B>(l.second), blocks.expected<D>(l.dst), n);
      ASSERT_TRUE(blocks.same());
    }
  for (const Nox32u n : {1u, 3u, 4u, 7u, 16u, 33u})
    for (const kit::Edge edge : {kit::Edge::Start, kit::Edge::End}) {
      kit::Guarded<A> a(n, edge, 0);
      kit::Guarded<B> b(n, edge, 0);
      kit::Guarded<D> d(n, edge, 0);
      run(a.data(), b.data(), d.data(), n);
    }
}

}  // namespace layout
