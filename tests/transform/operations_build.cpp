// Compiled with the flags of each build: its internal transforms under names that the tests can reach.
#include "transform/operations.hpp"

#include "transform/fft.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

NoxStatus init(void** spec, int order, int flag, int hint, Nox8u* memory, Nox8u* initMemory) {
  NoxFftSpec* made = spec ? static_cast<NoxFftSpec*>(*spec) : nullptr;
  const NoxStatus st = noxsCplxFftInit(spec ? &made : nullptr, order, flag, hint, memory, initMemory);
  if (spec) *spec = made;
  return st;
}
NoxStatus forward(const Nox64fc* src, Nox64fc* dst, const void* spec, Nox8u* work) {
  return noxsCplxFftFwd(src, dst, static_cast<const NoxFftSpec*>(spec), work);
}
NoxStatus inverse(const Nox64fc* src, Nox64fc* dst, const void* spec, Nox8u* work) {
  return noxsCplxFftInv(src, dst, static_cast<const NoxFftSpec*>(spec), work);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

extern "C" {
const transforms::Operations NOX_BODY(complex_fft) = {nox::noxsCplxFftGetSize, nox::init, nox::forward, nox::inverse};
}
