// Thresholds of complex arrays by magnitude: the comparison is of squares, the phase is kept.
//
// Squares and their sum are rounded one by one in every build, so that the same elements are replaced everywhere.
#include "core/body.hpp"
#include "stats/squares.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// Both scale by sqrt(square / m), the square of the level over that of the element.
struct Shorten {
  Nox64f level, square;
  template <class C>
  NOX_INLINE C operator()(C x) const {
    const auto m = squares(x);
    const auto l = decltype(m)::all(square), over = l < m;
    if (mask_bits(over) == 0) return x;
    return choose(over, scale(x, sqrt(l / m)), x);
  }
};
struct Lengthen {
  Nox64f level, square;
  template <class C>
  NOX_INLINE C operator()(C x) const {
    const auto m = squares(x);
    const auto l = decltype(m)::all(square), under = m < l;
    if (mask_bits(under) == 0) return x;
    const C longer = choose(m == decltype(m)::zero(), everywhere<C>({level, 0.0}), scale(x, sqrt(l / m)));
    return choose(under, longer, x);
  }
};
struct ReplaceShorter {
  Nox64f level, square;
  Nox64fc value;
  template <class C>
  NOX_INLINE C operator()(C x) const {
    const auto m = squares(x);
    return choose(decltype(m)::all(square) <= m, x, everywhere<C>(value));
  }
};
struct ReplaceLonger {
  Nox64f level, square;
  Nox64fc value;
  template <class C>
  NOX_INLINE C operator()(C x) const {
    const auto m = squares(x);
    return choose(decltype(m)::all(square) < m, everywhere<C>(value), x);
  }
};

enum { kLess = 0, kGreater = 4 };

NOX_INLINE NoxStatus limit(const Nox64fc* s, Nox64fc* d, int len, Nox64f level, int relation) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (relation != kLess && relation != kGreater) return noxStsBadArgErr;
  if (level < 0) return noxStsThreshNegLevelErr;
  if (level == 0) {
    if (relation == kGreater)
      map<c64>(
          d, len, [](auto x) { return decltype(x)::zero(); }, s);
    else if (s != d)
      map<c64>(d, len, Keep{}, s);
  } else if (relation == kGreater) {
    map<split_c64>(d, len, Shorten{level, level * level}, s);
  } else {
    map<split_c64>(d, len, Lengthen{level, level * level}, s);
  }
  return noxStsNoErr;
}

template <class F>
NOX_INLINE NoxStatus replace(F f, const Nox64fc* s, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, s, d)) return st;
  if (f.level < 0) return noxStsThreshNegLevelErr;
  map<split_c64>(d, len, f, s);
  return noxStsNoErr;
}

}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

extern "C" {

NoxStatus NOX_BODY(noxsThreshold_64fc)(const Nox64fc* s, Nox64fc* d, int len, Nox64f level, int relation) {
  return limit(s, d, len, level, relation);
}
NoxStatus NOX_BODY(noxsThreshold_64fc_I)(Nox64fc* d, int len, Nox64f level, int relation) {
  return limit(d, d, len, level, relation);
}
NoxStatus NOX_BODY(noxsThreshold_LT_64fc)(const Nox64fc* s, Nox64fc* d, int len, Nox64f level) {
  return limit(s, d, len, level, kLess);
}
NoxStatus NOX_BODY(noxsThreshold_LT_64fc_I)(Nox64fc* d, int len, Nox64f level) {
  return limit(d, d, len, level, kLess);
}
NoxStatus NOX_BODY(noxsThreshold_GT_64fc)(const Nox64fc* s, Nox64fc* d, int len, Nox64f level) {
  return limit(s, d, len, level, kGreater);
}
NoxStatus NOX_BODY(noxsThreshold_GT_64fc_I)(Nox64fc* d, int len, Nox64f level) {
  return limit(d, d, len, level, kGreater);
}
NoxStatus NOX_BODY(noxsThreshold_LTVal_64fc)(const Nox64fc* s, Nox64fc* d, int len, Nox64f level, Nox64fc value) {
  return replace(ReplaceShorter{level, level * level, value}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_LTVal_64fc_I)(Nox64fc* d, int len, Nox64f level, Nox64fc value) {
  return replace(ReplaceShorter{level, level * level, value}, d, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTVal_64fc)(const Nox64fc* s, Nox64fc* d, int len, Nox64f level, Nox64fc value) {
  return replace(ReplaceLonger{level, level * level, value}, s, d, len);
}
NoxStatus NOX_BODY(noxsThreshold_GTVal_64fc_I)(Nox64fc* d, int len, Nox64f level, Nox64fc value) {
  return replace(ReplaceLonger{level, level * level, value}, d, d, len);
}

}  // extern "C"
