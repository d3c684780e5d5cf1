// Exact models of the conversions to integers, in arithmetic of 128 bits.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace test {

__extension__ typedef __int128 Int128;

struct Range {
  Int128 min, max;
};
template <class T>
constexpr Range rangeOf = {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
constexpr Range range24s = {-(1 << 23), (1 << 23) - 1}, range24u = {0, (1 << 24) - 1};

inline Int128 saturated(Int128 x, Range r) { return x < r.min ? r.min : x > r.max ? r.max : x; }

enum class Mode { zero = 0, nearEven = 1, halfAway = 2 };

// magnitude * 2^exponent to an integer; stops where it is larger than any range.
inline Int128 roundedMagnitude(Int128 magnitude, long exponent, Mode mode) {
  if (magnitude == 0) return 0;
  for (; exponent > 0 && magnitude < Int128(1) << 100; --exponent) magnitude *= 2;
  if (exponent >= 0) return magnitude;
  if (exponent < -100) return 0;
  const Int128 unit = Int128(1) << -exponent, whole = magnitude / unit, rest = magnitude % unit;
  const Int128 half = unit / 2;
  switch (mode) {
    case Mode::zero:
      return whole;
    case Mode::halfAway:
      return whole + (rest >= half);
    case Mode::nearEven:
      return whole + (rest > half || (rest == half && whole % 2 == 1));
  }
  return 0;
}

// r * 2^-factor.
inline Int128 scaledInteger(Int128 r, int factor, Range range, Mode mode = Mode::nearEven) {
  const Int128 m = roundedMagnitude(r < 0 ? -r : r, -long(factor), mode);
  return saturated(r < 0 ? -m : m, range);
}

// x * 2^-factor for a float or double; a NaN is left to the caller.
inline Int128 scaledFloat(double x, int factor, Range range, Mode mode) {
  if (std::isinf(x)) return x < 0 ? range.min : range.max;
  int exponent;
  const double fraction = std::frexp(std::fabs(x), &exponent);
  const Int128 m =
      roundedMagnitude(Int128(std::ldexp(fraction, 53)), exponent - 53L - factor, mode);
  return saturated(x < 0 ? -m : m, range);
}

}  // namespace test
