// Sizes, making and setting of the filters' memory.
#include "core/body.hpp"
#include "core/simd/f32.hpp"
#include "image/filter_spec.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

constexpr Nox64u kMost = 0x7FFFFFFF;

// The product, or something above kMost that is far from overflowing.
Nox64u product(Nox64u a, Nox64u b) {
  const auto capped = [](Nox64u x) { return x > kMost ? kMost + 1 : x; };
  return capped(capped(a) * capped(b));
}
constexpr Nox64u larger(Nox64u a, Nox64u b) { return a > b ? a : b; }

// What depends on the type of the pixels.
struct PixelType {
  int code, kind;
  unsigned bytes;  // of a pixel in the extended plane
  Nox32f scale;    // of the coefficients in lanes
};
constexpr PixelType kPixelTypes[] = {{1, 3, 1, 1}, {5, 5, 2, 1}, {7, 4, 2, 0x1p-16f}, {13, 6, 4, 1}};
const PixelType* pixel_type(int code) {
  for (const PixelType& t : kPixelTypes)
    if (t.code == code) return &t;
  return nullptr;
}

// Bytes of the extended plane: of the whole region with its borders, or of the largest strip.
Nox64u plane_bytes(int w, int h, int width, int height, unsigned element) {
  const Nox64u across = Nox64u(w) + Nox64u(width) - 1, down = Nox64u(h) + Nox64u(height) - 1;
  const Nox64u elements = w >= width || h >= height ? product(across, down)
                                                    : larger(product(across, Nox64u(h) + Nox64u(after(h))),
                                                             product(down, Nox64u(w) + Nox64u(after(w))));
  return rounded_up(elements * element, kPlaneAlign) + kPlaneAlign;
}

}  // namespace

}  // namespace NOX_VARIANT
}  // namespace nox

using namespace nox;

NoxStatus NOX_BODY(noxiFilterBorderGetSize)(int w, int h, int width, int height, int dataType, int kernelType,
                                            int channels, int* specSize, int* bufferSize) {
  if (w < 1 || h < 1 || width < 1 || height < 1) return noxStsSizeErr;
  const bool doubles = dataType == 19 && kernelType == 19;
  const PixelType* const type = pixel_type(dataType);
  if (!doubles && (!type || (kernelType != 7 && kernelType != 13))) return noxStsDataTypeErr;
  if (channels < 1 || channels > (doubles ? 1 : 4)) return noxStsChannelErr;
  if (!specSize || !bufferSize) return noxStsNullPtrErr;
  const Nox64u taps = product(Nox64u(w), Nox64u(h));
  Nox64u spec, buffer = plane_bytes(w, h, width, height, doubles ? 8 : type->bytes);
  if (doubles) {
    spec = rounded_up(8 * taps, 64) + 191;
    buffer += (taps > kMost ? 0 : double_buffer(Nox64u(w), Nox64u(h), width)) + 126;
  } else {
    const Nox64u paired = product((Nox64u(w) + 1) & ~Nox64u{1}, Nox64u(h));
    spec = rounded_up((kernelType == 13 ? 4 : 2) * taps, 64) + rounded_up(80 * paired, 64) + 191;
    if (kernelType == 13 && channels != 2) spec += rounded_up(16 * taps, 64);
  }
  *specSize = spec > kMost ? 0 : static_cast<int>(spec);
  *bufferSize = buffer > kMost ? 0 : static_cast<int>(buffer);
  return spec > kMost || buffer > kMost ? noxStsExceededSizeErr : noxStsNoErr;
}

NoxStatus NOX_BODY(noxiFilterBorderInit_32f)(const Nox32f* kernel, int w, int h, int dataType, int channels, int round,
                                             NoxFilterBorderSpec* memory) {
  if (!kernel || !memory) return noxStsNullPtrErr;
  if (w < 1 || h < 1) return noxStsSizeErr;
  const PixelType* const type = pixel_type(dataType);
  if (!type) return noxStsDataTypeErr;
  if (channels < 1 || channels > 4) return noxStsChannelErr;
  const int mode = round & ~kAccurate;
  if (mode < 0 || mode > 2) return noxStsRoundModeNotSupportedErr;
  BorderSpec* const spec = record_of(memory);
  const size_t taps = static_cast<size_t>(w) * static_cast<size_t>(h);
  Nox32f* const reversed = reinterpret_cast<Nox32f*>(behind(reinterpret_cast<Nox8u*>(spec), kKernelAt));
  // The kernel may stand in the place of its copy: both ends are read before they are written.
  for (size_t i = 0, k = taps; i < k; ++i) {
    const F32x1 low = F32x1::load(kernel + i), high = F32x1::load(kernel + --k);
    high.store(reversed + i);
    low.store(reversed + k);
  }
  Nox32f* const quads = aligned_up(reversed + taps, kSpecAlign);
  for (size_t i = 0; i < taps; ++i) {
    const Nox32f c = reversed[taps - 1 - i] * type->scale;
    for (size_t k = 0; k < 4; ++k) quads[4 * i + k] = c;
  }
  *spec = {type->kind, w, h, mode, 0, 0, 0, reversed, quads, channels};
  return round & kAccurate ? noxStsAccurateModeNotSupported : noxStsNoErr;
}

NoxStatus NOX_BODY(noxiFilterBorderSetMode)(int hint, int offset, NoxFilterBorderSpec* memory) {
  if (!memory) return noxStsNullPtrErr;
  BorderSpec* const spec = record_of(memory);
  const int kind = spec->kind;
  if (offset != 0 && (kind == 1 || kind == 4 || kind == 6 || kind == 7)) return noxStsNotSupportedModeErr;
  spec->offset = offset;
  spec->offsetValue = static_cast<Nox32f>(offset);
  spec->hint = hint;
  if (hint != 2)
    spec->round &= 3;
  else if (kind == 0 || (kind == 1 && spec->channels == 1))
    spec->round |= kAccurate;
  return noxStsNoErr;
}

NoxStatus NOX_BODY(noxiFilterGetBufSize_64f_C1R)(int w, int h, int width, int* size) {
  if (!size) return noxStsNullPtrErr;
  if (w < 1 || h < 1 || width < 1) return noxStsSizeErr;
  const Nox64u bytes = product(Nox64u(w), Nox64u(h)) > kMost ? kMost + 1 : double_buffer(Nox64u(w), Nox64u(h), width);
  *size = bytes > kMost ? 0 : static_cast<int>(bytes);
  return bytes > kMost && NOX_LEVEL > 0 ? noxStsExceededSizeErr : noxStsNoErr;
}
