// Blocks of samples through a state, by stretches where these pay.
#pragma once

#include "iir/iir_state.h"

namespace mox::iir {

// dst may be src; arrays may not overlap otherwise.
template <class E>
void filterBlock(State<E>& s, const E* src, E* dst, long len);

}  // namespace mox::iir
