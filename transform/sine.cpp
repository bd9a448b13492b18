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

// Parts in, cosines and sines out.
NOX_INLINE void turn_lanes(const Circle& circle, V part, V& cosine, V& sine) {
  // In eighths of a turn times `whole`, folded about the half, the quarter and the eighth of the turn.
  const V eighth = circle.whole, quarter = eighth + eighth, half = quarter + quarter;
  const V to_half = half - part * V::all(8);
  const V to_quarter = quarter - (half - abs(to_half));
  const V to_eighth = eighth - (quarter - abs(to_quarter));
  const V at = eighth - abs(to_eighth);
  const V high = at * circle.high, low = at * circle.low;
  const V r = high + low;
  const Angle<V> angle{r, (high - r) + low, V::zero()};
  const V z = r * r, s = sine_near_zero(angle, z), c = cosine_near_zero(angle, z);
  cosine = pick(to_eighth, s, c) ^ sign_of(to_quarter);
  sine = pick(to_eighth, c, s) ^ sign_of(to_half);
}

}  // namespace

void turns(Turn (&d)[kTurnChunk], const Nox64f (&parts)[kTurnChunk], Nox32u n, Nox32u whole) {
  const long double step = 0.785398163397448309615660845819875721L / whole;
  const Nox64f high = static_cast<Nox32f>(step);
  const Circle circle{V::all(static_cast<Nox64f>(static_cast<Nox32s>(whole))), V::all(high),
                      V::all(static_cast<Nox64f>(step - high))};
  for (size_t i = 0; i < n; i += V::N) {
    Split<V> w;
    turn_lanes(circle, V::load(parts + i), w.re, w.im);
    store_joined(&d[i].cosine, w);
  }
}

Wave make_wave(int order, Nox64f* memory) {
  if (order <= kConstantWave) return constant_wave(order);
  const Nox32u n = Nox32u{1} << order;
  for_turns(
      n / 8 + 1, n, [](Nox32u k) { return k; },
      [=](Nox32u k, Turn w) {
        memory[k] = w.sine;
        memory[n / 4 - k] = w.cosine;
      });
  return {memory, 1, order};
}

}  // namespace NOX_VARIANT
}  // namespace nox
