// Plain loops of thresholds.
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

template <class T>
T size_of(T x) {
  return x < 0 ? static_cast<T>(-x) : x;
}
// Of an integer, whose lowest has a magnitude beyond the type.
short size_of(short x) { return x == -32768 ? 32767 : static_cast<short>(x < 0 ? -x : x); }
int size_of(int x) { return x == -2147483647 - 1 ? 2147483647 : x < 0 ? -x : x; }

template <class T>
struct Level {
  T level, value;
};
struct Raise {
  template <class T>
  static T of(T x, Level<T> c) {
    return x > c.level ? x : c.level;
  }
};
struct Lower {
  template <class T>
  static T of(T x, Level<T> c) {
    return x < c.level ? x : c.level;
  }
};
struct RaiseSize {
  static real of(real x, Level<real> c) {
    const real size = __builtin_fabs(x);
    return __builtin_copysign(size > c.level ? size : c.level, x);
  }
  template <class T>
  static T of(T x, Level<T> c) {
    const T size = size_of(x), raised = size > c.level ? size : c.level;
    return x < 0 ? static_cast<T>(-raised) : raised;
  }
};
struct Clamp {
  template <class T>
  static T of(T x, Level<T> c) {
    const T low = static_cast<T>(-c.level), y = x < c.level ? x : c.level;
    return y > low ? y : low;
  }
};
struct Below {
  template <class T>
  static T of(T x, Level<T> c) {
    return x < c.level ? c.value : x;
  }
};
struct Above {
  template <class T>
  static T of(T x, Level<T> c) {
    return x > c.level ? c.value : x;
  }
};

template <class T, class F>
PEER_OUT_OF_LINE void each(const T* __restrict a, T* __restrict d, int len, T level, T value) {
  for (int i = 0; i < len; ++i) d[i] = F::of(a[i], Level<T>{level, value});
}
template <class T, class F>
PEER_OUT_OF_LINE void each_in_place(T* d, int len, T level, T value) {
  for (int i = 0; i < len; ++i) d[i] = F::of(d[i], Level<T>{level, value});
}
template <class T>
T level_of(const Operands* o) {
  return static_cast<T>(sizeof(T) == 4 ? o->n[0] : o->c[0]);
}
template <class T, class F>
void run(const Operands* o) {
  each<T, F>(in<T>(o->a), out<T>(o), o->len, level_of<T>(o), static_cast<T>(o->c[1]));
}
template <class T, class F>
void run_in_place(const Operands* o) {
  each_in_place<T, F>(out<T>(o), o->len, level_of<T>(o), static_cast<T>(o->c[1]));
}

template <class T>
PEER_OUT_OF_LINE void outside_loop(const T* __restrict a, T* __restrict d, int len, T low, T below, T high, T above) {
  for (int i = 0; i < len; ++i) d[i] = a[i] < low ? below : a[i] > high ? above : a[i];
}
template <class T, int Size>
void outside(const Operands* o) {
  outside_loop<T>(in<T>(o->a), out<T>(o), o->len, -Size, -9, Size, 9);
}

// Lengths scaled to the level, below it and above it; a zero becomes the level itself.
template <bool Raised>
PEER_OUT_OF_LINE void rescale(const complex* __restrict a, complex* __restrict d, int len, real level) {
  const real bound = level * level;
  for (int i = 0; i < len; ++i) {
    const real square = a[i].re * a[i].re + a[i].im * a[i].im, scale = level / __builtin_sqrt(square);
    const bool beyond = Raised ? square < bound : square > bound, zero = square == 0;
    d[i] = {!beyond ? a[i].re : zero ? level : a[i].re * scale, !beyond ? a[i].im : zero ? 0 : a[i].im * scale};
  }
}
template <bool Raised>
void rescale(const Operands* o) {
  rescale<Raised>(in<complex>(o->a), out<complex>(o), o->len, o->c[0]);
}
PEER_OUT_OF_LINE void replace_loop(const complex* __restrict a, complex* __restrict d, int len, real level,
                                   complex value) {
  for (int i = 0; i < len; ++i) d[i] = a[i].re * a[i].re + a[i].im * a[i].im < level * level ? value : a[i];
}
void replace(const Operands* o) {
  replace_loop(in<complex>(o->a), out<complex>(o), o->len, o->c[0], {o->c[0], o->c[1]});
}

PEER_OUT_OF_LINE void invert_loop(const complex* __restrict a, complex* __restrict d, int len, real level) {
  for (int i = 0; i < len; ++i) {
    const real square = a[i].re * a[i].re + a[i].im * a[i].im;
    const real r = 1 / (square < level * level ? level * __builtin_sqrt(square) : square);
    d[i] = square == 0 ? complex{1 / level, 0} : complex{a[i].re * r, -a[i].im * r};
  }
}
void invert_complex(const Operands* o) { invert_loop(in<complex>(o->a), out<complex>(o), o->len, o->c[0]); }

const NamedLoop kLoops[] = {
    {"noxsThreshold_LT_64f", run<real, Raise>},
    {"noxsThreshold_LT_64f_I", run_in_place<real, Raise>},
    {"noxsThreshold_GT_64f", run<real, Lower>},
    {"noxsThreshold_LTAbs_64f", run<real, RaiseSize>},
    {"noxsThreshold_GTAbs_64f", run<real, Clamp>},
    {"noxsThreshold_LTVal_64f", run<real, Below>},
    {"noxsThreshold_GTVal_64f", run<real, Above>},
    {"noxsThreshold_LTValGTVal_64f", outside<real, 1>},
    {"noxsThreshold_LT_64fc", rescale<true>},
    {"noxsThreshold_GT_64fc", rescale<false>},
    {"noxsThreshold_LTVal_64fc", replace},
    {"noxsThreshold_LT_16s", run<short, Raise>},
    {"noxsThreshold_GT_16s_I", run_in_place<short, Lower>},
    {"noxsThreshold_LTAbs_16s", run<short, RaiseSize>},
    {"noxsThreshold_GTAbs_16s", run<short, Clamp>},
    {"noxsThreshold_LTVal_16s", run<short, Below>},
    {"noxsThreshold_LTValGTVal_16s", outside<short, 1000>},
    {"noxsThreshold_LT_32s", run<int, Raise>},
    {"noxsThreshold_GT_32s_I", run_in_place<int, Lower>},
    {"noxsThreshold_LTAbs_32s", run<int, RaiseSize>},
    {"noxsThreshold_GTAbs_32s", run<int, Clamp>},
    {"noxsThreshold_LTValGTVal_32s", outside<int, 1000>},
    {"noxsThreshold_LTInv_64fc", invert_complex},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
