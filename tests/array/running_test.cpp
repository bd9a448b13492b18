// Running sums, ramps, products, histograms and the movers of complex elements against their definitions.
#include "array/layout.hpp"

namespace {

using kit::call;
using layout::get;
using layout::put;

Nox64f add(Nox64f a, Nox64f b) { return a + b; }
Nox64fc add(Nox64fc a, Nox64fc b) { return {a.re + b.re, a.im + b.im}; }
template <class T>
T add(T a, T b) {
  return static_cast<T>(static_cast<Nox32u>(a) + static_cast<Nox32u>(b));
}

template <class T>
void check_sums(void (*sum)(const T*, T*, Nox32u), void (*sum_index)(const T*, int, T*, int, Nox32u),
                void (*lagged)(const T*, T*, Nox32u, Nox32u),
                void (*lagged_index)(const T*, int, T*, int, Nox32u, Nox32u)) {
  const auto loop = [](const T* s, const T*, T* d, Nox32u n) {
    if (n > 0) put(d, get(s));
    for (Nox32u k = 1; k < n; ++k) put(d + k, add(get(d + k - 1), get(s + k)));
  };
  layout::check<T, T, T>([=](T* s, T*, T* d, Nox32u n) { call(sum, s, d, n); }, loop);
  layout::check<T, T, T>([=](T* s, T*, T* d, Nox32u n) { call(sum_index, s + 4, -4, d - 3, 3, n); }, loop);
  for (const Nox32u lag : {0u, 1u, 2u, 3u, 4u, 8u, 15u, 16u, 17u, 39u}) {
    SCOPED_TRACE(testing::Message() << "lag " << lag);
    kit::Random random;
    for (const int dst : {layout::kFar, 8}) {
      for (const Nox32u n : {lag, lag + 1, lag + 2, lag + 37, 300u}) {
        layout::Blocks blocks(random, n % 2, n % 3 ? 0 : 1);
        T *s = blocks.expected<T>(8), *d = blocks.expected<T>(dst);
        if (s != d) std::memmove(d, s, lag * sizeof(T));
        for (Nox32u k = lag; k < n; ++k) put(d + k, add(get(s + k), get(d + (k - lag))));
        s = blocks.actual<T>(8), d = blocks.actual<T>(dst);
        n % 2 ? call(lagged, s, d, n, lag) : call(lagged_index, s - 5, 5, d + 2, -2, n, lag);
        ASSERT_TRUE(blocks.same()) << n << " elements";
      }
    }
  }
}

TEST(ArrayRunning, Sums) {
  check_sums(CumSum, CumSum_Idx, CumSumDelta, CumSumDelta_Idx);
  check_sums(CumSumc, CumSumc_Idx, CumSumDeltac, CumSumDeltac_Idx);
  check_sums(CumSum_8u, CumSum_8u_Idx, CumSumDelta_8u, CumSumDelta_8u_Idx);
  check_sums(CumSum_16s, CumSum_16s_Idx, CumSumDelta_16s, CumSumDelta_16s_Idx);
  check_sums(CumSum_32s, CumSum_32s_Idx, CumSumDelta_32s, CumSumDelta_32s_Idx);
}

TEST(ArrayRunning, RampsComputeEachElementFromItsPlace) {
  for (const Nox32u n : {0u, 1u, 2u, 3u, 8u, 9u, 1001u}) {
    kit::Guarded<Nox64f> d(n);
    kit::Guarded<Nox64fc> c(n);
    call(Rampd, d.data(), n, 1.1, 0.3);
    const Nox64fc offset = {0.7, -0.0}, step = {-0.1, 0.0};
    n % 2 ? call(Rampc, c.data(), n, &offset, &step) : call(Rampc_Idx, c.data() - 2, 2, n, &offset, &step);
    for (Nox32u k = 0; k < n; ++k) {
      ASSERT_EQ(d[k], 1.1 + k * 0.3);
      ASSERT_EQ(c[k].re, 0.7 + k * -0.1);
      ASSERT_EQ(c[k].im, 0.0);
    }
  }
}

TEST(ArrayRunning, Products) {
  kit::Random random;
  for (const Nox32u n : {0u, 1u, 2u, 11u, 12u, 13u, 14u, 27u, 100u}) {
    std::vector<Nox64f> x(n);
    std::vector<Nox64fc> z(n);
    random.fill(x, 0.5, 1.5);
    random.fill(z, 0.2, 0.8);
    kit::Guarded<Nox64f> s(x);
    kit::Guarded<Nox64fc> t(z);
    Nox64f product = 0, serial = 1;
    Nox64fc complex = {}, expected = {1, 0};
    for (Nox32u i = 0; i < n; ++i) {
      serial *= x[i];
      expected = {z[i].re * expected.re - z[i].im * expected.im, z[i].re * expected.im + z[i].im * expected.re};
    }
    n % 2 ? call(Product, s.data(), n, &product) : call(Product_Idx, s.data() - 1, 1, n, &product);
    EXPECT_NEAR(product, serial, 1e-14 * serial * n);
    n % 2 ? call(Productc, t.data(), n, &complex) : call(Productc_Idx, t.data() + 1, -1, n, &complex);
    EXPECT_TRUE(kit::same_bits(&complex, &expected, 1));
  }
}

TEST(ArrayRunning, MoversOfComplexElements) {
  using P = Nox64fc*;
  const auto flip = [](P s, P, P d, Nox32u n) {
    for (Nox32u i = 0; i < n; ++i) put(d + i, Nox64fc{get(s + i).im, get(s + i).re});
  };
  const auto flip_conj = [](P s, P, P d, Nox32u n) {
    for (Nox32u i = 0; i < n; ++i) put(d + i, Nox64fc{get(s + i).im, -get(s + i).re});
  };
  layout::check<Nox64fc, Nox64fc, Nox64fc>([](P s, P, P d, Nox32u n) { call(Flip, s, d, n); }, flip);
  layout::check<Nox64fc, Nox64fc, Nox64fc>([](P s, P, P d, Nox32u n) { call(Flip_Idx, s - 1, 1, d + 1, -1, n); }, flip);
  layout::check<Nox64fc, Nox64fc, Nox64fc>([](P s, P, P d, Nox32u n) { call(FlipConj, s, d, n); }, flip_conj);
  layout::check<Nox64fc, Nox64fc, Nox64fc>([](P s, P, P d, Nox32u n) { call(FlipConj_Idx, s - 1, 1, d + 1, -1, n); },
                                           flip_conj);
  kit::Random random;
  for (const Nox32u n : {0u, 1u, 2u, 3u, 4u, 7u, 100u}) {
    std::vector<Nox64fc> x(n), expected;
    random.fill_bits(x);
    expected.assign(x.rbegin(), x.rend());
    kit::Guarded<Nox64fc> s(x), d(n);
    call(Reverse, s.data(), d.data(), n);
    EXPECT_TRUE(kit::same_bits(d.data(), expected.data(), n));
    call(Reverse_Idx, s.data() - 2, 2, s.data() + 2, -2, n);
    EXPECT_TRUE(kit::same_bits(s.data(), expected.data(), n));
  }
}

// Where values go that fit no integer, and those on the edges; bins are added to.
TEST(ArrayHistogram, ByValue) {
  std::vector<Nox64f> x = {-0.5,   2.9,      3.0,       100.0,        std::nan(""), 1e300,
                           -1e300, HUGE_VAL, -HUGE_VAL, 2147483647.0, 2147483648.0};
  kit::Random random;
  for (int i = 0; i < 500; ++i) x.push_back(random.uniform(-2, 6));
  for (const Nox32s count : {1, 2, 4, 1000}) {
    std::vector<Nox32u> counts(static_cast<size_t>(count), 5);
    std::vector<Nox64f> sums(static_cast<size_t>(count), 0.25);
    kit::Guarded<Nox32u> c(counts);
    kit::Guarded<Nox64f> s(sums), source(x);
    const Nox32u n = static_cast<Nox32u>(x.size());
    for (const Nox64f value : x) {
      const Nox64f t = (value - 0.5) * 1.5;
      const Nox32s whole = t > -2147483649.0 && t < 2147483648.0 ? static_cast<Nox32s>(t) : INT32_MIN;
      const size_t bin = static_cast<size_t>(whole < 1 ? 0 : whole >= count - 1 ? count - 1 : whole);
      ++counts[bin];
      sums[bin] += value;
    }
    call(HistogramCount, source.data(), 1.5, 0.5, c.data(), count, n);
    call(HistogramSum, source.data(), 1.5, 0.5, s.data(), count, n);
    EXPECT_TRUE(kit::same_bits(c.data(), counts.data(), count));
    EXPECT_TRUE(kit::same_values(s.data(), sums.data(), count));
  }
}

TEST(ArrayHistogram, WithoutACut) {
  const Nox64f x[5] = {-1.5, 0.0, 1.0, 2.5, -1.0};
  Nox32u counts[6] = {};
  Nox64f sums[5] = {};
  call(HistogramCount_Idx, x - 1, 1, 2.0, 0.0, counts + 3 - 7, 7, 0, 3u);
  EXPECT_EQ(counts[0], 1u);
  EXPECT_EQ(counts[3], 1u);
  EXPECT_EQ(counts[5], 1u);
  call(HistogramSum_Idx, x + 1, -1, 1.0, 0.0, sums + 2, 0, -3, 5u);
  EXPECT_EQ(sums[4], 2.5);
  EXPECT_EQ(sums[1], -2.5);
}

TEST(ArrayHistogram, ByIndex) {
  const Nox32u at[6] = {3, 0, 3, 3, 1, 0};
  const Nox64f values[6] = {1, 2, 4, 8, 16, 32};
  Nox32u counts[4] = {10, 0, 0, 0};
  Nox64f sums[4] = {};
  call(HistoCount, at, counts, 6u);
  call(HistoCount_Idx, at - 1, 1, counts - 2, 2, 6u);
  call(HistoSum, at, values, sums, 5u);
  call(HistoSum_Idx, at, 5, values, 5, sums + 1, -1, 1u);
  EXPECT_EQ(counts[0], 14u);
  EXPECT_EQ(counts[1], 2u);
  EXPECT_EQ(counts[3], 6u);
  EXPECT_EQ(sums[0], 34);
  EXPECT_EQ(sums[1], 16);
  EXPECT_EQ(sums[3], 13);
}

}  // namespace
