// Scenarios of the FIR filters: sizes asked, spec made, a stream filtered block by block, by itself and by a handle.
#include <algorithm>

#include "fuzz/recipes.hpp"
#include "nox/nox.h"

namespace fuzz {
namespace {

template <class T>
struct Of;
template <>
struct Of<Nox64f> {
  static constexpr int kCode = NOX_TYPE_64F;
  static constexpr Type kType = Type::Nox64f;
  static constexpr auto fir_init = noxsFIRSRInit_64f;
  static constexpr auto fir = noxsFIRSR_64f;
  static constexpr auto fir_make = noxsFIRSRInitAlloc_64f_Idx;
  static constexpr auto fir_handle = noxsFIRSR_64f_Idx;
  static constexpr auto fir_handle_in_place = noxsFIRSR_64f_I_Idx;
  static constexpr auto mr_init = noxsFIRMRInit_64f;
  static constexpr auto mr = noxsFIRMR_64f;
  static constexpr auto mr_make = noxsFIRMRInitAlloc_64f_Idx;
  static constexpr auto mr_handle = noxsFIRMR_64f_Idx;
};
template <>
struct Of<Nox64fc> {
  static constexpr int kCode = NOX_TYPE_64FC;
  static constexpr Type kType = Type::Nox64fc;
  static constexpr auto fir_init = noxsFIRSRInit_64fc;
  static constexpr auto fir = noxsFIRSR_64fc;
  static constexpr auto fir_make = noxsFIRSRInitAlloc_64fc_Idx;
  static constexpr auto fir_handle = noxsFIRSR_64fc_Idx;
  static constexpr auto fir_handle_in_place = noxsFIRSR_64fc_I_Idx;
  static constexpr auto mr_init = noxsFIRMRInit_64fc;
  static constexpr auto mr = noxsFIRMR_64fc;
  static constexpr auto mr_make = noxsFIRMRInitAlloc_64fc_Idx;
  static constexpr auto mr_handle = noxsFIRMR_64fc_Idx;
};

constexpr double kClose = 1e-12;

template <class T>
void fir(Run& run) {
  const bool wild = run.random.chance(0.15);
  const int taps = run.length(1, 900), algorithm = run.code({0, 1, 2}, 0.05), past = taps - 1;
  const T* const h = run.array<T>("taps", taps);
  int spec_size = 0, work_size = 0;
  if (run.call("GetSize", noxsFIRSRGetSize, taps, Of<T>::kCode, &spec_size, &work_size) != noxStsNoErr) return;
  NoxFirSpec* const spec = reinterpret_cast<NoxFirSpec*>(run.room("spec", spec_size));
  if (run.call("Init", Of<T>::fir_init, h, taps, algorithm, spec) != noxStsNoErr) return;
  uint8_t* const work = run.room("work", work_size);
  T* const line = run.array<T>("line", past);
  const bool from_zero = run.random.chance(0.3);
  const int blocks = static_cast<int>(run.random.integer(1, 3));
  for (int b = 0; b < blocks; ++b) {
    const int n = run.length(1);
    T* const src = run.array<T>("src", n, wild);
    T* const dst = run.random.chance(0.3) ? src : run.array<T>("dst", n);
    const bool bad = run.random.chance(0.03);
    run.call("FIRSR", Of<T>::fir, src, dst, bad ? -n : n, spec, from_zero && b == 0 ? nullptr : line, line, work);
    run.note_array("outputs", Of<T>::kType, dst, static_cast<size_t>(n) * sizeof(T), wild ? kUncompared : kClose);
  }
  run.note_array("line", Of<T>::kType, line, static_cast<size_t>(past) * sizeof(T), kBits);
}

template <class T>
void fir_by_handle(Run& run) {
  const int taps = run.length(1, 300), algorithm = run.code({0, 1, 2}, 0.05), shift = run.length(0);
  const T* const h = run.array<T>("taps", taps);
  NoxFilterHandle* handle = nullptr;
  const int status = run.call("InitAlloc", Of<T>::fir_make, h - shift, shift, taps, algorithm, &handle);
  for (int b = 0; b < 2 && status == noxStsNoErr; ++b) {
    const int n = run.length(1);
    T* const src = run.array<T>("src", n);
    T* const dst = run.array<T>("dst", n);
    run.call("FIRSR_Idx", Of<T>::fir_handle, src + shift, -shift, dst - shift, shift, n, handle);
    run.note_array("outputs", Of<T>::kType, dst, static_cast<size_t>(n) * sizeof(T), kClose);
    run.call("FIRSR_I_Idx", Of<T>::fir_handle_in_place, src - shift, shift, n, handle);
    run.note_array("in place", Of<T>::kType, src, static_cast<size_t>(n) * sizeof(T), kClose);
  }
  kit::call(noxsFIRSRFree_Idx, handle);
}

template <class T>
void resampler(Run& run) {
  const bool bad = run.random.chance(0.05), wild = run.random.chance(0.15);
  const int taps = run.length(1, 300), up = 1 + run.length(0) % 12, down = 1 + run.length(0) % 12;
  const int up_phase = static_cast<int>(run.random.integer(bad ? -1 : 0, bad ? up : up - 1)),
            down_phase = static_cast<int>(run.random.integer(0, down - 1));
  const T* const h = run.array<T>("taps", taps);
  int spec_size = 0, work_size = 0;
  if (run.call("GetSize", noxsFIRMRGetSize, taps, up, down, Of<T>::kCode, &spec_size, &work_size) != noxStsNoErr)
    return;
  NoxFirMrSpec* const spec = reinterpret_cast<NoxFirMrSpec*>(run.room("spec", spec_size));
  if (run.call("Init", Of<T>::mr_init, h, taps, up, up_phase, down, down_phase, spec) != noxStsNoErr) return;
  uint8_t* const work = run.room("work", work_size);
  const int past = (taps + up - 1) / up;
  T* const line = run.array<T>("line", past);
  const bool from_zero = run.random.chance(0.3);
  for (int b = 0; b < 2; ++b) {
    const int iterations = std::max(1, run.length(1) / std::max(up, down));
    const int in = iterations * down, out = iterations * up;
    const bool in_place = run.random.chance(0.3);
    T* const src = run.array<T>("src", in_place ? std::max(in, out) : in, wild);
    T* const dst = in_place ? src : run.array<T>("dst", out);
    run.call("FIRMR", Of<T>::mr, src, dst, iterations, spec, from_zero && b == 0 ? nullptr : line, line, work);
    run.note_array("outputs", Of<T>::kType, dst, static_cast<size_t>(out) * sizeof(T), wild ? kUncompared : kClose);
  }
}

template <class T>
void resampler_by_handle(Run& run) {
  const int taps = run.length(1, 100), up = 1 + run.length(0) % 5, down = 1 + run.length(0) % 5;
  const int up_phase = static_cast<int>(run.random.integer(0, up)),
            down_phase = static_cast<int>(run.random.integer(0, down - 1));
  const T* const h = run.array<T>("taps", taps);
  NoxFilterHandle* handle = nullptr;
  const int status = run.call("InitAlloc", Of<T>::mr_make, h + 3, -3, taps, up, up_phase, down, down_phase, &handle);
  for (int b = 0; b < 2 && status == noxStsNoErr; ++b) {
    const int iterations = run.length(1, 500);
    T* const src = run.array<T>("src", iterations * down);
    T* const dst = run.array<T>("dst", iterations * up);
    run.call("FIRMR_Idx", Of<T>::mr_handle, src, 0, dst, 0, iterations, handle);
    run.note_array("outputs", Of<T>::kType, dst, static_cast<size_t>(iterations * up) * sizeof(T), kClose);
  }
  kit::call(noxsFIRMRFree_Idx, handle);
}

}  // namespace

const std::vector<Recipe> kFilterRecipes = {
    {"fir", fir<Nox64f>, 3},
    {"fir_complex", fir<Nox64fc>, 3},
    {"fir_by_handle", fir_by_handle<Nox64f>, 1},
    {"fir_by_handle_complex", fir_by_handle<Nox64fc>, 1},
    {"resampler", resampler<Nox64f>, 3},
    {"resampler_complex", resampler<Nox64fc>, 3},
    {"resampler_by_handle", resampler_by_handle<Nox64f>, 1},
    {"resampler_by_handle_complex", resampler_by_handle<Nox64fc>, 1},
};

}  // namespace fuzz
