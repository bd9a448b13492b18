// The identification of a processor turned into the library's own 64-bit mask, by a table and a few rules.
//
// Words that the processor doesn't have are zero, so that their features stay clear.
#pragma once
#include "core/cpuid.hpp"

namespace nox {

struct Identification {
  CpuidWords leaf1{}, leaf7{};
  Nox32u extended_c = 0;  // of leaf 0x80000001
  Nox32u saved = 0;       // register states that the operating system saves, zero where XGETBV is missing
  bool has_leaf7 = false;
};

// Rows: bit of the mask, word of the identification, bit of that word.
enum FeatureWord { L1D, L1C, L7B, L7C, L7D, X1C, kWords };
struct FeatureBit {
  int bit;
  FeatureWord word;
  int source;
};
constexpr FeatureBit kFeatureBits[] = {
    {0, L1D, 23},  {1, L1D, 25},  {2, L1D, 26},  {3, L1C, 0},   {4, L1C, 9},   {5, L1C, 22},  {6, L1C, 19},
    {7, L1C, 20},  {8, L1C, 28},  {10, L1C, 25}, {11, L1C, 1},  {13, L1C, 30}, {14, L1C, 29}, {16, L7B, 19},
    {17, L7B, 18}, {18, X1C, 8},  {19, L7B, 29}, {20, L7B, 16}, {21, L7B, 28}, {22, L7B, 27}, {23, L7B, 26},
    {24, L7B, 30}, {25, L7B, 17}, {26, L7B, 31}, {27, L7C, 1},  {28, L7B, 14}, {29, L7D, 3},  {30, L7D, 2},
    {32, L7B, 21}, {34, L7C, 14}, {35, L7C, 12}, {36, L7D, 23},
};

constexpr Nox64u feature_bit(int n) { return Nox64u{1} << n; }

constexpr Nox64u feature_mask(const Identification& id) {
  constexpr Nox32u kAvxState = 0x6, kAvx512State = 0xE0;
  constexpr Nox32u kFma = 1u << 12, kAvx2 = 1u << 5, kBmi = 1u << 3 | 1u << 8;
  const Nox32u words[kWords] = {id.leaf1.d, id.leaf1.c, id.leaf7.b, id.leaf7.c, id.leaf7.d, id.extended_c};
  const auto all = [](Nox32u value, Nox32u bits) { return (value & bits) == bits; };
  Nox64u mask = 0;
  for (const FeatureBit& f : kFeatureBits)
    if (words[f.word] >> f.source & 1) mask |= feature_bit(f.bit);
  if (all(id.leaf1.c, 3u << 27) && all(id.saved, kAvxState)) mask |= feature_bit(9);
  if (all(id.leaf1.c, kFma) && all(id.leaf7.b, kAvx2 | kBmi)) mask |= feature_bit(15);
  if ((id.leaf1.a & 0xFF0) == 0xB10) mask |= feature_bit(31);
  if (all(id.leaf1.c, 1u << 27) && id.has_leaf7 && all(id.saved, kAvx512State)) mask |= feature_bit(33);
  return mask;
}

}  // namespace nox
