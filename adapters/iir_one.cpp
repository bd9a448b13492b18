// One sample through a recursive filter.
#include "adapters/adapter.hpp"
#include "nox/adapters.h"

extern "C" {

NoxStatus noxsIIROne_64f_Idx(Nox64f val, Nox64f* pDstVal, NoxIIRState* pState) {
  return plain_noxsIIR_64f(&val, pDstVal, 1, pState);
}
NoxStatus noxsIIROne_64fc_Idx(Nox64fc val, Nox64fc* pDstVal, NoxIIRState* pState) {
  return plain_noxsIIR_64fc(&val, pDstVal, 1, pState);
}

}  // extern "C"
