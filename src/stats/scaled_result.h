// How reductions scale integer results that come by way of a double.
#pragma once

#include <algorithm>

#include "frame/rounding.h"
#include "frame/vec/vec.h"

namespace mox::stats {

// 2^-factor; from 2^-1023 on it is 0.
inline Mox64f scaleMultiplier(int factor) {
  return powerOfTwo<Mox64f>(-std::clamp(factor, -1023, 1023));
}

// x halved `factor` times, or doubled where that is negative. Powers beyond these leave no x that
// an integer could tell apart.
inline Mox64f halvedOrDoubled(Mox64f x, int factor) {
  return x * powerOfTwo<Mox64f>(-std::clamp(factor, -1000, 1000));
}

// In the rounding mode in force, saturated to T.
template <class T>
T heldInteger(Mox64f x) {
  return T(toInteger(std::clamp(x, Mox64f(Limits<T>::min), Mox64f(Limits<T>::max))));
}

}  // namespace mox::stats
