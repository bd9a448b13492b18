// Reading a recording: the walk over the chunks and the checks of the format. Writing one: a header and the samples.
#include "wav.hpp"

#include <cstdio>
#include <memory>

#include "command.hpp"

namespace examples {
namespace {

constexpr std::size_t kRiffHeader = 12;  // "RIFF", size, "WAVE"
constexpr std::size_t kChunkHeader = 8;  // id, size
constexpr std::size_t kFormatSize = 16;  // the fields that every PCM format chunk has
constexpr unsigned kPcm = 1;
// Bounds of the rate: below, the pass band comes too near to half the rate; above, no electrocardiogram is sampled.
constexpr std::uint32_t kLowestRate = 100;
constexpr std::uint32_t kHighestRate = 20000;

class Bytes {
 public:
  explicit Bytes(const std::string& path) : path_(path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file) fail("can't be read");
    char piece[1 << 16];
    while (const std::size_t got = std::fread(piece, 1, sizeof piece, file.get())) data_.append(piece, got);
    // A folder opens like a file and fails here.
    if (std::ferror(file.get())) fail("can't be read");
  }

  [[noreturn]] void fail(const std::string& reason) const { throw Error(path_ + ": " + reason); }
  std::size_t size() const { return data_.size(); }
  bool tagged(std::size_t at, const char* tag) const { return data_.compare(at, 4, tag) == 0; }
  unsigned u16(std::size_t at) const { return byte(at) | byte(at + 1) << 8; }
  std::uint32_t u32(std::size_t at) const { return u16(at) | u16(at + 2) << 16; }

 private:
  unsigned byte(std::size_t at) const { return static_cast<unsigned char>(data_[at]); }

  std::string path_;
  std::string data_;
};

// Checks the format chunk and returns the rate.
int read_format(const Bytes& file, std::size_t at) {
  const unsigned format = file.u16(at), channels = file.u16(at + 2), bits = file.u16(at + 14);
  const std::uint32_t rate = file.u32(at + 4);
  if (format != kPcm) file.fail("is no plain PCM (format " + std::to_string(format) + ")");
  if (channels != 1) file.fail("has " + std::to_string(channels) + " channels, 1 is wanted");
  if (bits != 16) file.fail("has " + std::to_string(bits) + " bits per sample, 16 are wanted");
  if (rate < kLowestRate || rate > kHighestRate) {
    file.fail("is sampled at " + std::to_string(rate) + " Hz, " + std::to_string(kLowestRate) + " to " +
              std::to_string(kHighestRate) + " Hz are wanted");
  }
  return static_cast<int>(rate);
}

}  // namespace

Recording read_wav(const std::string& path) {
  const Bytes file(path);
  if (file.size() < kRiffHeader || !file.tagged(0, "RIFF") || !file.tagged(8, "WAVE")) file.fail("is no WAV file");
  Recording recording{0, {}};
  for (std::size_t at = kRiffHeader; file.size() - at >= kChunkHeader;) {
    const std::size_t body = at + kChunkHeader, size = file.u32(at + 4);
    if (size > file.size() - body) file.fail("is truncated");
    if (file.tagged(at, "fmt ")) {
      if (size < kFormatSize) file.fail("has a format chunk that is too short");
      recording.rate = read_format(file, body);
    } else if (file.tagged(at, "data")) {
      if (recording.rate == 0) file.fail("has no format before its data");
      if (size % 2 != 0) file.fail("is truncated inside a sample");
      if (size == 0) file.fail("holds no samples");
      recording.samples.resize(size / 2);
      for (std::size_t i = 0; i < size / 2; ++i) {
        recording.samples[i] = static_cast<std::int16_t>(file.u16(body + 2 * i));
      }
      return recording;
    }
    const std::size_t next = size + size % 2;  // a chunk of odd size is followed by a byte of padding
    if (next >= file.size() - body) break;
    at = body + next;
  }
  file.fail("holds no data chunk");
}

void write_wav(const std::string& path, const Recording& recording) {
  std::string data;
  const auto put = [&](std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) data += static_cast<char>(value >> 8 * i & 0xFF);
  };
  const std::uint32_t rate = static_cast<std::uint32_t>(recording.rate);
  const std::uint32_t size = static_cast<std::uint32_t>(2 * recording.samples.size());
  data = "RIFF";
  put(static_cast<std::uint32_t>(kRiffHeader + kFormatSize + kChunkHeader) + size, 4);
  data += "WAVEfmt ";
  put(kFormatSize, 4);
  put(kPcm, 2);
  put(1, 2);
  put(rate, 4);
  put(2 * rate, 4);
  put(2, 2);
  put(16, 2);
  data += "data";
  put(size, 4);
  for (const std::int16_t sample : recording.samples) put(static_cast<std::uint16_t>(sample), 2);
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
  if (!file || std::fwrite(data.data(), 1, data.size(), file.get()) != data.size() || std::fflush(file.get()) != 0) {
    throw Error(path + ": can't be written");
  }
}

}  // namespace examples
