// Search against the definitions: every relation, every type, remarkable numbers; and packing by a mask.
#include <functional>

#include "array/layout.hpp"

namespace {

using kit::call;
using U = Nox32u;

template <class T>
struct Functions {
  void (*mask)(U, const T*, int, const T*, int, Nox32s*, int, U);
  void (*mask_c)(U, const T*, int, T, Nox32s*, int, U);
  void (*indexes)(U, const T*, int, const T*, int, U*, int, U, U*);
  void (*indexes_c)(U, const T*, int, T, U*, int, U, U*);
  void (*gather)(U, const T*, int, const T*, int, U*, int, T*, int, U, U*);
  void (*gather_c)(U, const T*, int, T, U*, int, T*, int, U, U*);
};

template <class T>
bool equal(T x, T y) {
  if constexpr (std::is_floating_point_v<T>) {
    if (std::isnan(y)) return std::isnan(x);
    if (std::isinf(y)) return std::isinf(x);
  }
  return x == y;
}
template <class T>
bool related(U code, T x, T y) {
  const bool all[] = {x<y, x <= y, x> y, x >= y, equal(x, y), !equal(x, y)};
  return code < 6 && all[code];
}
template <class T>
Nox32s mask_word(U code, T x, T y) {
  if constexpr (std::is_floating_point_v<T>)
    if (code == 4 && std::isinf(y) && x == -HUGE_VAL) return -1;
  return related(code, x, y);
}

template <class T>
void check(const Functions<T>& f, std::vector<T> constants) {
  kit::Random random;
  for (const U n : {0u, 1u, 2u, 3u, 4u, 5u, 15u, 16u, 17u, 40u, 133u})
    for (U code = 0; code < 8; ++code)
      for (size_t turn = 0; turn < constants.size(); ++turn) {
        SCOPED_TRACE(testing::Message() << n << " elements, code " << code);
        std::vector<T> x(n), y(n);
        random.fill_special(x);
        random.fill_special(y);
        for (size_t i = 0; i < n; i += 3) y[i] = x[i];
        const T c = constants[turn];
        for (const bool by_constant : {false, true}) {
          std::vector<Nox32s> mask(n, 55);
          std::vector<U> indexes;
          std::vector<T> values;
          for (size_t i = 0; i < n; ++i) {
            const T second = by_constant ? c : y[i];
            if (code < 6) mask[i] = mask_word(code, x[i], second);
            if (!related(code, x[i], second)) continue;
            indexes.push_back(static_cast<U>(i));
            values.push_back(x[i]);
          }
          // Lists have room for the matches alone: a touch beyond them faults.
          kit::Guarded<T> a(x, kit::Edge::End, turn), b(y), v(values.size());
          kit::Guarded<Nox32s> m(n, kit::Edge::Start, turn);
          kit::Guarded<U> found(indexes.size()), again(indexes.size());
          m.fill_with(55);
          U count = 99, second_count = 99;
          if (by_constant) {
            call(f.mask_c, code, a.data() - 3, 3, c, m.data() + 2, -2, n);
            call(f.indexes_c, code, a.data() - 3, 3, c, found.data() - 1, 1, n, &count);
            call(f.gather_c, code, a.data(), 0, c, again.data(), 0, v.data() - 5, 5, n, &second_count);
          } else {
            call(f.mask, code, a.data() - 3, 3, b.data() + 1, -1, m.data(), 0, n);
            call(f.indexes, code, a.data(), 0, b.data() - 4, 4, found.data() + 3, -3, n, &count);
            call(f.gather, code, a.data(), 0, b.data(), 0, again.data() - 1, 1, v.data(), 0, n, &second_count);
          }
          ASSERT_TRUE(kit::same_bits(m.data(), mask.data(), n)) << "mask";
          ASSERT_EQ(count, indexes.size());
          ASSERT_EQ(second_count, indexes.size());
          ASSERT_TRUE(kit::same_bits(found.data(), indexes.data(), indexes.size()));
          ASSERT_TRUE(kit::same_bits(again.data(), indexes.data(), indexes.size()));
          ASSERT_TRUE(kit::same_bits(v.data(), values.data(), values.size()));
        }
      }
}

TEST(ArraySearch, EveryRelationAndType) {
  check<Nox8u>({FindMask_8u_Idx, FindMaskC_8u_Idx, FindIndexes_8u_Idx, FindIndexesC_8u_Idx, FindAndGather_8u_Idx,
                FindAndGatherC_8u_Idx},
               {0, 1, 127, 128, 200, 255});
  check<Nox16s>({FindMask_16s_Idx, FindMaskC_16s_Idx, FindIndexes_16s_Idx, FindIndexesC_16s_Idx, FindAndGather_16s_Idx,
                 FindAndGatherC_16s_Idx},
                {0, -1, 1, INT16_MAX, INT16_MIN});
  check<Nox32s>({FindMask_32s_Idx, FindMaskC_32s_Idx, FindIndexes_32s_Idx, FindIndexesC_32s_Idx, FindAndGather_32s_Idx,
                 FindAndGatherC_32s_Idx},
                {0, -1, 1, INT32_MAX, INT32_MIN});
  check<Nox64f>({FindMask_64f_Idx, FindMaskC_64f_Idx, FindIndexes_64f_Idx, FindIndexesC_64f_Idx, FindAndGather_64f_Idx,
                 FindAndGatherC_64f_Idx},
                {0.0, -0.0, 1.0, HUGE_VAL, -HUGE_VAL, std::nan(""), 0x1p-1074});
}

// A mask written over its own source, as the loop from the first element on has it.
TEST(ArraySearch, AMaskOverItsSource) {
  std::vector<Nox32s> x = {5, -3, 5, 0, 1, 9, -9, 2, 4, 6, 8, 7}, y = x;
  FindMaskC_32s_Idx(2, x.data(), 0, 0, x.data(), 1, 11);
  for (size_t i = 0; i < 11; ++i) y[i + 1] = y[i] > 0;
  EXPECT_EQ(x, y);
}

// Lists and masks that begin inside their source, or in front of it, are those of the loop; 60 elements are several
// vectors of every type, and dense enough for each position to be read after it may have been written.
TEST(ArraySearch, OverItsSource) {
  kit::Random random;
  for (const int by : {-3, -1, 0, 1, 3, 20})
    for (const U code : {1u, 5u}) {
      SCOPED_TRACE(testing::Message() << "code " << code << ", by " << by);
      constexpr U kLength = 60;
      std::vector<Nox32s> x(128), expected;
      for (Nox32s& e : x) e = static_cast<Nox32s>(random.integer(0, 2));
      expected = x;
      Nox32s *s = expected.data() + 30, *d = s + by;
      U count = 0, found = 99;
      for (U k = 0; k < kLength; ++k)
        if (related<Nox32s>(code, s[k], 1)) d[count++] = static_cast<Nox32s>(k);
      std::vector<Nox32s> listed = x;
      FindIndexesC_32s_Idx(code, listed.data(), 30, 1, reinterpret_cast<U*>(listed.data()), 30 + by, kLength, &found);
      EXPECT_EQ(found, count);
      EXPECT_EQ(listed, expected);

      expected = x, s = expected.data() + 30, d = s + by, count = 0;
      std::vector<U> places(kLength);
      std::vector<Nox32s> gathered = x;
      for (U k = 0; k < kLength; ++k)
        if (related<Nox32s>(code, s[k], 1)) d[count++] = s[k];
      FindAndGatherC_32s_Idx(code, gathered.data(), 30, 1, places.data(), 0, gathered.data(), 30 + by, kLength, &found);
      EXPECT_EQ(found, count);
      EXPECT_EQ(gathered, expected);

      expected = x, s = expected.data() + 30, d = s + by;
      std::vector<Nox32s> masked = x;
      for (U k = 0; k < kLength; ++k) d[k] = related<Nox32s>(code, s[k], 1);
      FindMaskC_32s_Idx(code, masked.data(), 30, 1, masked.data(), 30 + by, kLength);
      EXPECT_EQ(masked, expected);
    }
}

TEST(ArraySearch, CountAboveAValue) {
  kit::Random random;
  for (const U n : {0u, 1u, 3u, 4u, 5u, 64u, 67u}) {
    std::vector<Nox64f> x(n);
    random.fill_special(x);
    kit::Guarded<Nox64f> s(x);
    for (const Nox64f value : {0.0, 0.5, -HUGE_VAL, std::nan("")}) {
      U count = 99, expected = 0;
      for (const Nox64f e : x) expected += e > value;
      call(CountGT, s.data(), value, &count, n);
      EXPECT_EQ(count, expected);
      call(CountGT_Idx, s.data() + 7, -7, value, &count, n);
      EXPECT_EQ(count, expected);
    }
  }
}

template <class T>
void check_pack(Nox32s (*plain)(U, const T*, T*, const Nox32s*),
                Nox32s (*index)(U, const T*, int, T*, int, const Nox32s*, int)) {
  kit::Random random;
  for (const U n : {0u, 1u, 2u, 9u, 100u}) {
    std::vector<T> x(n), expected;
    std::vector<Nox32s> mask(n);
    random.fill_bits(x);
    for (size_t i = 0; i < n; ++i) {
      mask[i] = static_cast<Nox32s>(random.integer(-2, 2));
      if (mask[i] > 0) expected.push_back(x[i]);
    }
    kit::Guarded<T> s(x), d(expected.size());
    kit::Guarded<Nox32s> m(mask);
    EXPECT_EQ(call(plain, n, s.data(), d.data(), m.data()), static_cast<Nox32s>(expected.size()));
    EXPECT_TRUE(kit::same_bits(d.data(), expected.data(), expected.size()));
    EXPECT_EQ(call(index, n, s.data() - 1, 1, s.data() + 2, -2, m.data() - 3, 3), static_cast<Nox32s>(expected.size()));
    EXPECT_TRUE(kit::same_bits(s.data(), expected.data(), expected.size())) << "onto itself";
  }
}
TEST(ArraySearch, PackingByAMask) {
  check_pack<Nox64f>(PackByMask, PackByMask_Idx);
  check_pack<Nox64fc>(PackByMaskc, PackByMaskc_Idx);
}

}  // namespace
