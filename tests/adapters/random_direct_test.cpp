// One-call random vectors give what a stream of the same seed begins with, and give it again.
#include <gtest/gtest.h>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"

namespace {

class RandomDirect : public kit::EachVariant {};
NOX_EACH_VARIANT(RandomDirect);

TEST_P(RandomDirect, StartsTheStreamOfItsSeed) {
  constexpr int kLength = 77;
  const unsigned int seed = 12345;
  kit::Guarded<Nox64f> once(kLength), again(kLength), stream(kLength);
  EXPECT_EQ(noxStsNoErr, kit::call(noxsRandUniform_Direct_64f_Idx, once.data() - 3, 3, kLength, -2.0, 7.0, &seed));
  alignas(16) char record[80];
  const auto state = reinterpret_cast<NoxRandUniformState_64f*>(record);
  ASSERT_EQ(noxStsNoErr, noxsRandUniformInit_64f(state, -2.0, 7.0, seed));
  ASSERT_EQ(noxStsNoErr, noxsRandUniform_64f(stream.data(), kLength, state));
  EXPECT_TRUE(kit::same_bits(once.data(), stream.data(), kLength));

  // The record of normally distributed values has no Init among the exports: their mean and spread tell the parameters.
  constexpr int kMany = 4000;
  kit::Guarded<Nox64f> normal(kMany);
  for (auto* d : {&once, &again})
    EXPECT_EQ(noxStsNoErr, kit::call(noxsRandGauss_Direct_64f_Idx, d->data() + 5, -5, kLength, 10.0, 2.0, &seed));
  EXPECT_TRUE(kit::same_bits(once.data(), again.data(), kLength));
  EXPECT_EQ(noxStsNoErr, kit::call(noxsRandGauss_Direct_64f_Idx, normal.data(), 0, kMany, 10.0, 2.0, &seed));
  EXPECT_TRUE(kit::same_bits(once.data(), normal.data(), kLength));
  Nox64f sum = 0, squares = 0;
  for (const Nox64f x : normal) sum += x, squares += (x - 10) * (x - 10);
  EXPECT_NEAR(sum / kMany, 10.0, 0.15);
  EXPECT_NEAR(squares / kMany, 4.0, 0.4);
}

TEST_P(RandomDirect, RefusesWhatTheFillRefuses) {
  const unsigned int seed = 1;
  Nox64f d = 5;
  for (const auto fill : {noxsRandUniform_Direct_64f_Idx, noxsRandGauss_Direct_64f_Idx}) {
    EXPECT_EQ(noxStsNullPtrErr, kit::call(fill, nullptr, 0, 1, 0.0, 1.0, &seed));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(fill, &d, 0, 1, 0.0, 1.0, nullptr));
    EXPECT_EQ(noxStsSizeErr, kit::call(fill, &d, 0, 0, 0.0, 1.0, &seed));
  }
  EXPECT_EQ(5, d);
}

}  // namespace
