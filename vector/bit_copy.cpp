// Copies of bit ranges, in both orders of bits within a byte.
//
// The destination's first and last byte are merged with what they hold; the whole bytes between them come from pairs
// of neighbouring source bytes, shifted in vectors, or are copied as they are where both ranges begin at the same bit.
// Only bytes that hold bits of the ranges are read or written.
#include "core/body.hpp"
#include "core/simd/ints.hpp"
#include "vector/block.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Order of the bits in a byte, which are one end of the bit string: `forward` moves them towards its start, `back`
// towards its end. On vectors the bits that cross from byte to byte are left to the caller.
struct HighBitFirst {
  static NOX_INLINE unsigned forward(unsigned v, int n) { return (v << n) & 0xFF; }
  static NOX_INLINE unsigned back(unsigned v, int n) { return v >> n; }
  template <class V>
  static NOX_INLINE V forward_lanes(V v, int n) {
    return shift_left(v, n);
  }
  template <class V>
  static NOX_INLINE V back_lanes(V v, int n) {
    return shift_right(v, n);
  }
};
struct LowBitFirst {
  static NOX_INLINE unsigned forward(unsigned v, int n) { return v >> n; }
  static NOX_INLINE unsigned back(unsigned v, int n) { return (v << n) & 0xFF; }
  template <class V>
  static NOX_INLINE V forward_lanes(V v, int n) {
    return shift_right(v, n);
  }
  template <class V>
  static NOX_INLINE V back_lanes(V v, int n) {
    return shift_left(v, n);
  }
};

// Eight bits of the source from s_bit on; the second byte is read only if bits of it are among the first `count`.
template <class Order>
NOX_INLINE unsigned fetch(const Nox8u* s, int s_bit, int count) {
  const unsigned first = Order::forward(s[0], s_bit);
  return s_bit + count > 8 ? first | Order::back(s[1], 8 - s_bit) : first;
}

// Copies count bits, at most to the end of the destination's byte.
template <class Order>
NOX_INLINE void merge_byte(const Nox8u* s, int s_bit, Nox8u* d, int d_bit, int count) {
  const unsigned mask = Order::back(Order::forward(0xFF, 8 - count), d_bit);
  *d = static_cast<Nox8u>((*d & ~mask) | (Order::back(fetch<Order>(s, s_bit, count), d_bit) & mask));
}

// One vector of whole bytes that begin at bit 1 to 7 of the source. The lanes are wider than a byte: `keep` cuts off
// what the shift brought in from the neighbour.
template <class Order, class V>
NOX_INLINE void shift_vector(const Nox8u* s, Nox8u* d, int s_bit, V keep) {
  const V first = V::load(reinterpret_cast<const Nox16u*>(s)), second = V::load(reinterpret_cast<const Nox16u*>(s + 1));
  select_lanes(keep, Order::forward_lanes(first, s_bit), Order::back_lanes(second, 8 - s_bit))
      .store(reinterpret_cast<Nox16u*>(d));
}

// n bytes, at least one vector: unaligned vectors at both ends, aligned ones between them.
template <class Order, class V>
NOX_INLINE void shift_vectors(const Nox8u* s, Nox8u* d, size_t n, int s_bit) {
  constexpr size_t kStep = sizeof(V);
  const V keep = V::all(static_cast<Nox16u>(Order::forward(0xFF, s_bit) * 0x101));
  shift_vector<Order>(s, d, s_bit, keep);
  for (size_t i = kStep - (reinterpret_cast<uintptr_t>(d) & (kStep - 1)); i + kStep < n; i += kStep)
    shift_vector<Order>(s + i, d + i, s_bit, keep);
  shift_vector<Order>(s + n - kStep, d + n - kStep, s_bit, keep);
}

// n whole bytes that begin at bit 1 to 7 of the source, from n + 1 source bytes.
template <class Order>
NOX_INLINE void shift_bytes(const Nox8u* s, Nox8u* d, size_t n, int s_bit) {
  using V = ints<Nox16u>::vec;
  using Half = IntLanes<Nox16u, 16>;
  if (n >= sizeof(V)) return shift_vectors<Order, V>(s, d, n, s_bit);
  if (n >= sizeof(Half)) return shift_vectors<Order, Half>(s, d, n, s_bit);
  for (size_t i = 0; i < n; ++i) d[i] = static_cast<Nox8u>(fetch<Order>(s + i, s_bit, 8));
}

template <class Order>
NOX_INLINE NoxStatus copy_bits(const Nox8u* s, int s_offset, Nox8u* d, int d_offset, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (s_offset < 0 || d_offset < 0) return noxStsSizeErr;
  int s_bit = s_offset & 7;
  const int d_bit = d_offset & 7;
  if (d_bit != 0) {
    const int count = len < 8 - d_bit ? len : 8 - d_bit;
    merge_byte<Order>(s, s_bit, d, d_bit, count);
    len -= count;
    s_bit += count;
    s += s_bit / 8;
    s_bit &= 7;
    ++d;
  }
  const size_t whole = static_cast<size_t>(len) / 8;
  if (s_bit == 0)
    copy_bytes(d, s, whole);
  else
    shift_bytes<Order>(s, d, whole, s_bit);
  if (len % 8 != 0) merge_byte<Order>(s + whole, s_bit, d + whole, 0, len % 8);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsCopyLE_1u)(const Nox8u* s, int s_offset, Nox8u* d, int d_offset, int len) {
  return copy_bits<HighBitFirst>(s, s_offset, d, d_offset, len);
}
NoxStatus NOX_BODY(noxsCopyBE_1u)(const Nox8u* s, int s_offset, Nox8u* d, int d_offset, int len) {
  return copy_bits<LowBitFirst>(s, s_offset, d, d_offset, len);
}

}  // extern "C"
