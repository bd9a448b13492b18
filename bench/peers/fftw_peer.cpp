// FFTW's transforms by plans it measured. Under w7 the build links it so that it finds no AVX on the processor.
//
// Plans are made on arrays of FFTW's own, since measuring overwrites them, and run on the harness's, which are aligned
// alike. What planning learns is kept in a file beside the program, for the next process.
#ifdef NOX_BENCH_WISDOM
#include <fftw3.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "bench/peers/peers.hpp"

namespace NOX_PEER_SPACE {

enum Kind { kComplex, kInPlace, kForward, kInverse, kDct, kInverseDct };

constexpr size_t kSpare = 2;  // doubles that a spectrum of real data takes more than the data

fftw_plan make(Kind kind, int len) {
  const size_t doubles = 2 * static_cast<size_t>(len) + kSpare;
  double* in = fftw_alloc_real(doubles);
  double* out = kind == kInPlace ? in : fftw_alloc_real(doubles);
  auto* pairs_in = reinterpret_cast<fftw_complex*>(in);
  auto* pairs_out = reinterpret_cast<fftw_complex*>(out);
  fftw_plan plan = nullptr;
  switch (kind) {
    case kComplex:
    case kInPlace:
      plan = fftw_plan_dft_1d(len, pairs_in, pairs_out, FFTW_FORWARD, FFTW_MEASURE);
      break;
    case kForward:
      plan = fftw_plan_dft_r2c_1d(len, in, pairs_out, FFTW_MEASURE);
      break;
    case kInverse:
      plan = fftw_plan_dft_c2r_1d(len, pairs_in, out, FFTW_MEASURE);
      break;
    case kDct:
      plan = fftw_plan_r2r_1d(len, in, out, FFTW_REDFT10, FFTW_MEASURE);
      break;
    case kInverseDct:
      plan = fftw_plan_r2r_1d(len, in, out, FFTW_REDFT01, FFTW_MEASURE);
      break;
  }
  if (out != in) fftw_free(out);
  fftw_free(in);
  return plan;
}

struct Plan {
  Kind kind = kComplex;
  int len = 0;
  fftw_plan plan = nullptr;
};
Plan current;

template <Kind Of>
void plan(const Operands* o) {
  if (current.plan && current.kind == Of && current.len == o->len) return;
  static const int read = fftw_import_wisdom_from_filename(NOX_BENCH_WISDOM);
  static_cast<void>(read);
  if (current.plan) fftw_destroy_plan(current.plan);
  current = {Of, o->len, make(Of, o->len)};
  fftw_export_wisdom_to_filename(NOX_BENCH_WISDOM);
}

double* source(const Operands* o) { return static_cast<double*>(const_cast<void*>(o->a)); }
double* target(const Operands* o) { return static_cast<double*>(o->d); }
double* own(const Operands* o) { return static_cast<double*>(o->work); }
fftw_complex* pairs(double* p) { return reinterpret_cast<fftw_complex*>(p); }

void complex_forward(const Operands* o) { fftw_execute_dft(current.plan, pairs(source(o)), pairs(target(o))); }
void complex_in_place(const Operands* o) { fftw_execute_dft(current.plan, pairs(target(o)), pairs(target(o))); }

// The library's spectra of real data have the last value in the place of the first one's imaginary part.
void real_forward(const Operands* o) {
  double* d = target(o);
  fftw_execute_dft_r2c(current.plan, source(o), pairs(d));
  d[1] = d[o->len];
}
void plan_inverse(const Operands* o) {
  plan<kInverse>(o);
  double* s = own(o);
  std::copy_n(source(o), o->len, s);
  s[o->len] = s[1];
  s[1] = s[o->len + 1] = 0;
}
void real_inverse(const Operands* o) { fftw_execute_dft_c2r(current.plan, pairs(own(o)), target(o)); }

// Orthonormal by the scale of the input, so that no run pays for it.
template <Kind Of>
void plan_dct(const Operands* o) {
  plan<Of>(o);
  const double scale = 1 / std::sqrt(2.0 * o->len);
  double* s = own(o);
  for (int i = 0; i < o->len; ++i) s[i] = scale * source(o)[i];
  if (Of == kInverseDct) s[0] *= std::sqrt(2.0);
}
void dct(const Operands* o) {
  fftw_execute_r2r(current.plan, own(o), target(o));
  target(o)[0] *= 0.70710678118654752;
}
void inverse_dct(const Operands* o) { fftw_execute_r2r(current.plan, own(o), target(o)); }

const NamedLoop kLoops[] = {
    {"complex FFT", complex_forward, plan<kComplex>},
    {"complex FFT in place", complex_in_place, plan<kInPlace>},
    {"real FFT", real_forward, plan<kForward>},
    {"inverse real FFT", real_inverse, plan_inverse},
    {"DCT", dct, plan_dct<kDct>},
    {"inverse DCT", inverse_dct, plan_dct<kInverseDct>},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(fftw, "FFTW", kLoops);
#endif
