// Scenarios of the transforms: the cosine transform, by itself and by a handle, and the internal Fourier transforms.
#include "fuzz/recipes.hpp"
#include "nox/nox.h"
#include "transform/operations.hpp"
#include "transform/real_operations.hpp"

namespace fuzz {
namespace {

constexpr double kClose = 1e-12;

// Mostly lengths of some interest to a transform.
int transform_length(Run& run) {
  const int any = run.length(1), power = 1 << run.random.integer(0, run.origin.cap > 0 ? 3 : 13);
  return run.random.chance(0.5) ? any : power;
}

void dct(Run& run) {
  const bool forward = run.random.chance(0.5), wild = run.random.chance(0.1), bad = run.random.chance(0.03);
  const int n = bad ? run.any_int() : transform_length(run), hint = run.any_int();
  int spec_size = 0, init_size = 0, work_size = 0;
  const int told = run.call("GetSize", forward ? noxsDCTFwdGetSize_64f : noxsDCTInvGetSize_64f, n, hint, &spec_size,
                            &init_size, &work_size);
  if (told != noxStsNoErr || n > 20000) return;
  uint8_t* const memory = run.room("spec", spec_size);
  uint8_t* const init = run.room("init", init_size);
  NoxDctSpec* spec = nullptr;
  if (run.call("Init", forward ? noxsDCTFwdInit_64f : noxsDCTInvInit_64f, &spec, n, hint, memory,
               init_size > 0 ? init : nullptr) != noxStsNoErr)
    return;
  uint8_t* const work = run.room("work", work_size);
  const bool in_place = run.random.chance(0.4), form = run.random.chance(0.5);
  Nox64f* const src = run.array<Nox64f>("src", n, wild);
  Nox64f* const dst = in_place ? src : run.array<Nox64f>("dst", n);
  if (in_place && form)
    run.call("DCT_I", forward ? noxsDCTFwd_64f_I : noxsDCTInv_64f_I, src, spec, work);
  else
    run.call("DCT", forward ? noxsDCTFwd_64f : noxsDCTInv_64f, src, dst, spec, work);
  run.note_array("outputs", Type::Nox64f, dst, static_cast<size_t>(n) * 8, wild ? kUncompared : kClose);
  // A spec of one direction is refused by the other.
  run.call("the other way", forward ? noxsDCTInv_64f : noxsDCTFwd_64f, src, dst, spec, work);
}

void dct_by_handle(Run& run) {
  const bool forward = run.random.chance(0.5), bad = run.random.chance(0.05);
  const int n = bad ? -run.length(0) : transform_length(run), shift = run.length(0);
  NoxDctHandle* handle = nullptr;
  const int status =
      run.call("InitAlloc", forward ? noxsDCTFwdInitAlloc_64f_Idx : noxsDCTInvInitAlloc_64f_Idx, &handle, n, 0);
  if (status == noxStsNoErr) {
    Nox64f* const src = run.array<Nox64f>("src", n);
    Nox64f* const dst = run.array<Nox64f>("dst", n);
    run.call("DCT_Idx", forward ? noxsDCTFwd_64f_Idx : noxsDCTInv_64f_Idx, src - shift, shift, dst + shift, -shift,
             handle);
    run.note_array("outputs", Type::Nox64f, dst, static_cast<size_t>(n) * 8, kClose);
    run.call("DCT_I_Idx", forward ? noxsDCTFwd_64f_I_Idx : noxsDCTInv_64f_I_Idx, src, 0, handle);
    run.note_array("in place", Type::Nox64f, src, static_cast<size_t>(n) * 8, kClose);
  }
  kit::call(noxsDCTFree_64f_Idx, handle);
}

template <class GetSize, class Init>
const void* fourier_spec(Run& run, GetSize* get_size, Init* init, int order, uint8_t*& work) {
  const int flag = run.code({1, 2, 4, 8}, 0.05);
  int spec_size = 0, init_size = 0, work_size = 0;
  if (run.call("GetSize", get_size, order, flag, 0, &spec_size, &init_size, &work_size) != noxStsNoErr) return nullptr;
  uint8_t* const memory = run.room("spec", spec_size);
  uint8_t* const init_memory = run.room("init", init_size);
  void* spec = nullptr;
  // A refused flag leaves a spec that is none.
  run.calling("Init");
  const int status = static_cast<int>(kit::call(init, &spec, order, flag, 0, memory, init_memory));
  run.note("Init", status);
  if (status != noxStsNoErr) return nullptr;
  work = run.room("work", work_size);
  return spec;
}

void complex_fourier(Run& run) {
  const transforms::Operations* const tables[] = {&w7_complex_fft, &s8_complex_fft, &p8_complex_fft, &g9_complex_fft,
                                                  &h9_complex_fft};
  const transforms::Operations& fft = *tables[run.variant.column];
  const int order = static_cast<int>(run.random.integer(0, run.random.chance(0.1) ? 16 : 11)), n = 1 << order;
  uint8_t* work = nullptr;
  const void* const spec = fourier_spec(run, fft.size, fft.init, order, work);
  if (!spec) return;
  Nox64fc* const src = run.array<Nox64fc>("src", n);
  Nox64fc* const dst = run.random.chance(0.4) ? src : run.array<Nox64fc>("dst", n);
  const bool forward = run.random.chance(0.5);
  run.call("FFT", forward ? fft.forward : fft.inverse, src, dst, spec, work);
  run.note_array("outputs", Type::Nox64fc, dst, static_cast<size_t>(n) * 16, kClose);
}

void real_fourier(Run& run) {
  const transforms::RealFft* const tables[] = {&w7_real_fft, &s8_real_fft, &p8_real_fft, &g9_real_fft, &h9_real_fft};
  const transforms::RealFft& fft = *tables[run.variant.column];
  const int order = static_cast<int>(run.random.integer(0, run.random.chance(0.1) ? 17 : 12)), n = 1 << order;
  uint8_t* work = nullptr;
  const void* const spec = fourier_spec(run, fft.get_size, fft.init, order, work);
  if (!spec) return;
  const transforms::RealFft::Run ways[] = {fft.forward_perm, fft.inverse_perm, fft.forward_pack, fft.inverse_pack};
  Nox64f* const src = run.array<Nox64f>("src", n);
  Nox64f* const dst = run.random.chance(0.4) ? src : run.array<Nox64f>("dst", n);
  run.call("FFT", ways[run.random.integer(0, 3)], src, dst, spec, work);
  run.note_array("outputs", Type::Nox64f, dst, static_cast<size_t>(n) * 8, kClose);
}

}  // namespace

const std::vector<Recipe> kTransformRecipes = {
    {"dct", dct, 4},
    {"dct_by_handle", dct_by_handle, 1},
    {"complex_fourier", complex_fourier, 3},
    {"real_fourier", real_fourier, 3},
};

}  // namespace fuzz
