// The cosine transform of short lengths as a direct sum, over a table of the cosines of the whole turn.
//
// Mirrored elements share their cosine up to the sign, so the sums run over half the length: even results over the sums
// of the mirrored pairs, odd results over the differences. Two results are summed in one walk. The place in the table
// is kept below the turn by one subtraction a step.
#include "transform/dct.hpp"
#include "transform/sine.hpp"

namespace nox {
inline namespace NOX_VARIANT {
namespace {

// A walk around the table.
class Walk {
 public:
  NOX_INLINE Walk(const DctSpec* spec, size_t start, size_t step)
      : table_(spec->pCosTable), turn_(4 * static_cast<size_t>(spec->len)), at_(start), step_(step) {}
  NOX_INLINE Nox64f next() {
    const Nox64f c = table_[at_];
    at_ += step_;
    if (at_ >= turn_) at_ -= turn_;
    return c;
  }

 private:
  const Nox64f* table_;
  size_t turn_, at_, step_;
};

}  // namespace

NoxStatus dct_init_direct(DctSpec* spec, Nox8u* tables) {
  Nox64f* const cosines = reinterpret_cast<Nox64f*>(tables);
  const Nox32u whole = 4 * static_cast<Nox32u>(spec->len);
  for_turns(
      whole, whole, [](Nox32u j) { return j; }, [=](Nox32u j, Turn w) { cosines[j] = w.cosine; });
  spec->pCosTable = cosines;
  spec->workSize = 8 * spec->len;
  return noxStsNoErr;
}

NoxStatus dct_direct_forward(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work) {
  const size_t n = static_cast<size_t>(spec->len), half = n / 2;
  Nox64f* const folded = reinterpret_cast<Nox64f*>(work);  // sum, difference, sum, ...
  Nox64f total = 0;
  for (size_t i = 0; i < half; ++i) {
    const Nox64f a = s[i], b = s[n - 1 - i];
    folded[2 * i] = a + b;
    folded[2 * i + 1] = a - b;
    total += a + b;
  }
  // The middle element of an odd length enters the even results, its sign alternating.
  Nox64f middle = n % 2 ? s[half] : 0;
  d[0] = (total + middle) * spec->scale0;
  for (size_t k = 1; k < n; k += 2) {
    Walk of_odd(spec, k, 2 * k), of_even(spec, k + 1, 2 * k + 2);
    Nox64f odd = 0, even = 0;
    for (size_t i = 0; i < half; ++i) {
      odd += folded[2 * i + 1] * of_odd.next();
      even += folded[2 * i] * of_even.next();
    }
    middle = -middle;
    d[k] = odd * spec->scaleK;
    if (k + 1 < n) d[k + 1] = (even + middle) * spec->scaleK;
  }
  return noxStsNoErr;
}

NoxStatus dct_direct_inverse(const Nox64f* s, Nox64f* d, const DctSpec* spec, Nox8u* work) {
  const size_t n = static_cast<size_t>(spec->len), half = n / 2;
  Nox64f* const scaled = reinterpret_cast<Nox64f*>(work);
  scaled[0] = s[0] * spec->scale0;
  for (size_t k = 1; k < n; ++k) scaled[k] = s[k] * spec->scaleK;
  for (size_t i = 0; i < half; ++i) {
    const size_t angle = 2 * i + 1;
    Walk of_even(spec, 0, 2 * angle), of_odd(spec, angle, 2 * angle);
    Nox64f even = 0, odd = 0;
    size_t k = 0;
    for (; k + 1 < n; k += 2) {
      even += scaled[k] * of_even.next();
      odd += scaled[k + 1] * of_odd.next();
    }
    if (k < n) even += scaled[k] * of_even.next();
    d[i] = even + odd;
    d[n - 1 - i] = even - odd;
  }
  if (n % 2) {
    Nox64f middle = 0;
    for (size_t k = 0; k < n; k += 2) middle += k % 4 ? -scaled[k] : scaled[k];
    d[half] = middle;
  }
  return noxStsNoErr;
}

}  // namespace NOX_VARIANT
}  // namespace nox
