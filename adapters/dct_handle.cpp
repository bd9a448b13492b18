// One-call forms of the cosine transform: a handle holds the spec, its memory and the work buffer.
#include <stdlib.h>

#include "adapters/adapter.hpp"
#include "nox/adapters.h"

struct NoxDctHandle {
  NoxDctSpec* spec;  // inside the memory
  Nox8u* memory;
  Nox8u* work;  // null if none is needed
};

namespace nox {
namespace {

Nox8u* allocate(int bytes) { return static_cast<Nox8u*>(aligned_allocate(static_cast<Nox64u>(bytes))); }

using GetSize = NoxStatus (*)(int, int, int*, int*, int*);
using Init = NoxStatus (*)(NoxDctSpec**, int, int, Nox8u*, Nox8u*);

NoxStatus init_handle(GetSize get_size, Init init, NoxDctHandle** ppHandle, int len, int hint) {
  int spec_size = 0, init_size = 0, work_size = 0;
  if (const NoxStatus st = get_size(len, hint, &spec_size, &init_size, &work_size)) return st;
  NoxDctHandle* const h = static_cast<NoxDctHandle*>(malloc(sizeof(NoxDctHandle)));
  h->spec = nullptr;
  h->memory = allocate(spec_size);
  Nox8u* const init_memory = init_size > 0 ? allocate(init_size) : nullptr;
  const NoxStatus status = init(&h->spec, len, hint, h->memory, init_memory);
  aligned_free(init_memory);
  if (status) {
    aligned_free(h->memory);
    free(h);
    return status;
  }
  h->work = work_size > 0 ? allocate(work_size) : nullptr;
  *ppHandle = h;
  return noxStsNoErr;
}

}  // namespace
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus noxsDCTFwdInitAlloc_64f_Idx(NoxDctHandle** ppHandle, int len, int hint) {
  return init_handle(plain_noxsDCTFwdGetSize_64f, plain_noxsDCTFwdInit_64f, ppHandle, len, hint);
}
NoxStatus noxsDCTInvInitAlloc_64f_Idx(NoxDctHandle** ppHandle, int len, int hint) {
  return init_handle(plain_noxsDCTInvGetSize_64f, plain_noxsDCTInvInit_64f, ppHandle, len, hint);
}

NoxStatus noxsDCTFwd_64f_Idx(const Nox64f* pSrc, int srcIdx, Nox64f* pDst, int dstIdx, NoxDctHandle* pHandle) {
  return plain_noxsDCTFwd_64f(at(pSrc, srcIdx), at(pDst, dstIdx), pHandle->spec, pHandle->work);
}
NoxStatus noxsDCTInv_64f_Idx(const Nox64f* pSrc, int srcIdx, Nox64f* pDst, int dstIdx, NoxDctHandle* pHandle) {
  return plain_noxsDCTInv_64f(at(pSrc, srcIdx), at(pDst, dstIdx), pHandle->spec, pHandle->work);
}
NoxStatus noxsDCTFwd_64f_I_Idx(Nox64f* pSrcDst, int srcDstIdx, NoxDctHandle* pHandle) {
  return plain_noxsDCTFwd_64f_I(at(pSrcDst, srcDstIdx), pHandle->spec, pHandle->work);
}
NoxStatus noxsDCTInv_64f_I_Idx(Nox64f* pSrcDst, int srcDstIdx, NoxDctHandle* pHandle) {
  return plain_noxsDCTInv_64f_I(at(pSrcDst, srcDstIdx), pHandle->spec, pHandle->work);
}

void noxsDCTFree_64f_Idx(NoxDctHandle* pHandle) {
  if (!pHandle) return;
  aligned_free(pHandle->memory);
  aligned_free(pHandle->work);
  free(pHandle);
}

}  // extern "C"
