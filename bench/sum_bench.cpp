// Rows of sums, means, deviations and dot products; peers are plain loops, also with fast math, and Eigen.
#include "bench/row.hpp"

namespace {

constexpr unsigned kReduction = kReads | kMemory;

// A call whose lengths and elements are of one type.
template <NoxStatus (*F)(const Nox32s*, int, Nox32s*, int)>
NoxStatus call(const Operands* o) {
  return F(first<Nox32s>(o), o->len, destination<Nox32s>(o), o->n[0]);
}

Family make() {
  return {"sum",
          "Sums and dot products",
          {
              Row{PRIMITIVE(noxsSum_64f), kReduction}.results(1),
              Row{PRIMITIVE(noxsSum_64fc), kReduction}.results(1),
              row<Nox32s>("noxsSum_32s_Sfs", call<noxsSum_32s_Sfs>, kReduction).data(kSigned).results(1),
              Row{PRIMITIVE(noxsSum_16s32s_Sfs), kReduction}.data(kSigned).results(1),
              Row{PRIMITIVE(noxsMean_64f), kReads}.results(1),
              Row{PRIMITIVE(noxsMean_64fc), kReads}.results(1),
              row<Nox32s>("noxsMean_32s_Sfs", call<noxsMean_32s_Sfs>, kReads).data(kSigned).results(1),
              Row{PRIMITIVE(noxsStdDev_64f), kReduction}.data(kPlain).tolerance(1e-9).results(1),
              Row{PRIMITIVE(noxsMeanStdDev_64f), kReduction | kTwoOutputs}.data(kPlain).tolerance(1e-9).results(1),
              Row{PRIMITIVE(noxsDotProd_64f), kReduction}.results(1),
              Row{PRIMITIVE(noxsDotProd_64fc), kReduction}.results(1),
              Row{PRIMITIVE(noxsDotProd_64f64fc), kReduction}.results(1),
              Row{PRIMITIVE(noxsDotProd_32s_Sfs), kReduction}.data(kSigned).results(1),
              Row{PRIMITIVE(noxsDotProd_32s_Sfs), kReads}.data(kWhole).results(1).called("whole range"),
          }};
}

const Registration kEntry(make);

}  // namespace
