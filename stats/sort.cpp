// Sorting: bytes from 128 on by a network of vectors while they are few and by counting beyond, all else by quicksort.
#include "stats/sort.hpp"

#include "core/body.hpp"
#include "stats/sort_bytes.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr int kCountingFrom = 128;                 // bytes
constexpr size_t kTableMost = 16 * bytes::kLanes;  // up to which a network of vectors sorts them

template <class Order, class T>
NOX_INLINE NoxStatus sort(T* d, int len) {
  if (const NoxStatus st = check(len, d)) return st;
  quicksort<Order>(Keys<T>{d}, static_cast<size_t>(len));
  return noxStsNoErr;
}

template <class Order, class T>
NOX_INLINE NoxStatus sort_with_places(T* d, Nox32s* places, int len) {
  if (const NoxStatus st = check(len, d, places)) return st;
  for (int i = 0; i < len; ++i) write(places + i, Nox32s{i});
  quicksort<Order>(KeysAndPlaces<T>{d, places}, static_cast<size_t>(len));
  return noxStsNoErr;
}

// From kCountingFrom bytes on.
template <class Order>
NOX_INLINE void count_bytes(Nox8u* d, size_t n) {
  // Two tables in turn: equal neighbours don't wait for each other's counter.
  unsigned counts[2][256];
  using V = IntLanes<Nox8u, 16>;
  for (auto& table : counts)
    for (size_t i = 0; i < 256; i += ints<Nox32u>::vec::N) ints<Nox32u>::vec::zero().store(table + i);
  const Nox8u* s = d;
  const Nox8u* const end = d + n;
  for (; end - s >= 4; s += 4) {
    const unsigned four = read(reinterpret_cast<const unsigned*>(s));
    ++counts[0][four & 255];
    ++counts[1][four >> 8 & 255];
    ++counts[0][four >> 16 & 255];
    ++counts[1][four >> 24];
  }
  for (; s < end; ++s) ++counts[0][*s];

  // A run is written in whole vectors: what follows in order is written over their ends. The last vector of the array
  // takes shape beside it, with room for what would stand behind the end.
  Nox8u beside[2 * V::N];
  Nox8u* const last = d + n - V::N;
  Nox8u* bound = last;
  V run = V::all(Order::before(0, 1) ? 0 : 255);
  const V next = V::all(Order::before(0, 1) ? 1 : 255);
  for (int i = 0; i < 256; ++i, run = run + next) {
    const int value = Order::before(0, 1) ? i : 255 - i;
    size_t left = counts[0][value] + counts[1][value];
    for (;;) {
      if (__builtin_expect(d > bound, false)) {
        if (bound != last) break;  // the array is full
        V::load(last).store(beside);
        d = beside + (d - last);
        bound = beside + V::N - 1;
      }
      run.store(d);
      if (__builtin_expect(left <= size_t(V::N), true)) break;
      d += V::N;
      left -= V::N;
    }
    d += left;
  }
  if (bound != last) V::load(beside).store(last);
}

template <class Order>
NOX_INLINE NoxStatus sort_bytes(Nox8u* d, int len) {
  if (len < kCountingFrom || !d) return sort<Order>(d, len);
  const size_t n = static_cast<size_t>(len);
  const Nox8u flip = Order::before(0, 1) ? 0 : 255;
  if (n <= 128)
    bytes::sort_table<128>(d, n, flip);
  else if (n <= 256)
    bytes::sort_table<256>(d, n, flip);
  else if (n <= kTableMost)
    bytes::sort_table<kTableMost>(d, n, flip);
  else
    count_bytes<Order>(d, n);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsSortAscend_8u_I)(Nox8u* d, int len) { return sort_bytes<Ascending>(d, len); }
NoxStatus NOX_BODY(noxsSortIndexAscend_8u_I)(Nox8u* d, Nox32s* places, int len) {
  return sort_with_places<Ascending>(d, places, len);
}
NoxStatus NOX_BODY(noxsSortAscend_16s_I)(Nox16s* d, int len) { return sort<Ascending>(d, len); }
NoxStatus NOX_BODY(noxsSortIndexAscend_16s_I)(Nox16s* d, Nox32s* places, int len) {
  return sort_with_places<Ascending>(d, places, len);
}
NoxStatus NOX_BODY(noxsSortAscend_32s_I)(Nox32s* d, int len) { return sort<Ascending>(d, len); }
NoxStatus NOX_BODY(noxsSortIndexAscend_32s_I)(Nox32s* d, Nox32s* places, int len) {
  return sort_with_places<Ascending>(d, places, len);
}
NoxStatus NOX_BODY(noxsSortAscend_64f_I)(Nox64f* d, int len) { return sort<Ascending>(d, len); }
NoxStatus NOX_BODY(noxsSortIndexAscend_64f_I)(Nox64f* d, Nox32s* places, int len) {
  return sort_with_places<Ascending>(d, places, len);
}
NoxStatus NOX_BODY(noxsSortDescend_8u_I)(Nox8u* d, int len) { return sort_bytes<Descending>(d, len); }
NoxStatus NOX_BODY(noxsSortIndexDescend_8u_I)(Nox8u* d, Nox32s* places, int len) {
  return sort_with_places<Descending>(d, places, len);
}
NoxStatus NOX_BODY(noxsSortDescend_16s_I)(Nox16s* d, int len) { return sort<Descending>(d, len); }
NoxStatus NOX_BODY(noxsSortIndexDescend_16s_I)(Nox16s* d, Nox32s* places, int len) {
  return sort_with_places<Descending>(d, places, len);
}
NoxStatus NOX_BODY(noxsSortDescend_32s_I)(Nox32s* d, int len) { return sort<Descending>(d, len); }
NoxStatus NOX_BODY(noxsSortIndexDescend_32s_I)(Nox32s* d, Nox32s* places, int len) {
  return sort_with_places<Descending>(d, places, len);
}
NoxStatus NOX_BODY(noxsSortDescend_64f_I)(Nox64f* d, int len) { return sort<Descending>(d, len); }
NoxStatus NOX_BODY(noxsSortIndexDescend_64f_I)(Nox64f* d, Nox32s* places, int len) {
  return sort_with_places<Descending>(d, places, len);
}

}  // extern "C"
