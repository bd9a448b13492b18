// Plans: their sizes, their tables, and the way from an order to its passes.
#include "transform/fft_plan.hpp"

#if NOX_LEVEL >= 4
#include "transform/fft_large.hpp"
#include "transform/fft_passes.hpp"
#include "transform/fft_small.hpp"
#include "transform/sine.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr size_t kRecord = 128;  // the header and, behind it, the record of the large orders
static_assert(kFftHeader + sizeof(LargePlan) <= kRecord, "the tables start behind the record");
constexpr size_t kAlign = 64;

constexpr size_t align_up(size_t n) { return (n + kAlign - 1) & ~(kAlign - 1); }

// Whether the pass over sub-transforms of length l has wide twiddle factors: the stated size of a spec has no room for
// the longest ones, nor at order 10 for all the others, and above the short form spares the cache.
constexpr bool is_wide(int order, size_t l) {
  return order <= 7 || (4 * l < size_t{1} << order && (order != 10 || l > 4));
}

constexpr size_t passes_bytes(int order) {
  size_t doubles = 0;
  for (size_t l = size_t{1} << (2 + order % 2); l < size_t{1} << order; l *= 4)
    doubles += pass_doubles(l, is_wide(order, l));
  return doubles * sizeof(Nox64f);
}
constexpr bool passes_fit(int order) {
  return order < 4 ||
         (kAlign - 1 + kRecord + passes_bytes(order) <= (size_t{18} << order) + 2048 && passes_fit(order - 1));
}
static_assert(passes_fit(kNoInitOrder), "the tables of the small orders keep to the stated size");

// ---- large orders: rows are as many as columns or, of odd orders, twice as many
constexpr int columns_order(int order) { return (order + 1) / 2; }
constexpr int rows_order(int order) { return order / 2; }
// Passes over l = first, 4 first, ... lines take 6 doubles a line.
constexpr size_t chain_twiddles(int order) {
  return 6 * sizeof(Nox64f) * (((size_t{1} << order) - (size_t{1} << first_pass_order(order))) / 3);
}
// Behind the places stand the first few again, to be asked for near the end.
constexpr size_t chain_places(int order) {
  return align_up(sizeof(Nox32u) * ((size_t{1} << (order - first_pass_order(order))) + kAhead));
}
constexpr size_t near_turns(int columns) { return sizeof(Nox64fc) * kLine << columns; }
constexpr size_t far_turns(int order) { return (sizeof(Nox64fc) << order) / kLine; }
constexpr Nox64u large_bytes(int order) {
  const int c = columns_order(order), r = rows_order(order);
  return near_turns(c) + far_turns(order) + align_up(chain_twiddles(c)) + align_up(chain_twiddles(r)) +
         chain_places(c) + chain_places(r);
}

// ---- building
struct Tables {
  Nox8u* at;
  Wave wave;
  int order;
  template <class T>
  T* take(size_t bytes) {
    T* const p = reinterpret_cast<T*>(at);
    at += align_up(bytes);
    return p;
  }
  Nox64fc root(size_t k) const { return {wave.cosine(k), -wave.sine(k)}; }
};

// The twiddle factors of the middle and small orders.
void build_passes(Tables& t) {
  const size_t n = size_t{1} << t.order;
  Nox64f* w = reinterpret_cast<Nox64f*>(t.at);
  for (size_t l = size_t{1} << first_pass_order(t.order); l < n; l *= 4) {
    const bool wide = is_wide(t.order, l);
    for (size_t k = 0; k < l; k += 2) {
      for (size_t j = 1; j <= 3; ++j) {
        const Nox64fc a = t.root(n / (4 * l) * j * k), b = t.root(n / (4 * l) * j * (k + 1));
        if (wide) {
          w[0] = w[1] = a.re, w[2] = w[3] = b.re;
          w[4] = w[5] = a.im, w[6] = w[7] = b.im;
        } else {
          w[0] = a.re, w[1] = a.im, w[2] = b.re, w[3] = b.im;
        }
        w += wide ? 8 : 4;
      }
    }
  }
}

LineChain build_chain(Tables& t, int order) {
  const int first = first_pass_order(order);
  const size_t n = size_t{1} << t.order;
  Nox64f* const twiddles = t.take<Nox64f>(chain_twiddles(order));
  Nox64f* w = twiddles;
  for (size_t l = size_t{1} << first; l < size_t{1} << order; l *= 4) {
    for (size_t k = 0; k < l; ++k) {
      for (size_t j = 1; j <= 3; ++j, w += 2) {
        const Nox64fc root = t.root(n / (4 * l) * j * k);
        w[0] = root.re, w[1] = root.im;
      }
    }
  }
  const size_t count = size_t{1} << (order - first);
  Nox32u* const places = t.take<Nox32u>(chain_places(order));
  // In base 4 the digits of a place are those of its index backwards: the next digit stands in front.
  places[0] = 0;
  for (size_t have = 1; have < count; have *= 4) {
    const Nox32u digit = static_cast<Nox32u>(count / (4 * have));
    for (size_t d = 1; d < 4; ++d)
      for (size_t i = 0; i < have; ++i) places[d * have + i] = places[i] + static_cast<Nox32u>(d) * digit;
  }
  for (size_t i = 0; i < kAhead; ++i) places[count + i] = places[i];
  return {order, places, twiddles};
}

void build_large(Tables& t, LargePlan* plan) {
  const int c = columns_order(t.order), r = rows_order(t.order);
  plan->columns = build_chain(t, c);
  plan->rows = build_chain(t, r);
  const size_t l = (size_t{1} << c) / 4;
  Nox64fc* near = t.take<Nox64fc>(near_turns(c));
  plan->near_turns = near;
  for (size_t k = 0; k < l; ++k)
    for (size_t column = 0; column < kLine; column += 2)
      for (size_t j = 0; j < 4; ++j, near += 2) {
        near[0] = t.root(column * (k + j * l));
        near[1] = t.root((column + 1) * (k + j * l));
      }
  Nox64fc* far = t.take<Nox64fc>(far_turns(t.order));
  plan->far_turns = far;
  for (size_t block = 0; block < size_t{1} << r; block += kLine)
    for (size_t k = 0; k < l; ++k)
      for (size_t j = 0; j < 4; ++j) *far++ = t.root(block * (k + j * l));
}

// ---- running
template <bool Inverse>
NOX_INLINE void run_passes(const Nox64fc* src, Nox64fc* dst, int order, const Nox64f* w, Nox64fc* work, Nox64f scale) {
  const size_t n = size_t{1} << order;
  // The last pass ends in the destination, each before it where the next doesn't write; only it may be in place.
  const bool odd = order % 2 != 0;
  odd ? first_pass_of_eight<Inverse>(src, work, n / 8, scale) : first_pass_of_four<Inverse>(src, work, n / 4, scale);
  Nox64fc *from = work, *to = dst;
  size_t l = odd ? 8 : 4;
  for (; 4 * l < n; l *= 4) {
    const bool wide = is_wide(order, l);
    if (wide)
      pass_of_four<Inverse, true>(from, to, n / 4, l, w);
    else
      pass_of_four<Inverse, false>(from, to, n / 4, l, w);
    w += pass_doubles(l, wide);
    Nox64fc* const other = from;
    from = to;
    to = other;
  }
  if (order <= 7)
    pass_of_four<Inverse, true>(from, dst, n / 4, l, w);
  else
    pass_of_four<Inverse, false>(from, dst, n / 4, l, w);
}

template <bool Inverse>
void run_on_stack(const Nox64fc* src, Nox64fc* dst, int order, const Nox64f* w, Nox64f scale) {
  alignas(32) Nox64fc buffer[size_t{1} << kPlanDirectOrder];
  run_passes<Inverse>(src, dst, order, w, buffer, scale);
}

}  // namespace

bool plan_size(int order, int& spec_size, int& work_size) {
  const Nox64u n = Nox64u{1} << order;
  // The small sizes are fixed by those who lay out memory around a spec.
  const Nox64u spec =
      order <= kNoInitOrder
          ? 18 * n + 2048
          : kAlign - 1 + kRecord + (order <= kPlanMiddleOrder ? passes_bytes(order) : large_bytes(order));
  const Nox64u work = order <= kPlanDirectOrder ? 0 : sizeof(Nox64fc) * n + 128;
  const bool fits = spec <= 0x7FFFFFFF && work <= 0x7FFFFFFF;
  spec_size = fits ? static_cast<int>(spec) : 0;
  work_size = fits ? static_cast<int>(work) : 0;
  return fits;
}

void plan_init(NoxFftSpec* spec, Nox64f* sines) {
  const int order = spec->order;
  Nox8u* const base = reinterpret_cast<Nox8u*>(spec);
  LargePlan* const large = reinterpret_cast<LargePlan*>(base + kFftHeader);
  spec->plan = large;
  spec->pTwiddle = reinterpret_cast<const Nox64f*>(base + kRecord);
  spec->workSize = order <= kPlanDirectOrder ? 0 : static_cast<Nox32s>((sizeof(Nox64fc) << order) + 128);
  if (order < 4) return;
  Tables tables{base + kRecord, make_wave(order, sines), order};
  order <= kPlanMiddleOrder ? build_passes(tables) : build_large(tables, large);
}

template <bool Inverse>
void plan_run(const Nox64fc* src, Nox64fc* dst, const NoxFftSpec* spec, Nox64fc* work, Nox64f scale) {
  const int order = spec->order;
  switch (order) {
    case 0:
      return transform_of_1(src, dst, scale);
    case 1:
      return transform_of_2(src, dst, scale);
    case 2:
      return transform_of_4<Inverse>(src, dst, scale);
    case 3:
      return transform_of_8<Inverse>(src, dst, scale);
    default:
      break;
  }
  if (order <= kPlanDirectOrder) return run_on_stack<Inverse>(src, dst, order, spec->pTwiddle, scale);
  if (order <= kPlanMiddleOrder) return run_passes<Inverse>(src, dst, order, spec->pTwiddle, work, scale);
  run_large<Inverse>(*static_cast<const LargePlan*>(spec->plan), src, dst, work, scale);
}
template void plan_run<false>(const Nox64fc*, Nox64fc*, const NoxFftSpec*, Nox64fc*, Nox64f);
template void plan_run<true>(const Nox64fc*, Nox64fc*, const NoxFftSpec*, Nox64fc*, Nox64f);

}  // namespace NOX_VARIANT
}  // namespace nox
#endif
