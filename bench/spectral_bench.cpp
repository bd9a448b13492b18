// Rows of what runs by Fourier transforms inside: convolution and correlation of arrays of equal lengths, and FIR
// filters by overlap-save.
//
// The library makes its tables anew in every call of a convolution or a correlation, since it keeps nothing between
// calls; FFTW's plans are free. Two arrays of n give 2n - 1 results, the row's length.
#include <vector>

#include "bench/row.hpp"

namespace {

int half(const Operands* o) { return (o->len + 1) / 2; }

NoxStatus convolve(const Operands* o) {
  return noxsConvolve_64f(first<Nox64f>(o), half(o), static_cast<const Nox64f*>(o->b), half(o), destination<Nox64f>(o),
                          NOX_ALG_FFT, work<Nox8u>(o));
}
template <class T, NoxStatus (*Run)(const T*, int, const T*, int, T*, int, int, int, Nox8u*)>
NoxStatus correlate(const Operands* o) {
  return Run(first<T>(o), half(o), static_cast<const T*>(o->b), half(o), destination<T>(o), o->len, 1 - half(o),
             NOX_ALG_FFT, work<Nox8u>(o));
}
template <class T, NoxStatus (*Run)(const T*, int, T*, int, int, Nox8u*)>
NoxStatus autocorrelate(const Operands* o) {
  return Run(first<T>(o), o->len, destination<T>(o), o->len, NOX_ALG_FFT, work<Nox8u>(o));
}

constexpr int kBuffer = 1 << 20;  // behind the spec

NoxStatus prepare_fir(const Operands* o) {
  int spec_size = 0, work_size = 0;
  if (const NoxStatus st = noxsFIRSRGetSize(o->n[0], NOX_TYPE_64F, &spec_size, &work_size)) return st;
  if (spec_size > kBuffer) return noxStsMemAllocErr;
  const std::vector<Nox64f> taps(std::make_reverse_iterator(o->taps + o->n[0]), std::make_reverse_iterator(o->taps));
  return noxsFIRSRInit_64f(taps.data(), o->n[0], NOX_ALG_FFT, work<NoxFirSpec>(o));
}
NoxStatus filter(const Operands* o) {
  const Nox64f* src = first<Nox64f>(o);
  return noxsFIRSR_64f(src, destination<Nox64f>(o), o->len, work<NoxFirSpec>(o), src - (o->n[0] - 1), nullptr,
                       work<Nox8u>(o, kBuffer));
}

Row two_arrays(Row row) { return row.lengths({127, 511, 2047, 8191, 32767, 131071}).tolerance(1e-9).also(kNoLimit); }
Row one_array(Row row) { return row.lengths({64, 256, 1024, 4096, 16384, 65536}).tolerance(1e-9).also(kNoLimit); }
Row fir(int taps) {
  return row<Nox64f>("overlap-save FIR", filter, kNoLimit)
      .n(taps, "taps")
      .lengths({4096, 65536})
      .tolerance(1e-10)
      .prepare(prepare_fir);
}

Family make() {
  return {"spectral",
          "Convolution, correlation and FIR by transforms",
          {two_arrays(row<Nox64f>("convolution", convolve, 0, 2)),
           two_arrays(row<Nox64f>("cross correlation", correlate<Nox64f, noxsCrossCorrNorm_64f>, 0, 2)),
           two_arrays(row<Nox64fc>("complex cross correlation", correlate<Nox64fc, noxsCrossCorrNorm_64fc>, 0, 2)),
           one_array(row<Nox64f>("autocorrelation", autocorrelate<Nox64f, noxsAutoCorrNorm_64f>)),
           one_array(row<Nox64fc>("complex autocorrelation", autocorrelate<Nox64fc, noxsAutoCorrNorm_64fc>)), fir(256),
           fir(1024)}};
}

const Registration kEntry(make);

}  // namespace
