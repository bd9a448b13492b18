// Division and square root of Nox64f and Nox64fc.
#include "core/body.hpp"
#include "core/drivers.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {
NOX_INLINE NoxStatus todo_div(const Nox64f* a, const Nox64f* b, Nox64f* d, int len) {
  if (const NoxStatus st = check(len, a, b, d)) return st;
  bool zero = false;
  for (int i = 0; i < len; ++i) { if (a[i] == 0) { zero = true; d[i] = b[i] * __builtin_inf(); } else d[i] = b[i] / a[i]; }
  return zero ? noxStsDivByZero : noxStsNoErr;
}
NOX_INLINE NoxStatus todo_divc(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, a, b, d)) return st;
  bool zero = false;
  for (int i = 0; i < len; ++i) { const Nox64fc x = a[i], y = b[i]; double m = x.re*x.re+x.im*x.im, r = 1/m; if (m==0) {zero = true; r = __builtin_nan("");}
    d[i] = {(y.re*x.re+y.im*x.im)*r, (y.im*x.re-y.re*x.im)*r}; }
  return zero ? noxStsDivByZero : noxStsNoErr;
}
NOX_INLINE NoxStatus todo_sqrt(const Nox64f* a, Nox64f* d, int len) {
  if (const NoxStatus st = check(len, a, d)) return st;
  bool neg = false;
  for (int i = 0; i < len; ++i) { if (a[i] < 0) neg = true; d[i] = __builtin_sqrt(a[i]); }
  return neg ? noxStsSqrtNegArg : noxStsNoErr;
}
NOX_INLINE NoxStatus todo_sqrtc(const Nox64fc* a, Nox64fc* d, int len) {
  if (const NoxStatus st = check(len, a, d)) return st;
  for (int i = 0; i < len; ++i) { double x = a[i].re/2, y=a[i].im/2, im = a[i].im, re = a[i].re; double m = __builtin_sqrt(x*x+y*y), s = __builtin_sqrt(__builtin_fabs(x)+m), t = __builtin_fabs(y)/(s==0?0.5:s);
   double r = re < 0 ? t : s, q = re < 0 ? s : t; d[i] = {r, im < 0 ? -q : q}; }
  return noxStsNoErr;
}
}  // namespace
}  // namespace NOX_VARIANT
}  // namespace nox
using namespace nox;
extern "C" {
NoxStatus NOX_BODY(noxsDiv_64f)(const Nox64f* a, const Nox64f* b, Nox64f* d, int len) { return todo_div(a, b, d, len); }
NoxStatus NOX_BODY(noxsDiv_64f_I)(const Nox64f* a, Nox64f* d, int len) { return todo_div(a, d, d, len); }
NoxStatus NOX_BODY(noxsDiv_64fc)(const Nox64fc* a, const Nox64fc* b, Nox64fc* d, int len) { return todo_divc(a, b, d, len); }
NoxStatus NOX_BODY(noxsDiv_64fc_I)(const Nox64fc* a, Nox64fc* d, int len) { return todo_divc(a, d, d, len); }
NoxStatus NOX_BODY(noxsSqrt_64f)(const Nox64f* a, Nox64f* d, int len) { return todo_sqrt(a, d, len); }
NoxStatus NOX_BODY(noxsSqrt_64f_I)(Nox64f* d, int len) { return todo_sqrt(d, d, len); }
NoxStatus NOX_BODY(noxsSqrt_64fc)(const Nox64fc* a, Nox64fc* d, int len) { return todo_sqrtc(a, d, len); }
NoxStatus NOX_BODY(noxsSqrt_64fc_I)(Nox64fc* d, int len) { return todo_sqrtc(d, d, len); }
}  // extern "C"
