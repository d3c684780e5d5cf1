// Transforms of 1, 2, 4 and 8 numbers in registers, in natural order.
#pragma once

#include "transforms/complex_vector.h"

namespace mox::transforms {

template <Direction, class F, class Z>
[[gnu::always_inline]] inline void butterfly(Z (&)[1]) {}

template <Direction, class F, class Z>
[[gnu::always_inline]] inline void butterfly(Z (&a)[2]) {
  const Z sum = a[0] + a[1];
  a[1] = a[0] - a[1];
  a[0] = sum;
}

template <Direction direction, class F, class Z>
[[gnu::always_inline]] inline void butterfly(Z (&a)[4]) {
  const Z s = a[0] + a[2], d = a[0] - a[2], t = a[1] + a[3], u = a[1] - a[3];
  const auto [first, third] = quarterTurns<direction>(d, u);
  a[0] = s + t;
  a[1] = first;
  a[2] = s - t;
  a[3] = third;
}

template <Direction direction, class F, class Z>
[[gnu::always_inline]] inline void butterfly(Z (&a)[8]) {
  constexpr F diagonal = F(0.70710678118654752440L);
  Z even[4] = {a[0], a[2], a[4], a[6]}, odd[4] = {a[1], a[3], a[5], a[7]};
  butterfly<direction, F>(even);
  butterfly<direction, F>(odd);
  // The odd half turns by eighths: 1 - i, -2 i and -(1 + i), but for the factor.
  const Z one = odd[1] * diagonal, three = odd[3] * diagonal;
  const Z turnedOne = quarterTurns<direction>(one, one).first;
  const Z turnedThree = quarterTurns<direction>(three, three).second;
  const auto [two, six] = quarterTurns<direction>(even[2], odd[2]);
  a[0] = even[0] + odd[0];
  a[4] = even[0] - odd[0];
  a[1] = even[1] + turnedOne;
  a[5] = even[1] - turnedOne;
  a[2] = two;
  a[6] = six;
  a[3] = even[3] - turnedThree;
  a[7] = even[3] + turnedThree;
}

}  // namespace mox::transforms
