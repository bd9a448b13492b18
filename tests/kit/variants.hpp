// Choosing the build that serves the calls, so that one process tests all the builds its processor can run.
//
// A mask with bit 63 is taken on trust and makes the mask in force what the library believes of the processor. That
// belief outlives the choice, so the way back restores it too.
#pragma once
#include <gtest/gtest.h>

#include <iosfwd>
#include <vector>

#include "nox/nox.h"

namespace kit {

struct Variant {
  const char* tag;
  int column;
  Nox64u mask;
};
void PrintTo(const Variant& v, std::ostream* out);

// The builds that the processor at hand can run, lowest first, and the processor's own mask.
const std::vector<Variant>& runnable_variants();
Nox64u processor_mask();
// Puts back the build that was chosen at load, and what the library believes of the processor.
void restore_automatic_choice();

// The build is in force for the life of the object.
class UseVariant {
 public:
  explicit UseVariant(const Variant& v);
  ~UseVariant() { restore_automatic_choice(); }
  UseVariant(const UseVariant&) = delete;
  UseVariant& operator=(const UseVariant&) = delete;
};

// Suite whose tests run once under each build: TEST_P(Suite, Name), and NOX_EACH_VARIANT(Suite) beside them.
class EachVariant : public testing::TestWithParam<Variant> {
 protected:
  void SetUp() override;
  void TearDown() override { restore_automatic_choice(); }
};

#define NOX_EACH_VARIANT(Suite)                             \
  INSTANTIATE_TEST_SUITE_P(                                 \
      , Suite, testing::ValuesIn(kit::runnable_variants()), \
      [](const testing::TestParamInfo<kit::Variant>& info) { return std::string(info.param.tag); })

}  // namespace kit
