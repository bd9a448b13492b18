// The recursive filters: against their definition, from states of exactly the size told, under every cut of a stream,
// and their statuses.
#include <algorithm>
#include <cmath>

#include "kit/call.hpp"
#include "kit/guarded.hpp"
#include "kit/lengths.hpp"
#include "kit/random.hpp"
#include "kit/variants.hpp"
#include "nox/nox.h"
#include "reference/iir.hpp"

namespace {

using kit::Edge;
using kit::Guarded;
using reference::Wide;

class Iir : public kit::EachVariant {};
NOX_EACH_VARIANT(Iir);

// A form for an element type: its calls and its shape.
template <class T>
struct Form {
  using elem = T;
  bool cascade;
  NoxStatus (*size)(int, int*);
  NoxStatus (*init)(NoxIIRState**, const T*, int, const T*, Nox8u*);
  NoxStatus (*init_idx)(NoxIIRState**, const T*, int, int, const T*, int, Nox8u*);
  size_t taps(size_t n) const { return cascade ? 6 * n : 2 * (n + 1); }
  size_t delays(size_t n) const { return cascade ? 2 * n : n; }
};
constexpr Form<Nox64f> kReal[] = {
    {false, noxsIIRGetStateSize_64f, noxsIIRInit_64f, noxsIIRInit_64f_Idx},
    {true, noxsIIRGetStateSize_BiQuad_64f, noxsIIRInit_BiQuad_64f, noxsIIRInit_BiQuad_64f_Idx}};
constexpr Form<Nox64fc> kComplex[] = {
    {false, noxsIIRGetStateSize_64fc, noxsIIRInit_64fc, noxsIIRInit_64fc_Idx},
    {true, noxsIIRGetStateSize_BiQuad_64fc, noxsIIRInit_BiQuad_64fc, noxsIIRInit_BiQuad_64fc_Idx}};

template <class T>
struct Calls;
template <>
struct Calls<Nox64f> {
  static constexpr auto one = noxsIIROne_64f_Idx;
  static constexpr auto filter = noxsIIR_64f;
  static constexpr auto in_place = noxsIIR_64f_I;
  static constexpr auto filter_idx = noxsIIR_64f_Idx;
  static constexpr auto in_place_idx = noxsIIR_64f_I_Idx;
};
template <>
struct Calls<Nox64fc> {
  static constexpr auto one = noxsIIROne_64fc_Idx;
  static constexpr auto filter = noxsIIR_64fc;
  static constexpr auto in_place = noxsIIR_64fc_I;
  static constexpr auto filter_idx = noxsIIR_64fc_Idx;
  static constexpr auto in_place_idx = noxsIIR_64fc_I_Idx;
};

// test(form) for the four of them.
template <class Test>
void for_forms(Test&& test) {
  for (const auto& form : kReal) {
    SCOPED_TRACE(form.cascade ? "real cascade" : "real direct form");
    test(form);
  }
  for (const auto& form : kComplex) {
    SCOPED_TRACE(form.cascade ? "complex cascade" : "complex direct form");
    test(form);
  }
}

Nox64f narrow(Nox64f, Wide v) { return static_cast<Nox64f>(v.re); }
Nox64fc narrow(Nox64fc, Wide v) { return {static_cast<Nox64f>(v.re), static_cast<Nox64f>(v.im)}; }

// Taps of a stable direct form: a0 times the product of (1 - pole z), poles of magnitude up to 0.9; those of a real
// filter come in conjugate pairs. The numerator is random.
template <class T>
std::vector<T> stable_taps(kit::Random& random, size_t order) {
  std::vector<T> taps(2 * (order + 1));
  random.fill(taps, 0.5, 1.5);
  std::vector<Wide> a{{1}};
  const auto times = [&](Wide pole) {
    a.push_back({});
    for (size_t k = a.size() - 1; k > 0; --k) a[k] = a[k] - pole * a[k - 1];
  };
  while (a.size() <= order) {
    const long double radius = random.uniform(0.2, 0.9), angle = random.uniform(-3, 3);
    const Wide pole{radius * std::cos(angle), radius * std::sin(angle)};
    if constexpr (kit::is_complex<T>) {
      times(pole);
    } else if (a.size() < order) {
      times(pole);
      times({pole.re, -pole.im});
    } else {
      times({pole.re});
    }
  }
  for (size_t k = 0; k <= order; ++k) taps[order + 1 + k] = narrow(T{}, a[k] * Wide{1.25L});
  return taps;
}

// A filter whose state has exactly the size told and stands against unmapped memory, beside its definition.
template <class T>
class Filter {
 public:
  Filter(const Form<T>& form, size_t n, kit::Random& random, size_t place = 0)
      : form_(form),
        n_(static_cast<int>(n)),
        place_(place),
        delay_(form.delays(n)),
        memory_(bytes(), place & 1 ? Edge::Start : Edge::End, place * 5 % 64) {
    const size_t parts = form.cascade ? n : 1, order = form.cascade ? 2 : n;
    random.fill(delay_);
    for (size_t p = 0; p < parts; ++p) {
      const std::vector<T> taps = stable_taps<T>(random, order);
      definition_.emplace_back(taps.data(), order, delay_.data() + 2 * p);
      taps_.insert(taps_.end(), taps.begin(), taps.end());
    }
    begin();
  }
  // Begins anew, in the same memory, with the taps of the beginning; both forms of the call by turns.
  void begin() {
    Guarded<T> taps(taps_, Edge::End, place_ % 16), delay(delay_, Edge::Start, place_ % 8);
    const NoxStatus status =
        place_ & 1 ? kit::call(form_.init_idx, &state_, taps.data() + n_, -n_, n_, delay.data() - 3, 3, memory_.data())
                   : kit::call(form_.init, &state_, taps.data(), n_, delay.data(), memory_.data());
    ASSERT_EQ(noxStsNoErr, status);
  }
  void run(const T* src, T* dst, size_t n) {
    const int len = static_cast<int>(n);
    const NoxStatus status = src == dst
                                 ? (n % 2 ? kit::call(Calls<T>::in_place, dst, len, state_)
                                          : kit::call(Calls<T>::in_place_idx, dst + 7, -7, len, state_))
                                 : (n % 2 ? kit::call(Calls<T>::filter, src, dst, len, state_)
                                          : kit::call(Calls<T>::filter_idx, src - 1, 1, dst + 2, -2, len, state_));
    ASSERT_EQ(noxStsNoErr, status);
    memory_.check();
  }
  // Whether these are the outputs of the definition; to be asked once.
  testing::AssertionResult defines(const std::vector<T>& signal, const T* outputs) {
    std::vector<Wide> expected;
    for (const T& x : signal) expected.push_back(reference::wide(x));
    long double error = 0;
    for (auto& part : definition_) part.run(expected, error);
    for (size_t i = 0; i < signal.size(); ++i)
      if (!(size(expected[i] - reference::wide(outputs[i])) <= error))
        return testing::AssertionFailure()
               << "output " << i << " of " << signal.size() << ", n " << n_ << ": " << kit::describe(outputs[i])
               << ", not " << expected[i].re << " + " << expected[i].im << " i to " << error;
    return testing::AssertionSuccess();
  }
  NoxIIRState* state() { return state_; }

 private:
  size_t bytes() const {
    int size = -1;
    EXPECT_EQ(noxStsNoErr, kit::call(form_.size, n_, &size));
    return static_cast<size_t>(size);
  }
  const Form<T>& form_;
  int n_;
  size_t place_;
  std::vector<T> taps_, delay_;
  std::vector<reference::Iir<T>> definition_;
  Guarded<Nox8u> memory_;
  NoxIIRState* state_ = nullptr;
};

template <class T>
std::vector<T> signal_of(kit::Random& random, size_t n) {
  std::vector<T> signal(n);
  random.fill(signal);
  return signal;
}

// The element type of a form.
template <class F>
using elem_of = typename std::decay_t<F>::elem;

std::vector<size_t> orders() {
  if (kit::quick()) return {1, 2, 3, 5, 9};
  return {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 13, 23};
}

TEST_P(Iir, AgreesWithTheDefinition) {
  for_forms([](const auto& form) {
    using T = elem_of<decltype(form)>;
    kit::Random random;
    size_t place = 0;
    for (const size_t n : orders()) {
      // The per-sample step, the shortest chunks by look-ahead with every remainder, and more than a chunk.
      std::vector<size_t> lengths{1, 2, 4 * n, 140};
      if (n < 10 && n % 4 == 1) lengths.insert(lengths.end(), {1024, 1025, 1024 + 4 * n + 1});
      for (size_t more = 1; more <= (kit::quick() ? 2u : 9u); ++more) lengths.push_back(4 * n + more);
      for (const size_t len : lengths) {
        ++place;
        Filter<T> filter(form, n, random, place);
        const std::vector<T> signal = signal_of<T>(random, len);
        Guarded<T> src(signal, place & 2 ? Edge::Start : Edge::End, place % 4 * 8), dst(len, Edge::End, place % 3);
        filter.run(src.data(), dst.data(), len);
        ASSERT_TRUE(filter.defines(signal, dst.data()));
        ASSERT_TRUE(kit::same_bits(src.data(), signal.data(), len)) << "the source was written";
        filter.begin();
        filter.run(src.data(), src.data(), len);
        ASSERT_TRUE(kit::same_bits(src.data(), dst.data(), len)) << "in place, n " << n;
      }
    }
  });
}

TEST_P(Iir, AnyCutContinuesTheSignal) {
  for_forms([](const auto& form) {
    using T = elem_of<decltype(form)>;
    kit::Random random;
    for (int round = 0; round < (kit::quick() ? 6 : 30); ++round) {
      const size_t n = static_cast<size_t>(random.integer(1, 12)), len = static_cast<size_t>(random.integer(1, 600));
      Filter<T> filter(form, n, random, static_cast<size_t>(round));
      const std::vector<T> signal = signal_of<T>(random, len);
      std::vector<T> out(len);
      for (size_t done = 0; done < len;) {
        const int64_t longest = random.chance(0.3) ? 3 : static_cast<int64_t>(8 * n);
        const size_t block = std::min(len - done, static_cast<size_t>(random.integer(1, longest)));
        if (block == 1 && random.chance(0.5)) {
          ASSERT_EQ(noxStsNoErr, kit::call(Calls<T>::one, signal[done], &out[done], filter.state()));
        } else {
          Guarded<T> part(std::vector<T>(&signal[done], &signal[done] + block));
          filter.run(part.data(), part.data(), block);
          std::copy_n(part.begin(), block, &out[done]);
        }
        done += block;
      }
      ASSERT_TRUE(filter.defines(signal, out.data()));
    }
  });
}

// As doubles: valgrind's x87 unit doesn't know extended infinities.
template <class T>
bool finite(const T& x) {
  return std::isfinite(static_cast<double>(reference::real_part(x))) &&
         std::isfinite(static_cast<double>(reference::imag_part(x)));
}

TEST_P(Iir, NanAndInfinityReachNoEarlierOutput) {
  for_forms([](const auto& form) {
    using T = elem_of<decltype(form)>;
    kit::Random random;
    constexpr size_t kLen = 90;
    for (const size_t n : {1, 2, 3, 7, 9}) {
      Filter<T> filter(form, n, random);
      const std::vector<T> clean = signal_of<T>(random, kLen);
      std::vector<T> expected(kLen), out(kLen);
      filter.run(clean.data(), expected.data(), kLen);
      for (size_t at = 0; at < kLen; ++at) {
        std::vector<T> signal = clean;
        signal[at] = narrow(T{}, {at & 1 ? std::nan("") : HUGE_VAL});
        filter.begin();
        filter.run(signal.data(), out.data(), kLen);
        ASSERT_TRUE(kit::same_bits(out.data(), expected.data(), at)) << "bad sample " << at;
        for (size_t i = at; i < kLen; ++i) ASSERT_FALSE(finite(out[i])) << "output " << i << ", bad sample " << at;
      }
    }
  });
}

TEST_P(Iir, SizesAreThoseTold) {
  struct Size {
    NoxStatus (*call)(int, int*);
    int n, sse, avx;
  };
  const Size sizes[] = {
      {noxsIIRGetStateSize_64f, 1, 9296, 9872},           {noxsIIRGetStateSize_64f, 2, 9376, 10048},
      {noxsIIRGetStateSize_64f, 8, 9808, 11056},          {noxsIIRGetStateSize_64f, 9, 9872, 9872},
      {noxsIIRGetStateSize_64fc, 1, 18528, 21024},        {noxsIIRGetStateSize_64fc, 2, 18816, 21696},
      {noxsIIRGetStateSize_64fc, 8, 20544, 25728},        {noxsIIRGetStateSize_64fc, 9, 20832, 20832},
      {noxsIIRGetStateSize_BiQuad_64f, 1, 9408, 9408},    {noxsIIRGetStateSize_BiQuad_64f, 2, 9712, 9712},
      {noxsIIRGetStateSize_BiQuad_64f, 8, 11584, 11584},  {noxsIIRGetStateSize_BiQuad_64f, 9, 11904, 11904},
      {noxsIIRGetStateSize_BiQuad_64fc, 1, 19184, 19184}, {noxsIIRGetStateSize_BiQuad_64fc, 2, 20320, 20320},
      {noxsIIRGetStateSize_BiQuad_64fc, 8, 27136, 27136}, {noxsIIRGetStateSize_BiQuad_64fc, 9, 28272, 28272},
  };
  const bool avx = GetParam().column >= 3;
  for (const Size& s : sizes) {
    int size = 0;
    EXPECT_EQ(noxStsNoErr, kit::call(s.call, s.n, &size));
    EXPECT_EQ(avx ? s.avx : s.sse, size) << s.n;
  }
}

// A byte pattern no call leaves behind.
std::vector<Nox8u> pattern(size_t n) {
  std::vector<Nox8u> bytes(n);
  for (size_t i = 0; i < n; ++i) bytes[i] = static_cast<Nox8u>(i * 37 + 11);
  return bytes;
}

TEST_P(Iir, StatusesInTheirOrder) {
  for_forms([](const auto& form) {
    using T = elem_of<decltype(form)>;
    int size = 77;
    for (const int bad : {0, -1, INT32_MIN, INT32_MAX, 1 << 28, 100000000}) {
      EXPECT_EQ(noxStsNullPtrErr, kit::call(form.size, bad, nullptr));
      EXPECT_EQ(noxStsIIROrderErr, kit::call(form.size, bad, &size)) << bad;
    }
    EXPECT_EQ(77, size);
    for (const int n : {1, 2, 3, 100000, 1700000}) EXPECT_EQ(noxStsNoErr, kit::call(form.size, n, &size)) << n;

    ASSERT_EQ(noxStsNoErr, form.size(2, &size));
    Guarded<Nox8u> memory(pattern(static_cast<size_t>(size)));
    std::vector<T> taps(12, narrow(T{}, Wide{0.5L}));
    NoxIIRState* const nothing = reinterpret_cast<NoxIIRState*>(&size);
    NoxIIRState* state = nothing;
    EXPECT_EQ(noxStsNullPtrErr, kit::call(form.init, nullptr, taps.data(), 0, nullptr, memory.data()));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(form.init, &state, nullptr, 0, nullptr, memory.data()));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(form.init, &state, taps.data(), 0, nullptr, nullptr));
    for (const int bad : {0, -3, INT32_MIN, INT32_MAX})
      EXPECT_EQ(noxStsIIROrderErr, kit::call(form.init, &state, taps.data(), bad, nullptr, memory.data()));
    EXPECT_EQ(nothing, state);
    EXPECT_EQ(pattern(memory.size()), memory.values()) << "written on an error";

    // A zero divisor is found when the record stands already; a zero leading tap is one for a cascade alone.
    std::vector<size_t> divisors{3}, leading{0};
    if (form.cascade) divisors = {3, 9}, leading = {0, 6};
    const auto status_without = [&](size_t tap, T value) {
      std::vector<T> zeroed = taps;
      zeroed[tap] = value;
      state = nothing;
      const NoxStatus status = kit::call(form.init, &state, zeroed.data(), 2, nullptr, memory.data());
      EXPECT_EQ(0u, reinterpret_cast<uintptr_t>(state) % 32);
      EXPECT_LE(memory.data(), reinterpret_cast<Nox8u*>(state));
      EXPECT_GT(memory.data() + 32, reinterpret_cast<Nox8u*>(state));
      return status;
    };
    for (const size_t tap : divisors) EXPECT_EQ(noxStsDivByZeroErr, status_without(tap, narrow(T{}, {-0.0L})));
    for (const size_t tap : leading)
      EXPECT_EQ(form.cascade ? noxStsDivByZeroErr : noxStsNoErr, status_without(tap, T{}));
    if constexpr (kit::is_complex<T>) {
      EXPECT_EQ(noxStsNoErr, status_without(3, T{0, 1}));
      EXPECT_EQ(noxStsNoErr, status_without(0, T{0, 1}));
    }
    EXPECT_EQ(noxStsNoErr, status_without(3, narrow(T{}, Wide{std::nan("")})));

    // A state of the other type, and what is no state at all.
    ASSERT_EQ(noxStsNoErr, form.init(&state, taps.data(), 2, nullptr, memory.data()));
    const std::vector<Nox8u> before = memory.values();
    using Other = std::conditional_t<kit::is_complex<T>, Nox64f, Nox64fc>;
    Other other[3] = {}, to = narrow(Other{}, Wide{7});
    EXPECT_EQ(noxStsNullPtrErr, kit::call(Calls<Other>::filter, other, &to, 0, nullptr));
    EXPECT_EQ(noxStsSizeErr, kit::call(Calls<Other>::filter, other, &to, 0, state));
    EXPECT_EQ(noxStsSizeErr, kit::call(Calls<Other>::in_place, other, INT32_MIN, state));
    EXPECT_EQ(noxStsContextMatchErr, kit::call(Calls<Other>::filter, other, &to, 1, state));
    EXPECT_EQ(noxStsContextMatchErr, kit::call(Calls<Other>::in_place, &to, 1, state));
    EXPECT_EQ(noxStsContextMatchErr, kit::call(Calls<Other>::one, other[0], &to, state));
    EXPECT_EQ(noxStsNullPtrErr, kit::call(Calls<Other>::one, other[0], nullptr, state));
    EXPECT_EQ(7, reference::real_part(to));
    EXPECT_EQ(before, memory.values());
  });
}

TEST_P(Iir, NullDelayLineIsZeros) {
  for_forms([](const auto& form) {
    using T = elem_of<decltype(form)>;
    kit::Random random;
    const std::vector<T> taps = signal_of<T>(random, form.taps(3)), zeros(form.delays(3));
    int size = 0;
    ASSERT_EQ(noxStsNoErr, form.size(3, &size));
    Guarded<Nox8u> memory(static_cast<size_t>(size));
    NoxIIRState* state = nullptr;
    std::vector<Nox8u> images[3];
    for (int i = 0; i < 3; ++i) {
      memory.fill_with(0xFF);
      ASSERT_EQ(noxStsNoErr,
                i == 2 ? kit::call(form.init_idx, &state, taps.data(), 0, 3, nullptr, 5, memory.data())
                       : kit::call(form.init, &state, taps.data(), 3, i ? nullptr : zeros.data(), memory.data()));
      images[i] = memory.values();
    }
    EXPECT_EQ(images[0], images[1]);
    EXPECT_EQ(images[0], images[2]);
  });
}

}  // namespace
