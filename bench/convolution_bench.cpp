// Rows of direct convolution and correlation by the shorter length; the results together have the row's length.
#include "bench/row.hpp"

namespace {

// The longer array, so that the result fills the destination.
int longer(const Operands* o) { return o->len - o->n[0] + 1; }

NoxStatus convolve(const Operands* o) {
  return noxsConvolve_64f(first<Nox64f>(o), longer(o), static_cast<const Nox64f*>(o->b), o->n[0],
                          destination<Nox64f>(o), NOX_ALG_DIRECT, work<Nox8u>(o));
}
template <class T, NoxStatus (*Run)(const T*, int, const T*, int, T*, int, int, int, Nox8u*)>
NoxStatus correlate(const Operands* o) {
  return Run(static_cast<const T*>(o->b), o->n[0], first<T>(o), longer(o), destination<T>(o), o->len, 1 - o->n[0],
             NOX_ALG_DIRECT, nullptr);
}

Row real(const char* name, NoxStatus (*call)(const Operands*), int shorter) {
  return row<Nox64f>(name, call, 0, 2).n(shorter, "by").lengths({500, 4096}).flops(2.0 * shorter).tolerance(1e-11);
}
Row complex(int shorter) {
  return row<Nox64fc>("noxsCrossCorrNorm_64fc", correlate<Nox64fc, noxsCrossCorrNorm_64fc>, 0, 2)
      .n(shorter, "by")
      .lengths({500, 4096})
      .flops(8.0 * shorter)
      .tolerance(1e-11);
}

Family make() {
  return {"convolution",
          "Direct convolution and correlation",
          {real("noxsConvolve_64f", convolve, 16), real("noxsConvolve_64f", convolve, 60),
           real("noxsCrossCorrNorm_64f", correlate<Nox64f, noxsCrossCorrNorm_64f>, 16),
           real("noxsCrossCorrNorm_64f", correlate<Nox64f, noxsCrossCorrNorm_64f>, 60), complex(16), complex(60)}};
}

const Registration kEntry(make);

}  // namespace
