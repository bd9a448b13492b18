// The angle in the first eighth of the turn is a product of a whole number and a step of two doubles, and keeps the
// part that its double can't hold; the polynomials of the library's sine and cosine take both.
#include "transform/sine.hpp"

#include "transform/fft_complex_lanes.hpp"
#include "vmath/trig.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using V = f64::vec;

struct Circle {
  V whole, high, low;  // pi/4/whole is high + low; the product of `high` and a number up to 2^29 is exact
};

Circle circle_of(Nox32u whole) {
  const long double step = 0.785398163397448309615660845819875721L / whole;
  const Nox64f high = static_cast<Nox32f>(step);
  return {V::all(static_cast<Nox64f>(static_cast<Nox32s>(whole))), V::all(high),
          V::all(static_cast<Nox64f>(step - high))};
}

// Of eighths of a turn times `whole`, up to one eighth of the turn.
NOX_INLINE void eighth_lanes(const Circle& circle, V at, V& cosine, V& sine) {
  const V high = at * circle.high, low = at * circle.low;
  const V r = high + low;
  const Angle<V> angle{r, (high - r) + low, V::zero()};
  const V z = r * r;
  sine = sine_near_zero(angle, z);
  cosine = cosine_near_zero(angle, z);
}

// Parts in, cosines and sines out.
NOX_INLINE void turn_lanes(const Circle& circle, V part, V& cosine, V& sine) {
  // In eighths of a turn times `whole`, folded about the half, the quarter and the eighth of the turn.
  const V eighth = circle.whole, quarter = eighth + eighth, half = quarter + quarter;
  const V to_half = half - part * V::all(8);
  const V to_quarter = quarter - (half - abs(to_half));
  const V to_eighth = eighth - (quarter - abs(to_quarter));
  V c, s;
  eighth_lanes(circle, eighth - abs(to_eighth), c, s);
  cosine = pick(to_eighth, s, c) ^ sign_of(to_quarter);
  sine = pick(to_eighth, c, s) ^ sign_of(to_half);
}

}  // namespace

void turns(Turn (&d)[kTurnChunk], const Nox64f (&parts)[kTurnChunk], Nox32u n, Nox32u whole) {
  const Circle circle = circle_of(whole);
  for (size_t i = 0; i < n; i += V::N) {
    Split<V> w;
    turn_lanes(circle, V::load(parts + i), w.re, w.im);
    store_joined(&d[i].cosine, w);
  }
}

// The first eighth of the turn gives the sines from the front and, as cosines, those from the back.
Wave make_wave(int order, Nox64f* memory) {
  if (order <= kConstantWave) return constant_wave(order);
  const Nox32u n = Nox32u{1} << order;
  const Circle circle = circle_of(n);
  Nox64f lanes[V::N];
  for (size_t i = 0; i < V::N; ++i) lanes[i] = static_cast<Nox64f>(8 * i);
  V at = V::load(lanes);
  const V further = V::all(8 * V::N);
  Nox64f* back = memory + n / 4 + 1;
  for (Nox64f* front = memory; front != memory + n / 8; front += V::N, at = at + further) {
    V cosine, sine;
    eighth_lanes(circle, at, cosine, sine);
    sine.store(front);
    back -= V::N;
    reverse(cosine).store(back);
  }
  memory[n / 8] = 0.70710678118654752440;
  return {memory, 1, order};
}

}  // namespace NOX_VARIANT
}  // namespace nox
