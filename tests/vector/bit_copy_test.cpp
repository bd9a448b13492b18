// Copies of bit ranges against a loop over single bits: all pairs of offsets, all lengths past several vectors, with
// the bytes of both ranges against unmapped pages.
#include <gtest/gtest.h>

#include <vector>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/lengths.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"

namespace {

using kit::Edge;
using kit::Guarded;

class BitCopy : public kit::EachVariant {};
NOX_EACH_VARIANT(BitCopy);

using Form = NoxStatus (*)(const Nox8u*, int, Nox8u*, int, int);

int mask_of(bool high_first, size_t bit) { return high_first ? 0x80 >> (bit % 8) : 1 << (bit % 8); }

void copies_like_single_bits(Form fn, bool high_first, size_t s_bit, size_t d_bit, size_t len, Edge edge) {
  kit::Random random(s_bit + 8 * d_bit + 64 * len);
  std::vector<Nox8u> source((s_bit + len + 7) / 8), expected((d_bit + len + 7) / 8);
  random.fill_bits(source);
  random.fill_bits(expected);
  const Guarded<Nox8u> s(source, edge);
  Guarded<Nox8u> d(expected, edge);
  for (size_t i = 0; i < len; ++i) {
    const size_t from = s_bit + i, to = d_bit + i;
    const int mask = mask_of(high_first, to);
    const bool set = source[from / 8] & mask_of(high_first, from);
    expected[to / 8] = static_cast<Nox8u>(set ? expected[to / 8] | mask : expected[to / 8] & ~mask);
  }
  ASSERT_EQ(kit::call(fn, s.data(), static_cast<int>(s_bit), d.data(), static_cast<int>(d_bit), static_cast<int>(len)),
            noxStsNoErr);
  ASSERT_TRUE(kit::same_bits(d.data(), expected.data(), expected.size()))
      << len << " bits from " << s_bit << " to " << d_bit << (high_first ? ", high bit first" : ", low bit first");
}

TEST_P(BitCopy, EveryPairOfOffsetsAndLength) {
  const size_t step = kit::quick() ? 11 : 1;
  for (size_t s_bit = 0; s_bit < 8; ++s_bit)
    for (size_t d_bit = 0; d_bit < 8; ++d_bit) {
      for (size_t len = 1; len <= 200; len += step) {
        const Edge edge = len % 2 ? Edge::End : Edge::Start;
        copies_like_single_bits(noxsCopyLE_1u, true, s_bit, d_bit, len, edge);
        copies_like_single_bits(noxsCopyBE_1u, false, s_bit, d_bit, len, edge);
      }
      for (const size_t len : {255, 256, 257, 400, 777, 1024, 5003}) {
        copies_like_single_bits(noxsCopyLE_1u, true, s_bit, d_bit, len, Edge::End);
        copies_like_single_bits(noxsCopyBE_1u, false, s_bit, d_bit, len, Edge::End);
      }
    }
}

// The byte pointers stay where they are, whatever the offsets.
TEST_P(BitCopy, OffsetsCountModuloEight) {
  const Nox8u source[] = {0x40};
  Nox8u to = 0;
  ASSERT_EQ(kit::call(noxsCopyLE_1u, source, 9, &to, 0x7FFFFFF8, 1), noxStsNoErr);
  EXPECT_EQ(to, 0x80);
  const Nox8u low[] = {0x01};
  to = 0x55;
  ASSERT_EQ(kit::call(noxsCopyBE_1u, low, 16, &to, 15, 1), noxStsNoErr);
  EXPECT_EQ(to, 0xD5);
}

TEST_P(BitCopy, NegativeOffsetsWriteNothing) {
  for (const Form fn : {Form{noxsCopyLE_1u}, Form{noxsCopyBE_1u}}) {
    const Nox8u source[2] = {0xFF, 0xFF};
    Nox8u to[2] = {0, 0};
    EXPECT_EQ(kit::call(fn, source, -1, to, 0, 9), noxStsSizeErr);
    EXPECT_EQ(kit::call(fn, source, 0, to, -8, 9), noxStsSizeErr);
    EXPECT_EQ(to[0] | to[1], 0);
  }
}

}  // namespace
