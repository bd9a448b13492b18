// Triangle waves of any asymmetry: at low frequencies a walk from value to value, above a step from phase to phase.
//
// A period has a falling part of length a = pi + asym and a rising part of length b = pi - asym. Where a step is short,
// most of them stay on their slope, and the few that pass a bound are reflected onto the other one. Where it isn't,
// vectors of phases are cheaper. The complex wave's imaginary part is the same wave from the middle of the rise.
#include "core/simd/f64_ints.hpp"
#include "generate/phase.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr Nox64f kWalkBelow = 0.14, kComplexWalkBelow = 0.11;  // frequencies

struct Wave {
  Nox64f magn, frequency, a, b;
};

// The value at a phase. The lengths are divided by as they are, so that a falling part of none takes no phase.
template <class L>
NOX_INLINE L value_at(const Wave& w, L phase) {
  const L a = L::all(w.a), b = L::all(w.b), falls = phase < a;
  const L along = select(falls, phase, phase - a), length = select(falls, a, b);
  const L part = along * L::all(2) / length - L::all(1);
  return L::all(w.magn) * (part ^ (falls & L::all(-0.0)));
}

class Walk {
 public:
  NOX_INLINE Walk(const Wave& w, Nox64f phase) : magn_(w.magn) {
    const Nox64f g = 2 * kTurn * w.magn * w.frequency;
    fall_ = {-g / w.a, w.b / w.a, 2 * kTurn * w.magn / w.a};
    rise_ = {g / w.b, w.a / w.b, 2 * kTurn * w.magn / w.b};
    falls_ = phase < w.a;
    _mm_store_sd(&x_, value_at(w, F64x1::all(phase)).v);
  }
  NOX_INLINE Nox64f next() {
    const Nox64f given = x_;
    // What passes a bound by so much that the reflected value passes the other one stays on its slope, a period on.
    if (falls_) {
      x_ += fall_.step;
      if (x_ < -magn_) {
        const Nox64f reflected = -rise_.ratio_of_other * x_ - magn_ * (1 + rise_.ratio_of_other);
        falls_ = !(reflected <= magn_);
        x_ = falls_ ? x_ + fall_.period : reflected;
      }
    } else {
      x_ += rise_.step;
      if (x_ > magn_) {
        // No falling part makes this a NaN, which isn't within the bounds either.
        const Nox64f reflected = -fall_.ratio_of_other * x_ + magn_ * (1 + fall_.ratio_of_other);
        falls_ = reflected >= -magn_;
        x_ = falls_ ? reflected : x_ - rise_.period;
      }
    }
    return given;
  }

 private:
  struct Slope {
    Nox64f step;            // of the value
    Nox64f ratio_of_other;  // length of the other part by this one's
    Nox64f period;          // the value's way along this slope in one period
  };
  Slope fall_, rise_;
  Nox64f magn_, x_;
  bool falls_;
};

// Phases of V::N samples in a row.
template <class V>
class Phases {
 public:
  NOX_INLINE Phases(Nox64f first, Nox64f step) {
    Nox64f lanes[V::N], advance = 0;
    for (size_t i = 0; i < V::N; ++i) {
      lanes[i] = first;
      first = wrapped(first + step);
      advance = wrapped(advance + step);
    }
    now_ = V::load(lanes);
    step_ = V::all(advance);
  }
  NOX_INLINE V next() {
    const V given = now_, turn = V::all(kTurn), sum = now_ + step_;
    now_ = sum - ((turn <= sum) & turn);
    return given;
  }

 private:
  NOX_INLINE static Nox64f wrapped(Nox64f x) { return x >= kTurn ? x - kTurn : x; }
  V now_, step_;
};

NOX_INLINE Nox64f middle_of_rise_later(const Wave& w, Nox64f phase) {
  const Nox64f later = phase + (kTurn + w.a) / 2;
  return later >= kTurn ? later - kTurn : later;
}

NOX_INLINE void walk(Nox64f* d, size_t n, const Wave& w, Nox64f phase) {
  Walk x(w, phase);
  for (size_t i = 0; i < n; ++i) d[i] = x.next();
}
NOX_INLINE void walk(Nox64fc* d, size_t n, const Wave& w, Nox64f phase) {
  Walk re(w, phase), im(w, middle_of_rise_later(w, phase));
  for (size_t i = 0; i < n; ++i) d[i] = {re.next(), im.next()};
}

using V = f64::vec;

NOX_INLINE void step(Nox64f* d, size_t n, const Wave& w, Nox64f phase) {
  Phases<V> phases(phase, kTurn * w.frequency);
  for (; n >= V::N; n -= V::N, d += V::N) value_at(w, phases.next()).store(d);
  Nox64f rest[V::N];
  value_at(w, phases.next()).store(rest);
  for (size_t i = 0; i < n; ++i) d[i] = rest[i];
}
NOX_INLINE void step(Nox64fc* d, size_t n, const Wave& w, Nox64f phase) {
  Phases<V> re(phase, kTurn * w.frequency), im(middle_of_rise_later(w, phase), kTurn * w.frequency);
  const auto store = [&](Nox64fc* to) { store_alternating(value_at(w, re.next()), value_at(w, im.next()), &to->re); };
  for (; n >= V::N; n -= V::N, d += V::N) store(d);
  Nox64fc rest[V::N];
  store(rest);
  for (size_t i = 0; i < n; ++i) d[i] = rest[i];
}

template <class E>
NOX_INLINE NoxStatus triangle(E* d, int len, Nox64f magn, Nox64f frequency, Nox64f asym, Nox64f* phase,
                              Nox64f walk_below) {
  if (!phase) return noxStsNullPtrErr;
  if (magn <= 0) return noxStsTrnglMagnErr;
  if (!in_range(frequency, 0, 0.5)) return noxStsTrnglFreqErr;
  if (!in_range(asym, -kHalfTurn, kHalfTurn)) return noxStsTrnglAsymErr;
  const Nox64f first = *phase;
  if (!in_range(first, 0, kTurn)) return noxStsTrnglPhaseErr;
  if (const NoxStatus st = check(len, d)) return st;

  *phase = phase_after(first, kTurn * frequency, len);
  const Wave wave{magn, frequency, kHalfTurn + asym, kHalfTurn - asym};
  if (frequency < walk_below)
    walk(d, static_cast<size_t>(len), wave, first);
  else
    step(d, static_cast<size_t>(len), wave, first);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsTriangle_Direct_64f)(Nox64f* d, int len, Nox64f magn, Nox64f frequency, Nox64f asym,
                                            Nox64f* phase) {
  return triangle(d, len, magn, frequency, asym, phase, kWalkBelow);
}
NoxStatus NOX_BODY(noxsTriangle_Direct_64fc)(Nox64fc* d, int len, Nox64f magn, Nox64f frequency, Nox64f asym,
                                             Nox64f* phase) {
  return triangle(d, len, magn, frequency, asym, phase, kComplexWalkBelow);
}

}  // extern "C"
