// Finding beats as the humps of the energy that stand out among the humps before them.
//
// A hump counts if its root exceeds a fraction of the median of the last beats' roots; the median lets one artefact
// pass without raising the bar. Of two humps closer than the refractory time the heart can have made only one: the
// stronger.
#pragma once

#include <vector>

#include "chain.hpp"

namespace heartbeat {

struct Beat {
  int sample;  // the greatest swing of the band about the middle of the hump
  bool early;  // came clearly before the time that the beats around it set
};

std::vector<Beat> find_beats(const Signals& signals, int rate);

// Beats per minute at beat i, from the interval that ends there; i > 0.
double rate_at(const std::vector<Beat>& beats, std::size_t i, int rate);

// The same, as the median of the intervals around beat i: what the heart settles to, early beats left aside.
double usual_rate_at(const std::vector<Beat>& beats, std::size_t i, int rate);

}  // namespace heartbeat
