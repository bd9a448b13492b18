// Rows of conversions; 24-bit elements stand in arrays whose room is that of 32 bits.
#include "bench/row.hpp"

namespace {

template <NoxStatus (*Run)(const Nox8u*, Nox32s*, int)>
NoxStatus from_24(const Operands* o) {
  return Run(first<Nox8u>(o), destination<Nox32s>(o), o->len);
}

Row mode(Row row, int rounding, int bits) { return row.n(rounding, "mode").n(bits, "bits").data(kSigned).constants(1); }

Family make() {
  return {
      "convert",
      "Conversions",
      {
          Row{PRIMITIVE(noxsConvert_8s16s)},
          Row{PRIMITIVE(noxsConvert_8u32f)},
          Row{PRIMITIVE(noxsConvert_16s32s)},
          Row{PRIMITIVE(noxsConvert_16s32f), kMemory},
          Row{PRIMITIVE(noxsConvert_32s32f)},
          Row{PRIMITIVE(noxsConvert_32s64f)},
          Row{PRIMITIVE(noxsConvert_32f64f)},
          Row{PRIMITIVE(noxsConvert_64f32f)},
          Row{PRIMITIVE(noxsConvert_16s64f_Sfs)}.n(5, "bits"),
          Row{PRIMITIVE(noxsConvert_32s32f_Sfs)}.n(5, "bits"),
          Row{PRIMITIVE(noxsConvert_32s16s)},
          Row{PRIMITIVE(noxsConvert_32s16s_Sfs)}.n(5, "bits"),
          mode(Row{PRIMITIVE(noxsConvert_64s32s_Sfs)}, 1, 5).data(kWhole),
          mode(Row{PRIMITIVE(noxsConvert_32f8u_Sfs)}, 1, -7),
          mode(Row{PRIMITIVE(noxsConvert_32f16s_Sfs)}, 0, -14),
          mode(Row{PRIMITIVE(noxsConvert_32f16s_Sfs)}, 1, -14),
          mode(Row{PRIMITIVE(noxsConvert_32f16s_Sfs)}, 2, -14),
          mode(Row{PRIMITIVE(noxsConvert_64f32s_Sfs)}, 1, -20),
          row<Nox32s>("noxsConvert_24s32s", from_24<noxsConvert_24s32s>),
          row<Nox32s, Nox32f>(
              "noxsConvert_24s32f",
              [](const Operands* o) { return noxsConvert_24s32f(first<Nox8u>(o), destination<Nox32f>(o), o->len); }),
          row<Nox32s>("noxsConvert_32s24s_Sfs",
                      [](const Operands* o) {
                        return noxsConvert_32s24s_Sfs(first<Nox32s>(o), destination<Nox8u>(o), o->len, o->n[0]);
                      })
              .n(5, "bits"),
          Row{PRIMITIVE(noxsConvert_16f32f)}.data(kPlain),
          row<Nox32f, Nox16u>("noxsConvert_32f16f",
                              [](const Operands* o) {
                                return noxsConvert_32f16f(first<Nox32f>(o), destination<Nox16u>(o), o->len, noxRndNear);
                              })
              .data(kSigned),
      }};
}

const Registration kEntry(make);

}  // namespace
