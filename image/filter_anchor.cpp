// The double filter about an anchor, which reads beyond the region what the caller holds there.
#include "image/window_sum.hpp"
#include "nox/image.h"

using namespace nox;

NoxStatus NOX_BODY(noxiFilter_64f_C1R)(const Nox64f* src, int srcStep, Nox64f* dst, int dstStep, int width, int height,
                                       const Nox64f* kernel, int w, int h, int anchorX, int anchorY, Nox8u*) {
  if (!src || !dst || !kernel) return noxStsNullPtrErr;
  if (width < 1 || height < 1 || w < 1 || h < 1) return noxStsSizeErr;
  if (srcStep < 8 * (Nox64s{width} + w - 1) || dstStep < Nox64s{8} * width) return noxStsStepErr;
  const Nox64f* const s = step_by(src, (anchorY - h + 1) * ptrdiff_t{srcStep}) + (anchorX - w + 1);
  const size_t last = static_cast<size_t>(w) * static_cast<size_t>(h) - 1;
  window_sums(BackwardTaps{kernel + last, w, h}, Window<Nox64f>{s, srcStep, dst, dstStep, width, height});
  return noxStsNoErr;
}
