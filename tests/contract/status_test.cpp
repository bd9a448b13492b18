// The statuses of bad arguments, over every function of the library that returns one.
//
// Pointers are tested first and then lengths; the first failure is returned and nothing is written. What a function
// does otherwise stands in the table of exceptions, with its reason. None of this counts as a run of the primitive.
#include <gtest/gtest.h>

#include <map>

#include "contract/arguments.hpp"
#include "kit/coverage.hpp"
#include "kit/variants.hpp"

namespace {

using contract::Arguments;
using kit::Declaration;
using kit::Kind;
using kit::Parameter;

enum Rule : unsigned {
  kUntested = 1,     // the function looks at no argument
  kLengthFirst = 2,  // a bad length is seen before a null pointer
  kOptional = 4,     // the parameter may be null though its declaration doesn't say so
  kRequired = 8,     // the parameter may not be null though its index form passes null on
};
struct Exception {
  const char* function;
  unsigned rules;
  const char* parameter;  // of kOptional and kRequired
};
constexpr Exception kExceptions[] = {
    // A fill of the array layer's kind: a length below 1 is no error, and nothing is tested.
    {"noxsSet_64f_Idx", kUntested, nullptr},
    // The sizes follow from the length alone, and a spec is laid out by them.
    {"noxsFIRSRGetSize", kLengthFirst, nullptr},
    {"noxsFIRSRInit_64f", kLengthFirst, nullptr},
    {"noxsFIRSRInit_64fc", kLengthFirst, nullptr},
    {"noxsFIRSRInit_64f_Idx", kLengthFirst, nullptr},
    {"noxsFIRSRInit_64fc_Idx", kLengthFirst, nullptr},
    // A pair of types is seen before a null pointer, and there is none among harmless values.
    {"noxiFilterBorderGetSize", kUntested, nullptr},
    {"noxiFilterBorderGetSize_Idx", kUntested, nullptr},
    // These make or open a handle before they look at anything; only a live one will do.
    {"noxsFIRSRInitAlloc_64f_Idx", kUntested, nullptr},
    {"noxsFIRSRInitAlloc_64fc_Idx", kUntested, nullptr},
    {"noxsFIRSR_64f_Idx", kUntested, nullptr},
    {"noxsFIRSR_64fc_Idx", kUntested, nullptr},
    {"noxsFIRSR_64f_I_Idx", kUntested, nullptr},
    {"noxsFIRSR_64fc_I_Idx", kUntested, nullptr},
    {"noxsFIRMRInitAlloc_64f_Idx", kUntested, nullptr},
    {"noxsFIRMRInitAlloc_64fc_Idx", kUntested, nullptr},
    {"noxsFIRMR_64f_Idx", kUntested, nullptr},
    {"noxsFIRMR_64fc_Idx", kUntested, nullptr},
    {"noxsFIRMR_64f_I_Idx", kUntested, nullptr},
    {"noxsFIRMR_64fc_I_Idx", kUntested, nullptr},
    {"noxsFilterMedianAlloc_8u_Idx", kUntested, nullptr},
    {"noxsFilterMedian_8u_Idx", kUntested, nullptr},
    {"noxsFilterMedian_8u_I_Idx", kUntested, nullptr},
    {"noxsFilterMedianAlloc_16s_Idx", kUntested, nullptr},
    {"noxsFilterMedian_16s_Idx", kUntested, nullptr},
    {"noxsFilterMedian_16s_I_Idx", kUntested, nullptr},
    {"noxsFilterMedianAlloc_32s_Idx", kUntested, nullptr},
    {"noxsFilterMedian_32s_Idx", kUntested, nullptr},
    {"noxsFilterMedian_32s_I_Idx", kUntested, nullptr},
    {"noxsFilterMedianAlloc_64f_Idx", kUntested, nullptr},
    {"noxsFilterMedian_64f_Idx", kUntested, nullptr},
    {"noxsFilterMedian_64f_I_Idx", kUntested, nullptr},
    // The buffer is looked at behind length and mask size: tested beside the filter.
    {"noxsFilterMedian_8u", kUntested, nullptr},
    {"noxsFilterMedian_8u_I", kUntested, nullptr},
    {"noxsFilterMedian_16s", kUntested, nullptr},
    {"noxsFilterMedian_16s_I", kUntested, nullptr},
    {"noxsFilterMedian_32s", kUntested, nullptr},
    {"noxsFilterMedian_32s_I", kUntested, nullptr},
    {"noxsFilterMedian_64f", kUntested, nullptr},
    {"noxsFilterMedian_64f_I", kUntested, nullptr},
    // A bad length has a status of its own here, and factors and phases come before the pointers: tested beside the
    // filter.
    {"noxsFIRMRGetSize", kUntested, nullptr},
    {"noxsFIRMRInit_64f", kUntested, nullptr},
    {"noxsFIRMRInit_64fc", kUntested, nullptr},
    {"noxsFIRMRInit_64f_Idx", kUntested, nullptr},
    {"noxsFIRMRInit_64fc_Idx", kUntested, nullptr},
    // A null work buffer stays null whatever its index, and is then refused.
    {"noxsFIROne_64f_Idx", kRequired, "pBuf"},
    {"noxsFIROne_64fc_Idx", kRequired, "pBuf"},
    // Every method is given one, though only some look into it.
    {"noxsConvolve_64f", kRequired, "pBuffer"},
    {"noxsConvolve_64f_Idx", kRequired, "pBuffer"},
    {"noxsAutoCorrNorm_64f", kRequired, "pBuffer"},
    {"noxsAutoCorrNorm_64f_Idx", kRequired, "pBuffer"},
    {"noxsAutoCorrNorm_64fc", kRequired, "pBuffer"},
    {"noxsAutoCorrNorm_64fc_Idx", kRequired, "pBuffer"},
    // The length decides what memory is needed: a work buffer is refused when a spec that needs it is seen.
    {"noxsDCTFwdGetSize_64f", kLengthFirst, nullptr},
    {"noxsDCTInvGetSize_64f", kLengthFirst, nullptr},
    {"noxsDCTFwdInit_64f", kLengthFirst | kOptional, "pInitMem"},
    {"noxsDCTInvInit_64f", kLengthFirst | kOptional, "pInitMem"},
    {"noxsDCTFwd_64f", kOptional, "pWork"},
    {"noxsDCTInv_64f", kOptional, "pWork"},
    {"noxsDCTFwd_64f_I", kOptional, "pWork"},
    {"noxsDCTInv_64f_I", kOptional, "pWork"},
    {"noxsDCTFwdInitAlloc_64f_Idx", kUntested, nullptr},
    {"noxsDCTInvInitAlloc_64f_Idx", kUntested, nullptr},
    {"noxsDCTFwd_64f_Idx", kUntested, nullptr},
    {"noxsDCTInv_64f_Idx", kUntested, nullptr},
    {"noxsDCTFwd_64f_I_Idx", kUntested, nullptr},
    {"noxsDCTInv_64f_I_Idx", kUntested, nullptr},
    // The parameter follows from the length.
    {"noxsWinBlackmanOpt_64f", kLengthFirst, nullptr},
    {"noxsWinBlackmanOpt_64f_I", kLengthFirst, nullptr},
    {"noxsWinBlackmanOpt_64fc", kLengthFirst, nullptr},
    {"noxsWinBlackmanOpt_64fc_I", kLengthFirst, nullptr},
    {"noxsWinBlackmanOpt_64f_Idx", kLengthFirst, nullptr},
    {"noxsWinBlackmanOpt_64f_I_Idx", kLengthFirst, nullptr},
    {"noxsWinBlackmanOpt_64fc_Idx", kLengthFirst, nullptr},
    {"noxsWinBlackmanOpt_64fc_I_Idx", kLengthFirst, nullptr},
    // These hand their arrays over as twice as many parts, once there is a length to double.
    {"noxsAdd_32sc_Sfs", kLengthFirst, nullptr},
    {"noxsAdd_32sc_ISfs", kLengthFirst, nullptr},
    {"noxsSub_32sc_Sfs", kLengthFirst, nullptr},
    {"noxsSub_32sc_ISfs", kLengthFirst, nullptr},
    {"noxsAdd_32sc_Sfs_Idx", kLengthFirst, nullptr},
    {"noxsAdd_32sc_ISfs_Idx", kLengthFirst, nullptr},
    {"noxsSub_32sc_Sfs_Idx", kLengthFirst, nullptr},
    {"noxsSub_32sc_ISfs_Idx", kLengthFirst, nullptr},
    // The phase and the values stand before the array; their order is tested with their family.
    {"noxsTone_Direct_64f_Idx", kUntested, nullptr},
    {"noxsTone_Direct_64fc_Idx", kUntested, nullptr},
    {"noxsTriangle_Direct_64f_Idx", kUntested, nullptr},
    {"noxsTriangle_Direct_64fc_Idx", kUntested, nullptr},
    // No pointer is tested, and no element is no error.
    {"noxsMaxEvery_16s_Idx", kUntested, nullptr},
    {"noxsMaxEvery_32s_Idx", kUntested, nullptr},
    {"noxsMinEvery_16s_Idx", kUntested, nullptr},
    {"noxsMinEvery_32s_Idx", kUntested, nullptr},
    // Two calls in a row, each with its own checks: the first one's results are there when the second one fails.
    {"noxsCartToPolar_64f", kUntested, nullptr},
    {"noxsCartToPolar_64fc", kUntested, nullptr},
    {"noxsCartToPolar_64f_Idx", kUntested, nullptr},
    {"noxsCartToPolar_64fc_Idx", kUntested, nullptr},
    // Companding looks at the length first.
    {"noxsLinToMuLaw_16s8u_Idx", kLengthFirst, nullptr},
    {"noxsLinToMuLaw_32f8u_Idx", kLengthFirst, nullptr},
    {"noxsLinToMuLaw_64f8u_Idx", kLengthFirst, nullptr},
    {"noxsLinToALaw_16s8u_Idx", kLengthFirst, nullptr},
    {"noxsLinToALaw_32f8u_Idx", kLengthFirst, nullptr},
    {"noxsLinToALaw_64f8u_Idx", kLengthFirst, nullptr},
    {"noxsMuLawToLin_8u16s_Idx", kLengthFirst, nullptr},
    {"noxsMuLawToLin_8u32f_Idx", kLengthFirst, nullptr},
    {"noxsMuLawToLin_8u64f_Idx", kLengthFirst, nullptr},
    {"noxsALawToLin_8u16s_Idx", kLengthFirst, nullptr},
    {"noxsALawToLin_8u32f_Idx", kLengthFirst, nullptr},
    {"noxsALawToLin_8u64f_Idx", kLengthFirst, nullptr},
    // A place needn't be asked for.
    {"noxsMaxIndx_16s", kOptional, "pIndx"},
    {"noxsMaxIndx_16s_Idx", kOptional, "pIndx"},
    {"noxsMaxIndx_32s", kOptional, "pIndx"},
    {"noxsMaxIndx_32s_Idx", kOptional, "pIndx"},
    {"noxsMaxIndx_64f", kOptional, "pIndx"},
    {"noxsMaxIndx_64f_Idx", kOptional, "pIndx"},
    {"noxsMaxAbsIndx_32s", kOptional, "pIndx"},
    {"noxsMaxAbsIndx_32s_Idx", kOptional, "pIndx"},
    {"noxsMinIndx_16s", kOptional, "pIndx"},
    {"noxsMinIndx_16s_Idx", kOptional, "pIndx"},
    {"noxsMinIndx_32s", kOptional, "pIndx"},
    {"noxsMinIndx_32s_Idx", kOptional, "pIndx"},
    {"noxsMinIndx_64f", kOptional, "pIndx"},
    {"noxsMinIndx_64f_Idx", kOptional, "pIndx"},
    {"noxsMinAbsIndx_32s", kOptional, "pIndx"},
    {"noxsMinAbsIndx_32s_Idx", kOptional, "pIndx"},
    // The order of magnitude looks at the length first.
    {"noxsMaxOrder_32s", kLengthFirst, nullptr},
    {"noxsMaxOrder_32s_Idx", kLengthFirst, nullptr},
    {"noxsMaxOrder_64f", kLengthFirst, nullptr},
    {"noxsMaxOrder_64f_Idx", kLengthFirst, nullptr},
    // The raw words of the identification are on demand.
    {"noxGetCpuFeatures", kOptional, "pCpuidInfoRegs"},
};

bool has_rule(const Declaration& d, Rule rule, const char* parameter = nullptr) {
  for (const Exception& e : kExceptions)
    if (d.name == e.function && e.rules & rule && (!parameter || std::string(parameter) == e.parameter)) return true;
  return false;
}

bool is_required(const Declaration& d, const Parameter& p) {
  if (p.kind == Kind::Value) return false;
  return p.nullable ? has_rule(d, kRequired, p.name) : !has_rule(d, kOptional, p.name);
}

class Statuses : public kit::EachVariant {
 protected:
  // Calls test(declaration) for every function that returns a status and looks at its arguments.
  template <class Test>
  void for_each_function(Test&& test) {
    const kit::PauseCoverage pause;
    int tested = 0;
    for (const Declaration& d : kit::declarations()) {
      if (!d.address || d.result != kit::Type::NoxStatus || has_rule(d, kUntested)) continue;
      SCOPED_TRACE(d.name);
      test(d);
      ++tested;
    }
    EXPECT_GT(tested, 100);
  }
  static void expect(const Declaration& d, const Arguments& arguments, int status, const std::string& what) {
    EXPECT_EQ(arguments.status(d.address), status) << what;
    EXPECT_EQ(arguments.written(), "") << what << ": was written in spite of the error";
  }
};

TEST_P(Statuses, EveryRequiredPointerIsTested) {
  for_each_function([](const Declaration& d) {
    for (size_t i = 0; i < d.parameters.size(); ++i) {
      if (!is_required(d, d.parameters[i])) continue;
      Arguments arguments(d);
      arguments.set_pointer(i, nullptr);
      expect(d, arguments, noxStsNullPtrErr, std::string("null ") + d.parameters[i].name);
    }
  });
}

TEST_P(Statuses, EveryLengthIsTested) {
  for_each_function([](const Declaration& d) {
    for (size_t i = 0; i < d.parameters.size(); ++i) {
      const std::string name = d.parameters[i].name;
      for (const int bad : {0, -1, INT32_MIN}) {
        if (!contract::is_length(name) && !(contract::is_bit_offset(name) && bad < 0)) continue;
        Arguments arguments(d);
        arguments.set(i, bad);
        expect(d, arguments, noxStsSizeErr, name + " = " + std::to_string(bad));
      }
    }
  });
}

TEST_P(Statuses, PointersAreTestedBeforeLengths) {
  for_each_function([](const Declaration& d) {
    for (size_t i = 0; i < d.parameters.size(); ++i) {
      if (!contract::is_length(d.parameters[i].name)) continue;
      for (size_t k = 0; k < d.parameters.size(); ++k) {
        if (!is_required(d, d.parameters[k])) continue;
        Arguments arguments(d);
        arguments.set(i, -1);
        arguments.set_pointer(k, nullptr);
        expect(d, arguments, has_rule(d, kLengthFirst) ? noxStsSizeErr : noxStsNullPtrErr,
               std::string("negative length, null ") + d.parameters[k].name);
      }
    }
  });
}
NOX_EACH_VARIANT(Statuses);

TEST(StatusExceptions, NameFunctionsThatExist) {
  for (const Exception& e : kExceptions) {
    const Declaration* d = kit::find_declaration(std::string(e.function));
    ASSERT_TRUE(d) << e.function;
    EXPECT_TRUE(!e.parameter || d->find(e.parameter) >= 0) << e.function << ' ' << e.parameter;
  }
}

}  // namespace
