// Sine and cosine in double precision. The angle is reduced to at most pi / 4 by multiples of
// pi / 2, held in four parts (Cody and Waite, Software Manual for the Elementary Functions, 1980),
// and the power series summed far enough that its rest is below the rounding of the result.
#pragma once

#include "frame/pair.h"

namespace mox::arith {

// All but the last have 33 bits, so that their products with n below 2^20 are exact.
constexpr Mox64f halfPi1 = 0x1.921fb544p+0, halfPi2 = 0x1.0b4611a6p-34, halfPi3 = 0x1.3198a2ep-69,
                 halfPi4 = 0x1.b839a252049c1p-104;
constexpr Mox64f largestAngle = 0x1p20;

struct Reduced {
  V<Mox64f> quarters;  // n, an integer
  V<Mox64f> angle, rest;
};

// Of an angle beyond the largest, or of what is no number; the same in all lanes.
Reduced reducedFar(Mox64f x);

[[gnu::always_inline]] inline Reduced reduced(V<Mox64f> x) {
  const V<Mox64f> n = nearestInteger(x * 0x1.45f306dc9c883p-1) + 0.0;  // an angle of -0 stays so
  const V<Mox64f> r = x - n * halfPi1, w = n * halfPi2, first = r - w;
  // Where the angle is so small that the rounding of `rest` would show, r - w is exact, and so are
  // `rest` and the difference.
  const V<Mox64f> rest = n * halfPi3 - ((r - first) - w), angle = first - rest;
  return {n, angle, ((first - angle) - rest) - n * halfPi4};
}

// Horner's rule over coefficients from the lowest power on.
template <int count>
[[gnu::always_inline]] inline V<Mox64f> polynomial(const Mox64f (&c)[count], V<Mox64f> x) {
  V<Mox64f> sum = broadcast<V<Mox64f>>(c[count - 1]);
  for (int i = count - 2; i >= 0; --i) sum = sum * x + c[i];
  return sum;
}

constexpr Mox64f sineTerms[] = {
    -1 / 6.0,        1 / 120.0,        -1 / 5040.0,          1 / 362880.0,
    -1 / 39916800.0, 1 / 6227020800.0, -1 / 1307674368000.0, 1 / 355687428096000.0};
constexpr Mox64f cosineTerms[] = {
    1 / 24.0,        -1 / 720.0,         1 / 40320.0,          -1 / 3628800.0,
    1 / 479001600.0, -1 / 87178291200.0, 1 / 20922789888000.0, -1 / 6402373705728000.0};

// The quadrant in the low bits: those of the number that n + 1.5 * 2^52 holds at its end.
[[gnu::always_inline]] inline Bits<V<Mox64f>> quadrantBits(V<Mox64f> n) {
  return Bits<V<Mox64f>>(n + 0x1.8p52);
}

// sin(angle + rest) and cos(angle + rest) to first order in the rest.
[[gnu::always_inline]] inline V<Mox64f> sineOf(V<Mox64f> angle, V<Mox64f> rest) {
  const V<Mox64f> s = angle * angle;
  const V<Mox64f> correction = angle * s * polynomial(sineTerms, s) + rest * (1 - s * 0.5);
  return withSignOf(angle, angle + correction);
}
[[gnu::always_inline]] inline V<Mox64f> cosineOf(V<Mox64f> angle, V<Mox64f> rest) {
  const V<Mox64f> s = angle * angle, half = s * 0.5, head = 1 - half;
  return head + (((1 - head) - half) + (s * s * polynomial(cosineTerms, s) - angle * rest));
}

// The cosine and the sine.
[[gnu::always_inline]] inline Pair<V<Mox64f>> phasor(Reduced x) {
  using Lanes = V<Mox64f>;
  const auto [n, angle, rest] = x;
  const Bits<Lanes> quadrant = quadrantBits(n);
  const Lanes odd = Lanes(quadrant << 63), s = sineOf(angle, rest), c = cosineOf(angle, rest);
  return {Lanes(Bits<Lanes>(select(odd, s, c)) ^ ((quadrant + 1) & 2) << 62),
          Lanes(Bits<Lanes>(select(odd, c, s)) ^ (quadrant & 2) << 62)};
}

}  // namespace mox::arith
