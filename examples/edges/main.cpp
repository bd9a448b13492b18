// The edges example: finds the edges of a grey image, where the brightness changes the most.
//
//     edges [--median M] [--save FILE] [--out FILE] [IMAGE]
//
// IMAGE is a binary PGM file; without it the program makes an image of its own, a bright rectangle before a slope, with
// single pixels lost to noise. A median of M pixels, 1 by default, goes along the rows first and takes such pixels
// away. Two derivatives by 3x3 kernels follow, the borders repeated; the length of the gradient, scaled so that the
// greatest is 255, is the result. --save keeps the image as it came, --out takes the result. Exit status 0 is success,
// 1 an error of the library, 2 an input or an option that can't be worked on.
#include <nox/nox.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "command.hpp"
#include "pgm.hpp"

namespace {

using examples::Image;

constexpr int kSide = 3;  // of the kernels
constexpr Nox32f kAcross[kSide * kSide] = {-1, 0, 1, -2, 0, 2, -1, 0, 1};
constexpr Nox32f kDown[kSide * kSide] = {-1, -2, -1, 0, 0, 0, 1, 2, 1};

void check(NoxStatus status, const char* call) {
  if (status >= noxStsNoErr) return;  // above it are warnings
  std::fprintf(stderr, "edges: %s: %s\n", call, noxGetStatusString(status));
  std::exit(1);
}

std::vector<Nox8u> bytes(int n) { return std::vector<Nox8u>(static_cast<std::size_t>(n)); }

Image test_image() {
  constexpr int kWidth = 240, kHeight = 160, kLost = 200;
  constexpr int kLeft = 60, kTop = 40, kAcrossIt = 100, kDownIt = 70;
  Image image{kWidth, kHeight, bytes(kWidth * kHeight)};
  for (int y = 0; y < kHeight; ++y) {
    check(noxsVectorSlope_8u(image.row(y), kWidth, 20.0f, 0.1f), "noxsVectorSlope_8u");
    if (y >= kTop && y < kTop + kDownIt) check(noxsSet_8u(200, image.row(y) + kLeft, kAcrossIt), "noxsSet_8u");
  }
  int size = 0;
  check(noxsRandUniformGetSize_64f(&size), "noxsRandUniformGetSize_64f");
  std::vector<Nox8u> memory = bytes(size);
  NoxRandUniformState_64f* const state = reinterpret_cast<NoxRandUniformState_64f*>(memory.data());
  check(noxsRandUniformInit_64f(state, 0, kWidth * kHeight, 1), "noxsRandUniformInit_64f");
  std::vector<Nox64f> places(kLost);
  check(noxsRandUniform_64f(places.data(), kLost, state), "noxsRandUniform_64f");
  for (const Nox64f place : places) image.pixels[static_cast<std::size_t>(place)] = 0;
  return image;
}

// The median of the m pixels around each one along its row; the ends of a row are repeated. The filter looks back only,
// so its outputs come m / 2 pixels late.
void smooth(Image& image, int maskSize) {
  const int late = (maskSize - 1) / 2;
  int size = 0;
  check(noxsFilterMedianGetBufferSize(maskSize, NOX_TYPE_8U, &size), "noxsFilterMedianGetBufferSize");
  std::vector<Nox8u> buffer = bytes(size), row = bytes(image.width + late);
  for (int y = 0; y < image.height; ++y) {
    check(noxsCopy_8u(image.row(y), row.data(), image.width), "noxsCopy_8u");
    if (late > 0)
      check(noxsSet_8u(row[static_cast<std::size_t>(image.width - 1)], row.data() + image.width, late), "noxsSet_8u");
    check(noxsFilterMedian_8u_I(row.data(), image.width + late, maskSize, nullptr, nullptr, buffer.data()),
          "noxsFilterMedian_8u_I");
    check(noxsCopy_8u(row.data() + late, image.row(y), image.width), "noxsCopy_8u");
  }
}

// A plane of floats filtered by a kernel, as doubles.
std::vector<Nox64f> derivative(const std::vector<Nox32f>& plane, int width, int height, const Nox32f* kernel) {
  int spec_size = 0, buffer_size = 0;
  check(noxiFilterBorderGetSize(kSide, kSide, width, height, NOX_TYPE_32F, NOX_TYPE_32F, 1, &spec_size, &buffer_size),
        "noxiFilterBorderGetSize");
  std::vector<Nox8u> memory = bytes(spec_size), buffer = bytes(buffer_size);
  NoxFilterBorderSpec* const spec = reinterpret_cast<NoxFilterBorderSpec*>(memory.data());
  check(noxiFilterBorderInit_32f(kernel, kSide, kSide, NOX_TYPE_32F, 1, 0, spec), "noxiFilterBorderInit_32f");
  std::vector<Nox32f> filtered(plane.size());
  const int step = width * static_cast<int>(sizeof(Nox32f));
  check(noxiFilterBorder_32f_C1R(plane.data(), step, filtered.data(), step, width, height, noxBorderRepl, nullptr, spec,
                                 buffer.data()),
        "noxiFilterBorder_32f_C1R");
  return {filtered.begin(), filtered.end()};
}

// The lengths of the gradients.
std::vector<Nox64f> gradient(const Image& image) {
  const std::vector<Nox32f> plane(image.pixels.begin(), image.pixels.end());
  const std::vector<Nox64f> across = derivative(plane, image.width, image.height, kAcross);
  std::vector<Nox64f> lengths = derivative(plane, image.width, image.height, kDown);
  const int n = static_cast<int>(lengths.size());
  check(noxsMul_64f_I(lengths.data(), lengths.data(), n), "noxsMul_64f_I");
  check(noxsAddProduct_64f(across.data(), across.data(), lengths.data(), n), "noxsAddProduct_64f");
  check(noxsSqrt_64f_I(lengths.data(), n), "noxsSqrt_64f_I");
  return lengths;
}

void run(int argc, char** argv) {
  examples::Options options = {{"--median", "1"}, {"--save", ""}, {"--out", ""}};
  const std::string path = examples::parse(argc, argv, options, "");
  const int mask = examples::whole_number("--median", options["--median"], 1000);
  const std::string &saved = options["--save"], &result = options["--out"];
  Image image = path.empty() ? test_image() : examples::read_pgm(path);
  if (!saved.empty()) examples::write_pgm(saved, image);
  smooth(image, mask);
  std::vector<Nox64f> lengths = gradient(image);
  const int n = static_cast<int>(lengths.size());
  Nox64f greatest = 0;
  check(noxsMax_64f(lengths.data(), n, &greatest), "noxsMax_64f");
  if (greatest > 0) check(noxsMulC_64f_I(255 / greatest, lengths.data(), n), "noxsMulC_64f_I");

  std::printf("build              %s\n", noxsGetLibVersion()->name);
  std::printf("pixels             %d x %d\n", image.width, image.height);
  std::printf("greatest gradient  %.6f\n", greatest);
  if (result.empty()) return;
  for (std::size_t i = 0; i < lengths.size(); ++i) image.pixels[i] = static_cast<Nox8u>(std::lrint(lengths[i]));
  examples::write_pgm(result, image);
}

}  // namespace

int main(int argc, char** argv) { return examples::finish("edges", "image", run, argc, argv); }
