// Comparisons of irrational numbers with rational ones, in fixed-point arithmetic of 120 fraction
// bits: for the few results that lie too near to a tie for doubles to tell.
#pragma once

#include "frame/elements.h"

namespace mox::convert {

// Whether |atan2(y, x)| * 2^-factor > n + 1/2, given that it is near to that.
bool isPhaseAboveTie(Mox32s x, Mox32s y, int factor, Mox64s n);

enum class Coordinate { re, im };

// Whether the size of a coordinate of the number with magnitude m * 2^factor and phase
// p * 2^factor is above n + 1/2, or just that and n odd. The factor is from -20 to 16.
bool isCoordinateAboveTie(Coordinate coordinate, Mox32s m, Mox32s p, int factor, Mox64s n);

}  // namespace mox::convert
