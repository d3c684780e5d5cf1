// Products as operations on scalars and vectors; complex numbers as interleaved parts.
#pragma once

#include "frame/vec.h"

namespace mox {

constexpr auto product = [](auto a, auto b) { return a * b; };

constexpr auto complexProduct = [](auto x, auto y) {
  return subtractAdd(x * realParts(y), swapParts(x) * imaginaryParts(y));
};

constexpr auto realByComplex = [](auto a, auto z) { return doubled(a) * z; };

}  // namespace mox
