// Loops over SLEEF's functions of four lanes.
#include "bench/peers/sleef.hpp"

#include <immintrin.h>
#include <sleef.h>

void sleef_sin(double* d, const double* s, size_t n) {
  for (size_t i = 0; i < n; i += 4) _mm256_storeu_pd(d + i, Sleef_sind4_u10avx2(_mm256_loadu_pd(s + i)));
}
void sleef_cos(double* d, const double* s, size_t n) {
  for (size_t i = 0; i < n; i += 4) _mm256_storeu_pd(d + i, Sleef_cosd4_u10avx2(_mm256_loadu_pd(s + i)));
}
void sleef_sincos(double* sine, double* cosine, const double* s, size_t n) {
  for (size_t i = 0; i < n; i += 4) {
    const Sleef___m256d_2 both = Sleef_sincosd4_u10avx2(_mm256_loadu_pd(s + i));
    _mm256_storeu_pd(sine + i, both.x);
    _mm256_storeu_pd(cosine + i, both.y);
  }
}
void sleef_atan2(double* d, const double* y, const double* x, size_t n) {
  for (size_t i = 0; i < n; i += 4)
    _mm256_storeu_pd(d + i, Sleef_atan2d4_u10avx2(_mm256_loadu_pd(y + i), _mm256_loadu_pd(x + i)));
}
void sleef_log(double* d, const double* s, size_t n) {
  for (size_t i = 0; i < n; i += 4) _mm256_storeu_pd(d + i, Sleef_logd4_u10avx2(_mm256_loadu_pd(s + i)));
}
