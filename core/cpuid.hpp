// The processor's identification instructions.
#pragma once
#include <cpuid.h>

#include "nox/types.h"

namespace nox {

struct CpuidWords {
  Nox32u a, b, c, d;
};

inline CpuidWords cpuid(Nox32u leaf, Nox32u subleaf = 0) {
  CpuidWords w;
  __cpuid_count(leaf, subleaf, w.a, w.b, w.c, w.d);
  return w;
}

// CPUID exists where bit 21 of the flags register can be toggled; every x86-64 processor has it.
inline bool has_cpuid() {
#ifdef __i386__
  return __get_cpuid_max(0, nullptr) != 0;
#else
  return true;
#endif
}

inline bool genuine_intel() {
  const CpuidWords w = cpuid(0);
  return w.b == 0x756E6547 && w.d == 0x49656E69 && w.c == 0x6C65746E;
}

inline Nox32u xgetbv0() {
  Nox32u low, high;
  asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return low;
}

}  // namespace nox
