// What the arrays are filled with.
#pragma once
#include <stddef.h>

#include "bench/row.hpp"

// Fills whole elements; `data` isn't kStandard.
void fill(void* to, size_t bytes, Element element, Data data);
