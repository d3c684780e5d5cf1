// What this machine can do at the most, measured on one core with the instructions that the
// library uses.
#pragma once

#include "support/compare.h"

namespace bench {

// Seconds that the work takes at the limit: the slower of its memory traffic at the rate of
// vector loads and stores over a working set of that size, and its arithmetic at the rate of
// independent multiplications and additions, not fused.
double limitSeconds(const Work& work);

}  // namespace bench
