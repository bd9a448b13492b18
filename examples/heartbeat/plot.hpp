// The picture: heart rate and signal over the whole recording, and the seconds with most early beats at close range.
#pragma once

#include <string>
#include <vector>

#include "beats.hpp"

namespace heartbeat {

struct Picture {
  std::string title, subtitle;
  std::string source;  // where the recording comes from; may be empty
  int rate;            // samples per second
  const Signals& signals;
  const std::vector<Beat>& beats;
};

// The picture as the text of an SVG file.
std::string draw(const Picture& picture);

}  // namespace heartbeat
