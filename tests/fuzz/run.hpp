// One scenario of the fuzzer under one build: its random numbers, its guarded memory, and the log that is compared.
//
// A scenario is a function of a Run. It is run once for each build with the same random numbers, so that calls and
// contents are the same; where the memory stands is drawn from a second generator, so that it differs from build to
// build. What a scenario logs must be the same under all builds, bit for bit or within a tolerance.
#pragma once
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "kit/declarations.hpp"
#include "kit/guarded.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"

namespace fuzz {

using kit::Declaration;
using kit::Kind;
using kit::Type;

// How a scenario is to be run again: its numbers follow from the run's seed, the iteration and the cap on lengths.
struct Origin {
  uint64_t iteration = 0;
  int cap = 0;  // lengths stay at or below it; 0 for no cap
  bool verbose = false;
};

constexpr double kBits = 0;  // tolerance: equal values, every NaN being equal to every other
constexpr double kUncompared = -1;

struct Entry {
  std::string what;
  Type type = Type::Int;
  double tolerance = kBits;  // relative to the largest magnitude of the array
  std::vector<uint8_t> bytes;
};

// Memory of a scenario, against an unmapped page, at any byte.
struct Memory {
  std::string name;
  kit::Guarded<uint8_t> guarded;
  std::vector<uint8_t> before;

  uint8_t* data() { return guarded.data(); }
  size_t size() const { return guarded.size(); }
  bool changed() const { return !std::equal(before.begin(), before.end(), guarded.begin()); }
  void remember() { before = guarded.values(); }
};

class Run {
 public:
  Run(const kit::Variant& variant, const Origin& origin);

  kit::Random random;  // the same under all builds
  const kit::Variant& variant;
  const Origin origin;
  std::vector<Entry> log;
  std::vector<std::string> faults;

  // 0 to some thousands, most often small or around a multiple of a vector.
  int length(int least, int most = 1 << 30);
  // Any int at all, with the remarkable ones often among them.
  int any_int();
  // One of the values, now and then another int.
  int code(std::initializer_list<int> good, double bad = 0.1);

  Memory& memory(const std::string& name, size_t bytes);
  // Filled with reals of the type: ordinary ones, or anything at all.
  template <class T>
  T* array(const std::string& name, int n, bool wild = false) {
    Memory& m = memory(name, static_cast<size_t>(n) * sizeof(T));
    kit::Random content(random.bits());
    for (int i = 0; i < n; ++i) {
      const T v = wild ? content.special<T>() : content.value<T>(-2, 2);
      std::memcpy(m.data() + static_cast<size_t>(i) * sizeof(T), &v, sizeof v);
    }
    m.remember();
    return reinterpret_cast<T*>(m.data());
  }
  // Memory for a record or for work, with nothing in it that could be relied on.
  uint8_t* room(const std::string& name, int bytes);

  // Before each call: what the signal handler tells if it doesn't return.
  void calling(const std::string& call) const;
  void note(const std::string& what, int64_t value) { note_value(what, Type::Nox64s, &value); }
  void note_value(const std::string& what, Type type, const void* value);
  void note_array(const std::string& what, Type type, const void* data, size_t bytes, double tolerance = kBits);
  void fault(const std::string& what) { faults.push_back(what); }
  // No byte beside any memory may have changed.
  void check_memories();
  // The status of a call with one of the memories' states remembered before: logs it, and an error must have left all
  // of them alone.
  template <class F, class... A>
  int call(const std::string& name, F* function, A... arguments);
  bool error_leaves_alone(const std::string& name, int status);

 private:
  kit::Random places_;
  std::list<Memory> memories_;
};

// The first difference of two entries, or of two logs; empty if there is none.
std::string compare_entries(const Entry& a, const Entry& b);
std::string difference(const Run& a, const Run& b);
// What the signal handler prints.
void install_signal_handlers();
void set_crash_line(const std::string& line);

using Scenario = void (*)(Run&);
struct Recipe {
  const char* name;
  Scenario run;
  int weight;
};
// The families whose functions need a record.
std::vector<Recipe> recipes();
// A call of any other function.
void any_function(Run& run);
extern std::string only_function;  // calls of this one alone, if not empty
size_t callable_functions();

}  // namespace fuzz

#include "kit/call.hpp"

template <class F, class... A>
int fuzz::Run::call(const std::string& name, F* function, A... arguments) {
  calling(name);
  for (Memory& m : memories_) m.remember();
  const int status = static_cast<int>(kit::call(function, arguments...));
  note(name, status);
  error_leaves_alone(name, status);
  check_memories();
  return status;
}
