// Counts which primitives ran under which build, and which other exports were called.
//
// While the tests run, every body in the dispatch table is reached over a few bytes of code that count the entry;
// functions without a row are noted by kit::call. At the end of a whole run a primitive that some runnable build
// never served, or an export never called, is a failure.
#pragma once

namespace kit {

// Called by the probe for every function it calls.
void note_call(const void* fn);

// Calls made during its life count for nothing: a function whose arguments alone were tested hasn't run.
class PauseCoverage {
 public:
  enum What { kAll, kRows };  // kRows: the exports called by kit::call still count
  explicit PauseCoverage(What what = kAll);
  ~PauseCoverage();
  PauseCoverage(const PauseCoverage&) = delete;
  PauseCoverage& operator=(const PauseCoverage&) = delete;
};

// Entries counted so far for a row under a build.
unsigned entries(int row, int column);

}  // namespace kit
