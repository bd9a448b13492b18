// The C library's peers, part of the program itself.
#pragma once
#include "bench/peers/peers.hpp"

extern const PeerSet nox_peers_libc;
extern const PeerSet nox_peers_memset;  // the same bytes written, not the same values
