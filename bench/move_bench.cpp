// Rows of fill, copy and move. The widest-used types go through the series of block sizes.
#include "bench/row.hpp"

namespace {

// Lengths count whole bytes, of which the last is left out to stay inside the arrays.
template <auto F>
NoxStatus copy_bits(const Operands* o) {
  return F(first<Nox8u>(o), 3, destination<Nox8u>(o), 5, 8 * (o->len - 1));
}

Family make() {
  return {"move",
          "Fill, copy and move",
          {
              {PRIMITIVE(noxsSet_8u), kSizes},
              {PRIMITIVE(noxsSet_16s), kMemory},
              {PRIMITIVE(noxsSet_32s), kMemory},
              {PRIMITIVE(noxsSet_32sc), kMemory},
              {PRIMITIVE(noxsSet_64f), kSizes},
              {PRIMITIVE(noxsSet_64fc), kSizes},
              {PRIMITIVE(noxsZero_8u), kSizes},
              {PRIMITIVE(noxsZero_16s), kMemory},
              {PRIMITIVE(noxsZero_32s), kMemory},
              {PRIMITIVE(noxsZero_32sc), kMemory},
              {PRIMITIVE(noxsZero_64f), kSizes},
              {PRIMITIVE(noxsZero_64fc), kMemory},
              {PRIMITIVE(noxsCopy_8u), kSizes},
              {PRIMITIVE(noxsCopy_16s), kMemory},
              {PRIMITIVE(noxsCopy_16sc), kMemory},
              {PRIMITIVE(noxsCopy_32s), kMemory},
              {PRIMITIVE(noxsCopy_32f), kMemory},
              {PRIMITIVE(noxsCopy_32sc), kMemory},
              {PRIMITIVE(noxsCopy_32fc), kMemory},
              {PRIMITIVE(noxsCopy_64s), kMemory},
              {PRIMITIVE(noxsCopy_64f), kSizes | kPlaces},
              {PRIMITIVE(noxsCopy_64sc), kMemory},
              {PRIMITIVE(noxsCopy_64fc), kMemory},
              {PRIMITIVE(noxsMove_8u), kSizes},
              {PRIMITIVE(noxsMove_16s), kMemory},
              {PRIMITIVE(noxsMove_16sc), kMemory},
              {PRIMITIVE(noxsMove_32s), kMemory},
              {PRIMITIVE(noxsMove_32f), kMemory},
              {PRIMITIVE(noxsMove_32sc), kMemory},
              {PRIMITIVE(noxsMove_32fc), kMemory},
              {PRIMITIVE(noxsMove_64s), kMemory},
              {PRIMITIVE(noxsMove_64f), kSizes | kPlaces},
              {PRIMITIVE(noxsMove_64sc), kMemory},
              {PRIMITIVE(noxsMove_64fc), kMemory},
              row<Nox8u>("noxsCopyLE_1u", copy_bits<noxsCopyLE_1u>, kMemory),
              row<Nox8u>("noxsCopyBE_1u", copy_bits<noxsCopyBE_1u>, kMemory),
          }};
}

const Registration kEntry(make);

}  // namespace
