// The library's declarations as data: every exported function and every primitive with a row of its own.
//
// The rows come from the generator that also makes stubs and index forms, so a function that is declared is here,
// and what is tested from this table needs no list by hand.
#pragma once
#include <string>
#include <vector>

namespace kit {

enum class Kind { Array, Pointer, Value };

enum class Type {
  Void,
  Int,
  Unsigned_int,
  Pointer,
  NoxStatus,
  NoxLibraryVersion,
  Nox8u,
  Nox8s,
  Nox16u,
  Nox16s,
  Nox16f,
  Nox32u,
  Nox32s,
  Nox32f,
  Nox64u,
  Nox64s,
  Nox64f,
  Nox16sc,
  Nox32sc,
  Nox64sc,
  Nox32fc,
  Nox64fc,
};

// Bytes of a value of the type, as an argument or as an element of an array.
size_t size_of(Type type);

struct Parameter {
  const char* name;
  Kind kind;
  Type type;  // of the element, for an array; of what is behind a pointer, Pointer for a record
  bool constant;
  bool nullable;
};

struct Declaration {
  std::string name;
  void* address;  // null for a primitive that has no export
  int row;        // in the dispatch table, -1 for a function with one body
  Type result;
  bool equal;  // its comment says that all builds give the same bits
  std::vector<Parameter> parameters;

  bool is_index_form() const;
  // Place of the parameter among the parameters, -1 if there is none of that name.
  int find(const std::string& parameter) const;
};

const std::vector<Declaration>& declarations();
// Null if there is none.
const Declaration* find_declaration(const std::string& name);
const Declaration* find_declaration(const void* address);
// Name for messages: the export's, or the address in digits.
std::string name_of(const void* address);

}  // namespace kit
