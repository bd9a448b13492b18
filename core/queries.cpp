// Processor queries and thread settings; none depends on the build in force.
#include <time.h>

#include "core/cache_size.hpp"
#include "core/cpuid.hpp"
#include "core/frame.hpp"

namespace nox {
namespace {

constexpr NoxStatus kNotAsked = 1;
int32_t cached_size = -1;
NoxStatus cached_status = kNotAsked;

// Writes the size and returns noxStsNoErr, or writes what stands for its failure.
NoxStatus ask_cache_size(int32_t& size) {
  size = -1;
  if (!has_cpuid() || !genuine_intel()) return noxStsNotSupportedCpu;
  const Nox32u highest = cpuid(0).a;
  if (highest < 2) return noxStsNotSupportedCpu;
  const bool found = highest >= 4 ? largest_cache([](Nox32u subleaf) { return cpuid(4, subleaf); }, size)
                                  : largest_cache_of_descriptors(cpuid(2), size);
  if (found) return noxStsNoErr;
  size = 0;
  return noxStsUnknownCacheSize;
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
  NoxStatus status = __atomic_load_n(&nox::cached_status, __ATOMIC_ACQUIRE);
  if (status == nox::kNotAsked) {
    int32_t size;
    status = nox::ask_cache_size(size);
    __atomic_store_n(&nox::cached_size, size, __ATOMIC_RELAXED);
    __atomic_store_n(&nox::cached_status, status, __ATOMIC_RELEASE);  // last: a set status vouches for the size
  }
  *pSizeByte = __atomic_load_n(&nox::cached_size, __ATOMIC_RELAXED);
  return status;
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
