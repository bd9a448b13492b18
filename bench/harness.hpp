// The harness: families of rows, and what is done with each.
//
// A row is one primitive; the harness measures it at every length and placement the row asks for, beside the loops of
// the same name in every peer set loaded, on the same arrays, with the repetitions of all of them interleaved. Before
// that it runs each once and compares the results. Times of all repetitions go to the output as JSON.
#pragma once
#include <string>
#include <vector>

#include "bench/primitive.hpp"

struct Row {
  const char* name;  // of the primitive, which finds its peers
  Primitive primitive;
  unsigned traits = 0;
  int taps = 0;                                     // of a filter
  NoxStatus (*prepare)(const Operands*) = nullptr;  // before the first call of a group, untimed
};

enum Trait : unsigned {
  kSizes = 1,        // the series of block sizes instead of the three lengths
  kPlaces = 2,       // also at misaligned and at aliased places
  kAccumulates = 4,  // reads its destination though it isn't an in-place form
  kCompute = 8,      // bound by arithmetic: no memory length, fraction of the arithmetic peak
};

struct Family {
  const char* name;
  std::vector<Row> rows;
};

// One function per family file.
Family move_family();
Family vector_family();
Family division_family();
Family filter_family();
Family transform_family();

struct Participant {
  std::string who;
  Loop loop = nullptr;                           // either a peer's loop
  NoxStatus (*call)(const Operands*) = nullptr;  // or the library
  Operands operands{};
};

struct Group {
  std::string family, name, place, shape;
  int len = 0;
  int element = 0;
  double flops = 0;  // per element, of filters
  std::vector<Participant> participants;
};

class Harness {
 public:
  Harness(std::string variant, bool quick, std::string only);
  // Loads the peers of this instruction set; says which are missing.
  void load_peers(const std::string& module);
  void run(const Family& family);
  // Measures the participants of a group with their repetitions interleaved and keeps the times.
  void measure(const Group& group);
  bool wanted(const std::string& name) const { return name.find(only_) != std::string::npos; }
  void note(const std::string& text);
  void fact(const std::string& key, double value) { facts_.emplace_back(key, value); }
  bool write(const std::string& path) const;
  int failures() const { return failures_; }

 private:
  struct Place;
  void run_at(const Family& family, const Row& row, int len, const Place& place);
  bool agree(const Row& row, Group& group);
  void refill(const Row& row, const Operands& o);

  std::string variant_, only_;
  bool quick_;
  int failures_ = 0;
  std::vector<const PeerSet*> peers_;
  std::vector<std::string> results_, notes_;
  std::vector<std::pair<std::string, double>> facts_;
  char* arrays_[3] = {};
  std::vector<double> taps_;
};

// Start-up costs: the stub of an export against its body, loading the library.
void measure_startup(Harness& harness);
