// The four operations on complex data in the build that plans.
#include "transform/fft_plan.hpp"

#if NOX_LEVEL >= 4
namespace nox {
inline namespace NOX_VARIANT {
namespace {

template <class T>
T* round_up(Nox8u* p) {
  return reinterpret_cast<T*>((reinterpret_cast<uintptr_t>(p) + 63) & ~uintptr_t{63});
}
bool is_flag(int flag) {
  return flag == NOX_FFT_SCALE_FWD_1_N || flag == NOX_FFT_SCALE_INV_1_N || flag == NOX_FFT_SCALE_SQRT_N ||
         flag == NOX_FFT_SCALE_NONE;
}
template <bool Inverse>
NoxStatus run(const Nox64fc* src, Nox64fc* dst, const NoxFftSpec* spec, Nox8u* work) {
  if (!spec) return noxStsNullPtrErr;
  if (spec->idCtx != kComplexFft) return noxStsContextMatchErr;
  if (!src || !dst || (spec->workSize > 0 && !work)) return noxStsNullPtrErr;
  const Nox64f scale = (Inverse ? spec->scaleInv : spec->scaleFwd) ? spec->normFactor : 1.0;
  plan_run<Inverse>(src, dst, spec, round_up<Nox64fc>(work), scale);
  return noxStsNoErr;
}

}  // namespace

NoxStatus noxsCplxFftGetSize(int order, int flag, int, int* spec_size, int* init_size, int* work_size) {
  if (order < 0 || order > 30) return noxStsFftOrderErr;
  if (!spec_size || !init_size || !work_size) return noxStsNullPtrErr;
  if (order > kFftMaxOrder) return noxStsFftOrderErr;
  if (!is_flag(flag)) return noxStsFftFlagErr;
  const bool fits = plan_size(order, *spec_size, *work_size);  // else both are 0
  *init_size = fits && order > kNoInitOrder ? static_cast<int>((((size_t{2} << order) + 71) & ~size_t{63}) + 64) : 0;
  return fits ? noxStsNoErr : noxStsFftOrderErr;
}

NoxStatus noxsCplxFftInit(NoxFftSpec** result, int order, int flag, int hint, Nox8u* memory, Nox8u* init) {
  return init_complex(result, order, flag, hint, memory, init, nullptr);
}

NoxStatus init_complex(NoxFftSpec** result, int order, int flag, int hint, Nox8u* memory, Nox8u* init,
                       const Wave* wave) {
  if (!result) return noxStsNullPtrErr;
  if (order < 0 || order > kFftMaxOrder) return noxStsFftOrderErr;
  if (!memory) return noxStsNullPtrErr;
  NoxFftSpec* const spec = round_up<NoxFftSpec>(memory);
  for (size_t i = 0; i < kFftHeader / sizeof(Nox32u); ++i) reinterpret_cast<volatile Nox32u*>(spec)[i] = 0;
  if (!is_flag(flag)) return noxStsFftFlagErr;
  spec->idCtx = kComplexFft;
  spec->order = order;
  spec->hint = hint;
  spec->scaleFwd = flag == NOX_FFT_SCALE_FWD_1_N || flag == NOX_FFT_SCALE_SQRT_N;
  spec->scaleInv = flag == NOX_FFT_SCALE_INV_1_N || flag == NOX_FFT_SCALE_SQRT_N;
  const Nox64f n = static_cast<Nox64f>(size_t{1} << order);
  if (flag == NOX_FFT_SCALE_SQRT_N)
    spec->normFactor = 1.0 / __builtin_sqrt(n);
  else if (flag != NOX_FFT_SCALE_NONE)
    spec->normFactor = 1.0 / n;
  if (order > kNoInitOrder && !init) return noxStsNullPtrErr;
  int spec_size, work_size;
  if (!plan_size(order, spec_size, work_size)) return noxStsFftOrderErr;
  plan_init(spec, wave, round_up<Nox64f>(init));
  *result = spec;
  return noxStsNoErr;
}

NoxStatus noxsCplxFftFwd(const Nox64fc* src, Nox64fc* dst, const NoxFftSpec* spec, Nox8u* work) {
  return run<false>(src, dst, spec, work);
}
NoxStatus noxsCplxFftInv(const Nox64fc* src, Nox64fc* dst, const NoxFftSpec* spec, Nox8u* work) {
  return run<true>(src, dst, spec, work);
}

}  // namespace NOX_VARIANT
}  // namespace nox
#endif
