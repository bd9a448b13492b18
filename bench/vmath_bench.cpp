// Rows of the elementary functions. No export leads to them; the tables of the builds' functions are linked in, and the
// rows take that of the build being measured.
//
// Angles are measured in three ranges, since a peer may reduce small ones in another way than large ones; single values
// as calls one after the other.
#include <cstring>

#include "bench/row.hpp"
#include "vmath/functions.hpp"

namespace {

struct Build {
  const char* tag;
  const vmath::Functions* table;
};
const Build kBuilds[] = {{"w7", &w7_vmath}, {"s8", &s8_vmath}, {"p8", &p8_vmath}, {"g9", &g9_vmath}, {"h9", &h9_vmath}};
vmath::Functions functions;  // of the build being measured

size_t length(const Operands* o) { return static_cast<size_t>(o->len); }

template <auto Member>
NoxStatus array(const Operands* o) {
  (functions.*Member)(destination<double>(o), first<double>(o), length(o));
  return noxStsNoErr;
}
template <auto Member>
NoxStatus single(const Operands* o) {
  for (size_t i = 0; i < length(o); ++i) destination<double>(o)[i] = (functions.*Member)(first<double>(o)[i]);
  return noxStsNoErr;
}
NoxStatus both(const Operands* o) {
  functions.sincos_array(destination<double>(o), other<double>(o), first<double>(o), length(o));
  return noxStsNoErr;
}
NoxStatus arc_tangent(const Operands* o) {
  functions.atan2_array(destination<double>(o), second<double>(o), first<double>(o), length(o));
  return noxStsNoErr;
}

Row function(const char* name, NoxStatus (*call)(const Operands*), Data data, const char* range = "") {
  Row made = row<double>(name, call, kNoLimit).data(data).lengths({1000});
  return *range ? made.called(range) : made;
}

Family make() {
  using F = vmath::Functions;
  for (const Build& b : kBuilds)
    if (!strcmp(b.tag, noxsGetLibVersion()->targetCpu)) functions = *b.table;
  Family family{"vmath", "Elementary functions", {}};
  const struct {
    Data data;
    const char* name;
  } ranges[] = {{kAngles, "to 10"}, {kMiddleAngles, "to 1000"}, {kFarAngles, "to 2^30"}};
  for (const auto& range : ranges) {
    family.rows.push_back(function("sine", array<&F::sin_array>, range.data, range.name));
    family.rows.push_back(function("cosine", array<&F::cos_array>, range.data, range.name));
    family.rows.push_back(function("sine and cosine", both, range.data, range.name).also(kTwoOutputs));
  }
  family.rows.push_back(function("logarithm", array<&F::log_array>, kPositive));
  family.rows.push_back(function("arc tangent", arc_tangent, kSigned).sources(2));
  family.rows.push_back(function("single sine", single<&F::sin_one>, kAngles));
  family.rows.push_back(function("single logarithm", single<&F::log_one>, kPositive));
  return family;
}

const Registration kEntry(make);

}  // namespace
