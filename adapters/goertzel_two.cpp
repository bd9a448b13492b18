// Two spectral values of one array, by one call of the primitive for each.
#include "adapters/adapter.hpp"
#include "nox/adapters.h"

namespace nox {
namespace {

// The first call's status is dropped: the result is that of the second.
template <class T>
NoxStatus goertz_two(NoxStatus (*goertz)(const T*, int, Nox64fc*, Nox64f), const T* s, int len, Nox64fc* values,
                     const Nox64f* frequencies) {
  if (!frequencies) return noxStsNullPtrErr;
  goertz(s, len, values, frequencies[0]);
  return goertz(s, len, at_or_null(values, 1), frequencies[1]);
}

}  // namespace
}  // namespace nox

using nox::at;
using nox::goertz_two;

extern "C" {

NoxStatus noxsGoertzTwo_64f_Idx(const Nox64f* pSrc, int srcIdx, int len, Nox64fc* pVal, const Nox64f* pFreqs) {
  return goertz_two(plain_noxsGoertz_64f, at(pSrc, srcIdx), len, pVal, pFreqs);
}
NoxStatus noxsGoertzTwo_64fc_Idx(const Nox64fc* pSrc, int srcIdx, int len, Nox64fc* pVal, const Nox64f* pFreqs) {
  return goertz_two(plain_noxsGoertz_64fc, at(pSrc, srcIdx), len, pVal, pFreqs);
}

}  // extern "C"
