// Reading and writing PGM: "P5", width, height and greatest value in decimal, with blanks and comments between them,
// then one blank and the pixels.
#include "pgm.hpp"

#include <cctype>
#include <cstdio>
#include <memory>

#include "command.hpp"

namespace examples {
namespace {

constexpr int kLargest = 20000;         // of width and height
constexpr long kMostPixels = 1L << 24;  // the planes of floats and doubles take 40 bytes a pixel

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File open(const std::string& path, const char* mode, const char* otherwise) {
  File file(std::fopen(path.c_str(), mode), std::fclose);
  if (!file) throw Error(path + ": " + otherwise);
  return file;
}

// The next number of the header and the one character behind it; -1 if there is none.
int number(std::FILE* file) {
  int c = std::fgetc(file);
  while (c == '#' || std::isspace(c)) {
    if (c == '#')
      while (c != '\n' && c != EOF) c = std::fgetc(file);
    c = std::fgetc(file);
  }
  if (!std::isdigit(c)) return -1;
  int value = 0;
  for (; std::isdigit(c); c = std::fgetc(file)) {
    value = value * 10 + (c - '0');
    if (value > 65535) return -1;
  }
  return std::isspace(c) ? value : -1;
}

}  // namespace

Image read_pgm(const std::string& path) {
  const File file = open(path, "rb", "can't be read");
  if (std::fgetc(file.get()) != 'P' || std::fgetc(file.get()) != '5') throw Error(path + ": is no binary PGM image");
  const int width = number(file.get()), height = number(file.get()), greatest = number(file.get());
  if (width < 1 || height < 1 || greatest < 1) throw Error(path + ": has a broken header");
  if (greatest > 255) throw Error(path + ": has more than 8 bits a pixel");
  if (width > kLargest || height > kLargest || static_cast<long>(width) * height > kMostPixels) {
    throw Error(path + ": is too large");
  }
  Image image{width, height, {}};
  image.pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  if (std::fread(image.pixels.data(), 1, image.pixels.size(), file.get()) != image.pixels.size()) {
    throw Error(path + ": ends amid the pixels");
  }
  return image;
}

void write_pgm(const std::string& path, const Image& image) {
  File file = open(path, "wb", "can't be written");
  const bool written = std::fprintf(file.get(), "P5\n%d %d\n255\n", image.width, image.height) > 0 &&
                       std::fwrite(image.pixels.data(), 1, image.pixels.size(), file.get()) == image.pixels.size();
  if (std::fclose(file.release()) != 0 || !written) throw Error(path + ": can't be written");
}

}  // namespace examples
