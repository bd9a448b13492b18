// Scenarios of the random generators, the plane filter with border and the allocator; and the list of all scenarios.
#include "fuzz/recipes.hpp"

#include "nox/nox.h"

namespace fuzz {
namespace {

// Fills of any lengths give one stream.
template <class T, class State, class GetSize, class Init, class Fill>
void random_numbers(Run& run, Type type, GetSize* get_size, Init* init, Fill* fill, double tolerance) {
  int size = 0;
  run.call("GetSize", get_size, &size);
  State* const state = reinterpret_cast<State*>(run.room("state", size));
  const T one = run.random.value<T>(-9, 9), two = run.random.value<T>(-9, 9);
  const unsigned seed = static_cast<unsigned>(run.any_int());
  run.call("Init", init, state, one, two, seed);
  for (int b = 0; b < 2; ++b) {
    const int n = run.length(1);
    T* const dst = run.array<T>("dst", n);
    run.call("fill", fill, dst, n, state);
    run.note_array("numbers", type, dst, static_cast<size_t>(n) * sizeof(T), tolerance);
  }
}
void uniform_8u(Run& run) {
  random_numbers<Nox8u, NoxRandUniformState_8u>(run, Type::Nox8u, noxsRandUniformGetSize_8u, noxsRandUniformInit_8u,
                                                noxsRandUniform_8u, 1e-9);
}
void uniform_16s(Run& run) {
  random_numbers<Nox16s, NoxRandUniformState_16s>(run, Type::Nox16s, noxsRandUniformGetSize_16s,
                                                  noxsRandUniformInit_16s, noxsRandUniform_16s, 1e-9);
}
void uniform_64f(Run& run) {
  random_numbers<Nox64f, NoxRandUniformState_64f>(run, Type::Nox64f, noxsRandUniformGetSize_64f,
                                                  noxsRandUniformInit_64f, noxsRandUniform_64f, kBits);
}
void gauss_8u(Run& run) {
  random_numbers<Nox8u, NoxRandGaussState_8u>(run, Type::Nox8u, noxsRandGaussGetSize_8u, noxsRandGaussInit_8u,
                                              noxsRandGauss_8u, 1e-9);
}
void gauss_16s(Run& run) {
  random_numbers<Nox16s, NoxRandGaussState_16s>(run, Type::Nox16s, noxsRandGaussGetSize_16s, noxsRandGaussInit_16s,
                                                noxsRandGauss_16s, 1e-9);
}

// A region in a plane; borders in memory need the kernel's reach there.
void plane_with_border(Run& run) {
  const int kw = 1 + run.length(0) % 12, kh = 1 + run.length(0) % 9, w = 1 + run.length(0) % 90,
            h = 1 + run.length(0) % 20;
  const int border = run.code({1, 3, 6, 0xF0, 0x30 | 1, 0xC0 | 3, 0x50 | 6, 0xF0 | 1}, 0.04);
  const bool wild = run.random.chance(0.15);
  int spec_size = 0, work_size = 0;
  if (run.call("GetSize", noxiFilterBorderGetSize, kw, kh, w, h, 13, 13, 1, &spec_size, &work_size) != noxStsNoErr)
    return;
  const Nox32f* const kernel = run.array<Nox32f>("kernel", kw * kh);
  NoxFilterBorderSpec* const spec = reinterpret_cast<NoxFilterBorderSpec*>(run.room("spec", spec_size));
  if (run.call("Init", noxiFilterBorderInit_32f, kernel, kw, kh, 13, 1, 0, spec) != noxStsNoErr) return;
  uint8_t* const work = run.room("work", work_size);
  const int ax = (kw - 1) / 2, ay = (kh - 1) / 2;
  const int left = border & 64 ? ax : 0, right = border & 128 ? kw - 1 - ax : 0, top = border & 16 ? ay : 0,
            bottom = border & 32 ? kh - 1 - ay : 0;
  const int step = left + w + right + static_cast<int>(run.random.integer(0, 3)),
            dst_step = w + static_cast<int>(run.random.integer(0, 3));
  Nox32f* const plane = run.array<Nox32f>("src", step * (top + h + bottom - 1) + left + w + right, wild);
  Nox32f* const dst = run.array<Nox32f>("dst", dst_step * (h - 1) + w);
  const Nox32f value = 0.5f;
  run.call("FilterBorder", noxiFilterBorder_32f_C1R, plane + step * top + left, 4 * step, dst, 4 * dst_step, w, h,
           border, &value, spec, work);
  run.note_array("outputs", Type::Nox32f, dst, static_cast<size_t>(dst_step * (h - 1) + w) * 4,
                 wild ? kUncompared : 1e-4);
}

void allocation(Run& run) {
  const int n = run.random.chance(0.8) ? run.length(0) : -run.length(0);
  run.calling("Malloc");
  Nox64fc* const p = noxsMalloc_64fc(n);
  run.note("given", p != nullptr);
  run.note("at a boundary of 64", reinterpret_cast<uintptr_t>(p) % 64 == 0);
  for (int i = 0; p && i < n; ++i) p[i] = {1, 2};
  noxsFree(p);
}

}  // namespace

const std::vector<Recipe> kOtherRecipes = {
    {"uniform_8u", uniform_8u, 1}, {"uniform_16s", uniform_16s, 1}, {"uniform_64f", uniform_64f, 1},
    {"gauss_8u", gauss_8u, 1},     {"gauss_16s", gauss_16s, 1},     {"plane_with_border", plane_with_border, 4},
    {"allocation", allocation, 1},
};

std::vector<Recipe> recipes() {
  std::vector<Recipe> all;
  for (const std::vector<Recipe>* list : {&kFilterRecipes, &kRecursiveRecipes, &kTransformRecipes, &kOtherRecipes})
    all.insert(all.end(), list->begin(), list->end());
  return all;
}

}  // namespace fuzz
