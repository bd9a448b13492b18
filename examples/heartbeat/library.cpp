// The choice of a build and the making of filters, with every status looked at.
#include "library.hpp"

#include <cstdio>
#include <cstdlib>

namespace heartbeat {
namespace {

// The features each build requires. Bit 63 stays clear, so that the library tells what the processor lacks.
struct Build {
  const char* tag;
  Nox64u features;
};
constexpr Build kBuilds[] = {{"w7", 0x7}, {"s8", 0x1F}, {"p8", 0xDF}, {"g9", 0x1DF}, {"h9", 0x81DF}};

}  // namespace

void check(NoxStatus status, const char* call) {
  if (status == noxStsNoErr) return;
  std::fprintf(stderr, "heartbeat: %s: %s\n", call, noxGetStatusString(status));
  std::exit(1);
}

void select_build(const std::string& tag) {
  for (const Build& build : kBuilds) {
    if (tag != build.tag) continue;
    const NoxStatus status = noxSetCpuFeatures(build.features);
    if (status == noxStsFeatureNotSupported) throw Error("this processor can't run the build " + tag);
    check(status, "noxSetCpuFeatures");
    return;
  }
  throw Error("--variant: '" + tag + "' is none of w7, s8, p8, g9, h9");
}

FirStream::FirStream(const std::vector<double>& taps) {
  check(noxsFIRSRInitAlloc_64f_Idx(taps.data(), 0, static_cast<int>(taps.size()), NOX_ALG_AUTO, &handle_),
        "noxsFIRSRInitAlloc_64f_Idx");
}

}  // namespace heartbeat
