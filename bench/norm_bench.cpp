// Rows of norms and normalisation; peers are plain loops, also with fast math, and Eigen's reductions.
#include "bench/row.hpp"

namespace {

template <class T, NoxStatus (*Run)(const T*, int, Nox64f*)>
NoxStatus one(const Operands* o) {
  return Run(first<T>(o), o->len, destination<Nox64f>(o));
}
template <class T, NoxStatus (*Run)(const T*, const T*, int, Nox64f*)>
NoxStatus difference(const Operands* o) {
  return Run(first<T>(o), second<T>(o), o->len, destination<Nox64f>(o));
}
template <class T, NoxStatus (*Run)(const T*, int, Nox64f*)>
Row norm(const char* name) {
  return row<T, Nox64f>(name, one<T, Run>, kReads | kMemory).results(1).tolerance(1e-9);
}
template <class T, NoxStatus (*Run)(const T*, const T*, int, Nox64f*)>
Row norm(const char* name) {
  return row<T, Nox64f>(name, difference<T, Run>, kReads, 2).results(1).tolerance(1e-9).data(kPlain, kSigned);
}
#define NORM(type, name) norm<type, name>(#name)

Family make() {
  return {"norm",
          "Norms",
          {NORM(Nox64f, noxsNorm_Inf_64f), NORM(Nox64f, noxsNorm_L1_64f), NORM(Nox64f, noxsNorm_L2_64f),
           NORM(Nox64fc, noxsNorm_Inf_64fc64f), NORM(Nox64fc, noxsNorm_L1_64fc64f), NORM(Nox64fc, noxsNorm_L2_64fc64f),
           NORM(Nox64f, noxsNormDiff_Inf_64f), NORM(Nox64f, noxsNormDiff_L1_64f), NORM(Nox64f, noxsNormDiff_L2_64f),
           NORM(Nox64fc, noxsNormDiff_Inf_64fc64f), NORM(Nox64fc, noxsNormDiff_L1_64fc64f),
           NORM(Nox64fc, noxsNormDiff_L2_64fc64f),
           row<Nox64f>("noxsNormalize_64f",
                       [](const Operands* o) {
                         return noxsNormalize_64f(first<Nox64f>(o), destination<Nox64f>(o), o->len, 0.6, 1.7);
                       }),
           row<Nox64fc>("noxsNormalize_64fc", [](const Operands* o) {
             return noxsNormalize_64fc(first<Nox64fc>(o), destination<Nox64fc>(o), o->len, Nox64fc{0.6, 0.8}, 1.7);
           })}};
}

const Registration kEntry(make);

}  // namespace
