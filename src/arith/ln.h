// The natural logarithm, in the parts that its families put together.
#pragma once

#include <bit>
#include <limits>

#include "frame/vec/vec.h"

namespace mox::arith {

// Codes of the elements that a logarithm warns of.
enum LnCode { lnOfZero = 18, lnOfNegative = 19 };

inline MoxStatus lnStatus(int code) {
  if (code == 0) return moxOk;
  return (code & ~16) == 2 ? moxWarnLnZeroArg : moxWarnLnNegArg;
}

// Those of numbers in an array, for other families.
void lnOfFloats(Mox32f* srcDst, long len);

// x = 2^exponent * mantissa, the mantissa from sqrt(1/2) to sqrt(2), for normal x above 0.
template <Of<Mox64f> T>
struct LnArgument {
  T exponent, mantissa;

  [[gnu::always_inline]] explicit LnArgument(T x) {
    using Integers = Bits<T>;
    constexpr Mox64u least = std::bit_cast<Mox64u>(0x1.6a09e667f3bcdp-1), one = Mox64u(1) << 52;
    const Integers biased = Integers(x) + (1023 * one - least);
    // The exponent becomes the low bits of a number above 2^52.
    const Integers above = (biased >> 52) | std::bit_cast<Mox64u>(0x1p52);
    exponent = T(above) - (0x1p52 + 1023);
    mantissa = T((biased & (one - 1)) + least);
  }
};

// ln(x) = exponent * ln(2) + ln(1 + f), by way of s = f / (2 + f) and the series of
// ln(1 + f) = 2 artanh(s) in z = s * s up to z^9, whose remainder is below 2^-55 of the result.
// f - f * f / 2 is kept apart for its exact leading term.
template <Of<Mox64f> T>
[[gnu::always_inline]] inline T lnOf(LnArgument<T> x) {
  const T f = x.mantissa - 1.0, s = f / (f + 2.0), z = s * s, z2 = z * z, z4 = z2 * z2;
  const T t1 = z * (2 / 5.0) + 2 / 3.0, t3 = z * (2 / 9.0) + 2 / 7.0,
          t5 = z * (2 / 13.0) + 2 / 11.0, t7 = z * (2 / 17.0) + 2 / 15.0;
  const T series = ((z4 * (2 / 19.0) + (t7 * z2 + t5)) * z4 + (t3 * z2 + t1)) * z;
  const T half = f * f * 0.5;
  const T low = s * (half + series) + x.exponent * 0x1.3de6af278ece6p-42;
  return x.exponent * 0x1.62e42fefa3p-1 + (f - (half - low));
}

// `result` where x is positive and finite, and what the others have for a logarithm.
template <class T>
[[gnu::always_inline]] inline T lnOutsideItsDomain(T x, T result, int& code) {
  using Range = std::numeric_limits<Lane<T>>;
  const T zero = {}, isZero = T(x == zero), isNegative = T(x < zero);
  const int warned = signBits(either(isZero, isNegative));
  if (warned && code == 0)
    code = x[std::countr_zero(unsigned(warned))] == 0 ? lnOfZero : lnOfNegative;
  result = select(notAtMost(x, Range::max()), x + x, result);  // infinity and NaN
  result = select(isNegative, zero + Range::quiet_NaN(), result);
  return select(isZero, zero - Range::infinity(), result);
}

// The logarithm of doubles: a function for runFunction().
struct Ln64f {
  using Lanes = Register<Mox64f>;

  static Lanes lanes(Lanes x) { return lnOf(LnArgument(x)); }

  template <Of<Mox64f> T>
  static Mask<T> special(T x) {
    using Range = std::numeric_limits<Mox64f>;
    return either(notAtLeast(x, Range::min()), notAtMost(x, Range::max()));
  }

  static Lanes rare(Lanes x, int& code) {
    // A subnormal number counts steps of 2^-1074. Arithmetic on the number itself would be slow.
    const auto bits = Bits<Lanes>(x) | std::bit_cast<Mox64u>(0x1p52);
    LnArgument steps(Lanes(bits) - 0x1p52);
    steps.exponent -= 1074.0;
    return lnOutsideItsDomain(x, lnOf(steps), code);
  }
};

}  // namespace mox::arith
