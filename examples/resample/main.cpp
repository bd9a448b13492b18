// The resample example: changes a recording's rate by 25/9, from 360 to 1000 Hz, as a stream of blocks and in one call,
// and prints by how much the two differ.
//
//     resample [--block N] [--out FILE] [RECORDING]
//
// N iterations a block, 100 by default; each reads 9 samples and writes 25. FILE takes the result as a WAV file. Exit
// status 0 is success, 1 an error of the library, 2 an input or an option that can't be worked on.
#include <nox/nox.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "command.hpp"
#include "wav.hpp"

namespace {

using examples::Recording;

constexpr double kPi = 3.14159265358979323846;
constexpr int kUp = 25, kDown = 9;
// Half of the filter, on a grid kUp times as fine as the input: 35 outputs, so the delay is a whole number of them.
constexpr int kDelay = 35;
constexpr int kHalf = kDelay * kDown;
constexpr double kCutoff = 0.45;  // cycles per input sample, just below half of one

void check(NoxStatus status, const char* call) {
  if (status == noxStsNoErr) return;
  std::fprintf(stderr, "resample: %s: %s\n", call, noxGetStatusString(status));
  std::exit(1);
}

// Ideal low pass under a Blackman window. Of kUp places on the fine grid only one holds a sample, so the gain is kUp.
std::vector<double> low_pass() {
  std::vector<double> taps;
  for (int k = -kHalf; k <= kHalf; ++k) {
    const double cutoff = kCutoff / kUp, turn = kPi * k / (kHalf + 1);
    const double ideal = k == 0 ? 2 * cutoff : std::sin(2 * kPi * cutoff * k) / (kPi * k);
    taps.push_back(kUp * ideal * (0.42 + 0.5 * std::cos(turn) + 0.08 * std::cos(2 * turn)));
  }
  return taps;
}

// All iterations that the samples hold, `block` of them a call, in a stream of its own.
std::vector<double> resample(const std::vector<double>& samples, const std::vector<double>& taps, int block) {
  const int iterations = static_cast<int>(samples.size()) / kDown;
  std::vector<double> out(static_cast<std::size_t>(iterations) * kUp);
  NoxFilterHandle* handle = nullptr;
  check(noxsFIRMRInitAlloc_64f_Idx(taps.data(), 0, static_cast<int>(taps.size()), kUp, 0, kDown, 0, &handle),
        "noxsFIRMRInitAlloc_64f_Idx");
  for (int done = 0, n = 0; done < iterations; done += n) {
    n = std::min(block, iterations - done);
    check(noxsFIRMR_64f_Idx(samples.data(), done * kDown, out.data(), done * kUp, n, handle), "noxsFIRMR_64f_Idx");
  }
  noxsFIRMRFree_Idx(handle);
  return out;
}

std::int16_t rounded(double x) { return static_cast<std::int16_t>(std::lrint(std::clamp(x, -32768.0, 32767.0))); }

void run(int argc, char** argv) {
  examples::Options options = {{"--block", "100"}, {"--out", ""}};
  const std::string path = examples::parse(argc, argv, options, RESAMPLE_RECORDING);
  const int block = examples::whole_number("--block", options["--block"], 1000000);
  const std::string& result = options["--out"];
  const Recording recording = examples::read_wav(path);
  const std::size_t len = recording.samples.size();
  const std::size_t wanted = len * kUp / kDown;  // outputs
  const std::size_t iterations = (wanted + kDelay + kUp - 1) / kUp;
  // The signal starts from rest and stays at its last value until the delayed outputs are out.
  const double first = recording.samples.front();
  std::vector<double> samples(iterations * kDown);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = recording.samples[std::min(i, len - 1)] - first;

  const std::vector<double> taps = low_pass();
  const std::vector<double> whole = resample(samples, taps, static_cast<int>(iterations));
  const std::vector<double> blocks = resample(samples, taps, block);
  double deviation = 0;
  for (std::size_t i = 0; i < whole.size(); ++i) deviation = std::max(deviation, std::fabs(whole[i] - blocks[i]));

  const int rate = recording.rate * kUp / kDown;
  std::printf("build              %s\n", noxsGetLibVersion()->name);
  std::printf("samples            %zu at %d Hz\n", len, recording.rate);
  std::printf("resampled          %zu at %d Hz, in blocks of %d\n", wanted, rate, block * kDown);
  std::printf("largest deviation  %g from one call\n", deviation);
  if (result.empty()) return;
  Recording out{rate, {}};
  for (std::size_t i = 0; i < wanted; ++i) out.samples.push_back(rounded(blocks[i + kDelay] + first));
  examples::write_wav(result, out);
}

}  // namespace

int main(int argc, char** argv) { return examples::finish("resample", "recording", run, argc, argv); }
