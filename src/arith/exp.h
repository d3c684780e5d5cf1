// The exponential of vectors.
#pragma once

#include "frame/vec/vec.h"

namespace mox::arith {

// x = exponent * ln(2) + rest with an integer exponent and |rest| about ln(2) / 2 at the most, in
// every rounding mode. For |x| up to 2^31 the products with the first two parts of ln(2) are exact,
// and so are the differences.
template <Of<Mox64f> T>
struct ExpArgument {
  T exponent, rest;

  [[gnu::always_inline]] explicit ExpArgument(T x)
      : exponent(nearestInteger(x * 0x1.71547652b82fep+0)),
        rest(((x - exponent * 0x1.62e428p-1) - exponent * 0x1.fbe8ep-23) -
             exponent * 0x1.ef35793c7673p-45) {}
};

// 2^n for integers n in -1022 to 1023.
template <Of<Mox64f> T>
[[gnu::always_inline]] inline T powersOfTwo(T n) {
  const T biased = n + (0x1.8p52 + 1023);  // in the low bits of the sum
  return T(Bits<T>(biased) << 52);
}

// e^r for the rest of an argument: the Taylor series up to r^13, whose remainder is below 2^-57,
// summed in pairs of terms for a short chain.
template <Of<Mox64f> T>
[[gnu::always_inline]] inline T expOfRest(T r) {
  const T r2 = r * r, r4 = r2 * r2;
  const T t3 = r * (1 / 6.0) + 0.5, t5 = r * (1 / 120.0) + 1 / 24.0,
          t7 = r * (1 / 5040.0) + 1 / 720.0, t9 = r * (1 / 362880.0) + 1 / 40320.0,
          t11 = r * (1 / 39916800.0) + 1 / 3628800.0,
          t13 = r * (1 / 6227020800.0) + 1 / 479001600.0;
  const T tail = ((t13 * r2 + t11) * r4 + (t9 * r2 + t7)) * r4 + (t5 * r2 + t3);
  return (tail * r2 + r) + 1.0;
}

// e^x for |x| up to 708.
template <Of<Mox64f> T>
[[gnu::always_inline]] inline T exponential(T x) {
  const ExpArgument argument(x);
  return expOfRest(argument.rest) * powersOfTwo(argument.exponent);
}

// 2^m e^x in single precision, for |x| up to 105: x = n ln(2) + r, a polynomial gives e^r, and
// 2^(n + m) has to be a normal number.
template <Of<Mox32f> T, class M>
[[gnu::always_inline]] inline T scaledExponential(T x, M m) {
  const T shifted = x * 1.4426950216293335f + 12582912.0f;  // n in its low bits
  const T n = shifted - 12582912.0f;
  const T r = (x - n * 0.693145751953125f) - n * 1.428606765330187e-06f;
  const T p =
      ((((r * 0.008291719481348991f + 0.041873522102832794f) * r + 0.16667431592941284f) * r +
        0.4999939203262329f) *
           r +
       0.9999998807907104f) *
          r +
      1.0f;
  return p * T((Bits<T>(shifted) + (0x7F + m)) << 23);
}

// e^x for |x| up to 87.
template <Of<Mox32f> T>
[[gnu::always_inline]] inline T exponential(T x) {
  return scaledExponential(x, 0);
}

}  // namespace mox::arith
