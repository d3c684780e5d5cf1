// How reductions scale integer results that come by way of a double.
#pragma once

#include <algorithm>

#include "frame/control_word.h"
#include "frame/rounding.h"

namespace mox::stats {

// 2^-factor. Powers beyond these leave no sum that an integer could tell apart.
inline Mox64f scaleMultiplier(int factor) {
  return powerOfTwo<Mox64f>(-std::clamp(factor, -100, 100));
}

// The sum or mean of elements E times 2^-factor. Of real ones nothing is left from 2^-1023 on.
template <class E>
Mox64f scaled(Mox64f x, int factor) {
  return !Complex<E> && factor >= 1023 ? 0 : x * scaleMultiplier(factor);
}

// In the rounding mode in force, saturated to T.
template <class T>
T saturatedInteger(Mox64f x) {
  return T(toInteger(std::clamp(x, Mox64f(Limits<T>::min), Mox64f(Limits<T>::max))));
}

// A sum of elements E times 2^-factor, rounded and saturated likewise. Without places to drop there
// is nothing to round.
template <class E, class T>
T scaledSum(Mox64s sum, int factor) {
  if (factor <= 0) return Scale<T, 62>(factor).apply(sum);
  const HiddenExceptions scope;
  return scope.settled(saturatedInteger<T>(scaled<E>(Mox64f(sum), factor)));
}

}  // namespace mox::stats
