// Feature detection: CPUID turned into the library's own 64-bit mask, by a table, once per process.
#include "core/cpuid.hpp"
#include "core/frame.hpp"

namespace nox {
namespace {

// Rows: bit of the mask, word of the identification, bit of that word.
enum Word { L1D, L1C, L7B, L7C, L7D, X1C, kWords };
struct FeatureBit {
  int bit;
  Word word;
  int source;
};
constexpr FeatureBit kFeatureBits[] = {
    {0, L1D, 23}, {1, L1D, 25},  {2, L1D, 26},  {3, L1C, 0},   {4, L1C, 9},   {5, L1C, 22},  {6, L1C, 19},
    {7, L1C, 20}, {8, L1C, 28},  {10, L1C, 25}, {11, L1C, 1},  {13, L1C, 30}, {14, L1C, 29}, {16, L7B, 19},
    {17, L7B, 18}, {18, X1C, 8}, {19, L7B, 29}, {20, L7B, 16}, {21, L7B, 28}, {22, L7B, 27}, {23, L7B, 26},
    {24, L7B, 30}, {25, L7B, 17}, {26, L7B, 31}, {27, L7C, 1}, {28, L7B, 14}, {29, L7D, 3},  {30, L7D, 2},
    {32, L7B, 21}, {34, L7C, 14}, {35, L7C, 12}, {36, L7D, 23},
};

alignas(8) Nox64u cpuFeaturesDetected = 0;
int32_t detection_valid = 0;

constexpr Nox64u bit(int n) { return Nox64u{1} << n; }
constexpr bool all(Nox32u value, Nox32u bits) { return (value & bits) == bits; }

Nox64u read_features() {
  const Nox32u highest = cpuid(0).a;
  const Nox32u highest_extended = cpuid(0x80000000u).a;
  const CpuidWords l1 = cpuid(1);
  const bool has_leaf7 = highest >= 7;
  const CpuidWords l7 = has_leaf7 ? cpuid(7) : CpuidWords{};
  const Nox32u x1c = highest_extended >= 0x80000001u ? cpuid(0x80000001u).c : 0;
  const Nox32u words[kWords] = {l1.d, l1.c, l7.b, l7.c, l7.d, x1c};

  Nox64u mask = 0;
  for (const FeatureBit& f : kFeatureBits)
    if (words[f.word] >> f.source & 1) mask |= bit(f.bit);
  if (l1.c >> 27 & 1) {  // XGETBV exists
    const Nox32u saved = xgetbv0();
    if (l1.c >> 28 & 1 && all(saved, 0x6)) mask |= bit(9);
    if (has_leaf7 && all(saved, 0xE0)) mask |= bit(33);
  }
  if (l1.c >> 12 & 1 && all(l7.b, bit(5) | bit(3) | bit(8))) mask |= bit(15);
  if ((l1.a & 0xFF0) == 0xB10) mask |= bit(31);
  return mask;
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
