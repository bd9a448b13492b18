// The one export of a module of peers: its list of sets, between the marks that the linker sets around it.
#include "bench/peers/peers.hpp"

extern "C" {
extern const PeerSet* const __start_nox_peers[] __attribute__((visibility("hidden")));
extern const PeerSet* const __stop_nox_peers[] __attribute__((visibility("hidden")));

__attribute__((visibility("default"))) int nox_peer_sets(const PeerSet* const** first) {
  *first = __start_nox_peers;
  return static_cast<int>(__stop_nox_peers - __start_nox_peers);
}
}
