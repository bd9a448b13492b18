// What the example asks of the library: the choice of a build, and streams through FIR filters.
#pragma once

#include <nox/nox.h>

#include <string>
#include <vector>

#include "command.hpp"
#include "wav.hpp"

namespace heartbeat {

using examples::Error;

// Ends the program with status 1 and the library's own text, unless the status is noxStsNoErr.
void check(NoxStatus status, const char* call);

// Puts the build with this tag in force; an Error for an unknown tag or a build that this processor can't run.
void select_build(const std::string& tag);

// A FIR filter that one signal runs through, block after block; it remembers the past samples.
class FirStream {
 public:
  explicit FirStream(const std::vector<double>& taps);
  ~FirStream() { noxsFIRSRFree_Idx(handle_); }
  FirStream(const FirStream&) = delete;
  FirStream& operator=(const FirStream&) = delete;

  // Filters len samples from src[at] on to dst[at] on.
  void run(const std::vector<double>& src, std::vector<double>& dst, int at, int len) {
    check(noxsFIRSR_64f_Idx(src.data(), at, dst.data(), at, len, handle_), "noxsFIRSR_64f_Idx");
  }
  // Filters len samples from data[at] on in place.
  void run(std::vector<double>& data, int at, int len) {
    check(noxsFIRSR_64f_I_Idx(data.data(), at, len, handle_), "noxsFIRSR_64f_I_Idx");
  }

 private:
  NoxFilterHandle* handle_ = nullptr;
};

}  // namespace heartbeat
