// Accessors: read or write one value through an address. Values move as bits, so a signalling NaN survives.
#include "nox/array.h"

namespace {
template <class T>
void move_value(const void* from, void* to) {
  __builtin_memcpy(to, from, sizeof(T));
}
}  // namespace

extern "C" {

void GetValFromPtr(const Nox64f* p, Nox64f* out) { move_value<Nox64u>(p, out); }
Nox64f GetValFromPtrf(const Nox64f* p) { return *p; }
void GetValIFromPtr(const Nox32s* p, Nox32s* out) { *out = *p; }
void GetValcFromPtr(const Nox64fc* p, Nox64fc* out) {
  move_value<Nox64u>(&p->re, &out->re);
  move_value<Nox64u>(&p->im, &out->im);
}
void SetValToPtr(Nox64f* p, Nox64f val) { move_value<Nox64u>(&val, p); }
void SetValIToPtr(Nox32s* p, Nox32s val) { *p = val; }
void SetValcToPtr(Nox64fc* p, const Nox64fc* v) { GetValcFromPtr(v, p); }

}  // extern "C"
