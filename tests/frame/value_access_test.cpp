// The accessors: values move bit for bit, through any address.
#include <gtest/gtest.h>

#include <cstring>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "nox/nox.h"

namespace {

using kit::call;
using kit::Edge;
using kit::Guarded;

Nox64f from_bits(uint64_t bits) {
  Nox64f x;
  std::memcpy(&x, &bits, sizeof x);
  return x;
}
constexpr uint64_t kSignalling = 0x7FF0000000000001;

TEST(ValueAccess, RealKeepsEveryBit) {
  for (const uint64_t bits : {kSignalling, uint64_t{0xFFF7FFFFFFFFFFFF}, uint64_t{1}, uint64_t{0x3FF8000000000000}}) {
    Guarded<Nox64f> from(1, Edge::End), to(1, Edge::Start, 4), set(1, Edge::End);
    const Nox64f value = from_bits(bits);
    std::memcpy(from.data(), &bits, sizeof bits);
    call(GetValFromPtr, from.data(), to.data());
    EXPECT_TRUE(kit::same_bits(to.data(), from.data(), 1));
    call(SetValToPtr, set.data(), value);
    EXPECT_TRUE(kit::same_bits(set.data(), from.data(), 1));
  }
  const Nox64f values[2] = {-0.0, 1.5};
  EXPECT_EQ(call(GetValFromPtrf, values + 1), 1.5);
  EXPECT_TRUE(std::signbit(call(GetValFromPtrf, values)));
}

TEST(ValueAccess, Integer) {
  Guarded<Nox32s> from(1), to(1, Edge::Start);
  from[0] = INT32_MIN;
  call(GetValIFromPtr, from.data(), to.data());
  EXPECT_EQ(to[0], INT32_MIN);
  call(SetValIToPtr, from.data(), -7);
  EXPECT_EQ(from[0], -7);
}

TEST(ValueAccess, ComplexKeepsEveryBit) {
  const uint64_t bits[2] = {kSignalling, 0x8000000000000000};
  Guarded<Nox64fc> from(1, Edge::End, 4), to(1, Edge::Start), set(1, Edge::End);
  std::memcpy(from.data(), bits, sizeof bits);
  call(GetValcFromPtr, from.data(), to.data());
  EXPECT_TRUE(kit::same_bits(to.data(), from.data(), 1));
  call(SetValcToPtr, set.data(), from.data());
  EXPECT_TRUE(kit::same_bits(set.data(), from.data(), 1));
}

// `re` is written before `im` is read: a target that begins at the source's imaginary part spreads the real one.
TEST(ValueAccess, ComplexGoesPartByPart) {
  Nox64f parts[3] = {1, 2, 3};
  call(GetValcFromPtr, reinterpret_cast<const Nox64fc*>(parts), reinterpret_cast<Nox64fc*>(parts + 1));
  EXPECT_EQ(parts[1], 1);
  EXPECT_EQ(parts[2], 1);
}

}  // namespace
