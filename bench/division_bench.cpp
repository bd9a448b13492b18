// Rows of division and square root; peers besides the compilers are loops of packed divisions and roots.
#include "bench/harness.hpp"

Family division_family() {
  return {"division",
          {
              {PRIMITIVE(noxsDiv_64f)},
              {PRIMITIVE(noxsDiv_64fc)},
              {PRIMITIVE(noxsDiv_64f_I)},
              {PRIMITIVE(noxsDiv_64fc_I)},
              {PRIMITIVE(noxsSqrt_64f)},
              {PRIMITIVE(noxsSqrt_64fc)},
              {PRIMITIVE(noxsSqrt_64f_I)},
              {PRIMITIVE(noxsSqrt_64fc_I)},
          }};
}
