// The contents of a plan's tables, which the layout has placed.
#pragma once

#include "transforms/dft_layout.h"

namespace mox::transforms {

// For a flag and a hint that are good; `initBuf` has sizes().init bytes.
template <class F>
void fillDft(DftSpec<F>& plan, bool isReal, int flag, int hint, Mox8u* initBuf);

}  // namespace mox::transforms
