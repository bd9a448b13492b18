// Compiled with the flags of each build: the lane operations and the drivers as tables of functions.
#include "core/drivers.hpp"
#include "internal/cases.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using internal::DriverCase;
using internal::Element;
using internal::LaneCase;
using internal::Op;
using internal::Shape;

template <class T>
constexpr Element element_of = is_signed<T> ? (sizeof(T) == 1   ? Element::s8
                                               : sizeof(T) == 2 ? Element::s16
                                               : sizeof(T) == 4 ? Element::s32
                                                                : Element::s64)
                                            : (sizeof(T) == 1   ? Element::u8
                                               : sizeof(T) == 2 ? Element::u16
                                               : sizeof(T) == 4 ? Element::u32
                                                                : Element::u64);
template <>
constexpr Element element_of<Nox64f> = Element::f64;
template <>
constexpr Element element_of<Nox64fc> = Element::c64;

// ---- lanes
template <Op op, class V>
NOX_INLINE V operate(V a, V b, V c, const typename V::elem* first, int shift) {
  if constexpr (op == Op::All)
    return V::all(*first);
  else if constexpr (op == Op::Zero)
    return V::zero();
  else if constexpr (op == Op::And)
    return a & b;
  else if constexpr (op == Op::Or)
    return a | b;
  else if constexpr (op == Op::Xor)
    return a ^ b;
  else if constexpr (op == Op::AndNot)
    return and_not(a, b);
  else if constexpr (op == Op::Add)
    return a + b;
  else if constexpr (op == Op::Sub)
    return a - b;
  else if constexpr (op == Op::AddSaturated)
    return add_saturated(a, b);
  else if constexpr (op == Op::SubSaturated)
    return sub_saturated(a, b);
  else if constexpr (op == Op::ShiftLeft)
    return shift_left(a, shift);
  else if constexpr (op == Op::ShiftRight)
    return shift_right(a, shift);
  else if constexpr (op == Op::Equal)
    return a == b;
  else if constexpr (op == Op::Greater)
    return a > b;
  else if constexpr (op == Op::Less)
    return a < b;
  else if constexpr (op == Op::LessEqual)
    return a <= b;
  else if constexpr (op == Op::Min)
    return min(a, b);
  else if constexpr (op == Op::Max)
    return max(a, b);
  else if constexpr (op == Op::Reverse)
    return reverse(a);
  else if constexpr (op == Op::Mul)
    return a * b;
  else if constexpr (op == Op::Div)
    return a / b;
  else if constexpr (op == Op::Sqrt)
    return sqrt(a);
  else if constexpr (op == Op::IsNan)
    return is_nan(a);
  else if constexpr (op == Op::Madd)
    return madd(a, b, c);
  else if constexpr (op == Op::Abs)
    return abs(a);
  else if constexpr (op == Op::Negate)
    return negate(a);
  else if constexpr (op == Op::ReTwice)
    return re_twice(a);
  else if constexpr (op == Op::ImTwice)
    return im_twice(a);
  else if constexpr (op == Op::SwapParts)
    return swap_parts(a);
  else if constexpr (op == Op::Conj)
    return conj(a);
  else if constexpr (op == Op::SubAdd)
    return sub_add(a, b);
}

// Selection by a mask made of the comparison of a and b, the only masks there are.
template <class V>
NOX_INLINE V pick(V a, V b, V c) {
  if constexpr (sizeof(typename V::elem) == 8)
    return select(a < b, b, c);
  else
    return select_lanes(a > b, b, c);
}

template <Op op, class V>
void run_lanes(const void* a, const void* b, const void* c, void* d, int shift) {
  using E = typename V::elem;
  const E* const first = static_cast<const E*>(a);
  const V x = V::load(first), y = V::load(static_cast<const E*>(b)), z = V::load(static_cast<const E*>(c));
  E* const out = static_cast<E*>(d);
  if constexpr (op == Op::Select) {
    pick(x, y, z).store(out);
  } else if constexpr (op == Op::MaskBits) {
    const int bits = mask_bits(x);
    for (int i = 0; i < V::N; ++i) out[i] = bits >> i & 1;
    if (bits >> V::N) out[0] = -1;  // no bit beyond the lanes
  } else {
    operate<op>(x, y, z, first, shift).store(out);
  }
}

template <Op op, class V>
constexpr LaneCase lane_case() {
  return {op, element_of<typename V::elem>, V::N, run_lanes<op, V>};
}

#if NOX_LEVEL >= 4
#define WIDTHS(op, T) lane_case<op, IntOne<T>>(), lane_case<op, IntLanes<T, 16>>(), lane_case<op, IntLanes<T, 32>>()
#else
#define WIDTHS(op, T) lane_case<op, IntOne<T>>(), lane_case<op, IntLanes<T, 16>>()
#endif
#define BYTES(op) WIDTHS(op, Nox8u), WIDTHS(op, Nox8s)
#define HALVES(op) WIDTHS(op, Nox16u), WIDTHS(op, Nox16s)
#define WORDS(op) WIDTHS(op, Nox32u), WIDTHS(op, Nox32s)
#define LONGS(op) WIDTHS(op, Nox64u), WIDTHS(op, Nox64s)
#define EVERY_INTEGER(op) BYTES(op), HALVES(op), WORDS(op), LONGS(op)
#define UP_TO_WORDS(op) BYTES(op), HALVES(op), WORDS(op)
#if NOX_LEVEL >= 3
#define REALS(op) lane_case<op, F64x1>(), lane_case<op, F64x2>(), lane_case<op, F64x4>()
#define COMPLEXES(op) lane_case<op, C64x1>(), lane_case<op, C64x2>()
#else
#define REALS(op) lane_case<op, F64x1>(), lane_case<op, F64x2>()
#define COMPLEXES(op) lane_case<op, C64x1>()
#endif

constexpr LaneCase kLaneCases[] = {
    EVERY_INTEGER(Op::All),
    EVERY_INTEGER(Op::Zero),
    EVERY_INTEGER(Op::And),
    EVERY_INTEGER(Op::Or),
    EVERY_INTEGER(Op::Xor),
    EVERY_INTEGER(Op::AndNot),
    EVERY_INTEGER(Op::Add),
    EVERY_INTEGER(Op::Sub),
    EVERY_INTEGER(Op::Reverse),
    BYTES(Op::AddSaturated),
    HALVES(Op::AddSaturated),
    BYTES(Op::SubSaturated),
    HALVES(Op::SubSaturated),
    lane_case<Op::AddSaturated, IntOne<Nox32s>>(),
    lane_case<Op::SubSaturated, IntOne<Nox32s>>(),
    lane_case<Op::AddSaturated, IntOne<Nox32u>>(),
    lane_case<Op::SubSaturated, IntOne<Nox32u>>(),
    HALVES(Op::ShiftLeft),
    WORDS(Op::ShiftLeft),
    LONGS(Op::ShiftLeft),
    HALVES(Op::ShiftRight),
    WORDS(Op::ShiftRight),
    WIDTHS(Op::ShiftRight, Nox64u),
    UP_TO_WORDS(Op::Equal),
    UP_TO_WORDS(Op::Greater),
    UP_TO_WORDS(Op::Min),
    UP_TO_WORDS(Op::Max),
    UP_TO_WORDS(Op::Select),
#if NOX_LEVEL >= 4
    lane_case<Op::Equal, IntLanes<Nox64u, 32>>(),
    lane_case<Op::Equal, IntLanes<Nox64s, 32>>(),
    lane_case<Op::Greater, IntLanes<Nox64u, 32>>(),
    lane_case<Op::Greater, IntLanes<Nox64s, 32>>(),
#endif
    REALS(Op::All),
    REALS(Op::Zero),
    REALS(Op::And),
    REALS(Op::Or),
    REALS(Op::Xor),
    REALS(Op::AndNot),
    REALS(Op::Add),
    REALS(Op::Sub),
    REALS(Op::Mul),
    REALS(Op::Div),
    REALS(Op::Sqrt),
    REALS(Op::Min),
    REALS(Op::Max),
    REALS(Op::Equal),
    REALS(Op::Less),
    REALS(Op::LessEqual),
    REALS(Op::IsNan),
    REALS(Op::MaskBits),
    REALS(Op::Reverse),
    REALS(Op::Madd),
    REALS(Op::Select),
    REALS(Op::Abs),
    REALS(Op::Negate),
    COMPLEXES(Op::All),
    COMPLEXES(Op::Zero),
    COMPLEXES(Op::Add),
    COMPLEXES(Op::Sub),
    COMPLEXES(Op::Mul),
    COMPLEXES(Op::ReTwice),
    COMPLEXES(Op::ImTwice),
    COMPLEXES(Op::SwapParts),
    COMPLEXES(Op::Conj),
    COMPLEXES(Op::SubAdd),
    COMPLEXES(Op::Reverse),
};

// ---- drivers
struct Twice {
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return a + a;
  }
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return a - b;
  }
  template <class V>
  NOX_INLINE V operator()(V a, V b, V c) const {
    return (a - b) + c;
  }
};
struct Same {
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return a;
  }
};

template <Shape shape, class K>
void run_driver(void* out, const void* a, const void* b, const void* c, int len) {
  using E = typename K::elem;
  E* const d = static_cast<E*>(out);
  const E* const x = static_cast<const E*>(a);
  const E* const y = static_cast<const E*>(b);
  const E* const z = static_cast<const E*>(c);
  if constexpr (shape == Shape::Map1)
    map<K>(d, len, Twice{}, x);
  else if constexpr (shape == Shape::Map2)
    map<K>(d, len, Twice{}, x, y);
  else if constexpr (shape == Shape::Map3)
    map<K>(d, len, Twice{}, x, y, z);
  else if constexpr (shape == Shape::MapReversed)
    map_reversed<K>(d, x, len, Twice{});
  else if constexpr (shape == Shape::ReverseInPlace)
    reverse_in_place<K>(d, len);
  else if constexpr (shape == Shape::Watch) {
    Watch<K> watch;
    map<K>(
        d, len,
        [&](auto v) {
          watch.see(v);
          return v;
        },
        x);
    d[0] = watch.any();
  }
}

template <Shape shape, class K>
constexpr DriverCase driver_case() {
  return {shape, element_of<typename K::elem>, K::vec::N, run_driver<shape, K>};
}
#define KINDS(shape)                                                                                         \
  driver_case<shape, ints<Nox8u>>(), driver_case<shape, ints<Nox16s>>(), driver_case<shape, ints<Nox32s>>(), \
      driver_case<shape, ints<Nox64s>>(), driver_case<shape, f64>(), driver_case<shape, c64>()
constexpr DriverCase kDriverCases[] = {
    KINDS(Shape::Map1),        KINDS(Shape::Map2),           KINDS(Shape::Map3),
    KINDS(Shape::MapReversed), KINDS(Shape::ReverseInPlace), driver_case<Shape::Watch, f64>(),
};

template <class T, size_t N>
constexpr int count(const T (&)[N]) {
  return static_cast<int>(N);
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

extern "C" {
extern const internal::Cases NOX_BODY(cases);
const internal::Cases NOX_BODY(cases) = {nox::kLaneCases, nox::count(nox::kLaneCases), nox::kDriverCases,
                                         nox::count(nox::kDriverCases), nox::variant.fuses};
}
