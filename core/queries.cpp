// Processor queries and thread settings; none depends on the build in force.
#include <time.h>

#include "core/cpuid.hpp"
#include "core/frame.hpp"

namespace nox {
namespace {

// Descriptors of the old cache query with their sizes in bytes, largest first.
struct CacheDescriptor {
  Nox8u code;
  int size;
};
constexpr CacheDescriptor kCacheDescriptors[] = {
    {0xEC, 25165824}, {0xEB, 18874368}, {0x4D, 16777216}, {0xEA, 12582912}, {0x4C, 12582912}, {0xE4, 8388608},
    {0xDE, 8388608},  {0x4B, 8388608},  {0x47, 8388608},  {0x4E, 6291456},  {0x4A, 6291456},  {0xE3, 4194304},
    {0xDD, 4194304},  {0xD8, 4194304},  {0x49, 4194304},  {0x29, 4194304},  {0x46, 4194304},  {0x48, 3145728},
    {0xE2, 2097152},  {0xDC, 2097152},  {0xD7, 2097152},  {0xD2, 2097152},  {0x25, 2097152},  {0x7D, 2097152},
    {0x85, 2097152},  {0x45, 2097152},  {0xD6, 1048576},  {0xD1, 1048576},  {0x23, 1048576},  {0x87, 1048576},
    {0x7C, 1048576},  {0x78, 1048576},  {0x84, 1048576},  {0x44, 1048576},  {0xD0, 524288},   {0x22, 524288},
    {0x7B, 524288},   {0x80, 524288},   {0x86, 524288},   {0x3E, 524288},   {0x7F, 524288},   {0x83, 524288},
    {0x43, 524288},   {0x3D, 393216},   {0x21, 262144},   {0x7A, 262144},   {0x82, 262144},   {0x3C, 262144},
    {0x3F, 262144},   {0x42, 262144},   {0x3A, 196608},   {0x79, 131072},   {0x39, 131072},   {0x3B, 131072},
    {0x41, 131072},
};

constexpr NoxStatus kNotAsked = 1;
int32_t cached_size = -1;
NoxStatus cached_status = kNotAsked;

int largest_of_leaf4() {
  int largest = 0;
  for (Nox32u subleaf = 0; subleaf < 32; ++subleaf) {
    const CpuidWords w = cpuid(4, subleaf);
    const Nox32u type = w.a & 31;
    if (type == 0) break;
    if (type == 2) continue;  // instructions
    const Nox32u ways = (w.b >> 22) + 1, partitions = (w.b >> 12 & 1023) + 1, line = (w.b & 4095) + 1;
    const int size = static_cast<int>(ways * partitions * line * (w.c + 1));
    if (size > largest) largest = size;
  }
  return largest;
}

int largest_of_leaf2() {
  const CpuidWords w = cpuid(2);
  if ((w.a & 255) != 1) return static_cast<int>(w.a);
  const Nox32u words[4] = {w.a & ~255u, w.b, w.c, w.d};  // the low byte of the first is a count
  for (const CacheDescriptor& row : kCacheDescriptors)
    for (Nox32u word : words)
      if (!(word >> 31))
        for (int shift = 0; shift < 32; shift += 8)
          if ((word >> shift & 255) == row.code) return row.size;
  return 0;
}

NoxStatus ask_cache_size(int32_t& size) {
  if (!has_cpuid() || !genuine_intel()) return noxStsNotSupportedCpu;
  const Nox32u highest = cpuid(0).a;
  if (highest < 2) return noxStsNotSupportedCpu;
  const int found = highest >= 4 ? largest_of_leaf4() : largest_of_leaf2();
  size = found > 0 ? found : 0;
  return found > 0 ? noxStsNoErr : noxStsUnknownCacheSize;
}

Nox64u clocks() { return __builtin_ia32_rdtsc(); }

bool has_denormals_are_zeros() {
  if (!has_cpuid() || !(cpuid(1).d >> 25 & 1)) return false;
  alignas(16) unsigned char area[512] = {};
  asm volatile("fxsave %0" : "+m"(area));
  Nox32u control_mask;
  __builtin_memcpy(&control_mask, area + 28, sizeof control_mask);
  return control_mask >> 6 & 1;
}

}  // namespace
}  // namespace nox

extern "C" {

Nox64u noxGetCpuClocks(void) { return nox::clocks(); }

NoxStatus noxGetCpuFreqMhz(int* pMhz) {
  if (!pMhz) return noxStsNullPtrErr;
  float counted[3];
  for (float& ticks : counted) {
    const Nox64u start = nox::clocks();
    const time_t second = time(nullptr);
    while (time(nullptr) == second) {
    }
    ticks = static_cast<float>(nox::clocks() - start);
  }
  // The first covers an unknown part of a second.
  const float sum = counted[1] + counted[2];
  *pMhz = static_cast<int>(static_cast<double>(sum) / 1000000.0 * 0.5);
  return noxStsNoErr;
}

NoxStatus noxGetMaxCacheSizeB(int* pSizeByte) {
  if (!pSizeByte) return noxStsNullPtrErr;
  if (nox::cached_status == nox::kNotAsked) {
    int32_t size = -1;
    const NoxStatus status = nox::ask_cache_size(size);
    nox::cached_size = size;
    __atomic_store_n(&nox::cached_status, status, __ATOMIC_RELEASE);
  }
  *pSizeByte = nox::cached_size;
  return nox::cached_status;
}

int noxGetNumCoresOnDie(void) {
  using nox::cpuid;
  if (!nox::has_cpuid()) return 1;
  if (!nox::genuine_intel()) {
    const bool amd = cpuid(0).c == 0x444D4163;
    return amd && (cpuid(0x80000000u).a & 15) >= 8 ? static_cast<int>((cpuid(0x80000008u).c & 255) + 1) : 1;
  }
  const Nox32u highest = cpuid(0).a;
  if (highest < 4) return 1;
  if (highest >= 11) {
    const Nox32u threads_word = cpuid(11, 0).b;
    if (threads_word != 0) {
      const Nox32u logical = cpuid(11, 1).b & 0xFFFF;
      return static_cast<int>(threads_word >> 1 & 1 ? logical / 2 : logical);
    }
  }
  return static_cast<int>((cpuid(4, 0).a >> 26) + 1);
}

NoxStatus noxSetDenormAreZeros(int value) {
  if (!nox::has_denormals_are_zeros()) return noxStsCpuNotSupportedErr;
  constexpr unsigned kDenormalsAreZeros = 0x40;
  const unsigned control = __builtin_ia32_stmxcsr();
  __builtin_ia32_ldmxcsr(value ? control | kDenormalsAreZeros : control & ~kDenormalsAreZeros);
  return noxStsNoErr;
}

NoxStatus noxSetNumThreads(int) { return noxStsNoOperation; }

NoxStatus noxGetNumThreads(int* pNumThreads) {
  if (!pNumThreads) return noxStsNullPtrErr;
  *pNumThreads = 1;
  return noxStsNoOperation;
}

}  // extern "C"
