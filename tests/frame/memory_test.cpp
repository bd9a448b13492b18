// The aligned allocator, in every build.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>

#include "kit/call.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"

namespace {

using kit::call;

class Memory : public kit::EachVariant {};
NOX_EACH_VARIANT(Memory);

template <class T>
void check_allocation(T* (*allocate)(int)) {
  for (const int len : {1, 2, 15, 16, 17, 1000, 100000}) {
    T* const p = call(allocate, len);
    ASSERT_NE(p, nullptr) << len;
    EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 64, 0u) << len;
    // The word in front is the address of the raw block, and p the first boundary that leaves room for it.
    uint32_t raw;
    std::memcpy(&raw, reinterpret_cast<const char*>(p) - sizeof raw, sizeof raw);
    const uintptr_t distance = reinterpret_cast<uintptr_t>(p) - raw;
    EXPECT_GE(distance, 4u) << len;
    EXPECT_LT(distance, 68u) << len;
    std::memset(static_cast<void*>(p), 0xA5, static_cast<size_t>(len) * sizeof(T));
    call(noxsFree, p);
  }
  const int too_many = static_cast<int>(0x80000000u / sizeof(T));
  for (const int len : {0, -1, INT_MIN, too_many, too_many + 1, INT_MAX})
    EXPECT_EQ(call(allocate, len), nullptr) << len;
}

TEST_P(Memory, IsAlignedAndComesBack) {
  check_allocation(noxsMalloc_32s);
  check_allocation(noxsMalloc_32sc);
  check_allocation(noxsMalloc_64f);
  check_allocation(noxsMalloc_64fc);
  call(noxsFree, nullptr);
}

TEST_P(Memory, IndexFormsForward) {
  check_allocation(noxsMalloc_32s_Idx);
  check_allocation(noxsMalloc_32sc_Idx);
  check_allocation(noxsMalloc_64f_Idx);
  check_allocation(noxsMalloc_64fc_Idx);
  call(noxsFree_Idx, call(noxsMalloc_64f, 10));
  call(noxsFree_Idx, nullptr);
}

}  // namespace
