// Feature detection, once per process, and the query that hands it out.
#include "core/cpuid.hpp"
#include "core/feature_mask.hpp"
#include "core/frame.hpp"

namespace nox {
namespace {

alignas(8) Nox64u cpuFeaturesDetected = 0;
int32_t detection_valid = 0;

Nox64u read_features() {
  Identification id;
  const Nox32u highest = cpuid(0).a;
  const Nox32u highest_extended = cpuid(0x80000000u).a;
  id.leaf1 = cpuid(1);
  id.has_leaf7 = highest >= 7;
  if (id.has_leaf7) id.leaf7 = cpuid(7);
  if (highest_extended >= 0x80000001u) id.extended_c = cpuid(0x80000001u).c;
  if (id.leaf1.c >> 27 & 1) id.saved = xgetbv0();  // the instruction exists
  return feature_mask(id);
}

void store_detected(Nox64u mask) {
  __atomic_store_n(&cpuFeaturesDetected, mask, __ATOMIC_RELAXED);
  __atomic_store_n(&detection_valid, 1, __ATOMIC_RELEASE);
}

}  // namespace

bool noxDetectCpuFeatures(Nox64u& mask) {
  if (!__atomic_load_n(&detection_valid, __ATOMIC_ACQUIRE)) {
    if (!has_cpuid()) return false;
    store_detected(read_features());
  }
  mask = __atomic_load_n(&cpuFeaturesDetected, __ATOMIC_RELAXED);
  return true;
}

void trust_enabled_features() { store_detected(__atomic_load_n(&cpuFeaturesEnabled, __ATOMIC_RELAXED)); }

}  // namespace nox

extern "C" NoxStatus noxGetCpuFeatures(Nox64u* pFeaturesMask, Nox32u* pCpuidInfoRegs) {
  Nox64u mask;
  if (!nox::noxDetectCpuFeatures(mask)) return noxStsNotSupportedCpu;
  if (!pFeaturesMask) return noxStsNullPtrErr;
  constexpr Nox64u kFreeQuery = 0x616F666E69746567;  // the letters getinfoa
  const bool free_query = *pFeaturesMask == kFreeQuery;
  *pFeaturesMask = mask;
  if (!pCpuidInfoRegs) return noxStsNoErr;
  const nox::CpuidWords w = free_query ? nox::cpuid(pCpuidInfoRegs[0], pCpuidInfoRegs[2]) : nox::cpuid(1);
  pCpuidInfoRegs[0] = w.a;
  pCpuidInfoRegs[1] = w.b;
  pCpuidInfoRegs[2] = w.c;
  pCpuidInfoRegs[3] = w.d;
  return noxStsNoErr;
}
