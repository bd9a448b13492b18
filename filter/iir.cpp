// The recursive filters: sizes, Init and the filter itself, for the direct form and the cascade, real and complex.
//
// A call walks its samples in chunks; the state's id says which form filters them.
#include "filter/iir.hpp"

#include "core/body.hpp"
#include "filter/elements.hpp"
#include "filter/iir_biquad.hpp"
#include "filter/iir_direct.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

NOX_INLINE bool is_zero(Nox64f a) { return a == 0; }
NOX_INLINE bool is_zero(Nox64fc a) { return a.re == 0 && a.im == 0; }
NOX_INLINE Nox64f reciprocal(Nox64f a) { return 1.0 / a; }
NOX_INLINE Nox64fc reciprocal(Nox64fc a) {
  const Nox64f m = a.re * a.re + a.im * a.im;
  return {a.re / m, -a.im / m};
}

// ---- sizes
NOX_INLINE NoxStatus iir_size(int n, int* size, Nox64u (*bytes)(Nox64u)) {
  if (!size) return noxStsNullPtrErr;
  if (n < 1 || !iir_size_exists(bytes(static_cast<Nox64u>(n)))) return noxStsIIROrderErr;
  *size = static_cast<int>(bytes(static_cast<Nox64u>(n)));
  return noxStsNoErr;
}

// ---- Init
template <class T>
NOX_INLINE T* place(Nox8u* record, Nox64u offset) {
  return reinterpret_cast<T*>(record + static_cast<size_t>(offset));
}

// Lays out the record with all but taps and tables.
template <class K, class E = typename K::elem>
NOX_INLINE IirState* lay_out(Nox8u* buffer, const IirLayout& at, const E* line, int delays) {
  const uintptr_t boundary = (reinterpret_cast<uintptr_t>(buffer) + kIirBoundary - 1) & ~uintptr_t{kIirBoundary - 1};
  Nox8u* const record = reinterpret_cast<Nox8u*>(boundary);
  IirState* const state = reinterpret_cast<IirState*>(record);
  *state = {};
  state->taps = place<E>(record, at.taps);
  state->delay = place<E>(record, at.delay);
  state->recursion = place<E>(record, at.recursion);
  state->work = place<E>(record, at.work);
  load_delay(static_cast<E*>(state->delay), line, delays);
  return state;
}

template <class K, class E = typename K::elem>
NOX_INLINE NoxStatus iir_init(NoxIIRState** out, const E* taps, int order, const E* line, Nox8u* buffer) {
  using One = typename K::one;
  if (!out || !taps || !buffer) return noxStsNullPtrErr;
  if (order < 1 || !iir_size_exists(iir_direct_size<K>(static_cast<Nox64u>(order)))) return noxStsIIROrderErr;
  const IirLayout at = IirLayout::direct<K>(static_cast<Nox64u>(order));
  IirState* const state = lay_out<K>(buffer, at, line, order);
  state->id = IirKind<K>::kDirect;
  state->order = order;
  state->numerator = place<E>(reinterpret_cast<Nox8u*>(state), at.numerator);
  state->secondWork = state->work;
  static_cast<E*>(state->delay)[order] = {};
  *out = reinterpret_cast<NoxIIRState*>(state);
  const E a0 = taps[order + 1];
  if (is_zero(a0)) return noxStsDivByZeroErr;
  E* const own = static_cast<E*>(state->taps);
  const One factor = One::all(reciprocal(a0));
  for (int k = 0; k <= order; ++k) (One::load(taps + k) * factor).store(own + k);
  for (int k = 1; k <= order; ++k) (One::load(taps + order + 1 + k) * factor).store(own + order + k);
  IirDirect<K> filter(*state);
  filter.numerator.fill(own);
  filter.denominator.fill(own + order + 1);
  LookAhead<K>(static_cast<E*>(state->recursion), iir_runs<K>(static_cast<Nox64u>(order))).fill(own + order + 1, order);
  return noxStsNoErr;
}

template <class K, class E = typename K::elem>
NOX_INLINE NoxStatus iir_init_cascade(NoxIIRState** out, const E* taps, int sections, const E* line, Nox8u* buffer) {
  using One = typename K::one;
  if (!out || !taps || !buffer) return noxStsNullPtrErr;
  if (sections < 1 || !iir_size_exists(iir_cascade_size<K>(static_cast<Nox64u>(sections)))) return noxStsIIROrderErr;
  const IirLayout at = IirLayout::cascade<K>(static_cast<Nox64u>(sections));
  IirState* const state = lay_out<K>(buffer, at, line, 2 * sections);
  state->id = IirKind<K>::kCascade;
  state->order = 2 * sections;
  state->sections = sections;
  state->sample = place<E>(reinterpret_cast<Nox8u*>(state), at.sample);
  *out = reinterpret_cast<NoxIIRState*>(state);
  E *own = static_cast<E*>(state->taps), *row = static_cast<E*>(state->sample);
  E* table = static_cast<E*>(state->recursion);
  for (int s = 0; s < sections; ++s, taps += 6, own += 5, row += 6, table += 2 * IirCascade<K>::Outputs::kRow) {
    if (is_zero(taps[3]) || is_zero(taps[0])) return noxStsDivByZeroErr;
    const One factor = One::all(reciprocal(taps[3]));
    for (int k = 0; k < 3; ++k) (One::load(taps + k) * factor).store(own + k);
    for (int k = 0; k < 2; ++k) (One::load(taps + 4 + k) * factor).store(own + 3 + k);
    const E numerator[] = {own[0], own[0], own[1], own[2]};
    copy_elements(row, numerator, 4);
    for (int k = 3; k < 5; ++k) (One::zero() - One::load(own + k)).store(row + k + 1);
    LookAhead<K>(table, kIirRuns).fill(own + 3, 2);
  }
  return noxStsNoErr;
}

// ---- the filter
template <class Form, class E>
NOX_INLINE void by_chunks(const Form& form, const E* x, E* y, int len) {
  for (; len > kIirChunk; len -= kIirChunk, x += kIirChunk, y += kIirChunk) form.filter(x, y, kIirChunk);
  form.filter(x, y, len);
}

template <class K, class E = typename K::elem>
NoxStatus iir(const E* x, E* y, int len, NoxIIRState* memory) {
  if (const NoxStatus st = check(len, memory, x, y)) return st;
  const IirState& state = *reinterpret_cast<const IirState*>(memory);
  if (state.id == IirKind<K>::kDirect)
    by_chunks(IirDirect<K>(state), x, y, len);
  else if (state.id == IirKind<K>::kCascade)
    by_chunks(IirCascade<K>(state), x, y, len);
  else
    return noxStsContextMatchErr;
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsIIRGetStateSize_64f)(int order, int* pStateSize) {
  return iir_size(order, pStateSize, iir_direct_size<f64>);
}
NoxStatus NOX_BODY(noxsIIRGetStateSize_64fc)(int order, int* pStateSize) {
  return iir_size(order, pStateSize, iir_direct_size<c64>);
}
NoxStatus NOX_BODY(noxsIIRGetStateSize_BiQuad_64f)(int numBq, int* pStateSize) {
  return iir_size(numBq, pStateSize, iir_cascade_size<f64>);
}
NoxStatus NOX_BODY(noxsIIRGetStateSize_BiQuad_64fc)(int numBq, int* pStateSize) {
  return iir_size(numBq, pStateSize, iir_cascade_size<c64>);
}

NoxStatus NOX_BODY(noxsIIRInit_64f)(NoxIIRState** ppState, const Nox64f* pTaps, int order, const Nox64f* pDlyLine,
                                    Nox8u* pBuf) {
  return iir_init<f64>(ppState, pTaps, order, pDlyLine, pBuf);
}
NoxStatus NOX_BODY(noxsIIRInit_64fc)(NoxIIRState** ppState, const Nox64fc* pTaps, int order, const Nox64fc* pDlyLine,
                                     Nox8u* pBuf) {
  return iir_init<c64>(ppState, pTaps, order, pDlyLine, pBuf);
}
NoxStatus NOX_BODY(noxsIIRInit_BiQuad_64f)(NoxIIRState** ppState, const Nox64f* pTaps, int numBq,
                                           const Nox64f* pDlyLine, Nox8u* pBuf) {
  return iir_init_cascade<f64>(ppState, pTaps, numBq, pDlyLine, pBuf);
}
NoxStatus NOX_BODY(noxsIIRInit_BiQuad_64fc)(NoxIIRState** ppState, const Nox64fc* pTaps, int numBq,
                                            const Nox64fc* pDlyLine, Nox8u* pBuf) {
  return iir_init_cascade<c64>(ppState, pTaps, numBq, pDlyLine, pBuf);
}

NoxStatus NOX_BODY(noxsIIR_64f)(const Nox64f* pSrc, Nox64f* pDst, int len, NoxIIRState* pState) {
  return iir<f64>(pSrc, pDst, len, pState);
}
NoxStatus NOX_BODY(noxsIIR_64f_I)(Nox64f* pSrcDst, int len, NoxIIRState* pState) {
  return iir<f64>(pSrcDst, pSrcDst, len, pState);
}
NoxStatus NOX_BODY(noxsIIR_64fc)(const Nox64fc* pSrc, Nox64fc* pDst, int len, NoxIIRState* pState) {
  return iir<c64>(pSrc, pDst, len, pState);
}
NoxStatus NOX_BODY(noxsIIR_64fc_I)(Nox64fc* pSrcDst, int len, NoxIIRState* pState) {
  return iir<c64>(pSrcDst, pSrcDst, len, pState);
}

}  // extern "C"
