// The scale rule in integer arithmetic of 128 bits.
#pragma once

#include "frame/elements.h"
#include "support/test.h"

namespace test {

using mox::Int128;
__extension__ typedef unsigned __int128 UInt128;

struct Range {
  Int128 min, max;
};
template <class T>
constexpr Range rangeOf = {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};

inline Int128 saturated(Int128 x, Range r) { return x < r.min ? r.min : x > r.max ? r.max : x; }

enum class Mode { zero = 0, nearEven = 1, halfAway = 2 };

// n / d * 2^-factor as an integer; over zero, the limit that the sign of n points to.
inline Int128 scaledQuotient(Int128 n, Int128 d, long factor, Range range,
                             Mode mode = Mode::nearEven) {
  if (d == 0 || n == 0) return n == 0 ? 0 : n < 0 ? range.min : range.max;
  UInt128 top = UInt128(n < 0 ? -n : n), bottom = UInt128(d < 0 ? -d : d);
  // One of the two grows until the quotient is beyond any range, or below one half.
  for (; factor < 0 && top >> 126 == 0; ++factor) top *= 2;
  for (; factor > 0 && bottom >> 127 == 0; --factor) bottom *= 2;
  const UInt128 whole = top / bottom, rest = top % bottom, restAbove = bottom - rest;
  const bool up = mode == Mode::halfAway   ? rest >= restAbove
                  : mode == Mode::nearEven ? rest > restAbove || (rest == restAbove && whole & 1)
                                           : false;
  const Int128 magnitude = Int128(whole) + up;
  return saturated((n < 0) != (d < 0) ? -magnitude : magnitude, range);
}

inline Int128 scaledInteger(Int128 r, long factor, Range range, Mode mode = Mode::nearEven) {
  return scaledQuotient(r, 1, factor, range, mode);
}

// Of a float or double; a NaN is left to the caller.
inline Int128 scaledFloat(double x, int factor, Range range, Mode mode) {
  if (std::isinf(x)) return x < 0 ? range.min : range.max;
  int exponent;
  const double fraction = std::frexp(x, &exponent);
  return scaledInteger(Int128(std::ldexp(fraction, 53)), factor - (exponent - 53L), range, mode);
}

}  // namespace test
