// Rows of the multi-rate FIR filter, by rates; peers are double loops over taps sorted beforehand, also with fast math.
//
// len is the longer of input and output, and the flops are those of the outputs' own taps.
#include <algorithm>
#include <vector>

#include "bench/row.hpp"

namespace {

// The work memory holds the spec and, some MiB behind, the filter's buffer. n is up, down, taps per phase.
constexpr int kBuffer = 4 << 20;

template <class T, int TypeCode, auto Init>
NoxStatus prepare(const Operands* o) {
  const int len = o->n[0] * o->n[2];
  int spec_size = 0, work_size = 0;
  if (const NoxStatus st = noxsFIRMRGetSize(len, o->n[0], o->n[1], TypeCode, &spec_size, &work_size)) return st;
  if (spec_size > kBuffer) return noxStsMemAllocErr;
  const T* reversed = reinterpret_cast<const T*>(o->taps);
  const std::vector<T> taps(std::make_reverse_iterator(reversed + len), std::make_reverse_iterator(reversed));
  return Init(taps.data(), len, o->n[0], 0, o->n[1], 0, work<NoxFirMrSpec>(o));
}

template <class T, auto Run>
NoxStatus call(const Operands* o) {
  const T* src = first<T>(o);
  return Run(src, destination<T>(o), o->len / std::max(o->n[0], o->n[1]), work<NoxFirMrSpec>(o), src - o->n[2], nullptr,
             work<Nox8u>(o, kBuffer));
}

Row rates(Row r, int up, int down, double flops) {
  constexpr int kLen = 4096, kTaps = 24;
  const int iterations = kLen / std::max(up, down), outputs = iterations * up;
  return r.n(up, "up")
      .n(down, "down")
      .n(kTaps, "taps a phase")
      .lengths({kLen})
      .results(outputs)
      .flops(flops * kTaps * outputs / kLen);
}
Row real(int up, int down) {
  return rates(row<Nox64f>("noxsFIRMR_64f", call<Nox64f, noxsFIRMR_64f>), up, down, 2)
      .prepare(prepare<Nox64f, NOX_TYPE_64F, noxsFIRMRInit_64f>);
}
Row complex(int up, int down) {
  return rates(row<Nox64fc>("noxsFIRMR_64fc", call<Nox64fc, noxsFIRMR_64fc>), up, down, 8)
      .prepare(prepare<Nox64fc, NOX_TYPE_64FC, noxsFIRMRInit_64fc>);
}

Family make() {
  return {"multirate",
          "Multi-rate FIR",
          {real(3, 2), real(2, 3), real(160, 147), real(1, 10), complex(3, 2), complex(2, 3), complex(160, 147)}};
}

const Registration kEntry(make);

}  // namespace
