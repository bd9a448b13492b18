// Straight-line transforms of 1 to 32 real values: the spectra of the even and of the odd places, each by the same
// rule, are joined by one butterfly a pair. The recursion is resolved by the compiler and works on locals, so source
// and destination may be one array.
#include "transform/fft_real.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// cos(2*pi*k/32)
constexpr Nox64f kCosine[] = {1.0,
                              0.98078528040323044913,
                              0.92387953251128675613,
                              0.83146961230254523708,
                              0.70710678118654752440,
                              0.55557023301960222474,
                              0.38268343236508977173,
                              0.19509032201612826785,
                              0.0};

// d: spectrum in head layout of the values s[0], s[Step], ...
template <int N, int Step = 1>
NOX_INLINE void forward(const Nox64f* s, Nox64f* d) {
  if constexpr (N == 1) {
    d[0] = s[0];
  } else if constexpr (N == 2) {
    d[0] = s[0] + s[Step];
    d[1] = s[0] - s[Step];
  } else {
    Nox64f even[N / 2], odd[N / 2];
    forward<N / 2, 2 * Step>(s, even);
    forward<N / 2, 2 * Step>(s + Step, odd);
    d[0] = even[0] + odd[0];
    d[1] = even[0] - odd[0];
    d[N / 2] = even[1];  // at a quarter of N the factor is -i
    d[N / 2 + 1] = -odd[1];
#pragma GCC unroll 8
    for (int k = 1; k < N / 4; ++k) {
      const Nox64f c = kCosine[k * (32 / N)], w = kCosine[8 - k * (32 / N)];
      const Nox64f re = c * odd[2 * k] + w * odd[2 * k + 1], im = c * odd[2 * k + 1] - w * odd[2 * k];
      d[2 * k] = even[2 * k] + re;
      d[2 * k + 1] = even[2 * k + 1] + im;
      d[N - 2 * k] = even[2 * k] - re;
      d[N - 2 * k + 1] = im - even[2 * k + 1];
    }
  }
}

// The same steps backwards, each doubling what it takes apart.
template <int N, int Step = 1>
NOX_INLINE void inverse(const Nox64f* s, Nox64f* d) {
  if constexpr (N == 1) {
    d[0] = s[0];
  } else if constexpr (N == 2) {
    d[0] = s[0] + s[1];
    d[Step] = s[0] - s[1];
  } else {
    Nox64f even[N / 2], odd[N / 2];
    even[0] = s[0] + s[1];
    odd[0] = s[0] - s[1];
    even[1] = s[N / 2] + s[N / 2];
    odd[1] = -(s[N / 2 + 1] + s[N / 2 + 1]);
#pragma GCC unroll 8
    for (int k = 1; k < N / 4; ++k) {
      const Nox64f c = kCosine[k * (32 / N)], w = kCosine[8 - k * (32 / N)];
      const Nox64f re = s[2 * k] - s[N - 2 * k], im = s[2 * k + 1] + s[N - 2 * k + 1];
      even[2 * k] = s[2 * k] + s[N - 2 * k];
      even[2 * k + 1] = s[2 * k + 1] - s[N - 2 * k + 1];
      odd[2 * k] = c * re - w * im;
      odd[2 * k + 1] = c * im + w * re;
    }
    inverse<N / 2, 2 * Step>(even, d);
    inverse<N / 2, 2 * Step>(odd, d + Step);
  }
}

template <int Order, bool Inverse, bool Scaled>
void direct(const Nox64f* s, Nox64f* d, Nox64f scale) {
  constexpr int N = 1 << Order;
  Nox64f out[N];
  if constexpr (Inverse)
    inverse<N>(s, out);
  else
    forward<N>(s, out);
#pragma GCC unroll 32
  for (int i = 0; i < N; ++i) d[i] = Scaled ? out[i] * scale : out[i];
}

using Direct = void (*)(const Nox64f* s, Nox64f* d, Nox64f scale);
template <bool Inverse, bool Scaled>
constexpr Direct kByOrder[] = {direct<0, Inverse, Scaled>, direct<1, Inverse, Scaled>, direct<2, Inverse, Scaled>,
                               direct<3, Inverse, Scaled>, direct<4, Inverse, Scaled>, direct<5, Inverse, Scaled>};
constexpr const Direct* kRoutines[2][2] = {{kByOrder<false, false>, kByOrder<false, true>},
                                           {kByOrder<true, false>, kByOrder<true, true>}};

}  // namespace

void real_direct(bool inverse, bool scaled, int order, const Nox64f* s, Nox64f* d, Nox64f scale) {
  kRoutines[inverse][scaled][order](s, d, scale);
}

}  // namespace NOX_VARIANT
}  // namespace nox
