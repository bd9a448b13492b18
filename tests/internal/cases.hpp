// What the five builds hand to the tests of lanes and drivers: tables of plain functions.
//
// The functions are compiled with a build's own flags, the tests that call them with those of the lowest, so this
// header and what the builds make of it use nothing from the standard library: one inline function of it, compiled
// for a new processor and kept by the linker for all, would fault on an old one.
#pragma once
#include <stddef.h>
#include <stdint.h>

namespace internal {

enum class Element { u8, s8, u16, s16, u32, s32, u64, s64, f64, c64 };

// One operation on one vector of lanes.
enum class Op {
  All,
  Zero,
  And,
  Or,
  Xor,
  AndNot,
  Add,
  Sub,
  AddSaturated,
  SubSaturated,
  ShiftLeft,
  ShiftRight,
  Equal,
  Greater,
  Less,
  LessEqual,
  Min,
  Max,
  Reverse,
  Select,
  Mul,
  Div,
  Sqrt,
  IsNan,
  MaskBits,
  Madd,
  Abs,
  Negate,
  ReTwice,
  ImTwice,
  SwapParts,
  Conj,
  SubAdd,
};
struct LaneCase {
  Op op;
  Element element;
  int lanes;
  // d = op(a, b, c), or op(a, shift)
  void (*run)(const void* a, const void* b, const void* c, void* d, int shift);
};

// One driver on arrays; what it computes stands beside the tests.
enum class Shape { Map1, Map2, Map3, MapReversed, ReverseInPlace, Watch };
struct DriverCase {
  Shape shape;
  Element element;
  int lanes;
  void (*run)(void* d, const void* a, const void* b, const void* c, int len);
};

struct Cases {
  const LaneCase* lanes;
  int lane_count;
  const DriverCase* drivers;
  int driver_count;
  bool fuses;
};

}  // namespace internal
