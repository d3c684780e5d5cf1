// Integer quotients times 2^-factor by floating-point arithmetic, in vectors W of floats or doubles
// that hold the integers exactly. They run under rounding to nearest.
#pragma once

#include <moxsp/types.h>

#include <algorithm>

#include "arith/div_zeros.h"
#include "frame/rounding.h"

namespace mox::arith {

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

}  // namespace mox::arith
