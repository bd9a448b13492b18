// Lists of lengths, one for each size of element.
#include "kit/lengths.hpp"

#include <cstdlib>
#include <map>

namespace kit {

bool quick() {
  static const bool set = std::getenv("NOX_TEST_QUICK") != nullptr;
  return set;
}

const std::vector<int>& lengths(size_t element_bytes) {
  static std::map<size_t, std::vector<int>> lists;
  std::vector<int>& list = lists[element_bytes];
  if (!list.empty()) return list;
  const int vector = static_cast<int>(32 / element_bytes > 0 ? 32 / element_bytes : 1);
  const int past_four = 4 * vector + 6;
  for (int n = 1; n <= past_four; ++n)
    if (!quick() || n <= 9 || n % vector <= 1 || n % vector == vector - 1) list.push_back(n);
  for (int n : {127, 128, 129, 255, 256, 257, 1000, 4095, 4096, 4097})
    if (n > past_four && (!quick() || n == 129 || n == 1000)) list.push_back(n);
  return list;
}

}  // namespace kit
