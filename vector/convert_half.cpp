// Conversions from and to half precision.
//
// By integer operations on the bits: the exponents of halves are 112 below those of floats. Halves below the normal
// range come from a subtraction that normalises them, and go by a product that makes their steps whole numbers; both
// are exact, so the rounding mode of the thread has no part in it. The AVX builds use the processor's instructions
// where the features in force hold them; the bits are the same.
#include "core/rounding.hpp"
#include "nox/vector/convert.h"
#include "vector/convert.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using V = Ints8::Vector;
using F = FloatVector;
using U = IntLanes<Nox32u, sizeof(V)>;

struct Half {
  using elem = Nox16f;
  static constexpr size_t kPer = 1;
  static NOX_INLINE Ints8 take(const Nox16f* p) { return from_words<false>(load_16(p)); }
  // All fit into 16 bits.
  static NOX_INLINE void put(Nox16f* p, Ints8 a) { store_16(p, words_of<Nox16u>(a)); }
};

NOX_INLINE V down(V a, int n) { return as_lanes<Nox32s>(shift_right(as_lanes<Nox32u>(a), n)); }

NOX_INLINE Floats8 from_half(Ints8 half) {
  const Ints8 size = each_vector([](V h) NOX_INLINED { return shift_left(h & V::all(0x7FFF), 13); }, half);
  // Below the normal range: the mantissa under the exponent of 2^-14, less that power.
  const auto under = [](V s) NOX_INLINED { return s + V::all(113 << 23); };
  const Floats8 small =
      each_vector([](F a) NOX_INLINED { return a - all_of<F>(0x1p-14f); }, float_bits(each_vector(under, size)));
  const auto join = [](V s, V h, V little) NOX_INLINED {
    const V normal = s + V::all(112 << 23), endless = s > V::all((0x7C00 << 13) - 1), nan = s > V::all(0x7C00 << 13);
    const V large = normal + (endless & V::all(112 << 23));
    const V quiet = large | (nan & V::all(1 << 22));
    const V below = V::all(0x0400 << 13) > s;
    return select_lanes(below, little, quiet) | shift_left(h & V::all(0x8000), 16);
  };
  return float_bits(each_vector(join, size, half, int_bits(small)));
}

template <bool Nearest>
NOX_INLINE Ints8 to_half(Floats8 x) {
  const Ints8 bits = int_bits(x);
  const Ints8 size = each_vector([](V b) NOX_INLINED { return b & V::all(0x7FFFFFFF); }, bits);
  // In steps of 2^-24, the smallest half; only those below 2^-14 are used.
  const Floats8 steps = each_vector([](F a) NOX_INLINED { return a * all_of<F>(0x1p24f); }, float_bits(size));
  Ints8 small = cut(steps);
  if (Nearest) {
    const Floats8 rest = each_vector([](F a, F whole) NOX_INLINED { return a - whole; }, steps, to_floats(small));
    const Ints8 half = int_bits(each_vector([](F a) NOX_INLINED { return all_of<F>(0.5f) <= a; }, rest));
    const Ints8 tie = int_bits(each_vector([](F a) NOX_INLINED { return a <= all_of<F>(0.5f); }, rest));
    const auto round = [](V q, V from_half_on, V to_half_at_most) NOX_INLINED {
      const V even = (q & V::all(1)) == V::zero();
      return q - and_not(to_half_at_most & even, from_half_on);
    };
    small = each_vector(round, small, half, tie);
  }
  const auto join = [](V b, V s, V little) NOX_INLINED {
    const V odd = down(s, 13) & V::all(1);
    const V normal = down(Nearest ? s + V::all(0xFFF) + odd : s, 13) - V::all(112 << 10);
    const V from_here_on_too_large = V::all(Nearest ? 0x477FEFFF : 0x477FFFFF);
    const V endless = s > V::all(0x7F7FFFFF), nan = s > V::all(0x7F800000);
    const V largest = Nearest ? V::all(0x7C00) : select_lanes(endless, V::all(0x7C00), V::all(0x7BFF));
    const V kept = V::all(0x7E00) | (down(s, 13) & V::all(0x3FF));
    V h = select_lanes(V::all(0x38800000) > s, little, normal);
    h = select_lanes(s > from_here_on_too_large, largest, h);
    h = select_lanes(nan, kept, h);
    return h | down(b & V::all(INT32_MIN), 16);
  };
  return each_vector(join, bits, size, small);
}

// ---- the processor's instructions, eight at a time; the rest of an array goes through memory of the function's own
#if NOX_LEVEL >= 3
constexpr Nox64u kF16c = Nox64u{1} << 14;
#define NOX_F16C __attribute__((noinline, target("f16c")))

NOX_F16C void from_half_f16c(const Nox16f* s, Nox32f* d, int len) {
  for (; len >= 8; len -= 8, s += 8, d += 8) _mm256_storeu_ps(d, _mm256_cvtph_ps(load_16(s)));
  if (len == 0) return;
  Nox16f in[8] = {};
  Nox32f out[8];
  __builtin_memcpy(in, s, static_cast<size_t>(len) * sizeof *s);
  _mm256_storeu_ps(out, _mm256_cvtph_ps(load_16(in)));
  __builtin_memcpy(d, out, static_cast<size_t>(len) * sizeof *d);
}
template <int Rounding>
NOX_F16C void floats_to_half_f16c(const Nox32f* s, Nox16f* d, int len) {
  for (; len >= 8; len -= 8, s += 8, d += 8) store_16(d, _mm256_cvtps_ph(_mm256_loadu_ps(s), Rounding));
  if (len == 0) return;
  Nox32f in[8] = {};
  Nox16f out[8];
  __builtin_memcpy(in, s, static_cast<size_t>(len) * sizeof *s);
  store_16(out, _mm256_cvtps_ph(_mm256_loadu_ps(in), Rounding));
  __builtin_memcpy(d, out, static_cast<size_t>(len) * sizeof *d);
}
template <int Rounding>
NOX_F16C void words_to_half_f16c(const Nox16s* s, Nox16f* d, int len) {
  for (; len >= 8; len -= 8, s += 8, d += 8)
    store_16(d, _mm256_cvtps_ph(to_floats(Format<Nox16s>::take(s)).v[0].v, Rounding));
  if (len == 0) return;
  Nox16s in[8] = {};
  Nox16f out[8];
  __builtin_memcpy(in, s, static_cast<size_t>(len) * sizeof *s);
  store_16(out, _mm256_cvtps_ph(to_floats(Format<Nox16s>::take(in)).v[0].v, Rounding));
  __builtin_memcpy(d, out, static_cast<size_t>(len) * sizeof *d);
}
NOX_INLINE bool has_f16c() { return noxHasFeature(kF16c); }
constexpr int kNearest = _MM_FROUND_TO_NEAREST_INT, kCut = _MM_FROUND_TO_ZERO;
NOX_INLINE void to_half_by_instruction(const Nox32f* s, Nox16f* d, int len, bool nearest) {
  nearest ? floats_to_half_f16c<kNearest>(s, d, len) : floats_to_half_f16c<kCut>(s, d, len);
}
NOX_INLINE void to_half_by_instruction(const Nox16s* s, Nox16f* d, int len, bool nearest) {
  nearest ? words_to_half_f16c<kNearest>(s, d, len) : words_to_half_f16c<kCut>(s, d, len);
}
#else
NOX_INLINE bool has_f16c() { return false; }
template <class T>
NOX_INLINE void to_half_by_instruction(const T*, Nox16f*, int, bool) {}
NOX_INLINE void from_half_f16c(const Nox16f*, Nox32f*, int) {}
#endif

// The one mode that halves don't know is refused; any that isn't to nearest cuts.
template <class... P>
NOX_INLINE NoxStatus check_mode(int len, int mode, const P*... pointers) {
  if (const NoxStatus st = check(len, pointers...)) return st;
  return mode == noxRndHalfAway ? noxStsRoundModeNotSupportedErr : noxStsNoErr;
}
template <class T>
NOX_INLINE NoxStatus to_half_from(const T* s, Nox16f* d, int len, int mode) {
  if (const NoxStatus st = check_mode(len, mode, s, d)) return st;
  const bool nearest = mode == noxRndNear;
  if (has_f16c()) {
    to_half_by_instruction(s, d, len, nearest);
    return noxStsNoErr;
  }
  const auto floats = [](auto x) NOX_INLINED {
    if constexpr (sizeof(T) == 4)
      return x;
    else
      return to_floats(x);
  };
  if (nearest)
    convert_eights<Format<T>, Half>(s, d, len, [=](auto x) NOX_INLINED { return to_half<true>(floats(x)); });
  else
    convert_eights<Format<T>, Half>(s, d, len, [=](auto x) NOX_INLINED { return to_half<false>(floats(x)); });
  return noxStsNoErr;
}

template <class Round>
NOX_INLINE void half_to_words(const Nox16f* s, Nox16s* d, int len, Nox32f factor, Round round) {
  convert_eights<Half, Format<Nox16s>>(s, d, len, [=](Ints8 h) NOX_INLINED {
    const auto cut_off = [=](F a) NOX_INLINED {
      return most(least(a * all_of<F>(factor), all_of<F>(32767.f)), all_of<F>(-32768.f));
    };
    return round(each_vector(cut_off, from_half(h)));
  });
}

__attribute__((noinline)) void half_to_nearest_words(const Nox16f* s, Nox16s* d, int len, Nox32f factor) {
  half_to_words(s, d, len, factor, Near{});
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsConvert_16f32f)(const Nox16f* s, Nox32f* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (has_f16c())
    from_half_f16c(s, d, len);
  else
    convert_eights<Half, Format<Nox32f>>(s, d, len, [](Ints8 h) NOX_INLINED { return from_half(h); });
  return noxStsNoErr;
}
NoxStatus NOX_BODY(noxsConvert_32f16f)(const Nox32f* s, Nox16f* d, int len, int mode) {
  return to_half_from(s, d, len, mode);
}
NoxStatus NOX_BODY(noxsConvert_16s16f)(const Nox16s* s, Nox16f* d, int len, int mode) {
  return to_half_from(s, d, len, mode);
}
NoxStatus NOX_BODY(noxsConvert_16f16s_Sfs)(const Nox16f* s, Nox16s* d, int len, int mode, int scale) {
  if (const NoxStatus st = check_mode(len, mode, s, d)) return st;
  if (mode == noxRndNear) {
    const RoundToNearest nearest;
    half_to_nearest_words(s, d, len, float_factor(scale));
  } else {
    half_to_words(s, d, len, float_factor(scale), Cut{});
  }
  return noxStsNoErr;
}

}  // extern "C"
