// The table of builds, and the way to one and back.
#include "kit/variants.hpp"

#include <ostream>
#include <string>

namespace kit {
namespace {

constexpr Nox64u kOnTrust = Nox64u{1} << 63;
constexpr Nox64u kAvxSaved = 0x200, kHalfFloats = 0x4000;

struct Build {
  Variant variant;
  Nox64u needs;     // of the processor
  Nox64u optional;  // what its bodies use where the processor has it
};
constexpr Build kBuilds[] = {
    {{"w7", 0, 0x7}, 0x7, 0},
    {{"s8", 1, 0x1F}, 0x1F, 0},
    {{"p8", 2, 0xDF}, 0xDF, 0},
    {{"g9", 3, 0x1DF}, 0x1DF | kAvxSaved, kAvxSaved | kHalfFloats},
    {{"h9", 4, 0x81DF}, 0x81DF | kAvxSaved, kAvxSaved | kHalfFloats},
};

Nox64u read_processor_mask() {
  Nox64u mask = 0;
  noxGetCpuFeatures(&mask, nullptr);
  return mask;
}

// Read while the process starts, before any test can have selected a build on trust.
const Nox64u kProcessorMask = read_processor_mask();

void select(const Variant& v) {
  noxSetCpuFeatures(v.mask | kOnTrust);
  ASSERT_STREQ(noxsGetLibVersion()->targetCpu, v.tag) << "the selection was not obeyed";
}

}  // namespace

void PrintTo(const Variant& v, std::ostream* out) { *out << v.tag; }

Nox64u processor_mask() { return kProcessorMask; }

const std::vector<Variant>& runnable_variants() {
  static const std::vector<Variant> variants = [] {
    std::vector<Variant> out;
    for (const Build& b : kBuilds) {
      if ((kProcessorMask & b.needs) != b.needs) continue;
      out.push_back(b.variant);
      out.back().mask |= kProcessorMask & b.optional;
    }
    return out;
  }();
  return variants;
}

void restore_automatic_choice() {
  // The first call puts the mask in force, the second makes it the believed one.
  noxSetCpuFeatures(kProcessorMask | kOnTrust);
  noxSetCpuFeatures(kProcessorMask | kOnTrust);
}

UseVariant::UseVariant(const Variant& v) { select(v); }
void EachVariant::SetUp() { select(GetParam()); }

}  // namespace kit
