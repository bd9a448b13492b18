// The command line of the example.
#pragma once

#include <string>

namespace heartbeat {

struct Options {
  std::string recording;      // path of the WAV file
  bool own_recording = true;  // the recording that comes with the example
  std::string svg = "heartbeat.svg";
  std::string variant;  // tag of a build; empty for the library's own choice
  int block = 1000;     // samples per call
  bool list_beats = false;
  bool help = false;
};

extern const char* const kUsage;

// Throws an Error for what it doesn't understand.
Options parse_options(int argc, char** argv);

}  // namespace heartbeat
