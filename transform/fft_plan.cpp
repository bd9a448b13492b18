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

constexpr int kAllWide = 7;  // orders up to here have no narrow tables
// Whether the pass over sub-transforms of length l has wide twiddle factors: the stated size of a spec has no room for
// the longest ones, nor at order 10 for all the others, and above the short form spares the cache.
constexpr bool is_wide(int order, size_t l) {
  return order <= kAllWide || (4 * l < size_t{1} << order && (order != 10 || l > 4));
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

// ---- the twiddle factors of the middle and small orders
// Two neighbouring roots, from places of their own.
NOX_INLINE C64x2 two_roots(const Nox64f* a, const Nox64f* b) {
  return {_mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(a)), _mm_loadu_pd(b), 1)};
}
NOX_INLINE C64x2 half_turned(C64x2 a) { return {_mm256_xor_pd(a.v, _mm256_set1_pd(-0.0))}; }
// Forwards by a quarter of the turn, so many times.
NOX_INLINE C64x2 quarter_turned(C64x2 a, size_t times) {
  if (times == 2) return half_turned(a);
  return times == 1 ? conj(swap_parts(a)) : a;
}

// The last pass in the narrow form. First powers come out of the wave, second and third powers out of the first.
void build_last_pass(const Wave& wave, Nox64f* w) {
  constexpr size_t kStep = kTwiddleStep<false>;
  const size_t l = wave.length() / 4, pairs = l / 2;
  const Nox64f *sine = wave.quarter, *cosine = sine + l * wave.stride;
  for (size_t m = 0; m < pairs; ++m, sine += 2 * wave.stride, cosine -= 2 * wave.stride) {
    const __m128d a = _mm_loadh_pd(_mm_load_sd(cosine), sine);
    const __m128d b = _mm_loadh_pd(_mm_load_sd(cosine - wave.stride), sine + wave.stride);
    _mm256_storeu_pd(w + m * kStep, conj(C64x2{_mm256_insertf128_pd(_mm256_castpd128_pd256(a), b, 1)}).v);
  }
  const auto first_power = [=](size_t k) NOX_INLINED { return w + k / 2 * kStep + k % 2 * 2; };
  // The powers of k and k + 1, a pair at a time, pass through as many quarters of the turn as they are multiplied; only
  // in the third powers does a pair lie in two quarters.
  for (size_t quarter = 0; quarter < 2; ++quarter)
    for (size_t m = quarter * pairs / 2; m < (quarter + 1) * pairs / 2; ++m) {
      const Nox64f* const at = first_power(4 * m - quarter * l);
      _mm256_storeu_pd(w + m * kStep + 4, quarter_turned(two_roots(at, at + kStep), quarter).v);
    }
  size_t m = 0;
  for (size_t quarter = 0; quarter < 3; ++quarter) {
    const size_t end = (quarter + 1) * l;
    for (; 6 * m + 3 < end; ++m) {
      const Nox64f* const at = first_power(6 * m - quarter * l);
      _mm256_storeu_pd(w + m * kStep + 8, quarter_turned(two_roots(at, at + kStep + 2), quarter).v);
    }
    if (6 * m < end) {
      const C64x2 a = quarter_turned(two_roots(first_power(6 * m - quarter * l), w), quarter);
      const C64x2 b = quarter_turned(two_roots(w, first_power(6 * m + 3 - end)), quarter + 1);
      _mm256_storeu_pd(w + m * kStep + 8, _mm256_blend_pd(a.v, b.v, 12));
      ++m;
    }
  }
}

// A pass over sub-transforms of length l has every so many of the roots of a later pass in the narrow form.
template <bool Wide>
void build_pass(const Nox64f* later, size_t every, Nox64f* w, size_t l) {
  const size_t next = every == 1 ? 2 : every * kTwiddleStep<false> / 2;
  for (size_t m = 0; m < l / 2; ++m, later += every * kTwiddleStep<false>)
    for (size_t j = 0; j < 3; ++j) {
      const C64x2 roots = two_roots(later + 4 * j, later + 4 * j + next);
      _mm256_storeu_pd(w, Wide ? re_twice(roots).v : roots.v);
      if (Wide) _mm256_storeu_pd(w + 4, im_twice(roots).v);
      w += Wide ? 8 : 4;
    }
}

void build_passes(Tables& t) {
  const size_t longest = t.wave.length() / 4;
  Nox64f* w = reinterpret_cast<Nox64f*>(t.at);
  Nox64f narrow[pass_doubles(size_t{1} << (kAllWide - 2), false)];
  Nox64f* const last =
      t.order <= kAllWide ? narrow : w + passes_bytes(t.order) / sizeof(Nox64f) - pass_doubles(longest, false);
  build_last_pass(t.wave, last);
  for (size_t l = size_t{1} << first_pass_order(t.order); l < longest + (t.order <= kAllWide); l *= 4) {
    const bool wide = is_wide(t.order, l);
    (wide ? build_pass<true> : build_pass<false>)(last, longest / l, w, l);
    w += pass_doubles(l, wide);
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
  if (order <= kAllWide)
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

void plan_init(NoxFftSpec* spec, const Wave* wave, Nox64f* sines) {
  const int order = spec->order;
  Nox8u* const base = reinterpret_cast<Nox8u*>(spec);
  LargePlan* const large = reinterpret_cast<LargePlan*>(base + kFftHeader);
  spec->plan = large;
  spec->pTwiddle = reinterpret_cast<const Nox64f*>(base + kRecord);
  spec->workSize = order <= kPlanDirectOrder ? 0 : static_cast<Nox32s>((sizeof(Nox64fc) << order) + 128);
  if (order < 4) return;
  Tables tables{base + kRecord, wave ? *wave : make_wave(order, sines), order};
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
