// The heartbeat example: reads an electrocardiogram, filters it as a stream, finds the beats, prints and draws them.
//
// A host of the library as any other: it knows the public headers alone. Exit status 0 is success, 1 an error of the
// library, 2 an input or an option that can't be worked on.
#include <cstdio>
#include <fstream>

#include "command.hpp"
#include "library.hpp"
#include "options.hpp"
#include "plot.hpp"

namespace heartbeat {
namespace {

constexpr const char* kSource =
    "Recording: MIT-BIH Arrhythmia Database, record 208, lead MLII. Moody and Mark (2001); Goldberger et al. (2000). "
    "Open Data Commons Attribution License v1.0.";

std::string formatted(const char* format, double a, double b) {
  char text[128];
  std::snprintf(text, sizeof text, format, a, b);
  return text;
}

std::string file_name(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

void write_file(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) throw Error(path + ": can't be written");
}

void run(int argc, char** argv) {
  const Options options = parse_options(argc, argv);
  if (options.help) {
    std::fputs(kUsage, stdout);
    return;
  }
  if (!options.variant.empty()) select_build(options.variant);
  const Recording recording = examples::read_wav(options.recording);
  const Signals signals = filter(recording, options.block);
  const std::vector<Beat> beats = find_beats(signals, recording.rate);

  const double samples = static_cast<double>(recording.samples.size());
  const double length = samples / recording.rate, count = static_cast<double>(beats.size());
  const double mean_rate = 60 * count / length;
  const std::string title = formatted("%.0f heartbeats in %.0f seconds", count, length);
  const std::string subtitle = file_name(options.recording) +
                               formatted(", %.0f samples at %.0f Hz; ", samples, recording.rate) +
                               formatted("mean heart rate %.1f per minute", mean_rate, 0);
  write_file(options.svg,
             draw({title, subtitle, options.own_recording ? kSource : "", recording.rate, signals, beats}));

  if (options.list_beats) {
    for (const Beat& beat : beats) std::printf("%d\n", beat.sample);
    return;
  }
  std::printf("build               %s\n", noxsGetLibVersion()->name);
  std::printf("samples             %.0f (%.1f s at %d Hz)\n", samples, length, recording.rate);
  std::printf("filtering           %.2f ms in blocks of %d\n", 1e3 * signals.seconds, options.block);
  std::printf("samples per second  %.1f million\n", 1e-6 * samples / signals.seconds);
  std::printf("beats               %.0f\n", count);
  std::printf("mean heart rate     %.1f per minute\n", mean_rate);
  std::printf("picture             %s\n", options.svg.c_str());
}

}  // namespace
}  // namespace heartbeat

int main(int argc, char** argv) { return examples::finish("heartbeat", "recording", heartbeat::run, argc, argv); }
