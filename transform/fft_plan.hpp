// The plan of a complex transform for the processors that fuse: how 2^order values are split, and the tables for it.
//
// Up to order 6 a few passes run through a buffer on the stack. The middle orders are a sequence of passes
// of four (the first of four or eight) which leave their results in natural order, to and fro between destination and
// work memory. The large orders are split into columns and rows, each transformed in a block that stays in the cache.
// All of a plan lies in the spec's memory behind its header; a transform only reads it.
#pragma once
#include "transform/fft.hpp"
#include "transform/sine.hpp"

namespace nox {
inline namespace NOX_VARIANT {

constexpr int kNoInitOrder = kConstantWave;  // up to here the tables need no init memory
constexpr int kPlanDirectOrder = 6;          // no work memory up to here
constexpr int kPlanMiddleOrder = 15;         // passes over the whole array up to here

// Bytes of spec and work memory, header and any base address included; false if one passes the range of int.
bool plan_size(int order, int& spec_size, int& work_size);
// Builds the plan behind the header of a spec whose order is set, and sets its workSize; from the wave or, for null,
// one of its own. `sines` then has room for 2^order / 4 + 1 values; it may be null up to order 10.
void plan_init(NoxFftSpec* spec, const Wave* wave, Nox64f* sines);
// One transform, every result times `scale`. `work` starts at a 64-byte boundary; src may be dst.
template <bool Inverse>
void plan_run(const Nox64fc* src, Nox64fc* dst, const NoxFftSpec* spec, Nox64fc* work, Nox64f scale);

}  // namespace NOX_VARIANT
}  // namespace nox
