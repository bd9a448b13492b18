// The smallest transforms: code for each order alone, with and without a scale.
//
// Up to eight elements stay in registers, each in one of its own. Above, the passes of the middle range run through a
// buffer on the stack with constant tables. All is read before anything is written.
#pragma once
#include "transform/fft_complex_middle.hpp"

namespace nox {
inline namespace NOX_VARIANT {

using FftDirect = void (*)(const Nox64f* src, Nox64f* dst, Nox64f scale);

// The factors of what is read: one, or the scale.
template <bool Scaled, class V>
NOX_INLINE V taken(V a, V scale) {
  if constexpr (Scaled)
    return a * scale;
  else
    return a;
}

template <bool Inverse, bool Scaled, int Order>
void direct_line(const Nox64f* src, Nox64f* dst, Nox64f scale) {
  using C = C64x1;
  const F64x2 by = F64x2::all(scale);
  const auto leg = [=](int i) NOX_INLINED { return complex<C>(taken<Scaled>(F64x2::load(src + 2 * i), by)); };
  const auto put = [=](int i, C x) NOX_INLINED { parts(x).store(dst + 2 * i); };
  if constexpr (Order == 0) {
    put(0, leg(0));
  } else if constexpr (Order == 1) {
    const C a = leg(0), b = leg(1);
    put(0, a + b);
    put(1, a - b);
  } else if constexpr (Order == 2) {
    C x[4];
    first_four<Inverse>(x, [=](int j) NOX_INLINED { return leg((j & 1) * 2 + j / 2); });
    put(0, x[0]), put(1, x[1]), put(2, x[2]), put(3, x[3]);
  } else {
    static_assert(Order == 3);
    C x[4], y[4];
    late_four<Inverse>(y, [=](int j) NOX_INLINED { return leg((j & 1) * 4 + j / 2 * 2 + 1); });
    first_four<Inverse>(x, [=](int j) NOX_INLINED { return leg((j & 1) * 4 + j / 2 * 2); });
#pragma GCC unroll 4
    for (int j = 0; j < 4; ++j) {
      put(j, x[j] + y[j]);
      put(j + 4, x[j] - y[j]);
    }
  }
}

template <int Order>
struct DirectTables {
  static constexpr int kLast = 1 << (Order - 2);  // butterflies of the last pass; a fourth as many of each before it
  alignas(32) Nox64f stages[(kLast + kLast / 4) * kTwiddleGroup / 2];
  Nox32u reversal[kLast + 1];
  constexpr DirectTables() : stages{}, reversal{} {
    fill_stages(stages, constant_wave(Order), Order);
    fill_reversal(reversal, Order);
  }
};
template <int Order>
constexpr DirectTables<Order> kDirectTables;

template <bool Inverse, bool Scaled, int Order>
void direct_passes(const Nox64f* src, Nox64f* dst, Nox64f scale) {
  using V = f64::vec;
  alignas(32) Nox64f work[2 << Order];
  const V by = V::all(scale);
  reversing_pass<Inverse, Order % 2 == 0 ? 4 : 8>(src, work, Order, kDirectTables<Order>.reversal,
                                                  [=](V a) NOX_INLINED { return taken<Scaled>(a, by); });
  later_passes<Inverse, Form::Joined>(work, dst, Order, kDirectTables<Order>.stages);
}

template <bool Inverse, bool Scaled>
constexpr FftDirect kDirect[] = {
    direct_line<Inverse, Scaled, 0>,   direct_line<Inverse, Scaled, 1>,   direct_line<Inverse, Scaled, 2>,
    direct_line<Inverse, Scaled, 3>,   direct_passes<Inverse, Scaled, 4>, direct_passes<Inverse, Scaled, 5>,
#if NOX_LEVEL >= 3
    direct_passes<Inverse, Scaled, 6>,
#endif
};
static_assert(sizeof(kDirect<false, false>) / sizeof(FftDirect) == fft_variant.directLast + 1,
              "a routine for each order");

}  // namespace NOX_VARIANT
}  // namespace nox
