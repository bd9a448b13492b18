// Rows of division and square root; peers besides the compilers are loops of packed divisions and roots.
#include "bench/row.hpp"

namespace {

Family make() {
  return {"division",
          "Division and square root",
          {
              {PRIMITIVE(noxsDiv_64f), kMemory},
              {PRIMITIVE(noxsDiv_64fc), kMemory},
              {PRIMITIVE(noxsDiv_64f_I), kMemory},
              {PRIMITIVE(noxsDiv_64fc_I), kMemory},
              {PRIMITIVE(noxsSqrt_64f), kMemory},
              {PRIMITIVE(noxsSqrt_64fc), kMemory},
              {PRIMITIVE(noxsSqrt_64f_I), kMemory},
              {PRIMITIVE(noxsSqrt_64fc_I), kMemory},
          }};
}

const Registration kEntry(make);

}  // namespace
