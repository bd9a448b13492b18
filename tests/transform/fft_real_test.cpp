// The real Fourier transform and the products of its spectra: against the definition, both layouts, in place, in the
// memory asked for, and in the order of its statuses.
#include "transform/real_operations.hpp"

#include <algorithm>
#include <cmath>

#include "kit/guarded.hpp"
#include "kit/lengths.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"

namespace {

using kit::Guarded;
using transforms::RealFft;
using Values = std::vector<Nox64f>;

class RealFourier : public kit::EachVariant {
 protected:
  static const RealFft& fft() {
    const RealFft* const tables[] = {&w7_real_fft, &s8_real_fft, &p8_real_fft, &g9_real_fft, &h9_real_fft};
    return *tables[GetParam().column];
  }
};
NOX_EACH_VARIANT(RealFourier);

constexpr int kForwardN = 1, kInverseN = 2, kRoot = 4, kNone = 8;  // flags

// A spec and a work buffer of exactly the queried sizes against unmapped memory.
class Transform {
 public:
  Transform(const RealFft& fft, int order, int flag, size_t place = 0)
      : sizes_(query(fft, order, flag)),
        memory_(static_cast<size_t>(sizes_.spec), place & 1 ? kit::Edge::Start : kit::Edge::End, place % 64),
        work_(static_cast<size_t>(sizes_.work), place & 2 ? kit::Edge::Start : kit::Edge::End, place * 7 % 64) {
    Guarded<Nox8u> init(static_cast<size_t>(sizes_.init), kit::Edge::End, place * 3 % 64);
    EXPECT_EQ(noxStsNoErr, fft.init(&spec_, order, flag, 0, memory_.data(), sizes_.init > 0 ? init.data() : nullptr));
    init.fill_with(0xEE);
    before_ = memory_.values();
  }
  Values operator()(RealFft::Run run, const Values& x, size_t aside = 0) {
    Guarded<Nox64f> s(x, kit::Edge::End, aside), d(x.size(), kit::Edge::Start, aside), data(x, kit::Edge::Start, aside);
    EXPECT_EQ(noxStsNoErr, run(s.data(), d.data(), spec_, work()));
    EXPECT_TRUE(kit::same_bits(s.data(), x.data(), x.size())) << "the source was written";
    EXPECT_EQ(noxStsNoErr, run(data.data(), data.data(), spec_, work()));
    EXPECT_TRUE(kit::same_bits(data.data(), d.data(), x.size())) << "in place, " << x.size();
    EXPECT_TRUE(kit::same_bits(memory_.data(), before_.data(), memory_.size())) << "the spec was written";
    work_.check();
    return d.values();
  }
  Nox8u* work() { return sizes_.work > 0 ? work_.data() : nullptr; }
  const void* spec() const { return spec_; }

 private:
  struct Sizes {
    int spec = 0, init = 0, work = 0;
  };
  static Sizes query(const RealFft& fft, int order, int flag) {
    Sizes s;
    EXPECT_EQ(noxStsNoErr, fft.get_size(order, flag, 0, &s.spec, &s.init, &s.work));
    return s;
  }
  Sizes sizes_;
  void* spec_ = nullptr;
  Guarded<Nox8u> memory_, work_;
  std::vector<Nox8u> before_;
};

// The definition.
class Definition {
 public:
  explicit Definition(const Values& x) : x_(x), cosines_(x.size()), sines_(x.size()) {
    for (size_t j = 0; j < x.size(); ++j) {
      const long double angle = 2 * std::acos(-1.0L) * static_cast<long double>(j) / static_cast<long double>(x.size());
      cosines_[j] = std::cos(angle);
      sines_[j] = std::sin(angle);
    }
  }
  Nox64fc value(size_t k) const {
    long double re = 0, im = 0;
    for (size_t i = 0, at = 0; i < x_.size(); ++i, at = (at + k) % x_.size()) {
      re += static_cast<long double>(x_[i]) * cosines_[at];
      im -= static_cast<long double>(x_[i]) * sines_[at];
    }
    return {static_cast<Nox64f>(re), static_cast<Nox64f>(im)};
  }
  // The spectrum in tail layout.
  Values tail() const {
    Values out{value(0).re};
    for (size_t k = 1; 2 * k < x_.size(); ++k) {
      const Nox64fc v = value(k);
      out.push_back(v.re);
      out.push_back(v.im);
    }
    if (x_.size() > 1) out.push_back(value(x_.size() / 2).re);
    return out;
  }

 private:
  const Values& x_;
  std::vector<long double> cosines_, sines_;
};

Values head_of(const Values& tail) {
  Values head = tail;
  if (tail.size() > 2) std::rotate(head.begin() + 1, head.end() - 1, head.end());
  return head;
}

// Whether the values are the expected ones times the factor, within an error in units of their root mean square.
testing::AssertionResult is_near(const Values& out, const Values& expected, double factor, int order) {
  double square = 0;
  for (const double e : expected) square += e * e;
  const double size = std::sqrt(square / static_cast<double>(expected.size())), bound = 0x1p-53 * (6 + 2 * order);
  for (size_t i = 0; i < out.size(); ++i)
    if (!(std::fabs(out[i] / factor - expected[i]) <= bound * size))
      return testing::AssertionFailure() << "element " << i << " of " << out.size() << ": " << out[i] / factor
                                         << " against " << expected[i];
  return testing::AssertionSuccess();
}

TEST_P(RealFourier, AgreesWithTheDefinitionInBothLayoutsAndScalings) {
  kit::Random random;
  for (int order = 0; order <= (kit::quick() ? 9 : 12); ++order) {
    const size_t n = size_t{1} << order;
    const double len = static_cast<double>(n);
    Values x(n);
    random.fill(x);
    const Values tail = Definition(x).tail(), head = head_of(tail);
    const struct {
      int flag;
      double forward, inverse;
    } scalings[] = {{kForwardN, 1 / len, 1},
                    {kInverseN, 1, 1 / len},
                    {kRoot, 1 / std::sqrt(len), 1 / std::sqrt(len)},
                    {kNone, 1, 1}};
    for (const auto& s : scalings) {
      SCOPED_TRACE(testing::Message() << "order " << order << ", flag " << s.flag);
      const size_t place = static_cast<size_t>(order * 8 + s.flag);
      Transform t(fft(), order, s.flag, place);
      EXPECT_TRUE(is_near(t(fft().forward_perm, x, place % 2 * 8), head, s.forward, order));
      EXPECT_TRUE(is_near(t(fft().forward_pack, x, place % 3 * 8), tail, s.forward, order));
      EXPECT_TRUE(is_near(t(fft().inverse_perm, head, place % 2 * 8), x, s.inverse * len, order));
      EXPECT_TRUE(is_near(t(fft().inverse_pack, tail, place % 3 * 8), x, s.inverse * len, order));
    }
  }
}

// On both sides of the order from which the recombination's factors are products: some values, and the way back.
TEST_P(RealFourier, LongTransformsAtSomePlacesAndBack) {
  if (kit::quick()) return;
  kit::Random random;
  for (const int order : {14, fft().first_two_level - 1, fft().first_two_level, fft().first_two_level + 1}) {
    SCOPED_TRACE(order);
    const size_t n = size_t{1} << order;
    Transform t(fft(), order, kInverseN, n);
    Values x(n);
    random.fill(x);
    const Values spectrum = t(fft().forward_perm, x);
    EXPECT_TRUE(is_near(t(fft().inverse_perm, spectrum), x, 1, order));
    EXPECT_TRUE(is_near(t(fft().inverse_pack, t(fft().forward_pack, x)), x, 1, order));
    const Definition definition(x);
    Values found, expected;
    for (const size_t k :
         {size_t{1}, size_t{511}, size_t{512}, size_t{513}, n / 4 - 1, n / 4, n / 4 + 1, n / 2 - 512, n / 2 - 1}) {
      const Nox64fc v = definition.value(k);
      expected.insert(expected.end(), {v.re, v.im});
      found.insert(found.end(), {spectrum[2 * k], spectrum[2 * k + 1]});
    }
    EXPECT_TRUE(is_near(found, expected, 1, order));
  }
}

// The sizes are part of what other records count on: a change shows here, also one that the slack would hide.
TEST_P(RealFourier, SizesOfTheWays) {
  if (GetParam().column == 4) return;  // depend on its plans
  const auto to64 = [](int bytes) { return (bytes + 63) / 64 * 64; };
  const auto expect = [](int order, int spec, int init, int work) {
    int s = -1, i = -1, w = -1;
    EXPECT_EQ(noxStsNoErr, fft().get_size(order, kNone, 0, &s, &i, &w));
    EXPECT_EQ(spec, s) << order;
    EXPECT_EQ(init, i) << order;
    EXPECT_EQ(work, w) << order;
  };
  const int lines = fft().max_direct;
  for (int order = 0; order <= lines; ++order) expect(order, 160, 0, 0);
  expect(lines + 1, 192 + 2 * to64(4 << (lines + 1)), 0, 0);
  for (int order = 8; order <= 14; ++order) {
    const int n = 1 << order, half = n / 2;
    expect(order, 192 + to64(16 * half + 16) + to64(half + 4) + 2 * (4 * n), order <= 10 ? 0 : to64(2 * n + 8) + 64,
           16 * half + 64);
  }
}

TEST_P(RealFourier, StatusesInTheirOrder) {
  const RealFft& f = fft();
  int a = 0, b = 0, c = 0;
  for (const int order : {-1, 31, INT32_MIN, INT32_MAX})
    EXPECT_EQ(noxStsFftOrderErr, f.get_size(order, 3, 0, nullptr, &b, &c)) << order;
  for (const int order : {0, 5, 28, 29, 30}) EXPECT_EQ(noxStsNullPtrErr, f.get_size(order, 3, 0, &a, nullptr, &c));
  // The build with plans looks at the limit of the order first.
  const NoxStatus both_bad = GetParam().column == 4 ? noxStsFftOrderErr : noxStsFftFlagErr;
  for (const int flag : {0, 3, 5, 16, -1}) {
    EXPECT_EQ(noxStsFftFlagErr, f.get_size(28, flag, 0, &a, &b, &c)) << flag;
    EXPECT_EQ(both_bad, f.get_size(29, flag, 0, &a, &b, &c)) << flag;
  }
  EXPECT_EQ(noxStsFftOrderErr, f.get_size(29, kNone, 0, &a, &b, &c));
  // The work memory of the plan's largest order would pass 31 bits.
  const NoxStatus largest = GetParam().column == 4 ? noxStsFftOrderErr : noxStsNoErr;
  EXPECT_EQ(largest, f.get_size(28, kNone, 0, &a, &b, &c));

  Guarded<Nox8u> memory(1 << 20);
  void* spec = nullptr;
  EXPECT_EQ(noxStsNullPtrErr, f.init(nullptr, 99, 3, 0, nullptr, nullptr));
  for (const int order : {-1, 29}) EXPECT_EQ(noxStsFftOrderErr, f.init(&spec, order, 3, 0, nullptr, nullptr)) << order;
  EXPECT_EQ(noxStsNullPtrErr, f.init(&spec, 11, 3, 0, nullptr, nullptr));
  EXPECT_EQ(noxStsFftFlagErr, f.init(&spec, 11, 3, 0, memory.data(), nullptr));
  EXPECT_EQ(noxStsNullPtrErr, f.init(&spec, 11, kNone, 0, memory.data(), nullptr));
  EXPECT_EQ(nullptr, spec);

  Transform t(f, 12, kNone);
  Guarded<Nox64f> x(size_t{1} << 12);
  x.fill_with(1);
  const Nox32u refused[32] = {};
  for (const RealFft::Run run : {f.forward_perm, f.inverse_perm, f.forward_pack, f.inverse_pack}) {
    EXPECT_EQ(noxStsNullPtrErr, run(nullptr, x.data(), nullptr, nullptr));
    EXPECT_EQ(noxStsContextMatchErr, run(nullptr, x.data(), refused, nullptr));
    EXPECT_EQ(noxStsNullPtrErr, run(nullptr, x.data(), t.spec(), t.work()));
    EXPECT_EQ(noxStsNullPtrErr, run(x.data(), nullptr, t.spec(), t.work()));
    EXPECT_EQ(noxStsNullPtrErr, run(x.data(), x.data(), t.spec(), nullptr));
  }
  EXPECT_TRUE(std::all_of(x.begin(), x.end(), [](double v) { return v == 1; }));
}

// The product of two spectra, element by element as each layout has them.
Values product_of(const Values& a, const Values& b, bool conjugate) {
  const size_t n = a.size();
  Values d(n);
  d[0] = a[0] * b[0];
  const size_t second = conjugate ? n - 1 : 1;
  if (n % 2 == 0) d[second] = a[second] * b[second];
  for (size_t i = n % 2 || conjugate ? 1 : 2; i + 1 < n; i += 2) {
    const double im = conjugate ? -b[i + 1] : b[i + 1];
    d[i] = a[i] * b[i] - a[i + 1] * im;
    d[i + 1] = a[i] * im + a[i + 1] * b[i];
  }
  return d;
}

TEST_P(RealFourier, ProductsOfSpectra) {
  kit::Random random;
  const RealFft& f = fft();
  for (int len = 1; len <= 40; ++len) {
    const size_t n = static_cast<size_t>(len);
    Guarded<Nox64f> a(n), b(n), d(n, kit::Edge::Start), data(n);
    // Small integers, so that the products are exact in any order.
    for (Guarded<Nox64f>* const v : {&a, &b})
      for (double& x : *v) x = static_cast<double>(random.integer(-1000, 1000));
    const Values plain = product_of(a.values(), b.values(), false), conj = product_of(a.values(), b.values(), true);
    EXPECT_EQ(noxStsNoErr, f.multiply_perm(a.data(), b.data(), d.data(), len));
    EXPECT_EQ(plain, d.values()) << len;
    data.fill(b.values());
    EXPECT_EQ(noxStsNoErr, f.multiply_perm(a.data(), data.data(), data.data(), len));
    EXPECT_EQ(plain, data.values()) << len;
    data.fill(b.values());
    EXPECT_EQ(noxStsNoErr, f.multiply_perm_in_place(a.data(), data.data(), len));
    EXPECT_EQ(plain, data.values()) << len;
    data.fill(b.values());
    EXPECT_EQ(noxStsNoErr, f.multiply_pack_conj(a.data(), data.data(), len));
    EXPECT_EQ(conj, data.values()) << len;
    f.multiply_pack_conj_to(a.data(), b.data(), d.data(), len);
    EXPECT_EQ(conj, d.values()) << len;
  }
  Nox64f x = 2;
  EXPECT_EQ(noxStsNullPtrErr, f.multiply_perm(nullptr, &x, &x, 0));
  EXPECT_EQ(noxStsNullPtrErr, f.multiply_perm(&x, nullptr, &x, 0));
  EXPECT_EQ(noxStsNullPtrErr, f.multiply_perm(&x, &x, nullptr, 0));
  EXPECT_EQ(noxStsSizeErr, f.multiply_perm(&x, &x, &x, 0));
  EXPECT_EQ(noxStsNullPtrErr, f.multiply_perm_in_place(&x, nullptr, 0));
  EXPECT_EQ(noxStsSizeErr, f.multiply_perm_in_place(&x, &x, -1));
  EXPECT_EQ(noxStsNullPtrErr, f.multiply_pack_conj(nullptr, &x, 0));
  EXPECT_EQ(noxStsSizeErr, f.multiply_pack_conj(&x, &x, 0));
  EXPECT_EQ(2, x);
}

}  // namespace
