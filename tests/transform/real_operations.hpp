// What the five builds hand to the tests of the real Fourier transform: its operations, which no export reaches.
#pragma once
#include "nox/types.h"

namespace transforms {

struct RealFft {
  NoxStatus (*get_size)(int order, int flag, int hint, int* spec, int* init, int* work);
  NoxStatus (*init)(void** spec, int order, int flag, int hint, Nox8u* memory, Nox8u* init);
  using Run = NoxStatus (*)(const Nox64f* s, Nox64f* d, const void* spec, Nox8u* work);
  Run forward_perm, inverse_perm, forward_pack, inverse_pack;
  NoxStatus (*multiply_perm)(const Nox64f* a, const Nox64f* b, Nox64f* d, int len);
  NoxStatus (*multiply_perm_in_place)(const Nox64f* a, Nox64f* d, int len);
  NoxStatus (*multiply_pack_conj)(const Nox64f* a, Nox64f* d, int len);
  void (*multiply_pack_conj_to)(const Nox64f* a, const Nox64f* b, Nox64f* d, int len);
  int max_direct, first_two_level;  // orders at which the way changes
  // What all the transforms' tables are made of.
  void (*turn)(Nox32u part, Nox32u whole, Nox64f* cosine, Nox64f* sine);
  Nox64f (*wave_sine)(int order, Nox32u at, Nox64f* memory);
};

}  // namespace transforms

extern "C" {
extern const transforms::RealFft w7_real_fft, s8_real_fft, p8_real_fft, g9_real_fft, h9_real_fft;
}
