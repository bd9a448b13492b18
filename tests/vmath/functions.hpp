// The elementary functions of a build as a table of plain functions, for tests, the accuracy program and benchmarks.
//
// Compiled with a build's flags by functions_build.cpp; nothing here is from the standard library, for the reason that
// internal/cases.hpp gives.
#pragma once
#include <stddef.h>

namespace vmath {

struct Functions {
  void (*sin_array)(double* d, const double* s, size_t n);
  void (*cos_array)(double* d, const double* s, size_t n);
  void (*sincos_array)(double* sine, double* cosine, const double* s, size_t n);
  void (*atan2_array)(double* d, const double* y, const double* x, size_t n);
  void (*log_array)(double* d, const double* s, size_t n);
  double (*sin_one)(double x);
  double (*cos_one)(double x);
  void (*sincos_one)(double* sine, double* cosine, double x);
  double (*atan2_one)(double y, double x);
  double (*log_one)(double x);
};

}  // namespace vmath

extern "C" {
extern const vmath::Functions w7_vmath, s8_vmath, p8_vmath, g9_vmath, h9_vmath;
}
