// Normally distributed random numbers by the polar method: sizes, initialisation and fills of the four Gauss records.
//
// Candidates are drawn in blocks of never more pairs than are still wanted, so that the generator's words stand where
// they would after drawing pair by pair. A block's points inside the unit circle are moved together, and logarithm,
// quotient and root run on vectors of them.
#include "core/rounding.hpp"
#include "generate/narrow.hpp"
#include "generate/random.hpp"
#include "vmath/log.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using V = f64::vec;

template <class T>
constexpr size_t kGaussSize = sizeof(GaussRecord<T>);
// Records of floating type end in eight bytes that nothing uses.
template <>
constexpr size_t kGaussSize<Nox32f> = 72;
template <>
constexpr size_t kGaussSize<Nox64f> = 80;
static_assert(kGaussSize<Nox8u> == 64 && kGaussSize<Nox16s> == 64, "sizes are promised");
static_assert(sizeof(GaussRecord<Nox32f>) <= 72 && sizeof(GaussRecord<Nox64f>) <= 80, "sizes are promised");

template <class T>
NOX_INLINE NoxStatus init(void* state, RandomId id, T mean, T std_dev, Nox32u seed) {
  if (!state) return noxStsNullPtrErr;
  auto& record = *static_cast<GaussRecord<T>*>(state);
  record.id = id;
  record.seed = seed;
  record.mean = mean;
  record.std_dev = std_dev;
  record.words = seeded<Nox32u>(seed);
  record.no_spare = 1;
  record.f = record.u = record.v = 0;
  return noxStsNoErr;
}

constexpr size_t kPairs = 128;  // of a block

// Points inside the unit circle, and the factor of each; whole vectors may be read from them.
struct Points {
  Nox64f u[kPairs], v[kPairs], f[kPairs];
};

// Draws `wanted` pairs, at most kPairs, and returns how many of them are points inside.
NOX_INLINE size_t draw_points(RandomWords<Nox32u>& words, size_t wanted, Points& p) {
  Nox32s first[kPairs], second[kPairs];
  draw_pairs(words, first, second, 1, wanted);
  for (size_t i = wanted; i % V::N; ++i) first[i] = second[i] = 0;
  const V unit = V::all(0x1p-31);
  for (size_t i = 0; i < wanted; i += V::N) {
    const V u = widen<V>(first + i) * unit, v = widen<V>(second + i) * unit;
    u.store(p.u + i);
    v.store(p.v + i);
    madd(u, u, v * v).store(p.f + i);
  }
  size_t inside = 0;
  for (size_t i = 0; i < wanted; ++i) {
    const Nox64f u = p.u[i], v = p.v[i], s = p.f[i];
    p.u[inside] = u;
    p.v[inside] = v;
    p.f[inside] = s;
    inside += static_cast<size_t>(static_cast<int>(s < 1) & static_cast<int>(s != 0));
  }
  for (size_t i = inside; i % V::N; ++i) p.f[i] = 0.5;
  for (size_t i = 0; i < inside; i += V::N) {
    const V s = V::load(p.f + i);
    sqrt(V::all(-2) * log_lanes(s) / s).store(p.f + i);
  }
  return inside;
}

struct Scatter {
  Nox64f std_dev, mean;
  template <class L>
  NOX_INLINE L operator()(L x, L f) const {
    return madd(x * L::all(std_dev), f, L::all(mean));
  }
};

NOX_INLINE void put(const Nox64f* s, Nox64f* d, size_t n) { map<f64>(d, static_cast<int>(n), Keep{}, s); }
template <class T>
NOX_INLINE void put(const Nox64f* s, T* d, size_t n) {
  narrow(s, d, n);
}

template <class T>
__attribute__((noinline)) void fill(T* d, size_t n, GaussRecord<T>& record) {
  const Scatter scatter{static_cast<Nox64f>(record.std_dev), static_cast<Nox64f>(record.mean)};
  const auto put_one = [&](const Nox64f& x, const Nox64f& f) {
    Nox64f value;
    scatter(F64x1::load(&x), F64x1::load(&f)).store(&value);
    put(&value, d, 1);
  };
  if (!record.no_spare) {
    put_one(record.u, record.f);
    record.no_spare = 1;
    ++d;
    --n;
  }
  RandomWords<Nox32u> words = record.words;
  Points p;
  for (size_t pairs = n / 2; pairs > 0;) {
    const size_t inside = draw_points(words, pairs < kPairs ? pairs : kPairs, p);
    Nox64f values[2 * kPairs];
    for (size_t i = 0; i < inside; i += V::N) {
      const V u = V::load(p.u + i), v = V::load(p.v + i), f = V::load(p.f + i);
      store_alternating(scatter(v, f), scatter(u, f), values + 2 * i);
    }
    if (inside > 0) put(values, d, 2 * inside);
    d += 2 * inside;
    pairs -= inside;
  }
  if (n % 2) {
    while (draw_points(words, 1, p) == 0) {
    }
    put_one(p.v[0], p.f[0]);
    record.no_spare = 0;
    record.f = p.f[0];
    record.u = p.u[0];
    record.v = p.v[0];
  }
  record.words = words;
}

template <class T>
NOX_INLINE NoxStatus fill(T* d, int len, void* state, RandomId id) {
  auto* const record = static_cast<GaussRecord<T>*>(state);
  if (const NoxStatus st = check(len, d, record)) return st;
  if (record->id != id) return noxStsContextMatchErr;
  fill(d, static_cast<size_t>(len), *record);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsRandGaussGetSize_8u)(int* size) { return give(size, kGaussSize<Nox8u>); }
NoxStatus NOX_BODY(noxsRandGaussGetSize_16s)(int* size) { return give(size, kGaussSize<Nox16s>); }
NoxStatus NOX_BODY(noxsRandGaussGetSize_32f)(int* size) { return give(size, kGaussSize<Nox32f>); }
NoxStatus NOX_BODY(noxsRandGaussGetSize_64f)(int* size) { return give(size, kGaussSize<Nox64f>); }

NoxStatus NOX_BODY(noxsRandGaussInit_8u)(NoxRandGaussState_8u* state, Nox8u mean, Nox8u dev, unsigned int seed) {
  return init(state, kGauss8u, mean, dev, seed);
}
NoxStatus NOX_BODY(noxsRandGaussInit_16s)(NoxRandGaussState_16s* state, Nox16s mean, Nox16s dev, unsigned int seed) {
  return init(state, kGauss16s, mean, dev, seed);
}
NoxStatus NOX_BODY(noxsRandGaussInit_32f)(NoxRandGaussState_32f* state, Nox32f mean, Nox32f dev, unsigned int seed) {
  return init(state, kGauss32f, mean, dev, seed);
}
NoxStatus NOX_BODY(noxsRandGaussInit_64f)(NoxRandGaussState_64f* state, Nox64f mean, Nox64f dev, unsigned int seed) {
  return init(state, kGauss64f, mean, dev, seed);
}

NoxStatus NOX_BODY(noxsRandGauss_8u)(Nox8u* d, int len, NoxRandGaussState_8u* state) {
  const RoundToNearest mode;
  return fill(d, len, state, kGauss8u);
}
NoxStatus NOX_BODY(noxsRandGauss_16s)(Nox16s* d, int len, NoxRandGaussState_16s* state) {
  const RoundToNearest mode;
  return fill(d, len, state, kGauss16s);
}
NoxStatus NOX_BODY(noxsRandGauss_64f)(Nox64f* d, int len, NoxRandGaussState_64f* state) {
  return fill(d, len, state, kGauss64f);
}

}  // extern "C"
