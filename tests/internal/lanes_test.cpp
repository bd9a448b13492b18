// Every operation of the lanes, in every width and element type of every build, against one element at a time.
#include <algorithm>
#include <cmath>
#include <set>

#include "internal/builds.hpp"
#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/lengths.hpp"
#include "kit/random.hpp"

namespace {

using internal::Element;
using internal::LaneCase;
using internal::Op;

template <class T>
T mask(bool set) {
  T m;
  std::memset(&m, set ? 0xFF : 0, sizeof m);
  return m;
}
// The type that the bits of T are combined in.
template <class T>
using Bits = std::conditional_t<std::is_integral_v<T>, T, Nox64u>;
template <class T>
Bits<T> bits(const T& x) {
  Bits<T> b;
  std::memcpy(&b, &x, sizeof b);
  return b;
}
template <class T>
T from_bits(Bits<T> b) {
  T x;
  std::memcpy(&x, &b, sizeof x);
  return x;
}

template <class T>
T saturate(Nox64s wide) {
  using L = std::numeric_limits<T>;
  return static_cast<T>(std::clamp<Nox64s>(wide, L::min(), L::max()));
}

template <class T>
T bitwise(Op op, const T& a, const T& b) {
  const Bits<T> x = bits(a), y = bits(b);
  switch (op) {
    case Op::And:
      return from_bits<T>(static_cast<Bits<T>>(x & y));
    case Op::Or:
      return from_bits<T>(static_cast<Bits<T>>(x | y));
    case Op::Xor:
      return from_bits<T>(static_cast<Bits<T>>(x ^ y));
    default:
      return from_bits<T>(static_cast<Bits<T>>(~x & y));
  }
}

template <class T>
T expected(Op op, T a, T b, T c, int shift, bool) {
  const auto wrap = [](Nox64u x) { return static_cast<T>(x); };
  const Nox64u x = static_cast<Nox64u>(a), y = static_cast<Nox64u>(b);
  switch (op) {
    case Op::Add:
      return wrap(x + y);
    case Op::Sub:
      return wrap(x - y);
    case Op::AddSaturated:
      return saturate<T>(static_cast<Nox64s>(a) + static_cast<Nox64s>(b));
    case Op::SubSaturated:
      return saturate<T>(static_cast<Nox64s>(a) - static_cast<Nox64s>(b));
    case Op::ShiftLeft:
      return wrap(x << shift);
    case Op::ShiftRight:
      return static_cast<T>(std::floor(static_cast<long double>(a) / std::exp2(static_cast<long double>(shift))));
    case Op::Equal:
      return mask<T>(a == b);
    case Op::Greater:
      return mask<T>(a > b);
    case Op::Min:
      return std::min(a, b);
    case Op::Max:
      return std::max(a, b);
    case Op::Select:
      return a > b ? b : c;
    default:
      return bitwise(op, a, b);
  }
}

template <>
double expected(Op op, double a, double b, double c, int, bool fuses) {
  switch (op) {
    case Op::Add:
      return a + b;
    case Op::Sub:
      return a - b;
    case Op::Mul:
      return a * b;
    case Op::Div:
      return a / b;
    case Op::Sqrt:
      return std::sqrt(a);
    case Op::Min:
      return a < b ? a : b;  // the second where a NaN is involved
    case Op::Max:
      return a > b ? a : b;
    case Op::Equal:
      return mask<double>(a == b);
    case Op::Less:
      return mask<double>(a < b);
    case Op::LessEqual:
      return mask<double>(a <= b);
    case Op::IsNan:
      return mask<double>(std::isnan(a));
    case Op::MaskBits:
      return std::signbit(a);
    case Op::Madd:
      return fuses ? std::fma(a, b, c) : a * b + c;
    case Op::Select:
      return a < b ? b : c;
    case Op::Abs:
      return std::fabs(a);
    case Op::Negate:
      return -a;
    default:
      return bitwise(op, a, b);
  }
}

template <>
Nox64fc expected(Op op, Nox64fc a, Nox64fc b, Nox64fc, int, bool) {
  switch (op) {
    case Op::Add:
      return {a.re + b.re, a.im + b.im};
    case Op::Sub:
      return {a.re - b.re, a.im - b.im};
    case Op::Mul:
      return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
    case Op::ReTwice:
      return {a.re, a.re};
    case Op::ImTwice:
      return {a.im, a.im};
    case Op::SwapParts:
      return {a.im, a.re};
    case Op::Conj:
      return {a.re, -a.im};
    case Op::SubAdd:
      return {a.re - b.re, a.im + b.im};
    default:
      ADD_FAILURE() << "no reference for operation " << static_cast<int>(op);
      return {};
  }
}

bool shifts(Op op) { return op == Op::ShiftLeft || op == Op::ShiftRight; }

template <class T>
void test_case(const LaneCase& lane, bool fuses, kit::Random& random) {
  const size_t n = static_cast<size_t>(lane.lanes);
  kit::Guarded<T> a(n), b(n), c(n), d(n), wanted(n);
  const int rounds = kit::quick() ? 20 : 200;
  for (int round = 0; round < rounds; ++round) {
    for (auto* x : {&a, &b, &c}) random.fill_special(*x);
    for (size_t i = 0; i < n; ++i)
      if (random.chance(0.2)) b[i] = a[i];
    const int shift = shifts(lane.op) ? round % static_cast<int>(8 * sizeof(T)) : 0;
    for (size_t i = 0; i < n; ++i) {
      wanted[i] = lane.op == Op::All       ? a[0]
                  : lane.op == Op::Zero    ? T{}
                  : lane.op == Op::Reverse ? a[n - 1 - i]
                                           : expected<T>(lane.op, a[i], b[i], c[i], shift, fuses);
    }
    kit::call(lane.run, a.data(), b.data(), c.data(), d.data(), shift);
    ASSERT_TRUE(kit::same_values(d.data(), wanted.data(), n)) << "shift " << shift;
  }
}

class Lanes : public kit::EachVariant {};

TEST_P(Lanes, AgreeWithTheScalarReference) {
  const internal::Cases& cases = internal::cases_of(GetParam());
  kit::Random random;
  for (int i = 0; i < cases.lane_count; ++i) {
    const LaneCase& lane = cases.lanes[i];
    SCOPED_TRACE(internal::describe(lane));
    internal::with_type(lane.element,
                        [&](auto t) { test_case<typename decltype(t)::type>(lane, cases.fuses, random); });
  }
}

// The reference takes any NaN for any other; these operations must keep payload and sign.
TEST_P(Lanes, MoveTheBitsOfNan) {
  const internal::Cases& cases = internal::cases_of(GetParam());
  const std::set<Op> movers = {Op::All, Op::Reverse, Op::Negate, Op::Abs, Op::Conj, Op::SwapParts, Op::ReTwice};
  const Nox64u source[4] = {0xFFF8000000000123, 0x7FF8000000000456, 0x7FF4000000000789, 0x8000000000000000};
  for (int i = 0; i < cases.lane_count; ++i) {
    const LaneCase& lane = cases.lanes[i];
    if (!movers.count(lane.op) || lane.element < Element::f64) continue;
    Nox64u result[4];
    kit::call(lane.run, source, source, source, result, 0);
    const int words = lane.lanes * (lane.element == Element::c64 ? 2 : 1);
    for (int k = 0; k < words; ++k) {
      const int pair = lane.element == Element::c64 ? k / 2 * 2 : k;
      const Nox64u top = Nox64u{1} << 63;
      const int from = lane.op == Op::All             ? (lane.element == Element::c64 ? k % 2 : 0)
                       : lane.op == Op::SwapParts     ? k ^ 1
                       : lane.op == Op::ReTwice       ? pair
                       : lane.op != Op::Reverse       ? k
                       : lane.element == Element::c64 ? words - 2 - pair + k % 2
                                                      : words - 1 - k;
      const Nox64u wanted = lane.op == Op::Negate || (lane.op == Op::Conj && k % 2) ? source[from] ^ top
                            : lane.op == Op::Abs                                    ? source[from] & ~top
                                                                                    : source[from];
      EXPECT_EQ(result[k], wanted) << internal::describe(lane) << ", lane " << k << " of " << words;
    }
  }
}
NOX_EACH_VARIANT(Lanes);

}  // namespace
