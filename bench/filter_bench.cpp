// Rows of the direct FIR filter, real and complex, by number of taps; peers are double loops, also with fast math.
#include <vector>

#include "bench/harness.hpp"

namespace {

// Spec and work buffer of the filter being measured.
std::vector<Nox8u> spec_memory, work_memory;

NoxFirSpec* spec() { return reinterpret_cast<NoxFirSpec*>(spec_memory.data()); }

template <class T, int Type, NoxStatus (*Init)(const T*, int, int, NoxFirSpec*)>
NoxStatus prepare(const Operands* o) {
  int spec_size = 0, work_size = 0;
  if (const NoxStatus st = noxsFIRSRGetSize(o->taps_len, Type, &spec_size, &work_size)) return st;
  spec_memory.assign(static_cast<size_t>(spec_size), 0);
  work_memory.assign(static_cast<size_t>(work_size), 0);
  const T* reversed = reinterpret_cast<const T*>(o->taps);
  const std::vector<T> taps(std::make_reverse_iterator(reversed + o->taps_len), std::make_reverse_iterator(reversed));
  return Init(taps.data(), o->taps_len, NOX_ALG_DIRECT, spec());
}

// The delay line is the samples in front of the source, as the peers read them.
template <class T, NoxStatus (*Run)(const T*, T*, int, const NoxFirSpec*, const T*, T*, Nox8u*)>
NoxStatus call(const Operands* o) {
  const T* src = binding::a<T>(o);
  return Run(src, binding::d<T>(o), o->len, spec(), src - (o->taps_len - 1), nullptr, work_memory.data());
}

Row real_fir(int taps) {
  return {"noxsFIRSR_64f",
          {call<Nox64f, noxsFIRSR_64f>, sizeof(Nox64f), true, false, 1},
          kCompute,
          taps,
          prepare<Nox64f, NOX_TYPE_64F, noxsFIRSRInit_64f>};
}
Row complex_fir(int taps) {
  return {"noxsFIRSR_64fc",
          {call<Nox64fc, noxsFIRSR_64fc>, sizeof(Nox64fc), true, true, 1},
          kCompute,
          taps,
          prepare<Nox64fc, NOX_TYPE_64FC, noxsFIRSRInit_64fc>};
}

}  // namespace

Family filter_family() {
  return {"filter",
          {real_fir(16), real_fir(32), real_fir(64), real_fir(181), complex_fir(16), complex_fir(32), complex_fir(64),
           complex_fir(181)}};
}
