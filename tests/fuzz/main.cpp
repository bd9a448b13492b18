// The fuzzer: random calls of every function of the library, each under all builds, compared with each other.
//
//   nox_fuzz [--seed S] [--seconds T] [--function NAME] [--iteration I [--cap C]] [--recipe NAME] [--keep-going]
//
// The reference is the lowest build: the scalar references of the tests are not asked here. A fault that all builds
// share is therefore found only where it leaves an array, writes in spite of an error, or breaks one of the rules a
// scenario tests by itself, such as that an elementwise function treats an element alike wherever it stands.
//
// A finding is printed with the iteration that shows it and the smallest cap on lengths under which it still does;
// --iteration runs that one alone and prints every argument.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

#include "fuzz/run.hpp"

namespace fuzz {
namespace {

struct Options {
  double seconds = 600;
  const char* recipe = nullptr;
  bool single = false, keep_going = false;
  Origin origin;
};

// The scenario that the iteration's own numbers choose.
void run_scenario(Run& run, const Options& options) {
  static const std::vector<Recipe> kRecipes = recipes();
  int total = 0;
  for (const Recipe& r : kRecipes) total += r.weight;
  const bool generic = run.random.chance(0.7);
  int64_t at = run.random.integer(0, total - 1);
  if (!options.recipe && (generic || !only_function.empty())) return any_function(run);
  for (const Recipe& r : kRecipes) {
    at -= r.weight;
    if (options.recipe ? std::strcmp(r.name, options.recipe) == 0 : at < 0) return r.run(run);
  }
}

// Empty if nothing was found.
std::string iterate(const Options& options, const Origin& origin) {
  std::list<Run> runs;
  std::string found;
  for (const kit::Variant& v : kit::runnable_variants()) {
    const kit::UseVariant use(v);
    testing::TestPartResultArray reported;
    runs.emplace_back(v, origin);
    {
      const testing::ScopedFakeTestPartResultReporter intercept(
          testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &reported);
      run_scenario(runs.back(), options);
      runs.back().check_memories();
    }
    for (int i = 0; i < reported.size(); ++i) runs.back().fault(reported.GetTestPartResult(i).message());
    for (const std::string& f : runs.back().faults) found += std::string(v.tag) + ": " + f + "\n";
    const std::string d = difference(runs.front(), runs.back());
    if (!d.empty()) found += d + "\n";
  }
  return found;
}

void report(const Options& options, const Origin& at, std::string found) {
  Origin smallest = at;
  for (int cap = 1; cap <= 4096 && !options.single; cap *= 2) {
    smallest.cap = cap;
    const std::string again = iterate(options, smallest);
    if (again.empty()) continue;
    found = again;
    break;
  }
  std::printf("FOUND %s  nox_fuzz --seed %llu --iteration %llu --cap %d%s%s%s%s\n\n", found.c_str(),
              static_cast<unsigned long long>(kit::run_seed()), static_cast<unsigned long long>(at.iteration),
              smallest.cap, only_function.empty() ? "" : " --function ", only_function.c_str(),
              options.recipe ? " --recipe " : "", options.recipe ? options.recipe : "");
  std::fflush(stdout);
}

int fuzz(Options options) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::duration<double>(options.seconds);
  uint64_t iterations = 0;
  int findings = 0;
  for (; options.single ? iterations < 1 : Clock::now() < end; ++iterations) {
    const std::string found = iterate(options, options.origin);
    if (!found.empty()) {
      report(options, options.origin, found);
      if (++findings, !options.keep_going) break;
    }
    ++options.origin.iteration;
  }
  std::printf("%llu iterations under %zu builds, %zu functions beside the recipes: %d findings\n",
              static_cast<unsigned long long>(iterations), kit::runnable_variants().size(), callable_functions(),
              findings);
  return findings > 0;
}

int run(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string name = argv[i];
    const bool flag = name == "--keep-going";
    const char* const value = flag || i + 1 >= argc ? "" : argv[++i];
    if (name == "--seed")
      setenv("NOX_TEST_SEED", value, 1);
    else if (name == "--seconds")
      options.seconds = std::strtod(value, nullptr);
    else if (name == "--function")
      only_function = value;
    else if (name == "--recipe")
      options.recipe = value;
    else if (name == "--cap")
      options.origin.cap = std::atoi(value);
    else if (name == "--iteration")
      options.single = options.origin.verbose = true, options.origin.iteration = std::strtoull(value, nullptr, 0);
    else if (flag)
      options.keep_going = true;
    else
      return std::fprintf(stderr, "nox_fuzz: what is %s? See the head of main.cpp.\n", name.c_str()), 2;
  }
  std::printf("nox_fuzz --seed %llu\n", static_cast<unsigned long long>(kit::run_seed()));
  std::fflush(stdout);
  install_signal_handlers();
  return fuzz(options);
}

}  // namespace
}  // namespace fuzz

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  return fuzz::run(argc, argv);
}
