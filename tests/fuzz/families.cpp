// What is known of families by the beginnings of names: which functions aren't called by themselves, how far results
// may differ where builds do, and which functions treat every element alike.
#include <algorithm>

#include "fuzz/call.hpp"

namespace fuzz {

bool begins(const std::string& name, const std::string& beginnings) {
  for (size_t at = 0; at <= beginnings.size();) {
    const size_t bar = std::min(beginnings.find('|', at), beginnings.size());
    if (name.compare(0, bar - at, beginnings, at, bar - at) == 0) return true;
    at = bar + 1;
  }
  return false;
}

namespace {

struct Skipped {
  const char* names;
  const char* reason;
};
constexpr Skipped kSkipped[] = {
    {"noxGetStatus|noxGetCpu|noxSet|noxGetEnabled|noxGetMax|noxGetNum|noxsGetLibVersion",
     "settings and facts of the process"},
    {"noxsMalloc|noxsFree", "memory is no array of the caller's"},
    {"noxsFilterMedian_|noxsFIRSR|noxsFIRMR|noxsFIROne|noxsDCT|noxsRandUniform_8|noxsRandUniform_16|noxsRandUniform_64|"
     "noxsRandGauss_8|"
     "noxsRandGauss_16|noxsRandGauss_64|noxsRandUniformInit|noxsRandGaussInit|noxiFilterBorder",
     "needs a record: has a recipe"},
};

// Errors relative to the largest magnitude; what isn't named gets the last row's.
struct Tolerance {
  const char* names;
  double value;
};
constexpr Tolerance kTolerances[] = {{"noxsDotProd|noxsSum|noxsMean", 1e-9},  // terms of both signs may nearly cancel
                                     {"noxsGoertz", 1e-7},
                                     {"noxsTone", 1e-6},
                                     {"noxsVectorJaehne", 1e-10},
                                     {"noxsRand", 1e-9},
                                     {"", 1e-12}};

constexpr const char* kElementwise =
    "noxsAdd|noxsSub|noxsMul|noxsDiv_|noxsDivC_|noxsSqr_|noxsSqrt|noxsAnd|noxsOr|noxsXor|noxsNot_|noxsLShift|"
    "noxsRShift|noxsThreshold|noxsCopy_8|noxsCopy_16|noxsCopy_32|noxsCopy_64|noxsMove|noxsSet_|noxsZero|noxsMaxEvery|"
    "noxsMinEvery|noxsConj_|noxsReplace|noxsConvert|AddV|SubV|SubF|Scale|MulV|DivV|ConjMul|MulI|Sgn|Floor|Ceil|"
    "Convert|FindMask|DivC|ModC|RemDiv|RemVal|Rem_|noxsReal|noxsImag|noxsMagnitude|noxsPhase|noxsCartToPolar|"
    "noxsPolarToCart|noxsRealToCplx|noxsCplxToReal|noxsAbs|noxsPow";

}  // namespace

const char* reason_to_skip(const Declaration& d) {
  for (const char* query : {"GetSize", "GetBuf"})
    if (d.name.find(query) != std::string::npos) return nullptr;
  for (const kit::Parameter& p : d.parameters)
    if (p.kind == Kind::Pointer && p.type == Type::Pointer) return "needs a record";
  for (const Skipped& s : kSkipped)
    if (begins(d.name, s.names)) return s.reason;
  return nullptr;
}

double tolerance_of(const Declaration& d) {
  for (const Tolerance& t : kTolerances)
    if (begins(d.name, t.names)) return t.value;
  return kBits;
}

bool follows_address(const Declaration& d) {
  return begins(d.name, "noxsNorm_Inf_64f|noxsNormDiff_Inf_64f") && d.name.find("64fc") == std::string::npos;
}

bool is_elementwise(const Declaration& d) {
  return begins(d.name, kElementwise) && d.name.find("24") == std::string::npos;
}

}  // namespace fuzz
