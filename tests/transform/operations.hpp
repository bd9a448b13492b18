// The internal transforms of each build, as tables of plain functions. A spec is what the build takes it for.
//
// The builds include this header too, so it uses nothing from the standard library.
#pragma once
#include "nox/status.h"
#include "nox/types.h"

namespace transforms {

struct Operations {
  NoxStatus (*size)(int order, int flag, int hint, int* spec, int* init, int* work);
  NoxStatus (*init)(void** spec, int order, int flag, int hint, Nox8u* memory, Nox8u* initMemory);
  NoxStatus (*forward)(const Nox64fc* src, Nox64fc* dst, const void* spec, Nox8u* work);
  NoxStatus (*inverse)(const Nox64fc* src, Nox64fc* dst, const void* spec, Nox8u* work);
};

}  // namespace transforms

extern "C" {
extern const transforms::Operations w7_complex_fft, s8_complex_fft, p8_complex_fft, g9_complex_fft, h9_complex_fft;
}
