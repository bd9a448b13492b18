// Thresholds of one element as their rules read.
#pragma once
#include <cmath>

#include "nox/types.h"

namespace reference {

inline Nox64f raise(Nox64f x, Nox64f level) { return x > level ? x : level; }
inline Nox64f lower(Nox64f x, Nox64f level) { return x < level ? x : level; }
inline Nox64f limit(Nox64f x, Nox64f level, int relation) { return relation == 0 ? raise(x, level) : lower(x, level); }
// The element that is taken the other way round: x itself where neither is beyond the other.
template <class... More>
Nox64f limit_last(Nox64f x, Nox64f usual, Nox64f level, More...) {
  return x < level || x > level ? usual : x;
}
template <class T, class... C>
T limit_last(T, T usual, C...) {
  return usual;
}

template <class T>
T below(T x, T level, T value) {
  return level <= x ? x : value;
}
template <class T>
T above(T x, T level, T value) {
  return level < x ? value : x;
}
template <class T>
T outside(T x, T low, T value_low, T high, T value_high) {
  return high < x ? value_high : low <= x ? x : value_low;
}

inline Nox64f raise_size(Nox64f x, Nox64f level) { return std::copysign(raise(std::fabs(x), level), x); }
inline Nox64f clamp(Nox64f x, Nox64f level) {
  const Nox64f y = lower(x, level), least = 0.0 - level;
  return y > least ? y : least;
}
template <class T>
T raise_size_of(T x, T level) {
  const T least = static_cast<T>(-level);
  return x >= 0 ? (x > level ? x : level) : (x < least ? x : least);
}
template <class T>
T clamp_to(T x, T level) {
  const T least = static_cast<T>(-level);
  return x > level ? level : x < least ? least : x;
}

inline Nox64f squared(Nox64fc x) { return x.re * x.re + x.im * x.im; }
inline Nox64fc lengthen(Nox64fc x, Nox64f level) {
  const Nox64f m = squared(x), l = level * level;
  if (!(l > m)) return x;
  if (m == 0) return {level, 0};
  const Nox64f f = std::sqrt(l / m);
  return {x.re * f, x.im * f};
}
inline Nox64fc shorten(Nox64fc x, Nox64f level) {
  const Nox64f m = squared(x), l = level * level;
  if (level == 0) return {0, 0};
  if (!(l < m)) return x;
  const Nox64f f = std::sqrt(l / m);
  return {x.re * f, x.im * f};
}
inline Nox64fc limit_complex(Nox64fc x, Nox64f level, int relation) {
  return relation == 0 ? lengthen(x, level) : shorten(x, level);
}
inline Nox64fc shorter(Nox64fc x, Nox64f level, Nox64fc value) { return squared(x) >= level * level ? x : value; }
inline Nox64fc longer(Nox64fc x, Nox64f level, Nox64fc value) { return squared(x) > level * level ? value : x; }

// The reciprocal with the magnitude raised to the level, in the precision and range of the wider type.
inline Nox64fc invert(Nox64fc x, Nox64f level) {
  if (level == 0 && squared(x) == 0) return {HUGE_VAL, 0.0 - x.im};
  if (x.re == 0 && x.im == 0) return {1 / level, 0};
  const long double re = x.re, im = x.im, m = re * re + im * im, size = std::sqrt(m);
  const long double r = size <= level ? 1 / (size * level) : 1 / m;
  return {static_cast<Nox64f>(re * r), static_cast<Nox64f>(-im * r)};
}

}  // namespace reference
