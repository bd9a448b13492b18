// The multi-rate FIR filter: sizes, Init and the filter itself, for real and complex data.
//
// A call joins the delay line and the first samples in the work buffer; windows that begin before the source lie there,
// all others in the source. In place, chunks of iterations go through the staging region of the spec.
#include "filter/multirate.hpp"

#include "core/body.hpp"
#include "filter/elements.hpp"
#include "filter/multirate_outputs.hpp"
#include "filter/multirate_tables.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Bodies of the single-rate filter.
template <class E>
struct SingleRate;
template <>
struct SingleRate<Nox64f> {
  static constexpr auto init = NOX_BODY(noxsFIRSRInit_64f);
  static constexpr auto run = NOX_BODY(noxsFIRSR_64f);
};
template <>
struct SingleRate<Nox64fc> {
  static constexpr auto init = NOX_BODY(noxsFIRSRInit_64fc);
  static constexpr auto run = NOX_BODY(noxsFIRSR_64fc);
};

// ---- Init
template <class E>
void init_state(MrState* state, const MrBuilder<E>& builder, int up, int down) {
  const FirMrLayout layout(builder.tapsLen, up, down, sizeof(E));
  Nox8u* next = reinterpret_cast<Nox8u*>(state);
  const auto take = [&](Nox64u bytes) {
    Nox8u* const place = next;
    next += static_cast<size_t>(bytes);
    return place;
  };
  take(layout.state);
  MrWindow* const phases = reinterpret_cast<MrWindow*>(take(layout.phases));
  MrWindow* const groups = reinterpret_cast<MrWindow*>(take(layout.groups));
  E* const sorted = reinterpret_cast<E*>(take(layout.sorted));
  E* const table = layout.table ? reinterpret_cast<E*>(take(layout.table)) : nullptr;
  builder.sort(sorted);
  builder.phases(phases);
  constexpr int kLanes = mr_lanes(sizeof(E));
  const int iterations = mr_iterations(kLanes, up), count = static_cast<int>(Nox64s{iterations} * up / kLanes);
  if (table) builder.groups(groups, kLanes, count, table);
  *state = {{'5', '1', 'I', 'F'},
            sorted,
            table,
            builder.tapsLen,
            up,
            static_cast<Nox32s>(layout.rows),
            down,
            static_cast<Nox32s>(layout.delay),
            phases,
            groups,
            count,
            iterations,
            next};
}

template <class E>
NOX_INLINE NoxStatus mr_init(const E* taps, int tapsLen, int up, int upPhase, int down, int downPhase,
                             NoxFirMrSpec* memory) {
  if (tapsLen < 1) return noxStsFIRLenErr;
  if (up < 0 || down < 0) return noxStsFIRMRFactorErr;
  if (upPhase < 0 || upPhase >= up || downPhase < 0 || downPhase >= down) return noxStsFIRMRPhaseErr;
  if (!taps || !memory) return noxStsNullPtrErr;
  Nox8u* const record = at_boundary(reinterpret_cast<Nox8u*>(memory));
  FirMrSpec* const spec = reinterpret_cast<FirMrSpec*>(record);
  if (up == 1 && down == 1) {
    SingleRate<E>::init(taps, tapsLen, NOX_ALG_AUTO, reinterpret_cast<NoxFirSpec*>(memory));
    spec->isSingleRate = 1;
    return noxStsNoErr;
  }
  E* const copy = reinterpret_cast<E*>(record + kBoundary);
  spec->multi = {tapsLen, copy, nullptr};
  spec->isSingleRate = 0;
  if (4 * static_cast<Nox64u>(up) * static_cast<Nox64u>(down) >= INT32_MAX) return noxStsMemAllocErr;
  copy_elements(copy, taps, tapsLen);
  const FirMrLayout layout(tapsLen, up, down, sizeof(E));
  spec->multi.pState = reinterpret_cast<MrState*>(record + kBoundary + static_cast<size_t>(layout.taps));
  init_state(spec->multi.pState, MrBuilder<E>{taps, tapsLen, up, down, downPhase - upPhase}, up, down);
  return noxStsNoErr;
}

// ---- the filter
// One call's view of the state and the work buffer.
template <class K>
struct FirMr {
  using E = typename K::elem;
  const MrState& state;
  E* kept;    // delay line kept between chunks
  E* joined;  // delay line, then at most `rows` samples

  NOX_INLINE FirMr(const MrState& of, Nox8u* work) : state(of) {
    kept = reinterpret_cast<E*>(work);
    joined = kept + state.delayLen;
  }

  // n iterations from s to d, which is none of the sources. Both delay lines are read from the joined sequence alone,
  // so they may be one array.
  void filter(const E* s, E* d, int n, const E* dlySrc, E* dlyDst) const {
    const int samples = n * state.down, past = state.delayLen;
    load_delay(joined, dlySrc, past);
    copy_elements(joined + past, s, samples < state.rows ? samples : state.rows);
    if (dlyDst) copy_elements(dlyDst, samples < past ? joined + samples : s + (samples - past), past);
    const MrOutputs<K> outputs(state, joined + past, s, d);
    if (state.pTable)
      outputs.by_groups(n);
    else
      outputs.by_phases(0, n);
  }

  // In place. Outputs that are more than the inputs would overrun these, so the inputs first move to the array's end.
  void filter_in_place(E* d, int n, const E* dlySrc, E* dlyDst) const {
    const size_t up = static_cast<size_t>(state.up), down = static_cast<size_t>(state.down);
    const E* s = d;
    if (up > down) {
      s = d + static_cast<size_t>(n) * (up - down);
      move_bytes(d + static_cast<size_t>(n) * (up - down), d, static_cast<size_t>(n) * down * sizeof(E));
    }
    E* const staging = static_cast<E*>(state.pStaging);
    const int longest = state.up < kMrStaged ? kMrStaged / state.up : 1;
    for (int left = n; left > 0;) {
      const int chunk = left < longest ? left : longest;
      filter(s, staging, chunk, dlySrc, kept);
      copy_elements(d, staging, chunk * state.up);
      s += static_cast<size_t>(chunk) * down;
      d += static_cast<size_t>(chunk) * up;
      dlySrc = kept;
      left -= chunk;
    }
    if (dlyDst) copy_elements(dlyDst, kept, state.delayLen);
  }
};

template <class K, class E = typename K::elem>
NOX_INLINE NoxStatus mr(const E* s, E* d, int n, const NoxFirMrSpec* memory, const E* dlySrc, E* dlyDst, Nox8u* work) {
  if (const NoxStatus st = check(n, memory, s, d, work)) return st;
  const FirMrSpec* const spec = reinterpret_cast<const FirMrSpec*>(at_boundary(memory));
  // The lines have one element more than that filter knows, the oldest; it is passed over where a line comes in.
  if (spec->isSingleRate) {
    const int over = dlySrc ? 1 : 0;
    return SingleRate<E>::run(s, d, n, reinterpret_cast<const NoxFirSpec*>(memory), dlySrc ? dlySrc + 1 : nullptr,
                              dlyDst ? dlyDst + over : nullptr, work);
  }
  const FirMr<K> filter(*spec->multi.pState, work);
  if (s == d)
    filter.filter_in_place(d, n, dlySrc, dlyDst);
  else
    filter.filter(s, d, n, dlySrc, dlyDst);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsFIRMRGetSize)(int tapsLen, int upFactor, int downFactor, int tapsType, int* pSpecSize,
                                     int* pBufSize) {
  if (tapsLen < 1) return noxStsFIRLenErr;
  if (upFactor < 0 || downFactor < 0) return noxStsFIRMRFactorErr;
  if (!pSpecSize || !pBufSize) return noxStsNullPtrErr;
  const Nox64u element = element_bytes(tapsType);
  if (element == 0) return noxStsDataTypeErr;
  if (upFactor == 0 || downFactor == 0) return noxStsFIRMRFactorErr;
  if (upFactor == 1 && downFactor == 1) return NOX_BODY(noxsFIRSRGetSize)(tapsLen, tapsType, pSpecSize, pBufSize);
  const FirMrLayout layout(tapsLen, upFactor, downFactor, element);
  const bool fits = layout.spec_bytes() <= INT32_MAX && layout.work_bytes() <= INT32_MAX;
  *pSpecSize = fits ? static_cast<int>(layout.spec_bytes()) : 0;
  *pBufSize = fits ? static_cast<int>(layout.work_bytes()) : 0;
  return fits ? noxStsNoErr : noxStsFftOrderErr;
}

NoxStatus NOX_BODY(noxsFIRMRInit_64f)(const Nox64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor,
                                      int downPhase, NoxFirMrSpec* pSpec) {
  return mr_init(pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase, pSpec);
}
NoxStatus NOX_BODY(noxsFIRMRInit_64fc)(const Nox64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor,
                                       int downPhase, NoxFirMrSpec* pSpec) {
  return mr_init(pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase, pSpec);
}

NoxStatus NOX_BODY(noxsFIRMR_64f)(const Nox64f* pSrc, Nox64f* pDst, int numIters, const NoxFirMrSpec* pSpec,
                                  const Nox64f* pDlySrc, Nox64f* pDlyDst, Nox8u* pBuf) {
  return mr<f64>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}
NoxStatus NOX_BODY(noxsFIRMR_64fc)(const Nox64fc* pSrc, Nox64fc* pDst, int numIters, const NoxFirMrSpec* pSpec,
                                   const Nox64fc* pDlySrc, Nox64fc* pDlyDst, Nox8u* pBuf) {
  return mr<c64>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}

}  // extern "C"
