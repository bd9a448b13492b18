// Texts of the status codes.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "kit/call.hpp"
#include "nox/nox.h"

namespace {

using kit::call;

const std::string kUnknown = "noxStsUnknownStatusCodeErr: Unknown status code";

std::string text(NoxStatus code) { return call(noxGetStatusString, code); }

TEST(StatusTexts, AreTheAgreedVocabulary) {
  // One number over all rows "code:text\n", computed once from the agreed list (64-bit FNV-1a): a text that is lost,
  // changed or given to another code changes it.
  uint64_t hash = 0xCBF29CE484222325;
  int rows = 0;
  std::set<std::string> seen;
  for (NoxStatus code = -9999; code <= 53; ++code) {
    const std::string found = text(code);
    if (found == kUnknown && code != noxStsUnknownStatusCodeErr) continue;
    ++rows;
    EXPECT_TRUE(seen.insert(found).second) << found;
    for (const char c : std::to_string(code) + ":" + found + "\n") {
      hash ^= static_cast<unsigned char>(c);
      hash *= 0x100000001B3;
    }
  }
  EXPECT_EQ(rows, 139);
  EXPECT_EQ(hash, 0xD95042F791334886);
}

TEST(StatusTexts, OfNamedCodesBeginWithTheirName) {
#define NAMED(code) \
  { code, #code ": " }
  const struct {
    NoxStatus code;
    std::string start;
  } rows[] = {NAMED(noxStsCpuNotSupportedErr),
              NAMED(noxStsIIRIIRLengthErr),
              NAMED(noxStsAlgTypeErr),
              NAMED(noxStsFftFlagErr),
              NAMED(noxStsContextMatchErr),
              NAMED(noxStsNullPtrErr),
              NAMED(noxStsSizeErr),
              NAMED(noxStsErr),
              NAMED(noxStsNoErr),
              NAMED(noxStsNoOperation),
              NAMED(noxStsDivByZero),
              NAMED(noxStsSqrtNegArg),
              NAMED(noxStsNonIntelCpu),
              NAMED(noxStsNotSupportedCpu),
              NAMED(noxStsUnknownCacheSize),
              NAMED(noxStsFeatureNotSupported),
              NAMED(noxStsFeaturesCombination)};
#undef NAMED
  for (const auto& row : rows) EXPECT_EQ(text(row.code).rfind(row.start, 0), 0u) << text(row.code);
  EXPECT_EQ(text(-9700), "Error at loading of %s library");
  EXPECT_EQ(text(53), "The function is inefficient due to the combination of input parameters");
}

TEST(StatusTexts, OfGapsAndOutsiders) {
  for (const NoxStatus code : {-1, -3, 6, 10, 54, 100000, -10000, INT32_MIN, INT32_MAX})
    EXPECT_EQ(text(code), kUnknown) << code;
}

}  // namespace
