// The C library's block functions as peers; they choose their own instruction set.
#include <cstring>

#include "bench/peers/libc.hpp"

namespace {

template <unsigned Element>
void copy(const Operands* o) {
  memcpy(o->d, o->a, static_cast<unsigned>(o->len) * Element);
}
template <unsigned Element>
void move(const Operands* o) {
  memmove(o->d, o->a, static_cast<unsigned>(o->len) * Element);
}
template <unsigned Element>
void zero(const Operands* o) {
  memset(o->d, 0, static_cast<unsigned>(o->len) * Element);
}
void set(const Operands* o) { memset(o->d, static_cast<int>(o->c[0]), static_cast<unsigned>(o->len)); }
// memset writes one byte over and over: for wider values it is the speed to reach, not the same result.
template <unsigned Element>
void same_bytes(const Operands* o) {
  memset(o->d, 1, static_cast<unsigned>(o->len) * Element);
}

const NamedLoop kLoops[] = {
    {"noxsCopy_8u", copy<1>},    {"noxsMove_8u", move<1>},    {"noxsCopy_16s", copy<2>},   {"noxsMove_16s", move<2>},
    {"noxsCopy_16sc", copy<4>},  {"noxsMove_16sc", move<4>},  {"noxsCopy_32s", copy<4>},   {"noxsMove_32s", move<4>},
    {"noxsCopy_32f", copy<4>},   {"noxsMove_32f", move<4>},   {"noxsCopy_32sc", copy<8>},  {"noxsMove_32sc", move<8>},
    {"noxsCopy_32fc", copy<8>},  {"noxsMove_32fc", move<8>},  {"noxsCopy_64s", copy<8>},   {"noxsMove_64s", move<8>},
    {"noxsCopy_64f", copy<8>},   {"noxsMove_64f", move<8>},   {"noxsCopy_64sc", copy<16>}, {"noxsMove_64sc", move<16>},
    {"noxsCopy_64fc", copy<16>}, {"noxsMove_64fc", move<16>}, {"noxsZero_8u", zero<1>},    {"noxsZero_16s", zero<2>},
    {"noxsZero_32s", zero<4>},   {"noxsZero_32sc", zero<8>},  {"noxsZero_64f", zero<8>},   {"noxsZero_64fc", zero<16>},
    {"noxsSet_8u", set},
};
const NamedLoop kMemset[] = {
    {"noxsSet_16s", same_bytes<2>}, {"noxsSet_32s", same_bytes<4>},   {"noxsSet_32sc", same_bytes<8>},
    {"noxsSet_64f", same_bytes<8>}, {"noxsSet_64fc", same_bytes<16>},
};

}  // namespace

const PeerSet nox_peers_libc = {"libc", kLoops, sizeof(kLoops) / sizeof(kLoops[0])};
const PeerSet nox_peers_memset = {"memset", kMemset, sizeof(kMemset) / sizeof(kMemset[0])};
