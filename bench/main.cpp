// nox_bench --variant TAG [--out FILE] [--quick] [--family NAME] [--only PART-OF-A-NAME] [Google Benchmark's flags]
//
// Selects one build of the library for the whole process, loads the peers of its instruction set, measures every
// family and writes all times as JSON. One process per build: code of different instruction sets in one process
// would leave each other's upper register halves dirty.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "bench/harness.hpp"

namespace {

struct Build {
  const char* tag;
  Nox64u mask;
};
constexpr Build kBuilds[] = {{"w7", 0x7}, {"s8", 0x1F}, {"p8", 0xDF}, {"g9", 0x1DF}, {"h9", 0x81DF}};
constexpr Nox64u kOnTrust = 1ull << 63;

// What AVX builds ask the processor for and doesn't tell the builds apart.
constexpr Nox64u kAvx = 0x100, kHalves = 0x4000;

bool select(const std::string& tag) {
  Nox64u processor = 0;
  noxGetCpuFeatures(&processor, nullptr);
  for (const Build& build : kBuilds)
    if (tag == build.tag) noxSetCpuFeatures(build.mask | (build.mask & kAvx ? processor & kHalves : 0) | kOnTrust);
  return tag == noxsGetLibVersion()->targetCpu;
}

std::string beside_program(const std::string& file) {
  char path[4096];
  const ssize_t n = readlink("/proc/self/exe", path, sizeof path);
  const std::string program(path, n > 0 ? static_cast<size_t>(n) : 0);
  return program.substr(0, program.rfind('/') + 1) + file;
}

}  // namespace

int main(int argc, char** argv) {
  std::string variant = noxsGetLibVersion()->targetCpu, out = "-", family, only;
  bool quick = false;
  std::vector<char*> rest = {argv[0]};
  for (int i = 1; i < argc; ++i) {
    const std::string flag = argv[i];
    if (flag == "--quick")
      quick = true;
    else if (flag == "--variant" && i + 1 < argc)
      variant = argv[++i];
    else if (flag == "--out" && i + 1 < argc)
      out = argv[++i];
    else if (flag == "--family" && i + 1 < argc)
      family = argv[++i];
    else if (flag == "--only" && i + 1 < argc)
      only = argv[++i];
    else
      rest.push_back(argv[i]);
  }
  // Ours come first, so that flags given by the user win.
  std::string repetitions = "--benchmark_repetitions=3";
  std::string interleaving = "--benchmark_enable_random_interleaving=true";
  std::string time = quick ? "--benchmark_min_time=0.001" : "--benchmark_min_time=0.002";
  rest.insert(rest.begin() + 1, {&repetitions[0], &interleaving[0], &time[0]});
  int rest_count = static_cast<int>(rest.size());
  benchmark::Initialize(&rest_count, rest.data());
  if (benchmark::ReportUnrecognizedArguments(rest_count, rest.data())) return 2;

  if (!select(variant)) {
    fprintf(stderr, "no build %s, or it could not be selected\n", variant.c_str());
    return 2;
  }
  Harness harness(variant, quick, only);
  harness.load_peers(beside_program("nox_peers_" + variant + ".so"));
  for (const auto make : families()) {
    const Family f = make();
    if (family.empty() || family == f.name) harness.run(f);
  }
  if (family.empty() || family == "startup") measure_startup(harness);
  if (!harness.write(out)) {
    fprintf(stderr, "can't write %s\n", out.c_str());
    return 1;
  }
  return harness.failures() ? 1 : 0;
}
