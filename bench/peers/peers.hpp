// What the measured code and its peers agree on: the operands of a call, and a set of peers as a table of loops.
//
// A peer's loop carries the name of the primitive whose job it does; the harness finds it by that name. Everything here
// is plain data: a function defined here would be merged across objects of different instruction sets.
#pragma once

struct Operands {
  const void* a;       // first source
  const void* b;       // second source
  void* d;             // destination; the in-place forms read it too
  int len;             // elements
  double c[2];         // constant operand: real, or real and imaginary part
  const double* taps;  // taps of a filter in reversed order, real or interleaved complex
  int taps_len;
};

constexpr double kFrequency = 0.123;  // relative, of the spectral values

using Loop = void (*)(const Operands*);

struct NamedLoop {
  const char* name;  // primitive whose job the loop does
  Loop run;
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

// The namespace of an object's loops, and its one exported name; PEER comes from the build.
#define NOX_PEER_SPACE NOX_PEER_PASTE(peers_, PEER)
#define NOX_PEER_SET(symbol, who, loops)                                                                 \
  extern "C" __attribute__((visibility("default"))) const PeerSet NOX_PEER_PASTE(nox_peers_, symbol) = { \
      who, loops, static_cast<int>(sizeof(loops) / sizeof(loops[0]))}
