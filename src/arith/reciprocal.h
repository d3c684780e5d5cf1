#pragma once

#include "frame/vec.h"

namespace mox {

// 1 / v from the processor's estimate and one step of Newton's method: good to a unit or two in the
// last place, the same on processors with the same estimate.
[[gnu::always_inline]] inline V<Mox32f> refinedReciprocal(V<Mox32f> v) {
  const V<Mox32f> g = reciprocalEstimate(v);
  return g * (2.0f - v * g);
}

}  // namespace mox
