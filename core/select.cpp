// Selection of the build: at load, from an initial entry, and by noxSetCpuFeatures.
//
// A mask walks a fixed chain from the highest feature to the lowest; the first row whose bits it holds names the
// build. The selector is one word that every stub loads; writing it redirects all later calls of the process.
#include "core/cpuid.hpp"
#include "core/frame.hpp"

extern "C" {
alignas(64) int32_t cpuSelector = -1;
alignas(8) Nox64u cpuFeaturesEnabled = 3;
}

namespace nox {
namespace {

struct ChainRow {
  Nox32u test;      // all of these bits of the mask's low word
  Nox32u required;  // what the build uses
  int variant;
};
constexpr ChainRow kChain[] = {
    {0x7300000, 0x73081DF, 4},
    {0xF00000, 0xF081DF, 4},
    {0x8000, 0x81DF, 4},
    {0x100, 0x1DF, 3},
    {0x80, 0xDF, 2},
    {0x40, 0x5F, 1},
    {0x20, 0x3F, 1},
    {0x10, 0x1F, 1},
    {0x8, 0xF, 0},
    {0x4, 0x7, 0},
    {0x2, 0x3, 0},
    {0x0, 0x1, 0},
};

constexpr Nox64u kOnTrust = Nox64u{1} << 63;
constexpr Nox64u kUnknown = Nox64u{0x7FFFFFE0} << 32;
constexpr Nox64u kAvx = 0x8100, kAvxSaved = 0x200;
constexpr Nox64u kAvx512 = Nox64u{0xC} << 32 | 0x6FF00000, kAvx512Saved = Nox64u{2} << 32;

// What the request asks of the processor and doesn't get; the groups whose state isn't saved leave the request.
NoxStatus judge(Nox64u& mask) {
  Nox64u processor = 0;
  noxDetectCpuFeatures(processor);
  NoxStatus check = mask & kUnknown ? noxStsUnknownFeature : noxStsNoErr;
  if (mask & kAvx && !(processor & kAvxSaved)) {
    mask &= ~kAvx;
    check = noxStsFeatureNotSupported;
  }
  if (mask & kAvx512 && !(processor & kAvx512Saved)) {
    mask &= ~kAvx512;
    check = noxStsFeatureNotSupported;
  }
  return mask & ~processor ? NoxStatus{noxStsFeatureNotSupported} : check;
}

}  // namespace

Selection noxSelectVariant(Nox64u mask) {
  NoxStatus check = noxStsNoErr;
  if (mask & kOnTrust) {
    mask &= ~kOnTrust;
    trust_enabled_features();
  } else {
    check = judge(mask);
  }
  const Nox32u low = static_cast<Nox32u>(mask);
  const ChainRow* row = kChain;
  while ((low & row->test) != row->test) ++row;  // ends at the last row, which asks for nothing
  NoxStatus result = row->test ? noxStsNoErr : noxStsNotSupportedCpu;
  if ((low & row->required) != row->required && result == noxStsNoErr) result = noxStsFeaturesCombination;
  __atomic_store_n(&cpuFeaturesEnabled, mask | row->required, __ATOMIC_RELAXED);
  return {row->variant, check != noxStsNoErr ? check : result};
}

bool noxHasFeature(Nox64u mask) { return (__atomic_load_n(&cpuFeaturesEnabled, __ATOMIC_RELAXED) & mask) == mask; }

namespace {
// At load, before any caller; the initial entries serve what runs earlier still.
__attribute__((constructor)) void attach() { noxAutoSelect(); }
}  // namespace

}  // namespace nox

extern "C" {

NoxStatus noxAutoSelect() {
  Nox64u mask = 0;
  if (noxGetCpuFeatures(&mask, nullptr) != noxStsNoErr) {
    // Without CPUID there is nothing to judge a mask by: the lowest build, and what it is taken to have.
    __atomic_store_n(&cpuFeaturesEnabled, Nox64u{3}, __ATOMIC_RELAXED);
    __atomic_store_n(&cpuSelector, 0, __ATOMIC_RELAXED);
    return noxStsNotSupportedCpu;
  }
  const nox::Selection s = nox::noxSelectVariant(mask);
  __atomic_store_n(&cpuSelector, s.variant, __ATOMIC_RELAXED);
  return nox::genuine_intel() ? s.status : NoxStatus{noxStsNonIntelCpu};
}

NoxStatus noxSetCpuFeatures(Nox64u featuresMask) {
  const nox::Selection s = nox::noxSelectVariant(featuresMask);
  __atomic_store_n(&cpuSelector, s.variant, __ATOMIC_RELAXED);
  return s.status;
}

Nox64u noxGetEnabledCpuFeatures(void) { return __atomic_load_n(&cpuFeaturesEnabled, __ATOMIC_RELAXED); }

}  // extern "C"
