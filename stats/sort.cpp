// Sorting: bytes by counting from 128 on, everything else by quicksort.
#include "stats/sort.hpp"

#include "core/body.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr int kCountingFrom = 128;  // bytes

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

// Writes a run of n equal bytes at d, and perhaps 15 more of them where the array goes on up to `end`: what follows in
// order is written over them later.
NOX_INLINE Nox8u* write_run(Nox8u* d, const Nox8u* end, Nox8u value, size_t n) {
  using V = IntLanes<Nox8u, 16>;
  Nox8u* const after = d + n;
  const V run = V::all(value);
  if (end - after >= V::N) {
    run.store(d);
    for (; after - d > V::N; d += V::N) run.store(d + V::N);
    return after;
  }
  for (; after - d >= V::N; d += V::N) run.store(d);
  for (; d < after; ++d) {
    *d = value;
    in_order();  // or the compiler calls a function for it
  }
  return after;
}

template <class Order>
NOX_INLINE NoxStatus sort_bytes(Nox8u* d, int len) {
  if (len < kCountingFrom || !d) return sort<Order>(d, len);
  // Two tables in turn: equal neighbours don't wait for each other's counter.
  unsigned counts[2][256];
  using V = ints<Nox32u>::vec;
  for (auto& table : counts)
    for (size_t i = 0; i < 256; i += V::N) V::zero().store(table + i);
  const Nox8u* const end = d + len;
  const Nox8u* s = d;
  for (; end - s >= 4; s += 4) {
    const unsigned four = read(reinterpret_cast<const unsigned*>(s));
    ++counts[0][four & 255];
    ++counts[1][four >> 8 & 255];
    ++counts[0][four >> 16 & 255];
    ++counts[1][four >> 24];
  }
  for (; s < end; ++s) ++counts[0][*s];
  for (unsigned i = 0; i < 256; ++i) {
    const unsigned value = Order::before(0, 1) ? i : 255 - i;
    d = write_run(d, end, static_cast<Nox8u>(value), counts[0][value] + counts[1][value]);
  }
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
