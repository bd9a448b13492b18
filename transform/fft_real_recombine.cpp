// The recombination: pairs k and M - k of the half-length spectrum, M = N/2, to the same pairs of the real data's.
//
// Pairs walk towards the middle a vector at a time, real and imaginary parts in separate vectors; the middle value is a
// pair with itself. A plain table holds two factors for each k up to N/4, in groups (a[k], a[k+1], b[k], b[k+1]) for
// odd k. A two-level table holds the factors e^(-2*pi*i*k/N) of k = 1 to 512 in such groups and, behind them, those of
// the multiples of 512: a long table would cost more memory traffic than the product of two short ones.
#include "transform/fft_complex_lanes.hpp"
#include "transform/fft_real.hpp"
#include "transform/sine.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr size_t kFine = 512, kFineDoubles = 2 * kFine;
constexpr int kGroup = 4;

using V = f64::vec;

// Rules for x = Z[k], y = Z[M - k] and the factors (a, b); each leaves the new pair in x and y.
struct ForwardPlain {  // a = cos/2, b = (1 - sin)/2
  static NOX_INLINE void apply(Split<V>& x, Split<V>& y, V a, V b) {
    const V d = x.re - y.re, t = x.im + y.im;
    const V u = madd(a, t, b * d), v = b * t - a * d;
    const Split<V> up{y.re + u, v - y.im}, down{x.re - u, v - x.im};
    x = up;
    y = down;
  }
};
// The pair of sums and differences turned by u and v.
NOX_INLINE void join(Split<V>& x, Split<V>& y, V u, V v) {
  const V re = x.re + y.re, im = x.im - y.im;
  x = {re + u, v + im};
  y = {re - u, v - im};
}
struct Forward {  // a = cos, b = -sin
  static NOX_INLINE void apply(Split<V>& x, Split<V>& y, V a, V b) {
    const V half = V::all(0.5);
    x = {x.re * half, x.im * half};
    y = {y.re * half, y.im * half};
    const V d = x.re - y.re, t = x.im + y.im;
    join(x, y, madd(a, t, b * d), b * t - a * d);
  }
};
struct Inverse {  // a = cos, b = -sin
  static NOX_INLINE void apply(Split<V>& x, Split<V>& y, V a, V b) {
    const V d = x.re - y.re, t = x.im + y.im;
    join(x, y, b * d - a * t, madd(a, d, b * t));
  }
};

template <class Rule>
NOX_INLINE void pair(const Nox64f* s, Nox64f* d, size_t low, size_t high, V a, V b) {
  Split<V> x = load_joined<V>(s + 2 * low), y = load_joined_down<V>(s + 2 * high);
  Rule::apply(x, y, a, b);
  store_joined(d + 2 * low, x);
  store_joined_down(d + 2 * high, y);
}

template <class Rule>
NOX_INLINE void recombine(size_t m, const Nox64f* table, const Nox64f* s, Nox64f* d) {
  for (size_t k = 1; k <= m / 2; k += V::N, table += 2 * V::N)
    pair<Rule>(s, d, k, m - k, load_twiddles<V, kGroup>(table), load_twiddles<V, kGroup>(table + 2));
}
template <class Rule>
NOX_INLINE void recombine_two_level(size_t m, const Nox64f* table, const Nox64f* s, Nox64f* d) {
  const Nox64f* coarse = table + kFineDoubles;
  for (size_t base = 0; base < m / 2; base += kFine, coarse += 2) {
    const V cc = V::all(coarse[0]), ss = V::all(coarse[1]);
    const Nox64f* fine = table;
    for (size_t k = base + 1; k < base + kFine; k += V::N, fine += 2 * V::N) {
      const V c = load_twiddles<V, kGroup>(fine), w = load_twiddles<V, kGroup>(fine + 2);
      pair<Rule>(s, d, k, m - k, cc * c - ss * w, madd(cc, w, ss * c));
    }
  }
}

}  // namespace

void make_recombination(int order, const Wave& wave, Nox64f* forward, Nox64f* inverse) {
  const Nox32u n = Nox32u{1} << order;
  const bool plain = order < real_fft_range.two_level;
  const Nox64f *sine = wave.quarter + wave.stride, *cosine = wave.quarter + (n / 4 - 1) * wave.stride;
  const F64x2 half = F64x2::all(0.5);
  for (Nox32u k = 1; k <= (plain ? n / 4 : Nox32u{kFine}); k += 2, forward += kGroup, inverse += kGroup) {
    const F64x2 s = {_mm_loadh_pd(_mm_load_sd(sine), sine + wave.stride)};
    const F64x2 c = {_mm_loadh_pd(_mm_load_sd(cosine), cosine - wave.stride)};
    (plain ? half * c : c).store(forward);
    (plain ? half - half * s : negate(s)).store(forward + 2);
    c.store(inverse);
    negate(s).store(inverse + 2);
    sine += 2 * wave.stride;
    cosine -= 2 * wave.stride;
  }
  if (plain) return;
  Nox64f* const both[] = {forward, inverse};  // now behind the fine factors
  for (Nox32u j = 0; j < n / 4 / kFine; ++j) {
    const Turn w = wave.early(j * kFine);
    for (Nox64f* const table : both) {
      table[2 * j] = w.cosine;
      table[2 * j + 1] = -w.sine;
    }
  }
}

void recombine_forward(int order, const Nox64f* table, Nox64f* d) {
  const Nox64f a = d[0], b = d[1];
  d[0] = a + b;
  d[1] = a - b;
  const size_t m = size_t{1} << (order - 1);
  if (order < real_fft_range.two_level)
    recombine<ForwardPlain>(m, table, d, d);
  else
    recombine_two_level<Forward>(m, table, d, d);
}

void recombine_inverse(int order, const Nox64f* table, const Nox64f* s, Nox64f* d) {
  const Nox64f a = s[0], b = s[1];
  d[0] = a + b;
  d[1] = a - b;
  const size_t m = size_t{1} << (order - 1);
  if (order < real_fft_range.two_level)
    recombine<Inverse>(m, table, s, d);
  else
    recombine_two_level<Inverse>(m, table, s, d);
}

}  // namespace NOX_VARIANT
}  // namespace nox
