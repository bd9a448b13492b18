// Plain loops of the array layer, compiled by each compiler at -O3 for each instruction set.
//
// Each loop does what the function is defined to do and has the natural arguments; arrays are promised not to overlap.
// Constants given by pointer are read from the second source.
#include <cmath>

#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

using u8 = unsigned char;
using u32 = unsigned;

complex operator+(complex a, complex b) { return {a.re + b.re, a.im + b.im}; }
complex operator-(complex a, complex b) { return {a.re - b.re, a.im - b.im}; }
complex operator*(complex a, complex b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
complex operator+(complex a, real b) { return {b + a.re, 0.0 + a.im}; }
complex operator+(real a, complex b) { return {a + b.re, 0.0 + b.im}; }
complex operator-(complex a, real b) { return {a.re - b, a.im - 0.0}; }
complex operator-(real a, complex b) { return {a - b.re, 0.0 - b.im}; }
complex operator*(complex a, real b) { return {a.re * b, a.im * b}; }
complex operator*(real a, complex b) { return {a * b.re, a * b.im}; }
complex operator/(complex a, real b) { return {a.re / b, a.im / b}; }
complex operator/(complex a, complex b) {
  const real r = 1 / (b.re * b.re + b.im * b.im);
  return {(a.re * b.re + a.im * b.im) * r, (a.im * b.re - a.re * b.im) * r};
}
complex operator/(real a, complex b) { return complex{a, 0} / b; }

real sign(real a) { return real(a > 0) - real(a < 0); }

// The operations, of elements of any types.
struct Plus {
  template <class A, class B>
  static auto of(A a, B b) {
    return a + b;
  }
};
struct Minus {
  template <class A, class B>
  static auto of(A a, B b) {
    return a - b;
  }
};
struct Times {
  template <class A, class B>
  static auto of(A a, B b) {
    return a * b;
  }
};
struct Over {
  template <class A, class B>
  static auto of(A a, B b) {
    return a / b;
  }
};
template <class F>
struct Swapped {
  template <class A, class B>
  static auto of(A a, B b) {
    return F::of(b, a);
  }
};
struct ConjugateTimes {
  static complex of(complex a, complex b) { return a * complex{b.re, -b.im}; }
};
struct TimesI {
  static complex of(complex a) { return {-a.im, a.re}; }
};
struct Same {
  static complex of(complex a) { return a; }
};
struct Exchange {
  static complex of(complex a) { return {a.im, a.re}; }
};
struct ExchangeConjugate {
  static complex of(complex a) { return {a.im, -a.re}; }
};
struct Sign {
  static real of(real a) { return sign(a); }
};
struct SignBesideZero {
  static complex of(real a) { return {sign(a), 0}; }
};
struct SignOfParts {
  static real of(complex a) { return a.re > 0 ? 1 : a.re < 0 ? -1 : sign(a.im); }
};
struct SignOfPartsBesideZero {
  static complex of(complex a) { return {SignOfParts::of(a), 0}; }
};
struct TimesSign {
  static real of(real a, real d) { return a > 0 ? d : a < 0 ? -d : a == 0 ? 0.0 : d; }
};

template <class A, class B, class D, class F>
struct Zip {
  PEER_OUT_OF_LINE static void loop(const A* __restrict a, const B* __restrict b, D* __restrict d, u32 n) {
    for (u32 i = 0; i < n; ++i) d[i] = F::of(a[i], b[i]);
  }
  static void run(const Operands* o) { loop(in<A>(o->a), in<B>(o->b), out<D>(o), u32(o->len)); }
};
template <class A, class C, class D, class F>
struct With {
  PEER_OUT_OF_LINE static void loop(const A* __restrict a, D* __restrict d, C c, u32 n) {
    for (u32 i = 0; i < n; ++i) d[i] = F::of(a[i], c);
  }
  static void run(const Operands* o) { loop(in<A>(o->a), out<D>(o), c(o, C()), u32(o->len)); }

 private:
  static real c(const Operands* o, real) { return o->c[0]; }
  static complex c(const Operands* o, complex) { return *in<complex>(o->b); }
};
template <class A, class D, class F>
struct Each {
  PEER_OUT_OF_LINE static void loop(const A* __restrict a, D* __restrict d, u32 n) {
    for (u32 i = 0; i < n; ++i) d[i] = F::of(a[i]);
  }
  static void run(const Operands* o) { loop(in<A>(o->a), out<D>(o), u32(o->len)); }
};

template <class T>
T sum(T a, T b) {
  return T(a + b);
}
template <class T>
struct Sums {
  PEER_OUT_OF_LINE static void loop(const T* __restrict a, T* __restrict d, u32 n) {
    if (n == 0) return;
    d[0] = a[0];
    for (u32 i = 1; i < n; ++i) d[i] = sum(d[i - 1], a[i]);
  }
  static void run(const Operands* o) { loop(in<T>(o->a), out<T>(o), u32(o->len)); }
  PEER_OUT_OF_LINE static void lagged_loop(const T* __restrict a, T* __restrict d, u32 n, u32 lag) {
    for (u32 i = 0; i < lag; ++i) d[i] = a[i];
    for (u32 i = lag; i < n; ++i) d[i] = sum(a[i], d[i - lag]);
  }
  static void lagged(const Operands* o) { lagged_loop(in<T>(o->a), out<T>(o), u32(o->len), u32(o->n[0])); }
};

PEER_OUT_OF_LINE void ramp_loop(real* d, u32 n, real offset, real step) {
  for (u32 i = 0; i < n; ++i) d[i] = offset + i * step;
}
void ramp(const Operands* o) { ramp_loop(out<real>(o), u32(o->len), o->c[0], o->c[1]); }
PEER_OUT_OF_LINE void complex_ramp_loop(complex* d, u32 n, complex offset, complex step) {
  for (u32 i = 0; i < n; ++i) d[i] = {offset.re + i * step.re, offset.im + i * step.im};
}
void complex_ramp(const Operands* o) {
  complex_ramp_loop(out<complex>(o), u32(o->len), *in<complex>(o->a), *in<complex>(o->b));
}
template <class T>
PEER_OUT_OF_LINE void product_loop(const T* a, u32 n, T* product, T one) {
  T p = one;
  for (u32 i = 0; i < n; ++i) p = a[i] * p;
  *product = p;
}
void product(const Operands* o) { product_loop(in<real>(o->a), u32(o->len), out<real>(o), 1.0); }
void complex_product(const Operands* o) {
  product_loop(in<complex>(o->a), u32(o->len), out<complex>(o), complex{1.0, 0.0});
}

int bin_of(real x, real scale, real offset, int count) {
  const int bin = int((x - offset) * scale);
  return bin < 0 ? 0 : bin >= count ? count - 1 : bin;
}
PEER_OUT_OF_LINE void count_loop(const real* a, real scale, real offset, u32* bins, int count, u32 n) {
  for (u32 i = 0; i < n; ++i) ++bins[bin_of(a[i], scale, offset, count)];
}
void count_values(const Operands* o) {
  count_loop(in<real>(o->a), o->c[0], o->c[1], out<u32>(o), o->n[0], u32(o->len));
}
PEER_OUT_OF_LINE void sum_loop(const real* a, real scale, real offset, real* bins, int count, u32 n) {
  for (u32 i = 0; i < n; ++i) bins[bin_of(a[i], scale, offset, count)] += a[i];
}
void sum_values(const Operands* o) { sum_loop(in<real>(o->a), o->c[0], o->c[1], out<real>(o), o->n[0], u32(o->len)); }
PEER_OUT_OF_LINE void count_indexes_loop(const u32* at, u32* bins, u32 n) {
  for (u32 i = 0; i < n; ++i) ++bins[at[i]];
}
void count_indexes(const Operands* o) { count_indexes_loop(in<u32>(o->a), out<u32>(o), u32(o->len)); }
PEER_OUT_OF_LINE void sum_indexes_loop(const u32* at, const real* values, real* sums, u32 n) {
  for (u32 i = 0; i < n; ++i) sums[at[i]] += values[i];
}
void sum_indexes(const Operands* o) { sum_indexes_loop(in<u32>(o->a), o->taps, out<real>(o), 1000); }

// Comparisons: only the codes that rows have, 2 and 4.
bool equal(real x, real y) { return y != y ? x != x : std::isinf(y) ? bool(std::isinf(x)) : x == y; }
template <class T>
struct Compare {
  PEER_OUT_OF_LINE static void mask_loop(u32 code, const T* __restrict x, const T* __restrict y, int* __restrict mask,
                                         u32 n) {
    if (code == 2)
      for (u32 i = 0; i < n; ++i) mask[i] = x[i] > y[i];
    else
      for (u32 i = 0; i < n; ++i) mask[i] = equal(real(x[i]), real(y[i]));
  }
  static void mask(const Operands* o) { mask_loop(u32(o->n[0]), in<T>(o->a), in<T>(o->b), out<int>(o), u32(o->len)); }
  PEER_OUT_OF_LINE static void mask_c_loop(u32 code, const T* __restrict x, T y, int* __restrict mask, u32 n) {
    if (code == 2)
      for (u32 i = 0; i < n; ++i) mask[i] = x[i] > y;
    else
      for (u32 i = 0; i < n; ++i) mask[i] = x[i] == y;
  }
  static void mask_c(const Operands* o) {
    mask_c_loop(u32(o->n[0]), in<T>(o->a), T(o->c[0]), out<int>(o), u32(o->len));
  }
  PEER_OUT_OF_LINE static void places_loop(const T* x, T y, u32* places, u32 n, u32* count) {
    u32 found = 0;
    for (u32 i = 0; i < n; ++i)
      if (x[i] > y) places[found++] = i;
    *count = found;
  }
  static void places(const Operands* o) {
    u32 count;
    places_loop(in<T>(o->a), T(o->c[0]), out<u32>(o), u32(o->len), &count);
  }
  PEER_OUT_OF_LINE static void gather_loop(const T* x, T y, u32* places, T* values, u32 n, u32* count) {
    u32 found = 0;
    for (u32 i = 0; i < n; ++i) {
      if (x[i] > y) {
        places[found] = i;
        values[found++] = x[i];
      }
    }
    *count = found;
  }
  static void gather(const Operands* o) {
    u32 count;
    gather_loop(in<T>(o->a), T(o->c[0]), static_cast<u32*>(o->work), out<T>(o), u32(o->len), &count);
  }
};
PEER_OUT_OF_LINE void count_above_loop(const real* x, real value, u32* count, u32 n) {
  u32 found = 0;
  for (u32 i = 0; i < n; ++i) found += x[i] > value;
  *count = found;
}
void count_above(const Operands* o) { count_above_loop(in<real>(o->a), o->c[0], out<u32>(o), u32(o->len)); }

template <class T>
struct Move {
  PEER_OUT_OF_LINE static u32 compress_loop(u32 n, const T* __restrict s, const int* __restrict mask, T* __restrict d) {
    u32 found = 0;
    for (u32 i = 0; i < n; ++i)
      if (mask[i] > 0) d[found++] = s[i];
    return found;
  }
  static void compress(const Operands* o) { compress_loop(u32(o->len), in<T>(o->a), in<int>(o->b), out<T>(o)); }
  PEER_OUT_OF_LINE static void expand_loop(u32 n, const T* __restrict s, T* __restrict d, const int* __restrict mask) {
    for (u32 i = 0; i < n; ++i)
      if (mask[i] > 0) d[i] = *s++;
  }
  static void expand(const Operands* o) { expand_loop(u32(o->len), in<T>(o->a), out<T>(o), in<int>(o->b)); }
  PEER_OUT_OF_LINE static void stride_loop(u32 n, const T* __restrict s, int stride, T* __restrict d) {
    for (u32 i = 0; i < n; ++i) d[i] = s[int(i) * stride];
  }
  static void stride(const Operands* o) { stride_loop(u32(o->len), in<T>(o->a), o->n[0], out<T>(o)); }
  PEER_OUT_OF_LINE static void gather_loop(u32 n, const T* __restrict s, const int* __restrict at, T* __restrict d) {
    for (u32 i = 0; i < n; ++i) d[i] = s[at[i]];
  }
  static void gather(const Operands* o) { gather_loop(u32(o->len), in<T>(o->a), in<int>(o->b), out<T>(o)); }

  PEER_OUT_OF_LINE static void pack_loop(const T* __restrict s, u32* __restrict d, int words) {
    for (int w = 0; w < words; ++w) {
      u32 word = 0;
      for (int b = 0; b < 32; ++b) word |= u32(s[32 * w + b] != 0) << b;
      d[w] = word;
    }
  }
  static void pack(const Operands* o) { pack_loop(in<T>(o->a), out<u32>(o), o->len / 32); }
  PEER_OUT_OF_LINE static void unpack_loop(const u32* __restrict s, T* __restrict d, int count) {
    for (int i = 0; i < count; ++i) d[i] = T(s[i / 32] >> (i % 32) & 1);
  }
  static void unpack(const Operands* o) { unpack_loop(in<u32>(o->a), out<T>(o), o->len); }
};

PEER_OUT_OF_LINE void neighbours_loop(const real* block, const real* terms, real term, int columns, real worst,
                                      int* slot, real* best, int* index, int k) {
  for (int j = 0; j < columns; ++j) {
    const real d = (term + block[j]) + terms[j];
    if (!(worst > d)) continue;
    best[*slot] = d;
    index[*slot] = j;
    *slot = 0;
    for (int i = 1; i < k; ++i)
      if (best[i] > best[*slot]) *slot = i;
  }
}
void neighbours(const Operands* o) {
  int slot = 0, index[8] = {};
  real best[8] = {};
  neighbours_loop(in<real>(o->a), in<real>(o->b), 1.0, o->len, 0.0, &slot, best, index, 8);
  *out<real>(o) = best[0];
}

PEER_OUT_OF_LINE real least_loop(real* __restrict block, const real* __restrict terms, real term, int columns) {
  real least = HUGE_VAL;
  for (int j = 0; j < columns; ++j) {
    block[j] = term + terms[j] + block[j];
    if (block[j] < least) least = block[j];
  }
  return least;
}
void falling_neighbours(const Operands* o) {
  const real least = least_loop(out<real>(o), in<real>(o->a), 0.0, o->len);
  asm volatile("" : : "x"(least));  // the bare loop leaves any values in the block, so nothing is known of it
}

const NamedLoop kLoops[] = {
    {"AddValue", With<real, real, real, Plus>::run},
    {"AddValuec", With<complex, complex, complex, Plus>::run},
    {"AddValuecd", With<complex, real, complex, Plus>::run},
    {"AddValuedc", With<real, complex, complex, Plus>::run},
    {"SubFromValue", With<real, real, real, Swapped<Minus>>::run},
    {"SubFromValuec", With<complex, complex, complex, Swapped<Minus>>::run},
    {"ScaleByValue", With<real, real, real, Times>::run},
    {"ScaleByValuec", With<complex, complex, complex, Times>::run},
    {"ScaleByValuecd", With<complex, real, complex, Times>::run},
    {"ScaleByValuedc", With<real, complex, complex, Times>::run},
    {"DivideValue", With<real, real, real, Swapped<Over>>::run},
    {"DivideValuec", With<complex, complex, complex, Swapped<Over>>::run},
    {"DivideValuedc", With<real, complex, complex, Swapped<Over>>::run},
    {"AddVeccd", Zip<complex, real, complex, Plus>::run},
    {"SubVeccd", Zip<complex, real, complex, Minus>::run},
    {"SubVecdc", Zip<real, complex, complex, Minus>::run},
    {"MulVeccd", Zip<complex, real, complex, Times>::run},
    {"DivVeccd", Zip<complex, real, complex, Over>::run},
    {"DivVecdc", Zip<real, complex, complex, Over>::run},
    {"DivVeccc", Zip<complex, complex, complex, Over>::run},
    {"ConjMulcc", Zip<complex, complex, complex, ConjugateTimes>::run},
    {"MulI", Each<complex, complex, TimesI>::run},
    {"Sgndd", Each<real, real, Sign>::run},
    {"Sgndc", Each<real, complex, SignBesideZero>::run},
    {"Sgncd", Each<complex, real, SignOfParts>::run},
    {"Sgncc", Each<complex, complex, SignOfPartsBesideZero>::run},
    {"SgnMul", Shape<real, TimesSign>::zip_in_place},
    {"CumSum", Sums<real>::run},
    {"CumSumc", Sums<complex>::run},
    {"CumSum_8u", Sums<u8>::run},
    {"CumSum_16s", Sums<short>::run},
    {"CumSum_32s", Sums<u32>::run},
    {"CumSumDelta", Sums<real>::lagged},
    {"CumSumDeltac", Sums<complex>::lagged},
    {"CumSumDelta_8u", Sums<u8>::lagged},
    {"CumSumDelta_16s", Sums<short>::lagged},
    {"CumSumDelta_32s", Sums<u32>::lagged},
    {"Rampd", ramp},
    {"Rampc", complex_ramp},
    {"Product", product},
    {"Productc", complex_product},
    {"Flip", Each<complex, complex, Exchange>::run},
    {"FlipConj", Each<complex, complex, ExchangeConjugate>::run},
    {"Reverse", Shape<complex, Same>::reversed},
    {"HistogramCount", count_values},
    {"HistogramSum", sum_values},
    {"HistoCount", count_indexes},
    {"HistoSum", sum_indexes},
    {"CountGT", count_above},
    {"PackByMask", Move<real>::compress},
    {"PackByMaskc", Move<complex>::compress},
    {"vipacki", Move<int>::stride},
    {"vipackv", Move<int>::gather},
    {"vipackm", Move<int>::compress},
    {"viunpackm", Move<int>::expand},
    {"vdpackmc", Move<complex>::compress},
    {"FindMask_8u", Compare<u8>::mask},
    {"FindMask_16s", Compare<short>::mask},
    {"FindMask_32s", Compare<int>::mask},
    {"FindMask_64f", Compare<real>::mask},
    {"FindMaskC_8u", Compare<u8>::mask_c},
    {"FindMaskC_16s", Compare<short>::mask_c},
    {"FindMaskC_32s", Compare<int>::mask_c},
    {"FindMaskC_64f", Compare<real>::mask_c},
    {"FindIndexesC_8u", Compare<u8>::places},
    {"FindIndexesC_16s", Compare<short>::places},
    {"FindIndexesC_32s", Compare<int>::places},
    {"FindIndexesC_64f", Compare<real>::places},
    {"FindAndGatherC_64f", Compare<real>::gather},
    {"BitPack_8u", Move<u8>::pack},
    {"BitPack_16s", Move<short>::pack},
    {"BitPack_32s", Move<int>::pack},
    {"BitUnpack_8u", Move<u8>::unpack},
    {"BitUnpack_16s", Move<short>::unpack},
    {"BitUnpack_32s", Move<int>::unpack},
    {"InternalCollectK_64f", neighbours},
    {"InternalCollectK1_64f", falling_neighbours},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
