// Matrix layout against the definitions, element by element: every type, strides above the row length and negative,
// nothing written beside what the definition names.
#include <gtest/gtest.h>

#include <vector>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/random.hpp"
#include "nox/nox.h"

namespace {

using U = Nox32u;
using S = Nox32s;

template <class T>
struct Functions {
  void (*transpose)(const T*, T*, U, U, S, S);
  void (*transpose_square)(T*, U, S);
  void (*upper)(const T*, T*, U, U, S, S, S);
  void (*lower)(const T*, T*, U, U, S, S, S);
  void (*zero_upper)(T*, U, U, S, S);
  void (*zero_lower)(T*, U, U, S, S);
  void (*exchange_rows)(T*, U, U, U, S);
  void (*exchange_cols)(T*, U, U, U, S);
  void (*copy)(const T*, T*, U, U, U, U, U, U, S, S);
  void (*resize)(const T*, T*, U, U, S, S);
};

// A matrix in a block of memory with room around it, and what it should become.
constexpr S kSide = 24;
template <class T>
class Block {
 public:
  explicit Block(kit::Random& random) : actual_(kSide * kSide) {
    random.fill_bits(actual_);
    expected_ = actual_.values();
  }
  T* data(S at = 0) { return actual_.data() + at; }
  T& expected(S at) { return expected_[static_cast<size_t>(at)]; }
  ~Block() { EXPECT_TRUE(kit::same_bits(actual_.data(), expected_.data(), expected_.size())); }

 private:
  kit::Guarded<T> actual_;
  std::vector<T> expected_;
};

template <class T>
void check(const Functions<T>& f) {
  kit::Random random;
  for (const U rows : {0u, 1u, 2u, 3u, 5u, 11u})
    for (const U cols : {0u, 1u, 3u, 4u, 9u, 11u})
      for (const S diagonal : {0, 1, -5}) {
        SCOPED_TRACE(testing::Message() << rows << " x " << cols << ", diagonal " << diagonal);
        const S m = static_cast<S>(rows), n = static_cast<S>(cols), s = n + diagonal * diagonal % 3 + 1;
        const S t = std::max(m, n) + 1;
        Block<T> source(random);
        for (const bool is_upper : {true, false}) {
          Block<T> copied(random), cleared(random);
          for (S r = 0; r < m; ++r)
            for (S c = 0; c < n; ++c)
              if (is_upper ? c > r || (c == r && diagonal != 0) : c < r || (c == r && diagonal != 0)) {
                copied.expected(r * t + c) = source.expected(r * s + c);
                cleared.expected(r * s + c) = T{};
              }
          kit::call(is_upper ? f.upper : f.lower, source.data(), copied.data(), rows, cols, s, t, diagonal);
          kit::call(is_upper ? f.zero_upper : f.zero_lower, cleared.data(), rows, cols, s, diagonal);
        }
        Block<T> turned(random), resized(random), placed(random);
        for (S r = 0; r < m; ++r)
          for (S c = 0; c < n; ++c) {
            turned.expected(c * t + r) = source.expected(r * s + c);
            resized.expected(r * t + c) = source.expected(r * s + c);
            placed.expected((r + 3) * t + c + 2) = source.expected((r + 1) * s + c + 4);
          }
        kit::call(f.transpose, source.data(), turned.data(), rows, cols, s, t);
        kit::call(f.resize, source.data(), resized.data(), rows, cols, s, t);
        kit::call(f.copy, source.data(), placed.data(), 1u, 4u, 3u, 2u, rows, cols, s, t);
      }
  for (const U n : {0u, 1u, 2u, 7u}) {
    Block<T> square(random);
    for (S r = 0; r < static_cast<S>(n); ++r)
      for (S c = 0; c < r; ++c) std::swap(square.expected(r * 9 + c), square.expected(c * 9 + r));
    kit::call(f.transpose_square, square.data(), n, 9);
  }
  for (const U n : {0u, 1u, 5u, 16u, 19u})
    for (const U other : {2u, 4u}) {
      Block<T> rows(random), cols(random);
      for (S i = 0; i < static_cast<S>(n); ++i) {
        std::swap(rows.expected(2 * 20 + i), rows.expected(static_cast<S>(other) * 20 + i));
        std::swap(cols.expected(i * 20 + 2), cols.expected(i * 20 + static_cast<S>(other)));
      }
      kit::call(f.exchange_rows, rows.data(), 2u, other, n, 20);
      kit::call(f.exchange_cols, cols.data(), 2u, other, n, 20);
    }
  // Rows from the last to the first.
  Block<T> source(random), reversed(random);
  for (S r = 0; r < 4; ++r)
    for (S c = 0; c < 5; ++c) reversed.expected(r * 7 + c) = source.expected(200 - r * 6 + c);
  kit::call(f.resize, source.data(200), reversed.data(), 4u, 5u, -6, 7);
}

TEST(ArrayMatrix, EveryType) {
  check<Nox64f>({TransposeMatrix, TransposeSquareMatrix, UpperTriangle, LowerTriangle, ZeroUpperTriangle,
                 ZeroLowerTriangle, RowExchange, ColExchange, CopySubMatrix, ResizeMatrix});
  check<Nox64fc>({TransposeMatrixc, TransposeSquareMatrixc, UpperTrianglec, LowerTrianglec, ZeroUpperTrianglec,
                  ZeroLowerTrianglec, RowExchangec, ColExchangec, CopySubMatrixc, ResizeMatrixc});
  check<Nox8u>({TransposeMatrix_8u, TransposeSquareMatrix_8u, UpperTriangle_8u, LowerTriangle_8u, ZeroUpperTriangle_8u,
                ZeroLowerTriangle_8u, RowExchange_8u, ColExchange_8u, CopySubMatrix_8u, ResizeMatrix_8u});
  check<Nox16s>({TransposeMatrix_16s, TransposeSquareMatrix_16s, UpperTriangle_16s, LowerTriangle_16s,
                 ZeroUpperTriangle_16s, ZeroLowerTriangle_16s, RowExchange_16s, ColExchange_16s, CopySubMatrix_16s,
                 ResizeMatrix_16s});
  check<Nox32s>({TransposeMatrix_32s, TransposeSquareMatrix_32s, UpperTriangle_32s, LowerTriangle_32s,
                 ZeroUpperTriangle_32s, ZeroLowerTriangle_32s, RowExchange_32s, ColExchange_32s, CopySubMatrix_32s,
                 ResizeMatrix_32s});
}

// The sign bit flips, of a zero and of a NaN too, on the diagonal once.
TEST(ArrayMatrix, ConjugateTransposes) {
  const auto conj = [](Nox64fc z) { return Nox64fc{z.re, -z.im}; };
  kit::Random random;
  std::vector<Nox64fc> m(5 * 6), turned(6 * 5);
  random.fill_special(m);
  kit::Guarded<Nox64fc> source(m), d(30), square(m);
  for (size_t r = 0; r < 5; ++r)
    for (size_t c = 0; c < 6; ++c) turned[c * 5 + r] = conj(m[r * 6 + c]);
  kit::call(AdjungateMatrixc, source.data(), d.data(), 5u, 6u, 6, 5);
  EXPECT_TRUE(kit::same_bits(d.data(), turned.data(), 30));
  std::vector<Nox64fc> expected = m;
  for (size_t r = 0; r < 5; ++r)
    for (size_t c = 0; c < 5; ++c) expected[r * 6 + c] = conj(m[c * 6 + r]);
  kit::call(AdjungateSquareMatrixc, square.data(), 5u, 6);
  EXPECT_TRUE(kit::same_bits(square.data(), expected.data(), 30));
}

}  // namespace
