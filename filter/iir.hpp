// The recursive filters' state: its record, the places of everything in the caller's memory, and the sizes.
//
// Memory, from its first 32-byte boundary: the record in a header of fixed size, normalised taps, the delay line, the
// tables of numerator and recursion, the per-sample rows of a cascade, and a work area for the numerator pass of one
// chunk. The sizes told are wider than what the kernels here lay out, and callers store them, so they stay.
#pragma once
#include <limits>

#include "core/drivers.hpp"
#include "core/simd/run.hpp"
#include "filter/fir_kernels.hpp"
#include "nox/filter.h"

namespace nox {
inline namespace NOX_VARIANT {

constexpr int kIirChunk = 1024;  // samples filtered at a time: numerator and outputs stay in the first-level cache
constexpr size_t kIirBoundary = 32;
constexpr int kIirSmallOrder = 8;  // up to here the direct form's memory has room for tables of eight columns

// Runs that a recursion yields at a time. With two, its latency counts half as much; the additional products are worth
// it where a run is one vector. Real direct forms beyond the small orders have no room for so wide a table, and little
// need.
constexpr int kIirRuns = NOX_LEVEL >= 3 ? 2 : 1;
template <class K>
constexpr int iir_runs(Nox64u order) {
  return order <= kIirSmallOrder || RunOf<K>::type::N < 4 ? kIirRuns : 1;
}

template <class K>
struct IirKind;
template <>
struct IirKind<f64> {
  static constexpr Nox32u kDirect = 0x49493133, kCascade = 0x49493134;
  static constexpr Nox64u kHeader = 832;
};
template <>
struct IirKind<c64> {
  static constexpr Nox32u kDirect = 0x49493135, kCascade = 0x49493136;
  static constexpr Nox64u kHeader = 1600;
};

// The pointers are to elements of the filter's type.
struct IirState {
  Nox32u id;
  void* taps;   // direct: b0..bn, a1..an; cascade: b0, b1, b2, a1, a2 of each section; all divided by a0
  void* delay;  // direct: n elements and a zero; cascade: two of each section
  Nox32s order;
  void* numerator;  // direct: IirWindows of b0..bn, then of a1..an
  void* recursion;  // rows of LookAhead
  Nox32s sections;  // 0 in the direct form
  void* sample;     // cascade: b0, b0, b1, b2, -a1, -a2 of each section
  void* work;
  void* secondWork;  // direct: the same again; no call reads it, nor what follows
  Nox32u reserved;
  Nox32s phase, history;
};

// Taps in the reverse order, for sums over windows of a signal, and behind them their imaginary parts in all lanes.
template <class K>
struct IirWindow {
  using E = typename K::elem;
  static constexpr size_t kBytes = sizeof(E) + (kFirWideTaps<E> ? kFirWideLanes * sizeof(Nox64f) : 0);  // a tap
  E* taps;
  int count;

  NOX_INLINE Nox64f* wide() const { return reinterpret_cast<Nox64f*>(taps + count); }
  void fill(const E* from) const {
    map_reversed<K>(taps, from, count, Keep{});
    if constexpr (kFirWideTaps<E>)
      for (int k = 0; k < count; ++k) f64::vec::all(taps[k].im).store(wide() + static_cast<int>(kFirWideLanes) * k);
  }
  // d[i] = sum over j of s[i + j] * tap count - 1 - j; the arrays don't overlap.
  __attribute__((noinline)) void sums(const E* s, E* d, int n) const {
    fir_outputs<K>(s, d, static_cast<size_t>(n), FirTaps<E>{taps, taps + count, wide()});
  }
};

// Places, in bytes behind the record.
struct IirLayout {
  Nox64u taps, delay, numerator, recursion, sample, work, end;

  template <class K>
  static constexpr IirLayout direct(Nox64u n) {
    constexpr Nox64u kElement = sizeof(typename K::elem);
    return of<K>((2 * n + 1) * kElement, (n + 1) * kElement, (2 * n + 1) * IirWindow<K>::kBytes, n * iir_runs<K>(n), 0);
  }
  template <class K>
  static constexpr IirLayout cascade(Nox64u n) {
    constexpr Nox64u kElement = sizeof(typename K::elem);
    return of<K>(5 * n * kElement, 2 * n * kElement, 0, 2 * n * kIirRuns, 6 * n * kElement);
  }

 private:
  static constexpr Nox64u round(Nox64u bytes) { return (bytes + kIirBoundary - 1) & ~Nox64u{kIirBoundary - 1}; }
  template <class K>
  static constexpr IirLayout of(Nox64u taps, Nox64u delay, Nox64u numerator, Nox64u rows, Nox64u sample) {
    constexpr Nox64u kElement = sizeof(typename K::elem);
    IirLayout l{};
    l.taps = IirKind<K>::kHeader;
    l.delay = round(l.taps + taps);
    l.numerator = round(l.delay + delay);
    l.recursion = round(l.numerator + numerator);
    l.sample = l.recursion + rows * RunOf<K>::type::N * kElement;
    l.work = round(l.sample + sample);
    l.end = l.work + kIirChunk * kElement;
    return l;
  }
};

// Bytes told to callers.
template <class K>
constexpr Nox64u iir_direct_size(Nox64u n);
template <>
constexpr Nox64u iir_direct_size<f64>(Nox64u n) {
  const bool small = NOX_LEVEL >= 3 && n <= kIirSmallOrder;
  const Nox64u tables = small ? 18 * n + 74 : 6 * n + 14;
  return ((16 * n + 23) & ~Nox64u{15}) + (1024 + tables) * 8 + 832 + ((8 * n + 23) & ~Nox64u{15}) + 64;
}
template <>
constexpr Nox64u iir_direct_size<c64>(Nox64u n) {
  const bool small = NOX_LEVEL >= 3 && n <= kIirSmallOrder;
  return (small ? 40 * n + 1166 : 16 * n + 1034) * 16 + 32 * n + 1696;
}
template <class K>
constexpr Nox64u iir_cascade_size(Nox64u n);
template <>
constexpr Nox64u iir_cascade_size<f64>(Nox64u n) {
  return ((40 * n + 15) & ~Nox64u{15}) + (32 * n + 1024) * 8 + 832 + 16 * n + 64;
}
template <>
constexpr Nox64u iir_cascade_size<c64>(Nox64u n) {
  return 80 * n + (64 * n + 1024) * 16 + 1600 + 32 * n + 64;
}

// Beyond the small orders both sides grow by constant steps, so a few periods of the rounding stand for all orders.
constexpr bool iir_fits() {
  for (Nox64u n = 1; n <= 64; ++n) {
    if (IirLayout::direct<f64>(n).end + kIirBoundary - 1 > iir_direct_size<f64>(n)) return false;
    if (IirLayout::direct<c64>(n).end + kIirBoundary - 1 > iir_direct_size<c64>(n)) return false;
    if (IirLayout::cascade<f64>(n).end + kIirBoundary - 1 > iir_cascade_size<f64>(n)) return false;
    if (IirLayout::cascade<c64>(n).end + kIirBoundary - 1 > iir_cascade_size<c64>(n)) return false;
  }
  return true;
}
static_assert(iir_fits(), "what Init lays out must fit the size told");
static_assert(sizeof(IirState) <= IirKind<f64>::kHeader, "the taps stand behind the record");

constexpr bool iir_size_exists(Nox64u bytes) { return bytes <= std::numeric_limits<int>::max(); }

// The look-ahead coefficients of a recursion y[n] = w[n] - a[0] y[n-1] - a[1] y[n-2] ...: element (k, c) is what
// y[n-1-k] contributes to y[n+c] with all between eliminated. So the outputs n..n+c depend on those before n and on w
// alone, and the first row is what w[n] contributes to those behind it. A row is as wide as `runs` runs.
template <class K>
struct LookAhead {
  using One = typename K::one;
  using E = typename K::elem;
  E* rows;
  size_t width;

  NOX_INLINE LookAhead(E* at, int runs) : rows(at), width(static_cast<size_t>(runs) * RunOf<K>::type::N) {}
  void fill(const E* a, int order) const {
    const size_t n = static_cast<size_t>(order);
    for (size_t k = 0; k < n; ++k) {
      E* const row = rows + k * width;
      for (size_t c = 0; c < width; ++c) {
        One sum = k + c < n ? One::zero() - One::load(a + k + c) : One::zero();
        for (size_t j = 0; j < c && j < n; ++j) sum = sum - One::load(a + j) * One::load(row + c - 1 - j);
        sum.store(row + c);
      }
    }
  }
};

// The recursion within a block of Runs runs, for a filter whose newest Near outputs, at most a run, are in a register.
template <class K, int Runs, int Near>
struct Recursion {
  using E = typename K::elem;
  using Run = typename RunOf<K>::type;
  using Factor = typename RunOf<K>::factor;
  using Sum = typename RunOf<K>::sum;
  static constexpr size_t kRow = Runs * Run::N;
  const E* rows;
  Factor moved[Run::N - 1];    // what a value contributes to those one, two, three places on
  Factor newest[Near * Runs];  // what the newest outputs contribute to each run

  NOX_INLINE explicit Recursion(const E* table) : rows(table) {
    for (int i = 0; i < Run::N - 1; ++i) moved[i] = Factor::all(table[i]);
    for (int i = 0; i < Near * Runs; ++i) newest[i] = Factor::load(table + i * Run::N);
  }

  // Sums that begin with the inputs w become the outputs there would be if all before the block were zeros.
  template <size_t N>
  NOX_INLINE void alone(Sum (&sum)[N], const Run (&w)[N]) const {
    for (size_t r = 0; r < N; ++r) {
      if constexpr (Run::N > 2) sum[r].template add_moved<2>(moved[1], w[r]);
      sum[r].template add_moved<1>(moved[0], w[r]);
      if constexpr (Run::N > 3) sum[r].template add_moved<3>(moved[2], w[r]);
      if (r > 0) add_newest(sum[r], 0, sum[r - 1].total());
    }
  }
  // Adds to run r what the newest outputs before contribute, with which `last` ends. The next ones wait for this, so
  // no more than two products hang on one another.
  NOX_INLINE void add_newest(Sum& sum, int r, Run last) const {
    if constexpr (Near >= 2) sum.add(newest[Runs + r], lane<Run::N - 2>(last));
    sum.add(newest[r], lane<Run::N - 1>(last));
    if constexpr (Near >= 3) {
      Sum older = Sum::of(newest[2 * Runs + r], lane<Run::N - 3>(last));
      if constexpr (Near >= 4) older.add(newest[3 * Runs + r], lane<Run::N - 4>(last));
      sum.add(older);
    }
  }
  // What the outputs before these contribute to each run, down to the one `order` places before y.
  template <size_t N>
  NOX_INLINE void older(Sum (&sum)[N], const E* y, int order) const {
    for (Sum& s : sum) s = Sum::from(Run::zero());
    const E* row = rows + static_cast<size_t>(order) * kRow;
    for (int k = order; k > Near; --k) {
      row -= kRow;
      for (size_t r = 0; r < N; ++r) sum[r].add(y[-k], row + r * Run::N);
    }
  }
};

}  // namespace NOX_VARIANT
}  // namespace nox
