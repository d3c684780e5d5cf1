// Multiplication of a vector by a constant.
#pragma once

#include <moxsp/types.h>

namespace mox::arith {

// dst[i] = src[i] * factor, where dst may be src. A factor of 1 copies the elements to the bit, a
// factor of 0 clears dst, whatever the elements are.
template <class F>
void ownsMulC(const F* src, F factor, F* dst, long count);

// data[i] *= factor, likewise.
template <class F>
void ownsMulC_I(F factor, F* data, long count) {
  ownsMulC(data, factor, data, count);
}

}  // namespace mox::arith
