// Integer quotients and remainders against the language's own, over all pairs of bytes and of remarkable numbers; real
// remainders and their 32-bit quotient.
#include "array/layout.hpp"

namespace {

using kit::call;
using layout::get;
using layout::put;

template <class T>
struct Functions {
  void (*mod)(const T*, T, T*, Nox32u);
  void (*mod_in_place)(T*, T, Nox32u);
  void (*reversed)(const T*, T, T*, Nox32u);
  void (*reversed_in_place)(T*, T, Nox32u);
  void (*both)(const T*, int, T*, int, T*, int, const T*, int, Nox32u);
  void (*both_by)(const T*, int, T*, int, T*, int, T, Nox32u);
  void (*both_of)(const T*, int, T*, int, T*, int, T, Nox32u);
};

// Numbers of every size, with products, and neighbours of products, of the others among them.
template <class T>
std::vector<T> dividends(kit::Random& random, T divisor, size_t n) {
  std::vector<T> out(n);
  for (size_t i = 0; i < n; ++i) {
    const T any = random.special<T>();
    const Nox64s multiple = Nox64s{divisor} * (Nox64s{any} / divisor) + static_cast<Nox64s>(i % 3) - 1;
    out[i] = i % 2 ? any : static_cast<T>(multiple);
    if (sizeof(T) == 4 && divisor == T(-1) && out[i] == std::numeric_limits<T>::min()) out[i] = 1;
  }
  return out;
}

template <class T>
void check(const Functions<T>& f) {
  kit::Random random;
  std::vector<T> divisors = {
      1, 2, 3, 5, 7, 10, 100, 127, std::numeric_limits<T>::max(), std::numeric_limits<T>::min(), T(-1), T(-2), T(-7)};
  for (int i = 0; i < 200; ++i) divisors.push_back(random.value<T>());
  size_t turn = 0;
  for (const T v : divisors) {
    if (v == 0) continue;
    const size_t n = 1 + ++turn % 70;
    const Nox32u len = static_cast<Nox32u>(n);
    const std::vector<T> x = dividends(random, v, n);
    std::vector<T> q(n), r(n), nonzero(n), by_q(n), by_r(n);
    for (size_t i = 0; i < n; ++i) {
      q[i] = static_cast<T>(x[i] / v);
      r[i] = static_cast<T>(x[i] % v);
      nonzero[i] = x[i] == 0 || x[i] == T(-1) ? T(3) : x[i];
      by_q[i] = static_cast<T>(v / nonzero[i]);
      by_r[i] = static_cast<T>(v % nonzero[i]);
    }
    SCOPED_TRACE(testing::Message() << n << " by " << +v);
    kit::Guarded<T> s(x), d(n), e(n, kit::Edge::Start, 1), divisor(nonzero);
    call(f.mod, s.data(), v, d.data(), len);
    ASSERT_TRUE(kit::same_bits(d.data(), r.data(), n));
    call(f.both_by, s.data() - 3, 3, d.data() + 1, -1, e.data(), 0, v, len);
    ASSERT_TRUE(kit::same_bits(d.data(), q.data(), n));
    ASSERT_TRUE(kit::same_bits(e.data(), r.data(), n));
    call(f.both_of, divisor.data() - 3, 3, d.data() + 1, -1, e.data(), 0, v, len);
    ASSERT_TRUE(kit::same_bits(d.data(), by_q.data(), n));
    ASSERT_TRUE(kit::same_bits(e.data(), by_r.data(), n));
    call(f.reversed, divisor.data(), v, e.data(), len);
    ASSERT_TRUE(kit::same_bits(e.data(), by_q.data(), n));
    call(f.reversed_in_place, divisor.data(), v, len);
    ASSERT_TRUE(kit::same_bits(divisor.data(), by_q.data(), n));
    // The divisor's index isn't applied.
    divisor.fill(nonzero);
    for (size_t i = 0; i < n; ++i)
      by_q[i] = static_cast<T>(x[i] / nonzero[i]), by_r[i] = static_cast<T>(x[i] % nonzero[i]);
    call(f.both, s.data(), 0, d.data(), 0, s.data() + 2, -2, divisor.data(), 5, len);
    ASSERT_TRUE(kit::same_bits(d.data(), by_q.data(), n)) << "by an array";
    ASSERT_TRUE(kit::same_bits(s.data(), by_r.data(), n)) << "remainders onto the dividends";
    s.fill(x);
    call(f.mod_in_place, s.data(), v, len);
    ASSERT_TRUE(kit::same_bits(s.data(), r.data(), n));
    // One element ahead of its source, as the loop from the first element on would have it.
    std::vector<T> chain(n + 1, x[0]);
    kit::Guarded<T> chained(chain);
    for (size_t i = 0; i < n; ++i) chain[i + 1] = static_cast<T>(chain[i] % v);
    call(f.mod, chained.data(), v, chained.data() + 1, len);
    ASSERT_TRUE(kit::same_bits(chained.data(), chain.data(), n + 1)) << "overlapping";
  }
}

TEST(ArrayQuotient, OfIntegers) {
  check<Nox8u>({ModC_8u_SFS, ModC_8u_ISFS, DivCREV_8u_SFS, DivCREV_8u_ISFS, RemDiv_8u_SFS_Idx, RemDivC_8u_SFS_Idx,
                RemDivCREV_8u_SFS_Idx});
  check<Nox16s>({ModC_16s_SFS, ModC_16s_ISFS, DivCREV_16s_SFS, DivCREV_16s_ISFS, RemDiv_16s_SFS_Idx,
                 RemDivC_16s_SFS_Idx, RemDivCREV_16s_SFS_Idx});
  check<Nox32s>({ModC_32s_SFS, ModC_32s_ISFS, DivCREV_32s_SFS, DivCREV_32s_ISFS, RemDiv_32s_SFS_Idx,
                 RemDivC_32s_SFS_Idx, RemDivCREV_32s_SFS_Idx});
}

// Every pair of bytes, and every 16-bit dividend by some divisors: no quotient is off by one.
TEST(ArrayQuotient, NoneIsOffByOne) {
  std::vector<Nox8u> bytes(256), q(256), r(256);
  for (size_t i = 0; i < 256; ++i) bytes[i] = static_cast<Nox8u>(i);
  for (int v = 1; v < 256; ++v) {
    RemDivC_8u_SFS_Idx(bytes.data(), 0, q.data(), 0, r.data(), 0, static_cast<Nox8u>(v), 256);
    for (int x = 0; x < 256; ++x) {
      const size_t i = static_cast<size_t>(x);
      ASSERT_TRUE(q[i] == x / v && r[i] == x % v) << x << " by " << v;
    }
  }
  std::vector<Nox16s> words(65536), quotients(65536), remainders(65536);
  for (size_t i = 0; i < words.size(); ++i) words[i] = static_cast<Nox16s>(i);
  for (const int divisor : {-32768, -32767, -255, -3, -1, 1, 2, 3, 7, 11, 181, 1000, 12345, 32767}) {
    const Nox16s v = static_cast<Nox16s>(divisor);
    RemDivC_16s_SFS_Idx(words.data(), 0, quotients.data(), 0, remainders.data(), 0, v, 65536);
    for (size_t i = 0; i < words.size(); ++i)
      ASSERT_TRUE(quotients[i] == static_cast<Nox16s>(words[i] / v) && remainders[i] == words[i] % v)
          << words[i] << " by " << v;
  }
}

TEST(ArrayQuotient, ThirtyTwoBitsByAConstant) {
  kit::Random random;
  for (const Nox32s v : {1, -1, 2, 3, -3, 7, 641, 46341, 65537, 1 << 30, INT32_MAX, INT32_MIN}) {
    const std::vector<Nox32s> x = dividends(random, v, 333);
    kit::Guarded<Nox32s> s(x), d(333);
    call(DivC_32s_SFS, s.data(), v, d.data(), 333u);
    for (size_t i = 0; i < x.size(); ++i) ASSERT_EQ(d[i], x[i] / v) << x[i] << " by " << v;
    call(DivC_32s_ISFS, s.data(), v, 333u);
    EXPECT_TRUE(kit::same_bits(s.data(), d.data(), 333));
  }
}

Nox64f cut_to_int(Nox64f q) { return q > -2147483649.0 && q < 2147483648.0 ? std::trunc(q) + 0.0 : -2147483648.0; }

TEST(ArrayQuotient, RealRemainders) {
  using P = Nox64f*;
  layout::check<Nox64f, Nox64f, Nox64f>([](P x, P y, P d, Nox32u n) { call(Rem, x, y, d, n); },
                                        [](P x, P y, P d, Nox32u n) {
                                          for (Nox32u i = 0; i < n; ++i)
                                            put(d + i, get(x + i) - get(y + i) * cut_to_int(get(x + i) / get(y + i)));
                                        });
  for (const Nox64f v : {0.37, -1e-9, 0.0, HUGE_VAL})
    layout::check<Nox64f, Nox64f, Nox64f>([=](P x, P, P d, Nox32u n) { call(RemVal, x, v, d, n); },
                                          [=](P x, P, P d, Nox32u n) {
                                            const Nox64f r = 1.0 / v;
                                            for (Nox32u i = 0; i < n; ++i)
                                              put(d + i, get(x + i) - v * cut_to_int(r * get(x + i)));
                                          });
}

}  // namespace
