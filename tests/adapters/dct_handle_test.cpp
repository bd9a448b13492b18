// The one-call forms of the cosine transform: a handle gives the bits of spec and work buffer, and is freed.
#include "kit/variants.hpp"
#include "transform/dct_case.hpp"

namespace {

struct Forms {
  DctFunctions plain;
  NoxStatus (*make)(NoxDctHandle**, int, int);
  NoxStatus (*run)(const Nox64f*, int, Nox64f*, int, NoxDctHandle*);
  NoxStatus (*run_in_place)(Nox64f*, int, NoxDctHandle*);
};
constexpr Forms kForms[] = {{kDctForward, noxsDCTFwdInitAlloc_64f_Idx, noxsDCTFwd_64f_Idx, noxsDCTFwd_64f_I_Idx},
                            {kDctInverse, noxsDCTInvInitAlloc_64f_Idx, noxsDCTInv_64f_Idx, noxsDCTInv_64f_I_Idx}};

class DctHandle : public kit::EachVariant {};
NOX_EACH_VARIANT(DctHandle);

TEST_P(DctHandle, GivesTheBitsOfThePlainForms) {
  kit::Random random;
  for (const Forms& f : kForms)
    for (const int len : {1, 8, 20, 64, 101, 4096}) {
      const size_t n = static_cast<size_t>(len);
      kit::Guarded<Nox64f> src(n), out(n), expected(n);
      random.fill(src);
      DctCase(f.plain, len).run(src.data(), expected.data());
      NoxDctHandle* handle = nullptr;
      ASSERT_EQ(noxStsNoErr, kit::call(f.make, &handle, len, 0));
      EXPECT_EQ(noxStsNoErr, kit::call(f.run, src.data() + 9, -9, out.data() - 5, 5, handle));
      EXPECT_TRUE(kit::same_bits(out.data(), expected.data(), n)) << len;
      EXPECT_EQ(noxStsNoErr, kit::call(f.run_in_place, src.data() + len, -len, handle));
      EXPECT_TRUE(kit::same_bits(src.data(), expected.data(), n)) << len << " in place";
      EXPECT_EQ(noxStsNullPtrErr, kit::call(f.run, nullptr, 0, out.data(), 0, handle));
      const Forms& other = &f == kForms ? kForms[1] : kForms[0];
      EXPECT_EQ(noxStsContextMatchErr, kit::call(other.run_in_place, out.data(), 0, handle));
      kit::call(noxsDCTFree_64f_Idx, handle);
    }
}

TEST_P(DctHandle, NoneIsDeliveredOnAnError) {
  for (const Forms& f : kForms) {
    NoxDctHandle* handle = nullptr;
    for (const int len : {0, -3, INT32_MAX, 0x1000001, 1 << 27})
      EXPECT_EQ(noxStsSizeErr, kit::call(f.make, &handle, len, 0)) << len;
    EXPECT_EQ(nullptr, handle);
  }
  kit::call(noxsDCTFree_64f_Idx, nullptr);
}

}  // namespace
