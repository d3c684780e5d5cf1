// Polynomials lane by lane.
#pragma once

#include "frame/vec/vec.h"

namespace mox::arith {

// Horner's rule over coefficients from the lowest power on.
template <class T, int count>
[[gnu::always_inline]] inline T polynomial(const Mox64f (&c)[count], T x) {
  using F = Lane<T>;
  T sum = broadcast<T>(F(c[count - 1]));
  for (int i = count - 2; i >= 0; --i) sum = sum * x + F(c[i]);
  return sum;
}

}  // namespace mox::arith
