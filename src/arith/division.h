// What divisions share: the note of zero divisors, integer quotients times 2^-factor by
// floating-point arithmetic, and those in integers. Vectors W of floats or doubles hold the
// integers exactly, and run under rounding to nearest.
#pragma once

#include <moxsp/types.h>

#include <algorithm>

#include "frame/rounding.h"

namespace mox::arith {

// Remembers whether a divisor was zero.
template <class F>
class ZeroDivisors {
 public:
  // The mask of those that are.
  template <Of<F> T>
  [[gnu::always_inline]] T note(T divisors) {
    return found(T(divisors == T{}));
  }
  void note(F divisor) { few_ |= divisor == 0; }

  // A complex divisor, of interleaved parts, is zero where both of them are. Only a sum of squares
  // of 0, which the quotient is made of as well, asks for a closer look.
  template <class T>
  [[gnu::always_inline]] void noteComplex(T divisors) {
    const T re = realParts(divisors), im = imaginaryParts(divisors), squares = re * re + im * im;
    if constexpr (sizeof(T) < 16) {
      if (squares[0] == 0) [[unlikely]]
        few_ |= divisors[0] == 0 && divisors[1] == 0;
    } else if (anyLane(squares == T{})) [[unlikely]] {
      found(T((re == T{}) & (im == T{})));
    }
  }

  MoxStatus status() const { return few_ || signBits(found_) ? moxWarnDivByZero : moxOk; }

 private:
  template <class T>
  [[gnu::always_inline]] T found(T zero) {
    if constexpr (std::is_same_v<T, V<F>>)
      found_ = either(found_, zero);
    else
      few_ |= signBits(zero) != 0;
    return zero;
  }

  V<F> found_ = {};
  bool few_ = false;
};

// A divisor of zero is noted, and counts as one so small that any dividend but 0 reaches the limits
// of its type.
template <class W>
[[gnu::always_inline]] inline W withoutZeros(ZeroDivisors<Lane<W>>& zeros, W divisor) {
  constexpr auto tiny = Lane<W>(sizeof(Lane<W>) == 4 ? 0x1p-60 : 0x1p-200);
  return either(divisor, W(Bits<W>(zeros.note(divisor)) & Bits<W>(broadcast<W>(tiny))));
}

// What a factor does to the divisor, as far from 1 as any result asks for.
template <class W>
Lane<W> divisorScale(int factor) {
  constexpr int far = sizeof(Lane<W>) == 4 ? 40 : 100;
  return powerOfTwo<Lane<W>>(std::clamp(factor, -far, far));
}

// All but the two lowest bits.
template <class W>
[[gnu::always_inline]] inline W shortened(W quotient) {
  return W(Bits<W>(quotient) & ~Lane<Bits<W>>(3));
}

// The dividend times a reciprocal, which is made one unit in its last place too large: rounding
// twice then takes an integer, or half of one, no further than three units up, and without the two
// lowest bits it is exact again. Any other quotient stays on its side of those, as long as it is
// four units away.
template <class W>
class ByReciprocal {
 public:
  explicit ByReciprocal(int factor)
      : scale_(W(Bits<W>(broadcast<W>(1 / divisorScale<W>(factor))) + 1)) {}

  [[gnu::always_inline]] W prepared(W divisor) { return scale_ / withoutZeros(zeros_, divisor); }
  [[gnu::always_inline]] W quotient(W dividend, W reciprocal) const {
    return shortened(dividend * reciprocal);
  }

  MoxStatus status() const { return zeros_.status(); }

 private:
  ZeroDivisors<Lane<W>> zeros_;
  W scale_;
};

// One division, without the two lowest bits: a quotient less than four units above an integer or
// half of one counts as that.
template <class W>
class ByDivision {
 public:
  explicit ByDivision(int factor) : scale_(broadcast<W>(divisorScale<W>(factor))) {}

  [[gnu::always_inline]] W prepared(W divisor) { return scale_ * withoutZeros(zeros_, divisor); }
  [[gnu::always_inline]] W quotient(W dividend, W scaledDivisor) const {
    return shortened(dividend / scaledDivisor);
  }

  MoxStatus status() const { return zeros_.status(); }

 private:
  ZeroDivisors<Lane<W>> zeros_;
  W scale_;
};

// Quotients as 32-bit integers, stopped at the largest value of T; what lies below the smallest is
// left to saturation. The rounding is moxRoundNearEven or one of its like.
template <int rounding, class T, class W>
[[gnu::always_inline]] inline auto roundedTo(W quotient) {
  using F = Lane<W>;
  quotient = lesser(quotient, broadcast<W>(F(Limits<T>::max)));
  if constexpr (rounding == moxRoundNearEven) {
    return toInteger(quotient);
  } else {
    if constexpr (rounding == moxRoundHalfAway)
      quotient += withSignOf(quotient, broadcast<W>(F(0.5)));
    return __builtin_convertvector(quotient, V<Mox32s, laneCount<W>>);
  }
}

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
