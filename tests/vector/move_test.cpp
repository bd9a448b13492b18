// Fill, zero, copy and move: every type at every length, byte bases at every misalignment, overlaps by every small
// distance, both sides of the sizes at which the method changes, and the wrap and division of byte counts.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/lengths.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"

// The arithmetic of the divided counts, as any build sees it.
#define NOX_VARIANT w7
#include "../vector/block_method.hpp"

namespace {

using kit::Edge;
using kit::Guarded;

class Movers : public kit::EachVariant {};
NOX_EACH_VARIANT(Movers);

template <class T>
std::vector<T> random_elements(size_t n, uint64_t stream = 0) {
  std::vector<T> v(n);
  kit::Random(stream).fill_bits(v);
  return v;
}

template <class T>
using Mover = NoxStatus (*)(const T*, T*, int);

// Every length, with the arrays' ends against unmapped pages and then their starts.
template <class T>
void copies_all_lengths(Mover<T> fn) {
  for (const int n : kit::lengths(sizeof(T)))
    for (const Edge edge : {Edge::End, Edge::Start}) {
      const std::vector<T> values = random_elements<T>(static_cast<size_t>(n));
      Guarded<T> s(values, edge), d(values.size(), edge);
      ASSERT_EQ(kit::call(fn, s.data(), d.data(), n), noxStsNoErr);
      ASSERT_TRUE(kit::same_bits(d.data(), values.data(), n));
      ASSERT_TRUE(kit::same_bits(s.data(), values.data(), n));
    }
}

TEST_P(Movers, CopyAndMoveEveryType) {
#define NOX_COPY_AND_MOVE(type)                   \
  copies_all_lengths<Nox##type>(noxsCopy_##type); \
  copies_all_lengths<Nox##type>(noxsMove_##type)
  NOX_COPY_AND_MOVE(8u);
  NOX_COPY_AND_MOVE(16s);
  NOX_COPY_AND_MOVE(16sc);
  NOX_COPY_AND_MOVE(32s);
  NOX_COPY_AND_MOVE(32f);
  NOX_COPY_AND_MOVE(32sc);
  NOX_COPY_AND_MOVE(32fc);
  NOX_COPY_AND_MOVE(64s);
  NOX_COPY_AND_MOVE(64f);
  NOX_COPY_AND_MOVE(64sc);
  NOX_COPY_AND_MOVE(64fc);
#undef NOX_COPY_AND_MOVE
}

// Elements come by their bytes, so that a signalling NaN reaches the call as it is. Bases at every misalignment of the
// element against the vectors, whole and in parts.
template <class T>
void fills_all_lengths(NoxStatus (*set)(T, T*, int), NoxStatus (*zero)(T*, int)) {
  const std::vector<T> values = random_elements<T>(8);
  size_t turn = 0;
  for (const int n : kit::lengths(sizeof(T))) {
    const size_t misalign = (turn * 5) % 64;
    const T value = values[turn++ % values.size()];
    const std::vector<T> expected(static_cast<size_t>(n), value), zeros(static_cast<size_t>(n));
    for (const Edge edge : {Edge::End, Edge::Start})
      for (const size_t shift : {size_t{0}, misalign}) {
        Guarded<T> d(expected.size(), edge, shift);
        ASSERT_EQ(kit::call(set, value, d.data(), n), noxStsNoErr);
        ASSERT_TRUE(kit::same_bits(d.data(), expected.data(), n)) << "misaligned by " << shift;
        ASSERT_EQ(kit::call(zero, d.data(), n), noxStsNoErr);
        ASSERT_EQ(std::memcmp(d.data(), zeros.data(), expected.size() * sizeof(T)), 0) << n;
      }
  }
}

TEST_P(Movers, SetAndZeroEveryType) {
  fills_all_lengths<Nox8u>(noxsSet_8u, noxsZero_8u);
  fills_all_lengths<Nox16s>(noxsSet_16s, noxsZero_16s);
  fills_all_lengths<Nox32s>(noxsSet_32s, noxsZero_32s);
  fills_all_lengths<Nox32sc>(noxsSet_32sc, noxsZero_32sc);
  fills_all_lengths<Nox64f>(noxsSet_64f, noxsZero_64f);
  fills_all_lengths<Nox64fc>(noxsSet_64fc, noxsZero_64fc);
}

// Signalling NaN, passed as bytes by the probe: the x87 unit would turn them into quiet ones.
TEST_P(Movers, FillKeepsSignallingNan) {
  uint64_t bits[] = {0x7FF0000000000001, 0xFFF4000000ABCDEF};
  Nox64f real;
  Nox64fc complex;
  std::memcpy(&real, bits, sizeof real);
  std::memcpy(&complex, bits, sizeof complex);
  uint64_t got[40];
  ASSERT_EQ(kit::call(noxsSet_64f, real, reinterpret_cast<Nox64f*>(got), 40), noxStsNoErr);
  for (uint64_t g : got) ASSERT_EQ(g, bits[0]);
  ASSERT_EQ(kit::call(noxsSet_64fc, complex, reinterpret_cast<Nox64fc*>(got), 20), noxStsNoErr);
  for (size_t i = 0; i < 40; ++i) ASSERT_EQ(got[i], bits[i % 2]);
}

// The three ways that a kernel can go at a length: short, whole vectors, groups with both ends ragged.
TEST_P(Movers, EveryMisalignmentOfSourceAndDestination) {
  const size_t step = kit::quick() ? 7 : 1;
  const std::vector<Nox8u> values = random_elements<Nox8u>(1100);
  for (const int n : {37, 190, 259, 645, 1100})
    for (size_t sm = 0; sm < 64; sm += step) {
      const std::vector<Nox8u> part(values.begin(), values.begin() + n);
      const Guarded<Nox8u> s(part, Edge::Start, sm);
      for (size_t dm = 0; dm < 64; dm += step) {
        Guarded<Nox8u> copied(part.size(), Edge::Start, dm), moved(part.size(), Edge::End, dm);
        ASSERT_EQ(noxsCopy_8u(s.data(), copied.data(), n), noxStsNoErr);
        ASSERT_EQ(noxsMove_8u(s.data(), moved.data(), n), noxStsNoErr);
        ASSERT_EQ(std::memcmp(copied.data(), part.data(), part.size()), 0) << n << ' ' << sm << ' ' << dm;
        ASSERT_EQ(std::memcmp(moved.data(), part.data(), part.size()), 0) << n << ' ' << sm << ' ' << dm;
      }
    }
}

// Moves n bytes by `distance` inside one array and compares all of it with a move through a second one.
void moves_within(int n, int distance, size_t misalign) {
  const size_t bytes = static_cast<size_t>(n), shift = static_cast<size_t>(distance < 0 ? -distance : distance);
  const std::vector<Nox8u> before = random_elements<Nox8u>(bytes + shift, bytes);
  Guarded<Nox8u> array(before, misalign % 2 ? Edge::Start : Edge::End, misalign);
  const size_t from = distance < 0 ? shift : 0, to = distance < 0 ? 0 : shift;
  std::vector<Nox8u> expected = before;
  for (size_t i = 0; i < bytes; ++i) expected[to + i] = before[from + i];
  ASSERT_EQ(kit::call(noxsMove_8u, array.data() + from, array.data() + to, n), noxStsNoErr);
  ASSERT_EQ(std::memcmp(array.data(), expected.data(), expected.size()), 0)
      << n << " bytes by " << distance << " at " << misalign;
}

TEST_P(Movers, OverlapByEveryDistance) {
  size_t misalign = 0;
  for (int n = 1; n <= 600; n += n < 300 || kit::quick() ? (kit::quick() ? 29 : 7) : 23)
    for (int distance = 0; distance <= 140; ++distance) {
      moves_within(n, distance, misalign % 64);
      moves_within(n, -distance, ++misalign % 64);
    }
  for (const int n : {4096, 40000})
    for (const int distance : {1, 31, 33, 63, 127, 129, 257, 2047, 4095, 4097, 39999}) {
      moves_within(n, distance, 3);
      moves_within(n, -distance, 17);
    }
}

TEST_P(Movers, EqualPointersTouchNothing) {
  static const Nox8u constant[64] = {1};
  EXPECT_EQ(kit::call(noxsMove_8u, constant, const_cast<Nox8u*>(constant), 64), noxStsNoErr);  // read-only memory
}

// Both sides of 32768 bytes at distances that make the copy run forward and backward; the backward path takes whole
// lines with ragged ends.
TEST_P(Movers, LongCopyAtEveryKindOfDistance) {
  const std::vector<Nox8u> values = random_elements<Nox8u>(66000);
  for (const int n : {32767, 32768, 32769, 32831, 65600})
    for (const size_t dm : {0, 1, 63, 100})
      for (const size_t above : {0, 1, 64, 159, 160, 161, 4000}) {  // destination above source modulo a page
        Guarded<Nox8u> s(66000 + 4096, Edge::Start), d(66000 + 4096, Edge::Start);
        const size_t sm = (dm + 4096 - above) % 4096;
        std::copy_n(values.begin(), n, s.begin() + sm);
        ASSERT_EQ((reinterpret_cast<uintptr_t>(d.data() + dm) - reinterpret_cast<uintptr_t>(s.data() + sm)) % 4096,
                  above);
        ASSERT_EQ(kit::call(noxsCopy_8u, s.data() + sm, d.data() + dm, n), noxStsNoErr);
        ASSERT_EQ(std::memcmp(d.data() + dm, values.data(), static_cast<size_t>(n)), 0)
            << n << ' ' << dm << ' ' << above;
        for (size_t i = 0; i < dm; ++i) ASSERT_EQ(d[i], kit::kUnwritten);
        for (size_t i = dm + static_cast<size_t>(n); i < d.size(); ++i) ASSERT_EQ(d[i], kit::kUnwritten);
      }
}

// Fills and copies around the largest thresholds. Where the cache can be asked for its size, and it is at most 16 MiB
// as on the emulated processors, the longest also goes past it.
TEST_P(Movers, LargeSizes) {
  const std::vector<int> few = {32769, 0x800040},
                         all = {32768, 32769, 0x200000, 0x200008, 0x400000, 0x400040, 0x800040};
  for (const int n : kit::quick() ? few : all) {
    const size_t bytes = static_cast<size_t>(n);
    Guarded<Nox8u> a(bytes, Edge::Start, 1), b(bytes, Edge::End, 40);
    ASSERT_EQ(kit::call(noxsZero_8u, a.data(), n), noxStsNoErr);
    ASSERT_EQ(std::count(a.begin(), a.end(), 0), n);
    a.fill_with(7);
    ASSERT_EQ(kit::call(noxsZero_16s, reinterpret_cast<Nox16s*>(a.data()), n / 2), noxStsNoErr);
    ASSERT_EQ(std::count(a.begin(), a.end(), 0), n / 2 * 2);
    ASSERT_EQ(kit::call(noxsSet_8u, 9, b.data(), n), noxStsNoErr);
    ASSERT_EQ(std::count(b.begin(), b.end(), 9), n);
    const int len = n / 16;
    const Nox64fc value = {1.5, -2.5};
    ASSERT_EQ(kit::call(noxsSet_64fc, value, reinterpret_cast<Nox64fc*>(a.data()), len), noxStsNoErr);
    for (int i = 0; i < len; ++i) ASSERT_EQ(std::memcmp(a.data() + 16 * i, &value, 16), 0) << i;
    for (size_t i = 0; i < bytes; ++i) a[i] = static_cast<Nox8u>(i * 2654435761u >> 24);
    ASSERT_EQ(kit::call(noxsCopy_8u, a.data(), b.data(), n), noxStsNoErr);
    ASSERT_EQ(std::memcmp(a.data(), b.data(), bytes), 0);
  }
}

// Counts whose bytes pass 32 bits: they wrap, but for copies that go piece by piece.
TEST_P(Movers, ByteCountsWrap) {
  const std::vector<Nox64f> values = random_elements<Nox64f>(3);
  Guarded<Nox64f> s(values), d(3);
  constexpr int kLen = 0x20000003;  // 24 bytes modulo 2^32
  ASSERT_EQ(kit::call(noxsMove_64f, s.data(), d.data(), kLen), noxStsNoErr);
  ASSERT_TRUE(kit::same_bits(d.data(), values.data(), 3));
  ASSERT_EQ(kit::call(noxsSet_64f, 1.0, d.data(), kLen), noxStsNoErr);
  ASSERT_EQ(kit::call(noxsZero_64f, d.data(), 0x20000000), noxStsNoErr);  // 0 bytes
  ASSERT_EQ(d[2], 1.0);
  if (GetParam().column < 3) {
    ASSERT_EQ(kit::call(noxsCopy_64f, s.data(), d.data(), kLen), noxStsNoErr);
    ASSERT_TRUE(kit::same_bits(d.data(), values.data(), 3));
  }
}

// The pieces follow each other without a gap, each but the last of the stated size, and end at the last element.
template <size_t Element>
void divides(int len) {
  uint64_t done = 0, pieces = 0;
  size_t last = 0;
  nox::in_pieces<Element>(len, [&](size_t element, size_t bytes) {
    EXPECT_EQ(element * uint64_t{Element}, done);
    EXPECT_TRUE(pieces == 0 || last == 0x7FFFFFE0) << last;
    ++pieces;
    done += bytes;
    last = bytes;
  });
  EXPECT_EQ(done, static_cast<uint64_t>(len) * Element);
  EXPECT_LE(last, 0x7FFFFFFFu);
}
TEST(LongCounts, AreDividedIntoPieces) {
  EXPECT_FALSE(nox::needs_division<8>(0xFFFFFFF));
  EXPECT_TRUE(nox::needs_division<8>(0x10000000));
  EXPECT_FALSE(nox::needs_division<1>(0x7FFFFFFF));
  for (const int len : {1, 0x7FFFFFF, 0x8000000, 0xFFFFFFF, 0x10000000, 0x1FFFFFFF, 0x20000000, 0x7FFFFFFF}) {
    divides<2>(len);
    divides<4>(len);
    divides<8>(len);
    divides<16>(len);
  }
}
TEST(LongCounts, ForwardCollidesJustAboveThePageOffset) {
  EXPECT_TRUE(nox::forward_collides(0x12345, 0x98345));   // 0
  EXPECT_TRUE(nox::forward_collides(0x1209F, 0x98000));   // 159
  EXPECT_FALSE(nox::forward_collides(0x120A0, 0x98000));  // 160
  EXPECT_FALSE(nox::forward_collides(0x12000, 0x98001));  // below: the difference wraps
  EXPECT_FALSE(nox::overruns_cache(0xFFFFFF, 0x2000000));
  EXPECT_TRUE(nox::overruns_cache(0x1000000, 0x2000000));
}

}  // namespace
