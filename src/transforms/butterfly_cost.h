// What the choices of radices count.
#pragma once

#include "transforms/dft_spec.h"

namespace mox::transforms {

// Instructions of a butterfly as GCC makes it, a prime's of more than 16 by its sums; those of a
// twiddle.
constexpr int butterflyCost(int radix) {
  constexpr int costs[] = {0, 0, 2, 8, 10, 27, 24, 55, 35, 70, 66, 153, 67, 201, 136, 139, 130};
  return radix <= mostButterfly ? costs[radix] : radix * radix;
}
constexpr int twiddleCost = 6;

}  // namespace mox::transforms
