// The harness: families of rows, and what is done with each.
//
// A row is one primitive; the harness measures it at every length and placement the row asks for, beside the loops of
// the same name in every peer set loaded, on the same arrays, with the repetitions of all of them interleaved. Before
// that it runs each once and compares the results. Times of all repetitions go to the output as JSON.
#pragma once
#include <string>
#include <vector>

#include "bench/row.hpp"

struct Participant {
  std::string who;
  Loop loop = nullptr;                           // either a peer's loop
  NoxStatus (*call)(const Operands*) = nullptr;  // or the library
  Operands operands{};
  Loop prepare = nullptr;  // of a peer
  size_t stretches = 0;    // of the source, one of which every run starts with a copy of, if there are any
};

struct Group {
  std::string family, name, place, shape;
  int len = 0;
  int element = 0;   // bytes, the larger of source and destination
  double flops = 0;  // per element, where bound by arithmetic
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
  void title(const char* family, const char* text) { titles_.emplace_back(family, text); }
  void note(const std::string& text);
  void fact(const std::string& key, double value) { facts_.emplace_back(key, value); }
  bool write(const std::string& path) const;
  int failures() const { return failures_; }

 private:
  struct Place;
  void run_at(const Family& family, const Row& row, int len, const Place& place);
  bool agree(const Row& row, Group& group);
  void refill(const Row& row, const Operands& o);
  NoxStatus prepare(const Row& row, const Participant& participant);
  void add(Group& group, Participant participant);
  void* arena(size_t participant);

  std::string variant_, only_;
  bool quick_;
  int failures_ = 0;
  std::vector<const PeerSet*> peers_;
  std::vector<std::string> results_, notes_;
  std::vector<std::pair<std::string, double>> facts_;
  std::vector<std::pair<std::string, std::string>> titles_;
  char* arrays_[4] = {};
  std::vector<void*> arenas_;
  std::vector<double> taps_;
};

// Start-up costs: the stub of an export against its body, loading the library.
void measure_startup(Harness& harness);
