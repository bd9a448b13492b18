// A cosine transform whose spec and work buffer have exactly the queried sizes and stand against unmapped memory.
#pragma once
#include <gtest/gtest.h>

#include <vector>

#include "kit/call.hpp"
#include "kit/compare.hpp"
#include "kit/guarded.hpp"
#include "kit/random.hpp"
#include "nox/nox.h"

// The functions of one direction.
struct DctFunctions {
  NoxStatus (*get_size)(int, int, int*, int*, int*);
  NoxStatus (*init)(NoxDctSpec**, int, int, Nox8u*, Nox8u*);
  NoxStatus (*run)(const Nox64f*, Nox64f*, const NoxDctSpec*, Nox8u*);
  NoxStatus (*run_in_place)(Nox64f*, const NoxDctSpec*, Nox8u*);
};
constexpr DctFunctions kDctForward{noxsDCTFwdGetSize_64f, noxsDCTFwdInit_64f, noxsDCTFwd_64f, noxsDCTFwd_64f_I};
constexpr DctFunctions kDctInverse{noxsDCTInvGetSize_64f, noxsDCTInvInit_64f, noxsDCTInv_64f, noxsDCTInv_64f_I};

struct DctSizes {
  int spec = -1, init = -1, work = -1;
};
inline DctSizes dct_sizes(const DctFunctions& dct, int len) {
  DctSizes sizes;
  EXPECT_EQ(noxStsNoErr, kit::call(dct.get_size, len, 0, &sizes.spec, &sizes.init, &sizes.work)) << len;
  return sizes;
}

class DctCase {
 public:
  // `place` chooses edges and misalignments of the memories.
  DctCase(const DctFunctions& dct, int len, size_t place = 0) : DctCase(dct, len, place, dct_sizes(dct, len)) {}

  void run(const Nox64f* src, Nox64f* dst) {
    EXPECT_EQ(noxStsNoErr, kit::call(dct_.run, src, dst, spec_, work()));
    check();
  }
  void run_in_place(Nox64f* data) {
    EXPECT_EQ(noxStsNoErr, kit::call(dct_.run_in_place, data, spec_, work()));
    check();
  }
  std::vector<Nox64f> operator()(const std::vector<Nox64f>& src) {
    std::vector<Nox64f> dst(src.size());
    run(src.data(), dst.data());
    return dst;
  }
  const NoxDctSpec* spec() const { return spec_; }
  Nox8u* work() { return work_.size() > 0 ? work_.data() : nullptr; }

 private:
  DctCase(const DctFunctions& dct, int len, size_t place, DctSizes sizes)
      : dct_(dct),
        memory_(static_cast<size_t>(sizes.spec), place & 1 ? kit::Edge::Start : kit::Edge::End, place % 64),
        work_(static_cast<size_t>(sizes.work), place & 2 ? kit::Edge::Start : kit::Edge::End, place * 7 % 64) {
    {
      kit::Guarded<Nox8u> init(static_cast<size_t>(sizes.init), place & 4 ? kit::Edge::Start : kit::Edge::End,
                               place * 5 % 64);
      EXPECT_EQ(noxStsNoErr,
                kit::call(dct.init, &spec_, len, 0, memory_.data(), sizes.init > 0 ? init.data() : nullptr));
      init.fill_with(0xEE);  // nothing of it is used any more
    }
    before_ = memory_.values();
  }
  void check() {
    EXPECT_TRUE(kit::same_bits(memory_.data(), before_.data(), memory_.size())) << "the spec was written";
    work_.check();
  }

  DctFunctions dct_;
  NoxDctSpec* spec_ = nullptr;
  kit::Guarded<Nox8u> memory_, work_;
  std::vector<Nox8u> before_;
};
