// Grey images as binary PGM files of 8 bits a pixel. Whatever doesn't fit ends in an Error whose text fits on one line.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace examples {

struct Image {
  int width, height;
  std::vector<std::uint8_t> pixels;  // row by row, without gaps
  std::uint8_t* row(int y) { return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width); }
};

Image read_pgm(const std::string& path);
void write_pgm(const std::string& path, const Image& image);

}  // namespace examples
