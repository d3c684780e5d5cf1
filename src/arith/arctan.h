// The series behind the arctangent.
#pragma once

#include "frame/vec/vec.h"

namespace mox::arith {

// The arctangent of t in 0 to 1 as a rational function.
template <Of<Mox32f> T>
[[gnu::always_inline]] inline T arctanOfFraction(T t) {
  const T s = t * t;
  const T p =
      ((s * 0.008561189286410809f + 0.2805045545101166f) * s + 1.1202340126037598f) * s + 1.0f;
  const T q =
      ((s * 0.049017589539289474f + 0.5650309920310974f) * s + 1.4535671472549438f) * s + 1.0f;
  return t * p * refinedReciprocal(q);
}

constexpr Mox64f tangentOfEighthPi = 0x1.a827999fcef32p-2;

// atan(t) - t for t up to tan(pi / 8): t^3 times a polynomial in z = t^2, which is a Chebyshev fit
// of (atan(t) / t - 1) / z with an error below 2^-54.
template <Of<Mox64f> T>
[[gnu::always_inline]] inline T arctanExcess(T t) {
  const T z = t * t, z2 = z * z, z4 = z2 * z2;
  const T p0 = z * 0.19999999999995516 - 0.3333333333333333,
          p2 = z * 0.11111111015187018 - 0.14285714284665682,
          p4 = z * 0.07692183125376892 - 0.0909090457530649,
          p6 = z * 0.05858140904866328 - 0.06664510525508936,
          p8 = z * 0.03923044778479309 - 0.050854078345894844;
  const T p = ((z2 * -0.019175404711104932 + p8) * z4 + (p6 * z2 + p4)) * z4 + (p2 * z2 + p0);
  return p * z * t;
}

}  // namespace mox::arith
