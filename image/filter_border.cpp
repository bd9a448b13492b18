// The float filter with border: the interior straight from the source, what touches a border through a copied plane.
#include "image/border_copy.hpp"
#include "image/filter_spec.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

struct Filtering {
  QuadTaps taps;
  Region region;
  Nox32f* dst;
  ptrdiff_t dstStep;
  Nox32f* plane;

  // The outputs of a rectangle, whose windows all stand in memory.
  void straight(const Rectangle& out) const {
    const Nox32f* const s = step_by(region.src, (out.top - before(taps.height)) * region.step);
    run(s + (out.left - before(taps.width)), region.step, out);
  }
  // The outputs of a rectangle by way of the plane.
  void copied(const Rectangle& out) const {
    if (out.width < 1 || out.height < 1) return;
    const int across = out.width + taps.width - 1, down = out.height + taps.height - 1;
    copy_with_border(region, {out.left - before(taps.width), out.top - before(taps.height), across, down}, plane);
    run(plane, across * ptrdiff_t{sizeof(Nox32f)}, out);
  }

 private:
  void run(const Nox32f* s, ptrdiff_t step, const Rectangle& out) const {
    window_sums(taps,
                Window<Nox32f>{s, step, step_by(dst, out.top * dstStep) + out.left, dstStep, out.width, out.height});
  }
};

// Whether the rows of a window would stand in too few places of the first cache: at multiples of 4 KiB they share
// theirs, of which there are eight.
NOX_INLINE bool rows_collide(ptrdiff_t step, int rows) {
  constexpr ptrdiff_t kLine = 64, kPlaces = 4096;
  return rows > 8 && ((step + kLine) & (kPlaces - 1)) < 2 * kLine;
}

void filter(const Filtering& f) {
  const Region& r = f.region;
  if (rows_collide(r.step, f.taps.height)) {
    const int strip = after(f.taps.height) + 1;
    for (int y = 0; y < r.height; y += strip) f.copied({0, y, r.width, r.height - y < strip ? r.height - y : strip});
    return;
  }
  const bool whole = (r.border & 240) == 240;
  if (!whole && (f.taps.width >= r.width || f.taps.height >= r.height)) return f.copied({0, 0, r.width, r.height});
  const int top = r.has(noxBorderInMemTop) ? 0 : before(f.taps.height);
  const int bottom = r.has(noxBorderInMemBottom) ? 0 : after(f.taps.height);
  const int left = r.has(noxBorderInMemLeft) ? 0 : before(f.taps.width);
  const int right = r.has(noxBorderInMemRight) ? 0 : after(f.taps.width);
  const Rectangle inner = {left, top, r.width - left - right, r.height - top - bottom};
  f.copied({0, 0, r.width, top});
  f.copied({0, r.height - bottom, r.width, bottom});
  f.copied({0, top, left, inner.height});
  f.copied({r.width - right, top, right, inner.height});
  f.straight(inner);
}

}  // namespace

}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

NoxStatus NOX_BODY(noxiFilterBorder_32f_C1R)(const Nox32f* src, int srcStep, Nox32f* dst, int dstStep, int width,
                                             int height, int border, const Nox32f* value,
                                             const NoxFilterBorderSpec* memory, Nox8u* buffer) {
  if (!src || !dst || !memory || !buffer) return noxStsNullPtrErr;
  const int kind = border & 15;
  if (kind == noxBorderConst && !value) return noxStsNullPtrErr;
  if (width < 1 || height < 1) return noxStsSizeErr;
  if (srcStep < 1 || dstStep < Nox64s{4} * width) return noxStsStepErr;
  if (border < 0 || border > 255) return noxStsBorderErr;
  if (border != 240 && kind != noxBorderRepl && kind != noxBorderMirror && kind != noxBorderConst)
    return noxStsBorderErr;
  const BorderSpec* const spec = record_of(memory);
  Nox32f constant = 0;
  if (kind == noxBorderConst) F32x1::load(value).store(&constant);
  filter({{spec->quads, spec->width, spec->height},
          {src, srcStep, width, height, border, constant},
          dst,
          dstStep,
          reinterpret_cast<Nox32f*>(aligned_up(buffer, kPlaneAlign))});
  return noxStsNoErr;
}
