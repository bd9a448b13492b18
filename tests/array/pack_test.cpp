// Packing by stride, index and mask, and bit fields, against their definitions; nothing but what is selected is
// touched.
#include <algorithm>

#include "array/layout.hpp"

namespace {

using kit::call;
using U = Nox32u;
using S = Nox32s;

template <class T>
struct Functions {
  void (*pack_stride)(U, const T*, S, T*);
  void (*pack_index)(U, const T*, const S*, T*);
  void (*pack_mask)(U, const T*, const S*, T*);
  void (*unpack_stride)(U, const T*, T*, S);
  void (*unpack_index)(U, const T*, T*, const S*);
  void (*unpack_mask)(U, const T*, T*, const S*);
};

template <class T>
void check(const Functions<T>& f) {
  kit::Random random;
  for (const U n : {0u, 1u, 2u, 5u, 37u}) {
    const size_t size = n;
    for (const S stride : {1, 3, -2}) {
      SCOPED_TRACE(testing::Message() << n << " by " << stride);
      const size_t span = n == 0 ? 0 : (size - 1) * static_cast<size_t>(std::abs(stride)) + 1;
      std::vector<T> x(span), packed(size);
      random.fill_bits(x);
      kit::Guarded<T> s(x), d(size), e(span, kit::Edge::Start);
      std::vector<T> spread = e.values();
      T* const from = stride < 0 && n > 0 ? s.data() + span - 1 : s.data();
      for (size_t k = 0; k < size; ++k) packed[k] = from[static_cast<std::ptrdiff_t>(k) * stride];
      call(f.pack_stride, n, from, stride, d.data());
      EXPECT_TRUE(kit::same_bits(d.data(), packed.data(), size));
      const size_t first = stride < 0 && n > 0 ? span - 1 : 0;
      for (size_t k = 0; k < size; ++k)
        spread[static_cast<size_t>(static_cast<std::ptrdiff_t>(first) + static_cast<std::ptrdiff_t>(k) * stride)] =
            packed[k];
      call(f.unpack_stride, n, d.data(), e.data() + first, stride);
      EXPECT_TRUE(kit::same_bits(e.data(), spread.data(), span));
    }
    std::vector<T> x(50), packed, spread(50);
    std::vector<S> index(size), mask(size);
    random.fill_bits(x);
    random.fill_bits(spread);
    for (S& i : index) i = static_cast<S>(random.integer(0, 49));
    for (S& m : mask) m = static_cast<S>(random.integer(-2, 2));
    kit::Guarded<T> s(x), by_index(size), e(spread);
    kit::Guarded<S> at(index), m(mask);
    for (const S i : index) packed.push_back(x[static_cast<size_t>(i)]);
    call(f.pack_index, n, s.data(), at.data(), by_index.data());
    EXPECT_TRUE(kit::same_bits(by_index.data(), packed.data(), size));
    for (size_t k = 0; k < size; ++k) spread[static_cast<size_t>(index[k])] = packed[k];
    call(f.unpack_index, n, by_index.data(), e.data(), at.data());
    EXPECT_TRUE(kit::same_bits(e.data(), spread.data(), 50)) << "the last of equal indexes wins";
    std::vector<T> chosen;
    for (size_t k = 0; k < size; ++k)
      if (mask[k] > 0) chosen.push_back(x[k]);
    kit::Guarded<T> c(chosen.size());
    call(f.pack_mask, n, s.data(), m.data(), c.data());
    EXPECT_TRUE(kit::same_bits(c.data(), chosen.data(), chosen.size()));
    for (size_t k = 0, j = 0; k < size; ++k)
      if (mask[k] > 0) spread[k] = chosen[j++];
    call(f.unpack_mask, n, c.data(), e.data(), m.data());
    EXPECT_TRUE(kit::same_bits(e.data(), spread.data(), 50));
  }
}

TEST(ArrayPack, ByStrideIndexAndMask) {
  check<Nox8u>({vbpacki, vbpackv, vbpackm, vbunpacki, vbunpackv, vbunpackm});
  check<Nox16s>({vsipacki, vsipackv, vsipackm, vsiunpacki, vsiunpackv, vsiunpackm});
  check<Nox32s>({vipacki, vipackv, vipackm, viunpacki, viunpackv, viunpackm});
  check<Nox64fc>({vdpackic, vdpackvc, vdpackmc, vdunpackic, vdunpackvc, vdunpackmc});
}

template <class T>
void check_bits(void (*pack)(const T*, S, S, U*, S), void (*unpack)(const U*, S, T*, S, S)) {
  kit::Random random;
  for (const S start : {0, 3})
    for (const S count : {0, 1, 31, 32, 33, 64, 100})
      for (const S extra : {0, 1, 2}) {
        SCOPED_TRACE(testing::Message() << count << " from " << start << ", " << extra << " words more");
        std::vector<T> x(static_cast<size_t>(start + count));
        random.fill_special(x);
        const S words = (count + 31) / 32 + extra;
        std::vector<U> field(static_cast<size_t>(words));
        std::vector<T> bits(x.size(), T(9));
        for (S i = 0; i < count; ++i) {
          const size_t at = static_cast<size_t>(start + i);
          if (x[at] != 0) field[static_cast<size_t>(i / 32)] |= 1u << i % 32;
          bits[at] = x[at] != 0;
        }
        kit::Guarded<T> s(x, kit::Edge::End, static_cast<size_t>(extra)), d(x.size(), kit::Edge::End);
        kit::Guarded<U> w(field.size()), exact((static_cast<size_t>(count) + 31) / 32);
        d.fill_with(T(9));
        call(pack, s.data(), start, start + count, w.data(), words);
        ASSERT_TRUE(kit::same_bits(w.data(), field.data(), words));
        for (size_t i = 0; i < exact.size(); ++i) exact[i] = field[i];
        call(unpack, exact.data(), -7, d.data(), start, count);
        ASSERT_TRUE(kit::same_bits(d.data(), bits.data(), d.size()));
        call(unpack, nullptr, 5, d.data(), start, -1);
        ASSERT_TRUE(kit::same_bits(d.data(), bits.data(), d.size())) << "a negative count";
      }
}
TEST(ArrayPack, BitFields) {
  check_bits<Nox8u>(BitPack_8u, BitUnpack_8u);
  check_bits<Nox16s>(BitPack_16s, BitUnpack_16s);
  check_bits<Nox32s>(BitPack_32s, BitUnpack_32s);
}

// The list follows its own worst entry, but candidates are tested against the value of the call's beginning.
TEST(ArrayNeighbours, OfABlock) {
  kit::Random random;
  constexpr S kRows = 4, kCols = 23, kBest = 3, kRowStart = 2, kColStart = 100;
  std::vector<Nox64f> block(kRows * kCols), rows(kRowStart + kRows), cols(kCols),
      best((kRowStart + kRows) * kBest, 9.0);
  std::vector<Nox64f> worst(kRowStart + kRows, 0.7);
  std::vector<S> slot(kRowStart + kRows, 1), index((kRowStart + kRows) * kBest, -1);
  random.fill(block);
  random.fill(rows);
  random.fill(cols);
  block[5] = std::nan("");
  block[7] = block[6], cols[7] = cols[6];
  kit::Guarded<Nox64f> b(block), r(rows), c(cols), d(best), w(worst);
  kit::Guarded<S> s(slot), x(index);
  for (S i = 0; i < kRows; ++i) {
    const size_t row = static_cast<size_t>(kRowStart + i);
    for (S j = 0; j < kCols; ++j) {
      const Nox64f distance = (rows[row] + block[static_cast<size_t>(i * kCols + j)]) + cols[static_cast<size_t>(j)];
      if (!(worst[row] > distance)) continue;
      const size_t place = row * kBest + static_cast<size_t>(slot[row]);
      best[place] = distance;
      index[place] = kColStart + j;
      const auto first = best.begin() + static_cast<std::ptrdiff_t>(row * kBest);
      slot[row] = static_cast<S>(std::max_element(first, first + kBest) - first);
    }
  }
  call(InternalCollectK_64f_Idx, kRowStart, kRows, kCols, kBest, kColStart, b.data() - 1, 1, s.data() + 2, -2, w.data(),
       0, x.data() - 3, 3, d.data() + 1, -1, c.data() - 9, 9, r.data() + 4, -4);
  EXPECT_TRUE(kit::same_bits(d.data(), best.data(), best.size()));
  EXPECT_TRUE(kit::same_bits(x.data(), index.data(), index.size()));
  EXPECT_TRUE(kit::same_bits(s.data(), slot.data(), slot.size()));
  EXPECT_TRUE(kit::same_bits(w.data(), worst.data(), worst.size()));
  EXPECT_TRUE(kit::same_bits(b.data(), block.data(), block.size()));
  call(InternalCollectK_64f_Idx, 0, -1, kCols, kBest, 0, b.data(), 0, s.data(), 0, w.data(), 0, x.data(), 0, d.data(),
       0, c.data(), 0, r.data(), 0);
  EXPECT_TRUE(kit::same_bits(d.data(), best.data(), best.size()));
}

// Blocks one after the other: the worst distance falls, the block takes the distances, rows without a candidate keep
// slot and worst distance as they are, and a NaN in the list or the block stays out of it all.
TEST(ArrayNeighbours, OfBlocksWithFallingWorst) {
  kit::Random random;
  for (const S columns : {0, 1, 7, 8, 9, 23, 64}) {
    constexpr S kRows = 4, kBest = 3, kRowStart = 1;
    std::vector<Nox64f> rows(kRowStart + kRows, 0.1), worst(rows.size(), 1e9), best(rows.size() * kBest, 1e9);
    std::vector<S> slot(rows.size(), 2), index(best.size(), -1);
    worst[3] = -1e9, slot[3] = 77;  // a row that nothing enters
    kit::Guarded<Nox64f> r(rows), w(worst), d(best);
    kit::Guarded<S> s(slot), x(index);
    for (S start = 0; start < 3 * columns; start += columns) {
      std::vector<Nox64f> block(static_cast<size_t>(kRows * columns)), cols(static_cast<size_t>(columns));
      random.fill(block);
      random.fill(cols);
      for (size_t i = 0; i < block.size(); i += 5) block[i] = i % 2 ? std::nan("") : HUGE_VAL;
      kit::Guarded<Nox64f> b(block), c(cols);
      for (size_t i = 0; i < kRows; ++i) {
        const size_t row = kRowStart + i;
        for (size_t j = 0; j < cols.size(); ++j) {
          Nox64f& entry = block[i * cols.size() + j];
          entry = (rows[row] + cols[j]) + entry;
          if (!(worst[row] > entry)) continue;
          best[row * kBest + static_cast<size_t>(slot[row])] = entry;
          index[row * kBest + static_cast<size_t>(slot[row])] = start + static_cast<S>(j);
          const auto first = best.begin() + static_cast<std::ptrdiff_t>(row * kBest);
          slot[row] = static_cast<S>(std::max_element(first, first + kBest) - first);
          worst[row] = first[slot[row]];
        }
      }
      call(InternalCollectK1_64f_Idx, kRowStart, kRows, columns, kBest, start, b.data() + 2, -2, s.data(), 0,
           w.data() - 1, 1, x.data(), 0, d.data() + 3, -3, c.data(), 0, r.data(), 0);
      ASSERT_TRUE(kit::same_values(b.data(), block.data(), block.size()));
      ASSERT_TRUE(kit::same_bits(d.data(), best.data(), best.size()));
      ASSERT_TRUE(kit::same_bits(x.data(), index.data(), index.size()));
      ASSERT_TRUE(kit::same_bits(s.data(), slot.data(), slot.size()));
      ASSERT_TRUE(kit::same_bits(w.data(), worst.data(), worst.size()));
    }
  }
}

// Blocks of columns one after the other give the k least of all, and the block holds the distances afterwards.
TEST(ArrayNeighbours, OfAllBlocks) {
  kit::Random random;
  constexpr S kRows = 3, kCols = 41, kFirst = 18;
  for (const S k : {1, 2, 5, 40}) {
    std::vector<Nox64f> block(kRows * kCols), rows(kRows), cols(kCols), full(block.size());
    random.fill(block);
    random.fill(rows);
    random.fill(cols);
    block[4] = std::nan("");
    const size_t lists = static_cast<size_t>(kRows * k);
    kit::Guarded<Nox64f> best(lists), worst(kRows), r(rows), c(cols);
    kit::Guarded<S> slot(kRows), index(lists);
    best.fill_with(HUGE_VAL);
    worst.fill_with(HUGE_VAL);
    slot.fill_with(0);
    index.fill_with(-1);
    for (const S from : {0, kFirst}) {
      const S count = from == 0 ? kFirst : kCols - kFirst;
      std::vector<Nox64f> part;
      for (S i = 0; i < kRows; ++i)
        for (S j = 0; j < count; ++j) part.push_back(block[static_cast<size_t>(i * kCols + from + j)]);
      kit::Guarded<Nox64f> b(part);
      call(InternalCollectK1_64f_Idx, 0, kRows, count, k, from, b.data() - 3, 3, slot.data(), 0, worst.data() + 1, -1,
           index.data(), 0, best.data() - 2, 2, c.data(), from, r.data(), 0);
      for (S i = 0; i < kRows; ++i)
        for (S j = 0; j < count; ++j) {
          const size_t at = static_cast<size_t>(i * kCols + from + j);
          full[at] = (rows[static_cast<size_t>(i)] + cols[static_cast<size_t>(from + j)]) + block[at];
          ASSERT_TRUE(kit::same_value(b[static_cast<size_t>(i * count + j)], full[at]));
        }
    }
    for (S i = 0; i < kRows; ++i) {
      std::vector<std::pair<Nox64f, S>> all, found;
      for (S j = 0; j < kCols; ++j)
        if (const Nox64f d = full[static_cast<size_t>(i * kCols + j)]; !std::isnan(d)) all.push_back({d, j});
      std::sort(all.begin(), all.end());
      all.resize(std::min(all.size(), static_cast<size_t>(k)));
      for (S m = 0; m < k; ++m)
        if (const size_t at = static_cast<size_t>(i * k + m); index[at] >= 0) found.push_back({best[at], index[at]});
      std::sort(found.begin(), found.end());
      EXPECT_EQ(found, all) << "row " << i << ", k " << k;
    }
  }
}

}  // namespace
