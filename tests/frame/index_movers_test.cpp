// Index forms that do more than forward: the movers in chunks, the fill without checks, the bit copy by byte index.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"

namespace {

using kit::call;
using kit::Edge;
using kit::Guarded;

class IndexMovers : public kit::EachVariant {};
NOX_EACH_VARIANT(IndexMovers);

template <class T>
using Move = NoxStatus (*)(const T*, int, T*, int, int);

// One array against unmapped pages; the bases stand where the index leads back into it.
template <class T>
void check_move(Move<T> move) {
  for (const int len : {1, 1023, 1024, 1025, 3000}) {
    for (const auto& [from, to] : {std::pair{0, 3}, std::pair{3, 0}, std::pair{2, 2}}) {
      Guarded<T> array(static_cast<size_t>(len) + 3, to ? Edge::End : Edge::Start);
      kit::Random().fill_bits(array);
      std::vector<T> expected = array.values();
      std::vector<T> moved(expected.begin() + from, expected.begin() + from + len);
      std::copy(moved.begin(), moved.end(), expected.begin() + to);
      EXPECT_EQ(call(move, array.data() + 7, from - 7, array.data() - 5, to + 5, len), noxStsNoErr);
      EXPECT_TRUE(kit::same_bits(array.data(), expected.data(), array.size())) << len << ": " << from << " to " << to;
    }
  }
  T one[2] = {};
  for (const int len : {0, -1, INT32_MIN}) EXPECT_EQ(call(move, one, 0, one, 1, len), noxStsSizeErr);
  // Null goes before the length, and a long array in one chunk gives the status of that chunk.
  for (const int len : {-1, 1, 1023, 1024, 5000}) {
    EXPECT_EQ(call(move, nullptr, 0, one, 0, len), noxStsNullPtrErr) << len;
    EXPECT_EQ(call(move, one, 0, nullptr, 0, len), noxStsNullPtrErr) << len;
  }
  // An index that makes up for the base is a null address as well; a null base with an index isn't.
  const int back = -static_cast<int>(64 / sizeof(T));
  EXPECT_EQ(call(move, reinterpret_cast<const T*>(64), back, one, 0, 1), noxStsNullPtrErr);
  EXPECT_EQ(call(move, nullptr, 1, one, 0, 0), noxStsSizeErr);
}

TEST_P(IndexMovers, MoveAcrossTheChunkBorder) {
  check_move(noxsMove_8u_Idx);
  check_move(noxsMove_16s_Idx);
  check_move(noxsMove_16sc_Idx);
  check_move(noxsMove_32s_Idx);
  check_move(noxsMove_32f_Idx);
  check_move(noxsMove_32sc_Idx);
  check_move(noxsMove_32fc_Idx);
  check_move(noxsMove_64s_Idx);
  check_move(noxsMove_64f_Idx);
  check_move(noxsMove_64sc_Idx);
  check_move(noxsMove_64fc_Idx);
}

// Past the limit of one chunk the last status counts. No array is that long, but addresses are: the first chunk is
// refused for its null source, and the second, of one element, ends up on memory that is there.
TEST_P(IndexMovers, StatusIsThatOfTheLastChunk) {
  constexpr int kLimit = 0x7FFFFFF;  // elements of 16 bytes
  constexpr uintptr_t kPage = 4096, kSecond = uintptr_t{kLimit} * sizeof(Nox64fc);
  void* const at = reinterpret_cast<void*>(kSecond & ~(kPage - 1));
  void* const page = mmap(at, kPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(page, MAP_FAILED);
  if (page == at) {
    Nox64fc* const last = reinterpret_cast<Nox64fc*>(kSecond);
    *last = {3, 4};
    Guarded<Nox64fc> d(1);
    EXPECT_EQ(call(noxsMove_64fc_Idx, nullptr, 0, d.data(), -kLimit, kLimit), noxStsNullPtrErr);
    EXPECT_EQ(call(noxsMove_64fc_Idx, nullptr, 0, d.data(), -kLimit, kLimit + 1), noxStsNoErr);
    EXPECT_TRUE(kit::same_bits(d.data(), last, 1)) << "both indexes go on from chunk to chunk";
  }
  munmap(page, kPage);
  if (page != at) GTEST_SKIP() << "the address of the second chunk is taken";
}

TEST_P(IndexMovers, RealFillChecksNothing) {
  double signalling;
  const uint64_t pattern = 0xFFF4000000000123;
  std::memcpy(&signalling, &pattern, sizeof signalling);
  for (const int len : {1, 2, 3, 17, 1000}) {
    Guarded<Nox64f> array(static_cast<size_t>(len), len % 2 ? Edge::End : Edge::Start, len % 2 ? 0 : 4);
    EXPECT_EQ(call(noxsSet_64f_Idx, signalling, array.data() + 9, -9, len), noxStsNoErr);
    const std::vector<Nox64s> expected(static_cast<size_t>(len), static_cast<Nox64s>(pattern));
    EXPECT_TRUE(kit::same_bits(reinterpret_cast<const Nox64s*>(array.data()), expected.data(), len));
  }
  Nox64f untouched = 3;
  for (const int len : {0, -1, INT32_MIN}) {
    EXPECT_EQ(call(noxsSet_64f_Idx, 1.0, &untouched, 0, len), noxStsNoErr);
    EXPECT_EQ(call(noxsSet_64f_Idx, 1.0, nullptr, 0, len), noxStsNoErr);
    EXPECT_EQ(call(noxsSet_64f, 1.0, &untouched, len), noxStsSizeErr);
  }
  EXPECT_EQ(untouched, 3);
}

TEST(IndexMoversDeathTest, RealFillFaultsOnNull) {
  EXPECT_DEATH(noxsSet_64f_Idx(1.0, nullptr, 0, 1), "");
  EXPECT_DEATH(noxsSet_64f_Idx(1.0, nullptr, 0, 100), "");
}

TEST_P(IndexMovers, BitCopyCountsBytes) {
  const Nox8u source[4] = {0x00, 0xFF, 0x0F, 0xF0};
  Nox8u by_index[4] = {0x55, 0x55, 0x55, 0x55}, expected[4] = {0x55, 0x55, 0x55, 0x55};
  EXPECT_EQ(call(noxsCopy_1u_Idx, source, 2, 3, by_index + 3, -2, 1, 9), noxStsNoErr);
  EXPECT_EQ(call(noxsCopyLE_1u, source + 2, 3, expected + 1, 1, 9), noxStsNoErr);
  EXPECT_EQ(std::vector<int>(by_index, by_index + 4), std::vector<int>(expected, expected + 4));
  // From the high end: bits 3 to 11 of 0F F0 are 0 1111 1111 0... and go to bits 1 to 9 of the second byte.
  EXPECT_EQ(by_index[1], 0x3F | 0x00);
  EXPECT_EQ(by_index[2], (0xC0 & 0xC0) | (0x55 & 0x3F));
  EXPECT_EQ(by_index[0], 0x55);
  EXPECT_EQ(call(noxsCopy_1u_Idx, source, 0, -1, by_index, 0, 0, 1), noxStsSizeErr);
}

}  // namespace
