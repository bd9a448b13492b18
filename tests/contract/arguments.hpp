// Arguments for any function of the library, made from its declaration.
//
// Every array and pointer gets memory of its own filled with a pattern, every value something harmless; a test then
// changes what it is about and calls through the probe.
#pragma once
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "kit/call.hpp"
#include "kit/declarations.hpp"
#include "kit/guarded.hpp"
#include "kit/random.hpp"
#include "nox/filter.h"

namespace contract {

using kit::Declaration;
using kit::Kind;
using kit::Type;

constexpr size_t kBytes = 1024;  // of each array
constexpr size_t kPattern = 0x5A;
constexpr int kGoodLength = 29;
constexpr int kGoodRows = 3;  // of a square matrix

inline bool is_length(const std::string& name) {
  return name == "len" || name == "numIters" || name == "tapsLen" || name == "n";
}
// 0 is a good bit offset, a negative one isn't.
inline bool is_bit_offset(const std::string& name) { return name == "srcBitOffset" || name == "dstBitOffset"; }

// The element index that belongs to the array in front of it.
inline bool is_index(const Declaration& d, size_t i) {
  return d.is_index_form() && i > 0 && d.parameters[i - 1].kind == Kind::Array;
}

class Arguments {
 public:
  explicit Arguments(const Declaration& d) : declaration_(d) {
    for (size_t i = 0; i < d.parameters.size(); ++i) {
      const kit::Parameter& p = d.parameters[i];
      values_.emplace_back(p.kind == Kind::Value ? (kit::size_of(p.type) + 3) / 4 : 1);
      memory_.emplace_back(p.kind == Kind::Value ? 0 : kBytes);
      if (p.kind != Kind::Value) {
        memory_[i].fill_with(kPattern);
        set_pointer(i, memory_[i].data());
      } else if (is_length(p.name)) {
        set(i, d.find("stride") >= 0 ? kGoodRows : kGoodLength);
      } else if (p.name == std::string("rows") || p.name == std::string("cols")) {
        set(i, kGoodRows);
      } else if (std::string(p.name).find("tride") != std::string::npos) {
        set(i, kGoodRows + 1);
      } else if (p.name == std::string("row2") || p.name == std::string("col2")) {
        set(i, 0);  // not the first one again
      } else if (p.name == std::string("tapsType")) {
        set(i, int{NOX_TYPE_64F});
      } else if (std::string(d.name).rfind("noxiFilter_64f", 0) == 0 && std::string(p.name).find("Step") == 3) {
        set(i, 64);  // a row of one pixel and its neighbours
      } else if (p.type == Type::Nox64f) {
        set(i, 0.75);
      } else if (p.type == Type::Nox64fc) {
        set(i, Nox64fc{0.75, -0.5});
      } else if (p.type == Type::Nox32f) {
        set(i, 0.75f);
      } else if (p.type == Type::Nox16s || p.type == Type::Nox32s) {
        set(i, 20);  // amid the elements
      } else {
        values_[i][0] = is_index(d, i) ? 0 : 1;
      }
    }
  }

  template <class T>
  void set(size_t i, const T& value) {
    std::memcpy(values_[i].data(), &value, sizeof value);
  }
  void set_pointer(size_t i, const void* p) { set(i, p); }
  uint8_t* memory(size_t i) { return memory_[i].data(); }

  kit::ProbeResult call(const void* fn) const {
    std::vector<uint32_t> words;
    for (const std::vector<uint32_t>& v : values_) words.insert(words.end(), v.begin(), v.end());
    const kit::Returns returns = declaration_.result == Type::Void     ? kit::Returns::Nothing
                                 : declaration_.result == Type::Nox64f ? kit::Returns::Real
                                                                       : kit::Returns::Integer;
    return kit::probe(fn, words.data(), words.size(), returns);
  }
  int status(const void* fn) const { return static_cast<int>(call(fn).integer); }

  // Name of an array whose pattern was changed, empty if there is none.
  std::string written() const {
    for (size_t i = 0; i < memory_.size(); ++i)
      for (const uint8_t b : memory_[i])
        if (b != kPattern) return declaration_.parameters[i].name;
    return "";
  }
  // Values of either sign, the extremes among them, NaN among the real ones and no zero among the integers, which may
  // be divisors. Indexes stay within the arrays.
  void fill(kit::Random& random) {
    for (size_t i = 0; i < memory_.size(); ++i) {
      const kit::Parameter& p = declaration_.parameters[i];
      if (std::string(p.name).rfind("ind", 0) == 0)
        fill_as<Nox32s>(memory_[i], random, 0, 7);
      else
        fill_memory(memory_[i], p.type, random);
    }
  }
  std::vector<std::vector<uint8_t>> contents() const {
    std::vector<std::vector<uint8_t>> out;
    for (const auto& m : memory_) out.push_back(m.values());
    return out;
  }
  void restore(const std::vector<std::vector<uint8_t>>& contents) {
    for (size_t i = 0; i < memory_.size(); ++i) memory_[i].fill(contents[i]);
  }

 private:
  template <class T>
  static void fill_as(kit::Guarded<uint8_t>& memory, kit::Random& random, int low = -60, int high = 60) {
    for (size_t at = 0; at + sizeof(T) <= memory.size(); at += sizeof(T)) {
      const size_t i = at / sizeof(T);
      const double size = i % 8 < 2 ? 0.3 : 2;  // some complex values have two small parts
      T v;
      if constexpr (std::is_floating_point_v<T>)
        v = i % 5 == 4 ? std::numeric_limits<T>::quiet_NaN() : static_cast<T>(random.uniform(-size, size));
      else
        do v = static_cast<T>(random.integer(low, high));
        while (v == 0 && low < 0);
      if (i % 8 >= 6 && i % 5 != 4)
        v = std::is_floating_point_v<T> ? static_cast<T>(i % 8 == 6 ? size : -size)
                                        : static_cast<T>(i % 8 == 6 ? high : low);
      std::memcpy(memory.data() + at, &v, sizeof v);
    }
  }
  static void fill_memory(kit::Guarded<uint8_t>& memory, Type type, kit::Random& random) {
    switch (type) {
      case Type::Nox64f:
      case Type::Nox64fc:
        return fill_as<double>(memory, random);
      case Type::Nox32f:
      case Type::Nox32fc:
        return fill_as<float>(memory, random);
      case Type::Nox64u:
      case Type::Nox64s:
      case Type::Nox64sc:
        return fill_as<Nox64s>(memory, random);
      case Type::Nox8u:
      case Type::Nox8s:
        return fill_as<Nox8u>(memory, random);
      case Type::Nox16u:
      case Type::Nox16s:
      case Type::Nox16f:
      case Type::Nox16sc:
        return fill_as<Nox16s>(memory, random);
      default:
        return fill_as<Nox32s>(memory, random);
    }
  }

  const Declaration& declaration_;
  std::vector<std::vector<uint32_t>> values_;  // words of each argument
  std::vector<kit::Guarded<uint8_t>> memory_;
};

}  // namespace contract
