// Plain loops of the sliding median: a choice by comparisons among a ring of 3 or 5 samples, and a sorted window in
// which the oldest sample is searched for by halves and the newest moves its neighbours.
//
// The first sample stands for those before it. n is the mask size.
#include <algorithm>

#include "bench/peers/shapes.hpp"

namespace NOX_PEER_SPACE {

template <class T>
PEER_OUT_OF_LINE void of_3(const T* __restrict x, T* __restrict y, int len) {
  T ring[3] = {x[0], x[0], x[0]};
  for (int i = 0, place = 0; i < len; ++i) {
    ring[place] = x[i];
    place = place == 2 ? 0 : place + 1;
    const int high = ring[0] <= ring[1] ? 1 : 0, low = 1 - high;
    if (ring[high] > ring[2])
      y[i] = ring[low] >= ring[2] ? ring[low] : ring[2];
    else
      y[i] = ring[high];
  }
}

template <class T>
PEER_OUT_OF_LINE void of_5(const T* __restrict x, T* __restrict y, int len) {
  T ring[5] = {x[0], x[0], x[0], x[0], x[0]};
  for (int i = 0, place = 0; i < len; ++i) {
    ring[place] = x[i];
    place = place == 4 ? 0 : place + 1;
    T a = ring[0], b = ring[1], c = ring[2], d = ring[3], e = ring[4];
    if (a > b) std::swap(a, b);
    if (c > d) std::swap(c, d);
    T low = a > c ? a : c, high = b < d ? b : d;
    if (low > high) std::swap(low, high);
    y[i] = e < low ? low : e > high ? high : e;
  }
}

template <class T>
PEER_OUT_OF_LINE void of_many(const T* __restrict x, T* __restrict y, int len, int m, T* sorted, T* ring) {
  for (int i = 0; i < m; ++i) sorted[i] = ring[i] = x[0];
  for (int i = 0, place = 0; i < len; ++i) {
    const T old = ring[place], fresh = x[i];
    ring[place] = fresh;
    place = place + 1 == m ? 0 : place + 1;
    T* at = std::lower_bound(sorted, sorted + m, old);
    if (old < fresh)
      for (; at + 1 < sorted + m && at[1] < fresh; ++at) at[0] = at[1];
    else
      for (; at > sorted && fresh < at[-1]; --at) at[0] = at[-1];
    *at = fresh;
    y[i] = sorted[m / 2];
  }
}

template <class T>
void median(const Operands* o) {
  T* const work = static_cast<T*>(o->work);
  if (o->n[0] == 3)
    of_3(in<T>(o->a), out<T>(o), o->len);
  else if (o->n[0] == 5)
    of_5(in<T>(o->a), out<T>(o), o->len);
  else
    of_many(in<T>(o->a), out<T>(o), o->len, o->n[0], work, work + o->n[0]);
}

const NamedLoop kLoops[] = {
    {"noxsFilterMedian_8u", median<unsigned char>},
    {"noxsFilterMedian_16s", median<short>},
    {"noxsFilterMedian_32s", median<int>},
    {"noxsFilterMedian_64f", median<double>},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(PEER, NOX_PEER_TEXT(PEER_WHO), kLoops);
