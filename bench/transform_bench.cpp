// Rows of the one-shot transforms: Goertzel's recurrence, bound by the latency of its chain, and the Haar wavelet.
#include "bench/row.hpp"

namespace {

Family make() {
  return {"transform",
          "One-shot transforms",
          {
              Row{PRIMITIVE(noxsGoertz_64f), kReads}.constants(kFrequency).results(1),
              Row{PRIMITIVE(noxsGoertz_64fc), kReads}.constants(kFrequency).results(1),
              {PRIMITIVE(noxsWTHaarFwd_64f), kPlaces | kTwoOutputs},
              // Reads two arrays of half the length, which is the traffic of one.
              Row{PRIMITIVE(noxsWTHaarInv_64f)}.sources(1),
          }};
}

const Registration kEntry(make);

}  // namespace
