// The command line: options in any order, then at most one path.
#include "options.hpp"

#include <climits>

#include "command.hpp"

namespace heartbeat {

using examples::Error;

const char* const kUsage =
    "usage: heartbeat [options] [RECORDING]\n"
    "\n"
    "Finds the heartbeats of an electrocardiogram and draws them. RECORDING is a WAV file of 16-bit PCM with one\n"
    "channel and 200 counts per millivolt; without it, the recording that comes with the example is taken.\n"
    "\n"
    "  --block N        filter N samples per call (default 1000)\n"
    "  --variant TAG    run the build for w7 (SSE2), s8 (SSSE3), p8 (SSE4.2), g9 (AVX) or h9 (AVX2 and FMA)\n"
    "  --svg FILE       write the picture to FILE (default heartbeat.svg)\n"
    "  --beats          print the sample number of every beat in place of the table\n"
    "  --help           print this text\n";

Options parse_options(int argc, char** argv) {
  Options options;
  options.recording = HEARTBEAT_RECORDING;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    const auto value = [&]() -> std::string {
      if (i + 1 >= argc) throw Error(argument + ": a value is missing");
      return argv[++i];
    };
    if (argument == "--help") {
      options.help = true;
    } else if (argument == "--beats") {
      options.list_beats = true;
    } else if (argument == "--block") {
      options.block = examples::whole_number(argument, value(), INT_MAX);
    } else if (argument == "--variant") {
      options.variant = value();
    } else if (argument == "--svg") {
      options.svg = value();
    } else if (argument.size() > 1 && argument[0] == '-') {
      throw Error("unknown option '" + argument + "' (--help lists them)");
    } else if (!options.own_recording) {
      throw Error("more than one recording: '" + argument + "'");
    } else {
      options.recording = argument;
      options.own_recording = false;
    }
  }
  return options;
}

}  // namespace heartbeat
