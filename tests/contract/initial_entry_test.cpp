// Calls that come before a build is chosen: the initial entries, reached with the selector at -1.
#include <gtest/gtest.h>

#include "contract/arguments.hpp"
#include "kit/coverage.hpp"
#include "kit/dispatch.hpp"
#include "kit/variants.hpp"

namespace {

using contract::Arguments;
using kit::Declaration;
using kit::Kind;

void expect_chosen() { ASSERT_EQ(kit::selector(), kit::runnable_variants().back().column) << "no build was chosen"; }

// Every argument null or 1, so that a primitive with a status refuses and an allocation or a free does no harm.
TEST(InitialEntry, OfEveryPrimitiveChoosesTheBuildAndAnswersLikeIt) {
  const kit::PauseCoverage pause;
  for (const Declaration& d : kit::declarations()) {
    if (d.row < 0) continue;
    SCOPED_TRACE(d.name);
    Arguments arguments(d);
    for (size_t i = 0; i < d.parameters.size(); ++i) {
      if (d.parameters[i].kind != Kind::Value)
        arguments.set_pointer(i, nullptr);
      else if (d.name.rfind("noxsMalloc_", 0) == 0)
        arguments.set(i, 0);
    }
    kit::selector() = -1;
    const kit::ProbeResult first = arguments.call(kit::row_entry(d.row, -1));
    expect_chosen();
    if (d.result == kit::Type::Void) continue;
    const kit::ProbeResult later = arguments.call(kit::row_entry(d.row, kit::selector()));
    EXPECT_EQ(static_cast<uint32_t>(first.integer), static_cast<uint32_t>(later.integer));
  }
}

TEST(InitialEntry, KeepsTheArguments) {
  kit::Guarded<double> a({1, 2, 3}), b({10, 20, 30}), sum(3);
  kit::selector() = -1;
  EXPECT_EQ(kit::call(kit::initial_entry_of(noxsAdd_64f), a.data(), b.data(), sum.data(), 3), noxStsNoErr);
  expect_chosen();
  EXPECT_EQ(sum.values(), (std::vector<double>{11, 22, 33}));

  kit::Guarded<Nox64fc> filled(2);
  kit::selector() = -1;
  EXPECT_EQ(kit::call(kit::initial_entry_of(noxsSet_64fc), Nox64fc{0.1, -0.2}, filled.data(), 2), noxStsNoErr);
  expect_chosen();
  for (const Nox64fc& x : filled) EXPECT_TRUE(x.re == 0.1 && x.im == -0.2);
}

// The exported stub takes column -1 of its row: the same entry, one jump earlier.
TEST(InitialEntry, IsWhereTheStubLeadsBeforeTheChoice) {
  double x[] = {1.5, 2.5};
  kit::selector() = -1;
  EXPECT_EQ(kit::call(noxsSqr_64f_I, x, 2), noxStsNoErr);
  expect_chosen();
  EXPECT_TRUE(x[0] == 2.25 && x[1] == 6.25);

  kit::selector() = -1;
  EXPECT_STREQ(kit::call(noxsGetLibVersion_Idx)->targetCpu, kit::runnable_variants().back().tag);
}

}  // namespace
