// Conversions that keep the value, or round it as the destination's type of real numbers does; with a scale factor
// times a power of two.
#include "vector/convert.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

using S24 = Format24<true>;
using U24 = Format24<false>;

template <class From, class To, class Widen, class E>
NOX_INLINE NoxStatus scaled(const typename From::elem* s, E* d, int len, Widen widen, bool scale, E factor) {
  if (!scale) return convert<From, To>(s, d, len, widen);
  return convert<From, To>(s, d, len, [=](auto x) NOX_INLINED {
    const auto wide = widen(x);
    using V = typename decltype(wide)::Vector;
    return each_vector([=](V a) NOX_INLINED { return a * all_of<V>(factor); }, wide);
  });
}

// The factor of a float keeps within this range, so that a product by it rounds as a normal number does.
NOX_INLINE int within(int s, int least, int most) { return s < least ? least : s > most ? most : s; }

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsConvert_8s16s)(const Nox8s* s, Nox16s* d, int len) {
  return convert<SignedBytes16, Words16, 16>(s, d, len, Same{});
}
NoxStatus NOX_BODY(noxsConvert_8s32f)(const Nox8s* s, Nox32f* d, int len) {
  return convert<Format<Nox8s>, Format<Nox32f>>(s, d, len, ToFloats{});
}
NoxStatus NOX_BODY(noxsConvert_8u32f)(const Nox8u* s, Nox32f* d, int len) {
  return convert<Format<Nox8u>, Format<Nox32f>>(s, d, len, ToFloats{});
}
NoxStatus NOX_BODY(noxsConvert_16s32s)(const Nox16s* s, Nox32s* d, int len) {
  return convert<Format<Nox16s>, Format<Nox32s>>(s, d, len, Same{});
}
NoxStatus NOX_BODY(noxsConvert_16s32f)(const Nox16s* s, Nox32f* d, int len) {
  return convert<Format<Nox16s>, Format<Nox32f>>(s, d, len, ToFloats{});
}
NoxStatus NOX_BODY(noxsConvert_16u32f)(const Nox16u* s, Nox32f* d, int len) {
  return convert<Format<Nox16u>, Format<Nox32f>>(s, d, len, ToFloats{});
}
NoxStatus NOX_BODY(noxsConvert_32s32f)(const Nox32s* s, Nox32f* d, int len) {
  return convert<Format<Nox32s>, Format<Nox32f>>(s, d, len, ToFloats{});
}
NoxStatus NOX_BODY(noxsConvert_32s64f)(const Nox32s* s, Nox64f* d, int len) {
  return convert<Format<Nox32s>, Format<Nox64f>>(s, d, len, ToDoubles{});
}
NoxStatus NOX_BODY(noxsConvert_32f64f)(const Nox32f* s, Nox64f* d, int len) {
  return convert<Format<Nox32f>, Format<Nox64f>>(s, d, len, ToDoubles{});
}
NoxStatus NOX_BODY(noxsConvert_64f32f)(const Nox64f* s, Nox32f* d, int len) {
  return convert<Format<Nox64f>, Format<Nox32f>>(s, d, len, ToFloats{});
}
NoxStatus NOX_BODY(noxsConvert_24s32s)(const Nox8u* s, Nox32s* d, int len) {
  return convert<S24, Format<Nox32s>>(s, d, len, Same{});
}
NoxStatus NOX_BODY(noxsConvert_24s32f)(const Nox8u* s, Nox32f* d, int len) {
  return convert<S24, Format<Nox32f>>(s, d, len, ToFloats{});
}
NoxStatus NOX_BODY(noxsConvert_24u32u)(const Nox8u* s, Nox32u* d, int len) {
  return convert<U24, Format<Nox32u>>(s, d, len, Same{});
}
NoxStatus NOX_BODY(noxsConvert_24u32f)(const Nox8u* s, Nox32f* d, int len) {
  return convert<U24, Format<Nox32f>>(s, d, len, ToFloats{});
}

NoxStatus NOX_BODY(noxsConvert_16s32f_Sfs)(const Nox16s* s, Nox32f* d, int len, int scaleFactor) {
  return scaled<Format<Nox16s>, Format<Nox32f>>(s, d, len, ToFloats{}, scaleFactor != 0, float_factor(scaleFactor));
}
NoxStatus NOX_BODY(noxsConvert_16s64f_Sfs)(const Nox16s* s, Nox64f* d, int len, int scaleFactor) {
  return scaled<Format<Nox16s>, Format<Nox64f>>(s, d, len, ToDoubles{}, scaleFactor != 0, double_factor(scaleFactor));
}
NoxStatus NOX_BODY(noxsConvert_32s32f_Sfs)(const Nox32s* s, Nox32f* d, int len, int scaleFactor) {
  const Nox32f factor = float_factor(within(scaleFactor, -96, 126));
  return scaled<Format<Nox32s>, Format<Nox32f>>(s, d, len, ToFloats{}, scaleFactor != 0, factor);
}
NoxStatus NOX_BODY(noxsConvert_32s64f_Sfs)(const Nox32s* s, Nox64f* d, int len, int scaleFactor) {
  return scaled<Format<Nox32s>, Format<Nox64f>>(s, d, len, ToDoubles{}, scaleFactor != 0, double_factor(scaleFactor));
}

}  // extern "C"
