// Bartlett, Hann, Hamming and Blackman windows: their weights by recurrence, two positions at a time.
//
// The cosine of an angle and of its double are computed once a call; the rest follows from
// cos((k + 2) x) = 2 cos(2x) cos(k x) - cos((k - 2) x), for even and odd positions side by side in one vector.
#include "generate/window.hpp"

#include "vmath/lanes.hpp"
#include "vmath/vmath.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr Nox64f kTurn = 6.283185307179586, kTwoTurns = 12.566370614359172, kHalfTurn = 3.141592653589793;
constexpr size_t kLongHalf = 512;  // above it Blackman's cosines are one chain

// 2 cos(x) and 2 cos(2x) of the angle x between positions.
struct Turn {
  Nox64f once, twice;
};
NOX_INLINE Turn turn(size_t n) {
  const Nox64f steps = static_cast<Nox64f>(n - 1);
  Nox64f x[2] = {kTurn / steps, kTwoTurns / steps};
  cos_array(x, x, 2);
  return {x[0] + x[0], x[1] + x[1]};
}

// a b - c, fused or not.
template <bool Fused, class L>
NOX_INLINE L minus(L a, L b, L c) {
  if constexpr (Fused)
    return madd(a, b, negate(c));
  else
    return a * b - c;
}

// A cos(k x), for two positions at a time.
template <bool Fused>
class Cosines {
 public:
  NOX_INLINE Cosines(Nox64f amplitude, const Turn& t) : factor_(F64x2::all(t.twice)) {
    const F64x1 c = F64x1::all(t.once), u0 = F64x1::all(amplitude), u1 = F64x1::all(amplitude * (t.once * 0.5));
    const F64x1 u2 = minus<Fused>(c, u1, u0), u3 = minus<Fused>(c, u2, u1);
    now_ = {_mm_unpacklo_pd(u0.v, u1.v)};
    after_ = {_mm_unpacklo_pd(u2.v, u3.v)};
  }
  NOX_INLINE F64x2 next() {
    const F64x2 given = now_;
    now_ = after_;
    after_ = minus<Fused>(factor_, now_, given);
    return given;
  }

 private:
  F64x2 factor_, now_, after_;
};
// The same by steps of one position.
class CosinesInTurn {
 public:
  NOX_INLINE CosinesInTurn(Nox64f amplitude, const Turn& t)
      : factor_(F64x1::all(t.once)), now_(F64x1::all(amplitude)), after_(F64x1::all(amplitude * (t.once * 0.5))) {}
  NOX_INLINE F64x2 next() {
    const F64x2 given = {_mm_unpacklo_pd(now_.v, after_.v)};
    now_ = minus<true>(factor_, after_, now_);
    after_ = minus<true>(factor_, now_, after_);
    return given;
  }

 private:
  F64x1 factor_, now_, after_;
};

// base - amplitude cos(k x): Hann and Hamming.
struct RaisedCosine {
  Nox64f base;
  Cosines<false> cosines;
  NOX_INLINE F64x2 next() { return F64x2::all(base) - cosines.next(); }
};
struct Hann {
  template <class E>
  NOX_INLINE static void apply(const E* s, E* d, size_t n) {
    apply_window(s, d, n, RaisedCosine{0.5, {0.5, turn(n)}});
  }
};
struct Hamming {
  template <class E>
  NOX_INLINE static void apply(const E* s, E* d, size_t n) {
    apply_window(s, d, n, RaisedCosine{0.54, {0.46, turn(n)}});
  }
};

// a + 0.5 - c - 4 a c^2 with c = 0.5 cos(k x).
template <class Chain>
struct RaisedSquare {
  Nox64f alpha;
  Chain cosines;
  NOX_INLINE F64x2 next() {
    const F64x2 c = cosines.next();
    return nmadd(F64x2::all(4 * alpha) * c, c, F64x2::all(alpha + 0.5) - c);
  }
};

// The three positions of the shortest window have weights 0, 1, 0.
NOX_INLINE void put_zero(Nox64f* d) { F64x1::zero().store(d); }
NOX_INLINE void put_zero(Nox64fc* d) { F64x2::zero().store(&d->re); }
template <class E>
NOX_INLINE void keep_middle(const E* s, E* d) {
  keep_one(s + 1, d + 1);
  put_zero(d);
  put_zero(d + 2);
}

template <class E>
NOX_INLINE NoxStatus blackman(const E* s, E* d, int len, Nox64f alpha) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (len < 3) return noxStsSizeErr;
  const size_t n = static_cast<size_t>(len);
  if (n == 3)
    keep_middle(s, d);
  else if (n / 2 > kLongHalf)
    apply_window(s, d, n, RaisedSquare<CosinesInTurn>{alpha, {0.5, turn(n)}});
  else
    apply_window(s, d, n, RaisedSquare<Cosines<true>>{alpha, {0.5, turn(n)}});
  return noxStsNoErr;
}
template <class E>
NOX_INLINE NoxStatus blackman_standard(const E* s, E* d, int len) {
  return blackman(s, d, len, -0.16);
}
// The length is looked at before the pointers: the parameter follows from it.
template <class E>
NOX_INLINE NoxStatus blackman_optimal(const E* s, E* d, int len) {
  if (len < 4) return noxStsSizeErr;
  const Nox64f root = 0.5 / cos_one(kHalfTurn / static_cast<Nox64f>(len - 1));
  return blackman(s, d, len, -(root * root));
}

// 0, s, 2s, ... by adding 2s to both of two.
struct Ramp {
  F64x2 now, step;
  NOX_INLINE explicit Ramp(Nox64f s) : now{_mm_set_pd(s, 0)}, step(F64x2::all(s + s)) {}
  NOX_INLINE F64x2 next() {
    const F64x2 given = now;
    now = now + step;
    return given;
  }
};
struct Bartlett {
  template <class E>
  NOX_INLINE static void apply(const E* s, E* d, size_t n) {
    if (n == 3) return keep_middle(s, d);
    apply_window(s, d, n, Ramp(2 / static_cast<Nox64f>(n - 1)));
  }
};

template <class Window, class E>
NOX_INLINE NoxStatus window(const E* s, E* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (len < 3) return noxStsSizeErr;
  Window::apply(s, d, static_cast<size_t>(len));
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsWinBartlett_64f)(const Nox64f* s, Nox64f* d, int len) { return window<Bartlett>(s, d, len); }
NoxStatus NOX_BODY(noxsWinBartlett_64fc)(const Nox64fc* s, Nox64fc* d, int len) { return window<Bartlett>(s, d, len); }
NoxStatus NOX_BODY(noxsWinBartlett_64f_I)(Nox64f* d, int len) { return window<Bartlett>(d, d, len); }
NoxStatus NOX_BODY(noxsWinBartlett_64fc_I)(Nox64fc* d, int len) { return window<Bartlett>(d, d, len); }

NoxStatus NOX_BODY(noxsWinHann_64f)(const Nox64f* s, Nox64f* d, int len) { return window<Hann>(s, d, len); }
NoxStatus NOX_BODY(noxsWinHann_64fc)(const Nox64fc* s, Nox64fc* d, int len) { return window<Hann>(s, d, len); }
NoxStatus NOX_BODY(noxsWinHann_64f_I)(Nox64f* d, int len) { return window<Hann>(d, d, len); }
NoxStatus NOX_BODY(noxsWinHann_64fc_I)(Nox64fc* d, int len) { return window<Hann>(d, d, len); }

NoxStatus NOX_BODY(noxsWinHamming_64f)(const Nox64f* s, Nox64f* d, int len) { return window<Hamming>(s, d, len); }
NoxStatus NOX_BODY(noxsWinHamming_64fc)(const Nox64fc* s, Nox64fc* d, int len) { return window<Hamming>(s, d, len); }
NoxStatus NOX_BODY(noxsWinHamming_64f_I)(Nox64f* d, int len) { return window<Hamming>(d, d, len); }
NoxStatus NOX_BODY(noxsWinHamming_64fc_I)(Nox64fc* d, int len) { return window<Hamming>(d, d, len); }

NoxStatus NOX_BODY(noxsWinBlackman_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f alpha) {
  return blackman(s, d, len, alpha);
}
NoxStatus NOX_BODY(noxsWinBlackman_64fc)(const Nox64fc* s, Nox64fc* d, int len, Nox64f alpha) {
  return blackman(s, d, len, alpha);
}
NoxStatus NOX_BODY(noxsWinBlackman_64f_I)(Nox64f* d, int len, Nox64f alpha) { return blackman(d, d, len, alpha); }
NoxStatus NOX_BODY(noxsWinBlackman_64fc_I)(Nox64fc* d, int len, Nox64f alpha) { return blackman(d, d, len, alpha); }

NoxStatus NOX_BODY(noxsWinBlackmanStd_64f)(const Nox64f* s, Nox64f* d, int len) { return blackman_standard(s, d, len); }
NoxStatus NOX_BODY(noxsWinBlackmanStd_64fc)(const Nox64fc* s, Nox64fc* d, int len) {
  return blackman_standard(s, d, len);
}
NoxStatus NOX_BODY(noxsWinBlackmanStd_64f_I)(Nox64f* d, int len) { return blackman_standard(d, d, len); }
NoxStatus NOX_BODY(noxsWinBlackmanStd_64fc_I)(Nox64fc* d, int len) { return blackman_standard(d, d, len); }

NoxStatus NOX_BODY(noxsWinBlackmanOpt_64f)(const Nox64f* s, Nox64f* d, int len) { return blackman_optimal(s, d, len); }
NoxStatus NOX_BODY(noxsWinBlackmanOpt_64fc)(const Nox64fc* s, Nox64fc* d, int len) {
  return blackman_optimal(s, d, len);
}
NoxStatus NOX_BODY(noxsWinBlackmanOpt_64f_I)(Nox64f* d, int len) { return blackman_optimal(d, d, len); }
NoxStatus NOX_BODY(noxsWinBlackmanOpt_64fc_I)(Nox64fc* d, int len) { return blackman_optimal(d, d, len); }

}  // extern "C"
