// Integer results, correctly rounded, of exact values that doubles hold only nearly.
#pragma once

#include <bit>
#include <cmath>

#include "frame/map_rounded.h"

namespace mox::convert {

namespace detail {

template <class IsAboveTie>
[[gnu::noinline, gnu::cold]] V<Mox64f> decideTies(V<Mox64f> r, V<Mox64f> rounded, int lanes,
                                                  IsAboveTie isAboveTie) {
  for (; lanes; lanes &= lanes - 1) {
    const int lane = std::countr_zero(unsigned(lanes));
    const Mox64s whole = Mox64s(std::fabs(r[lane]));
    rounded[lane] = std::copysign(Mox64f(whole + isAboveTie(lane, whole)), r[lane]);
  }
  return rounded;
}

}  // namespace detail

// r to the nearest integer, where r is within 2^-49 of itself of the exact value. In lanes where
// that doesn't tell, isAboveTie(lane, n) does: whether the exact size lies above n + 1/2, or is
// just that and n odd.
template <class IsAboveTie>
[[gnu::always_inline]] inline V<Mox64f> roundedOnce(V<Mox64f> r, IsAboveTie isAboveTie) {
  // Any limit beyond those of the results does; the integer is in reach of 64 bits then.
  const auto limit = broadcast<V<Mox64f>>(0x1p33);
  r = greater(lesser(r, limit), -limit);
  const V<Mox64f> rounded = nearestInteger(r), toTie = absolute(r - rounded) - 0.5;
  const V<Mox64f> doubtful = V<Mox64f>(absolute(toTie) <= absolute(r) * 0x1p-49);
  if (const int lanes = signBits(doubtful)) [[unlikely]]
    return detail::decideTies(r, rounded, lanes, isAboveTie);
  return rounded;
}

// Doubles that are integers, saturated to integerLanes of the result's type: make(i) makes a vector
// of them from element i on.
template <class D, class Make>
[[gnu::always_inline]] inline auto integersFrom(Make make) {
  if constexpr (sizeof(D) == 2)
    return packInOrder<D>(saturate<D>(make(0)), saturate<D>(make(laneCount<V<Mox64f>>)));
  else
    return saturate<D>(make(0));
}
template <class D>
constexpr int integerLanes = laneCount<V<Mox64f>>*(sizeof(D) == 2 ? 2 : 1);

}  // namespace mox::convert
