// The frame's state and its internal calls: which features the processor has, which build serves the calls.
//
// All shared writable data of the library stand here. Each is written by one aligned store and there is no lock: a
// race writes equal values.
#pragma once
#include "nox/core.h"

#define NOX_HIDDEN __attribute__((visibility("hidden")))

extern "C" {
NOX_HIDDEN extern int32_t cpuSelector;        // column of the dispatch table; -1: not yet chosen
NOX_HIDDEN extern Nox64u cpuFeaturesEnabled;  // the feature mask in force
NOX_HIDDEN NoxStatus noxAutoSelect();         // chooses the build for this processor
NOX_HIDDEN void nox_initial_select();         // the same, keeping every argument register (assembly)
}

namespace nox {

struct Selection {
  int variant;       // column of the dispatch table
  NoxStatus status;  // what noxSetCpuFeatures returns
};

// Writes the processor's mask and returns true, or returns false if there is no CPUID.
bool noxDetectCpuFeatures(Nox64u& mask);
// Chooses a variant for a mask and stores the mask in force.
Selection noxSelectVariant(Nox64u mask);
// Makes the features in force what the library believes of the processor.
void trust_enabled_features();
// Whether AVX, AVX2 are in force; not before the first call of a primitive or of noxSetCpuFeatures.
inline bool has_avx() { return cpuSelector >= 3; }
inline bool has_avx2() { return cpuSelector >= 4; }
// Whether every bit of the mask is in force.
bool noxHasFeature(Nox64u mask);

// Memory at a 64-byte boundary, null where there is none; the raw block's address stands in the word in front.
void* aligned_allocate(Nox64u bytes);
void aligned_free(void* p);

}  // namespace nox
