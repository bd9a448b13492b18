// A FIR filter whose spec and work buffer have exactly the queried sizes and stand against unmapped memory.
#pragma once
#include <gtest/gtest.h>

#include <vector>

#include "kit/call.hpp"
#include "kit/guarded.hpp"
#include "kit/random.hpp"
#include "nox/nox.h"

// What differs between the two element types.
template <class T>
struct FirOf;
template <>
struct FirOf<Nox64f> {
  static constexpr int kType = NOX_TYPE_64F, kChunk = 4096;
  static constexpr auto init = noxsFIRSRInit_64f;
  static constexpr auto init_idx = noxsFIRSRInit_64f_Idx;
  static constexpr auto run = noxsFIRSR_64f;
};
template <>
struct FirOf<Nox64fc> {
  static constexpr int kType = NOX_TYPE_64FC, kChunk = 2048;
  static constexpr auto init = noxsFIRSRInit_64fc;
  static constexpr auto init_idx = noxsFIRSRInit_64fc_Idx;
  static constexpr auto run = noxsFIRSR_64fc;
};

// Runs the test for real and for complex elements: test(T{}).
template <class Test>
void for_both_types(Test&& test) {
  {
    SCOPED_TRACE("real");
    test(Nox64f{});
  }
  SCOPED_TRACE("complex");
  test(Nox64fc{});
}

struct FirSizes {
  int spec = -1, work = -1;
};
inline FirSizes fir_sizes(int tapsLen, int type) {
  FirSizes sizes;
  EXPECT_EQ(noxStsNoErr, kit::call(noxsFIRSRGetSize, tapsLen, type, &sizes.spec, &sizes.work));
  return sizes;
}

template <class T>
class FirStream {
 public:
  // `place` chooses edges and misalignments of the two memories.
  explicit FirStream(const std::vector<T>& taps, size_t place = 0, int algType = NOX_ALG_DIRECT)
      : FirStream(taps, place, algType, fir_sizes(static_cast<int>(taps.size()), FirOf<T>::kType)) {}

  // Filters n samples; the spec isn't written.
  void run(const T* src, T* dst, int n, const T* dlySrc, T* dlyDst) {
    work_.fill_with(0xFF);  // NaN, whatever the element
    ASSERT_EQ(noxStsNoErr, kit::call(FirOf<T>::run, src, dst, n, spec(), dlySrc, dlyDst, work_.data()));
    EXPECT_TRUE(kit::same_bits(spec_.data(), before_.data(), spec_.size()));
    work_.check();
  }
  const NoxFirSpec* spec() const { return reinterpret_cast<const NoxFirSpec*>(spec_.data()); }
  Nox8u* work() { return work_.data(); }
  size_t past() const { return past_; }

 private:
  FirStream(const std::vector<T>& taps, size_t place, int algType, FirSizes sizes)
      : spec_(static_cast<size_t>(sizes.spec), place & 1 ? kit::Edge::Start : kit::Edge::End, place % 64),
        work_(static_cast<size_t>(sizes.work), place & 2 ? kit::Edge::Start : kit::Edge::End, (place * 7) % 64),
        past_(taps.size() - 1) {
    kit::Guarded<T> given(taps, kit::Edge::End, place % 16);
    const int tapsLen = static_cast<int>(taps.size());
    NoxFirSpec* const to = reinterpret_cast<NoxFirSpec*>(spec_.data());
    // Both forms by turns; the index form counts from behind the taps.
    const NoxStatus status = place & 1
                                 ? kit::call(FirOf<T>::init_idx, given.data() + tapsLen, -tapsLen, tapsLen, algType, to)
                                 : kit::call(FirOf<T>::init, given.data(), tapsLen, algType, to);
    EXPECT_EQ(noxStsNoErr, status);
    before_ = spec_.values();
  }
  kit::Guarded<Nox8u> spec_, work_;
  std::vector<Nox8u> before_;
  size_t past_;
};

template <class T>
std::vector<T> random_elements(kit::Random& random, size_t n) {
  std::vector<T> v(n);
  random.fill(v);
  return v;
}
