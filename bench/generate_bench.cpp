// Rows of the generators: random numbers beside those of the C++ library, windows, tones and chirps beside loops over
// the C library's cosine.
//
// Streams differ, so that of random numbers nothing is compared. The complex rows of windows have the same weights to
// make as the real ones.
#include "bench/row.hpp"

namespace {

template <class State, auto Init, class T>
NoxStatus start(const Operands* o) {
  const bool whole = sizeof(T) == 1;
  return Init(work<State>(o), T(whole ? 100 : 0), T(whole ? 200 : 1), 12345);
}
template <class T, class State, auto Fill>
NoxStatus fill(const Operands* o) {
  return Fill(destination<T>(o), o->len, work<State>(o));
}
template <class T, class State, auto Init, auto Fill>
Row random(const char* name) {
  return row<T>(name, fill<T, State, Fill>, kNoLimit, 0).prepare(start<State, Init, T>).results(0);
}

// A new record of mean 0 and deviation 1, as its Init, which isn't exported, leaves it.
NoxStatus start_gauss(const Operands* o) {
  struct Record {
    int id, seed;
    double mean, deviation;
    unsigned x, a, b, c, d;
    int no_spare;
    double spare[3], unused;
  };
  static_assert(sizeof(Record) == 80, "the record's size");
  const unsigned seed = 12345, b = seed * 69069 + 1013904243;
  *work<Record>(o) = {44, 12345, 0, 1, 1131199209, seed, b, b * 69069 + 1013904243, 0xFFFFFFFF, 1, {}, 0};
  return noxStsNoErr;
}

constexpr double kAlpha = 0.03;

Row kaiser() {
  return row<Nox64f>("noxsWinKaiser_64f", [](const Operands* o) -> NoxStatus {
    return noxsWinKaiser_64f(first<Nox64f>(o), destination<Nox64f>(o), o->len, kAlpha);
  });
}

template <class T, auto Run, int Hint>
NoxStatus tone(const Operands* o) {
  Nox64f phase = 0.5;
  return Run(destination<T>(o), 0, o->len, 1, kFrequency, &phase, Hint);
}
template <class T, auto Run>
NoxStatus triangle(const Operands* o) {
  Nox64f phase = 0.5;
  return Run(destination<T>(o), 0, o->len, 1, o->n[0] * 0.01, 0.5, &phase);
}

Family make() {
  constexpr double kClose = 1e-8;  // the recurrences' errors grow with the length
  return {
      "generate",
      "Generators",
      {
          random<Nox8u, NoxRandUniformState_8u, noxsRandUniformInit_8u, noxsRandUniform_8u>("noxsRandUniform_8u"),
          random<Nox16s, NoxRandUniformState_16s, noxsRandUniformInit_16s, noxsRandUniform_16s>("noxsRandUniform_16s"),
          random<Nox64f, NoxRandUniformState_64f, noxsRandUniformInit_64f, noxsRandUniform_64f>("noxsRandUniform_64f"),
          random<Nox8u, NoxRandGaussState_8u, noxsRandGaussInit_8u, noxsRandGauss_8u>("noxsRandGauss_8u"),
          random<Nox16s, NoxRandGaussState_16s, noxsRandGaussInit_16s, noxsRandGauss_16s>("noxsRandGauss_16s"),
          row<Nox64f>("noxsRandGauss_64f", fill<Nox64f, NoxRandGaussState_64f, noxsRandGauss_64f>, kNoLimit, 0)
              .prepare(start_gauss)
              .results(0),
          Row{PRIMITIVE(noxsWinBartlett_64f)}.tolerance(kClose),
          Row{PRIMITIVE(noxsWinHann_64f)}.tolerance(kClose),
          Row{PRIMITIVE(noxsWinHann_64fc)}.tolerance(kClose),
          Row{PRIMITIVE(noxsWinHamming_64f)}.tolerance(kClose),
          Row{PRIMITIVE(noxsWinBlackman_64f)}.constants(0.3).tolerance(kClose),
          Row{PRIMITIVE(noxsWinBlackmanStd_64f)}.tolerance(kClose),
          Row{PRIMITIVE(noxsWinBlackmanOpt_64f)}.tolerance(kClose),
          kaiser(),
          row<Nox64f>("noxsTone_Direct_64f", tone<Nox64f, noxsTone_Direct_64f_Idx, 0>, kMemory, 0).tolerance(1e-6),
          row<Nox64f>("noxsTone_Direct_64f", tone<Nox64f, noxsTone_Direct_64f_Idx, 1>, kMemory, 0)
              .called("restarting")
              .tolerance(1e-6),
          row<Nox64fc>("noxsTone_Direct_64fc", tone<Nox64fc, noxsTone_Direct_64fc_Idx, 0>, kMemory, 0).tolerance(1e-6),
          row<Nox64f>("noxsTriangle_Direct_64f", triangle<Nox64f, noxsTriangle_Direct_64f_Idx>, kNoLimit, 0)
              .n(5, "% frequency")
              .tolerance(kClose),
          row<Nox64f>("noxsTriangle_Direct_64f", triangle<Nox64f, noxsTriangle_Direct_64f_Idx>, kNoLimit, 0)
              .n(30, "% frequency")
              .tolerance(kClose),
          row<Nox64fc>("noxsTriangle_Direct_64fc", triangle<Nox64fc, noxsTriangle_Direct_64fc_Idx>, kNoLimit, 0)
              .n(30, "% frequency")
              .tolerance(kClose),
          Row{PRIMITIVE(noxsVectorSlope_64f)}.constants(1, 1e-3),
          Row{PRIMITIVE(noxsVectorSlope_32f)}.constants(1, 1e-3).tolerance(1e-2),
          Row{PRIMITIVE(noxsVectorSlope_16s)}.constants(-30, 0.75),
          Row{PRIMITIVE(noxsVectorSlope_8u)}.constants(3, 0.0625),
          Row{PRIMITIVE(noxsVectorJaehne_64f)}.constants(2).tolerance(kClose),
      }};
}

const Registration kEntry(make);

}  // namespace
