// The angle of complex numbers, atan2(), by octants: the quotient of the smaller part by the larger
// is the tangent of an angle up to pi / 4, and the rest is symmetry.
#pragma once

#include <limits>

#include "arith/arctan.h"
#include "convert/exact_angle.h"
#include "convert/round_once.h"
#include "frame/map_complex.h"

namespace mox::convert {

namespace detail {

// The larger part counts as 1 where both are 0, so that the quotient is 0.
template <class T>
struct Octant {
  T smaller, larger;
  Mask<T> isSteep;  // the imaginary part is the larger one
  Mask<T> isOut;    // NaN, infinity, or parts that a kernel cannot divide

  [[gnu::always_inline]] explicit Octant(Pair<T> z) {
    const T u = absolute(z.re), v = absolute(z.im), zero = {};
    const T most = greater(u, v);
    smaller = lesser(u, v);
    larger = select(isAbove(most, zero), most, zero + 1);
    isSteep = isAbove(v, u);
    constexpr bool isSingle = sizeof(Lane<T>) == 4;
    constexpr Lane<T> highest = isSingle ? 0x1p100 : 0x1p1000, lowest = 1 / highest;
    isOut = either(notAtMost(u + v, highest), notAtLeast(larger, lowest));
  }
};

}  // namespace detail

template <class T>
struct Angle {
  T value;
  Mask<T> isOut;  // the lanes to be computed anew by phaseOfAny()
};

// The divisions by way of the processor's estimate of a reciprocal.
template <Of<Mox32f> T>
[[gnu::always_inline]] inline Angle<T> phaseLanes(Pair<T> z) {
  const detail::Octant o(z);
  const T angle = arith::arctanOfFraction(o.smaller * refinedReciprocal(o.larger));
  const T upTo90 = select(o.isSteep, 1.5707963705062866f - angle, angle);
  return {withSignOf(z.im, select(z.re, 3.1415927410125732f - upTo90, upTo90)), o.isOut};
}

// A quotient above 0.3 is that of an angle next to atan(1/2), and of one from there: the difference
// of the smaller part and half the larger is exact. Constants are in two parts, of which the first
// have so few bits that their sums are exact.
template <Of<Mox64f> T>
[[gnu::always_inline]] inline Angle<T> phaseLanes(Pair<T> z) {
  constexpr Mox64f halfPi = 0x1.921fb54442d18p+0, halfPiRest = 0x1.1a62633145c07p-54;
  constexpr Mox64f base = 0x1.dac670561bb40p-2, baseRest = 0x1.ed15bf9117b2fp-51;
  const T zero = {}, one = zero + 1;
  const detail::Octant o(z);
  const T isFar = isAbove(o.smaller, o.larger * 0.3), isSteep = o.isSteep;
  const auto whereFar = [&](Mox64f v) { return T(Bits<T>(zero + v) & Bits<T>(isFar)); };
  const T half = whereFar(0.5);
  const T quotient = (o.smaller - o.larger * half) / (o.larger + o.smaller * half);
  const Bits<T> turned = (Bits<T>(isSteep) ^ Bits<T>(z.re)) & signBit<T>;
  const auto turn = [&](T v) { return T(Bits<T>(v) ^ turned); };
  const T t = turn(quotient), upTo90 = T(Bits<T>(one) & Bits<T>(isSteep));
  const T quarters = select(z.re, 2 - upTo90, upTo90);
  const T from = quarters * halfPi + turn(whereFar(base));
  const T rest = quarters * halfPiRest + turn(whereFar(baseRest));
  return {withSignOf(z.im, absolute(from + (t + (arith::arctanExcess(t) + rest)))), o.isOut};
}

namespace detail {

// Times the power of two that brings the larger part to 1 or above, below 2. Half of it at a time
// is a number for all exponents.
template <class T>
Pair<T> normalised(Pair<T> z) {
  using Range = std::numeric_limits<Lane<T>>;
  using Integers = Bits<T>;
  using Integer = Lane<Integers>;
  constexpr Integer bias = Range::max_exponent - 1, fractionBits = Range::digits - 1;
  const T larger = greater(absolute(z.re), absolute(z.im)), isSubnormal = T(larger < Range::min());
  const T lifted = select(isSubnormal, larger * Lane<T>(Integer(1) << Range::digits), larger);
  const Integers exponent =
      (Integers(lifted) >> fractionBits) - (Integers(isSubnormal) & Integer(Range::digits));
  const Integers both = 3 * bias - exponent, one = both >> 1;
  return z * T(one << fractionBits) * T((both - one) << fractionBits);
}

// Of any numbers: those that the kernels leave out are brought into their reach.
template <class T>
[[gnu::noinline]] T phaseOfAny(const Pair<T>& z) {
  const auto beyond = [](T v) -> T {
    return notAtMost(absolute(v), std::numeric_limits<Lane<T>>::max());
  };
  const T zero = {}, isInfinite = either(beyond(z.re), beyond(z.im)), isOut = Octant(z).isOut;
  const Pair<T> finite = normalised(z);
  const auto inReach = [&](T v, T scaled) {
    const T direction = withSignOf(v, select(beyond(v), zero + 1, zero));
    return select(isOut, select(isInfinite, direction, scaled), v);
  };
  const Pair<T> reached = {inReach(z.re, finite.re), inReach(z.im, finite.im)};
  const T sum = z.re + z.im, isNaN = either(T(z.re != z.re), T(z.im != z.im));
  return select(isNaN, sum, phaseLanes(reached).value);
}

}  // namespace detail

template <class T>
struct PhaseLanes {
  static constexpr int lanes = laneCount<T>;
  auto operator()(auto src, long i) const {
    const auto z = src.template lanes<T>(i);
    const auto angle = phaseLanes(z);
    if (signBits(angle.isOut)) [[unlikely]]
      return detail::phaseOfAny(z);
    return angle.value;
  }
};
template <class F>
using Phase = InWidest<PhaseLanes, F>;

// Radians times 2^-factor, rounded to the nearest integer.
template <class D>
struct ScaledPhase {
  static constexpr int lanes = integerLanes<D>;

  explicit ScaledPhase(int scaleFactor) : factor(scaleFactor), scale(scaleFactor) {}

  auto operator()(auto src, long i) const {
    return integersFrom<D>([&](long j) {
      const auto z = src.template lanes<V<Mox64f>>(i + j);
      return roundedOnce(scale(phaseLanes(z).value), [&](int lane, Mox64s n) {
        return isPhaseAboveTie(Mox32s(z.re[lane]), Mox32s(z.im[lane]), factor, n);
      });
    });
  }

  int factor;
  ByPowerOfTwo scale;
};

}  // namespace mox::convert
