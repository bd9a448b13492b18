// What the processor can do at this instruction set: loops of whole vectors and nothing else.
//
// "packed" are the divider's rates, peers of division and square root. "limit" and "limit-nt" move the traffic of a
// primitive (so many arrays read, one written), the second past the caches; "limit" also holds the arithmetic peak.
// Lengths of the traffic loops are in doubles.
#include <immintrin.h>

#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

#ifdef __AVX__
constexpr int kLanes = 4;
#else
constexpr int kLanes = 2;
#endif
// Loads and stores at any address; the lanes themselves.
using Lanes = double __attribute__((vector_size(kLanes * 8)));
using Memory = double __attribute__((vector_size(kLanes * 8), aligned(1), may_alias));

inline Lanes load(const double* p) { return *reinterpret_cast<const Memory*>(p); }
inline void store(double* p, Lanes v) { *reinterpret_cast<Memory*>(p) = v; }
inline void stream(double* p, Lanes v) {
#ifdef __AVX__
  _mm256_stream_pd(p, v);
#else
  _mm_stream_pd(p, v);
#endif
}
inline Lanes root(Lanes v) {
#ifdef __AVX__
  return _mm256_sqrt_pd(v);
#else
  return _mm_sqrt_pd(v);
#endif
}

// Whole vectors, four an iteration, then single elements.
template <class Vector, class One>
inline void sweep(int len, Vector vector, One one) {
  int i = 0;
  for (; i + 4 * kLanes <= len; i += 4 * kLanes) {
    vector(i);
    vector(i + kLanes);
    vector(i + 2 * kLanes);
    vector(i + 3 * kLanes);
  }
  for (; i < len; ++i) one(i);
}

PEER_OUT_OF_LINE void divide(const double* a, const double* b, double* d, int len) {
  sweep(
      len, [=](int i) { store(d + i, load(b + i) / load(a + i)); }, [=](int i) { d[i] = b[i] / a[i]; });
}
PEER_OUT_OF_LINE void square_root(const double* a, double* d, int len) {
  sweep(
      len, [=](int i) { store(d + i, root(load(a + i))); }, [=](int i) { d[i] = __builtin_sqrt(a[i]); });
}
void div_64f(const Operands* o) { divide(in<real>(o->a), in<real>(o->b), out<real>(o), o->len); }
void div_64f_in_place(const Operands* o) { divide(in<real>(o->a), out<real>(o), out<real>(o), o->len); }
void sqrt_64f(const Operands* o) { square_root(in<real>(o->a), out<real>(o), o->len); }
void sqrt_64f_in_place(const Operands* o) { square_root(out<real>(o), out<real>(o), o->len); }

// Sources arrays are read, the destination too if Update; their sum is written.
template <int Sources, bool Update, bool Stream>
PEER_OUT_OF_LINE void traffic_loop(const double* a, const double* b, double* d, int len) {
  sweep(
      len,
      [=](int i) {
        Lanes v = {};
        if (Sources > 0) v = load(a + i);
        if (Sources > 1) v += load(b + i);
        if (Update) v = Sources > 0 ? v + load(d + i) : -load(d + i);
        Stream ? stream(d + i, v) : store(d + i, v);
      },
      [=](int i) { d[i] = (Sources > 0 ? a[i] : 0) + (Sources > 1 ? b[i] : 0) + (Update ? -d[i] : 0); });
  if (Stream) _mm_sfence();
}
// The sources are read and nothing is written but the sum.
template <int Sources>
PEER_OUT_OF_LINE void read_loop(const double* a, const double* b, double* d, int len) {
  constexpr int kStep = 4 * kLanes / Sources;  // four sums, so that no addition waits for the one before
  Lanes s0 = {}, s1 = {}, s2 = {}, s3 = {};
  int i = 0;
  for (; i + kStep <= len; i += kStep) {
    s0 += load(a + i);
    s1 += load(a + i + kLanes);
    s2 += load(Sources > 1 ? b + i : a + i + 2 * kLanes);
    s3 += load(Sources > 1 ? b + i + kLanes : a + i + 3 * kLanes);
  }
  s0 += s1 + (s2 + s3);
  for (; i < len; ++i) s0[0] += a[i] + (Sources > 1 ? b[i] : 0);
  store(d, s0);
}
template <int Sources>
void read(const Operands* o) {
  read_loop<Sources>(in<real>(o->a), in<real>(o->b), out<real>(o), o->len);
}
template <int Sources, bool Update, bool Stream>
void traffic(const Operands* o) {
  traffic_loop<Sources, Update, Stream>(in<real>(o->a), in<real>(o->b), out<real>(o), o->len);
}

// Eight chains are all that eight registers hold; the other operand comes from memory. Without fused multiply-add half
// of the chains multiply and half add.
constexpr int kChains = 8;
#ifdef __FMA__
constexpr int kPeakFlops = kChains * kLanes * 2;
#else
constexpr int kPeakFlops = kChains * kLanes;
#endif
// In assembly throughout: the compiler would keep an array of chains in memory.
#ifdef __FMA__
#define PEAK_EVEN(n) "vfmadd213pd %8, %" #n ", %" #n "\n\t"
#define PEAK_ODD(n) PEAK_EVEN(n)
#elif defined(__AVX__)
#define PEAK_EVEN(n) "vmulpd %8, %" #n ", %" #n "\n\t"
#define PEAK_ODD(n) "vaddpd %8, %" #n ", %" #n "\n\t"
#else
#define PEAK_EVEN(n) "mulpd %8, %" #n "\n\t"
#define PEAK_ODD(n) "addpd %8, %" #n "\n\t"
#endif
PEER_OUT_OF_LINE void peak_loop(double* d, int rounds) {
  const Lanes tenth = Lanes{} + 0.1;
  Lanes x0 = tenth, x1 = tenth, x2 = tenth, x3 = tenth, x4 = tenth, x5 = tenth, x6 = tenth, x7 = tenth;
  for (; rounds > 0; --rounds)
    asm volatile(PEAK_EVEN(0) PEAK_ODD(1) PEAK_EVEN(2) PEAK_ODD(3) PEAK_EVEN(4) PEAK_ODD(5) PEAK_EVEN(6) PEAK_ODD(7)
                 : "+x"(x0), "+x"(x1), "+x"(x2), "+x"(x3), "+x"(x4), "+x"(x5), "+x"(x6), "+x"(x7)
                 : "m"(tenth));
  store(d, x0 + x1 + x2 + x3 + x4 + x5 + x6 + x7);
}
// o->len floating operations, in thousands.
void peak(const Operands* o) {
  peak_loop(out<real>(o), static_cast<int>(static_cast<long long>(o->len) * 1000 / kPeakFlops));
}

const NamedLoop kPacked[] = {
    {"noxsDiv_64f", div_64f},
    {"noxsDiv_64f_I", div_64f_in_place},
    {"noxsSqrt_64f", sqrt_64f},
    {"noxsSqrt_64f_I", sqrt_64f_in_place},
};
const NamedLoop kLimits[] = {
    {"fill", traffic<0, false, false>},
    {"copy", traffic<1, false, false>},
    {"sum", traffic<2, false, false>},
    {"update", traffic<0, true, false>},
    {"update from", traffic<1, true, false>},
    {"accumulate", traffic<2, true, false>},
    {"read", read<1>},
    {"read two", read<2>},
    {"flops", peak},
};
const NamedLoop kStreams[] = {
    {"fill", traffic<0, false, true>},  {"copy", traffic<1, false, true>},       {"sum", traffic<2, false, true>},
    {"update", traffic<0, true, true>}, {"update from", traffic<1, true, true>}, {"accumulate", traffic<2, true, true>},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(packed, "packed", kPacked);
NOX_PEER_SET(limits, "limit", kLimits);
NOX_PEER_SET(streams, "limit-nt", kStreams);
