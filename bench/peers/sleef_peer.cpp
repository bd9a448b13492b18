// SLEEF's functions with errors up to 1 unit in the last place, in loops over arrays; of the widest vectors of the
// level.
#ifdef NOX_BENCH_SLEEF
#include <immintrin.h>
#include <sleef.h>

#include "bench/peers/peers.hpp"

namespace NOX_PEER_SPACE {

#ifdef __AVX2__
#define SLEEF_CALL(function) Sleef_##function##d4_u10avx2
#elif defined(__AVX__)
#define SLEEF_CALL(function) Sleef_##function##d4_u10avx
#elif defined(__SSE4_2__)
#define SLEEF_CALL(function) Sleef_##function##d2_u10sse4
#else
#define SLEEF_CALL(function) Sleef_##function##d2_u10sse2
#endif
#ifdef __AVX__
using Lanes = __m256d;
constexpr int kLanes = 4;
inline Lanes load(const double* p) { return _mm256_loadu_pd(p); }
inline void store(double* p, Lanes v) { _mm256_storeu_pd(p, v); }
#else
using Lanes = __m128d;
constexpr int kLanes = 2;
inline Lanes load(const double* p) { return _mm_loadu_pd(p); }
inline void store(double* p, Lanes v) { _mm_storeu_pd(p, v); }
#endif

struct Sine {
  static Lanes of(Lanes x) { return SLEEF_CALL(sin)(x); }
};
struct Cosine {
  static Lanes of(Lanes x) { return SLEEF_CALL(cos)(x); }
};
struct Logarithm {
  static Lanes of(Lanes x) { return SLEEF_CALL(log)(x); }
};

// For lengths of whole vectors.
template <class F>
void each(const Operands* o) {
  for (int i = 0; i < o->len; i += kLanes)
    store(static_cast<double*>(o->d) + i, F::of(load(static_cast<const double*>(o->a) + i)));
}
void both(const Operands* o) {
  for (int i = 0; i < o->len; i += kLanes) {
    const auto pair = SLEEF_CALL(sincos)(load(static_cast<const double*>(o->a) + i));
    store(static_cast<double*>(o->d) + i, pair.x);
    store(static_cast<double*>(o->e) + i, pair.y);
  }
}

// The angle of two parts; the way from polar form to parts in arrays of their own.
void angle(const Operands* o) {
  for (int i = 0; i < o->len; i += kLanes)
    store(static_cast<double*>(o->d) + i,
          SLEEF_CALL(atan2)(load(static_cast<const double*>(o->b) + i), load(static_cast<const double*>(o->a) + i)));
}
void from_polar(const Operands* o) {
  for (int i = 0; i < o->len; i += kLanes) {
    const auto pair = SLEEF_CALL(sincos)(load(static_cast<const double*>(o->b) + i));
    const Lanes size = load(static_cast<const double*>(o->a) + i);
    store(static_cast<double*>(o->d) + i, pair.y * size);
    store(static_cast<double*>(o->e) + i, pair.x * size);
  }
}

const NamedLoop kLoops[] = {
    {"noxsPhase_64f", angle},  {"noxsPolarToCart_64f", from_polar}, {"sine", each<Sine>},   {"cosine", each<Cosine>},
    {"sine and cosine", both}, {"logarithm", each<Logarithm>},      {"arc tangent", angle},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(sleef, "SLEEF", kLoops);
#endif
