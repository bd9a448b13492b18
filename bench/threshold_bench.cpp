// Rows of thresholds beside plain loops, and of inverse thresholds beside packed divisions.
//
// Levels lie inside the data's range, so both outcomes of every comparison occur.
#include "bench/row.hpp"

namespace {

Row real(Row row) { return row.data(kSigned, kSigned, kSigned).constants(0.25, 0.75); }
Row words(Row row) { return row.data(kWhole, kWhole, kWhole).constants(1000, -9); }
Row integers(Row row) { return row.data(kWhole, kWhole, kWhole).n(1000, "level"); }

template <class T, NoxStatus (*Run)(const T*, T*, int, T, T, T, T), int Low, int High>
Row outside(const char* name) {
  return row<T>(name,
                [](const Operands* o) {
                  return Run(first<T>(o), destination<T>(o), o->len, T(Low), T(-9), T(High), T(9));
                })
      .data(kWhole);
}

Family make() {
  return {"threshold",
          "Thresholds",
          {
              real({PRIMITIVE(noxsThreshold_LT_64f)}),
              real({PRIMITIVE(noxsThreshold_LT_64f_I)}),
              real({PRIMITIVE(noxsThreshold_GT_64f)}),
              real({PRIMITIVE(noxsThreshold_LTAbs_64f)}),
              real({PRIMITIVE(noxsThreshold_GTAbs_64f)}),
              real({PRIMITIVE(noxsThreshold_LTVal_64f)}),
              real({PRIMITIVE(noxsThreshold_GTVal_64f)}),
              outside<Nox64f, noxsThreshold_LTValGTVal_64f, -1, 1>("noxsThreshold_LTValGTVal_64f"),
              real({PRIMITIVE(noxsThreshold_LT_64fc)}),
              real({PRIMITIVE(noxsThreshold_GT_64fc)}),
              real({PRIMITIVE(noxsThreshold_LTVal_64fc)}),
              words({PRIMITIVE(noxsThreshold_LT_16s)}),
              words({PRIMITIVE(noxsThreshold_GT_16s_I)}),
              words({PRIMITIVE(noxsThreshold_LTAbs_16s)}),
              words({PRIMITIVE(noxsThreshold_GTAbs_16s)}),
              words({PRIMITIVE(noxsThreshold_LTVal_16s)}),
              outside<Nox16s, noxsThreshold_LTValGTVal_16s, -1000, 1000>("noxsThreshold_LTValGTVal_16s"),
              integers({PRIMITIVE(noxsThreshold_LT_32s)}),
              integers({PRIMITIVE(noxsThreshold_GT_32s_I)}),
              integers({PRIMITIVE(noxsThreshold_LTAbs_32s)}),
              integers({PRIMITIVE(noxsThreshold_GTAbs_32s)}),
              outside<Nox32s, noxsThreshold_LTValGTVal_32s, -1000, 1000>("noxsThreshold_LTValGTVal_32s"),
              real({PRIMITIVE(noxsThreshold_LTInv_64f)}),
              real({PRIMITIVE(noxsThreshold_LTInv_64fc)}),
          }};
}

const Registration kEntry(make);

}  // namespace
