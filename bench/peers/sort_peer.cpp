// std::sort of the elements, and of their positions, by which the elements are gathered afterwards.
#include <algorithm>
#include <functional>
#include <numeric>

#include "bench/peers/peers.hpp"

namespace NOX_PEER_SPACE {

template <class T, class Order>
void sort(const Operands* o) {
  T* const d = static_cast<T*>(o->d);
  std::sort(d, d + o->len, Order{});
}
template <class T, class Order>
void sort_with_places(const Operands* o) {
  T *const d = static_cast<T*>(o->d), *const keys = static_cast<T*>(o->work);
  int* const places = static_cast<int*>(o->e);
  std::iota(places, places + o->len, 0);
  std::sort(places, places + o->len, [d](int a, int b) { return Order{}(d[a], d[b]); });
  for (int i = 0; i < o->len; ++i) keys[i] = d[places[i]];
  std::copy(keys, keys + o->len, d);
}

const NamedLoop kLoops[] = {
    {"noxsSortAscend_64f_I", sort<double, std::less<>>},
    {"noxsSortDescend_32s_I", sort<int, std::greater<>>},
    {"noxsSortAscend_16s_I", sort<short, std::less<>>},
    {"noxsSortAscend_8u_I", sort<unsigned char, std::less<>>},
    {"noxsSortDescend_8u_I", sort<unsigned char, std::greater<>>},
    {"noxsSortIndexAscend_64f_I", sort_with_places<double, std::less<>>},
    {"noxsSortIndexDescend_32s_I", sort_with_places<int, std::greater<>>},
    {"noxsSortIndexAscend_16s_I", sort_with_places<short, std::less<>>},
};

}  // namespace NOX_PEER_SPACE

using namespace NOX_PEER_SPACE;
NOX_PEER_SET(sort, "std::sort", kLoops);
