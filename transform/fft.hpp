// The internal Fourier transforms: complex and real data of length 2^order, on a spec in the caller's memory.
//
// No export leads here; the cosine transform, the FIR filter, convolution and correlation call these operations. Each
// belongs to its build: a spec made under one build must not be run under another. Forward is
// X[k] = sum over n of x[n] * exp(-2*pi*i*n*k/N), the inverse has a plus sign; the flag tells which is scaled.
#pragma once
#include "core/frame.hpp"
#include "core/variant.hpp"
#include "nox/types.h"

namespace nox {
inline namespace NOX_VARIANT {

// Scaling of a transform and its inverse: 1/N, 1/sqrt(N) or none.
enum FftFlag {
  NOX_FFT_SCALE_FWD_1_N = 1,
  NOX_FFT_SCALE_INV_1_N = 2,
  NOX_FFT_SCALE_SQRT_N = 4,
  NOX_FFT_SCALE_NONE = 8,
};

constexpr Nox32s kComplexFft = 8, kRealFft = 10;  // idCtx of a spec; 0 after a refused flag
constexpr int kFftMaxOrder = 27;                  // of complex data; real data of one order more run on it

// The spec record: a header of 96 bytes, the tables behind it in the same memory, which starts at a 64-byte boundary.
struct NoxFftSpec {
  Nox32s idCtx;
  Nox32s order;     // log2 of N
  Nox32s scaleFwd;  // 1 if forward results are multiplied by normFactor
  Nox32s scaleInv;  // 1 if inverse results are
  alignas(8) Nox64f normFactor;
  Nox32s hint;      // the caller's, stored and never consulted
  Nox32s workSize;  // bytes of work memory a transform needs; 0 for none
  Nox32s reserved;
  const void* pBitRev;
  const Nox64f* pTwiddle;
  const Nox64f* pRecombFwd;  // real specs only
  const Nox64f* pRecombInv;
  const Nox64f* pLevelTwiddle[4];
  const void* plan;  // of the h9 engine
};
static_assert(sizeof(NoxFftSpec) <= 96, "the tables start 96 bytes behind the record");
constexpr size_t kFftHeader = 96;

// Sizes in bytes of spec, init and work memory, any base address allowed for.
NOX_HIDDEN NoxStatus noxsCplxFftGetSize(int order, int flag, int hint, int* pSpecSize, int* pInitSize, int* pWorkSize);
NOX_HIDDEN NoxStatus noxsCplxFftInit(NoxFftSpec** ppSpec, int order, int flag, int hint, Nox8u* pSpecMem,
                                     Nox8u* pInitMem);
// Init from a wave of the transform's length, where the caller has one; null for one laid down in the init memory.
struct Wave;
NOX_HIDDEN NoxStatus init_complex(NoxFftSpec** result, int order, int flag, int hint, Nox8u* memory, Nox8u* init,
                                  const Wave* wave);
// In place if pSrc is pDst; pWork may be null where workSize is 0.
NOX_HIDDEN NoxStatus noxsCplxFftFwd(const Nox64fc* pSrc, Nox64fc* pDst, const NoxFftSpec* pSpec, Nox8u* pWork);
NOX_HIDDEN NoxStatus noxsCplxFftInv(const Nox64fc* pSrc, Nox64fc* pDst, const NoxFftSpec* pSpec, Nox8u* pWork);

// The same for real data. A spectrum of N doubles is laid out as R[0], R[N/2], R[1], I[1], ... (head, the Perm forms)
// or as R[0], R[1], I[1], ..., R[N/2] (tail, the Pack forms).
NOX_HIDDEN NoxStatus noxsRealFftGetSize(int order, int flag, int hint, int* pSpecSize, int* pInitSize, int* pWorkSize);
NOX_HIDDEN NoxStatus noxsRealFftInit(NoxFftSpec** ppSpec, int order, int flag, int hint, Nox8u* pSpecMem,
                                     Nox8u* pInitMem);
NOX_HIDDEN NoxStatus noxsRealFftFwdPerm(const Nox64f* pSrc, Nox64f* pDst, const NoxFftSpec* pSpec, Nox8u* pWork);
NOX_HIDDEN NoxStatus noxsRealFftInvPerm(const Nox64f* pSrc, Nox64f* pDst, const NoxFftSpec* pSpec, Nox8u* pWork);
NOX_HIDDEN NoxStatus noxsRealFftFwdPack(const Nox64f* pSrc, Nox64f* pDst, const NoxFftSpec* pSpec, Nox8u* pWork);
NOX_HIDDEN NoxStatus noxsRealFftInvPack(const Nox64f* pSrc, Nox64f* pDst, const NoxFftSpec* pSpec, Nox8u* pWork);

// Products of spectra: in head layout; in tail layout with the conjugate of the second factor.
NOX_HIDDEN NoxStatus noxsMulPerm(const Nox64f* pSrc1, const Nox64f* pSrc2, Nox64f* pDst, int len);
NOX_HIDDEN NoxStatus noxsMulPerm_I(const Nox64f* pSrc, Nox64f* pSrcDst, int len);
NOX_HIDDEN NoxStatus noxsMulPackConj(const Nox64f* pSrc, Nox64f* pSrcDst, int len);
NOX_HIDDEN void noxsMulPackConjTo(const Nox64f* pSrc1, const Nox64f* pSrc2, Nox64f* pDst, int len);

}  // namespace NOX_VARIANT
}  // namespace nox
