// Reading a recording from a RIFF/WAVE file, and writing one: 16-bit PCM of one channel.
//
// The chunks are walked in order and all but "fmt " and "data" are skipped. Whatever doesn't fit ends in an Error
// whose text fits on one line.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace examples {

struct Recording {
  int rate;  // samples per second
  std::vector<std::int16_t> samples;
};

Recording read_wav(const std::string& path);
void write_wav(const std::string& path, const Recording& recording);

}  // namespace examples
