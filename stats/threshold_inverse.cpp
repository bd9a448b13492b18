// Inverse thresholds: the reciprocal of each element, whose magnitude is first raised to a level.
//
// Division is slow, so two vectors share one: each reciprocal is won back from that of their product. Where that could
// leave the normal range, or meet a zero or a NaN, the two are divided one by one. Complex values share a reciprocal
// between their parts; those whose square leaves the normal range are computed by the x87 unit, whose exponents hold
// the square of any double, and in the SSE2 build all are while the level isn't 0. Floating-point exceptions are masked
// meanwhile, and both control states put back.
#include "core/body.hpp"
#include "stats/squares.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr bool kExtendedAlways = NOX_LEVEL == 0;

// The thread's vector control register with all exceptions masked, for the life of the object.
class Masked {
 public:
  NOX_INLINE Masked() : before_(_mm_getcsr()) { _mm_setcsr(before_ | 0x1F80); }
  NOX_INLINE ~Masked() { _mm_setcsr(before_); }
  Masked(const Masked&) = delete;
  Masked& operator=(const Masked&) = delete;

 private:
  unsigned before_;
};
// The same of the x87 unit: storing its environment masks, loading it brings control and flags back.
class MaskedExtended {
 public:
  NOX_INLINE MaskedExtended() { asm volatile("fnstenv %0" : "=m"(before_)::"memory"); }
  NOX_INLINE ~MaskedExtended() { asm volatile("fldenv %0" ::"m"(before_) : "memory"); }
  MaskedExtended(const MaskedExtended&) = delete;
  MaskedExtended& operator=(const MaskedExtended&) = delete;

 private:
  unsigned before_[7];
};

// What the reciprocal is taken of.
struct AsItIs {
  template <class V>
  NOX_INLINE V operator()(V x) const {
    return x;
  }
};
struct RaisedTo {
  Nox64f level;
  template <class V>
  NOX_INLINE V operator()(V x) const {
    return max(abs(x), V::all(level)) | (x & V::all(-0.0));
  }
};

template <class V>
NOX_INLINE V reciprocal(V x, Watch<f64>& zeros) {
  zeros.see(x == V::zero());
  return V::all(1.0) / x;
}

template <class F>
NOX_INLINE bool invert(F f, const Nox64f* s, Nox64f* d, int len) {
  using V = f64::vec;
  // Products of this size have normal reciprocals, and so have their factors unless 1 / x itself overflows.
  constexpr Nox64f kLow = 0x1p-1000, kHigh = 0x1p1000;
  Watch<f64> zeros;
  size_t left = static_cast<size_t>(len);
  for (; left >= 2 * V::N; left -= 2 * V::N) {
    const V a = f(V::load(s)), b = f(V::load(s + V::N)), product = a * b, size = abs(product);
    const V usual = (V::all(kLow) <= size) & (size <= V::all(kHigh));
    if (mask_bits(usual) == (1 << V::N) - 1) {
      const V r = V::all(1.0) / product;
      store_run<V>(d, b * r, a * r);
    } else {
      const V first = reciprocal(a, zeros), second = reciprocal(b, zeros);
      store_run<V>(d, first, second);
    }
    advance(2 * V::N * sizeof(Nox64f), s, d);
  }
  for (; left > 0; --left) {
    reciprocal(f(F64x1::load(s)), zeros).store(d);
    advance(sizeof(Nox64f), s, d);
  }
  return zeros.any();
}

NOX_INLINE NoxStatus invert_real(const Nox64f* s, Nox64f* d, int len, Nox64f level) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (level < 0) return noxStsThreshNegLevelErr;
  const Masked masked;
  if (level != 0) {
    invert(RaisedTo{level}, s, d, len);
    return noxStsNoErr;
  }
  return invert(AsItIs{}, s, d, len) ? noxStsInvZero : noxStsNoErr;
}

// Whether the high word of x has no bit but that of the sign: x is a zero, or smaller than any quotient could bear.
NOX_INLINE bool vanishes(const Nox64f& x) {
  Nox64u bits;
  __builtin_memcpy(&bits, &x, sizeof bits);
  return (static_cast<unsigned>(bits >> 32) << 1) == 0;
}

// Elements whose magnitude is raised to `level`, in the x87 unit. Not inlined: no value of the unit may live where its
// environment is stored and loaded.
__attribute__((noinline)) void invert_in_x87(const Nox64fc* s, Nox64fc* d, size_t n, Nox64f level) {
  const long double wide = level, c = 1 / (wide * wide);
  for (; n > 0; --n) {
    const Nox64f re = _mm_cvtsd_f64(_mm_load_sd(&s->re)), im = _mm_cvtsd_f64(_mm_load_sd(&s->im));
    if (vanishes(re) && vanishes(im)) {
      F64x1::all(static_cast<Nox64f>(wide * c)).store(&d->re);
      F64x1::zero().store(&d->im);
    } else {
      const long double x = re, y = im;
      long double r = 1 / (x * x + y * y);
      if (r >= c) {
        r *= c;
        asm("fsqrt" : "+t"(r));
      }
      F64x1::all(static_cast<Nox64f>(x * r)).store(&d->re);
      F64x1::all(static_cast<Nox64f>(-y * r)).store(&d->im);
    }
    advance(sizeof(Nox64fc), s, d);
  }
}

__attribute__((noinline)) void invert_extended(const Nox64fc* s, Nox64fc* d, size_t n, Nox64f level) {
  const MaskedExtended masked;
  invert_in_x87(s, d, n, level);
}

// One vector of elements raised to a level, of which 1 / c is the square.
template <class C>
NOX_INLINE void invert_raised(const Nox64fc* s, Nox64fc* d, Nox64f level, Nox64f c) {
  using V = decltype(squares(C::load(s)));
  const C x = C::load(s);
  const V m = squares(x), one = V::all(1.0);
  const V usual = (V::all(0x1p-900) <= m) & (m <= V::all(0x1p900));
  if (mask_bits(usual) != (1 << V::N) - 1) return invert_extended(s, d, C::N, level);
  const V r = one / m;
  negate_im(scale(x, choose(V::all(c) <= r, sqrt(r * V::all(c)), r))).store(d);
}

// One vector of elements at level 0; a zero gives +infinity and the negated imaginary part.
template <class C>
NOX_INLINE void invert_plain(const Nox64fc* s, Nox64fc* d, Watch<f64>& zeros) {
  using V = decltype(squares(C::load(s)));
  const C x = C::load(s);
  const V m = squares(x);
  const V usual = (V::all(0x1p-1000) <= m) & (m <= V::all(0x1p1000));
  if (mask_bits(usual) == (1 << V::N) - 1) {
    negate_im(scale(x, V::all(1.0) / m)).store(d);
    return;
  }
  const V zero = m == V::zero();
  zeros.see(zero);
  choose(zero, beside_infinity(x), negate_im(ratio(x, m))).store(d);
}

template <class Many, class One>
NOX_INLINE void run(const Nox64fc* s, Nox64fc* d, int len, Many many, One one) {
  size_t left = static_cast<size_t>(len);
  for (; left >= SplitLanes::N; left -= SplitLanes::N) {
    many(s, d);
    advance(SplitLanes::N * sizeof(Nox64fc), s, d);
  }
  for (; left > 0; --left) {
    one(s, d);
    advance(sizeof(Nox64fc), s, d);
  }
}

NOX_INLINE NoxStatus invert_complex(const Nox64fc* s, Nox64fc* d, int len, Nox64f level) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (level < 0) return noxStsThreshNegLevelErr;
  const Masked masked;
  if (level == 0) {
    Watch<f64> zeros;
    run(
        s, d, len, [&](const Nox64fc* from, Nox64fc* to) { invert_plain<SplitLanes>(from, to, zeros); },
        [&](const Nox64fc* from, Nox64fc* to) { invert_plain<C64x1>(from, to, zeros); });
    return zeros.any() ? noxStsInvZero : noxStsNoErr;
  }
  // Between these bounds the products of reciprocals above stay normal.
  if (kExtendedAlways || !(level >= 0x1p-50 && level <= 0x1p50)) {
    invert_extended(s, d, static_cast<size_t>(len), level);
  } else {
    const Nox64f c = 1 / (level * level);
    run(
        s, d, len, [=](const Nox64fc* from, Nox64fc* to) { invert_raised<SplitLanes>(from, to, level, c); },
        [=](const Nox64fc* from, Nox64fc* to) { invert_raised<C64x1>(from, to, level, c); });
  }
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsThreshold_LTInv_64f)(const Nox64f* s, Nox64f* d, int len, Nox64f level) {
  return invert_real(s, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_LTInv_64f_I)(Nox64f* d, int len, Nox64f level) {
  return invert_real(d, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_LTInv_64fc)(const Nox64fc* s, Nox64fc* d, int len, Nox64f level) {
  return invert_complex(s, d, len, level);
}
NoxStatus NOX_BODY(noxsThreshold_LTInv_64fc_I)(Nox64fc* d, int len, Nox64f level) {
  return invert_complex(d, d, len, level);
}

}  // extern "C"
