// Convolution, correlation and overlap-save with FFTW's measured plans, which are made beforehand.
//
// Arrays are padded with zeros to the next power of two that holds all results, as the library does. The overlap-save
// filter transforms blocks of eight times its taps: of four to thirty-two times, about the best here.
#ifdef NOX_BENCH_WISDOM
#include <fftw3.h>

#include <algorithm>

#include "bench/peers/peers.hpp"

namespace NOX_PEER_SPACE {

struct Plans {
  int len = 0;
  fftw_plan forward = nullptr, inverse = nullptr;
  double *a = nullptr, *b = nullptr;  // two arrays of `len` values, transformed in place
};
Plans real_plans, complex_plans;

fftw_complex* pairs(double* p) { return reinterpret_cast<fftw_complex*>(p); }

void make(Plans& p, int len, bool complex) {
  if (p.len == len) return;
  static const int read = fftw_import_wisdom_from_filename(NOX_BENCH_WISDOM);
  static_cast<void>(read);
  if (p.len) {
    fftw_destroy_plan(p.forward);
    fftw_destroy_plan(p.inverse);
    fftw_free(p.a);
    fftw_free(p.b);
  }
  const size_t doubles = complex ? 2 * static_cast<size_t>(len) : static_cast<size_t>(len) + 2;
  p.len = len;
  p.a = fftw_alloc_real(doubles);
  p.b = fftw_alloc_real(doubles);
  if (complex) {
    p.forward = fftw_plan_dft_1d(len, pairs(p.a), pairs(p.a), FFTW_FORWARD, FFTW_MEASURE);
    p.inverse = fftw_plan_dft_1d(len, pairs(p.a), pairs(p.a), FFTW_BACKWARD, FFTW_MEASURE);
  } else {
    p.forward = fftw_plan_dft_r2c_1d(len, p.a, pairs(p.a), FFTW_MEASURE);
    p.inverse = fftw_plan_dft_c2r_1d(len, pairs(p.a), p.a, FFTW_MEASURE);
  }
  fftw_export_wisdom_to_filename(NOX_BENCH_WISDOM);
}

int power_of_two(int least) {
  int p = 1;
  while (p < least) p *= 2;
  return p;
}
void pad(const double* s, int n, double* d, int len) {
  std::copy_n(s, n, d);
  std::fill(d + n, d + len, 0.0);
}
const double* source(const void* p) { return static_cast<const double*>(p); }
double* target(const Operands* o) { return static_cast<double*>(o->d); }

// x times y or its conjugate, over the number of points, to x.
template <bool Conjugate>
void multiply(double* x, const double* y, int count, double scale) {
  for (int i = 0; i < count; ++i) {
    const double a = x[2 * i], b = x[2 * i + 1], c = y[2 * i] * scale, d = (Conjugate ? -scale : scale) * y[2 * i + 1];
    x[2 * i] = a * c - b * d;
    x[2 * i + 1] = a * d + b * c;
  }
}

void plan_two(const Operands* o) { make(real_plans, power_of_two(o->len), false); }
void plan_two_complex(const Operands* o) { make(complex_plans, power_of_two(o->len), true); }
void plan_auto(const Operands* o) { make(real_plans, power_of_two(2 * o->len - 1), false); }
void plan_auto_complex(const Operands* o) { make(complex_plans, power_of_two(2 * o->len - 1), true); }

void convolve(const Operands* o) {
  const Plans& p = real_plans;
  const int n = (o->len + 1) / 2;
  pad(source(o->a), n, p.a, p.len);
  pad(source(o->b), n, p.b, p.len);
  fftw_execute_dft_r2c(p.forward, p.a, pairs(p.a));
  fftw_execute_dft_r2c(p.forward, p.b, pairs(p.b));
  multiply<false>(p.a, p.b, p.len / 2 + 1, 1.0 / p.len);
  fftw_execute_dft_c2r(p.inverse, pairs(p.a), p.a);
  std::copy_n(p.a, o->len, target(o));
}
// The lags below zero stand at the end of the transform.
void correlate(const Operands* o) {
  const Plans& p = real_plans;
  const int n = (o->len + 1) / 2;
  pad(source(o->b), n, p.a, p.len);
  pad(source(o->a), n, p.b, p.len);
  fftw_execute_dft_r2c(p.forward, p.a, pairs(p.a));
  fftw_execute_dft_r2c(p.forward, p.b, pairs(p.b));
  multiply<true>(p.a, p.b, p.len / 2 + 1, 1.0 / p.len);
  fftw_execute_dft_c2r(p.inverse, pairs(p.a), p.a);
  std::copy_n(p.a + p.len - (n - 1), n - 1, target(o));
  std::copy_n(p.a, n, target(o) + n - 1);
}
void correlate_complex(const Operands* o) {
  const Plans& p = complex_plans;
  const int n = (o->len + 1) / 2;
  pad(source(o->b), 2 * n, p.a, 2 * p.len);
  pad(source(o->a), 2 * n, p.b, 2 * p.len);
  fftw_execute_dft(p.forward, pairs(p.a), pairs(p.a));
  fftw_execute_dft(p.forward, pairs(p.b), pairs(p.b));
  multiply<true>(p.a, p.b, p.len, 1.0 / p.len);
  fftw_execute_dft(p.inverse, pairs(p.a), pairs(p.a));
  std::copy_n(p.a + 2 * (p.len - (n - 1)), 2 * (n - 1), target(o));
  std::copy_n(p.a, 2 * n, target(o) + 2 * (n - 1));
}
void powers(double* x, int count, double scale) {
  for (int i = 0; i < count; ++i) {
    x[2 * i] = (x[2 * i] * x[2 * i] + x[2 * i + 1] * x[2 * i + 1]) * scale;
    x[2 * i + 1] = 0;
  }
}
void autocorrelate(const Operands* o) {
  const Plans& p = real_plans;
  pad(source(o->a), o->len, p.a, p.len);
  fftw_execute_dft_r2c(p.forward, p.a, pairs(p.a));
  powers(p.a, p.len / 2 + 1, 1.0 / p.len);
  fftw_execute_dft_c2r(p.inverse, pairs(p.a), p.a);
  std::copy_n(p.a, o->len, target(o));
}
void autocorrelate_complex(const Operands* o) {
  const Plans& p = complex_plans;
  pad(source(o->a), 2 * o->len, p.a, 2 * p.len);
  fftw_execute_dft(p.forward, pairs(p.a), pairs(p.a));
  powers(p.a, p.len, 1.0 / p.len);
  fftw_execute_dft(p.inverse, pairs(p.a), pairs(p.a));
  std::copy_n(p.a, 2 * o->len, target(o));
}

// The taps' spectrum stands in the participant's own memory.
void plan_fir(const Operands* o) {
  const int taps = o->n[0];
  make(real_plans, 8 * power_of_two(taps), false);
  const Plans& p = real_plans;
  for (int i = 0; i < p.len; ++i) p.a[i] = i < taps ? o->taps[taps - 1 - i] / p.len : 0;
  fftw_execute_dft_r2c(p.forward, p.a, pairs(p.a));
  std::copy_n(p.a, p.len + 2, static_cast<double*>(o->work));
}
void filter(const Operands* o) {
  const Plans& p = real_plans;
  const int past = o->n[0] - 1, fresh = p.len - past;
  for (int i = 0; i < o->len; i += fresh) {
    const int n = std::min(fresh, o->len - i);
    pad(source(o->a) + i - past, past + n, p.a, p.len);
    fftw_execute_dft_r2c(p.forward, p.a, pairs(p.a));
    multiply<false>(p.a, static_cast<const double*>(o->work), p.len / 2 + 1, 1.0);
    fftw_execute_dft_c2r(p.inverse, pairs(p.a), p.a);
    std::copy_n(p.a + past, n, target(o) + i);
  }
}

const NamedLoop kLoops[] = {
    {"convolution", convolve, plan_two},
    {"cross correlation", correlate, plan_two},
    {"complex cross correlation", correlate_complex, plan_two_complex},
    {"autocorrelation", autocorrelate, plan_auto},
    {"complex autocorrelation", autocorrelate_complex, plan_auto_complex},
    {"overlap-save FIR", filter, plan_fir},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(spectral, "FFTW", kLoops);
#endif
