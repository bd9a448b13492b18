#include "bench/harness.hpp"

#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <sys/mman.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <map>

#include "bench/data.hpp"
#include "bench/peers/libc.hpp"

namespace {

constexpr int kMiB = 1 << 20;
constexpr int kLargest = 32 * kMiB;
constexpr int kFront = 8192;  // past samples of filters; whole pages
constexpr int kMaxTaps = 3840;
// Three lengths: 1000 elements in L1, 128 KiB an array in L2, 32 MiB an array in memory.
constexpr int kElementsL1 = 1000;
constexpr int kBytesL2 = 128 * 1024;
constexpr int kBlockSizes[] = {64, 256, 1024, 4096, 16384, 65536, kMiB, kLargest};
constexpr int kBytesToCheck = kBytesL2;
constexpr int kBytesPastCaches = kMiB;
constexpr int kRepetitionsPastCaches = 5;  // such a repetition is one or two calls only

constexpr int kArena = 48 * kMiB, kOurArena = 256 * kMiB;  // work memory of a participant, touched as it is used
constexpr int kMapped = 80 * kMiB;  // of an array; transforms of their own length go beyond 32 MiB
constexpr Element kDouble = {Type::kF64, sizeof(double), false};

bool in_place(const Row& row) {
  const size_t n = strlen(row.name);
  return n > 2 && strcmp(row.name + n - 2, "_I") == 0;
}

// The traffic a row can't do without; the names are those of the limit loops, empty where there is none.
std::string shape_of(const Row& row) {
  if (row.traits & kNoLimit || row.traits & kRestores) return "";
  if (row.flop > 0) return "flops";
  if (row.traits & kReads) return row.primitive.sources > 1 ? "read two" : "read";
  if (row.traits & kAccumulates) return "accumulate";
  if (in_place(row)) return row.primitive.sources ? "update from" : "update";
  const char* plain[] = {"fill", "copy", "sum"};
  return plain[std::min(row.primitive.sources, 2)];
}

// Bytes an array of the row's bare loop must have to move as many as the row does.
double traffic_of(const Row& row, int len) {
  const double read = static_cast<double>(row.primitive.source.size), written = row.primitive.destination.size;
  const int sources = row.primitive.sources;
  if (row.traits & kReads) return read * len;
  return len * (sources * read + written) / (sources + 1);
}

int element_of(const Row& row) { return std::max(row.primitive.source.size, row.primitive.destination.size); }

template <class T>
bool close(const char* x, const char* y, size_t bytes, double allowed) {
  for (size_t i = 0; i + sizeof(T) <= bytes; i += sizeof(T)) {
    T expected, found;
    memcpy(&expected, x + i, sizeof expected);
    memcpy(&found, y + i, sizeof found);
    const double e = static_cast<double>(expected), f = static_cast<double>(found);
    if (!(std::fabs(e - f) <= allowed * std::max(1.0, std::fabs(e))) && e != f && !(e != e && f != f)) return false;
  }
  return true;
}
bool same(const char* x, const char* y, size_t bytes, Element element, double allowed) {
  if (element.type == Type::kF64) return close<double>(x, y, bytes, allowed < 0 ? 1e-12 : allowed);
  if (element.type == Type::kF32) return close<float>(x, y, bytes, allowed < 0 ? 1e-5 : allowed);
  if (allowed <= 0) return memcmp(x, y, bytes) == 0;
  switch (element.type) {
    case Type::kU8:
      return close<unsigned char>(x, y, bytes, allowed);
    case Type::kS8:
      return close<signed char>(x, y, bytes, allowed);
    case Type::kU16:
      return close<unsigned short>(x, y, bytes, allowed);
    case Type::kS16:
      return close<short>(x, y, bytes, allowed);
    case Type::kU32:
      return close<unsigned>(x, y, bytes, allowed);
    case Type::kS32:
      return close<int>(x, y, bytes, allowed);
    case Type::kU64:
      return close<unsigned long long>(x, y, bytes, allowed);
    default:
      return close<long long>(x, y, bytes, allowed);
  }
}

std::vector<Family (*)()>& list() {
  static std::vector<Family (*)()> families;
  return families;
}

// Restored destinations come from stretches of the source in turn: 16, and of short arrays as many as 128 KiB hold, or
// a branch predictor would learn the data.
size_t stretches_of(size_t bytes) {
  bytes = std::max<size_t>(bytes, 1);
  return std::max<size_t>(1, std::min<size_t>(std::max<size_t>(16, kBytesL2 / bytes), kLargest / bytes));
}

// One run of a participant.
inline void run_once(const Participant& p, unsigned& turn) {
  if (p.stretches == 0) {
    p.call ? static_cast<void>(p.call(&p.operands)) : p.loop(&p.operands);
    return;
  }
  const Operands& o = p.operands;
  const size_t bytes = static_cast<size_t>(o.n[3]);
  memcpy(o.d, static_cast<const char*>(o.a) + turn * bytes, bytes);
  if (++turn == p.stretches) turn = 0;
  p.call ? static_cast<void>(p.call(&o)) : p.loop(&o);
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
  int e() const { return d + 1344; }
};

Registration::Registration(Family (*make)()) { list().push_back(make); }
const std::vector<Family (*)()>& families() { return list(); }

Harness::Harness(std::string variant, bool quick, std::string only)
    : variant_(std::move(variant)), only_(std::move(only)), quick_(quick) {
  const size_t bytes = kFront + kLargest + 17 * 4096;
  for (char*& array : arrays_) {
    void* p = mmap(nullptr, kMapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (p == MAP_FAILED) abort();
    madvise(p, kMapped, MADV_HUGEPAGE);
    array = static_cast<char*>(p) + kFront;
    fill(p, bytes, kDouble, kPlain);
  }
  taps_.resize(2 * kMaxTaps);
  fill(taps_.data(), taps_.size() * sizeof(double), kDouble, kPlain);
  peers_ = {&nox_peers_libc, &nox_peers_memset};
}

void Harness::load_peers(const std::string& module) {
  void* handle = dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle) {
    note(std::string("peers not loaded: ") + dlerror());
    return;
  }
  const PeerSet* const* sets = nullptr;
  const int count = reinterpret_cast<int (*)(const PeerSet* const**)>(dlsym(handle, "nox_peer_sets"))(&sets);
  peers_.insert(peers_.end(), sets, sets + count);
}

void Harness::note(const std::string& text) {
  fprintf(stderr, "%s: %s\n", variant_.c_str(), text.c_str());
  notes_.push_back(text);
}

void* Harness::arena(size_t participant) {
  while (arenas_.size() <= participant) {
    void* p = mmap(nullptr, arenas_.empty() ? kOurArena : kArena, PROT_READ | PROT_WRITE,
                   MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (p == MAP_FAILED) abort();
    arenas_.push_back(p);
  }
  return arenas_[participant];
}

void Harness::refill(const Row& row, const Operands& o) {
  const Element source = row.primitive.source, destination = row.primitive.destination;
  const size_t len = static_cast<size_t>(o.len);
  const size_t read = len * static_cast<size_t>(source.size), written = len * static_cast<size_t>(destination.size);
  const auto standard = [&](Data data, Element e) {
    if (data != kStandard) return data;
    if (!e.floating()) return kWhole;
    return !in_place(row) ? kPlain : e.complex ? kUnitCircle : kNearOne;
  };
  const Data a = standard(row.source, source), b = standard(row.second, source);
  const size_t stretches = row.traits & kRestores ? stretches_of(read) : 1;
  // Filters read in front of the source; there the pattern of doubles stands that whole pages begin with.
  if (a != kSorted && a != kShuffled)
    fill(static_cast<char*>(const_cast<void*>(o.a)) - kFront / 2, kFront / 2, source, a);
  fill(const_cast<void*>(o.a), read * stretches, source, a);
  fill(const_cast<void*>(o.b), read, source, b);
  const Data d = row.into == kStandard ? kOnes : row.into;
  fill(o.d, written, destination, d);
  if (row.traits & kTwoOutputs || written <= kBytesToCheck) fill(o.e, written, destination, d);
}

NoxStatus Harness::prepare(const Row& row, const Participant& p) {
  if (p.prepare) p.prepare(&p.operands);
  return p.call && row.preparation ? row.preparation(&p.operands) : noxStsNoErr;
}

bool Harness::agree(const Row& row, Group& group) {
  const Element element = row.primitive.destination;
  const size_t len = static_cast<size_t>(row.compared >= 0 ? row.compared : group.len);
  const size_t bytes = len * static_cast<size_t>(element.size);
  std::vector<char> expected(bytes), expected_other(bytes);
  bool all = true;
  for (const Participant& p : group.participants) {
    if (p.who.rfind("limit", 0) == 0 || p.who == "memset") continue;
    const Operands& o = p.operands;
    refill(row, o);
    prepare(row, p);
    unsigned turn = 0;
    run_once(p, turn);
    if (p.call) {
      memcpy(expected.data(), o.d, bytes);
      memcpy(expected_other.data(), o.e, bytes);
      continue;
    }
    const bool agrees = same(expected.data(), static_cast<const char*>(o.d), bytes, element, row.allowed) &&
                        (!(row.traits & kTwoOutputs) ||
                         same(expected_other.data(), static_cast<const char*>(o.e), bytes, element, row.allowed));
    if (!agrees) note(group.name + " at " + std::to_string(group.len) + ": " + p.who + " computes something else");
    all = all && agrees;
  }
  return all;
}

void Harness::add(Group& group, Participant participant) {
  participant.operands.work = arena(group.participants.size());
  group.participants.push_back(std::move(participant));
}

void Harness::run_at(const Family& family, const Row& row, int len, const Place& place) {
  const Primitive& primitive = row.primitive;
  const Element element = primitive.destination;
  const int bytes = len * element_of(row);
  Operands o{arrays_[0] + place.a,
             arrays_[1] + place.b,
             arrays_[2] + place.d,
             arrays_[3] + place.e(),
             len,
             {},
             {},
             taps_.data(),
             nullptr};
  std::copy(row.numbers, row.numbers + 4, o.n);
  if (row.traits & kRestores) o.n[3] = len * primitive.source.size;
  if (row.has_c)
    o.c[0] = row.c[0], o.c[1] = row.c[1];
  else if (!element.floating())
    o.c[0] = 7, o.c[1] = 9;
  else if (element.complex)
    o.c[0] = 0.6, o.c[1] = 0.8;
  else
    o.c[0] = 1 + 1e-9;

  const size_t stretches = row.traits & kRestores ? stretches_of(static_cast<size_t>(len * primitive.source.size)) : 0;
  Group group{family.name, row.shown, place.name, shape_of(row), len, element_of(row), row.flop, {}};
  refill(row, o);
  add(group, {"nox", nullptr, primitive.call, o, nullptr, stretches});
  const Participant& ours = group.participants[0];
  NoxStatus st = prepare(row, ours);
  unsigned turn = 0;
  if (stretches > 0) run_once(ours, turn);
  if (!st) st = primitive.call(&ours.operands);
  if (st < 0) {
    note(group.name + " skipped: status " + std::to_string(st));
    return;
  }
  const bool aligned = strcmp(place.name, "aligned") == 0;
  for (const PeerSet* set : peers_) {
    if (const NamedLoop* loop = find(*set, row.name))
      add(group, {set->who, loop->run, nullptr, o, loop->prepare, stretches});
    if (strncmp(set->who, "limit", 5) != 0) continue;
    if (strcmp(set->who, "limit-nt") == 0 && (bytes < kBytesPastCaches || !aligned)) continue;
    if (const NamedLoop* loop = find(*set, group.shape)) {
      Operands limit = o;
      limit.len = static_cast<int>(row.flop > 0 ? row.flop * len / 1000 : traffic_of(row, len) / 8);
      add(group, {set->who, loop->run, nullptr, limit, nullptr, 0});
    }
  }
  if (bytes <= kBytesToCheck && !agree(row, group)) {
    ++failures_;
    return;
  }
  refill(row, o);
  for (const Participant& p : group.participants) prepare(row, p);
  measure(group);
}

// The standard lengths, how many of them depends on the run: 128 KiB not in a quick one, 32 MiB only for rows that ask
// for it and under the builds with targets, in a quick run under the highest.
void Harness::run(const Family& family) {
  static const Place kAligned = {"aligned", 0, 1344, 2688};
  static const Place kOthers[] = {
      {"offset 8", 8, 1344 + 24, 2688 + 16}, {"offset 4", 4, 1344 + 4, 2688 + 4}, {"aliased", 0, 0, 64}};
  title(family.name, family.title);
  for (const Row& row : family.rows) {
    if (!wanted(row.shown)) continue;
    const int element = element_of(row);
    if (!row.own_lengths.empty()) {
      for (const int len : row.own_lengths) run_at(family, row, len, kAligned);
    } else if (row.traits & kSizes) {
      for (const int bytes : kBlockSizes) run_at(family, row, bytes / element, kAligned);
    } else {
      run_at(family, row, kElementsL1, kAligned);
      if (!quick_) run_at(family, row, kBytesL2 / element, kAligned);
      if (row.traits & kMemory && (variant_ == "h9" || (!quick_ && variant_ == "w7")))
        run_at(family, row, kLargest / element, kAligned);
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
      unsigned turn = 0;
      if (p.stretches > 0)
        for (auto _ : state) run_once(p, turn);
      else if (p.call)
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
  fprintf(f, "],\n \"families\": {");
  for (size_t i = 0; i < titles_.size(); ++i)
    fprintf(f, "%s\"%s\": \"%s\"", i ? ", " : "", titles_[i].first.c_str(), titles_[i].second.c_str());
  fprintf(f, "},\n \"facts\": {");
  for (size_t i = 0; i < facts_.size(); ++i)
    fprintf(f, "%s\"%s\": %.6g", i ? ", " : "", facts_[i].first.c_str(), facts_[i].second);
  fprintf(f, "},\n \"rows\": [\n");
  for (size_t i = 0; i < results_.size(); ++i)
    fprintf(f, "  %s%s\n", results_[i].c_str(), i + 1 < results_.size() ? "," : "");
  fprintf(f, "]}\n");
  return f == stdout ? fflush(f) == 0 : fclose(f) == 0;
}
