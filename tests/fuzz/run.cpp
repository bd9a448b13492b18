// Lengths, places and the comparison of logs.
#include "fuzz/run.hpp"

#include <cmath>
#include <cstdio>
#include <sstream>

namespace fuzz {

Run::Run(const kit::Variant& v, const Origin& o)
    : random(o.iteration), variant(v), origin(o), places_(o.iteration * 8 + 0x500 + static_cast<unsigned>(v.column)) {}

int Run::length(int least, int most) {
  static constexpr int kAround[] = {8, 16, 32, 64, 128, 256, 512, 1024, 2048, 4096};
  int64_t n;
  const double kind = random.uniform(0, 1);
  const int64_t small = random.integer(0, 40), around = kAround[random.integer(0, 9)] + random.integer(-2, 2),
                large = random.integer(41, 6000);
  if (kind < 0.5)
    n = small;
  else
    n = kind < 0.8 ? around : large;
  if (origin.cap > 0 && n > origin.cap) n %= origin.cap + 1;
  return static_cast<int>(std::min<int64_t>(std::max<int64_t>(n, least), most));
}

int Run::any_int() {
  static constexpr int kRemarkable[] = {0, -1, 1, 2, INT32_MAX, INT32_MIN, -5, 1 << 28, 1 << 30, 0x10000};
  const int any = static_cast<int>(random.bits()), remarkable = kRemarkable[random.integer(0, 9)];
  return random.chance(0.5) ? remarkable : any >> random.integer(0, 31);
}

int Run::code(std::initializer_list<int> good, double bad) {
  const int wrong = any_int();
  const int right = good.begin()[random.integer(0, static_cast<int64_t>(good.size()) - 1)];
  return random.chance(bad) ? wrong : right;
}

Memory& Run::memory(const std::string& name, size_t bytes) {
  const kit::Edge edge = places_.chance(0.5) ? kit::Edge::End : kit::Edge::Start;
  const size_t misalign = places_.chance(0.4) ? 0 : static_cast<size_t>(places_.integer(0, 66));
  memories_.push_back({name, kit::Guarded<uint8_t>(bytes, edge, misalign), {}});
  if (origin.verbose)
    std::printf("  %s: %zu bytes at %p\n", name.c_str(), bytes, static_cast<void*>(memories_.back().data()));
  return memories_.back();
}

uint8_t* Run::room(const std::string& name, int bytes) {
  if (bytes < 0) fault(name + ": a size below 0 was told");
  Memory& m = memory(name, static_cast<size_t>(std::max(bytes, 0)));
  m.guarded.fill_with(static_cast<uint8_t>(places_.bits()));
  return m.data();
}

void Run::calling(const std::string& call) const {
  set_crash_line(std::string(variant.tag) + ", iteration " + std::to_string(origin.iteration) + ", " + call);
  if (origin.verbose) {
    std::printf("  %s: %s\n", variant.tag, call.c_str());
    std::fflush(stdout);
  }
}

void Run::note_value(const std::string& what, Type type, const void* value) {
  note_array(what, type, value, kit::size_of(type));
}

void Run::note_array(const std::string& what, Type type, const void* data, size_t bytes, double tolerance) {
  const uint8_t* const p = static_cast<const uint8_t*>(data);
  log.push_back({what, type, tolerance, {p, p + bytes}});
}

void Run::check_memories() {
  for (Memory& m : memories_) {
    if (m.guarded.canaries_intact()) continue;
    fault("bytes beside " + m.name + " were written");
    m.guarded.check();  // renews them
  }
}

bool Run::error_leaves_alone(const std::string& name, int status) {
  if (status >= 0) return true;
  for (const Memory& m : memories_)
    if (m.changed()) {
      fault(name + " wrote " + m.name + " in spite of status " + std::to_string(status));
      return false;
    }
  return true;
}

namespace {

template <class T>
T element(const Entry& e, size_t i) {
  T v;
  std::memcpy(&v, e.bytes.data() + i * sizeof(T), sizeof v);
  return v;
}

// Complex arrays are compared as arrays of their parts.
template <class T>
std::string compare(const Entry& a, const Entry& b) {
  const size_t n = a.bytes.size() / sizeof(T);
  double largest = 0.1;  // inputs are about 1
  for (size_t i = 0; i < n; ++i) {
    const double m = std::abs(static_cast<double>(element<T>(a, i)));
    if (std::isfinite(m)) largest = std::max(largest, m);
  }
  for (size_t i = 0; i < n; ++i) {
    const T x = element<T>(a, i), y = element<T>(b, i);
    if (kit::same_value(x, y)) continue;
    const double off = std::abs(static_cast<double>(x) - static_cast<double>(y));
    const double allowed = a.tolerance * largest;
    if (a.tolerance > 0 && off <= (std::is_integral_v<T> ? std::max(1.0, allowed) : allowed)) continue;
    std::ostringstream out;
    out << a.what << ": element " << i << " of " << n << ": " << kit::describe(x) << " against " << kit::describe(y);
    if (a.tolerance > 0) out << ", off by " << off / largest << " of the largest";
    return out.str();
  }
  return "";
}

}  // namespace

std::string compare_entries(const Entry& a, const Entry& b) {
  if (a.what != b.what || a.type != b.type || a.bytes.size() != b.bytes.size())
    return "the scenario went different ways: " + a.what + " against " + b.what;
  if (a.tolerance == kUncompared || b.tolerance == kUncompared) return "";
  switch (a.type) {
    case Type::Nox64f:
    case Type::Nox64fc:
      return compare<double>(a, b);
    case Type::Nox32f:
    case Type::Nox32fc:
      return compare<float>(a, b);
    case Type::Nox8u:
      return compare<uint8_t>(a, b);
    case Type::Nox16s:
    case Type::Nox16sc:
      return compare<int16_t>(a, b);
    case Type::Nox32s:
    case Type::Nox32sc:
    case Type::Int:
      return compare<int32_t>(a, b);
    case Type::Nox64s:
    case Type::Nox64sc:
      return compare<int64_t>(a, b);
    default:
      return a.bytes == b.bytes ? "" : compare<uint8_t>(a, b);
  }
}

std::string difference(const Run& a, const Run& b) {
  std::string out;
  for (size_t i = 0; i < std::min(a.log.size(), b.log.size()) && out.empty(); ++i)
    out = compare_entries(a.log[i], b.log[i]);
  if (out.empty() && a.log.size() != b.log.size()) out = "the scenario went different ways";
  return out.empty() ? "" : std::string(a.variant.tag) + " against " + b.variant.tag + ": " + out;
}

}  // namespace fuzz
