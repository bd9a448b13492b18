// What the probe expects, and its report.
#include "kit/call.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "kit/coverage.hpp"
#include "kit/declarations.hpp"
#include "nox/nox.h"

namespace kit {
namespace {

// Laid out for call_probe.S.
struct Probe {
  const void* fn;
  const uint32_t* words;
  uint32_t count;
  uint32_t offset;
  uint32_t avx;
  uint32_t returns_real;
  uint32_t marks[4];
  uint32_t own_stack;
  uint32_t stack_before;
  uint32_t control_before;
  uint32_t mxcsr_before;
  uint32_t result[2];
  uint32_t stack_after;
  uint32_t saved[4];
  uint32_t flags;
  uint32_t mxcsr_after;
  uint32_t x87[7];
  double real;
  uint32_t upper[8][4];
};
static_assert(offsetof(Probe, own_stack) == 40 && offsetof(Probe, x87) == 92 && offsetof(Probe, upper) == 128,
              "the offsets in call_probe.S");
extern "C" void kit_call_probe(Probe*);

constexpr const char* kRegisters[4] = {"ebx", "esi", "edi", "ebp"};
constexpr uint32_t kMarks[4] = {0xB1B2B3B4, 0x51525354, 0xD1D2D3D4, 0xE1E2E3E4};
constexpr uint32_t kDirection = 0x400;
constexpr uint32_t kMxcsrStatus = 0x3F;
constexpr uint32_t kDenormalsAreZeros = 0x40;
constexpr uint32_t kX87Reserved = 0x40;  // reads as 1, whatever was loaded
constexpr uint32_t kAllEmpty = 0xFFFF;

// The bits of MXCSR that the function is there to change.
uint32_t may_change(const void* fn) {
  return fn == reinterpret_cast<const void*>(&noxSetDenormAreZeros) ? kDenormalsAreZeros : 0;
}

bool has_avx() {
  static const bool answer = __builtin_cpu_supports("avx");
  return answer;
}

// One register holds a result where a real number is returned: the last that fills, with the next seven empty.
bool x87_as_expected(uint32_t tags, Returns returns) {
  return returns == Returns::Real ? tags >> 14 != 3 && (tags | 0xC000) == kAllEmpty : tags == kAllEmpty;
}

std::string change(const char* what, uint32_t from, uint32_t to) {
  std::ostringstream out;
  out << "\n  " << what << " went from " << std::hex << from << " to " << to;
  return out.str();
}

// Empty if all is well.
std::string faults(const Probe& p, Returns returns) {
  std::string out;
  for (int r = 0; r < 4; ++r)
    if (p.saved[r] != p.marks[r]) out += std::string("\n  ") + kRegisters[r] + " was not kept";
  if (p.stack_after != p.stack_before) out += change("the stack pointer", p.stack_before, p.stack_after);
  if (p.flags & kDirection) out += "\n  the direction flag was left set";
  const uint32_t control = p.control_before & 0xFFFF, control_after = p.x87[0] & 0xFFFF;
  if ((control ^ control_after) & ~kX87Reserved) out += change("the x87 control word", control, control_after);
  const uint32_t tags = p.x87[2] & 0xFFFF;
  if (!x87_as_expected(tags, returns)) out += change("the tags of the x87 registers", kAllEmpty, tags);
  if ((p.mxcsr_before ^ p.mxcsr_after) & ~kMxcsrStatus & ~may_change(p.fn))
    out += change("MXCSR", p.mxcsr_before, p.mxcsr_after);
  if (p.avx)
    for (int r = 0; r < 8; ++r)
      if (p.upper[r][0] | p.upper[r][1] | p.upper[r][2] | p.upper[r][3])
        out += "\n  the upper half of ymm" + std::to_string(r) + " was left dirty";
  return out;
}

}  // namespace

ProbeResult probe(const void* fn, const uint32_t* words, size_t count, Returns returns) {
  thread_local uint32_t turn = 0;
  Probe p{};
  p.fn = fn;
  p.words = words;
  p.count = static_cast<uint32_t>(count);
  p.offset = turn++ % 4 * 4;
  p.avx = has_avx();
  p.returns_real = returns == Returns::Real;
  std::memcpy(p.marks, kMarks, sizeof p.marks);

  note_call(fn);
  kit_call_probe(&p);

  const std::string report = faults(p, returns);
  const uint32_t own = kMxcsrStatus | may_change(fn);
  const uint32_t control = (p.mxcsr_before & ~own) | (p.mxcsr_after & own);
  if (control != p.mxcsr_after) __builtin_ia32_ldmxcsr(control);
  if (!report.empty()) ADD_FAILURE() << name_of(fn) << ", called at stack offset " << p.offset << ':' << report;
  return {uint64_t{p.result[1]} << 32 | p.result[0], p.real};
}

}  // namespace kit
