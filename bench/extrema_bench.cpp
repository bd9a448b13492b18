// Rows of extrema and their places beside plain loops, also with fast math, and Eigen's reductions.
#include "bench/row.hpp"

namespace {

Row one(Row row) { return row.also(kReads).data(kSigned).results(1); }
// A place or a second extreme; exact, as a place is read as bits of the extreme's type.
Row two(Row row) { return one(row).also(kTwoOutputs).tolerance(0); }

template <class T, auto Run>
NoxStatus every(const Operands* o) {
  return Run(first<T>(o), 0, second<T>(o), 0, destination<T>(o), 0, o->len);
}
template <class T, auto Run>
NoxStatus every_in_place(const Operands* o) {
  return Run(first<T>(o), 0, destination<T>(o), 0, o->len);
}
#define EVERY_IN_PLACE(type, name) row<type>(#name, every_in_place<type, name##_Idx>).data(kWhole)
#define EVERY(type, name) row<type>(#name, every<type, name##_Idx>, 0, 2).data(kWhole)

Family make() {
  return {"extrema",
          "Extrema",
          {
              one({PRIMITIVE(noxsMax_64f), kMemory}),
              one({PRIMITIVE(noxsMin_64f)}),
              one({PRIMITIVE(noxsMax_32s)}),
              one({PRIMITIVE(noxsMin_16s)}),
              one({PRIMITIVE(noxsMaxAbs_32s)}),
              two({PRIMITIVE(noxsMinMax_64f)}),
              two({PRIMITIVE(noxsMinMax_32s)}),
              two({PRIMITIVE(noxsMinMax_16s)}),
              two({PRIMITIVE(noxsMaxIndx_64f)}),
              two({PRIMITIVE(noxsMaxIndx_32s)}).data(kWhole),
              two({PRIMITIVE(noxsMinIndx_16s)}).data(kWhole),
              EVERY(Nox64f, noxsMaxEvery_64f),
              EVERY(Nox32s, noxsMaxEvery_32s),
              EVERY(Nox16s, noxsMinEvery_16s),
              EVERY(Nox8u, noxsMinEvery_8u),
              EVERY_IN_PLACE(Nox32s, noxsMaxEvery_32s_I),
              EVERY_IN_PLACE(Nox16s, noxsMinEvery_16s_I),
          }};
}

const Registration kEntry(make);

}  // namespace
