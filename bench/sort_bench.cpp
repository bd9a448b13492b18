// Rows of sorting random elements beside std::sort; every run starts with a fresh copy, whose time counts for all.
#include "bench/row.hpp"

namespace {

Row keys(Row row) { return row.also(kRestores).data(kShuffled).lengths({1000, 100000, 1000000}); }

template <class T, NoxStatus (*Run)(T*, int)>
Row sort(const char* name) {
  return keys(row<T>(name, [](const Operands* o) { return Run(destination<T>(o), o->len); }));
}
template <class T, NoxStatus (*Run)(T*, Nox32s*, int)>
Row sort_with_places(const char* name) {
  return keys(row<T>(name, [](const Operands* o) { return Run(destination<T>(o), other<Nox32s>(o), o->len); }));
}
#define SORT(type, name) sort<type, name>(#name)
#define SORT_WITH_PLACES(type, name) sort_with_places<type, name>(#name)

Family make() {
  return {"sort",
          "Sorting",
          {SORT(Nox64f, noxsSortAscend_64f_I), SORT(Nox32s, noxsSortDescend_32s_I), SORT(Nox16s, noxsSortAscend_16s_I),
           SORT(Nox8u, noxsSortAscend_8u_I).lengths({128, 200, 256, 400, 512, 700, 1000, 1000000}),
           SORT(Nox8u, noxsSortDescend_8u_I).lengths({128}), SORT_WITH_PLACES(Nox64f, noxsSortIndexAscend_64f_I),
           SORT_WITH_PLACES(Nox32s, noxsSortIndexDescend_32s_I).lengths({1000, 100000}),
           SORT_WITH_PLACES(Nox16s, noxsSortIndexAscend_16s_I).lengths({1000, 100000})}};
}

const Registration kEntry(make);

}  // namespace
