// Rows of the one-shot transforms: Goertzel's recurrence, bound by the latency of its chain, and the Haar wavelet.
#include "bench/harness.hpp"

Family transform_family() {
  // The inverse reads two arrays of half the length, which is the traffic of one.
  Row inverse = {PRIMITIVE(noxsWTHaarInv_64f)};
  inverse.primitive.sources = 1;
  return {"transform",
          {
              {PRIMITIVE(noxsGoertz_64f)},
              {PRIMITIVE(noxsGoertz_64fc)},
              {PRIMITIVE(noxsWTHaarFwd_64f), kPlaces},
              inverse,
          }};
}
