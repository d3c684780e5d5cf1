// Multiplication of a vector by a constant, in place.
#pragma once

#include <moxsp/types.h>

namespace mox {

// data[i] *= factor. A factor of 1 leaves the data alone, a factor of 0 clears them, NaN too.
template <class F>
void ownsMulC_I(F factor, F* data, long count);

}  // namespace mox
