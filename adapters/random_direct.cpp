// One-call random vectors: a stream of its own for every call, started from the caller's seed and forgotten.
#include "adapters/adapter.hpp"
#include "nox/adapters.h"

namespace nox {
namespace {

// Without memory for the record, Init and fill refuse the null pointer, and that is the result.
template <class State>
NoxStatus fill_once(NoxStatus (*get_size)(int*), NoxStatus (*init)(State*, Nox64f, Nox64f, unsigned int),
                    NoxStatus (*fill)(Nox64f*, int, State*), Nox64f* d, int len, Nox64f a, Nox64f b,
                    const unsigned int* seed) {
  if (!seed) return noxStsNullPtrErr;
  int size = 0;
  get_size(&size);
  State* const state = static_cast<State*>(aligned_allocate(static_cast<Nox64u>(size)));
  init(state, a, b, *seed);
  const NoxStatus status = fill(d, len, state);
  plain_noxsFree(state);
  return status;
}

}  // namespace
}  // namespace nox

using nox::at;
using nox::fill_once;

extern "C" {

NoxStatus noxsRandGauss_Direct_64f_Idx(Nox64f* pDst, int dstIdx, int len, Nox64f mean, Nox64f stdDev,
                                       const unsigned int* pSeed) {
  return fill_once(plain_noxsRandGaussGetSize_64f, plain_noxsRandGaussInit_64f, plain_noxsRandGauss_64f,
                   at(pDst, dstIdx), len, mean, stdDev, pSeed);
}
NoxStatus noxsRandUniform_Direct_64f_Idx(Nox64f* pDst, int dstIdx, int len, Nox64f low, Nox64f high,
                                         const unsigned int* pSeed) {
  return fill_once(plain_noxsRandUniformGetSize_64f, plain_noxsRandUniformInit_64f, plain_noxsRandUniform_64f,
                   at(pDst, dstIdx), len, low, high, pSeed);
}

}  // extern "C"
