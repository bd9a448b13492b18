// A row of the tables: one primitive and how it is measured; a family is a list of rows in a file of its own.
//
//   {PRIMITIVE(noxsAdd_64f)}                          everything follows from the signature
//   {PRIMITIVE(noxsAdd_64f), kPlaces}                 with traits
//   row<Nox16s, Nox64f>("noxsDoThat", [](const Operands* o) { return noxsDoThat(first<Nox16s>(o), ...); })
//       .n(3, "bits").data(kWhole).tolerance(1e-9)    any signature, anything else said
#pragma once
#include <initializer_list>
#include <string>
#include <vector>

#include "bench/primitive.hpp"

// What the arrays hold. Of integers kStandard is kWhole; of floating elements values from 0.5 to 2, or, if the
// primitive works in place, values that keep it from drifting out of range over a million calls.
enum Data {
  kStandard,
  kPlain,       // 0.5 to 2; integers 1 to 100
  kNearOne,     // 1 and a billionth; integers 1
  kUnitCircle,  // pairs of absolute value 1
  kOnes,        // complex: 1 + 0i
  kZeros,
  kSigned,        // -1 to 1; integers -100 to 100
  kWhole,         // the whole range of an integer; of floating elements powers of two times 1 to 2, both signs
  kSmall,         // integers 0 to 15, as values of any type
  kAngles,        // -10 to 10
  kMiddleAngles,  // -1000 to 1000
  kFarAngles,     // -2^30 to 2^30
  kPositive,      // above 0 to 100
  kSorted,        // ascending over the whole array
  kShuffled,      // the same in random order
};

enum Trait : unsigned {
  kSizes = 1,        // the series of block sizes instead of the standard lengths
  kPlaces = 2,       // also at misaligned and at aliased places
  kAccumulates = 4,  // reads its destination though it isn't an in-place form
  kMemory = 8,       // also 32 MiB an array: for what is bound by traffic
  kNoLimit = 16,     // bound by neither traffic nor arithmetic that a bare loop could show
  kReads = 32,       // writes a few values only: limited by reading its sources
  kTwoOutputs = 64,  // both destinations are compared
  kRestores = 128,   // destroys its destination: every run of every participant starts with a copy of `a` to `d`
};

struct Row {
  const char* name;  // of the primitive, which finds its peers
  Primitive primitive;
  unsigned traits = 0;

  std::string shown = name;        // in the tables
  std::vector<int> own_lengths{};  // in elements; empty: the standard ones
  Data source = kStandard, second = kStandard, into = kStandard;
  double c[2] = {};
  bool has_c = false;
  int numbers[4] = {}, count = 0;
  double flop = 0;                                      // per element, where bound by arithmetic
  int compared = -1;                                    // elements of the destination; -1: all
  double allowed = -1;                                  // relative to values above 1; negative: by the type
  NoxStatus (*preparation)(const Operands*) = nullptr;  // untimed, whenever the arrays have been filled

  // A number of the call, shown behind the name.
  Row& n(int value, const char* label) {
    numbers[count++] = value;
    shown += (count > 1 ? ", " : " ") + std::to_string(value) + " " + label;
    return *this;
  }
  Row& also(unsigned more) { return traits |= more, *this; }
  Row& called(const char* suffix) { return shown += std::string(" ") + suffix, *this; }
  Row& lengths(std::initializer_list<int> elements) { return own_lengths = elements, *this; }
  Row& data(Data a, Data b, Data d) { return source = a, second = b, into = d, *this; }
  Row& data(Data a, Data b) { return data(a, b, into); }
  Row& data(Data a) { return data(a, a, into); }
  Row& constants(double first, double next = 0) { return c[0] = first, c[1] = next, has_c = true, *this; }
  Row& flops(double per_element) { return flop = per_element, *this; }
  Row& results(int elements) { return compared = elements, *this; }
  Row& tolerance(double relative) { return allowed = relative, *this; }
  Row& prepare(NoxStatus (*f)(const Operands*)) { return preparation = f, *this; }
  Row& sources(int arrays) { return primitive.sources = arrays, *this; }
};

// A row of any signature; `call` is a lambda without captures.
template <class Source, class Destination = Source>
Row row(const char* name, NoxStatus (*call)(const Operands*), unsigned traits = 0, int sources = 1) {
  return {name, {call, element_of<Source>(), element_of<Destination>(), sources}, traits};
}

struct Family {
  const char* name;
  const char* title;
  std::vector<Row> rows;
};

// A family's file enters it into the list: static const Registration kEntry(make).
struct Registration {
  explicit Registration(Family (*make)());
};
const std::vector<Family (*)()>& families();
