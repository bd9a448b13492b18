// Rows of the array layer on integers: bytes, quotients, elementwise extremes, companding; and of matrices.
//
// Divisors are 1 to 100. Matrices are of 1000 rows and columns.
#include "bench/array_row.hpp"

namespace {

template <auto F, class T>
NoxStatus of_pair(const Operands* o) {
  return F(first<T>(o), 0, second<T>(o), 0, destination<T>(o), 0, o->len);
}
template <auto F, class S, class D>
NoxStatus indexed(const Operands* o) {
  return F(first<S>(o), 0, destination<D>(o), 0, o->len);
}
template <auto F, class T>
NoxStatus with_value(const Operands* o) {
  F(first<T>(o), constant<T>(o), destination<T>(o), length(o));
  return noxStsNoErr;
}
template <auto F, class T>
NoxStatus quotients_and_rests(const Operands* o) {
  F(first<T>(o), 0, destination<T>(o), 0, other<T>(o), 0, second<T>(o), 0, length(o));
  return noxStsNoErr;
}
constexpr int kSide = 1000;
template <auto F, class T>
NoxStatus transposed(const Operands* o) {
  F(first<T>(o), destination<T>(o), kSide, kSide, kSide, kSide);
  return noxStsNoErr;
}
template <class T>
Row value(const char* name, NoxStatus (*call)(const Operands*)) {
  return row<T>(name, call, kNoLimit).data(kWhole).constants(7);
}
template <class T>
Row quotients(const char* name, NoxStatus (*call)(const Operands*)) {
  return row<T>(name, call, kNoLimit | kTwoOutputs, 2).data(kWhole, kPlain);
}
template <class T>
Row matrix(const char* name, NoxStatus (*call)(const Operands*)) {
  return row<T>(name, call, kNoLimit).lengths({kSide * kSide});
}
template <class S, class D>
Row companded(const char* name, NoxStatus (*call)(const Operands*), Data data) {
  return row<S, D>(name, call, kNoLimit).data(data);
}

Family make() {
  return {
      "array_ints",
      "Array layer: integers and matrices",
      {
          Row{ARRAY(Sum_8u32s_SFS), kReads | kMemory}.results(1),
          Row{ARRAY(Max_8u), kReads | kMemory}.results(1),
          Row{ARRAY(Min_8u), kReads}.results(1),
          Row{ARRAY(MaxMin_8u), kReads | kTwoOutputs}.results(1),
          {ARRAY(Convert_8u16s), kMemory},
          {ARRAY(Convert_8u32s)},
          {ARRAY(Convert_8u64f)},
          {ARRAY(Convert_16s64f)},
          {ARRAY(Convert_16s8u)},
          {ARRAY(Convert_32s8u)},
          Row{ARRAY(Floor)}.data(kSigned),
          Row{ARRAY(Ceil)}.data(kSigned),
          row<Nox16s>("noxsMaxEvery_16s", of_pair<noxsMaxEvery_16s_Idx, Nox16s>, 0, 2),
          row<Nox32s>("noxsMaxEvery_32s", of_pair<noxsMaxEvery_32s_Idx, Nox32s>, 0, 2),
          row<Nox32s>("noxsMinEvery_32s", of_pair<noxsMinEvery_32s_Idx, Nox32s>, 0, 2),
          value<Nox32s>("DivC_32s_SFS", with_value<DivC_32s_SFS, Nox32s>),
          value<Nox8u>("ModC_8u_SFS", with_value<ModC_8u_SFS, Nox8u>),
          value<Nox16s>("ModC_16s_SFS", with_value<ModC_16s_SFS, Nox16s>),
          value<Nox32s>("ModC_32s_SFS", with_value<ModC_32s_SFS, Nox32s>),
          value<Nox8u>("DivCREV_8u_SFS", with_value<DivCREV_8u_SFS, Nox8u>).data(kPlain),
          value<Nox16s>("DivCREV_16s_SFS", with_value<DivCREV_16s_SFS, Nox16s>).data(kPlain).constants(30000),
          value<Nox32s>("DivCREV_32s_SFS", with_value<DivCREV_32s_SFS, Nox32s>).data(kPlain).constants(30000),
          quotients<Nox8u>("RemDiv_8u_SFS", quotients_and_rests<RemDiv_8u_SFS_Idx, Nox8u>),
          quotients<Nox16s>("RemDiv_16s_SFS", quotients_and_rests<RemDiv_16s_SFS_Idx, Nox16s>),
          quotients<Nox32s>("RemDiv_32s_SFS", quotients_and_rests<RemDiv_32s_SFS_Idx, Nox32s>),
          companded<Nox16s, Nox8u>("noxsLinToMuLaw_16s8u", indexed<noxsLinToMuLaw_16s8u_Idx, Nox16s, Nox8u>, kWhole),
          companded<Nox64f, Nox8u>("noxsLinToALaw_64f8u", indexed<noxsLinToALaw_64f8u_Idx, Nox64f, Nox8u>, kSigned),
          companded<Nox8u, Nox16s>("noxsMuLawToLin_8u16s", indexed<noxsMuLawToLin_8u16s_Idx, Nox8u, Nox16s>, kWhole),
          companded<Nox8u, Nox64f>("noxsALawToLin_8u64f", indexed<noxsALawToLin_8u64f_Idx, Nox8u, Nox64f>, kWhole),
          matrix<Nox64f>("TransposeMatrix", transposed<TransposeMatrix, Nox64f>),
          matrix<Nox64fc>("TransposeMatrixc", transposed<TransposeMatrixc, Nox64fc>),
          matrix<Nox64fc>("AdjungateMatrixc", transposed<AdjungateMatrixc, Nox64fc>),
          matrix<Nox8u>("TransposeMatrix_8u", transposed<TransposeMatrix_8u, Nox8u>),
          matrix<Nox16s>("TransposeMatrix_16s", transposed<TransposeMatrix_16s, Nox16s>),
          matrix<Nox32s>("TransposeMatrix_32s", transposed<TransposeMatrix_32s, Nox32s>),
      }};
}

const Registration kEntry(make);

}  // namespace
