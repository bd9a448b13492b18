// The table of declarations and its look-ups.
#include "kit/declarations.hpp"

#include <sstream>
#include <unordered_map>

#include "nox/nox.h"

namespace kit {

size_t size_of(Type type) {
  switch (type) {
    case Type::Void:
      return 0;
    case Type::Nox8u:
    case Type::Nox8s:
      return 1;
    case Type::Nox16u:
    case Type::Nox16s:
    case Type::Nox16f:
      return 2;
    case Type::Int:
    case Type::Unsigned_int:
    case Type::NoxStatus:
    case Type::Nox32u:
    case Type::Nox32s:
    case Type::Nox32f:
    case Type::Nox16sc:
      return 4;
    case Type::Pointer:
      return sizeof(void*);
    case Type::NoxLibraryVersion:
      return sizeof(::NoxLibraryVersion);
    case Type::Nox64u:
    case Type::Nox64s:
    case Type::Nox64f:
    case Type::Nox32sc:
    case Type::Nox32fc:
      return 8;
    case Type::Nox64sc:
    case Type::Nox64fc:
      return 16;
  }
  return 0;
}

bool Declaration::is_index_form() const { return name.size() > 4 && name.compare(name.size() - 4, 4, "_Idx") == 0; }

int Declaration::find(const std::string& parameter) const {
  for (size_t i = 0; i < parameters.size(); ++i)
    if (parameters[i].name == parameter) return static_cast<int>(i);
  return -1;
}

const std::vector<Declaration>& declarations() {
  static const std::vector<Declaration> table = {
#include "declarations.inc"
  };
  return table;
}

const Declaration* find_declaration(const std::string& name) {
  static const auto by_name = [] {
    std::unordered_map<std::string, const Declaration*> map;
    for (const Declaration& d : declarations()) map[d.name] = &d;
    return map;
  }();
  const auto found = by_name.find(name);
  return found == by_name.end() ? nullptr : found->second;
}

const Declaration* find_declaration(const void* address) {
  static const auto by_address = [] {
    std::unordered_map<const void*, const Declaration*> map;
    for (const Declaration& d : declarations())
      if (d.address) map[d.address] = &d;
    return map;
  }();
  const auto found = by_address.find(address);
  return found == by_address.end() ? nullptr : found->second;
}

std::string name_of(const void* address) {
  if (const Declaration* d = find_declaration(address)) return d->name;
  std::ostringstream digits;
  digits << "function at " << address;
  return digits.str();
}

}  // namespace kit
