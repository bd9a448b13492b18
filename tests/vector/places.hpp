// Where the arrays of a call stand: against unmapped memory in front or behind, on and off vector boundaries.
#pragma once
#include <vector>

#include "kit/guarded.hpp"
#include "kit/lengths.hpp"

struct Place {
  kit::Edge edge;
  size_t first, second, dst;  // bytes away from the edge
};
// Pages are aligned, so at their start 0 is aligned for all, 8 and 16 for some, and 1, 3 and 5 for no access at all.
constexpr Place kPlaces[] = {{kit::Edge::End, 0, 0, 0},     {kit::Edge::Start, 0, 0, 0},  {kit::Edge::Start, 0, 8, 8},
                             {kit::Edge::Start, 16, 24, 0}, {kit::Edge::Start, 8, 8, 24}, {kit::Edge::Start, 5, 1, 3},
                             {kit::Edge::End, 1, 16, 8}};

// test(n, place, turn) for all lengths of such elements, the long ones at one place each.
template <class Test>
void for_lengths_and_places(size_t element_bytes, Test&& test) {
  size_t turn = 0;
  for (const int len : kit::lengths(element_bytes))
    for (const Place& place : kPlaces)
      if (++turn; len < 250 || turn % std::size(kPlaces) == static_cast<size_t>(len) % std::size(kPlaces))
        test(static_cast<size_t>(len), place, turn + static_cast<size_t>(len));
}
