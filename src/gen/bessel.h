// The modified Bessel function I0 of arguments from 0 on: near 0 by a polynomial in the square of
// the argument, beyond by one in its reciprocal, times exp(x) / sqrt(x).
#pragma once

#include "arith/exp.h"
#include "arith/polynomial.h"
#include "frame/vec/vec.h"

namespace mox::gen {

// Abramowitz and Stegun, Handbook of Mathematical Functions, 9.8.1 and 9.8.2: errors below 2e-7.
struct CoarseI0 {
  static constexpr Mox64f limit = 3.75;
  static constexpr Mox64f inSquare[] = {1,         3.5156229, 3.0899424, 1.2067492,
                                        0.2659732, 0.0360768, 0.0045813};
  static constexpr Mox64f inReciprocal[] = {0.39894228,  0.01328592,  0.00225319,
                                            -0.00157565, 0.00916281,  -0.02057706,
                                            0.02635537,  -0.01647633, 0.00392377};
};

// The same split with longer series, for doubles: errors below 6e-6 right above the limit, less
// the larger the argument.
struct FineI0 {
  static constexpr Mox64f limit = 4;
  static constexpr Mox64f inSquare[] = {0.9999999985, 4.0000001935, 3.9999959541, 1.777809969,
                                        0.4443189384, 0.0713758187, 0.0075942968, 0.0008267816};
  static constexpr Mox64f inReciprocal[] = {
      0.3989422809,  0.0124667783,  0.0017623668,  0.00026,      0.0022585672,
      -0.0128314822, 0.0495811118,  -0.1209940805, 0.1895476618, -0.1867783276,
      0.1113315511,  -0.0366694767, 0.0051246015};
};

template <class Series, class T>
[[gnu::always_inline]] inline T besselI0(T x) {
  using F = Lane<T>;
  const auto limit = broadcast<T>(F(Series::limit));
  const auto near = [&] {
    const T u = x * F(1 / Series::limit);
    return arith::polynomial(Series::inSquare, u * u);
  };
  const auto isFar = x >= limit;
  if (!anyLane(isFar)) return near();
  const T y = greater(x, limit), r = F(1) / squareRoot(y);
  const T far =
      arith::polynomial(Series::inReciprocal, r * r * F(Series::limit)) * r * arith::exponential(y);
  return anyLane(~isFar) ? select(T(isFar), far, near()) : far;
}

}  // namespace mox::gen
