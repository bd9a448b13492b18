// Compiled with the flags of each build: the operations of the real Fourier transform as a table.
#include "transform/fft_real.hpp"
#include "transform/real_operations.hpp"
#include "transform/sine.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using Operation = NoxStatus (*)(const Nox64f*, Nox64f*, const NoxFftSpec*, Nox8u*);

NoxStatus init(void** spec, int order, int flag, int hint, Nox8u* memory, Nox8u* init_memory) {
  NoxFftSpec* made = nullptr;
  const NoxStatus status = noxsRealFftInit(spec ? &made : nullptr, order, flag, hint, memory, init_memory);
  if (made) *spec = made;
  return status;
}
template <Operation operation>
NoxStatus run(const Nox64f* s, Nox64f* d, const void* spec, Nox8u* work) {
  return operation(s, d, static_cast<const NoxFftSpec*>(spec), work);
}

void turn(Nox32u part, Nox32u whole, Nox64f* cosine, Nox64f* sine) {
  for_turns(
      1, whole, [=](Nox32u) { return part; },
      [=](Nox32u, Turn w) {
        *cosine = w.cosine;
        *sine = w.sine;
      });
}
Nox64f wave_sine(int order, Nox32u at, Nox64f* memory) { return make_wave(order, memory).sine(at); }

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {
extern const transforms::RealFft NOX_BODY(real_fft);
const transforms::RealFft NOX_BODY(real_fft) = {noxsRealFftGetSize,
                                                init,
                                                run<noxsRealFftFwdPerm>,
                                                run<noxsRealFftInvPerm>,
                                                run<noxsRealFftFwdPack>,
                                                run<noxsRealFftInvPack>,
                                                noxsMulPerm,
                                                noxsMulPerm_I,
                                                noxsMulPackConj,
                                                noxsMulPackConjTo,
                                                real_fft_range.direct,
                                                real_fft_range.two_level,
                                                turn,
                                                wave_sine};
}
