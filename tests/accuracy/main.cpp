// nox_accuracy [POINTS]: the largest errors of the elementary functions, per build and range of arguments, measured
// against MPFR in units in the last place of the exact result. Prints a Markdown table; fails if an error passes 1.
//
// Half of the points of a range stand at random, the other half in runs of neighbouring doubles, where polynomials and
// reductions have no place to hide. Each exact value is computed once and compared with the results of all builds.
#include <gmp.h>
#include <mpfr.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

#include "vmath/functions.hpp"

namespace {

constexpr int kBits = 160;
constexpr int kBuilds = 5;
constexpr const char* kTags[kBuilds] = {"w7", "s8", "p8", "g9", "h9"};
const vmath::Functions* const kFunctions[kBuilds] = {&w7_vmath, &s8_vmath, &p8_vmath, &g9_vmath, &h9_vmath};

int runnable_builds() {
  if (!__builtin_cpu_supports("ssse3")) return 1;
  if (!__builtin_cpu_supports("sse4.2")) return 2;
  if (!__builtin_cpu_supports("avx")) return 3;
  return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") ? 5 : 4;
}

uint64_t random_state = 0x5DEECE66D;
uint64_t bits() {
  uint64_t z = random_state += 0x9E3779B97F4A7C15u;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
  return z ^ (z >> 31);
}
double uniform(double low, double high) { return low + (high - low) * (static_cast<double>(bits() >> 11) * 0x1p-53); }
double sign() { return bits() & 1 ? 1.0 : -1.0; }
// Of any exponent from `low` to `high` - 1, alike.
double spread(int low, int high) {
  return std::ldexp(uniform(1, 2), low + static_cast<int>(bits() % static_cast<unsigned>(high - low)));
}
// A double near n pi/2, or near an odd multiple of pi/4.
double near_quarter(double n_most) {
  const double n = std::floor(uniform(0, n_most)) * (bits() & 1 ? 1 : 0.5);
  return static_cast<double>(static_cast<long double>(n) * 1.57079632679489661923132169163975144L);
}
double next(double x) { return std::nextafter(x, INFINITY); }

struct Point {
  double a, b;
};
struct Range {
  const char* function;
  const char* arguments;
  std::function<Point()> draw;
};

const std::vector<Range>& ranges() {
  static const std::vector<Range> all = [] {
    std::vector<Range> r;
    for (const char* f : {"sine", "cosine"}) {
      r.push_back({f, "-pi/4 to pi/4", [] { return Point{uniform(-0.7854, 0.7854), 0}; }});
      r.push_back({f, "-10 to 10", [] { return Point{uniform(-10, 10), 0}; }});
      r.push_back({f, "to 2^24", [] { return Point{sign() * spread(-30, 24), 0}; }});
      r.push_back({f, "beside k pi/4, k to 2^24", [] { return Point{near_quarter(0x1p23), 0}; }});
      r.push_back({f, "beside k pi/4, k to 2^36", [] { return Point{near_quarter(0x1p35), 0}; }});
      r.push_back({f, "2^24 to the largest", [] { return Point{sign() * spread(24, 1024), 0}; }});
    }
    r.push_back({"logarithm", "1/2 to 2", [] { return Point{uniform(0.5, 2), 0}; }});
    r.push_back({"logarithm", "1 +- 2^-50 to 2^-3", [] { return Point{1 + sign() * spread(-50, -3), 0}; }});
    r.push_back({"logarithm", "all positive", [] { return Point{spread(-1074, 1024), 0}; }});
    r.push_back({"arc tangent", "circle", [] {
                   const double angle = uniform(-3.15, 3.15);
                   return Point{std::sin(angle), std::cos(angle)};
                 }});
    r.push_back({"arc tangent", "-1 to 1 both", [] { return Point{uniform(-1, 1), uniform(-1, 1)}; }});
    r.push_back({"arc tangent", "quotient 2^-60 to 2^60", [] {
                   return Point{sign() * spread(-30, 30), sign() * spread(-30, 30)};
                 }});
    r.push_back({"arc tangent", "all", [] {
                   return Point{sign() * spread(-1074, 1024), sign() * spread(-1074, 1024)};
                 }});
    return r;
  }();
  return all;
}

void compute(const vmath::Functions& f, const char* name, double* d, const double* a, const double* b, size_t n) {
  switch (name[0]) {
    case 's':
      return f.sin_array(d, a, n);
    case 'c':
      return f.cos_array(d, a, n);
    case 'l':
      return f.log_array(d, a, n);
    default:
      return f.atan2_array(d, a, b, n);
  }
}

class Reference {
 public:
  Reference() { mpfr_inits2(kBits, a_, b_, exact_, error_, nullptr); }
  ~Reference() { mpfr_clears(a_, b_, exact_, error_, nullptr); }
  void set(const char* name, double a, double b) {
    mpfr_set_d(a_, a, MPFR_RNDN);
    mpfr_set_d(b_, b, MPFR_RNDN);
    switch (name[0]) {
      case 's':
        mpfr_sin(exact_, a_, MPFR_RNDN);
        break;
      case 'c':
        mpfr_cos(exact_, a_, MPFR_RNDN);
        break;
      case 'l':
        mpfr_log(exact_, a_, MPFR_RNDN);
        break;
      default:
        mpfr_atan2(exact_, a_, b_, MPFR_RNDN);
    }
  }
  // Of a result, in units in the last place that a double of the exact value's size has.
  double error(double got) {
    if (mpfr_zero_p(exact_)) return got == 0 ? 0 : INFINITY;
    if (!std::isfinite(got)) return INFINITY;
    mpfr_sub_d(error_, exact_, got, MPFR_RNDN);
    const long last = std::max<long>(mpfr_get_exp(exact_) - 53, -1074);
    mpfr_mul_2si(error_, error_, -last, MPFR_RNDN);
    return std::fabs(mpfr_get_d(error_, MPFR_RNDN));
  }

 private:
  mpfr_t a_, b_, exact_, error_;
};

}  // namespace

int main(int argc, char** argv) {
  const size_t points = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 100000;
  const int builds = runnable_builds();
  Reference reference;
  bool good = true;
  std::printf("| function | arguments |");
  for (int k = 0; k < builds; ++k) std::printf(" %s |", kTags[k]);
  std::printf(" worst argument |\n|---|---|");
  for (int k = 0; k < builds; ++k) std::printf("---|");
  std::printf("---|\n");
  for (const Range& range : ranges()) {
    std::vector<double> a(points), b(points), d[kBuilds];
    for (size_t i = 0; i < points; ++i) {
      Point p = range.draw();
      if (i > points / 2 && i % 64 != 0) p = {next(a[i - 1]), next(b[i - 1])};
      a[i] = p.a;
      b[i] = p.b;
    }
    for (int k = 0; k < builds; ++k) {
      d[k].resize(points);
      compute(*kFunctions[k], range.function, d[k].data(), a.data(), b.data(), points);
    }
    double worst[kBuilds] = {}, overall = -1;
    size_t place = 0;
    for (size_t i = 0; i < points; ++i) {
      reference.set(range.function, a[i], b[i]);
      for (int k = 0; k < builds; ++k) {
        const double e = reference.error(d[k][i]);
        worst[k] = std::max(worst[k], e);
        if (e > overall) overall = e, place = i;
      }
    }
    std::printf("| %s | %s |", range.function, range.arguments);
    for (int k = 0; k < builds; ++k) std::printf(" %.3f |", worst[k]);
    std::printf(range.function[0] == 'a' ? " %a, %a |\n" : " %a |\n", a[place], b[place]);
    std::fflush(stdout);
    good = good && overall < 1;
  }
  return good ? 0 : 1;
}
