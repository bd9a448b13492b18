// The scenarios of all families, each list in the file of its family.
#pragma once
#include "fuzz/run.hpp"

namespace fuzz {
extern const std::vector<Recipe> kFilterRecipes, kRecursiveRecipes, kTransformRecipes, kOtherRecipes;
}
