// Bitwise operations and shifts by a constant.
//
// All bad arguments give the same status on whatever way: null, then the length, then a negative count. So the checks
// come first, and then the counts and constants that make a copy or a fill of the call.
#include "core/body.hpp"
#include "core/simd/ints_wide.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct And {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return a & b;
  }
};
struct Or {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return a | b;
  }
};
struct Xor {
  template <class V>
  NOX_INLINE V operator()(V a, V b) const {
    return a ^ b;
  }
};
template <class Operation, class T>
struct WithConstant {
  T c;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return Operation{}(a, V::all(c));
  }
};

template <class T>
NOX_INLINE IntOne<T> shift_up(IntOne<T> a, int n) {
  return shift_left(a, n);
}
template <class T>
NOX_INLINE IntOne<T> shift_down(IntOne<T> a, int n) {
  return shift_right(a, n);
}
struct Up {
  int n;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return shift_up(a, n);
  }
};
struct Down {
  int n;
  template <class V>
  NOX_INLINE V operator()(V a) const {
    return shift_down(a, n);
  }
};

template <class Operation, class T>
NOX_INLINE NoxStatus of_two(const T* a, const T* b, T* d, int len) {
  if (const NoxStatus st = check(len, a, b, d)) return st;
  map<ints<T>>(d, len, Operation{}, a, b);
  return noxStsNoErr;
}
template <class Operation, class T>
NOX_INLINE NoxStatus with_constant(const T* s, T c, T* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  map<ints<T>>(d, len, WithConstant<Operation, T>{c}, s);
  return noxStsNoErr;
}

NOX_INLINE NoxStatus copy(const Nox8u* s, Nox8u* d, int len) { return NOX_BODY(noxsCopy_8u)(s, d, len); }
NOX_INLINE NoxStatus copy(const Nox16s* s, Nox16s* d, int len) { return NOX_BODY(noxsCopy_16s)(s, d, len); }
NOX_INLINE NoxStatus copy(const Nox32s* s, Nox32s* d, int len) { return NOX_BODY(noxsCopy_32s)(s, d, len); }
NOX_INLINE NoxStatus zero(Nox8u* d, int len) { return NOX_BODY(noxsZero_8u)(d, len); }
NOX_INLINE NoxStatus zero(Nox16s* d, int len) { return NOX_BODY(noxsZero_16s)(d, len); }
NOX_INLINE NoxStatus zero(Nox32s* d, int len) { return NOX_BODY(noxsZero_32s)(d, len); }
NOX_INLINE NoxStatus zero(Nox16u* d, int len) { return zero(reinterpret_cast<Nox16s*>(d), len); }
NOX_INLINE NoxStatus zero(Nox32u* d, int len) { return zero(reinterpret_cast<Nox32s*>(d), len); }

template <class T>
NOX_INLINE NoxStatus and_constant(const T* s, T c, T* d, int len) {
  if (c == 0) return s ? zero(d, len) : noxStsNullPtrErr;
  return with_constant<And>(s, c, d, len);
}

template <class Shift, class T>
NOX_INLINE NoxStatus shift(const T* s, int n, T* d, int len) {
  constexpr int kWidth = static_cast<int>(sizeof(T)) * 8;
  if (const NoxStatus st = check(len, s, d)) return st;
  if (n < 0) return noxStsShiftErr;
  if (n == 0) return s == d ? noxStsNoErr : copy(s, d, len);
  if (n >= kWidth) {
    if (!is_signed<T> || std::is_same_v<Shift, Up>) return zero(d, len);
    n = kWidth - 1;  // leaves the sign in every bit
  }
  map<ints<T>>(d, len, Shift{n}, s);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsAnd_8u)(const Nox8u* a, const Nox8u* b, Nox8u* d, int len) { return of_two<And>(a, b, d, len); }
NoxStatus NOX_BODY(noxsAnd_8u_I)(const Nox8u* s, Nox8u* d, int len) { return of_two<And>(d, s, d, len); }
NoxStatus NOX_BODY(noxsAnd_16u)(const Nox16u* a, const Nox16u* b, Nox16u* d, int len) {
  return of_two<And>(a, b, d, len);
}
NoxStatus NOX_BODY(noxsAnd_16u_I)(const Nox16u* s, Nox16u* d, int len) { return of_two<And>(d, s, d, len); }
NoxStatus NOX_BODY(noxsAnd_32u)(const Nox32u* a, const Nox32u* b, Nox32u* d, int len) {
  return of_two<And>(a, b, d, len);
}
NoxStatus NOX_BODY(noxsAnd_32u_I)(const Nox32u* s, Nox32u* d, int len) { return of_two<And>(d, s, d, len); }

NoxStatus NOX_BODY(noxsOr_8u)(const Nox8u* a, const Nox8u* b, Nox8u* d, int len) { return of_two<Or>(a, b, d, len); }
NoxStatus NOX_BODY(noxsOr_8u_I)(const Nox8u* s, Nox8u* d, int len) { return of_two<Or>(d, s, d, len); }
NoxStatus NOX_BODY(noxsOr_16u)(const Nox16u* a, const Nox16u* b, Nox16u* d, int len) {
  return of_two<Or>(a, b, d, len);
}
NoxStatus NOX_BODY(noxsOr_16u_I)(const Nox16u* s, Nox16u* d, int len) { return of_two<Or>(d, s, d, len); }
NoxStatus NOX_BODY(noxsOr_32u)(const Nox32u* a, const Nox32u* b, Nox32u* d, int len) {
  return of_two<Or>(a, b, d, len);
}
NoxStatus NOX_BODY(noxsOr_32u_I)(const Nox32u* s, Nox32u* d, int len) { return of_two<Or>(d, s, d, len); }

NoxStatus NOX_BODY(noxsXor_8u)(const Nox8u* a, const Nox8u* b, Nox8u* d, int len) { return of_two<Xor>(a, b, d, len); }
NoxStatus NOX_BODY(noxsXor_8u_I)(const Nox8u* s, Nox8u* d, int len) { return of_two<Xor>(d, s, d, len); }
NoxStatus NOX_BODY(noxsXor_16u)(const Nox16u* a, const Nox16u* b, Nox16u* d, int len) {
  return of_two<Xor>(a, b, d, len);
}
NoxStatus NOX_BODY(noxsXor_16u_I)(const Nox16u* s, Nox16u* d, int len) { return of_two<Xor>(d, s, d, len); }
NoxStatus NOX_BODY(noxsXor_32u)(const Nox32u* a, const Nox32u* b, Nox32u* d, int len) {
  return of_two<Xor>(a, b, d, len);
}
NoxStatus NOX_BODY(noxsXor_32u_I)(const Nox32u* s, Nox32u* d, int len) { return of_two<Xor>(d, s, d, len); }

NoxStatus NOX_BODY(noxsAndC_8u)(const Nox8u* s, Nox8u c, Nox8u* d, int len) { return and_constant(s, c, d, len); }
NoxStatus NOX_BODY(noxsAndC_8u_I)(Nox8u c, Nox8u* d, int len) { return and_constant(d, c, d, len); }
NoxStatus NOX_BODY(noxsAndC_16u)(const Nox16u* s, Nox16u c, Nox16u* d, int len) { return and_constant(s, c, d, len); }
NoxStatus NOX_BODY(noxsAndC_16u_I)(Nox16u c, Nox16u* d, int len) { return and_constant(d, c, d, len); }
NoxStatus NOX_BODY(noxsAndC_32u)(const Nox32u* s, Nox32u c, Nox32u* d, int len) { return and_constant(s, c, d, len); }
NoxStatus NOX_BODY(noxsAndC_32u_I)(Nox32u c, Nox32u* d, int len) { return and_constant(d, c, d, len); }

NoxStatus NOX_BODY(noxsOrC_8u)(const Nox8u* s, Nox8u c, Nox8u* d, int len) { return with_constant<Or>(s, c, d, len); }
NoxStatus NOX_BODY(noxsOrC_8u_I)(Nox8u c, Nox8u* d, int len) { return with_constant<Or>(d, c, d, len); }
NoxStatus NOX_BODY(noxsOrC_16u)(const Nox16u* s, Nox16u c, Nox16u* d, int len) {
  return with_constant<Or>(s, c, d, len);
}
NoxStatus NOX_BODY(noxsOrC_16u_I)(Nox16u c, Nox16u* d, int len) { return with_constant<Or>(d, c, d, len); }
NoxStatus NOX_BODY(noxsOrC_32u)(const Nox32u* s, Nox32u c, Nox32u* d, int len) {
  return with_constant<Or>(s, c, d, len);
}
NoxStatus NOX_BODY(noxsOrC_32u_I)(Nox32u c, Nox32u* d, int len) { return with_constant<Or>(d, c, d, len); }

NoxStatus NOX_BODY(noxsXorC_8u)(const Nox8u* s, Nox8u c, Nox8u* d, int len) { return with_constant<Xor>(s, c, d, len); }
NoxStatus NOX_BODY(noxsXorC_8u_I)(Nox8u c, Nox8u* d, int len) { return with_constant<Xor>(d, c, d, len); }
NoxStatus NOX_BODY(noxsXorC_16u)(const Nox16u* s, Nox16u c, Nox16u* d, int len) {
  return with_constant<Xor>(s, c, d, len);
}
NoxStatus NOX_BODY(noxsXorC_16u_I)(Nox16u c, Nox16u* d, int len) { return with_constant<Xor>(d, c, d, len); }
NoxStatus NOX_BODY(noxsXorC_32u)(const Nox32u* s, Nox32u c, Nox32u* d, int len) {
  return with_constant<Xor>(s, c, d, len);
}
NoxStatus NOX_BODY(noxsXorC_32u_I)(Nox32u c, Nox32u* d, int len) { return with_constant<Xor>(d, c, d, len); }

// A complement is the exclusive or with ones.
NoxStatus NOX_BODY(noxsNot_8u)(const Nox8u* s, Nox8u* d, int len) {
  return NOX_BODY(noxsXorC_8u)(s, highest<Nox8u>, d, len);
}
NoxStatus NOX_BODY(noxsNot_8u_I)(Nox8u* d, int len) { return NOX_BODY(noxsXorC_8u_I)(highest<Nox8u>, d, len); }
NoxStatus NOX_BODY(noxsNot_16u)(const Nox16u* s, Nox16u* d, int len) {
  return NOX_BODY(noxsXorC_16u)(s, highest<Nox16u>, d, len);
}
NoxStatus NOX_BODY(noxsNot_16u_I)(Nox16u* d, int len) { return NOX_BODY(noxsXorC_16u_I)(highest<Nox16u>, d, len); }
NoxStatus NOX_BODY(noxsNot_32u)(const Nox32u* s, Nox32u* d, int len) {
  return NOX_BODY(noxsXorC_32u)(s, highest<Nox32u>, d, len);
}
NoxStatus NOX_BODY(noxsNot_32u_I)(Nox32u* d, int len) { return NOX_BODY(noxsXorC_32u_I)(highest<Nox32u>, d, len); }

NoxStatus NOX_BODY(noxsLShiftC_8u)(const Nox8u* s, int n, Nox8u* d, int len) { return shift<Up>(s, n, d, len); }
NoxStatus NOX_BODY(noxsLShiftC_8u_I)(int n, Nox8u* d, int len) { return shift<Up>(d, n, d, len); }
NoxStatus NOX_BODY(noxsLShiftC_16s)(const Nox16s* s, int n, Nox16s* d, int len) { return shift<Up>(s, n, d, len); }
NoxStatus NOX_BODY(noxsLShiftC_16s_I)(int n, Nox16s* d, int len) { return shift<Up>(d, n, d, len); }
NoxStatus NOX_BODY(noxsLShiftC_32s)(const Nox32s* s, int n, Nox32s* d, int len) { return shift<Up>(s, n, d, len); }
NoxStatus NOX_BODY(noxsLShiftC_32s_I)(int n, Nox32s* d, int len) { return shift<Up>(d, n, d, len); }
NoxStatus NOX_BODY(noxsRShiftC_8u)(const Nox8u* s, int n, Nox8u* d, int len) { return shift<Down>(s, n, d, len); }
NoxStatus NOX_BODY(noxsRShiftC_8u_I)(int n, Nox8u* d, int len) { return shift<Down>(d, n, d, len); }
NoxStatus NOX_BODY(noxsRShiftC_16s)(const Nox16s* s, int n, Nox16s* d, int len) { return shift<Down>(s, n, d, len); }
NoxStatus NOX_BODY(noxsRShiftC_16s_I)(int n, Nox16s* d, int len) { return shift<Down>(d, n, d, len); }
NoxStatus NOX_BODY(noxsRShiftC_32s)(const Nox32s* s, int n, Nox32s* d, int len) { return shift<Down>(s, n, d, len); }
NoxStatus NOX_BODY(noxsRShiftC_32s_I)(int n, Nox32s* d, int len) { return shift<Down>(d, n, d, len); }

}  // extern "C"
