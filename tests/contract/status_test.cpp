// The statuses of bad arguments, over every function of the library that returns one.
//
// Pointers are tested first and then lengths; the first failure is returned and nothing is written. What a function
// does otherwise stands in the table of exceptions, with its reason. None of this counts as a run of the primitive.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>

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
  const char* functions;  // a regular expression for their names
  unsigned rules;
  const char* parameter = nullptr;  // of kOptional and kRequired
};
constexpr Exception kExceptions[] = {
    // A fill of the array layer's kind: a length below 1 is no error, and nothing is tested.
    {"noxsSet_64f_Idx", kUntested},
    // The sizes follow from the length alone, and a spec is laid out by them.
    {"noxsFIRSRGetSize|noxsFIRSRInit_64fc?(_Idx)?", kLengthFirst},
    // A pair of types is seen before a null pointer, and there is none among harmless values.
    {"noxiFilterBorderGetSize(_Idx)?", kUntested},
    // These make or open a handle before they look at anything; only a live one will do.
    {"noxsFIR(SR|MR)(InitAlloc)?_64fc?(_I)?_Idx", kUntested},
    {"noxsFilterMedian(Alloc)?_(8u|16s|32s|64f)(_I)?_Idx", kUntested},
    {"noxsDCT(Fwd|Inv)(InitAlloc)?_64f(_I)?_Idx", kUntested},
    // The buffer is looked at behind length and mask size: tested beside the filter.
    {"noxsFilterMedian_(8u|16s|32s|64f)(_I)?", kUntested},
    // A bad length has a status of its own here, and factors and phases come before the pointers: tested beside the
    // filter.
    {"noxsFIRMRGetSize|noxsFIRMRInit_64fc?(_Idx)?", kUntested},
    // A null work buffer stays null whatever its index, and is then refused.
    {"noxsFIROne_64fc?_Idx", kRequired, "pBuf"},
    // Every method is given one, though only some look into it.
    {"noxs(Convolve_64f|AutoCorrNorm_64fc?)(_Idx)?", kRequired, "pBuffer"},
    // The length decides what memory is needed: a work buffer is refused when a spec that needs it is seen.
    {"noxsDCT(Fwd|Inv)GetSize_64f", kLengthFirst},
    {"noxsDCT(Fwd|Inv)Init_64f", kLengthFirst | kOptional, "pInitMem"},
    {"noxsDCT(Fwd|Inv)_64f(_I)?", kOptional, "pWork"},
    // The parameter follows from the length.
    {"noxsWinBlackmanOpt_64fc?(_I)?(_Idx)?", kLengthFirst},
    // These hand their arrays over as twice as many parts, once there is a length to double.
    {"noxs(Add|Sub)_32sc_I?Sfs(_Idx)?", kLengthFirst},
    // The phase and the values stand before the array; their order is tested with their family.
    {"noxs(Tone|Triangle)_Direct_64fc?_Idx", kUntested},
    // No pointer is tested, and no element is no error.
    {"noxs(Max|Min)Every_(16|32)s_Idx", kUntested},
    // Two calls in a row, each with its own checks: the first one's results are there when the second one fails.
    {"noxsCartToPolar_64fc?(_Idx)?", kUntested},
    // Companding looks at the length first.
    {"noxs(LinTo(Mu|A)Law_(16s|32f|64f)8u|(Mu|A)LawToLin_8u(16s|32f|64f))_Idx", kLengthFirst},
    // A place needn't be asked for.
    {"noxs(Max|Min)(Indx_(16s|32s|64f)|AbsIndx_32s)(_Idx)?", kOptional, "pIndx"},
    // The order of magnitude looks at the length first.
    {"noxsMaxOrder_(32s|64f)(_Idx)?", kLengthFirst},
    // The raw words of the identification are on demand.
    {"noxGetCpuFeatures", kOptional, "pCpuidInfoRegs"},
};

using ByName = std::multimap<std::string, const Exception*>;
const ByName& exceptions() {
  static const ByName found = [] {
    ByName all;
    for (const Exception& e : kExceptions) {
      const std::regex names(e.functions);
      for (const Declaration& d : kit::declarations())
        if (std::regex_match(d.name, names)) all.emplace(d.name, &e);
    }
    return all;
  }();
  return found;
}

bool has_rule(const Declaration& d, Rule rule, const char* parameter = nullptr) {
  const auto [first, last] = exceptions().equal_range(d.name);
  return std::any_of(first, last, [&](const ByName::value_type& entry) {
    const Exception& e = *entry.second;
    return e.rules & rule && (!parameter || std::string(parameter) == e.parameter);
  });
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
    int named = 0;
    for (const auto& [name, exception] : exceptions()) {
      if (exception != &e) continue;
      ++named;
      EXPECT_TRUE(!e.parameter || kit::find_declaration(name)->find(e.parameter) >= 0) << name << ' ' << e.parameter;
    }
    EXPECT_GT(named, 0) << e.functions;
  }
}

}  // namespace
