// Sums over few samples that lie far apart.
#pragma once

#include <moxsp/types.h>

namespace mox::kernels {

// Taps that are not zero, and how many samples each looks back.
struct SparseTaps {
  const Mox32f* values;
  const int* positions;
  long count;
};

// dst[i] = begin[i] + values[0] * newest[i - positions[0]] + values[1] * .., the sums from left to
// right; without `begin` they start with the first product. `dst` overlaps no source. Every output
// is one chain, whatever block it is computed in.
void sumSparse(SparseTaps taps, const Mox32f* newest, const Mox32f* begin, Mox32f* dst, long len);

}  // namespace mox::kernels
