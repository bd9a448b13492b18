// Quicksort of an array, alone or with a companion of positions that makes every move with it.
//
// The partition has no branch on data: each element is stored at the border of the two parts, and the border moves by
// the outcome of the comparison. It only ever exchanges elements, so the array stays a permutation of itself whatever
// the comparisons say of a NaN. The pivot is a median of three, in long ranges of three such medians. Ranges of at
// most nine elements are finished by selection. Equal elements don't come back: a pivot that isn't after the element
// before its range begins a run of equals, which is split off whole. Ranges that have been split badly too often are
// finished by a heap, so no data takes more than n log n steps.
#pragma once
#include "core/simd/f64.hpp"
#include "core/simd/ints.hpp"

namespace nox {
inline namespace NOX_VARIANT {

constexpr size_t kSelectionMost = 9;  // elements that a selection finishes
constexpr size_t kNinesFrom = 128;    // elements from which the pivot is a median of medians
constexpr size_t kPending = 32;       // the larger part waits, so no more than log2 of the length ever do

struct Ascending {
  template <class T>
  static NOX_INLINE bool before(T a, T b) {
    return a < b;
  }
  template <class T>
  static NOX_INLINE bool not_after(T a, T b) {
    return a <= b;
  }
};
struct Descending {
  template <class T>
  static NOX_INLINE bool before(T a, T b) {
    return a > b;
  }
  template <class T>
  static NOX_INLINE bool not_after(T a, T b) {
    return a >= b;
  }
};

// Arrays may stand at any address.
template <class T>
NOX_INLINE T read(const T* p) {
  T x;
  __builtin_memcpy(&x, p, sizeof x);
  return x;
}
template <class T>
NOX_INLINE void write(T* p, T x) {
  __builtin_memcpy(p, &x, sizeof x);
}

// In one move: the compiler would take an element apart into words, which a load of the whole must wait for.
NOX_INLINE Nox64f read(const Nox64f* p) { return _mm_cvtsd_f64(_mm_load_sd(p)); }
NOX_INLINE void write(Nox64f* p, Nox64f x) { _mm_store_sd(p, _mm_set_sd(x)); }

// The array to be sorted, by element: what a sort moves is an Item.
template <class T>
struct Keys {
  using Key = T;
  using Item = T;
  T* keys;
  NOX_INLINE T key(size_t i) const { return read(keys + i); }
  NOX_INLINE Item item(size_t i) const { return key(i); }
  static NOX_INLINE T key_of(Item x) { return x; }
  NOX_INLINE void put(size_t i, Item x) const { write(keys + i, x); }
};
template <class T>
struct KeysAndPlaces {
  using Key = T;
  struct Item {
    T key;
    Nox32s place;
  };
  T* keys;
  Nox32s* places;
  NOX_INLINE T key(size_t i) const { return read(keys + i); }
  NOX_INLINE Item item(size_t i) const { return {key(i), read(places + i)}; }
  static NOX_INLINE T key_of(Item x) { return x.key; }
  NOX_INLINE void put(size_t i, Item x) const {
    write(keys + i, x.key);
    write(places + i, x.place);
  }
};

template <class A>
NOX_INLINE void exchange(A a, size_t i, size_t j) {
  const auto x = a.item(i), y = a.item(j);
  a.put(i, y);
  a.put(j, x);
}

// The place among three of the key that is neither first nor last in order.
template <class Order, class A>
NOX_INLINE size_t median(A a, size_t i, size_t j, size_t k) {
  const auto x = a.key(i), y = a.key(j), z = a.key(k);
  const bool xy = Order::before(x, y), yz = Order::before(y, z), xz = Order::before(x, z);
  return xy == yz ? j : xy == xz ? k : i;
}
template <class Order, class A>
NOX_INLINE size_t choose_pivot(A a, size_t low, size_t n) {
  const size_t middle = low + n / 2, last = low + n - 1;
  if (n < kNinesFrom) return median<Order>(a, low, middle, last);
  const size_t step = n / 8;
  return median<Order>(a, median<Order>(a, low, low + step, low + 2 * step),
                       median<Order>(a, middle - step, middle, middle + step),
                       median<Order>(a, last - 2 * step, last - step, last));
}

// Moves the elements of [from, from + n) for which `goes_first` holds in front of the others; how many they are.
template <class A, class Test>
NOX_INLINE size_t partition(A a, size_t from, size_t n, Test goes_first) {
  // The first element is taken out. The gap it leaves moves to each place that is read, and is filled from the border.
  const auto taken = a.item(from);
  const size_t end = from + n;
  size_t border = from, gap = from;
  for (size_t at = from + 1; at < end; ++at) {
    const auto x = a.item(at);
    a.put(gap, a.item(border));
    a.put(border, x);
    gap = at;
    border += goes_first(A::key_of(x));
  }
  a.put(gap, a.item(border));
  a.put(border, taken);
  border += goes_first(A::key_of(taken));
  return border - from;
}

NOX_INLINE Nox64f first_of(Ascending, Nox64f a, Nox64f b) {
  return min(F64x1{_mm_set_sd(a)}, F64x1{_mm_set_sd(b)}).v[0];
}
NOX_INLINE Nox64f last_of(Ascending, Nox64f a, Nox64f b) {
  return max(F64x1{_mm_set_sd(a)}, F64x1{_mm_set_sd(b)}).v[0];
}
NOX_INLINE Nox64f first_of(Descending, Nox64f a, Nox64f b) {
  return max(F64x1{_mm_set_sd(a)}, F64x1{_mm_set_sd(b)}).v[0];
}
NOX_INLINE Nox64f last_of(Descending, Nox64f a, Nox64f b) {
  return min(F64x1{_mm_set_sd(a)}, F64x1{_mm_set_sd(b)}).v[0];
}
template <class Order, class T>
NOX_INLINE T first_of(Order, T a, T b) {
  return Order::before(a, b) ? a : b;
}
template <class Order, class T>
NOX_INLINE T last_of(Order, T a, T b) {
  return Order::before(b, a) ? a : b;
}

// Selection: the last element in order is carried to the end of the range, which then loses that place. Of two
// elements one is carried on and the other stays, also where neither is before the other.
template <class Order, class T>
NOX_INLINE void select_all(Keys<T> a, size_t low, size_t n) {
  for (T* const p = a.keys + low; n > 1; --n) {
    T carried = read(p);
    for (size_t i = 1; i < n; ++i) {
      const T x = read(p + i);
      write(p + i - 1, first_of(Order{}, carried, x));
      carried = last_of(Order{}, x, carried);
    }
    write(p + n - 1, carried);
  }
}
// With positions the last of equal elements is found and exchanged with the end.
template <class Order, class T>
NOX_INLINE void select_all(KeysAndPlaces<T> a, size_t low, size_t n) {
  for (; n > 1; --n) {
    size_t found = low;
    T top = a.key(low);
    for (size_t i = low + 1; i < low + n; ++i) {
      const T x = a.key(i);
      const bool later = Order::not_after(top, x);
      found = later ? i : found;
      top = later ? x : top;
    }
    exchange(a, found, low + n - 1);
  }
}

// Lets the element at the root of a heap of n sink to its place.
template <class Order, class A>
NOX_INLINE void sink(A a, size_t low, size_t root, size_t n) {
  const auto x = a.item(low + root);
  for (size_t child; (child = 2 * root + 1) < n; root = child) {
    if (child + 1 < n && Order::before(a.key(low + child), a.key(low + child + 1))) ++child;
    if (!Order::before(A::key_of(x), a.key(low + child))) break;
    a.put(low + root, a.item(low + child));
  }
  a.put(low + root, x);
}
template <class Order, class A>
__attribute__((noinline)) void heap_sort(A a, size_t low, size_t n) {
  for (size_t root = n / 2; root-- > 0;) sink<Order>(a, low, root, n);
  for (size_t left = n; left-- > 1;) {
    exchange(a, low, low + left);
    sink<Order>(a, low, 0, left);
  }
}

template <class Order, class A>
NOX_INLINE void quicksort(A a, size_t n) {
  struct Range {
    size_t low, n;
    int patience;  // bad splits that are still borne
  };
  Range pending[kPending];
  size_t waiting = 0;
  Range r{0, n, 31 - __builtin_clz(static_cast<unsigned>(n))};
  for (;;) {
    while (r.n > kSelectionMost && r.patience > 0) {
      exchange(a, r.low, choose_pivot<Order>(a, r.low, r.n));
      const auto pivot = a.key(r.low);
      if (r.low > 0 && !Order::before(a.key(r.low - 1), pivot)) {
        const size_t equals =
            1 + partition(a, r.low + 1, r.n - 1, [pivot](auto x) { return Order::not_after(x, pivot); });
        r = {r.low + equals, r.n - equals, r.patience};
        continue;
      }
      const size_t front = partition(a, r.low + 1, r.n - 1, [pivot](auto x) { return Order::before(x, pivot); });
      exchange(a, r.low, r.low + front);
      const size_t back = r.n - 1 - front;
      const int patience = r.patience - ((front < back ? front : back) < r.n / 8);
      const Range ahead{r.low, front, patience}, behind{r.low + front + 1, back, patience};
      const Range larger = front < back ? behind : ahead;
      if (larger.n > 1) pending[waiting++] = larger;
      r = front < back ? ahead : behind;
    }
    if (r.n > kSelectionMost)
      heap_sort<Order>(a, r.low, r.n);
    else
      select_all<Order>(a, r.low, r.n);
    if (waiting == 0) return;
    r = pending[--waiting];
  }
}

}  // namespace NOX_VARIANT
}  // namespace nox
