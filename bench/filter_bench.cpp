// Rows of the direct FIR filter, real and complex, by number of taps; peers are double loops, also with fast math.
#include <vector>

#include "bench/row.hpp"

namespace {

// The work memory holds the spec and, a MiB behind, the filter's buffer.
constexpr int kBuffer = 1 << 20;

template <class T, int TypeCode, NoxStatus (*Init)(const T*, int, int, NoxFirSpec*)>
NoxStatus prepare(const Operands* o) {
  int spec_size = 0, work_size = 0;
  if (const NoxStatus st = noxsFIRSRGetSize(o->n[0], TypeCode, &spec_size, &work_size)) return st;
  if (spec_size > kBuffer) return noxStsMemAllocErr;
  const T* reversed = reinterpret_cast<const T*>(o->taps);
  const std::vector<T> taps(std::make_reverse_iterator(reversed + o->n[0]), std::make_reverse_iterator(reversed));
  return Init(taps.data(), o->n[0], NOX_ALG_DIRECT, work<NoxFirSpec>(o));
}

// The delay line is the samples in front of the source, as the peers read them.
template <class T, NoxStatus (*Run)(const T*, T*, int, const NoxFirSpec*, const T*, T*, Nox8u*)>
NoxStatus call(const Operands* o) {
  const T* src = first<T>(o);
  return Run(src, destination<T>(o), o->len, work<NoxFirSpec>(o), src - (o->n[0] - 1), nullptr,
             work<Nox8u>(o, kBuffer));
}

Row real_fir(int taps) {
  return row<Nox64f>("noxsFIRSR_64f", call<Nox64f, noxsFIRSR_64f>)
      .n(taps, "taps")
      .flops(2.0 * taps)
      .prepare(prepare<Nox64f, NOX_TYPE_64F, noxsFIRSRInit_64f>);
}
Row complex_fir(int taps) {
  return row<Nox64fc>("noxsFIRSR_64fc", call<Nox64fc, noxsFIRSR_64fc>)
      .n(taps, "taps")
      .flops(8.0 * taps)
      .prepare(prepare<Nox64fc, NOX_TYPE_64FC, noxsFIRSRInit_64fc>);
}

Family make() {
  return {"filter",
          "Direct FIR",
          {real_fir(16), real_fir(24), real_fir(32), real_fir(64), real_fir(181), complex_fir(16), complex_fir(24),
           complex_fir(32), complex_fir(64), complex_fir(181)}};
}

const Registration kEntry(make);

}  // namespace
