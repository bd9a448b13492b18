// The larger or smaller of two integers at every place against the scalar loop, in every layout of the arrays.
#include <algorithm>

#include "array/layout.hpp"

namespace {

using layout::get;
using layout::put;

template <class T, class Pick>
void check_every(NoxStatus (*every)(const T*, int, const T*, int, T*, int, int), Pick pick) {
  layout::check<T, T, T>(
      [=](T* a, T* b, T* d, Nox32u n) {
        EXPECT_EQ(noxStsNoErr, kit::call(every, a + 3, -3, b - 1, 1, d, 0, static_cast<int>(n)));
      },
      [=](T* a, T* b, T* d, Nox32u n) {
        for (Nox32u i = 0; i < n; ++i) put(d + i, pick(get(a + i), get(b + i)));
      });
  T d = 5;
  EXPECT_EQ(noxStsSizeErr, kit::call(every, &d, 0, &d, 0, &d, 0, -1));
  EXPECT_EQ(noxStsNoErr, kit::call(every, nullptr, 0, nullptr, 0, nullptr, 0, 0));
}

TEST(ArrayEvery, IsTheScalarLoop) {
  check_every<Nox16s>(noxsMaxEvery_16s_Idx, [](Nox16s a, Nox16s b) { return std::max(a, b); });
  check_every<Nox32s>(noxsMaxEvery_32s_Idx, [](Nox32s a, Nox32s b) { return std::max(a, b); });
  check_every<Nox16s>(noxsMinEvery_16s_Idx, [](Nox16s a, Nox16s b) { return std::min(a, b); });
  check_every<Nox32s>(noxsMinEvery_32s_Idx, [](Nox32s a, Nox32s b) { return std::min(a, b); });
}

}  // namespace
