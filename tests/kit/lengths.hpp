// The lengths that tests of array functions run through.
#pragma once
#include <cstddef>
#include <vector>

namespace kit {

// All from 1 past four vectors of 32 bytes of such elements, then round lengths and their neighbours. Under an
// emulator (NOX_TEST_QUICK) a thinned list: each tail and each number of vectors once.
const std::vector<int>& lengths(size_t element_bytes = 2);
// Whether long runs should be shortened.
bool quick();

}  // namespace kit
