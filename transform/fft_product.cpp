// Products of real data's spectra: complex pairs, and one or two real products at the ends.
#include "core/drivers.hpp"
#include "transform/fft.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct Multiply {
  template <class C>
  NOX_INLINE C operator()(C a, C b) const {
    return a * b;
  }
};
struct MultiplyConjugate {
  template <class C>
  NOX_INLINE C operator()(C a, C b) const {
    return split(conj(b)) * a;
  }
};

// The complex pairs of len doubles.
template <class F>
NOX_INLINE void pairs(F f, const Nox64f* a, const Nox64f* b, Nox64f* d, int len) {
  if (len > 0)
    map<c64>(reinterpret_cast<Nox64fc*>(d), len / 2, f, reinterpret_cast<const Nox64fc*>(a),
             reinterpret_cast<const Nox64fc*>(b));
}

}  // namespace

NoxStatus noxsMulPerm(const Nox64f* pSrc1, const Nox64f* pSrc2, Nox64f* pDst, int len) {
  if (!pSrc1 || !pSrc2 || !pDst) return noxStsNullPtrErr;
  if (len < 1) return noxStsSizeErr;
  const int reals = len % 2 == 0 ? 2 : 1;
  for (int i = 0; i < reals; ++i) pDst[i] = pSrc1[i] * pSrc2[i];
  pairs(Multiply{}, pSrc1 + reals, pSrc2 + reals, pDst + reals, len - reals);
  return noxStsNoErr;
}

NoxStatus noxsMulPerm_I(const Nox64f* pSrc, Nox64f* pSrcDst, int len) {
  return noxsMulPerm(pSrc, pSrcDst, pSrcDst, len);
}

NoxStatus noxsMulPackConj(const Nox64f* pSrc, Nox64f* pSrcDst, int len) {
  if (!pSrc || !pSrcDst) return noxStsNullPtrErr;
  if (len < 1) return noxStsSizeErr;
  noxsMulPackConjTo(pSrc, pSrcDst, pSrcDst, len);
  return noxStsNoErr;
}

void noxsMulPackConjTo(const Nox64f* pSrc1, const Nox64f* pSrc2, Nox64f* pDst, int len) {
  pDst[0] = pSrc1[0] * pSrc2[0];
  if (len % 2 == 0) pDst[len - 1] = pSrc1[len - 1] * pSrc2[len - 1];
  pairs(MultiplyConjugate{}, pSrc1 + 1, pSrc2 + 1, pDst + 1, len - 1 - (len % 2 == 0));
}

}  // namespace NOX_VARIANT
}  // namespace nox
