// The principal square root of complex numbers in double precision.
#pragma once

#include <limits>

#include "frame/pair.h"

namespace mox::arith {

using ComplexLanes = Pair<V<Mox64f>>;

// One part of the root is sqrt((|re| + |z|) / 2), the other im over twice that: nothing cancels.
// Serves zero and all z whose |z|^2 is in the range of normal numbers.
[[gnu::always_inline]] inline ComplexLanes complexRoot(ComplexLanes z) {
  const V<Mox64f> modulus = squareRoot(z.re * z.re + z.im * z.im);
  const V<Mox64f> larger = squareRoot((absolute(z.re) + modulus) * 0.5);
  const V<Mox64f> divisor =  // never 0, so that the other part of the root of zero is zero
      greater(larger + larger, broadcast<V<Mox64f>>(std::numeric_limits<Mox64f>::min()));
  const V<Mox64f> other = z.im / divisor;
  const V<Mox64f> left = notAtLeast(z.re, 0.0);
  return {select(left, absolute(other), larger),
          withSignOf(z.im, select(left, larger, absolute(other)))};
}

}  // namespace mox::arith
