// The counting thunks, the counters and the closing report.
#include "kit/coverage.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <map>
#include <new>
#include <string>
#include <vector>

#include "kit/declarations.hpp"
#include "kit/dispatch.hpp"
#include "kit/variants.hpp"

namespace kit {
namespace {

constexpr size_t kThunkBytes = 16;

std::vector<uint32_t> counters;                      // row by row, a word for each column
std::map<const void*, std::atomic<uint32_t>> noted;  // exports without a row
std::atomic<bool> paused{false};

// incl counter; jmp body
void write_thunk(uint8_t* at, const uint32_t* counter, const void* body) {
  const uint32_t address = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(counter));
  const uint32_t distance = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(body)) -
                            static_cast<uint32_t>(reinterpret_cast<uintptr_t>(at)) - 11;
  const uint8_t increment[] = {0xFF, 0x05}, jump[] = {0xE9};
  std::memcpy(at, increment, 2);
  std::memcpy(at + 2, &address, 4);
  std::memcpy(at + 6, jump, 1);
  std::memcpy(at + 7, &distance, 4);
}

void patch_rows() {
  const size_t entries = static_cast<size_t>(row_count()) * kVariants;
  counters.assign(entries, 0);
  void* const page = mmap(nullptr, entries * kThunkBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (page == MAP_FAILED) throw std::bad_alloc();
  uint8_t* thunk = static_cast<uint8_t*>(page);
  const uint32_t* counter = counters.data();
  for (int row = 0; row < row_count(); ++row)
    for (int column = 0; column < kVariants; ++column, thunk += kThunkBytes)
      write_thunk(thunk, counter++, row_entry(row, column));
  if (mprotect(page, entries * kThunkBytes, PROT_READ | PROT_EXEC) != 0) throw std::bad_alloc();
  thunk = static_cast<uint8_t*>(page);
  for (int row = 0; row < row_count(); ++row)
    for (int column = 0; column < kVariants; ++column, thunk += kThunkBytes) row_entry(row, column) = thunk;
}

void restore_rows() {
  for (int row = 0; row < row_count(); ++row)
    for (int column = 0; column < kVariants; ++column) row_entry(row, column) = body_of(row, column);
}

// A line for each function that never ran, or not under every build; `all` takes the number of pairs of function and
// build that should have run, `lacking` the number of those that didn't.
std::vector<std::string> missing(size_t& all, size_t& lacking) {
  std::vector<std::string> out;
  all = lacking = 0;
  for (const Declaration& d : declarations()) {
    if (d.row < 0) {
      ++all;
      if (noted.at(d.address) != 0) continue;
      ++lacking;
      out.push_back(d.name);
      continue;
    }
    std::string tags;
    for (const Variant& v : runnable_variants()) {
      ++all;
      if (entries(d.row, v.column) == 0) tags += std::string(" ") + v.tag;
    }
    lacking += static_cast<size_t>(std::count(tags.begin(), tags.end(), ' '));
    if (!tags.empty()) out.push_back(d.name + " under" + tags);
  }
  return out;
}

class Coverage : public testing::Environment {
  void SetUp() override {
    for (const Declaration& d : declarations())
      if (d.row < 0) noted[d.address] = 0;
    body_of(0, 0);  // the table's own copy of the bodies, taken before the patch
    patch_rows();
  }

  void TearDown() override {
    size_t all, lacking;
    const std::vector<std::string> never = missing(all, lacking);
    restore_rows();
    std::printf("coverage: %zu of %zu declarations x variants run\n", all - lacking, all);
    const testing::UnitTest& run = *testing::UnitTest::GetInstance();
    if (never.empty() || run.test_to_run_count() != run.total_test_count()) return;
    std::string list;
    for (const std::string& name : never) list += "\n  " + name;
    ADD_FAILURE() << "no test ran:" << list;
  }
};
const testing::Environment* const kCoverage = testing::AddGlobalTestEnvironment(new Coverage);

std::vector<uint32_t> before_pause;

}  // namespace

void note_call(const void* fn) {
  if (paused) return;
  const auto found = noted.find(fn);
  if (found != noted.end()) ++found->second;
}

PauseCoverage::PauseCoverage(What what) {
  paused = what == kAll;
  before_pause = counters;
}
PauseCoverage::~PauseCoverage() {
  std::copy(before_pause.begin(), before_pause.end(), counters.begin());
  paused = false;
}

unsigned entries(int row, int column) { return counters.at(static_cast<size_t>(row * kVariants + column)); }

}  // namespace kit
