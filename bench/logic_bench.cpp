// Rows of bitwise operations, shifts and swaps of bytes.
#include "bench/row.hpp"

namespace {

// A shift's count stands in front of its length and is the row's number.
template <class T, NoxStatus (*F)(const T*, int, T*, int)>
Row shift(const char* name, unsigned traits = 0) {
  return row<T>(
             name, [](const Operands* o) { return F(first<T>(o), o->n[0], destination<T>(o), o->len); }, traits)
      .n(3, "bits");
}
#define SHIFT(T, name) shift<T, name>(#name)

Family make() {
  return {"logic",
          "Bitwise operations, shifts and swaps",
          {
              {PRIMITIVE(noxsAnd_8u), kMemory},
              {PRIMITIVE(noxsAnd_16u)},
              {PRIMITIVE(noxsAnd_32u)},
              {PRIMITIVE(noxsOr_8u)},
              {PRIMITIVE(noxsXor_32u)},
              {PRIMITIVE(noxsXor_32u_I)},
              Row{PRIMITIVE(noxsAndC_8u), kMemory}.constants(0x5A),
              Row{PRIMITIVE(noxsOrC_16u)}.constants(0x5A5),
              Row{PRIMITIVE(noxsXorC_32u)}.constants(0x5A5A5),
              {PRIMITIVE(noxsNot_8u)},
              SHIFT(Nox8u, noxsLShiftC_8u).also(kMemory),
              SHIFT(Nox16s, noxsLShiftC_16s),
              SHIFT(Nox32s, noxsLShiftC_32s),
              SHIFT(Nox8u, noxsRShiftC_8u),
              SHIFT(Nox16s, noxsRShiftC_16s),
              SHIFT(Nox32s, noxsRShiftC_32s),
              {PRIMITIVE(noxsSwapBytes_16u), kMemory},
              row<Nox32u>(
                  "noxsSwapBytes_24u",  // in the room of 32 bits
                  [](const Operands* o) { return noxsSwapBytes_24u(first<Nox8u>(o), destination<Nox8u>(o), o->len); }),
              {PRIMITIVE(noxsSwapBytes_32u)},
              {PRIMITIVE(noxsSwapBytes_64u)},
              {PRIMITIVE(noxsSwapBytes_64u_I)},
          }};
}

const Registration kEntry(make);

}  // namespace
