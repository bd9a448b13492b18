// Scenarios of the recursive filters and of the sliding median: sizes asked, a state made, a stream filtered in blocks.
#include "fuzz/recipes.hpp"
#include "nox/nox.h"

namespace fuzz {
namespace {

template <class T>
struct Of;
template <>
struct Of<Nox64f> {
  static constexpr Type kType = Type::Nox64f;
  static constexpr auto size = noxsIIRGetStateSize_64f;
  static constexpr auto init = noxsIIRInit_64f;
  static constexpr auto cascade_size = noxsIIRGetStateSize_BiQuad_64f;
  static constexpr auto cascade_init = noxsIIRInit_BiQuad_64f;
  static constexpr auto run = noxsIIR_64f;
  static constexpr auto in_place = noxsIIR_64f_I;
  static constexpr auto median = noxsFilterMedian_64f;
  static constexpr auto median_in_place = noxsFilterMedian_64f_I;
  static constexpr int kCode = NOX_TYPE_64F;
  static void scale(Nox64f& x, double by) { x *= by; }
  static constexpr Nox64f kOne = 1;
};
template <>
struct Of<Nox64fc> {
  static constexpr Type kType = Type::Nox64fc;
  static constexpr auto size = noxsIIRGetStateSize_64fc;
  static constexpr auto init = noxsIIRInit_64fc;
  static constexpr auto cascade_size = noxsIIRGetStateSize_BiQuad_64fc;
  static constexpr auto cascade_init = noxsIIRInit_BiQuad_64fc;
  static constexpr auto run = noxsIIR_64fc;
  static constexpr auto in_place = noxsIIR_64fc_I;
  static void scale(Nox64fc& x, double by) { x.re *= by, x.im *= by; }
  static constexpr Nox64fc kOne = {1, 0};
};
template <>
struct Of<Nox8u> {
  static constexpr Type kType = Type::Nox8u;
  static constexpr auto median = noxsFilterMedian_8u;
  static constexpr auto median_in_place = noxsFilterMedian_8u_I;
  static constexpr int kCode = NOX_TYPE_8U;
};
template <>
struct Of<Nox16s> {
  static constexpr Type kType = Type::Nox16s;
  static constexpr auto median = noxsFilterMedian_16s;
  static constexpr auto median_in_place = noxsFilterMedian_16s_I;
  static constexpr int kCode = NOX_TYPE_16S;
};
template <>
struct Of<Nox32s> {
  static constexpr Type kType = Type::Nox32s;
  static constexpr auto median = noxsFilterMedian_32s;
  static constexpr auto median_in_place = noxsFilterMedian_32s_I;
  static constexpr int kCode = NOX_TYPE_32S;
};

// Taps of an order with feedback so small that errors don't grow: a[0] is 1, the rest of a sums to less than 0.9.
template <class T>
void tame(T* taps, int order) {
  T* const a = taps + order + 1;
  a[0] = Of<T>::kOne;
  for (int k = 1; k <= order; ++k) Of<T>::scale(a[k], 0.3 / order);
}

template <class T>
void stream(Run& run, NoxIIRState* state, bool wild) {
  for (int b = 0; b < 3; ++b) {
    const int n = run.length(1);
    T* const src = run.array<T>("src", n, wild);
    T* dst = src;
    if (run.random.chance(0.4)) {
      run.call("IIR_I", Of<T>::in_place, src, n, state);
    } else {
      dst = run.random.chance(0.2) ? src : run.array<T>("dst", n);
      run.call("IIR", Of<T>::run, src, dst, n, state);
    }
    run.note_array("outputs", Of<T>::kType, dst, static_cast<size_t>(n) * sizeof(T), wild ? kUncompared : 1e-11);
  }
}

template <class T>
void direct_form(Run& run) {
  const int order = run.random.chance(0.03) ? 0 : 1 + run.length(0, 64);
  T* const taps = run.array<T>("taps", 2 * (order + 1));
  const bool wild = run.random.chance(0.1), from_zero = run.random.chance(0.4);
  if (!wild && order > 0) tame(taps, order);
  T* const line = run.array<T>("line", order);
  int size = 0;
  if (kit::call(Of<T>::size, order, &size) != noxStsNoErr) return;
  NoxIIRState* state = nullptr;
  uint8_t* const memory = run.room("state", size);
  if (run.call("Init", Of<T>::init, &state, taps, order, from_zero ? nullptr : line, memory) == noxStsNoErr)
    stream<T>(run, state, wild);
}
template <class T>
void cascade(Run& run) {
  const int sections = run.random.chance(0.03) ? 0 : 1 + run.length(0, 20);
  T* const taps = run.array<T>("taps", 6 * sections);
  const bool wild = run.random.chance(0.1), from_zero = run.random.chance(0.4);
  for (int k = 0; k < sections && !wild; ++k) {
    tame(taps + 6 * k, 2);
    for (int i = 0; i < 3; ++i) Of<T>::scale(taps[6 * k + i], 0.4);
  }
  T* const line = run.array<T>("line", 2 * sections);
  int size = 0;
  if (run.call("GetSize", Of<T>::cascade_size, sections, &size) != noxStsNoErr) return;
  NoxIIRState* state = nullptr;
  uint8_t* const memory = run.room("state", size);
  if (run.call("Init", Of<T>::cascade_init, &state, taps, sections, from_zero ? nullptr : line, memory) == noxStsNoErr)
    stream<T>(run, state, wild);
}

template <class T>
void median(Run& run) {
  const int mask = run.random.chance(0.05) ? run.code({0, 2}) : run.random.chance(0.4) ? 3 : 1 + run.length(0, 150);
  int size = 0;
  if (mask > 1000 || kit::call(noxsFilterMedianGetBufferSize, mask, Of<T>::kCode, &size) < noxStsNoErr) return;
  const int past = mask % 2 == 0 ? mask - 2 : mask - 1;
  const bool wild = run.random.chance(0.3), delayed = run.random.chance(0.6);
  T* const line = past > 0 ? run.array<T>("line", past, wild) : nullptr;
  for (int b = 0; b < 2; ++b) {
    const int n = run.length(1, 2000);
    T* const src = run.array<T>("src", n, wild);
    T* dst = src;
    const T* const before = delayed ? line : nullptr;
    T* const after = delayed ? line : nullptr;
    uint8_t* const work = run.room("work", size);
    if (run.random.chance(0.4)) {
      run.call("FilterMedian_I", Of<T>::median_in_place, src, n, mask, before, after, work);
    } else {
      dst = run.random.chance(0.2) ? src : run.array<T>("dst", n);
      run.call("FilterMedian", Of<T>::median, src, dst, n, mask, before, after, work);
    }
    const bool told = !wild || mask < 7 || Of<T>::kType != Type::Nox64f;
    run.note_array("outputs", Of<T>::kType, dst, static_cast<size_t>(n) * sizeof(T), told ? kBits : kUncompared);
    if (delayed && past > 0) run.note_array("line", Of<T>::kType, line, static_cast<size_t>(past) * sizeof(T), kBits);
  }
}

}  // namespace

const std::vector<Recipe> kRecursiveRecipes = {
    {"direct_form", direct_form<Nox64f>, 2}, {"direct_form_complex", direct_form<Nox64fc>, 2},
    {"cascade", cascade<Nox64f>, 2},         {"cascade_complex", cascade<Nox64fc>, 2},
    {"median_8u", median<Nox8u>, 2},         {"median_16s", median<Nox16s>, 2},
    {"median_32s", median<Nox32s>, 2},       {"median_64f", median<Nox64f>, 2},
};

}  // namespace fuzz
