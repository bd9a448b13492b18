// Rows of the complex helpers and of absolute values.
#include "bench/row.hpp"

namespace {

template <NoxStatus (*Run)(const Nox64fc*, Nox64f*, int)>
NoxStatus from_records(const Operands* o) {
  return Run(first<Nox64fc>(o), destination<Nox64f>(o), o->len);
}
template <NoxStatus (*Run)(const Nox64f*, const Nox64f*, Nox64f*, int)>
NoxStatus from_arrays(const Operands* o) {
  return Run(first<Nox64f>(o), second<Nox64f>(o), destination<Nox64f>(o), o->len);
}
template <NoxStatus (*Run)(const Nox64fc*, Nox64f*, int)>
Row records(const char* name, unsigned traits = 0) {
  return row<Nox64fc, Nox64f>(name, from_records<Run>, traits);
}
template <NoxStatus (*Run)(const Nox64f*, const Nox64f*, Nox64f*, int)>
Row arrays(const char* name) {
  return row<Nox64f>(name, from_arrays<Run>, 0, 2).data(kSigned);
}

Family make() {
  return {"complex",
          "Complex helpers",
          {
              arrays<noxsMagnitude_64f>("noxsMagnitude_64f"),
              records<noxsMagnitude_64fc>("noxsMagnitude_64fc"),
              arrays<noxsPowerSpectr_64f>("noxsPowerSpectr_64f"),
              records<noxsPowerSpectr_64fc>("noxsPowerSpectr_64fc"),
              arrays<noxsPhase_64f>("noxsPhase_64f").also(kNoLimit),
              row<Nox64f>(
                  "noxsPolarToCart_64f",
                  [](const Operands* o) {
                    return noxsPolarToCart_64f(first<Nox64f>(o), second<Nox64f>(o), destination<Nox64f>(o),
                                               static_cast<Nox64f*>(o->e), o->len);
                  },
                  kNoLimit | kTwoOutputs, 2)
                  .data(kSigned, kAngles),
              records<noxsReal_64fc>("noxsReal_64fc", kMemory),
              row<Nox64f, Nox64fc>(
                  "noxsRealToCplx_64f",
                  [](const Operands* o) {
                    return noxsRealToCplx_64f(first<Nox64f>(o), second<Nox64f>(o), destination<Nox64fc>(o), o->len);
                  },
                  0, 2),
              Row{PRIMITIVE(noxsAbs_16s)},
              Row{PRIMITIVE(noxsAbs_32s)},
              Row{PRIMITIVE(noxsAbs_64f)}.data(kSigned),
          }};
}

const Registration kEntry(make);

}  // namespace
