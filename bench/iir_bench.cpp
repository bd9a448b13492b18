// Rows of the recursive filters: direct forms by order, cascades by sections; peers are loops that run the transposed
// direct form II, a cascade section by section.
#include <vector>

#include "bench/peers/iir_taps.hpp"
#include "bench/row.hpp"

namespace {

template <class T>
struct Calls;
template <>
struct Calls<Nox64f> {
  static constexpr const char* kName = "noxsIIR_64f";
  static constexpr auto size = noxsIIRGetStateSize_64f, size_cascade = noxsIIRGetStateSize_BiQuad_64f;
  static constexpr auto init = noxsIIRInit_64f, init_cascade = noxsIIRInit_BiQuad_64f;
  static constexpr auto filter = noxsIIR_64f;
};
template <>
struct Calls<Nox64fc> {
  static constexpr const char* kName = "noxsIIR_64fc";
  static constexpr auto size = noxsIIRGetStateSize_64fc, size_cascade = noxsIIRGetStateSize_BiQuad_64fc;
  static constexpr auto init = noxsIIRInit_64fc, init_cascade = noxsIIRInit_BiQuad_64fc;
  static constexpr auto filter = noxsIIR_64fc;
};

// The work memory holds the state's address and, behind it, the state. n is the order and 0, or 0 and the sections.
template <class T>
NoxStatus prepare(const Operands* o) {
  constexpr bool kTurned = kIsComplex<T>;
  const int order = o->n[0], sections = o->n[1];
  std::vector<double> taps;
  const auto append = [&](const double* from, int count) {
    std::vector<double> some(from, from + count);
    some.resize(static_cast<size_t>(kTurned ? 2 * count : count));
    if (kTurned) iir_turn(some.data(), count);
    taps.insert(taps.end(), some.begin(), some.end());
  };
  for (int s = 0; s < sections; ++s) {
    double t[5];
    iir_section(s, t);
    const double b[] = {t[0], t[1], t[2]}, a[] = {1, t[3], t[4]};
    append(b, 3);
    append(a, 3);
  }
  if (order) {
    std::vector<double> both(static_cast<size_t>(2 * (order + 1)));
    iir_direct(order, both.data());
    append(both.data(), order + 1);
    append(both.data() + order + 1, order + 1);
  }
  int size = 0;
  if (const NoxStatus st = order ? Calls<T>::size(order, &size) : Calls<T>::size_cascade(sections, &size)) return st;
  NoxIIRState** const state = work<NoxIIRState*>(o);
  const T* const t = reinterpret_cast<const T*>(taps.data());
  Nox8u* const memory = work<Nox8u>(o, 64);
  return order ? Calls<T>::init(state, t, order, nullptr, memory)
               : Calls<T>::init_cascade(state, t, sections, nullptr, memory);
}

template <class T>
NoxStatus call(const Operands* o) {
  return Calls<T>::filter(first<T>(o), destination<T>(o), o->len, *work<NoxIIRState*>(o));
}

template <class T>
Row filter(int order, int sections) {
  Row r = row<T>(Calls<T>::kName, call<T>);
  const int number = order + sections;
  r.n(number, order ? "order" : number == 1 ? "section" : "sections").also(kNoLimit);
  r.numbers[0] = order;
  r.numbers[1] = sections;
  return r.prepare(prepare<T>).tolerance(1e-10);
}

Family make() {
  Family family{"iir", "Recursive filters", {}};
  for (const int order : {1, 2, 3, 4, 6, 8, 9, 12, 16}) family.rows.push_back(filter<Nox64f>(order, 0));
  for (const int sections : {1, 2, 3, 4, 8}) family.rows.push_back(filter<Nox64f>(0, sections));
  for (const int order : {2, 4, 8, 16}) family.rows.push_back(filter<Nox64fc>(order, 0));
  for (const int sections : {1, 2, 4, 8}) family.rows.push_back(filter<Nox64fc>(0, sections));
  return family;
}

const Registration kEntry(make);

}  // namespace
