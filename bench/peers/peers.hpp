// What the measured code and its peers agree on: the operands of a call, and a set of peers as a table of loops.
//
// A peer's loop carries the name of the primitive whose job it does; the harness finds it by that name. Everything here
// is plain data: a function defined here would be merged across objects of different instruction sets.
#pragma once

struct Operands {
  const void* a;       // first source
  const void* b;       // second source
  void* d;             // destination; the in-place forms read it too
  void* e;             // second destination
  int len;             // elements
  double c[2];         // constant operand: real, or real and imaginary part; or two constants
  int n[4];            // whatever else the row says: taps, scale factor, sizes of a mask
  const double* taps;  // coefficients, real or interleaved complex; of filters in reversed order
  void* work;          // aligned to 64 bytes, each participant's own, for what a preparation makes
};

constexpr double kFrequency = 0.123;  // relative, of the spectral values

using Loop = void (*)(const Operands*);

struct NamedLoop {
  const char* name;  // primitive whose job the loop does
  Loop run;
  Loop prepare = nullptr;  // before the first run of a group and whenever the arrays are filled again, untimed
};

struct PeerSet {
  const char* who;
  const NamedLoop* loops;
  int count;
};

#define NOX_PEER_PASTE2(a, b) a##b
#define NOX_PEER_PASTE(a, b) NOX_PEER_PASTE2(a, b)
#define NOX_PEER_TEXT2(a) #a
#define NOX_PEER_TEXT(a) NOX_PEER_TEXT2(a)

// The namespace of an object's loops; PEER comes from the build, and so does PEER_WHO, the name in the report.
#define NOX_PEER_SPACE NOX_PEER_PASTE(peers_, PEER)
// A set enters itself into its module's list, which the linker gathers.
#define NOX_PEER_SET(symbol, who, loops)                                                                             \
  static const PeerSet NOX_PEER_PASTE(nox_peers_, symbol) = {who, loops,                                             \
                                                             static_cast<int>(sizeof(loops) / sizeof((loops)[0]))};  \
  __attribute__((section("nox_peers"), used)) static const PeerSet* const NOX_PEER_PASTE(nox_peers_entry_, symbol) = \
      &NOX_PEER_PASTE(nox_peers_, symbol)
