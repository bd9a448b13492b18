// SLEEF's vectors of four with errors up to 1 unit in the last place, in loops over arrays. For processors with AVX2.
#pragma once
#include <stddef.h>

// n is a multiple of 4.
void sleef_sin(double* d, const double* s, size_t n);
void sleef_cos(double* d, const double* s, size_t n);
void sleef_sincos(double* sine, double* cosine, const double* s, size_t n);
void sleef_atan2(double* d, const double* y, const double* x, size_t n);
void sleef_log(double* d, const double* s, size_t n);
