// What divisions in integers share.
#pragma once

#include <algorithm>

#include "frame/elements.h"

namespace mox::arith {

// The absolute value; that of the minimum is no Mox64s.
inline Mox64u absoluteValue(Mox64s v) { return v < 0 ? 0 - Mox64u(v) : Mox64u(v); }

// quotient + remainder / divisor to the nearest integer, ties to the even one.
inline Mox64u nearestQuotient(Mox64u quotient, Mox64u remainder, Mox64u divisor) {
  const Mox64u rest = divisor - remainder;
  return quotient + (remainder > rest || (remainder == rest && (quotient & 1)));
}

// The number of that magnitude and sign, saturated to T.
template <class T>
T saturatedTo(Mox64u magnitude, bool negative) {
  constexpr Mox64u max = Mox64u(Limits<T>::max);
  return negative ? T(0 - std::min(magnitude, max + 1)) : T(std::min(magnitude, max));
}

}  // namespace mox::arith
