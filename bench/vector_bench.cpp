// Rows of addition, subtraction, multiplication, their forms with a constant, reversal and conjugation.
#include "bench/row.hpp"

namespace {

Family make() {
  return {"vector",
          "Arithmetic, reversal, conjugation",
          {
              {PRIMITIVE(noxsAdd_64f), kPlaces | kMemory},
              {PRIMITIVE(noxsAdd_64fc), kPlaces | kMemory},
              {PRIMITIVE(noxsAdd_64f_I), kPlaces | kMemory},
              {PRIMITIVE(noxsAdd_64fc_I), kMemory},
              {PRIMITIVE(noxsSub_64f), kMemory},
              {PRIMITIVE(noxsSub_64fc), kMemory},
              {PRIMITIVE(noxsSub_64f_I), kMemory},
              {PRIMITIVE(noxsSub_64fc_I), kMemory},
              {PRIMITIVE(noxsMul_64f), kPlaces | kMemory},
              {PRIMITIVE(noxsMul_64fc), kPlaces | kMemory},
              {PRIMITIVE(noxsMul_64f_I), kMemory},
              {PRIMITIVE(noxsMul_64fc_I), kPlaces | kMemory},
              {PRIMITIVE(noxsAddProduct_64f), kAccumulates | kMemory},
              {PRIMITIVE(noxsAddProduct_64fc), kAccumulates | kMemory},
              {PRIMITIVE(noxsSqr_64f), kMemory},
              {PRIMITIVE(noxsSqr_64fc), kMemory},
              {PRIMITIVE(noxsSqr_64f_I), kMemory},
              {PRIMITIVE(noxsSqr_64fc_I), kMemory},
              {PRIMITIVE(noxsAddC_64f), kPlaces | kMemory},
              {PRIMITIVE(noxsAddC_64fc), kMemory},
              {PRIMITIVE(noxsAddC_64f_I), kMemory},
              {PRIMITIVE(noxsAddC_64fc_I), kMemory},
              {PRIMITIVE(noxsSubC_64f), kMemory},
              {PRIMITIVE(noxsSubC_64fc), kMemory},
              {PRIMITIVE(noxsSubC_64f_I), kMemory},
              {PRIMITIVE(noxsSubC_64fc_I), kMemory},
              {PRIMITIVE(noxsSubCRev_64f), kMemory},
              {PRIMITIVE(noxsSubCRev_64fc), kMemory},
              {PRIMITIVE(noxsSubCRev_64f_I), kMemory},
              {PRIMITIVE(noxsSubCRev_64fc_I), kMemory},
              {PRIMITIVE(noxsMulC_64f), kMemory},
              {PRIMITIVE(noxsMulC_64fc), kPlaces | kMemory},
              {PRIMITIVE(noxsMulC_64f_I), kMemory},
              {PRIMITIVE(noxsMulC_64fc_I), kMemory},
              {PRIMITIVE(noxsDivC_64f), kMemory},
              {PRIMITIVE(noxsDivC_64fc), kMemory},
              {PRIMITIVE(noxsDivC_64f_I), kMemory},
              {PRIMITIVE(noxsDivC_64fc_I), kMemory},
              {PRIMITIVE(noxsFlip_8u), kMemory},
              {PRIMITIVE(noxsFlip_16u), kMemory},
              {PRIMITIVE(noxsFlip_32f), kMemory},
              {PRIMITIVE(noxsFlip_64f), kMemory},
              {PRIMITIVE(noxsFlip_64fc), kMemory},
              {PRIMITIVE(noxsFlip_8u_I), kMemory},
              {PRIMITIVE(noxsFlip_16u_I), kMemory},
              {PRIMITIVE(noxsFlip_32f_I), kMemory},
              {PRIMITIVE(noxsFlip_64f_I), kMemory},
              {PRIMITIVE(noxsFlip_64fc_I), kMemory},
              {PRIMITIVE(noxsConj_64fc), kMemory},
              {PRIMITIVE(noxsConj_64fc_I), kMemory},
              {PRIMITIVE(noxsConjFlip_64fc), kMemory},
          }};
}

const Registration kEntry(make);

}  // namespace
