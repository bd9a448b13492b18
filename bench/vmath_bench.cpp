// nox_vmath_bench: the elementary functions of every build on 1,000 elements, beside the C library and SLEEF.
//
// The counter `ns` is the time per element (of both results for the pair). Angles are measured in three ranges, since a
// peer may reduce small ones in another way than large ones; single values are measured as calls one after the other.
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <vector>

#include "bench/peers/sleef.hpp"
#include "vmath/functions.hpp"

namespace {

constexpr size_t kElements = 1000;

struct Data {
  std::vector<double> x, y, d, e;
};
// x from -size to size or, for logarithms, above 0.
Data make(double size, bool positive) {
  Data data{std::vector<double>(kElements), std::vector<double>(kElements), std::vector<double>(kElements),
            std::vector<double>(kElements)};
  for (size_t i = 0; i < kElements; ++i) {
    const double step = static_cast<double>(i * 389 % kElements) + 0.5;
    data.x[i] = size * (positive ? step / kElements : step / (kElements / 2) - 1);
    data.y[i] = size * (static_cast<double>(i * 617 % kElements + 1) / (kElements / 2) - 1);
  }
  return data;
}

template <class F>
void add(const std::string& who, const std::string& what, double size, bool positive, F run) {
  benchmark::RegisterBenchmark((who + "/" + what).c_str(), [=](benchmark::State& state) {
    Data data = make(size, positive);
    for (auto _ : state) {
      run(data);
      benchmark::ClobberMemory();
    }
    state.counters["ns"] =
        benchmark::Counter(static_cast<double>(kElements) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  });
}

void add_table(const std::string& who, const vmath::Functions& f) {
  for (const double size : {10.0, 1000.0, 0x1p30}) {
    const std::string to = size == 10 ? " to 10" : size == 1000 ? " to 1000" : " to 2^30";
    add(who, "sine" + to, size, false, [&](Data& d) { f.sin_array(d.d.data(), d.x.data(), kElements); });
    add(who, "cosine" + to, size, false, [&](Data& d) { f.cos_array(d.d.data(), d.x.data(), kElements); });
    add(who, "both" + to, size, false, [&](Data& d) { f.sincos_array(d.d.data(), d.e.data(), d.x.data(), kElements); });
  }
  add(who, "logarithm", 100, true, [&](Data& d) { f.log_array(d.d.data(), d.x.data(), kElements); });
  add(who, "arc tangent", 1, false, [&](Data& d) { f.atan2_array(d.d.data(), d.y.data(), d.x.data(), kElements); });
  if (!f.sin_one) return;
  add(who, "single sine", 10, false, [&](Data& d) {
    for (size_t i = 0; i < kElements; ++i) d.d[i] = f.sin_one(d.x[i]);
  });
  add(who, "single logarithm", 100, true, [&](Data& d) {
    for (size_t i = 0; i < kElements; ++i) d.d[i] = f.log_one(d.x[i]);
  });
}

template <double (*F)(double)>
void loop(double* d, const double* s, size_t n) {
  for (size_t i = 0; i < n; ++i) d[i] = F(s[i]);
}
void loop_both(double* sine, double* cosine, const double* s, size_t n) {
  for (size_t i = 0; i < n; ++i) {
    sine[i] = std::sin(s[i]);
    cosine[i] = std::cos(s[i]);
  }
}
void loop_atan2(double* d, const double* y, const double* x, size_t n) {
  for (size_t i = 0; i < n; ++i) d[i] = std::atan2(y[i], x[i]);
}
const vmath::Functions kLibc = {loop<std::sin>, loop<std::cos>, loop_both, loop_atan2, loop<std::log>,
                                std::sin,       std::cos,       nullptr,   std::atan2, std::log};
#ifdef NOX_BENCH_SLEEF
const vmath::Functions kSleef = {sleef_sin, sleef_cos, sleef_sincos, sleef_atan2, sleef_log,
                                 nullptr,   nullptr,   nullptr,      nullptr,     nullptr};
#endif

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  add_table("w7", w7_vmath);
  if (__builtin_cpu_supports("ssse3")) add_table("s8", s8_vmath);
  if (__builtin_cpu_supports("sse4.2")) add_table("p8", p8_vmath);
  if (__builtin_cpu_supports("avx")) add_table("g9", g9_vmath);
  if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) {
    add_table("h9", h9_vmath);
#ifdef NOX_BENCH_SLEEF
    add_table("sleef", kSleef);
#endif
  }
  add_table("libc", kLibc);
  benchmark::RunSpecifiedBenchmarks();
}
