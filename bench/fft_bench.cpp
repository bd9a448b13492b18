// Rows of the internal Fourier transforms and of the cosine transforms, by length, and of making their specs.
//
// No export leads to the Fourier transforms; the tables of the builds' operations that the tests use are linked in, and
// the rows take that of the build being measured. In place a transform runs on its own results over and over, which
// grow out of range; the arithmetic takes the same time for any value.
#include <cstring>

#include "bench/row.hpp"
#include "transform/operations.hpp"
#include "transform/real_operations.hpp"

extern "C" {
extern const transforms::RealFft w7_real_fft, s8_real_fft, p8_real_fft, g9_real_fft, h9_real_fft;
}

namespace {

constexpr int kNoScale = 8;  // the flag of transforms that leave their results as they are
constexpr int kLargestDct = 18;

struct Build {
  const char* tag;
  const transforms::Operations* complex;
  const transforms::RealFft* real;
};
const Build kBuilds[] = {{"w7", &w7_complex_fft, &w7_real_fft},
                         {"s8", &s8_complex_fft, &s8_real_fft},
                         {"p8", &p8_complex_fft, &p8_real_fft},
                         {"g9", &g9_complex_fft, &g9_real_fft},
                         {"h9", &h9_complex_fft, &h9_real_fft}};
Build build;  // the one being measured

// What the row's preparation made, in the work memory.
struct Prepared {
  void* spec;
  Nox8u *memory, *init, *work;
};
Prepared prepared;

void lay_out(const Operands* o, int spec, int init) {
  const auto up = [](int bytes) { return (bytes + 127) & ~63; };
  prepared = {nullptr, work<Nox8u>(o), work<Nox8u>(o, up(spec)), work<Nox8u>(o, up(spec) + up(init))};
}

// The order of a Fourier transform or the length of a cosine transform.
int parameter(const Operands* o) { return o->n[0]; }

template <class Operation>
NoxStatus make_fft(const Operation& f, const Operands* o) {
  return f(&prepared.spec, parameter(o), kNoScale, 0, prepared.memory, prepared.init);
}
template <class Table>
NoxStatus prepare_fft(const Table& get_size, const Operands* o) {
  int spec = 0, init = 0, work = 0;
  const NoxStatus st = get_size(parameter(o), kNoScale, 0, &spec, &init, &work);
  lay_out(o, spec, init);
  return st;
}
NoxStatus make_complex(const Operands* o) { return make_fft(build.complex->init, o); }
NoxStatus make_real(const Operands* o) { return make_fft(build.real->init, o); }
NoxStatus prepare_complex(const Operands* o) {
  const NoxStatus st = prepare_fft(build.complex->size, o);
  return st ? st : make_complex(o);
}
NoxStatus prepare_real(const Operands* o) {
  const NoxStatus st = prepare_fft(build.real->get_size, o);
  return st ? st : make_real(o);
}
NoxStatus complex_forward(const Operands* o) {
  return build.complex->forward(first<Nox64fc>(o), destination<Nox64fc>(o), prepared.spec, prepared.work);
}
NoxStatus complex_in_place(const Operands* o) {
  return build.complex->forward(destination<Nox64fc>(o), destination<Nox64fc>(o), prepared.spec, prepared.work);
}
NoxStatus real_forward(const Operands* o) {
  return build.real->forward_perm(first<Nox64f>(o), destination<Nox64f>(o), prepared.spec, prepared.work);
}
NoxStatus real_inverse(const Operands* o) {
  return build.real->inverse_perm(first<Nox64f>(o), destination<Nox64f>(o), prepared.spec, prepared.work);
}

template <auto Init>
NoxStatus make_dct(const Operands* o) {
  auto* spec = static_cast<NoxDctSpec*>(prepared.spec);
  const NoxStatus st = Init(&spec, parameter(o), 0, prepared.memory, prepared.init);
  prepared.spec = spec;
  return st;
}
template <auto GetSize, auto Init>
NoxStatus prepare_dct(const Operands* o) {
  int spec = 0, init = 0, work = 0;
  if (const NoxStatus st = GetSize(parameter(o), 0, &spec, &init, &work)) return st;
  lay_out(o, spec, init);
  return make_dct<Init>(o);
}
template <auto Run>
NoxStatus run_dct(const Operands* o) {
  return Run(first<Nox64f>(o), destination<Nox64f>(o), static_cast<NoxDctSpec*>(prepared.spec), prepared.work);
}

Row of(Row row, int len, const std::string& size, int value, NoxStatus (*prepare)(const Operands*)) {
  row.numbers[0] = value;
  row.own_lengths = {len};
  return row.called(size.c_str()).data(kPlain, kPlain, kPlain).prepare(prepare).tolerance(1e-10);
}
template <class T>
Row by_order(const char* name, NoxStatus (*call)(const Operands*), int order, NoxStatus (*prepare)(const Operands*)) {
  const double flops = (kIsComplex<T> ? 5.0 : 2.5) * order;  // the usual count
  return of(row<T>(name, call, kNoLimit), 1 << order, "order " + std::to_string(order), order, prepare).flops(flops);
}
Row by_length(const char* name, NoxStatus (*call)(const Operands*), int len, NoxStatus (*prepare)(const Operands*)) {
  return of(row<Nox64f>(name, call, kNoLimit), len, "length " + std::to_string(len), len, prepare);
}

Family make_ffts() {
  for (const Build& b : kBuilds)
    if (!strcmp(b.tag, noxsGetLibVersion()->targetCpu)) build = b;
  Family family{"fft", "Fourier transforms", {}};
  // The largest orders take seconds to plan and to measure: under one build only.
  const bool all = !strcmp(build.tag, "h9");
  for (int order = 1; order <= (all ? 22 : 18); ++order) {
    family.rows.push_back(by_order<Nox64fc>("complex FFT", complex_forward, order, prepare_complex));
    family.rows.push_back(by_order<Nox64fc>("complex FFT in place", complex_in_place, order, prepare_complex));
  }
  for (int order = 1; order <= (all ? 21 : 18); ++order) {
    family.rows.push_back(by_order<Nox64f>("real FFT", real_forward, order, prepare_real));
    family.rows.push_back(by_order<Nox64f>("inverse real FFT", real_inverse, order, prepare_real));
  }
  for (int order = 10; order <= (all ? 20 : 16); ++order) {
    family.rows.push_back(by_order<Nox64fc>("spec of complex FFT", make_complex, order, prepare_complex));
    family.rows.push_back(by_order<Nox64f>("spec of real FFT", make_real, order, prepare_real));
  }
  return family;
}

Family make_dcts() {
  constexpr auto prepare_forward = prepare_dct<noxsDCTFwdGetSize_64f, noxsDCTFwdInit_64f>;
  constexpr auto prepare_inverse = prepare_dct<noxsDCTInvGetSize_64f, noxsDCTInvInit_64f>;
  std::vector<int> lengths = {46, 47, 997, 1000, 5000, 10007};
  for (int order = 1; order <= kLargestDct; ++order) lengths.push_back(1 << order);
  Family family{"dct", "Cosine transforms", {}};
  for (const int len : lengths) {
    family.rows.push_back(by_length("DCT", run_dct<noxsDCTFwd_64f>, len, prepare_forward));
    family.rows.push_back(by_length("inverse DCT", run_dct<noxsDCTInv_64f>, len, prepare_inverse));
  }
  for (const int len : lengths)
    if (len > 1000) family.rows.push_back(by_length("spec of DCT", make_dct<noxsDCTFwdInit_64f>, len, prepare_forward));
  return family;
}

const Registration kFfts(make_ffts);
const Registration kDcts(make_dcts);

}  // namespace
