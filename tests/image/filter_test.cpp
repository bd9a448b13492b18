// The filters of planes: every output bit for bit, with memory of exactly the pixels that may be touched.
#include <gtest/gtest.h>

#include <string>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "reference/plane_filter.hpp"

namespace {

using kit::Edge;
using kit::Guarded;

class PlaneFilter : public kit::EachVariant {
 protected:
  bool fuses() const { return GetParam().tag == std::string("h9"); }
};
NOX_EACH_VARIANT(PlaneFilter);

struct Shape {
  int w, h, width, height;
};

// A spec in memory of exactly the queried sizes.
struct Spec {
  Guarded<Nox8u> spec, buffer;
  static Spec make(const std::vector<float>& kernel, const Shape& s, Edge edge, size_t misalign) {
    int spec_size = 0, buffer_size = 0;
    EXPECT_EQ(noxStsNoErr,
              kit::call(noxiFilterBorderGetSize, s.w, s.h, s.width, s.height, 13, 13, 1, &spec_size, &buffer_size));
    Spec out{Guarded<Nox8u>(static_cast<size_t>(spec_size), edge, misalign),
             Guarded<Nox8u>(static_cast<size_t>(buffer_size), edge, misalign)};
    EXPECT_EQ(noxStsNoErr, kit::call(noxiFilterBorderInit_32f, kernel.data(), s.w, s.h, 13, 1, 0, out.get()));
    return out;
  }
  NoxFilterBorderSpec* get() { return reinterpret_cast<NoxFilterBorderSpec*>(spec.data()); }
};

// The region is cut out of a plane that holds the in-memory sides and nothing more; rows have a gap that isn't a
// multiple of the pixel.
void border_case(const Shape& s, int border, Edge edge, size_t misalign, bool fuses, kit::Random& random) {
  SCOPED_TRACE(std::to_string(s.w) + "x" + std::to_string(s.h) + " on " + std::to_string(s.width) + "x" +
               std::to_string(s.height) + ", border " + std::to_string(border));
  const int ax = (s.w - 1) / 2, ay = (s.h - 1) / 2;
  const int left = border & noxBorderInMemLeft ? ax : 0, top = border & noxBorderInMemTop ? ay : 0;
  const int across = s.width + left + (border & noxBorderInMemRight ? s.w - 1 - ax : 0);
  const int down = s.height + top + (border & noxBorderInMemBottom ? s.h - 1 - ay : 0);
  const int step = 4 * across + 3, dstStep = 4 * s.width + 5;
  std::vector<float> kernel(static_cast<size_t>(s.w * s.h)), pixels(static_cast<size_t>(across * down));
  random.fill(kernel);
  random.fill(pixels);
  Guarded<Nox8u> src(static_cast<size_t>(step * (down - 1) + 4 * across), edge, misalign),
      dst(static_cast<size_t>(dstStep * (s.height - 1) + 4 * s.width), edge, misalign);
  for (int y = 0; y < down; ++y) std::memcpy(src.data() + y * step, &pixels[size_t(y * across)], size_t(4 * across));
  Spec spec = Spec::make(kernel, s, edge, misalign);
  const float value = 0.625f;
  const bool constant = (border & 15) == noxBorderConst, mirror = (border & 15) == noxBorderMirror;
  ASSERT_EQ(noxStsNoErr,
            kit::call(noxiFilterBorder_32f_C1R, reinterpret_cast<const float*>(src.data() + top * step + 4 * left),
                      step, reinterpret_cast<float*>(dst.data()), dstStep, s.width, s.height, border,
                      constant ? &value : nullptr, spec.get(), spec.buffer.data()));
  // In-memory pixels beyond the region are real, the rest is made from the region's own.
  const auto place = [&](int i, int n, bool before, bool after) {
    return (i < 0 && before) || (i >= n && after) ? i : reference::inside(i, n, mirror, constant);
  };
  for (int y = 0; y < s.height; ++y) {
    for (int x = 0; x < s.width; ++x) {
      const float expected = reference::correlate(kernel, s.w, s.h, fuses, [&](int j, int i) {
        const int xx = x + j - ax, yy = y + i - ay;
        const int px = place(xx, s.width, border & noxBorderInMemLeft, border & noxBorderInMemRight);
        const int py = place(yy, s.height, border & noxBorderInMemTop, border & noxBorderInMemBottom);
        const bool none = constant && ((px == -1 && (xx >= s.width || !(border & noxBorderInMemLeft))) ||
                                       (py == -1 && (yy >= s.height || !(border & noxBorderInMemTop))));
        return none ? value : pixels[static_cast<size_t>((py + top) * across + px + left)];
      });
      float got;
      std::memcpy(&got, dst.data() + y * dstStep + 4 * x, 4);
      ASSERT_TRUE(kit::same_bits(&got, &expected, 1)) << "output " << x << ", " << y;
    }
    for (int b = 4 * s.width; y + 1 < s.height && b < dstStep; ++b)
      ASSERT_EQ(kit::kUnwritten, dst[size_t(y * dstStep + b)]) << "gap";
  }
}

TEST_P(PlaneFilter, BordersOfEveryKindAtExactMemory) {
  kit::Random random;
  const Shape shapes[] = {{1, 1, 1, 1},  {3, 3, 1, 1},  {5, 3, 2, 4},  {2, 2, 9, 7},  {3, 3, 8, 5},  {4, 3, 24, 6},
                          {5, 5, 31, 9}, {7, 2, 50, 8}, {9, 1, 27, 3}, {1, 6, 26, 9}, {7, 7, 8, 40}, {15, 4, 16, 5}};
  size_t turn = 0;
  for (const Shape& s : shapes)
    for (const int kind : {noxBorderRepl, noxBorderMirror, noxBorderConst})
      for (int sides = 0; sides < 256; sides += 16, ++turn)
        border_case(s, kind | sides, turn % 2 ? Edge::End : Edge::Start, turn % 5, fuses(), random);
  for (const Shape& s : shapes) border_case(s, 240, Edge::End, 0, fuses(), random);
  // Rows that collide in the cache, which go in strips.
  for (const int border : {noxBorderRepl | noxBorderInMemTop, noxBorderMirror | noxBorderInMemRight, 0xF0})
    border_case({2, 11, 1018, 14}, border, Edge::End, 0, fuses(), random);
}

TEST_P(PlaneFilter, AnchorAtExactMemory) {
  kit::Random random;
  const Shape shapes[] = {{1, 1, 1, 1}, {3, 3, 5, 4}, {1, 5, 13, 3}, {6, 1, 12, 3}, {2, 3, 3, 2}, {5, 4, 30, 5}};
  for (const Shape& s : shapes)
    for (const int shift : {0, 1, -3, 9}) {
      const int across = s.width + s.w - 1, down = s.height + s.h - 1, ax = s.w - 1 + shift, ay = s.h - 1 - shift;
      const int step = 8 * across + 3, dstStep = 8 * s.width + 5;
      std::vector<double> kernel(static_cast<size_t>(s.w * s.h)), pixels(static_cast<size_t>(across * down));
      random.fill(kernel);
      random.fill(pixels);
      const Edge edge = shift & 1 ? Edge::Start : Edge::End;
      const size_t misalign = static_cast<size_t>(s.w % 3);
      Guarded<Nox8u> src(static_cast<size_t>(step * (down - 1) + 8 * across), edge, misalign),
          dst(static_cast<size_t>(dstStep * (s.height - 1) + 8 * s.width), edge, misalign);
      Guarded<double> k(kernel, edge, misalign);
      for (int y = 0; y < down; ++y)
        std::memcpy(src.data() + y * step, &pixels[size_t(y * across)], size_t(8 * across));
      // The region's first pixel may lie outside what is read.
      const uintptr_t first = reinterpret_cast<uintptr_t>(src.data()) + static_cast<uintptr_t>((s.h - 1 - ay) * step) +
                              static_cast<uintptr_t>((s.w - 1 - ax) * 8);
      ASSERT_EQ(noxStsNoErr, kit::call(noxiFilter_64f_C1R, reinterpret_cast<const double*>(first), step,
                                       reinterpret_cast<double*>(dst.data()), dstStep, s.width, s.height, k.data(), s.w,
                                       s.h, ax, ay, nullptr));
      for (int y = 0; y < s.height; ++y)
        for (int x = 0; x < s.width; ++x) {
          const double expected = reference::convolve(kernel, s.w, s.h, fuses(), [&](int c, int r) {
            return pixels[static_cast<size_t>((y + s.h - 1 - r) * across + x + s.w - 1 - c)];
          });
          double got;
          std::memcpy(&got, dst.data() + y * dstStep + 8 * x, 8);
          ASSERT_TRUE(kit::same_bits(&got, &expected, 1)) << s.w << "x" << s.h << ": output " << x << ", " << y;
        }
      for (int y = 0; y + 1 < s.height; ++y)
        for (int b = 8 * s.width; b < dstStep; ++b) ASSERT_EQ(kit::kUnwritten, dst[size_t(y * dstStep + b)]) << "gap";
    }
}

TEST_P(PlaneFilter, SizesByTheirFormulas) {
  int spec = 0, buffer = 0;
  // Kernel 36 bytes, rounded 64; lanes 80 * 4 * 3 = 960; further 144, rounded 192; 191. Strip 66 * 4 * 4 bytes.
  ASSERT_EQ(noxStsNoErr, kit::call(noxiFilterBorderGetSize, 3, 3, 64, 48, 13, 13, 1, &spec, &buffer));
  EXPECT_EQ(64 + 960 + 192 + 191, spec);
  EXPECT_EQ(66 * 4 * 4 + 32, buffer);
  ASSERT_EQ(noxStsNoErr, kit::call(noxiFilterBorderGetSize, 3, 3, 2, 48, 7, 7, 2, &spec, &buffer));
  EXPECT_EQ(64 + 960 + 191, spec);
  EXPECT_EQ((4 * 50 * 2 + 31) / 32 * 32 + 32, buffer);
  int own = -1;
  ASSERT_EQ(noxStsNoErr, kit::call(noxiFilterGetBufSize_64f_C1R, 3, 3, 64, &own));
  EXPECT_EQ(GetParam().column == 0 ? 0 : (2 * 32 + 12) * 3 + 15, own);
  ASSERT_EQ(noxStsNoErr, kit::call(noxiFilterBorderGetSize, 3, 3, 64, 48, 19, 19, 1, &spec, &buffer));
  EXPECT_EQ(128 + 191, spec);
  EXPECT_EQ(66 * 4 * 8 + 32 + own + 126, buffer);
  const int most = 0x7FFFFFFF;
  ASSERT_EQ(noxStsExceededSizeErr, kit::call(noxiFilterBorderGetSize, 3, 3, most, most, 13, 13, 1, &spec, &buffer));
  EXPECT_EQ(0, buffer);
}

TEST_P(PlaneFilter, StatusesInOrder) {
  int spec_size = 0, size = 0;
  const auto sizes = [&](int w, int type, int kernel, int channels, int* out) {
    return kit::call(noxiFilterBorderGetSize, w, 3, 8, 8, type, kernel, channels, out, &size);
  };
  EXPECT_EQ(noxStsSizeErr, sizes(0, 2, 13, 9, nullptr));
  EXPECT_EQ(noxStsDataTypeErr, sizes(3, 2, 13, 9, nullptr));
  EXPECT_EQ(noxStsDataTypeErr, sizes(3, 13, 19, 1, &spec_size));
  EXPECT_EQ(noxStsChannelErr, sizes(3, 13, 13, 5, nullptr));
  EXPECT_EQ(noxStsNullPtrErr, sizes(3, 13, 13, 1, nullptr));
  EXPECT_EQ(noxStsSizeErr, kit::call(noxiFilterGetBufSize_64f_C1R, 0, 3, 8, &size));

  const Shape shape{3, 3, 8, 8};
  const std::vector<float> kernel = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  Spec spec = Spec::make(kernel, shape, Edge::End, 0);
  const auto init = [&](int w, int type, int channels, int round) {
    return kit::call(noxiFilterBorderInit_32f, kernel.data(), w, 3, type, channels, round, spec.get());
  };
  EXPECT_EQ(noxStsSizeErr, init(0, 2, 0, 3));
  EXPECT_EQ(noxStsDataTypeErr, init(3, 19, 0, 3));
  EXPECT_EQ(noxStsChannelErr, init(3, 13, 0, 3));
  EXPECT_EQ(noxStsRoundModeNotSupportedErr, init(3, 13, 1, 3));
  EXPECT_EQ(noxStsAccurateModeNotSupported, init(3, 13, 1, 2 | 1 << 16));
  EXPECT_EQ(noxStsNotSupportedModeErr, kit::call(noxiFilterBorderSetMode, 0, 1, spec.get()));
  EXPECT_EQ(noxStsNoErr, kit::call(noxiFilterBorderSetMode, 2, 0, spec.get()));

  std::vector<float> in(64, 1.0f), out(64, -1.0f);
  const auto run = [&](int srcStep, int dstStep, int width, int border) {
    return kit::call(noxiFilterBorder_32f_C1R, in.data(), srcStep, out.data(), dstStep, width, 8, border, nullptr,
                     spec.get(), spec.buffer.data());
  };
  EXPECT_EQ(noxStsNullPtrErr, run(0, 0, 0, noxBorderConst));
  EXPECT_EQ(noxStsSizeErr, run(0, 0, 0, 0));
  EXPECT_EQ(noxStsStepErr, run(0, 32, 8, 0));
  EXPECT_EQ(noxStsStepErr, run(32, 31, 8, 0));
  for (const int border : {-255, 0, 2, 16, 224, 242, 257}) EXPECT_EQ(noxStsBorderErr, run(32, 32, 8, border));
  EXPECT_EQ(std::vector<float>(64, -1.0f), out);
  EXPECT_EQ(noxStsNoErr, run(32, 32, 8, noxBorderRepl));
  EXPECT_EQ(45.0f, out[9]);

  double pixel[9] = {}, result = 3;
  const auto about = [&](int srcStep, int dstStep, int width) {
    return kit::call(noxiFilter_64f_C1R, pixel, srcStep, &result, dstStep, width, 1, pixel, 3, 3, 1, 1, nullptr);
  };
  EXPECT_EQ(noxStsSizeErr, about(0, 0, 0));
  EXPECT_EQ(noxStsStepErr, about(23, 8, 1));
  EXPECT_EQ(noxStsStepErr, about(24, 7, 1));
  EXPECT_EQ(noxStsStepErr, about(0x7FFFFFFF, 0x7FFFFFFF, 0x10000000));
  EXPECT_EQ(3, result);
}

// The whole road by index forms gives what the plain calls give.
TEST_P(PlaneFilter, IndexForms) {
  constexpr int kWidth = 21, kHeight = 13, kStep = kWidth * 4;
  kit::Random random;
  std::vector<Nox32f> plane(kWidth * kHeight), kernel(9);
  random.fill(plane);
  random.fill(kernel);
  std::vector<Nox32f> plain(plane.size()), by_index(plane.size());
  const Nox32f border = 0.5f;
  for (std::vector<Nox32f>* const out : {&plain, &by_index}) {
    const bool index = out == &by_index;
    int spec_bytes = 0, buffer_bytes = 0, other = -1, own = -2;
    ASSERT_EQ(noxStsNoErr, kit::call(index ? noxiFilterBorderGetSize_Idx : noxiFilterBorderGetSize, 3, 3, kWidth,
                                     kHeight, 13, 13, 1, &spec_bytes, &buffer_bytes));
    ASSERT_EQ(kit::call(noxiFilterGetBufSize_64f_C1R_Idx, 3, 3, kWidth, &other),
              kit::call(noxiFilterGetBufSize_64f_C1R, 3, 3, kWidth, &own));
    EXPECT_EQ(other, own);
    std::vector<Nox8u> memory(static_cast<size_t>(spec_bytes)), buffer(static_cast<size_t>(buffer_bytes));
    auto* const spec = reinterpret_cast<NoxFilterBorderSpec*>(memory.data());
    if (!index) {
      ASSERT_EQ(noxStsNoErr, kit::call(noxiFilterBorderInit_32f, kernel.data(), 3, 3, 13, 1, 0, spec));
      ASSERT_EQ(noxStsNoErr, kit::call(noxiFilterBorder_32f_C1R, plane.data(), kStep, out->data(), kStep, kWidth,
                                       kHeight, 6, &border, spec, buffer.data()));
      continue;
    }
    ASSERT_EQ(noxStsNoErr, kit::call(noxiFilterBorderInit_32f_Idx, kernel.data() - 2, 2, 3, 3, 13, 1, 0, spec));
    EXPECT_EQ(noxStsNotSupportedModeErr, kit::call(noxiFilterBorderSetMode_Idx, 0, 1, spec));
    EXPECT_EQ(noxStsNoErr, kit::call(noxiFilterBorderSetMode_Idx, 0, 0, spec));
    ASSERT_EQ(noxStsNoErr, kit::call(noxiFilterBorder_32f_C1R_Idx, plane.data() + 7, -7, kStep, out->data() - 3, 3,
                                     kStep, kWidth, kHeight, 6, &border, spec, buffer.data()));
  }
  EXPECT_TRUE(kit::same_bits(plain.data(), by_index.data(), plain.size()));
}

}  // namespace
