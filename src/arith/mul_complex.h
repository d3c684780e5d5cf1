// Products of complex vectors, for other families.
#pragma once

#include "arith/operations.h"
#include "frame/map.h"

namespace mox {

// dst[i] = src1[i] * src2[i], where dst may be one of the sources; len may be 0.
template <Complex E>
void mulComplex(const E* src1, const E* src2, E* dst, long len) {
  mapElements(complexProduct, dst, len, src1, src2);
}

}  // namespace mox
