// The roots of unity that all tables of the transforms are made of: exact where a double can be, and symmetric.
#include <cmath>

#include "kit/compare.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "reference/fft.hpp"
#include "transform/real_operations.hpp"

namespace {

class FftTurns : public kit::EachVariant {
 protected:
  struct Turn {
    double cosine, sine;
  };
  static const transforms::RealFft& operations() {
    const transforms::RealFft* const tables[] = {&w7_real_fft, &s8_real_fft, &p8_real_fft, &g9_real_fft, &h9_real_fft};
    return *tables[GetParam().column];
  }
  static Turn turn(uint32_t part, uint32_t whole) {
    Turn w{};
    operations().turn(part, whole, &w.cosine, &w.sine);
    return w;
  }
};
NOX_EACH_VARIANT(FftTurns);

TEST_P(FftTurns, EighthsAreExact) {
  const double half_root = std::sqrt(0.5);
  const double sines[] = {0, half_root, 1, half_root, 0, -half_root, -1, -half_root, 0, half_root, 1};
  for (const uint32_t eighth : {1u, 3u, 997u, 1u << 26})
    for (uint32_t i = 0; i <= 8; ++i) {
      const Turn w = turn(i * eighth, 8 * eighth);
      EXPECT_EQ(sines[i], w.sine) << i;
      EXPECT_EQ(sines[i + 2], w.cosine) << i;
    }
}

TEST_P(FftTurns, ErrorsAreRoundingAndSymmetriesHold) {
  kit::Random random;
  for (const uint32_t whole : {10u, 184u, 2048u, 40028u, 1u << 20, 134217724u, 1u << 29})
    for (int i = 0; i < 200; ++i) {
      const uint32_t part = static_cast<uint32_t>(random.bits() % whole);
      const Turn w = turn(part, whole), mirrored = turn(whole - part, whole);
      const long double angle = reference::kTurn * (2.0L * part > whole ? -1.0L * (whole - part) : part) / whole;
      // Five eighths of a unit in the last place, and the error of the angle in long double.
      const auto near = [](double got, long double exact) {
        return std::abs(got - exact) <= std::abs(exact) * 0x1.4p-53L + 0x1p-61L;
      };
      EXPECT_TRUE(near(w.sine, std::sin(angle))) << part << " of " << whole;
      EXPECT_TRUE(near(w.cosine, std::cos(angle))) << part << " of " << whole;
      EXPECT_EQ(w.cosine, mirrored.cosine);
      EXPECT_EQ(w.sine, -mirrored.sine);
    }
}

TEST_P(FftTurns, WavesAreTheTurns) {
  for (const int order : {3, 10, 11, 16}) {
    const uint32_t n = 1u << order;
    std::vector<double> memory(n / 4 + 1);
    for (uint32_t i = 0; i < n; i += 1 + n / 64)
      EXPECT_LE(kit::ulp_distance(turn(i, n).sine, operations().wave_sine(order, i, memory.data())), 1u) << i;
  }
}

}  // namespace
