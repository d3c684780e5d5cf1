// The angle of complex numbers, atan2(), by octants: the quotient of the smaller part by the larger
// is the tangent of an angle up to pi / 4, and the rest is symmetry.
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>

#include "arith/arctan.h"
#include "frame/complex_map.h"

namespace mox {

namespace detail {

// The larger part counts as 1 where both are 0, so that the quotient is 0.
template <class T>
struct Octant {
  T smaller, larger;
  T isSteep;  // mask: the imaginary part is the larger one
  T isOut;    // mask: NaN, infinity, or parts that a kernel cannot divide

  [[gnu::always_inline]] explicit Octant(Pair<T> z) {
    const T u = absolute(z.re), v = absolute(z.im), zero = {};
    const T most = greater(u, v);
    smaller = lesser(u, v);
    larger = select(T(most > zero), most, zero + 1);
    isSteep = T(v > u);
    if constexpr (sizeof(Lane<T>) == 4)
      isOut = either(notAtMost(u + v, 0x1p100f), notAtLeast(larger, 0x1p-100f));
    else
      isOut = notAtMost(u + v, 0x1p1000);
  }
};

}  // namespace detail

template <class T>
struct Angle {
  T value;
  T isOut;  // mask of the lanes to be computed anew by phaseOfOne()
};

// The divisions by way of the processor's estimate of a reciprocal.
[[gnu::always_inline]] inline Angle<V<Mox32f>> phaseLanes(Pair<V<Mox32f>> z) {
  const detail::Octant o(z);
  const V<Mox32f> angle = arctanOfFraction(o.smaller * refinedReciprocal(o.larger));
  const V<Mox32f> upTo90 = select(o.isSteep, 1.5707963705062866f - angle, angle);
  return {withSignOf(z.im, select(z.re, 3.1415927410125732f - upTo90, upTo90)), o.isOut};
}

// An angle beyond pi / 8 is pi / 4 less one below; so all are a multiple of pi / 4 and a small
// rest.
[[gnu::always_inline]] inline Angle<V<Mox64f>> phaseLanes(Pair<V<Mox64f>> z) {
  using Lanes = V<Mox64f>;
  constexpr Mox64f quarterPi = 0x1.921fb54442d10p-1, below = 0x1.08d313198a2e0p-50;
  const Lanes zero = {}, one = zero + 1;
  const detail::Octant o(z);
  const Lanes isFar = Lanes(o.smaller > o.larger * tangentOfEighthPi);
  const Lanes numerator = select(isFar, o.smaller - o.larger, o.smaller);
  const Lanes denominator = select(isFar, o.smaller + o.larger, o.larger);
  const Lanes first = select(isFar, one, zero), second = select(o.isSteep, 2 - first, first);
  const Lanes multiple = select(z.re, 4 - second, second);
  const Bits<Lanes> turned = (Bits<Lanes>(o.isSteep) ^ Bits<Lanes>(z.re)) & signBit<Lanes>;
  const Lanes t = Lanes(Bits<Lanes>(numerator / denominator) ^ turned);
  // The first part of pi / 4 has few enough bits for an exact product.
  const Lanes angle = multiple * quarterPi + (t + (arctanExcess(t) + multiple * below));
  return {withSignOf(z.im, absolute(angle)), o.isOut};
}

// Of any number; what the kernels leave out is brought into their reach.
template <class F>
F phaseOfOne(F re, F im) {
  if (std::isnan(re) || std::isnan(im)) return re + im;
  if (std::isinf(re) || std::isinf(im)) {
    re = std::copysign(F(std::isinf(re)), re);
    im = std::copysign(F(std::isinf(im)), im);
  } else {
    const int exponent = std::ilogb(std::max(std::fabs(re), std::fabs(im)));
    re = std::scalbn(re, -exponent);
    im = std::scalbn(im, -exponent);
  }
  return phaseLanes(Pair{broadcast<V<F>>(re), broadcast<V<F>>(im)}).value[0];
}

namespace detail {

template <class T>
[[gnu::noinline, gnu::cold]] T repairPhases(Pair<T> z, Angle<T> angle) {
  for (int bits = signBits(angle.isOut); bits; bits &= bits - 1) {
    const int lane = std::countr_zero(unsigned(bits));
    angle.value[lane] = phaseOfOne(z.re[lane], z.im[lane]);
  }
  return angle.value;
}

}  // namespace detail

template <class F>
struct Phase {
  static constexpr int lanes = lanesOf<F>;
  auto operator()(auto src, long i) const {
    const auto z = src.template lanes<V<F>>(i);
    const auto angle = phaseLanes(z);
    if (signBits(angle.isOut)) [[unlikely]]
      return detail::repairPhases(z, angle);
    return angle.value;
  }
};

}  // namespace mox
