// Rows of the sliding median, by mask sizes; peers select a window's middle element by element.
//
// The branches of a sorted window are what the samples are, so its arrays are longer than what a processor can remember
// of them.
#include "bench/row.hpp"

namespace {

template <class T, auto Run>
NoxStatus call(const Operands* o) {
  return Run(first<T>(o), destination<T>(o), o->len, o->n[0], nullptr, nullptr, work<Nox8u>(o));
}

template <class T, auto Run>
void add(std::vector<Row>& rows, const char* name) {
  for (const int mask : {3, 5, 7, 15, 31, 101})
    rows.push_back(row<T>(name, call<T, Run>, kNoLimit)
                       .n(mask, "mask")
                       .lengths({mask <= 5 ? 1000 : 50000})
                       .data(std::is_floating_point_v<T> ? kSigned : kWhole));
}

Family make() {
  Family family{"median", "Sliding median", {}};
  add<Nox8u, noxsFilterMedian_8u>(family.rows, "noxsFilterMedian_8u");
  add<Nox16s, noxsFilterMedian_16s>(family.rows, "noxsFilterMedian_16s");
  add<Nox32s, noxsFilterMedian_32s>(family.rows, "noxsFilterMedian_32s");
  add<Nox64f, noxsFilterMedian_64f>(family.rows, "noxsFilterMedian_64f");
  return family;
}

const Registration kEntry(make);

}  // namespace
