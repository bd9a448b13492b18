// Rows of the array layer, which has one body for all processors: only the peers differ between the builds.
//
// A second source is also what a constant given by pointer, a mask or a list of places is read from.
#include "bench/array_row.hpp"

namespace {

Nox32u code(const Operands* o) { return static_cast<Nox32u>(o->n[0]); }

template <auto F, class T>
NoxStatus mask_of(const Operands* o) {
  F(code(o), first<T>(o), 0, second<T>(o), 0, destination<Nox32s>(o), 0, length(o));
  return noxStsNoErr;
}
template <auto F, class T>
NoxStatus mask_of_constant(const Operands* o) {
  F(code(o), first<T>(o), 0, constant<T>(o), destination<Nox32s>(o), 0, length(o));
  return noxStsNoErr;
}
template <auto F, class T>
NoxStatus places_by_constant(const Operands* o) {
  Nox32u count;
  F(code(o), first<T>(o), 0, constant<T>(o), destination<Nox32u>(o), 0, length(o), &count);
  return noxStsNoErr;
}
template <auto F, class T>
NoxStatus elements_by_constant(const Operands* o) {
  Nox32u count;
  F(code(o), first<T>(o), 0, constant<T>(o), work<Nox32u>(o), 0, destination<T>(o), 0, length(o), &count);
  return noxStsNoErr;
}
template <auto F, class T>
NoxStatus pack_bits(const Operands* o) {
  F(first<T>(o), 0, o->len, destination<Nox32u>(o), o->len / 32);
  return noxStsNoErr;
}
template <auto F, class T>
NoxStatus unpack_bits(const Operands* o) {
  F(first<Nox32u>(o), o->len / 32, destination<T>(o), 0, o->len);
  return noxStsNoErr;
}
NoxStatus sum_by_place(const Operands* o) {
  HistoSum(first<Nox32u>(o), o->taps, destination<Nox64f>(o), 1000);
  return noxStsNoErr;
}
// One row of columns of which none enters the list: the scan alone.
NoxStatus neighbours(const Operands* o) {
  Nox32s slot = 0, index[8] = {};
  Nox64f worst = 0, best[8] = {}, term = 1;
  InternalCollectK_64f_Idx(0, 1, o->len, 8, 0, first<Nox64f>(o), 0, &slot, 0, &worst, 0, index, 0, best, 0,
                           second<Nox64f>(o), 0, &term, 0);
  *destination<Nox64f>(o) = best[0];
  return noxStsNoErr;
}

// The same for the form that rewrites the block: zeros are added, so that it stays as it is.
NoxStatus falling_neighbours(const Operands* o) {
  Nox32s slot = 0, index[8] = {};
  Nox64f worst = 0, best[8] = {}, term = 0;
  InternalCollectK1_64f_Idx(0, 1, o->len, 8, 0, destination<Nox64f>(o), 0, &slot, 0, &worst, 0, index, 0, best, 0,
                            first<Nox64f>(o), 0, &term, 0);
  return noxStsNoErr;
}

// Masks written are of another type than what is compared, so the rows are of the mask's.
template <class T>
Row compared(const char* name, NoxStatus (*call)(const Operands*), int sources, int which, unsigned traits = 0) {
  return row<T, Nox32s>(name, call, traits, sources).n(which, "code").data(kSigned).constants(0.1);
}

Family make() {
  std::vector<Row> rows = {
      {ARRAY(AddValue), kMemory},
      {ARRAY(AddValuec), kMemory},
      {ARRAY(AddValuecd), kMemory},
      {ARRAY(AddValuedc), kMemory},
      {ARRAY(SubFromValue)},
      {ARRAY(SubFromValuec)},
      {ARRAY(ScaleByValue), kMemory},
      {ARRAY(ScaleByValuec), kMemory},
      {ARRAY(ScaleByValuecd), kMemory},
      {ARRAY(ScaleByValuedc)},
      {ARRAY(DivideValue), kMemory},
      {ARRAY(DivideValuec), kMemory},
      {ARRAY(DivideValuedc)},
      {ARRAY(AddVeccd), kMemory},
      {ARRAY(SubVeccd)},
      {ARRAY(SubVecdc)},
      {ARRAY(MulVeccd), kMemory},
      {ARRAY(DivVeccd)},
      {ARRAY(DivVecdc)},
      {ARRAY(DivVeccc), kMemory},
      {ARRAY(ConjMulcc), kMemory},
      {ARRAY(MulI), kMemory},
      {ARRAY(Sgndd), kMemory},
      {ARRAY(Sgndc)},
      {ARRAY(Sgncd)},
      {ARRAY(Sgncc)},
      {ARRAY(SgnMul), kAccumulates},
      {ARRAY(CumSum), kMemory},
      {ARRAY(CumSumc), kMemory},
      {ARRAY(CumSum_8u), kMemory},
      {ARRAY(CumSum_16s), kMemory},
      {ARRAY(CumSum_32s), kMemory},
      Row{ARRAY(CumSumDelta)}.n(5, "behind"),
      Row{ARRAY(CumSumDeltac)}.n(5, "behind"),
      Row{ARRAY(CumSumDelta_8u)}.n(20, "behind"),
      Row{ARRAY(CumSumDelta_16s)}.n(20, "behind"),
      Row{ARRAY(CumSumDelta_32s)}.n(20, "behind"),
      {ARRAY(Rampd), kMemory},
      {ARRAY(Rampc)},
      Row{ARRAY(Product), kReads | kMemory}.data(kOnes).results(1),
      Row{ARRAY(Productc), kReads}.data(kUnitCircle).results(1),
      {ARRAY(Flip), kMemory},
      {ARRAY(FlipConj), kMemory},
      {ARRAY(Reverse), kMemory},
      Row{ARRAY(HistogramCount), kAccumulates | kNoLimit}.n(100, "bins").constants(66, 0.5).results(100),
      Row{ARRAY(HistogramSum), kAccumulates | kNoLimit}.n(100, "bins").constants(66, 0.5).results(100),
      Row{ARRAY(HistoCount), kAccumulates | kNoLimit}.data(kSmall).results(16),
      row<Nox32u, Nox64f>("HistoSum", sum_by_place, kAccumulates | kNoLimit).data(kSmall).results(16).lengths({1000}),
      Row{ARRAY(CountGT), kReads | kMemory}.data(kSigned).constants(0.1).results(1),
      Row{ARRAY(PackByMask), kNoLimit}.data(kSigned),
      Row{ARRAY(PackByMaskc), kNoLimit}.data(kSigned),
      Row{ARRAY(vipacki), kNoLimit}.n(1, "apart"),
      Row{ARRAY(vipackv), kNoLimit}.data(kWhole, kSmall),
      Row{ARRAY(vipackm), kNoLimit}.data(kWhole),
      Row{ARRAY(viunpackm), kNoLimit}.data(kWhole),
      Row{ARRAY(vdpackmc), kNoLimit}.data(kSigned),
      compared<Nox8u>("FindMask_8u", mask_of<FindMask_8u_Idx, Nox8u>, 2, 2, kMemory),
      compared<Nox16s>("FindMask_16s", mask_of<FindMask_16s_Idx, Nox16s>, 2, 2, kMemory),
      compared<Nox32s>("FindMask_32s", mask_of<FindMask_32s_Idx, Nox32s>, 2, 2, kMemory),
      compared<Nox64f>("FindMask_64f", mask_of<FindMask_64f_Idx, Nox64f>, 2, 2, kMemory),
      compared<Nox64f>("FindMask_64f", mask_of<FindMask_64f_Idx, Nox64f>, 2, 4),
      compared<Nox8u>("FindMaskC_8u", mask_of_constant<FindMaskC_8u_Idx, Nox8u>, 1, 2, kMemory),
      compared<Nox16s>("FindMaskC_16s", mask_of_constant<FindMaskC_16s_Idx, Nox16s>, 1, 2, kMemory),
      compared<Nox32s>("FindMaskC_32s", mask_of_constant<FindMaskC_32s_Idx, Nox32s>, 1, 2, kMemory),
      compared<Nox64f>("FindMaskC_64f", mask_of_constant<FindMaskC_64f_Idx, Nox64f>, 1, 2, kMemory),
      compared<Nox64f>("FindMaskC_64f", mask_of_constant<FindMaskC_64f_Idx, Nox64f>, 1, 4),
      compared<Nox8u>("FindIndexesC_8u", places_by_constant<FindIndexesC_8u_Idx, Nox8u>, 1, 2, kNoLimit),
      compared<Nox16s>("FindIndexesC_16s", places_by_constant<FindIndexesC_16s_Idx, Nox16s>, 1, 2, kNoLimit),
      compared<Nox32s>("FindIndexesC_32s", places_by_constant<FindIndexesC_32s_Idx, Nox32s>, 1, 2, kNoLimit),
      compared<Nox64f>("FindIndexesC_64f", places_by_constant<FindIndexesC_64f_Idx, Nox64f>, 1, 2, kNoLimit),
      row<Nox64f>("FindAndGatherC_64f", elements_by_constant<FindAndGatherC_64f_Idx, Nox64f>, kNoLimit)
          .n(2, "code")
          .data(kSigned)
          .constants(0.1),
      row<Nox8u, Nox32u>("BitPack_8u", pack_bits<BitPack_8u, Nox8u>, kReads | kMemory).data(kSmall).results(31),
      row<Nox16s, Nox32u>("BitPack_16s", pack_bits<BitPack_16s, Nox16s>, kReads | kMemory).data(kSmall).results(31),
      row<Nox32s, Nox32u>("BitPack_32s", pack_bits<BitPack_32s, Nox32s>, kReads | kMemory).data(kSmall).results(31),
      row<Nox8u>("BitUnpack_8u", unpack_bits<BitUnpack_8u, Nox8u>, kNoLimit | kMemory),
      row<Nox16s>("BitUnpack_16s", unpack_bits<BitUnpack_16s, Nox16s>, kNoLimit | kMemory),
      row<Nox32s>("BitUnpack_32s", unpack_bits<BitUnpack_32s, Nox32s>, kNoLimit | kMemory),
      row<Nox64f>("InternalCollectK_64f", neighbours, kReads | kMemory, 2).results(1),
      row<Nox64f>("InternalCollectK1_64f", falling_neighbours, kAccumulates | kMemory).data(kZeros),
  };
  for (Row& r : rows) {
    if (!r.has_c) r.constants(1.5, 0.25);
  }
  return {"array", "Array layer", rows};
}

const Registration kEntry(make);

}  // namespace
