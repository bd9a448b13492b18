// The signal chain from counts to the energy of the beats: band pass, square, smooth.
//
// Both filters are symmetric, so each delays every frequency by half its length; the outputs are shifted back by that
// and lie above the samples they belong to.
#pragma once

#include <vector>

#include "wav.hpp"

namespace heartbeat {

using examples::Recording;

struct Signals {
  std::vector<double> raw;     // mV
  std::vector<double> band;    // mV, 5 to 20 Hz, where the steep part of a beat has most of its power
  std::vector<double> energy;  // mV², mean square of the band over about 0.2 s
  double seconds;              // time spent in the library
};

// Runs the recording through the chain, block samples per call.
Signals filter(const Recording& recording, int block);

}  // namespace heartbeat
