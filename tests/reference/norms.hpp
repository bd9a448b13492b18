// Norms and normalisation by their definitions, in the lanes of the builds for SSE.
#pragma once
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "nox/nox.h"

namespace reference {

// Joins term(0)... term(n - 1) in four lanes that start from 0; the first term goes to lane 0 on its own where the
// array begins at an odd multiple of 8 bytes.
template <class Term, class Join>
double four_lanes(size_t n, uintptr_t address, Term&& term, Join&& join) {
  double l[4] = {};
  size_t i = 0;
  if (address % 16 == 8) l[0] = join(l[0], term(i++));
  for (; n - i >= 4; i += 4)
    for (size_t k = 0; k < 4; ++k) l[k] = join(l[k], term(i + k));
  if (n - i >= 2) {
    l[0] = join(l[0], term(i)), l[1] = join(l[1], term(i + 1));
    i += 2;
  }
  if (i < n) l[0] = join(l[0], term(i));
  return join(join(l[0], l[2]), join(l[1], l[3]));
}
template <class Term, class Join>
double two_lanes(size_t n, Term&& term, Join&& join) {
  double l[2] = {};
  for (size_t i = 0; i < n; ++i) l[i % 2] = join(l[i % 2], term(i));
  return join(l[0], l[1]);
}

inline double sum(double a, double b) { return a + b; }
inline double larger_or_new(double acc, double v) { return acc > v ? acc : v; }
inline double larger_or_old(double acc, double v) { return v > acc ? v : acc; }

inline double power(const Nox64fc& z) { return z.im * z.im + z.re * z.re; }

}  // namespace reference
