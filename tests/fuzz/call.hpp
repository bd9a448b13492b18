// A random call of a function, made from its declaration.
//
// Every parameter is given something by its type and name; then the shape of the function's family says how long the
// arrays are and which values make sense. A length is len, n or numIters, and arrays have as many elements, unless the
// shape says otherwise. Index forms have the parameters of their primitives, and an index behind each array.
#pragma once
#include <string>
#include <vector>

#include "fuzz/run.hpp"

namespace fuzz {

struct Argument {
  std::vector<uint32_t> words;
  int64_t elements = 0;  // behind a pointer
  int64_t first = 0;     // the element that the pointer names
  std::vector<uint8_t> content;
  bool null = false;
  int alias = -1;  // argument whose memory this one shares
  int64_t shift = 0;
  uint8_t* data = nullptr;
};

class Call {
 public:
  Call(Run& r, const Declaration& d);

  Run& run;
  const Declaration& declaration;
  bool wild;             // infinities, NaN and the like among the elements
  bool equal;            // in all builds
  bool compared = true;  // results are the same in all builds
  bool status_compared = true;
  bool tame = false;       // no NaN and no negative zero, though wild
  bool may_write = false;  // although it returns an error
  bool may_alias = true;
  double tolerance;

  bool has(const std::string& name) const { return declaration.find(name) >= 0; }
  Argument& operator[](const std::string& name) { return arguments_[index(name)]; }
  Type type(const std::string& name) const { return declaration.parameters[index(name)].type; }
  bool is_array(size_t i) const { return declaration.parameters[i].kind != Kind::Value; }

  template <class T>
  void set(size_t i, const T& value) {
    arguments_[i].words.assign((sizeof value + 3) / 4, 0);
    std::memcpy(arguments_[i].words.data(), &value, sizeof value);
  }
  void set(const std::string& name, int value) { set(index(name), value); }
  void set(const std::string& name, Nox64f value) { set(index(name), value); }
  void set_if(const std::string& name, int value) {
    if (has(name)) set(name, value);
  }
  int get(const std::string& name) { return static_cast<int>((*this)[name].words[0]); }
  void extent(const std::string& name, int64_t elements) {
    if (has(name)) (*this)[name].elements = elements;
  }
  void all_extents(int64_t elements) {
    for (size_t i = 0; i < arguments_.size(); ++i)
      if (declaration.parameters[i].kind == Kind::Array) arguments_[i].elements = elements;
  }
  // Elements of an array, to be had before the rest are made.
  template <class T>
  void content(const std::string& name, const std::vector<T>& values) {
    Argument& a = (*this)[name];
    a.elements = static_cast<int64_t>(values.size());
    a.content.resize(values.size() * sizeof(T));
    if (!values.empty()) std::memcpy(a.content.data(), values.data(), a.content.size());
  }
  std::vector<Nox32s> places(int n, int below);

  // Contents, sharing of memory, bad arguments; the call; what must hold after it.
  void finish();

 private:
  size_t index(const std::string& name) const;
  void choose_value(size_t i);
  void fill(size_t i);
  void share_memory();
  void spoil();
  void place();
  int perform();
  void check_sources();
  void check_pieces();
  std::string text() const;

  std::vector<Argument> arguments_;
  bool overlapping_ = false, spoilt_ = false;
};

// The shape of the function's family, applied to the call.
void shape(Call& call);
// Whether the name begins with one of the beginnings, which bars divide.
bool begins(const std::string& name, const std::string& beginnings);
// An element's result depends on the same element of the sources alone, and all arrays have the length's elements.
bool is_elementwise(const Declaration& d);
// Where a NaN stands among the lanes, and with it the result, follows from the source's address.
bool follows_address(const Declaration& d);
// Why the function isn't called by itself; null if it is.
const char* reason_to_skip(const Declaration& d);
double tolerance_of(const Declaration& d);

}  // namespace fuzz
