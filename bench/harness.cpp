#include "bench/harness.hpp"

#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <sys/mman.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <map>

#include "bench/peers/libc.hpp"

namespace {

constexpr int kMiB = 1 << 20;
constexpr int kLargest = 32 * kMiB;
constexpr int kFront = 8192;  // past samples of filters; whole pages
constexpr int kMaxTaps = 181;
// Three lengths: 1000 elements in L1, 128 KiB an array in L2, 32 MiB an array in memory.
constexpr int kElementsL1 = 1000;
constexpr int kBytesL2 = 128 * 1024;
constexpr int kBlockSizes[] = {64, 256, 1024, 4096, 16384, 65536, kMiB, kLargest};
constexpr int kBytesToCheck = kBytesL2;
constexpr int kBytesPastCaches = kMiB;
constexpr int kRepetitionsPastCaches = 5;  // such a repetition is one or two calls only

// Any doubles, of which kinds keep in-place operations from drifting out of range over a million calls.
enum Kind { kPlain, kNearOne, kUnitCircle, kOnes, kRealOnes, kKinds };
constexpr int kPattern = 8192;
struct Patterns {
  double of[kKinds][kPattern];
  Patterns() {
    unsigned seed = 12345;
    for (int i = 0; i < kPattern; i += 2) {
      for (int k = 0; k < 2; ++k) {
        seed = seed * 1664525u + 1013904223u;
        const double u = seed / 4294967296.0;
        of[kPlain][i + k] = 0.5 + 1.5 * u;
        of[kNearOne][i + k] = 1 + 1e-9 * (u - 0.5);
        of[kOnes][i + k] = 1;
      }
      of[kUnitCircle][i] = std::cos(of[kPlain][i]);
      of[kUnitCircle][i + 1] = std::sin(of[kPlain][i]);
      of[kRealOnes][i] = 1;  // 1 + 0i
      of[kRealOnes][i + 1] = 0;
    }
  }
};
void fill(const void* base, size_t bytes, Kind kind) {
  static const Patterns patterns;
  char* to = static_cast<char*>(const_cast<void*>(base));
  for (size_t i = 0; i < bytes; i += sizeof patterns.of[kind])
    memcpy(to + i, patterns.of[kind], std::min(bytes - i, sizeof patterns.of[kind]));
}

bool in_place(const Row& row) {
  const size_t n = strlen(row.name);
  return n > 2 && strcmp(row.name + n - 2, "_I") == 0;
}

// The traffic a row can't do without; the names are those of the limit loops.
std::string shape_of(const Row& row) {
  if (row.traits & kCompute) return "flops";
  if (row.traits & kAccumulates) return "accumulate";
  if (in_place(row)) return row.primitive.sources ? "update from" : "update";
  const char* plain[] = {"fill", "copy", "sum"};
  return plain[row.primitive.sources];
}

const NamedLoop* find(const PeerSet& set, const std::string& name) {
  for (int i = 0; i < set.count; ++i)
    if (name == set.loops[i].name) return &set.loops[i];
  return nullptr;
}

// Takes the times of every repetition instead of printing them.
class Collector : public benchmark::BenchmarkReporter {
 public:
  std::map<std::string, std::vector<double>> ns;
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& r : runs)
      if (r.run_type == Run::RT_Iteration && !r.error_occurred)
        ns[r.run_name.function_name].push_back(r.real_accumulated_time / static_cast<double>(r.iterations) * 1e9);
  }
};

}  // namespace

// Where the three arrays stand, in bytes behind a page boundary. Aligned arrays stand apart within the page, so that
// no load looks like a pending store; the aliased destination stands right behind the loads of the sources.
struct Harness::Place {
  const char* name;
  int a, b, d;
};

Harness::Harness(std::string variant, bool quick, std::string only)
    : variant_(std::move(variant)), only_(std::move(only)), quick_(quick) {
  const size_t bytes = kFront + kLargest + 17 * 4096;
  for (char*& array : arrays_) {
    void* p = mmap(nullptr, bytes + 2 * kMiB, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (p == MAP_FAILED) abort();
    madvise(p, bytes + 2 * kMiB, MADV_HUGEPAGE);
    array = static_cast<char*>(p) + kFront;
    fill(p, bytes, kPlain);
  }
  taps_.resize(2 * kMaxTaps);
  fill(taps_.data(), taps_.size() * sizeof(double), kPlain);
  peers_ = {&nox_peers_libc, &nox_peers_memset};
}

void Harness::load_peers(const std::string& module) {
  void* handle = dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle) {
    note(std::string("peers not loaded: ") + dlerror());
    return;
  }
  for (const char* set :
       {"gcc", "clang", "eigen", "packed", "gcc_sums", "clang_sums", "gcc_fast", "clang_fast", "limits", "streams"}) {
    if (const void* p = dlsym(handle, (std::string("nox_peers_") + set).c_str()))
      peers_.push_back(static_cast<const PeerSet*>(p));
    else
      note(std::string("built without the peer ") + set);
  }
}

void Harness::note(const std::string& text) {
  fprintf(stderr, "%s: %s\n", variant_.c_str(), text.c_str());
  notes_.push_back(text);
}

void Harness::refill(const Row& row, const Operands& o) {
  const size_t bytes = static_cast<size_t>(o.len) * static_cast<size_t>(row.primitive.element);
  const bool chained = in_place(row), complex = row.primitive.complex;
  const Kind source = !chained ? kPlain : complex ? kUnitCircle : kNearOne;
  fill(static_cast<const char*>(o.a) - kFront / 2, bytes + kFront / 2, source);
  fill(o.b, bytes, source);
  fill(o.d, bytes, complex ? kRealOnes : kOnes);
}

bool Harness::agree(const Row& row, Group& group) {
  const Operands& o = group.participants[0].operands;
  const size_t bytes = static_cast<size_t>(group.len) * static_cast<size_t>(row.primitive.element);
  std::vector<char> expected(bytes);
  bool all = true;
  for (const Participant& p : group.participants) {
    if (p.who.rfind("limit", 0) == 0 || p.who == "memset") continue;
    refill(row, o);
    if (p.call) {
      p.call(&o);
      memcpy(expected.data(), o.d, bytes);
      continue;
    }
    p.loop(&o);
    bool same = true;
    if (row.primitive.floating) {
      for (size_t i = 0; i < bytes / sizeof(double); ++i) {
        double x, y;
        memcpy(&x, expected.data() + i * sizeof(double), sizeof x);
        memcpy(&y, static_cast<char*>(o.d) + i * sizeof(double), sizeof y);
        same = same && std::fabs(x - y) <= 1e-12 * std::max(1.0, std::fabs(x));
      }
    } else {
      same = memcmp(expected.data(), o.d, bytes) == 0;
    }
    if (!same) note(group.name + " at " + std::to_string(group.len) + ": " + p.who + " computes something else");
    all = all && same;
  }
  return all;
}

void Harness::run_at(const Family& family, const Row& row, int len, const Place& place) {
  const Primitive& primitive = row.primitive;
  const int bytes = len * primitive.element;
  Operands o{arrays_[0] + place.a, arrays_[1] + place.b, arrays_[2] + place.d, len, {}, taps_.data(), row.taps};
  if (!primitive.floating)
    o.c[0] = 7, o.c[1] = 9;
  else if (primitive.complex)
    o.c[0] = 0.6, o.c[1] = 0.8;
  else
    o.c[0] = 1 + 1e-9;

  Group group{family.name, row.name, place.name, shape_of(row), len, primitive.element, 0, {}};
  if (row.traits & kCompute) {
    group.name += " " + std::to_string(row.taps) + " taps";
    group.flops = (primitive.complex ? 8.0 : 2.0) * row.taps;
  }
  refill(row, o);
  NoxStatus st = row.prepare ? row.prepare(&o) : noxStsNoErr;
  if (!st) st = primitive.call(&o);
  if (st) {
    note(group.name + " skipped: status " + std::to_string(st));
    return;
  }
  group.participants.push_back({"nox", nullptr, primitive.call, o});
  const bool aligned = strcmp(place.name, "aligned") == 0;
  for (const PeerSet* set : peers_) {
    if (const NamedLoop* loop = find(*set, row.name)) group.participants.push_back({set->who, loop->run, nullptr, o});
    if (strncmp(set->who, "limit", 5) != 0) continue;
    if (strcmp(set->who, "limit-nt") == 0 && (bytes < kBytesPastCaches || !aligned)) continue;
    if (const NamedLoop* loop = find(*set, group.shape)) {
      Operands limit = o;
      limit.len = group.flops > 0 ? static_cast<int>(group.flops * len / 1000) : bytes / 8;
      group.participants.push_back({set->who, loop->run, nullptr, limit});
    }
  }
  if (bytes <= kBytesToCheck && !agree(row, group)) {
    ++failures_;
    return;
  }
  refill(row, o);
  measure(group);
}

void Harness::run(const Family& family) {
  static const Place kAligned = {"aligned", 0, 1344, 2688};
  static const Place kOthers[] = {
      {"offset 8", 8, 1344 + 24, 2688 + 16}, {"offset 4", 4, 1344 + 4, 2688 + 4}, {"aliased", 0, 0, 64}};
  for (const Row& row : family.rows) {
    if (!wanted(row.name)) continue;
    const int element = row.primitive.element;
    if (row.traits & kSizes) {
      for (const int bytes : kBlockSizes) run_at(family, row, bytes / element, kAligned);
    } else {
      run_at(family, row, kElementsL1, kAligned);
      if (!quick_) run_at(family, row, kBytesL2 / element, kAligned);
      if (!(row.traits & kCompute)) run_at(family, row, kLargest / element, kAligned);
    }
    if (!(row.traits & kPlaces)) continue;
    if (row.traits & kSizes) run_at(family, row, kElementsL1, kAligned);
    for (const Place& place : kOthers) run_at(family, row, kElementsL1, place);
  }
}

void Harness::measure(const Group& group) {
  benchmark::ClearRegisteredBenchmarks();
  for (const Participant& p : group.participants) {
    auto* registered = benchmark::RegisterBenchmark(p.who.c_str(), [&p](benchmark::State& state) {
      if (p.call)
        for (auto _ : state) p.call(&p.operands);
      else
        for (auto _ : state) p.loop(&p.operands);
    });
    if (!quick_ && group.len * group.element >= kBytesPastCaches) registered->Repetitions(kRepetitionsPastCaches);
  }
  Collector collector;
  benchmark::RunSpecifiedBenchmarks(&collector);
  char head[512];
  snprintf(
      head, sizeof head,
      R"({"family": "%s", "name": "%s", "place": "%s", "shape": "%s", "len": %d, "element": %d, "flops": %g, "ns": {)",
      group.family.c_str(), group.name.c_str(), group.place.c_str(), group.shape.c_str(), group.len, group.element,
      group.flops);
  std::string line = head;
  for (const Participant& p : group.participants) {
    if (&p != &group.participants[0]) line += ", ";
    line += "\"" + p.who + "\": [";
    const std::vector<double>& times = collector.ns[p.who];
    for (size_t i = 0; i < times.size(); ++i) {
      snprintf(head, sizeof head, "%s%.6g", i ? ", " : "", times[i]);
      line += head;
    }
    line += "]";
  }
  results_.push_back(line + "}}");
}

bool Harness::write(const std::string& path) const {
  FILE* f = path == "-" ? stdout : fopen(path.c_str(), "w");
  if (!f) return false;
  unsigned brand[12] = {};
  for (unsigned i = 0; i < 3; ++i)
    asm("cpuid"
        : "=a"(brand[4 * i]), "=b"(brand[4 * i + 1]), "=c"(brand[4 * i + 2]), "=d"(brand[4 * i + 3])
        : "a"(0x80000002u + i), "c"(0));
  fprintf(f, "{\"variant\": \"%s\", \"processor\": \"%.48s\", \"quick\": %s,\n", variant_.c_str(),
          reinterpret_cast<const char*>(brand), quick_ ? "true" : "false");
  fprintf(f, " \"compilers\": \"%s\",\n \"notes\": [", NOX_BENCH_COMPILERS);
  for (size_t i = 0; i < notes_.size(); ++i) fprintf(f, "%s\"%s\"", i ? ", " : "", notes_[i].c_str());
  fprintf(f, "],\n \"facts\": {");
  for (size_t i = 0; i < facts_.size(); ++i)
    fprintf(f, "%s\"%s\": %.6g", i ? ", " : "", facts_[i].first.c_str(), facts_[i].second);
  fprintf(f, "},\n \"rows\": [\n");
  for (size_t i = 0; i < results_.size(); ++i)
    fprintf(f, "  %s%s\n", results_[i].c_str(), i + 1 < results_.size() ? "," : "");
  fprintf(f, "]}\n");
  return f == stdout ? fflush(f) == 0 : fclose(f) == 0;
}
