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
  Nox32u before, after;
  asm volatile(
      "pushfl\n\tpopl %0\n\tmovl %0, %1\n\txorl $0x200000, %1\n\t"
      "pushl %1\n\tpopfl\n\tpushfl\n\tpopl %1\n\t"
      "pushl %0\n\tpopfl"
      : "=&r"(before), "=&r"(after)
      :
      : "cc");
  return ((before ^ after) & 0x200000) != 0;
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
