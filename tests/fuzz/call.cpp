// Making a call: values, contents, places, the call itself, and the rules that hold without a reference.
#include "fuzz/call.hpp"

#include <algorithm>
#include <cstdio>

#include "nox/nox.h"

namespace fuzz {
namespace {

template <class T>
std::vector<uint8_t> elements(kit::Random& random, size_t n, int style) {
  std::vector<uint8_t> bytes(n * sizeof(T));
  for (size_t i = 0; i < n; ++i) {
    T v;
    if (style == 0)
      v = random.value<T>(-2, 2);
    else if (style == 1)
      v = random.special<T>();
    else
      for (size_t b = 0; b < sizeof v; ++b) reinterpret_cast<uint8_t*>(&v)[b] = static_cast<uint8_t>(random.bits());
    std::memcpy(bytes.data() + i * sizeof v, &v, sizeof v);
  }
  return bytes;
}

std::vector<uint8_t> elements(kit::Random& random, Type type, size_t n, int style) {
  switch (type) {
    case Type::Nox64f:
    case Type::Nox64fc:
      return elements<Nox64f>(random, n * kit::size_of(type) / 8, style);
    case Type::Nox32f:
    case Type::Nox32fc:
      return elements<Nox32f>(random, n * kit::size_of(type) / 4, style);
    case Type::Nox8u:
    case Type::Nox8s:
      return elements<Nox8u>(random, n, style);
    case Type::Nox16s:
    case Type::Nox16u:
    case Type::Nox16sc:
      return elements<Nox16s>(random, n * kit::size_of(type) / 2, style);
    case Type::Nox64s:
    case Type::Nox64u:
    case Type::Nox64sc:
      return elements<Nox64s>(random, n * kit::size_of(type) / 8, style);
    default:
      return elements<Nox32s>(random, n * kit::size_of(type) / 4, style);
  }
}

bool is_length(const std::string& name) { return name == "len" || name == "n" || name == "numIters"; }

}  // namespace

Call::Call(Run& r, const Declaration& d)
    : run(r),
      declaration(d),
      wild(r.random.chance(d.equal ? 0.5 : 0.25)),
      equal(d.equal),
      tolerance(tolerance_of(d)),
      arguments_(d.parameters.size()) {
  const int n = run.length(d.result == Type::NoxStatus ? 1 : 0);
  for (size_t i = 0; i < arguments_.size(); ++i) {
    const kit::Parameter& p = d.parameters[i];
    if (p.kind != Kind::Value)
      arguments_[i].elements = p.kind == Kind::Array ? n : 1;
    else if (is_length(p.name))
      set(i, n);
    else
      choose_value(i);
  }
  // What isn't compared with the other builds is compared by status alone where a NaN may spread as it likes.
  if (wild && (!d.equal || follows_address(d))) compared = false;
}

size_t Call::index(const std::string& name) const {
  const int i = declaration.find(name);
  if (i < 0) throw std::logic_error(declaration.name + " has no parameter " + name);
  return static_cast<size_t>(i);
}

void Call::choose_value(size_t i) {
  const kit::Parameter& p = declaration.parameters[i];
  const std::string name = p.name;
  if (declaration.is_index_form() && i > 0 && declaration.parameters[i - 1].kind == Kind::Array) {
    set(i, static_cast<int>(run.random.integer(-70000, 70000)));
  } else if (name == "scaleFactor") {
    const int near = static_cast<int>(run.random.integer(-34, 70)), any = run.any_int();
    set(i, run.random.chance(0.7) ? near % 12 : run.random.chance(0.7) ? near : any);
  } else if (name == "relOp" || name == "code") {
    set(i, run.code({0, 1, 2, 3, 4, 5}));
  } else {
    const std::vector<uint8_t> v = elements(run.random, p.type, 1, wild && run.random.chance(0.5) ? 1 : 0);
    arguments_[i].words.assign((v.size() + 3) / 4, 0);
    std::memcpy(arguments_[i].words.data(), v.data(), v.size());
    // Small integers come extended.
    if (p.type == Type::Nox16s) set(i, int{static_cast<Nox16s>(arguments_[i].words[0])});
    if (p.type == Type::Int) set(i, run.code({0, 1, 2, 3}));
  }
}

std::vector<Nox32s> Call::places(int n, int below) {
  kit::Random r(run.random.bits());
  std::vector<Nox32s> out(static_cast<size_t>(n));
  for (Nox32s& x : out) x = static_cast<Nox32s>(r.integer(0, below - 1));
  return out;
}

void Call::fill(size_t i) {
  Argument& a = arguments_[i];
  kit::Random random(run.random.bits());
  const int style = wild ? static_cast<int>(run.random.integer(0, 2)) : run.random.chance(0.3) && equal;
  if (a.content.empty() && a.elements > 0)
    a.content = elements(random, declaration.parameters[i].type, static_cast<size_t>(a.elements), style);
  for (size_t at = 0; tame && at + 8 <= a.content.size(); at += 8) {
    Nox64f v;
    std::memcpy(&v, a.content.data() + at, sizeof v);
    if (v == 0 || v != v) std::memset(a.content.data() + at, 0, sizeof v);
  }
  a.content.resize(static_cast<size_t>(a.elements) * kit::size_of(declaration.parameters[i].type));
}

// A source may be the destination; and sometimes they overlap, which is allowed to give anything but must stay inside.
void Call::share_memory() {
  const double kind = run.random.uniform(0, 1);
  const int shift = static_cast<int>(run.random.integer(-40, 40));
  if (!may_alias || kind > 0.25) return;
  for (size_t i = 0; i < arguments_.size(); ++i)
    for (size_t k = 0; k < arguments_.size(); ++k) {
      const kit::Parameter &s = declaration.parameters[i], &d = declaration.parameters[k];
      if (s.kind != Kind::Array || d.kind != Kind::Array || !s.constant || d.constant ||
          kit::size_of(s.type) != kit::size_of(d.type) || arguments_[i].elements != arguments_[k].elements)
        continue;
      arguments_[i].alias = static_cast<int>(k);
      if (kind < 0.05) overlapping_ = (arguments_[i].shift = shift) != 0;
      if (run.random.chance(0.7)) return;
      break;
    }
}

void Call::spoil() {
  const bool wanted = run.random.chance(0.06);
  const size_t at = static_cast<size_t>(run.random.integer(0, static_cast<int64_t>(arguments_.size()) - 1));
  const int bad = run.code({0, -1, INT32_MIN}, 0);
  if (!wanted || declaration.result != Type::NoxStatus || reason_to_skip(declaration)) return;
  // These test nothing.
  if (declaration.name.find("Every_") != std::string::npos && declaration.is_index_form()) return;
  if (declaration.name == "noxsSet_64f_Idx") return;
  spoilt_ = true;
  if (is_array(at)) {
    // An index form reaches a null address by a null base and no index.
    arguments_[at].null = true;
    if (declaration.is_index_form() && declaration.parameters[at].kind == Kind::Array) set(at + 1, 0);
  } else if (is_length(declaration.parameters[at].name)) {
    set(at, bad);
  }
}

// Memory for every pointer, or a part of another's, and the words that lead there.
void Call::place() {
  for (size_t i = 0; i < arguments_.size(); ++i) {
    Argument& a = arguments_[i];
    if (!is_array(i) || a.alias >= 0) continue;
    const int64_t size = static_cast<int64_t>(kit::size_of(declaration.parameters[i].type));
    int64_t before = 0, behind = 0;
    for (const Argument& other : arguments_)
      if (other.alias == static_cast<int>(i)) {
        before = std::max(before, -other.shift * size);
        behind = std::max(behind, other.shift * size);
      }
    Memory& m = run.memory(declaration.parameters[i].name, a.content.size() + static_cast<size_t>(before + behind));
    m.guarded.fill_with(0x11);
    a.data = m.data() + before;
    for (Argument& other : arguments_)
      if (other.alias == static_cast<int>(i)) {
        other.data = a.data + other.shift * size;
        std::copy(other.content.begin(), other.content.end(), other.data);
      }
    std::copy(a.content.begin(), a.content.end(), a.data);
    m.remember();
  }
  for (size_t i = 0; i < arguments_.size(); ++i) {
    if (!is_array(i)) continue;
    const int64_t size = static_cast<int64_t>(kit::size_of(declaration.parameters[i].type));
    uint8_t* p = arguments_[i].data;
    const bool indexed = declaration.is_index_form() && declaration.parameters[i].kind == Kind::Array;
    if (p) p += arguments_[i].first * size;
    // One index is told to be ignored.
    if (indexed && !arguments_[i].null && declaration.parameters[i + 1].name != std::string("divIdx"))
      p -= static_cast<int64_t>(static_cast<int32_t>(arguments_[i + 1].words[0])) * size;
    set(i, arguments_[i].null ? nullptr : p);
  }
}

std::string Call::text() const {
  std::string out = declaration.name + "(";
  for (size_t i = 0; i < arguments_.size(); ++i) {
    const Argument& a = arguments_[i];
    if (i) out += ", ";
    out += declaration.parameters[i].name;
    if (is_array(i)) {
      out += a.null ? " null" : "[" + std::to_string(a.elements) + "]";
      if (a.alias >= 0) out += std::string(" = ") + declaration.parameters[static_cast<size_t>(a.alias)].name;
      if (a.shift) out += " + " + std::to_string(a.shift);
      continue;
    }
    const Type t = declaration.parameters[i].type;
    Nox64f real = 0;
    if (a.words.size() > 1) std::memcpy(&real, a.words.data(), 8);
    out += " " + (t == Type::Nox64f || t == Type::Nox64fc ? std::to_string(real)
                                                          : std::to_string(static_cast<int32_t>(a.words[0])));
  }
  return out + ")";
}

int Call::perform() {
  std::vector<uint32_t> words;
  for (const Argument& a : arguments_) words.insert(words.end(), a.words.begin(), a.words.end());
  const kit::Returns returns = declaration.result == Type::Void     ? kit::Returns::Nothing
                               : declaration.result == Type::Nox64f ? kit::Returns::Real
                                                                    : kit::Returns::Integer;
  __builtin_ia32_ldmxcsr(0x1F80);  // no flag is left from before: one function looks at them
  const kit::ProbeResult result = kit::probe(declaration.address, words.data(), words.size(), returns);
  if (returns == kit::Returns::Real) run.note_value("result", Type::Nox64f, &result.real);
  return returns == kit::Returns::Integer ? static_cast<int>(result.integer) : 0;
}

void Call::check_sources() {
  for (size_t i = 0; i < arguments_.size(); ++i) {
    const Argument& a = arguments_[i];
    if (is_array(i) && declaration.parameters[i].constant && a.data && a.alias < 0 &&
        !std::equal(a.content.begin(), a.content.end(), a.data))
      run.fault(declaration.name + " wrote its source " + declaration.parameters[i].name);
  }
}

// An elementwise function in two calls, cut anywhere, gives what one call gives.
void Call::check_pieces() {
  size_t length = 0;
  for (size_t i = 0; i < arguments_.size(); ++i)
    if (is_length(declaration.parameters[i].name)) length = i;
  const int n = static_cast<int>(arguments_[length].words[0]);
  const int cut = static_cast<int>(run.random.integer(1, std::max(1, n - 1)));
  if (n < 2) return;
  std::vector<std::vector<uint8_t>> whole;
  for (const Argument& a : arguments_) whole.emplace_back(a.data, a.data + (a.data ? a.content.size() : 0));
  for (const Argument& a : arguments_)
    if (a.data && a.alias < 0) std::copy(a.content.begin(), a.content.end(), a.data);
  for (const auto& [from, to] : {std::pair<int, int>{0, cut}, {cut, n}}) {
    std::vector<Argument> kept = arguments_;
    for (size_t i = 0; i < arguments_.size(); ++i)
      if (declaration.parameters[i].kind == Kind::Array) {
        const uint32_t step = static_cast<uint32_t>(kit::size_of(declaration.parameters[i].type));
        arguments_[i].words[0] += step * static_cast<uint32_t>(from);
      }
    set(length, to - from);
    perform();
    arguments_ = std::move(kept);
  }
  for (size_t i = 0; i < arguments_.size(); ++i) {
    if (!arguments_[i].data) continue;
    Entry one{"whole", declaration.parameters[i].type, kBits, whole[i]}, two = one;
    two.what = "whole";
    two.bytes.assign(arguments_[i].data, arguments_[i].data + whole[i].size());
    const std::string d = compare_entries(one, two);
    if (!d.empty()) run.fault(declaration.name + " in two calls, cut at " + std::to_string(cut) + ": " + d);
  }
}

void Call::finish() {
  for (size_t i = 0; i < arguments_.size(); ++i)
    if (is_array(i)) fill(i);
  share_memory();
  spoil();
  place();
  run.calling(text());
  const int status = perform();
  if (status_compared && !overlapping_) run.note(declaration.name + " status", status);
  run.check_memories();
  check_sources();
  if (!may_write) run.error_leaves_alone(text(), status);
  const bool movable = declaration.name.rfind("noxsMove", 0) == 0;
  for (size_t i = 0; i < arguments_.size(); ++i) {
    const Argument& a = arguments_[i];
    if (!is_array(i) || declaration.parameters[i].constant || !a.data) continue;
    if (std::string(declaration.parameters[i].name) == "pBuffer") continue;  // for work
    const bool given = compared && (!overlapping_ || movable);
    run.note_array(declaration.name + " " + declaration.parameters[i].name, declaration.parameters[i].type, a.data,
                   a.content.size(),
                   !given  ? kUncompared
                   : equal ? kBits
                           : tolerance);
  }
  if (!spoilt_ && !overlapping_ && compared && status == 0 && equal && is_elementwise(declaration)) check_pieces();
}

namespace {

const std::vector<const Declaration*>& callable() {
  static const std::vector<const Declaration*> functions = [] {
    std::vector<const Declaration*> out;
    for (const Declaration& d : kit::declarations())
      if (d.address && !reason_to_skip(d)) out.push_back(&d);
    return out;
  }();
  return functions;
}

}  // namespace

std::string only_function;

size_t callable_functions() { return callable().size(); }

void any_function(Run& run) {
  const size_t at = static_cast<size_t>(run.random.integer(0, static_cast<int64_t>(callable().size()) - 1));
  const Declaration* d = callable()[at];
  if (!only_function.empty()) d = kit::find_declaration(only_function);
  if (!d) throw std::invalid_argument("there is no function " + only_function);
  Call call(run, *d);
  shape(call);
  call.finish();
}

}  // namespace fuzz
