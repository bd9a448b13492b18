// Rows of the filters of planes: 1024 by 1024 pixels, square kernels of several sizes, every border kind.
//
// The double filter reads beyond its region, so its source is a larger plane in the work memory.
#include "bench/peers/image_plane.hpp"
#include "bench/row.hpp"

namespace {

constexpr int kBuffer = 1 << 20;  // where the filter's buffer stands behind the spec

NoxStatus prepare_border(const Operands* o) {
  const int k = o->n[0];
  int spec = 0, buffer = 0;
  if (const NoxStatus st = noxiFilterBorderGetSize(k, k, kSide, kSide, 13, 13, 1, &spec, &buffer)) return st;
  Nox32f taps[kMostTaps];
  for (int i = 0; i < k * k; ++i) taps[i] = tap<Nox32f>(i, k);
  return noxiFilterBorderInit_32f(taps, k, k, 13, 1, 0, work<NoxFilterBorderSpec>(o));
}
NoxStatus border(const Operands* o) {
  constexpr int kStep = kSide * int{sizeof(Nox32f)};
  const Nox32f value = kConstant;
  return noxiFilterBorder_32f_C1R(first<Nox32f>(o), kStep, destination<Nox32f>(o), kStep, kSide, kSide, o->n[1], &value,
                                  work<NoxFilterBorderSpec>(o), work<Nox8u>(o, kBuffer));
}

NoxStatus prepare_anchor(const Operands* o) {
  Nox64f* const taps = work<Nox64f>(o);
  const int k = o->n[0];
  for (int i = 0; i < k * k; ++i) taps[k * k - 1 - i] = tap<Nox64f>(i, k);  // they are walked backwards
  pad(first<Nox64f>(o), work<Nox64f>(o, kBuffer), k, noxBorderRepl);
  return noxStsNoErr;
}
NoxStatus anchor(const Operands* o) {
  const int k = o->n[0], across = kSide + k - 1, before = (k - 1) / 2;
  const Nox64f* const src = work<Nox64f>(o, kBuffer) + before * across + before;
  return noxiFilter_64f_C1R(src, across * int{sizeof(Nox64f)}, destination<Nox64f>(o), kSide * int{sizeof(Nox64f)},
                            kSide, kSide, work<Nox64f>(o), k, k, k - 1 - before, k - 1 - before, nullptr);
}

Row borders(int k, int kind) {
  return row<Nox32f>("noxiFilterBorder_32f_C1R", border, kNoLimit)
      .n(k, "wide")
      .n(kind, "border")
      .lengths({kSide * kSide})
      .data(kSigned)
      .flops(2.0 * k * k)
      .prepare(prepare_border);
}
Row anchors(int k) {
  return row<Nox64f>("noxiFilter_64f_C1R", anchor, kNoLimit)
      .n(k, "wide")
      .lengths({kSide * kSide})
      .data(kSigned)
      .flops(2.0 * k * k)
      .prepare(prepare_anchor);
}

Family make() {
  Family family{"image", "Filters of planes", {}};
  for (const int kind : {int{noxBorderRepl}, int{noxBorderMirror}, int{noxBorderConst}})
    family.rows.push_back(borders(3, kind));
  for (const int k : {5, 7, 15}) family.rows.push_back(borders(k, noxBorderRepl));
  for (const int k : {3, 5, 7, 15}) family.rows.push_back(anchors(k));
  return family;
}

const Registration kEntry(make);

}  // namespace
