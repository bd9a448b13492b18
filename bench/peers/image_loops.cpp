// Filters of planes as plain loops over pixels that all stand in memory: a border is made beforehand, untimed.
#include "bench/peers/image_plane.hpp"
#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

constexpr int kTapBytes = 1 << 12;

template <class T>
struct Correlation {
  static T* taps(const Operands* o) { return static_cast<T*>(o->work); }
  static T* plane(const Operands* o) { return reinterpret_cast<T*>(static_cast<char*>(o->work) + kTapBytes); }
  static void prepare(const Operands* o, int kind) {
    const int k = o->n[0];
    for (int i = 0; i < k * k; ++i) taps(o)[i] = tap<T>(i, k);
    pad(in<T>(o->a), plane(o), k, kind);
  }
  PEER_OUT_OF_LINE static void loop(const T* __restrict s, const T* __restrict c, T* __restrict d, int k) {
    const int across = kSide + k - 1;
    for (int y = 0; y < kSide; ++y)
      for (int x = 0; x < kSide; ++x) {
        T sum = 0;
        for (int i = 0; i < k; ++i)
          for (int j = 0; j < k; ++j) sum += c[i * k + j] * s[(y + i) * across + x + j];
        d[y * kSide + x] = sum;
      }
  }
  static void run(const Operands* o) { loop(plane(o), taps(o), out<T>(o), o->n[0]); }
};

const NamedLoop kLoops[] = {
    {"noxiFilterBorder_32f_C1R", Correlation<float>::run,
     [](const Operands* o) { Correlation<float>::prepare(o, o->n[1]); }},
    {"noxiFilter_64f_C1R", Correlation<double>::run, [](const Operands* o) { Correlation<double>::prepare(o, 1); }},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
