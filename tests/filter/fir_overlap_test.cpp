// The single-rate FIR filter by transforms: beside the direct sum, at the borders of its blocks and under every cut and
// aliasing; the choice of the method; the sizes.
#include <algorithm>
#include <cmath>

#include "filter/fir_stream.hpp"
#include "kit/lengths.hpp"
#include "kit/variants.hpp"
#include "reference/fir.hpp"

namespace {

using kit::Guarded;

class FirOverlap : public kit::EachVariant {};
NOX_EACH_VARIANT(FirOverlap);

template <class T>
double norm(const std::vector<T>& v) {
  long double sum = 0;
  for (const T& x : v) {
    const long double re = reference::real_part(x), im = reference::imag_part(x);
    sum += re * re + im * im;
  }
  return static_cast<double>(std::sqrt(sum));
}

int transform_length(size_t tapsLen) {
  int n = 4;
  while (static_cast<size_t>(n) <= 2 * tapsLen) n *= 2;
  return n;
}

// Rounding of two transforms and a product: so many units of the energy that meets in a block, far below one sample's.
template <class T>
double tolerance(const std::vector<T>& taps, size_t tapsLen) {
  const double len = transform_length(tapsLen);
  return 0x1p-53 * 4 * (std::log2(len) + 2) * norm(taps) * std::sqrt(2 * len);
}

template <class T>
testing::AssertionResult is_near(const T* got, const T* expected, size_t n, double off) {
  for (size_t i = 0; i < n; ++i) {
    const double re = static_cast<double>(std::fabs(reference::real_part(got[i]) - reference::real_part(expected[i])));
    const double im = static_cast<double>(std::fabs(reference::imag_part(got[i]) - reference::imag_part(expected[i])));
    if (!(std::max(re, im) <= off))
      return testing::AssertionFailure() << "output " << i << " of " << n << " is off by " << std::max(re, im)
                                         << ", more than " << off;
  }
  return testing::AssertionSuccess();
}

// One call on guarded arrays. Over: the destination is the delay line that is read.
enum class Way { Apart, OneLine, InPlace, Over, NoLines };
constexpr Way kWays[] = {Way::Apart, Way::OneLine, Way::InPlace, Way::Over, Way::NoLines};

template <class T>
std::vector<T> filter_block(FirStream<T>& stream, Way way, const T* samples, size_t n, std::vector<T>& line,
                            size_t aside = 0) {
  const size_t past = stream.past();
  Guarded<T> src(n, kit::Edge::End, aside), dst(n, kit::Edge::Start, aside), over(std::max(n, past)), in(line),
      out(past);
  std::copy_n(samples, n, src.begin());
  std::copy_n(line.begin(), past, over.begin());
  const T* from = in.data();
  T *to = dst.data(), *next = way == Way::OneLine ? in.data() : out.data();
  if (way == Way::InPlace) to = src.data();
  if (way == Way::Over) from = to = over.data();
  if (way == Way::NoLines) from = next = nullptr;
  stream.run(src.data(), to, static_cast<int>(n), from, next);
  if (next) line.assign(next, next + past);
  return {to, to + n};
}

TEST_P(FirOverlap, AgreesWithTheDirectSumAtEveryBorderOfABlock) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    size_t place = 0;
    const std::vector<size_t> counts = kit::quick() ? std::vector<size_t>{1, 2, 5, 40}
                                                    : std::vector<size_t>{1, 2, 3, 4, 7, 8, 15, 16, 31, 40, 100, 181};
    for (const size_t tapsLen : counts) {
      const size_t past = tapsLen - 1, len = static_cast<size_t>(transform_length(tapsLen)), valid = len - past;
      const std::vector<T> taps = random_elements<T>(random, tapsLen);
      const std::vector<T> all = random_elements<T>(random, past + 3 * valid + len + 2);
      const double off = tolerance(taps, tapsLen);
      for (const size_t border : {size_t{1}, past + 1, valid, 2 * valid, valid + len, 2 * valid + len}) {
        for (const size_t n : {border - 1, border, border + 1}) {
          if (n == 0) continue;
          ++place;
          FirStream<T> direct(taps), stream(taps, place, NOX_ALG_FFT);
          const std::vector<T> line(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(past));
          for (const Way way : kWays) {
            std::vector<T> expected_line = line, got_line = line;
            const T* const samples = all.data() + past;
            const std::vector<T> expected = filter_block(direct, way, samples, n, expected_line);
            const std::vector<T> got = filter_block(stream, way, samples, n, got_line, place % 16);
            ASSERT_TRUE(is_near(got.data(), expected.data(), n, off))
                << tapsLen << " taps, way " << static_cast<int>(way);
            ASSERT_TRUE(kit::same_bits(got_line.data(), expected_line.data(), past)) << tapsLen << " taps, " << n;
          }
        }
      }
    }
  });
}

TEST_P(FirOverlap, AnyCutContinuesTheSignal) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    const size_t chunk = static_cast<size_t>(FirOf<T>::kChunk);
    struct Case {
      size_t tapsLen, n, longest;  // samples of a block
    };
    for (const Case& c : {Case{9, 700, 60}, Case{60, 1500, 500}, Case{200, 2 * chunk + 300, 2 * chunk},
                          Case{kit::quick() ? 300 : chunk + 500, 2 * chunk + 3, 2 * chunk + 3}}) {
      const size_t past = c.tapsLen - 1;
      const std::vector<T> taps = random_elements<T>(random, c.tapsLen), all = random_elements<T>(random, past + c.n);
      FirStream<T> direct(taps), stream(taps, c.n, NOX_ALG_FFT);
      std::vector<T> first(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(past)), unused = first;
      const std::vector<T> expected = filter_block(direct, Way::Apart, all.data() + past, c.n, unused);
      for (const Way way : {Way::Apart, Way::OneLine, Way::InPlace, Way::Over}) {
        std::vector<T> line = first, out;
        while (out.size() < c.n) {
          const size_t block =
              c.longest > c.n
                  ? c.n
                  : std::min(c.n - out.size(), static_cast<size_t>(random.integer(1, static_cast<int64_t>(c.longest))));
          const std::vector<T> part = filter_block(stream, way, all.data() + past + out.size(), block, line);
          out.insert(out.end(), part.begin(), part.end());
        }
        ASSERT_TRUE(is_near(out.data(), expected.data(), c.n, tolerance(taps, c.tapsLen)))
            << c.tapsLen << " taps, way " << static_cast<int>(way);
        ASSERT_TRUE(kit::same_bits(line.data(), all.data() + c.n, past));
      }
    }
  });
}

TEST_P(FirOverlap, NanStaysInItsBlock) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    constexpr size_t kTaps = 40, kPast = kTaps - 1;
    const size_t valid = static_cast<size_t>(transform_length(kTaps)) - kPast, n = valid + 10;
    FirStream<T> stream(random_elements<T>(random, kTaps), 0, NOX_ALG_FFT);
    std::vector<T> samples = random_elements<T>(random, n), line(kPast);
    reinterpret_cast<Nox64f&>(samples[0]) = std::nan("");
    const std::vector<T> out = filter_block(stream, Way::Apart, samples.data(), n, line);
    EXPECT_FALSE(std::isfinite(static_cast<double>(reference::real_part(out[0]))));
    for (size_t i = valid; i < n; ++i)
      EXPECT_TRUE(std::isfinite(static_cast<double>(reference::real_part(out[i])))) << "output " << i;
  });
}

// The lengths from which each build, w7 first, leaves the direct sum.
struct Threshold {
  int taps, samples;
};
constexpr Threshold kReal[] = {{124, 640}, {48, 384}, {48, 384}, {48, 384}, {40, 384}};
constexpr Threshold kComplex[] = {{40, 512}, {18, 256}, {18, 256}, {16, 256}, {17, 256}};

TEST_P(FirOverlap, TheLengthsChooseTheMethod) {
  for_both_types([](auto zero) {
    using T = decltype(zero);
    kit::Random random;
    const Threshold from = (kit::is_complex<T> ? kComplex : kReal)[GetParam().column];
    for (const int less_taps : {0, 1}) {
      for (const int less_samples : {0, 1}) {
        const size_t tapsLen = static_cast<size_t>(from.taps - less_taps),
                     n = static_cast<size_t>(from.samples - less_samples);
        const std::vector<T> taps = random_elements<T>(random, tapsLen), all = random_elements<T>(random, n);
        const auto outputs = [&](int algType) {
          FirStream<T> stream(taps, 0, algType);
          std::vector<T> line(tapsLen - 1);
          return filter_block(stream, Way::Apart, all.data(), n, line);
        };
        const std::vector<T> chosen = outputs(NOX_ALG_AUTO);
        const bool direct = less_taps || less_samples;
        EXPECT_TRUE(kit::same_bits(chosen.data(), outputs(direct ? NOX_ALG_DIRECT : NOX_ALG_FFT).data(), n))
            << tapsLen << " taps, " << n << " samples";
        EXPECT_FALSE(kit::same_bits(chosen.data(), outputs(direct ? NOX_ALG_FFT : NOX_ALG_DIRECT).data(), n));
      }
    }
  });
}

// Bytes of the lowest build, worked out by hand from the layouts: records, tables of the transforms, blocks, slack.
TEST_P(FirOverlap, SizesOfTheLowestBuild) {
  if (GetParam().column != 0) return;  // the others have sizes of their own
  const struct {
    int type, tapsLen, spec, work;
  } cases[] = {{13, 1, 367, 32848}, {13, 16, 1151, 33280}, {13, 181, 15871, 41920}, {13, 700, 61695, 68672},
               {14, 1, 383, 32864}, {14, 16, 3263, 34880}, {14, 181, 22975, 50944}, {14, 700, 90111, 104384},
               {19, 1, 383, 32864}, {19, 16, 1471, 33792}, {19, 181, 18623, 46848}, {19, 700, 72703, 88000},
               {20, 1, 415, 32896}, {20, 16, 3903, 35904}, {20, 181, 28543, 60800}, {20, 700, 112063, 143168}};
  for (const auto& c : cases) {
    const FirSizes sizes = fir_sizes(c.tapsLen, c.type);
    EXPECT_EQ(c.spec, sizes.spec) << c.type << ", " << c.tapsLen << " taps";
    EXPECT_EQ(c.work, sizes.work) << c.type << ", " << c.tapsLen << " taps";
  }
}

}  // namespace
